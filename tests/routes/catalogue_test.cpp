#include "routes/catalogue.h"

#include "platform/expect_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using routes::IndexKind;
using routes::LocalisedName;
using routes::RemoveEntry;
using testing::ElementsAre;
using testing::IsEmpty;

std::string Names(const std::string& english, const std::string& french = "", const std::string& italian = "",
                  const std::string& german = "", const std::string& spanish = "") {
    return "<English d:type=\"text\">" + english + "</English>\r\n<French>" + french + "</French>\r\n<Italian>" +
           italian + "</Italian>\r\n<German>" + german + "</German>\r\n<Spanish>" + spanish + "</Spanish>\r\n";
}

std::string Entry(const std::string& id, const std::string& names) {
    return "<cRouteProperties d:id=\"1\">\r\n<DevString d:type=\"text\">" + id + "</DevString>\r\n" + names +
           "</cRouteProperties>\r\n";
}

constexpr int kInvalidCall = 5;

struct Scanned {
    std::vector<std::string> ids;
    std::vector<std::string> names;
};

Scanned Scan(const std::string& text) {
    Scanned scanned;
    routes::ScanRecords(text, scanned.ids, scanned.names);
    return scanned;
}

TEST(LocalisedName, PrefersEnglish) { EXPECT_EQ(LocalisedName(Names("one", "un"), 1).name, "one"); }

TEST(LocalisedName, TakesTheLanguagesInTheirOrder) {
    EXPECT_EQ(LocalisedName(Names("", "un", "uno", "eins", "una"), 1).name, "un");
    EXPECT_EQ(LocalisedName(Names("", "", "uno", "eins", "una"), 1).name, "uno");
    EXPECT_EQ(LocalisedName(Names("", "", "", "eins", "una"), 1).name, "eins");
    EXPECT_EQ(LocalisedName(Names("", "", "", "", "una"), 1).name, "una");
}

TEST(LocalisedName, IsEmptyWhenAllFiveAre) { EXPECT_EQ(LocalisedName(Names(""), 1).name, ""); }

TEST(LocalisedName, ContinuesAtTheClosingTagOfTheLastLanguageTried) {
    //                        1        10        20
    const std::string text = "<English></English><French>un</French>";
    EXPECT_EQ(LocalisedName(text, 1).next, 30U);
    EXPECT_EQ(LocalisedName("<English>one</English>", 1).next, 13U);
}

TEST(LocalisedName, FindsTagsInAnyLetterCase) {
    EXPECT_EQ(LocalisedName("<english>one</ENGLISH>", 1).name, "one");
    EXPECT_EQ(LocalisedName("<ENGLISH></english><fReNcH>un</FRENCH>", 1).name, "un");
}

TEST(LocalisedName, LeavesEntitiesAsTheyStand) {
    EXPECT_EQ(LocalisedName(Names("Mill &amp; Barn"), 1).name, "Mill &amp; Barn");
}

TEST(LocalisedName, RunsOnIntoTheNextEntryWhereAnElementIsMissing) {
    const std::string text = "<English></English><DevString>2</DevString><English>two</English><French>deux</French>";
    EXPECT_EQ(LocalisedName(text, 1).name, "deux");
}

TEST(LocalisedName, LooksForFrenchFromTheEnglishElementOn) {
    EXPECT_EQ(LocalisedName("<French>early</French><English></English><French>late</French>", 1).name, "late");
}

TEST(LocalisedName, KeepsNamesInAnyScript) {
    EXPECT_EQ(LocalisedName(Names("\xD0\x94\xD0\xB5\xD0\xBF\xD0\xBE"), 1).name, "\xD0\x94\xD0\xB5\xD0\xBF\xD0\xBE");
}

TEST(LocalisedName, FailsWhereNoNameIsLeft) {
    EXPECT_EQ(NumberOfError([] { static_cast<void>(LocalisedName("<DevString>", 1)); }), kInvalidCall);
}

TEST(LocalisedName, FailsWhereAClosingTagIsMissing) {
    EXPECT_EQ(NumberOfError([] { static_cast<void>(LocalisedName("<English>one", 1)); }), kInvalidCall);
}

TEST(LocalisedName, FailsWhereATagIsNotEnded) {
    EXPECT_EQ(NumberOfError([] { static_cast<void>(LocalisedName("a><English</English>", 1)); }), kInvalidCall);
}

TEST(RecordScan, ListsIdsAndNamesInOrder) {
    const Scanned scanned = Scan(Entry("a1", Names("First")) + Entry("b2", Names("", "Second")));
    EXPECT_THAT(scanned.ids, ElementsAre("a1", "b2"));
    EXPECT_THAT(scanned.names, ElementsAre("First", "Second"));
}

TEST(RecordScan, OfATextWithoutIdsIsEmpty) {
    EXPECT_THAT(Scan("").ids, IsEmpty());
    EXPECT_THAT(Scan("<cRouteCatalogue></cRouteCatalogue>").ids, IsEmpty());
}

TEST(RecordScan, FindsTagsInAnyLetterCase) {
    const Scanned scanned = Scan("<devstring>a1</DEVSTRING><english>First</english>");
    EXPECT_THAT(scanned.ids, ElementsAre("a1"));
    EXPECT_THAT(scanned.names, ElementsAre("First"));
}

TEST(RecordScan, KeepsRecordsWithEmptyNames) {
    const Scanned scanned = Scan(Entry("a1", Names("")) + Entry("b2", Names("Second")));
    EXPECT_THAT(scanned.ids, ElementsAre("a1", "b2"));
    EXPECT_THAT(scanned.names, ElementsAre("", "Second"));
}

TEST(RecordScan, KeepsAnIdThatOccursTwice) {
    EXPECT_THAT(Scan(Entry("a1", Names("First")) + Entry("a1", Names("Second"))).ids, ElementsAre("a1", "a1"));
}

TEST(RecordScan, HoldsExactlyOneSlotARecord) {
    std::string text;
    for (int i = 0; i < 120; ++i) {
        text += Entry("id" + std::to_string(i), Names("n" + std::to_string(i)));
    }
    const Scanned scanned = Scan(text);
    ASSERT_EQ(scanned.ids.size(), 120U);
    ASSERT_EQ(scanned.names.size(), 120U);
    EXPECT_EQ(scanned.ids[51], "id51");
    EXPECT_EQ(scanned.names[119], "n119");
}

TEST(RecordScan, ReadsLinesEndedByLineFeedAlone) {
    EXPECT_THAT(Scan("<DevString>a1</DevString>\n<English>First</English>").names, ElementsAre("First"));
}

TEST(RecordScan, FailsInARecordThatIsCutOffAndKeepsWhatWasBefore) {
    Scanned scanned;
    const std::string text = Entry("a1", Names("First")) + "<DevString>b2</DevString><English>Sec";
    EXPECT_EQ(NumberOfError([&] { routes::ScanRecords(text, scanned.ids, scanned.names); }), kInvalidCall);
    EXPECT_THAT(scanned.ids, ElementsAre("a1", "b2"));
    EXPECT_THAT(scanned.names, ElementsAre("First"));
}

TEST(RecordScan, FailsInAnIdThatIsCutOff) {
    Scanned scanned;
    EXPECT_EQ(NumberOfError([&] { routes::ScanRecords("<DevString>a1", scanned.ids, scanned.names); }), kInvalidCall);
    EXPECT_THAT(scanned.ids, IsEmpty());
}

constexpr const char* kTwo = "HEAD\r\n"
                             "\t<cRouteProperties d:id=\"1\"><DevString>a1</DevString></cRouteProperties>\r\n"
                             "\t<cRouteProperties d:id=\"2\"><DevString>b2</DevString></cRouteProperties>\r\n"
                             "TAIL\r\n";

TEST(EntryRemoval, KeepsTheCharacterInFrontOfTheNextEntry) {
    EXPECT_EQ(RemoveEntry(kTwo, "a1", IndexKind::Routes),
              "HEAD\r\n\t\t<cRouteProperties d:id=\"2\"><DevString>b2</DevString></cRouteProperties>\r\nTAIL\r\n");
}

TEST(EntryRemoval, OfTheLastEntryTakesNothingElse) {
    EXPECT_EQ(RemoveEntry(kTwo, "b2", IndexKind::Routes),
              "HEAD\r\n\t<cRouteProperties d:id=\"1\"><DevString>a1</DevString></cRouteProperties>\r\n\t\r\nTAIL\r\n");
}

TEST(EntryRemoval, OfTheOnlyEntryWithoutALineEnd) {
    EXPECT_EQ(RemoveEntry("<cRouteProperties>a1</cRouteProperties>", "a1", IndexKind::Routes), "");
}

TEST(EntryRemoval, FindsTagsAndIdInAnyLetterCase) {
    EXPECT_EQ(RemoveEntry("x<CROUTEPROPERTIES>AB</crouteproperties>y", "ab", IndexKind::Routes), "xy");
}

TEST(EntryRemoval, OfAScenarioGoesByItsOwnTags) {
    EXPECT_EQ(RemoveEntry("x<cScenarioProperties>s1</cScenarioProperties>y", "s1", IndexKind::Scenarios), "xy");
    EXPECT_EQ(NumberOfError([] {
                  static_cast<void>(
                      RemoveEntry("x<cScenarioProperties>s1</cScenarioProperties>y", "s1", IndexKind::Routes));
              }),
              kInvalidCall);
}

TEST(EntryRemoval, KeepsOneWholeCharacterThatIsLongerThanAByte) {
    EXPECT_EQ(RemoveEntry("<cRouteProperties>a1</cRouteProperties>\xC3\xA9<cRouteProperties>b2</cRouteProperties>",
                          "a1", IndexKind::Routes),
              "\xC3\xA9<cRouteProperties>b2</cRouteProperties>");
}

TEST(EntryRemoval, OfAnIdThatOccursTwiceTakesTheFirst) {
    EXPECT_EQ(RemoveEntry("<cRouteProperties>a1</cRouteProperties>\n<cRouteProperties>a1 </cRouteProperties>", "a1",
                          IndexKind::Routes),
              "\n<cRouteProperties>a1 </cRouteProperties>");
}

TEST(EntryRemoval, GoesByTheFirstOccurrenceEvenInsideAnotherElement) {
    EXPECT_EQ(RemoveEntry("<cRouteProperties>see b2</cRouteProperties>\n<cRouteProperties>b2</cRouteProperties>", "b2",
                          IndexKind::Routes),
              "\n<cRouteProperties>b2</cRouteProperties>");
}

TEST(EntryRemoval, FailsForAnIdThatIsNotThere) {
    EXPECT_EQ(NumberOfError([] { static_cast<void>(RemoveEntry(kTwo, "c3", IndexKind::Routes)); }), kInvalidCall);
}

TEST(EntryRemoval, FailsForAnIdInFrontOfAllEntries) {
    EXPECT_EQ(NumberOfError([] { static_cast<void>(RemoveEntry(kTwo, "HEAD", IndexKind::Routes)); }), kInvalidCall);
}

TEST(EntryRemoval, FailsForALastEntryThatIsCutOff) {
    EXPECT_EQ(NumberOfError([] { static_cast<void>(RemoveEntry("<cRouteProperties>a1", "a1", IndexKind::Routes)); }),
              kInvalidCall);
}

} // namespace
} // namespace tamarind::tests
