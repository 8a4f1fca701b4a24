#include "platform/wx/toolkit.h"

#include <wx/utils.h>

namespace tamarind::platform {

void SetUpToolkit() {
    // Scroll bars that fade lie on the text, and while one fades GTK lets every key wait for the next frame.
    wxSetEnv("GTK_OVERLAY_SCROLLING", "0");
}

} // namespace tamarind::platform
