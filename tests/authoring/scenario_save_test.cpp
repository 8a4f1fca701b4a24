#include "authoring/scenario_save.h"

#include "authoring/scenario_rig.h"
#include "platform/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using authoring::Field;
using authoring::WriteFields;
using authoring::Written;
using platform::ForDisplay;
using platform::Icon;
using testing::ElementsAre;
using testing::IsEmpty;

std::string RouteFile(const ScenarioRig& rig, const std::string& name) {
    return rig.folder / ("Game\\content\\Routes\\r1\\" + name);
}

/// What the index is after a save of the editor's fields.
std::string SavedIndex(const ScenarioRig& rig) {
    return ScenarioRig::kHead + WriteFields(rig.record, rig.editor.Text1) + ScenarioRig::kTail + "\r\n";
}

struct Mistake {
    const char* name;
    Field field;
    const char* text;
    const char* message;
};

void PrintTo(const Mistake& mistake, std::ostream* out) { *out << mistake.name; }

constexpr const char* kTimeMessage = "The time must be in 24hour format, e.g. 0530";
constexpr const char* kDayMessage = "Invalid Start Day, must be between 1 and 31.";
constexpr const char* kMonthMessage = "Invalid Start Month, must be between 1 and 12.";
constexpr const char* kWeatherMessage = "Weather Blueprint entered does not exist in the folder shown.";

class SaveRefuses : public testing::TestWithParam<Mistake> {};

TEST_P(SaveRefuses, AndWritesNothing) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    rig.editor.Text1[GetParam().field] = GetParam().text;
    const std::size_t starts = rig.rig.processes.starts.size();
    EXPECT_FALSE(SaveChanges(rig.context, rig.editor).isDone);
    ASSERT_EQ(rig.rig.ui.Messages().size(), 1U);
    const platform::Message message = rig.rig.ui.Messages()[0];
    EXPECT_EQ(message.text, GetParam().message);
    EXPECT_EQ(message.icon, Icon::Exclamation);
    EXPECT_EQ(message.title, "Tamarind");
    EXPECT_EQ(rig.folder.Read(kIndexFile), GameFile(rig.index));
    EXPECT_EQ(rig.folder.Read("Kit\\TempFiles\\Scenarios.xml"), rig.index);
    EXPECT_EQ(rig.rig.processes.starts.size(), starts);
    EXPECT_EQ(rig.editor.Command2, "Cancel");
}

INSTANTIATE_TEST_SUITE_P(Of, SaveRefuses,
                         testing::Values(Mistake{"AShortTime", Field::StartTime, "530", kTimeMessage},
                                         Mistake{"ALongTime", Field::StartTime, "05300", kTimeMessage},
                                         Mistake{"NoTime", Field::StartTime, "", kTimeMessage},
                                         Mistake{"ATimePastMidnight", Field::StartTime, "2401", kTimeMessage},
                                         Mistake{"ATimeThatIsNoNumber", Field::StartTime, "5:30", kTimeMessage},
                                         Mistake{"ATimeOfFewerCharactersThanBytes", Field::StartTime,
                                                 "1\xC3\xBC"
                                                 "1",
                                                 kTimeMessage},
                                         Mistake{"DayZero", Field::StartDay, "0", kDayMessage},
                                         Mistake{"Day32", Field::StartDay, "32", kDayMessage},
                                         Mistake{"ADayThatIsNoNumber", Field::StartDay, "first", kDayMessage},
                                         Mistake{"NoDay", Field::StartDay, "", kDayMessage},
                                         Mistake{"MonthZero", Field::StartMonth, "0", kMonthMessage},
                                         Mistake{"Month13", Field::StartMonth, "13", kMonthMessage},
                                         Mistake{"AMonthThatIsNoNumber", Field::StartMonth, "May", kMonthMessage},
                                         Mistake{"WeatherThatIsNotThere", Field::WeatherBlueprint, "Weather\\Hail.xml",
                                                 kWeatherMessage},
                                         Mistake{"NoWeather", Field::WeatherBlueprint, "", kWeatherMessage},
                                         Mistake{"AnotherProvider", Field::WeatherProvider, "Nobody", kWeatherMessage}),
                         [](const testing::TestParamInfo<Mistake>& param) { return param.param.name; });

TEST(Save, ChecksInTheOrderOfTimeDayMonthWeather) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    auto& fields = rig.editor.Text1;
    fields[Field::StartTime] = "x";
    fields[Field::StartDay] = "0";
    fields[Field::StartMonth] = "0";
    fields[Field::WeatherProduct] = "Gone";
    const auto saveWith = [&](Field field, const char* text) {
        SaveChanges(rig.context, rig.editor);
        fields[field] = text;
    };
    saveWith(Field::StartTime, "0530");
    saveWith(Field::StartDay, "1");
    saveWith(Field::StartMonth, "1");
    SaveChanges(rig.context, rig.editor);
    EXPECT_THAT(rig.Told(), ElementsAre(kTimeMessage, kDayMessage, kMonthMessage, kWeatherMessage));
}

class SaveAccepts : public testing::TestWithParam<std::pair<Field, std::string>> {};

TEST_P(SaveAccepts, AndWritesTheIndex) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    rig.editor.Text1[GetParam().first] = GetParam().second;
    EXPECT_TRUE(SaveChanges(rig.context, rig.editor).isDone);
    EXPECT_EQ(rig.folder.Read(kIndexFile), GameFile(SavedIndex(rig)));
}

// Minutes are not checked, midnight may be 2400, and all that has no check is written as typed.
INSTANTIATE_TEST_SUITE_P(Of, SaveAccepts,
                         testing::Values(std::pair(Field::StartTime, "0590"), std::pair(Field::StartTime, "2400"),
                                         std::pair(Field::StartTime, "0000"), std::pair(Field::StartDay, "31"),
                                         std::pair(Field::StartMonth, "12"), std::pair(Field::StartDay, " 7 "),
                                         std::pair(Field::Duration, "an hour"), std::pair(Field::StartYear, ""),
                                         std::pair(Field::Season, "MONSOON"), std::pair(Field::Briefing, "")));

TEST(Save, WritesTheRecordBetweenHeadAndTailWithOneLineEnd) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    rig.editor.Text1[Field::DisplayName] = "Evening Milk";
    EXPECT_TRUE(SaveChanges(rig.context, rig.editor).isDone);
    const std::string xml = rig.folder.Read("Kit\\TempFiles\\Scenarios.xml");
    EXPECT_EQ(xml, SavedIndex(rig));
    EXPECT_TRUE(xml.ends_with("</cScenarioIndex>\r\n\r\n"));
    EXPECT_EQ(rig.folder.Read(kIndexFile), GameFile(xml));
}

TEST(Save, OfAnUnchangedQuarterToSixMovesTheStartByAnHour) {
    ScenarioRig rig({}, {.start = "20700"});
    ASSERT_TRUE(rig.OpenEditor());
    EXPECT_TRUE(SaveChanges(rig.context, rig.editor).isDone);
    EXPECT_NE(rig.folder.Read(kIndexFile).find("<StartTime d:type=\"text\">24300.0000</StartTime>"), std::string::npos);
}

TEST(Save, WritesMarkupAsTyped) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    rig.editor.Text1[Field::DisplayName] = "Milk & <Mail>";
    EXPECT_TRUE(SaveChanges(rig.context, rig.editor).isDone);
    EXPECT_NE(rig.folder.Read(kIndexFile).find("<English d:type=\"text\">Milk & <Mail></English>"), std::string::npos);
}

TEST(Save, WritesSingleBytes) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    rig.editor.Text1[Field::DisplayName] = "M\xC3\xBCller";
    EXPECT_TRUE(SaveChanges(rig.context, rig.editor).isDone);
    EXPECT_NE(rig.folder.Read(kIndexFile).find(">M\xFCller<"), std::string::npos);
}

TEST(Save, RunsTheConverterHiddenWithTheWordXml) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    SaveChanges(rig.context, rig.editor);
    const platform::ProcessStart& start = rig.rig.processes.starts.back();
    EXPECT_EQ(start.commandLine, "serz.exe \"" + (rig.folder / "Kit\\TempFiles\\Scenarios.xml") + "\" xml:\"" +
                                     RouteFile(rig, "Scenarios.bin") + "\"");
    EXPECT_EQ(start.folder, rig.folder / "Kit");
    EXPECT_EQ(start.style, platform::WindowStyle::Hidden);
}

TEST(Save, KeepsTheOldIndexUnderTheFirstFreeName) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    EXPECT_EQ(SaveChanges(rig.context, rig.editor).backup, RouteFile(rig, "Scenarios.bak"));
    EXPECT_EQ(rig.folder.Read(RouteRig::Route("r1") + "\\Scenarios.bak"), GameFile(rig.index));

    ScenarioRig other;
    other.folder.Write(RouteRig::Route("r1") + "\\Scenarios.bak", "a");
    other.folder.Write(RouteRig::Route("r1") + "\\Scenarios.bak1", "b");
    ASSERT_TRUE(other.OpenEditor());
    EXPECT_EQ(SaveChanges(other.context, other.editor).backup, RouteFile(other, "Scenarios.bak2"));
    EXPECT_EQ(other.folder.Read(RouteRig::Route("r1") + "\\Scenarios.bak2"), GameFile(other.index));
    EXPECT_EQ(other.folder.Read(RouteRig::Route("r1") + "\\Scenarios.bak"), "a");
}

TEST(Save, OverwritesTheIndexWhenAllBackupNamesAreTaken) {
    ScenarioRig rig;
    rig.folder.Write(RouteRig::Route("r1") + "\\Scenarios.bak", "a");
    for (int i = 1; i <= 50; ++i)
        rig.folder.Write(RouteRig::Route("r1") + "\\Scenarios.bak" + std::to_string(i), "b");
    ASSERT_TRUE(rig.OpenEditor());
    rig.editor.Text1[Field::DisplayName] = "Evening Milk";
    const Written written = SaveChanges(rig.context, rig.editor);
    EXPECT_TRUE(written.isDone);
    EXPECT_EQ(written.backup, "");
    EXPECT_EQ(rig.folder.Read(kIndexFile), GameFile(SavedIndex(rig)));
    EXPECT_FALSE(rig.Has(RouteRig::Route("r1") + "\\Scenarios.bak51"));
}

TEST(Save, TellsThatTheFileHasBeenUpdated) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    SaveChanges(rig.context, rig.editor);
    ASSERT_EQ(rig.rig.ui.Messages().size(), 1U);
    EXPECT_EQ(rig.rig.ui.Messages()[0].text, kUpdated);
    EXPECT_EQ(rig.rig.ui.Messages()[0].icon, Icon::Information);
    EXPECT_EQ(rig.rig.ui.Messages()[0].title, "Tamarind");
    EXPECT_EQ(rig.editor.Command2, "Exit");
}

TEST(Save, GivesTheListOfScenariosTheNewName) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    rig.editor.Text1[Field::DisplayName] = "Evening Milk";
    SaveChanges(rig.context, rig.editor);
    EXPECT_THAT(rig.context.session.Routes.ScenarioNames, ElementsAre("Evening Milk", "Mail"));
}

TEST(Save, ASecondTimeInOneWindowOnlyTells) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    SaveChanges(rig.context, rig.editor);
    const std::string index = rig.folder.Read(kIndexFile);
    EXPECT_TRUE(rig.editor.isSaveEnabled);
    EXPECT_FALSE(SaveChanges(rig.context, rig.editor).isDone);
    const platform::Message message = rig.rig.ui.Messages().back();
    EXPECT_EQ(message.text, "This scenario has been saved already. Close this window and open it again to change it "
                            "further.");
    EXPECT_EQ(message.icon, Icon::Exclamation);
    EXPECT_EQ(message.buttons, platform::Buttons::Ok);
    EXPECT_FALSE(rig.editor.isSaveEnabled);
    EXPECT_EQ(rig.folder.Read(kIndexFile), index);
}

// Why the window only tells: the shared record is the whole index by then.
TEST(WriteScenario, ASecondTimeEditsTheWholeIndexAndPutsItIntoItself) {
    ScenarioRig rig;
    // The second scenario is the one that is edited.
    rig.folder.Write(RouteRig::Route("r1") + "\\Scenarios\\s2\\Scenario.bin", GameFile(rig.scenario));
    ASSERT_EQ(rig.HandOver(1), routes::Ended::Done);
    ASSERT_TRUE(authoring::LoadScenario(rig.context, rig.editor));
    const auto& edit = rig.context.session.ScenarioEdit;
    const std::string head = edit.ScenarioIndexHead;
    const std::string tail = edit.ScenarioIndexTail;
    ASSERT_TRUE(WriteScenario(rig.context, rig.editor).isDone);
    const std::string once = edit.ScenarioRecord;
    EXPECT_TRUE(once.starts_with(head + "<cScenarioProperties"));

    rig.editor.Text1[Field::Season] = "SEASON_WINTER";
    ASSERT_TRUE(WriteScenario(rig.context, rig.editor).isDone);
    const std::string twice = head + WriteFields(once, rig.editor.Text1) + tail;
    EXPECT_EQ(edit.ScenarioRecord, twice);
    EXPECT_EQ(rig.folder.Read(kIndexFile), GameFile(twice + "\r\n"));
    // The first record of all got the second scenario's season.
    const std::size_t first = twice.find("<Season", head.size());
    EXPECT_EQ(twice.find("SEASON_WINTER", first), twice.find('>', first) + 1);
}

TEST(Save, PutsTheOldIndexBackWhenTheConverterWritesNothing) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    rig.editor.Text1[Field::DisplayName] = "Evening Milk";
    rig.converter.isBroken = true;
    EXPECT_FALSE(SaveChanges(rig.context, rig.editor).isDone);
    EXPECT_EQ(rig.folder.Read(kIndexFile), GameFile(rig.index));
    EXPECT_EQ(rig.folder.Read(RouteRig::Route("r1") + "\\Scenarios.bak"), GameFile(rig.index));
    EXPECT_THAT(rig.Told(),
                ElementsAre(kUpdated, "Nothing was changed: the converter wrote no new file, and the old one is in its "
                                      "place.\r\n" +
                                          ForDisplay(RouteFile(rig, "Scenarios.bin"))));
    EXPECT_EQ(rig.rig.ui.Messages()[1].icon, Icon::Exclamation);
    EXPECT_EQ(rig.editor.Command2, "Exit");
}

TEST(Save, CanBeTriedAgainWhenTheConverterWroteNothing) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    rig.editor.Text1[Field::DisplayName] = "Evening Milk";
    rig.converter.isBroken = true;
    SaveChanges(rig.context, rig.editor);
    EXPECT_EQ(rig.context.session.ScenarioEdit.ScenarioRecord, rig.record);
    // Deleting a scenario takes the index from there.
    EXPECT_EQ(rig.folder.Read("Kit\\TempFiles\\Scenarios.xml"), rig.index + "\r\n");
    EXPECT_THAT(rig.context.session.Routes.ScenarioNames, ElementsAre("Morning Milk", "Mail"));
    rig.converter.isBroken = false;
    EXPECT_TRUE(SaveChanges(rig.context, rig.editor).isDone);
    EXPECT_EQ(rig.folder.Read(kIndexFile), GameFile(SavedIndex(rig)));
}

TEST(Save, TakesAnEmptyResultForNone) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    rig.converter.isBroken = true;
    rig.converter.onStart = [&] { rig.folder.Write(kIndexFile, ""); };
    EXPECT_FALSE(SaveChanges(rig.context, rig.editor).isDone);
    EXPECT_EQ(rig.folder.Read(kIndexFile), GameFile(rig.index));
}

TEST(Save, ShowsTheDescriptionOfARunTimeErrorInTheMiddle) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    rig.editor.Text1[Field::StartTime] = "1e02"; // a number, but its halves are none
    EXPECT_FALSE(SaveChanges(rig.context, rig.editor).isDone);
    EXPECT_THAT(rig.Told(), ElementsAre("An error Type mismatch occurred in frmScenEdit"));
    EXPECT_EQ(rig.folder.Read(kIndexFile), GameFile(rig.index));
}

TEST(Save, TellsOfAnIndexThatIsGone) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    rig.folder.Disk().Remove(rig.folder / kIndexFile, true);
    EXPECT_FALSE(SaveChanges(rig.context, rig.editor).isDone);
    EXPECT_THAT(rig.Told(), ElementsAre("An error File not found occurred in frmScenEdit"));
    EXPECT_EQ(rig.context.session.ScenarioEdit.ScenarioRecord, rig.record);
}

TEST(Save, FailsForARecordWithoutABlueprint) {
    ScenarioRig rig({}, {.without = "BlueprintID"});
    ASSERT_TRUE(rig.OpenEditor());
    rig.editor.Text1[Field::WeatherBlueprint] = "Weather\\Clear.xml";
    EXPECT_FALSE(SaveChanges(rig.context, rig.editor).isDone);
    EXPECT_THAT(rig.Told(), ElementsAre("An error Invalid procedure call or argument occurred in frmScenEdit"));
    EXPECT_EQ(rig.folder.Read(kIndexFile), GameFile(rig.index));
}

TEST(Save, WaitsForAConversionThatGoesOn) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    Written nested;
    rig.converter.onStart = [&] {
        EXPECT_TRUE(rig.editor.isBusy);
        rig.converter.onStart = nullptr;
        nested = SaveChanges(rig.context, rig.editor);
    };
    EXPECT_TRUE(SaveChanges(rig.context, rig.editor).isDone);
    EXPECT_FALSE(nested.isDone);
    EXPECT_FALSE(rig.editor.isBusy);
    EXPECT_THAT(rig.context.session.convertingBases, IsEmpty());
}

} // namespace
} // namespace tamarind::tests
