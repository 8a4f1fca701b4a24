#pragma once

#include <wx/iconbndl.h>

#include <cstddef>

namespace tamarind::platform {

/// One picture in several sizes from an icon file (.ico) in memory; empty when the bytes are no such file.
[[nodiscard]] wxIconBundle IconsFrom(const unsigned char* file, std::size_t size);

template <std::size_t size> [[nodiscard]] wxIconBundle IconsFrom(const unsigned char (&file)[size]) {
    return IconsFrom(file, size);
}

} // namespace tamarind::platform
