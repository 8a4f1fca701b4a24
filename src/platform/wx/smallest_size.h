#pragma once

#include <wx/gdicmn.h>

class wxTopLevelWindow;

namespace tamarind::platform {

/// The window cannot be made so small that its sizer would cut something off. Once it is shown, its frame counts too,
/// which is not known before on every system.
void KeepWhole(wxTopLevelWindow& window);

/// The same, and it opens with room, within the screen.
void OpenWithRoom(wxTopLevelWindow& window, const wxSize& roomy);

} // namespace tamarind::platform
