#include "platform/wx/embedded_icons.h"

#include <wx/mstream.h>

namespace tamarind::platform {

wxIconBundle IconsFrom(const unsigned char* file, std::size_t size) {
    wxMemoryInputStream stream(file, size);
    return {stream, wxBITMAP_TYPE_ICO};
}

} // namespace tamarind::platform
