#pragma once

#include <wx/colour.h>

namespace tamarind::platform {

[[nodiscard]] bool IsDark(const wxColour& ground);

// The program's two colours for letters, in a tone that can be read on the ground: the pure one on a light ground, a
// light one on a dark ground.
[[nodiscard]] wxColour BlueOn(const wxColour& ground);
[[nodiscard]] wxColour RedOn(const wxColour& ground);

} // namespace tamarind::platform
