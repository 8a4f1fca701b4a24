#include "windows/editor_window.h"
#include "windows/system.h"

#include <wx/utils.h>

namespace tamarind::tests {

const int kMenuKey = WXK_MENU;

// The dialog knows a file only once it is on the screen and has read the file's folder.
int ChooseInFileBox(wxFileDialog& box, const wxString& path) {
    box.CallAfter([&box, path] {
        box.SetPath(path);
        const bool chosen = PumpUntil([&] { return box.GetPath() == path; });
        EXPECT_TRUE(chosen) << "the dialog stays at " << box.GetPath();
        box.EndModal(chosen ? wxID_OK : wxID_CANCEL);
    });
    return wxID_NONE;
}

NoHelpViewer::NoHelpViewer() {
    wxGetEnv("PATH", &searchPath_);
    wxSetEnv("PATH", "/nowhere");
}

NoHelpViewer::~NoHelpViewer() { wxSetEnv("PATH", searchPath_); }

void NoHelpViewer::Keep(const std::string&) const {}

} // namespace tamarind::tests
