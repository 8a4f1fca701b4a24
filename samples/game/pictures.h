#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tamarind::samples {

struct Pixel {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;
};

/// Pixels row by row from the top left.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<Pixel> pixels;

    [[nodiscard]] const Pixel& At(int column, int row) const;
};

// All drawn with whole numbers, so that every machine draws the same.

/// Bricks in rows, getting lighter from left to right.
[[nodiscard]] Picture DrawBricks(int size);
/// Two colours running into each other, see-through towards the bottom.
[[nodiscard]] Picture DrawGradient(int size);
/// Two rails on sleepers.
[[nodiscard]] Picture DrawTrack(int size);

/// The next mip-map level: half the size, at least one pixel, every pixel the mean of those it stands for.
[[nodiscard]] Picture Halved(const Picture& picture);

// The bytes of one level, as a graphics card takes them.

/// Blocks of 4 x 4 pixels, 8 bytes each; alpha is not kept.
[[nodiscard]] std::string EncodeDxt1(const Picture& picture);
/// Blocks of 4 x 4 pixels, 16 bytes each, four bits of alpha a pixel.
[[nodiscard]] std::string EncodeDxt3(const Picture& picture);
/// Four bytes a pixel: blue, green, red, alpha.
[[nodiscard]] std::string Encode32Bit(const Picture& picture);

} // namespace tamarind::samples
