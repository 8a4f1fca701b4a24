#include "authoring/start_time.h"

#include "platform/expect_error.h"

#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using authoring::ShownStartTime;
using authoring::StartInWords;
using authoring::StoredStartTime;
using text::ErrorNumber;

TEST(ShownStartTime, ShowsHoursAndMinutesInTwoDigitsEach) {
    EXPECT_EQ(ShownStartTime("43200.0000"), "1200");
    EXPECT_EQ(ShownStartTime("0"), "0000");
    EXPECT_EQ(ShownStartTime("300"), "0005");
}

TEST(ShownStartTime, RoundsTheHours) {
    // A quarter to six reads as a quarter to seven.
    EXPECT_EQ(ShownStartTime("20700"), "0645");
    EXPECT_EQ(ShownStartTime("19500"), "0525");
}

TEST(ShownStartTime, RoundsHalfHoursToTheEvenHour) {
    EXPECT_EQ(ShownStartTime("19800"), "0630"); // 5.5
    EXPECT_EQ(ShownStartTime("16200"), "0430"); // 4.5
}

TEST(ShownStartTime, RoundsTheMinutes) {
    EXPECT_EQ(ShownStartTime("3630"), "0100");   // 0.5 of a minute
    EXPECT_EQ(ShownStartTime("3690"), "0102");   // 1.5
    EXPECT_EQ(ShownStartTime("3599"), "0160");   // both are rounded up
    EXPECT_EQ(ShownStartTime("3630.4"), "0100"); // 30 whole seconds
    EXPECT_EQ(ShownStartTime("3630.6"), "0101"); // 31
}

TEST(ShownStartTime, SavedUnchangedMovesTheStart) {
    EXPECT_EQ(StoredStartTime(ShownStartTime("20700")), "24300.0000"); // 06:45
}

TEST(ShownStartTime, ShowsMoreThanADayAsItIs) { EXPECT_EQ(ShownStartTime("360000"), "10000"); }

TEST(ShownStartTime, KeepsTheSignOfEachPart) { EXPECT_EQ(ShownStartTime("-3660"), "-01-01"); }

TEST(ShownStartTime, FailsForWhatIsNoNumber) {
    for (const char* const text : {"", "dawn", "5:30", "<x>"})
        ExpectError([text] { static_cast<void>(ShownStartTime(text)); }, ErrorNumber::TypeMismatch);
}

TEST(ShownStartTime, FailsForMoreHoursThanItCanHold) {
    ExpectError([] { static_cast<void>(ShownStartTime("120000000")); }, ErrorNumber::Overflow);
    ExpectError([] { static_cast<void>(ShownStartTime("1e300")); }, ErrorNumber::Overflow);
}

TEST(StoredStartTime, IsSecondsWithFiveAndFourDigits) {
    EXPECT_EQ(StoredStartTime("0530"), "19800.0000");
    EXPECT_EQ(StoredStartTime("0001"), "00060.0000");
    EXPECT_EQ(StoredStartTime("2400"), "86400.0000");
}

TEST(StoredStartTime, TakesMinutesBeyondTheHour) { EXPECT_EQ(StoredStartTime("0590"), "23400.0000"); }

TEST(StoredStartTime, KeepsTheSign) { EXPECT_EQ(StoredStartTime("-100"), "-03600.0000"); }

TEST(StoredStartTime, FailsForWhatIsNoNumber) {
    ExpectError([] { static_cast<void>(StoredStartTime("1e02")); }, ErrorNumber::TypeMismatch);
}

std::string Words(const char* time, const char* day, const char* month, const char* year, const char* minutes = "") {
    return StartInWords({.time = time, .day = day, .month = month, .year = year, .minutes = minutes});
}

TEST(StartInWords, ReadsDateTimeAndLength) {
    EXPECT_EQ(Words("0530", "1", "5", "1958", "45"), "Thursday, 1 May 1958, 05:30, for 45 minutes");
    EXPECT_EQ(Words("1200", "24", "12", "1961", "1"), "Sunday, 24 December 1961, 12:00, for 1 minute");
    EXPECT_EQ(Words("1200", "29", "02", "2000"), "Tuesday, 29 February 2000, 12:00");
}

TEST(StartInWords, CarriesMinutesBeyondTheHour) {
    EXPECT_EQ(Words("0590", "1", "5", "1958"), "Thursday, 1 May 1958, 06:30");
}

TEST(StartInWords, CarriesMidnightToTheNextDay) {
    EXPECT_EQ(Words("2400", "31", "12", "1999"), "Saturday, 1 January 2000, 00:00");
}

TEST(StartInWords, SaysWhichDateCannotBeRead) {
    const std::string noDate = "This date is not in the calendar.";
    EXPECT_EQ(Words("1200", "31", "2", "1958"), noDate);
    EXPECT_EQ(Words("1200", "29", "2", "1900"), noDate);
    EXPECT_EQ(Words("1200", "", "2", "1958"), noDate);
    EXPECT_EQ(Words("1200", "1", "13", "1958"), noDate);
    EXPECT_EQ(Words("1200", "-1", "1", "1958"), noDate);
    EXPECT_EQ(Words("1200", "1", "1", "99999999999"), noDate);
}

TEST(StartInWords, SaysWhichTimeCannotBeRead) {
    for (const char* const time : {"", "530", "05:3", "12345", "1e02"})
        EXPECT_EQ(Words(time, "1", "5", "1958"), "This time is not four digits.") << time;
}

TEST(StartInWords, LeavesOutALengthThatIsNoWholeNumber) {
    EXPECT_EQ(Words("0530", "1", "5", "1958", "an hour"), "Thursday, 1 May 1958, 05:30");
}

} // namespace
} // namespace tamarind::tests
