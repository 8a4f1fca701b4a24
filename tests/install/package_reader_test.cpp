#include "install/package_reader.h"

#include "platform/expect_error.h"
#include "support/memory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::install {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::MemoryFiles;
using tests::NumberOfError;

TEST(ParseScenarioList, TakesTheRouteAndThenTheScenarios) {
    const ScenarioList list = ParseScenarioList("route\r\none\r\ntwo\r\n");
    EXPECT_EQ(list.routeFolder, "route");
    EXPECT_THAT(list.ids, ElementsAre("one", "two"));
}

TEST(ParseScenarioList, EndsItemsAtCommasToo) {
    EXPECT_THAT(ParseScenarioList("r,a,b\r\nc").ids, ElementsAre("a", "b", "c"));
}

TEST(ParseScenarioList, TakesQuotesOffAnItem) {
    const ScenarioList list = ParseScenarioList("\"the route\"\r\n\"a,b\"\r\n");
    EXPECT_EQ(list.routeFolder, "the route");
    EXPECT_THAT(list.ids, ElementsAre("a,b"));
}

TEST(ParseScenarioList, TakesABlankLineAsAnEmptyItem) {
    EXPECT_THAT(ParseScenarioList("r\r\n\r\na\r\n").ids, ElementsAre("", "a"));
}

TEST(ParseScenarioList, NeedsNoLineEndAtTheEnd) { EXPECT_THAT(ParseScenarioList("r\r\na").ids, ElementsAre("a")); }

TEST(ParseScenarioList, GrowsWithoutALimit) {
    std::string text = "r\r\n";
    for (int i = 0; i < 45; ++i)
        text += "s" + std::to_string(i) + "\r\n";
    const ScenarioList list = ParseScenarioList(text);
    ASSERT_EQ(list.ids.size(), 45U);
    EXPECT_EQ(list.ids.back(), "s44");
}

TEST(ParseScenarioList, OfNothingIsEmpty) {
    EXPECT_EQ(ParseScenarioList("").routeFolder, "");
    EXPECT_THAT(ParseScenarioList("").ids, IsEmpty());
    EXPECT_EQ(ParseScenarioList("\r\n").routeFolder, "");
}

class Package : public testing::Test {
protected:
    Package() { files_.folders = {"P"}; }
    MemoryFiles files_;
};

TEST_F(Package, WithTheMarkerOfARouteIsARoute) {
    files_.contents = {{"P\\Route_Setup.xxx", ""}, {"P\\Scenario.zzz", ""}};
    EXPECT_EQ(ModeOf(files_, "P"), InstallMode::Route);
}

TEST_F(Package, WithRecordsOfScenariosHoldsScenarios) {
    files_.contents = {{"P\\Scenario.zzz", ""}};
    EXPECT_EQ(ModeOf(files_, "P"), InstallMode::Scenario);
}

TEST_F(Package, WithoutMarkersHoldsAssets) {
    files_.contents = {{"P\\Scenario.yyy", "r"}};
    EXPECT_EQ(ModeOf(files_, "P"), InstallMode::Assets);
}

TEST_F(Package, WithoutAListOfScenariosHasNone) {
    EXPECT_EQ(NumberOfError([&] { static_cast<void>(ReadScenarioList(files_, "P")); }), 53);
}

TEST_F(Package, HasNoListOfScenariosThatIsTooLarge) {
    files_.contents = {{"P\\Scenario.yyy", std::string(kMostListBytes + 1, 'x')}};
    EXPECT_EQ(NumberOfError([&] { static_cast<void>(ReadScenarioList(files_, "P")); }), 5);
}

TEST_F(Package, ListsItsFoldersFilesAndTheirSize) {
    files_.folders = {"P", "P\\Rail Simulator", "P\\Rail Simulator\\A", "P\\Rail Simulator\\A\\B"};
    files_.contents = {{"P\\Rail Simulator\\A\\B\\x", "12345"}, {"P\\Rail Simulator\\y", "123"}, {"P\\z", "1"}};
    const PackageContent content = SurveyContent(files_, "P");
    EXPECT_TRUE(content.exists);
    EXPECT_THAT(content.folders, ElementsAre("A", "A\\B"));
    ASSERT_EQ(content.files.size(), 2U);
    EXPECT_EQ(content.files[0].path, "A\\B\\x");
    EXPECT_EQ(content.files[1].path, "y");
    EXPECT_EQ(content.bytes, 8U);
}

TEST_F(Package, MayLackItsContent) { EXPECT_FALSE(SurveyContent(files_, "P").exists); }

} // namespace
} // namespace tamarind::install
