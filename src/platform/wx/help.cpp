#include "platform/wx/help.h"

#include "platform/paths.h"
#include "platform/ui.h"
#include "platform/wx/help_viewer.h"
#include "platform/wx/wx_text.h"

#include <wx/filename.h>
#include <wx/html/helpctrl.h>
#include <wx/msgdlg.h>

#include <memory>

namespace tamarind::platform {
namespace {

/// The toolkit's own window, from the same pages. It stays open beside the program's windows.
bool ShowPages(const wxString& project, wxWindow& window) {
    if (!wxFileName::FileExists(project)) return false;
    // One for the whole run: it owns its window.
    static std::unique_ptr<wxHtmlHelpController> controller;
    if (!controller) {
        controller = std::make_unique<wxHtmlHelpController>(wxHF_DEFAULT_STYLE | wxHF_OPEN_FILES, &window);
        if (!controller->AddBook(wxFileName(project))) {
            controller.reset();
            return false;
        }
    }
    return controller->DisplayContents();
}

} // namespace

void ShowHelp(wxWindow& window, const std::string& file) {
    const wxFileName native(ToWx(ToNative(file)));
    if (native.FileExists() && ShowHelpFile(native.GetFullPath())) return;
    wxFileName project(native);
    project.AppendDir("help");
    project.SetFullName("Tamarind.hhp");
    if (ShowPages(project.GetFullPath(), window)) return;
    wxMessageDialog(&window, "The help file was not found:\n" + native.GetFullPath(), kApplicationTitle,
                    wxOK | wxICON_EXCLAMATION | wxCENTRE)
        .ShowModal();
}

} // namespace tamarind::platform
