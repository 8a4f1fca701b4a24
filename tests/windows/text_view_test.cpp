#include "windows/keyboard.h"

#include "editors/xml_text_page.h"

#include <wx/clipbrd.h>
#include <wx/dnd.h>
#include <wx/statusbr.h>
#include <wx/stc/stc.h>

namespace tamarind::tests {
namespace {

using platform::FromWx;

constexpr const char* kText = "<Line>\r\n<Halt>\r\n1\r\n</Halt>\r\n<Stop>\r\n2\r\n</Stop>\r\n</Line>\r\n";
constexpr int kPairMark = 8;

class TextView : public Keyboard {
protected:
    void OpenText(const std::string& text = kText) {
        Open(folder_.Write("Rail Simulator\\line.xml", text));
        Focus(Editor());
        ASSERT_TRUE(PumpUntil([this] { return (Editor().GetFoldLevel(0) & wxSTC_FOLDLEVELHEADERFLAG) != 0; },
                              milliseconds(3000)));
    }
    editors::XmlText& Editor() { return Find<editors::XmlText>("RichTextBox1"); }
    std::string StatusField(int field) { return FromWx(window_->GetStatusBar()->GetStatusText(field)); }
    bool IsMarked(int position) { return Editor().IndicatorValueAt(kPairMark, position) != 0; }
    std::vector<int> HiddenLines() {
        std::vector<int> hidden;
        for (int line = 0; line < Editor().GetLineCount(); ++line) {
            if (!Editor().GetLineVisible(line)) hidden.push_back(line);
        }
        return hidden;
    }
};

TEST_F(TextView, ShowsLineNumbers) {
    OpenText();
    EXPECT_EQ(Editor().GetMarginType(0), wxSTC_MARGIN_NUMBER);
    const int width = Editor().GetMarginWidth(0);
    EXPECT_GT(width, 0);
    window_->Context().view.SetEditorText(std::string(20'000, '\n'));
    EXPECT_GT(Editor().GetMarginWidth(0), width);
}

TEST_F(TextView, ShowsCaretLineEndsAndEncodingInTheStatusLine) {
    OpenText();
    Editor().GotoPos(Editor().PositionFromLine(2) + 1);
    ASSERT_TRUE(PumpUntil([this] { return StatusField(1) == "Line 3, Column 2"; }, milliseconds(3000)));
    EXPECT_EQ(StatusField(2), "CR LF");
    EXPECT_EQ(StatusField(3), "Windows-1252");
    window_->Context().view.SetEditorText("a\nb");
    EXPECT_EQ(StatusField(2), "LF");
    Choose("mnuUXML");
    EXPECT_EQ(StatusField(1) + StatusField(2) + StatusField(3), "");
}

TEST_F(TextView, FoldsAnElementAndShowsItAgain) {
    OpenText();
    Editor().GotoPos(Editor().PositionFromLine(2));
    Type(WXK_F4);
    EXPECT_EQ(HiddenLines(), (std::vector<int>{2, 3}));
    Type(WXK_F4);
    EXPECT_EQ(HiddenLines(), std::vector<int>{});
}

TEST_F(TextView, FoldsAllElementsBelowTheTopOne) {
    OpenText();
    Type(WXK_F4, wxMOD_SHIFT);
    EXPECT_EQ(HiddenLines(), (std::vector<int>{2, 3, 5, 6}));
    Editor().FoldAll(false);
    EXPECT_EQ(HiddenLines(), std::vector<int>{});
}

TEST_F(TextView, FoldsFollowWhatIsTyped) {
    OpenText();
    const auto levelOf = [this](int line) {
        return (Editor().GetFoldLevel(line) & wxSTC_FOLDLEVELNUMBERMASK) - wxSTC_FOLDLEVELBASE;
    };
    EXPECT_EQ(levelOf(7), 1);
    Editor().InsertText(0, "<New>");
    ASSERT_TRUE(PumpUntil([&] { return levelOf(7) == 2; }, milliseconds(3000)));
    EXPECT_EQ(levelOf(2), 3);
    Editor().Undo();
    ASSERT_TRUE(PumpUntil([&] { return levelOf(7) == 1; }, milliseconds(3000)));
    Editor().InsertText(Editor().PositionFromLine(4), "<a>\r\n</a>\r\n");
    ASSERT_TRUE(PumpUntil([&] { return levelOf(5) == 2; }, milliseconds(3000)));
    EXPECT_EQ(levelOf(6), 1);
    EXPECT_EQ(levelOf(9), 1);
}

TEST_F(TextView, MarksTheTagsThatBelongTogether) {
    OpenText();
    const int end = Editor().PositionFromLine(3);
    Editor().GotoPos(Editor().PositionFromLine(1) + 2);
    ASSERT_TRUE(PumpUntil([&] { return IsMarked(end); }, milliseconds(3000)));
    EXPECT_TRUE(IsMarked(Editor().PositionFromLine(1)));
    Editor().GotoPos(Editor().PositionFromLine(2));
    EXPECT_TRUE(PumpUntil([&] { return !IsMarked(end); }, milliseconds(3000)));
}

TEST_F(TextView, GoesToTheTagThatBelongsToTheOneAtTheCaret) {
    OpenText();
    Editor().GotoPos(Editor().PositionFromLine(6) + 2);
    Type('M', wxMOD_CONTROL);
    EXPECT_EQ(Editor().GetCurrentLine(), 4);
    Type('M', wxMOD_CONTROL);
    EXPECT_EQ(Editor().GetCurrentLine(), 6);
}

TEST_F(TextView, GoesToALine) {
    OpenText();
    dialogs_.EnterText({"Line number (1 to 9):", "Go to Line", "1"}, "5");
    Type('G', wxMOD_CONTROL);
    ASSERT_TRUE(PumpUntil([this] { return dialogs_.AllCame(); }, milliseconds(3000)));
    EXPECT_EQ(Editor().GetCurrentLine(), 4);
    dialogs_.EnterText({"Line number (1 to 9):", "Go to Line", "5"}, "none");
    Type('G', wxMOD_CONTROL);
    EXPECT_EQ(Editor().GetCurrentLine(), 4);
}

TEST_F(TextView, GrowsAndShrinks) {
    OpenText();
    Type('0', wxMOD_CONTROL);
    Editor().ChangeZoom(1);
    EXPECT_EQ(Editor().GetZoom(), 1);
    Type('-', wxMOD_CONTROL);
    Type('-', wxMOD_CONTROL);
    EXPECT_EQ(Editor().GetZoom(), -1);
    Type('0', wxMOD_CONTROL);
    EXPECT_EQ(Editor().GetZoom(), 0);
}

TEST_F(TextView, WrapsLongLines) {
    OpenText("<a>" + std::string(500, 'x') + " " + std::string(500, 'y') + "\r\n</a>");
    EXPECT_EQ(Editor().WrapCount(0), 1);
    Editor().ToggleWrap();
    EXPECT_TRUE(PumpUntil([this] { return Editor().WrapCount(0) > 1; }, milliseconds(3000)));
    Editor().ToggleWrap();
    EXPECT_TRUE(PumpUntil([this] { return Editor().WrapCount(0) == 1; }, milliseconds(3000)));
}

TEST_F(TextView, UndoesAndRedoesWithKeys) {
    OpenText();
    Type('a');
    EXPECT_EQ(EditorText(), "a" + std::string(kText));
    Type('Z', wxMOD_CONTROL);
    EXPECT_EQ(EditorText(), kText);
    Type('Y', wxMOD_CONTROL);
    EXPECT_EQ(EditorText(), "a" + std::string(kText));
}

TEST_F(TextView, OffersItsCommandsInAMenu) {
    OpenText();
    const ShownItems shown = PopUpAfter([this] {
        wxContextMenuEvent event(wxEVT_CONTEXT_MENU, Editor().GetId(), Editor().ClientToScreen(wxPoint(150, 60)));
        event.SetEventObject(&Editor());
        Editor().GetEventHandler()->ProcessEvent(event);
    });
    for (const char* item : {"&Find...\tCtrl+F", "Find &Next\tF3", "&Go to Line...\tCtrl+G", "&Word Wrap\tAlt+Z",
                             "Fold All\tShift+F4", "Select &All\tCtrl+A"}) {
        ASSERT_EQ(shown.count(item), 1U) << item;
        EXPECT_TRUE(shown.at(item)) << item;
    }
    EXPECT_FALSE(shown.at("&Undo\tCtrl+Z"));
    EXPECT_FALSE(shown.at("Cu&t\tCtrl+X"));
}

TEST_F(TextView, TakesAFileThatIsDroppedOnTheWindow) {
    OpenText();
    const std::string file = WriteGameFile("Track.bin", "<Track/>");
    auto* const target = dynamic_cast<wxFileDropTarget*>(window_->GetDropTarget());
    ASSERT_NE(target, nullptr);
    wxArrayString names;
    names.Add(platform::ToWx(platform::ToNative(file)));
    EXPECT_TRUE(target->OnDropFiles(10, 10, names));
    EXPECT_TRUE(PumpUntil([this] { return EditorText() == "<Track/>"; }));
    EXPECT_NE(Editor().GetDropTarget(), nullptr);
}

} // namespace
} // namespace tamarind::tests
