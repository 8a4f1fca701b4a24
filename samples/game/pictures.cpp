#include "game/pictures.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace tamarind::samples {
namespace {

constexpr int kBlock = 4;
using Block = std::array<Pixel, 16>;

std::uint8_t Byte(int value) { return static_cast<std::uint8_t>(std::clamp(value, 0, 255)); }

template <typename Colour> Picture Draw(int size, Colour colour) {
    Picture picture{size, size, {}};
    for (int row = 0; row < size; ++row) {
        for (int column = 0; column < size; ++column) {
            picture.pixels.push_back(colour(column, row));
        }
    }
    return picture;
}

/// The block that starts there; the edge's pixels are repeated where the picture is smaller.
Block BlockAt(const Picture& picture, int column, int row) {
    Block block;
    for (int index = 0; index < kBlock * kBlock; ++index) {
        block[static_cast<std::size_t>(index)] = picture.At(std::min(column + index % kBlock, picture.width - 1),
                                                            std::min(row + index / kBlock, picture.height - 1));
    }
    return block;
}

template <typename Encode> std::string EncodeBlocks(const Picture& picture, Encode encode) {
    std::string bytes;
    for (int row = 0; row < picture.height; row += kBlock) {
        for (int column = 0; column < picture.width; column += kBlock) {
            bytes += encode(BlockAt(picture, column, row));
        }
    }
    return bytes;
}

int Brightness(const Pixel& pixel) { return 2 * pixel.red + 5 * pixel.green + pixel.blue; }

/// Five bits red, six green, five blue.
unsigned Packed(const Pixel& pixel) {
    return (unsigned{pixel.red} >> 3U) << 11U | (unsigned{pixel.green} >> 2U) << 5U | unsigned{pixel.blue} >> 3U;
}

/// The nearest of four steps from the brightest (0) to the darkest (3), in a block's own numbering of them.
unsigned Step(int brightness, int brightest, int darkest) {
    constexpr std::array<unsigned, 4> kNumbers{0, 2, 3, 1};
    const int range = brightest - darkest;
    const int step = range == 0 ? 0 : ((brightest - brightness) * 6 + range) / (2 * range);
    return kNumbers[static_cast<std::size_t>(step)];
}

std::string ColourBytes(const Block& block) {
    const auto isDarker = [](const Pixel& left, const Pixel& right) { return Brightness(left) < Brightness(right); };
    const auto [darkest, brightest] = std::minmax_element(block.begin(), block.end(), isDarker);
    unsigned first = Packed(*brightest);
    unsigned second = Packed(*darkest);
    // A first colour that is not the greater number would mean three steps and a see-through one.
    const bool isSwapped = first < second;
    if (isSwapped) {
        std::swap(first, second);
    }
    unsigned steps = 0;
    for (std::size_t index = 0; index < block.size() && first != second; ++index) {
        const unsigned step = Step(Brightness(block[index]), Brightness(*brightest), Brightness(*darkest));
        steps |= (isSwapped ? step ^ 1U : step) << (2U * index);
    }
    std::string bytes;
    for (const unsigned value : {first, second, steps & 0xFFFFU, steps >> 16U}) {
        bytes += static_cast<char>(value & 0xFFU);
        bytes += static_cast<char>(value >> 8U);
    }
    return bytes;
}

std::string AlphaBytes(const Block& block) {
    std::string bytes;
    for (std::size_t index = 0; index < block.size(); index += 2) {
        bytes += static_cast<char>((block[index + 1].alpha >> 4U) << 4U | block[index].alpha >> 4U);
    }
    return bytes;
}

} // namespace

const Pixel& Picture::At(int column, int row) const {
    const auto index = [](int number) { return static_cast<std::size_t>(number); };
    return pixels[index(row) * index(width) + index(column)];
}

Picture DrawBricks(int size) {
    return Draw(size, [size](int column, int row) {
        const int course = row / 8;
        const bool isMortar = row % 8 == 0 || (column + (course % 2) * 8) % 16 == 0;
        const int light = 60 * column / size;
        return isMortar ? Pixel{200, 195, 185, 255} : Pixel{Byte(130 + light), Byte(50 + light / 2), Byte(35), 255};
    });
}

Picture DrawGradient(int size) {
    return Draw(size, [size](int column, int row) {
        const int across = 255 * column / size;
        const int down = 255 * row / size;
        return Pixel{Byte(across), Byte(90 + down / 2), Byte(255 - across), Byte(255 - down)};
    });
}

Picture DrawTrack(int size) {
    return Draw(size, [size](int column, int row) {
        const int place = 16 * column / size;
        if (place == 4 || place == 11) {
            return Pixel{190, 190, 200, 255};
        }
        return row % 8 < 3 && place > 1 && place < 14 ? Pixel{80, 60, 40, 255} : Pixel{120, 115, 105, 255};
    });
}

Picture Halved(const Picture& picture) {
    Picture half{std::max(picture.width / 2, 1), std::max(picture.height / 2, 1), {}};
    for (int row = 0; row < half.height; ++row) {
        for (int column = 0; column < half.width; ++column) {
            std::array<int, 4> sum{};
            for (const int part : {0, 1, 2, 3}) {
                const Pixel& pixel = picture.At(std::min(2 * column + part % 2, picture.width - 1),
                                                std::min(2 * row + part / 2, picture.height - 1));
                sum = {sum[0] + pixel.red, sum[1] + pixel.green, sum[2] + pixel.blue, sum[3] + pixel.alpha};
            }
            half.pixels.push_back({Byte(sum[0] / 4), Byte(sum[1] / 4), Byte(sum[2] / 4), Byte(sum[3] / 4)});
        }
    }
    return half;
}

std::string EncodeDxt1(const Picture& picture) { return EncodeBlocks(picture, ColourBytes); }

std::string EncodeDxt3(const Picture& picture) {
    return EncodeBlocks(picture, [](const Block& block) { return AlphaBytes(block) + ColourBytes(block); });
}

std::string Encode32Bit(const Picture& picture) {
    std::string bytes;
    for (const Pixel& pixel : picture.pixels) {
        for (const std::uint8_t value : {pixel.blue, pixel.green, pixel.red, pixel.alpha}) {
            bytes += static_cast<char>(value);
        }
    }
    return bytes;
}

} // namespace tamarind::samples
