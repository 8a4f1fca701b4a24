#include "faults/fault_count.h"
#include "install/asset_window.h"
#include "platform/tree_copy.h"
#include "routes/package_rig.h"
#include "support/fault_runs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

// Each change of the disk fails in each way while a package is made: the game is untouched, the person is told, and no
// file of the package is half-written.
namespace tamarind::tests {
namespace {

using routes::Ended;
using testing::AnyOf;

constexpr int kWays = 8;

void Finish(const PackageRig& rig, FaultRun& run) {
    run.struck = rig.files.HasStruck();
    run.changes = rig.files.Changes();
    FaultCount() += run.struck ? 1 : 0;
}

/// Every file in the tree, by its path below the folder.
std::map<std::string, std::string> Content(const PackageRig& rig, const std::string& folder) {
    std::map<std::string, std::string> content;
    for (const auto& file : platform::ListTree(rig.folder.Disk(), rig.folder / folder).files)
        content[file.path] = rig.folder.Read(folder + "\\" + file.path);
    return content;
}

/// What is in the package is what a whole one would hold. A disk on which nothing works any more cannot be cleared.
void CheckPackage(const PackageRig& rig, const FaultRun& run, const std::string& name,
                  const std::map<std::string, std::string>& whole) {
    for (const auto& [path, bytes] : Content(rig, "Kit\\" + name)) {
        const auto expected = whole.find(path);
        if (run.fault.forever && (expected == whole.end() || bytes != expected->second)) continue;
        ASSERT_NE(expected, whole.end()) << path << ": " << run.Name();
        EXPECT_EQ(bytes, expected->second) << path << ": " << run.Name();
    }
}

void CheckEnd(const PackageRig& rig, const FaultRun& run, Ended ended) {
    EXPECT_EQ(ended, run.struck ? Ended::Failed : Ended::Done) << run.Name();
    const auto isExclamation = [](const platform::Message& message) {
        return message.icon == platform::Icon::Exclamation;
    };
    EXPECT_EQ(std::any_of(rig.messages.begin(), rig.messages.end(), isExclamation), run.struck) << run.Name();
}

TEST(RoutePackagingFaults, LeaveNoHalfWrittenFile) {
    PackageRig model;
    model.LoadRoutes();
    model.PackageRoute({0});
    const auto whole = Content(model, "Kit\\Alder Vale");
    ASSERT_EQ(whole.size(), 8U);
    const int points = TryEveryFault([&whole](FaultRun& run) {
        PackageRig rig(run.fault);
        const auto game = Content(rig, "Rail Simulator");
        rig.LoadRoutes();
        const Ended ended = rig.PackageRoute({0}).ended;
        Finish(rig, run);
        EXPECT_EQ(Content(rig, "Rail Simulator"), game) << run.Name();
        CheckPackage(rig, run, "Alder Vale", whole);
        CheckEnd(rig, run, ended);
    });
    // Five folders; marker and setup program, each Create, Write, Flush, Close, Replace; then five folders of the route
    // and six files, each Create, Write, Close.
    EXPECT_EQ(points, (5 + 2 * 5 + 5 + 6 * 3) * kWays);
}

TEST(ScenarioPackagingFaults, LeaveNoHalfWrittenFile) {
    PackageRig model;
    model.ListScenarios();
    model.Add({0});
    model.Process();
    const auto whole = Content(model, "Kit\\" + std::string(kMilk));
    ASSERT_EQ(whole.size(), 5U);
    const int points = TryEveryFault([&whole](FaultRun& run) {
        PackageRig rig(run.fault);
        const auto game = Content(rig, "Rail Simulator");
        rig.ListScenarios();
        rig.Add({0});
        const Ended ended = rig.Process().ended;
        Finish(rig, run);
        EXPECT_EQ(Content(rig, "Rail Simulator"), game) << run.Name();
        CheckPackage(rig, run, kMilk, whole);
        CheckEnd(rig, run, ended);
    });
    // Five times Create, Write, Flush, Close, Replace: the records, the script, the setup program, both markers. The
    // script makes eight folders and two files, each Create, Write, Close.
    EXPECT_EQ(points, (5 * 5 + 8 + 2 * 3) * kWays);
}

TEST(AssetPackagingFaults, LeaveNoHalfWrittenFile) {
    const auto package = [](PackageRig& rig) {
        rig.WriteGame("Assets\\Tansy\\a.bin", "alpha");
        rig.WriteGame("Assets\\Tansy\\b.bin", "beta");
        install::AssetWindow window;
        install::BeginAssetPackaging(rig.context);
        install::LoadAssets(rig.context, window);
        install::SelectFolder(rig.context, window, rig.folder / "Rail Simulator\\Assets\\Tansy");
        install::AddFolder(rig.context, window);
        return install::ProcessAssets(rig.context, window).ended;
    };
    PackageRig model;
    package(model);
    const auto whole = Content(model, "Kit\\Tansy");
    ASSERT_EQ(whole.size(), 3U);
    const int points = TryEveryFault([&](FaultRun& run) {
        PackageRig rig(run.fault);
        const Ended ended = package(rig);
        Finish(rig, run);
        CheckPackage(rig, run, "Tansy", whole);
        CheckEnd(rig, run, ended);
    });
    // The script and the setup program; four folders and two files.
    EXPECT_EQ(points, (2 * 5 + 4 + 2 * 3) * kWays);
}

} // namespace
} // namespace tamarind::tests
