#include "platform/safe_write.h"
#include "support/faulty_files.h"
#include "support/temp_folder.h"

#include <cstdlib>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

// The program ends in the middle of its work, at each change of the disk in turn.
namespace tamarind::platform {
namespace {

using testing::AnyOf;
using testing::Eq;
using tests::Fault;
using tests::FaultKind;
using tests::FaultyFiles;
using tests::kStoppedByFault;
using tests::TempFolder;

/// The exit code of a child process that does `work`.
int ExitCodeOf(const std::function<void()>& work) {
    const pid_t child = fork();
    if (child == 0) {
        work();
        std::_Exit(0);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(Stop, AnywhereInReplaceGameFileLeavesTheOldOrTheNewFile) {
    int at = 1;
    for (int exitCode = kStoppedByFault; exitCode == kStoppedByFault; ++at) {
        const TempFolder folder;
        folder.Write("Track.bin", "the old content");
        folder.Write("Track.bin.bak", "an earlier backup");
        folder.Write("new.bin", "the new content");
        exitCode = ExitCodeOf([&] {
            FaultyFiles files(folder.Disk(), Fault{at, FaultKind::Stop, false});
            ReplaceGameFile(files, folder / "Track.bin", folder / "new.bin");
        });
        EXPECT_THAT(exitCode, AnyOf(Eq(0), Eq(kStoppedByFault)));
        EXPECT_EQ(folder.Read("Track.bin"), exitCode == 0 ? "the new content" : "the old content") << at;
        EXPECT_EQ(folder.Read("Track.bin.bak"), "an earlier backup") << at;
        EXPECT_EQ(folder.Read("new.bin"), "the new content") << at;
        if (folder.Disk().EntryExists(folder / "Track.bin.bak1")) {
            EXPECT_EQ(folder.Read("Track.bin.bak1"), "the old content") << at;
        }
    }
    EXPECT_EQ(at, 9); // seven changes, the run that completes, and one step more
}

TEST(Stop, AnywhereInWriteSafelyLeavesTheOldOrTheNewFile) {
    int at = 1;
    for (int exitCode = kStoppedByFault; exitCode == kStoppedByFault; ++at) {
        const TempFolder folder;
        folder.Write("a.txt", "the old content");
        exitCode = ExitCodeOf([&] {
            FaultyFiles files(folder.Disk(), Fault{at, FaultKind::Stop, false});
            WriteSafely(files, folder / "a.txt", "the new content");
        });
        EXPECT_THAT(exitCode, AnyOf(Eq(0), Eq(kStoppedByFault)));
        EXPECT_EQ(folder.Read("a.txt"), exitCode == 0 ? "the new content" : "the old content") << at;
    }
    EXPECT_EQ(at, 8); // six changes
}

} // namespace
} // namespace tamarind::platform
