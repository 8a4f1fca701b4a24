#include "platform/expect_error.h"
#include "text/numbers.h"

#include <gtest/gtest.h>

namespace tamarind::text {
namespace {

constexpr int kOverflow = 6;
constexpr int kTypeMismatch = 13;

int ErrorOfReading(const std::string& text) {
    return tests::NumberOfError([&] { static_cast<void>(ReadNumber(text)); });
}

int ErrorOfInt16(double number) {
    return tests::NumberOfError([&] { static_cast<void>(ToInt16(number)); });
}

TEST(ReadNumber, ReadsDecimalNumbers) {
    EXPECT_DOUBLE_EQ(ReadNumber("12"), 12);
    EXPECT_DOUBLE_EQ(ReadNumber("-3.25"), -3.25);
    EXPECT_DOUBLE_EQ(ReadNumber("+4"), 4);
    EXPECT_DOUBLE_EQ(ReadNumber("1.5E3"), 1500);
    EXPECT_DOUBLE_EQ(ReadNumber(" \t7 "), 7);
}

TEST(ReadNumber, RefusesWhatIsNoNumber) {
    for (const char* text : {"", " ", "a", "1a", "1 2", "--1", "+-1", "0x10", "inf", "nan", ",", "1,5"}) {
        EXPECT_EQ(ErrorOfReading(text), kTypeMismatch) << text;
    }
}

TEST(ReadNumber, OverflowsBeyondDoublePrecision) { EXPECT_EQ(ErrorOfReading("1e999"), kOverflow); }

TEST(ToInt16, RoundsHalvesToEven) {
    EXPECT_EQ(ToInt16(0.5), 0);
    EXPECT_EQ(ToInt16(1.5), 2);
    EXPECT_EQ(ToInt16(2.5), 2);
    EXPECT_EQ(ToInt16(-0.5), 0);
    EXPECT_EQ(ToInt16(-1.5), -2);
    EXPECT_EQ(ToInt16(2.51), 3);
    EXPECT_EQ(ToInt16(2.49), 2);
}

TEST(ToInt16, OverflowsFromTheHalfAboveItsLargestNumber) {
    EXPECT_EQ(ToInt16(32767.49), 32767);
    EXPECT_EQ(ErrorOfInt16(32767.5), kOverflow);
    EXPECT_EQ(ErrorOfInt16(32768), kOverflow);
}

TEST(ToInt16, OverflowsBelowItsSmallestNumber) {
    EXPECT_EQ(ToInt16(-32768), -32768);
    EXPECT_EQ(ToInt16(-32768.5), -32768); // the half goes to the even number
    EXPECT_EQ(ErrorOfInt16(-32768.51), kOverflow);
    EXPECT_EQ(ErrorOfInt16(-1e300), kOverflow);
}

TEST(ClampToInt16, HoldsNumbersInRange) {
    EXPECT_EQ(ClampToInt16(1e9), 32767);
    EXPECT_EQ(ClampToInt16(-1e9), -32768);
    EXPECT_EQ(ClampToInt16(10.5), 10);
}

} // namespace
} // namespace tamarind::text
