#include "install/catalogue_merge.h"

#include "platform/expect_error.h"

#include <gtest/gtest.h>

namespace tamarind::install {
namespace {

using tests::NumberOfError;

std::string Record(const std::string& key, const std::string& name) {
    return "<cRouteProperties d:id=\"1\">\r\n<DevString d:type=\"text\">" + key + "</DevString><English>" + name +
           "</English></cRouteProperties>";
}

TEST(EnglishNameOf, IsTheContentOfTheFirstEnglishElement) {
    EXPECT_EQ(EnglishNameOf(Record("k", "Alder Vale") + "<English>Other</English>"), "Alder Vale");
}

TEST(EnglishNameOf, TakesAttributesAndEntitiesAsTheyStand) {
    EXPECT_EQ(EnglishNameOf("<ENGLISH d:type=\"t\">A &amp; B</english>"), "A &amp; B");
}

TEST(EnglishNameOf, IsEmptyWithoutSuchAnElement) {
    EXPECT_EQ(EnglishNameOf(""), "");
    EXPECT_EQ(EnglishNameOf("<English>cut"), "");
    EXPECT_EQ(EnglishNameOf("<English></English>"), "");
    EXPECT_EQ(EnglishNameOf("<English </English>"), "");
}

TEST(KeyOf, IsTheContentOfTheFirstDevString) { EXPECT_EQ(KeyOf(Record("aa-bb", "n")), "aa-bb"); }

// Behind the ">" of "<Record>" stand CR and LF. Both stay on the left, and the LF begins the right as well.
TEST(MergeRoute, PutsANewRecordBehindTheLastOneWithOneCharacterTwice) {
    const std::string record = Record("new", "N") + "\r\n";
    EXPECT_EQ(MergeRoute("<Top>\r\n<Record>\r\n\t</Record>\r\n</Top>", record),
              "<Top>\r\n<Record>\r\n" + record + "\n\t</Record>\r\n</Top>");
}

TEST(MergeRoute, DoublesWhateverCharacterStandsThere) {
    const std::string record = Record("new", "N");
    EXPECT_EQ(MergeRoute("<Record>abc</Record>", record), "<Record>ab" + record + "bc</Record>");
}

TEST(MergeRoute, DoublesAWholeCharacterOfSeveralBytes) {
    const std::string record = Record("new", "N");
    EXPECT_EQ(MergeRoute("<Record>a\xC3\xA9\xC3\xA8z</Record>", record),
              "<Record>a\xC3\xA9" + record + "\xC3\xA9\xC3\xA8z</Record>");
}

TEST(MergeRoute, LeavesOutTheLineBreakThatWouldDouble) {
    const std::string record = Record("new", "N") + "\r\n";
    // Left ends with "a" CR; right would begin with CR LF and loses both.
    EXPECT_EQ(MergeRoute("<Record>a\r\nb</Record>", record), "<Record>a\r" + record + "b</Record>");
}

TEST(MergeRoute, KeepsTheLineBreakBehindARecordWithoutOne) {
    const std::string record = Record("new", "N");
    EXPECT_EQ(MergeRoute("<Record>a\r\nb</Record>", record), "<Record>a\r" + record + "\r\nb</Record>");
}

TEST(MergeRoute, UsesTheLastRecordEnd) {
    const std::string record = Record("new", "N");
    EXPECT_EQ(MergeRoute("<Record>x</Record><Record>..</RECORD>", record),
              "<Record>x</Record><Record>.." + record + ".</RECORD>");
}

TEST(MergeRoute, ReplacesTheRecordOfTheSameKeyInPlace) {
    const std::string before = "<Record>\r\n" + Record("first", "1") + "\r\n";
    const std::string behind = "\r\n" + Record("last", "3") + "\r\n</Record>";
    EXPECT_EQ(MergeRoute(before + Record("KEY-2", "old") + behind, Record("key-2", "new")),
              before + Record("key-2", "new") + behind);
}

TEST(MergeRoute, ReplacingLeavesNoDoubleLineBreak) {
    const std::string record = Record("key", "new") + "\r\n";
    EXPECT_EQ(MergeRoute("<Record>" + Record("key", "old") + "\r\n</Record>", record),
              "<Record>" + record + "</Record>");
}

TEST(MergeRoute, InstalledTwiceIsInstalledOnce) {
    const std::string record = Record("key", "new") + "\r\n";
    const std::string once = MergeRoute("<Record>\r\n</Record>", record);
    EXPECT_EQ(MergeRoute(once, record), once);
}

TEST(MergeRoute, RefusesARecordThatIsNotWhole) {
    const std::string index = "<Record>\r\n</Record>";
    for (const std::string& record : {std::string(), std::string("<cRouteProperties>"), Record("", "n"),
                                      Record("key", "n").substr(0, 60), Record("key", "n").substr(20)}) {
        EXPECT_EQ(NumberOfError([&] { static_cast<void>(MergeRoute(index, record)); }), 5);
    }
}

TEST(MergeRoute, RefusesAnIndexWithoutAPlaceForIt) {
    const std::string record = Record("key", "n");
    for (const char* const index :
         {"", "no tags", "</Record>", "key <Record></Record>", "<cRouteProperties>key<Record></Record>"}) {
        EXPECT_EQ(NumberOfError([&] { static_cast<void>(MergeRoute(index, record)); }), 5);
    }
}

TEST(MergeRoute, TakesAMarkerOfAHundredMegabytes) {
    std::string record = Record("key", "n");
    record.insert(record.size() - 19, 100'000'000, 'x');
    const std::string merged = MergeRoute("<Record>\r\n</Record>", record);
    EXPECT_EQ(merged.size(), record.size() + 20); // and one character twice
}

} // namespace
} // namespace tamarind::install
