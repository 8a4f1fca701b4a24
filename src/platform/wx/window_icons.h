#pragma once

class wxTopLevelWindow;

namespace tamarind::platform {

/// The program's icons in all sizes, for the window's frame and the task bar.
void SetWindowIcons(wxTopLevelWindow& window);

} // namespace tamarind::platform
