#include "platform/wx/window_icons.h"

#include "icons.h"
#include "platform/wx/embedded_icons.h"

#include <wx/toplevel.h>

namespace tamarind::platform {

void SetWindowIcons(wxTopLevelWindow& window) { window.SetIcons(IconsFrom(window_icon)); }

} // namespace tamarind::platform
