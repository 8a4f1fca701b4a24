#pragma once

#include <wx/textctrl.h>

#include <algorithm>

namespace tamarind::platform {

/// The height of a text box of one line, whose own idea of it does not follow the size of letters on every system.
[[nodiscard]] inline int LineHeightOf(const wxTextCtrl& box) {
    constexpr int kBorders = 6;
    return std::max(box.GetBestSize().y, box.GetCharHeight() + box.FromDIP(kBorders));
}

/// Makes a box of one line so high.
inline void GiveLineHeight(wxTextCtrl& box) { box.SetMinSize(wxSize(box.GetMinSize().x, LineHeightOf(box))); }

} // namespace tamarind::platform
