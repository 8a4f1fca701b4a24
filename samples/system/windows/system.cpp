#include "system/program.h"

#include <cstdlib>

namespace tamarind::samples {

std::filesystem::path Reachable(const std::filesystem::path& path) {
    const std::filesystem::path whole = std::filesystem::absolute(path).lexically_normal().make_preferred();
    if (whole.native().starts_with(LR"(\\)")) {
        return whole;
    }
    return LR"(\\?\)" + whole.native();
}

std::optional<std::filesystem::path> EnvironmentValue(const std::string& name) {
    const wchar_t* value = _wgetenv(std::filesystem::path(name).c_str());
    if (value == nullptr || *value == L'\0') {
        return std::nullopt;
    }
    return value;
}

} // namespace tamarind::samples
