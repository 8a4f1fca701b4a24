#pragma once

#include "markers/marker_list.h"

#include <string>
#include <string_view>

/// The files of mapping programs, read by searching for keys without regard to letter case. An empty text is an empty
/// list. Where a later marker lacks something, the list ends before it, with a remark.
namespace tamarind::markers {

/// Placemarks where the text holds "<longitude>", else one path. Throws InvalidProcedureCall when there is no
/// "<coordinates>", or when a path has no end.
[[nodiscard]] MarkerList ReadKml(std::string_view text);

/// The points of the tracks. Throws InvalidProcedureCall when there is no "<trkseg>", Overflow when a point's
/// attributes stand beyond character 32767.
[[nodiscard]] MarkerList ReadGpx(std::string_view text);

/// The waypoints from the line on that holds "1,1,"; lines with too few fields are left out.
[[nodiscard]] MarkerList ReadWpt(std::string_view text);

/// Markers of the form "Marker ( value value name  )". Throws InvalidProcedureCall for one with fewer than two blanks
/// inside.
[[nodiscard]] MarkerList ReadMkr(std::string text);

} // namespace tamarind::markers
