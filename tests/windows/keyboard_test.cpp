#include "windows/editor_window.h"
#include "windows/system.h"

#include <wx/stc/stc.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

namespace tamarind::tests {
namespace {

// Real keys and a real pointer, sent through the system.
class Keyboard : public EditorWindow {
protected:
    void OpenLine() {
        file_ = WriteGameFile("Line.XSec", "<Line><Halt>Bend</Halt><Signal>Home</Signal></Line>");
        OpenWithTreeEditor(file_);
        ClickRow(Row(Tree().GetRootItem(), "Halt"));
        Focus(Tree());
    }

    void Focus(wxWindow& control) {
        window_->Raise();
        control.SetFocus();
        ASSERT_TRUE(PumpUntil([&] { return control.HasFocus() && window_->IsActive(); }));
        PumpFor(milliseconds(100));
    }

    void Type(int key, int modifiers = wxMOD_NONE) {
        wxUIActionSimulator keys;
        keys.Char(key, modifiers);
        PumpFor(milliseconds(200));
    }

    wxPoint MiddleOf(const wxTreeItemId& row) {
        wxRect place;
        EXPECT_TRUE(Tree().GetBoundingRect(row, place, true));
        return Tree().ClientToScreen(place.GetPosition() + wxPoint(place.width / 2, place.height / 2));
    }

    std::vector<std::string> Rows() { return RowTexts(Tree().GetRootItem()); }

    std::string file_;
};

TEST_F(Keyboard, EditsARowsNameWithF2) {
    OpenLine();
    Type(WXK_F2);
    ASSERT_TRUE(PumpUntil([this] { return Tree().GetEditControl() != nullptr; }));
    for (const char c : std::string("STOP")) Type(c);
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

TEST_F(Keyboard, ASinglePointerClickSelectsARow) {
    OpenLine();
    wxUIActionSimulator pointer;
    pointer.MouseMove(MiddleOf(Row(Tree().GetRootItem(), "Signal")));
    pointer.MouseClick();
    EXPECT_TRUE(PumpUntil(
        [this] { return Find<wxTextCtrl>("txtCharacters").GetValue() == "Home"; }, milliseconds(5000)));
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
