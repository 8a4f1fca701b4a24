#include "platform/paths.h"

namespace tamarind::platform {

std::string FolderOf(std::string_view path) {
    const std::size_t slash = path.rfind('\\');
    return slash == std::string_view::npos ? std::string() : std::string(path.substr(0, slash));
}

std::string NameOf(std::string_view path) {
    const std::size_t slash = path.rfind('\\');
    return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

std::string BaseNameWithDot(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string(name) + "." : std::string(name.substr(0, dot + 1));
}

std::string ExtensionOf(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string() : std::string(name.substr(dot + 1));
}

std::string WithLastThreeReplaced(std::string_view path, std::string_view ending) {
    constexpr int kReplaced = 3;
    const auto isInsideCharacter = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
    for (int count = 0; count < kReplaced && !path.empty(); ++count) {
        while (path.size() > 1 && isInsideCharacter(path.back()))
            path.remove_suffix(1);
        path.remove_suffix(1);
    }
    return std::string(path).append(ending);
}

std::string WithoutTrailingBackslash(std::string_view path) {
    while (path.ends_with('\\')) {
        path.remove_suffix(1);
    }
    return std::string(path);
}

} // namespace tamarind::platform
