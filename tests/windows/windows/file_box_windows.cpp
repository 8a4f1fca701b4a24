#include "windows/file_box.h"

namespace tamarind::tests {

// The system's dialog cannot be driven from within; what was set is what it answers.
int ChooseInFileBox(wxFileDialog& box, const wxString& path) {
    box.SetPath(path);
    return wxID_OK;
}

} // namespace tamarind::tests
