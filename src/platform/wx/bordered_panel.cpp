#include "platform/wx/bordered_panel.h"

#include <wx/sizer.h>

namespace tamarind::platform {

BorderedPanel::BorderedPanel(wxWindow* parent)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_THEME) {}

void BorderedPanel::Hold(wxWindow* control) {
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(control, wxSizerFlags(1).Expand());
    SetSizer(sizer);
}

} // namespace tamarind::platform
