#pragma once

#include "markers/marker_list.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tamarind::markers {

/// A marker whose coordinates could be read as numbers.
struct Position {
    double longitude = 0;  ///< degrees, east positive, -360 to 360
    double latitude = 0;   ///< degrees, north positive, -90 to 90
    std::string_view name; ///< as it stands in the list
};

struct Positions {
    std::vector<Position> known;     ///< in the order of the list, whose text they refer to
    std::size_t withoutNumbers = 0;  ///< lines whose coordinates are no numbers
    std::size_t outsideTheEarth = 0; ///< lines whose coordinates are numbers, but too large
};

/// The lines of a list as numbers: blanks and line breaks around them do not matter.
[[nodiscard]] Positions PositionsOf(const MarkerList& list);

/// A name for people. Lists hold the bytes of their input, which in most exports are UTF-8: those that are become the
/// letters that they stand for.
[[nodiscard]] std::string NameForPeople(std::string_view name);

} // namespace tamarind::markers
