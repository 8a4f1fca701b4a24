#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Program paths made native, and back.
namespace tamarind::platform {

/// The native spelling of a program path, in the letter case on disk. Nothing for a path with a drive: no such file
/// exists on this system.
[[nodiscard]] std::optional<std::string> NativePath(std::string_view path);

/// NativePath with the last component as written, for names that are to be created with just that letter case.
[[nodiscard]] std::optional<std::string> NativePathWithNameAsWritten(std::string_view path);

/// A native path or name in the program's spelling. A "\" inside a native name is kept apart from the folder
/// separator by a character of the private use area, so that no file name can lead into another folder.
[[nodiscard]] std::string ProgramSpelling(std::string_view native);

/// Whether the path begins with a drive letter and a colon.
[[nodiscard]] bool HasDrive(std::string_view path);

} // namespace tamarind::platform
