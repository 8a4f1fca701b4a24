#include "windows/system.h"

#include "platform/wx/wx_text.h"

#include <wx/file.h>
#include <wx/log.h>

namespace tamarind::tests {

const int kMenuKey = WXK_WINDOWS_MENU;

// The system's dialog cannot be driven from within; what was set is what it answers.
int ChooseInFileBox(wxFileDialog& box, const wxString& path) {
    box.SetPath(path);
    return wxID_OK;
}

NoHelpViewer::NoHelpViewer() = default;

NoHelpViewer::~NoHelpViewer() = default;

// The mark of a download. Disks that know no such marks, such as Wine's, need none: Wine shows no help file.
void NoHelpViewer::Keep(const std::string& file) const {
    const wxLogNull quiet;
    wxFile mark;
    if (mark.Create(platform::ToWx(file + ":Zone.Identifier"))) mark.Write(wxString("[ZoneTransfer]\r\nZoneId=3\r\n"));
}

} // namespace tamarind::tests
