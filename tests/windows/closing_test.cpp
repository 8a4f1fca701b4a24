#include "windows/editor_window.h"

#include <wx/textctrl.h>

namespace tamarind::tests {
namespace {

using platform::ForDisplay;
using platform::FromWx;

const ExpectedDialogs::MessageBox kSaveChanges{.text = "The file has been modified, do you wish to save the changes?",
                                               .title = "File Modified",
                                               .style = wxICON_QUESTION | wxYES_NO | wxCANCEL};
constexpr const char* kHeader = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n";

class Closing : public EditorWindow {
protected:
    void OpenAndChange() {
        track_ = WriteGameFile("Track.XSec", "<Track>1</Track>");
        OpenWithTreeEditor(track_);
        ClickRow(Tree().GetRootItem());
        Find<wxTextCtrl>("txtCharacters").SetValue("2");
    }

    std::string track_;
};

TEST_F(Closing, AsksNothingWhenNothingWasChanged) {
    OpenWithTreeEditor(WriteGameFile("Track.XSec", "<Track>1</Track>"));
    Close();
}

TEST_F(Closing, SavesTheGameFileWithTheAnswerYes) {
    OpenAndChange();
    dialogs_.AnswerMessage(kSaveChanges, wxID_YES);
    Close();
    EXPECT_EQ(XmlOf(track_), std::string(kHeader) + "<Track>2</Track>\r\n");
    EXPECT_EQ(XmlOf(track_ + ".bak"), "<Track>1</Track>");
}

TEST_F(Closing, LeavesTheGameFileAloneWithTheAnswerNo) {
    OpenAndChange();
    dialogs_.AnswerMessage(kSaveChanges, wxID_NO);
    Close();
    EXPECT_EQ(XmlOf(track_), "<Track>1</Track>");
    EXPECT_FALSE(Exists(track_ + ".bak"));
}

TEST_F(Closing, KeepsTheWindowOpenWithTheAnswerCancelYetWritesTheSettings) {
    OpenAndChange();
    files_->Remove(program_ + "\\preferences.txt");
    dialogs_.AnswerMessage(kSaveChanges, wxID_CANCEL);
    window_->Close();
    PumpFor(milliseconds(200));
    ASSERT_TRUE(window_);
    EXPECT_TRUE(Caption().ends_with("*"));
    EXPECT_TRUE(Exists(program_ + "\\preferences.txt"));
    dialogs_.AnswerMessage(kSaveChanges, wxID_NO);
    Close();
}

TEST_F(Closing, AsksForANameWhenTheDocumentHasNone) {
    OpenWithTreeEditor();
    ChooseNode("mnuNodePopUpNew");
    FinishLabel("Route");
    dialogs_.AnswerMessage(kSaveChanges, wxID_YES);
    dialogs_.ChooseFile({.title = "Select Filename to Save As...", .filter = "XML Files (*.xml)|*.xml", .save = true},
                        game_ + "\\route.xml");
    Close();
    EXPECT_EQ(ReadFile(game_ + "\\route.xml"), std::string(kHeader) + "<Route></Route>\r\n");
}

TEST_F(Closing, KeepsUnsavedTextOfTheTextEditor) {
    Open(WriteGameFile("Track.XSec", "<Track>1</Track>"));
    TypeText("<Track>never saved</Track>");
    Close();
    EXPECT_EQ(folder_.Read("Program\\TempFiles\\Recovered\\Track.xml"), "<Track>never saved</Track>");
}

class Waiting : public EditorWindow {
protected:
    /// Opens the track through the menu with a converter that needs a second and a half.
    void OpenSlowly(const std::string& track) {
        const Environment slow("TAMARIND_SERZ_DELAY_MS", "1500");
        session_.CommandFile = track;
        session_.UseCommandFile = true;
        Choose(session_.UsesTreeEditor() ? "mnuFileOpen" : "mnuOpenRS");
    }

    const ExpectedDialogs::FileBox dialog_{.title = "Open RailSim file",
                                           .filter = "RS Files(*.bin;*.XSec;*.GeoPcDx)|*.bin;*.XSec*;*.GeoPcDx"};
};

TEST_F(Waiting, LetsTheWindowLiveMeanwhile) {
    Open();
    const std::string track = WriteGameFile("Track.XSec", "<Track>1</Track>");
    bool typed = false;
    Later(milliseconds(500), [&] {
        Choose("mnuUXML");
        typed = true;
    });
    OpenSlowly(track);
    EXPECT_TRUE(typed);
    EXPECT_EQ(EditorText(), "<Track>1</Track>");
}

TEST_F(Waiting, ClosesTheWindowWhenTheCommandHasEnded) {
    Open();
    bool stoodAfterClose = false;
    Later(milliseconds(500), [&] {
        window_->Close();
        stoodAfterClose = window_ && EditorText().empty();
        EXPECT_EQ(Status(), "The window closes when the running command has ended.");
    });
    OpenSlowly(WriteGameFile("Track.XSec", "<Track>1</Track>"));
    EXPECT_TRUE(stoodAfterClose);
    EXPECT_EQ(EditorText(), "<Track>1</Track>");
    EXPECT_TRUE(PumpUntil([this] { return !window_; }));
}

TEST_F(Waiting, AsksAtTheSecondCloseWhetherToStopAHungConverterAndStopsIt) {
    Open();
    const Environment hung("TAMARIND_SERZ_HANG", "1");
    Later(milliseconds(500), [this] { window_->Close(); });
    dialogs_.AnswerMessage(
        {.text = "The outside program is still running. Stop it?", .style = wxICON_QUESTION | wxYES_NO}, wxID_NO);
    Later(milliseconds(1000), [this] { window_->Close(); });
    Later(milliseconds(1500), [this] {
        dialogs_.AnswerMessage(
            {.text = "The outside program is still running. Stop it?", .style = wxICON_QUESTION | wxYES_NO}, wxID_YES);
        window_->Close();
    });
    OpenSlowly(WriteGameFile("Track.XSec", "<Track>1</Track>"));
    EXPECT_TRUE(dialogs_.AllCame());
    EXPECT_TRUE(PumpUntil([this] { return !window_; }));
}

TEST_F(Waiting, RefusesToOpenTheFileThatIsBeingConverted) {
    Open();
    const std::string track = WriteGameFile("Track.XSec", "<Track>1</Track>");
    Later(milliseconds(500), [&] {
        dialogs_.ChooseFile(dialog_, track);
        dialogs_.AnswerMessage({.text = ForDisplay(track) + "\nhas to wait: a file of that name is being converted.",
                                .style = wxICON_EXCLAMATION | wxOK});
        Choose("mnuOpenRS");
    });
    OpenSlowly(track);
    EXPECT_EQ(EditorText(), "<Track>1</Track>");
}

TEST_F(Waiting, OpensAnotherFileMeanwhileAndEditsTheTree) {
    OpenWithTreeEditor(WriteGameFile("Old.XSec", "<Old><Child>1</Child><Second/></Old>"));
    const std::string other = WriteGameFile("Other.XSec", "<Other>1</Other>");
    bool edited = false;
    Later(milliseconds(300), [&] {
        ClickRow(Row(Tree().GetRootItem(), "Child"));
        ChooseNode("mnuNodePopUpDelete");
        // The editing of a row's name is still going on when the rows are replaced.
        ClickRow(Row(Tree().GetRootItem(), "Second"));
        ChooseNode("mnuNodePopupRename");
        edited = true;
    });
    // Asked when the new document takes the place of the changed one.
    dialogs_.AnswerMessage({.text = "The current file has been modified.\nDo you wish to saves these changes?",
                            .title = "Modified File",
                            .style = wxICON_QUESTION | wxYES_NO | wxCANCEL},
                           wxID_NO);
    OpenSlowly(other);
    EXPECT_TRUE(edited);
    EXPECT_EQ(FromWx(Tree().GetItemText(Tree().GetRootItem())), "Other");
    EXPECT_EQ(EditorText(), "<Other>1</Other>");
}

TEST_F(Waiting, SavesTheFileThatItBeganWithWhenAnotherIsOpenedMeanwhile) {
    const std::string first = WriteGameFile("First.XSec", "<First>1</First>");
    const std::string second = WriteGameFile("Second.XSec", "<Second>1</Second>");
    Open(first);
    TypeText("<First>2</First>");
    Later(milliseconds(500), [&] {
        dialogs_.ChooseFile(dialog_, second);
        Choose("mnuOpenRS");
    });
    {
        const Environment slow("TAMARIND_SERZ_DELAY_MS", "1500");
        Choose("mnuSaveRS");
    }
    EXPECT_EQ(XmlOf(first), "<First>2</First>");
    EXPECT_EQ(XmlOf(second), "<Second>1</Second>");
    EXPECT_EQ(EditorText(), "<Second>1</Second>");
}

class RunTimeError : public EditorWindow {};

TEST_F(RunTimeError, EndsTheWindowAndKeepsTheUnsavedText) {
    const std::string track = WriteGameFile("Track.XSec", "<Track>1</Track>");
    Open(track);
    TypeText("<Track>2</Track>");
    const Environment failing("TAMARIND_SERZ_FAIL", "1");
    const std::string recovered = program_ + "\\TempFiles\\Recovered\\Track.xml";
    dialogs_.AnswerMessage({.text = "Run-time error '53':\n\nFile not found\n\nThe converter did not write " +
                                    ForDisplay(program_ + "\\TempFiles\\Track.bin") +
                                    ". The game file is unchanged.\n\nThe text that was not saved is kept in " +
                                    ForDisplay(recovered) + "\n\nTamarind ends now.",
                            .style = wxICON_ERROR | wxOK});
    Choose("mnuSaveRS");
    EXPECT_TRUE(PumpUntil([this] { return !window_; }));
    EXPECT_EQ(ReadFile(recovered), "<Track>2</Track>");
    EXPECT_EQ(XmlOf(track), "<Track>1</Track>");
    EXPECT_FALSE(Exists(track + ".bak"));
}

} // namespace
} // namespace tamarind::tests
