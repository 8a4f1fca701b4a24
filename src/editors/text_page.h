#pragma once

#include "editors/page_state.h"
#include "session/editor_view.h"

#include <wx/panel.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

class wxButton;
class wxSplitterWindow;
class wxStaticBox;
class wxStyledTextCtrl;
class wxTextCtrl;

namespace tamarind::editors {

/// The page "Tamarind Editor": a game file's XML as plain text.
class TextPage : public wxPanel {
public:
    explicit TextPage(wxWindow* parent);

    /// Replaces the whole text, unmodified, the caret at its start.
    /// As EditorView::FillEditorText tells.
    void FillText(std::size_t size, const std::function<void(const session::TextSink& take)>& write);
    /// The text itself, until it changes.
    [[nodiscard]] std::string_view TextView() const;
    /// Parent of a pane that is to stand beside the text.
    [[nodiscard]] wxWindow* ParentOfPanes() const;
    void ShowBeside(wxWindow& pane);
    void ShowTextAlone();
    /// Lets events happen until the text set last is painted, for half a second at most.
    void Paint();
    [[nodiscard]] std::string Text() const;
    [[nodiscard]] bool IsModified() const;
    void SetSaved();

    /// A program's path; shown as this system writes paths.
    void SetFilePath(const std::string& path);
    [[nodiscard]] std::string FilePath() const;

    void ShowState(const PageState& state);

private:
    void SetUpEditor();
    void FitScrollWidth();
    void MakeRoomAtStart();

    wxStaticBox* frame1_;
    wxTextCtrl* text1_;
    wxButton* command1_;
    wxSplitterWindow* splitter_ = nullptr;
    wxWindow* textSide_ = nullptr;
    wxStyledTextCtrl* richTextBox1_;
    int fittedWidth_ = 0;
    bool isPainted_ = true; ///< since the text was set
};

} // namespace tamarind::editors
