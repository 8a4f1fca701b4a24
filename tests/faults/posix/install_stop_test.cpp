#include "faults/fault_count.h"
#include "install/installer_rig.h"
#include "support/faulty_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

// The installer is killed at a change of the disk, in the middle of a write.
namespace tamarind::tests {
namespace {

using testing::AnyOf;

class KilledInstaller : public InstallerRig {
public:
    void TestBody() override {}
    void MakePackage(bool isRoute) { isRoute ? MakeRoutePackage() : MakeScenarioPackage(); }

    /// Installs in a process of its own, which ends at change number `at`; returns its exit code.
    int InstallUntil(int at) {
        const pid_t child = fork();
        if (child == 0) {
            FaultyFiles files(disk, {at, FaultKind::Stop, false});
            install::Installer faulty{{files, processes, registry}, ui, folder / "P"};
            faulty.RailSimPath = folder / "Game";
            faulty.InstallMode = install::ModeOf(files, faulty.packageFolder);
            ui.answers = {platform::Answer::Yes};
            install::Install(faulty);
            std::_Exit(0);
        }
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    void Check(const std::string& index, const std::string& backup, const std::string& oldText, int at) const {
        const bool isThere = disk.EntryExists(folder / index);
        const bool isOld = isThere && folder.Read(index) == oldText;
        const bool isKept = disk.EntryExists(folder / backup) && folder.Read(backup) == oldText;
        EXPECT_TRUE(isOld || isKept) << index << " at change " << at;
        if (isThere && !isOld) {
            EXPECT_THAT(folder.Read(index), testing::HasSubstr("Record>")) << at;
        }
    }
};

int StopEverywhere(bool isRoute) {
    constexpr int kFarTooMany = 1000;
    for (int at = 1; at < kFarTooMany; ++at) {
        KilledInstaller kit;
        kit.MakePackage(isRoute);
        const int exitCode = kit.InstallUntil(at);
        EXPECT_THAT(exitCode, AnyOf(0, kStoppedByFault));
        kit.Check("Game\\Content\\Routes.xml", "Game\\Content\\Routes.xml.bak", kRoutesIndex, at);
        kit.Check("Game\\Content\\Routes\\old-route\\Scenarios.bin", "Game\\Content\\Routes\\old-route\\Scenarios.bak",
                  GameFile(kScenarioIndex), at);
        if (exitCode == 0) return at - 1;
        ++FaultCount();
    }
    ADD_FAILURE() << "the installation never completed";
    return 0;
}

TEST(KilledInstallation, OfARouteLeavesAWholeIndex) { EXPECT_GE(StopEverywhere(true), 12); }

TEST(KilledInstallation, OfScenariosLeavesAWholeIndex) { EXPECT_GE(StopEverywhere(false), 12); }

} // namespace
} // namespace tamarind::tests
