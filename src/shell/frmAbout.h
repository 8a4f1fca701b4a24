#pragma once

#include <wx/dialog.h>

namespace tamarind::shell {

/// Name, version, and what the program is, in a few words.
class frmAbout : public wxDialog {
public:
    explicit frmAbout(wxWindow* parent);
};

} // namespace tamarind::shell
