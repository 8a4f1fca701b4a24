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

TEST(FindNoCase, FindsAsciiLettersInAnyCase) {
    EXPECT_EQ(FindNoCase("xx<PROVIDER>", "<Provider"), 3U);
    EXPECT_EQ(FindNoCase("xx<provider>", "<PROVIDER"), 3U);
    EXPECT_EQ(FindNoCase("abcabc", "C", 4), 6U);
    EXPECT_EQ(FindNoCase("abc", "d"), 0U);
    EXPECT_EQ(FindNoCase("ab", "abc"), 0U);
}

TEST(FindNoCase, TellsSignsFromLettersThatDifferInTheSameBit) {
    EXPECT_EQ(FindNoCase("[", "{"), 0U); // 5B and 7B
    EXPECT_EQ(FindNoCase("@", "`"), 0U); // 40 and 60
    EXPECT_EQ(FindNoCase("a[b", "A[B"), 1U);
}

TEST(FindNoCase, LooksAtOrAfterTheStart) {
    EXPECT_EQ(FindNoCase("aAaA", "aa", 2), 2U);
    EXPECT_EQ(FindNoCase("aAaA", "aa", 4), 0U);
    EXPECT_EQ(FindNoCase("aAaA", "aa", 100), 0U);
    EXPECT_EQ(FindNoCase("abc", "", 2), 2U);
    EXPECT_THROW(static_cast<void>(FindNoCase("abc", "a", 0)), RuntimeError);
}

TEST(FindNoCase, FindsForeignLettersInAnyCase) {
    EXPECT_EQ(FindNoCase("x \xD0\xB4\xD0\xB5\xD0\xBF\xD0\xBE", "\xD0\x94\xD0\x95\xD0\x9F\xD0\x9E"), 3U);
    EXPECT_EQ(FindNoCase("\xC3\x89t\xC3\xA9", "\xC3\xA9T\xC3\x89"), 1U);
    EXPECT_EQ(FindNoCase("\xC3\x89", "\xC3\xA8"), 0U);
}

TEST(FindNoCase, FindsWhatAPlainLoopFinds) {
    // All texts of up to seven letters out of three, with every key of up to three.
    const std::string letters = "aAb";
    const auto spell = [&](std::size_t number, std::size_t length) {
        std::string word;
        for (; length > 0; --length, number /= 3)
            word += letters[number % 3];
        return word;
    };
    const auto plain = [](const std::string& text, const std::string& key) {
        return Find(ToLower(text), ToLower(key));
    };
    for (std::size_t number = 0; number < 2187; ++number) {
        const std::string text = spell(number, 7);
        for (std::size_t length = 1; length <= 3; ++length) {
            for (std::size_t k = 0; k < 27; ++k) {
                const std::string key = spell(k, length);
                ASSERT_EQ(FindNoCase(text, key), plain(text, key)) << text << ' ' << key;
            }
        }
    }
}

TEST(FindNoCase, FindsAKeyThatIsLongerThanOneSkip) {
    const std::string key = std::string(300, 'a') + "Z" + std::string(300, 'b');
    EXPECT_EQ(FindNoCase(std::string(700, 'A') + "z" + std::string(700, 'B'), key), 401U);
}

TEST(FindLastNoCase, FindsTheLastThatEndsAtOrBeforeTheEnd) {
    EXPECT_EQ(FindLastNoCase("abABab", "ab"), 5U);
    EXPECT_EQ(FindLastNoCase("abABab", "ab", 5), 3U);
    EXPECT_EQ(FindLastNoCase("abABab", "ab", 1), 0U);
    EXPECT_EQ(FindLastNoCase("abABab", "ab", 0), 0U);
    EXPECT_EQ(FindLastNoCase("\xC3\x89 \xC3\xA9", "\xC3\xA9", 3), 1U);
}

TEST(ReplaceAllNoCase, ReplacesFromLeftToRight) {
    EXPECT_EQ(ReplaceAllNoCase("aAab", "aa", "x"), "xab");
    EXPECT_EQ(ReplaceAllNoCase("abc", "", "x"), "abc");
    EXPECT_EQ(ReplaceAllNoCase("\xC3\x89-\xC3\xA9", "\xC3\xA9", "e"), "e-e");
}

TEST(StartsWithNoCase, ComparesTheFront) {
    EXPECT_TRUE(StartsWithNoCase("Textures", "text"));
    EXPECT_TRUE(StartsWithNoCase("abc", ""));
    EXPECT_FALSE(StartsWithNoCase("tex", "text"));
}

} // namespace
} // namespace tamarind::text
