#include "convert/picture_view.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace tamarind::convert {
namespace {

constexpr std::array kUsualScales{
    kSmallestScale, 1.0 / 24, 1.0 / 16,     1.0 / 12, 1.0 / 8, 1.0 / 6, 1.0 / 4, 1.0 / 3, 1.0 / 2,
    2.0 / 3,        1.0,      1.5,          2.0,      3.0,     4.0,     6.0,     8.0,     12.0,
    16.0,           24.0,     kLargestScale};
constexpr double kLargestFit = 8;
constexpr double kSameScale = 1.001;
constexpr int kSquare = 8; ///< side of a square of the ground
constexpr unsigned kLightSquare = 0xFF;
constexpr unsigned kDarkSquare = 0xCC;
constexpr std::size_t kChannels = 4;

/// The picture's pixels from `first` on, `end` not included, that fall on one screen pixel.
struct Run {
    std::size_t first = 0;
    std::size_t end = 0;
};

Run SourceOf(int at, double scale, int length) {
    const auto limit = static_cast<std::size_t>(length);
    const auto first = std::min(static_cast<std::size_t>(at / scale), limit - 1);
    const auto end = std::min(static_cast<std::size_t>((at + 1) / scale), limit);
    return {first, scale >= 1 ? first + 1 : std::max(end, first + 1)};
}

/// Sums over picture pixels, colours weighted by their alpha.
struct Sums {
    std::array<std::uint64_t, kChannels> channels{};
    std::uint64_t count = 0;
};

void Add(Sums& sums, const std::uint8_t* pixel, const std::uint8_t* end) {
    for (; pixel != end; pixel += kChannels) {
        const std::uint64_t alpha = pixel[3];
        sums.channels[0] += pixel[0] * alpha;
        sums.channels[1] += pixel[1] * alpha;
        sums.channels[2] += pixel[2] * alpha;
        sums.channels[3] += alpha;
    }
}

unsigned GroundAt(int x, int y) { return (x / kSquare + y / kSquare) % 2 == 0 ? kLightSquare : kDarkSquare; }

void Put(const Sums& sums, unsigned ground, std::uint8_t* target) {
    const std::uint64_t whole = 255 * sums.count;
    const std::uint64_t through = (whole - sums.channels[3]) * ground;
    for (std::size_t channel = 0; channel < 3; ++channel) {
        target[channel] = static_cast<std::uint8_t>((sums.channels[channel] + through + whole / 2) / whole);
    }
}

} // namespace

double FitScale(const PixelSize& picture, const PixelSize& room) {
    const double across = static_cast<double>(room.width) / picture.width;
    const double down = static_cast<double>(room.height) / picture.height;
    const double fitting = std::min(across, down);
    return fitting < 1 ? fitting : std::min(std::floor(fitting), kLargestFit);
}

double NextScale(double scale, bool larger) {
    if (larger) {
        const auto* const above = std::upper_bound(kUsualScales.begin(), kUsualScales.end(), scale * kSameScale);
        return above == kUsualScales.end() ? kLargestScale : *above;
    }
    const auto* const same = std::lower_bound(kUsualScales.begin(), kUsualScales.end(), scale / kSameScale);
    return same == kUsualScales.begin() ? kSmallestScale : *(same - 1);
}

PixelSize ScaledSize(const Picture& picture, double scale) {
    const auto scaled = [scale](int length) { return std::max(1, static_cast<int>(std::lround(length * scale))); };
    return {scaled(picture.width), scaled(picture.height)};
}

std::vector<std::uint8_t> RenderRgb(const Picture& picture, double scale, const Region& region) {
    const auto columns = static_cast<std::size_t>(region.width);
    std::vector<Run> across(columns);
    for (std::size_t column = 0; column < columns; ++column)
        across[column] = SourceOf(region.left + static_cast<int>(column), scale, picture.width);
    const std::size_t stride = static_cast<std::size_t>(picture.width) * kChannels;
    std::vector<std::uint8_t> rgb(columns * static_cast<std::size_t>(region.height) * 3);
    std::vector<Sums> sums(columns);
    auto* target = rgb.data();
    for (int y = region.top; y < region.top + region.height; ++y) {
        std::fill(sums.begin(), sums.end(), Sums{});
        const Run down = SourceOf(y, scale, picture.height);
        for (std::size_t row = down.first; row < down.end; ++row) {
            const std::uint8_t* const line = picture.rgba.data() + row * stride;
            for (std::size_t column = 0; column < columns; ++column)
                Add(sums[column], line + across[column].first * kChannels, line + across[column].end * kChannels);
        }
        for (std::size_t column = 0; column < columns; ++column, target += 3) {
            sums[column].count = (down.end - down.first) * (across[column].end - across[column].first);
            Put(sums[column], GroundAt(region.left + static_cast<int>(column), y), target);
        }
    }
    return rgb;
}

} // namespace tamarind::convert
