#include "install/scenario_merge.h"

#include "platform/expect_error.h"
#include "text/search.h"

#include <gtest/gtest.h>

#include <ctime>
#include <vector>

namespace tamarind::install {
namespace {

using Entries = std::vector<std::string>;
using tests::NumberOfError;

std::string Record(const std::string& id) {
    return "<cScenarioProperties d:id=\"1\"><DevString>" + id + "</DevString></cScenarioProperties>";
}

std::string Guid(int number) {
    std::string digits = std::to_string(number);
    return "5a1e0d20-0001-4c00-9a10-" + std::string(12 - digits.size(), '0') + digits;
}

/// The rule, one entry after the other, in the plainest words.
std::string RemovePlainly(std::string text, const Entries& entries) {
    for (const std::string& entry : entries) {
        const std::size_t k = entry.empty() ? 0 : text::FindNoCase(text, entry);
        if (k == 0) continue;
        const std::size_t s = text::FindLastNoCase(text, kScenarioOpenTag, k);
        const std::size_t e = text::FindNoCase(text, kScenarioCloseTag, k);
        if (s > 0 && e > 0) text = text.substr(0, s - 1) + text.substr(e + 21);
    }
    return text;
}

TEST(RemoveScenarios, TakesOutEachRecordThatIsListed) {
    const std::string index = "<Record>\r\n" + Record(Guid(1)) + "\r\n" + Record(Guid(2)) + "\r\n" + Record(Guid(3));
    EXPECT_EQ(RemoveScenarios(index, Entries{Guid(3), Guid(1)}), "<Record>\r\n\r\n" + Record(Guid(2)) + "\r\n");
}

TEST(RemoveScenarios, IgnoresLetterCase) {
    EXPECT_EQ(RemoveScenarios("a<CSCENARIOPROPERTIES>ABCD-EFGH</CSCENARIOPROPERTIES>b", Entries{"abcd-efgh"}), "ab");
}

TEST(RemoveScenarios, LeavesEverythingForAnEntryThatOccursNowhere) {
    EXPECT_EQ(RemoveScenarios(Record(Guid(1)), Entries{Guid(2), "", "x"}), Record(Guid(1)));
}

TEST(RemoveScenarios, LeavesARecordThatIsNotWhole) {
    for (const char* const text : {"long-entry</cScenarioProperties>", "<cScenarioProperties>long-entry"}) {
        EXPECT_EQ(RemoveScenarios(text, Entries{"long-entry"}), text);
    }
}

TEST(RemoveScenarios, TakesTheNextOccurrenceForAnEntryListedTwice) {
    const std::string id = Guid(1);
    EXPECT_EQ(RemoveScenarios(Record(id) + Record(id) + Record(id), Entries{id, id}), Record(id));
}

TEST(RemoveScenarios, TakesShortAndForeignEntriesAsWell) {
    EXPECT_EQ(RemoveScenarios(Record("ab") + Record("\xC3\xA9\xC3\xA8 entry"), Entries{"\xC3\x89\xC3\xA8 ENTRY", "AB"}),
              "");
}

// The first removal joins "long-en" and "try12" to a new occurrence.
TEST(RemoveScenarios, SeesWhatARemovalBringsTogether) {
    const std::string index = "<cScenarioProperties>long-en" + Record(Guid(1)) + "try12</cScenarioProperties>";
    EXPECT_EQ(RemoveScenarios(index, Entries{Guid(1), "long-entry12"}), "");
}

TEST(RemoveScenarios, KeepsToTheRuleOnEveryMixture) {
    const std::vector<std::string> parts = {"<cScenarioProperties",
                                            ">",
                                            "</cScenarioProperties>",
                                            "entry-one",
                                            "entry-two",
                                            "ent",
                                            "ry-one",
                                            " ",
                                            "\r\n",
                                            "<cScenario",
                                            "Properties"};
    const Entries entries = {"entry-one", "ENTRY-TWO", "entry-one", "ent", "y-one ent", "Properties", "<cScenario"};
    std::uint32_t state = 1;
    for (int round = 0; round < 20'000; ++round) {
        std::string index;
        for (int i = 0; i < 25; ++i) {
            state = state * 1664525 + 1013904223;
            index += parts[(state >> 16) % parts.size()];
        }
        const Entries some(entries.begin(), entries.begin() + round % 8);
        ASSERT_EQ(RemoveScenarios(index, some), RemovePlainly(index, some)) << index;
    }
}

TEST(MergeScenarios, PutsTheRecordsBehindTheLastOneWithOneCharacterTwice) {
    const std::string records = Record(Guid(1)) + "\r\n" + Record(Guid(2)) + "\r\n";
    EXPECT_EQ(MergeScenarios("<Record>\r\n\t</Record>", Entries{Guid(1), Guid(2)}, records),
              "<Record>\r\n" + records + "\n\t</Record>");
}

TEST(MergeScenarios, AddsARecordWhoseEntryIsNotInTheIndex) {
    EXPECT_EQ(MergeScenarios("<Record>ab</Record>", Entries{Guid(9)}, Record(Guid(1))),
              "<Record>ab" + Record(Guid(1)) + "b</Record>");
}

TEST(MergeScenarios, RefusesRecordsThatAreNotWhole) {
    for (const std::string& records : {std::string(), std::string("no record"), Record(Guid(1)).substr(0, 50),
                                       Record(Guid(1)) + "<cScenarioProperties>"}) {
        EXPECT_EQ(
            NumberOfError([&] { static_cast<void>(MergeScenarios("<Record>ab</Record>", Entries{Guid(1)}, records)); }),
            5);
    }
}

TEST(MergeScenarios, RefusesAnIndexWithoutAPlace) {
    EXPECT_EQ(NumberOfError([] { static_cast<void>(MergeScenarios("cut off", Entries{}, Record(Guid(1)))); }), 5);
}

#ifdef __SANITIZE_ADDRESS__
constexpr double kLongestMerge = 5; // the sanitizers slow everything down
#else
constexpr double kLongestMerge = 1;
#endif

TEST(MergeScenarios, MergesFiveHundredIntoFiveThousandInASecond) {
    const std::string filling(1500, 'x');
    std::string index = "<Record>\r\n";
    for (int i = 0; i < 5000; ++i)
        index += "\t\t" + Record(Guid(i) + "<t>" + filling + "</t>") + "\r\n";
    index += "\t</Record>";
    Entries entries;
    std::string records;
    for (int i = 0; i < 500; ++i) {
        entries.push_back(Guid(10 * i));
        records += Record(entries.back()) + "\r\n";
    }
    // Processor time: a busy machine makes pauses of its own.
    const std::clock_t start = std::clock();
    const std::string merged = MergeScenarios(index, entries, records);
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    EXPECT_EQ(merged.size(), index.size() - 500 * (Record(Guid(0)).size() + 1507) + records.size() + 1);
    EXPECT_LT(seconds, kLongestMerge);
}

} // namespace
} // namespace tamarind::install
