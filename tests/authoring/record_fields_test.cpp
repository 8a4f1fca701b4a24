#include "authoring/record_fields.h"

#include "platform/expect_error.h"

#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using authoring::GetTag;
using authoring::PutDetail;
using authoring::PutEveryDetail;
using authoring::ReadLocalised;
using authoring::WriteLocalised;
using text::ErrorNumber;

/// What GetTag reads, and where it then stands.
using Reading = std::pair<std::string, std::size_t>;
Reading Got(std::string_view text, std::string_view key, std::size_t position = 1) {
    std::string value = "as it was";
    GetTag(text, position, key, value);
    return {value, position};
}

std::string Put(std::string text, std::string_view key, std::string_view value) {
    std::size_t position = 1;
    PutDetail(text, position, key, value);
    return text;
}

const std::string kFive = "<English>one</English><French>deux</French><Italian>tre</Italian><German>vier</German>"
                          "<Spanish>cinco</Spanish>";

std::string Read(std::string_view text) {
    std::size_t position = 1;
    return ReadLocalised(text, position);
}

TEST(GetTag, ReadsTheTextBetweenTheTagsAndStopsAtTheClosingOne) {
    EXPECT_EQ(Got("<Season>SPRING</Season>", "Season"), Reading("SPRING", 15));
}

TEST(GetTag, PassesOverAttributes) { EXPECT_EQ(Got("<Season d:type=\"k\">S</Season>", "Season").first, "S"); }

TEST(GetTag, ReadsAnEmptyValue) { EXPECT_EQ(Got("<Season></Season>", "Season").first, ""); }

TEST(GetTag, SearchesFromThePositionOn) {
    EXPECT_EQ(Got("<N>1</N><N>2</N>", "N", 2).first, "2");
    EXPECT_EQ(Got("<N>1</N><N>2</N>", "N", 1).first, "1");
}

TEST(GetTag, LeavesTheValueAndSetsThePositionToZeroWithoutTheKey) {
    EXPECT_EQ(Got("<Other>x</Other>", "Season"), Reading("as it was", 0));
}

TEST(GetTag, MindsLetterCase) { EXPECT_EQ(Got("<season>x</season>", "Season").second, 0U); }

TEST(GetTag, FindsEveryElementWhoseNameBeginsWithTheKey) {
    EXPECT_EQ(Got("<NameOfHalt>Bend</NameOfHalt>", "Name").first, "Bend");
}

TEST(GetTag, ReadsOnToTheNextClosingTagOfTheKey) {
    // An element without content in the short form has no closing tag of its own.
    EXPECT_EQ(Got("<Name/><Name>A</Name>", "Name").first, "<Name>A");
}

TEST(GetTag, FailsForAnElementThatDoesNotEnd) {
    ExpectError([] { Got("<Season>S", "Season"); }, ErrorNumber::InvalidProcedureCall);
    ExpectError([] { Got("<Season", "Season"); }, ErrorNumber::InvalidProcedureCall);
}

TEST(GetTag, FailsAtPositionZero) {
    ExpectError([] { Got("<N>1</N>", "N", 0); }, ErrorNumber::InvalidProcedureCall);
}

TEST(PutDetail, ReplacesTheValueAndKeepsAllElse) {
    EXPECT_EQ(Put("a<Season d:type=\"k\">SPRING</Season>b", "Season", "WINTER"),
              "a<Season d:type=\"k\">WINTER</Season>b");
}

TEST(PutDetail, StopsAtTheClosingTagOfTheNewText) {
    std::string text = "<N>long value</N><N>2</N>";
    std::size_t position = 1;
    PutDetail(text, position, "N", "1");
    EXPECT_EQ(position, 5U);
    PutDetail(text, position, "N", "two");
    EXPECT_EQ(text, "<N>1</N><N>two</N>");
}

TEST(PutDetail, WritesAsTyped) { EXPECT_EQ(Put("<N></N>", "N", "a & <b>"), "<N>a & <b></N>"); }

TEST(PutDetail, FailsAndChangesNothingWithoutTheKey) {
    std::string text = "<Other>x</Other>";
    std::size_t position = 1;
    ExpectError([&] { PutDetail(text, position, "N", "1"); }, ErrorNumber::InvalidProcedureCall);
    EXPECT_EQ(text, "<Other>x</Other>");
}

TEST(PutDetail, FailsForAnElementThatDoesNotEnd) {
    ExpectError([] { Put("<N>1", "N", "2"); }, ErrorNumber::InvalidProcedureCall);
}

TEST(PutEveryDetail, SetsEachValue) {
    EXPECT_EQ(PutEveryDetail("<F>1</F>-<F a=\"b\">yes</F>-<F></F>.", "F", "0"), "<F>0</F>-<F a=\"b\">0</F>-<F>0</F>.");
}

TEST(PutEveryDetail, LeavesATextWithoutTheKeyAlone) { EXPECT_EQ(PutEveryDetail("<G>1</G>", "F", "0"), "<G>1</G>"); }

TEST(PutEveryDetail, FailsForAnElementThatDoesNotEnd) {
    ExpectError([] { static_cast<void>(PutEveryDetail("<F>1</F><F>1", "F", "0")); }, ErrorNumber::InvalidProcedureCall);
}

TEST(ReadLocalised, PrefersEnglish) { EXPECT_EQ(Read(kFive), "one"); }

TEST(ReadLocalised, TakesTheFirstLanguageThatIsNotEmpty) {
    EXPECT_EQ(Read("<English></English><French></French><Italian>tre</Italian>"), "tre");
    EXPECT_EQ(Read("<English></English><French></French><Italian></Italian><German>vier</German>"), "vier");
    EXPECT_EQ(Read("<English></English><French></French><Italian></Italian><German></German><Spanish>c</Spanish>"),
              "c");
}

TEST(ReadLocalised, IsEmptyWhereAllFiveAre) {
    EXPECT_EQ(Read("<English></English><French></French><Italian></Italian><German></German><Spanish></Spanish>"), "");
}

TEST(ReadLocalised, LooksForEachLanguageBehindTheOneBefore) {
    EXPECT_EQ(Read("<French>before</French><English></English><French>behind</French>"), "behind");
}

TEST(ReadLocalised, StopsAtTheClosingTagOfTheLanguageTaken) {
    std::size_t position = 1;
    static_cast<void>(ReadLocalised("<English></English><French>x</French>", position));
    EXPECT_EQ(position, 29U);
}

TEST(ReadLocalised, TakesWhatStandsBehindTheLastTagEnd) { EXPECT_EQ(Read("<English>a > b</English>"), " b"); }

TEST(ReadLocalised, MindsLetterCase) {
    ExpectError([] { Read("<english>x</english>"); }, ErrorNumber::InvalidProcedureCall);
}

TEST(ReadLocalised, FailsWhereALanguageThatIsNeededIsMissing) {
    ExpectError([] { Read("<English></English><German>x</German>"); }, ErrorNumber::InvalidProcedureCall);
    ExpectError([] { Read("<English"); }, ErrorNumber::InvalidProcedureCall);
    ExpectError([] { Read("<p><English</English>"); }, ErrorNumber::InvalidProcedureCall);
}

TEST(WriteLocalised, PutsTheSameTextIntoAllFiveLanguages) {
    std::string text = "a" + kFive + "z";
    std::size_t position = 1;
    WriteLocalised(text, position, "N");
    EXPECT_EQ(text, "a<English>N</English><French>N</French><Italian>N</Italian><German>N</German>"
                    "<Spanish>N</Spanish>z");
    EXPECT_EQ(text.substr(position - 1), "</Spanish>z");
}

TEST(WriteLocalised, ReplacesWhatStandsBehindTheLastTagEnd) {
    std::string text = "<English>a > b</English><French/></French><Italian></Italian><German></German>"
                       "<Spanish></Spanish>";
    std::size_t position = 1;
    WriteLocalised(text, position, "N");
    EXPECT_TRUE(text.starts_with("<English>a >N</English><French/>N</French>")) << text;
}

TEST(WriteLocalised, FailsWhereALanguageIsMissing) {
    std::string text = "<English></English><French></French>";
    std::size_t position = 1;
    ExpectError([&] { WriteLocalised(text, position, "N"); }, ErrorNumber::InvalidProcedureCall);
}

} // namespace
} // namespace tamarind::tests
