#include "editors/text_menu_page.h"

#include "editors/xml_text_page.h"

#include <wx/menu.h>

#include <array>

namespace tamarind::editors {

namespace {

constexpr int kFirstId = 1;

int IdOf(TextCommand command) { return kFirstId + static_cast<int>(command); }

struct Entry {
    TextCommand command; ///< None for a line between groups
    const char* label;
};

constexpr std::array kEntries = {
    Entry{TextCommand::Undo, "&Undo\tCtrl+Z"},
    Entry{TextCommand::Redo, "&Redo\tCtrl+Y"},
    Entry{TextCommand::None, ""},
    Entry{TextCommand::Cut, "Cu&t\tCtrl+X"},
    Entry{TextCommand::Copy, "&Copy\tCtrl+C"},
    Entry{TextCommand::Paste, "&Paste\tCtrl+V"},
    Entry{TextCommand::SelectAll, "Select &All\tCtrl+A"},
    Entry{TextCommand::None, ""},
    Entry{TextCommand::Find, "&Find...\tCtrl+F"},
    Entry{TextCommand::FindNext, "Find &Next\tF3"},
    Entry{TextCommand::GoToLine, "&Go to Line...\tCtrl+G"},
    Entry{TextCommand::GoToPartner, "Go to &Matching Tag\tCtrl+M"},
    Entry{TextCommand::None, ""},
    Entry{TextCommand::ToggleFold, "Fold or &Unfold Element\tF4"},
    Entry{TextCommand::FoldAll, "Fold All\tShift+F4"},
    Entry{TextCommand::UnfoldAll, "Unfold All\tCtrl+F4"},
    Entry{TextCommand::None, ""},
    Entry{TextCommand::Wrap, "&Word Wrap\tAlt+Z"},
    Entry{TextCommand::ZoomIn, "Zoom &In\tCtrl++"},
    Entry{TextCommand::ZoomOut, "Zoom &Out\tCtrl+-"},
    Entry{TextCommand::ZoomBack, "Usual Si&ze\tCtrl+0"},
};

TextCommand WithControl(int key) {
    switch (key) {
    case 'Y': return TextCommand::Redo;
    case 'F': return TextCommand::Find;
    case 'G': return TextCommand::GoToLine;
    case 'M': return TextCommand::GoToPartner;
    case '+':
    case '=':
    case WXK_NUMPAD_ADD: return TextCommand::ZoomIn;
    case '-':
    case WXK_NUMPAD_SUBTRACT: return TextCommand::ZoomOut;
    case '0':
    case WXK_NUMPAD0: return TextCommand::ZoomBack;
    case WXK_F4: return TextCommand::UnfoldAll;
    default: return TextCommand::None;
    }
}

TextCommand WithoutModifier(int key) {
    switch (key) {
    case WXK_F3: return TextCommand::FindNext;
    case WXK_F4: return TextCommand::ToggleFold;
    default: return TextCommand::None;
    }
}

bool IsEnabled(XmlText& text, TextCommand command) {
    switch (command) {
    case TextCommand::Undo: return text.CanUndo();
    case TextCommand::Redo: return text.CanRedo();
    case TextCommand::Cut:
    case TextCommand::Copy: return text.GetSelectionStart() != text.GetSelectionEnd();
    case TextCommand::Paste: return text.CanPaste();
    default: return true;
    }
}

} // namespace

TextCommand TextCommandOf(const wxKeyEvent& key) {
    const int code = key.GetKeyCode();
    switch (key.GetModifiers()) {
    case wxMOD_CONTROL: return WithControl(code);
    case wxMOD_CONTROL | wxMOD_SHIFT: return code == 'Z' ? TextCommand::Redo : WithControl(code == '+' ? code : 0);
    case wxMOD_SHIFT: return code == WXK_F4 ? TextCommand::FoldAll : TextCommand::None;
    case wxMOD_ALT: return code == 'Z' ? TextCommand::Wrap : TextCommand::None;
    case wxMOD_NONE: return WithoutModifier(code);
    default: return TextCommand::None;
    }
}

bool IsForText(TextCommand command) { return command == TextCommand::Redo; }

TextCommand AskForTextCommand(XmlText& text, const wxPoint& screenPlace) {
    wxMenu menu;
    for (const Entry& entry : kEntries) {
        if (entry.command == TextCommand::None) {
            menu.AppendSeparator();
        } else if (entry.command == TextCommand::Wrap) {
            menu.AppendCheckItem(IdOf(entry.command), entry.label)->Check(text.IsWrapped());
        } else {
            menu.Append(IdOf(entry.command), entry.label)->Enable(IsEnabled(text, entry.command));
        }
    }
    const wxPoint place = screenPlace == wxDefaultPosition ? text.PointFromPosition(text.GetCurrentPos())
                                                           : text.ScreenToClient(screenPlace);
    const int chosen = text.GetPopupMenuSelectionFromUser(menu, place);
    return chosen == wxID_NONE ? TextCommand::None : static_cast<TextCommand>(chosen - kFirstId);
}

void DoInText(XmlText& text, TextCommand command) {
    switch (command) {
    case TextCommand::Undo: text.Undo(); break;
    case TextCommand::Redo: text.Redo(); break;
    case TextCommand::Cut: text.Cut(); break;
    case TextCommand::Copy: text.Copy(); break;
    case TextCommand::Paste: text.Paste(); break;
    case TextCommand::SelectAll: text.SelectAll(); break;
    case TextCommand::GoToPartner: text.GoToPartner(); break;
    case TextCommand::ToggleFold: text.ToggleFoldAtCaret(); break;
    case TextCommand::FoldAll: text.FoldAll(true); break;
    case TextCommand::UnfoldAll: text.FoldAll(false); break;
    case TextCommand::Wrap: text.ToggleWrap(); break;
    case TextCommand::ZoomIn: text.ChangeZoom(1); break;
    case TextCommand::ZoomOut: text.ChangeZoom(-1); break;
    case TextCommand::ZoomBack: text.ChangeZoom(0); break;
    case TextCommand::None:
    case TextCommand::Find:
    case TextCommand::FindNext:
    case TextCommand::GoToLine: break;
    }
}

} // namespace tamarind::editors
