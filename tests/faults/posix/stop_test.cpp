#include "convert/game_file.h"
#include "faults/commands.h"
#include "faults/fault_count.h"
#include "shell/closing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

// The program ends at a change of the disk, in the middle of a write: what then lies on the disk must be whole, and
// the same command must work in the next run.
namespace tamarind::tests {
namespace {

using testing::AnyOf;

constexpr int kFarTooMany = 1000;

/// Runs `command` in a process of its own and returns its exit code.
template <typename Command> int RunInChild(const Command& command) {
    const pid_t child = fork();
    if (child == 0) {
        command();
        std::_Exit(0);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Stops the command at change 1, 2, 3 … until it completes; `prepare` makes the state on the disk, `check` looks at
/// it afterwards, `repeat` tries the command again.
struct Stops {
    std::function<void(FaultyKit&)> prepare;
    std::function<void(FaultyKit&)> command;
    std::function<void(const FaultyKit&, int at)> check;
    std::function<void(const FaultyKit&, int at)> checkRepeated;
};

int StopEverywhere(const Stops& stops) {
    for (int at = 1; at < kFarTooMany; ++at) {
        FaultyKit kit({at, FaultKind::Stop, false});
        stops.prepare(kit);
        const int exitCode = RunInChild([&] { stops.command(kit); });
        EXPECT_THAT(exitCode, AnyOf(0, kStoppedByFault)) << at;
        stops.check(kit, at);
        if (exitCode == 0) {
            return at - 1;
        }
        ++FaultCount();
        EXPECT_EQ(RunInChild([&] {
                      FaultyFiles healthy(kit.folder.Disk());
                      session::EditorContext context{kit.rig.session,
                                                     kit.rig.document,
                                                     {healthy, kit.rig.processes, kit.rig.registry},
                                                     kit.rig.ui,
                                                     kit.rig.view};
                      convert::SaveRailSimFile(context);
                  }),
                  0)
            << at;
        stops.checkRepeated(kit, at);
    }
    ADD_FAILURE() << "the command never completed";
    return 0;
}

void CheckWhole(const FaultyKit& kit, int at) {
    EXPECT_THAT(kit.Game("Track.XSec"), AnyOf(GameFile(kOldXml), GameFile(kNewXml))) << at;
    EXPECT_EQ(kit.Game("Track.XSec.bak"), "an earlier backup") << at;
    EXPECT_THAT(kit.folder.Read("Kit\\TempFiles\\Track.xml"), AnyOf(kOldXml, kNewXml)) << at;
    if (kit.Game("Track.XSec") == GameFile(kNewXml)) {
        EXPECT_EQ(kit.Game("Track.XSec.bak1"), GameFile(kOldXml)) << at;
    }
}

TEST(StopFaults, ASaveThatIsCutOffAnywhereLeavesTheGameFileWhole) {
    const int points = StopEverywhere({
        .prepare = [](FaultyKit& kit) { kit.OpenTrack(); },
        .command = [](FaultyKit& kit) { convert::SaveRailSimFile(kit.rig.context); },
        .check = CheckWhole,
        .checkRepeated =
            [](const FaultyKit& kit, int at) {
                EXPECT_EQ(kit.Game("Track.XSec"), GameFile(kNewXml)) << at;
                EXPECT_EQ(kit.Game("Track.XSec.bak"), "an earlier backup") << at;
                EXPECT_EQ(kit.Game("Track.XSec.bak1"), GameFile(kOldXml)) << at;
            },
    });
    EXPECT_EQ(points, 6 + 3 + 7);
}

TEST(StopFaults, SettingsThatAreCutOffAnywhereAreWhole) {
    constexpr const char* kOld = "1,2,3,4,\"\",\"\",\"C:\\Old\",#TRUE#\r\n";
    constexpr const char* kNew = "0,0,0,0,\"\",\"\",\"C:\\New\",#FALSE#\r\n";
    int points = 0;
    for (int at = 1; at < kFarTooMany; ++at) {
        FaultyKit kit({at, FaultKind::Stop, false});
        kit.folder.Write("Kit\\preferences.txt", kOld);
        kit.rig.session.RailSimPath = "C:\\New";
        const int exitCode = RunInChild([&] { static_cast<void>(shell::MayClose(kit.rig.context)); });
        EXPECT_THAT(kit.folder.Read("Kit\\preferences.txt"), AnyOf(kOld, kNew)) << at;
        if (exitCode == 0) {
            EXPECT_EQ(kit.folder.Read("Kit\\preferences.txt"), kNew);
            break;
        }
        EXPECT_EQ(exitCode, kStoppedByFault) << at;
        ++points;
        ++FaultCount();
    }
    EXPECT_EQ(points, 6);
}

} // namespace
} // namespace tamarind::tests
