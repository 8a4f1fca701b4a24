#pragma once

#include <string>
#include <string_view>

/// The program's own paths: UTF-8 text with "\" between folders, on every system.
namespace tamarind::platform {

/// The part up to, not including, the last "\"; empty when there is none.
[[nodiscard]] std::string FolderOf(std::string_view path);
/// The part after the last "\"; the whole text when there is none.
[[nodiscard]] std::string NameOf(std::string_view path);
/// The name up to and including its last "."; the name and a "." when it has none.
[[nodiscard]] std::string BaseNameWithDot(std::string_view name);
/// The part of the name after its last "."; empty when it has none.
[[nodiscard]] std::string ExtensionOf(std::string_view name);
/// The path with its last three characters replaced, whatever they are; all of a shorter one.
[[nodiscard]] std::string WithLastThreeReplaced(std::string_view path, std::string_view ending);
/// Without trailing "\".
[[nodiscard]] std::string WithoutTrailingBackslash(std::string_view path);

/// A path as this system's users write it, made the program's: absolute, with "\".
/// A relative one starts in the current folder.
[[nodiscard]] std::string FromNative(std::string_view nativePath);
/// A program's path as this system writes it, in the letter case on disk.
[[nodiscard]] std::string ToNative(std::string_view path);

/// A program's path as this system's users write it, for messages; the disk is not asked.
[[nodiscard]] std::string ForDisplay(std::string_view path);

/// The folder that holds the running executable.
[[nodiscard]] std::string ExecutableFolder();

} // namespace tamarind::platform
