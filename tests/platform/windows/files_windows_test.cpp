#include "platform/expect_error.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/safe_write.h"
#include "platform/windows/handle.h"
#include "platform/windows/wide.h"
#include "support/faulty_files.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

namespace tamarind::platform {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;
using tests::ErrorOf;
using tests::FaultyFiles;
using tests::NumberOfError;
using tests::TempFolder;

DWORD AttributesOf(const std::string& path) { return GetFileAttributesW(SystemPath(path).c_str()); }

void Set(const std::string& path, DWORD attributes) {
    ASSERT_NE(SetFileAttributesW(SystemPath(path).c_str(), attributes), 0) << GetLastError();
}

bool IsReadOnly(const std::string& path) { return (AttributesOf(path) & FILE_ATTRIBUTE_READONLY) != 0; }

/// Keeps a file open so that other programs may do with it only what `share` allows.
Handle Lock(const std::string& path, DWORD share = 0) {
    return Handle(CreateFileW(SystemPath(path).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr));
}

TEST(Wide, ConvertsEveryPlane) {
    EXPECT_EQ(ToWide("aé東\xF0\x9F\x9A\x82"), L"a\u00E9\u6771\xD83D\xDE82");
    EXPECT_EQ(FromWide(L"a\u00E9\u6771\xD83D\xDE82"), "aé東\xF0\x9F\x9A\x82");
    EXPECT_EQ(ToWide(""), L"");
    EXPECT_EQ(FromWide(L""), "");
}

TEST(SystemPath, LeavesShortPathsAsTheyAre) { EXPECT_EQ(SystemPath("c:\\a\\b.bin"), L"c:\\a\\b.bin"); }

TEST(SystemPath, LiftsTheLimitFromLongPaths) {
    const std::string name(250, 'n');
    EXPECT_EQ(SystemPath("c:\\a\\..\\" + name), L"\\\\?\\c:\\" + std::wstring(250, L'n'));
    EXPECT_EQ(SystemPath("\\\\server\\share\\" + name), L"\\\\?\\UNC\\server\\share\\" + std::wstring(250, L'n'));
}

TEST(WithoutLongPrefix, TakesBothPrefixesOff) {
    EXPECT_EQ(WithoutLongPrefix(L"\\\\?\\c:\\a"), L"c:\\a");
    EXPECT_EQ(WithoutLongPrefix(L"\\\\?\\UNC\\server\\share"), L"\\\\server\\share");
    EXPECT_EQ(WithoutLongPrefix(L"c:\\a"), L"c:\\a");
}

TEST(FromNative, MakesPathsAbsolute) {
    wchar_t folder[MAX_PATH] = {};
    ASSERT_NE(GetCurrentDirectoryW(MAX_PATH, folder), 0U);
    EXPECT_EQ(FromNative("sub/a.bin"), WithoutTrailingBackslash(FromWide(folder)) + "\\sub\\a.bin");
    EXPECT_EQ(FromNative("c:/a/./b/../c.bin"), "c:\\a\\c.bin");
}

TEST(Files, ReportALockedFileAsPermissionDenied) {
    const TempFolder folder;
    const std::string path = folder.Write("a.bin", "a");
    const Handle lock = Lock(path);
    ASSERT_TRUE(lock.IsOpen());
    EXPECT_EQ(NumberOfError([&] { return folder.Disk().Open(path); }), 70);
    EXPECT_EQ(NumberOfError([&] { return folder.Disk().Create(path, CreateMode::Overwrite); }), 70);
    EXPECT_EQ(NumberOfError([&] { folder.Disk().Remove(path); }), 70);
    EXPECT_FALSE(FileExists(folder.Disk(), path));
    EXPECT_TRUE(folder.Disk().EntryExists(path));
    EXPECT_TRUE(folder.Disk().Stamp(path));
}

TEST(Files, ReportAMissingDrive) {
    const TempFolder folder;
    EXPECT_THAT(NumberOfError([&] { return folder.Disk().Open("q:\\a.bin"); }), AnyOf(Eq(53), Eq(76)));
    EXPECT_FALSE(folder.Disk().IsFolder("q:\\"));
}

TEST(IsWriteProtected, IsTrueForReadOnlyHiddenAndSystemFiles) {
    const TempFolder folder;
    const std::string path = folder.Write("a.bin", "a");
    EXPECT_FALSE(folder.Disk().IsWriteProtected(path));
    for (const DWORD attribute : {FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_SYSTEM}) {
        Set(path, attribute);
        EXPECT_TRUE(folder.Disk().IsWriteProtected(path)) << attribute;
    }
    EXPECT_FALSE(folder.Disk().IsWriteProtected(folder / "missing.bin"));
}

TEST(MakeWritable, TakesReadOnlyHiddenAndSystemAway) {
    const TempFolder folder;
    const std::string path = folder.Write("a.bin", "a");
    Set(path, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
    folder.Disk().MakeWritable(path);
    EXPECT_EQ(AttributesOf(path) & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM), 0U);
}

TEST(CopyAttributes, GivesReadOnlyAndHidden) {
    const TempFolder folder;
    const std::string from = folder.Write("a.bin", "a");
    const std::string to = folder.Write("b.bin", "b");
    Set(from, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    folder.Disk().CopyAttributes(from, to);
    EXPECT_EQ(AttributesOf(to) & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN),
              DWORD{FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN});
}

TEST(Remove, RefusesAReadOnlyFileUnlessForced) {
    const TempFolder folder;
    const std::string path = folder.Write("a.bin", "a");
    Set(path, FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(NumberOfError([&] { folder.Disk().Remove(path); }), 70);
    folder.Disk().Remove(path, true);
    EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(Remove, LeavesALockedReadOnlyFileReadOnly) {
    const TempFolder folder;
    const std::string path = folder.Write("a.bin", "a");
    Set(path, FILE_ATTRIBUTE_READONLY);
    {
        const Handle lock = Lock(path);
        EXPECT_EQ(NumberOfError([&] { folder.Disk().Remove(path, true); }), 70);
    }
    EXPECT_TRUE(IsReadOnly(path));
}

TEST(DelAll, DeletesReadOnlyFilesAndFolders) {
    const TempFolder folder;
    Set(folder.Write("tree\\sub\\a.bin", "a"), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    Set(folder / "tree\\sub", FILE_ATTRIBUTE_READONLY);
    DelAll(folder.Disk(), folder / "tree");
    EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(HardLink, SaysThatAReadOnlyFileCanHaveNoSecondName) {
    const TempFolder folder;
    const std::string path = folder.Write("a.bin", "a");
    Set(path, FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(NumberOfError([&] { folder.Disk().HardLink(path, folder / "b.bin"); }), 75);
    EXPECT_THAT(folder.Names(), ElementsAre("a.bin"));
}

TEST(Replace, WorksOverAReadOnlyFileWhichStaysReadOnly) {
    const TempFolder folder;
    const std::string target = folder.Write("old.bin", "old");
    Set(target, FILE_ATTRIBUTE_READONLY);
    folder.Disk().Replace(folder.Write("new.bin", "new"), target);
    EXPECT_EQ(folder.Read("old.bin"), "new");
    EXPECT_TRUE(IsReadOnly(target));
}

TEST(Replace, LeavesAReadOnlyFileReadOnlyWhenItFails) {
    const TempFolder folder;
    const std::string target = folder.Write("old.bin", "old");
    Set(target, FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(NumberOfError([&] { folder.Disk().Replace(folder / "missing.bin", target); }), 53);
    EXPECT_EQ(folder.Read("old.bin"), "old");
    EXPECT_TRUE(IsReadOnly(target));
}

TEST(WriteSafely, RefusesReadOnlyAndHiddenFiles) {
    const TempFolder folder;
    const std::string path = folder.Write("a.txt", "old");
    for (const DWORD attribute : {FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_HIDDEN}) {
        Set(path, attribute);
        EXPECT_EQ(NumberOfError([&] { WriteSafely(folder.Disk(), path, "new"); }), 70) << attribute;
        EXPECT_EQ(folder.Read("a.txt"), "old");
        EXPECT_EQ(AttributesOf(path) & attribute, attribute);
        EXPECT_THAT(folder.Names(), ElementsAre("a.txt"));
    }
}

TEST(WriteSafely, LeavesALockedFileAndNothingBeside) {
    const TempFolder folder;
    const std::string path = folder.Write("a.txt", "old");
    {
        const Handle lock = Lock(path);
        EXPECT_EQ(NumberOfError([&] { WriteSafely(folder.Disk(), path, "new"); }), 70);
    }
    EXPECT_EQ(folder.Read("a.txt"), "old");
    EXPECT_THAT(folder.Names(), ElementsAre("a.txt"));
}

TEST(ReplaceGameFile, ReplacesAReadOnlyFileAndKeepsBothReadOnly) {
    const TempFolder folder;
    const std::string original = folder.Write("Track.bin", "old");
    Set(original, FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(ReplaceGameFile(folder.Disk(), original, folder.Write("new.bin", "new")), original + ".bak");
    EXPECT_EQ(folder.Read("Track.bin"), "new");
    EXPECT_EQ(folder.Read("Track.bin.bak"), "old");
    EXPECT_TRUE(IsReadOnly(original));
    EXPECT_TRUE(IsReadOnly(original + ".bak"));
}

TEST(ReplaceGameFile, KeepsTheHiddenAttribute) {
    const TempFolder folder;
    const std::string original = folder.Write("Track.bin", "old");
    Set(original, FILE_ATTRIBUTE_HIDDEN);
    ReplaceGameFile(folder.Disk(), original, folder.Write("new.bin", "new"));
    EXPECT_EQ(folder.Read("Track.bin"), "new");
    EXPECT_NE(AttributesOf(original) & FILE_ATTRIBUTE_HIDDEN, 0U);
}

TEST(ReplaceGameFile, LeavesALockedFileAndNoBackup) {
    const TempFolder folder;
    const std::string original = folder.Write("Track.bin", "old");
    folder.Write("new.bin", "new");
    for (const DWORD share : {DWORD{0}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
        const Handle lock = Lock(original, share);
        const auto error = ErrorOf([&] { ReplaceGameFile(folder.Disk(), original, folder / "new.bin"); });
        ASSERT_TRUE(error);
        EXPECT_EQ(error->Number(), 70);
        EXPECT_EQ(error->Details(), original + "\r\nThe game file is unchanged.");
    }
    EXPECT_EQ(folder.Read("Track.bin"), "old");
    EXPECT_THAT(folder.Names(), ElementsAre("new.bin", "Track.bin"));
}

TEST(ReplaceGameFile, RefusesAReadOnlyFileWhenNoBackupNameIsFree) {
    const TempFolder folder;
    const std::string original = folder.Write("Track.bin", "old");
    folder.Write("new.bin", "new");
    folder.Write("Track.bin.bak", "");
    for (int number = 1; number <= 50; ++number) {
        folder.Write("Track.bin.bak" + std::to_string(number), "");
    }
    Set(original, FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(NumberOfError([&] { ReplaceGameFile(folder.Disk(), original, folder / "new.bin"); }), 70);
    EXPECT_EQ(folder.Read("Track.bin"), "old");
    EXPECT_TRUE(IsReadOnly(original));
}

TEST(ReplaceGameFile, RemovesTheCopyOfAReadOnlyFileWhenItFails) {
    const TempFolder folder;
    const std::string original = folder.Write("Track.bin", "old");
    folder.Write("new.bin", "new");
    Set(original, FILE_ATTRIBUTE_READONLY);
    // The temporary file takes changes 1 to 5, the refused second name 6, the copy 7 to 11, the replacement is 12.
    FaultyFiles files(folder.Disk(), {12, tests::FaultKind::IoError, false});
    EXPECT_EQ(NumberOfError([&] { ReplaceGameFile(files, original, folder / "new.bin"); }), 57);
    EXPECT_EQ(folder.Read("Track.bin"), "old");
    EXPECT_TRUE(IsReadOnly(original));
    EXPECT_THAT(folder.Names(), ElementsAre("new.bin", "Track.bin"));
}

} // namespace
} // namespace tamarind::platform
