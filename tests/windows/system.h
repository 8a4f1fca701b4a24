#pragma once

#include <wx/filedlg.h>

#include <string>

namespace tamarind::tests {

/// Chooses a path in a file dialog that is about to be shown. Returns what a dialog hook returns for it.
int ChooseInFileBox(wxFileDialog& box, const wxString& path);

/// What the simulator of keys calls the key with a menu on it.
extern const int kMenuKey;

/// As long as it lives, no outside program that this system has shows help files.
class NoHelpViewer {
public:
    NoHelpViewer();
    ~NoHelpViewer();
    NoHelpViewer(const NoHelpViewer&) = delete;
    NoHelpViewer& operator=(const NoHelpViewer&) = delete;

    /// For a help file, a program's path, that a viewer of the system itself would show.
    void Keep(const std::string& file) const;

private:
    wxString searchPath_; ///< of the system, while it is out of use
};

} // namespace tamarind::tests
