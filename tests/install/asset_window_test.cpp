#include "install/asset_window.h"

#include "routes/package_rig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using install::AssetControl;
using routes::Ended;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// The rig with two folders of assets, and the window as its menu command opens it.
class AssetPackaging : public testing::Test {
protected:
    AssetPackaging() {
        rig.WriteGame("Assets\\Fern\\Alder\\a.bin", "alder");
        rig.WriteGame("Assets\\Fern\\Alder\\Sub\\b.txt", std::string(2048, 'b'));
        rig.WriteGame("Assets\\Tansy\\c.bin", "tansy");
        install::BeginAssetPackaging(rig.context);
        install::LoadAssets(rig.context, window);
    }
    [[nodiscard]] std::string Game(const std::string& name) const { return rig.folder / ("Rail Simulator\\" + name); }
    bool Click(const std::string& name) { return install::SelectFolder(rig.context, window, Game(name)); }
    Ended Add(const std::string& name) {
        EXPECT_TRUE(Click(name));
        return install::AddFolder(rig.context, window);
    }
    routes::Packaged Process() { return install::ProcessAssets(rig.context, window); }
    [[nodiscard]] std::string Line(const std::string& name, const std::string& package) const {
        return "call Xcopy \"" + Game(name) + "\\*.*\" \"" + (rig.folder / "Kit\\") + package + "\\Rail Simulator\\" +
               name + "\\*.*\" /I /C /S\r\n";
    }
    PackageRig rig;
    install::AssetWindow window;
};

TEST_F(AssetPackaging, BeginsWithEmptyTempFilesAndNoName) {
    rig.context.session.Routes.AssetPackMode = 0;
    rig.context.session.Routes.PackageFolderName = "old";
    rig.folder.Write("Kit\\TempFiles\\do_read.bat", "old");
    rig.folder.Write("Kit\\TempFiles\\Recovered\\a.xml", "kept");
    EXPECT_TRUE(install::BeginAssetPackaging(rig.context));
    EXPECT_EQ(rig.context.session.Routes.AssetPackMode, -1);
    EXPECT_EQ(rig.context.session.Routes.PackageFolderName, "");
    EXPECT_THAT(rig.folder.Names("Kit\\TempFiles"), ElementsAre("Recovered"));
}

TEST_F(AssetPackaging, DoesNotBeginWhileAGameFileIsBeingConverted) {
    rig.context.session.Routes.AssetPackMode = 0;
    rig.context.session.convertingBases = {"x"};
    EXPECT_FALSE(install::BeginAssetPackaging(rig.context));
    EXPECT_EQ(rig.context.session.Routes.AssetPackMode, 0);
}

TEST_F(AssetPackaging, LoadShowsTheAssets) {
    EXPECT_EQ(window.Text2, "*.*");
    EXPECT_EQ(window.Dir1, Game("Assets"));
    EXPECT_EQ(window.Text1, platform::ForDisplay(Game("Assets")));
    EXPECT_EQ(window.Drive1, install::DriveOf(Game("Assets")));
    EXPECT_THAT(window.Drives, Contains(testing::StrCaseEq(window.Drive1)));
    EXPECT_EQ(window.DirRows.back().text, "Tansy");
    EXPECT_EQ(window.SourceFolder, "");
    EXPECT_FALSE(install::IsEnabled(AssetControl::Command1, window));
    EXPECT_TRUE(install::IsEnabled(AssetControl::Command3, window));
}

TEST_F(AssetPackaging, LoadForScenariosShowsTheRoutes) {
    rig.context.session.Routes.AssetPackMode = 0;
    rig.context.session.Routes.ScenarioPackMode = -1;
    install::LoadAssets(rig.context, window);
    EXPECT_EQ(window.Dir1, Game("Content\\Routes"));
}

TEST_F(AssetPackaging, LoadShowsTheNearestFolderThatIsThere) {
    rig.context.session.RailSimPath = Game("none\\such");
    install::LoadAssets(rig.context, window);
    EXPECT_EQ(window.Dir1, rig.folder / "Rail Simulator");
    EXPECT_THAT(rig.messages, IsEmpty());
}

TEST_F(AssetPackaging, LoadWithoutAGameFolderShowsADrive) {
    rig.context.session.RailSimPath.clear();
    install::LoadAssets(rig.context, window);
    EXPECT_EQ(window.Dir1, install::RootOf(window.Drive1));
    EXPECT_EQ(window.DirRows.front().path, window.Dir1);
}

TEST_F(AssetPackaging, LoadMakesTempFiles) {
    rig.folder.Disk().RemoveFolder(rig.folder / "Kit\\TempFiles");
    install::LoadAssets(rig.context, window);
    EXPECT_TRUE(rig.KitHas("TempFiles"));
}

TEST_F(AssetPackaging, AClickGoesIntoTheFolder) {
    std::size_t row = 0;
    while (window.DirRows[row].text != "Fern")
        ++row;
    EXPECT_TRUE(install::ClickFolder(rig.context, window, row));
    EXPECT_EQ(window.Dir1, Game("Assets\\Fern"));
    EXPECT_EQ(window.SourceFolder, Game("Assets\\Fern"));
    EXPECT_EQ(window.RelativePath, "Rail Simulator\\Assets\\Fern");
    EXPECT_TRUE(install::IsEnabled(AssetControl::Command1, window));
    EXPECT_FALSE(install::ClickFolder(rig.context, window, 999));
}

TEST_F(AssetPackaging, AClickOnTheCurrentFolderChoosesIt) {
    for (std::size_t row = 0; row < window.DirRows.size(); ++row) {
        if (window.DirRows[row].text == "Assets") install::ClickFolder(rig.context, window, row);
    }
    EXPECT_EQ(window.Dir1, Game("Assets"));
    EXPECT_EQ(window.SourceFolder, Game("Assets"));
}

TEST_F(AssetPackaging, AClickOnAFolderThatIsGoneShowsTheError) {
    EXPECT_FALSE(Click("Assets\\none"));
    EXPECT_EQ(rig.messages.at(0).text, "Path not found\r\n" + platform::ForDisplay(Game("Assets\\none")));
    EXPECT_EQ(window.Dir1, Game("Assets"));
    EXPECT_EQ(window.SourceFolder, "");
}

TEST_F(AssetPackaging, ChoosingADriveShowsItsFolder) {
    EXPECT_TRUE(Click("Assets\\Tansy"));
    EXPECT_TRUE(install::ChangeDrive(rig.context, window, window.Drive1));
    EXPECT_EQ(window.Dir1, install::RootOf(window.Drive1));
    EXPECT_EQ(window.Text1, platform::ForDisplay(window.Dir1));
    EXPECT_EQ(window.SourceFolder, Game("Assets\\Tansy"));
}

TEST_F(AssetPackaging, ADriveThatIsNotThereShowsTheErrorAndChangesNothing) {
    EXPECT_FALSE(install::ChangeDrive(rig.context, window, "?:"));
    EXPECT_EQ(rig.messages.size(), 1U);
    EXPECT_EQ(window.Dir1, Game("Assets"));
}

TEST_F(AssetPackaging, ThePatternFiltersTheFiles) {
    Click("Assets\\Fern\\Alder");
    EXPECT_THAT(window.File1, ElementsAre("a.bin"));
    install::ChangePattern(rig.context, window, "*.txt");
    EXPECT_THAT(window.File1, IsEmpty());
    Click("Assets\\Fern\\Alder\\Sub");
    EXPECT_THAT(window.File1, ElementsAre("b.txt"));
    install::ChangePattern(rig.context, window, "");
    EXPECT_EQ(window.Text2, "*.*");
}

TEST_F(AssetPackaging, TheFirstFolderNamesThePackage) {
    EXPECT_EQ(Add("Assets\\Fern\\Alder"), Ended::Done);
    EXPECT_EQ(Add("Assets\\Tansy"), Ended::Done);
    EXPECT_EQ(rig.context.session.Routes.PackageFolderName, "Alder");
    EXPECT_EQ(window.CopyScript, Line("Assets\\Fern\\Alder", "Alder") + Line("Assets\\Tansy", "Alder"));
    EXPECT_THAT(window.List1, ElementsAre("Rail Simulator\\Assets\\Fern\\Alder", "Rail Simulator\\Assets\\Tansy"));
}

TEST_F(AssetPackaging, ANameThatIsSetStays) {
    rig.context.session.Routes.PackageFolderName = "Mine";
    Add("Assets\\Tansy");
    EXPECT_EQ(window.CopyScript, Line("Assets\\Tansy", "Mine"));
}

TEST_F(AssetPackaging, TheSameFolderTwiceHasTwoLines) {
    Add("Assets\\Tansy");
    Add("Assets\\Tansy");
    EXPECT_EQ(window.CopyScript, Line("Assets\\Tansy", "Tansy") + Line("Assets\\Tansy", "Tansy"));
    EXPECT_EQ(window.List1.size(), 2U);
}

TEST_F(AssetPackaging, AFolderOutsideRailSimulatorIsRefused) {
    ASSERT_TRUE(install::SelectFolder(rig.context, window, rig.folder / "Kit"));
    EXPECT_FALSE(install::IsEnabled(AssetControl::Command1, window));
    EXPECT_EQ(install::AddFolder(rig.context, window), Ended::Failed);
    EXPECT_EQ(rig.messages.at(0).text, "The folder\r\n" + platform::ForDisplay(rig.folder / "Kit") +
                                           "\r\ncannot be added: its path does not contain \"Rail Simulator\", so its "
                                           "place in the game is unknown.");
    EXPECT_EQ(window.CopyScript, "");
    EXPECT_EQ(rig.context.session.Routes.PackageFolderName, "");
}

TEST_F(AssetPackaging, AFolderWhosePathEndsTheQuotesIsRefused) {
    window.SourceFolder = "C:\\Rail Simulator\\a\" & del \"b";
    EXPECT_EQ(install::AddFolder(rig.context, window), Ended::Failed);
    EXPECT_THAT(rig.messages.at(0).text, HasSubstr("its path holds a quote"));
    EXPECT_EQ(window.CopyScript, "");
}

TEST_F(AssetPackaging, AddBeforeAnyClickIsRefused) {
    EXPECT_EQ(install::AddFolder(rig.context, window), Ended::Failed);
    EXPECT_EQ(rig.messages.at(0).text, "Please click on the folder to be added first.");
}

TEST_F(AssetPackaging, ARemovedFolderIsStillCopied) {
    Add("Assets\\Fern\\Alder");
    Add("Assets\\Tansy");
    const std::vector<std::size_t> both{0, 1};
    install::RemoveFolders(window, both);
    EXPECT_THAT(window.List1, IsEmpty());
    EXPECT_EQ(window.CopyScript, Line("Assets\\Fern\\Alder", "Alder") + Line("Assets\\Tansy", "Alder"));
    EXPECT_EQ(Process().ended, Ended::Done);
    EXPECT_EQ(rig.Kit("Alder\\Rail Simulator\\Assets\\Tansy\\c.bin"), "tansy");
}

TEST_F(AssetPackaging, RemoveTakesTheSelectedRowsAlone) {
    Add("Assets\\Fern");
    Add("Assets\\Tansy");
    Add("Assets\\Fern\\Alder");
    const std::vector<std::size_t> rows{0, 2};
    install::RemoveFolders(window, rows);
    EXPECT_THAT(window.List1, ElementsAre("Rail Simulator\\Assets\\Tansy"));
    install::ShowDetail(rig.context, window, std::vector<std::size_t>{0});
    EXPECT_THAT(window.Text3, StartsWith(platform::ForDisplay(Game("Assets\\Tansy"))));
}

TEST_F(AssetPackaging, TheDetailTellsSourceFilesAndSize) {
    Add("Assets\\Fern\\Alder");
    Add("Assets\\Tansy");
    const std::vector<std::size_t> rows{0};
    install::ShowDetail(rig.context, window, rows);
    EXPECT_EQ(window.Text3, platform::ForDisplay(Game("Assets\\Fern\\Alder")) + ": 2 files, 2.0 KB");
    install::ShowDetail(rig.context, window, std::vector<std::size_t>{1});
    EXPECT_EQ(window.Text3, platform::ForDisplay(Game("Assets\\Tansy")) + ": 1 file, 5 bytes");
    install::ShowDetail(rig.context, window, {});
    EXPECT_EQ(window.Text3, "");
}

TEST_F(AssetPackaging, ProcessMakesThePackage) {
    Add("Assets\\Fern\\Alder");
    Add("Assets\\Tansy");
    const routes::Packaged packaged = Process();
    EXPECT_EQ(packaged.ended, Ended::Done);
    EXPECT_EQ(packaged.folder, rig.folder / "Kit\\Alder");
    EXPECT_THAT(rig.folder.Names("Kit\\Alder"), ElementsAre("AssetSetup.exe", "Rail Simulator"));
    EXPECT_EQ(rig.Kit("Alder\\AssetSetup.exe"), "the setup program");
    EXPECT_EQ(rig.Kit("Alder\\Rail Simulator\\Assets\\Fern\\Alder\\Sub\\b.txt").size(), 2048U);
    EXPECT_EQ(rig.Kit("Alder\\Rail Simulator\\Assets\\Tansy\\c.bin"), "tansy");
    EXPECT_EQ(rig.Kit("TempFiles\\do_read.bat"), window.CopyScript + "\r\n");
    ASSERT_EQ(rig.messages.size(), 1U);
    EXPECT_EQ(rig.messages[0].text, "Your assets are now saved in \r\n" + rig.Shown("Alder") +
                                        "\r\nYou may now zip up this folder and distribute it.");
    EXPECT_EQ(rig.messages[0].icon, platform::Icon::Information);
    EXPECT_EQ(rig.messages[0].title, "Tamarind");
    EXPECT_EQ(rig.messages[0].opensFolder, rig.folder / "Kit\\Alder");
}

TEST_F(AssetPackaging, ProcessOfAnEmptyListCopiesTheSetupProgramIntoTheKit) {
    EXPECT_EQ(Process().ended, Ended::Done);
    EXPECT_EQ(rig.Kit("TempFiles\\do_read.bat"), "\r\n");
    EXPECT_EQ(rig.Kit("AssetSetup.exe"), "the setup program");
    EXPECT_THAT(rig.messages.at(0).text, StartsWith("Your assets are now saved in \r\n" + rig.Shown("")));
}

TEST_F(AssetPackaging, ProcessWithoutTheSetupProgramShowsTheError) {
    Add("Assets\\Tansy");
    rig.folder.Disk().Remove(rig.folder / "Kit\\RouteSetup.exe");
    EXPECT_EQ(Process().ended, Ended::Failed);
    ASSERT_EQ(rig.messages.size(), 1U);
    EXPECT_EQ(rig.messages[0].text, "File not found\r\n" + rig.Shown("RouteSetup.exe"));
    EXPECT_EQ(rig.messages[0].icon, platform::Icon::Exclamation);
    EXPECT_EQ(rig.Kit("Tansy\\Rail Simulator\\Assets\\Tansy\\c.bin"), "tansy");
    EXPECT_FALSE(window.isBusy);
}

TEST_F(AssetPackaging, ProcessTellsOfAFolderThatIsGone) {
    Add("Assets\\Tansy");
    Add("Assets\\Fern\\Alder\\Sub");
    rig.folder.Disk().Rename(Game("Assets\\Fern\\Alder\\Sub\\b.txt"), rig.folder / "b.txt");
    rig.folder.Disk().RemoveFolder(Game("Assets\\Fern\\Alder\\Sub"));
    EXPECT_EQ(Process().ended, Ended::Failed);
    EXPECT_EQ(rig.messages.at(1).text, "The package is not complete; this could not be copied:\r\nPath not found: " +
                                           platform::ForDisplay(Game("Assets\\Fern\\Alder\\Sub")));
}

TEST_F(AssetPackaging, ProcessIsCancelledBetweenFiles) {
    Add("Assets\\Tansy");
    rig.rig.processes.looksBeforeEnd = 2;
    rig.rig.ui.onProgress = [](int) { return false; };
    EXPECT_EQ(Process().ended, Ended::Declined);
    EXPECT_GE(rig.rig.processes.stops, 1);
    EXPECT_FALSE(rig.KitHas("Tansy\\AssetSetup.exe"));
}

TEST_F(AssetPackaging, WithScenariosMakesTheirMarkers) {
    rig.ListScenarios();
    rig.context.session.Routes.AssetPackMode = 0;
    install::LoadAssets(rig.context, window);
    Add(std::string("Content\\Routes\\") + kRouteA + "\\Scenarios\\" + kMail);
    Add(std::string("Content\\Routes\\") + kRouteA + "\\Scenarios\\" + kMilk);
    EXPECT_EQ(window.RouteFolderName, kRouteA);
    EXPECT_EQ(Process().ended, Ended::Done);
    const std::string package = kMail;
    EXPECT_EQ(rig.Kit(package + "\\Scenario.yyy"), std::string(kRouteA) + "\r\n" + kMail + "\r\n" + kMilk + "\r\n");
    EXPECT_EQ(rig.Kit(package + "\\Scenario.zzz"),
              ScenarioRecord(kMail, "Mail") + "\r\n" + ScenarioRecord(kMilk, "Milk") + "\r\n");
}

TEST_F(AssetPackaging, WithScenariosThatWereNotListedShowsTheError) {
    rig.context.session.Routes.ScenarioPackMode = -1;
    Add(std::string("Content\\Routes\\") + kRouteA + "\\Scenarios\\" + kMail);
    EXPECT_EQ(Process().ended, Ended::Failed);
    EXPECT_THAT(rig.messages.at(0).text, StartsWith("Invalid procedure call or argument\r\n"));
    EXPECT_EQ(rig.scripts, 0);
}

TEST_F(AssetPackaging, ClosingEndsTheModes) {
    rig.context.session.Routes.ScenarioPackMode = -1;
    window.RouteFolderName = kRouteA;
    install::CloseAssets(rig.context, window);
    EXPECT_EQ(rig.context.session.Routes.AssetPackMode, 0);
    EXPECT_EQ(rig.context.session.Routes.ScenarioPackMode, 0);
    EXPECT_EQ(window.RouteFolderName, "");
    EXPECT_TRUE(window.isClosed);
}

TEST_F(AssetPackaging, HasItsCaptions) {
    EXPECT_STREQ(install::kAssetWindowTitle, "Select Folder containing your Assets");
    EXPECT_EQ(install::CaptionOf(AssetControl::Command1), "Add to Package");
    EXPECT_EQ(install::CaptionOf(AssetControl::Command2), "Exit");
    EXPECT_EQ(install::CaptionOf(AssetControl::Command3), "Process");
    EXPECT_EQ(install::CaptionOf(AssetControl::Command4), "Remove from Package");
}

} // namespace
} // namespace tamarind::tests
