#pragma once

#include <map>
#include <string>
#include <vector>

namespace tamarind::tests {

struct SourceFile {
    std::string path; ///< below src, with "/", as it is written in an include
    std::vector<std::string> lines;
    std::vector<std::string> quoted; ///< what stands in its #include "…" lines
    std::vector<std::string> angled; ///< what stands in its #include <…> lines

    /// The folder directly below src.
    [[nodiscard]] std::string Room() const;
    [[nodiscard]] bool IsIn(const std::string& folder) const { return path.starts_with(folder + "/"); }
    /// A window or a page of one: it may know the window system.
    [[nodiscard]] bool IsWindow() const;
};

/// By path.
using SourceTree = std::map<std::string, SourceFile>;

/// Splits one file's text.
[[nodiscard]] SourceFile ParseSource(const std::string& path, const std::string& text);
/// Every .h and .cpp below a folder.
[[nodiscard]] SourceTree ReadSources(const std::string& folder);

// The rules. Each returns what breaks it, a line a case.

/// A room includes itself and those below it; `rooms` from the lowest to the highest.
[[nodiscard]] std::vector<std::string> UpwardIncludes(const SourceTree& tree, const std::vector<std::string>& rooms);
[[nodiscard]] std::vector<std::string> UnknownIncludes(const SourceTree& tree);
/// Files that include each other, by whatever way round.
[[nodiscard]] std::vector<std::string> Circles(const SourceTree& tree);
/// <wx/…> outside windows, pages and platform/wx.
[[nodiscard]] std::vector<std::string> StrayToolkitIncludes(const SourceTree& tree);
/// Outside platform, an include that is neither the standard library without its files, nor the toolkit, nor one of
/// the libraries that know nothing of the system.
[[nodiscard]] std::vector<std::string> SystemIncludes(const SourceTree& tree);
/// Anything but the standard library and src/text itself, included in src/text.
[[nodiscard]] std::vector<std::string> ForeignIncludesOfText(const SourceTree& tree);
/// Conditional compilation, anywhere: bodies for different systems are different files.
[[nodiscard]] std::vector<std::string> ConditionalLines(const SourceTree& tree);
[[nodiscard]] std::vector<std::string> FilesLongerThan(const SourceTree& tree, std::size_t lines);

} // namespace tamarind::tests
