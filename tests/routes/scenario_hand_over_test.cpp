#include "authoring/scenario_rig.h"
#include "platform/expect_error.h"
#include "platform/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using routes::Ended;
using routes::SplitIndex;
using testing::ElementsAre;
using testing::IsEmpty;
using text::ErrorNumber;

std::string Record(const std::string& id) {
    return "<cScenarioProperties d:id=\"1\"><DevString>" + id + "</DevString></cScenarioProperties>";
}

TEST(SplitIndex, TakesTheRecordFromItsOpeningToItsClosingTag) {
    const auto parts = SplitIndex("<x>" + Record("s1") + Record("s2") + Record("s3") + "</x>", "s2");
    EXPECT_EQ(parts.head, "<x>" + Record("s1"));
    EXPECT_EQ(parts.record, Record("s2"));
    EXPECT_EQ(parts.tail, Record("s3") + "</x>");
}

TEST(SplitIndex, IgnoresLetterCase) {
    EXPECT_EQ(SplitIndex("<CSCENARIOPROPERTIES><devstring>S1</devstring></cscenarioproperties>", "s1").record,
              "<CSCENARIOPROPERTIES><devstring>S1</devstring></cscenarioproperties>");
}

TEST(SplitIndex, TakesTheWholeIdAlone) {
    EXPECT_EQ(SplitIndex(Record("s10") + Record("s1"), "s1").record, Record("s1"));
}

TEST(SplitIndex, FailsWithoutAWholeRecordOfTheId) {
    const auto expectNone = [](const std::string& text) {
        ExpectError([&] { static_cast<void>(SplitIndex(text, "s1")); }, ErrorNumber::InvalidProcedureCall);
    };
    expectNone("");
    expectNone(Record("s2"));
    expectNone("<DevString>s1</DevString>");
    expectNone("<cScenarioProperties><DevString>s1</DevString>");
    expectNone(Record("s2") + "<DevString>s1</DevString>" + Record("s3"));
}

TEST(EditScenario, HandsOverFoldersRecordAndText) {
    ScenarioRig rig;
    EXPECT_EQ(rig.HandOver(), Ended::Done);
    const auto& edit = rig.context.session.ScenarioEdit;
    EXPECT_EQ(edit.EditRouteFolder, rig.folder / "Game\\content\\Routes\\r1");
    EXPECT_EQ(edit.EditScenarioFolder, rig.folder / "Game\\content\\Routes\\r1\\Scenarios\\s1");
    EXPECT_EQ(edit.ScenarioRecord, rig.record);
    EXPECT_EQ(edit.ScenarioIndexHead, ScenarioRig::kHead);
    EXPECT_EQ(edit.ScenarioIndexTail, ScenarioRig::kTail);
    EXPECT_EQ(edit.ScenarioText, rig.scenario);
    EXPECT_EQ(rig.folder.Read("Kit\\TempFiles\\Scenario.xml"), rig.scenario);
    EXPECT_THAT(rig.rig.view.calls, testing::Contains("ShowScenarioEditor"));
    EXPECT_THAT(rig.Told(), IsEmpty());
}

TEST(EditScenario, ConvertsTheScenariosOwnFileHidden) {
    ScenarioRig rig;
    rig.HandOver();
    const platform::ProcessStart& start = rig.rig.processes.starts.back();
    EXPECT_EQ(start.commandLine, "serz.exe \"" +
                                     (rig.folder / "Game\\content\\Routes\\r1\\Scenarios\\s1\\Scenario.bin") +
                                     "\" xml:\"" + (rig.folder / "Kit\\TempFiles\\Scenario.xml") + "\"");
    EXPECT_EQ(start.folder, rig.folder / "Kit");
    EXPECT_EQ(start.style, platform::WindowStyle::Hidden);
}

TEST(EditScenario, DoesNothingWithoutASelectedScenario) {
    ScenarioRig rig;
    const std::vector<std::size_t> none;
    EXPECT_EQ(routes::EditScenario(rig.context, rig.window, none), Ended::Failed);
    EXPECT_EQ(rig.HandOver(2), Ended::Failed);
    EXPECT_THAT(rig.rig.view.calls, testing::Not(testing::Contains("ShowScenarioEditor")));
}

TEST(EditScenario, RefusesAScenarioThatTheIndexLacks) {
    ScenarioRig rig;
    rig.folder.Write("Kit\\TempFiles\\Scenarios.xml", "<cScenarioIndex/>");
    EXPECT_EQ(rig.HandOver(), Ended::Failed);
    EXPECT_THAT(rig.Told(),
                ElementsAre("This scenario cannot be edited: the list of scenarios holds no whole record of "
                            "it. Please list them again."));
    EXPECT_EQ(rig.context.session.ScenarioEdit.ScenarioRecord, "");
}

TEST(EditScenario, RefusesAnIdThatIsNoFoldersName) {
    ScenarioRig rig;
    rig.context.session.Routes.ScenarioIds[0] = "..";
    EXPECT_EQ(rig.HandOver(), Ended::Failed);
    EXPECT_THAT(rig.Told(), ElementsAre("This scenario cannot be edited: \"..\" is not the name of a folder."));
}

TEST(EditScenario, SaysThatTheFileCouldNotBeConverted) {
    ScenarioRig rig;
    rig.converter.isBroken = true;
    EXPECT_EQ(rig.HandOver(), Ended::Failed);
    EXPECT_THAT(rig.Told(), ElementsAre("This scenario cannot be edited: its file could not be converted.\r\n" +
                                        platform::ForDisplay(
                                            rig.folder / "Game\\content\\Routes\\r1\\Scenarios\\s1\\Scenario.bin")));
    EXPECT_EQ(rig.context.session.ScenarioEdit.ScenarioText, "");
}

TEST(EditScenario, DoesNotTakeAnEarlierConversionForThisOne) {
    ScenarioRig rig;
    rig.folder.Write("Kit\\TempFiles\\Scenario.xml", "<old/>");
    rig.converter.isBroken = true;
    EXPECT_EQ(rig.HandOver(), Ended::Failed);
}

TEST(EditScenario, WaitsForAConversionThatGoesOn) {
    ScenarioRig rig;
    rig.context.session.convertingBases.emplace_back("x");
    EXPECT_EQ(rig.HandOver(), Ended::Failed);
    EXPECT_THAT(rig.Told(), ElementsAre("This has to wait: a game file is being converted."));
    rig.context.session.convertingBases.clear();
}

TEST(EditScenario, LetsNoOtherCommandBeginMeanwhile) {
    ScenarioRig rig;
    bool wasBusy = false;
    rig.converter.onStart = [&] { wasBusy = rig.window.isBusy && !rig.context.session.convertingBases.empty(); };
    rig.HandOver();
    EXPECT_TRUE(wasBusy);
    EXPECT_FALSE(rig.window.isBusy);
    EXPECT_THAT(rig.context.session.convertingBases, IsEmpty());
}

} // namespace
} // namespace tamarind::tests
