#include "system/program.h"

namespace tamarind::samples {

std::string Utf8(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

} // namespace tamarind::samples
