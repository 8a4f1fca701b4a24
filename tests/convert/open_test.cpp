#include "convert/game_file.h"

#include "convert/game_rig.h"
#include "editors/document_commands.h"
#include "platform/expect_error.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "support/tree_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::convert {
namespace {

using platform::Answer;
using platform::FileDialog;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kStale = "The converter wrote nothing: the text shown is from an earlier conversion.";
constexpr const char* kNothing = "The converter wrote nothing: there is no text to show.";

class OpenGameFile : public tests::GameRig {
protected:
    std::string Tree() { return tests::TreeText(rig.document.document.Top()); }
    FileDialog OnlyDialog() {
        EXPECT_EQ(rig.ui.FileDialogs().size(), 1U);
        return rig.ui.FileDialogs().empty() ? FileDialog() : rig.ui.FileDialogs()[0];
    }
    void ExpectNothingHappened() {
        EXPECT_TRUE(rig.processes.starts.empty());
        EXPECT_THAT(TempNames(), ElementsAre());
        EXPECT_EQ(rig.view.EditorText(), "");
        EXPECT_EQ(rig.view.FilePath(), "");
        EXPECT_TRUE(rig.view.calls.empty());
        EXPECT_EQ(rig.session.CommandFile, "");
        EXPECT_EQ(rig.session.TempBase, "");
        EXPECT_EQ(rig.session.RSFileExt, "");
        EXPECT_FALSE(rig.session.RSFileLoaded);
        EXPECT_EQ(rig.document.path, "");
        EXPECT_EQ(rig.ui.BusyTimes(), 0);
    }
};

TEST_F(OpenGameFile, CopiesAndConvertsInTempFiles) {
    const std::string path = NextFile("Track.XSec", "<Top>x</Top>");
    EXPECT_TRUE(OpenRailSimFile(rig.context));
    EXPECT_THAT(TempNames(), ElementsAre("Track.bin", "Track.xml"));
    EXPECT_EQ(Temp("Track.bin"), tests::GameFile("<Top>x</Top>"));
    EXPECT_EQ(Temp("Track.xml"), "<Top>x</Top>");
    EXPECT_EQ(Game("Track.XSec"), tests::GameFile("<Top>x</Top>"));
    ASSERT_EQ(rig.processes.starts.size(), 1U);
    const std::string base = folder / "Kit\\TempFiles\\Track.";
    EXPECT_EQ(rig.processes.starts[0].commandLine, "serz.exe \"" + base + "bin\" xml:\"" + base + "xml\"");
    EXPECT_EQ(rig.processes.starts[0].folder, folder / "Kit");
    EXPECT_THAT(rig.processes.starts[0].searchFolders, ElementsAre(folder / "Kit", folder / "Game"));
}

TEST_F(OpenGameFile, ShowsTextAndPathAndRemembersTheFile) {
    const std::string path = NextFile("Track.XSec", "<Top>x</Top>");
    OpenRailSimFile(rig.context);
    EXPECT_EQ(rig.view.EditorText(), "<Top>x</Top>");
    EXPECT_EQ(rig.view.FilePath(), path);
    EXPECT_EQ(rig.session.FileBaseName, "Track.");
    EXPECT_EQ(rig.session.TempBase, folder / "Kit\\TempFiles\\Track.");
    EXPECT_EQ(rig.session.RSFileExt, "XSec");
    EXPECT_TRUE(rig.session.RSFileLoaded);
    EXPECT_FALSE(rig.session.UseCommandFile);
    EXPECT_FALSE(rig.document.isOpen);
    EXPECT_EQ(rig.ui.BusyTimes(), 1);
    EXPECT_TRUE(rig.ui.StatusLines().empty());
}

TEST_F(OpenGameFile, CutsTheNameAtItsLastDot) {
    NextFile("a.b.bin", "<Top/>");
    OpenRailSimFile(rig.context);
    EXPECT_EQ(rig.session.FileBaseName, "a.b.");
    EXPECT_EQ(rig.session.RSFileExt, "bin");
    EXPECT_THAT(TempNames(), ElementsAre("a.b.bin", "a.b.xml"));
}

TEST_F(OpenGameFile, AsksWithItsDialog) {
    rig.ui.filePaths = {folder.Write("Game\\Track.bin", tests::GameFile("<Top/>"))};
    EXPECT_TRUE(OpenRailSimFile(rig.context));
    const FileDialog dialog = OnlyDialog();
    EXPECT_FALSE(dialog.save);
    EXPECT_EQ(dialog.title, "Open RailSim file");
    EXPECT_EQ(dialog.filter, "RS Files(*.bin;*.XSec;*.GeoPcDx)|*.bin;*.XSec*;*.GeoPcDx");
    EXPECT_EQ(dialog.startFolder, folder / "Game");
    EXPECT_EQ(rig.session.CommandFile, folder / "Game\\Track.bin");
    EXPECT_EQ(rig.view.EditorText(), "<Top/>");
}

TEST_F(OpenGameFile, InTheTreeAsksWithTheSameDialog) {
    rig.ui.filePaths = {""};
    EXPECT_FALSE(OpenRailSimFileInTree(rig.context));
    EXPECT_EQ(OnlyDialog().title, "Open RailSim file");
    EXPECT_EQ(OnlyDialog().filter, "RS Files(*.bin;*.XSec;*.GeoPcDx)|*.bin;*.XSec*;*.GeoPcDx");
    EXPECT_EQ(OnlyDialog().startFolder, folder / "Game");
}

TEST_F(OpenGameFile, ATextureAsksWithItsDialog) {
    rig.ui.filePaths = {""};
    EXPECT_FALSE(OpenTextureFile(rig.context));
    EXPECT_EQ(OnlyDialog().title, "Open RS Texture files");
    EXPECT_EQ(OnlyDialog().filter, "RS Files (*.TgPcDx)|*.TgPcDx");
    EXPECT_EQ(OnlyDialog().startFolder, folder / "Game");
}

TEST_F(OpenGameFile, AnXmlFileAsksWithItsDialog) {
    rig.ui.filePaths = {""};
    EXPECT_FALSE(OpenXmlFile(rig.context));
    EXPECT_EQ(OnlyDialog().title, "Open .xml file");
    EXPECT_EQ(OnlyDialog().filter, "XML Files (*.xml;*.cost;*.tgt)|*.xml;*.cost;*.tgt");
    EXPECT_EQ(OnlyDialog().startFolder, folder / "Game");
}

TEST_F(OpenGameFile, AnXmlFileInTheTreeAsksWithItsDialog) {
    rig.ui.filePaths = {""};
    EXPECT_FALSE(OpenXmlFileInTree(rig.context));
    EXPECT_EQ(OnlyDialog().title, "Select file to load");
    EXPECT_EQ(OnlyDialog().filter, "XML Files (*.xml)|*.xml");
    EXPECT_EQ(OnlyDialog().startFolder, "");
    EXPECT_EQ(OnlyDialog().defaultExtension, "xml");
}

TEST_F(OpenGameFile, CancellingChangesNothing) {
    for (bool (*open)(session::EditorContext&) :
         {OpenRailSimFile, OpenTextureFile, OpenXmlFile, OpenRailSimFileInTree, OpenXmlFileInTree}) {
        rig.ui.filePaths = {""};
        EXPECT_FALSE(open(rig.context));
        ExpectNothingHappened();
    }
}

TEST_F(OpenGameFile, ATextureLeavesTheExtensionOfTheFileBefore) {
    NextFile("Wall.TgPcDx", "<Texture/>");
    OpenTextureFile(rig.context);
    EXPECT_EQ(rig.session.RSFileExt, "");
    EXPECT_EQ(rig.view.EditorText(), "<Texture/>");
    EXPECT_TRUE(rig.session.RSFileLoaded);
    NextFile("Track.XSec", "<Top/>");
    OpenRailSimFile(rig.context);
    NextFile("Wall.TgPcDx", "<Texture/>");
    OpenTextureFile(rig.context);
    EXPECT_EQ(rig.session.RSFileExt, "XSec");
    EXPECT_EQ(rig.session.FileBaseName, "Wall.");
}

TEST_F(OpenGameFile, InTheTreeShowsBothEditors) {
    NextFile("Track.bin", "<Top><A>1</A></Top>");
    EXPECT_TRUE(OpenRailSimFileInTree(rig.context));
    EXPECT_EQ(Tree(), "1:Top(2:A{1}())");
    EXPECT_EQ(rig.document.path, folder / "Kit\\TempFiles\\Track.xml");
    EXPECT_EQ(rig.view.Caption(), "XML File Editor - ");
    EXPECT_TRUE(rig.document.canSaveAs);
    EXPECT_TRUE(rig.document.hasFileName);
    EXPECT_EQ(rig.session.RSFileExt, "bin");
    EXPECT_EQ(rig.view.EditorText(), "<Top><A>1</A></Top>");
}

TEST_F(OpenGameFile, InTheTreeAsksAboutUnsavedChangesBeforeItConverts) {
    NextFile("Track.bin", "<Top/>");
    OpenRailSimFileInTree(rig.context);
    editors::SetModified(rig.context, true);
    NextFile("Other.bin", "<Other/>");
    rig.ui.answers = {Answer::Cancel};
    EXPECT_FALSE(OpenRailSimFileInTree(rig.context));
    EXPECT_EQ(Tree(), "1:Top()");
    EXPECT_TRUE(rig.document.isModified);
    EXPECT_EQ(rig.session.FileBaseName, "Track.");
    EXPECT_EQ(rig.processes.starts.size(), 1U);
    EXPECT_THAT(TempNames(), ElementsAre("Track.bin", "Track.xml"));
}

TEST_F(OpenGameFile, InTheTreeAsksOnceWhenTheChangesAreSaved) {
    NextFile("Track.bin", "<Top/>");
    OpenRailSimFileInTree(rig.context);
    editors::SetModified(rig.context, true);
    NextFile("Other.bin", "<Other/>");
    rig.ui.answers = {Answer::Yes};
    EXPECT_TRUE(OpenRailSimFileInTree(rig.context));
    EXPECT_EQ(Tree(), "1:Other()");
    EXPECT_EQ(Temp("Track.xml"), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<Top></Top>\r\n");
}

TEST_F(OpenGameFile, InTheTreeAsksAgainWhenTheDocumentIsEditedMeanwhile) {
    NextFile("Track.bin", "<Top/>");
    OpenRailSimFileInTree(rig.context);
    NextFile("Other.bin", "<Other/>");
    converter.onStart = [&] { editors::SetModified(rig.context, true); };
    rig.ui.answers = {Answer::Cancel};
    OpenRailSimFileInTree(rig.context);
    EXPECT_EQ(Tree(), "1:Top()");
    EXPECT_TRUE(rig.document.isModified);
}

TEST_F(OpenGameFile, AFailedConversionShowsTheEarlierTextAndSaysSo) {
    NextFile("Track.bin", "<Top>old</Top>");
    OpenRailSimFile(rig.context);
    NextFile("Track.bin", "<Top>new</Top>");
    converter.isBroken = true;
    EXPECT_FALSE(OpenRailSimFile(rig.context));
    EXPECT_EQ(rig.view.EditorText(), "<Top>old</Top>");
    EXPECT_EQ(Temp("Track.bin"), tests::GameFile("<Top>new</Top>"));
    EXPECT_THAT(rig.ui.StatusLines(), ElementsAre(kStale));
    EXPECT_TRUE(rig.ui.Messages().empty());
}

TEST_F(OpenGameFile, AFailedFirstConversionShowsNothingAndSaysSo) {
    NextFile("Track.bin", "<Top/>");
    converter.isBroken = true;
    rig.view.SetEditorText("text of another file");
    EXPECT_FALSE(OpenRailSimFile(rig.context));
    EXPECT_EQ(rig.view.EditorText(), "");
    EXPECT_THAT(rig.ui.StatusLines(), ElementsAre(kNothing));
    EXPECT_TRUE(rig.ui.Messages().empty());
}

TEST_F(OpenGameFile, AFailedConversionInTheTreeShowsTheEarlierDocument) {
    NextFile("Track.bin", "<Top>old</Top>");
    OpenRailSimFileInTree(rig.context);
    NextFile("Track.bin", "<Top>new</Top>");
    converter.isBroken = true;
    EXPECT_FALSE(OpenRailSimFileInTree(rig.context));
    EXPECT_EQ(Tree(), "1:Top{old}()");
    EXPECT_THAT(rig.ui.StatusLines(), ElementsAre(kStale));
}

TEST_F(OpenGameFile, AFailedFirstConversionInTheTreeShowsAnEmptyDocument) {
    NextFile("Track.bin", "<Top/>");
    converter.isBroken = true;
    EXPECT_FALSE(OpenRailSimFileInTree(rig.context));
    EXPECT_TRUE(rig.document.document.IsEmpty());
    EXPECT_FALSE(rig.document.isOpen);
    EXPECT_EQ(rig.view.EditorText(), "");
    EXPECT_THAT(rig.ui.StatusLines(), ElementsAre(kNothing));
    EXPECT_TRUE(rig.ui.Messages().empty());
}

TEST_F(OpenGameFile, AMissingConverterIsAFailedConversion) {
    NextFile("Track.bin", "<Top/>");
    rig.processes.run = [](const platform::ProcessStart&) {
        throw text::RuntimeError(text::ErrorNumber::FileNotFound);
    };
    EXPECT_FALSE(OpenRailSimFile(rig.context));
    EXPECT_THAT(rig.ui.StatusLines(), ElementsAre(kNothing));
}

TEST_F(OpenGameFile, ATruncatedGameFileIsAFailedConversion) {
    NextPath(folder.Write("Game\\Track.bin", "BI"));
    EXPECT_FALSE(OpenRailSimFile(rig.context));
    EXPECT_EQ(rig.view.EditorText(), "");
    EXPECT_EQ(Game("Track.bin"), "BI");
}

TEST_F(OpenGameFile, ConvertingTheSameFileAgainIsNoFailure) {
    NextFile("Track.bin", "<Top/>");
    OpenRailSimFile(rig.context);
    NextFile("Track.bin", "<Top/>");
    EXPECT_TRUE(OpenRailSimFile(rig.context));
    EXPECT_TRUE(rig.ui.StatusLines().empty());
}

TEST_F(OpenGameFile, MalformedXmlIsShownAsTextWithAnEmptyTree) {
    NextFile("Track.bin", "<Top><A></Top>");
    EXPECT_TRUE(OpenRailSimFileInTree(rig.context));
    EXPECT_EQ(rig.view.EditorText(), "<Top><A></Top>");
    EXPECT_TRUE(rig.document.document.IsEmpty());
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    // The reader stops at the name of the wrong end tag, behind ten characters.
    EXPECT_THAT(rig.ui.MessageTexts()[0], HasSubstr("Line 1, column 11."));
}

TEST_F(OpenGameFile, AMissingFileIsAnError) {
    NextPath(folder / "Game\\missing.bin");
    EXPECT_EQ(tests::NumberOfError([&] { OpenRailSimFile(rig.context); }), 53);
    EXPECT_TRUE(rig.processes.starts.empty());
    EXPECT_THAT(TempNames(), ElementsAre());
}

TEST_F(OpenGameFile, AFolderIsAnError) {
    NextPath(folder.MakeFolder("Game\\folder.bin"));
    EXPECT_EQ(tests::NumberOfError([&] { OpenRailSimFile(rig.context); }), 75);
    EXPECT_THAT(TempNames(), ElementsAre());
}

TEST_F(OpenGameFile, MakesAMissingTempFilesAnew) {
    platform::DelAll(folder.Disk(), folder / "Kit\\TempFiles");
    NextFile("Track.bin", "<Top/>");
    EXPECT_TRUE(OpenRailSimFile(rig.context));
    EXPECT_EQ(rig.view.EditorText(), "<Top/>");
}

TEST_F(OpenGameFile, AFileInPlaceOfTempFilesIsAnErrorThatLeavesEverythingAlone) {
    platform::DelAll(folder.Disk(), folder / "Kit\\TempFiles");
    folder.Write("Kit\\TempFiles", "mine");
    NextFile("Track.bin", "<Top/>");
    EXPECT_NE(tests::NumberOfError([&] { OpenRailSimFile(rig.context); }), 0);
    EXPECT_TRUE(rig.processes.starts.empty());
    EXPECT_EQ(folder.Read("Kit\\TempFiles"), "mine");
    EXPECT_EQ(Game("Track.bin"), tests::GameFile("<Top/>"));
}

TEST_F(OpenGameFile, AnXmlFileIsShownInBothEditorsWithoutTheConverter) {
    const std::string path = NextPath(folder.Write("Game\\a.cost", "<Cost>caf\xE9</Cost>"));
    EXPECT_TRUE(OpenXmlFile(rig.context));
    EXPECT_EQ(rig.view.EditorText(), "<Cost>café</Cost>");
    EXPECT_EQ(rig.view.FilePath(), path);
    EXPECT_EQ(rig.document.path, path);
    EXPECT_FALSE(rig.session.UseCommandFile);
    EXPECT_FALSE(rig.session.RSFileLoaded);
    EXPECT_TRUE(rig.processes.starts.empty());
    EXPECT_THAT(TempNames(), ElementsAre());
}

TEST_F(OpenGameFile, AnXmlFileInTheTreeIsTheOneOfTheDialogWhenNoneWasOpenedBefore) {
    const std::string path = folder.Write("Game\\a.xml", "<A/>");
    rig.ui.filePaths = {path};
    EXPECT_TRUE(OpenXmlFileInTree(rig.context));
    EXPECT_EQ(rig.document.path, path);
    EXPECT_EQ(Tree(), "1:A()");
    EXPECT_EQ(rig.view.EditorText(), "<A/>");
    EXPECT_EQ(rig.view.FilePath(), "");
    EXPECT_EQ(rig.session.CommandFile, "");
    EXPECT_TRUE(rig.document.canSaveAs);
}

TEST_F(OpenGameFile, AnXmlFileInTheTreeGivesWayToTheFileOpenedBefore) {
    const std::string first = NextPath(folder.Write("Game\\first.xml", "<First/>"));
    OpenXmlFile(rig.context);
    rig.ui.filePaths = {folder.Write("Game\\second.xml", "<Second/>")};
    EXPECT_TRUE(OpenXmlFileInTree(rig.context));
    EXPECT_EQ(rig.document.path, first);
    EXPECT_EQ(Tree(), "1:First()");
    EXPECT_EQ(rig.view.EditorText(), "<First/>");
}

TEST_F(OpenGameFile, AnXmlFileInTheTreeLeavesUseCommandFileAsItIs) {
    NextPath(folder.Write("Game\\first.xml", "<First/>"));
    EXPECT_TRUE(OpenXmlFileInTree(rig.context));
    EXPECT_TRUE(rig.session.UseCommandFile);
    EXPECT_TRUE(OpenXmlFileInTree(rig.context)); // and again without a dialog
    EXPECT_TRUE(rig.ui.FileDialogs().empty());
}

TEST_F(OpenGameFile, AnXmlFileInTheTreeAsksAboutUnsavedChanges) {
    NextPath(folder.Write("Game\\first.xml", "<First/>"));
    OpenXmlFile(rig.context);
    editors::SetModified(rig.context, true);
    rig.ui.filePaths = {folder / "Game\\first.xml"};
    rig.ui.answers = {Answer::Cancel};
    EXPECT_FALSE(OpenXmlFileInTree(rig.context));
    EXPECT_TRUE(rig.document.isModified);
}

TEST_F(OpenGameFile, UnsavedTextMakesRoomInRecovered) {
    NextFile("Track.bin", "<Top/>");
    OpenRailSimFile(rig.context);
    rig.view.TypeText("<Top>typed</Top>");
    NextFile("Other.bin", "<Other/>");
    OpenRailSimFile(rig.context);
    EXPECT_EQ(rig.view.EditorText(), "<Other/>");
    EXPECT_EQ(Temp("Recovered\\Other.xml"), "<Top>typed</Top>");
    EXPECT_THAT(rig.ui.StatusLines(),
                ElementsAre("The text that was not saved is kept in " +
                            platform::ForDisplay(folder / "Kit\\TempFiles\\Recovered\\Other.xml")));
}

TEST_F(OpenGameFile, AnUnsavedDocumentMakesRoomInRecoveredWhereNothingIsAsked) {
    NextFile("Track.bin", "<Top/>");
    OpenRailSimFileInTree(rig.context);
    rig.document.document.SetCharacters(rig.document.document.Top(), "typed");
    editors::SetModified(rig.context, true);
    NextPath(folder.Write("Game\\a.xml", "<A/>"));
    OpenXmlFile(rig.context);
    EXPECT_EQ(Tree(), "1:A()");
    EXPECT_EQ(Temp("Recovered\\Track.xml"), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<Top>typed</Top>\r\n");
}

TEST_F(OpenGameFile, TakesUnicodeNames) {
    const std::string path = NextFile("Züge – Поезд 🚂.XSec", "<Top>x</Top>");
    EXPECT_TRUE(OpenRailSimFile(rig.context));
    EXPECT_EQ(rig.view.FilePath(), path);
    EXPECT_EQ(rig.view.EditorText(), "<Top>x</Top>");
    EXPECT_THAT(TempNames(), ElementsAre("Züge – Поезд 🚂.bin", "Züge – Поезд 🚂.xml"));
}

TEST_F(OpenGameFile, TakesLongPaths) {
    std::string name;
    while (name.size() < 300)
        name += "a folder with a long name\\";
    const std::string path = NextFile(name + "Track.bin", "<Top>x</Top>");
    EXPECT_GT(path.size(), 300U);
    EXPECT_TRUE(OpenRailSimFile(rig.context));
    EXPECT_EQ(rig.view.EditorText(), "<Top>x</Top>");
}

} // namespace
} // namespace tamarind::convert
