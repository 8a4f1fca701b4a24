#pragma once

#include "routes/frmTool.h"
#include "routes/route_window.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

class wxButton;
class wxListBox;
class wxSizer;

namespace tamarind::routes {

/// The routes of the game and the scenarios of one of them, for deleting, checking and packaging.
class frmDelRoute final : public frmTool {
public:
    /// `window` as LoadRoutes has filled it.
    frmDelRoute(wxWindow* parent, session::EditorContext& context, RouteWindow window, Owner owner);

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
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();
    void OKButton_Click();
    void PackageSelected();
    void OnRouteSelected();

    /// Runs a command on the selected routes or scenarios, and unselects them unless it was declined.
    void RunOn(wxListBox& list, const char* hint,
               const std::function<Ended(session::EditorContext&, Selection)>& command);
    void ShowState() override;
    void ShowButtons() override;
    void EndState() override;
    [[nodiscard]] bool IsEnded() const override { return window_.isClosed; }
    void Fill(wxListBox& list, const std::vector<std::string>& items);

    session::EditorContext& context_;
    RouteWindow window_;
    std::map<Control, wxButton*> buttons_;
    std::map<const wxListBox*, std::vector<std::string>> shown_;
    wxListBox* list1_ = nullptr;
    wxListBox* list2_ = nullptr;
    wxListBox* list3_ = nullptr;
    wxListBox* list4_ = nullptr;
    Column file1_{};
};

} // namespace tamarind::routes
