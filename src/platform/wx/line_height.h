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

/// The room that so many characters of usual width in so many lines take in a window's font.
[[nodiscard]] inline wxSize RoomFor(const wxWindow& window, int characters, int lines) {
    return {characters * window.GetCharWidth(), lines * window.GetCharHeight()};
}

} // namespace tamarind::platform
