#include "windows/system.h"

namespace tamarind::tests {

const int kMenuKey = WXK_WINDOWS_MENU;

// The system's dialog cannot be driven from within; what was set is what it answers.
int ChooseInFileBox(wxFileDialog& box, const wxString& path) {
    box.SetPath(path);
    return wxID_OK;
}

} // namespace tamarind::tests
