#include "install/folder_lists.h"

#include "platform/myfile.h"
#include "platform/paths.h"
#include "text/code_page.h"
#include "text/search.h"

#include <algorithm>

namespace tamarind::install {

using platform::FolderEntry;

namespace {

constexpr std::string_view kBlanks = " \t";

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

std::u32string CodePoints(std::string_view text) {
    std::u32string points;
    while (!text.empty())
        points += text::TakeCodePoint(text).value;
    return points;
}

/// Goes back to the last "*" only, so that no pattern takes more than length times length steps.
bool MatchesOne(const std::u32string& name, const std::u32string& pattern) {
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t star = std::u32string::npos;
    std::size_t retry = 0;
    while (at < name.size()) {
        if (in < pattern.size() && pattern[in] == U'*') {
            star = in++;
            retry = at;
        } else if (in < pattern.size() && (pattern[in] == U'?' || pattern[in] == name[at])) {
            ++in;
            ++at;
        } else if (star != std::u32string::npos) {
            in = star + 1;
            at = ++retry;
        } else {
            return false;
        }
    }
    return std::all_of(pattern.begin() + static_cast<std::ptrdiff_t>(in), pattern.end(),
                       [](char32_t c) { return c == U'*'; });
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// A folder or a link to one.
bool IsShownFolder(const platform::Files& files, const std::string& path, const FolderEntry& entry) {
    return !entry.isHidden && (entry.isFolder || (entry.isLink && files.IsFolder(path)));
}

} // namespace

std::string DriveOf(std::string_view path) {
    const bool hasDrive = path.size() >= 2 && path[1] == ':' && IsLetter(path[0]);
    return hasDrive ? std::string(path.substr(0, 2)) : "\\";
}

std::string RootOf(const std::string& drive) { return drive.ends_with('\\') ? drive : drive + "\\"; }

std::string NearestFolder(const platform::Files& files, std::string folder) {
    while (!folder.empty() && !platform::FolderExists(files, folder))
        folder = platform::FolderOf(folder);
    return folder;
}

std::vector<FolderRow> FolderRows(const platform::Files& files, const std::string& folder) {
    const std::string root = RootOf(DriveOf(folder));
    std::vector<FolderRow> rows{{root, root, 0, true}};
    std::string path = root;
    std::string_view rest = std::string_view(folder).substr(std::min(root.size(), folder.size()));
    while (!rest.empty()) {
        const std::string name(rest.substr(0, rest.find('\\')));
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
        if (name.empty()) continue;
        path = RootOf(path);
        path += name;
        rows.push_back({name, path, rows.size(), true});
    }
    const std::size_t depth = rows.size();
    for (const FolderEntry& entry : files.List(path)) {
        const std::string below = RootOf(path) + entry.name;
        if (IsShownFolder(files, below, entry)) rows.push_back({entry.name, below, depth, false});
    }
    return rows;
}

std::vector<std::string> FileNames(const platform::Files& files, const std::string& folder, std::string_view pattern) {
    std::vector<std::string> names;
    for (const FolderEntry& entry : files.List(folder)) {
        const bool isFile = !entry.isHidden && !entry.isFolder && !files.IsFolder(RootOf(folder) + entry.name);
        if (isFile && MatchesPattern(entry.name, pattern)) names.push_back(entry.name);
    }
    return names;
}

bool MatchesPattern(std::string_view name, std::string_view patterns) {
    const std::u32string points = CodePoints(text::ToLower(name));
    while (true) {
        const std::size_t end = std::min(patterns.find(';'), patterns.size());
        const std::string_view pattern = Trimmed(patterns.substr(0, end));
        if (pattern == "*.*" || (!pattern.empty() && MatchesOne(points, CodePoints(text::ToLower(pattern)))))
            return true;
        if (end == patterns.size()) return false;
        patterns.remove_prefix(end + 1);
    }
}

} // namespace tamarind::install
