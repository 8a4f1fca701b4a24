#include "editors/node_path.h"
#include "editors/tree_editor.h"
#include "editors/tree_page.h"
#include "editors/tree_undo.h"
#include "platform/wx/wx_text.h"

#include <wx/checkbox.h>
#include <wx/clipbrd.h>
#include <wx/textctrl.h>

// The search frame of the tree page, and the page's keys.
namespace tamarind::editors {

using platform::FromWx;
using platform::ToWx;
using session::EditorContext;

SearchRequest TreePage::Request() const { return {FromWx(text2_->GetValue()), check1_->GetValue()}; }

std::string TreePage::Replacement() const { return FromWx(text3_->GetValue()); }

void TreePage::Command2_Click() {
    run_([request = Request()](EditorContext& context) { FindNextRow(context, SearchIn::RowTexts, request); });
}

void TreePage::Command3_Click() {
    run_([request = Request()](EditorContext& context) { FindAllRows(context, SearchIn::RowTexts, request); });
}

void TreePage::Command4_Click() {
    run_([request = Request()](EditorContext& context) { FindNextRow(context, SearchIn::ElementTexts, request); });
}

void TreePage::Command5_Click() {
    const std::string shown = FromWx(txtCharacters_->GetValue());
    run_([&shown, text = Request().text, replacement = Replacement()](EditorContext& context) {
        ReplaceInShown(context, shown, text, replacement);
    });
}

void TreePage::Command6_Click() {
    run_([request = Request(), replacement = Replacement()](EditorContext& context) {
        ReplaceInAll(context, request, replacement);
    });
}

void TreePage::CopyPath() {
    std::string path;
    run_([&path](EditorContext& context) {
        if (context.document.SelectedNode != nullptr) path = PathOf(*context.document.SelectedNode);
    });
    if (path.empty() || !wxTheClipboard->Open()) return;
    wxTheClipboard->SetData(new wxTextDataObject(ToWx(path)));
    wxTheClipboard->Close();
}

void TreePage::OnKey(wxKeyEvent& event) {
    const bool isOfRows = rows_->HasFocus() && !rows_->IsEditing();
    if (rows_->IsEditing() || !(DoKey(event) || (isOfRows && DoKeyOfRows(event)))) event.Skip();
}

bool TreePage::DoKey(const wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const int modifiers = event.GetModifiers();
    const bool isRedo =
        (modifiers == wxMOD_CONTROL && key == 'Y') || (modifiers == (wxMOD_CONTROL | wxMOD_SHIFT) && key == 'Z');
    const bool isInSearch = text2_->HasFocus() || text3_->HasFocus();
    if (modifiers == wxMOD_NONE && (key == WXK_F3 || (key == WXK_RETURN && text2_->HasFocus()))) {
        Command2_Click();
    } else if (modifiers == wxMOD_CONTROL && key == 'F') {
        text2_->SetFocus();
        text2_->SelectAll();
    } else if (modifiers == wxMOD_CONTROL && key == 'Z' && !isInSearch) {
        run_(UndoEdit);
    } else if (isRedo && !isInSearch) {
        run_(RedoEdit);
    } else {
        return false;
    }
    return true;
}

bool TreePage::DoKeyOfRows(const wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const int modifiers = event.GetModifiers();
    if (modifiers == wxMOD_CONTROL && key == 'C') {
        run_(CopySelectedNode);
    } else if (modifiers == wxMOD_CONTROL && key == 'V') {
        run_(PasteNode);
    } else if (modifiers == (wxMOD_CONTROL | wxMOD_SHIFT) && key == 'C') {
        CopyPath();
    } else if (modifiers == wxMOD_NONE && key == WXK_INSERT) {
        // Behind the key: on Windows the control would end the editing of the new name at once.
        CallAfter([this] {
            run_([](EditorContext& context) {
                if (PrepareNodePopUp(context.document).isShown) NewNode(context);
            });
        });
    } else if (key == WXK_NUMPAD_MULTIPLY || (key == WXK_RIGHT && modifiers == (wxMOD_CONTROL | wxMOD_SHIFT))) {
        rows_->ExpandEverything();
    } else if (key == WXK_NUMPAD_DIVIDE || (key == WXK_LEFT && modifiers == (wxMOD_CONTROL | wxMOD_SHIFT))) {
        rows_->CollapseEverything();
    } else {
        return false;
    }
    return true;
}

} // namespace tamarind::editors
