#pragma once

#include "markers/marker_list.h"
#include "markers/marker_plot.h"
#include "markers/marker_svg.h"
#include "text/runtime_error.h"

#include <cstdlib>
#include <string>

namespace tamarind::fuzz {

inline void Require(bool condition) {
    if (!condition) std::abort();
}

/// A list's lines are counted, end with CR LF, hold at least one comma each, and can be drawn.
inline void CheckList(const markers::MarkerList& list, bool mayHoldLineEnds) {
    std::size_t lines = 0;
    for (std::size_t at = list.text.find("\r\n"); at != std::string::npos; at = list.text.find("\r\n", at + 2))
        ++lines;
    Require(mayHoldLineEnds ? lines >= list.count : lines == list.count);
    Require(list.text.empty() == (list.count == 0));
    Require(list.text.empty() || list.text.ends_with("\r\n"));
    const markers::MarkerPlot plot = markers::PlotMarkers(list, 400, 300);
    for (const markers::PlotSpot& spot : plot.spots) {
        Require(spot.at.x >= plot.mapFrom.x && spot.at.x <= plot.mapTo.x);
        Require(spot.at.y >= plot.mapFrom.y && spot.at.y <= plot.mapTo.y);
    }
    Require(markers::PlotSvg(plot).ends_with("</svg>\n"));
}

/// A reader on any text: it gives a list, or one of the errors that it may give.
template <typename Reader> void CheckReader(const Reader& read, bool mayHoldLineEnds) {
    try {
        CheckList(read(), mayHoldLineEnds);
    } catch (const text::RuntimeError& error) {
        Require(error.Code() == text::ErrorNumber::InvalidProcedureCall || error.Code() == text::ErrorNumber::Overflow);
        Require(!error.Details().empty());
    }
}

} // namespace tamarind::fuzz
