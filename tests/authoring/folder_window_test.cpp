#include "authoring/folder_window.h"

#include "platform/paths.h"
#include "support/editor_rig.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace tamarind::tests {
namespace {

using authoring::FolderWindow;
using session::BlueprintMode;
using session::FolderJob;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// A game with a developer and two locos on the real disk.
class FolderChooser : public testing::Test {
protected:
    FolderChooser() {
        folder.MakeFolder("Game\\Source\\Fern");
        folder.MakeFolder("Game\\Source\\Fern\\Vale\\RailVehicles");
        folder.MakeFolder("Game\\Assets\\Kuju\\RailSimulator\\RailVehicles\\Diesel\\Class55\\Default");
        rig.session.RailSimPath = folder / "Game";
    }
    void Load(FolderJob job) {
        rig.session.Authoring.Folder = job;
        authoring::LoadFolders(rig.context, window);
    }
    /// Clicks the row with that text.
    void Click(const std::string& text) {
        const auto row = std::find_if(window.DirRows.rbegin(), window.DirRows.rend(),
                                      [&text](const install::FolderRow& each) { return each.text == text; });
        ASSERT_NE(row, window.DirRows.rend()) << text;
        EXPECT_TRUE(
            authoring::ClickFolder(rig.context, window, static_cast<std::size_t>(window.DirRows.rend() - row) - 1));
    }
    void Confirm() { authoring::Confirm(rig.context, window); }
    [[nodiscard]] std::string Hint() const { return authoring::FolderHint(rig.context, window); }
    [[nodiscard]] std::vector<std::string> RowTexts() const {
        std::vector<std::string> texts;
        for (const install::FolderRow& row : window.DirRows)
            texts.push_back(row.text);
        return texts;
    }

    TempFolder folder;
    EditorRig rig{folder.Disk(), folder / "Kit"};
    FolderWindow window;
};

TEST_F(FolderChooser, BearsTheCaptionOfItsJob) {
    Load(FolderJob::AddOn);
    EXPECT_EQ(window.caption, "Select your Developer Folder");
    rig.session.Authoring.BlueprintMode = BlueprintMode::NamedMarker;
    Load(FolderJob::BlueprintOutput);
    EXPECT_EQ(window.caption, "Select your RouteMarkers folder");
    rig.session.Authoring.BlueprintMode = BlueprintMode::SeriesMarker;
    Load(FolderJob::BlueprintOutput);
    EXPECT_EQ(window.caption, "Select your RouteMarkers folder");
    rig.session.Authoring.BlueprintMode = BlueprintMode::RouteTemplate;
    Load(FolderJob::BlueprintOutput);
    EXPECT_EQ(window.caption, "Select your TemplateRoutes folder");
    Load(FolderJob::LocoToClone);
    EXPECT_EQ(window.caption, "Choose Loco Folder To Clone");
    Load(FolderJob::CloneTarget);
    EXPECT_EQ(window.caption, "Select your RailVehicles folder");
}

TEST_F(FolderChooser, StartsInSourceOrWithTheLocosOfTheGame) {
    for (const FolderJob job : {FolderJob::AddOn, FolderJob::BlueprintOutput, FolderJob::CloneTarget}) {
        Load(job);
        EXPECT_EQ(window.Dir1, folder / "Game\\Source");
        EXPECT_EQ(window.Text1, folder / "Game\\Source");
        EXPECT_EQ(window.Drive1, install::DriveOf(folder / "Game"));
        EXPECT_THAT(RowTexts(), Contains("Fern"));
    }
    Load(FolderJob::LocoToClone);
    EXPECT_EQ(window.Dir1, folder / "Game\\Assets\\Kuju\\RailSimulator\\RailVehicles");
}

TEST_F(FolderChooser, StartsAtTheNearestFolderThatIsThere) {
    rig.session.RailSimPath = folder / "Kit\\none";
    folder.MakeFolder("Kit");
    Load(FolderJob::AddOn);
    EXPECT_EQ(window.Dir1, folder / "Kit");
}

TEST_F(FolderChooser, StartsWithADriveWhileTheGameIsNotKnown) {
    rig.session.RailSimPath.clear();
    Load(FolderJob::AddOn);
    EXPECT_EQ(window.Dir1, install::RootOf(window.Drive1));
    EXPECT_THAT(window.Drives, Contains(window.Drive1));
}

TEST_F(FolderChooser, ChoosesTheFolderThatIsClicked) {
    Load(FolderJob::AddOn);
    Click("Fern");
    EXPECT_EQ(window.Text1, folder / "Game\\Source\\Fern");
    EXPECT_EQ(window.Dir1, folder / "Game\\Source\\Fern");
    EXPECT_THAT(RowTexts(), Contains("Vale"));
}

TEST_F(FolderChooser, StaysWhereItIsWhenAFolderCannotBeOpened) {
    Load(FolderJob::AddOn);
    folder.Disk().RemoveFolder(folder.MakeFolder("Game\\Source\\Gone"));
    window.DirRows.push_back({"Gone", folder / "Game\\Source\\Gone", 1, false});
    EXPECT_FALSE(authoring::ClickFolder(rig.context, window, window.DirRows.size() - 1));
    EXPECT_EQ(window.Text1, folder / "Game\\Source");
    EXPECT_EQ(rig.ui.MessageTexts().size(), 1U);
    EXPECT_FALSE(authoring::ClickFolder(rig.context, window, window.DirRows.size()));
}

TEST_F(FolderChooser, GoesToTheTopOfADrive) {
    Load(FolderJob::AddOn);
    EXPECT_TRUE(authoring::ChangeDrive(rig.context, window, window.Drive1));
    EXPECT_EQ(window.Text1, install::RootOf(window.Drive1));
}

TEST_F(FolderChooser, MakesTheFoldersOfAnAddOnAndCloses) {
    Load(FolderJob::AddOn);
    Click("Fern");
    window.Text2 = "New Line";
    Confirm();
    EXPECT_TRUE(window.isConfirmed);
    EXPECT_EQ(folder.Names("Game\\Source\\Fern\\New Line").size(), 11U);
    EXPECT_EQ(folder.Names("Game\\Source\\Fern\\New Line\\Scenery").size(), 13U);
    EXPECT_THAT(rig.ui.MessageTexts(), IsEmpty());
    EXPECT_THAT(rig.ui.StatusLines(),
                ElementsAre("Made " + platform::ForDisplay(folder / "Game\\Source\\Fern\\New Line")));
}

TEST_F(FolderChooser, MakesNothingWhereTheAddOnExistsAndCloses) {
    Load(FolderJob::AddOn);
    Click("Fern");
    window.Text2 = "Vale";
    Confirm();
    EXPECT_TRUE(window.isConfirmed);
    EXPECT_THAT(folder.Names("Game\\Source\\Fern\\Vale"), ElementsAre("RailVehicles"));
    EXPECT_THAT(rig.ui.MessageTexts(), IsEmpty());
}

TEST_F(FolderChooser, MakesNothingWithoutANameAndCloses) {
    Load(FolderJob::AddOn);
    Click("Fern");
    Confirm();
    EXPECT_TRUE(window.isConfirmed);
    EXPECT_THAT(folder.Names("Game\\Source\\Fern"), ElementsAre("Vale"));
    EXPECT_THAT(rig.ui.MessageTexts(), IsEmpty());
}

TEST_F(FolderChooser, ClosesWithAMessageForANameThatNoFolderCanBear) {
    Load(FolderJob::AddOn);
    Click("Fern");
    for (const char* const name : {"con", "a/b", "a\\b", "Vale.", ".."}) {
        window.isConfirmed = false;
        window.Text2 = name;
        Confirm();
        EXPECT_TRUE(window.isConfirmed) << name;
    }
    EXPECT_EQ(rig.ui.MessageTexts().size(), 5U);
    EXPECT_THAT(folder.Names("Game\\Source\\Fern"), ElementsAre("Vale"));
}

TEST_F(FolderChooser, TellsWhatAnAddOnWillBecome) {
    Load(FolderJob::AddOn);
    Click("Fern");
    EXPECT_EQ(Hint(), "The name of a new folder in the one above.");
    window.Text2 = "New";
    EXPECT_EQ(Hint(), "Makes this folder and 24 folders in it.");
    window.Text2 = "Vale";
    EXPECT_EQ(Hint(), "This folder exists already: nothing will be made.");
    window.Text2 = "con";
    EXPECT_EQ(Hint(), "\"con\" is the name of a device in Windows. Please take another name.");
}

TEST_F(FolderChooser, KeepsTheFolderForABlueprint) {
    Load(FolderJob::BlueprintOutput);
    Click("Fern");
    EXPECT_EQ(Hint(), "The blueprint is going to be made in this folder.");
    Confirm();
    EXPECT_TRUE(window.isConfirmed);
    EXPECT_EQ(rig.session.Authoring.BlueprintFolder, folder / "Game\\Source\\Fern");
}

TEST_F(FolderChooser, KeepsTheFolderOfALoco) {
    Load(FolderJob::LocoToClone);
    Click("Diesel");
    Click("Class55");
    EXPECT_EQ(Hint(), "Makes a copy of Class55.");
    Confirm();
    EXPECT_TRUE(window.isConfirmed);
    EXPECT_EQ(rig.session.Authoring.CloneSource,
              folder / "Game\\Assets\\Kuju\\RailSimulator\\RailVehicles\\Diesel\\Class55");
    EXPECT_THAT(rig.ui.MessageTexts(), IsEmpty());
}

TEST_F(FolderChooser, ClearsAChoiceThatIsNoLoco) {
    rig.session.Authoring.CloneSource = "C:\\earlier";
    Load(FolderJob::LocoToClone);
    Click("Diesel");
    EXPECT_EQ(Hint(), "Open the folder of one loco, in Steam, Diesel or Electric.");
    Confirm();
    EXPECT_FALSE(window.isConfirmed);
    EXPECT_EQ(window.Text1, "");
    EXPECT_EQ(rig.session.Authoring.CloneSource, "");
    EXPECT_FALSE(authoring::CanConfirm(window));
    Confirm(); // nothing to be confirmed
    EXPECT_THAT(rig.ui.MessageTexts(),
                ElementsAre("You must select a loco folder in the top level, e.g. Diesel\\Class55 etc"));
    Click("Class55");
    EXPECT_TRUE(authoring::CanConfirm(window));
    Click("Default");
    Confirm();
    EXPECT_FALSE(window.isConfirmed);
    EXPECT_EQ(rig.ui.MessageTexts().size(), 2U);
}

TEST_F(FolderChooser, KeepsTheFolderForACopy) {
    Load(FolderJob::CloneTarget);
    EXPECT_EQ(Hint(), "Open a folder RailVehicles below Source.");
    Click("Fern");
    Confirm();
    EXPECT_FALSE(window.isConfirmed);
    EXPECT_EQ(rig.session.Authoring.CloneTarget, "");
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre("Please select a folder RailVehicles below Source, e.g. "
                                                   "Source\\Developer\\AddOn\\RailVehicles"));
    Click("Vale");
    Click("RailVehicles");
    EXPECT_EQ(Hint(), "The copy is going to be made in this folder.");
    Confirm();
    EXPECT_TRUE(window.isConfirmed);
    EXPECT_EQ(rig.session.Authoring.CloneTarget, folder / "Game\\Source\\Fern\\Vale\\RailVehicles");
}

} // namespace
} // namespace tamarind::tests
