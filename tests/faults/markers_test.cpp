#include "cli/run.h"
#include "faults/commands.h"
#include "markers/marker_file.h"
#include "platform/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

// A marker list, and its picture, are wholly old or wholly new, and every failure is told.
namespace tamarind::tests {
namespace {

using testing::AnyOf;
using testing::HasSubstr;

constexpr int kWays = 8;
constexpr int kReplacing = 6; // Create, CopyAttributes, Write, Flush, Close, Replace
constexpr const char* kPlaces = "<longitude><Placemark><name>A</name><coordinates>1,2,0</coordinates>";
constexpr const char* kList = "1,2,A\r\n";
constexpr const char* kOld = "an earlier list";
const auto kIsTold = AnyOf(HasSubstr("Disk full"), HasSubstr("Device I/O error"), HasSubstr("Permission denied"));

TEST(MarkerFaults, AListSurvivesEveryOne) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        const std::string in = kit.folder.Write("Game\\a.kml", kPlaces);
        kit.rig.ui.filePaths = {in, kit.folder.Write("Game\\a.csv", kOld)};
        kit.Run(markers::ConvertMarkerFile);
        kit.Finish(run);
        EXPECT_EQ(kit.Game("a.csv"), run.struck ? kOld : kList) << run.Name();
        EXPECT_EQ(kit.Game("a.kml"), kPlaces) << run.Name();
        if (run.struck) {
            EXPECT_THAT(kit.Told(), kIsTold) << run.Name();
        } else {
            EXPECT_EQ(kit.Told(), "") << run.Name();
        }
        if (!run.fault.forever) {
            EXPECT_EQ(kit.folder.Names("Game"), (std::vector<std::string>{"a.csv", "a.kml"})) << run.Name();
        }
    });
    EXPECT_EQ(points, kReplacing * kWays);
}

TEST(MarkerFaults, AListWithAPictureSurvivesEveryOne) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.folder.Write("Game\\a.kml", kPlaces);
        kit.folder.Write("Game\\a.csv", kOld);
        kit.folder.Write("Game\\a.svg", "an earlier picture");
        const auto native = [&kit](const char* name) { return platform::ToNative(kit.folder / name); };
        std::istringstream input;
        std::ostringstream output;
        std::ostringstream messages;
        const int exitCode =
            cli::Run({"markers", native("Game\\a.kml"), native("Game\\a.csv"), "--plot", native("Game\\a.svg")},
                     kit.rig.context.platform, input, output, messages);
        kit.Finish(run);
        EXPECT_EQ(exitCode, run.struck ? 1 : 0) << run.Name();
        EXPECT_EQ(output.str().empty(), run.struck) << run.Name();
        const bool hasNewList = !run.struck || run.fault.at > kReplacing;
        EXPECT_EQ(kit.Game("a.csv"), hasNewList ? kList : kOld) << run.Name();
        EXPECT_EQ(kit.Game("a.svg") == "an earlier picture", run.struck) << run.Name();
        if (run.struck) {
            EXPECT_THAT(messages.str(), kIsTold) << run.Name();
        }
        if (!run.fault.forever) {
            EXPECT_EQ(kit.folder.Names("Game"), (std::vector<std::string>{"a.csv", "a.kml", "a.svg"})) << run.Name();
        }
    });
    EXPECT_EQ(points, 2 * kReplacing * kWays);
}

} // namespace
} // namespace tamarind::tests
