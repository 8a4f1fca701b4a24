#include "platform/paths.h"
#include "platform/posix/native_path.h"
#include "platform/posix/system_error.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <vector>

namespace tamarind::platform {
namespace {

/// Appends the components of `path`, without "." and empty ones. Leading ".." take components of `components` away;
/// later ones stay, because what stands before them may be a link.
void AppendComponents(std::vector<std::string>& components, std::string_view path) {
    bool leading = true;
    while (!path.empty()) {
        const std::size_t slash = path.find('/');
        const std::string_view name = path.substr(0, slash);
        path.remove_prefix(slash == std::string_view::npos ? path.size() : slash + 1);
        if (name.empty() || name == ".") {
            continue;
        }
        leading = leading && name == "..";
        if (!leading) {
            components.emplace_back(name);
        } else if (!components.empty()) {
            components.pop_back();
        }
    }
}

} // namespace

std::string FromNative(std::string_view nativePath) {
    std::vector<std::string> components;
    if (!nativePath.starts_with('/')) {
        std::error_code error;
        const std::filesystem::path folder = std::filesystem::current_path(error);
        if (error) {
            ThrowSystemError(error.value(), std::string(nativePath));
        }
        AppendComponents(components, folder.native());
    }
    AppendComponents(components, nativePath);
    std::string path;
    for (const std::string& name : components) {
        path += "/" + name;
    }
    return ProgramSpelling(path.empty() ? "/" : path);
}

std::string ForDisplay(std::string_view path) {
    std::string shown(path);
    std::replace(shown.begin(), shown.end(), '\\', '/');
    return shown;
}

std::string ExecutableFolder() {
    std::error_code error;
    const std::filesystem::path executable = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) {
        ThrowSystemError(error.value(), "/proc/self/exe");
    }
    return FolderOf(ProgramSpelling(executable.native()));
}

} // namespace tamarind::platform
