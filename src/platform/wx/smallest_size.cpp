#include "platform/wx/smallest_size.h"

#include <wx/display.h>
#include <wx/sizer.h>
#include <wx/toplevel.h>

namespace tamarind::platform {

void KeepWhole(wxTopLevelWindow& window) {
    const auto keep = [&window] { window.SetMinSize(window.GetSizer()->ComputeFittingWindowSize(&window)); };
    keep();
    window.Bind(wxEVT_SHOW, [&window, keep](wxShowEvent& event) {
        if (event.IsShown()) window.CallAfter(keep);
        event.Skip();
    });
}

void OpenWithRoom(wxTopLevelWindow& window, const wxSize& roomy) {
    KeepWhole(window);
    wxSize size = wxDisplay(&window).GetClientArea().GetSize();
    size.DecTo(roomy);
    window.SetSize(size);
}

} // namespace tamarind::platform
