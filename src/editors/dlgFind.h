#pragma once

#include <wx/dialog.h>

namespace tamarind::editors {

/// Asks, when a row was found, whether to go on: its Find button ends it with wxID_FIND, OK with wxID_OK.
class dlgFind : public wxDialog {
public:
    /// `besides` is what it leaves in sight as far as it can.
    dlgFind(wxWindow* parent, const wxWindow& besides);
};

} // namespace tamarind::editors
