#include "markers/marker_plot.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace tamarind::markers {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kWidth = 1000;
constexpr double kHeight = 700;

MarkerPlot PlotOf(const std::string& text) { return PlotMarkers({text, 0, {}}, kWidth, kHeight); }

std::vector<std::string> LabelTexts(const MarkerPlot& plot) {
    std::vector<std::string> texts;
    for (const PlotLabel& label : plot.labels)
        texts.push_back(label.text);
    return texts;
}

bool IsInMap(const MarkerPlot& plot, PlotPoint point) {
    return point.x >= plot.mapFrom.x && point.x <= plot.mapTo.x && point.y >= plot.mapFrom.y && point.y <= plot.mapTo.y;
}

TEST(MarkerPlot, HasNorthUpAndEastRight) {
    const MarkerPlot plot = PlotOf("1,50,SouthWest\r\n2,51,NorthEast\r\n");
    ASSERT_EQ(plot.spots.size(), 2U);
    EXPECT_LT(plot.spots[0].at.x, plot.spots[1].at.x);
    EXPECT_GT(plot.spots[0].at.y, plot.spots[1].at.y);
}

TEST(MarkerPlot, MakesADegreeOfLongitudeAsShortAsItIs) {
    // At 60 degrees north it is half as long as one of latitude.
    const MarkerPlot plot = PlotOf("10,59.5\r\n11,59.5\r\n10,60.5\r\n");
    ASSERT_EQ(plot.spots.size(), 3U);
    const double east = plot.spots[1].at.x - plot.spots[0].at.x;
    const double north = plot.spots[0].at.y - plot.spots[2].at.y;
    EXPECT_NEAR(east / north, 0.5, 1e-9);
}

TEST(MarkerPlot, FillsTheMapAndStaysInside) {
    const MarkerPlot wide = PlotOf("0,0\r\n10,1\r\n");
    EXPECT_NEAR(wide.spots[0].at.x, 24 + 16, 1e-6);
    EXPECT_NEAR(wide.spots[1].at.x, kWidth - 24 - 16, 1e-6);
    const MarkerPlot high = PlotOf("0,0\r\n1,10\r\n");
    EXPECT_NEAR(high.spots[1].at.y, 24 + 16, 1e-6);
    for (const MarkerPlot* plot : {&wide, &high}) {
        for (const PlotSpot& spot : plot->spots)
            EXPECT_TRUE(IsInMap(*plot, spot.at));
    }
}

TEST(MarkerPlot, OfTheWholeEarthStaysInside) {
    const MarkerPlot plot = PlotOf("-180,-90\r\n180,90\r\n0,0\r\n");
    EXPECT_EQ(plot.spots.size(), 3U);
    for (const PlotSpot& spot : plot.spots)
        EXPECT_TRUE(IsInMap(plot, spot.at));
}

TEST(MarkerPlot, AtThePoleStaysInside) {
    const MarkerPlot plot = PlotOf("0,90\r\n90,90\r\n");
    for (const PlotSpot& spot : plot.spots)
        EXPECT_TRUE(IsInMap(plot, spot.at));
}

TEST(MarkerPlot, MarksTheFirstAndTheLastMarker) {
    const MarkerPlot plot = PlotOf("1,50\r\n2,52\r\n3,51\r\n");
    EXPECT_EQ(plot.start, plot.spots[0].at);
    EXPECT_EQ(plot.end, plot.spots[2].at);
    EXPECT_THAT(LabelTexts(plot), ElementsAre("Start", "End"));
}

TEST(MarkerPlot, NamesEveryMarkerThatFindsRoom) {
    const MarkerPlot plot = PlotOf("1,50,A\r\n2,51,B\r\n3,50,C\r\n");
    EXPECT_THAT(LabelTexts(plot), ElementsAre("Start: A", "End: C", "B"));
}

TEST(MarkerPlot, WritesNoNameOverAnother) {
    std::string text;
    for (int i = 0; i < 400; ++i)
        text += std::to_string(i % 20) + "," + std::to_string(i / 20) + ",Name" + std::to_string(i) + "\r\n";
    const MarkerPlot plot = PlotOf(text);
    EXPECT_GT(plot.labels.size(), 20U);
    EXPECT_LT(plot.labels.size(), 400U);
    for (std::size_t i = 0; i < plot.labels.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            const PlotLabel& a = plot.labels[i];
            const PlotLabel& b = plot.labels[j];
            // Half a letter is narrower than any letter of these names.
            const double aWidth = 3.6 * static_cast<double>(a.text.size());
            const double bWidth = 3.6 * static_cast<double>(b.text.size());
            const double aLeft = a.at.x - a.before * aWidth;
            const double bLeft = b.at.x - b.before * bWidth;
            const bool apart =
                std::abs(a.at.y - b.at.y) >= kPlotTextHeight || aLeft + aWidth <= bLeft || bLeft + bWidth <= aLeft;
            EXPECT_TRUE(apart) << a.text << " " << b.text;
        }
    }
}

TEST(MarkerPlot, HoldsEachNameAtItsMarkersSide) {
    const MarkerPlot plot = PlotOf("1,50,West\r\n3,50,East\r\n");
    ASSERT_THAT(LabelTexts(plot), ElementsAre("Start: West", "End: East"));
    EXPECT_EQ(plot.labels[0].before, 0);
    EXPECT_NEAR(plot.labels[0].at.x, plot.start->x + 10, 1e-6);
    // There is no room right of the easternmost.
    EXPECT_EQ(plot.labels[1].before, 1);
    EXPECT_NEAR(plot.labels[1].at.x, plot.end->x - 10, 1e-6);
}

TEST(MarkerPlot, CentresANameAboveItsMarker) {
    // The middle one has neighbours 20 pixels away on both sides: no name of its length fits in between.
    const MarkerPlot plot = PlotOf("0,0\r\n22.5,0\r\n23,0,Halfway\r\n23.5,0\r\n46,0\r\n");
    const auto halfway = std::find_if(plot.labels.begin(), plot.labels.end(),
                                      [](const PlotLabel& label) { return label.text == "Halfway"; });
    ASSERT_NE(halfway, plot.labels.end());
    EXPECT_EQ(halfway->before, 0.5);
    EXPECT_NEAR(halfway->at.x, kWidth / 2, 1e-6);
    EXPECT_LT(halfway->at.y, plot.spots[2].at.y);
}

TEST(MarkerPlot, ShortensLongNames) {
    const MarkerPlot plot = PlotOf("1,50,A\r\n2,51," + std::string(41, 'x') + "\r\n3,50,C\r\n");
    EXPECT_EQ(LabelTexts(plot).back(), std::string(40, 'x') + "…");
    EXPECT_EQ(plot.spots[1].name, std::string(41, 'x'));
}

TEST(MarkerPlot, OfNamelessMarkersHasALine) {
    const MarkerPlot plot = PlotOf("1,50\r\n2,52\r\n3,51\r\n");
    ASSERT_EQ(plot.line.size(), 3U);
    EXPECT_EQ(plot.line[1], plot.spots[1].at);
}

TEST(MarkerPlot, OfNamedMarkersHasNone) { EXPECT_THAT(PlotOf("1,50,A\r\n2,52\r\n").line, IsEmpty()); }

TEST(MarkerPlot, ShowsMarkersOfOnePixelOnce) {
    const MarkerPlot plot = PlotOf("1,50\r\n2,52\r\n1.0000001,50.0000001\r\n1,50\r\n3,51\r\n");
    EXPECT_EQ(plot.spots.size(), 3U);
    EXPECT_EQ(plot.line.size(), 4U); // there, away, back again once, and on
}

TEST(MarkerPlot, OfARoundTripHasOneLabelForBothEnds) {
    const MarkerPlot plot = PlotOf("1,50\r\n2,52\r\n1,50\r\n");
    EXPECT_THAT(LabelTexts(plot), ElementsAre("Start and end"));
    EXPECT_EQ(plot.start, plot.end);
}

TEST(MarkerPlot, OfOneMarkerStandsInTheMiddle) {
    const MarkerPlot plot = PlotOf("1,50,Mill\r\n");
    ASSERT_EQ(plot.spots.size(), 1U);
    EXPECT_NEAR(plot.spots[0].at.x, kWidth / 2, 1e-6);
    EXPECT_NEAR(plot.spots[0].at.y, (24 + 676 - 32) / 2.0, 1e-6); // a band below is the scale bar's
    EXPECT_THAT(LabelTexts(plot), ElementsAre("Start: Mill"));
    EXPECT_FALSE(plot.end.has_value());
}

TEST(MarkerPlot, HasAScaleBarOfARoundLength) {
    // The map is 952 pixels wide, 920 of them for 0.1 degrees at the equator, 11,119.5 m: 12.086 m a pixel. A quarter
    // of the map is 2,877 m, the round length below it 2,000 m: 165.5 pixels.
    const MarkerPlot plot = PlotOf("0,0\r\n0.1,0\r\n");
    EXPECT_EQ(plot.scaleText, "2 km");
    EXPECT_NEAR(plot.scaleLength, 165.5, 0.1);
}

TEST(MarkerPlot, HasAScaleBarInMetresForASmallPlace) {
    // 0.01 degrees: a quarter of the map is 288 m.
    EXPECT_EQ(PlotOf("0,0\r\n0.01,0\r\n").scaleText, "200 m");
}

TEST(MarkerPlot, NamesItsOutermostDegrees) {
    const MarkerPlot plot = PlotOf("-1.5,53.8\r\n0.25,-0.5\r\n");
    EXPECT_EQ(plot.north, "53.8000° N");
    EXPECT_EQ(plot.south, "0.5000° S");
    EXPECT_EQ(plot.west, "1.5000° W");
    EXPECT_EQ(plot.east, "0.2500° E");
}

TEST(MarkerPlot, TellsWhatCannotBeAPosition) {
    const MarkerPlot plot = PlotOf("1,153\r\n1,a\r\n1,b\r\n1,2\r\n");
    EXPECT_THAT(plot.remarks,
                ElementsAre("1 marker has a latitude beyond 90°, or a longitude beyond 360°: are the two the wrong way "
                            "round?",
                            "2 lines hold no position in numbers."));
    EXPECT_EQ(plot.spots.size(), 1U);
}

TEST(MarkerPlot, OfNothingSaysSo) {
    const MarkerPlot plot = PlotOf("");
    EXPECT_THAT(plot.remarks, ElementsAre("There is no marker to be shown."));
    EXPECT_THAT(plot.spots, IsEmpty());
    EXPECT_FALSE(plot.start.has_value());
    EXPECT_EQ(plot.scaleLength, 0);
}

TEST(MarkerPlot, IsNeverSmallerThanItCanBeDrawn) {
    const MarkerPlot plot = PlotMarkers({"1,2,A\r\n3,4,B\r\n", 2, {}}, 0, -5);
    EXPECT_EQ(plot.width, 160);
    EXPECT_EQ(plot.height, 160);
    for (const PlotSpot& spot : plot.spots)
        EXPECT_TRUE(IsInMap(plot, spot.at));
}

} // namespace
} // namespace tamarind::markers
