#include "convert/dds_header.h"

#include "convert/hex.h"

#include <span>
#include <string>
#include <string_view>

namespace tamarind::convert {
namespace {

using Condition = bool (*)(const DdsPicture&);

bool Always(const DdsPicture&) { return true; }
bool OneLevel(const DdsPicture& picture) { return picture.levels <= 1; }
bool Levels(const DdsPicture& picture) { return picture.levels > 1; }
bool Compressed(const DdsPicture& picture) { return IsCompressed(picture.layout); }
bool CompressedLevels(const DdsPicture& picture) { return Compressed(picture) && Levels(picture); }
bool Uncompressed(const DdsPicture& picture) { return !Compressed(picture); }
template <PixelLayout layout> bool Layout(const DdsPicture& picture) { return picture.layout == layout; }

/// At least so many digits.
std::string Padded(std::string digits, std::size_t length) {
    if (digits.size() < length) digits.insert(0, length - digits.size(), '0');
    return digits;
}

/// Low byte first.
std::string SixteenBits(std::int16_t number) {
    const std::string digits = Padded(Dec2Hex(number), 4);
    return digits.substr(digits.size() - 2) + digits.substr(0, 2);
}

std::string Height(const DdsPicture& picture) { return SixteenBits(picture.height); }
std::string Width(const DdsPicture& picture) { return SixteenBits(picture.width); }

/// Low byte first.
std::string FirstBlobSize(const DdsPicture& picture) {
    const std::string digits = Padded(Dec2Hex(picture.firstBlobSize), 8);
    return digits.substr(6, 2) + digits.substr(4, 2) + digits.substr(2, 2) + digits.substr(0, 2);
}

/// Decimal digits, to be read as hexadecimal.
std::string LevelCount(const DdsPicture& picture) { return Padded(std::to_string(picture.levels), 2); }

/// Bytes in the header, as hexadecimal text; what no row names is 0.
struct Row {
    std::size_t offset;
    Condition when;
    std::string_view bytes;
    std::string (*computed)(const DdsPicture&) = nullptr; ///< in place of `bytes`
};

constexpr std::array kLayout = {
    Row{0, Always, "44 44 53 20"}, // "DDS "
    Row{4, Always, "7C"},          // size of the header
    Row{8, Always, "07 10"},       // flags
    Row{10, Levels, "0A"},
    Row{10, OneLevel, "08"},
    Row{12, Always, {}, Height},
    Row{16, Always, {}, Width},
    Row{20, Compressed, {}, FirstBlobSize},
    Row{22, Layout<PixelLayout::Rgb32>, "40"},
    Row{22, Layout<PixelLayout::Argb32>, "04"},
    Row{28, Always, {}, LevelCount},
    Row{76, Always, "20"},           // size of the pixel format
    Row{80, Compressed, "04"},       // it has a four-character code
    Row{80, Uncompressed, "41"},     // it has colours and alpha
    Row{84, Compressed, "44 58 54"}, // "DXT"
    Row{87, Layout<PixelLayout::Dxt1>, "31"},
    Row{87, Layout<PixelLayout::Dxt3>, "33"},
    Row{88, Uncompressed, "20"}, // bits a pixel
    Row{94, Uncompressed, "FF"}, // where in a pixel red, green, blue and alpha are
    Row{97, Uncompressed, "FF"},
    Row{100, Uncompressed, "FF"},
    Row{107, Uncompressed, "FF"},
    Row{108, CompressedLevels, "08 10 40"}, // capabilities
    Row{110, Uncompressed, "FF"},
};

} // namespace

std::array<std::uint8_t, kDdsHeaderSize> MakeDdsHeader(const DdsPicture& picture) {
    std::array<std::uint8_t, kDdsHeaderSize> header{};
    for (const Row& row : kLayout) {
        if (!row.when(picture)) continue;
        const std::string bytes = row.computed == nullptr ? std::string(row.bytes) : row.computed(picture);
        DecodeHex(bytes, std::span(header).subspan(row.offset));
    }
    return header;
}

} // namespace tamarind::convert
