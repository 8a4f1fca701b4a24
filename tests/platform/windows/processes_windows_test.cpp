#include "platform/expect_error.h"
#include "platform/myfile.h"
#include "platform/platform.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

namespace tamarind::platform {
namespace {

using namespace std::chrono_literals;
using testing::StartsWith;
using tests::NumberOfError;
using tests::ScriptedUserInterface;
using tests::TempFolder;

class ProcessesTest : public testing::Test {
protected:
    double Run(const std::string& commandLine, WindowStyle style = WindowStyle::Hidden) {
        return ShellWait(*processes, ui, Started(commandLine, style), true);
    }

    ProcessStart Started(const std::string& commandLine, WindowStyle style = WindowStyle::Hidden) const {
        return {commandLine, folder.Path(), {folder / "tools"}, style};
    }

    /// Puts a program into the search folder: a copy of the system's command interpreter.
    void PutProgram(const std::string& name) {
        wchar_t system[MAX_PATH] = {};
        ASSERT_NE(GetSystemDirectoryW(system, MAX_PATH), 0U);
        folder.MakeFolder("tools");
        const std::wstring target(ToWideName(folder / ("tools\\" + name)));
        ASSERT_NE(CopyFileW((std::wstring(system) + L"\\cmd.exe").c_str(), target.c_str(), TRUE), 0);
    }

    static std::wstring ToWideName(const std::string& path) { return std::wstring(path.begin(), path.end()); }

    TempFolder folder;
    std::unique_ptr<Processes> processes = MakeProcesses(folder.Disk());
    ScriptedUserInterface ui;
};

TEST_F(ProcessesTest, ReturnsTheProcessIdAfterAtLeastOnePause) {
    const auto before = std::chrono::steady_clock::now();
    const double id = Run("cmd.exe /c exit 0");
    EXPECT_GE(std::chrono::steady_clock::now() - before, 50ms);
    EXPECT_GT(id, 0.0);
    EXPECT_NE(id, static_cast<double>(GetCurrentProcessId()));
}

TEST_F(ProcessesTest, EndsWhenTheExitCodeLooksLikeStillActive) { EXPECT_GT(Run("cmd.exe /c exit 259"), 0.0); }

TEST_F(ProcessesTest, RunsABatchFile) {
    folder.Write("do_read.bat", "@echo off\r\necho done %1 >out\r\n");
    EXPECT_GT(Run("do_read.bat \"a b\"", WindowStyle::NormalFocus), 0.0);
    EXPECT_THAT(folder.Read("out"), StartsWith("done \"a b\""));
}

TEST_F(ProcessesTest, RunsABatchFileNamedByItsPathWithBlanks) {
    folder.Write("my game\\go.bat", "@echo went>out\r\n");
    EXPECT_GT(Run(folder.Path() + "\\my game\\go.bat", WindowStyle::NormalFocus), 0.0);
    EXPECT_THAT(folder.Read("out"), StartsWith("went"));
}

TEST_F(ProcessesTest, ABatchFileClearsReadOnly) {
    const std::string path = folder.Write("game\\sub\\a.bin", "a");
    ASSERT_NE(SetFileAttributesW(ToWideName(path).c_str(), FILE_ATTRIBUTE_READONLY), 0);
    folder.Write("do_read.bat", "ATTRIB -R \"" + (folder / "game") + "\\*.*\" /s /d\r\n");
    EXPECT_GT(Run("do_read.bat", WindowStyle::NormalFocus), 0.0);
    EXPECT_FALSE(folder.Disk().IsWriteProtected(path));
}

TEST_F(ProcessesTest, ABatchFileCopiesAFolder) {
    folder.Write("game\\sub\\a.bin", "a");
    // Without "\\*.*" behind the destination, which the Xcopy of emulators does not understand.
    folder.Write("do_read.bat",
                 "call Xcopy \"" + (folder / "game") + "\\*.*\" \"" + (folder / "pack\\game") + "\" /I /C /S\r\n");
    EXPECT_GT(Run("do_read.bat", WindowStyle::NormalFocus), 0.0);
    EXPECT_EQ(folder.Read("pack\\game\\sub\\a.bin"), "a");
}

TEST_F(ProcessesTest, FindsTheProgramInTheSearchFoldersWithTheCommandLineUnchanged) {
    PutProgram("serz.exe");
    EXPECT_GT(Run("serz.exe /c echo \"a  b\"  xml:\"c d\">out"), 0.0);
    EXPECT_THAT(folder.Read("out"), StartsWith("\"a  b\"  xml:\"c d\""));
}

TEST_F(ProcessesTest, StartsAProgramNamedInQuotes) {
    PutProgram("my program.exe");
    EXPECT_GT(Run("\"" + folder.Path() + "\\tools\\my program.exe\" /c echo hello>out"), 0.0);
    EXPECT_THAT(folder.Read("out"), StartsWith("hello"));
}

TEST_F(ProcessesTest, PutsTheSearchFoldersInFrontOfTheSearchPath) {
    EXPECT_GT(Run("cmd.exe /c echo %PATH%>out"), 0.0);
    EXPECT_THAT(folder.Read("out"), StartsWith((folder / "tools") + ";"));
}

TEST_F(ProcessesTest, StopEndsTheProgramAndWhatItStarted) {
    folder.Write("inner.bat", "@echo off\r\n:again\r\necho started>started\r\ngoto again\r\n");
    folder.Write("outer.bat", "@cmd /c inner.bat\r\n");
    ui.onEvents = [&](int) { ui.stopRequested = FileExists(folder.Disk(), folder / "started"); };
    EXPECT_GT(Run("outer.bat"), 0.0);
    // What still ran would write again.
    folder.Disk().Remove(folder / "started");
    processes->Sleep(200ms);
    EXPECT_FALSE(FileExists(folder.Disk(), folder / "started"));
}

TEST_F(ProcessesTest, ReportsWhyAStartFailed) {
    folder.Write("tools\\text.exe", "no program");
    EXPECT_EQ(NumberOfError([&] { return processes->Start(Started("missing.exe")); }), 53);
    EXPECT_EQ(NumberOfError([&] { return processes->Start(Started("text.exe")); }), 75);
    EXPECT_EQ(Run("text.exe"), 0.0);
}

} // namespace
} // namespace tamarind::platform
