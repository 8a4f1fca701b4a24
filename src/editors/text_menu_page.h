#pragma once

class wxKeyEvent;
class wxPoint;

namespace tamarind::editors {

class XmlText;

/// What the text page offers through keys and the menu of the right pointer button.
enum class TextCommand {
    None,
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    SelectAll,
    Find,
    FindNext,
    GoToLine,
    GoToPartner,
    ToggleFold,
    FoldAll,
    UnfoldAll,
    Wrap,
    ZoomIn,
    ZoomOut,
    ZoomBack,
};

/// Of a key that the text does not know by itself.
[[nodiscard]] TextCommand TextCommandOf(const wxKeyEvent& key);
/// Whether its key counts only while the text has the focus.
[[nodiscard]] bool IsForText(TextCommand command);

/// Pops up the menu, at a place on the screen or, for none, at the caret.
[[nodiscard]] TextCommand AskForTextCommand(XmlText& text, const wxPoint& screenPlace);

/// All but the commands that ask for something first.
void DoInText(XmlText& text, TextCommand command);

} // namespace tamarind::editors
