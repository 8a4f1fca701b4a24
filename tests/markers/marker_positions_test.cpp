#include "markers/marker_positions.h"

#include <gtest/gtest.h>

namespace tamarind::markers {
namespace {

MarkerList ListOf(const std::string& text) { return {text, 0, {}}; }

TEST(Positions, AreTheNumbersOfEachLine) {
    const MarkerList list = ListOf("-1.5,53.8,Mill\r\n2e1,-3\r\n");
    const Positions positions = PositionsOf(list);
    ASSERT_EQ(positions.known.size(), 2U);
    EXPECT_EQ(positions.known[0].longitude, -1.5);
    EXPECT_EQ(positions.known[0].latitude, 53.8);
    EXPECT_EQ(positions.known[0].name, "Mill");
    EXPECT_EQ(positions.known[1].longitude, 20);
    EXPECT_EQ(positions.known[1].latitude, -3);
    EXPECT_EQ(positions.known[1].name, "");
    EXPECT_EQ(positions.withoutNumbers, 0U);
}

TEST(Positions, MayHaveBlanksAndLineBreaksAroundThem) {
    const MarkerList list = ListOf("\n\t +1.5 , 53.8\t\r\n");
    const Positions positions = PositionsOf(list);
    ASSERT_EQ(positions.known.size(), 1U);
    EXPECT_EQ(positions.known[0].longitude, 1.5);
    EXPECT_EQ(positions.known[0].latitude, 53.8);
}

TEST(Positions, KeepCommasOfTheirNames) {
    const MarkerList list = ListOf("1,2,Mill,_Old\r\n");
    EXPECT_EQ(PositionsOf(list).known.front().name, "Mill,_Old");
}

TEST(Positions, ThatAreNoNumbersAreCounted) {
    const Positions positions =
        PositionsOf(ListOf("a,b\r\n1\r\n1,\r\n,2\r\n\r\n1.5x,2\r\nnan,2\r\n1,inf\r\n+-1,2\r\n1,2"));
    EXPECT_EQ(positions.withoutNumbers, 9U);
    EXPECT_EQ(positions.known.size(), 1U);
}

TEST(Positions, OutsideTheEarthAreCounted) {
    const Positions positions =
        PositionsOf(ListOf("1,90\r\n1,-90\r\n360,1\r\n1,90.1\r\n1,-91\r\n360.5,1\r\n-1e9,1\r\n"));
    EXPECT_EQ(positions.known.size(), 3U);
    EXPECT_EQ(positions.outsideTheEarth, 4U);
    EXPECT_EQ(positions.withoutNumbers, 0U);
}

TEST(Positions, OfAnEmptyListAreNone) {
    const Positions positions = PositionsOf({});
    EXPECT_EQ(positions.known.size() + positions.withoutNumbers + positions.outsideTheEarth, 0U);
}

TEST(NameForPeople, MakesLettersOfUtf8Bytes) {
    // "é" in UTF-8 is C3 A9, which a single-byte file shows as two characters.
    EXPECT_EQ(NameForPeople("CafÃ©"), "Café");
    EXPECT_EQ(NameForPeople("æ±Ÿäº¬"), "江京");
}

TEST(NameForPeople, LeavesOtherNamesAlone) {
    EXPECT_EQ(NameForPeople("Mill"), "Mill");
    EXPECT_EQ(NameForPeople("Köln"), "Köln");
    EXPECT_EQ(NameForPeople("東京"), "東京");
    EXPECT_EQ(NameForPeople(""), "");
}

} // namespace
} // namespace tamarind::markers
