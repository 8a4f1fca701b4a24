#include "convert/texture_picture.h"

#include "convert/hex.h"
#include "convert/texture_xml.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

#include <fmt/format.h>

namespace tamarind::convert {
namespace {

constexpr std::size_t kPixelBytes = 4;
constexpr std::size_t kBlockSide = 4;

using Pixel = std::array<std::uint8_t, kPixelBytes>; // red, green, blue, alpha
using Bytes = std::span<const std::uint8_t>;
using Block = std::array<Pixel, kBlockSide * kBlockSide>;

unsigned Read16(Bytes bytes, std::size_t at) { return bytes[at] | static_cast<unsigned>(bytes[at + 1]) << 8; }

/// Five, six and five bits of red, green and blue, spread over a byte each.
Pixel ColourOf(unsigned bits) {
    const unsigned red = bits >> 11;
    const unsigned green = bits >> 5 & 0x3F;
    const unsigned blue = bits & 0x1F;
    return {static_cast<std::uint8_t>(red << 3 | red >> 2), static_cast<std::uint8_t>(green << 2 | green >> 4),
            static_cast<std::uint8_t>(blue << 3 | blue >> 2), 0xFF};
}

/// The mean of two colours, one of them counted `weight` times.
Pixel Mix(const Pixel& heavy, unsigned weight, const Pixel& light) {
    Pixel mixed{};
    for (std::size_t i = 0; i < kPixelBytes; ++i)
        mixed[i] = static_cast<std::uint8_t>((weight * heavy[i] + light[i]) / (weight + 1));
    return mixed;
}

/// Eight bytes: two colours, then two bits a pixel that choose one of four. Where `mayCut` is set and the first colour
/// is not above the second, there is one colour between them, and the fourth is transparent.
void DecodeColours(Bytes bytes, bool mayCut, Block& block) {
    const unsigned first = Read16(bytes, 0);
    const unsigned second = Read16(bytes, 2);
    std::array<Pixel, 4> colours{ColourOf(first), ColourOf(second)};
    if (mayCut && first <= second) {
        colours[2] = Mix(colours[0], 1, colours[1]); // and the last one stays transparent
    } else {
        colours[2] = Mix(colours[0], 2, colours[1]);
        colours[3] = Mix(colours[1], 2, colours[0]);
    }
    std::uint32_t choices = Read16(bytes, 4) | Read16(bytes, 6) << 16;
    for (Pixel& pixel : block) {
        pixel = colours[choices & 3];
        choices >>= 2;
    }
}

void DecodeDxt1(Bytes bytes, Block& block) { DecodeColours(bytes, true, block); }

/// Eight bytes with four bits of alpha a pixel, then the colours.
void DecodeDxt3(Bytes bytes, Block& block) {
    DecodeColours(bytes.subspan(8), false, block);
    for (std::size_t i = 0; i < block.size(); ++i)
        block[i][3] = static_cast<std::uint8_t>((bytes[i / 2] >> (i % 2 * 4) & 0xF) * 0x11);
}

struct Size {
    std::size_t width = 0;
    std::size_t height = 0;
};

/// The parts of a block outside the picture are left out.
template <std::size_t blockBytes, void (*decode)(Bytes, Block&)>
void DecodeBlocks(Bytes bytes, const Size& size, std::uint8_t* pixels) {
    Block block{};
    for (std::size_t top = 0; top < size.height; top += kBlockSide) {
        const std::size_t rows = std::min(kBlockSide, size.height - top);
        for (std::size_t left = 0; left < size.width; left += kBlockSide) {
            decode(bytes.first(blockBytes), block);
            bytes = bytes.subspan(blockBytes);
            const std::size_t columns = std::min(kBlockSide, size.width - left);
            for (std::size_t row = 0; row < rows; ++row) {
                std::memcpy(pixels + ((top + row) * size.width + left) * kPixelBytes, &block[row * kBlockSide],
                            columns * kPixelBytes);
            }
        }
    }
}

/// From blue, green, red and, where `hasAlpha` says so, alpha.
void Decode32Bit(Bytes bytes, bool hasAlpha, std::span<std::uint8_t> pixels) {
    for (std::size_t at = 0; at < pixels.size(); at += kPixelBytes) {
        pixels[at] = bytes[at + 2];
        pixels[at + 1] = bytes[at + 1];
        pixels[at + 2] = bytes[at];
        pixels[at + 3] = hasAlpha ? bytes[at + 3] : 0xFF;
    }
}

/// How many bytes a level takes.
std::size_t BytesOfLevel(PixelLayout layout, const Size& size) {
    if (!IsCompressed(layout)) return size.width * size.height * kPixelBytes;
    const std::size_t blocks =
        ((size.width + kBlockSide - 1) / kBlockSide) * ((size.height + kBlockSide - 1) / kBlockSide);
    return blocks * (layout == PixelLayout::Dxt1 ? 8 : 16);
}

void DecodePixels(PixelLayout layout, Bytes bytes, const Size& size, std::vector<std::uint8_t>& pixels) {
    pixels.resize(size.width * size.height * kPixelBytes);
    switch (layout) {
    case PixelLayout::Dxt1: DecodeBlocks<8, DecodeDxt1>(bytes, size, pixels.data()); break;
    case PixelLayout::Dxt3: DecodeBlocks<16, DecodeDxt3>(bytes, size, pixels.data()); break;
    case PixelLayout::Rgb32: Decode32Bit(bytes, false, pixels); break;
    case PixelLayout::Argb32: Decode32Bit(bytes, true, pixels); break;
    }
}

DecodedTexture Refuse(std::string problem) { return {std::nullopt, std::move(problem)}; }

/// A side of a level, at least one pixel; 0 when the texture's own is none.
std::size_t SideOfLevel(std::string_view text, std::size_t level) {
    try {
        const std::int16_t side = ReadDimension(text);
        return side < 1 ? 0 : static_cast<std::size_t>(std::max(side >> level, 1));
    } catch (const text::RuntimeError&) {
        return 0;
    }
}

DecodedTexture DecodeLevel(const TextureFormat& format, const Blob& blob, const Size& size, Picture picture) {
    const std::size_t needed = BytesOfLevel(format.layout, size);
    // Memory is taken only for what the text can hold: two characters a byte.
    std::vector<std::uint8_t> bytes(std::min(needed, blob.hex.size() / 2));
    std::size_t held = 0;
    try {
        held = DecodeHex(blob.hex, bytes);
    } catch (const text::RuntimeError&) {
        held = bytes.size(); // what the blob holds beyond this level is not looked at
    }
    if (held < needed) {
        return Refuse(fmt::format("Level {} of {} x {} pixels takes {} bytes of {}, but its blob holds {}.",
                                  picture.level, size.width, size.height, needed, format.label, held));
    }
    DecodePixels(format.layout, bytes, size, picture.rgba);
    return {std::move(picture), {}};
}

} // namespace

DecodedTexture DecodeTexture(std::string_view xml, std::size_t level) {
    const TextureFormat* const format = FindFormat(FormatText(xml).value_or(std::string_view()));
    if (format == nullptr) return Refuse("This is no texture of a format that can be shown.");
    const Blobs found = FindBlobs(xml);
    if (found.isBroken) return Refuse("A \"<d:blob\" of this texture has no size or no end.");
    if (found.blobs.size() > kMostBlobs) return Refuse("This is a multiple-texture file.");
    if (level >= found.blobs.size()) {
        return Refuse(fmt::format("There is no level {}: this texture has {}.", level, found.blobs.size()));
    }
    const Size size{SideOfLevel(NumberText(xml, "<Width"), level), SideOfLevel(NumberText(xml, "<Height"), level)};
    if (size.width == 0 || size.height == 0) return Refuse("This texture has no width and height from 1 to 32767.");
    return DecodeLevel(*format, found.blobs[level], size,
                       {.width = static_cast<int>(size.width),
                        .height = static_cast<int>(size.height),
                        .level = level,
                        .levels = found.blobs.size(),
                        .label = std::string(format->label),
                        .rgba = {}});
}

} // namespace tamarind::convert
