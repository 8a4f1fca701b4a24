#pragma once

#include "platform/file_system.h"
#include "platform/ui.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

/// The file helpers that every command uses.
namespace tamarind::platform {

/// Whether the file can be opened for reading: false for a missing or locked file, a folder, an empty path.
[[nodiscard]] bool FileExists(const Files& files, const std::string& path);

/// Whether it is a folder, with or without a trailing "\".
[[nodiscard]] bool FolderExists(const Files& files, const std::string& path);

/// The bytes of a file. Errors as Files::Open.
[[nodiscard]] std::string ReadBytes(const Files& files, const std::string& path);

/// Reads a whole text file into `text` as UTF-8: a file whose name ends in "mkr" from UTF-16, any other from
/// Windows-1252. A missing file leaves `text` as it is. Errors as Files::Open.
void ReadUniFile(const Files& files, const std::string& path, std::string& text);

/// The same text, handed over piece by piece; nothing for a missing file.
void ReadUniFile(const Files& files, const std::string& path, const std::function<void(std::string_view)>& take);

/// Creates or replaces a text file, in Windows-1252, no line end added. The old content stays until the new one is
/// whole on disk. Returns whether it worked; an error is shown to the user, and nothing is thrown.
bool WriteUniFile(Files& files, UserInterface& ui, const std::string& path, std::string_view text);

/// Copies a file; `to` is created or replaced, whole or not at all.
void CopyFile(Files& files, const std::string& from, const std::string& to);

/// Copies a folder with all that is in it. Existing files are replaced when `overwrite` is set, else an existing file
/// is the error FileAlreadyExists.
void CopyFolderTree(Files& files, const std::string& from, const std::string& to, bool overwrite);

/// Deletes a folder with all that is in it, read-only files too; links are deleted, not followed. The first failure
/// ends the deletion without a report.
void DelAll(Files& files, const std::string& folder);

/// Whether the text is not empty and holds only ASCII letters and the characters " $ ' , - and the full stop.
[[nodiscard]] bool IsPlainName(std::string_view text);

/// Sorts `items` from index `low` to index `high` (from 0, both included) without regard to letter case; equal items
/// may change places.
void SortStrings(std::span<std::string> items, std::ptrdiff_t low, std::ptrdiff_t high);

} // namespace tamarind::platform
