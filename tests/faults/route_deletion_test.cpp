#include "faults/fault_count.h"
#include "routes/catalogue.h"
#include "routes/deletion.h"
#include "routes/route_rig.h"
#include "support/fault_runs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// Each change of the disk fails in each way while a route or a scenario is deleted: the indexes stay whole, what is
// deleted can be had back from the trash, and the person is told.
namespace tamarind::tests {
namespace {

using platform::Answer;
using testing::AnyOf;

constexpr int kWays = 8;
constexpr const char* kRoutes = "Game\\Content\\Routes.xml";
constexpr const char* kScenarios = "Game\\Content\\Routes\\r1\\Scenarios.bin";

void Finish(RouteRig& rig, FaultRun& run) {
    run.struck = rig.files.HasStruck();
    run.changes = rig.files.Changes();
    FaultCount() += run.struck ? 1 : 0;
}

std::string Told(const RouteRig& rig) {
    std::string told;
    for (const Shown& shown : rig.rig.ui.Everything())
        told += shown.message.text + "\r\n";
    return told;
}

/// The folder is where it was, or whole in the trash.
void CheckFolder(const RouteRig& rig, const FaultRun& run, const std::string& place, const std::string& name,
                 const std::string& file) {
    const bool isInPlace = rig.Has(place + "\\" + name + "\\" + file);
    const bool isInTrash = rig.Has("Trash\\" + name + "\\" + file);
    EXPECT_NE(isInPlace, isInTrash) << run.Name();
}

TEST(RouteDeletionFaults, LeaveTheRoutesIndexWhole) {
    const int points = TryEveryFault([](FaultRun& run) {
        RouteRig rig(run.fault);
        rig.MakeRoutes({"Alder", "Bois"});
        const std::string before = rig.folder.Read(kRoutes);
        const std::string after = routes::RemoveEntry(before, "r1", routes::IndexKind::Routes);
        rig.rig.ui.answers = {Answer::Yes};
        const std::vector<std::size_t> first{0};
        const routes::Ended ended = routes::DeleteRoute(rig.context, rig.window, first);
        Finish(rig, run);
        const std::string index = rig.folder.Read(kRoutes);
        EXPECT_THAT(index, AnyOf(before, after)) << run.Name();
        CheckFolder(rig, run, "Game\\Content\\Routes", "r1", "RouteProperties.xml");
        // Nothing of the index is lost before its copy is kept.
        if (index == after || rig.Has("Trash\\r1")) {
            EXPECT_EQ(rig.folder.Read("Kit\\TempFiles\\Recovered\\Routes.xml"), before) << run.Name();
        }
        if (run.struck) {
            EXPECT_TRUE(ended == routes::Ended::Failed || Told(rig).find("could not be deleted") != std::string::npos)
                << run.Name();
        } else {
            EXPECT_EQ(ended, routes::Ended::Done);
            EXPECT_EQ(index, after);
        }
    });
    // The copy in Recovered: its folder, and Create, Write, Flush, Close, Replace. The trash. The index: the same with
    // CopyAttributes.
    EXPECT_EQ(points, (1 + 5 + 1 + 6) * kWays);
}

TEST(ScenarioDeletionFaults, LeaveAnIndexOfScenariosBehind) {
    const int points = TryEveryFault([](FaultRun& run) {
        RouteRig rig(run.fault);
        rig.MakeRoutes({"Alder"});
        rig.MakeScenarios({"Milk", "Mail"});
        const std::string before = rig.folder.Read(kScenarios);
        const std::string after = routes::RemoveEntry(before, "s1", routes::IndexKind::Scenarios);
        rig.List({0});
        rig.rig.ui.answers = {Answer::Yes};
        const std::vector<std::size_t> first{0};
        const routes::Ended ended = routes::DeleteScenario(rig.context, rig.window, first);
        Finish(rig, run);
        const std::string index = rig.folder.Read(kScenarios);
        EXPECT_THAT(index, AnyOf(before, after)) << run.Name();
        CheckFolder(rig, run, RouteRig::Route("r1") + "\\Scenarios", "s1", "Scenario.bin");
        if (index == after) {
            EXPECT_EQ(rig.folder.Read(std::string(kScenarios) + ".bak"), before) << run.Name();
        }
        if (run.struck) {
            EXPECT_TRUE(ended == routes::Ended::Failed || Told(rig).find("could not be deleted") != std::string::npos)
                << run.Name();
        } else {
            EXPECT_EQ(ended, routes::Ended::Done);
            EXPECT_EQ(index, after);
        }
    });
    // The trash, the edited XML (six changes), and the old index's new name.
    EXPECT_EQ(points, (1 + 6 + 1) * kWays);
}

TEST(ScenarioDeletionFaults, PutTheOldIndexBackWhenTheConverterFails) {
    const int points = TryEveryFault([](FaultRun& run) {
        RouteRig rig(run.fault);
        rig.MakeRoutes({"Alder"});
        rig.MakeScenarios({"Milk", "Mail"});
        const std::string before = rig.folder.Read(kScenarios);
        rig.List({0});
        rig.converter.isBroken = true;
        rig.rig.ui.answers = {Answer::Yes};
        const std::vector<std::size_t> first{0};
        EXPECT_EQ(routes::DeleteScenario(rig.context, rig.window, first), routes::Ended::Failed);
        Finish(rig, run);
        // A disk on which nothing works any more leaves it under its backup name at least.
        const std::string name = rig.Has(kScenarios) ? kScenarios : std::string(kScenarios) + ".bak";
        EXPECT_EQ(rig.folder.Read(name), before) << run.Name();
        if (!run.fault.forever) {
            EXPECT_TRUE(rig.Has(kScenarios)) << run.Name();
        }
    });
    // As above, and the copy that is put back: Create, Write, Flush, Close, Replace, CopyAttributes.
    EXPECT_EQ(points, (1 + 6 + 1 + 6) * kWays);
}

} // namespace
} // namespace tamarind::tests
