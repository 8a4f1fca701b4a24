#include "authoring/blueprint.h"

#include "document/clsXMLParse.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "support/tree_text.h"
#include "text/code_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using authoring::BlueprintTexts;
using authoring::BlueprintWarning;
using authoring::FillTemplate;
using authoring::FormOf;
using session::BlueprintMode;
using testing::HasSubstr;
using testing::Not;

constexpr BlueprintMode kNamed = BlueprintMode::NamedMarker;
constexpr BlueprintMode kSeries = BlueprintMode::SeriesMarker;
constexpr BlueprintMode kRoute = BlueprintMode::RouteTemplate;

TEST(BlueprintForm, OfEachModeHasItsHeadingRowsAndTemplate) {
    using Labels = std::vector<std::string>;
    const auto labels = [](BlueprintMode mode) {
        Labels shown;
        for (const char* const label : FormOf(mode).labels)
            if (label != nullptr) shown.emplace_back(label);
        return shown;
    };
    EXPECT_STREQ(FormOf(kNamed).heading, "Set up Blueprint for a Named Marker file");
    EXPECT_EQ(labels(kNamed), (Labels{"Named Marker File Name:", ".csv File Name:"}));
    EXPECT_STREQ(FormOf(kNamed).templateFile, "\\BluePrints\\Blue_Named.xml");
    EXPECT_STREQ(FormOf(kSeries).heading, "Set up Blueprint for a Series Marker file");
    EXPECT_EQ(labels(kSeries), (Labels{"Series Marker File Name:", ".csv File Name:"}));
    EXPECT_STREQ(FormOf(kSeries).templateFile, "\\BluePrints\\Blue_Series.xml");
    EXPECT_STREQ(FormOf(kRoute).heading, "Set up Blueprint for a Route Template");
    EXPECT_EQ(labels(kRoute), (Labels{"Route Template Name:", "Longitude:", "Latitude:"}));
    EXPECT_STREQ(FormOf(kRoute).templateFile, "\\BluePrints\\Blue_Route.xml");
}

TEST(MarkerFileName, GetsItsEndingWhereItIsMissing) {
    EXPECT_EQ(authoring::WithCsvEnding("Halts"), "Halts.csv");
    EXPECT_EQ(authoring::WithCsvEnding("Halts.txt"), "Halts.txt.csv");
    EXPECT_EQ(authoring::WithCsvEnding("csv"), "csv.csv");
    EXPECT_EQ(authoring::WithCsvEnding("Halts.csv "), "Halts.csv .csv");
    EXPECT_EQ(authoring::WithCsvEnding(""), ".csv");
}

TEST(MarkerFileName, IsUsedAsItIsWithItsEndingInAnyLetterCase) {
    for (const char* const name : {"Halts.csv", "Halts.CSV", "Halts.Csv", ".csv"})
        EXPECT_EQ(authoring::WithCsvEnding(name), name);
}

TEST(FilledTemplate, HasTheNameAndTheMarkerFileInEveryPlace) {
    for (const BlueprintMode mode : {kNamed, kSeries})
        EXPECT_EQ(FillTemplate("<a>ZZZZZZ</a><b>XXXXXX</b><c>ZZZZZZXXXXXX</c>", mode, {"Halts", "Stops"}),
                  "<a>Halts</a><b>Stops.csv</b><c>HaltsStops.csv</c>");
}

TEST(FilledTemplate, OfARouteHasLongitudeAndLatitudeAsTyped) {
    EXPECT_EQ(FillTemplate("ZZZZZZ|XXXXXX|YYYYYY|YYYYYY", kRoute, {"Vale", "-1.50", " 51,25 N"}),
              "Vale|-1.50| 51,25 N| 51,25 N");
}

TEST(FilledTemplate, OfMarkersKeepsThePlaceholderOfTheLatitude) {
    EXPECT_EQ(FillTemplate("YYYYYY", kNamed, {"a", "b", "c"}), "YYYYYY");
}

TEST(FilledTemplate, MindsTheLetterCaseOfPlaceholders) {
    EXPECT_EQ(FillTemplate("zzzzzz Zzzzzz xxxxxx", kNamed, {"a", "b"}), "zzzzzz Zzzzzz xxxxxx");
}

TEST(FilledTemplate, ReplacesPlaceholdersOneAfterTheOther) {
    EXPECT_EQ(FillTemplate("ZZZZZZ", kRoute, {"XXXXXX", "YYYYYY", "51"}), "51");
    EXPECT_EQ(FillTemplate("ZZZZZZZ", kNamed, {"a", "b"}), "aZ");
}

TEST(FilledTemplate, HasTextsAsTyped) {
    EXPECT_EQ(FillTemplate("<a>ZZZZZZ</a>", kNamed, {"R&B <1>", ""}), "<a>R&B <1></a>");
}

TEST(BlueprintWarning, IsEmptyForWhatIsWhole) {
    for (const char* const text : {"", "Halts", "a > b", "a &amp; b", "Quillm\xC3\xBCnde", "-1.5"}) {
        EXPECT_EQ(BlueprintWarning(0, text), "") << text;
        EXPECT_EQ(BlueprintWarning(1, text), "") << text;
    }
}

TEST(BlueprintWarning, SaysHowToWriteMarkup) {
    EXPECT_EQ(BlueprintWarning(1, "R&B"), "\"&\" breaks the blueprint: write \"&amp;\".");
    EXPECT_EQ(BlueprintWarning(2, "a<b & c"), "\"<\" breaks the blueprint: write \"&lt;\".");
}

TEST(BlueprintWarning, DoesNotAskForEntitiesInTheNameOfAFile) {
    EXPECT_EQ(BlueprintWarning(0, "R&B"), "\"&\" breaks the blueprint: leave it out.");
    EXPECT_EQ(BlueprintWarning(0, "a<b"), "\"<\" cannot be in a name.");
}

TEST(BlueprintWarning, NamesLettersThatTheCodePageLacks) {
    EXPECT_EQ(BlueprintWarning(0, "\xD0\xAF"), "Some letters are written as \"?\".");
}

/// The templates as they are delivered, beside this program.
class BlueprintTemplates : public testing::TestWithParam<BlueprintMode> {
protected:
    [[nodiscard]] static std::string Template(BlueprintMode mode) {
        const auto files = platform::MakeFiles();
        std::string text;
        platform::ReadUniFile(*files, platform::ExecutableFolder() + FormOf(mode).templateFile, text);
        return text;
    }
    [[nodiscard]] static std::size_t Count(const std::string& text, const std::string& key) {
        std::size_t count = 0;
        for (std::size_t at = text.find(key); at != std::string::npos; at = text.find(key, at + key.size()))
            ++count;
        return count;
    }
};

TEST_P(BlueprintTemplates, HoldThePlaceholdersOfTheirMode) {
    const std::string text = Template(GetParam());
    EXPECT_GE(Count(text, "ZZZZZZ"), 1U);
    EXPECT_GE(Count(text, "XXXXXX"), 1U);
    EXPECT_EQ(Count(text, "YYYYYY"), GetParam() == kRoute ? 1U : 0U);
}

TEST_P(BlueprintTemplates, EndTheirLinesAsTheGamesToolsDo) {
    const std::string text = Template(GetParam());
    EXPECT_GT(Count(text, "\r\n"), 10U);
    EXPECT_EQ(Count(text, "\n"), Count(text, "\r\n"));
}

TEST_P(BlueprintTemplates, BecomeWholeXmlWithoutPlaceholders) {
    const std::string made = FillTemplate(Template(GetParam()), GetParam(), {"Halts", "12.5", "51"});
    for (const char* const placeholder : {"ZZZZZZ", "XXXXXX", "YYYYYY"})
        EXPECT_THAT(made, Not(HasSubstr(placeholder)));
    const document::Document document = document::ParseXml(text::ToCodePage(made));
    EXPECT_EQ(document.Top().NodeName, "cBlueprintFile");
    const std::string tree = TreeText(document.Top());
    EXPECT_THAT(tree, HasSubstr("{Halts}"));
    EXPECT_THAT(tree, HasSubstr(GetParam() == kRoute ? "{12.5}" : "{12.5.csv}"));
    if (GetParam() == kRoute) {
        EXPECT_THAT(tree, HasSubstr("{51}"));
    }
}

TEST_P(BlueprintTemplates, TakeLettersOfTheWest) {
    const std::string made = FillTemplate(Template(GetParam()), GetParam(), {"Quillm\xC3\xBCnde", "\xC3\xA9", ""});
    const std::string tree = TreeText(document::ParseXml(text::ToCodePage(made)).Top());
    EXPECT_THAT(tree, HasSubstr("{Quillm\xC3\xBCnde}"));
    EXPECT_THAT(tree, HasSubstr(GetParam() == kRoute ? "{\xC3\xA9}" : "{\xC3\xA9.csv}"));
}

std::string NameOfMode(const testing::TestParamInfo<BlueprintMode>& mode) {
    switch (mode.param) {
    case kNamed: return "Named";
    case kSeries: return "Series";
    case kRoute: return "Route";
    }
    return {};
}
INSTANTIATE_TEST_SUITE_P(OfEachMode, BlueprintTemplates, testing::Values(kNamed, kSeries, kRoute), NameOfMode);

} // namespace
} // namespace tamarind::tests
