#pragma once

#include <wx/panel.h>

namespace tamarind::platform {

/// This system's border round one control that draws none of its own on every system.
class BorderedPanel : public wxPanel {
public:
    explicit BorderedPanel(wxWindow* parent);

    /// The control, a child of this panel, fills it.
    void Hold(wxWindow* control);
};

} // namespace tamarind::platform
