#include "markers/expect_error.h"
#include "markers/marker_readers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamarind::markers {
namespace {

using text::ErrorNumber;

std::string Point(const std::string& latitude, const std::string& longitude) {
    return "<trkpt lat=\"" + latitude + "\" lon=\"" + longitude + "\"><ele>12</ele></trkpt>\n";
}

/// A track whose only point has its "lat=" at character `position`, from 1, and its "lon=" 8 characters further.
std::string TrackWithLatitudeAt(std::size_t position, const std::string& filling = ".") {
    const std::string begin = "<trkseg>";
    const std::string point = "<trkpt lat=\"5\" lon=\"6\"/>";
    std::string text = begin;
    for (std::size_t i = begin.size() + 7; i + 1 < position; ++i)
        text += filling;
    return text + point;
}

TEST(Gpx, GivesLongitudeAndLatitudeOfEachTrackPoint) {
    const MarkerList list = ReadGpx("<gpx><trk><trkseg>" + Point("53.8", "-1.5") + Point("53.9", "-1.6"));
    EXPECT_EQ(list.text, "-1.5,53.8\r\n-1.6,53.9\r\n");
    EXPECT_EQ(list.count, 2U);
    EXPECT_EQ(list.remark, "");
}

TEST(Gpx, GoesOnThroughAllSegments) {
    const std::string text = "<trkseg>" + Point("1", "2") + "</trkseg><trkseg>" + Point("3", "4") + "</trkseg>";
    EXPECT_EQ(ReadGpx(text).text, "2,1\r\n4,3\r\n");
}

TEST(Gpx, BeginsAtTheFirstSegment) {
    EXPECT_EQ(ReadGpx(Point("1", "2") + "<trkseg>" + Point("3", "4")).text, "4,3\r\n");
}

TEST(Gpx, LeavesWaypointsOut) {
    EXPECT_EQ(ReadGpx("<wpt lat=\"1\" lon=\"2\"/><trkseg>" + Point("3", "4") + "<wpt lat=\"5\" lon=\"6\"/>").text,
              "4,3\r\n");
}

TEST(Gpx, KeepsTheCharactersOfItsCoordinates) {
    EXPECT_EQ(ReadGpx("<trkseg>" + Point(" +53.80\r\n", "-1,5")).text, "-1,5, +53.80\r\n\r\n");
}

TEST(Gpx, IsReadWithoutRegardToLetterCase) {
    EXPECT_EQ(ReadGpx("<TrkSeg><TRKPT LAT=\"1\" Lon=\"2\"/>").text, "2,1\r\n");
}

TEST(Gpx, LooksForTheLongitudeBehindTheLatitude) {
    // The longitude that stands first is passed over, and so is the point between.
    const std::string swapped = "<trkpt lon=\"1\" lat=\"2\"/>";
    EXPECT_EQ(ReadGpx("<trkseg>" + swapped + Point("3", "4") + Point("5", "6")).text, "4,2\r\n6,5\r\n");
}

TEST(Gpx, TakesTheValueUpToADoubleQuote) {
    EXPECT_EQ(ReadGpx("<trkseg><trkpt lat='1' lon='2' x=\"3\"/>").text, "2' x=,1' lon='2' x=\r\n");
}

TEST(Gpx, PassesOverAWholeCharacterBehindTheEqualsSign) {
    EXPECT_EQ(ReadGpx("<trkseg><trkpt lat=“1\" lon=“2\"/>").text, "2,1\r\n");
}

TEST(Gpx, WithoutASegmentFails) {
    const std::vector<std::string> texts = {Point("1", "2"), "<gpx></gpx>", "GIF89a", " "};
    for (const std::string& text : texts) {
        ExpectError(ErrorNumber::InvalidProcedureCall, "\"<trkseg>\"", [&text] { return ReadGpx(text); });
    }
}

TEST(Gpx, ThatIsEmptyGivesAnEmptyList) { EXPECT_EQ(ReadGpx("").text, ""); }

TEST(Gpx, WithAnEmptySegmentGivesAnEmptyList) { EXPECT_EQ(ReadGpx("<trkseg></trkseg>").text, ""); }

TEST(Gpx, EndsBeforeAPointThatLacksAnAttribute) {
    const std::string first = "<trkseg>" + Point("1", "2");
    const MarkerList withoutLatitude = ReadGpx(first + "<trkpt lon=\"3\"/>");
    EXPECT_EQ(withoutLatitude.text, "2,1\r\n");
    EXPECT_EQ(withoutLatitude.remark, "\"lat=\" is missing for marker 2: the list ends before it.");
    const MarkerList withoutLongitude = ReadGpx(first + "<trkpt lat=\"3\"/>");
    EXPECT_EQ(withoutLongitude.text, "2,1\r\n");
    EXPECT_EQ(withoutLongitude.remark, "\"lon=\" is missing for marker 2: the list ends before it.");
}

TEST(Gpx, EndsBeforeAPointThatIsCutOff) {
    for (const char* rest : {"<trkpt lat=\"3", "<trkpt lat=\"3\" lon=\"4", "<trkpt lat=", "<trkpt lat=\"3\" lon="}) {
        const MarkerList list = ReadGpx("<trkseg>" + Point("1", "2") + rest);
        EXPECT_EQ(list.text, "2,1\r\n") << rest;
        EXPECT_NE(list.remark, "") << rest;
    }
}

TEST(GpxPositions, MayBeTheLargestNumberOfSixteenBits) {
    // "lon=" stands 8 characters behind "lat=".
    EXPECT_EQ(ReadGpx(TrackWithLatitudeAt(32759)).text, "6,5\r\n");
}

TEST(GpxPositions, OverflowAtTheLongitudeFirst) {
    ExpectError(ErrorNumber::Overflow, "Point 1 of the track stands beyond character 32767",
                [] { return ReadGpx(TrackWithLatitudeAt(32760)); });
}

TEST(GpxPositions, OverflowAtTheLatitude) {
    ExpectError(ErrorNumber::Overflow, "32767", [] { return ReadGpx(TrackWithLatitudeAt(32768)); });
}

TEST(GpxPositions, CountCharactersNotBytes) {
    EXPECT_EQ(ReadGpx(TrackWithLatitudeAt(32759, "€")).text, "6,5\r\n");
    ExpectError(ErrorNumber::Overflow, "32767", [] { return ReadGpx(TrackWithLatitudeAt(32760, "€")); });
}

TEST(GpxPositions, OverflowThoughEarlierPointsDoNot) {
    ExpectError(ErrorNumber::Overflow, "Point 2",
                [] { return ReadGpx("<trkseg>" + Point("1", "2") + TrackWithLatitudeAt(40000)); });
}

TEST(GpxPositions, MayBeFollowedByAnyLength) {
    EXPECT_EQ(ReadGpx("<trkseg>" + Point("1", "2") + std::string(100000, ' ')).text, "2,1\r\n");
}

} // namespace
} // namespace tamarind::markers
