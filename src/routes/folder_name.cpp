#include "routes/folder_name.h"

#include <algorithm>

namespace tamarind::routes {

bool IsFolderName(std::string_view id) {
    constexpr std::string_view kForbidden = "\\/:*?\"<>|";
    constexpr unsigned char kFirstPrintable = 0x20;
    const auto isForbidden = [&](char c) {
        return static_cast<unsigned char>(c) < kFirstPrintable || kForbidden.find(c) != std::string_view::npos;
    };
    // Some systems drop dots and blanks at the end of a name, so that of "..." nothing remains.
    return id.find_first_not_of(". ") != std::string_view::npos && std::none_of(id.begin(), id.end(), isForbidden);
}

} // namespace tamarind::routes
