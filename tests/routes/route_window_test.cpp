#include "routes/route_rig.h"

#include "platform/expect_error.h"
#include "platform/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using routes::CaptionOf;
using routes::Control;
using routes::Ended;
using routes::IsEnabled;
using routes::IsVisible;
using routes::TitleOf;
using session::kSet;
using session::RouteState;
using testing::ElementsAre;
using testing::IsEmpty;

RouteState State(std::int16_t formMode, std::int16_t packMode) {
    RouteState state;
    state.RouteFormMode = formMode;
    state.ScenarioPackMode = packMode;
    return state;
}

TEST(RouteWindow, BearsTheTitleOfItsMode) {
    EXPECT_EQ(TitleOf(State(0, 0)), "Select Route");
    EXPECT_EQ(TitleOf(State(kSet, 0)), "Select Route to Package");
    EXPECT_EQ(TitleOf(State(0, kSet)), "Select Route");
    EXPECT_EQ(TitleOf(State(kSet, kSet)), "Select Route to Package");
}

TEST(RouteWindow, NamesItsButtons) {
    const RouteState state = State(0, 0);
    EXPECT_EQ(CaptionOf(Control::Command1, state), "List Scenarios in Selected Route");
    EXPECT_EQ(CaptionOf(Control::Command2, state), "Delete Selected Scenario");
    EXPECT_EQ(CaptionOf(Control::Command3, state), "List Stock used by selected Scenario");
    EXPECT_EQ(CaptionOf(Control::Command4, state), "Check Selected Route");
    EXPECT_EQ(CaptionOf(Control::Command5, state), "Add to Package");
    EXPECT_EQ(CaptionOf(Control::Command6, state), "Process Package");
    EXPECT_EQ(CaptionOf(Control::Command7, state), "Edit Selected Scenario");
    EXPECT_EQ(CaptionOf(Control::CancelButton, state), "&Exit");
    EXPECT_EQ(CaptionOf(Control::LabelRouteName, state), "Route Name");
    EXPECT_EQ(CaptionOf(Control::LabelRouteFolder, state), "Route Folder");
    EXPECT_EQ(CaptionOf(Control::LabelScenarioName, state), "Scenario Name");
    EXPECT_EQ(CaptionOf(Control::LabelScenarioFolder, state), "Scenario Folder");
}

TEST(RouteWindow, NamesTheOkButtonByItsMode) {
    EXPECT_EQ(CaptionOf(Control::OKButton, State(0, 0)), "Delete Selected Route");
    EXPECT_EQ(CaptionOf(Control::OKButton, State(kSet, 0)), "Package Selected Route");
}

TEST(RouteWindow, HidesThePackageButtonsUnlessScenariosArePackaged) {
    for (const std::int16_t mode : {std::int16_t{0}, kSet}) {
        EXPECT_FALSE(IsVisible(Control::Command5, State(mode, 0)));
        EXPECT_FALSE(IsVisible(Control::Command6, State(mode, 0)));
        for (const Control control : {Control::Command1, Control::Command2, Control::Command3, Control::Command4,
                                      Control::Command7, Control::OKButton, Control::CancelButton}) {
            EXPECT_TRUE(IsVisible(control, State(mode, 0)));
        }
    }
}

TEST(RouteWindow, HidesTheOtherJobsWhileScenariosArePackaged) {
    const RouteState state = State(0, kSet);
    for (const Control control : {Control::Command2, Control::Command3, Control::Command4, Control::OKButton})
        EXPECT_FALSE(IsVisible(control, state));
    for (const Control control : {Control::Command1, Control::Command5, Control::Command6, Control::Command7})
        EXPECT_TRUE(IsVisible(control, state));
}

TEST(RouteWindow, EnablesScenarioButtonsOnlyWhenScenariosAreListed) {
    routes::RouteWindow window;
    EXPECT_TRUE(IsEnabled(Control::Command1, State(0, 0), window));
    EXPECT_FALSE(IsEnabled(Control::Command2, State(0, 0), window));
    EXPECT_FALSE(IsEnabled(Control::Command3, State(0, 0), window));
    EXPECT_FALSE(IsEnabled(Control::Command7, State(0, 0), window));
    window.hasScenarios = true;
    EXPECT_TRUE(IsEnabled(Control::Command2, State(0, 0), window));
    EXPECT_TRUE(IsEnabled(Control::Command3, State(0, 0), window));
    EXPECT_TRUE(IsEnabled(Control::Command7, State(0, 0), window));
    EXPECT_TRUE(IsEnabled(Control::OKButton, State(kSet, 0), window));
}

TEST(RouteWindow, LetsNoCommandBeginWhileOneWaits) {
    routes::RouteWindow window;
    window.hasScenarios = window.isBusy = true;
    for (const Control control : {Control::Command1, Control::Command2, Control::Command3, Control::Command4,
                                  Control::Command7, Control::OKButton, Control::CancelButton}) {
        EXPECT_FALSE(IsEnabled(control, State(0, 0), window));
    }
}

TEST(LoadRoutes, FillsListsAndFields) {
    RouteRig rig;
    rig.MakeRoutes({"Alder", "Mill &amp; Barn"});
    EXPECT_EQ(rig.window.RoutesFile, rig.folder / "Game\\Content\\Routes.xml");
    EXPECT_EQ(rig.window.RoutesText, rig.folder.Read("Game\\Content\\Routes.xml"));
    EXPECT_THAT(rig.window.List1, ElementsAre("Alder", "Mill &amp; Barn"));
    EXPECT_THAT(rig.window.List2, ElementsAre("r1", "r2"));
    EXPECT_EQ(rig.context.session.Routes.RouteNames, rig.window.List1);
    EXPECT_EQ(rig.context.session.Routes.RouteIds, rig.window.List2);
}

TEST(LoadRoutes, OfAnIndexWithoutRoutesLeavesEmptyLists) {
    RouteRig rig;
    rig.MakeRoutes({});
    EXPECT_THAT(rig.window.List1, IsEmpty());
    EXPECT_THAT(rig.context.session.Routes.RouteIds, IsEmpty());
}

TEST(LoadRoutes, WithoutAnIndexLeavesEmptyLists) {
    RouteRig rig;
    routes::LoadRoutes(rig.context, rig.window);
    EXPECT_THAT(rig.window.List1, IsEmpty());
}

TEST(LoadRoutes, OfAnIndexThatIsCutOffFailsAndNamesIt) {
    RouteRig rig;
    rig.folder.Write("Game\\Content\\Routes.xml", "<DevString>r1</DevString><English>Al");
    const auto error = ErrorOf([&] { routes::LoadRoutes(rig.context, rig.window); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 5);
    EXPECT_EQ(error->Details(), (rig.folder / "Game\\Content\\Routes.xml") + "\r\nThe routes index is not whole.");
}

TEST(LoadRoutes, TakesAFolderOfTheIndexsNameForNoIndex) {
    RouteRig rig;
    rig.folder.MakeFolder("Game\\Content\\Routes.xml\\x");
    routes::LoadRoutes(rig.context, rig.window);
    EXPECT_THAT(rig.window.List1, IsEmpty());
}

TEST(LoadRoutes, ListsAsManyRoutesAsThereAre) {
    RouteRig rig;
    rig.MakeRoutes(std::vector<std::string>(101, "same"));
    EXPECT_EQ(rig.window.List1.size(), 101U);
    EXPECT_EQ(rig.window.List2.back(), "r101");
}

TEST(RouteStatus, TellsCountAndFolder) {
    RouteRig rig;
    rig.MakeRoutes({"Alder", "Bois"});
    const std::vector<std::size_t> second{1};
    EXPECT_EQ(routes::StatusText(rig.context, rig.window, {}), "2 routes");
    EXPECT_EQ(routes::StatusText(rig.context, rig.window, second),
              "2 routes   " + platform::ForDisplay(rig.folder / "Game\\content\\Routes\\r2"));
    rig.MakeRoutes({"Alder"});
    EXPECT_EQ(routes::StatusText(rig.context, rig.window, {}), "1 route");
}

TEST(CloseRoutes, EndsTheScenarioPackageMode) {
    RouteRig rig;
    rig.context.session.Routes = State(kSet, kSet);
    routes::CloseRoutes(rig.context, rig.window);
    EXPECT_EQ(rig.context.session.Routes.ScenarioPackMode, 0);
    EXPECT_EQ(rig.context.session.Routes.RouteFormMode, kSet);
    EXPECT_TRUE(rig.window.isClosed);
}

TEST(ListScenarios, ListsNamesAndIds) {
    RouteRig rig;
    rig.MakeRoutes({"Alder"});
    rig.MakeScenarios({"Milk", "Mail"});
    EXPECT_EQ(rig.List({0}), Ended::Done);
    EXPECT_THAT(rig.window.List3, ElementsAre("Milk", "Mail"));
    EXPECT_THAT(rig.window.List4, ElementsAre("s1", "s2"));
    EXPECT_THAT(rig.context.session.Routes.ScenarioNames, ElementsAre("Milk", "Mail"));
    EXPECT_THAT(rig.context.session.Routes.ScenarioIds, ElementsAre("s1", "s2"));
    EXPECT_FALSE(rig.window.isFile1Visible);
    EXPECT_TRUE(rig.window.hasScenarios);
    EXPECT_FALSE(rig.window.isBusy);
    EXPECT_THAT(rig.context.session.convertingBases, IsEmpty());
}

TEST(ListScenarios, ConvertsTheIndexIntoTempFiles) {
    RouteRig rig;
    rig.MakeRoutes({"Alder"});
    rig.MakeScenarios({"Milk"});
    rig.List({0});
    const std::string index = rig.folder / "Game\\content\\Routes\\r1\\Scenarios.bin";
    ASSERT_EQ(rig.rig.processes.starts.size(), 1U);
    EXPECT_EQ(rig.rig.processes.starts[0].commandLine,
              "serz.exe \"" + index + "\" xml:\"" + (rig.folder / "Kit\\TempFiles\\Scenarios.xml") + "\"");
    EXPECT_EQ(rig.context.session.CommandFile, index);
    EXPECT_EQ(rig.window.ScenarioXmlName, "Scenarios.xml");
    EXPECT_EQ(rig.window.RouteFolder, rig.folder / "Game\\content\\Routes\\r1");
    EXPECT_EQ(rig.rig.view.FilePath(), ""); // the open game file is another matter
}

TEST(ListScenarios, OfSeveralRoutesTakesTheLast) {
    RouteRig rig;
    rig.MakeRoutes({"Alder", "Bois"});
    rig.MakeScenarios({"Milk"});
    rig.folder.Write(RouteRig::Route("r2") + "\\Scenarios.bin", GameFile(ScenarioEntry("t1", "Bread")));
    rig.List({0, 1});
    EXPECT_THAT(rig.window.List3, ElementsAre("Bread"));
}

TEST(ListScenarios, LeavesList4ToThePackageOfScenarios) {
    RouteRig rig;
    rig.MakeRoutes({"Alder"});
    rig.MakeScenarios({"Milk"});
    rig.context.session.Routes.ScenarioPackMode = kSet;
    rig.List({0});
    EXPECT_THAT(rig.window.List3, ElementsAre("Milk"));
    EXPECT_THAT(rig.window.List4, IsEmpty());
    EXPECT_THAT(rig.context.session.Routes.ScenarioIds, ElementsAre("s1"));
}

TEST(ListScenarios, OfARouteWithoutAnIndexIsEmpty) {
    RouteRig rig;
    rig.MakeRoutes({"Alder"});
    EXPECT_EQ(rig.List({0}), Ended::Done);
    EXPECT_THAT(rig.window.List3, IsEmpty());
    EXPECT_THAT(rig.rig.ui.Messages(), IsEmpty());
}

TEST(ListScenarios, EmptiesTheListsFirst) {
    RouteRig rig;
    rig.MakeRoutes({"Alder", "Bois"});
    rig.MakeScenarios({"Milk"});
    rig.List({0});
    rig.List({1});
    EXPECT_THAT(rig.window.List3, IsEmpty());
    EXPECT_THAT(rig.window.List4, IsEmpty());
    rig.List({0});
    rig.List({});
    EXPECT_THAT(rig.window.List3, IsEmpty());
    EXPECT_FALSE(rig.window.hasScenarios);
}

TEST(ListScenarios, NeverTakesTheResultOfAnEarlierConversion) {
    RouteRig rig;
    rig.MakeRoutes({"Alder"});
    rig.MakeScenarios({"Milk"});
    rig.List({0});
    rig.converter.isBroken = true;
    EXPECT_EQ(rig.List({0}), Ended::Failed);
    EXPECT_THAT(rig.window.List3, IsEmpty());
    ASSERT_EQ(rig.rig.ui.Messages().size(), 1U);
    EXPECT_EQ(rig.rig.ui.Messages()[0].text, "An Error File not found occurred while\r\nchecking for Scenarios.");
    EXPECT_EQ(rig.rig.ui.Messages()[0].icon, platform::Icon::Exclamation);
}

TEST(ListScenarios, KeepsWhatWasAddedBeforeAFailure) {
    RouteRig rig;
    rig.MakeRoutes({"Alder"});
    rig.folder.Write(RouteRig::Route("r1") + "\\Scenarios.bin",
                     GameFile(ScenarioEntry("s1", "Milk") + "<DevString>s2</DevString><English>"));
    EXPECT_EQ(rig.List({0}), Ended::Failed);
    EXPECT_THAT(rig.window.List3, ElementsAre("Milk"));
    EXPECT_THAT(rig.window.List4, ElementsAre("s1", "s2"));
    EXPECT_THAT(rig.rig.ui.MessageTexts(),
                ElementsAre("An Error Invalid procedure call or argument occurred while\r\nchecking for Scenarios."));
}

TEST(ListScenarios, WaitsForAConversionOfAGameFile) {
    RouteRig rig;
    rig.MakeRoutes({"Alder"});
    rig.context.session.convertingBases = {"x"};
    EXPECT_EQ(rig.List({0}), Ended::Failed);
    EXPECT_THAT(rig.rig.ui.MessageTexts(), ElementsAre("This has to wait: a game file is being converted."));
}

} // namespace
} // namespace tamarind::tests
