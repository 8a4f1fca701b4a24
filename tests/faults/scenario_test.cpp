#include "authoring/scenario_rig.h"
#include "faults/fault_count.h"
#include "support/fault_runs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// Each change of the disk fails in each way while a scenario is opened, saved or given a driver: the game's files are
// wholly old or wholly new, what was there before can be had back, and the person is told.
namespace tamarind::tests {
namespace {

using authoring::Field;

constexpr int kWays = 8;
const std::string kIndexBackup = RouteRig::Route("r1") + "\\Scenarios.bak";
const std::string kScenarioBackup = RouteRig::Route("r1") + "\\Scenarios\\s1\\Scenario.bak";

void Finish(const ScenarioRig& rig, FaultRun& run) {
    run.struck = rig.files.HasStruck();
    run.changes = rig.files.Changes();
    FaultCount() += run.struck ? 1 : 0;
}

std::string GameFileAt(const ScenarioRig& rig, const std::string& name) {
    return rig.Has(name) ? rig.folder.Read(name) : "";
}

TEST(ScenarioSaveFaults, LeaveTheIndexWhollyOldOrWhollyNew) {
    const int points = TryEveryFault([](FaultRun& run) {
        ScenarioRig rig(run.fault);
        ASSERT_TRUE(rig.OpenEditor());
        rig.editor.Text1[Field::DisplayName] = "Evening Milk";
        const std::string before = GameFile(rig.index);
        const std::string after = GameFile(ScenarioRig::kHead + authoring::WriteFields(rig.record, rig.editor.Text1) +
                                           ScenarioRig::kTail + "\r\n");
        const bool isDone = SaveChanges(rig.context, rig.editor).isDone;
        Finish(rig, run);
        EXPECT_EQ(isDone, !run.struck) << run.Name();
        const std::string index = GameFileAt(rig, kIndexFile);
        EXPECT_EQ(index, isDone ? after : before) << run.Name();
        EXPECT_EQ(GameFileAt(rig, kIndexBackup), isDone ? before : "") << run.Name();
        EXPECT_THAT(rig.Told(), testing::ElementsAre(isDone ? testing::Matcher<std::string>(kUpdated)
                                                            : testing::Matcher<std::string>(testing::AllOf(
                                                                  testing::StartsWith("An error "),
                                                                  testing::EndsWith(" occurred in frmScenEdit")))))
            << run.Name();
        // It can be tried again.
        if (!isDone) {
            EXPECT_EQ(rig.context.session.ScenarioEdit.ScenarioRecord, rig.record) << run.Name();
        }
        EXPECT_FALSE(rig.editor.isBusy) << run.Name();
    });
    // The index's text: Create, CopyAttributes, Write, Write, Flush, Close, Replace. The old index's new name.
    EXPECT_EQ(points, (7 + 1) * kWays);
}

TEST(ScenarioSaveFaults, PutTheOldIndexBackWhenTheConverterFails) {
    const int points = TryEveryFault([](FaultRun& run) {
        ScenarioRig rig(run.fault);
        ASSERT_TRUE(rig.OpenEditor());
        rig.converter.isBroken = true;
        EXPECT_FALSE(SaveChanges(rig.context, rig.editor).isDone) << run.Name();
        Finish(rig, run);
        // A disk on which nothing works any more leaves it under its backup name at least.
        const std::string name = rig.Has(kIndexFile) ? kIndexFile : kIndexBackup;
        EXPECT_EQ(rig.folder.Read(name), GameFile(rig.index)) << run.Name();
        if (!run.fault.forever) {
            EXPECT_TRUE(rig.Has(kIndexFile)) << run.Name();
        }
        EXPECT_FALSE(rig.Told().empty()) << run.Name();
    });
    // As above; the copy that is put back: Create, Write, Flush, Close, Replace, CopyAttributes; and the index's text
    // as it was, in seven changes.
    EXPECT_EQ(points, (7 + 1 + 6 + 7) * kWays);
}

TEST(ScenarioDriveFaults, LeaveTheScenarioWhollyOldOrWhollyNew) {
    const int points = TryEveryFault([](FaultRun& run) {
        ScenarioRig rig; // opening it converts, and so takes the earlier text away
        ASSERT_TRUE(rig.OpenEditor());
        FaultyFiles files(rig.folder.Disk(), run.fault);
        session::EditorContext context{rig.context.session,
                                       rig.context.document,
                                       {files, rig.rig.processes, rig.rig.registry},
                                       rig.rig.ui,
                                       rig.rig.view};
        const bool isDone = DriveIt(context, rig.editor, 1).isDone;
        run.struck = files.HasStruck();
        run.changes = files.Changes();
        FaultCount() += run.struck ? 1 : 0;
        EXPECT_EQ(isDone, !run.struck) << run.Name();
        const std::string before = GameFile(rig.scenario);
        EXPECT_EQ(GameFileAt(rig, kScenarioFile),
                  isDone ? GameFile(authoring::SetDriver(rig.scenario, 1) + "\r\n") : before)
            << run.Name();
        EXPECT_EQ(GameFileAt(rig, kScenarioBackup), isDone ? before : "") << run.Name();
        ASSERT_EQ(rig.Told().size(), 1U) << run.Name();
        EXPECT_EQ(rig.Told()[0] == kDriverUpdated, isDone) << run.Name();
        EXPECT_EQ(rig.editor.Consists[1].isPlayerDriven, isDone) << run.Name();
    });
    // The earlier text goes; the new one: Create, Write, Write, Flush, Close, Replace; the old file's new name.
    EXPECT_EQ(points, (1 + 6 + 1) * kWays);
}

TEST(ScenarioOpeningFaults, ChangeNothingInTheGame) {
    const int points = TryEveryFault([](FaultRun& run) {
        ScenarioRig rig(run.fault);
        rig.folder.Write("Kit\\TempFiles\\Scenario.xml", "<earlier/>");
        const bool isOpen = rig.OpenEditor();
        Finish(rig, run);
        EXPECT_EQ(isOpen, !run.struck) << run.Name();
        EXPECT_EQ(rig.folder.Read(kIndexFile), GameFile(rig.index)) << run.Name();
        EXPECT_EQ(rig.folder.Read(kScenarioFile), GameFile(rig.scenario)) << run.Name();
        EXPECT_EQ(rig.Told().empty(), isOpen) << run.Name();
    });
    EXPECT_EQ(points, 1 * kWays); // the earlier text goes
}

} // namespace
} // namespace tamarind::tests
