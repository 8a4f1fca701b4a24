#include "platform/expect_error.h"
#include "platform/myfile.h"
#include "platform/safe_write.h"
#include "support/fault_runs.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// Every change of the disk fails once, in every way: the old or the new file stands there whole, and the user is told.
namespace tamarind::platform {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::EndsWith;
using tests::ErrorOf;
using tests::FaultRun;
using tests::FaultyFiles;
using tests::NumberOfError;
using tests::TempFolder;

class NoSecondNames : public FaultyFiles {
public:
    using FaultyFiles::FaultyFiles;
    void HardLink(const std::string& /*from*/, const std::string& to) override {
        throw text::RuntimeError(text::ErrorNumber::PathAccessError, to);
    }
};

int NumberOf(tests::FaultKind kind) {
    switch (kind) {
    case tests::FaultKind::IoError: return 57;
    case tests::FaultKind::AccessDenied: return 70;
    default: return 61;
    }
}

void Finish(FaultRun& run, const FaultyFiles& files) {
    run.struck = files.HasStruck();
    run.changes = files.Changes();
}

template <typename Disk> int TryReplaceGameFile() {
    return tests::TryEveryFault([](FaultRun& run) {
        const TempFolder folder;
        folder.Write("Track.bin", "the old content");
        folder.Write("Track.bin.bak", "an earlier backup");
        folder.Write("new.bin", "the new content");
        Disk files(folder.Disk(), run.fault);
        const auto error = ErrorOf([&] { ReplaceGameFile(files, folder / "Track.bin", folder / "new.bin"); });
        Finish(run, files);
        const testing::Message where = testing::Message() << run.Name();
        EXPECT_EQ(folder.Read("Track.bin.bak"), "an earlier backup") << where;
        EXPECT_EQ(folder.Read("new.bin"), "the new content") << where;
        if (!run.struck) {
            EXPECT_FALSE(error) << where;
            EXPECT_EQ(folder.Read("Track.bin"), "the new content") << where;
            EXPECT_EQ(folder.Read("Track.bin.bak1"), "the old content") << where;
            return;
        }
        ASSERT_TRUE(error) << where;
        EXPECT_EQ(error->Number(), NumberOf(run.fault.kind)) << where;
        EXPECT_THAT(error->Details(), EndsWith("The game file is unchanged.")) << where;
        EXPECT_EQ(folder.Read("Track.bin"), "the old content") << where;
        if (!run.fault.forever) {
            EXPECT_THAT(folder.Names(), ElementsAre("new.bin", "Track.bin", "Track.bin.bak")) << where;
        }
    });
}

// The changes are Create, CopyAttributes, Write, Flush, Close, HardLink and Replace: 7 points, 4 kinds, once and for
// ever.
TEST(Faults, ReplaceGameFileSurvivesEveryOne) { EXPECT_EQ(TryReplaceGameFile<FaultyFiles>(), 7 * 8); }

// The copy in place of the second name takes 5 changes where that took 1.
TEST(Faults, ReplaceGameFileSurvivesEveryOneWhereThereAreNoSecondNames) {
    EXPECT_EQ(TryReplaceGameFile<NoSecondNames>(), 11 * 8);
}

TEST(Faults, WriteSafelySurvivesEveryOne) {
    const int points = tests::TryEveryFault([](FaultRun& run) {
        const TempFolder folder;
        folder.Write("a.txt", "the old content");
        FaultyFiles files(folder.Disk(), run.fault);
        const int error = NumberOfError([&] { WriteSafely(files, folder / "a.txt", "the new content"); });
        Finish(run, files);
        const testing::Message where = testing::Message() << run.Name();
        EXPECT_EQ(error, run.struck ? NumberOf(run.fault.kind) : 0) << where;
        EXPECT_EQ(folder.Read("a.txt"), run.struck ? "the old content" : "the new content") << where;
        if (!run.fault.forever) {
            EXPECT_THAT(folder.Names(), ElementsAre("a.txt")) << where;
        }
    });
    EXPECT_EQ(points, 6 * 8); // Create, CopyAttributes, Write, Flush, Close, Replace
}

TEST(Faults, WriteUniFileTellsOfEveryOne) {
    const int points = tests::TryEveryFault([](FaultRun& run) {
        const TempFolder folder;
        tests::ScriptedUserInterface ui;
        FaultyFiles files(folder.Disk(), run.fault);
        const bool worked = WriteUniFile(files, ui, folder / "a.txt", "text");
        Finish(run, files);
        EXPECT_EQ(worked, !run.struck) << run.Name();
        EXPECT_EQ(ui.Messages().size(), run.struck ? 1U : 0U) << run.Name();
        EXPECT_EQ(FileExists(folder.Disk(), folder / "a.txt"), !run.struck) << run.Name();
    });
    EXPECT_EQ(points, 5 * 8); // Create, Write, Flush, Close, Replace
}

TEST(Faults, CopyFolderTreeLeavesNoHalfFile) {
    const int points = tests::TryEveryFault([](FaultRun& run) {
        const TempFolder folder;
        folder.Write("from\\a.bin", "the new a");
        folder.Write("from\\b.bin", "the new b");
        folder.Write("to\\a.bin", "the old a");
        FaultyFiles files(folder.Disk(), run.fault);
        const int error = NumberOfError([&] { CopyFolderTree(files, folder / "from", folder / "to", true); });
        Finish(run, files);
        const testing::Message where = testing::Message() << run.Name();
        EXPECT_EQ(error, run.struck ? NumberOf(run.fault.kind) : 0) << where;
        EXPECT_THAT(folder.Read("to\\a.bin"), AnyOf("the old a", "the new a")) << where;
        if (FileExists(folder.Disk(), folder / "to\\b.bin")) {
            EXPECT_EQ(folder.Read("to\\b.bin"), "the new b") << where;
        }
        if (!run.fault.forever) {
            EXPECT_THAT(folder.Names("to"), AnyOf(ElementsAre("a.bin"), ElementsAre("a.bin", "b.bin"))) << where;
        }
    });
    EXPECT_EQ(points, 11 * 8); // 6 changes for the existing file, 5 for the new one
}

TEST(Faults, DelAllEndsQuietlyAtEveryOne) {
    tests::TryEveryFault([](FaultRun& run) {
        const TempFolder folder;
        folder.Write("tree\\a.bin", "a");
        folder.Write("tree\\sub\\b.bin", "b");
        FaultyFiles files(folder.Disk(), run.fault);
        EXPECT_NO_THROW(DelAll(files, folder / "tree")) << run.Name();
        Finish(run, files);
        if (!run.struck) {
            EXPECT_TRUE(folder.Names().empty());
        }
    });
}

} // namespace
} // namespace tamarind::platform
