#pragma once

#include "editors/page_state.h"
#include "editors/tree_rows_page.h"
#include "editors/tree_search.h"
#include "session/editor_context.h"

#include <wx/panel.h>

#include <functional>
#include <string>
#include <vector>

class wxButton;
class wxCheckBox;
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
    void SelectAttribute(int index);
    void ShowCharacters(const std::string& text);

    /// What the button "Find" does.
    void FindNext() { Command2_Click(); }
    /// Writes where the selected element stands to the clipboard.
    void CopyPath();

private:
    wxSizer* MakeTreeColumn(wxWindow* box, std::function<void()> popUp);
    wxSizer* MakeAttributeFrame(wxWindow* box);
    wxSizer* MakeCharactersFrame(wxWindow* box);
    wxSizer* MakeSearchFrame(wxWindow* box);
    void BindAttributeEvents();
    void OnKey(wxKeyEvent& event);
    /// True when the key was one of the page's own.
    bool DoKey(const wxKeyEvent& event);
    bool DoKeyOfRows(const wxKeyEvent& event);

    [[nodiscard]] SearchRequest Request() const;
    [[nodiscard]] std::string Replacement() const;
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();

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
    wxTextCtrl* text2_ = nullptr;
    wxTextCtrl* text3_ = nullptr;
    wxCheckBox* check1_ = nullptr;
};

} // namespace tamarind::editors
