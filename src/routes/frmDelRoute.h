#pragma once

#include "platform/wx/status_line.h"
#include "routes/route_window.h"
#include "session/editor_context.h"

#include <wx/dialog.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

class wxButton;
class wxListBox;
class wxSizer;
class wxStaticText;

namespace tamarind::routes {

/// The routes of the game and the scenarios of one of them, for deleting, checking and packaging. It stays open beside
/// the main window.
class frmDelRoute : public wxDialog, public platform::StatusLine {
public:
    /// What the main window does for it.
    struct Owner {
        session::CommandRunner run;
        std::function<void()> offerToStop; ///< asks whether to stop the outside program that is waited for
    };

    /// `window` as LoadRoutes has filled it.
    frmDelRoute(wxWindow* parent, session::EditorContext& context, RouteWindow window, Owner owner);

    void ShowStatus(const std::string& text) override;

private:
    using Indices = std::vector<std::size_t>;
    /// A list below its label.
    struct Column {
        wxSizer* sizer;
        wxListBox* list;
    };

    Column MakeColumn(Control label, char mnemonic, const char* name);
    Column MakeColumn(const wxString& label, const char* name, long style);
    wxButton* MakeButton(Control control, const char* name, char mnemonic, void (frmDelRoute::*click)());
    wxSizer* MakeRoutes();
    wxSizer* MakeScenarios();
    void MakeControls();
    void BindEvents();
    void UseAsDefault(wxWindow& list, Control control);
    void SelectBoth(wxListBox& from, wxListBox& to);

    // The handlers of the controls.
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command7_Click();
    void OKButton_Click();
    void OnClose(wxCloseEvent& event);
    void OnRouteSelected();

    void Run(const std::function<void(session::EditorContext&)>& command);
    /// Runs a command on the selected routes or scenarios, and unselects them unless it was declined.
    void RunOn(wxListBox& list, const char* hint,
               const std::function<Ended(session::EditorContext&, Selection)>& command);
    void ShowState();
    void ShowLine(const std::string& text);
    void ShowButtons();
    void Fill(wxListBox& list, const std::vector<std::string>& items);

    session::EditorContext& context_;
    RouteWindow window_;
    Owner owner_;
    std::map<Control, wxButton*> buttons_;
    std::map<const wxListBox*, std::vector<std::string>> shown_;
    wxListBox* list1_ = nullptr;
    wxListBox* list2_ = nullptr;
    wxListBox* list3_ = nullptr;
    wxListBox* list4_ = nullptr;
    Column file1_{};
    wxStaticText* status_ = nullptr;
    int runningCommands_ = 0;
    bool hasTold_ = false; ///< the last command has told something in the status line
    bool closesAfterwards_ = false;
};

} // namespace tamarind::routes
