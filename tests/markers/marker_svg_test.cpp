#include "markers/marker_svg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::markers {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

std::string SvgOf(const std::string& list) { return PlotSvg(PlotMarkers({list, 0, {}}, 400, 300)); }

std::size_t Count(const std::string& text, const std::string& key) {
    std::size_t count = 0;
    for (std::size_t at = text.find(key); at != std::string::npos; at = text.find(key, at + 1))
        ++count;
    return count;
}

TEST(MarkerSvg, IsOneDrawingOfThatSize) {
    EXPECT_THAT(SvgOf("1,2,A\r\n3,4,B\r\n"),
                AllOf(StartsWith("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"400\" height=\"300\" "
                                 "viewBox=\"0 0 400 300\" "),
                      EndsWith("</svg>\n")));
}

TEST(MarkerSvg, HoldsNamesStartEndScaleAndNorth) {
    const std::string svg = SvgOf("1,2,Mill\r\n3,4,Halt\r\n2,4,Box\r\n");
    EXPECT_THAT(svg, HasSubstr(">Start: Mill</text>"));
    EXPECT_THAT(svg, HasSubstr(">End: Box</text>"));
    EXPECT_THAT(svg, HasSubstr(">Halt</text>"));
    EXPECT_THAT(svg, HasSubstr("<circle id=\"start\""));
    EXPECT_THAT(svg, HasSubstr("<rect id=\"end\""));
    EXPECT_THAT(svg, HasSubstr("<path id=\"scale\""));
    EXPECT_THAT(svg, HasSubstr(" km</text>"));
    EXPECT_THAT(svg, HasSubstr("<path id=\"north\""));
    EXPECT_THAT(svg, HasSubstr(">N</text>"));
    EXPECT_THAT(svg, HasSubstr(">Northernmost: 4.0000° N</text>"));
    EXPECT_THAT(svg, HasSubstr("<title>Halt</title>"));
    EXPECT_EQ(Count(svg, "r=\"3\""), 3U);
}

TEST(MarkerSvg, HoldsEachNameAtItsMarkersSide) {
    // The map is 352 pixels wide, 16 of them free on each side: the markers stand at 40 and 360, names 10 beside them.
    // It is 252 high, less 32 for the scale bar: both stand at 24 + 220 / 2 = 134, the line below them 4 deeper.
    const std::string svg = SvgOf("1,50,West\r\n3,50,East\r\n");
    EXPECT_THAT(svg, HasSubstr("<text x=\"50.0\" y=\"138.0\" text-anchor=\"start\">Start: West</text>"));
    EXPECT_THAT(svg, HasSubstr("<text x=\"350.0\" y=\"138.0\" text-anchor=\"end\">End: East</text>"));
}

TEST(MarkerSvg, DrawsALineThroughAPath) {
    EXPECT_THAT(SvgOf("1,2\r\n3,4\r\n"), HasSubstr("<polyline id=\"path\""));
    EXPECT_THAT(SvgOf("1,2,A\r\n3,4,B\r\n"), Not(HasSubstr("<polyline")));
}

TEST(MarkerSvg, EscapesWhatXmlWouldTakeForMarkup) {
    EXPECT_THAT(SvgOf("1,2,<script>&amp;\r\n"), HasSubstr("<title>&lt;script&gt;&amp;amp;</title>"));
}

TEST(MarkerSvg, HoldsNoCharacterThatXmlHasNoFormFor) {
    const std::string svg = SvgOf(std::string("1,2,a\0b\x01", 8) + "c\xFF\r\n");
    EXPECT_THAT(svg, HasSubstr("<title>a\uFFFDb\uFFFDc\uFFFD</title>"));
}

TEST(MarkerSvg, OfNothingHoldsTheRemarkAlone) {
    const std::string svg = SvgOf("");
    EXPECT_THAT(svg, HasSubstr(">There is no marker to be shown.</text>"));
    EXPECT_THAT(svg, AllOf(Not(HasSubstr("id=\"start\"")), Not(HasSubstr("id=\"scale\""))));
}

TEST(MarkerSvg, DrawsManyMarkersInOneStroke) {
    std::string list;
    for (int i = 0; i < 2500; ++i)
        list += std::to_string(i % 50) + "," + std::to_string(i / 50) + ",A\r\n";
    const std::string svg = SvgOf(list);
    EXPECT_THAT(svg, HasSubstr("<path id=\"markers\""));
    EXPECT_EQ(Count(svg, "h0"), 2500U);
    EXPECT_EQ(Count(svg, "r=\"3\""), 0U);
}

} // namespace
} // namespace tamarind::markers
