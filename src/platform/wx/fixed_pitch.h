#pragma once

#include <wx/font.h>
#include <wx/window.h>

namespace tamarind::platform {

/// The font of lists and reports, as large as the window's own.
[[nodiscard]] inline wxFont FixedPitch(const wxWindow& window) {
    return wxFontInfo(window.GetFont().GetPointSize()).Family(wxFONTFAMILY_TELETYPE).FaceName("Courier New");
}

} // namespace tamarind::platform
