#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A texture's XML as a picture.
namespace tamarind::convert {

struct Picture {
    int width = 0; ///< pixels, of this level
    int height = 0;
    std::size_t level = 0;  ///< 0 the largest
    std::size_t levels = 0; ///< of the texture
    std::string label;      ///< the format's name for people
    /// Rows from the top; four bytes a pixel: red, green, blue, alpha (not premultiplied).
    std::vector<std::uint8_t> rgba;
};

struct DecodedTexture {
    std::optional<Picture> picture;
    std::string problem; ///< why there is no picture, one sentence for people
};

/// Decodes one mip-map level of a texture. Needs memory for the blob's bytes and the pixels that they hold, no more,
/// whatever the text says about its size. Never throws for bad text.
[[nodiscard]] DecodedTexture DecodeTexture(std::string_view xml, std::size_t level);

} // namespace tamarind::convert
