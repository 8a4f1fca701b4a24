#include "routes/scenario_packaging.h"

#include "routes/package_rig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using routes::Control;
using routes::Ended;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ScenarioPackaging : public testing::Test {
protected:
    ScenarioPackaging() { rig.ListScenarios(); }

    [[nodiscard]] std::string Line(const std::string& id, const std::string& package) const {
        const std::string scenario = std::string("\\Routes\\") + kRouteA + "\\Scenarios\\" + id;
        return "call Xcopy \"" + rig.context.session.RailSimPath + "\\content" + scenario + "\\*.*\" \"" +
               rig.context.session.ProgramFolder + "\\" + package + "\\Rail Simulator\\content" + scenario +
               "\\*.*\" /I /C /S\r\n";
    }
    [[nodiscard]] static std::string InPackage(const std::string& id, const std::string& name) {
        return std::string(kMilk) + "\\Rail Simulator\\content\\Routes\\" + kRouteA + "\\Scenarios\\" + id + "\\" +
               name;
    }
    PackageRig rig;
};

TEST_F(ScenarioPackaging, BeginsWithEmptyTempFilesAndNoName) {
    rig.context.session.Routes.PackageFolderName = "old";
    rig.context.session.Routes.ScenarioPackMode = 0;
    rig.folder.Write("Kit\\TempFiles\\Scenario.zzz", "old");
    rig.folder.Write("Kit\\TempFiles\\Recovered\\text.xml", "kept");
    EXPECT_TRUE(routes::BeginScenarioPackaging(rig.context));
    EXPECT_EQ(rig.context.session.Routes.ScenarioPackMode, -1);
    EXPECT_EQ(rig.context.session.Routes.PackageFolderName, "");
    EXPECT_THAT(rig.folder.Names("Kit\\TempFiles"), ElementsAre("Recovered"));
}

TEST_F(ScenarioPackaging, DoesNotBeginWhileAGameFileIsBeingConverted) {
    rig.context.session.Routes.ScenarioPackMode = 0;
    rig.context.session.convertingBases = {"x"};
    EXPECT_FALSE(routes::BeginScenarioPackaging(rig.context));
    EXPECT_EQ(rig.context.session.Routes.ScenarioPackMode, 0);
    EXPECT_EQ(rig.messages.size(), 1U);
}

TEST_F(ScenarioPackaging, ShowsItsButtons) {
    const auto& state = rig.context.session.Routes;
    for (const Control control : {Control::Command5, Control::Command6}) {
        EXPECT_TRUE(routes::IsVisible(control, state));
        EXPECT_TRUE(routes::IsEnabled(control, state, rig.window));
    }
    for (const Control control : {Control::Command4, Control::OKButton, Control::Command2, Control::Command3})
        EXPECT_FALSE(routes::IsVisible(control, state));
}

TEST_F(ScenarioPackaging, AddKeepsPathsAndTheLineOfTheScript) {
    EXPECT_EQ(rig.Add({0}), Ended::Done);
    const std::string path = rig.window.RouteFolder + "\\Scenarios\\" + kMilk;
    EXPECT_EQ(rig.window.PackageScenarioPath, path);
    EXPECT_EQ(rig.window.PackageRelativePath,
              std::string("Rail Simulator\\content\\Routes\\") + kRouteA + "\\Scenarios\\" + kMilk);
    EXPECT_THAT(rig.window.List4, ElementsAre(path));
    EXPECT_EQ(rig.context.session.Routes.PackageFolderName, kMilk);
    EXPECT_EQ(rig.window.PackageRouteId, kRouteA);
    EXPECT_EQ(rig.window.PackageBatch, Line(kMilk, kMilk));
}

TEST_F(ScenarioPackaging, AddTurnsTheListOfRoutesIntoThatOfThePackage) {
    rig.Add({0});
    rig.Add({1});
    EXPECT_THAT(rig.window.List1, ElementsAre(testing::EndsWith(kMilk), testing::EndsWith(kMail)));
    EXPECT_THAT(rig.window.List2, IsEmpty());
    EXPECT_FALSE(routes::IsEnabled(Control::Command1, rig.context.session.Routes, rig.window));
    EXPECT_EQ(routes::StatusText(rig.context, rig.window, {}), "2 scenarios in the package");
    const std::vector<std::size_t> second{1};
    EXPECT_EQ(routes::ListScenarios(rig.context, rig.window, second), Ended::Failed);
    EXPECT_THAT(rig.window.List3, ElementsAre("Milk", "Mail"));
}

TEST_F(ScenarioPackaging, AddTakesTheFirstSelectedScenarioAlone) {
    rig.Add({0, 1});
    EXPECT_EQ(rig.window.List4.size(), 1U);
}

TEST_F(ScenarioPackaging, TheFirstScenarioNamesThePackage) {
    rig.Add({1});
    rig.Add({0});
    EXPECT_EQ(rig.context.session.Routes.PackageFolderName, kMail);
    EXPECT_EQ(rig.window.PackageBatch, Line(kMail, kMail) + Line(kMilk, kMail));
}

TEST_F(ScenarioPackaging, TheSameScenarioCanBeAddedTwice) {
    rig.Add({0});
    rig.Add({0});
    EXPECT_EQ(rig.window.List4.size(), 2U);
    EXPECT_EQ(rig.window.PackageBatch, Line(kMilk, kMilk) + Line(kMilk, kMilk));
}

TEST_F(ScenarioPackaging, AddWithoutASelectionRepeatsTheLineAndTheEntry) {
    rig.Add({0});
    EXPECT_EQ(rig.Add({}), Ended::Done);
    EXPECT_EQ(rig.window.PackageBatch, Line(kMilk, kMilk) + Line(kMilk, kMilk));
    EXPECT_EQ(rig.window.List1.size(), 2U);
    EXPECT_EQ(rig.window.List1[0], rig.window.List1[1]);
    EXPECT_EQ(rig.window.List4.size(), 1U);
}

TEST_F(ScenarioPackaging, AddBeforeAnyAdditionAppendsEmptyPaths) {
    EXPECT_EQ(rig.Add({}), Ended::Done);
    EXPECT_EQ(rig.window.PackageBatch,
              "call Xcopy \"\\*.*\" \"" + rig.context.session.ProgramFolder + "\\\\\\*.*\" /I /C /S\r\n");
    EXPECT_THAT(rig.window.List1, ElementsAre(""));
    EXPECT_THAT(rig.window.List4, IsEmpty());
    EXPECT_EQ(rig.context.session.Routes.PackageFolderName, "");
    EXPECT_EQ(rig.window.PackageRouteId, kRouteA);
}

TEST_F(ScenarioPackaging, AddOfAnIdThatLeadsElsewhereFails) {
    for (const char* id : {"..", "a\\b", "a,b", "", "C:"}) {
        rig.context.session.Routes.ScenarioIds[0] = id;
        rig.messages.clear();
        EXPECT_EQ(rig.Add({0}), Ended::Failed) << id;
        ASSERT_EQ(rig.messages.size(), 1U);
        EXPECT_EQ(rig.messages[0].text, "Error Path/File access error occurred in Command1_click");
        EXPECT_EQ(rig.messages[0].icon, platform::Icon::Exclamation);
    }
    EXPECT_EQ(rig.window.PackageBatch, "");
    EXPECT_THAT(rig.window.List4, IsEmpty());
}

TEST_F(ScenarioPackaging, AddOfAScenarioThatIsNotListedFails) {
    EXPECT_EQ(rig.Add({7}), Ended::Failed);
    EXPECT_EQ(rig.messages.at(0).text, "Error Subscript out of range occurred in Command1_click");
}

TEST_F(ScenarioPackaging, AddOutsideAFolderRailSimulatorTakesTheWholePath) {
    rig.window.RouteFolder = "C:\\RS\\Content\\Routes\\r";
    rig.Add({0});
    EXPECT_EQ(rig.window.PackageRelativePath, std::string("C:\\RS\\Content\\Routes\\r\\Scenarios\\") + kMilk);
}

TEST_F(ScenarioPackaging, ProcessMakesThePackage) {
    rig.Add({0});
    rig.Add({1});
    const routes::Packaged packaged = rig.Process();
    EXPECT_EQ(packaged.ended, Ended::Done);
    EXPECT_EQ(packaged.folder, rig.folder / ("Kit\\" + std::string(kMilk)));
    EXPECT_THAT(rig.folder.Names("Kit\\" + std::string(kMilk)),
                ElementsAre("AssetSetup.exe", "Rail Simulator", "Scenario.yyy", "Scenario.zzz"));
    EXPECT_EQ(rig.Kit(std::string(kMilk) + "\\AssetSetup.exe"), "the setup program");
    EXPECT_EQ(rig.Kit(InPackage(kMilk, "Sub\\Extra.bin")), "extra");
    EXPECT_EQ(rig.Kit(InPackage(kMail, "Scenario.bin")), "mail");
}

TEST_F(ScenarioPackaging, TheMarkersHoldTheScenariosInTheOrderAdded) {
    rig.Add({1});
    rig.Add({0});
    rig.Process();
    EXPECT_EQ(rig.Kit(std::string(kMail) + "\\Scenario.yyy"),
              std::string(kRouteA) + "\r\n" + kMail + "\r\n" + kMilk + "\r\n");
    EXPECT_EQ(rig.Kit(std::string(kMail) + "\\Scenario.zzz"),
              ScenarioRecord(kMail, "Mail") + "\r\n" + ScenarioRecord(kMilk, "Milk") + "\r\n");
}

TEST_F(ScenarioPackaging, TheScriptEndsWithAnEmptyLineAndRunsInTempFiles) {
    rig.Add({0});
    rig.Process();
    EXPECT_EQ(rig.Kit("TempFiles\\do_read.bat"), Line(kMilk, kMilk) + "\r\n");
    const platform::ProcessStart& start = rig.rig.processes.starts.back();
    EXPECT_EQ(start.commandLine, "do_read.bat");
    EXPECT_EQ(start.folder, rig.folder / "Kit\\TempFiles");
    EXPECT_EQ(start.style, platform::WindowStyle::NormalFocus);
}

TEST_F(ScenarioPackaging, ConvertsTheIndexOnceMoreUnderItsOtherName) {
    rig.Add({0});
    rig.Process();
    const platform::ProcessStart& start = rig.rig.processes.starts.at(1);
    EXPECT_EQ(start.commandLine, "serz.exe \"" + (rig.folder / "Rail Simulator\\content\\Routes\\") + kRouteA +
                                     "\\Scenarios.bin\" xml:\"" + (rig.folder / "Kit\\TempFiles\\Scenario.xml") + "\"");
}

TEST_F(ScenarioPackaging, TakesTheRecordsOfTheLastListing) {
    rig.Add({0});
    rig.folder.Write("Kit\\TempFiles\\Scenarios.xml", ScenarioRecord(kMilk, "as listed"));
    rig.Process();
    EXPECT_EQ(rig.Kit(std::string(kMilk) + "\\Scenario.zzz"), ScenarioRecord(kMilk, "as listed") + "\r\n");
}

TEST_F(ScenarioPackaging, TheRecordsAreOnlyEverAppendedTo) {
    rig.Add({0});
    rig.Process();
    rig.Process();
    const std::string record = ScenarioRecord(kMilk, "Milk") + "\r\n";
    EXPECT_EQ(rig.Kit(std::string(kMilk) + "\\Scenario.zzz"), record + record);
}

TEST_F(ScenarioPackaging, KeepsEveryByteOfARecord) {
    rig.Add({0});
    std::string all;
    for (int byte = 0x80; byte < 0x100; ++byte)
        all += static_cast<char>(byte);
    rig.folder.Write("Kit\\TempFiles\\Scenarios.xml", ScenarioRecord(kMilk, all));
    rig.Process();
    EXPECT_EQ(rig.Kit(std::string(kMilk) + "\\Scenario.zzz"), ScenarioRecord(kMilk, all) + "\r\n");
}

TEST_F(ScenarioPackaging, EndsWithTheMessage) {
    rig.Add({0});
    rig.Process();
    ASSERT_EQ(rig.messages.size(), 1U);
    EXPECT_EQ(rig.messages[0].text, "Your Scenarios are now saved in \r\n" + rig.Shown(kMilk) +
                                        "\r\nYou may now zip up this folder and distribute it.");
    EXPECT_EQ(rig.messages[0].icon, platform::Icon::Information);
    EXPECT_EQ(rig.messages[0].title, "Tamarind");
    EXPECT_EQ(rig.messages[0].opensFolder, rig.folder / ("Kit\\" + std::string(kMilk)));
}

TEST_F(ScenarioPackaging, WithNothingAddedStillCopiesTheSetupProgram) {
    EXPECT_EQ(rig.Process().ended, Ended::Failed);
    EXPECT_EQ(rig.Kit("TempFiles\\do_read.bat"), "\r\n");
    EXPECT_EQ(rig.scripts, 1);
    EXPECT_EQ(rig.Kit("AssetSetup.exe"), "the setup program");
    EXPECT_EQ(rig.messages.at(0).text, "Error File not found occurred in Command3_click"); // there are no records
    EXPECT_FALSE(rig.KitHas("Scenario.yyy"));
}

TEST_F(ScenarioPackaging, WithoutTheSetupProgramStopsBehindTheCopy) {
    rig.Add({0});
    rig.folder.Disk().Remove(rig.folder / "Kit\\RouteSetup.exe");
    EXPECT_EQ(rig.Process().ended, Ended::Failed);
    ASSERT_EQ(rig.messages.size(), 1U);
    EXPECT_EQ(rig.messages[0].text, "Error File not found occurred in Command3_click");
    EXPECT_EQ(rig.messages[0].icon, platform::Icon::Exclamation);
    EXPECT_EQ(rig.Kit(InPackage(kMilk, "Scenario.bin")), "milk");
    EXPECT_THAT(rig.folder.Names("Kit\\" + std::string(kMilk)), ElementsAre("Rail Simulator"));
    EXPECT_THAT(rig.rig.ui.StatusLines(), testing::Contains("What was already made stays in " + rig.Shown(kMilk)));
}

TEST_F(ScenarioPackaging, OfAScenarioWithoutARecordFailsAfterTheRecordsBeforeIt) {
    rig.Add({0});
    rig.Add({1});
    rig.folder.Write("Kit\\TempFiles\\Scenarios.xml", ScenarioRecord(kMilk, "Milk"));
    EXPECT_EQ(rig.Process().ended, Ended::Failed);
    EXPECT_EQ(rig.messages.at(0).text, "Error Invalid procedure call or argument occurred in Command3_click");
    EXPECT_EQ(rig.Kit("TempFiles\\Scenario.zzz"), ScenarioRecord(kMilk, "Milk") + "\r\n");
    EXPECT_EQ(rig.scripts, 0);
}

TEST_F(ScenarioPackaging, WithoutScenarioPackModeMakesNoMarkers) {
    rig.Add({0});
    rig.context.session.Routes.ScenarioPackMode = 0;
    EXPECT_EQ(rig.Process().ended, Ended::Done);
    EXPECT_THAT(rig.folder.Names("Kit\\" + std::string(kMilk)), ElementsAre("AssetSetup.exe", "Rail Simulator"));
}

TEST_F(ScenarioPackaging, TellsOfFilesThatTheScriptDidNotCopy) {
    rig.Add({0});
    rig.folder.MakeFolder("Kit\\" + std::string(kMilk));
    rig.scriptFails = true;
    EXPECT_EQ(rig.Process().ended, Ended::Failed);
    ASSERT_EQ(rig.messages.size(), 2U);
    EXPECT_THAT(rig.messages[0].text, HasSubstr("Your Scenarios are now saved in"));
    const std::string folder = platform::ForDisplay(rig.window.PackageScenarioPath + "\\");
    EXPECT_EQ(rig.messages[1].text, "The package is not complete; these could not be copied:\r\nNot copied: " + folder +
                                        "Scenario.bin\r\nNot copied: " + folder +
                                        platform::ForDisplay("Sub\\Extra.bin"));
    EXPECT_EQ(rig.messages[1].icon, platform::Icon::Exclamation);
}

TEST_F(ScenarioPackaging, TellsOfFilesThatCannotBeReplaced) {
    rig.Add({0});
    MakeReadOnly(rig.folder.Write("Kit\\" + InPackage(kMilk, "Scenario.bin"), "locked"));
    EXPECT_EQ(rig.Process().ended, Ended::Failed);
    EXPECT_EQ(rig.messages.at(1).text, "The package is not complete; this could not be copied:\r\nPermission denied: " +
                                           rig.Shown(InPackage(kMilk, "Scenario.bin")));
}

TEST_F(ScenarioPackaging, IsCancelledBetweenFiles) {
    rig.Add({0});
    rig.scriptFails = true;
    rig.rig.processes.looksBeforeEnd = 3;
    rig.rig.ui.onProgress = [](int) { return false; };
    EXPECT_EQ(rig.Process().ended, Ended::Declined);
    EXPECT_GE(rig.rig.processes.stops, 1);
    EXPECT_EQ(rig.messages.at(0).text, "The package was cancelled. What was already made stays: " + rig.Shown(kMilk));
    EXPECT_FALSE(rig.KitHas(std::string(kMilk) + "\\AssetSetup.exe"));
}

TEST_F(ScenarioPackaging, CancelledTakesAwayWhatIsHalfWritten) {
    rig.Add({0});
    rig.scriptFails = true;
    rig.rig.processes.looksBeforeEnd = 1;
    rig.rig.ui.onProgress = [this](int) {
        rig.folder.Write("Kit\\" + InPackage(kMilk, "Scenario.bin"), "mi");
        rig.folder.Write("Kit\\" + InPackage(kMilk, "Sub\\Extra.bin"), "extra");
        return false;
    };
    rig.Process();
    EXPECT_FALSE(rig.KitHas(InPackage(kMilk, "Scenario.bin")));
    EXPECT_EQ(rig.Kit(InPackage(kMilk, "Sub\\Extra.bin")), "extra");
}

TEST_F(ScenarioPackaging, ClosingTheWindowEndsTheMode) {
    rig.Add({0});
    routes::CloseRoutes(rig.context, rig.window);
    EXPECT_EQ(rig.context.session.Routes.ScenarioPackMode, 0);
    rig.LoadRoutes();
    EXPECT_EQ(rig.window.PackageBatch, "");
    EXPECT_FALSE(rig.window.showsPackage);
    EXPECT_THAT(rig.window.List1, ElementsAre("Alder Vale", "Bois"));
}

} // namespace
} // namespace tamarind::tests
