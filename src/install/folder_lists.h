#pragma once

#include "platform/file_system.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// What a list of drives, a list of folders and a list of files show. Paths are the program's.
namespace tamarind::install {

/// One row of a list of folders.
struct FolderRow {
    std::string text;      ///< the folder's name; of the first row the drive, such as "C:\" or "\"
    std::string path;      ///< full
    std::size_t depth = 0; ///< how far the row is indented
    bool isOpen = false;   ///< the current folder or one above it
    bool operator==(const FolderRow&) const = default;
};

/// The drive of a path: its first two characters where they name one, such as "C:"; else "\".
[[nodiscard]] std::string DriveOf(std::string_view path);
/// The path of a drive's own folder: "C:\" or "\".
[[nodiscard]] std::string RootOf(const std::string& drive);

/// The folder, or where it is missing the nearest one above it that is there; empty where none is.
[[nodiscard]] std::string NearestFolder(const platform::Files& files, std::string folder);

/// The rows for a current folder: the drive, each folder on the way, the folder itself, and the folders in it, without
/// hidden ones. Errors as Files::List.
[[nodiscard]] std::vector<FolderRow> FolderRows(const platform::Files& files, const std::string& folder);

/// The names of the files in a folder that match the pattern, without hidden ones. Errors as Files::List.
[[nodiscard]] std::vector<std::string> FileNames(const platform::Files& files, const std::string& folder,
                                                 std::string_view pattern);

/// Whether a name matches one of the patterns, which semicolons separate. "*" stands for any characters, "?" for one;
/// letter case does not count; "*.*" matches every name, with a dot or without.
[[nodiscard]] bool MatchesPattern(std::string_view name, std::string_view patterns);

} // namespace tamarind::install
