#include "platform/posix/shared_installation.h"

#include "platform/expect_error.h"
#include "platform/paths.h"
#include "platform/posix/unprivileged.h"
#include "platform/program_folder.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace tamarind::tests {
namespace {

namespace fs = std::filesystem;
using platform::IsSharedInstallation;
using platform::LinkInstalledFiles;
using platform::OwnProgramFolder;
using testing::ElementsAre;

/// An installation with everything that belongs to it, and a person's folder that does not exist yet.
class SharedInstallation : public testing::Test {
protected:
    SharedInstallation() { Install("lib"); }

    void Install(const std::string& name) const {
        for (const char* file : {"tamarind", "tamarind-cli", "RouteSetup.exe", "Tamarind.chm"})
            folder_.Write(name + "\\" + file, name);
        folder_.Write(name + "\\help\\index.html", name);
        folder_.Write(name + "\\BluePrints\\Blue_Named.xml", name);
    }
    [[nodiscard]] std::string Native(const std::string& name) const { return platform::ToNative(folder_ / name); }
    void LinkTo(const std::string& installation) const {
        LinkInstalledFiles(Native(installation), Native("data\\own"));
    }
    [[nodiscard]] std::string Own(const std::string& name) const { return folder_.Read("data\\own\\" + name); }

    TempFolder folder_;
};

TEST_F(SharedInstallation, IsKnownByItsMarkEvenWhereThisPersonMayWrite) {
    EXPECT_FALSE(IsSharedInstallation(Native("lib")));
    folder_.Write("lib\\shared-installation", "");
    EXPECT_TRUE(IsSharedInstallation(Native("lib")));
}

TEST_F(SharedInstallation, IsAFolderThatThisPersonMustNotWrite) {
    const std::string lib = Native("lib");
    fs::permissions(Native(""), fs::perms(0755));
    fs::permissions(lib, fs::perms(0555));
    bool isShared = false;
    {
        const Unprivileged nobody;
        isShared = IsSharedInstallation(lib);
    }
    EXPECT_TRUE(isShared);
    fs::permissions(lib, fs::perms(0755)); // so that it can be removed
}

TEST_F(SharedInstallation, IsBroughtIntoThePersonsFolderAsLinks) {
    LinkTo("lib");
    EXPECT_THAT(folder_.Names("data\\own"), ElementsAre("BluePrints", "help", "RouteSetup.exe", "Tamarind.chm"));
    EXPECT_EQ(Own("RouteSetup.exe"), "lib");
    EXPECT_EQ(Own("Tamarind.chm"), "lib");
    EXPECT_EQ(Own("help\\index.html"), "lib");
    EXPECT_EQ(Own("BluePrints\\Blue_Named.xml"), "lib");
    EXPECT_TRUE(fs::is_symlink(Native("data\\own\\RouteSetup.exe")));
}

TEST_F(SharedInstallation, OfWhichAPartIsMissingGivesTheRest) {
    fs::remove_all(Native("lib\\help"));
    LinkTo("lib");
    EXPECT_THAT(folder_.Names("data\\own"), ElementsAre("BluePrints", "RouteSetup.exe", "Tamarind.chm"));
}

TEST_F(SharedInstallation, LeavesWhatThePersonPutThere) {
    folder_.Write("data\\own\\RouteSetup.exe", "mine");
    folder_.Write("data\\own\\BluePrints\\Blue_Named.xml", "mine");
    folder_.Write("data\\own\\preferences.txt", "mine");
    LinkTo("lib");
    EXPECT_EQ(Own("RouteSetup.exe"), "mine");
    EXPECT_EQ(Own("BluePrints\\Blue_Named.xml"), "mine");
    EXPECT_EQ(Own("preferences.txt"), "mine");
    EXPECT_EQ(Own("Tamarind.chm"), "lib");
}

TEST_F(SharedInstallation, LeavesALinkOfThePersonsOwn) {
    folder_.Write("templates\\Blue_Named.xml", "mine");
    folder_.MakeFolder("data\\own");
    fs::create_directory_symlink(Native("templates"), Native("data\\own") + "/BluePrints");
    LinkTo("lib");
    EXPECT_EQ(Own("BluePrints\\Blue_Named.xml"), "mine");
}

TEST_F(SharedInstallation, ThatMovedIsLinkedAnew) {
    LinkTo("lib");
    fs::rename(Native("lib"), Native("") + "/new");
    LinkTo("new");
    EXPECT_EQ(Own("RouteSetup.exe"), "lib");
    EXPECT_EQ(fs::read_symlink(Native("data\\own\\help")).native(), Native("new") + "/help");
    EXPECT_THAT(folder_.Names("data\\own"), ElementsAre("BluePrints", "help", "RouteSetup.exe", "Tamarind.chm"));
}

TEST_F(SharedInstallation, TakesTheLinksOverFromAnotherOne) {
    Install("old");
    LinkTo("old");
    EXPECT_EQ(Own("RouteSetup.exe"), "old");
    LinkTo("lib");
    EXPECT_EQ(Own("RouteSetup.exe"), "lib");
    EXPECT_EQ(Own("BluePrints\\Blue_Named.xml"), "lib");
}

TEST_F(SharedInstallation, TellsWhereAFolderCannotBeMade) {
    folder_.Write("data", "a file where the folder should be");
    const auto error = ErrorOf([this] { LinkTo("lib"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Details(), folder_ / "data\\own");
}

/// With the variables of a person's folders as a test wants them.
class OwnFolder : public testing::Test {
protected:
    ~OwnFolder() override {
        unsetenv("XDG_DATA_HOME");
        if (!home_.empty()) setenv("HOME", home_.c_str(), 1);
    }

    // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing else reads it meanwhile
    std::string home_ = std::getenv("HOME") == nullptr ? "" : std::getenv("HOME");
};

TEST_F(OwnFolder, StandsAmongThePersonsData) {
    setenv("HOME", "/home/ann", 1);
    unsetenv("XDG_DATA_HOME");
    EXPECT_EQ(OwnProgramFolder(), "/home/ann/.local/share/tamarind");
    setenv("XDG_DATA_HOME", "/srv/ann", 1);
    EXPECT_EQ(OwnProgramFolder(), "/srv/ann/tamarind");
}

TEST_F(OwnFolder, IsNotTakenFromARelativePath) {
    setenv("HOME", "/home/ann", 1);
    setenv("XDG_DATA_HOME", "data", 1);
    EXPECT_EQ(OwnProgramFolder(), "/home/ann/.local/share/tamarind");
    unsetenv("XDG_DATA_HOME");
    setenv("HOME", "ann", 1);
    EXPECT_EQ(OwnProgramFolder(), "");
}

} // namespace
} // namespace tamarind::tests
