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

TEST_F(PackageLinks, MayBeTheWayToThePackageItself) {
    fs::create_directory_symlink(Native("P"), Native("P").substr(0, Native("P").size() - 1) + "link");
    installer.packageFolder = folder / "link";
    EXPECT_EQ(Run(), Ended::Done);
    EXPECT_EQ(folder.Read("Game\\Assets\\a.bin"), "a");
}

} // namespace
} // namespace tamarind::install
