#include "platform/wx/front_window.h"

#include <wx/window.h>

#include <algorithm>

namespace tamarind::platform {

wxWindow* FrontWindow(wxWindow* window) {
    const wxWindowList& children = window->GetChildren();
    // The one opened last lies in front.
    const auto last = std::find_if(children.rbegin(), children.rend(), [](const wxWindow* child) {
        return child->IsTopLevel() && child->IsShown() && !child->IsBeingDeleted();
    });
    return last == children.rend() ? window : FrontWindow(*last);
}

} // namespace tamarind::platform
