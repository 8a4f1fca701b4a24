#include "cli/run.h"
#include "faults/commands.h"
#include "platform/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

// The same from the terminal: exit code and message must tell of every failure.
namespace tamarind::tests {
namespace {

using testing::AnyOf;
using testing::HasSubstr;

constexpr int kWays = 8;
constexpr const char* kTidied = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<Top>old</Top>\r\n";

struct Ran {
    int exitCode = 0;
    std::string output;
    std::string messages;
};

Ran RunCli(FaultyKit& kit, const std::vector<std::string>& words) {
    std::istringstream input;
    std::ostringstream output;
    std::ostringstream messages;
    const int exitCode = cli::Run(words, kit.rig.context.platform, input, output, messages);
    return {exitCode, output.str(), messages.str()};
}

std::string Native(const FaultyKit& kit, const std::string& name) { return platform::ToNative(kit.folder / name); }

void CheckReport(const Ran& ran, const FaultRun& run) {
    EXPECT_EQ(ran.exitCode, run.struck ? 1 : 0) << run.Name();
    EXPECT_EQ(ran.output.empty(), run.struck) << run.Name();
    if (run.struck) {
        EXPECT_THAT(ran.messages,
                    AnyOf(HasSubstr("Disk full"), HasSubstr("Device I/O error"), HasSubstr("Permission denied")))
            << run.Name();
    }
}

TEST(CliFaults, SaveSurvivesEveryOne) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.folder.Write("Game\\Track.XSec", GameFile(kOldXml));
        kit.folder.Write("Game\\new.xml", kNewXml);
        const Ran ran = RunCli(kit, {"--program-dir", Native(kit, "Kit"), "--game", Native(kit, "Game"), "save",
                                     Native(kit, "Game\\Track.XSec"), Native(kit, "Game\\new.xml")});
        kit.Finish(run);
        CheckReport(ran, run);
        EXPECT_EQ(kit.Game("Track.XSec"), GameFile(run.struck ? kOldXml : kNewXml)) << run.Name();
        EXPECT_EQ(kit.Game("new.xml"), kNewXml) << run.Name();
        if (!run.struck) {
            EXPECT_EQ(kit.Game("Track.XSec.bak"), GameFile(kOldXml));
        }
        if (!run.fault.forever) {
            const std::vector<std::string> expected =
                run.struck ? std::vector<std::string>{"new.xml", "Track.XSec"}
                           : std::vector<std::string>{"new.xml", "Track.XSec", "Track.XSec.bak"};
            EXPECT_EQ(kit.folder.Names("Game"), expected) << run.Name();
        }
    });
    // The working copy 5, the XML that the converter wrote before 6, the working files Remove and Rename, the game
    // file 7.
    EXPECT_EQ(points, (5 + 6 + 2 + 7) * kWays);
}

TEST(CliFaults, TidySurvivesEveryOne) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.folder.Write("Game\\a.xml", kOldXml);
        const Ran ran = RunCli(kit, {"tidy", Native(kit, "Game\\a.xml")});
        kit.Finish(run);
        CheckReport(ran, run);
        EXPECT_EQ(kit.Game("a.xml"), run.struck ? kOldXml : kTidied) << run.Name();
        if (!run.fault.forever) {
            EXPECT_EQ(kit.folder.Names("Game"), std::vector<std::string>{"a.xml"}) << run.Name();
        }
    });
    EXPECT_EQ(points, 6 * kWays);
}

TEST(CliFaults, TidyIntoAnotherFileSurvivesEveryOne) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.folder.Write("Game\\a.xml", kOldXml);
        const Ran ran = RunCli(kit, {"tidy", Native(kit, "Game\\a.xml"), "-o", Native(kit, "Game") + "/b.xml"});
        kit.Finish(run);
        CheckReport(ran, run);
        EXPECT_EQ(kit.Game("a.xml"), kOldXml) << run.Name();
        EXPECT_EQ(kit.GameHas("b.xml"), !run.struck) << run.Name();
        if (!run.struck) {
            EXPECT_EQ(kit.Game("b.xml"), kTidied);
        }
    });
    EXPECT_EQ(points, 5 * kWays); // a new file, without CopyAttributes
}

} // namespace
} // namespace tamarind::tests
