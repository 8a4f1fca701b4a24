#include "platform/batch_file.h"
#include "platform/paths.h"
#include "platform/tree_copy.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace tamarind::tests {
namespace {

using platform::ListTree;
using platform::Tree;
using testing::ElementsAre;

void Link(const std::string& path, const std::string& nativeTarget) {
    std::filesystem::create_symlink(nativeTarget,
                                    platform::ToNative(platform::FolderOf(path)) + "/" + platform::NameOf(path));
}

class TreeLinks : public testing::Test {
protected:
    TreeLinks() {
        folder.Write("outside\\secret.txt", "secret");
        folder.Write("top\\real.txt", "real");
        folder.MakeFolder("top\\sub");
        Link(folder / "top\\sub\\inside.txt", "../real.txt");
        Link(folder / "top\\leak.txt", "../outside/secret.txt");
        Link(folder / "top\\leak", "../outside");
        Link(folder / "top\\loop", ".");
        Link(folder / "top\\dangling", "nowhere");
    }
    TempFolder folder;
};

TEST_F(TreeLinks, AreFollowedToFilesInsideAlone) {
    const Tree tree = ListTree(folder.Disk(), folder / "top");
    EXPECT_THAT(tree.files, ElementsAre(Tree::File{"real.txt"}, Tree::File{"sub\\inside.txt"}));
    EXPECT_THAT(tree.links, ElementsAre("dangling", "leak", "leak.txt", "loop"));
}

TEST_F(TreeLinks, LeadToTheTopAsAnyFolderDoes) {
    Link(folder / "link", "top");
    EXPECT_EQ(ListTree(folder.Disk(), folder / "link").files.size(), 2U);
}

TEST_F(TreeLinks, AreNotFollowedOutByTheCopyScript) {
    platform::RunBatchCommand(folder.Disk(), platform::CopyToFolder{folder / "top", folder / "copy"}, {});
    EXPECT_THAT(folder.Names("copy"), ElementsAre("real.txt", "sub"));
    EXPECT_EQ(folder.Read("copy\\sub\\inside.txt"), "real");
}

TEST(ListTree, TellsFilesWithADotInFrontAndBelowSuchFolders) {
    TempFolder folder;
    folder.Write(".git\\config", "");
    folder.Write(".x", "");
    folder.Write("y", "");
    EXPECT_THAT(ListTree(folder.Disk(), folder.Path()).files,
                ElementsAre(Tree::File{".git\\config", true}, Tree::File{".x", true}, Tree::File{"y", false}));
}

} // namespace
} // namespace tamarind::tests
