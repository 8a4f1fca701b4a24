#pragma once

#include "install/folder_lists.h"

#include <functional>
#include <string>
#include <vector>

class wxChoice;
class wxSizer;
class wxTextCtrl;
class wxTreeCtrl;
class wxWindow;

namespace tamarind::install {

/// A list of drives and, below it, a list of folders with the current one open: Drive1 and Dir1 of a window.
class FolderListPage {
public:
    /// Told after a click, when the lists may be filled anew.
    struct Handlers {
        std::function<void(std::size_t)> changeDrive; ///< the index of the drive
        std::function<void(std::size_t)> clickFolder; ///< the row
    };

    /// Makes the controls as children of the window, with their labels. `characters` wide and `lines` high.
    wxSizer* Make(wxWindow* parent, int characters, int lines, Handlers handlers);
    /// Makes Text1, which shows a folder's path, and its label.
    wxSizer* MakePath(wxWindow* parent);
    void ShowDrives(const std::vector<std::string>& drives, const std::string& current);
    void ShowFolders(const std::vector<FolderRow>& rows);
    /// The path as the system writes it; of a long one the end is in sight.
    void ShowPath(const std::string& path);
    [[nodiscard]] wxTreeCtrl& Folders() { return *dir1_; }

private:
    void BindEvents();

    Handlers handlers_;
    std::vector<FolderRow> shownRows_;
    wxChoice* drive1_ = nullptr;
    wxTreeCtrl* dir1_ = nullptr;
    wxTextCtrl* text1_ = nullptr;
};

} // namespace tamarind::install
