#include "platform/wx/help_viewer.h"

#include <wx/mimetype.h>
#include <wx/utils.h>

#include <memory>

namespace tamarind::platform {

bool ShowHelpFile(const wxString& path) {
    const std::unique_ptr<wxFileType> type(wxTheMimeTypesManager->GetFileTypeFromExtension("chm"));
    if (!type) return false;
    const wxString command = type->GetOpenCommand(path);
    return !command.empty() && wxExecute(command) != 0;
}

} // namespace tamarind::platform
