#include "authoring/scenario_window.h"

#include "authoring/scenario_rig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using authoring::Field;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(LoadScenario, ShowsTheFieldsOfTheRecord) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    EXPECT_EQ(rig.editor.Text1[Field::DisplayName], "Morning Milk");
    EXPECT_EQ(rig.editor.Text1[Field::StartTime], "1200");
    EXPECT_EQ(rig.editor.Text1[Field::WeatherBlueprint], "Weather\\Clear.xml");
    EXPECT_EQ(rig.editor.Command2, "Cancel");
    EXPECT_TRUE(rig.editor.isCombo1Visible);
    EXPECT_TRUE(rig.editor.isSaveEnabled);
    EXPECT_EQ(rig.context.session.ScenarioEdit.ScenarioRecord, rig.record);
}

TEST(LoadScenario, ShowsTheFolderOfItsWeather) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    EXPECT_EQ(rig.editor.Dir1, rig.folder / "Game\\Assets\\Fernhollow\\AlderVale\\Weather");
    EXPECT_EQ(rig.editor.DirRows.back().text, "Weather");
    EXPECT_THAT(rig.editor.File1, ElementsAre("Clear.bin", "Drizzle.bin"));
}

TEST(LoadScenario, ShowsTheNearestFolderAboveWeatherThatIsNotInstalled) {
    ScenarioRig rig({}, {.product = "Gone"});
    ASSERT_TRUE(rig.OpenEditor());
    EXPECT_EQ(rig.editor.Dir1, rig.folder / "Game\\Assets\\Fernhollow");
    EXPECT_THAT(rig.editor.File1, IsEmpty());
}

TEST(LoadScenario, ListsItsConsists) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    ASSERT_EQ(rig.editor.Consists.size(), 3U);
    EXPECT_EQ(rig.editor.Consists[1].name, "Mail");
    EXPECT_TRUE(rig.editor.Consists[0].isPlayerDriven);
    EXPECT_EQ(rig.editor.Consists[2].name, "Loose Consist");
}

TEST(LoadScenario, RefusesARecordWithoutOneOfItsKeys) {
    ScenarioRig rig({}, {.without = "Season"});
    EXPECT_FALSE(rig.OpenEditor());
    EXPECT_THAT(rig.Told(), ElementsAre("This scenario cannot be edited: its record holds no whole \"Season\"."));
}

TEST(LoadScenario, RefusesAStartThatIsNoNumber) {
    ScenarioRig rig({}, {.start = "dawn"});
    EXPECT_FALSE(rig.OpenEditor());
    EXPECT_THAT(rig.Told(), ElementsAre("This scenario cannot be edited: the \"StartTime\" in its record is not a "
                                        "number of seconds in a day."));
}

TEST(LoadScenario, RefusesTrainsThatAreNotWhole) {
    ScenarioRig rig;
    rig.scenario = "<cConsist><Name>Van</cConsist>";
    rig.folder.Write(kScenarioFile, GameFile(rig.scenario));
    EXPECT_FALSE(rig.OpenEditor());
    EXPECT_THAT(rig.Told(), ElementsAre("This scenario cannot be edited: the names of its trains are not whole."));
}

TEST(LoadScenario, OpensAScenarioWithoutConsists) {
    ScenarioRig rig;
    rig.folder.Write(kScenarioFile, GameFile("<cScenario/>"));
    ASSERT_TRUE(rig.OpenEditor());
    EXPECT_THAT(rig.editor.Consists, IsEmpty());
    EXPECT_EQ(DriveCaption(rig.editor, -1), "Drive It");
}

/// "Müller" as a converter writes it in UTF-8, read as Windows-1252.
constexpr const char* kMisread = "M\xC3\x83\xC2\xBCller";
constexpr const char* kMueller = "M\xC3\xBCller";

TEST(FieldTexts, InUtf8AreShownAsTheyAreMeantAndStayToTheByte) {
    authoring::ScenarioWindow window;
    window.isRecordUtf8 = true;
    window.Text1[Field::DisplayName] = kMisread;
    EXPECT_EQ(ShownText(window, Field::DisplayName), kMueller);
    TypeText(window, Field::DisplayName, kMueller);
    EXPECT_EQ(window.Text1[Field::DisplayName], kMisread);
    TypeText(window, Field::DisplayName, std::string(kMueller) + "s");
    EXPECT_EQ(window.Text1[Field::DisplayName], std::string(kMisread) + "s");
}

TEST(FieldTexts, OtherwiseStandAsTyped) {
    authoring::ScenarioWindow window;
    TypeText(window, Field::DisplayName, kMueller);
    EXPECT_EQ(window.Text1[Field::DisplayName], kMueller);
    EXPECT_EQ(ShownText(window, Field::DisplayName), kMueller);
}

TEST(FieldTexts, AreUtf8WhereTheRecordIs) {
    ScenarioRig rig({}, {.name = kMueller}); // on the disk
    ASSERT_TRUE(rig.OpenEditor());
    EXPECT_TRUE(rig.editor.isRecordUtf8);
    EXPECT_EQ(ShownText(rig.editor, Field::DisplayName), kMueller);
    ScenarioRig plain;
    ASSERT_TRUE(plain.OpenEditor());
    EXPECT_FALSE(plain.editor.isRecordUtf8);
}

TEST(ChooseSeason, CopiesItAndHidesTheChooser) {
    authoring::ScenarioWindow window;
    authoring::ChooseSeason(window, authoring::kSeasons[3]);
    EXPECT_EQ(window.Text1[Field::Season], "SEASON_WINTER");
    EXPECT_FALSE(window.isCombo1Visible);
}

TEST(Seasons, AreFour) {
    EXPECT_THAT(authoring::kSeasons, ElementsAre("SEASON_SPRING", "SEASON_SUMMER", "SEASON_AUTUMN", "SEASON_WINTER"));
}

TEST(DriveCaption, NamesTheConsistThatGetsThePlayer) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    EXPECT_EQ(DriveCaption(rig.editor, 1), "Drive It: 2, Mail");
    EXPECT_EQ(DriveCaption(rig.editor, -1), "Drive It: 1, Milk");
    EXPECT_EQ(DriveCaption(rig.editor, 2), "Drive It"); // it has no driver, nor has any behind it
}

TEST(SetWeather, TakesProviderProductAndPathFromTheFolder) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    rig.folder.Write("Game\\Assets\\Tansywick\\HarbourSet\\Weather\\Deep\\Snow.bin", "w");
    rig.editor.Dir1 = rig.folder / "Game\\Assets\\Tansywick\\HarbourSet\\Weather\\Deep";
    rig.editor.File1 = {"Fog.txt", "Snow.bin"};
    EXPECT_TRUE(SetWeather(rig.context, rig.editor, 1));
    EXPECT_EQ(rig.editor.Text1[Field::WeatherProvider], "Tansywick");
    EXPECT_EQ(rig.editor.Text1[Field::WeatherProduct], "HarbourSet");
    EXPECT_EQ(rig.editor.Text1[Field::WeatherBlueprint], "Weather\\Deep\\Snow.xml");
    EXPECT_TRUE(SetWeather(rig.context, rig.editor, 0));
    EXPECT_EQ(rig.editor.Text1[Field::WeatherBlueprint], "Weather\\Deep\\Fog.txt");
}

TEST(SetWeather, FindsAssetsInAnyLetterCase) {
    ScenarioRig rig;
    rig.editor.Dir1 = "D:\\Other\\aSSeTs\\P\\Q\\Weather";
    rig.editor.File1 = {"Snow.bin"};
    EXPECT_TRUE(SetWeather(rig.context, rig.editor, 0));
    EXPECT_EQ(rig.editor.Text1[Field::WeatherProvider], "P");
    EXPECT_EQ(rig.editor.Text1[Field::WeatherProduct], "Q");
    EXPECT_EQ(rig.editor.Text1[Field::WeatherBlueprint], "Weather\\Snow.xml");
}

TEST(SetWeather, PassesOverAnAssetsFolderAboveTheGame) {
    ScenarioRig rig;
    rig.context.session.RailSimPath = "D:\\My Assets\\Game";
    rig.editor.Dir1 = "D:\\My Assets\\Game\\Assets\\P\\Q";
    rig.editor.File1 = {"Snow.bin"};
    EXPECT_TRUE(SetWeather(rig.context, rig.editor, 0));
    EXPECT_EQ(rig.editor.Text1[Field::WeatherProvider], "P");
    EXPECT_EQ(rig.editor.Text1[Field::WeatherBlueprint], "Snow.xml");
}

TEST(SetWeather, RefusesAFolderThatIsNotBelowAProduct) {
    ScenarioRig rig;
    for (const char* const folder : {"D:\\Game", "D:\\Game\\Assets", "D:\\Game\\Assets\\P"}) {
        rig.editor.Dir1 = folder;
        rig.editor.File1 = {"Snow.bin"};
        EXPECT_FALSE(SetWeather(rig.context, rig.editor, 0)) << folder;
    }
    EXPECT_EQ(rig.editor.Text1[Field::WeatherProvider], "");
    EXPECT_EQ(rig.Told().size(), 3U);
    EXPECT_EQ(rig.Told()[0], "Weather must lie below a provider and a product in the game's Assets.");
}

TEST(SetWeather, DoesNothingWithoutASelectedFile) {
    ScenarioRig rig;
    EXPECT_FALSE(SetWeather(rig.context, rig.editor, 0));
    EXPECT_THAT(rig.Told(), IsEmpty());
}

TEST(ClickWeatherFolder, ShowsTheFolderOfTheRow) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    const std::size_t above = rig.editor.DirRows.size() - 2;
    EXPECT_TRUE(ClickWeatherFolder(rig.context, rig.editor, above));
    EXPECT_EQ(rig.editor.Dir1, rig.folder / "Game\\Assets\\Fernhollow\\AlderVale");
    EXPECT_EQ(rig.editor.DirRows.back().text, "Weather");
    EXPECT_THAT(rig.editor.File1, IsEmpty());
}

TEST(ClickWeatherFolder, TellsOfAFolderThatCannotBeListed) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    const std::string before = rig.editor.Dir1;
    rig.editor.DirRows.back().path += "\\gone";
    EXPECT_FALSE(ClickWeatherFolder(rig.context, rig.editor, rig.editor.DirRows.size() - 1));
    EXPECT_EQ(rig.Told().size(), 1U);
    EXPECT_EQ(rig.editor.Dir1, before);
    EXPECT_FALSE(ClickWeatherFolder(rig.context, rig.editor, 1000));
}

} // namespace
} // namespace tamarind::tests
