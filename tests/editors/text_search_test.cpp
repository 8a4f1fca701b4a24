#include "editors/text_search.h"

#include <gtest/gtest.h>

namespace tamarind::editors {
namespace {

std::optional<TextMatch> At(std::size_t start, std::size_t length) { return TextMatch{start, length}; }

TEST(FindInText, FindsTheFirstMatchAtOrBehindThePosition) {
    EXPECT_EQ(FindInText("halt halt", {"halt"}, 0), At(0, 4));
    EXPECT_EQ(FindInText("halt halt", {"halt"}, 1), At(5, 4));
    EXPECT_EQ(FindInText("halt halt", {"halt"}, 5), At(5, 4));
}

TEST(FindInText, GoesOnAtTheStartBehindTheLastMatch) {
    EXPECT_EQ(FindInText("a halt", {"halt"}, 3), At(2, 4));
    EXPECT_EQ(FindInText("a halt", {"halt"}, 6), At(2, 4));
}

TEST(FindInText, FindsNothingWhereThereIsNothing) {
    EXPECT_EQ(FindInText("a halt", {"stop"}, 0), std::nullopt);
    EXPECT_EQ(FindInText("", {"stop"}, 0), std::nullopt);
    EXPECT_EQ(FindInText("a", {"longer than the text"}, 0), std::nullopt);
    EXPECT_EQ(FindInText("a halt", {""}, 0), std::nullopt);
}

TEST(FindInText, IgnoresLetterCaseOfAllAlphabets) {
    EXPECT_EQ(FindInText("a HALT", {"halt"}, 0), At(2, 4));
    EXPECT_EQ(FindInText("\xC3\x89tape", {"\xC3\xA9tAPE"}, 0), At(0, 6)); // an e with an acute accent
}

TEST(FindInText, TakesSignsOfPatternsLiterally) {
    EXPECT_EQ(FindInText("abc a.c", {"a.c"}, 0), At(4, 3));
    EXPECT_EQ(FindInText("aa a* [x]", {"a*"}, 0), At(3, 2));
    EXPECT_EQ(FindInText("aa a* [x]", {"[X]"}, 0), At(6, 3));
    EXPECT_EQ(FindInText("a\\d", {"\\D"}, 0), At(1, 2));
}

TEST(FindInText, PassesOverPartsOfWordsWhenOnlyWholeOnesCount) {
    EXPECT_EQ(FindInText("halts ahalt halt2 halt_a halt", {"halt", true}, 0), At(25, 4));
    EXPECT_EQ(FindInText("n=\"halt\"", {"halt", true}, 0), At(3, 4));
    EXPECT_EQ(FindInText("(halt.)", {"halt", true}, 0), At(1, 4));
    EXPECT_EQ(FindInText("\xC3\xA9halt", {"halt", true}, 0), std::nullopt);
    EXPECT_EQ(FindInText("\xE2\x80\x94halt", {"halt", true}, 0), At(3, 4)); // behind a dash
}

TEST(FindAllInText, FindsEveryMatchWithoutOverlap) {
    EXPECT_EQ(FindAllInText("aaaa", {"aa"}), (std::vector<TextMatch>{{0, 2}, {2, 2}}));
    EXPECT_EQ(FindAllInText("a-b-A", {"a"}), (std::vector<TextMatch>{{0, 1}, {4, 1}}));
    EXPECT_EQ(FindAllInText("mark marks Mark", {"mark", true}), (std::vector<TextMatch>{{0, 4}, {11, 4}}));
    EXPECT_TRUE(FindAllInText("mark", {""}).empty());
}

} // namespace
} // namespace tamarind::editors
