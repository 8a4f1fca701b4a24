#include "authoring/developer_folders.h"

#include "authoring/made_folders.h"
#include "platform/paths.h"
#include "support/editor_rig.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"
#include "support/temp_folder.h"
#include "text/runtime_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using authoring::AddOn;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kTaken = "A Developer Folder with that name already exists. Please try again.";

TEST(AddOnFolders, AreThoseOfTheGameInTheirOrder) {
    EXPECT_THAT(authoring::AddOnFolders(),
                ElementsAre("Audio", "Environment", "Particles", "RailNetwork", "RailVehicles", "RouteMarkers",
                            "Scenery", "Stations", "System", "TemplateRoutes", "Weather", "Scenery\\Animated",
                            "Scenery\\Billboards", "Scenery\\Brushes", "Scenery\\Buildings", "Scenery\\Characters",
                            "Scenery\\Clocks", "Scenery\\Clutter", "Scenery\\DestinationBoards", "Scenery\\Procedural",
                            "Scenery\\Structures", "Scenery\\Vegetation", "Scenery\\Vehicles", "Scenery\\Wildlife"));
}

/// A game in memory, without "Source".
class DeveloperFolder : public testing::Test {
protected:
    DeveloperFolder() {
        files.folders = {"C:\\Game"};
        rig.session.RailSimPath = "C:\\Game";
    }
    void SetUpWith(const std::string& answer) {
        rig.ui.texts.push_back(answer);
        authoring::SetUpDeveloperFolder(rig.context);
    }

    MemoryFiles files;
    EditorRig rig{files, "C:\\Kit"};
};

TEST_F(DeveloperFolder, IsAskedForAndMadeWithSource) {
    SetUpWith("Fernhollow");
    ASSERT_EQ(rig.ui.Everything().size(), 2U);
    const Shown& question = rig.ui.Everything()[0];
    EXPECT_EQ(question.kind, Shown::Kind::TextQuestion);
    EXPECT_EQ(question.message.text, "Enter your Developer name (Use alpha characters only, no spaces)");
    EXPECT_EQ(question.message.title, "Developer Name");
    EXPECT_EQ(question.preset, "");
    EXPECT_THAT(files.folders, ElementsAre("C:\\Game", "C:\\Game\\Source", "C:\\Game\\Source\\Fernhollow"));
    EXPECT_THAT(rig.ui.StatusLines(), ElementsAre("Made " + platform::ForDisplay("C:\\Game\\Source\\Fernhollow")));
}

TEST_F(DeveloperFolder, IsMadeBesideOthers) {
    files.folders = {"C:\\Game", "C:\\Game\\Source", "C:\\Game\\Source\\Tansy"};
    SetUpWith("Fernhollow");
    EXPECT_TRUE(files.IsFolder("C:\\Game\\Source\\Fernhollow"));
    EXPECT_TRUE(files.IsFolder("C:\\Game\\Source\\Tansy"));
    EXPECT_THAT(rig.ui.MessageTexts(), IsEmpty());
}

TEST_F(DeveloperFolder, BearsANameWithBlanksAndSignsAsTyped) {
    SetUpWith(" My Own #1 & Co");
    EXPECT_TRUE(files.IsFolder("C:\\Game\\Source\\ My Own #1 & Co"));
}

TEST_F(DeveloperFolder, ThatIsThereAlreadyIsTold) {
    files.folders = {"C:\\Game", "C:\\Game\\Source", "C:\\Game\\Source\\Fernhollow"};
    SetUpWith("Fernhollow");
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre(kTaken));
    EXPECT_EQ(rig.ui.Messages()[0].icon, platform::Icon::Exclamation);
    EXPECT_EQ(rig.ui.Messages()[0].title, "Tamarind");
    EXPECT_EQ(files.folders.size(), 3U);
}

TEST_F(DeveloperFolder, CannotTakeTheNameOfAFile) {
    files.folders.insert("C:\\Game\\Source");
    files.contents["C:\\Game\\Source\\Fernhollow"] = "a file";
    SetUpWith("Fernhollow");
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre(kTaken));
}

TEST_F(DeveloperFolder, IsNotMadeWithoutAnAnswerButSourceIs) {
    SetUpWith("");
    EXPECT_THAT(files.folders, ElementsAre("C:\\Game", "C:\\Game\\Source"));
    EXPECT_THAT(rig.ui.MessageTexts(), IsEmpty());
}

TEST_F(DeveloperFolder, IsNotMadeUnderANameThatNoFolderCanBear) {
    for (const char* const name : {"con", "a/b", "a\\b", "..", "Fern.", "Fern "})
        SetUpWith(name);
    EXPECT_THAT(files.folders, ElementsAre("C:\\Game", "C:\\Game\\Source"));
    EXPECT_EQ(rig.ui.MessageTexts().size(), 6U);
    EXPECT_EQ(rig.ui.MessageTexts()[0], "\"con\" is the name of a device in Windows. Please take another name.");
}

TEST_F(DeveloperFolder, IsNotMadeWhileTheGameIsNotKnown) {
    rig.session.RailSimPath.clear();
    authoring::SetUpDeveloperFolder(rig.context);
    EXPECT_EQ(authoring::MakeDeveloperFolder(rig.context, "Fern"), std::nullopt);
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre("Please select the RS path from the Options menu first.",
                                                   "Please select the RS path from the Options menu first."));
    EXPECT_THAT(files.folders, ElementsAre("C:\\Game"));
}

TEST_F(DeveloperFolder, IsNotAskedForWhereSourceCannotBeMade) {
    const TempFolder folder;
    EditorRig real{folder.Disk(), "C:\\Kit"};
    real.session.RailSimPath = folder / "none";
    authoring::SetUpDeveloperFolder(real.context);
    EXPECT_EQ(real.ui.Everything().size(), 1U);
    EXPECT_THAT(real.ui.MessageTexts(),
                ElementsAre("The folder of all developers could not be made: Path not found\r\n" +
                            platform::ForDisplay(folder / "none\\Source")));
}

TEST_F(DeveloperFolder, IsNotMadeWhereThereIsNoGame) {
    const TempFolder folder;
    EditorRig real{folder.Disk(), "C:\\Kit"};
    real.session.RailSimPath = folder / "none";
    EXPECT_EQ(authoring::MakeDeveloperFolder(real.context, "Fern"), std::nullopt);
    EXPECT_THAT(real.ui.MessageTexts(), ElementsAre("The developer's folder could not be made: Path not found\r\n" +
                                                    platform::ForDisplay(folder / "none\\Source")));
}

TEST(AddOnTree, IsMadeWhole) {
    const TempFolder folder;
    EditorRig rig{folder.Disk(), "C:\\Kit"};
    EXPECT_EQ(authoring::MakeAddOn(rig.context, folder / "Vale"), AddOn::Made);
    EXPECT_THAT(folder.Names("Vale"),
                ElementsAre("Audio", "Environment", "Particles", "RailNetwork", "RailVehicles", "RouteMarkers",
                            "Scenery", "Stations", "System", "TemplateRoutes", "Weather"));
    EXPECT_THAT(folder.Names("Vale\\Scenery"),
                ElementsAre("Animated", "Billboards", "Brushes", "Buildings", "Characters", "Clocks", "Clutter",
                            "DestinationBoards", "Procedural", "Structures", "Vegetation", "Vehicles", "Wildlife"));
    EXPECT_THAT(rig.ui.MessageTexts(), IsEmpty());
}

TEST(AddOnTree, LeavesAFolderAloneThatIsThere) {
    const TempFolder folder;
    folder.Write("Vale\\mine.txt", "kept");
    EditorRig rig{folder.Disk(), "C:\\Kit"};
    EXPECT_EQ(authoring::MakeAddOn(rig.context, folder / "Vale"), AddOn::Exists);
    EXPECT_THAT(folder.Names("Vale"), ElementsAre("mine.txt"));
    EXPECT_THAT(rig.ui.MessageTexts(), IsEmpty());
}

TEST(AddOnTree, IsNotMadeInAFolderThatIsMissing) {
    const TempFolder folder;
    EditorRig rig{folder.Disk(), "C:\\Kit"};
    EXPECT_EQ(authoring::MakeAddOn(rig.context, folder / "none\\Vale"), AddOn::Failed);
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre("The add-on's folders could not be made: Path not found\r\n" +
                                                   platform::ForDisplay(folder / "none\\Vale")));
}

TEST(AddOnTree, IsTakenBackWhenOneFolderFails) {
    const TempFolder folder;
    FaultyFiles files(folder.Disk(), {.at = 9, .kind = FaultKind::NoSpace});
    EditorRig rig{files, "C:\\Kit"};
    EXPECT_EQ(authoring::MakeAddOn(rig.context, folder / "Vale"), AddOn::Failed);
    EXPECT_THAT(folder.Names(), IsEmpty());
    // The first is the add-on's own, the ninth the eighth in it.
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre("The add-on's folders could not be made: Disk full\r\n" +
                                                   platform::ForDisplay(folder / "Vale\\Stations")));
}

TEST(AddOnTree, ThatCannotBeTakenBackIsTold) {
    const TempFolder folder;
    FaultyFiles files(folder.Disk(), {.at = 3, .kind = FaultKind::AccessDenied, .forever = true});
    EditorRig rig{files, "C:\\Kit"};
    EXPECT_EQ(authoring::MakeAddOn(rig.context, folder / "Vale"), AddOn::Failed);
    ASSERT_EQ(rig.ui.MessageTexts().size(), 1U);
    EXPECT_THAT(rig.ui.MessageTexts()[0], testing::EndsWith("\r\nAlready made, and not to be removed again:\r\n" +
                                                            platform::ForDisplay(folder / "Vale") + "\r\n" +
                                                            platform::ForDisplay(folder / "Vale\\Audio")));
}

TEST(MadeFolders, AreTakenBackWithoutWhatOthersPutIntoThem) {
    const TempFolder folder;
    authoring::MadeFolders made(folder.Disk());
    made.Make(folder / "a");
    made.Make(folder / "a\\b");
    made.Make(folder / "c");
    folder.Write("a\\mine.txt", "kept");
    EXPECT_THAT(made.TakeBack(), ElementsAre(folder / "a"));
    EXPECT_THAT(folder.Names(), ElementsAre("a"));
    EXPECT_EQ(folder.Read("a\\mine.txt"), "kept");
}

TEST(MadeFolders, NeverCountOneThatWasThere) {
    const TempFolder folder;
    folder.MakeFolder("a");
    authoring::MadeFolders made(folder.Disk());
    EXPECT_THROW(made.Make(folder / "a"), text::RuntimeError);
    EXPECT_THAT(made.TakeBack(), IsEmpty());
    EXPECT_THAT(folder.Names(), ElementsAre("a"));
}

TEST(SubFolders, AreSetUpInTheWindowOfThatJob) {
    MemoryFiles files;
    EditorRig rig{files, "C:\\Kit"};
    rig.session.Authoring.Folder = session::FolderJob::CloneTarget;
    authoring::SetUpSubFolders(rig.context);
    EXPECT_EQ(rig.session.Authoring.Folder, session::FolderJob::AddOn);
    EXPECT_THAT(rig.view.calls, ElementsAre("ShowFolderChooser"));
}

} // namespace
} // namespace tamarind::tests
