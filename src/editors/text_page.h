#pragma once

#include "editors/page_state.h"
#include "editors/text_search.h"
#include "session/editor_context.h"
#include "session/editor_view.h"

#include <wx/panel.h>
#include <wx/weakref.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

class wxButton;
class wxSplitterWindow;
class wxStaticBox;
class wxTextCtrl;

namespace tamarind::editors {

class dlgSearch;
class XmlText;
enum class TextCommand;

/// The page "Tamarind Editor": a game file's XML as plain text.
class TextPage : public wxPanel {
public:
    /// `run` carries out a command and handles its errors; `onState` is called when StateText changes.
    TextPage(wxWindow* parent, session::CommandRunner run, std::function<void()> onState);
    ~TextPage() override;

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
    void Highlight();
    [[nodiscard]] XmlText& Editor() { return *richTextBox1_; }

    /// Opens the search dialog, or brings it to the front.
    void ShowSearch();
    /// The next match of what was searched for last; opens the dialog when nothing was.
    void FindNext();

    /// The keys go to the text.
    void TakeFocus();

    /// A program's path; shown as this system writes paths.
    void SetFilePath(const std::string& path);
    [[nodiscard]] std::string FilePath() const;

    void ShowState(const PageState& state);

    /// For the status line.
    struct StateText {
        std::string caret;    ///< "Line 3, Column 14"
        std::string lineEnds; ///< "CR LF" or "LF"
        std::string encoding;
    };
    [[nodiscard]] StateText State() const;

private:
    wxSizer* MakeTopRow();
    void OnKey(wxKeyEvent& event);
    void OnContextMenu(wxContextMenuEvent& event);
    void Do(TextCommand command);
    void AskForLine();

    session::CommandRunner run_;
    wxStaticBox* frame1_ = nullptr;
    wxTextCtrl* text1_ = nullptr;
    wxButton* command1_ = nullptr;
    wxSplitterWindow* splitter_ = nullptr;
    wxWindow* textSide_ = nullptr;
    XmlText* richTextBox1_ = nullptr;
    TextRequest searched_; ///< last
    wxWeakRef<dlgSearch> search_;
};

} // namespace tamarind::editors
