#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// What the sample programs need of the system they run on: one body a system, chosen by CMake.
namespace tamarind::samples {

/// The program itself: `arguments` come without the program's own name, the result is its exit code. Every sample
/// program defines it; main() stands in `entry.cpp`.
int RunProgram(const std::vector<std::filesystem::path>& arguments);

/// The path in the form in which every file operation takes it: "\" in an absolute path of Tamarind's becomes "/" where
/// the system's folders are separated so; on Windows the path gets the prefix without which 260 characters are the
/// limit.
[[nodiscard]] std::filesystem::path Reachable(const std::filesystem::path& path);

/// An environment variable's value; nothing when it is not set or empty.
[[nodiscard]] std::optional<std::filesystem::path> EnvironmentValue(const std::string& name);

/// The path as UTF-8 text.
[[nodiscard]] std::string Utf8(const std::filesystem::path& path);

} // namespace tamarind::samples
