#include "authoring/consists.h"

#include "platform/expect_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using authoring::Consist;
using authoring::DrivenConsist;
using authoring::ScanConsists;
using authoring::SetDriver;
using authoring::VehicleLines;
using testing::ElementsAre;
using testing::IsEmpty;
using text::ErrorNumber;

std::string Localised(const std::string& english) {
    return "<ServiceName><English>" + english +
           "</English><French></French><Italian></Italian><German>Zug</German>"
           "<Spanish></Spanish></ServiceName>";
}

std::string Driver(const std::string& driver, const std::string& controlled) {
    return "<PlayerDriver>" + driver + "</PlayerDriver><PlayerControlled>" + controlled + "</PlayerControlled>";
}

std::string Train(const std::string& content) { return "<cConsist d:id=\"7\">" + content + "</cConsist>"; }

std::vector<std::string> NamesOf(const std::vector<Consist>& consists) {
    std::vector<std::string> names;
    for (const Consist& consist : consists)
        names.push_back(consist.name);
    return names;
}

TEST(ScanConsists, NamesEachByItsService) {
    EXPECT_THAT(NamesOf(ScanConsists(Train(Localised("Milk")) + Train(Localised("")))), ElementsAre("Milk", "Zug"));
}

TEST(ScanConsists, CallsAConsistWithoutServiceLoose) {
    EXPECT_THAT(NamesOf(ScanConsists(Train("<Name>Van</Name>") + Train(Localised("Milk")))),
                ElementsAre("Loose Consist", "Milk"));
}

TEST(ScanConsists, TakesAServiceNameByItsWholeTagAlone) {
    EXPECT_THAT(NamesOf(ScanConsists(Train("<ServiceName a=\"b\"><English>x</English></ServiceName>"))),
                ElementsAre("Loose Consist"));
}

TEST(ScanConsists, KeepsANameThatIsEmptyInAllLanguages) {
    EXPECT_THAT(NamesOf(ScanConsists(Train("<ServiceName><English></English><French></French><Italian></Italian>"
                                           "<German></German><Spanish></Spanish></ServiceName>"))),
                ElementsAre(""));
}

TEST(ScanConsists, FindsNoneInATextWithout) { EXPECT_THAT(ScanConsists("<cScenario></cScenario>"), IsEmpty()); }

TEST(ScanConsists, ListsTheFirstHundred) {
    std::string text;
    for (int i = 0; i < 101; ++i)
        text += Train(Localised(std::to_string(i)));
    const auto names = NamesOf(ScanConsists(text));
    ASSERT_EQ(names.size(), 100U);
    EXPECT_EQ(names.back(), "99");
}

TEST(ScanConsists, ReadsTheNamesOfItsVehiclesInOrder) {
    const auto consists = ScanConsists(Train("<Name d:type=\"t\">B</Name><Name></Name>") + Train("<Name>A</Name>"));
    EXPECT_THAT(consists.at(0).vehicles, ElementsAre("B", ""));
    EXPECT_THAT(consists.at(1).vehicles, ElementsAre("A"));
}

TEST(ScanConsists, TakesAHundredVehiclesOfAConsist) {
    std::string names;
    for (int i = 0; i < 101; ++i)
        names += "<Name>" + std::to_string(i) + "</Name>";
    const auto consists = ScanConsists(Train(names));
    ASSERT_EQ(consists.at(0).vehicles.size(), 100U);
    EXPECT_EQ(consists.at(0).vehicles.back(), "99");
}

TEST(ScanConsists, BeginsTheFirstWithTheText) {
    EXPECT_THAT(ScanConsists("<Name>in front</Name>" + Train("")).at(0).vehicles, ElementsAre("in front"));
}

TEST(ScanConsists, KnowsThePlayersDriver) {
    const auto consists = ScanConsists(Train(Driver("0", "0")) + Train(Driver("1", "1")) + Train(""));
    EXPECT_TRUE(consists.at(0).hasDriver);
    EXPECT_FALSE(consists.at(0).isPlayerDriven);
    EXPECT_TRUE(consists.at(1).isPlayerDriven);
    EXPECT_FALSE(consists.at(2).hasDriver);
}

TEST(ScanConsists, FindsNoDriverInOneThatIsNotWhole) {
    EXPECT_FALSE(ScanConsists(Train("<PlayerDriver>1")).at(0).hasDriver);
}

TEST(ScanConsists, FailsForAVehicleOrANameThatIsNotWhole) {
    ExpectError([] { static_cast<void>(ScanConsists(Train("<Name>Van"))); }, ErrorNumber::InvalidProcedureCall);
    ExpectError([] { static_cast<void>(ScanConsists(Train("<ServiceName><English>x"))); },
                ErrorNumber::InvalidProcedureCall);
}

TEST(VehicleLines, AreTheNamesThatAreNotEmpty) {
    EXPECT_THAT(VehicleLines({.vehicles = {"B", "", "A"}}), ElementsAre("B", "A"));
}

TEST(VehicleLines, SayWhenAConsistIsEmpty) {
    EXPECT_THAT(VehicleLines({}), ElementsAre("Empty Consist"));
    EXPECT_THAT(VehicleLines({.vehicles = {""}}), ElementsAre("Empty Consist"));
}

TEST(SetDriver, MakesTheChosenConsistThePlayersAlone) {
    const std::string text = Train(Driver("1", "0")) + Train(Driver("0", "0")) + Train(Driver("1", "0"));
    EXPECT_EQ(SetDriver(text, 1), Train(Driver("0", "0")) + Train(Driver("1", "0")) + Train(Driver("0", "0")));
    EXPECT_EQ(SetDriver(text, 0), Train(Driver("1", "0")) + Train(Driver("0", "0")) + Train(Driver("0", "0")));
}

TEST(SetDriver, LeavesNobodyInControl) {
    EXPECT_EQ(SetDriver(Train(Driver("1", "1")) + Train(Driver("0", "yes")), 0),
              Train(Driver("1", "0")) + Train(Driver("0", "0")));
}

TEST(SetDriver, TakesTheFirstDriverOfAllWithoutAChosenConsist) {
    EXPECT_EQ(SetDriver(Driver("0", "0") + Train(Driver("1", "1")), -1), Driver("1", "0") + Train(Driver("0", "0")));
}

TEST(SetDriver, TakesTheNextDriverWhereTheConsistHasNone) {
    EXPECT_EQ(SetDriver(Train("") + Train(Driver("0", "0")), 0), Train("") + Train(Driver("1", "0")));
}

TEST(SetDriver, FailsWithoutAnyDriverFromThereOn) {
    ExpectError([] { static_cast<void>(SetDriver(Train(Driver("0", "0")) + Train(""), 1)); },
                ErrorNumber::InvalidProcedureCall);
    ExpectError([] { static_cast<void>(SetDriver("", -1)); }, ErrorNumber::InvalidProcedureCall);
}

TEST(SetDriver, FailsWithoutThatConsist) {
    ExpectError([] { static_cast<void>(SetDriver(Train(Driver("0", "0")), 1)); }, ErrorNumber::InvalidProcedureCall);
}

TEST(DrivenConsist, IsTheChosenOneOrTheNextThatHasADriver) {
    const std::vector<Consist> consists{{}, {.hasDriver = true}, {}, {.hasDriver = true}, {}};
    EXPECT_EQ(DrivenConsist(consists, -1), 1U);
    EXPECT_EQ(DrivenConsist(consists, 0), 1U);
    EXPECT_EQ(DrivenConsist(consists, 1), 1U);
    EXPECT_EQ(DrivenConsist(consists, 2), 3U);
    EXPECT_EQ(DrivenConsist(consists, 4), std::nullopt);
    EXPECT_EQ(DrivenConsist({}, -1), std::nullopt);
}

} // namespace
} // namespace tamarind::tests
