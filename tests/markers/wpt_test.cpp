#include "markers/marker_readers.h"

#include <gtest/gtest.h>

namespace tamarind::markers {
namespace {

TEST(Wpt, GivesTheFourthFieldAndTheThird) {
    const MarkerList list = ReadWpt("1,1,53.8,-1.5,38000,0\r\n2,Mill,53.9,-1.6,38000,0\r\n");
    EXPECT_EQ(list.text, "-1.5,53.8\r\n-1.6,53.9\r\n");
    EXPECT_EQ(list.count, 2U);
}

TEST(Wpt, BeginsAtTheLineThatHoldsOneAndOne) {
    EXPECT_EQ(ReadWpt("Waypoint File Version 1.0\r\n5,A,1,2,3\r\n1,1,3,4,5\r\n6,B,5,6,7\r\n").text, "4,3\r\n6,5\r\n");
}

TEST(Wpt, BeginsWhereverInItsLineTheyStand) { EXPECT_EQ(ReadWpt("7,A1,1,4,5,6\n").text, "4,1\r\n"); }

TEST(Wpt, WithoutThatLineGivesAnEmptyList) {
    EXPECT_EQ(ReadWpt("2,A,1,2,3\r\n3,B,1,2,3\r\n").text, "");
    EXPECT_EQ(ReadWpt("").text, "");
    EXPECT_EQ(ReadWpt("<gpx><trkseg></trkseg></gpx>").text, "");
}

TEST(Wpt, TrimsWhatStandsBehindTheSecondComma) { EXPECT_EQ(ReadWpt("1,1,   53.8,-1.5,0   \n").text, "-1.5,53.8\r\n"); }

TEST(Wpt, KeepsBlanksAroundTheOtherFields) { EXPECT_EQ(ReadWpt("1,1, 53.8 , -1.5 ,0\n").text, " -1.5 ,53.8 \r\n"); }

TEST(Wpt, MayHaveLinesOfAnySystem) {
    EXPECT_EQ(ReadWpt("head\n1,1,3,4,5\n2,2,5,6,7\n").text, "4,3\r\n6,5\r\n");
    EXPECT_EQ(ReadWpt("head\r1,1,3,4,5\r2,2,5,6,7").text, "4,3\r\n6,5\r\n");
    EXPECT_EQ(ReadWpt("head\r\n1,1,3,4,5\n2,2,5,6,7\r\n").text, "4,3\r\n6,5\r\n");
}

TEST(Wpt, LeavesOutLinesWithTooFewFields) {
    const MarkerList list = ReadWpt("1,1,3,4,5\n\n2\n3,C\n4,D,7\n5,E,7,8\n6,F,9,10,\n");
    EXPECT_EQ(list.text, "4,3\r\n10,9\r\n");
    EXPECT_EQ(list.count, 2U);
}

TEST(Wpt, MayLeaveOutItsFirstLineToo) { EXPECT_EQ(ReadWpt("1,1,\n2,2,3,4,5\n").text, "4,3\r\n"); }

TEST(Wpt, TakesACommaInANameForASeparator) {
    EXPECT_EQ(ReadWpt("1,1,3,4,5\n2,Mill, Old,5,6,7\n").text, "4,3\r\n5,Old\r\n");
}

} // namespace
} // namespace tamarind::markers
