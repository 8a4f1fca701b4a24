#include "faults/fault_count.h"
#include "install/installer_rig.h"
#include "support/fault_runs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// Whatever step of an installation fails, each index of the game is wholly old or wholly new, or its backup stands
// whole beside it; and the person is told.
namespace tamarind::tests {
namespace {

using platform::Answer;
using testing::AnyOf;
using testing::HasSubstr;
using testing::Not;

const std::string kNewRoutes = "<Routes>\r\n<Record>\r\n" + std::string(kRouteRecord) + "\n</Record>\r\n</Routes>";
const std::string kNewScenarios =
    GameFile("<Index>\r\n<Record>\r\n" + std::string(kScenarioRecord) + "\n</Record>\r\n</Index>");

/// A game and a package whose installation reaches the disk through faults.
class FaultyInstaller : public InstallerRig {
public:
    explicit FaultyInstaller(Fault fault)
        : files(disk, fault), faulty_{{files, processes, registry}, ui, folder / "P"} {
        folder.Write("Game\\Assets\\Kuju\\RailSimulator\\BluePrints.pak", "pak");
        folder.Write("Game\\Content\\Routes.xml.bak", "an earlier backup");
        folder.Write("Game\\Content\\Routes\\new-route\\tile.bin", "an old tile");
        folder.Write("P\\Rail Simulator\\RS-Install.bat", "rem");
        faulty_.RailSimPath = folder / "Game";
    }
    void TestBody() override {}
    void MakePackage(bool isRoute) { isRoute ? MakeRoutePackage() : MakeScenarioPackage(); }

    /// Every question is answered with `answer`.
    install::Ended Install(Answer answer) {
        constexpr std::size_t kManyQuestions = 40;
        ui.answers.assign(kManyQuestions, Answer::Yes);
        ui.onMessage = [this, answer](const platform::Message& message) {
            if (message.text.starts_with("Some folders")) ui.answers.front() = answer;
        };
        faulty_.InstallMode = install::ModeOf(files, faulty_.packageFolder);
        const install::Ended ended = install::Install(faulty_);
        ui.answers.clear();
        return ended;
    }

    [[nodiscard]] std::string Read(const std::string& name) const {
        return disk.EntryExists(folder / name) ? folder.Read(name) : "(none)";
    }
    [[nodiscard]] std::string Told() const {
        std::string told;
        for (const std::string& text : ui.MessageTexts())
            told += text + "\r\n";
        for (const std::string& text : ui.StatusLines())
            told += text + "\r\n";
        return told;
    }

    FaultyFiles files;

private:
    install::Installer faulty_;
};

void CheckIndex(const FaultyInstaller& kit, const FaultRun& run, const std::string& index, const std::string& backup,
                const std::string& oldText, const std::string& newText) {
    const std::string text = kit.Read(index);
    EXPECT_THAT(text, AnyOf(oldText, newText, "(none)")) << run.Name();
    if (text != oldText) {
        EXPECT_EQ(kit.Read(backup), oldText) << run.Name();
    }
}

int TryInstallation(bool isRoute, Answer answer) {
    return TryEveryFault([isRoute, answer](FaultRun& run) {
        FaultyInstaller kit(run.fault);
        kit.MakePackage(isRoute);
        const install::Ended ended = kit.Install(answer);
        run.struck = kit.files.HasStruck();
        run.changes = kit.files.Changes();
        FaultCount() += run.struck ? 1 : 0;
        CheckIndex(kit, run, "Game\\Content\\Routes.xml", "Game\\Content\\Routes.xml.bak", kRoutesIndex, kNewRoutes);
        CheckIndex(kit, run, "Game\\Content\\Routes\\old-route\\Scenarios.bin",
                   "Game\\Content\\Routes\\old-route\\Scenarios.bak", GameFile(kScenarioIndex), kNewScenarios);
        EXPECT_THAT(kit.Read("Game\\Content\\Routes\\new-route\\tile.bin"), AnyOf("an old tile", "tile")) << run.Name();
        if (run.struck && ended != install::Ended::Done) {
            EXPECT_THAT(kit.Told(), AnyOf(HasSubstr("Disk full"), HasSubstr("Device I/O error"), HasSubstr("Read Only"),
                                          HasSubstr("could not be added")))
                << run.Name();
        }
        if (!run.struck) {
            EXPECT_EQ(ended, install::Ended::Done);
            EXPECT_EQ(kit.Read("Game\\Content\\Routes.xml"), isRoute ? kNewRoutes : kRoutesIndex);
            EXPECT_EQ(kit.Read("Game\\Content\\Routes\\old-route\\Scenarios.bin"),
                      isRoute ? GameFile(kScenarioIndex) : kNewScenarios);
        }
    });
}

constexpr int kWays = 8;

TEST(InstallFaults, OfARouteLeaveItsIndexWhole) {
    // At least: backup removed, linked, new index 6, two files, the hook and the pak removed, the log 5.
    EXPECT_GE(TryInstallation(true, Answer::Yes), 15 * kWays);
    EXPECT_GT(TryInstallation(true, Answer::No), 15);
}

TEST(InstallFaults, OfScenariosLeaveTheirIndexWhole) {
    // At least: the new text 6, the rename, two files, the hook and the pak removed, the log 5.
    EXPECT_GE(TryInstallation(false, Answer::Yes), 15 * kWays);
    EXPECT_GT(TryInstallation(false, Answer::No), 15);
}

TEST(InstallFaults, OfTheConverterLeaveTheIndexWhole) {
    for (const int brokenFrom : {1, 2}) {
        FaultyInstaller kit({});
        kit.MakePackage(false);
        kit.converter.onStart = [&kit, brokenFrom] {
            kit.converter.isBroken = static_cast<int>(kit.processes.starts.size()) >= brokenFrom;
        };
        EXPECT_EQ(kit.Install(Answer::Yes), install::Ended::Incomplete);
        EXPECT_EQ(kit.Read("Game\\Content\\Routes\\old-route\\Scenarios.bin"), GameFile(kScenarioIndex));
        EXPECT_THAT(kit.Told(), HasSubstr("could not be added"));
        ++FaultCount();
    }
}

} // namespace
} // namespace tamarind::tests
