#include "platform/paths.h"

#include "platform/myfile.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace tamarind::platform {
namespace {

TEST(FolderOf, IsThePartBeforeTheLastBackslash) {
    EXPECT_EQ(FolderOf("c:\\game\\Content\\Routes.xml"), "c:\\game\\Content");
}

TEST(FolderOf, IsEmptyWithoutABackslash) {
    EXPECT_EQ(FolderOf("Routes.xml"), "");
    EXPECT_EQ(FolderOf(""), "");
}

TEST(FolderOf, IsEmptyForAnEntryOfTheRoot) { EXPECT_EQ(FolderOf("\\Routes.xml"), ""); }

TEST(NameOf, IsThePartAfterTheLastBackslash) { EXPECT_EQ(NameOf("c:\\game\\Routes.xml"), "Routes.xml"); }

TEST(NameOf, IsTheWholeTextWithoutABackslash) { EXPECT_EQ(NameOf("Routes.xml"), "Routes.xml"); }

TEST(NameOf, IsEmptyAfterATrailingBackslash) { EXPECT_EQ(NameOf("c:\\game\\"), ""); }

TEST(WithLastThreeReplaced, TakesCharactersWhateverTheyAre) {
    EXPECT_EQ(WithLastThreeReplaced("c:\\Wall.dds", "dat"), "c:\\Wall.dat");
    EXPECT_EQ(WithLastThreeReplaced("c:\\Wall.d", "dat"), "c:\\Waldat");
    EXPECT_EQ(WithLastThreeReplaced("c:\\\xC3\xA9\xC3\xA9\xE2\x82\xAC", "dat"), "c:\\dat");
    EXPECT_EQ(WithLastThreeReplaced("ab", "dat"), "dat");
    EXPECT_EQ(WithLastThreeReplaced("", "dat"), "dat");
}

TEST(BaseNameWithDot, EndsWithTheLastDot) {
    EXPECT_EQ(BaseNameWithDot("Track.XSec"), "Track.");
    EXPECT_EQ(BaseNameWithDot("a.b.bin"), "a.b.");
}

TEST(BaseNameWithDot, GetsADotWhenThereIsNone) { EXPECT_EQ(BaseNameWithDot("Track"), "Track."); }

TEST(ExtensionOf, IsThePartAfterTheLastDot) {
    EXPECT_EQ(ExtensionOf("a.b.bin"), "bin");
    EXPECT_EQ(ExtensionOf("Track."), "");
    EXPECT_EQ(ExtensionOf("Track"), "");
}

TEST(WithoutTrailingBackslash, DropsBackslashesAtTheEndOnly) {
    EXPECT_EQ(WithoutTrailingBackslash("c:\\game\\"), "c:\\game");
    EXPECT_EQ(WithoutTrailingBackslash("c:\\game"), "c:\\game");
    EXPECT_EQ(WithoutTrailingBackslash("\\\\"), "");
}

TEST(FromNative, UndoesToNative) {
    const tests::TempFolder folder;
    const std::string path = folder.Write("Strecke\\Bahnübergang.xml", "x");
    EXPECT_EQ(FromNative(ToNative(path)), path);
}

TEST(ExecutableFolder, HoldsTheRunningProgram) {
    const tests::TempFolder folder;
    const std::string here = ExecutableFolder();
    EXPECT_TRUE(FolderExists(folder.Disk(), here));
    EXPECT_TRUE(FileExists(folder.Disk(), here + "\\tamarind_tests") ||
                FileExists(folder.Disk(), here + "\\tamarind_tests.exe"));
}

} // namespace
} // namespace tamarind::platform
