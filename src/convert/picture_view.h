#pragma once

#include "convert/texture_picture.h"

#include <cstdint>
#include <vector>

/// How a picture is shown on a screen: how large, and which colours where it is transparent.
namespace tamarind::convert {

struct PixelSize {
    int width = 0;
    int height = 0;
    bool operator==(const PixelSize&) const = default;
};

/// A rectangle of the scaled picture, in screen pixels from its top left corner.
struct Region {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

inline constexpr double kSmallestScale = 1.0 / 32;
inline constexpr double kLargestScale = 32;

/// Screen pixels a picture pixel, so that the whole picture fits into the room. A small picture is enlarged by a whole
/// number, at most 8.
[[nodiscard]] double FitScale(const PixelSize& picture, const PixelSize& room);

/// The next usual scale above (`larger`) or below; the last one stays.
[[nodiscard]] double NextScale(double scale, bool larger);

/// At least one pixel each way.
[[nodiscard]] PixelSize ScaledSize(const Picture& picture, double scale);

/// The pixels of a region that lies within the scaled picture, red, green and blue, rows from the top. A smaller
/// picture shows the mean of what falls on a pixel, a larger one squares. Where it is transparent, a chequered ground
/// shows through.
[[nodiscard]] std::vector<std::uint8_t> RenderRgb(const Picture& picture, double scale, const Region& region);

} // namespace tamarind::convert
