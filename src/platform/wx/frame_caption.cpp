#include "platform/wx/frame_caption.h"

#include "platform/wx/colours.h"
#include "platform/wx/wx_text.h"

#include <wx/settings.h>
#include <wx/statbox.h>

namespace tamarind::platform {

void ShowFrameCaption(wxStaticBox& frame, const std::string& caption, bool isWarning) {
    frame.SetLabel(ToWx(caption));
    const wxFont plain = frame.GetParent()->GetFont();
    frame.SetForegroundColour(isWarning ? RedOn(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE))
                                        : wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT));
    frame.SetFont(isWarning ? plain.Bold() : plain);
    frame.Refresh();
}

} // namespace tamarind::platform
