#include "install/folder_lists.h"

#include "platform/expect_error.h"
#include "support/memory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using install::FolderRow;
using install::MatchesPattern;
using testing::ElementsAre;

TEST(DriveOf, IsTheFirstTwoCharactersOrTheRoot) {
    EXPECT_EQ(install::DriveOf("d:\\Games"), "d:");
    EXPECT_EQ(install::DriveOf("\\home\\x"), "\\");
    EXPECT_EQ(install::DriveOf(""), "\\");
    EXPECT_EQ(install::RootOf("d:"), "d:\\");
    EXPECT_EQ(install::RootOf("\\"), "\\");
}

TEST(FolderRows, ShowTheWayDownAndWhatIsBelow) {
    MemoryFiles files;
    files.folders = {"C:\\A", "C:\\A\\B", "C:\\A\\B\\x", "C:\\A\\B\\Y", "C:\\A\\other"};
    files.contents = {{"C:\\A\\B\\file", ""}};
    EXPECT_THAT(install::FolderRows(files, "C:\\A\\B"),
                ElementsAre(FolderRow{"C:\\", "C:\\", 0, true}, FolderRow{"A", "C:\\A", 1, true},
                            FolderRow{"B", "C:\\A\\B", 2, true}, FolderRow{"x", "C:\\A\\B\\x", 3, false},
                            FolderRow{"Y", "C:\\A\\B\\Y", 3, false}));
}

TEST(FolderRows, OfAMissingFolderFail) {
    MemoryFiles files;
    EXPECT_EQ(NumberOfError([&] { static_cast<void>(install::FolderRows(files, "C:\\none")); }), 76);
}

TEST(FileNames, AreThoseOfFilesThatMatch) {
    MemoryFiles files;
    files.folders = {"C:\\A", "C:\\A\\sub.bin"};
    files.contents = {{"C:\\A\\a.bin", ""}, {"C:\\A\\B.BIN", ""}, {"C:\\A\\c.xml", ""}};
    EXPECT_THAT(install::FileNames(files, "C:\\A", "*.bin"), ElementsAre("a.bin", "B.BIN"));
    EXPECT_THAT(install::FileNames(files, "C:\\A", "*.*"), ElementsAre("a.bin", "B.BIN", "c.xml"));
}

TEST(MatchesPattern, KnowsStarAndQuestionMark) {
    EXPECT_TRUE(MatchesPattern("Track.XSec", "*.xsec"));
    EXPECT_TRUE(MatchesPattern("Track.XSec", "tr?ck.*"));
    EXPECT_TRUE(MatchesPattern("\xC3\xA9.bin", "?.bin"));
    EXPECT_TRUE(MatchesPattern("abcabd", "*abd"));
    EXPECT_FALSE(MatchesPattern("Track.XSec", "*.bin"));
    EXPECT_FALSE(MatchesPattern("ab", "?"));
    EXPECT_FALSE(MatchesPattern("a", "a?"));
}

TEST(MatchesPattern, StarDotStarIsEveryName) {
    EXPECT_TRUE(MatchesPattern("README", "*.*"));
    EXPECT_TRUE(MatchesPattern("README", " *.* "));
}

TEST(MatchesPattern, TakesSeveralPatterns) {
    EXPECT_TRUE(MatchesPattern("a.xml", "*.bin; *.xml"));
    EXPECT_FALSE(MatchesPattern("a.txt", "*.bin;*.xml"));
    EXPECT_FALSE(MatchesPattern("a.txt", ""));
    EXPECT_FALSE(MatchesPattern("", ";"));
}

TEST(MatchesPattern, IsFastWithManyStars) {
    EXPECT_FALSE(MatchesPattern(std::string(2000, 'a'), std::string(100, '*') + "a*a*a*a*a*a*b"));
}

} // namespace
} // namespace tamarind::tests
