#include "faults/commands.h"
#include "shell/options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// Text that was not saved is on the screen or on the disk, and the housekeeping of the working folder never ends the
// program.
namespace tamarind::tests {
namespace {

using testing::HasSubstr;

constexpr int kWays = 8;
constexpr const char* kLine = "ATTRIB -R \"C:\\Game\\*.*\" /s /d\r\n";

bool HasTempFiles(const FaultyKit& kit) { return kit.folder.Disk().IsFolder(kit.folder / "Kit\\TempFiles"); }

TEST(OptionsFaults, ClearScreenNeverLosesTextThatWasNotSaved) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.rig.session.FileBaseName = "Wall.";
        kit.rig.view.TypeText("typed");
        kit.Run(shell::ClearScreen);
        kit.Finish(run);
        if (run.struck) {
            EXPECT_EQ(kit.rig.view.EditorText(), "typed") << run.Name();
            EXPECT_THAT(kit.Told(), HasSubstr("could not be kept")) << run.Name();
        } else {
            EXPECT_EQ(kit.rig.view.EditorText(), "");
            EXPECT_EQ(kit.folder.Read("Kit\\TempFiles\\Recovered\\Wall.xml"), "typed");
        }
    });
    EXPECT_EQ(points, 6 * kWays); // the folder Recovered; Create, Write, Flush, Close, Replace
}

TEST(OptionsFaults, ClearTempFilesTouchesNothingElseAndTellsWhenTheFolderIsGone) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.folder.Write("Kit\\TempFiles\\Wall.xml", "working file");
        kit.folder.Write("Kit\\keep.txt", "kept");
        kit.Run(shell::ClearTempFiles);
        kit.Finish(run);
        EXPECT_EQ(kit.folder.Read("Kit\\keep.txt"), "kept") << run.Name();
        EXPECT_NE(HasTempFiles(kit), !kit.Told().empty()) << run.Name();
        if (!run.struck) {
            EXPECT_TRUE(kit.folder.Names("Kit\\TempFiles").empty());
        }
    });
    EXPECT_GE(points, 3 * kWays); // Remove, RemoveFolder, CreateFolder
}

TEST(OptionsFaults, ABatchFileThatCannotBeWrittenIsNotRun) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.folder.Write("Kit\\TempFiles\\do_read.bat", "of another game folder");
        kit.rig.processes.run = nullptr; // the converter has no part in it
        kit.rig.session.RailSimPath = "C:\\Game";
        kit.Run(shell::MakeGameFilesWritable);
        kit.Finish(run);
        EXPECT_EQ(kit.rig.processes.starts.empty(), run.struck) << run.Name();
        EXPECT_EQ(kit.folder.Read("Kit\\TempFiles\\do_read.bat"), run.struck ? "of another game folder" : kLine)
            << run.Name();
        EXPECT_THAT(kit.Told(), HasSubstr(run.struck ? "occurred in WriteUniFile" : "All files are now Read/Write"))
            << run.Name();
    });
    EXPECT_EQ(points, 6 * kWays); // Create, CopyAttributes, Write, Flush, Close, Replace
}

} // namespace
} // namespace tamarind::tests
