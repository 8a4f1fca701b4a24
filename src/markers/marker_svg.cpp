#include "markers/marker_svg.h"

#include "text/code_page.h"

#include <fmt/format.h>

#include <iterator>
#include <string_view>
#include <utility>

namespace tamarind::markers {
namespace {

// More are drawn in one stroke, without a name each that shows under the pointer.
constexpr std::size_t kMostSingleSpots = 2000;

/// Whether XML has a form for the character.
bool HasForm(char32_t c) { return (c >= 0x20 || c == '\t' || c == '\n' || c == '\r') && c != 0xFFFE && c != 0xFFFF; }

std::string Escaped(std::string_view text) {
    std::string escaped;
    while (!text.empty()) {
        const text::CodePoint next = text::TakeCodePoint(text);
        switch (next.value) {
        case '&': escaped += "&amp;"; break;
        case '<': escaped += "&lt;"; break;
        case '>': escaped += "&gt;"; break;
        default: text::AppendUtf8(escaped, next.valid && HasForm(next.value) ? next.value : char32_t{0xFFFD});
        }
    }
    return escaped;
}

/// Appends markup to a text.
class Svg {
public:
    template <typename... Values> void Add(fmt::format_string<const Values&...> format, const Values&... values) {
        fmt::format_to(std::back_inserter(text_), format, values...);
    }

    void Text(PlotPoint at, std::string_view anchor, std::string_view text) {
        Add("<text x=\"{:.1f}\" y=\"{:.1f}\" text-anchor=\"{}\">{}</text>\n", at.x, at.y, anchor, Escaped(text));
    }

    [[nodiscard]] std::string Take() { return std::move(text_); }

private:
    std::string text_;
};

void AddFrame(Svg& svg, const MarkerPlot& plot) {
    svg.Add("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0:g}\" height=\"{1:g}\" viewBox=\"0 0 {0:g} {1:g}\" "
            "font-family=\"sans-serif\" font-size=\"{2:g}\" fill=\"#222\">\n",
            plot.width, plot.height, kPlotTextHeight);
    svg.Add("<rect width=\"{:g}\" height=\"{:g}\" fill=\"#fff\"/>\n", plot.width, plot.height);
    svg.Add("<rect x=\"{:g}\" y=\"{:g}\" width=\"{:g}\" height=\"{:g}\" fill=\"#f4f6f2\" stroke=\"#889\"/>\n",
            plot.mapFrom.x, plot.mapFrom.y, plot.mapTo.x - plot.mapFrom.x, plot.mapTo.y - plot.mapFrom.y);
}

void AddBorders(Svg& svg, const MarkerPlot& plot) {
    constexpr double kAbove = 8;
    constexpr double kBelow = 16;
    const double middle = (plot.mapFrom.x + plot.mapTo.x) / 2;
    svg.Text({middle, plot.mapFrom.y - kAbove}, "middle", "Northernmost: " + plot.north);
    svg.Text({middle, plot.mapTo.y + kBelow}, "middle", "Southernmost: " + plot.south);
    svg.Text({plot.mapFrom.x, plot.mapTo.y + kBelow}, "start", "Westernmost: " + plot.west);
    svg.Text({plot.mapTo.x, plot.mapTo.y + kBelow}, "end", "Easternmost: " + plot.east);
}

void AddLine(Svg& svg, const MarkerPlot& plot) {
    if (plot.line.size() < 2) return;
    svg.Add("<polyline id=\"path\" fill=\"none\" stroke=\"#36c\" stroke-width=\"1.5\" points=\"");
    for (const PlotPoint& point : plot.line)
        svg.Add("{:.1f},{:.1f} ", point.x, point.y);
    svg.Add("\"/>\n");
}

void AddSpots(Svg& svg, const MarkerPlot& plot) {
    if (plot.spots.size() > kMostSingleSpots) {
        svg.Add("<path id=\"markers\" stroke=\"#36c\" stroke-width=\"4\" stroke-linecap=\"round\" d=\"");
        for (const PlotSpot& spot : plot.spots)
            svg.Add("M{:.1f} {:.1f}h0", spot.at.x, spot.at.y);
        svg.Add("\"/>\n");
        return;
    }
    svg.Add("<g id=\"markers\" fill=\"#36c\">\n");
    for (const PlotSpot& spot : plot.spots) {
        svg.Add("<circle cx=\"{:.1f}\" cy=\"{:.1f}\" r=\"3\">", spot.at.x, spot.at.y);
        if (!spot.name.empty()) svg.Add("<title>{}</title>", Escaped(spot.name));
        svg.Add("</circle>\n");
    }
    svg.Add("</g>\n");
}

/// A ring around the first marker, a square around the last: they differ without colours, too.
void AddEnds(Svg& svg, const MarkerPlot& plot) {
    constexpr double kHalf = 6;
    if (plot.end) {
        svg.Add("<rect id=\"end\" x=\"{:.1f}\" y=\"{:.1f}\" width=\"{:g}\" height=\"{:g}\" fill=\"none\" "
                "stroke=\"#b00\" stroke-width=\"2\"/>\n",
                plot.end->x - kHalf, plot.end->y - kHalf, 2 * kHalf, 2 * kHalf);
    }
    if (plot.start) {
        svg.Add("<circle id=\"start\" cx=\"{:.1f}\" cy=\"{:.1f}\" r=\"5\" fill=\"none\" stroke=\"#080\" "
                "stroke-width=\"2\"/>\n",
                plot.start->x, plot.start->y);
    }
}

void AddScaleAndNorth(Svg& svg, const MarkerPlot& plot) {
    if (plot.scaleLength == 0) return;
    constexpr double kIn = 8;
    const double left = plot.mapFrom.x + kIn;
    const double bottom = plot.mapTo.y - kIn;
    svg.Add("<path id=\"scale\" d=\"M{0:.1f} {2:.1f}v5H{1:.1f}v-5\" fill=\"none\" stroke=\"#222\"/>\n", left,
            left + plot.scaleLength, bottom - 5);
    svg.Text({left, bottom - kIn}, "start", plot.scaleText);
    const double right = plot.mapTo.x - 2 * kIn;
    svg.Add("<path id=\"north\" d=\"M{:.1f} {:.1f}l5 -18l5 18l-5 -4z\"/>\n", right - kIn, bottom + 2);
    svg.Text({right - 2 * kIn, bottom - 2}, "end", "N");
}

void AddTexts(Svg& svg, const MarkerPlot& plot) {
    svg.Add("<g id=\"names\" paint-order=\"stroke\" stroke=\"#f4f6f2\" stroke-width=\"3\">\n");
    for (const PlotLabel& label : plot.labels)
        svg.Text(label.at, label.before == 0 ? "start" : label.before == 1 ? "end" : "middle", label.text);
    svg.Add("</g>\n");
    constexpr double kLineHeight = 16;
    double bottom = plot.mapTo.y + kLineHeight;
    for (const std::string& remark : plot.remarks) {
        bottom += kLineHeight;
        svg.Text({plot.mapFrom.x, bottom}, "start", remark);
    }
}

} // namespace

std::string PlotSvg(const MarkerPlot& plot) {
    Svg svg;
    AddFrame(svg, plot);
    if (plot.start) AddBorders(svg, plot);
    AddLine(svg, plot);
    AddSpots(svg, plot);
    AddEnds(svg, plot);
    AddScaleAndNorth(svg, plot);
    AddTexts(svg, plot);
    svg.Add("</svg>\n");
    return svg.Take();
}

} // namespace tamarind::markers
