#pragma once

#include "markers/marker_list.h"

#include <optional>
#include <string>
#include <vector>

/// Where everything stands in a picture of the markers, so that a person sees at once whether longitude and latitude
/// are the right way round. North is up; a degree of longitude is as much shorter than one of latitude as it is on the
/// ground in the middle of the picture.
namespace tamarind::markers {

/// Pixels from the upper left corner.
struct PlotPoint {
    double x = 0;
    double y = 0;
    bool operator==(const PlotPoint&) const = default;
};

struct PlotSpot {
    PlotPoint at;
    std::string name; ///< for people; empty where there is none
};

/// A text that stands on a line through a point.
struct PlotLabel {
    PlotPoint at;
    std::string text;
    double before = 0; ///< how much of the text is left of the point, 0 to 1
};

struct MarkerPlot {
    double width = 0;
    double height = 0;
    PlotPoint mapFrom;              ///< upper left corner of the map's frame
    PlotPoint mapTo;                ///< lower right one
    std::vector<PlotSpot> spots;    ///< markers, those left out that fall on the pixel of an earlier one
    std::vector<PlotPoint> line;    ///< through markers without any names, in their order
    std::vector<PlotLabel> labels;  ///< the names that find room, none over another
    std::optional<PlotPoint> start; ///< the first marker
    std::optional<PlotPoint> end;   ///< the last one
    double scaleLength = 0;         ///< of the scale bar, in pixels; 0 where there is nothing to measure
    std::string scaleText;          ///< what that is on the ground: "500 m", "2 km"
    std::string north;              ///< the northernmost marker's latitude, "53.8100° N"
    std::string south;
    std::string west; ///< the westernmost marker's longitude, "1.5500° W"
    std::string east;
    std::vector<std::string> remarks; ///< what is not in the picture, a sentence each
};

inline constexpr double kPlotTextHeight = 12; ///< pixels, of all texts

inline constexpr double kSmallestPlot = 160; ///< pixels each way; less would leave no room for a map

/// A picture of at least that size.
[[nodiscard]] MarkerPlot PlotMarkers(const MarkerList& list, double width, double height);

} // namespace tamarind::markers
