#include "convert/dds_header.h"

#include "convert/hex.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>

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

using Bytes = std::vector<std::uint8_t>;

/// The last digits, two a byte, low byte first.
Bytes LowByteFirst(const std::string& digits, std::size_t count) {
    Bytes bytes;
    for (std::size_t end = digits.size(); bytes.size() < count; end -= 2)
        bytes.push_back(static_cast<std::uint8_t>(Hex2Dec(digits.substr(end - 2, 2))));
    return bytes;
}

Bytes Height(const DdsPicture& picture) { return LowByteFirst(Padded(Dec2Hex(picture.height), 4), 2); }
Bytes Width(const DdsPicture& picture) { return LowByteFirst(Padded(Dec2Hex(picture.width), 4), 2); }
Bytes FirstBlobSize(const DdsPicture& picture) { return LowByteFirst(Padded(Dec2Hex(picture.firstBlobSize), 8), 4); }

/// Decimal digits, read as hexadecimal.
Bytes LevelCount(const DdsPicture& picture) {
    return {static_cast<std::uint8_t>(Hex2Dec(Padded(std::to_string(picture.levels), 2)))};
}

/// Bytes in the header, as hexadecimal text; what no row names is 0.
struct Row {
    std::size_t offset;
    Condition when;
    std::string_view bytes;
    Bytes (*computed)(const DdsPicture&) = nullptr; ///< in place of `bytes`
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
        if (row.computed == nullptr) {
            DecodeHex(row.bytes, std::span(header).subspan(row.offset));
        } else {
            const Bytes bytes = row.computed(picture);
            std::copy(bytes.begin(), bytes.end(), header.begin() + static_cast<std::ptrdiff_t>(row.offset));
        }
    }
    return header;
}

} // namespace tamarind::convert
