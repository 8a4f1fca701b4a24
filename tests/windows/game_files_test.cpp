#include "windows/editor_window.h"

#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace tamarind::tests {
namespace {

using platform::ForDisplay;
using platform::FromWx;

constexpr const char* kTrack = "<Track><Gauge Unit=\"mm\">1435</Gauge><Sleeper>Oak</Sleeper></Track>";
const ExpectedDialogs::FileBox kOpenGameFile{.title = "Open RailSim file",
                                             .filter = "RS Files(*.bin;*.XSec;*.GeoPcDx)|*.bin;*.XSec*;*.GeoPcDx"};

class GameFiles : public EditorWindow {
protected:
    /// The dialog of an open command, in the game folder.
    ExpectedDialogs::FileBox InGameFolder(ExpectedDialogs::FileBox box) {
        box.folder = game_;
        return box;
    }
};

TEST_F(GameFiles, AreOpenedEditedAndSavedInTheTextEditor) {
    const std::string track = WriteGameFile("Track.XSec", kTrack);
    Open();
    dialogs_.ChooseFile(InGameFolder(kOpenGameFile), track);
    Choose("mnuOpenRS");
    EXPECT_EQ(EditorText(), kTrack);
    EXPECT_EQ(FromWx(Find<wxTextCtrl>("Text1").GetValue()), platform::ToNative(track));
    EXPECT_EQ(FromWx(Find<wxStaticText>("Label2").GetLabelText()), platform::ToNative(track));
    EXPECT_TRUE(Exists(program_ + "\\TempFiles\\Track.bin"));
    EXPECT_TRUE(Exists(program_ + "\\TempFiles\\Track.xml"));

    TypeText("<Track><Gauge Unit=\"mm\">1067</Gauge></Track>");
    Choose("mnuSaveRS");
    EXPECT_EQ(XmlOf(track), "<Track><Gauge Unit=\"mm\">1067</Gauge></Track>");
    EXPECT_EQ(XmlOf(track + ".bak"), kTrack);
    EXPECT_TRUE(Exists(program_ + "\\TempFiles\\Track.XSec"));
    EXPECT_FALSE(Exists(program_ + "\\TempFiles\\Track.bin"));
    EXPECT_EQ(Status(), "Saved " + ForDisplay(track) + ", old content in " + ForDisplay(track + ".bak"));
}

TEST_F(GameFiles, AreOpenedEditedAndSavedInTheTreeEditor) {
    const std::string track = WriteGameFile("Track.XSec", kTrack);
    OpenWithTreeEditor();
    dialogs_.ChooseFile(InGameFolder(kOpenGameFile), track);
    Choose("mnuFileOpen");
    EXPECT_EQ(EditorText(), kTrack);
    const wxTreeItemId top = Tree().GetRootItem();
    EXPECT_EQ(FromWx(Tree().GetItemText(top)), "Track");
    EXPECT_EQ(RowTexts(top), (std::vector<std::string>{"Gauge", "Sleeper"}));

    ClickRow(Row(top, "Gauge"));
    ClickAttribute(0);
    Find<wxTextCtrl>("txtAttributeValue").SetValue("inch");
    Find<wxTextCtrl>("txtCharacters").SetValue("56.5");
    Choose("mnuFileSave");
    EXPECT_EQ(XmlOf(track), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n"
                            "<Track>\r\n"
                            " <Gauge Unit=\"inch\">56.5</Gauge>\r\n"
                            " <Sleeper>Oak</Sleeper>\r\n"
                            "</Track>\r\n");
    EXPECT_EQ(XmlOf(track + ".bak"), kTrack);
}

TEST_F(GameFiles, GetANumberedBackupWithTheSecondSave) {
    const std::string track = WriteGameFile("Track.XSec", "<Track>1</Track>");
    Open(track);
    TypeText("<Track>2</Track>");
    Choose("mnuSaveRS");
    TypeText("<Track>3</Track>");
    Choose("mnuSaveRS");
    EXPECT_EQ(XmlOf(track), "<Track>3</Track>");
    EXPECT_EQ(XmlOf(track + ".bak"), "<Track>1</Track>");
    EXPECT_EQ(XmlOf(track + ".bak1"), "<Track>2</Track>");
}

TEST_F(GameFiles, StayAsTheyAreWhenTheOpenDialogIsCancelled) {
    Open(WriteGameFile("Track.XSec", kTrack));
    dialogs_.CancelFile(InGameFolder(kOpenGameFile));
    const std::string caption = Caption();
    Choose("mnuOpenRS");
    EXPECT_EQ(EditorText(), kTrack);
    EXPECT_EQ(Caption(), caption);
    EXPECT_EQ(session_.FileBaseName, "Track.");
}

TEST_F(GameFiles, TakeAnyUnicodeName) {
    // "Gleis", a Japanese word for rail, and a sign beyond the first 65,536.
    const std::string track =
        WriteGameFile("Gleis \xC3\xA4 \xE3\x83\xAC\xE3\x83\xBC\xE3\x83\xAB \xF0\x9F\x9A\x82.XSec", "<Track>1</Track>");
    OpenWithTreeEditor();
    dialogs_.ChooseFile(InGameFolder(kOpenGameFile), track);
    Choose("mnuFileOpen");
    EXPECT_EQ(FromWx(Find<wxTextCtrl>("Text1").GetValue()), platform::ToNative(track));
    ClickRow(Tree().GetRootItem());
    Find<wxTextCtrl>("txtCharacters").SetValue("2");
    Choose("mnuFileSave");
    EXPECT_EQ(XmlOf(track), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<Track>2</Track>\r\n");
    EXPECT_EQ(XmlOf(track + ".bak"), "<Track>1</Track>");
}

TEST_F(GameFiles, ShowTexturesThroughADialogOfTheirOwn) {
    const std::string brick = WriteGameFile("Brick.TgPcDx", "<Texture/>");
    Open();
    dialogs_.ChooseFile(InGameFolder({.title = "Open RS Texture files", .filter = "RS Files (*.TgPcDx)|*.TgPcDx"}),
                        brick);
    Choose("mnuOpenTex");
    EXPECT_EQ(EditorText(), "<Texture/>");
    EXPECT_EQ(session_.RSFileExt, "");
}

TEST_F(GameFiles, SayInPlainWordsThatTheConverterWroteNothing) {
    const std::string track = WriteGameFile("Track.XSec", kTrack);
    const Environment failing("TAMARIND_SERZ_FAIL", "1");
    Open(track);
    EXPECT_EQ(EditorText(), "");
    EXPECT_EQ(Status(), "The converter wrote nothing: there is no text to show.");
}

TEST_F(GameFiles, ShowTheTextOfAnEarlierConversionWhenTheConverterFails) {
    const std::string track = WriteGameFile("Track.XSec", kTrack);
    Open(track);
    const Environment failing("TAMARIND_SERZ_FAIL", "1");
    dialogs_.ChooseFile(kOpenGameFile, track);
    Choose("mnuOpenRS");
    EXPECT_EQ(EditorText(), kTrack);
    EXPECT_EQ(Status(), "The converter wrote nothing: the text shown is from an earlier conversion.");
}

class XmlFiles : public EditorWindow {
protected:
    const ExpectedDialogs::FileBox openText_{
        .title = "Open .xml file", .filter = "XML Files (*.xml;*.cost;*.tgt)|*.xml;*.cost;*.tgt", .folder = game_};
    const ExpectedDialogs::FileBox openTree_{.title = "Select file to load", .filter = "XML Files (*.xml)|*.xml"};
};

TEST_F(XmlFiles, FillBothEditorsFromTheTextEditorsMenu) {
    const std::string file = folder_.Write("Rail Simulator\\a.tgt", "<Target><Size/></Target>");
    Open();
    dialogs_.ChooseFile(openText_, file);
    Choose("mnuXML");
    EXPECT_EQ(EditorText(), "<Target><Size/></Target>");
    EXPECT_EQ(RowTexts(Tree().GetRootItem()), std::vector<std::string>{"Size"});
}

TEST_F(XmlFiles, AreSavedFromTheTreeWithoutADialog) {
    const std::string file = folder_.Write("Rail Simulator\\a.xml", "<A>1</A>");
    OpenWithTreeEditor();
    dialogs_.ChooseFile(openTree_, file);
    Choose("mnuOpenXCT");
    ClickRow(Tree().GetRootItem());
    Find<wxTextCtrl>("txtCharacters").SetValue("2");
    Choose("mnuSaveXCT");
    EXPECT_EQ(ReadFile(file), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<A>2</A>\r\n");
}

TEST_F(XmlFiles, AreSavedFromTheTextEditorUnderTheChosenName) {
    Open();
    TypeText("<A/>");
    dialogs_.ChooseFile({.title = "Save .xml format files",
                         .filter = "xml Files (*.xml;*.cost;*.tgt)|*.xml;*.cost;*.tgt",
                         .folder = session_.TempFiles(),
                         .save = true},
                        game_ + "\\new.cost");
    Choose("mnuSavexml");
    EXPECT_EQ(ReadFile(game_ + "\\new.cost"), "<A/>");
    dialogs_.ChooseFile({.title = "Save KRS format files",
                         .filter = "KRS Files (*.*)|*.*",
                         .folder = session_.TempFiles(),
                         .save = true},
                        game_ + "\\new.krs");
    Choose("mnuSaveAs");
    EXPECT_EQ(ReadFile(game_ + "\\new.krs"), "<A/>");
}

TEST_F(XmlFiles, AreOverwrittenBySaveAsOnlyAfterAQuestion) {
    const std::string other = folder_.Write("Rail Simulator\\b.xml", "old");
    OpenWithTreeEditor(folder_.Write("Rail Simulator\\a.xml", "<A/>"));
    const ExpectedDialogs::FileBox saveAs{
        .title = "Select Filename to Save As...", .filter = "XML Files (*.xml)|*.xml", .save = true};
    const ExpectedDialogs::MessageBox question{
        .text = "A file by that name already exists. Do you wish\nto overwrite the file?",
        .title = "File Already Exists",
        .style = wxICON_QUESTION | wxYES_NO};
    dialogs_.ChooseFile(saveAs, other);
    dialogs_.AnswerMessage(question, wxID_NO);
    Choose("mnuFileSaveAs");
    EXPECT_EQ(ReadFile(other), "old");

    dialogs_.ChooseFile(saveAs, other);
    dialogs_.AnswerMessage(question, wxID_YES);
    Choose("mnuFileSaveAs");
    EXPECT_EQ(ReadFile(other), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<A></A>\r\n");
}

TEST_F(XmlFiles, ThatAreMalformedAreShownAsTextWithTheLineAndColumnAndAnEmptyTree) {
    const std::string good = folder_.Write("Rail Simulator\\good.xml", "<A><B/></A>");
    const std::string bad = folder_.Write("Rail Simulator\\bad.xml", "<A>\n <B></C>\n</A>");
    Open();
    dialogs_.ChooseFile(openText_, good);
    Choose("mnuXML");
    ASSERT_EQ(Tree().GetCount(), 2U);
    dialogs_.ChooseFile(openText_, bad);
    // The reader stands behind "</" of the wrong end tag.
    dialogs_.AnswerMessage({.text = ForDisplay(bad) + "\ncannot be read as XML: mismatched tag.\nLine 2, column 7.",
                            .style = wxICON_EXCLAMATION | wxOK});
    Choose("mnuXML");
    EXPECT_EQ(EditorText(), "<A>\n <B></C>\n</A>");
    EXPECT_EQ(Tree().GetCount(), 0U);
    EXPECT_TRUE(window_);
}

} // namespace
} // namespace tamarind::tests
