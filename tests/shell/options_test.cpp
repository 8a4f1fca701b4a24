#include "shell/options.h"

#include "platform/myfile.h"
#include "platform/paths.h"
#include "support/editor_rig.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"
#include "text/runtime_error.h"

#include <gtest/gtest.h>

namespace tamarind::shell {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using session::Page;
using session::SessionEditor;

class Options : public testing::Test {
protected:
    void ExpectQuestion(const std::string& text) {
        ASSERT_EQ(rig.ui.Messages().size(), 1U);
        const platform::Message message = rig.ui.Messages()[0];
        EXPECT_EQ(message.text, text);
        EXPECT_EQ(message.icon, Icon::Exclamation);
        EXPECT_EQ(message.title, "Tamarind");
        EXPECT_EQ(message.buttons, Buttons::YesNo);
    }
    tests::MemoryFiles files;
    tests::EditorRig rig{files, "C:\\Kit"};
};

TEST_F(Options, SelectRailSimPathAsksFirst) {
    rig.session.RailSimPath = "C:\\Game";
    rig.ui.answers = {Answer::No};
    SelectRailSimPath(rig.context);
    ExpectQuestion("Use this option to select your Rail Simulator\r\npath.");
    EXPECT_TRUE(rig.ui.FileDialogs().empty());
    EXPECT_EQ(rig.session.RailSimPath, "C:\\Game");
}

TEST_F(Options, SelectRailSimPathTakesTheFolderOfTheChosenFile) {
    rig.ui.answers = {Answer::Yes};
    rig.ui.filePaths = {"C:\\Games\\Rail Simulator\\RailSim.exe"};
    SelectRailSimPath(rig.context);
    EXPECT_EQ(rig.session.RailSimPath, "C:\\Games\\Rail Simulator");
    ASSERT_EQ(rig.ui.FileDialogs().size(), 1U);
    const platform::FileDialog dialog = rig.ui.FileDialogs()[0];
    EXPECT_EQ(dialog.title, "Select your RailSim.exe File");
    EXPECT_EQ(dialog.filter, "RailSim Files (*.exe)|*.exe");
    EXPECT_FALSE(dialog.save);
}

TEST_F(Options, SelectRailSimPathAppendsToTheCaptionEachTime) {
    rig.view.SetCaption("Caption");
    rig.ui.answers = {Answer::Yes, Answer::Yes};
    rig.ui.filePaths = {"C:\\One\\RailSim.exe", "C:\\Two\\RailSim.exe"};
    SelectRailSimPath(rig.context);
    SelectRailSimPath(rig.context);
    const std::string segment = "  Version " TAMARIND_VERSION "   Rail Simulator path in use is - ";
    EXPECT_EQ(rig.view.Caption(),
              "Caption" + segment + platform::ForDisplay("C:\\One") + segment + platform::ForDisplay("C:\\Two"));
}

TEST_F(Options, CancellingSelectRailSimPathEmptiesThePathAndKeepsTheCaption) {
    rig.session.RailSimPath = "C:\\Game";
    rig.view.SetCaption("Caption");
    rig.ui.answers = {Answer::Yes};
    rig.ui.filePaths = {""};
    SelectRailSimPath(rig.context);
    EXPECT_EQ(rig.session.RailSimPath, "");
    EXPECT_EQ(rig.view.Caption(), "Caption");
}

TEST_F(Options, SelectDefaultEditorTakesTheTreeOnYes) {
    rig.ui.answers = {Answer::Yes};
    SelectDefaultEditor(rig.context);
    ExpectQuestion("Do you wish to use the .XML editor as your Default Editor?");
    EXPECT_TRUE(rig.session.XmlEditorDefault);
    EXPECT_EQ(rig.view.page, Page::Tree);
}

TEST_F(Options, SelectDefaultEditorTakesTheTextOnNo) {
    rig.session.XmlEditorDefault = true;
    rig.view.page = Page::Tree;
    rig.ui.answers = {Answer::No};
    SelectDefaultEditor(rig.context);
    EXPECT_FALSE(rig.session.XmlEditorDefault);
    EXPECT_EQ(rig.view.page, Page::Text);
}

TEST_F(Options, TheEditorForThisSessionLeavesTheDefaultAlone) {
    UseXmlEditor(rig.context);
    EXPECT_EQ(rig.session.SessionEditor, SessionEditor::Tree);
    EXPECT_EQ(rig.view.page, Page::Tree);
    EXPECT_EQ(rig.ui.EventRounds(), 1);
    UseTamarindEditor(rig.context);
    EXPECT_EQ(rig.session.SessionEditor, SessionEditor::Text);
    EXPECT_EQ(rig.view.page, Page::Text);
    EXPECT_FALSE(rig.session.XmlEditorDefault);
    EXPECT_TRUE(rig.ui.Messages().empty());
}

TEST_F(Options, SelectTextureEditorTakesWhatWasChosen) {
    rig.ui.filePaths = {"C:\\Paint\\paint.exe", ""};
    SelectTextureEditor(rig.context);
    EXPECT_EQ(rig.session.TextureEditorPath, "C:\\Paint\\paint.exe");
    EXPECT_EQ(rig.ui.FileDialogs().at(0).title, "Select your Graphics Editor");
    EXPECT_EQ(rig.ui.FileDialogs().at(0).filter, "Graphics Editor (*.exe)|*.exe");
    SelectTextureEditor(rig.context); // cancelled
    EXPECT_EQ(rig.session.TextureEditorPath, "");
}

TEST_F(Options, SelectViewerTakesWhatWasChosen) {
    rig.ui.filePaths = {"C:\\View\\view.exe", ""};
    SelectViewer(rig.context);
    EXPECT_EQ(rig.session.ViewerPath, "C:\\View\\view.exe");
    EXPECT_EQ(rig.ui.FileDialogs().at(0).title, "Select your Graphics Viewer");
    EXPECT_EQ(rig.ui.FileDialogs().at(0).filter, "Viewer (*.exe)|*.exe");
    SelectViewer(rig.context); // cancelled
    EXPECT_EQ(rig.session.ViewerPath, "");
}

TEST_F(Options, ViewDdsFileNeedsAViewer) {
    ViewDdsFile(rig.context);
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    EXPECT_EQ(rig.ui.Messages()[0].text,
              "To view DDS files you need to install a suitable Texture viewer (e.g. IrfanView) on your PC \r\nand "
              "select the path from the Options menu.");
    EXPECT_EQ(rig.ui.Messages()[0].icon, Icon::Exclamation);
    EXPECT_TRUE(rig.processes.starts.empty());
}

TEST_F(Options, EditDdsFileNeedsAnEditor) {
    rig.session.ViewerPath = "C:\\view.exe";
    EditDdsFile(rig.context);
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    EXPECT_EQ(rig.ui.Messages()[0].text,
              "To edit DDS files you need to install a suitable paint program (e.g. PSP with .dds plugin) on your PC "
              "\r\nand select the path from the Options menu.");
    EXPECT_EQ(rig.ui.Messages()[0].icon, Icon::Exclamation);
    EXPECT_TRUE(rig.processes.starts.empty());
}

TEST_F(Options, ViewAndEditDdsFileRunTheirProgramsAndWait) {
    rig.session.ViewerPath = "C:\\Some Folder\\view.exe";
    rig.session.TextureEditorPath = "C:\\paint.exe";
    rig.session.FileBaseName = "Wall.";
    rig.processes.looksBeforeEnd = 3;
    ViewDdsFile(rig.context);
    EXPECT_EQ(rig.ui.EventRounds(), 4);
    EditDdsFile(rig.context);
    ASSERT_EQ(rig.processes.starts.size(), 2U);
    EXPECT_EQ(rig.processes.starts[0].commandLine, "\"C:\\Some Folder\\view.exe\" \"C:\\Kit\\TempFiles\\Wall.dds\"");
    EXPECT_EQ(rig.processes.starts[0].style, platform::WindowStyle::NormalFocus);
    EXPECT_EQ(rig.processes.starts[1].commandLine, "\"C:\\paint.exe\" \"C:\\Kit\\TempFiles\\Wall.dds\"");
}

TEST_F(Options, ViewAndEditDdsFileTellNothingOfAProgramThatCannotBeStarted) {
    rig.session.ViewerPath = "C:\\gone.exe";
    rig.session.TextureEditorPath = "C:\\picture.exe";
    for (const auto number : {text::ErrorNumber::FileNotFound, text::ErrorNumber::PermissionDenied}) {
        rig.processes.run = [number](const platform::ProcessStart&) { throw text::RuntimeError(number); };
        ViewDdsFile(rig.context);
        EditDdsFile(rig.context);
    }
    EXPECT_EQ(rig.processes.starts.size(), 4U);
    EXPECT_TRUE(rig.ui.Everything().empty());
}

TEST_F(Options, ClearScreenEmptiesTheTextAndTheFileName) {
    files.folders = {"C:\\Kit", "C:\\Kit\\TempFiles"};
    rig.session.TempBase = "C:\\Kit\\TempFiles\\Wall.";
    rig.view.SetEditorText("text");
    rig.view.ShowFilePath("C:\\Game\\Wall.TgPcDx");
    ClearScreen(rig.context);
    EXPECT_EQ(rig.view.EditorText(), "");
    EXPECT_EQ(rig.view.FilePath(), "");
    EXPECT_TRUE(rig.ui.Everything().empty());
}

TEST_F(Options, ClearScreenKeepsUnsavedText) {
    files.folders = {"C:\\Kit", "C:\\Kit\\TempFiles"};
    rig.session.FileBaseName = "Wall.";
    rig.view.TypeText("typed");
    ClearScreen(rig.context);
    EXPECT_EQ(rig.view.EditorText(), "");
    EXPECT_EQ(platform::ReadBytes(files, "C:\\Kit\\TempFiles\\Recovered\\Wall.xml"), "typed");
    ASSERT_EQ(rig.ui.StatusLines().size(), 1U);
}

TEST_F(Options, ClearTempFilesEmptiesTheFolder) {
    files.folders = {"C:\\Kit", "C:\\Kit\\TempFiles"};
    files.contents["C:\\Kit\\TempFiles\\Wall.xml"] = "text";
    ClearTempFiles(rig.context);
    EXPECT_TRUE(files.IsFolder("C:\\Kit\\TempFiles"));
    EXPECT_TRUE(files.List("C:\\Kit\\TempFiles").empty());
    EXPECT_EQ(rig.ui.EventRounds(), 1);
    EXPECT_TRUE(rig.ui.Everything().empty());
}

TEST_F(Options, ClearTempFilesMakesAMissingFolder) {
    files.folders = {"C:\\Kit"};
    ClearTempFiles(rig.context);
    EXPECT_TRUE(files.IsFolder("C:\\Kit\\TempFiles"));
}

TEST_F(Options, ClearTempFilesDeletesReadOnlyFilesToo) {
    files.folders = {"C:\\Kit", "C:\\Kit\\TempFiles"};
    files.contents["C:\\Kit\\TempFiles\\Wall.xml"] = "text";
    files.readOnly = {"C:\\Kit\\TempFiles\\Wall.xml"};
    ClearTempFiles(rig.context);
    EXPECT_TRUE(files.List("C:\\Kit\\TempFiles").empty());
    EXPECT_TRUE(rig.ui.Everything().empty());
}

TEST_F(Options, ClearTempFilesEndsWithoutAMessageAtALockedFile) {
    files.folders = {"C:\\Kit", "C:\\Kit\\TempFiles"};
    files.contents["C:\\Kit\\TempFiles\\Wall.xml"] = "text";
    tests::FaultyFiles locked(files, {.at = 1, .kind = tests::FaultKind::AccessDenied, .forever = true});
    tests::EditorRig held{locked, "C:\\Kit"};
    ClearTempFiles(held.context);
    EXPECT_EQ(files.contents["C:\\Kit\\TempFiles\\Wall.xml"], "text");
    EXPECT_TRUE(held.ui.Everything().empty());
}

TEST_F(Options, ClearTempFilesTellsWhenTheFolderCannotBeMade) {
    files.folders = {"C:\\Kit"};
    files.contents["C:\\Kit\\TempFiles"] = "a file in its place";
    ClearTempFiles(rig.context);
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    EXPECT_NE(rig.ui.MessageTexts()[0].find("TempFiles"), std::string::npos);
}

TEST_F(Options, MakeGameFilesWritableRunsOneCommandInTempFiles) {
    files.folders = {"C:\\Kit", "C:\\Kit\\TempFiles"};
    rig.session.RailSimPath = "C:\\Games\\Rail Simulator";
    int busyDepth = 0;
    rig.processes.run = [&](const platform::ProcessStart&) { busyDepth = rig.ui.BusyDepth(); };
    MakeGameFilesWritable(rig.context);
    EXPECT_EQ(platform::ReadBytes(files, "C:\\Kit\\TempFiles\\do_read.bat"),
              "ATTRIB -R \"C:\\Games\\Rail Simulator\\*.*\" /s /d\r\n");
    ASSERT_EQ(rig.processes.starts.size(), 1U);
    EXPECT_EQ(rig.processes.starts[0].commandLine, "do_read.bat");
    EXPECT_EQ(rig.processes.starts[0].folder, "C:\\Kit\\TempFiles");
    EXPECT_EQ(rig.processes.starts[0].style, platform::WindowStyle::NormalFocus);
    EXPECT_EQ(busyDepth, 1);
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    EXPECT_EQ(rig.ui.Messages()[0].text, "All files are now Read/Write");
    EXPECT_EQ(rig.ui.Messages()[0].icon, Icon::Exclamation);
}

TEST_F(Options, MakeGameFilesWritableTellsTheSameWhenTheCommandCannotRun) {
    files.folders = {"C:\\Kit", "C:\\Kit\\TempFiles"};
    rig.session.RailSimPath = "C:\\Game";
    rig.processes.run = [](const platform::ProcessStart&) {
        throw text::RuntimeError(text::ErrorNumber::FileNotFound);
    };
    MakeGameFilesWritable(rig.context);
    EXPECT_EQ(rig.ui.MessageTexts(), std::vector<std::string>{"All files are now Read/Write"});
}

TEST_F(Options, MakeGameFilesWritableTellsWhenTempFilesIsMissing) {
    files.folders = {"C:\\Kit"};
    rig.session.RailSimPath = "C:\\Game";
    MakeGameFilesWritable(rig.context);
    EXPECT_TRUE(rig.processes.starts.empty());
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    EXPECT_NE(rig.ui.MessageTexts()[0], "All files are now Read/Write");
    EXPECT_EQ(rig.ui.BusyDepth(), 0);
}

TEST_F(Options, MakeGameFilesWritableNeverRunsOnAWholeDrive) {
    files.folders = {"C:\\Kit", "C:\\Kit\\TempFiles"};
    MakeGameFilesWritable(rig.context);
    EXPECT_TRUE(rig.processes.starts.empty());
    EXPECT_EQ(rig.ui.MessageTexts(),
              std::vector<std::string>{"Please select the RS path from the Options menu first."});
}

TEST_F(Options, ContentsAndAboutAreShown) {
    ShowContents(rig.context);
    ShowAbout(rig.context);
    EXPECT_EQ(rig.view.calls, (std::vector<std::string>{"ShowHelp C:\\Kit\\Tamarind.chm", "ShowAbout"}));
    EXPECT_TRUE(rig.ui.Everything().empty());
}

TEST_F(Options, ContentsTellsThatTheHelpFileIsMissing) {
    rig.view.hasHelp = false;
    ShowContents(rig.context);
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    EXPECT_EQ(rig.ui.Messages()[0].text,
              "The help file was not found:\r\n" + platform::ForDisplay("C:\\Kit\\Tamarind.chm"));
    EXPECT_EQ(rig.ui.Messages()[0].icon, Icon::Exclamation);
}

TEST_F(Options, ContentsTellsThatTheHelpFileCannotBeShown) {
    files.folders = {"C:\\Kit"};
    files.contents["C:\\Kit\\Tamarind.chm"] = "pages";
    rig.view.hasHelp = false;
    ShowContents(rig.context);
    EXPECT_EQ(rig.ui.MessageTexts(), std::vector<std::string>{"The help file cannot be shown:\r\n" +
                                                              platform::ForDisplay("C:\\Kit\\Tamarind.chm")});
}

} // namespace
} // namespace tamarind::shell
