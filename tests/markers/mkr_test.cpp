#include "markers/expect_error.h"
#include "markers/marker_readers.h"

#include <gtest/gtest.h>

namespace tamarind::markers {
namespace {

using text::ErrorNumber;

TEST(Mkr, GivesBothValuesAndTheName) {
    const MarkerList list = ReadMkr("Marker ( -1.5 53.8 Mill\" )");
    EXPECT_EQ(list.text, "-1.5,53.8,Mill\r\n");
    EXPECT_EQ(list.count, 1U);
    EXPECT_EQ(list.remark, "");
}

TEST(Mkr, LosesTheTwoCharactersBeforeTheBracket) {
    EXPECT_EQ(ReadMkr("Marker ( 1 2 Mill)").text, "1,2,Mi\r\n");
    EXPECT_EQ(ReadMkr("Marker ( 1 2 Mill )").text, "1,2,Mil\r\n");
}

TEST(Mkr, LosesWholeCharactersBeforeTheBracket) {
    EXPECT_EQ(ReadMkr("Marker ( 1 2 Ślęża)").text, "1,2,Ślę\r\n");
    EXPECT_EQ(ReadMkr("Marker ( 1 2 東京😀é)").text, "1,2,東京\r\n");
}

TEST(Mkr, BeginsTwoCharactersBehindTheFirstBracket) {
    EXPECT_EQ(ReadMkr("Marker (1 2 3 Mill..)").text, "2,3,Mill\r\n");
    EXPECT_EQ(ReadMkr("Marker (é1 2 Mill..)").text, "1,2,Mill\r\n");
}

TEST(Mkr, KeepsBlanksInsideTheName) {
    EXPECT_EQ(ReadMkr("Marker ( 1 2 The Old Mill, 3..)").text, "1,2,The Old Mill, 3\r\n");
}

TEST(Mkr, KeepsNamesOfAnyScript) { EXPECT_EQ(ReadMkr("Marker ( 1 2 東京 Ελλάδα..)").text, "1,2,東京 Ελλάδα\r\n"); }

TEST(Mkr, TakesADoubleBlankForOne) {
    EXPECT_EQ(ReadMkr("Marker (  1  2  Mill  ..)").text, "1,2,Mill\r\n");
    EXPECT_EQ(ReadMkr("Marker  ( 1 2 Mill..)").text, "1,2,Mill\r\n");
}

TEST(Mkr, GoesOverDoubleBlanksOnce) {
    // Three blanks become two: the second value is what stands between them, nothing.
    EXPECT_EQ(ReadMkr("Marker ( 1   2 Mill..)").text, "1,,2 Mill\r\n");
    // Four become two as well.
    EXPECT_EQ(ReadMkr("Marker ( 1    2 Mill..)").text, "1,,2 Mill\r\n");
}

TEST(Mkr, GivesEachMarkerInOrder) {
    EXPECT_EQ(ReadMkr("Marker ( 3 4 B..)\r\nMarker ( 1 2 A..)\r\n").text, "3,4,B\r\n1,2,A\r\n");
}

TEST(Mkr, IsReadWithoutRegardToLetterCase) { EXPECT_EQ(ReadMkr("MARKER ( 1 2 A..)").text, "1,2,A\r\n"); }

TEST(Mkr, LooksForTheNextMarkerInsideTheLast) {
    // The piece lasts to the first closing bracket; the second marker is found inside.
    EXPECT_EQ(ReadMkr("Marker ( 1 2 Marker ( 3 4 A..)").text, "1,2,Marker ( 3 4 A\r\n3,4,A\r\n");
}

TEST(Mkr, WithoutAMarkerGivesAnEmptyList) {
    EXPECT_EQ(ReadMkr("").text, "");
    EXPECT_EQ(ReadMkr("SIMISA@@ other ( 1 2 )").text, "");
    EXPECT_EQ(ReadMkr("Marker( 1 2 A..)").text, "");
}

TEST(Mkr, EndsBeforeAMarkerWithoutAClosingBracket) {
    const MarkerList list = ReadMkr("Marker ( 1 2 A..) Marker ( 3 4 B");
    EXPECT_EQ(list.text, "1,2,A\r\n");
    EXPECT_EQ(list.remark, "\")\" is missing for marker 2: the list ends before it.");
}

TEST(Mkr, WithTooFewValuesFails) {
    for (const char* marker : {"Marker ()", "Marker ( 1 2)", "Marker ( 1 2..)", "Marker (  )"}) {
        ExpectError(ErrorNumber::InvalidProcedureCall, "Marker 2 has fewer than two blanks",
                    [marker] { return ReadMkr(std::string("Marker ( 1 2 A..) ") + marker); });
    }
}

TEST(Mkr, OfMarkersInsideEachOtherEndsBeforeItFillsTheMemory) {
    std::string text;
    for (int i = 0; i < 20000; ++i)
        text += "Marker ( 1 2 ";
    ExpectError(ErrorNumber::Overflow, "inside each other", [&text] { return ReadMkr(text + "A..)"); });
}

} // namespace
} // namespace tamarind::markers
