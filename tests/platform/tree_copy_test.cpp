#include "platform/tree_copy.h"

#include "platform/expect_error.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using platform::ListTree;
using platform::Tree;
using platform::TreeCopier;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ListTree, NamesFoldersBeforeTheirContent) {
    TempFolder folder;
    folder.Write("top\\b\\c\\x.bin", "1");
    folder.Write("top\\a.bin", "2");
    folder.MakeFolder("top\\empty");
    const Tree tree = ListTree(folder.Disk(), folder / "top");
    EXPECT_THAT(tree.folders, ElementsAre("b", "b\\c", "empty"));
    EXPECT_THAT(tree.files, ElementsAre(Tree::File{"a.bin"}, Tree::File{"b\\c\\x.bin"}));
    EXPECT_THAT(tree.links, IsEmpty());
    EXPECT_THAT(tree.unreadable, IsEmpty());
}

TEST(ListTree, OfAMissingFolderIsUnreadable) {
    TempFolder folder;
    EXPECT_THAT(ListTree(folder.Disk(), folder / "none").unreadable, ElementsAre(""));
}

TEST(TreeCopier, MakesFoldersAndOverwritesFiles) {
    TempFolder folder;
    folder.Write("from\\a\\b.bin", "new");
    folder.Write("to\\a\\b.bin", "old and longer");
    TreeCopier copier(folder.Disk(), folder / "from", folder / "to");
    copier.Copy("a\\b.bin");
    EXPECT_EQ(folder.Read("to\\a\\b.bin"), "new");
    copier.MakeFolder("x\\y");
    EXPECT_TRUE(folder.Disk().IsFolder(folder / "to\\x\\y"));
}

TEST(TreeCopier, OverwritesAFileWhoseNameIsInOtherLetterCase) {
    TempFolder folder;
    folder.Write("from\\Sub\\Name.Bin", "new");
    folder.Write("to\\SUB\\NAME.BIN", "old");
    TreeCopier(folder.Disk(), folder / "from", folder / "to").Copy("Sub\\Name.Bin");
    EXPECT_THAT(folder.Names("to"), ElementsAre("SUB"));
    EXPECT_THAT(folder.Names("to\\SUB"), ElementsAre("NAME.BIN"));
    EXPECT_EQ(folder.Read("to\\SUB\\NAME.BIN"), "new");
}

TEST(TreeCopier, CopiesLargeAndEmptyFiles) {
    TempFolder folder;
    std::string large(1'000'003, 'x');
    large.back() = 'y';
    folder.Write("from\\large.bin", large);
    folder.Write("from\\empty.bin", "");
    TreeCopier copier(folder.Disk(), folder / "from", folder / "to");
    copier.Copy("large.bin");
    copier.Copy("empty.bin");
    EXPECT_EQ(folder.Read("to\\large.bin"), large);
    EXPECT_EQ(folder.Read("to\\empty.bin"), "");
}

TEST(TreeCopier, LeavesAWriteProtectedFile) {
    MemoryFiles files;
    files.folders = {"from", "to"};
    files.contents = {{"from\\a", "new"}, {"to\\a", "old"}};
    files.readOnly = {"to\\a"};
    TreeCopier copier(files, "from", "to");
    EXPECT_EQ(NumberOfError([&] { copier.Copy("a"); }), 70);
    EXPECT_EQ(files.contents.at("to\\a"), "old");
}

TEST(TreeCopier, DoesNotReplaceAFolder) {
    MemoryFiles files;
    files.folders = {"from", "to", "to\\a"};
    files.contents = {{"from\\a", "new"}};
    TreeCopier copier(files, "from", "to");
    EXPECT_EQ(NumberOfError([&] { copier.Copy("a"); }), 75);
}

TEST(TreeCopier, OfAMissingFileMakesNothing) {
    MemoryFiles files;
    files.folders = {"from"};
    TreeCopier copier(files, "from", "to");
    EXPECT_EQ(NumberOfError([&] { copier.Copy("a"); }), 53);
    EXPECT_FALSE(files.IsFolder("to"));
}

TEST(TreeCopier, LeavesNoHalfWrittenFile) {
    // CreateFolder, Create, Write, Close: a failure of the last two leaves a file behind that has to go.
    for (const int at : {3, 4}) {
        MemoryFiles disk;
        disk.folders = {"from"};
        disk.contents = {{"from\\a", "new"}};
        FaultyFiles files(disk, {.at = at, .kind = FaultKind::ShortWrite});
        TreeCopier copier(files, "from", "to");
        EXPECT_EQ(NumberOfError([&] { copier.Copy("a"); }), 61) << at;
        EXPECT_FALSE(disk.EntryExists("to\\a")) << at;
    }
}

} // namespace
} // namespace tamarind::tests
