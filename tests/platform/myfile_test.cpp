#include "platform/myfile.h"

#include "platform/expect_error.h"
#include "platform/paths.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"
#include "text/code_page.h"
#include "text/search.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

namespace tamarind::platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::NumberOfError;
using tests::ScriptedUserInterface;
using tests::TempFolder;

TEST(FileExists, IsTrueForAFileThatCanBeRead) {
    const TempFolder folder;
    EXPECT_TRUE(FileExists(folder.Disk(), folder.Write("a.bin", "")));
}

TEST(FileExists, IsFalseForAMissingFile) {
    const TempFolder folder;
    EXPECT_FALSE(FileExists(folder.Disk(), folder / "a.bin"));
}

TEST(FileExists, IsFalseForAFolder) {
    const TempFolder folder;
    EXPECT_FALSE(FileExists(folder.Disk(), folder.Path()));
}

TEST(FileExists, IsFalseForAnEmptyPath) {
    const TempFolder folder;
    EXPECT_FALSE(FileExists(folder.Disk(), ""));
}

TEST(FolderExists, GivesTheSameAnswerWithAndWithoutATrailingBackslash) {
    const TempFolder folder;
    EXPECT_TRUE(FolderExists(folder.Disk(), folder.Path()));
    EXPECT_TRUE(FolderExists(folder.Disk(), folder.Path() + "\\"));
    EXPECT_FALSE(FolderExists(folder.Disk(), folder / "no"));
    EXPECT_FALSE(FolderExists(folder.Disk(), folder / "no\\"));
}

TEST(FolderExists, IsFalseForAFileAndForAnEmptyPath) {
    const TempFolder folder;
    EXPECT_FALSE(FolderExists(folder.Disk(), folder.Write("a.bin", "")));
    EXPECT_FALSE(FolderExists(folder.Disk(), ""));
}

TEST(FolderExists, IsTrueForTheRoot) {
    const TempFolder folder;
    EXPECT_TRUE(FolderExists(folder.Disk(), "\\"));
}

TEST(ReadBytes, ReadsAFileOfManyBlocks) {
    const TempFolder folder;
    std::string bytes;
    for (int i = 0; i < 300'000; ++i) {
        bytes += static_cast<char>(i * 7 % 251);
    }
    folder.Write("big.bin", bytes);
    EXPECT_EQ(folder.Read("big.bin"), bytes);
}

TEST(ReadUniFile, ReadsAnyOtherNameAsTheCodePage) {
    const TempFolder folder;
    std::string text;
    ReadUniFile(folder.Disk(), folder.Write("x.xml", "caf\xE9 \x80"), text);
    EXPECT_EQ(text, "café €");
}

TEST(ReadUniFile, ReadsMkrAsUtf16InAnyLetterCase) {
    const TempFolder folder;
    std::string text;
    ReadUniFile(folder.Disk(), folder.Write("x.MKR", std::string("\xFF\xFE\xE9\x00\x41\x00", 6)), text);
    EXPECT_EQ(text, "éA");
}

TEST(ReadUniFile, LeavesTheTextAsItIsWhenTheFileIsMissing) {
    const TempFolder folder;
    std::string text = "before";
    ReadUniFile(folder.Disk(), folder / "missing.xml", text);
    EXPECT_EQ(text, "before");
}

TEST(ReadUniFile, EmptiesTheTextForAnEmptyFile) {
    const TempFolder folder;
    std::string text = "before";
    ReadUniFile(folder.Disk(), folder.Write("x.xml", ""), text);
    EXPECT_EQ(text, "");
}

std::string InPieces(const TempFolder& folder, const std::string& path) {
    std::string text;
    ReadUniFile(folder.Disk(), path, [&text](std::string_view piece) { text += piece; });
    return text;
}

TEST(ReadUniFile, HandsOverTheSameTextInPieces) {
    const TempFolder folder;
    std::string bytes(300'000, 'x');
    bytes += "caf\xE9";
    EXPECT_EQ(InPieces(folder, folder.Write("x.xml", bytes)), std::string(300'000, 'x') + "café");
    EXPECT_EQ(InPieces(folder, folder.Write("x.mkr", std::string("\xFF\xFE\xE9\x00", 4))), "é");
    EXPECT_EQ(InPieces(folder, folder.Write("empty.xml", "")), "");
    EXPECT_EQ(InPieces(folder, folder / "missing.xml"), "");
}

TEST(WriteUniFile, WritesTheCodePageAndNoLineEnd) {
    const TempFolder folder;
    ScriptedUserInterface ui;
    EXPECT_TRUE(WriteUniFile(folder.Disk(), ui, folder / "x.xml", "café €\n"));
    EXPECT_EQ(folder.Read("x.xml"), "caf\xE9 \x80\n");
    EXPECT_THAT(folder.Names(), ElementsAre("x.xml"));
}

TEST(WriteUniFile, KeepsAll256BytesFromReadToWrite) {
    const TempFolder folder;
    ScriptedUserInterface ui;
    std::string bytes;
    for (int value = 0; value < 256; ++value) {
        bytes += static_cast<char>(value);
    }
    std::string text;
    ReadUniFile(folder.Disk(), folder.Write("a.xml", bytes), text);
    EXPECT_TRUE(WriteUniFile(folder.Disk(), ui, folder / "b.xml", text));
    EXPECT_EQ(folder.Read("b.xml"), bytes);
}

TEST(WriteUniFile, ShowsAnErrorAndReturns) {
    const TempFolder folder;
    ScriptedUserInterface ui;
    EXPECT_FALSE(WriteUniFile(folder.Disk(), ui, folder / "no\\x.xml", "text"));
    ASSERT_EQ(ui.Messages().size(), 1U);
    const Message message = ui.Messages()[0];
    EXPECT_EQ(message.text,
              "Path not found occurred in WriteUniFile while processing\r\nfile " + ForDisplay(folder / "no\\x.xml"));
    EXPECT_EQ(message.title, "Tamarind");
    EXPECT_EQ(message.icon, Icon::Exclamation);
    EXPECT_EQ(message.buttons, Buttons::Ok);
}

TEST(WriteUniFile, ShowsAnErrorForAFolder) {
    const TempFolder folder;
    ScriptedUserInterface ui;
    EXPECT_FALSE(WriteUniFile(folder.Disk(), ui, folder.Path(), "text"));
    EXPECT_THAT(ui.MessageTexts(),
                ElementsAre("Path/File access error occurred in WriteUniFile while processing\r\nfile " +
                            ForDisplay(folder.Path())));
}

TEST(CopyFile, CreatesAndReplaces) {
    const TempFolder folder;
    folder.Write("a.bin", "new");
    folder.Write("b.bin", "old and longer");
    CopyFile(folder.Disk(), folder / "a.bin", folder / "b.bin");
    CopyFile(folder.Disk(), folder / "a.bin", folder / "c.bin");
    EXPECT_EQ(folder.Read("b.bin"), "new");
    EXPECT_EQ(folder.Read("c.bin"), "new");
    EXPECT_THAT(folder.Names(), ElementsAre("a.bin", "b.bin", "c.bin"));
}

TEST(CopyFile, OfAMissingFileLeavesTheTargetAlone) {
    const TempFolder folder;
    folder.Write("b.bin", "old");
    EXPECT_EQ(NumberOfError([&] { CopyFile(folder.Disk(), folder / "a.bin", folder / "b.bin"); }), 53);
    EXPECT_EQ(folder.Read("b.bin"), "old");
}

TEST(CopyFile, OntoItselfKeepsTheContent) {
    const TempFolder folder;
    folder.Write("a.bin", "content");
    CopyFile(folder.Disk(), folder / "a.bin", folder / "a.bin");
    EXPECT_EQ(folder.Read("a.bin"), "content");
}

TEST(CopyFolderTree, CopiesEverythingEmptyFoldersToo) {
    const TempFolder folder;
    folder.Write("from\\a.bin", "a");
    folder.Write("from\\sub\\b.bin", "b");
    folder.MakeFolder("from\\empty");
    CopyFolderTree(folder.Disk(), folder / "from", folder / "to", false);
    EXPECT_EQ(folder.Read("to\\a.bin"), "a");
    EXPECT_EQ(folder.Read("to\\sub\\b.bin"), "b");
    EXPECT_THAT(folder.Names("to"), ElementsAre("a.bin", "empty", "sub"));
}

TEST(CopyFolderTree, OverwritesAndKeepsWhatElseIsThere) {
    const TempFolder folder;
    folder.Write("from\\a.bin", "new");
    folder.Write("to\\a.bin", "old");
    folder.Write("to\\z.bin", "other");
    CopyFolderTree(folder.Disk(), folder / "from", folder / "to", true);
    EXPECT_EQ(folder.Read("to\\a.bin"), "new");
    EXPECT_EQ(folder.Read("to\\z.bin"), "other");
}

TEST(CopyFolderTree, RefusesAnExistingFileWithoutOverwrite) {
    const TempFolder folder;
    folder.Write("from\\a.bin", "new");
    folder.Write("to\\a.bin", "old");
    EXPECT_EQ(NumberOfError([&] { CopyFolderTree(folder.Disk(), folder / "from", folder / "to", false); }), 58);
    EXPECT_EQ(folder.Read("to\\a.bin"), "old");
}

TEST(CopyFolderTree, OfAMissingFolderIsPathNotFound) {
    const TempFolder folder;
    EXPECT_EQ(NumberOfError([&] { CopyFolderTree(folder.Disk(), folder / "no", folder / "to", true); }), 76);
}

TEST(CopyFolderTree, IntoAFolderInsideEnds) {
    const TempFolder folder;
    folder.Write("from\\a.bin", "a");
    CopyFolderTree(folder.Disk(), folder / "from", folder / "from\\copy", true);
    EXPECT_THAT(folder.Names("from"), ElementsAre("a.bin", "copy"));
    EXPECT_THAT(folder.Names("from\\copy"), ElementsAre("a.bin"));
}

TEST(DelAll, DeletesAFolderWithAllThatIsInIt) {
    const TempFolder folder;
    folder.Write("tree\\a.bin", "a");
    folder.Write("tree\\sub\\deeper\\b.bin", "b");
    folder.MakeFolder("tree\\empty");
    DelAll(folder.Disk(), folder / "tree");
    EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(DelAll, OfAMissingFolderDoesNothing) {
    const TempFolder folder;
    folder.Write("a.bin", "a");
    EXPECT_NO_THROW(DelAll(folder.Disk(), folder / "no"));
    EXPECT_THAT(folder.Names(), ElementsAre("a.bin"));
}

TEST(DelAll, OfAFileDoesNothing) {
    const TempFolder folder;
    DelAll(folder.Disk(), folder.Write("a.bin", "a"));
    EXPECT_EQ(folder.Read("a.bin"), "a");
}

TEST(IsPlainName, IsTrueForLettersAndTheSixCharacters) {
    EXPECT_TRUE(IsPlainName("Track.xml"));
    EXPECT_TRUE(IsPlainName("AZaz\"$',-."));
}

TEST(IsPlainName, IsFalseForDigitsBlanksAndEmptyText) {
    EXPECT_FALSE(IsPlainName("Track-01"));
    EXPECT_FALSE(IsPlainName("Track name"));
    EXPECT_FALSE(IsPlainName(""));
}

TEST(IsPlainName, IsFalseForTheNeighboursOfTheAllowedRanges) {
    for (const char* name : {"@", "[", "`", "{", "!", "#", "%", "&", "(", "+", "/", "é"}) {
        EXPECT_FALSE(IsPlainName(name)) << name;
    }
}

TEST(SortStrings, SortsWithoutRegardToLetterCase) {
    std::vector<std::string> items = {"delta", "Alpha", "charlie", "BRAVO"};
    SortStrings(items, 0, 3);
    EXPECT_THAT(items, ElementsAre("Alpha", "BRAVO", "charlie", "delta"));
}

TEST(SortStrings, TouchesOnlyTheGivenPart) {
    std::vector<std::string> items = {"z", "c", "b", "a", "0"};
    SortStrings(items, 1, 3);
    EXPECT_THAT(items, ElementsAre("z", "a", "b", "c", "0"));
}

TEST(SortStrings, TakesNoAndOneItem) {
    std::vector<std::string> none;
    SortStrings(none, 0, -1);
    EXPECT_THAT(none, IsEmpty());
    std::vector<std::string> one = {"a"};
    SortStrings(one, 0, 0);
    EXPECT_THAT(one, ElementsAre("a"));
}

TEST(SortStrings, SwapsEqualItemsAsTheRuleHasIt) {
    // Every item equals the pivot, so both pointers stop at the ends, which change places.
    std::vector<std::string> items = {"A", "A", "a"};
    SortStrings(items, 0, 2);
    EXPECT_THAT(items, ElementsAre("a", "A", "A"));
}

TEST(SortStrings, SortsManyItems) {
    std::mt19937 random(7);
    std::vector<std::string> items;
    for (int i = 0; i < 20'000; ++i) {
        items.push_back("name " + std::to_string(random() % 5'000));
    }
    std::vector<std::string> expected = items;
    std::sort(expected.begin(), expected.end());
    SortStrings(items, 0, static_cast<std::ptrdiff_t>(items.size()) - 1);
    EXPECT_EQ(items, expected);
}

} // namespace
} // namespace tamarind::platform
