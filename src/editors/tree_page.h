#pragma once

#include "editors/page_state.h"
#include "editors/tree_rows_page.h"
#include "session/editor_context.h"

#include <wx/panel.h>

#include <functional>
#include <string>
#include <vector>

class wxButton;
class wxListBox;
class wxSizer;
class wxStaticBox;
class wxStaticText;
class wxTextCtrl;

namespace tamarind::editors {

/// The page "XML Editor": the rows of the document, and the attributes and text of the selected one.
class TreePage : public wxPanel {
public:
    /// `run` carries out a command and handles its errors; `popUp` shows the "Nodes" menu.
    using Run = std::function<void(const std::function<void(session::EditorContext&)>&)>;
    TreePage(wxWindow* parent, Run run, std::function<void()> popUp);

    [[nodiscard]] TreeRows& Rows() { return *rows_; }
    void SetFilePath(const std::string& path);
    void ShowState(const PageState& state);

    void EnableAttributeArea(bool enabled);
    void EnableAttributeEditing(bool enabled);
    void ShowAttributeNames(const std::vector<std::string>& names);
    void AppendAttributeName(const std::string& name);
    void RemoveAttributeName(int index);
    void SetAttributeName(int index, const std::string& name);
    [[nodiscard]] int SelectedAttribute() const;
    void ShowAttributeValue(const std::string& value);
    void ShowCharacters(const std::string& text);

private:
    wxSizer* MakeTreeColumn(wxWindow* box, std::function<void()> popUp);
    wxSizer* MakeAttributeFrame(wxWindow* box);
    wxSizer* MakeCharactersFrame(wxWindow* box);
    wxSizer* MakeSearchFrame(wxWindow* box);
    void BindAttributeEvents();

    Run run_;
    wxStaticBox* frame2_ = nullptr;
    wxStaticText* label2_ = nullptr;
    TreeRows* rows_ = nullptr;
    wxStaticBox* fraAttribs_ = nullptr;
    wxStaticText* lblNames_ = nullptr;
    wxStaticText* lblValue_ = nullptr;
    wxListBox* lstAttributes_ = nullptr;
    wxTextCtrl* txtAttributeValue_ = nullptr;
    wxButton* cmdAdd_ = nullptr;
    wxButton* cmdDel_ = nullptr;
    wxButton* cmdRename_ = nullptr;
    wxStaticBox* fraChars_ = nullptr;
    wxStaticText* lblText_ = nullptr;
    wxTextCtrl* txtCharacters_ = nullptr;
};

} // namespace tamarind::editors
