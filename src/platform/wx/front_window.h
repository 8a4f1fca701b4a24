#pragma once

class wxWindow;

namespace tamarind::platform {

/// The window that lies in front of all others of `window` and its children's children: the one above which a message
/// must stand so that it is seen.
[[nodiscard]] wxWindow* FrontWindow(wxWindow* window);

} // namespace tamarind::platform
