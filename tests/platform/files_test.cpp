#include "platform/file_system.h"

#include "platform/expect_error.h"
#include "platform/myfile.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// What every system's files do alike; run on the real disk.
namespace tamarind::platform {
namespace {

using testing::ElementsAre;
using tests::ErrorOf;
using tests::NumberOfError;
using tests::TempFolder;

TEST(Files, WriteAndReadBackEveryByte) {
    const TempFolder folder;
    std::string bytes;
    for (int value = 0; value < 256; ++value) {
        bytes += static_cast<char>(value);
    }
    folder.Write("all.bin", bytes);
    EXPECT_EQ(folder.Read("all.bin"), bytes);
}

TEST(Files, TakeUnicodeNames) {
    const TempFolder folder;
    folder.Write("Línea Ω\\Маршрут 東京 \xF0\x9F\x9A\x82.xml", "train");
    EXPECT_EQ(folder.Read("Línea Ω\\Маршрут 東京 \xF0\x9F\x9A\x82.xml"), "train");
    EXPECT_THAT(folder.Names(), ElementsAre("Línea Ω"));
    EXPECT_THAT(folder.Names("Línea Ω"), ElementsAre("Маршрут 東京 \xF0\x9F\x9A\x82.xml"));
}

TEST(Files, TakePathsOfMoreThan300Characters) {
    const TempFolder folder;
    std::string name = "deep";
    for (int level = 0; level < 8; ++level) {
        name += "\\a folder with quite a long name for its purpose " + std::to_string(level);
    }
    ASSERT_GT(name.size(), 300U);
    const std::string path = folder.Write(name + "\\file.bin", "far down");
    Files& files = folder.Disk();
    EXPECT_EQ(folder.Read(name + "\\file.bin"), "far down");
    EXPECT_TRUE(FileExists(files, path));
    EXPECT_TRUE(FolderExists(files, folder / name));
    EXPECT_THAT(folder.Names(name), ElementsAre("file.bin"));
    files.Rename(path, folder / (name + "\\other.bin"));
    files.HardLink(folder / (name + "\\other.bin"), path);
    files.Replace(folder / (name + "\\other.bin"), path);
    EXPECT_EQ(folder.Read(name + "\\file.bin"), "far down");
    DelAll(files, folder / "deep");
    EXPECT_TRUE(folder.Names().empty());
}

TEST(Files, FindANameWrittenInOtherLetterCase) {
    const TempFolder folder;
    folder.Write("Content\\Routes.xml", "routes");
    EXPECT_EQ(folder.Read("CONTENT\\routes.XML"), "routes");
    EXPECT_TRUE(folder.Disk().EntryExists(folder / "content\\ROUTES.xml"));
    EXPECT_TRUE(folder.Disk().IsFolder(folder / "cOnTeNt"));
}

TEST(Files, OverwriteAnExistingFileWrittenInOtherLetterCase) {
    const TempFolder folder;
    folder.Write("Routes.xml", "old");
    folder.Write("ROUTES.XML", "new");
    EXPECT_THAT(folder.Names(), ElementsAre("Routes.xml"));
    EXPECT_EQ(folder.Read("Routes.xml"), "new");
}

TEST(Files, EntryExistsForFilesAndFoldersOnly) {
    const TempFolder folder;
    folder.Write("a.bin", "");
    folder.MakeFolder("sub");
    EXPECT_TRUE(folder.Disk().EntryExists(folder / "a.bin"));
    EXPECT_TRUE(folder.Disk().EntryExists(folder / "sub"));
    EXPECT_FALSE(folder.Disk().EntryExists(folder / "b.bin"));
    EXPECT_FALSE(folder.Disk().EntryExists(""));
}

TEST(Files, OpenOfAMissingFileIsFileNotFoundAndNamesIt) {
    const TempFolder folder;
    const auto error = ErrorOf([&] { return folder.Disk().Open(folder / "missing.bin"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 53);
    EXPECT_EQ(error->Details(), folder / "missing.bin");
}

TEST(Files, OpenInAMissingFolderIsPathNotFound) {
    const TempFolder folder;
    EXPECT_EQ(NumberOfError([&] { return folder.Disk().Open(folder / "missing\\a.bin"); }), 76);
}

TEST(Files, OpenOfAFolderIsAPathAccessError) {
    const TempFolder folder;
    EXPECT_EQ(NumberOfError([&] { return folder.Disk().Open(folder.Path()); }), 75);
}

TEST(Files, OpenOfAnEmptyPathIsFileNotFound) {
    const TempFolder folder;
    EXPECT_EQ(NumberOfError([&] { return folder.Disk().Open(""); }), 53);
}

TEST(Files, CreateNewRefusesAnExistingName) {
    const TempFolder folder;
    folder.Write("a.bin", "old");
    EXPECT_EQ(NumberOfError([&] { return folder.Disk().Create(folder / "a.bin", CreateMode::New); }), 58);
    EXPECT_EQ(folder.Read("a.bin"), "old");
}

TEST(Files, CreateInAMissingFolderIsPathNotFound) {
    const TempFolder folder;
    EXPECT_EQ(NumberOfError([&] { return folder.Disk().Create(folder / "no\\a.bin", CreateMode::New); }), 76);
}

TEST(Files, CreateOverAFolderIsAPathAccessError) {
    const TempFolder folder;
    folder.MakeFolder("sub");
    EXPECT_EQ(NumberOfError([&] { return folder.Disk().Create(folder / "sub", CreateMode::Overwrite); }), 75);
}

TEST(Files, ListSortsWithoutRegardToLetterCaseAndTellsFolders) {
    const TempFolder folder;
    folder.Write("b.bin", "");
    folder.Write("C.bin", "");
    folder.MakeFolder("A");
    const std::vector<FolderEntry> entries = folder.Disk().List(folder.Path());
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].name, "A");
    EXPECT_TRUE(entries[0].isFolder);
    EXPECT_EQ(entries[1].name, "b.bin");
    EXPECT_FALSE(entries[1].isFolder);
    EXPECT_EQ(entries[2].name, "C.bin");
}

TEST(Files, ListOfAMissingFolderIsPathNotFound) {
    const TempFolder folder;
    EXPECT_EQ(NumberOfError([&] { return folder.Disk().List(folder / "missing"); }), 76);
}

TEST(Files, RenameRefusesAnExistingTarget) {
    const TempFolder folder;
    folder.Write("a.bin", "a");
    folder.Write("b.bin", "b");
    EXPECT_EQ(NumberOfError([&] { folder.Disk().Rename(folder / "a.bin", folder / "b.bin"); }), 58);
    EXPECT_EQ(folder.Read("a.bin"), "a");
    EXPECT_EQ(folder.Read("b.bin"), "b");
}

TEST(Files, RenameRefusesATargetThatExistsInOtherLetterCase) {
    const TempFolder folder;
    folder.Write("a.bin", "a");
    folder.Write("B.bin", "b");
    EXPECT_EQ(NumberOfError([&] { folder.Disk().Rename(folder / "a.bin", folder / "b.BIN"); }), 58);
    EXPECT_EQ(folder.Read("B.bin"), "b");
}

TEST(Files, RenameOfAMissingFileIsFileNotFoundAndNamesIt) {
    const TempFolder folder;
    const auto error = ErrorOf([&] { folder.Disk().Rename(folder / "no.bin", folder / "b.bin"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 53);
    EXPECT_EQ(error->Details(), folder / "no.bin");
}

TEST(Files, ReplaceTakesTheTargetsPlace) {
    const TempFolder folder;
    folder.Write("new.bin", "new");
    folder.Write("old.bin", "old");
    folder.Disk().Replace(folder / "new.bin", folder / "old.bin");
    EXPECT_THAT(folder.Names(), ElementsAre("old.bin"));
    EXPECT_EQ(folder.Read("old.bin"), "new");
}

TEST(Files, ReplaceAlsoMovesToAFreeName) {
    const TempFolder folder;
    folder.Write("new.bin", "new");
    folder.Disk().Replace(folder / "new.bin", folder / "free.bin");
    EXPECT_THAT(folder.Names(), ElementsAre("free.bin"));
}

TEST(Files, ReplaceNeverTakesAFoldersPlace) {
    const TempFolder folder;
    folder.Write("new.bin", "new");
    folder.MakeFolder("sub");
    EXPECT_EQ(NumberOfError([&] { folder.Disk().Replace(folder / "new.bin", folder / "sub"); }), 75);
    EXPECT_THAT(folder.Names(), ElementsAre("new.bin", "sub"));
}

TEST(Files, ReplaceOfAMissingFileIsFileNotFound) {
    const TempFolder folder;
    folder.Write("old.bin", "old");
    EXPECT_EQ(NumberOfError([&] { folder.Disk().Replace(folder / "no.bin", folder / "old.bin"); }), 53);
    EXPECT_EQ(folder.Read("old.bin"), "old");
}

TEST(Files, HardLinkIsASecondNameForTheSameFile) {
    const TempFolder folder;
    folder.Write("a.bin", "old");
    folder.Disk().HardLink(folder / "a.bin", folder / "b.bin");
    folder.Write("a.bin", "new");
    EXPECT_EQ(folder.Read("b.bin"), "new");
}

TEST(Files, HardLinkRefusesAnExistingName) {
    const TempFolder folder;
    folder.Write("a.bin", "a");
    folder.Write("b.bin", "b");
    EXPECT_EQ(NumberOfError([&] { folder.Disk().HardLink(folder / "a.bin", folder / "b.bin"); }), 58);
    EXPECT_EQ(folder.Read("b.bin"), "b");
}

TEST(Files, RemoveOfAMissingFileIsFileNotFound) {
    const TempFolder folder;
    EXPECT_EQ(NumberOfError([&] { folder.Disk().Remove(folder / "no.bin"); }), 53);
}

TEST(Files, RemoveRefusesAFolder) {
    const TempFolder folder;
    folder.MakeFolder("sub");
    EXPECT_EQ(NumberOfError([&] { folder.Disk().Remove(folder / "sub", true); }), 75);
    EXPECT_THAT(folder.Names(), ElementsAre("sub"));
}

TEST(Files, CreateFolderRefusesAnExistingOne) {
    const TempFolder folder;
    EXPECT_EQ(NumberOfError([&] { folder.Disk().CreateFolder(folder.Path()); }), 58);
}

TEST(Files, RemoveFolderRefusesOneThatHoldsSomething) {
    const TempFolder folder;
    folder.Write("sub\\a.bin", "a");
    EXPECT_NE(NumberOfError([&] { folder.Disk().RemoveFolder(folder / "sub"); }), 0);
    EXPECT_EQ(folder.Read("sub\\a.bin"), "a");
}

TEST(Stamp, ChangesWithTheContent) {
    const TempFolder folder;
    folder.Write("a.bin", "old");
    const auto before = folder.Disk().Stamp(folder / "a.bin");
    ASSERT_TRUE(before);
    EXPECT_EQ(before->size, 3U);
    EXPECT_EQ(folder.Disk().Stamp(folder / "a.bin"), before);
    folder.Write("a.bin", "longer");
    EXPECT_NE(folder.Disk().Stamp(folder / "a.bin"), before);
}

TEST(Stamp, ChangesWhenAnotherFileTakesThePlace) {
    const TempFolder folder;
    folder.Write("a.bin", "same");
    const auto before = folder.Disk().Stamp(folder / "a.bin");
    folder.Write("b.bin", "same");
    folder.Disk().Replace(folder / "b.bin", folder / "a.bin");
    EXPECT_NE(folder.Disk().Stamp(folder / "a.bin"), before);
}

TEST(Stamp, IsNothingForAMissingFileAndForAFolder) {
    const TempFolder folder;
    EXPECT_FALSE(folder.Disk().Stamp(folder / "no.bin"));
    EXPECT_FALSE(folder.Disk().Stamp(folder.Path()));
}

TEST(ResolveLinks, LeavesAPathWithoutLinksAsItIs) {
    const TempFolder folder;
    folder.Write("sub\\a.bin", "a");
    EXPECT_EQ(folder.Disk().ResolveLinks(folder / "sub\\a.bin"), folder / "sub\\a.bin");
    EXPECT_EQ(folder.Disk().ResolveLinks(folder / "no\\b.bin"), folder / "no\\b.bin");
}

} // namespace
} // namespace tamarind::platform
