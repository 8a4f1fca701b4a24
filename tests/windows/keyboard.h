#pragma once

#include "windows/editor_window.h"

#include <wx/uiaction.h>

namespace tamarind::tests {

/// Real keys and a real pointer, sent through the system.
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

} // namespace tamarind::tests
