#pragma once

#include "platform/ui.h"
#include "session/editor_view.h"

#include <wx/dialog.h>

class wxTextCtrl;

namespace tamarind::editors {

/// Asks for the name and value of a new attribute.
class frmAddAttribute : public wxDialog {
public:
    frmAddAttribute(wxWindow* parent, platform::UserInterface& ui);

    [[nodiscard]] session::NewAttribute Entered() const;

private:
    void cmdOK_Click();

    platform::UserInterface& ui_;
    wxTextCtrl* txtName_;
    wxTextCtrl* txtValue_;
};

} // namespace tamarind::editors
