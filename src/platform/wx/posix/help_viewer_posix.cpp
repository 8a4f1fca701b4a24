#include "platform/wx/help_viewer.h"

#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

namespace tamarind::platform {

namespace {

// By name, and not what the desktop opens such files with: that may be a viewer of books without the part for these
// files, or Wine's, whose window stays empty.
constexpr const char* kViewers[] = {"kchmviewer", "uchmviewer", "xchm"};

} // namespace

bool ShowHelpFile(const wxString& path) {
    wxPathList folders;
    folders.AddEnvList("PATH");
    for (const char* const viewer : kViewers) {
        const wxString program = folders.FindAbsoluteValidPath(viewer);
        if (program.empty() || !wxFileName::IsFileExecutable(program)) continue;
        const wxCharBuffer words[] = {program.utf8_str(), path.utf8_str()};
        const char* const command[] = {words[0].data(), words[1].data(), nullptr};
        if (wxExecute(command) != 0) return true;
    }
    return false;
}

} // namespace tamarind::platform
