#include "windows/keyboard.h"

#include <wx/checkbox.h>
#include <wx/clipbrd.h>
#include <wx/stc/stc.h>
#include <wx/textctrl.h>
#include <wx/tooltip.h>

#include <ctime>

namespace tamarind::tests {
namespace {

using platform::FromWx;
using platform::ToWx;

constexpr const char* kRows = "<Line><Mark>a halt</Mark><Group><Marker>halt</Marker></Group><Stop>Halt</Stop></Line>";

class SearchFrame : public Keyboard {
protected:
    void OpenRows() { OpenWithTreeEditor(folder_.Write("Rail Simulator\\rows.xml", kRows)); }
    void LookFor(const std::string& text) { Find<wxTextCtrl>("Text2").SetValue(ToWx(text)); }
    void PutInstead(const std::string& text) { Find<wxTextCtrl>("Text3").SetValue(ToWx(text)); }
    /// Answers the question whether to go on, and tells which row was selected then.
    void ExpectFound(const std::string& row, bool goesOn) {
        dialogs_.UseDialog("dlgFind", [this, row, goesOn](wxDialog& dialog) {
            EXPECT_EQ(FromWx(Tree().GetItemText(Tree().GetSelection())), row);
            EXPECT_TRUE(Tree().IsBold(Tree().GetSelection()));
            Press(*dialog.FindWindow(goesOn ? wxID_FIND : wxID_OK));
        });
    }
    void ExpectNotFound() { dialogs_.AnswerMessage({.text = "Not found", .style = wxICON_NONE | wxOK}); }
    wxTreeItemId Top() { return Tree().GetRootItem(); }
    wxTreeItemId Marker() { return Row(Row(Top(), "Group"), "Marker"); }
};

TEST_F(SearchFrame, FindsRowAfterRowAndTellsAtTheEnd) {
    OpenRows();
    LookFor("MARK");
    ExpectFound("Mark", true);
    ExpectFound("Marker", true);
    ExpectNotFound();
    Press(Find("Command2"));
    EXPECT_TRUE(dialogs_.AllCame());
}

TEST_F(SearchFrame, StopsOnOkAndGoesOnWithTheNextClick) {
    OpenRows();
    LookFor("mark");
    ExpectFound("Mark", false);
    Press(Find("Command2"));
    EXPECT_EQ(FromWx(Find<wxTextCtrl>("txtCharacters").GetValue()), "a halt");
    ExpectFound("Marker", false);
    Press(Find("Command2"));
    EXPECT_TRUE(Tree().IsBold(Row(Top(), "Mark")));
    LookFor("Stop");
    ExpectFound("Stop", false);
    Press(Find("Command2"));
    EXPECT_FALSE(Tree().IsBold(Row(Top(), "Mark")));
    EXPECT_FALSE(Tree().IsBold(Marker()));
}

TEST_F(SearchFrame, FindsWholeWordsOnly) {
    OpenRows();
    LookFor("mark");
    Find<wxCheckBox>("Check1").SetValue(true);
    Press(Find("Command3"));
    EXPECT_TRUE(Tree().IsBold(Row(Top(), "Mark")));
    EXPECT_FALSE(Marker().IsOk() && Tree().IsBold(Marker()));
}

TEST_F(SearchFrame, FindAllShowsAllInBoldAndSelectsTheLast) {
    OpenRows();
    LookFor("mark");
    Press(Find("Command3"));
    EXPECT_TRUE(Tree().IsBold(Row(Top(), "Mark")));
    ASSERT_TRUE(Marker().IsOk());
    EXPECT_TRUE(Tree().IsBold(Marker()));
    EXPECT_TRUE(Tree().IsSelected(Marker()));
    EXPECT_FALSE(Tree().IsBold(Row(Top(), "Stop")));
    EXPECT_EQ(FromWx(Find<wxTextCtrl>("txtCharacters").GetValue()), "halt");
}

TEST_F(SearchFrame, FindsInTheTextsOfElements) {
    OpenRows();
    LookFor("halt");
    ExpectFound("Mark", true);
    ExpectFound("Marker", true);
    ExpectFound("Stop", false);
    Press(Find("Command4"));
    EXPECT_EQ(FromWx(Find<wxTextCtrl>("txtCharacters").GetValue()), "Halt");
}

TEST_F(SearchFrame, ReplacesInTheShownText) {
    OpenRows();
    ClickRow(Row(Top(), "Mark"));
    LookFor("HALT");
    PutInstead("bend");
    Press(Find("Command5"));
    EXPECT_EQ(FromWx(Find<wxTextCtrl>("txtCharacters").GetValue()), "a bend");
    EXPECT_TRUE(Caption().ends_with("*"));
    EXPECT_EQ(window_->Context().document.SelectedNode->NodeCharacters, "a bend");
}

TEST_F(SearchFrame, WantsSomethingToPutInstead) {
    OpenRows();
    LookFor("halt");
    for (const char* button : {"Command5", "Command6"}) {
        dialogs_.AnswerMessage(
            {.text = "You have not entered anything in the Replace box?", .style = wxICON_EXCLAMATION | wxOK});
        Press(Find(button));
    }
    EXPECT_FALSE(Caption().ends_with("*"));
}

TEST_F(SearchFrame, ReplacesInAllTextsAndTakesItBackWithOneKey) {
    OpenRows();
    LookFor("halt");
    PutInstead("bend");
    Press(Find("Command6"));
    EXPECT_EQ(FromWx(Find<wxTextCtrl>("txtCharacters").GetValue()), "bend");
    Choose("mnuSaveXCT");
    const std::string saved = ReadFile(game_ + "\\rows.xml");
    EXPECT_NE(saved.find("<Mark>a bend</Mark>"), std::string::npos);
    EXPECT_NE(saved.find("<Marker>bend</Marker>"), std::string::npos);
    Focus(Tree());
    Type('Z', wxMOD_CONTROL);
    Choose("mnuSaveXCT");
    EXPECT_NE(ReadFile(game_ + "\\rows.xml").find("<Mark>a halt</Mark>"), std::string::npos);
}

TEST_F(SearchFrame, MarksRowsThatAreMadeLater) {
    std::string xml = "<Line>";
    for (int i = 0; i < 300; ++i)
        xml += "<g><Deep/></g>";
    OpenWithTreeEditor(folder_.Write("Rail Simulator\\rows.xml", xml + "</Line>"));
    LookFor("deep");
    Press(Find("Command3"));
    wxTreeItemIdValue cookie = nullptr;
    const wxTreeItemId first = Tree().GetFirstChild(Top(), cookie);
    Tree().Expand(first);
    EXPECT_TRUE(Tree().IsBold(Row(first, "Deep")));
    EXPECT_FALSE(Tree().IsBold(first));
}

TEST_F(SearchFrame, TakesKeys) {
    OpenRows();
    Focus(Tree());
    Type('F', wxMOD_CONTROL);
    EXPECT_EQ(wxWindow::FindFocus(), &Find("Text2"));
    LookFor("stop");
    ExpectFound("Stop", false);
    Type(WXK_RETURN);
    ASSERT_TRUE(PumpUntil([this] { return dialogs_.AllCame(); }, milliseconds(5000)));
    PumpFor(milliseconds(300));
    ExpectNotFound();
    Focus(Tree());
    Type(WXK_F3);
    EXPECT_TRUE(PumpUntil([this] { return dialogs_.AllCame(); }, milliseconds(5000)));
}

// --- keys of the rows

TEST_F(SearchFrame, ExpandsAndCollapsesAllRows) {
    OpenRows();
    Focus(Tree());
    Type(WXK_RIGHT, wxMOD_CONTROL | wxMOD_SHIFT);
    EXPECT_TRUE(PumpUntil([this] { return Tree().IsExpanded(Row(Top(), "Group")); }, milliseconds(3000)));
    Type(WXK_LEFT, wxMOD_CONTROL | wxMOD_SHIFT);
    EXPECT_FALSE(Tree().IsExpanded(Row(Top(), "Group")));
    EXPECT_TRUE(Tree().IsExpanded(Top()));
}

TEST_F(SearchFrame, CopiesThePathOfARow) {
    OpenRows();
    Tree().Expand(Row(Top(), "Group"));
    ClickRow(Marker());
    Focus(Tree());
    Type('C', wxMOD_CONTROL | wxMOD_SHIFT);
    ASSERT_TRUE(wxTheClipboard->Open());
    wxTextDataObject text;
    EXPECT_TRUE(wxTheClipboard->GetData(text));
    wxTheClipboard->Close();
    EXPECT_EQ(FromWx(text.GetText()), "/Line/Group/Marker");
}

TEST_F(SearchFrame, TakesEditsBackAndRepeatsThemWithKeys) {
    OpenRows();
    ClickRow(Row(Top(), "Group"));
    Focus(Tree());
    Type(WXK_INSERT);
    FinishLabel("Sign");
    EXPECT_EQ(RowTexts(Row(Top(), "Group")), (std::vector<std::string>{"Marker", "Sign"}));
    Focus(Tree());
    Type('Z', wxMOD_CONTROL);
    Type('Z', wxMOD_CONTROL);
    EXPECT_EQ(RowTexts(Row(Top(), "Group")), std::vector<std::string>{"Marker"});
    Type('Y', wxMOD_CONTROL);
    Type('Y', wxMOD_CONTROL);
    EXPECT_EQ(RowTexts(Row(Top(), "Group")), (std::vector<std::string>{"Marker", "Sign"}));
    ClickRow(Row(Top(), "Mark"));
    Focus(Tree());
    Type(WXK_DELETE);
    EXPECT_EQ(RowTexts(Top()), (std::vector<std::string>{"Group", "Stop"}));
    Type('Z', wxMOD_CONTROL);
    EXPECT_EQ(RowTexts(Top()), (std::vector<std::string>{"Mark", "Group", "Stop"}));
    EXPECT_TRUE(Tree().IsSelected(Row(Top(), "Mark")));
}

TEST_F(SearchFrame, TakesTypingBackInOneStep) {
    OpenRows();
    ClickRow(Row(Top(), "Stop"));
    auto& box = Find<wxTextCtrl>("txtCharacters");
    Focus(box);
    box.SetInsertionPointEnd();
    for (const char c : std::string("123"))
        Type(c);
    EXPECT_EQ(FromWx(box.GetValue()), "Halt123");
    Type('Z', wxMOD_CONTROL);
    EXPECT_EQ(FromWx(box.GetValue()), "Halt");
}

TEST_F(SearchFrame, CopiesAndPastesARowWithKeys) {
    OpenRows();
    ClickRow(Row(Top(), "Mark"));
    Focus(Tree());
    Type('C', wxMOD_CONTROL);
    ClickRow(Row(Top(), "Stop"));
    Focus(Tree());
    Type('V', wxMOD_CONTROL);
    EXPECT_EQ(RowTexts(Row(Top(), "Stop")), std::vector<std::string>{"Mark"});
    EXPECT_FALSE(Caption().ends_with("*"));
}

// --- the dialog of the text page

class SearchDialog : public Keyboard {
protected:
    void OpenText(const std::string& text) {
        Open();
        window_->Context().view.SetEditorText(text);
        Choose("mnuFind");
        PumpFor(milliseconds(200));
    }
    wxDialog& Dialog() { return dynamic_cast<wxDialog&>(*wxWindow::FindWindowByName("dlgSearch")); }
    template <class Control = wxWindow> Control& In(const char* name) {
        return dynamic_cast<Control&>(*Dialog().FindWindow(name));
    }
    wxStyledTextCtrl& Editor() { return Find<wxStyledTextCtrl>("RichTextBox1"); }
    void FindText(const std::string& text) {
        In<wxTextCtrl>("Text2").SetValue(ToWx(text));
        Press(In("Command4"));
    }
    std::pair<int, int> Selection() { return {Editor().GetSelectionStart(), Editor().GetSelectionEnd()}; }
    std::string Told() { return FromWx(In("Told").GetLabel()); }
};

using Span = std::pair<int, int>;

TEST_F(SearchDialog, HasItsBoxesButtonsAndHints) {
    OpenText("<a/>");
    EXPECT_EQ(FromWx(Dialog().GetTitle()), "Search");
    const std::vector<std::vector<std::string>> expected = {
        {"Command4", "Find", "Find the word in the top box, keep clicking to cycle through all instances"},
        {"Command5", "Replace", "Replace selected word with the one in replace box"},
        {"Command6", "Replace All", "Replaces all instances of top string with the one in the bottom box."}};
    for (const auto& row : expected) {
        EXPECT_EQ(FromWx(In(row[0].c_str()).GetLabel()), row[1]);
        EXPECT_EQ(FromWx(In(row[0].c_str()).GetToolTipText()), row[2]);
    }
    EXPECT_EQ(FromWx(In("Check1").GetLabel()), "Whole Word only");
    EXPECT_EQ(FromWx(In("OKButton").GetLabel()), "OK");
    Press(In("OKButton"));
    Pump();
    EXPECT_EQ(wxWindow::FindWindowByName("dlgSearch"), nullptr);
}

TEST_F(SearchDialog, IsOpenedByItsKeyFromTheTabOfTheText) {
    Open();
    Focus(Find("SSTab1"));
    Type('F', wxMOD_CONTROL);
    ASSERT_NE(wxWindow::FindWindowByName("dlgSearch"), nullptr);
    EXPECT_TRUE(PumpUntil([this] { return In("Text2").HasFocus(); }));
}

TEST_F(SearchDialog, CyclesThroughAllMatches) {
    OpenText("<halt>Halt</HALT>");
    FindText("halt");
    EXPECT_EQ(Selection(), Span(1, 5));
    Press(In("Command4"));
    EXPECT_EQ(Selection(), Span(6, 10));
    Press(In("Command4"));
    EXPECT_EQ(Selection(), Span(12, 16));
    Press(In("Command4"));
    EXPECT_EQ(Selection(), Span(1, 5));
}

TEST_F(SearchDialog, FindsWithEnterInTheTopBoxAndWithF3AfterItIsClosed) {
    OpenText("<halt>Halt</HALT>");
    In<wxTextCtrl>("Text2").SetValue("halt");
    wxCommandEvent enter(wxEVT_TEXT_ENTER, In("Text2").GetId());
    In("Text2").GetEventHandler()->ProcessEvent(enter);
    EXPECT_EQ(Selection(), Span(1, 5));
    Press(In("OKButton"));
    Pump();
    Focus(Editor());
    Type(WXK_F3);
    EXPECT_EQ(Selection(), Span(6, 10));
}

TEST_F(SearchDialog, TellsWhenNothingIsFound) {
    OpenText("<a/>");
    FindText("halt");
    EXPECT_EQ(Told(), "Not found");
    EXPECT_EQ(Selection(), Span(0, 0));
    FindText("");
    EXPECT_EQ(Told(), "Not found");
}

TEST_F(SearchDialog, FindsWholeWordsOnly) {
    OpenText("<halts/><halt2/><halt/>");
    In<wxCheckBox>("Check1").SetValue(true);
    FindText("halt");
    EXPECT_EQ(Selection(), Span(17, 21));
}

TEST_F(SearchDialog, ReplacesTheMatchThatWasFound) {
    OpenText("<halt/><halt/>");
    In<wxTextCtrl>("Text3").SetValue("stop");
    Press(In("Command5"));
    EXPECT_EQ(EditorText(), "<halt/><halt/>"); // nothing was searched for yet
    FindText("halt");
    Press(In("Command5"));
    EXPECT_EQ(EditorText(), "<stop/><halt/>");
    Press(In("Command5"));
    EXPECT_EQ(EditorText(), "<stop/><halt/>"); // one replacement a match
    Press(In("Command4"));
    Press(In("Command5"));
    EXPECT_EQ(EditorText(), "<stop/><stop/>");
}

TEST_F(SearchDialog, ReplacesNothingInATextThatWasOpenedAfterTheSearch) {
    OpenText("<halt/>");
    In<wxTextCtrl>("Text3").SetValue("stop");
    FindText("halt");
    window_->Context().view.SetEditorText("<other/>");
    Press(In("Command5"));
    EXPECT_EQ(EditorText(), "<other/>");
    EXPECT_FALSE(Editor().GetModify());
}

TEST_F(SearchDialog, ReplacesTenThousandMatchesAtOnce) {
    constexpr int kMatches = 10'000;
    const std::string filler(1990, 'x');
    std::string text;
    for (int i = 0; i < kMatches; ++i)
        text += "<halt>" + filler + "\n";
    OpenText(text);
    In<wxTextCtrl>("Text2").SetValue("halt");
    In<wxTextCtrl>("Text3").SetValue("station");
    const std::clock_t before = std::clock();
    Press(In("Command6"));
    const auto milliseconds = 1000 * static_cast<long long>(std::clock() - before) / CLOCKS_PER_SEC;
    EXPECT_EQ(Editor().GetLength(), kMatches * 2000); // "<station>", the filler, the line end
    EXPECT_LT(milliseconds, LONGEST_PAUSE_MS) << "milliseconds";
}

TEST_F(SearchDialog, ReplacesAllMatchesInOneStepForUndo) {
    OpenText("<halt>Halt, haltHALT</halt>");
    In<wxTextCtrl>("Text2").SetValue("halt");
    In<wxTextCtrl>("Text3").SetValue("bend halt");
    Press(In("Command6"));
    EXPECT_EQ(EditorText(), "<bend halt>bend halt, bend haltbend halt</bend halt>");
    EXPECT_EQ(Told(), "5 replaced");
    Editor().Undo();
    EXPECT_EQ(EditorText(), "<halt>Halt, haltHALT</halt>");
    In<wxTextCtrl>("Text3").SetValue("");
    Press(In("Command6"));
    EXPECT_EQ(EditorText(), "<>, </>");
}

TEST_F(SearchDialog, IsOneAndTurnsToTheTextPage) {
    OpenText("<a/>");
    Choose("mnuUXML");
    Choose("mnuFind");
    Pump();
    EXPECT_TRUE(Editor().IsShownOnScreen());
    int count = 0;
    for (const wxWindow* const child : window_->GetChildren())
        count += child->GetName() == "dlgSearch" ? 1 : 0;
    EXPECT_EQ(count, 1);
}

} // namespace
} // namespace tamarind::tests
