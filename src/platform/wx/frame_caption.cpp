#include "platform/wx/frame_caption.h"

#include "platform/wx/wx_text.h"

#include <wx/settings.h>
#include <wx/statbox.h>

namespace tamarind::platform {

void ShowFrameCaption(wxStaticBox& frame, const std::string& caption, bool isWarning) {
    frame.SetLabel(ToWx(caption));
    const wxFont plain = frame.GetParent()->GetFont();
    // Colour value 255 has red in its low byte.
    frame.SetForegroundColour(isWarning ? wxColour(255UL) : wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT));
    frame.SetFont(isWarning ? plain.Bold() : plain);
    frame.Refresh();
}

} // namespace tamarind::platform
