#include "text/runtime_error.h"
#include "text/search.h"

#include <gtest/gtest.h>

namespace tamarind::text {
namespace {

TEST(Find, CountsPositionsFromOne) {
    EXPECT_EQ(Find("abcabc", "a"), 1U);
    EXPECT_EQ(Find("abcabc", "bc"), 2U);
    EXPECT_EQ(Find("abcabc", "x"), 0U);
}

TEST(Find, LooksAtOrAfterTheStart) {
    EXPECT_EQ(Find("abcabc", "a", 1), 1U);
    EXPECT_EQ(Find("abcabc", "a", 2), 4U);
    EXPECT_EQ(Find("abcabc", "a", 4), 4U);
    EXPECT_EQ(Find("abcabc", "a", 5), 0U);
    EXPECT_EQ(Find("abcabc", "a", 100), 0U);
}

TEST(Find, FailsWhenTheStartIsZero) { EXPECT_THROW(static_cast<void>(Find("abc", "a", 0)), RuntimeError); }

TEST(Find, FindsAnEmptyKeyAtTheStartButNotPastTheEnd) {
    EXPECT_EQ(Find("abc", "", 2), 2U);
    EXPECT_EQ(Find("abc", "", 4), 0U);
}

TEST(Find, KnowsLetterCase) { EXPECT_EQ(Find("abc", "B"), 0U); }

TEST(FindLast, FindsTheLastOne) {
    EXPECT_EQ(FindLast("abcabc", "abc"), 4U);
    EXPECT_EQ(FindLast("abcabc", "x"), 0U);
    EXPECT_EQ(FindLast("", "x"), 0U);
}

TEST(FindLast, FindsOnlyWhatEndsAtOrBeforeTheEnd) {
    EXPECT_EQ(FindLast("abcabc", "abc", 6), 4U);
    EXPECT_EQ(FindLast("abcabc", "abc", 5), 1U);
    EXPECT_EQ(FindLast("abcabc", "abc", 3), 1U);
    EXPECT_EQ(FindLast("abcabc", "abc", 2), 0U);
    EXPECT_EQ(FindLast("abcabc", "abc", 0), 0U);
}

TEST(Cut, TakesSoManyFromAPosition) {
    EXPECT_EQ(Cut("abcdef", 2, 3), "bcd");
    EXPECT_EQ(Cut("abcdef", 1, 0), "");
}

TEST(Cut, TakesLessWhereTheTextEnds) {
    EXPECT_EQ(Cut("abcdef", 5, 100), "ef");
    EXPECT_EQ(Cut("abcdef", 6, 1), "f");
    EXPECT_EQ(Cut("abcdef", 7, 1), "");
    EXPECT_EQ(Cut("", 1, 1), "");
}

TEST(Cut, FailsOutsideItsLimits) {
    EXPECT_THROW(static_cast<void>(Cut("abc", 0, 1)), RuntimeError);
    EXPECT_THROW(static_cast<void>(Cut("abc", -1, 1)), RuntimeError);
    EXPECT_THROW(static_cast<void>(Cut("abc", 1, -1)), RuntimeError);
}

TEST(ReplaceAll, ReplacesFromLeftToRight) {
    EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(ReplaceAll("a.b.c", ".", ", "), "a, b, c");
    EXPECT_EQ(ReplaceAll("abc", "b", ""), "ac");
    EXPECT_EQ(ReplaceAll("abc", "x", "y"), "abc");
}

TEST(ReplaceAll, DoesNotSearchReplacementsAgain) { EXPECT_EQ(ReplaceAll("ab", "a", "aa"), "aab"); }

TEST(ReplaceAll, ReplacesNothingForAnEmptyKey) { EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc"); }

TEST(EqualNoCase, IgnoresTheCaseOfLatinLetters) {
    EXPECT_TRUE(EqualNoCase("Track.XSec", "tRACK.xsEC"));
    EXPECT_TRUE(EqualNoCase("ÀÉÎÖÞ", "àéîöþ"));
    EXPECT_TRUE(EqualNoCase("ŁŃŐŽĆ", "łńőžć"));
    EXPECT_TRUE(EqualNoCase("ĹŇ", "ĺň"));
    EXPECT_FALSE(EqualNoCase("a", "b"));
    EXPECT_FALSE(EqualNoCase("a", "ä"));
}

TEST(EqualNoCase, KnowsBothCasesOfYWithDiaeresis) { EXPECT_TRUE(EqualNoCase("Ÿ", "ÿ")); }

TEST(EqualNoCase, LeavesSharpSTimesAndDivideAlone) {
    EXPECT_FALSE(EqualNoCase("ß", "ss"));
    EXPECT_TRUE(EqualNoCase("Straße", "STRAßE"));
    EXPECT_FALSE(EqualNoCase("×", "÷"));
}

TEST(EqualNoCase, IgnoresTheCaseOfGreekLetters) {
    EXPECT_TRUE(EqualNoCase("ΑΒΓΣΩΪ", "αβγσωϊ"));
    EXPECT_TRUE(EqualNoCase("ΆΈΉΊΌΎΏ", "άέήίόύώ"));
}

TEST(EqualNoCase, IgnoresTheCaseOfCyrillicLetters) {
    EXPECT_TRUE(EqualNoCase("ЖЯАП", "жяап"));
    EXPECT_TRUE(EqualNoCase("ЁЂЇЏ", "ёђїџ"));
    EXPECT_TRUE(EqualNoCase("ҐӀӁӐ", "ґӏӂӑ"));
}

TEST(EqualNoCase, TellsABrokenByteFromALetterOfTheSameNumber) {
    EXPECT_FALSE(EqualNoCase("\xC4", "Ä"));
    EXPECT_FALSE(EqualNoCase("\xC4", "\xE4"));
    EXPECT_TRUE(EqualNoCase("\xC4", "\xC4"));
}

TEST(EndsWithNoCase, ComparesTheEnd) {
    EXPECT_TRUE(EndsWithNoCase("Track.XSec", "xsec"));
    EXPECT_TRUE(EndsWithNoCase("abc", ""));
    EXPECT_FALSE(EndsWithNoCase("bc", "abc"));
    EXPECT_FALSE(EndsWithNoCase("abcd", "abc"));
}

TEST(CompareNoCase, OrdersShorterBeforeLonger) {
    EXPECT_LT(CompareNoCase("ab", "ABC"), 0);
    EXPECT_GT(CompareNoCase("ABC", "ab"), 0);
    EXPECT_LT(CompareNoCase("", "a"), 0);
    EXPECT_EQ(CompareNoCase("", ""), 0);
}

TEST(CompareNoCase, OrdersByLetterWhateverItsCase) {
    EXPECT_LT(CompareNoCase("a", "B"), 0);
    EXPECT_LT(CompareNoCase("A", "b"), 0);
    EXPECT_GT(CompareNoCase("b", "A"), 0);
}

TEST(ToLower, ChangesLettersOnly) { EXPECT_EQ(ToLower("ABC_12-Ж\xFF"), "abc_12-ж\xFF"); }

} // namespace
} // namespace tamarind::text
