#include "install/installer.h"

#include "install/installer_rig.h"
#include "platform/paths.h"
#include "support/memory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::install {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using tests::GameFile;
using tests::InstallerRig;
using tests::kRouteRecord;
using tests::kRoutesIndex;
using tests::kScenarioId;
using tests::kScenarioIndex;
using tests::kScenarioRecord;

constexpr const char* kSuccess = "Your package has been installed.";
constexpr const char* kReadOnly =
    "Some folders/files in your copy of Rail Simulator are Read Only and cannot be overwritten.\r\n"
    "Do you wish them to be changed to Read/Write. Once completed run this Setup again to finish\r\n"
    "installation.";

// Window load.

TEST(InstallerCaption, NamesTheVersion) { EXPECT_EQ(InstallerCaption(), "RouteSetup  Version " TAMARIND_VERSION); }

TEST(InstallCaption, NamesTheMode) {
    EXPECT_EQ(InstallCaption(InstallMode::Route), "Install Route");
    EXPECT_EQ(InstallCaption(InstallMode::Scenario), "Install Scenario");
    EXPECT_EQ(InstallCaption(InstallMode::Assets), "Install Assets");
}

class Load : public testing::Test {
protected:
    tests::MemoryFiles files_;
    tests::FakeProcesses processes_;
    tests::FakeRegistry registry_;
    tests::ScriptedUserInterface ui_;
    Installer installer_{{files_, processes_, registry_}, ui_, "P"};
};

TEST_F(Load, TakesTheGameFolderFromTheRegistry) {
    registry_.SetText("Software\\Rail Simulator\\Packager Manager\\Installation", "", "D:\\Games\\Rail Simulator\\");
    LoadInstaller(installer_);
    EXPECT_EQ(installer_.RailSimPath, "D:\\Games\\Rail Simulator");
}

TEST_F(Load, TakesTheDefaultFolderWhereTheGameIs) {
    files_.folders = {"c:\\program files\\Rail Simulator"};
    files_.contents = {{"c:\\program files\\Rail Simulator\\RailSim.exe", ""}};
    LoadInstaller(installer_);
    EXPECT_EQ(installer_.RailSimPath, "c:\\program files\\Rail Simulator");
}

TEST_F(Load, FindsNoGameFolderWithoutBoth) {
    LoadInstaller(installer_);
    EXPECT_EQ(installer_.RailSimPath, "");
    EXPECT_EQ(installer_.InstallMode, InstallMode::Assets);
}

// Routes.

class InstallRoute : public InstallerRig {
protected:
    InstallRoute() { MakeRoutePackage(); }
};

TEST_F(InstallRoute, AsksWithTheRoutesName) {
    ui.answers = {Answer::No};
    EXPECT_EQ(Run(), Ended::Declined);
    ASSERT_THAT(ui.Messages(), SizeIs(1));
    const platform::Message question = ui.Messages().front();
    EXPECT_EQ(question.text, "You are about to install Route - New Line\r\n"
                             "Into your Rail Simulator Routes folder - Please Confirm.");
    EXPECT_EQ(question.icon, Icon::Exclamation);
    EXPECT_EQ(question.buttons, Buttons::YesNo);
}

TEST_F(InstallRoute, ChangesNothingAfterNo) {
    const auto before = Tree("");
    ui.answers = {Answer::No};
    Run();
    EXPECT_EQ(Tree(""), before);
}

TEST_F(InstallRoute, PutsItsRecordIntoTheIndexAndItsFilesIntoTheGame) {
    ui.answers = {Answer::Yes};
    EXPECT_EQ(Run(), Ended::Done);
    EXPECT_THAT(ui.MessageTexts(), ElementsAre(HasSubstr("New Line"), kSuccess));
    EXPECT_EQ(ui.Messages().back().icon, Icon::Information);
    EXPECT_EQ(ui.Messages().back().title, "Tamarind");
    EXPECT_EQ(folder.Read("Game\\Content\\Routes.xml"),
              "<Routes>\r\n<Record>\r\n" + std::string(kRouteRecord) + "\n</Record>\r\n</Routes>");
    EXPECT_EQ(folder.Read("Game\\Content\\Routes.xml.bak"), kRoutesIndex);
    EXPECT_EQ(folder.Read("Game\\Content\\Routes\\new-route\\tile.bin"), "tile");
}

TEST_F(InstallRoute, KeepsOnlyTheStateBeforeTheLastInstallation) {
    ui.answers = {Answer::Yes, Answer::Yes};
    Run();
    const std::string once = folder.Read("Game\\Content\\Routes.xml");
    EXPECT_EQ(Run(), Ended::Done);
    EXPECT_EQ(folder.Read("Game\\Content\\Routes.xml"), once);
    EXPECT_EQ(folder.Read("Game\\Content\\Routes.xml.bak"), once);
}

TEST_F(InstallRoute, NeedsTheIndexOfRoutes) {
    disk.Remove(folder / "Game\\Content\\Routes.xml");
    const auto before = Tree("");
    EXPECT_EQ(Run(), Ended::Refused);
    ASSERT_THAT(ui.Messages(), SizeIs(1));
    EXPECT_EQ(ui.Messages()[0].text, "The file " + platform::ForDisplay(folder / "Game\\Content\\Routes.xml") +
                                         "\r\ncould not be found, please check your Content folder");
    EXPECT_EQ(ui.Messages()[0].icon, Icon::Critical);
    EXPECT_EQ(Tree(""), before);
}

TEST_F(InstallRoute, WithoutAGameFolderFormsItsPathsFromNothing) {
    installer.RailSimPath = "";
    EXPECT_EQ(Run(), Ended::Refused);
    EXPECT_THAT(ui.MessageTexts(), ElementsAre("The file " + platform::ForDisplay("\\Content\\Routes.xml") +
                                               "\r\ncould not be found, please check your Content folder"));
}

TEST_F(InstallRoute, WithMarkersOfBothKindsIgnoresThoseOfScenarios) {
    folder.Write("P\\Scenario.zzz", kScenarioRecord);
    folder.Write("P\\Scenario.yyy", "..\\elsewhere\r\n");
    ui.answers = {Answer::Yes};
    EXPECT_EQ(Run(), Ended::Done);
    EXPECT_THAT(processes.starts, IsEmpty());
}

TEST_F(InstallRoute, ReplacesAWriteProtectedIndex) {
    Protect("Game\\Content\\Routes.xml");
    ui.answers = {Answer::Yes, Answer::Yes};
    EXPECT_EQ(Run(), Ended::Done);
    EXPECT_EQ(folder.Read("Game\\Content\\Routes.xml.bak"), kRoutesIndex);
    EXPECT_EQ(Run(), Ended::Done); // over a write-protected backup
}

class BadRouteMarker : public InstallRoute, public testing::WithParamInterface<const char*> {};

TEST_P(BadRouteMarker, LeavesTheIndexAndSaysSoAfterTheSuccessMessage) {
    folder.Write("P\\Route_Setup.xxx", GetParam());
    ui.answers = {Answer::Yes};
    EXPECT_EQ(Run(), Ended::Incomplete);
    EXPECT_EQ(folder.Read("Game\\Content\\Routes.xml"), kRoutesIndex);
    EXPECT_THAT(ui.MessageTexts(),
                ElementsAre(HasSubstr("Please Confirm"), kSuccess, HasSubstr("The route could not be added")));
    EXPECT_EQ(ui.Messages().back().icon, Icon::Exclamation);
    EXPECT_EQ(folder.Read("Game\\Content\\Routes\\new-route\\tile.bin"), "tile");
}

INSTANTIATE_TEST_SUITE_P(Of, BadRouteMarker,
                         testing::Values("", "<cRouteProperties><DevString>new-route</DevString><Engl", "\xFF\xFE",
                                         "<DevString>new-route</DevString>"));

TEST_F(InstallRoute, LeavesAnIndexWithoutAPlaceForIt) {
    folder.Write("Game\\Content\\Routes.xml", "");
    ui.answers = {Answer::Yes};
    EXPECT_EQ(Run(), Ended::Incomplete);
    EXPECT_EQ(folder.Read("Game\\Content\\Routes.xml"), "");
}

// Scenarios.

class InstallScenario : public InstallerRig {
protected:
    InstallScenario() { MakeScenarioPackage(); }
    const std::string route = "Game\\Content\\Routes\\old-route\\";
};

TEST_F(InstallScenario, PutsItsRecordsIntoTheRoutesIndex) {
    EXPECT_EQ(Run(), Ended::Done);
    EXPECT_THAT(ui.MessageTexts(), ElementsAre(kSuccess));
    const std::string merged = "<Index>\r\n<Record>\r\n" + std::string(kScenarioRecord) + "\n</Record>\r\n</Index>";
    EXPECT_EQ(folder.Read(route + "Scenarios.bin"), GameFile(merged));
    EXPECT_EQ(folder.Read(route + "Scenarios.bak"), GameFile(kScenarioIndex));
    EXPECT_EQ(folder.Read("P\\Scenarios.xml"), merged);
    EXPECT_EQ(folder.Read(route + "Scenarios\\" + kScenarioId + "\\Scenario.bin"), "scenario");
}

TEST_F(InstallScenario, RunsTheConverterTwiceWithTheSameWord) {
    Run();
    ASSERT_THAT(processes.starts, SizeIs(2));
    const std::string index = "\"" + (folder / (route + "Scenarios.bin")) + "\"";
    const std::string xml = "\"" + (folder / "P\\Scenarios.xml") + "\"";
    EXPECT_EQ(processes.starts[0].commandLine, "serz.exe " + index + " xml:" + xml);
    EXPECT_EQ(processes.starts[1].commandLine, "serz.exe " + xml + " xml:" + index);
    for (const platform::ProcessStart& start : processes.starts) {
        EXPECT_EQ(start.folder, folder / "P");
        EXPECT_EQ(start.style, platform::WindowStyle::Hidden);
        EXPECT_THAT(start.searchFolders, ElementsAre(folder / "P", folder / "Game"));
    }
}

TEST_F(InstallScenario, ReplacesItsOwnRecordsWhenInstalledAgain) {
    Run();
    EXPECT_EQ(Run(), Ended::Done);
    EXPECT_EQ(CountOf(folder.Read(route + "Scenarios.bin"), kScenarioId), 1U);
    EXPECT_TRUE(disk.EntryExists(folder / (route + "Scenarios.bak1")));
}

TEST_F(InstallScenario, TakesTheFirstFreeBackupName) {
    folder.Write(route + "Scenarios.bak", "0");
    for (int i = 1; i <= 49; ++i)
        folder.Write(route + "Scenarios.bak" + std::to_string(i), "n");
    Run();
    EXPECT_EQ(folder.Read(route + "Scenarios.bak50"), GameFile(kScenarioIndex));
    EXPECT_EQ(folder.Read(route + "Scenarios.bak"), "0");
}

TEST_F(InstallScenario, MakesNoBackupWhenAllNamesAreTaken) {
    folder.Write(route + "Scenarios.bak", "0");
    for (int i = 1; i <= 50; ++i)
        folder.Write(route + "Scenarios.bak" + std::to_string(i), "n");
    const auto names = folder.Names(route.substr(0, route.size() - 1));
    EXPECT_EQ(Run(), Ended::Done);
    EXPECT_THAT(folder.Read(route + "Scenarios.bin"), HasSubstr(kScenarioId));
    EXPECT_EQ(folder.Names(route.substr(0, route.size() - 1)).size(), names.size() + 1); // the folder "Scenarios"
}

TEST_F(InstallScenario, PutsTheOldIndexBackWhenTheConverterWritesNone) {
    converter.onStart = [this] { converter.isBroken = processes.starts.size() == 2; };
    EXPECT_EQ(Run(), Ended::Incomplete);
    EXPECT_EQ(folder.Read(route + "Scenarios.bin"), GameFile(kScenarioIndex));
    EXPECT_EQ(folder.Read(route + "Scenarios.bak"), GameFile(kScenarioIndex));
    EXPECT_THAT(ui.MessageTexts(),
                ElementsAre(kSuccess,
                            "The scenarios could not be added to the index of scenarios. The converter wrote no "
                            "new index; the old one is in its place."));
    EXPECT_EQ(ui.Messages().back().icon, Icon::Exclamation);
}

TEST_F(InstallScenario, LeavesTheIndexWhenThereIsNoConverter) {
    folder.Write("P\\Scenarios.xml", "<Record>of another installation</Record>");
    processes.run = [](const platform::ProcessStart&) { throw text::RuntimeError(text::ErrorNumber::FileNotFound); };
    EXPECT_EQ(Run(), Ended::Incomplete);
    EXPECT_EQ(folder.Read(route + "Scenarios.bin"), GameFile(kScenarioIndex));
    EXPECT_FALSE(disk.EntryExists(folder / (route + "Scenarios.bak")));
    EXPECT_THAT(ui.MessageTexts(), ElementsAre(kSuccess, HasSubstr("could not be added")));
    EXPECT_EQ(folder.Read(route + "Scenarios\\" + kScenarioId + "\\Scenario.bin"), "scenario");
}

TEST_F(InstallScenario, LeavesTheIndexWhenARecordIsCutOff) {
    folder.Write("P\\Scenario.zzz", std::string(kScenarioRecord).substr(0, 40));
    EXPECT_EQ(Run(), Ended::Incomplete);
    EXPECT_EQ(folder.Read(route + "Scenarios.bin"), GameFile(kScenarioIndex));
}

TEST_F(InstallScenario, StopsWithoutTheRoutesFolder) {
    folder.Write("P\\Scenario.yyy", "no-route\r\n");
    const auto before = Tree("");
    EXPECT_EQ(Run(), Ended::Refused);
    EXPECT_THAT(ui.MessageTexts(),
                ElementsAre("The Route Folder no-route\r\ndoes not exist, could not add scenarios."));
    EXPECT_EQ(ui.Messages()[0].icon, Icon::Exclamation);
    EXPECT_EQ(Tree(""), before);
}

class StrangeRouteName : public InstallScenario, public testing::WithParamInterface<const char*> {};

TEST_P(StrangeRouteName, IsTheNameOfNoRoute) {
    folder.MakeFolder("Game\\Content\\elsewhere");
    folder.Write("Game\\Content\\elsewhere\\Scenarios.bin", GameFile(kScenarioIndex));
    folder.Write("P\\Scenario.yyy", std::string(GetParam()) + "\r\n" + kScenarioId + "\r\n");
    const auto before = Tree("");
    EXPECT_EQ(Run(), Ended::Refused);
    EXPECT_THAT(ui.MessageTexts(), ElementsAre("The Route Folder " + std::string(GetParam()) +
                                               "\r\ndoes not exist, could not add scenarios."));
    EXPECT_EQ(Tree(""), before);
}

INSTANTIATE_TEST_SUITE_P(Of, StrangeRouteName,
                         testing::Values("..\\elsewhere", "../elsewhere", "..", ".", "old-route\\..\\..\\elsewhere",
                                         "C:", "C:\\Windows", "\\", "old-route\\"));

TEST_F(InstallScenario, WithoutAListSkipsTheMergeAndGoesOn) {
    disk.Remove(folder / "P\\Scenario.yyy");
    EXPECT_EQ(Run(), Ended::Incomplete);
    EXPECT_THAT(ui.MessageTexts(), ElementsAre(kSuccess));
    EXPECT_THAT(processes.starts, IsEmpty());
    EXPECT_EQ(folder.Read(route + "Scenarios\\" + kScenarioId + "\\Scenario.bin"), "scenario");
}

TEST_F(InstallScenario, WithAnEmptyListSkipsTheMergeAndGoesOn) {
    folder.Write("P\\Scenario.yyy", "");
    Run();
    EXPECT_THAT(ui.MessageTexts(), ElementsAre(kSuccess));
    EXPECT_EQ(folder.Read(route + "Scenarios.bin"), GameFile(kScenarioIndex));
}

// What every package goes through.

class InstallAssets : public InstallerRig {
protected:
    InstallAssets() {
        folder.Write("P\\Rail Simulator\\Assets\\Mine\\a.bin", "new a");
        folder.Write("P\\Rail Simulator\\Assets\\Mine\\b.bin", "new b");
    }
};

TEST_F(InstallAssets, CopiesEverythingOverTheGame) {
    folder.Write("Game\\Assets\\Mine\\a.bin", "a much longer old a");
    folder.Write("Game\\Assets\\Mine\\other.bin", "other");
    folder.MakeFolder("P\\Rail Simulator\\Assets\\Empty");
    EXPECT_EQ(Run(), Ended::Done);
    EXPECT_EQ(folder.Read("Game\\Assets\\Mine\\a.bin"), "new a");
    EXPECT_EQ(folder.Read("Game\\Assets\\Mine\\b.bin"), "new b");
    EXPECT_EQ(folder.Read("Game\\Assets\\Mine\\other.bin"), "other");
    EXPECT_TRUE(disk.IsFolder(folder / "Game\\Assets\\Empty"));
    EXPECT_THAT(ui.MessageTexts(), ElementsAre(kSuccess));
}

TEST_F(InstallAssets, DeletesTheThreeBlueprintPaks) {
    for (const char* const name : {"RailSimulator", "RailSimulatorUS", "RailSimulatorCore", "RailSimulatorEU"})
        folder.Write("Game\\Assets\\Kuju\\" + std::string(name) + "\\BluePrints.pak", "pak");
    EXPECT_EQ(Run(), Ended::Done);
    for (const char* const name : {"RailSimulator", "RailSimulatorUS", "RailSimulatorCore"})
        EXPECT_THAT(folder.Names("Game\\Assets\\Kuju\\" + std::string(name)), IsEmpty());
    EXPECT_THAT(folder.Names("Game\\Assets\\Kuju\\RailSimulatorEU"), ElementsAre("BluePrints.pak"));
}

TEST_F(InstallAssets, RunsAndDeletesTheHook) {
    folder.Write("P\\Rail Simulator\\RS-Install.bat", "rem");
    processes.run = [this](const platform::ProcessStart&) {
        EXPECT_EQ(folder.Read("Game\\Assets\\Mine\\a.bin"), "new a"); // after the copy
        EXPECT_TRUE(disk.EntryExists(folder / "Game\\RS-Install.bat"));
    };
    EXPECT_EQ(Run(), Ended::Done);
    ASSERT_THAT(processes.starts, SizeIs(1));
    EXPECT_EQ(processes.starts[0].commandLine, "\"" + (folder / "Game\\RS-Install.bat") + "\"");
    EXPECT_EQ(processes.starts[0].folder, folder / "Game");
    EXPECT_EQ(processes.starts[0].style, platform::WindowStyle::NormalFocus);
    EXPECT_FALSE(disk.EntryExists(folder / "Game\\RS-Install.bat"));
}

TEST_F(InstallAssets, SaysThatTheHookCouldNotBeRun) {
    folder.Write("P\\Rail Simulator\\RS-Install.bat", "rem");
    processes.run = [](const platform::ProcessStart&) { throw text::RuntimeError(text::ErrorNumber::FileNotFound); };
    EXPECT_EQ(Run(), Ended::Incomplete);
    EXPECT_THAT(ui.MessageTexts(), ElementsAre(kSuccess, HasSubstr("RS-Install.bat")));
}

TEST_F(InstallAssets, AsksAboutWriteProtectionAndEndsAfterNo) {
    folder.Write("Game\\Assets\\Mine\\a.bin", "old a");
    Protect("Game\\Assets\\Mine\\a.bin");
    ui.answers = {Answer::No};
    EXPECT_EQ(Run(), Ended::Declined);
    ASSERT_THAT(ui.Messages(), SizeIs(1));
    EXPECT_EQ(ui.Messages()[0].text, kReadOnly);
    EXPECT_EQ(ui.Messages()[0].icon, Icon::Exclamation);
    EXPECT_EQ(ui.Messages()[0].buttons, Buttons::YesNo);
    EXPECT_EQ(folder.Read("Game\\Assets\\Mine\\a.bin"), "old a");
    EXPECT_THAT(processes.starts, IsEmpty());
}

TEST_F(InstallAssets, TakesWriteProtectionOffAndGoesOnAfterYes) {
    folder.Write("Game\\Assets\\Mine\\a.bin", "old a");
    folder.Write("Game\\Assets\\Kuju\\RailSimulator\\BluePrints.pak", "pak");
    Protect("Game\\Assets\\Mine\\a.bin");
    ui.answers = {Answer::Yes};
    processes.run = [this](const platform::ProcessStart&) { disk.MakeWritable(folder / "Game\\Assets\\Mine\\a.bin"); };
    EXPECT_EQ(Run(), Ended::Incomplete);
    ASSERT_THAT(processes.starts, SizeIs(1));
    EXPECT_EQ(processes.starts[0].commandLine, "ATTRIB -h -r -s \"" + (folder / "Game") + "\\*.*\" /s /d");
    EXPECT_EQ(processes.starts[0].style, platform::WindowStyle::NormalFocus);
    EXPECT_THAT(ui.MessageTexts(), ElementsAre(kReadOnly, "All files are now Read/Write", kSuccess));
    EXPECT_EQ(ui.Messages()[1].icon, Icon::Exclamation);
    EXPECT_FALSE(disk.EntryExists(folder / "Game\\Assets\\Kuju\\RailSimulator\\BluePrints.pak"));
    // The copy is one statement: it is finished by the next run.
    EXPECT_FALSE(disk.EntryExists(folder / "Game\\Assets\\Mine\\b.bin"));
    EXPECT_EQ(Run(), Ended::Done);
    EXPECT_EQ(folder.Read("Game\\Assets\\Mine\\a.bin"), "new a");
    EXPECT_EQ(folder.Read("Game\\Assets\\Mine\\b.bin"), "new b");
}

TEST_F(InstallAssets, PassesOverAFileThatCannotBeCopiedAndSaysSo) {
    folder.MakeFolder("Game\\Assets\\Mine\\a.bin"); // a folder stands in the way
    EXPECT_EQ(Run(), Ended::Incomplete);
    EXPECT_EQ(folder.Read("Game\\Assets\\Mine\\b.bin"), "new b");
    EXPECT_THAT(ui.MessageTexts(),
                ElementsAre(kSuccess, AllOf(HasSubstr("a.bin"), HasSubstr("Path/File access error"))));
}

TEST_F(InstallAssets, CanBeCancelledBetweenFiles) {
    ui.onProgress = [](int) { return false; };
    EXPECT_EQ(Run(), Ended::Cancelled);
    EXPECT_FALSE(disk.EntryExists(folder / "Game\\Assets\\Mine\\a.bin"));
    EXPECT_THAT(ui.MessageTexts(), ElementsAre(HasSubstr("cancelled after 0 of 2 files")));
}

TEST_F(InstallAssets, ShowsProgress) {
    Run();
    ASSERT_THAT(ui.ProgressShown(), Not(IsEmpty()));
    EXPECT_EQ(ui.ProgressShown()[0].total, 2U);
}

TEST_F(InstallAssets, WithoutContentStillSucceeds) {
    installer.packageFolder = folder.MakeFolder("Bare");
    EXPECT_EQ(Run(), Ended::Incomplete);
    EXPECT_THAT(ui.MessageTexts(), ElementsAre(kSuccess));
}

class NoGameFolder : public InstallAssets, public testing::WithParamInterface<const char*> {};

TEST_P(NoGameFolder, IsRefusedBeforeAnythingIsWritten) {
    folder.Write("a file", "");
    const auto before = Tree("");
    installer.RailSimPath = *GetParam() == '\0' ? "" : folder / GetParam();
    EXPECT_EQ(Run(), Ended::Refused);
    EXPECT_THAT(ui.MessageTexts(), ElementsAre("The game folder " + platform::ForDisplay(installer.RailSimPath) +
                                               "\r\ndoes not exist, nothing was installed."));
    EXPECT_EQ(Tree(""), before);
}

INSTANTIATE_TEST_SUITE_P(Of, NoGameFolder, testing::Values("", "missing", "a file"));

TEST_F(InstallAssets, WritesNothingOutsideOfGameAndPackage) {
    folder.Write("P\\Rail Simulator\\RS-Install.bat", "rem");
    Run();
    EXPECT_THAT(folder.Names(), ElementsAre("Game", "P"));
    EXPECT_THAT(folder.Names("P"), ElementsAre("Rail Simulator", "RouteSetup.log"));
}

TEST_F(InstallAssets, LogsWhatItReplaced) {
    folder.Write("Game\\Assets\\Mine\\a.bin", "old a");
    folder.Write("Game\\Assets\\Kuju\\RailSimulator\\BluePrints.pak", "pak");
    Run();
    EXPECT_EQ(folder.Read("P\\RouteSetup.log"),
              "RouteSetup " TAMARIND_VERSION ": assets\r\nGame folder: " + platform::ForDisplay(folder / "Game") +
                  "\r\nEverything was done.\r\n\r\nIndexes changed: 0\r\n\r\n"
                  "Files replaced (there are no backups of them): 1\r\n  " +
                  platform::ForDisplay("Assets\\Mine\\a.bin") +
                  "\r\n\r\nFiles added: 1\r\n\r\nFiles removed, which the game makes anew: 1\r\n  " +
                  platform::ForDisplay("Assets\\Kuju\\RailSimulator\\BluePrints.pak") +
                  "\r\n\r\nNot done, or worth knowing: 0\r\n");
}

TEST_F(InstallScenario, LogsWhereTheBackupIs) {
    Run();
    EXPECT_THAT(folder.Read("P\\RouteSetup.log"), HasSubstr(platform::ForDisplay(folder / (route + "Scenarios.bak"))));
}

// What is said beforehand.

TEST_F(InstallRoute, SaysBeforehandWhatItWillDo) {
    installer.InstallMode = InstallMode::Route;
    EXPECT_THAT(DescribeInstallation(installer),
                ElementsAre("Route: New Line", "Files: 1, 4 bytes", "Target: " + platform::ForDisplay(folder / "Game"),
                            HasSubstr("does not look like the game's folder")));
}

TEST_F(InstallScenario, SaysBeforehandHowManyThereAre) {
    folder.Write("Game\\RailSim.exe", "");
    installer.InstallMode = InstallMode::Scenario;
    EXPECT_THAT(DescribeInstallation(installer),
                ElementsAre("Scenarios: 1, for the route old-route", "Files: 1, 8 bytes", testing::_));
}

TEST_F(InstallAssets, TellsBeforehandOfTheHook) {
    folder.Write("P\\Rail Simulator\\RS-Install.bat", "rem");
    EXPECT_THAT(DescribeInstallation(installer), testing::Contains(HasSubstr("RS-Install.bat")));
}

TEST_F(InstallAssets, WritesSizesForPeople) {
    folder.Write("P\\Rail Simulator\\large", std::string(1'234'567, 'x'));
    EXPECT_THAT(DescribeInstallation(installer), testing::Contains("Files: 3, 1.2 MB"));
}

TEST_F(InstallAssets, KnowsAGameFolder) {
    EXPECT_FALSE(LooksLikeGame(disk, folder / "missing"));
    EXPECT_FALSE(LooksLikeGame(disk, folder / "P"));
    folder.MakeFolder("Game\\Assets");
    EXPECT_TRUE(LooksLikeGame(disk, folder / "Game"));
    folder.Write("P\\RailSim.exe", "");
    EXPECT_TRUE(LooksLikeGame(disk, folder / "P"));
}

} // namespace
} // namespace tamarind::install
