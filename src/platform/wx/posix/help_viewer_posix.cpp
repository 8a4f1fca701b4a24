#include "platform/wx/help_viewer.h"

#include <wx/cmdline.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/mimetype.h>
#include <wx/utils.h>

#include <memory>

namespace tamarind::platform {

namespace {

/// The first word of a command, as a shell takes it.
wxString ProgramOf(const wxString& command) {
    const wxArrayString words = wxCmdLineParser::ConvertStringToArgs(command);
    return words.empty() ? wxString() : words[0];
}

bool CanBeStarted(const wxString& program) {
    if (wxFileName(program).IsAbsolute()) return wxFileName::IsFileExecutable(program);
    wxPathList folders;
    folders.AddEnvList("PATH");
    const wxString found = folders.FindAbsoluteValidPath(program);
    return !found.empty() && wxFileName::IsFileExecutable(found);
}

} // namespace

bool ShowHelpFile(const wxString& path) {
    const std::unique_ptr<wxFileType> type(wxTheMimeTypesManager->GetFileTypeFromExtension("chm"));
    if (!type) return false;
    const wxString command = type->GetOpenCommand(path);
    // Wine enters its own viewer here, which shows an empty window.
    if (command.empty() || command.Lower().Contains("wine")) return false;
    return CanBeStarted(ProgramOf(command)) && wxExecute(command) != 0;
}

} // namespace tamarind::platform
