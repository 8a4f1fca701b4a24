#include "authoring/scenario_rig.h"
#include "platform/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using authoring::SetDriver;
using authoring::Written;
using platform::Icon;
using testing::ElementsAre;

const std::string kFolder = RouteRig::Route("r1") + "\\Scenarios\\s1";

std::string ScenarioFile(const ScenarioRig& rig, const std::string& name) {
    return rig.folder / ("Game\\content\\Routes\\r1\\Scenarios\\s1\\" + name);
}

TEST(DriveIt, WritesTheScenarioWithTheNewDriver) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    EXPECT_TRUE(DriveIt(rig.context, rig.editor, 1).isDone);
    std::string expected = "<cScenario>\r\n" + TrainText("Milk", "0") + TrainText("Mail", "0") +
                           "<cConsist>\r\n</cConsist>\r\n</cScenario>\r\n\r\n";
    expected.replace(expected.rfind("<PlayerDriver>0"), 15, "<PlayerDriver>1");
    EXPECT_EQ(rig.folder.Read(kScenarioFile), GameFile(expected));
    EXPECT_EQ(rig.folder.Read("Kit\\TempFiles\\Scenario.xml"), expected);
}

TEST(DriveIt, SetsTheFirstDriverOfAllWithoutASelectedConsist) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    EXPECT_TRUE(DriveIt(rig.context, rig.editor, -1).isDone);
    EXPECT_EQ(rig.folder.Read(kScenarioFile), GameFile(SetDriver(rig.scenario, 0) + "\r\n"));
}

TEST(DriveIt, MovesTheMarkOfThePresentDriver) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    DriveIt(rig.context, rig.editor, 1);
    EXPECT_FALSE(rig.editor.Consists[0].isPlayerDriven);
    EXPECT_TRUE(rig.editor.Consists[1].isPlayerDriven);
    EXPECT_TRUE(DriveIt(rig.context, rig.editor, 0).isDone);
    EXPECT_TRUE(rig.editor.Consists[0].isPlayerDriven);
}

TEST(DriveIt, RunsTheConverterHiddenWithTheWordXml) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    DriveIt(rig.context, rig.editor, 0);
    const platform::ProcessStart& start = rig.rig.processes.starts.back();
    EXPECT_EQ(start.commandLine, "serz.exe \"" + (rig.folder / "Kit\\TempFiles\\Scenario.xml") + "\" xml:\"" +
                                     ScenarioFile(rig, "Scenario.bin") + "\"");
    EXPECT_EQ(start.folder, rig.folder / "Kit");
    EXPECT_EQ(start.style, platform::WindowStyle::Hidden);
}

TEST(DriveIt, KeepsTheOldScenarioUnderTheFirstFreeName) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    EXPECT_EQ(DriveIt(rig.context, rig.editor, 1).backup, ScenarioFile(rig, "Scenario.bak"));
    EXPECT_EQ(rig.folder.Read(kFolder + "\\Scenario.bak"), GameFile(rig.scenario));
    EXPECT_EQ(DriveIt(rig.context, rig.editor, 0).backup, ScenarioFile(rig, "Scenario.bak1"));
    EXPECT_EQ(rig.folder.Read(kFolder + "\\Scenario.bak"), GameFile(rig.scenario));
}

TEST(DriveIt, OverwritesTheScenarioWhenAllBackupNamesAreTaken) {
    ScenarioRig rig;
    rig.folder.Write(kFolder + "\\Scenario.bak", "a");
    for (int i = 1; i <= 50; ++i)
        rig.folder.Write(kFolder + "\\Scenario.bak" + std::to_string(i), "b");
    ASSERT_TRUE(rig.OpenEditor());
    const Written written = DriveIt(rig.context, rig.editor, 1);
    EXPECT_TRUE(written.isDone);
    EXPECT_EQ(written.backup, "");
    EXPECT_EQ(rig.folder.Read(kScenarioFile), GameFile(SetDriver(rig.scenario, 1) + "\r\n"));
    EXPECT_FALSE(rig.Has(kFolder + "\\Scenario.bak51"));
}

TEST(DriveIt, TellsThatTheDriverHasBeenUpdated) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    DriveIt(rig.context, rig.editor, 0);
    ASSERT_EQ(rig.rig.ui.Messages().size(), 1U);
    EXPECT_EQ(rig.rig.ui.Messages()[0].text, kDriverUpdated);
    EXPECT_EQ(rig.rig.ui.Messages()[0].icon, Icon::Information);
    EXPECT_EQ(rig.rig.ui.Messages()[0].title, "Tamarind");
    EXPECT_EQ(rig.editor.Command2, "Exit");
}

TEST(DriveIt, PutsTheOldScenarioBackWhenTheConverterWritesNothing) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    rig.converter.isBroken = true;
    EXPECT_FALSE(DriveIt(rig.context, rig.editor, 1).isDone);
    EXPECT_EQ(rig.folder.Read(kScenarioFile), GameFile(rig.scenario));
    EXPECT_EQ(rig.folder.Read(kFolder + "\\Scenario.bak"), GameFile(rig.scenario));
    EXPECT_THAT(rig.Told(), ElementsAre(kDriverUpdated,
                                        "Nothing was changed: the converter wrote no new file, and the old one is in "
                                        "its place.\r\n" +
                                            platform::ForDisplay(ScenarioFile(rig, "Scenario.bin"))));
    EXPECT_EQ(rig.rig.ui.Messages()[1].icon, Icon::Exclamation);
    EXPECT_TRUE(rig.editor.Consists[0].isPlayerDriven);
    EXPECT_EQ(rig.context.session.ScenarioEdit.ScenarioText, rig.scenario);
}

TEST(DriveIt, ChangesNothingWhereNobodyCanDrive) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    EXPECT_FALSE(DriveIt(rig.context, rig.editor, 2).isDone);
    EXPECT_THAT(rig.Told(), ElementsAre("An error Invalid procedure call or argument occurred in frmScenEdit"));
    EXPECT_EQ(rig.folder.Read(kScenarioFile), GameFile(rig.scenario));
    EXPECT_EQ(rig.editor.Command2, "Cancel");
}

TEST(DriveIt, LeavesTheRecordToBeSaved) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    EXPECT_TRUE(DriveIt(rig.context, rig.editor, 1).isDone);
    EXPECT_TRUE(SaveChanges(rig.context, rig.editor).isDone);
    EXPECT_TRUE(DriveIt(rig.context, rig.editor, 0).isDone);
}

TEST(DriveIt, WaitsForAConversionThatGoesOn) {
    ScenarioRig rig;
    ASSERT_TRUE(rig.OpenEditor());
    Written nested;
    rig.converter.onStart = [&] {
        rig.converter.onStart = nullptr;
        nested = DriveIt(rig.context, rig.editor, 0);
    };
    EXPECT_TRUE(DriveIt(rig.context, rig.editor, 1).isDone);
    EXPECT_FALSE(nested.isDone);
}

} // namespace
} // namespace tamarind::tests
