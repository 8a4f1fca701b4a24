#include "platform/wx/window_icons.h"

#include "icons.h"

#include <wx/bitmap.h>
#include <wx/iconbndl.h>
#include <wx/toplevel.h>

namespace tamarind::platform {

void SetWindowIcons(wxTopLevelWindow& window) {
    wxIconBundle icons;
    const auto add = [&icons](const unsigned char* data, std::size_t size) {
        wxIcon icon;
        icon.CopyFromBitmap(wxBitmap::NewFromPNGData(data, size));
        icons.AddIcon(icon);
    };
    add(tamarind_16_png, sizeof tamarind_16_png);
    add(tamarind_32_png, sizeof tamarind_32_png);
    add(tamarind_48_png, sizeof tamarind_48_png);
    add(tamarind_64_png, sizeof tamarind_64_png);
    window.SetIcons(icons);
}

} // namespace tamarind::platform
