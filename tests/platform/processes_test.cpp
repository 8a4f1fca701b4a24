#include "platform/processes.h"

#include "platform/platform.h"
#include "support/fake_processes.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"
#include "text/runtime_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::platform {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using tests::FakeProcesses;
using tests::ScriptedUserInterface;

TEST(ShellWait, PausesOnceForAProgramThatEndsAtOnce) {
    FakeProcesses processes;
    ScriptedUserInterface ui;
    EXPECT_EQ(ShellWait(processes, ui, {}, true), 4711.0);
    EXPECT_THAT(processes.sleeps, ElementsAre(50ms));
    EXPECT_EQ(ui.EventRounds(), 1);
}

TEST(ShellWait, LooksEvery50Milliseconds) {
    FakeProcesses processes;
    processes.looksBeforeEnd = 3;
    ScriptedUserInterface ui;
    ShellWait(processes, ui, {}, true);
    EXPECT_THAT(processes.sleeps, ElementsAre(50ms, 50ms, 50ms, 50ms));
    EXPECT_EQ(processes.looks, 4);
    EXPECT_EQ(ui.EventRounds(), 4);
}

TEST(ShellWait, SleepsBeforeTheFirstLook) {
    FakeProcesses processes;
    ScriptedUserInterface ui;
    int looksAtFirstEvents = -1;
    ui.onEvents = [&](int) { looksAtFirstEvents = processes.looks; };
    ShellWait(processes, ui, {}, true);
    EXPECT_EQ(looksAtFirstEvents, 0);
}

TEST(ShellWait, ProcessesNoEventsUnlessAsked) {
    FakeProcesses processes;
    processes.looksBeforeEnd = 2;
    ScriptedUserInterface ui;
    ShellWait(processes, ui, {}, false);
    EXPECT_EQ(ui.EventRounds(), 0);
}

TEST(ShellWait, TellsWhenItWaits) {
    FakeProcesses processes;
    ScriptedUserInterface ui;
    ShellWait(processes, ui, {}, true);
    EXPECT_THAT(ui.WaitingCalls(), ElementsAre(true, false));
}

TEST(ShellWait, ReturnsZeroWithoutAMessageWhenTheStartFails) {
    FakeProcesses processes;
    processes.run = [](const ProcessStart&) { throw text::RuntimeError(text::ErrorNumber::PermissionDenied); };
    ScriptedUserInterface ui;
    EXPECT_EQ(ShellWait(processes, ui, {}, true), 0.0);
    EXPECT_THAT(ui.Everything(), IsEmpty());
    EXPECT_THAT(processes.sleeps, IsEmpty());
    EXPECT_THAT(ui.WaitingCalls(), IsEmpty());
}

TEST(ShellWait, StopsTheProgramOnRequest) {
    FakeProcesses processes;
    processes.looksBeforeEnd = 1'000'000;
    ScriptedUserInterface ui;
    ui.onEvents = [&](int round) { ui.stopRequested = round == 3; };
    EXPECT_EQ(ShellWait(processes, ui, {}, true), 4711.0);
    EXPECT_EQ(processes.stops, 1);
    EXPECT_EQ(ui.EventRounds(), 3);
}

TEST(ShellWait, ReturnsZeroForAMissingProgram) {
    const tests::TempFolder folder;
    const auto processes = MakeProcesses(folder.Disk());
    ScriptedUserInterface ui;
    ProcessStart start;
    start.commandLine = "there is no such program.exe \"x\"";
    start.folder = folder.Path();
    start.searchFolders = {folder.Path()};
    EXPECT_EQ(ShellWait(*processes, ui, start, true), 0.0);
    EXPECT_THAT(ui.Everything(), IsEmpty());
}

TEST(ShellWait, ReturnsZeroForAFileThatIsNoProgram) {
    const tests::TempFolder folder;
    const auto processes = MakeProcesses(folder.Disk());
    for (const char* const bytes : {"no program at all", ""}) {
        ScriptedUserInterface ui;
        ProcessStart start;
        start.commandLine = "\"" + folder.Write("picture viewer.exe", bytes) + "\" \"x.dds\"";
        start.folder = folder.Path();
        EXPECT_EQ(ShellWait(*processes, ui, start, true), 0.0) << bytes;
        EXPECT_THAT(ui.Everything(), IsEmpty());
    }
}

TEST(ShellWait, ReturnsZeroForAFolder) {
    const tests::TempFolder folder;
    const auto processes = MakeProcesses(folder.Disk());
    ScriptedUserInterface ui;
    ProcessStart start;
    start.commandLine = "\"" + folder.MakeFolder("viewer.exe") + "\" \"x.dds\"";
    start.folder = folder.Path();
    EXPECT_EQ(ShellWait(*processes, ui, start, true), 0.0);
}

TEST(ShellWait, ReturnsZeroForAnEmptyCommandLine) {
    const tests::TempFolder folder;
    const auto processes = MakeProcesses(folder.Disk());
    ScriptedUserInterface ui;
    EXPECT_EQ(ShellWait(*processes, ui, {}, true), 0.0);
}

} // namespace
} // namespace tamarind::platform
