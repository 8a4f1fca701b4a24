#include "windows/keyboard.h"
#include "windows/system.h"

#include <wx/textctrl.h>

namespace tamarind::tests {
namespace {

TEST_F(Keyboard, EditsARowsNameWithF2) {
    OpenLine();
    Type(WXK_F2);
    ASSERT_TRUE(PumpUntil([this] { return Tree().GetEditControl() != nullptr; }));
    for (const char c : std::string("STOP"))
        Type(c);
    Type(WXK_RETURN);
    EXPECT_EQ(Rows(), (std::vector<std::string>{"stop", "Signal"}));
}

TEST_F(Keyboard, DeletesANodeWithTheDeleteKey) {
    OpenLine();
    Type(WXK_DELETE);
    EXPECT_EQ(Rows(), std::vector<std::string>{"Signal"});
}

TEST_F(Keyboard, DoesNotDeleteANodeWhileItsNameIsEdited) {
    OpenLine();
    Type(WXK_F2);
    ASSERT_TRUE(PumpUntil([this] { return Tree().GetEditControl() != nullptr; }));
    Type(WXK_DELETE);
    Type(WXK_ESCAPE);
    EXPECT_EQ(window_->Context().document.SelectedNode->NodeName, "Halt");
    EXPECT_EQ(Rows(), (std::vector<std::string>{"Halt", "Signal"}));
}

TEST_F(Keyboard, MovesToTheNextRowWithTheArrowKey) {
    OpenLine();
    Type(WXK_DOWN);
    EXPECT_EQ(platform::FromWx(Find<wxTextCtrl>("txtCharacters").GetValue()), "Home");
}

TEST_F(Keyboard, OpensTheNodesMenuWithTheMenuKey) {
    OpenLine();
    const ShownItems shown = PopUpAfter([this] { Type(kMenuKey); });
    ASSERT_EQ(shown.count("&New Child Node"), 1U);
    EXPECT_TRUE(shown.at("&New Child Node"));
}

TEST_F(Keyboard, SavesFromTheTreeEditorWithCtrlS) {
    OpenLine();
    Find<wxTextCtrl>("txtCharacters").SetValue("Bow");
    Focus(Find("txtCharacters"));
    Type('S', wxMOD_CONTROL);
    EXPECT_TRUE(PumpUntil([this] { return Exists(file_ + ".bak"); }));
    EXPECT_NE(XmlOf(file_).find("<Halt>Bow</Halt>"), std::string::npos);
}

TEST_F(Keyboard, SavesFromTheTextEditorWithCtrlS) {
    const std::string track = WriteGameFile("Track.XSec", "<Track>1</Track>");
    Open(track);
    TypeText("<Track>2</Track>");
    Focus(Find("RichTextBox1"));
    Type('S', wxMOD_CONTROL);
    EXPECT_TRUE(PumpUntil([&] { return Exists(track + ".bak"); }));
    EXPECT_EQ(XmlOf(track), "<Track>2</Track>");
}

TEST_F(Keyboard, TypesIntoTheTextEditor) {
    Open(WriteGameFile("Track.XSec", "<Track/>"));
    Focus(Find("RichTextBox1"));
    Type('a');
    Type('b');
    EXPECT_EQ(EditorText(), "ab<Track/>");
}

TEST_F(Keyboard, GoesFromTheTreeToTheAttributesAndBackWithTab) {
    OpenLine();
    Type(WXK_TAB);
    EXPECT_EQ(wxWindow::FindFocus(), &Find("lstAttributes"));
    Type(WXK_TAB, wxMOD_SHIFT);
    EXPECT_EQ(wxWindow::FindFocus(), &Tree());
}

TEST_F(Keyboard, ASinglePointerClickSelectsARow) {
    OpenLine();
    wxUIActionSimulator pointer;
    pointer.MouseMove(MiddleOf(Row(Tree().GetRootItem(), "Signal")));
    pointer.MouseClick();
    EXPECT_TRUE(
        PumpUntil([this] { return Find<wxTextCtrl>("txtCharacters").GetValue() == "Home"; }, milliseconds(5000)));
}

TEST_F(Keyboard, AClickLeavesNoOtherRowSelected) {
    OpenWithTreeEditor(WriteGameFile("Line.XSec", "<Line><Halt>Bend</Halt><Signal>Home</Signal></Line>"));
    Focus(Find("SSTab1"));
    wxUIActionSimulator pointer;
    pointer.MouseMove(MiddleOf(Row(Tree().GetRootItem(), "Halt")));
    pointer.MouseClick();
    ASSERT_TRUE(PumpUntil([this] { return Tree().IsSelected(Row(Tree().GetRootItem(), "Halt")); }));
    Type(WXK_DOWN);
    EXPECT_FALSE(Tree().IsSelected(Tree().GetRootItem()));
    EXPECT_FALSE(Tree().IsSelected(Row(Tree().GetRootItem(), "Halt")));
    EXPECT_TRUE(Tree().IsSelected(Row(Tree().GetRootItem(), "Signal")));
}

TEST_F(Keyboard, TheRightPointerButtonSelectsARowAndOpensTheNodesMenu) {
    OpenLine();
    const ShownItems shown = PopUpAfter([this] {
        wxUIActionSimulator pointer;
        pointer.MouseMove(MiddleOf(Row(Tree().GetRootItem(), "Signal")));
        pointer.MouseClick(wxMOUSE_BTN_RIGHT);
    });
    EXPECT_EQ(shown.count("&New Child Node"), 1U);
    EXPECT_EQ(Find<wxTextCtrl>("txtCharacters").GetValue(), "Home");
}

} // namespace
} // namespace tamarind::tests
