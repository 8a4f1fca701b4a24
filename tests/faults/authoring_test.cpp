#include "authoring/blueprint_window.h"
#include "authoring/developer_folders.h"
#include "authoring/loco_clone.h"
#include "faults/commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// Each change of the disk fails in each way while blueprints and folders are made and a loco is copied: nothing
// half-made stays, what was there is as it was, and every failure is told.
namespace tamarind::tests {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int kWays = 8;
constexpr const char* kOld = "an earlier blueprint";
const auto kIsTold = AnyOf(HasSubstr("Disk full"), HasSubstr("Device I/O error"), HasSubstr("Permission denied"));

void CheckTold(const FaultyKit& kit, const FaultRun& run) {
    if (run.struck) {
        EXPECT_THAT(kit.Told(), kIsTold) << run.Name();
    } else {
        EXPECT_EQ(kit.rig.ui.MessageTexts().size(), 0U) << run.Name() << kit.Told();
    }
}

TEST(BlueprintFaults, LeaveTheFileWhollyOldOrWhollyNew) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.folder.Write("Kit\\BluePrints\\Blue_Named.xml", "<a>ZZZZZZ</a>");
        kit.folder.Write("Game\\Halts.xml", kOld);
        kit.rig.session.Authoring.BlueprintFolder = kit.folder / "Game";
        bool isMade = false;
        kit.Run([&isMade](session::EditorContext& context) {
            isMade = authoring::MakeBlueprint(context, {session::BlueprintMode::NamedMarker, {"Halts", "Stops"}})
                         .has_value();
        });
        kit.Finish(run);
        EXPECT_EQ(isMade, !run.struck) << run.Name();
        EXPECT_EQ(kit.Game("Halts.xml"), run.struck ? kOld : "<a>Halts</a>") << run.Name();
        CheckTold(kit, run);
        if (!run.fault.forever) {
            EXPECT_THAT(kit.folder.Names("Game"), ElementsAre("Halts.xml")) << run.Name();
        }
    });
    EXPECT_EQ(points, 6 * kWays); // Create, CopyAttributes, Write, Flush, Close, Replace
}

TEST(DeveloperFolderFaults, LeaveNoFolder) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.rig.session.RailSimPath = kit.folder / "Game";
        kit.Run([](session::EditorContext& context) {
            static_cast<void>(authoring::MakeDeveloperFolder(context, "Fern"));
        });
        kit.Finish(run);
        CheckTold(kit, run);
        if (!run.struck) {
            EXPECT_THAT(kit.folder.Names("Game\\Source"), ElementsAre("Fern")) << run.Name();
        } else if (!run.fault.forever) {
            EXPECT_THAT(kit.folder.Names("Game"), IsEmpty()) << run.Name();
        } else if (kit.GameHas("Source") || kit.folder.Disk().IsFolder(kit.folder / "Game\\Source")) {
            // A disk on which nothing works any more cannot be cleared; then that is told.
            EXPECT_THAT(kit.Told(), HasSubstr("Already made, and not to be removed again")) << run.Name();
        }
    });
    EXPECT_EQ(points, 2 * kWays);
}

TEST(DeveloperFolderFaults, AreToldAndLeaveNothingButSource) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.rig.session.RailSimPath = kit.folder / "Game";
        kit.rig.ui.texts = {"Fern"};
        kit.Run(authoring::SetUpDeveloperFolder);
        kit.rig.ui.texts.clear(); // nobody was asked without "Source"
        kit.Finish(run);
        CheckTold(kit, run);
        const bool isMade = kit.folder.Disk().IsFolder(kit.folder / "Game\\Source\\Fern");
        EXPECT_EQ(isMade, !run.struck) << run.Name();
    });
    EXPECT_EQ(points, 2 * kWays);
}

TEST(AddOnFaults, LeaveNoHalfOfATree) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.folder.Write("Game\\Other\\mine.txt", "kept");
        authoring::AddOn made = authoring::AddOn::Exists;
        kit.Run(
            [&](session::EditorContext& context) { made = authoring::MakeAddOn(context, kit.folder / "Game\\Vale"); });
        kit.Finish(run);
        EXPECT_EQ(made, run.struck ? authoring::AddOn::Failed : authoring::AddOn::Made) << run.Name();
        CheckTold(kit, run);
        EXPECT_EQ(kit.Game("Other\\mine.txt"), "kept") << run.Name();
        const bool isThere = kit.folder.Disk().IsFolder(kit.folder / "Game\\Vale");
        if (!run.struck) {
            EXPECT_EQ(kit.folder.Names("Game\\Vale\\Scenery").size(), 13U) << run.Name();
        } else if (!run.fault.forever) {
            EXPECT_FALSE(isThere) << run.Name();
        } else if (isThere) {
            EXPECT_THAT(kit.Told(), HasSubstr("Already made, and not to be removed again")) << run.Name();
        }
    });
    EXPECT_EQ(points, (1 + 11 + 13) * kWays);
}

TEST(LocoCloneFaults, LeaveNoHalfOfACopy) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        kit.folder.Write("Game\\Diesel\\Class55\\Class55.bin", "loco");
        kit.folder.Write("Game\\Diesel\\Class55\\Textures\\Livery.TgPcDx", "green");
        kit.folder.Write("Game\\RailVehicles\\Other\\mine.txt", "kept");
        bool isCopied = false;
        kit.Run([&](session::EditorContext& context) {
            isCopied = authoring::CopyLoco(context, kit.folder / "Game\\Diesel\\Class55",
                                           kit.folder / "Game\\RailVehicles\\Heron");
        });
        kit.Finish(run);
        EXPECT_EQ(isCopied, !run.struck) << run.Name();
        EXPECT_EQ(kit.Game("Diesel\\Class55\\Class55.bin"), "loco") << run.Name();
        EXPECT_EQ(kit.Game("RailVehicles\\Other\\mine.txt"), "kept") << run.Name();
        const bool isThere = kit.folder.Disk().IsFolder(kit.folder / "Game\\RailVehicles\\Heron");
        if (!run.struck) {
            EXPECT_EQ(kit.Game("RailVehicles\\Heron\\Class55.bin"), "loco") << run.Name();
            EXPECT_EQ(kit.Game("RailVehicles\\Heron\\Textures\\Livery.TgPcDx"), "green") << run.Name();
            return;
        }
        EXPECT_THAT(kit.Told(), kIsTold) << run.Name();
        if (!run.fault.forever) {
            EXPECT_FALSE(isThere) << run.Name();
        } else if (isThere) {
            EXPECT_THAT(kit.Told(), HasSubstr("What was copied could not be removed again")) << run.Name();
        }
    });
    EXPECT_EQ(points, (2 + 2 * 3) * kWays); // two folders; two files, each Create, Write, Close
}

} // namespace
} // namespace tamarind::tests
