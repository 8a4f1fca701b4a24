#include "platform/batch_file.h"

#include "support/faulty_files.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::platform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::TempFolder;

std::optional<BatchCommand> Cleared(const std::string& folder) { return ClearAttributes{folder}; }

std::optional<BatchCommand> Copied(const std::string& source, const std::string& destination) {
    return CopyToFolder{source, destination};
}

void CarryOut(const TempFolder& folder, const BatchCommand& command) { RunBatchCommand(folder.Disk(), command, {}); }

TEST(ParseBatchCommand, KnowsAttribThatClears) {
    EXPECT_EQ(ParseBatchCommand(R"(ATTRIB -R "\game dir\*.*" /s /d)"), Cleared(R"(\game dir)"));
    EXPECT_EQ(ParseBatchCommand(R"(ATTRIB -h -r -s "c:\game\*.*" /s /d)"), Cleared(R"(c:\game)"));
    EXPECT_EQ(ParseBatchCommand(R"(attrib.exe -r "c:\game\*.*" /S /D)"), Cleared(R"(c:\game)"));
}

TEST(ParseBatchCommand, KnowsNoOtherUseOfAttrib) {
    EXPECT_EQ(ParseBatchCommand(R"(ATTRIB +R "c:\game\*.*" /s /d)"), std::nullopt);
    EXPECT_EQ(ParseBatchCommand(R"(ATTRIB -R "c:\game\*.*" /s)"), std::nullopt);
    EXPECT_EQ(ParseBatchCommand(R"(ATTRIB -R "c:\game\*.bin" /s /d)"), std::nullopt);
    EXPECT_EQ(ParseBatchCommand(R"(ATTRIB "c:\game\*.*" /s /d)"), std::nullopt);
    EXPECT_EQ(ParseBatchCommand(R"(ATTRIB -R "c:\a\*.*" "c:\b\*.*" /s /d)"), std::nullopt);
}

TEST(ParseBatchCommand, KnowsXcopyWithItsThreeSwitches) {
    EXPECT_EQ(ParseBatchCommand(R"(call Xcopy "c:\a b\*.*" "c:\p\r\*.*" /I /C /S)"), Copied(R"(c:\a b)", R"(c:\p\r)"));
    EXPECT_EQ(ParseBatchCommand(R"(xcopy "c:\a.bin" "c:\p\*.*" /i /c /s)"), Copied(R"(c:\a.bin)", R"(c:\p)"));
}

TEST(ParseBatchCommand, KnowsNoOtherUseOfXcopy) {
    EXPECT_EQ(ParseBatchCommand(R"(call Xcopy "c:\a" "c:\b\*.*" /I /C /S /Y)"), std::nullopt);
    EXPECT_EQ(ParseBatchCommand(R"(call Xcopy "c:\a" "c:\b\*.*" /I /C)"), std::nullopt);
    EXPECT_EQ(ParseBatchCommand(R"(call Xcopy "c:\a" "c:\b" /I /C /S)"), std::nullopt);
    EXPECT_EQ(ParseBatchCommand(R"(call Xcopy "c:\a" /I /C /S)"), std::nullopt);
}

TEST(ParseBatchCommand, KnowsNothingElse) {
    EXPECT_EQ(ParseBatchCommand("echo hello"), std::nullopt);
    EXPECT_EQ(ParseBatchCommand("call"), std::nullopt);
    EXPECT_EQ(ParseBatchCommand(""), std::nullopt);
}

TEST(ParseBatchFile, ReadsLineByLineWithoutEmptyOnes) {
    const auto commands = ParseBatchFile("ATTRIB -R \"c:\\g\\*.*\" /s /d\r\n\r\n"
                                         "call Xcopy \"c:\\a\\*.*\" \"c:\\b\\*.*\" /I /C /S\r\n");
    ASSERT_TRUE(commands);
    EXPECT_THAT(*commands, ElementsAre(*Cleared("c:\\g"), *Copied("c:\\a", "c:\\b")));
}

TEST(ParseBatchFile, AnEmptyFileHasNoCommands) {
    const auto commands = ParseBatchFile("\r\n");
    ASSERT_TRUE(commands);
    EXPECT_THAT(*commands, IsEmpty());
}

TEST(ParseBatchFile, RefusesAFileWithOneOtherCommand) {
    EXPECT_EQ(ParseBatchFile("ATTRIB -R \"c:\\g\\*.*\" /s /d\r\ndel *.*\r\n"), std::nullopt);
}

TEST(RunBatchCommand, CopiesAFoldersContentIntoANewFolder) {
    const TempFolder folder;
    folder.Write("from\\a.bin", "a");
    folder.Write("from\\sub\\b.bin", "b");
    CarryOut(folder, CopyToFolder{folder / "from", folder / "pack\\deep\\to"});
    EXPECT_EQ(folder.Read("pack\\deep\\to\\a.bin"), "a");
    EXPECT_EQ(folder.Read("pack\\deep\\to\\sub\\b.bin"), "b");
}

TEST(RunBatchCommand, LeavesOutFoldersThatHoldNoFile) {
    const TempFolder folder;
    folder.Write("from\\a.bin", "a");
    folder.MakeFolder("from\\empty\\also empty");
    CarryOut(folder, CopyToFolder{folder / "from", folder / "to"});
    EXPECT_THAT(folder.Names("to"), ElementsAre("a.bin"));
}

TEST(RunBatchCommand, CopiesOneFileIntoAFolder) {
    const TempFolder folder;
    folder.Write("from\\a.bin", "a");
    folder.Write("from\\b.bin", "b");
    CarryOut(folder, CopyToFolder{folder / "from\\a.bin", folder / "to"});
    EXPECT_THAT(folder.Names("to"), ElementsAre("a.bin"));
    EXPECT_EQ(folder.Read("to\\a.bin"), "a");
}

TEST(RunBatchCommand, OverwritesWhatIsThere) {
    const TempFolder folder;
    folder.Write("from\\a.bin", "new");
    folder.Write("to\\a.bin", "old");
    CarryOut(folder, CopyToFolder{folder / "from", folder / "to"});
    EXPECT_EQ(folder.Read("to\\a.bin"), "new");
}

TEST(RunBatchCommand, GoesOnAfterAFileThatCannotBeCopied) {
    const TempFolder folder;
    folder.Write("from\\a.bin", "a");
    folder.Write("from\\b.bin", "b");
    folder.MakeFolder("to\\a.bin");
    CarryOut(folder, CopyToFolder{folder / "from", folder / "to"});
    EXPECT_EQ(folder.Read("to\\b.bin"), "b");
}

TEST(RunBatchCommand, CopiesNothingFromAMissingFolder) {
    const TempFolder folder;
    CarryOut(folder, CopyToFolder{folder / "from", folder / "to"});
    EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(RunBatchCommand, RefusesToCopyAFolderIntoItself) {
    const TempFolder folder;
    folder.Write("from\\a.bin", "a");
    CarryOut(folder, CopyToFolder{folder / "from", folder / "FROM\\to"});
    EXPECT_THAT(folder.Names("from"), ElementsAre("a.bin"));
}

TEST(RunBatchCommand, CopiesIntoAFolderWhoseNameBeginsLikeTheSources) {
    const TempFolder folder;
    folder.Write("from\\a.bin", "a");
    CarryOut(folder, CopyToFolder{folder / "from", folder / "from2"});
    EXPECT_THAT(folder.Names("from2"), ElementsAre("a.bin"));
}

TEST(RunBatchCommand, ClearsNoAttributesOfTheWholeDisk) {
    const TempFolder folder;
    tests::FaultyFiles files(folder.Disk(), {1, tests::FaultKind::AccessDenied, true});
    RunBatchCommand(files, ClearAttributes{""}, {});
    EXPECT_THAT(files.Changes(), IsEmpty());
}

TEST(RunBatchCommand, ClearsAttributesOfEverythingInTheTree) {
    const TempFolder folder;
    folder.Write("game\\a.bin", "a");
    folder.Write("game\\sub\\b.bin", "b");
    tests::FaultyFiles files(folder.Disk(), {1, tests::FaultKind::AccessDenied, true});
    RunBatchCommand(files, ClearAttributes{folder / "game"}, {});
    // The folder, its file, the folder inside and the file in that, although each one fails.
    EXPECT_EQ(files.Changes(), std::vector<std::string>(4, "MakeWritable"));
}

TEST(RunBatchCommand, EndsOnAStopRequest) {
    const TempFolder folder;
    folder.Write("from\\a.bin", "a");
    std::stop_source source;
    source.request_stop();
    RunBatchCommand(folder.Disk(), CopyToFolder{folder / "from", folder / "to"}, source.get_token());
    EXPECT_THAT(folder.Names(), ElementsAre("from"));
}

} // namespace
} // namespace tamarind::platform
