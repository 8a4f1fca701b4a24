#include "authoring/loco_clone.h"

#include "platform/paths.h"
#include "support/editor_rig.h"
#include "support/faulty_files.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using session::FolderJob;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST(LocoFolder, LiesDirectlyInAFolderOfItsKind) {
    const std::string vehicles = "C:\\Game\\Assets\\Kuju\\RailSimulator\\RailVehicles\\";
    for (const char* const path : {"Diesel\\Class55", "Steam\\Wren", "Electric\\E1", "Dieselhydraulic\\V200",
                                   "Steamers\\A", "DIESEL\\Class55", "Diesel\\Class55\\"})
        EXPECT_TRUE(authoring::IsLocoFolder(vehicles + path)) << path;
    for (const char* const path :
         {"Diesel", "", "Diesel\\Class55\\Default", "Freight\\SaltVan", "Dies\\A", "Stea\\A", "Elec\\A", "MyDiesel\\A"})
        EXPECT_FALSE(authoring::IsLocoFolder(vehicles + path)) << path;
    EXPECT_FALSE(authoring::IsLocoFolder("Diesel"));
    EXPECT_FALSE(authoring::IsLocoFolder(""));
}

/// A game with a loco, and an add-on for its copy.
class LocoClone : public testing::Test {
protected:
    explicit LocoClone(Fault fault = {}) : files(folder.Disk(), fault) {
        folder.Write("Game\\Assets\\Kuju\\RailSimulator\\RailVehicles\\Diesel\\Class55\\Class55.bin", "loco Class55");
        folder.Write("Game\\Assets\\Kuju\\RailSimulator\\RailVehicles\\Diesel\\Class55\\Textures\\Livery.TgPcDx",
                     "green");
        folder.MakeFolder("Game\\Assets\\Kuju\\RailSimulator\\RailVehicles\\Diesel\\Class55\\Empty");
        folder.MakeFolder("Game\\Source\\Fern\\Vale\\RailVehicles");
        rig.session.RailSimPath = folder / "Game";
    }
    [[nodiscard]] std::string Source() const {
        return folder / "Game\\Assets\\Kuju\\RailSimulator\\RailVehicles\\Diesel\\Class55";
    }
    [[nodiscard]] std::string Target() const { return folder / "Game\\Source\\Fern\\Vale\\RailVehicles"; }
    [[nodiscard]] std::vector<std::string> Copies() const {
        return folder.Names("Game\\Source\\Fern\\Vale\\RailVehicles");
    }
    bool Copy() { return authoring::CopyLoco(rig.context, Source(), Target() + "\\Heron"); }
    /// As a person who confirms the loco and then the target.
    void ChooseBoth() {
        rig.view.onFolderChooser = [this] {
            auto& state = rig.session.Authoring;
            if (state.Folder == FolderJob::LocoToClone) state.CloneSource = Source();
            if (state.Folder == FolderJob::CloneTarget) state.CloneTarget = Target();
            return true;
        };
    }
    [[nodiscard]] std::string DoneText() const {
        return "The copy of the loco is now in \r\n" + platform::ForDisplay(Target() + "\\Heron") +
               "\r\nThe texts inside its files are unchanged and still name the original.";
    }

    TempFolder folder;
    FaultyFiles files;
    EditorRig rig{files, folder / "Kit"};
};

TEST_F(LocoClone, IsACopyOfEveryFileAndFolder) {
    EXPECT_TRUE(Copy());
    EXPECT_EQ(folder.Read("Game\\Source\\Fern\\Vale\\RailVehicles\\Heron\\Class55.bin"), "loco Class55");
    EXPECT_EQ(folder.Read("Game\\Source\\Fern\\Vale\\RailVehicles\\Heron\\Textures\\Livery.TgPcDx"), "green");
    EXPECT_THAT(folder.Names("Game\\Source\\Fern\\Vale\\RailVehicles\\Heron"),
                ElementsAre("Class55.bin", "Empty", "Textures"));
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre(DoneText()));
    EXPECT_EQ(rig.ui.Messages()[0].icon, platform::Icon::Information);
    EXPECT_EQ(rig.ui.Messages()[0].opensFolder, Target() + "\\Heron");
    ASSERT_FALSE(rig.ui.ProgressShown().empty());
    EXPECT_EQ(rig.ui.ProgressShown()[0].total, 2U);
}

TEST_F(LocoClone, TakesALocoANameAndATarget) {
    ChooseBoth();
    rig.ui.texts = {"Heron"};
    authoring::CloneLoco(rig.context);
    EXPECT_THAT(Copies(), ElementsAre("Heron"));
    EXPECT_THAT(rig.view.calls, ElementsAre("ShowFolderChooser", "ShowFolderChooser"));
    const Shown& question = rig.ui.Everything()[0];
    EXPECT_EQ(question.kind, Shown::Kind::TextQuestion);
    EXPECT_EQ(question.preset, "Class55");
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre(DoneText()));
}

TEST_F(LocoClone, AsksAgainForANameThatNoFolderCanBear) {
    ChooseBoth();
    rig.ui.texts = {"a/b", "con", "Heron"};
    authoring::CloneLoco(rig.context);
    EXPECT_THAT(Copies(), ElementsAre("Heron"));
    ASSERT_EQ(rig.ui.MessageTexts().size(), 3U);
    EXPECT_THAT(rig.ui.MessageTexts()[0], StartsWith("\"a/b\" cannot be used as a name"));
    EXPECT_THAT(rig.ui.MessageTexts()[1], StartsWith("\"con\" is the name of a device"));
}

TEST_F(LocoClone, AsksAgainForANameThatIsTaken) {
    folder.Write("Game\\Source\\Fern\\Vale\\RailVehicles\\Class55\\mine.txt", "kept");
    ChooseBoth();
    rig.ui.texts = {"Class55", "Heron"};
    authoring::CloneLoco(rig.context);
    EXPECT_THAT(Copies(), ElementsAre("Class55", "Heron"));
    EXPECT_THAT(folder.Names("Game\\Source\\Fern\\Vale\\RailVehicles\\Class55"), ElementsAre("mine.txt"));
    ASSERT_EQ(rig.ui.MessageTexts().size(), 2U);
    EXPECT_EQ(rig.ui.MessageTexts()[0], "The name \"Class55\" is taken already in\r\n" +
                                            platform::ForDisplay(Target()) + "\r\nPlease try again.");
}

TEST_F(LocoClone, EndsWithoutALocoANameOrATarget) {
    authoring::CloneLoco(rig.context); // no loco
    ChooseBoth();
    rig.ui.texts = {""};
    authoring::CloneLoco(rig.context); // no name
    rig.ui.texts = {"Heron"};
    rig.view.onFolderChooser = [this] {
        rig.session.Authoring.CloneSource = Source();
        return rig.session.Authoring.Folder == FolderJob::LocoToClone;
    };
    authoring::CloneLoco(rig.context); // no target
    EXPECT_THAT(Copies(), IsEmpty());
    EXPECT_THAT(rig.ui.MessageTexts(), IsEmpty());
}

TEST_F(LocoClone, NeedsToKnowTheGame) {
    rig.session.RailSimPath.clear();
    authoring::CloneLoco(rig.context);
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre("Please select the RS path from the Options menu first."));
    EXPECT_THAT(rig.view.calls, IsEmpty());
}

TEST_F(LocoClone, IsRemovedWhenItIsCancelled) {
    rig.ui.onProgress = [](int) { return false; };
    EXPECT_FALSE(Copy());
    EXPECT_THAT(Copies(), IsEmpty());
    EXPECT_THAT(rig.ui.MessageTexts(),
                ElementsAre("The copying of the loco was cancelled.\r\nNothing of the copy was kept."));
    EXPECT_EQ(folder.Names("Game\\Assets\\Kuju\\RailSimulator\\RailVehicles\\Diesel\\Class55").size(), 3U);
}

TEST_F(LocoClone, NeverTouchesAFolderThatIsThere) {
    folder.Write("Game\\Source\\Fern\\Vale\\RailVehicles\\Heron\\mine.txt", "kept");
    EXPECT_FALSE(Copy());
    EXPECT_THAT(folder.Names("Game\\Source\\Fern\\Vale\\RailVehicles\\Heron"), ElementsAre("mine.txt"));
    ASSERT_EQ(rig.ui.MessageTexts().size(), 1U);
    EXPECT_THAT(rig.ui.MessageTexts()[0], StartsWith("The loco could not be copied: "));
}

TEST_F(LocoClone, OfAFolderThatIsGoneMakesNothing) {
    EXPECT_FALSE(authoring::CopyLoco(rig.context, Source() + "x", Target() + "\\Heron"));
    EXPECT_THAT(Copies(), IsEmpty());
    EXPECT_THAT(rig.ui.MessageTexts()[0], HasSubstr("Path not found"));
}

TEST_F(LocoClone, IntoItselfEnds) {
    EXPECT_TRUE(authoring::CopyLoco(rig.context, Source(), Source() + "\\Heron"));
    EXPECT_EQ(folder.Names("Game\\Assets\\Kuju\\RailSimulator\\RailVehicles\\Diesel\\Class55\\Heron").size(), 3U);
}

class FailingLocoClone : public LocoClone {
protected:
    // The folder, two below it, then Create, Write, Close of the first file; the second file's Create fails.
    FailingLocoClone() : LocoClone({.at = 7, .kind = FaultKind::NoSpace}) {}
};

TEST_F(FailingLocoClone, IsRemoved) {
    EXPECT_FALSE(Copy());
    EXPECT_THAT(Copies(), IsEmpty());
    ASSERT_EQ(rig.ui.MessageTexts().size(), 1U);
    EXPECT_THAT(rig.ui.MessageTexts()[0], StartsWith("The loco could not be copied: Disk full\r\n"));
    EXPECT_THAT(rig.ui.MessageTexts()[0], testing::EndsWith("\r\nNothing of the copy was kept."));
}

TEST_F(LocoClone, GoesIntoAFolderForVehiclesBelowSource) {
    const auto isTarget = [this](const std::string& name) {
        return authoring::IsCloneTarget(rig.context, folder / ("Game\\" + name));
    };
    EXPECT_TRUE(isTarget("Source\\Fern\\Vale\\RailVehicles"));
    EXPECT_TRUE(isTarget("source\\Fern\\Vale\\railvehicles"));
    EXPECT_TRUE(isTarget("Source\\Fern\\Vale\\RailVehicles\\Diesel"));
    EXPECT_TRUE(isTarget("Source\\RailVehicles"));
    EXPECT_FALSE(isTarget("Source"));
    EXPECT_FALSE(isTarget("Source\\Fern\\Vale"));
    EXPECT_FALSE(isTarget("Source\\Fern\\RailVehicles2"));
    EXPECT_FALSE(isTarget("Assets\\Fern\\Vale\\RailVehicles"));
    EXPECT_FALSE(isTarget("Sources\\RailVehicles"));
    rig.session.RailSimPath.clear();
    EXPECT_FALSE(isTarget("Source\\Fern\\Vale\\RailVehicles"));
}

} // namespace
} // namespace tamarind::tests
