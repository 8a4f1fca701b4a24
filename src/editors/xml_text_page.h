#pragma once

#include "editors/highlighter.h"
#include "editors/text_search.h"
#include "editors/xml_structure.h"
#include "session/editor_view.h"

#include <wx/stc/stc.h>
#include <wx/timer.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tamarind::editors {

/// The view of the text: filled in one go however large, with line numbers, folding, marks on tags that belong
/// together, and colours once they were asked for.
class XmlText : public wxStyledTextCtrl {
public:
    explicit XmlText(wxWindow* parent);

    /// As EditorView::FillEditorText tells.
    void Fill(std::size_t size, const std::function<void(const session::TextSink& take)>& write);
    /// The text itself, until it changes.
    [[nodiscard]] std::string_view View() const;
    /// Lets events happen until the text set last is painted, for half a second at most.
    void WaitForPaint();
    /// Makes the text as wide as its room; a longer line widens it when it is shown.
    void FitScrollWidth();

    /// Colours the whole text; from now on what is typed is coloured too, until another text is set.
    void Highlight();

    /// Selects the next match behind the start of the selection, the first one after the last. False when there is
    /// none.
    bool FindNext(const TextRequest& request);
    /// Puts `replacement` in place of the selection.
    void ReplaceSelected(const std::string& replacement);
    /// Replaces every match, in one step for undo; the number of them.
    std::size_t ReplaceEvery(const TextRequest& request, const std::string& replacement);

    /// From 1; brings the line into view.
    void GoToLine(int line);
    /// Goes to the tag that belongs to the one at the caret, if there is one.
    void GoToPartner();
    [[nodiscard]] bool IsWrapped() const { return GetWrapMode() != wxSTC_WRAP_NONE; }
    void ToggleWrap();
    /// One size up or down, or the usual size for 0.
    void ChangeZoom(int direction);
    /// Folds every element below the top one away, or shows all.
    void FoldAll(bool folded);
    /// Shows an element's lines or folds them away, at the caret.
    void ToggleFoldAtCaret();

    /// Called when caret, text or line ends change.
    std::function<void()> onChanged;

    /// Colours and font of the system.
    void ApplyAppearance();

private:
    void SetUpMargins();
    void SetUpMarks();
    void BindEvents();
    void ShowFilled();
    void MakeRoomAtStart();
    void FitLineNumbers();

    void OnModified(wxStyledTextEvent& event);
    void OnStyleNeeded();
    void OnUpdateUi(wxStyledTextEvent& event);
    void OnIdle(wxIdleEvent& event);

    [[nodiscard]] std::string_view Range(int from, int to) const;
    void ColourRange(int from, int to);
    [[nodiscard]] bool HasTag() const;
    void MarkTags();
    void UnmarkTags();
    [[nodiscard]] std::optional<TagPair> TagsAtCaret() const;

    void ForgetFolds();
    /// Folds are worked out once nobody has touched the text for a moment.
    void WaitForQuiet();
    /// Lines from `line` to `lastLine` (from 0) were changed.
    void NoteFoldChange(int line, int lastLine, int addedLines);
    /// Works out the fold of the first line that is not up to date.
    void FoldOne();
    /// Brings all folds up to date at once.
    void FinishFolds();

    int fittedWidth_ = 0;
    int width_ = 0;
    int numberDigits_ = 0;
    bool isPainted_ = true; ///< since the text was set
    bool isHighlighted_ = false;
    int dirtyEnd_ = 0; ///< behind what was changed since it was last coloured

    int foldFrom_ = 0;     ///< the first line whose fold is not known
    int foldDirtyEnd_ = 0; ///< behind the last line that was changed
    int foldKnown_ = 0;    ///< lines before this one were worked out once
    std::optional<TagPair> marked_;
    bool isMarkStale_ = false; ///< the text has changed since
    wxTimer news_;             ///< until onChanged is called
    wxTimer quiet_;            ///< until folds are worked out
};

} // namespace tamarind::editors
