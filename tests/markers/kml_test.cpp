#include "markers/expect_error.h"
#include "markers/marker_readers.h"

#include <gtest/gtest.h>

namespace tamarind::markers {
namespace {

using text::ErrorNumber;

/// A placemark as most programs write it, with a point of view that makes the file one of placemarks.
std::string Placemark(const std::string& name, const std::string& coordinates) {
    return "<Placemark><name>" + name + "</name><LookAt><longitude>9</longitude></LookAt><Point><coordinates>" +
           coordinates + "</coordinates></Point></Placemark>";
}

std::string Path(const std::string& points) { return "<LineString><coordinates>\n" + points + "</coordinates>"; }

TEST(KmlPlacemarks, GiveLongitudeLatitudeAndName) {
    const MarkerList list = ReadKml(Placemark("Mill", "-1.55,53.8,0"));
    EXPECT_EQ(list.text, "-1.55,53.8,Mill\r\n");
    EXPECT_EQ(list.count, 1U);
    EXPECT_EQ(list.remark, "");
}

TEST(KmlPlacemarks, StandInTheOrderOfTheFile) {
    const MarkerList list = ReadKml(Placemark("B", "1,2,0") + "\r\n" + Placemark("A", "3,4,0"));
    EXPECT_EQ(list.text, "1,2,B\r\n3,4,A\r\n");
    EXPECT_EQ(list.count, 2U);
}

TEST(KmlPlacemarks, HaveUnderscoresForBlanksInsideTheirNames) {
    EXPECT_EQ(ReadKml(Placemark("Old Mill", "1,2,0")).text, "1,2,Old_Mill\r\n");
    EXPECT_EQ(ReadKml(Placemark("The  Old Mill", "1,2,0")).text, "1,2,The__Old_Mill\r\n");
}

TEST(KmlPlacemarks, LoseBlanksAroundTheirNames) {
    EXPECT_EQ(ReadKml(Placemark("  Old Mill ", "1,2,0")).text, "1,2,Old_Mill\r\n");
    EXPECT_EQ(ReadKml(Placemark("   ", "1,2,0")).text, "1,2,\r\n");
}

TEST(KmlPlacemarks, KeepTabsAndLineBreaksOfTheirNames) {
    EXPECT_EQ(ReadKml(Placemark("\tOld\r\nMill", "1,2,0")).text, "1,2,\tOld\r\nMill\r\n");
    EXPECT_EQ(ReadKml(Placemark("\tOld\r\nMill", "1,2,0")).count, 1U);
}

TEST(KmlPlacemarks, KeepCommasAndEntitiesOfTheirNames) {
    EXPECT_EQ(ReadKml(Placemark("Mill, Old &amp; &#233;", "1,2,0")).text, "1,2,Mill,_Old_&amp;_&#233;\r\n");
}

TEST(KmlPlacemarks, KeepNamesOfAnyScript) {
    EXPECT_EQ(ReadKml(Placemark("Köln Śródmieście 東京 Ελλάδα", "1,2,0")).text, "1,2,Köln_Śródmieście_東京_Ελλάδα\r\n");
}

TEST(KmlPlacemarks, KeepTheCharactersOfTheirCoordinates) {
    EXPECT_EQ(ReadKml(Placemark("A", "\r\n\t +1.50 , 5.38e1 ,0")).text, "\r\n\t +1.50 , 5.38e1 ,A\r\n");
    EXPECT_EQ(ReadKml(Placemark("A", "1.500000000000000,53.80000,12.5")).text, "1.500000000000000,53.80000,A\r\n");
}

TEST(KmlPlacemarks, AreFoundWithoutRegardToLetterCase) {
    EXPECT_EQ(ReadKml("<PLACEMARK><NAME>Mill</NAME><LONGITUDE><COORDINATES>1,2,0</COORDINATES>").text, "1,2,Mill\r\n");
}

TEST(KmlPlacemarks, NeedALongitudeTagAnywhereInTheFile) {
    const std::string mark = "<Placemark><name>A</name><coordinates>1,2,0</coordinates></Placemark>";
    EXPECT_EQ(ReadKml(mark + "<longitude>").text, "1,2,A\r\n");
    EXPECT_EQ(ReadKml(mark).text, ""); // a path without ",0 "
}

TEST(KmlPlacemarks, TakeTheFirstNameBehindThem) {
    EXPECT_EQ(ReadKml("<longitude><name>Folder</name><Placemark><description/><displayName>A</displayName>"
                      "<name>B</name><coordinates>1,2,0")
                  .text,
              "1,2,A\r\n");
}

TEST(KmlPlacemarks, WithAttributesAreNotFound) {
    EXPECT_EQ(ReadKml("<longitude><Placemark id=\"1\"><name>A</name><coordinates>1,2,0").text, "");
}

TEST(KmlPlacemarks, AreLookedForBehindTheLatitude) {
    // Without an altitude, the latitude lasts to the next comma, and the placemark before it is gone.
    const std::string text = Placemark("A", "1,2") + Placemark("B", "3,4,0") + Placemark("C", "5,6,0");
    const MarkerList list = ReadKml(text);
    EXPECT_EQ(list.count, 2U);
    EXPECT_TRUE(list.text.starts_with("1,2</coordinates>"));
    EXPECT_TRUE(list.text.ends_with("<coordinates>3,A\r\n5,6,C\r\n"));
}

TEST(KmlPlacemarks, EndBeforeOneThatLacksItsCoordinates) {
    const MarkerList list = ReadKml(Placemark("A", "1,2,0") + "<Placemark><name>B</name></Placemark>");
    EXPECT_EQ(list.text, "1,2,A\r\n");
    EXPECT_EQ(list.remark, "\"<coordinates>\" is missing for marker 2: the list ends before it.");
}

TEST(KmlPlacemarks, EndBeforeOneThatLacksItsName) {
    const MarkerList list = ReadKml(Placemark("A", "1,2,0") + "<Placemark><coordinates>1,2,0</coordinates>");
    EXPECT_EQ(list.text, "1,2,A\r\n");
    EXPECT_EQ(list.remark, "\"name>\" is missing for marker 2: the list ends before it.");
}

TEST(KmlPlacemarks, EndBeforeOneThatIsCutOff) {
    const std::string first = Placemark("A", "1,2,0");
    for (const char* rest : {"<Placemark><name>B", "<Placemark><name>B</name><coordinates>3",
                             "<Placemark><name>B</name><coordinates>3,4"}) {
        const MarkerList list = ReadKml(first + rest);
        EXPECT_EQ(list.text, "1,2,A\r\n") << rest;
        EXPECT_NE(list.remark, "") << rest;
    }
}

TEST(KmlPlacemarks, MayBeNone) {
    const MarkerList list = ReadKml("<longitude><coordinates>1,2,0</coordinates>");
    EXPECT_EQ(list.text, "");
    EXPECT_EQ(list.remark, "");
}

TEST(KmlPath, GivesEachPointUpToItsZeroAltitude) {
    const MarkerList list = ReadKml(Path("-1.5,53.8,0 -1.6,53.9,0 "));
    EXPECT_EQ(list.text, "-1.5,53.8\r\n-1.6,53.9\r\n");
    EXPECT_EQ(list.count, 2U);
    EXPECT_EQ(list.remark, "");
}

TEST(KmlPath, LosesALastPointThatNoZeroAndBlankFollow) {
    const MarkerList list = ReadKml(Path("1,2,0 3,4,0"));
    EXPECT_EQ(list.text, "1,2\r\n");
    EXPECT_EQ(list.remark, "What stands behind the last \",0 \" of the path is left out.");
}

TEST(KmlPath, LosesOneCharacterBehindItsTag) {
    EXPECT_EQ(ReadKml("<coordinates>91,2,0 </coordinates>").text, "1,2\r\n");
    EXPECT_EQ(ReadKml("<coordinates>\r\n1,2,0 </coordinates>").text, "\n1,2\r\n");
}

TEST(KmlPath, LosesAWholeCharacterBehindItsTag) {
    EXPECT_EQ(ReadKml("<coordinates>é1,2,0 </coordinates>").text, "1,2\r\n");
}

TEST(KmlPath, KeepsBlanksAndLineBreaksOfItsPoints) {
    EXPECT_EQ(ReadKml(Path("\t\t1, 2,0 \r\n\t3,4,0 \r\n")).text, "\t\t1, 2\r\n\r\n\t3,4\r\n");
}

TEST(KmlPath, KeepsPointsOfOtherAltitudesTogether) { EXPECT_EQ(ReadKml(Path("1,2,15 3,4,0 ")).text, "1,2,15 3,4\r\n"); }

TEST(KmlPath, IsTheFirstOfTheFile) { EXPECT_EQ(ReadKml(Path("1,2,0 ") + Path("3,4,0 ")).text, "1,2\r\n"); }

TEST(KmlPath, IsFoundWithoutRegardToLetterCase) {
    EXPECT_EQ(ReadKml("<Coordinates>\n1,2,0 </COORDINATES>").text, "1,2\r\n");
}

TEST(KmlPath, EndsAtItsOwnTag) {
    EXPECT_EQ(ReadKml("</coordinates>" + Path("1,2,0 ")).text, "1,2\r\n");
    EXPECT_EQ(ReadKml("<coordinates>\n1,2,0 </coor").text, "1,2\r\n");
}

TEST(KmlPath, MayHoldNoPoint) {
    EXPECT_EQ(ReadKml(Path("")).text, "");
    EXPECT_EQ(ReadKml(Path(" \r\n\t")).remark, "");
}

TEST(KmlPath, WithoutAnEndFails) {
    ExpectError(ErrorNumber::InvalidProcedureCall, "\"</coordinates>\" is missing",
                [] { return ReadKml("<coordinates>\n1,2,0 "); });
}

TEST(KmlPath, WithoutEvenALineBreakFails) {
    ExpectError(ErrorNumber::InvalidProcedureCall, "no points", [] { return ReadKml("<coordinates></coordinates>"); });
}

TEST(Kml, WithoutCoordinatesFails) {
    for (const char* text : {"<kml/>", "<longitude><Placemark><name>A</name>", "PK\x03\x04 a renamed archive", " "}) {
        ExpectError(ErrorNumber::InvalidProcedureCall, "\"<coordinates>\"", [text] { return ReadKml(text); });
    }
}

TEST(Kml, ThatIsEmptyGivesAnEmptyList) {
    EXPECT_EQ(ReadKml("").text, "");
    EXPECT_EQ(ReadKml("").count, 0U);
}

} // namespace
} // namespace tamarind::markers
