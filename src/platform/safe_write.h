#pragma once

#include "platform/file_system.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// Writing so that the old content survives every failure.
namespace tamarind::platform {

/// Writes a file's content through `sink`, as often as it likes.
using WriteContent = std::function<void(OutputFile& sink)>;

/// The target gets the content that `write` produces: first into a temporary file beside it, which is flushed, given
/// the old file's owner and rights, and then put in its place in one step. Links in the path are followed. On failure
/// the target is unchanged, the temporary file is gone, and the error goes on.
void WriteSafely(Files& files, const std::string& path, const WriteContent& write);
void WriteSafely(Files& files, const std::string& path, std::string_view bytes);

/// Writes the whole content of the file `from` into `sink`. Errors as Files::Open, and those of both files.
void CopyContent(const Files& files, const std::string& from, OutputFile& sink);

/// The name under which a game file's old content is kept: path + ".bak", else path + ".bak" + 1 to 50, the first that
/// does not exist; empty when all exist.
[[nodiscard]] std::string FreeBackupName(const Files& files, const std::string& path);

/// Puts the content of `newFile` in place of the game file `original` and keeps the old content under the free backup
/// name; returns that name, empty when none was free (then the old content is gone). At no moment is `original`
/// absent, empty or half-written. A missing `original` is the error FileNotFound. On failure `original` is unchanged,
/// no backup was made, and the error's details say so.
std::string ReplaceGameFile(Files& files, const std::string& original, const std::string& newFile);

/// Whether a file that is not empty stands there, and it is another one than `before`: for a program of which only its
/// output tells whether it worked.
[[nodiscard]] bool IsNewFile(const Files& files, const std::string& path, const std::optional<FileStamp>& before);

/// The game file as it was, from its backup, which stays. Where there is no room for both, the backup itself takes the
/// place, if that is empty. Throws when that fails too.
void PutBack(Files& files, const std::string& backup, const std::string& original);

} // namespace tamarind::platform
