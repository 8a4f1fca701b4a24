#include "platform/wx/window_icons.h"

#include <wx/iconbndl.h>
#include <wx/toplevel.h>

namespace tamarind::platform {

void SetWindowIcons(wxTopLevelWindow& window) { window.SetIcons(wxIconBundle("tamarind", nullptr)); }

} // namespace tamarind::platform
