#include "platform/expect_error.h"
#include "platform/paths.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace tamarind::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

/// A trash of the test's own.
class Trash : public testing::Test {
protected:
    Trash() { UseData(folder_ / "data"); }
    ~Trash() override { unsetenv("XDG_DATA_HOME"); }

    static void UseData(const std::string& path) { setenv("XDG_DATA_HOME", platform::ToNative(path).c_str(), 1); }
    bool Move(const std::string& name) { return folder_.Disk().MoveToTrash(folder_ / name); }

    TempFolder folder_;
};

TEST_F(Trash, TakesAFolderWithAllThatIsInIt) {
    folder_.Write("Routes\\r1\\Sub\\a.txt", "a");
    EXPECT_TRUE(Move("Routes\\r1"));
    EXPECT_THAT(folder_.Names("Routes"), IsEmpty());
    EXPECT_EQ(folder_.Read("data\\Trash\\files\\r1\\Sub\\a.txt"), "a");
}

TEST_F(Trash, NotesWhereItWasAndWhen) {
    folder_.MakeFolder("My Routes\\r 1\xC3\xA9");
    Move("My Routes\\r 1\xC3\xA9");
    const std::string note = folder_.Read("data\\Trash\\info\\r 1\xC3\xA9.trashinfo");
    EXPECT_TRUE(note.starts_with("[Trash Info]\nPath=/")) << note;
    EXPECT_NE(note.find("/My%20Routes/r%201%C3%A9\n"), std::string::npos) << note;
    const std::string date = note.substr(note.find("DeletionDate="));
    EXPECT_THAT(date, MatchesRegex("DeletionDate=[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}\n"));
}

TEST_F(Trash, KeepsTwoOfTheSameNameApart) {
    folder_.Write("one\\r1\\a", "1");
    folder_.Write("two\\r1\\a", "2");
    EXPECT_TRUE(Move("one\\r1"));
    EXPECT_TRUE(Move("two\\r1"));
    EXPECT_EQ(folder_.Read("data\\Trash\\files\\r1\\a"), "1");
    EXPECT_EQ(folder_.Read("data\\Trash\\files\\r1.2\\a"), "2");
    EXPECT_THAT(folder_.Names("data\\Trash\\info"), ElementsAre("r1.2.trashinfo", "r1.trashinfo"));
}

TEST_F(Trash, TakesALinkAndNotWhatItLeadsTo) {
    folder_.Write("elsewhere\\a", "1");
    const std::string target = platform::ToNative(folder_ / "elsewhere");
    const std::string link = platform::ToNative(folder_.Path()) + "/link";
    ASSERT_EQ(std::system(("ln -s '" + target + "' '" + link + "'").c_str()), 0);
    EXPECT_TRUE(Move("link"));
    EXPECT_EQ(folder_.Read("elsewhere\\a"), "1");
}

TEST_F(Trash, MovesLinksInsideOfAFolderUnfollowed) {
    folder_.Write("elsewhere\\a", "1");
    folder_.MakeFolder("r1");
    const std::string root = platform::ToNative(folder_.Path());
    ASSERT_EQ(std::system(("ln -s '" + root + "/elsewhere' '" + root + "/r1/link'").c_str()), 0);
    EXPECT_TRUE(Move("r1"));
    EXPECT_EQ(folder_.Read("elsewhere\\a"), "1");
}

TEST_F(Trash, IsNoneOnAnotherDisk) {
    UseData("\\dev\\shm\\tamarind-trash-test");
    folder_.MakeFolder("r1");
    const bool isSameDisk = folder_.Path().starts_with("\\dev\\shm");
    if (isSameDisk) GTEST_SKIP() << "the temporary folder lies there as well";
    EXPECT_FALSE(Move("r1"));
    EXPECT_TRUE(folder_.Disk().IsFolder(folder_ / "r1"));
    ASSERT_EQ(std::system("rm -r /dev/shm/tamarind-trash-test"), 0);
}

TEST_F(Trash, IsNoneWhereItCannotBeMade) {
    UseData(folder_.Write("file", "x"));
    folder_.MakeFolder("r1");
    EXPECT_FALSE(Move("r1"));
    EXPECT_TRUE(folder_.Disk().IsFolder(folder_ / "r1"));
}

TEST_F(Trash, FailsForWhatIsNotThere) {
    EXPECT_EQ(NumberOfError([&] { Move("r1"); }), 53);
}

} // namespace
} // namespace tamarind::tests
