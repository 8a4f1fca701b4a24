#include "routes/package_layout.h"

#include "platform/expect_error.h"

#include <gtest/gtest.h>

#include <vector>

namespace tamarind::tests {
namespace {

using routes::EntryOf;
using routes::IndexKind;

TEST(EntryOf, IsTheRoutesRecordUnchanged) {
    const std::string record = "<cRouteProperties d:id=\"2\">\r\n <DevString>r2</DevString>\t\xC3\xA9 &amp;\r\n"
                               "</cRouteProperties>";
    const std::string index = "<Record><cRouteProperties>r1</cRouteProperties>\r\n" + record +
                              "\r\n<cRouteProperties>r3</cRouteProperties></Record>";
    EXPECT_EQ(EntryOf(index, "r2", IndexKind::Routes), record);
}

TEST(EntryOf, IgnoresLetterCase) {
    EXPECT_EQ(EntryOf("x<CROUTEproperties>R1</crouteproperties>y", "r1", IndexKind::Routes),
              "<CROUTEproperties>R1</crouteproperties>");
}

TEST(EntryOf, OfTheOnlyRecordMayFillTheText) {
    EXPECT_EQ(EntryOf("<cRouteProperties>r1</cRouteProperties>", "r1", IndexKind::Routes),
              "<cRouteProperties>r1</cRouteProperties>");
}

TEST(EntryOf, OfAScenarioEndsWithTheFirstClosingTagBehindItsOpeningOne) {
    const std::string index = "<cScenarioProperties>s1</cScenarioProperties> s2 <x></cScenarioProperties>";
    EXPECT_EQ(EntryOf(index, "s2", IndexKind::Scenarios), "<cScenarioProperties>s1</cScenarioProperties>");
}

TEST(EntryOf, OfARouteEndsWithTheFirstClosingTagBehindTheId) {
    const std::string index = "<cRouteProperties>r1</cRouteProperties> r2 </cRouteProperties>";
    EXPECT_EQ(EntryOf(index, "r2", IndexKind::Routes), index);
}

TEST(EntryOf, FailsWithoutTheIdOrAWholeRecord) {
    for (const char* index : {"", "<cRouteProperties>r2</cRouteProperties>", "r1<cRouteProperties></cRouteProperties>",
                              "<cRouteProperties>r1", "<cRouteProperties>r1</cScenarioProperties>",
                              "<cRoutePropertiesr1</cRouteProperties"}) {
        EXPECT_EQ(NumberOfError([index] { static_cast<void>(EntryOf(index, "r1", IndexKind::Routes)); }), 5) << index;
    }
}

TEST(RelativePath, BeginsWithTheFirstRailSimulator) {
    EXPECT_EQ(routes::RelativePath("C:\\Games\\rail simulator\\A\\Rail Simulator\\b"),
              "rail simulator\\A\\Rail Simulator\\b");
    EXPECT_TRUE(routes::HoldsGameRoot("C:\\RAIL SIMULATOR"));
}

TEST(RelativePath, IsWrongWithoutRailSimulator) {
    EXPECT_EQ(routes::RelativePath("C:\\Games\\RS\\Assets"), "C:\\Games\\RS\\Assets");
    EXPECT_FALSE(routes::HoldsGameRoot("C:\\Games\\RailSimulator"));
}

TEST(CopyScript, HasOneLineForEachFolder) {
    EXPECT_EQ(routes::CopyScriptLine("C:\\Rail Simulator\\Assets\\A", "C:\\Kit\\A", "Rail Simulator\\Assets\\A"),
              "call Xcopy \"C:\\Rail Simulator\\Assets\\A\\*.*\" \"C:\\Kit\\A\\Rail Simulator\\Assets\\A\\*.*\" /I /C "
              "/S\r\n");
}

TEST(CopyScript, TakesEmptyPaths) {
    EXPECT_EQ(routes::CopyScriptLine("", "C:\\Kit\\", ""), "call Xcopy \"\\*.*\" \"C:\\Kit\\\\\\*.*\" /I /C /S\r\n");
}

TEST(CopyScript, EndsWithAnEmptyLine) {
    EXPECT_EQ(routes::CopyScriptFile("a\r\nb\r\n"), "a\r\nb\r\n\r\n");
    EXPECT_EQ(routes::CopyScriptFile(""), "\r\n");
}

TEST(CopyScript, RefusesPathsThatEndTheirQuotes) {
    EXPECT_TRUE(routes::FitsCopyScript("C:\\A & B\\100%"));
    EXPECT_FALSE(routes::FitsCopyScript("C:\\A\" & del \"B"));
    EXPECT_FALSE(routes::FitsCopyScript("C:\\A\r\nB"));
}

TEST(ScenarioIndexOf, LiesBesideTheFolderOfScenarios) {
    EXPECT_EQ(routes::ScenarioIndexOf("Rail Simulator\\Content\\Routes\\r\\Scenarios\\s"),
              "Rail Simulator\\Content\\Routes\\r\\Scenarios.bin");
    EXPECT_EQ(routes::ScenarioIndexOf("a\\scenarios\\r\\SCENARIOS\\s"), "a\\scenarios\\r\\Scenarios.bin");
    EXPECT_EQ(routes::ScenarioIndexOf(""), "Scenarios.bin");
}

TEST(ScenarioList, HoldsTheRouteAndThenTheScenarios) {
    const std::vector<std::string> names = {"s1", "s2"};
    EXPECT_EQ(routes::ScenarioListText("r", names), "r\r\ns1\r\ns2\r\n");
    EXPECT_EQ(routes::ScenarioListText("", {}), "\r\n");
}

TEST(LastCharacters, CountsCharactersNotBytes) {
    EXPECT_EQ(routes::LastCharacters("abc", 2), "bc");
    EXPECT_EQ(routes::LastCharacters("\xC3\xA9\xC3\xA9z", 2), "\xC3\xA9z");
    EXPECT_EQ(routes::LastCharacters("ab", 36), "ab");
    EXPECT_EQ(routes::LastCharacters("ab", 0), "");
}

TEST(PackageName, IsAnyNameThatAFolderCanHave) {
    for (const char* name : {"Alder Vale", "Thornby &amp; Marrow", "Console", "COM10", "Com", "a.b"})
        EXPECT_TRUE(routes::IsPackageName(name)) << name;
    for (const char* name : {"", "..", "A/B", "A\\B", "C:", "Who?", "a*", "\"a\"", "a|b", "a<b", "tab\there", "con",
                             "NUL.txt", "com1", "LPT9 x"})
        EXPECT_FALSE(routes::IsPackageName(name)) << name;
}

} // namespace
} // namespace tamarind::tests
