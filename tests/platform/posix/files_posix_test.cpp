#include "platform/expect_error.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/posix/unprivileged.h"
#include "platform/safe_write.h"
#include "support/temp_folder.h"

#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace tamarind::platform {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::IsEmpty;
using tests::ErrorOf;
using tests::NumberOfError;
using tests::TempFolder;
using tests::Unprivileged;

mode_t RightsOf(const std::string& path) {
    struct stat status = {};
    EXPECT_EQ(stat(ToNative(path).c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

void SetRights(const std::string& path, mode_t rights) { ASSERT_EQ(chmod(ToNative(path).c_str(), rights), 0) << path; }

void Link(const std::string& path, const std::string& nativeTarget) {
    fs::create_symlink(nativeTarget, ToNative(FolderOf(path)) + "/" + NameOf(path));
}

TEST(ToNative, MakesSlashesOfBackslashes) {
    const TempFolder folder;
    folder.Write("sub\\a.bin", "");
    const std::string native = ToNative(folder / "sub\\a.bin");
    EXPECT_TRUE(native.starts_with("/"));
    EXPECT_TRUE(native.ends_with("/sub/a.bin"));
    EXPECT_TRUE(fs::exists(native));
}

TEST(ToNative, TakesTheLetterCaseOnDiskComponentByComponent) {
    const TempFolder folder;
    folder.Write("Content\\Routes.xml", "");
    EXPECT_EQ(ToNative(folder / "CONTENT\\ROUTES.xml"), ToNative(folder.Path()) + "/Content/Routes.xml");
}

TEST(ToNative, PrefersTheExactName) {
    const TempFolder folder;
    for (const char* name : {"ROUTE", "Route", "route"}) {
        ASSERT_TRUE(fs::create_directory(ToNative(folder.Path()) + "/" + name));
    }
    EXPECT_EQ(ToNative(folder / "Route"), ToNative(folder.Path()) + "/Route");
    EXPECT_EQ(ToNative(folder / "route"), ToNative(folder.Path()) + "/route");
}

TEST(ToNative, TakesTheFirstInByteOrderOfSeveralOtherNames) {
    const TempFolder folder;
    for (const char* name : {"route", "ROUTE", "Route"}) {
        ASSERT_TRUE(fs::create_directory(ToNative(folder.Path()) + "/" + name));
    }
    EXPECT_EQ(ToNative(folder / "rOUTE"), ToNative(folder.Path()) + "/ROUTE");
}

TEST(ToNative, LeavesTheRestAsWrittenFromTheFirstMissingComponentOn) {
    const TempFolder folder;
    folder.MakeFolder("Content");
    EXPECT_EQ(ToNative(folder / "content\\New\\A.bin"), ToNative(folder.Path()) + "/Content/New/A.bin");
}

TEST(ToNative, KeepsTwoNamesApartThatDifferInBytesWhichAreNoUtf8) {
    const TempFolder folder;
    ASSERT_TRUE(fs::create_directory(ToNative(folder.Path()) + "/a\xFF"));
    EXPECT_EQ(ToNative(folder / "a\xFE"), ToNative(folder.Path()) + "/a\xFE");
}

TEST(ToNative, KeepsTheRoot) { EXPECT_EQ(ToNative("\\"), "/"); }

TEST(FromNative, StartsARelativePathInTheCurrentFolder) {
    const std::string here = FromNative(fs::current_path().string());
    EXPECT_EQ(FromNative("sub/a.bin"), here + "\\sub\\a.bin");
    EXPECT_EQ(FromNative("./a.bin"), here + "\\a.bin");
    EXPECT_EQ(FromNative("../a.bin"), FolderOf(here) + "\\a.bin");
    EXPECT_EQ(FromNative("."), here);
}

TEST(FromNative, KeepsDotsBehindAFolderThatMayBeALink) {
    EXPECT_EQ(FromNative("/home//u/./link/../a"), "\\home\\u\\link\\..\\a");
}

TEST(FromNative, OfTheRootIsABackslash) { EXPECT_EQ(FromNative("/"), "\\"); }

TEST(Drives, ExistNowhere) {
    const TempFolder folder;
    Files& files = folder.Disk();
    // A relative entry of that very name must not be taken for the drive.
    const fs::path before = fs::current_path();
    fs::current_path(ToNative(folder.Path()));
    ASSERT_TRUE(fs::create_directories("c:/game"));
    EXPECT_FALSE(files.EntryExists("c:\\game"));
    EXPECT_FALSE(files.IsFolder("c:\\game"));
    EXPECT_FALSE(files.IsFolder("C:"));
    EXPECT_EQ(NumberOfError([&] { return files.Open("c:\\game\\a.bin"); }), 76);
    EXPECT_EQ(NumberOfError([&] { return files.Create("c:\\game\\a.bin", CreateMode::Overwrite); }), 76);
    EXPECT_EQ(NumberOfError([&] { return files.List("c:\\game"); }), 76);
    EXPECT_EQ(NumberOfError([&] { files.CreateFolder("d:\\new"); }), 76);
    EXPECT_EQ(files.ResolveLinks("c:\\game"), "c:\\game");
    EXPECT_EQ(ToNative("c:\\game"), "c:\\game");
    fs::current_path(before);
}

TEST(List, KeepsABackslashInANameInsideItsFolder) {
    const TempFolder folder;
    folder.Write("victim.bin", "keep");
    folder.MakeFolder("tree\\sub");
    ASSERT_EQ(close(open((ToNative(folder / "tree") + "/sub\\..\\..\\victim.bin").c_str(), O_CREAT | O_WRONLY, 0600)),
              0);
    DelAll(folder.Disk(), folder / "tree");
    EXPECT_THAT(folder.Names(), ElementsAre("victim.bin"));
    EXPECT_EQ(folder.Read("victim.bin"), "keep");
}

TEST(Files, ReportMissingRightsAsPermissionDenied) {
    const TempFolder folder;
    folder.Write("locked\\a.bin", "a");
    folder.Write("closed.bin", "c");
    SetRights(folder / "locked", 0);
    SetRights(folder / "closed.bin", 0);
    {
        const Unprivileged unprivileged;
        SCOPED_TRACE("unprivileged");
        EXPECT_EQ(NumberOfError([&] { return folder.Disk().Open(folder / "locked\\a.bin"); }), 70);
        EXPECT_EQ(NumberOfError([&] { return folder.Disk().Open(folder / "closed.bin"); }), 70);
        EXPECT_EQ(NumberOfError([&] { return folder.Disk().List(folder / "locked"); }), 70);
        EXPECT_FALSE(FileExists(folder.Disk(), folder / "closed.bin"));
    }
    SetRights(folder / "locked", 0700);
}

TEST(Files, ReportAFullDisk) {
    const TempFolder folder;
    const auto full = folder.Disk().Create("\\dev\\full", CreateMode::Overwrite);
    EXPECT_EQ(NumberOfError([&] { full->Write("x"); }), 61);
}

TEST(Files, RenameChangesLetterCase) {
    const TempFolder folder;
    folder.Write("track.bin", "t");
    folder.Disk().Rename(folder / "track.bin", folder / "Track.bin");
    EXPECT_THAT(folder.Names(), ElementsAre("Track.bin"));
}

TEST(Files, ReplaceNeverTakesADevicesPlace) {
    const TempFolder folder;
    folder.Write("a.bin", "a");
    EXPECT_EQ(NumberOfError([&] { folder.Disk().Replace(folder / "a.bin", "\\dev\\null"); }), 75);
    struct stat status = {};
    ASSERT_EQ(stat("/dev/null", &status), 0);
    EXPECT_TRUE(S_ISCHR(status.st_mode));
}

TEST(FileExists, DoesNotHangOnAPipeThatNobodyWritesTo) {
    const TempFolder folder;
    ASSERT_EQ(mkfifo((ToNative(folder.Path()) + "/pipe").c_str(), 0600), 0);
    EXPECT_TRUE(FileExists(folder.Disk(), folder / "pipe"));
}

TEST(OpenFiles, AreClosedInProgramsStartedLater) {
    const TempFolder folder;
    const std::string path = folder.Write("a.bin", "a");
    const auto input = folder.Disk().Open(path);
    const auto output = folder.Disk().Create(folder / "b.bin", CreateMode::New);
    int found = 0;
    for (int number = 3; number < 256; ++number) {
        std::error_code error;
        const fs::path target = fs::read_symlink("/proc/self/fd/" + std::to_string(number), error);
        if (!error && target.string().starts_with(ToNative(folder.Path()))) {
            ++found;
            EXPECT_NE(fcntl(number, F_GETFD) & FD_CLOEXEC, 0) << target;
        }
    }
    EXPECT_EQ(found, 2);
}

TEST(IsWriteProtected, IsTrueWhereNobodyMayWrite) {
    const TempFolder folder;
    const std::string path = folder.Write("a.bin", "a");
    EXPECT_FALSE(folder.Disk().IsWriteProtected(path));
    SetRights(path, 0444);
    EXPECT_TRUE(folder.Disk().IsWriteProtected(path));
    EXPECT_FALSE(folder.Disk().IsWriteProtected(folder / "missing.bin"));
}

TEST(IsWriteProtected, IsTrueWhereOnlyOthersMayWrite) {
    const TempFolder folder;
    const std::string path = folder.Write("a.bin", "a");
    SetRights(folder.Path(), 0755);
    SetRights(path, 0644);
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs a second user";
    }
    const Unprivileged unprivileged;
    EXPECT_TRUE(folder.Disk().IsWriteProtected(path));
}

TEST(MakeWritable, GivesTheOwnerTheRightToWrite) {
    const TempFolder folder;
    const std::string path = folder.Write("a.bin", "a");
    SetRights(path, 0444);
    folder.Disk().MakeWritable(path);
    EXPECT_EQ(RightsOf(path), 0644U);
}

TEST(MakeWritable, DoesNothingToALink) {
    const TempFolder folder;
    const std::string path = folder.Write("a.bin", "a");
    SetRights(path, 0444);
    Link(folder / "link", ToNative(path));
    folder.Disk().MakeWritable(folder / "link");
    EXPECT_EQ(RightsOf(path), 0444U);
}

TEST(Remove, RefusesAReadOnlyFileUnlessForced) {
    const TempFolder folder;
    const std::string path = folder.Write("a.bin", "a");
    SetRights(path, 0444);
    EXPECT_EQ(NumberOfError([&] { folder.Disk().Remove(path); }), 70);
    folder.Disk().Remove(path, true);
    EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(CopyAttributes, GivesRightsAndExtendedAttributes) {
    const TempFolder folder;
    const std::string from = folder.Write("a.bin", "a");
    const std::string to = folder.Write("b.bin", "b");
    SetRights(from, 0751);
    const bool extended = setxattr(ToNative(from).c_str(), "user.tamarind", "x", 1, 0) == 0;
    folder.Disk().CopyAttributes(from, to);
    EXPECT_EQ(RightsOf(to), 0751U);
    char value = 0;
    EXPECT_EQ(getxattr(ToNative(to).c_str(), "user.tamarind", &value, 1), extended ? 1 : -1);
}

TEST(CopyAttributes, GivesTheOwnerWhereAllowed) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only the superuser may give files away";
    }
    const TempFolder folder;
    const std::string from = folder.Write("a.bin", "a");
    const std::string to = folder.Write("b.bin", "b");
    ASSERT_EQ(chown(ToNative(from).c_str(), 1234, 5678), 0);
    SetRights(from, 04755);
    folder.Disk().CopyAttributes(from, to);
    struct stat status = {};
    ASSERT_EQ(stat(ToNative(to).c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 1234U);
    EXPECT_EQ(status.st_gid, 5678U);
    EXPECT_EQ(status.st_mode & 07777, 04755U);
}

TEST(CopyAttributes, GivesNoRightToRunAsAnOwnerThatItCouldNotGive) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "needs a second user";
    }
    const TempFolder folder;
    SetRights(folder.Path(), 0777);
    const std::string from = folder.Write("a.bin", "a");
    SetRights(from, 04755);
    const Unprivileged unprivileged;
    const std::string to = folder.Write("b.bin", "b");
    folder.Disk().CopyAttributes(from, to);
    EXPECT_EQ(RightsOf(to), 0755U);
}

TEST(Links, AreEntriesEvenWhenTheyLeadNowhere) {
    const TempFolder folder;
    Link(folder / "link.bak", "nowhere");
    EXPECT_TRUE(folder.Disk().EntryExists(folder / "link.bak"));
    EXPECT_FALSE(folder.Disk().Stamp(folder / "link.bak"));
    EXPECT_EQ(FreeBackupName(folder.Disk(), folder / "link"), folder / "link.bak1");
}

TEST(Links, ToFoldersAreListedAsNoFolders) {
    const TempFolder folder;
    folder.MakeFolder("real");
    Link(folder / "link", "real");
    const std::vector<FolderEntry> entries = folder.Disk().List(folder.Path());
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].name, "link");
    EXPECT_FALSE(entries[0].isFolder);
    EXPECT_TRUE(folder.Disk().IsFolder(folder / "link"));
}

TEST(ResolveLinks, FollowsEveryLink) {
    const TempFolder folder;
    folder.Write("real\\a.bin", "a");
    Link(folder / "linked", "real");
    Link(folder / "real\\b.bin", "a.bin");
    EXPECT_EQ(folder.Disk().ResolveLinks(folder / "linked\\b.bin"), folder / "real\\a.bin");
}

TEST(ResolveLinks, FollowsALastLinkThatLeadsNowhere) {
    const TempFolder folder;
    folder.MakeFolder("real");
    Link(folder / "link.bin", "real/missing.bin");
    Link(folder / "chain.bin", "link.bin");
    EXPECT_EQ(folder.Disk().ResolveLinks(folder / "link.bin"), folder / "real\\missing.bin");
    EXPECT_EQ(folder.Disk().ResolveLinks(folder / "chain.bin"), folder / "real\\missing.bin");
}

TEST(ResolveLinks, GivesUpOnACircle) {
    const TempFolder folder;
    Link(folder / "a", "b");
    Link(folder / "b", "a");
    EXPECT_EQ(folder.Disk().ResolveLinks(folder / "a"), folder / "a");
}

TEST(RemoveFolder, DeletesALinkToAFolderAndNotTheFolder) {
    const TempFolder folder;
    folder.Write("real\\a.bin", "a");
    Link(folder / "link", "real");
    folder.Disk().RemoveFolder(folder / "link");
    EXPECT_THAT(folder.Names(), ElementsAre("real"));
    EXPECT_EQ(folder.Read("real\\a.bin"), "a");
}

TEST(DelAll, DeletesLinksAndReadOnlyFilesButFollowsNoLink) {
    const TempFolder folder;
    folder.Write("outside\\a.bin", "a");
    folder.Write("tree\\readonly.bin", "r");
    SetRights(folder / "tree\\readonly.bin", 0444);
    Link(folder / "tree\\folder link", "../outside");
    Link(folder / "tree\\file link", "../outside/a.bin");
    Link(folder / "tree\\dangling", "nowhere");
    DelAll(folder.Disk(), folder / "tree");
    EXPECT_THAT(folder.Names(), ElementsAre("outside"));
    EXPECT_EQ(folder.Read("outside\\a.bin"), "a");
}

TEST(DelAll, OfALinkToAFolderDeletesTheLinkAlone) {
    const TempFolder folder;
    folder.Write("outside\\a.bin", "a");
    Link(folder / "tree", "outside");
    DelAll(folder.Disk(), folder / "tree");
    EXPECT_THAT(folder.Names(), ElementsAre("outside"));
    EXPECT_EQ(folder.Read("outside\\a.bin"), "a");
}

TEST(CopyFolderTree, CopiesWhatALinkToAFolderHoldsAndPassesOverALinkBack) {
    const TempFolder folder;
    folder.Write("outside\\a.bin", "a");
    folder.MakeFolder("from");
    Link(folder / "from\\linked", "../outside");
    Link(folder / "from\\back", ".");
    CopyFolderTree(folder.Disk(), folder / "from", folder / "to", false);
    EXPECT_EQ(folder.Read("to\\linked\\a.bin"), "a");
    EXPECT_THAT(folder.Names("to"), ElementsAre("linked"));
}

TEST(WriteSafely, KeepsTheRightsOfTheOldFile) {
    const TempFolder folder;
    const std::string path = folder.Write("a.txt", "old");
    SetRights(path, 0640);
    WriteSafely(folder.Disk(), path, "new");
    EXPECT_EQ(RightsOf(path), 0640U);
}

TEST(WriteSafely, RefusesAReadOnlyFile) {
    const TempFolder folder;
    const std::string path = folder.Write("a.txt", "old");
    SetRights(path, 0444);
    EXPECT_EQ(NumberOfError([&] { WriteSafely(folder.Disk(), path, "new"); }), 70);
    EXPECT_EQ(folder.Read("a.txt"), "old");
    EXPECT_EQ(RightsOf(path), 0444U);
    EXPECT_THAT(folder.Names(), ElementsAre("a.txt"));
}

TEST(WriteSafely, WritesThroughALink) {
    const TempFolder folder;
    folder.Write("real\\a.txt", "old");
    Link(folder / "link.txt", "real/a.txt");
    WriteSafely(folder.Disk(), folder / "link.txt", "new");
    EXPECT_EQ(folder.Read("real\\a.txt"), "new");
    EXPECT_TRUE(fs::is_symlink(ToNative(folder / "link.txt")));
    EXPECT_THAT(folder.Names("real"), ElementsAre("a.txt"));
}

TEST(WriteSafely, CreatesWhatALinkLeadsTo) {
    const TempFolder folder;
    folder.MakeFolder("real");
    Link(folder / "link.txt", "real/a.txt");
    WriteSafely(folder.Disk(), folder / "link.txt", "new");
    EXPECT_EQ(folder.Read("real\\a.txt"), "new");
    EXPECT_TRUE(fs::is_symlink(ToNative(folder / "link.txt")));
}

TEST(WriteSafely, InAFolderWithoutTheRightToWriteNamesTheTarget) {
    const TempFolder folder;
    folder.MakeFolder("sub");
    SetRights(folder / "sub", 0555);
    const Unprivileged unprivileged;
    const auto error = ErrorOf([&] { WriteSafely(folder.Disk(), folder / "sub\\a.txt", "x"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 70);
    EXPECT_EQ(error->Details(), folder / "sub\\a.txt");
}

TEST(ReplaceGameFile, ReplacesAReadOnlyFileAndKeepsItReadOnly) {
    const TempFolder folder;
    const std::string original = folder.Write("Track.bin", "old");
    SetRights(original, 0444);
    ReplaceGameFile(folder.Disk(), original, folder.Write("new.bin", "new"));
    EXPECT_EQ(folder.Read("Track.bin"), "new");
    EXPECT_EQ(folder.Read("Track.bin.bak"), "old");
    EXPECT_EQ(RightsOf(original), 0444U);
    EXPECT_EQ(RightsOf(original + ".bak"), 0444U);
}

TEST(ReplaceGameFile, RefusesAReadOnlyFileWhenNoBackupNameIsFree) {
    const TempFolder folder;
    const std::string original = folder.Write("Track.bin", "old");
    folder.Write("new.bin", "new");
    folder.Write("Track.bin.bak", "");
    for (int number = 1; number <= 50; ++number) {
        folder.Write("Track.bin.bak" + std::to_string(number), "");
    }
    SetRights(original, 0444);
    const auto error = ErrorOf([&] { ReplaceGameFile(folder.Disk(), original, folder / "new.bin"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 70);
    EXPECT_EQ(error->Details(), original + "\r\nThe game file is unchanged.");
    EXPECT_EQ(folder.Read("Track.bin"), "old");
    EXPECT_EQ(folder.Names().size(), 53U);
}

TEST(ReplaceGameFile, ReplacesTheContentOfALinksTargetAndKeepsTheBackupBesideTheLink) {
    const TempFolder folder;
    folder.Write("real\\a.bin", "old");
    folder.Write("new.bin", "new");
    Link(folder / "Track.bin", "real/a.bin");
    EXPECT_EQ(ReplaceGameFile(folder.Disk(), folder / "Track.bin", folder / "new.bin"), folder / "Track.bin.bak");
    EXPECT_TRUE(fs::is_symlink(ToNative(folder / "Track.bin")));
    EXPECT_EQ(folder.Read("real\\a.bin"), "new");
    EXPECT_EQ(folder.Read("Track.bin.bak"), "old");
    EXPECT_FALSE(fs::is_symlink(ToNative(folder / "Track.bin.bak")));
    EXPECT_THAT(folder.Names("real"), ElementsAre("a.bin"));
}

} // namespace
} // namespace tamarind::platform
