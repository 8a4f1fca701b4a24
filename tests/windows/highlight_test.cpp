#include "windows/keyboard.h"

#include <wx/stc/stc.h>

#include <ctime>

namespace tamarind::tests {
namespace {

class HighlightButton : public Keyboard {
protected:
    wxStyledTextCtrl& Editor() { return Find<wxStyledTextCtrl>("RichTextBox1"); }
    void SetText(const std::string& text) {
        window_->Context().view.SetEditorText(text);
        Pump();
    }
    void Highlight() {
        Press(Find("Command1"));
        Pump();
    }
    /// A letter a byte, by the colour that it is shown in.
    std::string Colours() {
        std::string colours;
        for (int i = 0; i < Editor().GetLength(); ++i) {
            const wxColour colour = Editor().StyleGetForeground(Editor().GetStyleAt(i));
            colours += colour == wxColour(0, 0, 255) ? 'b' : colour == wxColour(255, 0, 0) ? 'r' : '.';
        }
        return colours;
    }
};

TEST_F(HighlightButton, ColoursTheTextAndLeavesItsCharactersAlone) {
    Open();
    const std::string text = "<?xml version=\"1.0\"?>\r\n<a b=\"c\">d</a>\r\n";
    SetText(text);
    Highlight();
    EXPECT_EQ(Colours(), "bbbbb.rrrrrrrr......b..bb..r...b.bbbb..");
    EXPECT_EQ(EditorText(), text);
    Highlight();
    EXPECT_EQ(Colours(), "bbbbb.rrrrrrrr......b..bb..r...b.bbbb..");
}

TEST_F(HighlightButton, ColoursNothingInTextWithoutATag) {
    Open();
    SetText("a = version");
    Highlight();
    EXPECT_EQ(Colours(), "...........");
}

TEST_F(HighlightButton, LeavesTheStepsForUndoAsTheyAre) {
    Open();
    SetText("<a/>");
    EXPECT_FALSE(Editor().CanUndo());
    Highlight();
    EXPECT_FALSE(Editor().CanUndo());
    EXPECT_FALSE(Editor().GetModify());
    TypeText("<b/>");
    Highlight();
    Editor().Undo();
    EXPECT_EQ(EditorText(), "<a/>");
    EXPECT_TRUE(Editor().CanRedo());
}

TEST_F(HighlightButton, PutsTheCaretBehindTheFirstCharacter) {
    Open();
    SetText("<a><b/></a>");
    Editor().SetSelection(3, 7);
    Highlight();
    EXPECT_EQ(Editor().GetSelectionStart(), 1);
    EXPECT_EQ(Editor().GetSelectionEnd(), 1);
}

TEST_F(HighlightButton, ColoursWhatIsTypedAfterwards) {
    Open();
    SetText("<a>x</a>");
    Highlight();
    Editor().InsertText(4, "<c d=e>");
    ASSERT_TRUE(PumpUntil([this] { return Colours() != "bbb........bbbb"; }));
    EXPECT_EQ(Colours(), "bbb.bb..r.bbbbb");
    Editor().Undo();
    PumpFor(milliseconds(100));
    EXPECT_EQ(Colours(), "bbb.bbbb");
}

TEST_F(HighlightButton, DoesNotColourTheNextText) {
    Open();
    SetText("<a/>");
    Highlight();
    SetText("<b/>");
    PumpFor(milliseconds(100));
    EXPECT_EQ(Colours(), "....");
}

TEST_F(HighlightButton, ColoursAnEmptyText) {
    Open();
    Highlight();
    EXPECT_EQ(EditorText(), "");
    EXPECT_EQ(Editor().GetCurrentPos(), 0);
}

// 20 MB within half a second; where a sanitizer or Wine slows everything down, a tenth of that.
TEST_F(HighlightButton, ColoursALargeTextAtOnce) {
    constexpr std::size_t kSize = LONGEST_PAUSE_MS > 200 ? 2'000'000 : 20'000'000;
    constexpr milliseconds kLongest(500);
    Open();
    std::string text;
    while (text.size() < kSize)
        text += "  <s:Value d:type=\"sFloat32\" d:alt_encoding=\"0000000000000000\">1435</s:Value>\r\n";
    SetText(text);
    PumpFor(milliseconds(500));
    // Processor time where the system counts it: a busy machine makes pauses of its own.
    const std::clock_t begin = std::clock();
    Highlight();
    Editor().Update();
    EXPECT_LT(1000 * static_cast<long long>(std::clock() - begin) / CLOCKS_PER_SEC, kLongest.count());
    EXPECT_EQ(Editor().StyleGetForeground(Editor().GetStyleAt(Editor().GetLength() - 4)), wxColour(0, 0, 255));
}

} // namespace
} // namespace tamarind::tests
