#include "platform/expect_error.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

TEST(RecycleBin, TakesAFolderWithAllThatIsInIt) {
    TempFolder folder;
    folder.Write("Routes\\r1\\Sub\\a.txt", "a");
    EXPECT_TRUE(folder.Disk().MoveToTrash(folder / "Routes\\r1"));
    EXPECT_FALSE(folder.Disk().EntryExists(folder / "Routes\\r1"));
    EXPECT_TRUE(folder.Disk().IsFolder(folder / "Routes"));
}

TEST(RecycleBin, FailsForWhatIsNotThere) {
    TempFolder folder;
    EXPECT_EQ(NumberOfError([&] { folder.Disk().MoveToTrash(folder / "r1"); }), 53);
}

TEST(RecycleBin, IsNoneForAPathThatTheShellCannotTake) {
    TempFolder folder;
    std::string name = "r1";
    for (int i = 0; i < 6; ++i)
        name += "\\" + std::string(50, 'x');
    folder.MakeFolder(name);
    EXPECT_FALSE(folder.Disk().MoveToTrash(folder / name));
    EXPECT_TRUE(folder.Disk().IsFolder(folder / name));
}

} // namespace
} // namespace tamarind::tests
