#include "editors/xml_structure.h"

#include <gtest/gtest.h>

#include <string>

namespace tamarind::editors {
namespace {

using Inside = FoldState::Inside;

FoldState After(std::string_view line, const FoldState& state = {}) { return FoldLine(line, state); }

TEST(FoldLine, CountsElementsThatStayOpen) {
    EXPECT_EQ(After("<a><b>\r\n").depth, 2);
    EXPECT_EQ(After("<a>text</a>").depth, 0);
    EXPECT_EQ(After("</b></a>", {.depth = 2}).depth, 0);
    EXPECT_EQ(After("no tag", {.depth = 3}).depth, 3);
}

TEST(FoldLine, DoesNotCountEmptyElementsDeclarationsAndComments) {
    EXPECT_EQ(After("<a/><b c=\"1\" />").depth, 0);
    EXPECT_EQ(After("<?xml version=\"1.0\"?><!DOCTYPE a>").depth, 0);
    EXPECT_EQ(After("<!-- <a> --><![CDATA[ <b> ]]>").depth, 0);
}

TEST(FoldLine, GoesOnWithATagInTheNextLine) {
    const FoldState open = After("<a b=\"1\r\n");
    EXPECT_EQ(open, (FoldState{.inside = Inside::Tag, .quote = '"', .depth = 0}));
    EXPECT_EQ(After("2>3\"", open), (FoldState{.inside = Inside::Tag}));
    EXPECT_EQ(After("\">", open).depth, 1);
    EXPECT_EQ(After("\"/>", open).depth, 0);
}

TEST(FoldLine, GoesOnWithCommentsAndCharacterDataInTheNextLine) {
    EXPECT_EQ(After("<!-- <a>").inside, Inside::Comment);
    EXPECT_EQ(After("<a> --><b>", {.inside = Inside::Comment}), (FoldState{.depth = 1}));
    EXPECT_EQ(After("<![CDATA[ <a>").inside, Inside::CharacterData);
    EXPECT_EQ(After("<a> ]]><b>", {.inside = Inside::CharacterData}), (FoldState{.depth = 1}));
    EXPECT_EQ(After("<?x").inside, Inside::Instruction);
}

TEST(FoldLine, TakesATagThatWasNeverClosedForOne) { EXPECT_EQ(After("<a <b>").depth, 2); }

TEST(FoldLine, NeverCountsBelowNothingNorAboveTheDeepest) {
    EXPECT_EQ(After("</a></a>").depth, 0);
    EXPECT_EQ(After("<a><b>", {.depth = kDeepestFold}).depth, kDeepestFold);
}

const std::string kText = "<a x=\"b>\"><b><!-- </b> --></b><b/><c>t</c></a>";

std::optional<TagPair> PairAt(const std::string& place, std::size_t inside = 1) {
    return FindTagPair(kText, kText.find(place) + inside);
}

TagRange Range(const std::string& place, std::size_t length) {
    const std::size_t start = kText.find(place);
    return {start, start + length};
}

TEST(FindTagPair, FindsTheEndTagOfAStartTag) {
    EXPECT_EQ(PairAt("<c>"), (TagPair{Range("<c>", 2), Range("</c>", 3)}));
    EXPECT_EQ(PairAt("<a x"), (TagPair{Range("<a x", 2), Range("</a>", 3)}));
}

TEST(FindTagPair, FindsTheStartTagOfAnEndTag) {
    EXPECT_EQ(PairAt("</c>"), (TagPair{Range("</c>", 3), Range("<c>", 2)}));
    EXPECT_EQ(PairAt("</a>"), (TagPair{Range("</a>", 3), Range("<a x", 2)}));
}

TEST(FindTagPair, PassesOverComments) {
    const std::size_t real = kText.find("--></b>") + 3;
    EXPECT_EQ(PairAt("><b><!", 1),
              (TagPair{{kText.find("><b><!") + 1, kText.find("><b><!") + 3}, TagRange{real, real + 3}}));
    EXPECT_EQ(FindTagPair(kText, real + 1),
              (TagPair{{real, real + 3}, TagRange{kText.find("><b><!") + 1, kText.find("><b><!") + 3}}));
}

TEST(FindTagPair, TakesTheCaretBeforeAndBehindATagForInIt) {
    EXPECT_EQ(PairAt("<c>", 0), PairAt("<c>", 1));
    EXPECT_EQ(PairAt("<c>", 3), PairAt("<c>", 1));
}

TEST(FindTagPair, FindsNothingOutsideOfTagsAndForEmptyElements) {
    EXPECT_EQ(FindTagPair("<a>text</a>", 5), std::nullopt);
    EXPECT_EQ(FindTagPair("<a/>", 1), std::nullopt);
    EXPECT_EQ(FindTagPair("text", 2), std::nullopt);
    EXPECT_EQ(FindTagPair("", 0), std::nullopt);
    EXPECT_EQ(FindTagPair("<?xml?>", 2), std::nullopt);
}

TEST(FindTagPair, NamesNoPartnerThatLiesOutsideOfTheText) {
    EXPECT_EQ(FindTagPair("<a><b>", 1), (TagPair{{0, 2}, std::nullopt}));
    EXPECT_EQ(FindTagPair("</b></a>", 5), (TagPair{{4, 7}, std::nullopt}));
}

} // namespace
} // namespace tamarind::editors
