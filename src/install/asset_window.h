#pragma once

#include "install/folder_lists.h"
#include "routes/route_packaging.h"
#include "session/editor_context.h"

#include <span>
#include <string>
#include <vector>

/// The asset packager's window without its controls: what it shows, as plain data, and its commands as functions. The
/// window fills its controls from AssetWindow after every command and hands over what is selected.
namespace tamarind::install {

inline constexpr const char* kAssetWindowTitle = "Select Folder containing your Assets";

/// Indices of selected rows, from 0, in the order of the list.
using Selection = std::span<const std::size_t>;

struct AssetWindow {
    std::vector<std::string> Drives;  ///< the rows of Drive1
    std::string Drive1;               ///< the chosen one
    std::string Dir1;                 ///< the current folder
    std::vector<FolderRow> DirRows;   ///< the rows of Dir1
    std::vector<std::string> File1;   ///< files of the current folder, as Text2 filters them
    std::string Text1;                ///< the current folder, as the system writes it
    std::string Text2 = "*.*";        ///< the pattern
    std::string Text3;                ///< source folder, files and size of the entry of List1 selected last
    std::vector<std::string> List1;   ///< the package's folders, from "Rail Simulator" on
    std::vector<std::string> sources; ///< their full paths
    std::string SourceFolder;         ///< the folder clicked last; empty before the first click
    std::string RelativePath;         ///< its path from "Rail Simulator" on
    std::string CopyScript;           ///< a line for each addition; removing takes none away
    std::string RouteFolderName;      ///< while scenarios are packaged: the route of the first one added
    bool isBusy = false;              ///< a command waits or copies: no other one may begin
    bool isClosed = false;            ///< the window is to close
};

enum class AssetControl {
    Command1, ///< add
    Command2, ///< exit
    Command3, ///< process
    Command4, ///< remove
};

[[nodiscard]] std::string CaptionOf(AssetControl control);
/// Adding needs a clicked folder whose path holds "Rail Simulator".
[[nodiscard]] bool IsEnabled(AssetControl control, const AssetWindow& window);

/// The menu command that packages assets: begins and opens the window; one that is open comes to the front. While the
/// routes window packages scenarios, which shares the package's name and TempFiles, that one comes to the front
/// instead.
void OpenAssetPackager(session::EditorContext& context);

/// Before the window opens: TempFiles is emptied (what is recovered stays), and the package has no
/// name yet. False, and nothing changed, while a game file is being converted; the person is told.
bool BeginAssetPackaging(session::EditorContext& context);

/// Window load: the lists show the game's Assets, or the nearest folder above that is there.
void LoadAssets(session::EditorContext& context, AssetWindow& window);

// Navigation. A failure, such as a drive without a disk, is shown, and the lists stay as they were: false.

bool ChangeDrive(session::EditorContext& context, AssetWindow& window, const std::string& drive);
/// A click on a row of Dir1. Why a folder cannot be added is told in the status line.
bool ClickFolder(session::EditorContext& context, AssetWindow& window, std::size_t row);
/// The same for any folder.
bool SelectFolder(session::EditorContext& context, AssetWindow& window, const std::string& folder);
/// Text2 was changed; an empty pattern is "*.*" again.
bool ChangePattern(session::EditorContext& context, AssetWindow& window, const std::string& pattern);

/// Command1: adds the folder clicked last. Refused, with a message that says why, when it cannot be in a package.
routes::Ended AddFolder(session::EditorContext& context, AssetWindow& window);
/// Command4: takes the rows out of List1. Their lines stay in the copy script, so their folders are copied
/// nevertheless.
void RemoveFolders(AssetWindow& window, Selection rows);
/// List1 was clicked: Text3 shows the last selected row's source folder, its number of files and their size.
void ShowDetail(session::EditorContext& context, AssetWindow& window, Selection rows);
/// Command3: makes the package. A failure is shown; what was already made stays.
routes::Packaged ProcessAssets(session::EditorContext& context, AssetWindow& window);
/// The window was closed, by whatever means.
void CloseAssets(session::EditorContext& context, AssetWindow& window);

} // namespace tamarind::install
