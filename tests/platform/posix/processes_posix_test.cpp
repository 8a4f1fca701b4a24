#include "platform/processes.h"

#include "platform/converter.h"
#include "platform/expect_error.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tamarind::platform {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using tests::NumberOfError;
using tests::ScriptedUserInterface;
using tests::TempFolder;

/// A folder to run scripts in.
class ProcessesTest : public testing::Test {
protected:
    /// Writes a "#!" script that can be started; returns its path.
    std::string Script(const std::string& name, const std::string& body) {
        std::string path = folder.Write(name, "#!/bin/sh\n" + body);
        EXPECT_EQ(chmod(ToNative(path).c_str(), 0755), 0);
        return path;
    }

    double Run(const std::string& commandLine, WindowStyle style = WindowStyle::Hidden) {
        return ShellWait(*processes, ui, Started(commandLine, style), true);
    }

    ProcessStart Started(const std::string& commandLine, WindowStyle style = WindowStyle::Hidden) const {
        return {commandLine, folder.Path(), {folder / "tools"}, style};
    }

    [[nodiscard]] std::string Native(const std::string& name) const { return ToNative(folder.Path()) + "/" + name; }

    TempFolder folder;
    std::unique_ptr<Processes> processes = MakeProcesses(folder.Disk());
    ScriptedUserInterface ui;
};

TEST_F(ProcessesTest, ReturnsTheProcessIdAfterAtLeastOnePause) {
    Script("tools\\quick", "echo $$ >pid\n");
    const auto before = std::chrono::steady_clock::now();
    const double id = Run("quick");
    EXPECT_GE(std::chrono::steady_clock::now() - before, 50ms);
    EXPECT_EQ(std::to_string(static_cast<long>(id)) + "\n", folder.Read("pid"));
}

TEST_F(ProcessesTest, WaitsUntilTheProgramHasEnded) {
    Script("tools\\slow", "sleep 0.3; echo done >out\n");
    EXPECT_GT(Run("slow"), 0.0);
    EXPECT_EQ(folder.Read("out"), "done\n");
}

TEST_F(ProcessesTest, WaitsForAProgramThatEndsWithAnyExitCode) {
    Script("tools\\fails", "exit 3\n"); // 259 & 255: what "still active" would look like
    EXPECT_GT(Run("fails"), 0.0);
}

TEST_F(ProcessesTest, MakesQuotedPathsNative) {
    Script("tools\\show", "printf '%s\\n' \"$@\" >out\n");
    folder.Write("My Game\\Track.bin", "");
    Run("show \"" + folder.Path() + R"(\MY GAME\track.bin" xml:")" + folder.Path() + R"(\My Game\new.xml" /x a\b)");
    EXPECT_EQ(folder.Read("out"), Native("My Game/Track.bin") + "\nxml:" + Native("My Game/new.xml") + "\n/x\na\\b\n");
}

TEST_F(ProcessesTest, StartsAProgramNamedWithItsFolderAndBlanks) {
    Script("my tools\\show me", "echo \"$1\" >out\n");
    EXPECT_GT(Run("\"" + folder.Path() + "\\my tools\\show me\" one"), 0.0);
    EXPECT_EQ(folder.Read("out"), "one\n");
    EXPECT_GT(Run(folder.Path() + "\\my tools\\show me two"), 0.0);
    EXPECT_EQ(folder.Read("out"), "two\n");
}

TEST_F(ProcessesTest, FindsAProgramInAnyLetterCaseAndWithoutItsEnding) {
    Script("tools\\Serz.EXE", "echo found >out\n");
    EXPECT_GT(Run("serz"), 0.0);
    EXPECT_EQ(folder.Read("out"), "found\n");
}

TEST_F(ProcessesTest, LooksInTheSearchFoldersFirst) {
    Script("tools\\true", "echo ours >out\n");
    Run("true");
    EXPECT_EQ(folder.Read("out"), "ours\n");
}

TEST_F(ProcessesTest, LooksInTheSearchPathLast) { EXPECT_GT(Run("true"), 0.0); }

TEST_F(ProcessesTest, StartsInTheGivenFolderWithTheSearchFoldersInFront) {
    Script("tools\\where", "pwd >out; echo \"$PATH\" | cut -d: -f1 >>out\n");
    Run("where");
    EXPECT_EQ(folder.Read("out"), std::filesystem::canonical(Native("")).string() + "\n" + Native("tools") + "\n");
}

TEST_F(ProcessesTest, GivesNoInput) {
    Script("tools\\reads", "if read line; then echo \"$line\" >out; else echo none >out; fi\n");
    Run("reads");
    EXPECT_EQ(folder.Read("out"), "none\n");
}

TEST_F(ProcessesTest, DiscardsTheOutputOfHiddenOnesOnly) {
    Script("tools\\says", "echo visible; echo wrong >&2\n");
    testing::internal::CaptureStderr();
    Run("says", WindowStyle::Hidden);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    testing::internal::CaptureStderr();
    Run("says", WindowStyle::NormalFocus);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "visible\nwrong\n");
}

TEST_F(ProcessesTest, KeepsTheirOutputOutOfTheProgramsOwn) {
    Script("tools\\says", "echo said\n");
    testing::internal::CaptureStdout();
    Run("says", WindowStyle::Hidden);
    Run("says", WindowStyle::NormalFocus);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(ProcessesTest, StopEndsWhatTheProgramStartedToo) {
    Script("tools\\parent", "sleep 600 & echo $! >child; echo $$ >parent; wait\n");
    ui.onEvents = [&](int) { ui.stopRequested = FileExists(folder.Disk(), folder / "parent"); };
    EXPECT_GT(Run("parent"), 0.0);
    const pid_t child = std::stoi(folder.Read("child"));
    // The orphan stays as a zombie until its new parent has looked.
    std::string state;
    for (int i = 0; i < 100 && kill(child, 0) == 0 && state != "Z"; ++i) {
        processes->Sleep(10ms);
        std::string status;
        ReadUniFile(folder.Disk(), "\\proc\\" + std::to_string(child) + "\\stat", status);
        const std::size_t end = status.rfind(')');
        state = end == std::string::npos ? "Z" : status.substr(end + 2, 1);
    }
    EXPECT_TRUE(kill(child, 0) != 0 || state == "Z") << state;
}

TEST_F(ProcessesTest, ReportsWhyAStartFailed) {
    folder.Write("tools\\text.exe", "no program");
    EXPECT_EQ(NumberOfError([&] { return processes->Start(Started("missing.exe")); }), 53);
    EXPECT_EQ(NumberOfError([&] { return processes->Start(Started("text.exe")); }), 75);
    const std::string script = Script("tools\\noright", "exit 0\n");
    ASSERT_EQ(chmod(ToNative(script).c_str(), 0644), 0);
    EXPECT_EQ(NumberOfError([&] { return processes->Start(Started("noright")); }), 70);
    ProcessStart start = Started("true");
    start.folder = folder / "missing";
    EXPECT_EQ(NumberOfError([&] { return processes->Start(start); }), 76);
}

TEST_F(ProcessesTest, AConverterScriptConvertsThroughQuotedPaths) {
    Script("serz.exe", "cp \"$1\" \"${2#xml:}\"\n");
    folder.Write("TempFiles\\My Track.bin", "content");
    ConvertToXml(*processes, ui, {folder.Path(), ""}, folder / "tempfiles\\My Track.bin",
                 folder / "TempFiles\\My Track.xml");
    EXPECT_EQ(folder.Read("TempFiles\\My Track.xml"), "content");
}

/// Puts a stand-in for wine in front of the search path; it writes down its arguments and WINEPATH.
class WineTest : public ProcessesTest {
protected:
    WineTest() {
        Script("bin\\wine", "printf '%s\\n' \"$@\" \"$WINEPATH\" >out\n");
        // NOLINTNEXTLINE(concurrency-mt-unsafe): no thread runs beside
        setenv("PATH", (Native("bin") + ":" + oldPath_).c_str(), 1);
        // NOLINTNEXTLINE(concurrency-mt-unsafe): no thread runs beside
        unsetenv("WINEPATH");
    }
    // NOLINTNEXTLINE(concurrency-mt-unsafe): no thread runs beside
    ~WineTest() override { setenv("PATH", oldPath_.c_str(), 1); }

    [[nodiscard]] std::string Wine(const std::string& name) const { return "Z:" + (folder / name); }

private:
    // NOLINTNEXTLINE(concurrency-mt-unsafe): no thread runs beside
    std::string oldPath_ = std::getenv("PATH");
};

TEST_F(WineTest, StartsAWindowsProgramWithPathsOnDriveZ) {
    folder.Write("tools\\Serz.exe", "MZ and more");
    folder.Write("My Game\\Track.bin", "");
    EXPECT_GT(
        Run("serz.exe \"" + (folder / "my game\\track.bin") + "\" xml:\"" + (folder / "My Game\\new.xml") + "\" x"),
        0.0);
    EXPECT_EQ(folder.Read("out"), Wine("tools\\Serz.exe") + "\n" + Wine("My Game\\Track.bin") +
                                      "\nxml:" + Wine("My Game\\new.xml") + "\nx\n" + Wine("tools") + "\n");
}

TEST_F(WineTest, KeepsAnOlderWinepathBehindTheSearchFolders) {
    folder.Write("tools\\serz.exe", "MZ");
    // NOLINTNEXTLINE(concurrency-mt-unsafe): no thread runs beside
    setenv("WINEPATH", "C:\\old", 1);
    Run("serz.exe");
    // NOLINTNEXTLINE(concurrency-mt-unsafe): no thread runs beside
    unsetenv("WINEPATH");
    EXPECT_EQ(folder.Read("out"), Wine("tools\\serz.exe") + "\n" + Wine("tools") + ";C:\\old\n");
}

TEST_F(WineTest, GetsABatchFileWithAnyOtherCommand) {
    folder.Write("go.bat", "ATTRIB -R \"" + folder.Path() + "\\*.*\" /s /d\r\ndel *.tmp\r\n");
    EXPECT_GT(Run("go.bat one", WindowStyle::NormalFocus), 0.0);
    EXPECT_EQ(folder.Read("out"), "cmd\n/c\n" + Wine("go.bat") + "\none\n" + Wine("tools") + "\n");
}

TEST_F(ProcessesTest, AttribMakesEverythingInTheTreeWritableAndFollowsNoLink) {
    folder.Write("game\\sub\\a.bin", "a");
    folder.Write("outside\\b.bin", "b");
    std::filesystem::create_symlink(Native("outside"), Native("game/link"));
    ASSERT_EQ(chmod(Native("game/sub/a.bin").c_str(), 0444), 0);
    ASSERT_EQ(chmod(Native("outside/b.bin").c_str(), 0444), 0);
    ASSERT_EQ(chmod(Native("game/sub").c_str(), 0555), 0);
    EXPECT_GT(Run("ATTRIB -h -r -s \"" + (folder / "game") + R"(\*.*" /s /d)", WindowStyle::NormalFocus), 0.0);
    EXPECT_FALSE(folder.Disk().IsWriteProtected(folder / "game\\sub\\a.bin"));
    EXPECT_FALSE(folder.Disk().IsWriteProtected(folder / "game\\sub"));
    EXPECT_TRUE(folder.Disk().IsWriteProtected(folder / "outside\\b.bin"));
}

TEST_F(ProcessesTest, ABatchFileOfOurOwnCommandsIsCarriedOut) {
    folder.Write("game\\a.bin", "a");
    ASSERT_EQ(chmod(Native("game/a.bin").c_str(), 0444), 0);
    folder.Write("do_read.bat", "ATTRIB -R \"" + (folder / "game") + "\\*.*\" /s /d\r\n" + "call Xcopy \"" +
                                    (folder / "game") + "\\*.*\" \"" + (folder / "pack\\game") +
                                    "\\*.*\" /I /C /S\r\n\r\n");
    EXPECT_GT(Run("do_read.bat", WindowStyle::NormalFocus), 0.0);
    EXPECT_FALSE(folder.Disk().IsWriteProtected(folder / "game\\a.bin"));
    EXPECT_EQ(folder.Read("pack\\game\\a.bin"), "a");
}

} // namespace
} // namespace tamarind::platform
