#include "markers/marker_plot_page.h"

#include "markers/marker_plot.h"
#include "platform/wx/wx_text.h"

#include <wx/dcbuffer.h>
#include <wx/dcmemory.h>
#include <wx/graphics.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace tamarind::markers {

using platform::ToWx;

namespace {

constexpr double kSpotRadius = 3;
constexpr double kEndRadius = 6;
constexpr double kTick = 5; // at the ends of the scale bar
constexpr double kInside = 8;
constexpr double kLineHeight = 16;

/// Draws with the measures of a plot; `scale` is pixels of the screen to one of the plot's.
class Pen {
public:
    Pen(wxGraphicsContext& context, const wxFont& font) : context_(context), font_(font) {
        context_.SetFont(font, ink_);
    }

    void Frame(const MarkerPlot& plot) {
        context_.SetPen(*wxTRANSPARENT_PEN);
        context_.SetBrush(*wxWHITE_BRUSH);
        context_.DrawRectangle(0, 0, plot.width, plot.height);
        Style(wxColour(0x88, 0x88, 0x99), 1, ground_);
        context_.DrawRectangle(plot.mapFrom.x, plot.mapFrom.y, plot.mapTo.x - plot.mapFrom.x,
                               plot.mapTo.y - plot.mapFrom.y);
    }

    void Borders(const MarkerPlot& plot) {
        std::string north = "Northernmost: " + plot.north;
        std::string south = "Southernmost: " + plot.south;
        std::string west = "Westernmost: " + plot.west;
        std::string east = "Easternmost: " + plot.east;
        const double half = (plot.mapTo.x - plot.mapFrom.x) / 2;
        if (std::max(WidthOf(west), WidthOf(east)) + WidthOf(south) / 2 + kInside > half) {
            // Three in a line: where they stand says which they are.
            north = plot.north;
            south = plot.south;
            west = plot.west;
            east = plot.east;
        }
        const double middle = plot.mapFrom.x + half;
        Text({middle, plot.mapFrom.y - kInside}, north, 0.5);
        Text({middle, plot.mapTo.y + kLineHeight}, south, 0.5);
        Text({plot.mapFrom.x, plot.mapTo.y + kLineHeight}, west, 0);
        Text({plot.mapTo.x, plot.mapTo.y + kLineHeight}, east, 1);
    }

    void Line(const std::vector<PlotPoint>& line) {
        if (line.size() < 2) return;
        Style(blue_, 1.5, wxNullColour);
        wxGraphicsPath path = context_.CreatePath();
        path.MoveToPoint(line.front().x, line.front().y);
        for (const PlotPoint& point : line)
            path.AddLineToPoint(point.x, point.y);
        context_.StrokePath(path);
    }

    void Spots(const std::vector<PlotSpot>& spots) {
        context_.SetPen(*wxTRANSPARENT_PEN);
        context_.SetBrush(wxBrush(blue_));
        wxGraphicsPath path = context_.CreatePath();
        for (const PlotSpot& spot : spots)
            path.AddCircle(spot.at.x, spot.at.y, kSpotRadius);
        context_.FillPath(path, wxWINDING_RULE);
    }

    /// A ring around the first marker, a square around the last: they differ without colours, too.
    void Ends(const MarkerPlot& plot) {
        if (plot.end) {
            Style(wxColour(0xBB, 0, 0), 2, wxNullColour);
            context_.DrawRectangle(plot.end->x - kEndRadius, plot.end->y - kEndRadius, 2 * kEndRadius, 2 * kEndRadius);
        }
        if (plot.start) {
            Style(wxColour(0, 0x80, 0), 2, wxNullColour);
            context_.DrawEllipse(plot.start->x - kEndRadius, plot.start->y - kEndRadius, 2 * kEndRadius,
                                 2 * kEndRadius);
        }
    }

    void ScaleAndNorth(const MarkerPlot& plot) {
        if (plot.scaleLength == 0) return;
        const double left = plot.mapFrom.x + kInside;
        const double bottom = plot.mapTo.y - kInside;
        Style(ink_, 1, wxNullColour);
        wxGraphicsPath bar = context_.CreatePath();
        bar.MoveToPoint(left, bottom - kTick);
        bar.AddLineToPoint(left, bottom);
        bar.AddLineToPoint(left + plot.scaleLength, bottom);
        bar.AddLineToPoint(left + plot.scaleLength, bottom - kTick);
        context_.StrokePath(bar);
        Text({left, bottom - kInside}, plot.scaleText, 0);
        const PlotPoint foot{plot.mapTo.x - 3 * kInside, bottom + 2};
        wxGraphicsPath arrow = context_.CreatePath();
        arrow.MoveToPoint(foot.x, foot.y);
        arrow.AddLineToPoint(foot.x + 5, foot.y - 18);
        arrow.AddLineToPoint(foot.x + 10, foot.y);
        arrow.AddLineToPoint(foot.x + 5, foot.y - 4);
        arrow.CloseSubpath();
        context_.SetBrush(wxBrush(ink_));
        context_.FillPath(arrow);
        Text({foot.x - kInside, bottom - 2}, "N", 1);
    }

    void Names(const std::vector<PlotLabel>& labels) {
        for (const PlotLabel& label : labels)
            Text(label.at, label.text, label.before);
    }

    void Remarks(const MarkerPlot& plot) {
        double bottom = plot.mapTo.y + kLineHeight;
        for (const std::string& remark : plot.remarks) {
            bottom += kLineHeight;
            Text({plot.mapFrom.x, bottom}, remark, 0);
        }
    }

private:
    void Style(const wxColour& colour, double width, const wxColour& fill) {
        context_.SetPen(context_.CreatePen(wxGraphicsPenInfo(colour, width)));
        context_.SetBrush(fill.IsOk() ? wxBrush(fill) : *wxTRANSPARENT_BRUSH);
    }

    double WidthOf(const std::string& text) {
        double width = 0;
        double height = 0;
        context_.GetTextExtent(ToWx(text), &width, &height);
        return width;
    }

    /// `at` lies on the line on which the text stands; `before` says how much of the text is left of it, 0 to 1.
    void Text(PlotPoint at, const std::string& text, double before) {
        const wxString shown = ToWx(text);
        double width = 0;
        double height = 0;
        double descent = 0;
        context_.GetTextExtent(shown, &width, &height, &descent);
        context_.DrawText(shown, at.x - before * width, at.y - height + descent);
    }

    wxGraphicsContext& context_;
    wxFont font_;
    wxColour ink_{0x22, 0x22, 0x22};
    wxColour ground_{0xF4, 0xF6, 0xF2};
    wxColour blue_{0x33, 0x66, 0xCC};
};

} // namespace

MarkerPlotPage::MarkerPlotPage(wxWindow* parent, const MarkerList& list)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE),
      list_(list) {
    SetName("MarkerPlot");
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
}

void MarkerPlotPage::OnPaint() {
    wxAutoBufferedPaintDC dc(this);
    if (!picture_.IsOk() || picture_.GetSize() != GetClientSize()) picture_ = Draw();
    dc.DrawBitmap(picture_, 0, 0);
}

double MarkerPlotPage::Scale() const { return std::max(1.0, GetFont().GetPixelSize().y / kPlotTextHeight); }

wxSize MarkerPlotPage::SmallestSize() const {
    // The degrees of three borders stand below the map.
    constexpr double kNarrowest = 280;
    return {static_cast<int>(std::ceil(kNarrowest * Scale())), static_cast<int>(std::ceil(kSmallestPlot * Scale()))};
}

wxBitmap MarkerPlotPage::Draw() const {
    wxBitmap picture;
    picture.Create(std::max(GetClientSize().x, 1), std::max(GetClientSize().y, 1));
    wxMemoryDC dc(picture);
    const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
    const double scale = Scale();
    const MarkerPlot plot = PlotMarkers(list_, picture.GetWidth() / scale, picture.GetHeight() / scale);
    context->Scale(scale, scale);
    Pen pen(*context, wxFont(wxFontInfo(wxSize(0, static_cast<int>(kPlotTextHeight))).Family(wxFONTFAMILY_SWISS)));
    pen.Frame(plot);
    if (plot.start) pen.Borders(plot);
    pen.Line(plot.line);
    pen.Spots(plot.spots);
    pen.Ends(plot);
    pen.ScaleAndNorth(plot);
    pen.Names(plot.labels);
    pen.Remarks(plot);
    return picture;
}

} // namespace tamarind::markers
