#pragma once

#include "markers/marker_plot.h"

#include <string>

namespace tamarind::markers {

/// The picture as a file of its own: SVG in UTF-8. It needs no other file, and holds nothing that runs.
[[nodiscard]] std::string PlotSvg(const MarkerPlot& plot);

} // namespace tamarind::markers
