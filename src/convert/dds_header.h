#pragma once

#include "convert/texture_xml.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace tamarind::convert {

inline constexpr std::size_t kDdsHeaderSize = 128;

struct DdsPicture {
    PixelLayout layout = PixelLayout::Dxt1;
    std::int16_t width = 0;
    std::int16_t height = 0;
    std::int32_t firstBlobSize = 0; ///< bytes
    std::size_t levels = 0;
};

/// The header of a .dds file. The count of levels stands in it with its decimal digits read as hexadecimal, and the
/// layout of 32 bits a pixel serves both uncompressed formats: files of that form are what the game's tools expect.
[[nodiscard]] std::array<std::uint8_t, kDdsHeaderSize> MakeDdsHeader(const DdsPicture& picture);

} // namespace tamarind::convert
