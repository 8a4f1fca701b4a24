#include "install/installer_rig.h"
#include "install/package_verify.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace tamarind::install {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
namespace fs = std::filesystem;

// A package from a stranger may hold links that lead anywhere.
class PackageLinks : public tests::InstallerRig {
protected:
    PackageLinks() {
        folder.Write("secret\\key", "secret");
        folder.Write("P\\Rail Simulator\\Assets\\a.bin", "a");
    }
    [[nodiscard]] std::string Native(const std::string& name) const { return platform::ToNative(folder / name); }
};

TEST_F(PackageLinks, AreNeverFollowedOutOfThePackage) {
    const std::string assets = Native("P\\Rail Simulator\\Assets");
    fs::create_symlink(Native("secret\\key"), assets + "/key");
    fs::create_directory_symlink(Native("secret"), assets + "/folder");
    fs::create_symlink("/nowhere/at/all", assets + "/broken");
    EXPECT_EQ(Run(), Ended::Done);
    EXPECT_THAT(folder.Names("Game\\Assets"), ElementsAre("a.bin"));
    EXPECT_THAT(ui.StatusLines(), ElementsAre(HasSubstr("broken"), HasSubstr("folder"), HasSubstr("key")));
}

TEST_F(PackageLinks, InsideArriveAsTheFilesThatTheyAre) {
    fs::create_symlink("a.bin", Native("P\\Rail Simulator\\Assets") + "/b.bin");
    EXPECT_EQ(Run(), Ended::Done);
    EXPECT_FALSE(fs::is_symlink(Native("Game\\Assets\\b.bin")));
    EXPECT_EQ(folder.Read("Game\\Assets\\b.bin"), "a");
}

TEST_F(PackageLinks, MayNotStandForTheContentFolder) {
    const std::string other = folder.MakeFolder("Q");
    fs::create_directory_symlink(Native("secret"), Native("Q") + "/Rail Simulator");
    installer.packageFolder = other;
    EXPECT_EQ(Run(), Ended::Incomplete);
    EXPECT_FALSE(disk.EntryExists(folder / "Game\\key"));
}

TEST_F(PackageLinks, AreNamedByTheVerification) {
    fs::create_symlink(Native("secret\\key"), Native("P\\Rail Simulator\\Assets") + "/key");
    EXPECT_THAT(VerifyPackage(disk, folder / "P").problems, ElementsAre(HasSubstr("key"), HasSubstr("AssetSetup")));
}

TEST_F(PackageLinks, AreNotWrittenThrough) {
    MakeScenarioPackage();
    folder.Write("secret\\xml", "secret");
    fs::create_symlink(Native("secret\\key"), Native("P") + "/RouteSetup.log");
    fs::create_symlink(Native("secret\\xml"), Native("P") + "/Scenarios.xml");
    fs::create_symlink(Native("secret\\new"), Native("P") + "/SCENARIOS.XML");
    EXPECT_EQ(Run(), Ended::Done);
    EXPECT_THAT(folder.Names("secret"), ElementsAre("key", "xml"));
    EXPECT_EQ(folder.Read("secret\\key") + folder.Read("secret\\xml"), "secretsecret");
    EXPECT_THAT(folder.Read("P\\RouteSetup.log"), HasSubstr("Everything was done."));
}

TEST_F(PackageLinks, OutOfItAreNoMarkers) {
    folder.Write("secret\\record", tests::kRouteRecord);
    fs::create_symlink(Native("secret\\record"), Native("P") + "/Route_Setup.xxx");
    EXPECT_EQ(ModeOf(disk, folder / "P"), InstallMode::Assets);
    EXPECT_THAT(VerifyPackage(disk, folder / "P").problems,
                testing::Contains("\"Route_Setup.xxx\" leads elsewhere; it is not read."));
    MakeScenarioPackage();
    folder.Write("secret\\list", folder.Read("P\\Scenario.yyy"));
    fs::remove(Native("P\\Scenario.yyy"));
    fs::create_symlink(Native("secret\\list"), Native("P") + "/Scenario.yyy");
    EXPECT_EQ(Run(), Ended::Incomplete);
    EXPECT_FALSE(disk.EntryExists(folder / "Game\\Content\\Routes\\old-route\\Scenarios.bak"));
}

TEST_F(PackageLinks, AreCountedBeforehand) {
    installer.InstallMode = InstallMode::Assets;
    fs::create_symlink(Native("secret\\key"), Native("P\\Rail Simulator\\Assets") + "/key");
    EXPECT_THAT(DescribeInstallation(installer), testing::Contains("1 entry leads elsewhere and will be skipped."));
    fs::create_symlink("/nowhere", Native("P\\Rail Simulator\\Assets") + "/broken");
    EXPECT_THAT(DescribeInstallation(installer), testing::Contains("2 entries lead elsewhere and will be skipped."));
}

TEST_F(PackageLinks, MayBeTheWayToThePackageItself) {
    fs::create_directory_symlink(Native("P"), Native("P").substr(0, Native("P").size() - 1) + "link");
    installer.packageFolder = folder / "link";
    EXPECT_EQ(Run(), Ended::Done);
    EXPECT_EQ(folder.Read("Game\\Assets\\a.bin"), "a");
}

} // namespace
} // namespace tamarind::install
