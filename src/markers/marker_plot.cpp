#include "markers/marker_plot.h"

#include "markers/marker_positions.h"
#include "text/code_page.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <string_view>

namespace tamarind::markers {
namespace {

constexpr double kMargin = 24;
constexpr double kLineHeight = 16; // of texts below each other
constexpr double kPadding = 16;    // between the frame and the outermost markers
constexpr double kBand = 32;       // at the foot of the map: scale bar and north arrow, nothing else
constexpr double kMetresPerDegree = 6371008.8 * std::numbers::pi / 180;
constexpr double kSmallestSpan = 0.001; // degrees; a single place is shown with its surroundings, too
constexpr double kNarrowestDegree = 0.001;
constexpr std::size_t kLongestLabel = 40; // characters

struct Bounds {
    double low = 0;
    double high = 0;
    [[nodiscard]] double Middle() const { return (low + high) / 2; }
    [[nodiscard]] double Span() const { return std::max(high - low, kSmallestSpan); }
};

Bounds BoundsOf(const std::vector<Position>& positions, double Position::*coordinate) {
    const auto [low, high] =
        std::minmax_element(positions.begin(), positions.end(), [coordinate](const Position& a, const Position& b) {
            return a.*coordinate < b.*coordinate;
        });
    return {(*low).*coordinate, (*high).*coordinate};
}

/// From degrees to pixels.
class Projection {
public:
    Projection(const MarkerPlot& plot, Bounds longitudes, Bounds latitudes)
        : middle_{(plot.mapFrom.x + plot.mapTo.x) / 2, (plot.mapFrom.y + plot.mapTo.y - kBand) / 2},
          longitude_(longitudes.Middle()), latitude_(latitudes.Middle()),
          narrowing_(std::max(std::cos(latitude_ * std::numbers::pi / 180), kNarrowestDegree)) {
        const double across = plot.mapTo.x - plot.mapFrom.x - 2 * kPadding;
        const double down = plot.mapTo.y - kBand - plot.mapFrom.y - 2 * kPadding;
        pixelsPerDegree_ = std::min(across / (longitudes.Span() * narrowing_), down / latitudes.Span());
    }

    [[nodiscard]] PlotPoint operator()(const Position& position) const {
        return {middle_.x + (position.longitude - longitude_) * narrowing_ * pixelsPerDegree_,
                middle_.y - (position.latitude - latitude_) * pixelsPerDegree_};
    }
    /// On the ground.
    [[nodiscard]] double MetresPerPixel() const { return kMetresPerDegree / pixelsPerDegree_; }

private:
    PlotPoint middle_;
    double longitude_;
    double latitude_;
    double narrowing_; ///< of a degree of longitude, against one of latitude
    double pixelsPerDegree_ = 0;
};

/// The places in the picture that are taken, in cells of a few pixels.
class TakenCells {
public:
    TakenCells(double width, double height)
        : across_(Cell(width) + 1), down_(Cell(height) + 1), taken_(across_ * down_, false) {}

    void Take(PlotPoint from, PlotPoint to) {
        ForEach(from, to, [this](std::size_t cell) {
            taken_[cell] = true;
            return true;
        });
    }
    [[nodiscard]] bool AreFree(PlotPoint from, PlotPoint to) {
        return ForEach(from, to, [this](std::size_t cell) { return !taken_[cell]; });
    }

private:
    static constexpr double kSide = 6;

    static std::size_t Cell(double pixel) { return static_cast<std::size_t>(std::max(pixel, 0.0) / kSide); }

    /// False as soon as `visit` says so.
    template <typename Visit> bool ForEach(PlotPoint from, PlotPoint to, const Visit& visit) {
        for (std::size_t y = Cell(from.y); y <= std::min(Cell(to.y), down_ - 1); ++y) {
            for (std::size_t x = Cell(from.x); x <= std::min(Cell(to.x), across_ - 1); ++x) {
                if (!visit(y * across_ + x)) return false;
            }
        }
        return true;
    }

    std::size_t across_;
    std::size_t down_;
    std::vector<bool> taken_;
};

/// At most so many characters.
std::string Shortened(std::string_view text) {
    std::string_view rest = text;
    for (std::size_t i = 0; i < kLongestLabel && !rest.empty(); ++i)
        static_cast<void>(text::TakeCodePoint(rest));
    const std::string_view kept = text.substr(0, text.size() - rest.size());
    return rest.empty() ? std::string(kept) : std::string(kept) + "…";
}

/// About how wide a text is; which font shows it is not known here.
double WidthOf(std::string_view text) {
    constexpr char32_t kFirstWideLetter = 0x1100;
    double width = 0;
    while (!text.empty())
        width += text::TakeCodePoint(text).value < kFirstWideLetter ? 0.6 * kPlotTextHeight : kPlotTextHeight;
    return width;
}

/// Writes names beside their markers, where there is room.
class Labels {
public:
    explicit Labels(MarkerPlot& plot) : plot_(plot), taken_(plot.width, plot.height) {
        for (const PlotSpot& spot : plot.spots)
            taken_.Take(spot.at, spot.at);
    }

    /// Right of the marker, else left, above, below, else not at all.
    void Add(PlotPoint marker, const std::string& text) {
        constexpr double kAway = 10;
        const double width = WidthOf(text);
        const double beside = marker.y - kPlotTextHeight / 2;
        // Held at the side of the marker, since the width is a guess.
        const std::array<Place, 4> places = {{{{marker.x + kAway, beside}, 0},
                                              {{marker.x - kAway, beside}, 1},
                                              {{marker.x, marker.y - kAway - kPlotTextHeight}, 0.5},
                                              {{marker.x, marker.y + kAway}, 0.5}}};
        for (const Place& place : places) {
            const PlotPoint from{place.at.x - place.before * width, place.at.y};
            const PlotPoint to{from.x + width, from.y + kPlotTextHeight};
            if (!IsInMap(from, to) || !taken_.AreFree(from, to)) continue;
            taken_.Take(from, to);
            plot_.labels.push_back({{place.at.x, to.y - 2}, text, place.before});
            return;
        }
    }

private:
    /// On the upper edge of a text, so much of which is left of it.
    struct Place {
        PlotPoint at;
        double before;
    };

    [[nodiscard]] bool IsInMap(PlotPoint from, PlotPoint to) const {
        return from.x >= plot_.mapFrom.x && from.y >= plot_.mapFrom.y && to.x <= plot_.mapTo.x &&
               to.y <= plot_.mapTo.y - kBand;
    }

    MarkerPlot& plot_;
    TakenCells taken_;
};

std::string Counted(std::size_t count, std::string_view one, std::string_view many) {
    return count == 1 ? fmt::format("1 {}", one) : fmt::format("{} {}", count, many);
}

std::vector<std::string> RemarksOn(const Positions& positions) {
    std::vector<std::string> remarks;
    if (positions.outsideTheEarth > 0) {
        remarks.push_back(Counted(positions.outsideTheEarth, "marker has", "markers have") +
                          " a latitude beyond 90°, or a longitude beyond 360°: are the two the wrong way round?");
    }
    if (positions.withoutNumbers > 0) {
        remarks.push_back(Counted(positions.withoutNumbers, "line holds", "lines hold") + " no position in numbers.");
    }
    if (positions.known.empty()) remarks.emplace_back("There is no marker to be shown.");
    return remarks;
}

/// Each pixel once, so that a cloud of markers does not cost more than it shows.
void AddSpots(MarkerPlot& plot, const std::vector<Position>& positions, const std::vector<PlotPoint>& points) {
    const auto across = static_cast<std::size_t>(plot.width) + 1;
    std::vector<bool> taken(across * (static_cast<std::size_t>(plot.height) + 1), false);
    for (std::size_t i = 0; i < points.size(); ++i) {
        const auto x = static_cast<std::size_t>(std::lround(points[i].x));
        const auto y = static_cast<std::size_t>(std::lround(points[i].y));
        const std::size_t pixel = y * across + x;
        if (taken[pixel]) continue;
        taken[pixel] = true;
        plot.spots.push_back({points[i], NameForPeople(positions[i].name)});
    }
}

void AddLine(MarkerPlot& plot, const std::vector<PlotPoint>& points) {
    for (const PlotPoint& point : points) {
        const bool moves = plot.line.empty() || std::abs(point.x - plot.line.back().x) >= 0.5 ||
                           std::abs(point.y - plot.line.back().y) >= 0.5;
        if (moves) plot.line.push_back(point);
    }
}

std::string WithName(std::string_view word, std::string_view name) {
    return name.empty() ? std::string(word) : fmt::format("{}: {}", word, Shortened(NameForPeople(name)));
}

/// Where the first and the last marker are, and their names; then those of the others.
void AddNames(MarkerPlot& plot, const Positions& positions, const std::vector<PlotPoint>& points) {
    Labels labels(plot);
    plot.start = points.front();
    const bool isRound = points.size() > 1 && std::abs(points.front().x - points.back().x) < 1 &&
                         std::abs(points.front().y - points.back().y) < 1;
    labels.Add(points.front(), WithName(isRound ? "Start and end" : "Start", positions.known.front().name));
    if (points.size() == 1) return;
    plot.end = points.back();
    if (!isRound) labels.Add(points.back(), WithName("End", positions.known.back().name));
    for (const PlotSpot& spot : plot.spots) {
        if (!spot.name.empty() && spot.at != *plot.start && spot.at != *plot.end) {
            labels.Add(spot.at, Shortened(spot.name));
        }
    }
}

/// The longest of 1, 2, 5, 10 … metres that takes up at most a quarter of the map.
void AddScale(MarkerPlot& plot, double metresPerPixel) {
    constexpr double kKilometre = 1000;
    const double most = (plot.mapTo.x - plot.mapFrom.x) / 4 * metresPerPixel;
    const double power = std::pow(10, std::floor(std::log10(most)));
    const double metres = power * (most / power >= 5 ? 5 : most / power >= 2 ? 2 : 1);
    plot.scaleLength = metres / metresPerPixel;
    plot.scaleText = metres >= kKilometre ? fmt::format("{:g} km", metres / kKilometre) : fmt::format("{:g} m", metres);
}

std::string DegreesText(double degrees, char positive, char negative) {
    return fmt::format("{:.4f}° {}", std::abs(degrees), degrees < 0 ? negative : positive);
}

} // namespace

MarkerPlot PlotMarkers(const MarkerList& list, double width, double height) {
    const Positions positions = PositionsOf(list);
    MarkerPlot plot;
    plot.width = std::max(width, kSmallestPlot);
    plot.height = std::max(height, kSmallestPlot);
    plot.remarks = RemarksOn(positions);
    const auto remarkLines = static_cast<double>(plot.remarks.size());
    plot.mapFrom = {kMargin, kMargin};
    plot.mapTo = {plot.width - kMargin, plot.height - kMargin - remarkLines * kLineHeight};
    if (positions.known.empty()) return plot;

    const Bounds longitudes = BoundsOf(positions.known, &Position::longitude);
    const Bounds latitudes = BoundsOf(positions.known, &Position::latitude);
    const Projection projection(plot, longitudes, latitudes);
    std::vector<PlotPoint> points(positions.known.size());
    std::transform(positions.known.begin(), positions.known.end(), points.begin(), projection);

    const bool hasNames = std::any_of(positions.known.begin(), positions.known.end(),
                                      [](const Position& position) { return !position.name.empty(); });
    AddSpots(plot, positions.known, points);
    if (!hasNames) AddLine(plot, points);
    AddScale(plot, projection.MetresPerPixel());
    AddNames(plot, positions, points);
    plot.north = DegreesText(latitudes.high, 'N', 'S');
    plot.south = DegreesText(latitudes.low, 'N', 'S');
    plot.west = DegreesText(longitudes.low, 'E', 'W');
    plot.east = DegreesText(longitudes.high, 'E', 'W');
    return plot;
}

} // namespace tamarind::markers
