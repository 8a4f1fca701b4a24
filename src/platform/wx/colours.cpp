#include "platform/wx/colours.h"

namespace tamarind::platform {

bool IsDark(const wxColour& ground) { return ground.GetLuminance() < 0.5; }

wxColour BlueOn(const wxColour& ground) { return IsDark(ground) ? wxColour(0x7A, 0xA8, 0xFF) : wxColour(0, 0, 255); }

wxColour RedOn(const wxColour& ground) { return IsDark(ground) ? wxColour(0xFF, 0x7A, 0x7A) : wxColour(255, 0, 0); }

} // namespace tamarind::platform
