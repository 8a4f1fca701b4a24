#pragma once

#include "install/folder_lists.h"
#include "session/editor_context.h"

#include <cstddef>
#include <string>
#include <vector>

/// The window that chooses a folder, without its controls: what it shows, as plain data, and its commands as functions.
/// What it is open for stands in the session's AuthoringState.
namespace tamarind::authoring {

inline constexpr const char* kFolderNameLabel = "Enter Folder Name for Add-ON";

struct FolderWindow {
    session::FolderJob job = session::FolderJob::AddOn;
    std::string caption;
    std::vector<std::string> Drives; ///< the rows of Drive1
    std::string Drive1;              ///< the chosen one
    std::string Dir1;                ///< the current folder
    std::vector<install::FolderRow> DirRows;
    std::string Text1;        ///< the chosen folder; empty after a choice that was refused
    std::string Text2;        ///< the name of the new add-on, of that job alone
    bool isConfirmed = false; ///< the choice is accepted: the window is to close
};

/// Window load. Starts at the folder that the job begins with, or at the nearest one above it that is there.
void LoadFolders(session::EditorContext& context, FolderWindow& window);

// Navigation. A failure, such as a drive without a disk, is shown, and the lists stay as they were: false.

bool ChangeDrive(session::EditorContext& context, FolderWindow& window, const std::string& drive);
/// A click on a row of Dir1, which chooses the folder.
bool ClickFolder(session::EditorContext& context, FolderWindow& window, std::size_t row);

/// What Command1 is going to do with what is chosen, or what is still to be chosen, in words.
[[nodiscard]] std::string FolderHint(const session::EditorContext& context, const FolderWindow& window);
/// Whether there is anything to be confirmed.
[[nodiscard]] bool CanConfirm(const FolderWindow& window);

/// Command1. A name that no folder can bear, and a folder that does not fit the job, are told; the window stays open.
void Confirm(session::EditorContext& context, FolderWindow& window);

} // namespace tamarind::authoring
