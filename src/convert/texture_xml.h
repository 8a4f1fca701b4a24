#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

/// The parts of a texture's XML that matter for its picture. All views point into the text that was searched.
namespace tamarind::convert {

enum class PixelLayout {
    Dxt1,
    Dxt3,
    Rgb32, ///< four bytes a pixel: blue, green, red, and one without a meaning
    Argb32 ///< blue, green, red, alpha
};

struct TextureFormat {
    std::string_view text; ///< as it stands in the XML
    PixelLayout layout;
    std::string_view label; ///< for people
};

/// Compared without regard to letter case; null for any other text.
[[nodiscard]] const TextureFormat* FindFormat(std::string_view text);

[[nodiscard]] bool IsCompressed(PixelLayout layout);

/// One mip-map level.
struct Blob {
    std::string_view size; ///< what its first attribute says
    std::string_view hex;
};

struct Blobs {
    std::vector<Blob> blobs;
    /// What stands around the blobs' hex text: one piece more than there are blobs, none without blobs.
    std::vector<std::string_view> pieces;
    bool isBroken = false; ///< a blob has no size, no end, or ends before it begins; `blobs` holds those before it
};

/// At most so many blobs make one texture.
inline constexpr std::size_t kMostBlobs = 16;

/// The blobs in their order. The search ends with the first one above kMostBlobs.
[[nodiscard]] Blobs FindBlobs(std::string_view xml);

/// The text between the first "<Format", the next ">" and the next "</Format"; nothing when one of them is missing.
[[nodiscard]] std::optional<std::string_view> FormatText(std::string_view xml);

/// The text between the first `key`, as in "<Width", the next ">" and the next "<"; empty when one is missing.
[[nodiscard]] std::string_view NumberText(std::string_view xml, std::string_view key);

/// A blob's size in bytes; 0 for what is no number. Throws Overflow beyond 32 bits, SubscriptOutOfRange below 0.
[[nodiscard]] std::int32_t BlobSize(const Blob& blob);

/// Throws Overflow beyond 16 bits, TypeMismatch for what is no number.
[[nodiscard]] std::int16_t ReadDimension(std::string_view text);

/// Whether it is worth trying to show the text as a picture. Looks at the start of long texts alone.
[[nodiscard]] bool IsTexture(std::string_view xml);

} // namespace tamarind::convert
