#include "platform/safe_write.h"

#include "platform/expect_error.h"
#include "support/faulty_files.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace tamarind::platform {
namespace {

using testing::ElementsAre;
using tests::ErrorOf;
using tests::FaultyFiles;
using tests::NumberOfError;
using tests::TempFolder;

/// A disk whose file system knows no second names.
class NoSecondNames : public FaultyFiles {
public:
    using FaultyFiles::FaultyFiles;
    void HardLink(const std::string& /*from*/, const std::string& to) override {
        throw text::RuntimeError(text::ErrorNumber::PathAccessError, to);
    }
};

/// A disk on which putting a file in another's place fails after it has happened.
class FailsAfterReplace : public FaultyFiles {
public:
    using FaultyFiles::FaultyFiles;
    void Replace(const std::string& from, const std::string& to) override {
        FaultyFiles::Replace(from, to);
        throw text::RuntimeError(text::ErrorNumber::DeviceIoError, to);
    }
};

/// "Track.bin" with the content "old", and "new.bin" with the content "new".
struct GameFolder : TempFolder {
    std::string original = Write("Track.bin", "old");
    std::string newFile = Write("new.bin", "new");
};

void MakeAllBackups(const TempFolder& folder) {
    folder.Write("Track.bin.bak", "backup");
    for (int number = 1; number <= 50; ++number) {
        folder.Write("Track.bin.bak" + std::to_string(number), "backup " + std::to_string(number));
    }
}

TEST(WriteSafely, CreatesAFile) {
    const TempFolder folder;
    WriteSafely(folder.Disk(), folder / "a.txt", "content");
    EXPECT_EQ(folder.Read("a.txt"), "content");
    EXPECT_THAT(folder.Names(), ElementsAre("a.txt"));
}

TEST(WriteSafely, ReplacesAFile) {
    const TempFolder folder;
    folder.Write("a.txt", "old and longer");
    WriteSafely(folder.Disk(), folder / "a.txt", "new");
    EXPECT_EQ(folder.Read("a.txt"), "new");
    EXPECT_THAT(folder.Names(), ElementsAre("a.txt"));
}

TEST(WriteSafely, WritesPieceByPiece) {
    const TempFolder folder;
    WriteSafely(folder.Disk(), folder / "a.txt", [](OutputFile& sink) {
        sink.Write("one ");
        sink.Write("two");
    });
    EXPECT_EQ(folder.Read("a.txt"), "one two");
}

TEST(WriteSafely, FlushesAndClosesBeforeItReplaces) {
    const TempFolder folder;
    FaultyFiles files(folder.Disk());
    WriteSafely(files, folder / "a.txt", "new");
    EXPECT_THAT(files.Changes(), ElementsAre("Create", "Write", "Flush", "Close", "Replace"));
}

TEST(WriteSafely, GivesTheOldFilesAttributesBeforeTheContent) {
    const TempFolder folder;
    folder.Write("a.txt", "old");
    FaultyFiles files(folder.Disk());
    WriteSafely(files, folder / "a.txt", "new");
    EXPECT_THAT(files.Changes(), ElementsAre("Create", "CopyAttributes", "Write", "Flush", "Close", "Replace"));
}

TEST(WriteSafely, KeepsTheOldFileWhenTheContentCannotBeMade) {
    const TempFolder folder;
    folder.Write("a.txt", "old");
    EXPECT_THROW(WriteSafely(folder.Disk(), folder / "a.txt",
                             [](OutputFile& sink) {
                                 sink.Write("half");
                                 throw std::logic_error("no more");
                             }),
                 std::logic_error);
    EXPECT_EQ(folder.Read("a.txt"), "old");
    EXPECT_THAT(folder.Names(), ElementsAre("a.txt"));
}

TEST(WriteSafely, NamesTheTargetInErrors) {
    const TempFolder folder;
    const auto error = ErrorOf([&] { WriteSafely(folder.Disk(), folder / "no\\a.txt", "x"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 76);
    EXPECT_EQ(error->Details(), folder / "no\\a.txt");
}

TEST(WriteSafely, RefusesAFolder) {
    const TempFolder folder;
    EXPECT_EQ(NumberOfError([&] { WriteSafely(folder.Disk(), folder.Path(), "x"); }), 75);
}

TEST(WriteSafely, WritesAFileWhoseNameIsAsLongAsNamesMayBe) {
    const TempFolder folder;
    const std::string name(250, 'n');
    WriteSafely(folder.Disk(), folder / name, "x");
    EXPECT_THAT(folder.Names(), ElementsAre(name));
}

TEST(FreeBackupName, IsBakFirst) {
    const TempFolder folder;
    EXPECT_EQ(FreeBackupName(folder.Disk(), folder / "Track.bin"), folder / "Track.bin.bak");
}

TEST(FreeBackupName, CountsFrom1AfterBak) {
    const TempFolder folder;
    folder.Write("Track.bin.bak", "");
    EXPECT_EQ(FreeBackupName(folder.Disk(), folder / "Track.bin"), folder / "Track.bin.bak1");
    folder.Write("Track.bin.bak1", "");
    EXPECT_EQ(FreeBackupName(folder.Disk(), folder / "Track.bin"), folder / "Track.bin.bak2");
}

TEST(FreeBackupName, FillsTheFirstGap) {
    const TempFolder folder;
    MakeAllBackups(folder);
    folder.Disk().Remove(folder / "Track.bin.bak7");
    EXPECT_EQ(FreeBackupName(folder.Disk(), folder / "Track.bin"), folder / "Track.bin.bak7");
}

TEST(FreeBackupName, EndsWith50) {
    const TempFolder folder;
    MakeAllBackups(folder);
    EXPECT_EQ(FreeBackupName(folder.Disk(), folder / "Track.bin"), "");
    folder.Disk().Remove(folder / "Track.bin.bak50");
    EXPECT_EQ(FreeBackupName(folder.Disk(), folder / "Track.bin"), folder / "Track.bin.bak50");
}

TEST(FreeBackupName, PassesOverAFolderOfThatName) {
    const TempFolder folder;
    folder.MakeFolder("Track.bin.bak");
    EXPECT_EQ(FreeBackupName(folder.Disk(), folder / "Track.bin"), folder / "Track.bin.bak1");
}

TEST(ReplaceGameFile, KeepsTheOldContentUnderTheBackupName) {
    const GameFolder game;
    EXPECT_EQ(ReplaceGameFile(game.Disk(), game.original, game.newFile), game.original + ".bak");
    EXPECT_EQ(game.Read("Track.bin"), "new");
    EXPECT_EQ(game.Read("Track.bin.bak"), "old");
    EXPECT_EQ(game.Read("new.bin"), "new");
    EXPECT_THAT(game.Names(), ElementsAre("new.bin", "Track.bin", "Track.bin.bak"));
}

TEST(ReplaceGameFile, WritesTheNewContentBeforeItTouchesAnything) {
    const GameFolder game;
    FaultyFiles files(game.Disk());
    ReplaceGameFile(files, game.original, game.newFile);
    EXPECT_THAT(files.Changes(),
                ElementsAre("Create", "CopyAttributes", "Write", "Flush", "Close", "HardLink", "Replace"));
}

TEST(ReplaceGameFile, CopiesTheOldFileWhereThereAreNoSecondNames) {
    const GameFolder game;
    NoSecondNames files(game.Disk());
    EXPECT_EQ(ReplaceGameFile(files, game.original, game.newFile), game.original + ".bak");
    EXPECT_EQ(game.Read("Track.bin"), "new");
    EXPECT_EQ(game.Read("Track.bin.bak"), "old");
    EXPECT_THAT(files.Changes(), ElementsAre("Create", "CopyAttributes", "Write", "Flush", "Close", //
                                             "Create", "CopyAttributes", "Write", "Flush", "Close", "Replace"));
}

TEST(ReplaceGameFile, MakesOneBackupEachTime) {
    const GameFolder game;
    ReplaceGameFile(game.Disk(), game.original, game.newFile);
    game.Write("new.bin", "newer");
    EXPECT_EQ(ReplaceGameFile(game.Disk(), game.original, game.newFile), game.original + ".bak1");
    EXPECT_EQ(game.Read("Track.bin"), "newer");
    EXPECT_EQ(game.Read("Track.bin.bak"), "old");
    EXPECT_EQ(game.Read("Track.bin.bak1"), "new");
}

TEST(ReplaceGameFile, Keeps51OldContentsAndThenNoMore) {
    const GameFolder game;
    for (int round = 0; round <= 50; ++round) {
        game.Write("new.bin", "content " + std::to_string(round));
        const std::string number = round == 0 ? "" : std::to_string(round);
        ASSERT_EQ(ReplaceGameFile(game.Disk(), game.original, game.newFile), game.original + ".bak" + number);
    }
    game.Write("new.bin", "last");
    EXPECT_EQ(ReplaceGameFile(game.Disk(), game.original, game.newFile), "");
    EXPECT_EQ(game.Read("Track.bin"), "last");
    EXPECT_EQ(game.Read("Track.bin.bak"), "old");
    EXPECT_EQ(game.Read("Track.bin.bak1"), "content 0");
    EXPECT_EQ(game.Read("Track.bin.bak50"), "content 49");
}

TEST(ReplaceGameFile, OfAMissingFileIsFileNotFound) {
    const TempFolder folder;
    folder.Write("new.bin", "new");
    const auto error = ErrorOf([&] { ReplaceGameFile(folder.Disk(), folder / "Track.bin", folder / "new.bin"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 53);
    EXPECT_EQ(error->Details(), folder / "Track.bin");
    EXPECT_THAT(folder.Names(), ElementsAre("new.bin"));
}

TEST(ReplaceGameFile, OfAFolderIsAPathAccessError) {
    const TempFolder folder;
    folder.Write("new.bin", "new");
    EXPECT_EQ(NumberOfError([&] { ReplaceGameFile(folder.Disk(), folder.Path(), folder / "new.bin"); }), 75);
}

TEST(ReplaceGameFile, WithoutTheNewFileChangesNothing) {
    const GameFolder game;
    const auto error = ErrorOf([&] { ReplaceGameFile(game.Disk(), game.original, game / "no.bin"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 53);
    EXPECT_EQ(error->Details(), (game / "no.bin") + "\r\nThe game file is unchanged.");
    EXPECT_EQ(game.Read("Track.bin"), "old");
    EXPECT_THAT(game.Names(), ElementsAre("new.bin", "Track.bin"));
}

TEST(ReplaceGameFile, KeepsTheBackupWhenTheFailureComesAfterTheReplacement) {
    const GameFolder game;
    FailsAfterReplace files(game.Disk());
    const auto error = ErrorOf([&] { ReplaceGameFile(files, game.original, game.newFile); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Details(), game.original + "\r\nThe game file was replaced nevertheless.");
    EXPECT_EQ(game.Read("Track.bin"), "new");
    EXPECT_EQ(game.Read("Track.bin.bak"), "old");
    EXPECT_THAT(game.Names(), ElementsAre("new.bin", "Track.bin", "Track.bin.bak"));
}

} // namespace
} // namespace tamarind::platform
