#pragma once

#include <string>
#include <string_view>

namespace tamarind::tests {

/// Code units as bytes, low byte first unless they are to be big-endian.
inline std::string Utf16(std::u16string_view units, bool bigEndian = false) {
    std::string bytes;
    for (const char16_t unit : units) {
        const auto high = static_cast<char>(static_cast<unsigned char>(unit >> 8));
        const auto low = static_cast<char>(static_cast<unsigned char>(unit & 0xFF));
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

} // namespace tamarind::tests
