#include "authoring/scenario_fields.h"

#include "authoring/scenario_sample.h"
#include "platform/expect_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using authoring::Field;
using authoring::FieldTexts;
using authoring::LabelOf;
using authoring::ReadFields;
using authoring::TextWarning;
using authoring::WriteFields;
using testing::ElementsAre;
using text::ErrorNumber;

TEST(FieldLabels, AreThoseOfTheWindow) {
    std::vector<std::string> labels;
    for (std::size_t i = 0; i < authoring::kFieldCount; ++i)
        labels.emplace_back(LabelOf(static_cast<Field>(i)));
    EXPECT_THAT(labels, ElementsAre("Display Name:", "Description", "Briefing", "Start Time (24 hour)",
                                    "Duration (mins)", "Start Day", "Start Month", "Start Year", "Season",
                                    "Weather Provider", "Weather Product", "Weather Blueprint"));
}

TEST(ReadFields, TakesEachValueOfTheRecord) {
    const FieldTexts fields = ReadFields(ScenarioRecord());
    EXPECT_THAT(std::vector<std::string>(fields.begin(), fields.end()),
                ElementsAre("Morning Milk", "Take the empties.", "Stop everywhere.", "1200", "45", "1", "5", "1958",
                            "SEASON_SPRING", "Fernhollow", "AlderVale", "Weather\\Clear.xml"));
}

TEST(ReadFields, LeavesEntitiesAsTheyStand) {
    EXPECT_EQ(ReadFields(ScenarioRecord({.name = "Milk &amp; Mail"}))[Field::DisplayName], "Milk &amp; Mail");
}

TEST(ReadFields, ShowsTheStartWithRoundedHours) {
    EXPECT_EQ(ReadFields(ScenarioRecord({.start = "20700"}))[Field::StartTime], "0645");
}

TEST(ReadFields, TakesEmptyValues) {
    const FieldTexts fields = ReadFields(ScenarioRecord({.name = "", .minutes = "", .season = "", .blueprint = ""}));
    EXPECT_EQ(fields[Field::DisplayName], "");
    EXPECT_EQ(fields[Field::Duration], "");
    EXPECT_EQ(fields[Field::Season], "");
    EXPECT_EQ(fields[Field::WeatherBlueprint], "");
}

TEST(ReadFields, LooksForTheProviderBehindTheSeason) {
    std::string record = ScenarioRecord();
    record.insert(record.find("<DisplayName>"), "<Provider>other</Provider>");
    EXPECT_EQ(ReadFields(record)[Field::WeatherProvider], "Fernhollow");
}

TEST(ReadFields, IsNotMisledByKeysInTheTexts) {
    const FieldTexts fields = ReadFields(ScenarioRecord({.name = "StartTime &lt;Season&gt; Provider"}));
    EXPECT_EQ(fields[Field::Season], "SEASON_SPRING");
}

TEST(ReadFields, LeavesTheBlueprintEmptyInARecordWithout) {
    EXPECT_EQ(ReadFields(ScenarioRecord({.without = "BlueprintID"}))[Field::WeatherBlueprint], "");
}

class RecordWithout : public testing::TestWithParam<const char*> {};

TEST_P(RecordWithout, CannotBeRead) {
    const auto error = ErrorOf([] { static_cast<void>(ReadFields(ScenarioRecord({.without = GetParam()}))); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Code(), ErrorNumber::InvalidProcedureCall);
    EXPECT_EQ(error->Details(), GetParam());
}

TEST_P(RecordWithout, CannotBeWritten) {
    ExpectError(
        [] { static_cast<void>(WriteFields(ScenarioRecord({.without = GetParam()}), ReadFields(ScenarioRecord()))); },
        ErrorNumber::InvalidProcedureCall);
}

INSTANTIATE_TEST_SUITE_P(Key, RecordWithout,
                         testing::Values("DisplayName", "Description", "Briefing", "StartTime", "DurationMins",
                                         "StartDD", "StartMM", "StartYYYY", "Season", "Provider", "Product"));

TEST(ReadFields, FailsForAStartThatIsNoNumberAndNamesIt) {
    const auto error = ErrorOf([] { static_cast<void>(ReadFields(ScenarioRecord({.start = "dawn"}))); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Code(), ErrorNumber::TypeMismatch);
    EXPECT_EQ(error->Details(), "StartTime");
}

TEST(WriteFields, ChangesTheValuesAndNothingElse) {
    FieldTexts fields = ReadFields(ScenarioRecord());
    fields[Field::StartTime] = "0530";
    fields[Field::Duration] = "90";
    fields[Field::StartDay] = "24";
    fields[Field::StartMonth] = "12";
    fields[Field::StartYear] = "1961";
    fields[Field::Season] = "SEASON_WINTER";
    fields[Field::WeatherProvider] = "Tansywick";
    fields[Field::WeatherProduct] = "HarbourSet";
    fields[Field::WeatherBlueprint] = "Weather\\Snow.xml";
    const std::string written = WriteFields(ScenarioRecord(), fields);
    std::string expected = ScenarioRecord({.start = "19800.0000",
                                           .minutes = "90",
                                           .day = "24",
                                           .month = "12",
                                           .year = "1961",
                                           .season = "SEASON_WINTER",
                                           .provider = "Tansywick",
                                           .product = "HarbourSet",
                                           .blueprint = "Weather\\Snow.xml"});
    for (const char* const language : {"French", "Italian", "German", "Spanish"}) {
        const std::string tag = "<" + std::string(language) + " d:type=\"text\">";
        std::size_t at = 0;
        for (const char* const text : {"Morning Milk", "Take the empties.", "Stop everywhere."}) {
            at = expected.find(tag, at) + tag.size();
            expected.insert(at, text);
        }
    }
    EXPECT_EQ(written, expected);
}

TEST(WriteFields, WritesMarkupAsTyped) {
    FieldTexts fields = ReadFields(ScenarioRecord());
    fields[Field::DisplayName] = "Milk & <Mail>";
    EXPECT_NE(WriteFields(ScenarioRecord(), fields).find("<German d:type=\"text\">Milk & <Mail></German>"),
              std::string::npos);
}

TEST(WriteFields, KeepsItsPlaceWhenValuesShrink) {
    FieldTexts fields = ReadFields(ScenarioRecord());
    fields[Field::WeatherProvider] = "F";
    const std::string longer = ScenarioRecord({.provider = std::string(100, 'F')});
    EXPECT_EQ(ReadFields(WriteFields(longer, fields)), fields);
}

TEST(WriteFields, FailsForAStartThatIsNoNumber) {
    FieldTexts fields = ReadFields(ScenarioRecord());
    fields[Field::StartTime] = "1e02";
    ExpectError([&] { static_cast<void>(WriteFields(ScenarioRecord(), fields)); }, ErrorNumber::TypeMismatch);
}

TEST(TextWarning, IsEmptyForWhatIsWhole) {
    for (const char* const text : {"", "Milk", "Milk &amp; Mail", "&lt;&gt;&apos;&quot;", "&#38;", "&#x1f;"})
        EXPECT_EQ(TextWarning(text, true), "") << text;
}

TEST(TextWarning, NamesAnAmpersandThatBeginsNoEntity) {
    for (const char* const text : {"Milk & Mail", "&", "&amp", "&nbsp;", "&#;", "&#x;", "&#1a;", "&amp;&"})
        EXPECT_EQ(TextWarning(text, true), "\"&\" breaks the scenario: write \"&amp;\".") << text;
}

TEST(TextWarning, NamesALessThanSign) {
    EXPECT_EQ(TextWarning("a < b & c", true), "\"<\" breaks the scenario: write \"&lt;\".");
}

TEST(TextWarning, NamesATagEndThatHidesWhatStandsInFront) {
    EXPECT_EQ(TextWarning("a > b", true), "Text in front of \">\" gets lost: write \"&gt;\".");
}

TEST(TextWarning, NamesLettersThatTheCodePageLacks) {
    EXPECT_EQ(TextWarning("\xD0\xAF", true), "Some letters are written as \"?\".");
    EXPECT_EQ(TextWarning("\xD0\xAF", false), "");
    EXPECT_EQ(TextWarning("\xC3\xBC", true), "");
}

} // namespace
} // namespace tamarind::tests
