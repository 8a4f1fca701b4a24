#include "convert/texture_xml.h"

#include "text/numbers.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace tamarind::convert {

using text::ErrorNumber;
using text::RuntimeError;

namespace {

constexpr std::string_view kBlobStart = "<d:blob";
constexpr std::string_view kBlobEnd = "</d:blob";
constexpr auto kNone = std::string_view::npos;

constexpr std::array<TextureFormat, 4> kFormats = {{
    {"HC_IMAGE_FORMAT_COMPRESSED", PixelLayout::Dxt1, "DXT1 ARGB"},
    {"HC_IMAGE_FORMAT_COMPRESSED_EXPL_ALPHA", PixelLayout::Dxt3, "DXT3 ARGB"},
    {"HC_IMAGE_FORMAT_COL888", PixelLayout::Rgb32, "RGB 8.8.8"},
    {"HC_IMAGE_FORMAT_COLA8888", PixelLayout::Argb32, "ARGB 8.8.8.8"},
}};

/// The text between the first `key`, the next ">" and the next `end`.
std::optional<std::string_view> TextOfElement(std::string_view xml, std::string_view key, std::string_view end) {
    const std::size_t start = xml.find(key);
    const std::size_t bracket = start == kNone ? kNone : xml.find('>', start);
    if (bracket == kNone) return std::nullopt;
    const std::size_t stop = xml.find(end, bracket + 1);
    if (stop == kNone) return std::nullopt;
    return xml.substr(bracket + 1, stop - bracket - 1);
}

} // namespace

const TextureFormat* FindFormat(std::string_view text) {
    const auto* const found = std::find_if(kFormats.begin(), kFormats.end(), [text](const TextureFormat& format) {
        return text::EqualNoCase(format.text, text);
    });
    return found == kFormats.end() ? nullptr : found;
}

bool IsCompressed(PixelLayout layout) { return layout == PixelLayout::Dxt1 || layout == PixelLayout::Dxt3; }

Blobs FindBlobs(std::string_view xml) {
    Blobs found;
    std::size_t pieceStart = 0;
    for (std::size_t start = xml.find(kBlobStart); start != kNone && found.blobs.size() <= kMostBlobs;
         start = xml.find(kBlobStart, pieceStart)) {
        const std::size_t quote = xml.find('"', start);
        const std::size_t secondQuote = quote == kNone ? kNone : xml.find('"', quote + 1);
        const std::size_t end = quote == kNone ? kNone : xml.find(kBlobEnd, quote + 1);
        if (secondQuote == kNone || end == kNone || end < secondQuote + 2) {
            found.isBroken = true;
            break;
        }
        const std::size_t hexStart = secondQuote + 2; // behind the ">"
        found.pieces.push_back(xml.substr(pieceStart, hexStart - pieceStart));
        found.blobs.push_back({xml.substr(quote + 1, secondQuote - quote - 1), xml.substr(hexStart, end - hexStart)});
        pieceStart = end;
    }
    if (!found.blobs.empty()) found.pieces.push_back(xml.substr(pieceStart));
    return found;
}

std::optional<std::string_view> FormatText(std::string_view xml) { return TextOfElement(xml, "<Format", "</Format"); }

std::string_view NumberText(std::string_view xml, std::string_view key) {
    return TextOfElement(xml, key, "<").value_or(std::string_view());
}

std::int32_t BlobSize(const Blob& blob) {
    double size = 0;
    try {
        size = std::nearbyint(text::ReadNumber(blob.size));
    } catch (const RuntimeError& error) {
        if (error.Code() != ErrorNumber::TypeMismatch) throw;
    }
    if (size > std::numeric_limits<std::int32_t>::max()) throw RuntimeError(ErrorNumber::Overflow);
    if (size < 0) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::int32_t>(size);
}

std::int16_t ReadDimension(std::string_view text) { return text::ToInt16(text::ReadNumber(text)); }

bool IsTexture(std::string_view xml) {
    constexpr std::size_t kFirstPart = std::size_t{1} << 20;
    const std::string_view start = xml.substr(0, kFirstPart);
    return start.find(kBlobStart) != kNone && FindFormat(FormatText(start).value_or(std::string_view())) != nullptr;
}

} // namespace tamarind::convert
