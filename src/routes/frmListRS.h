#pragma once

#include "session/editor_context.h"

#include <wx/dialog.h>

#include <string>
#include <vector>

class wxListBox;
class wxStaticText;
class wxTextCtrl;

namespace tamarind::routes {

/// The list of what a scenario uses, and what of it is missing.
class frmListRS : public wxDialog {
public:
    frmListRS(wxWindow* parent, const std::string& scenario, std::vector<std::string> list, session::CommandRunner run);

private:
    void PlaceControls(wxWindow* label1, wxWindow* label2, wxWindow* cancelButton);
    void Command1_Click();
    void ShowCount(const std::string& count);

    std::vector<std::string> list_;
    session::CommandRunner run_;
    wxListBox* list1_;
    wxTextCtrl* text1_;
    wxWindow* command1_;
    wxStaticText* status_;
};

} // namespace tamarind::routes
