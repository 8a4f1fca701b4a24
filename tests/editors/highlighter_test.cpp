#include "editors/highlighter.h"

#include <gtest/gtest.h>

#include <string>

namespace tamarind::editors {
namespace {

/// A letter a byte: "b" blue, "r" red, "." the usual colour.
std::string Colours(std::string_view text) {
    std::string colours(text.size(), '.');
    for (const ColourRun& run : HighlightXml(text)) {
        EXPECT_GT(run.length, 0U);
        EXPECT_LE(run.start + run.length, text.size());
        for (std::size_t i = run.start; i < run.start + run.length; ++i) {
            EXPECT_EQ(colours[i], '.') << "two runs at " << i;
            colours[i] = run.colour == Colour::Blue ? 'b' : 'r';
        }
    }
    return colours;
}

TEST(HighlightXml, ColoursNothingInTextWithoutAnOpeningBracket) {
    EXPECT_TRUE(HighlightXml("").empty());
    EXPECT_TRUE(HighlightXml("a = \"version\" > encoding").empty());
}

TEST(HighlightXml, ColoursATagsNameUpToTheFirstBlank) {
    EXPECT_EQ(Colours("<Track Gauge"), //
              "bbbbbb......");
}

TEST(HighlightXml, ColoursATagsNameUpToItsClosingBracket) {
    EXPECT_EQ(Colours("<Track>1435</Track>"), //
              "bbbbbbb....bbbbbbbb");
}

TEST(HighlightXml, ColoursATagsNameUpToTheLineEnd) {
    EXPECT_EQ(Colours("<Track\r\nGauge>"), //
              "bbbbbb.......b");
    EXPECT_EQ(Colours("<Track\nGauge>"), //
              "bbbbbb......b");
}

TEST(HighlightXml, ColoursEveryTagOfALine) {
    EXPECT_EQ(Colours("<a><bc d=\"1\"/></a> x <e f"), //
              "bbbbbb..r....bbbbb...bb..");
}

TEST(HighlightXml, TakesATabForAPartOfTheName) { EXPECT_EQ(Colours("<a\tb c"), "bbbb.."); }

TEST(HighlightXml, ColoursClosingBracketsOutsideOfTagsToo) { EXPECT_EQ(Colours("> <a"), "b.bb"); }

TEST(HighlightXml, ColoursEqualsSignsRedWhereverTheyStand) {
    EXPECT_EQ(Colours("<a b=\"c=d\">e=f</a>"), //
              "bb..r..r..b.r.bbbb");
    EXPECT_EQ(Colours("<a=b>"), "bbrbb");
}

TEST(HighlightXml, ColoursTheDeclarationsAttributesRed) {
    EXPECT_EQ(Colours("<?xml version=\"1.0\" encoding=\"utf-8\"?>"), //
              "bbbbb.rrrrrrrr......rrrrrrrrr........b");
}

TEST(HighlightXml, ColoursTheTwoWordsInElementTextToo) {
    EXPECT_EQ(Colours("<a>a version, an encoding</a>"), //
              "bbb..rrrrrrr.....rrrrrrrrbbbb");
}

TEST(HighlightXml, IgnoresTheLetterCaseOfTheTwoWords) {
    EXPECT_EQ(Colours("<a>VERSION Encoding"), //
              "bbbrrrrrrr.rrrrrrrr");
}

TEST(HighlightXml, ColoursTheTwoWordsOverATagsName) {
    EXPECT_EQ(Colours("<conversions>"), //
              "bbbbrrrrrrrbb");
    EXPECT_EQ(Colours("<Encodings b"), //
              "brrrrrrrrb..");
}

TEST(HighlightXml, LeavesBeginningsOfTheTwoWordsAlone) {
    EXPECT_EQ(Colours("<a>versio encodin vversion"), //
              "bbb................rrrrrrr");
}

TEST(HighlightXml, KeepsTheUsualColourForValuesAndText) {
    EXPECT_EQ(Colours("<a b=\"value\">text</a>"), //
              "bb..r.......b....bbbb");
}

TEST(HighlightXml, GivesOneRunForNeighboursOfOneColour) {
    const std::vector<ColourRun> expected = {{0, 6, Colour::Blue}, {7, 8, Colour::Red}, {15, 1, Colour::Blue}};
    EXPECT_EQ(HighlightXml("<a><b> version=>"), expected);
}

TEST(HighlightXml, CountsPositionsInBytes) {
    const std::vector<ColourRun> expected = {{2, 3, Colour::Blue}};
    EXPECT_EQ(HighlightXml("\xC3\xA9<\xC3\xA9 \xC3\xA9"), expected);
}

TEST(HighlightXml, TakesATextOfBracketsAlone) { EXPECT_EQ(Colours("<<<"), "bbb"); }

TEST(HighlightXml, TakesOneLineOfAnyLength) {
    std::string line = "<a>";
    line.append(50'000'000, 'x').append("</a>");
    const std::vector<ColourRun> expected = {{0, 3, Colour::Blue}, {50'000'003, 4, Colour::Blue}};
    EXPECT_EQ(HighlightXml(line), expected);
}

TEST(HighlightLines, ColoursALineWithoutAnOpeningBracketOutOfATextThatHasOne) {
    const std::vector<ColourRun> expected = {{1, 1, Colour::Red}};
    EXPECT_EQ(HighlightLines("a=b"), expected);
}

} // namespace
} // namespace tamarind::editors
