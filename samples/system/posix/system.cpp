#include "system/program.h"

#include <algorithm>
#include <cstdlib>

namespace tamarind::samples {

std::filesystem::path Reachable(const std::filesystem::path& path) {
    std::string text = path.native();
    if (text.starts_with('\\')) {
        std::replace(text.begin(), text.end(), '\\', '/');
    }
    return text;
}

std::optional<std::filesystem::path> EnvironmentValue(const std::string& name) {
    const char* value = std::getenv(name.c_str());
    if (value == nullptr || *value == '\0') {
        return std::nullopt;
    }
    return value;
}

} // namespace tamarind::samples
