#pragma once

#include <memory>
#include <string>

class wxHtmlHelpController;
class wxString;
class wxWindow;

namespace tamarind::platform {

/// The help of one main window: shown by the system's viewer for help files where there is one that can show it, else
/// by a window of the toolkit, from the same pages in the folder "help" beside the file. That window stays open beside
/// the others.
class Help {
public:
    explicit Help(wxWindow& window);
    ~Help();
    Help(const Help&) = delete;
    Help& operator=(const Help&) = delete;

    /// Shows the table of contents of a help file, a program's path. False when it cannot be shown either way.
    [[nodiscard]] bool ShowContents(const std::string& file);

private:
    /// With the toolkit's window. `project` is the path of the help's project file beside its pages.
    bool ShowPages(const wxString& project);

    wxWindow& window_;
    std::unique_ptr<wxHtmlHelpController> controller_; ///< null until the toolkit's window is first wanted
};

} // namespace tamarind::platform
