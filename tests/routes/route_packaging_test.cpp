#include "routes/route_packaging.h"

#include "routes/package_rig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using routes::Ended;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

const std::string kTarget = std::string("Alder Vale\\Rail Simulator\\Content\\Routes\\") + kRouteA;

class RoutePackaging : public testing::Test {
protected:
    RoutePackaging() {
        routes::OpenRoutePackager(rig.context);
        rig.LoadRoutes();
    }
    PackageRig rig;
};

TEST_F(RoutePackaging, IsTheWindowsModeAfterItsMenuCommand) {
    const auto& state = rig.context.session.Routes;
    EXPECT_EQ(state.RouteFormMode, -1);
    EXPECT_EQ(routes::TitleOf(state), "Select Route to Package");
    EXPECT_EQ(routes::CaptionOf(routes::Control::OKButton, state), "Package Selected Route");
    EXPECT_TRUE(routes::IsEnabled(routes::Control::OKButton, state, rig.window));
}

TEST_F(RoutePackaging, WritesTheRecordAsTheMarker) {
    rig.PackageRoute({0});
    EXPECT_EQ(rig.Kit("Alder Vale\\Route_Setup.xxx"), RouteRecord(kRouteA, "Alder Vale") + "\r\n");
}

TEST_F(RoutePackaging, CopiesTheSetupProgramAndTheWholeFolder) {
    const routes::Packaged packaged = rig.PackageRoute({0});
    EXPECT_EQ(packaged.ended, Ended::Done);
    EXPECT_EQ(packaged.folder, rig.folder / "Kit\\Alder Vale");
    EXPECT_THAT(rig.folder.Names("Kit\\Alder Vale"),
                ElementsAre("Rail Simulator", "Route_Setup.xxx", "RouteSetup.exe"));
    EXPECT_EQ(rig.Kit("Alder Vale\\RouteSetup.exe"), "the setup program");
    EXPECT_EQ(rig.Kit(kTarget + "\\RouteProperties.xml"), "<x/>");
    EXPECT_EQ(rig.Kit(kTarget + "\\Scenery\\+001.bin"), "tile");
    EXPECT_EQ(rig.Kit(kTarget + "\\Scenarios\\" + kMilk + "\\Sub\\Extra.bin"), "extra");
}

TEST_F(RoutePackaging, KeepsEmptyFolders) {
    rig.folder.MakeFolder("Rail Simulator\\" + PackageRig::Route(kRouteA, "Empty\\Inner"));
    rig.PackageRoute({0});
    EXPECT_TRUE(rig.folder.Disk().IsFolder(rig.folder / ("Kit\\" + kTarget + "\\Empty\\Inner")));
}

TEST_F(RoutePackaging, EndsWithTheMessageThatOffersTheFolder) {
    rig.PackageRoute({0});
    ASSERT_EQ(rig.messages.size(), 1U);
    EXPECT_EQ(rig.messages[0].text,
              "You may now zip up the folder " + rig.Shown("Alder Vale") + "\r\nready for distribution.");
    EXPECT_EQ(rig.messages[0].icon, platform::Icon::Information);
    EXPECT_EQ(rig.messages[0].title, "Tamarind");
    EXPECT_EQ(rig.messages[0].buttons, platform::Buttons::Ok);
    EXPECT_EQ(rig.messages[0].opensFolder, rig.folder / "Kit\\Alder Vale");
    EXPECT_FALSE(rig.window.isClosed);
    EXPECT_FALSE(rig.window.isBusy);
}

TEST_F(RoutePackaging, TakesTheFirstSelectedRouteOffTheLists) {
    rig.PackageRoute({0, 1});
    EXPECT_THAT(rig.window.List1, ElementsAre("Bois"));
    EXPECT_THAT(rig.window.List2, ElementsAre(kRouteB));
    EXPECT_FALSE(rig.KitHas("Bois"));
    EXPECT_TRUE(rig.Has("Rail Simulator\\" + PackageRig::Route(kRouteA, "RouteProperties.xml")));
}

TEST_F(RoutePackaging, GoesOnWithTheRouteThatTheListShows) {
    rig.PackageRoute({0});
    rig.PackageRoute({0});
    EXPECT_EQ(rig.Kit("Bois\\Route_Setup.xxx"), RouteRecord(kRouteB, "Bois") + "\r\n");
    EXPECT_THAT(rig.window.List1, IsEmpty());
    EXPECT_THAT(rig.context.session.Routes.RouteIds, IsEmpty());
}

TEST_F(RoutePackaging, OfARouteIsPossibleAgainOnceTheWindowIsReopened) {
    rig.PackageRoute({0});
    rig.LoadRoutes();
    EXPECT_THAT(rig.window.List1, ElementsAre("Alder Vale", "Bois"));
    rig.folder.Write("Kit\\Alder Vale\\Route_Setup.xxx", "old");
    rig.folder.Write("Kit\\" + kTarget + "\\ROUTEPROPERTIES.XML", "old");
    rig.folder.Write("Kit\\Alder Vale\\ReadMe.txt", "by hand");
    EXPECT_EQ(rig.PackageRoute({0}).ended, Ended::Done);
    EXPECT_EQ(rig.Kit("Alder Vale\\Route_Setup.xxx"), RouteRecord(kRouteA, "Alder Vale") + "\r\n");
    EXPECT_EQ(rig.Kit(kTarget + "\\RouteProperties.xml"), "<x/>");
    EXPECT_EQ(rig.Kit("Alder Vale\\ReadMe.txt"), "by hand");
}

TEST_F(RoutePackaging, WithoutASelectionDoesNothing) {
    EXPECT_EQ(rig.PackageRoute({}).ended, Ended::Done);
    EXPECT_THAT(rig.messages, IsEmpty());
    EXPECT_THAT(rig.folder.Names("Kit"), ElementsAre("RouteSetup.exe", "TempFiles"));
    EXPECT_FALSE(rig.window.isClosed);
}

TEST_F(RoutePackaging, WithoutTheSetupProgramTellsWhatWasMade) {
    rig.folder.Disk().Remove(rig.folder / "Kit\\RouteSetup.exe");
    EXPECT_EQ(rig.PackageRoute({0}).ended, Ended::Failed);
    ASSERT_EQ(rig.messages.size(), 1U);
    EXPECT_EQ(rig.messages[0].text, "The route could not be packaged: File not found\r\n" +
                                        rig.Shown("RouteSetup.exe") + "\r\nAlready made, and kept:\r\n" +
                                        rig.Shown("Alder Vale") + "\r\nRoute_Setup.xxx");
    EXPECT_EQ(rig.messages[0].icon, platform::Icon::Exclamation);
    EXPECT_THAT(rig.folder.Names("Kit\\Alder Vale"), ElementsAre("Rail Simulator", "Route_Setup.xxx"));
    EXPECT_FALSE(rig.window.isClosed);
    EXPECT_THAT(rig.window.List1, ElementsAre("Bois"));
}

TEST(RoutePackagingNames, ThatAFolderCannotHaveAreRefused) {
    for (const char* name : {"What?", "A/B", "..", "Kit\\TempFiles", "NUL"}) {
        PackageRig rig({}, name);
        rig.LoadRoutes();
        EXPECT_EQ(rig.PackageRoute({0}).ended, Ended::Failed) << name;
        ASSERT_EQ(rig.messages.size(), 1U);
        EXPECT_THAT(rig.messages[0].text, StartsWith("The route could not be packaged: Path/File access error\r\n"));
        EXPECT_THAT(rig.messages[0].text, HasSubstr("\r\nNothing was made."));
        EXPECT_THAT(rig.folder.Names("Kit"), ElementsAre("RouteSetup.exe", "TempFiles")) << name;
    }
}

TEST(RoutePackagingNames, AreUsedAsTheyStand) {
    PackageRig rig({}, "Thornby &amp; Marrow");
    rig.LoadRoutes();
    EXPECT_EQ(rig.PackageRoute({0}).ended, Ended::Done);
    EXPECT_TRUE(rig.KitHas("Thornby &amp; Marrow\\Route_Setup.xxx"));
}

TEST(RoutePackagingNames, OfAFileThatIsThereFail) {
    PackageRig rig({}, "RouteSetup.exe");
    rig.LoadRoutes();
    EXPECT_EQ(rig.PackageRoute({0}).ended, Ended::Failed);
    EXPECT_THAT(rig.messages.at(0).text, StartsWith("The route could not be packaged: File already exists\r\n"));
    EXPECT_EQ(rig.Kit("RouteSetup.exe"), "the setup program");
}

TEST_F(RoutePackaging, RefusesAnIdThatLeadsElsewhere) {
    rig.window.List2[0] = "..";
    rig.window.RoutesText = "<cRouteProperties>..</cRouteProperties>";
    EXPECT_EQ(rig.PackageRoute({0}).ended, Ended::Failed);
    EXPECT_FALSE(rig.KitHas("Alder Vale"));
}

TEST_F(RoutePackaging, OfARouteThatTheIndexDoesNotHoldFails) {
    rig.window.RoutesText = "<Routes/>";
    EXPECT_EQ(rig.PackageRoute({0}).ended, Ended::Failed);
    EXPECT_THAT(rig.messages.at(0).text,
                StartsWith("The route could not be packaged: Invalid procedure call or argument\r\n"));
    EXPECT_FALSE(rig.KitHas("Alder Vale"));
}

TEST_F(RoutePackaging, OfARecordThatIsNotClosedFails) {
    rig.window.RoutesText = rig.window.RoutesText.substr(0, rig.window.RoutesText.find("</cRouteProperties>"));
    EXPECT_EQ(rig.PackageRoute({0}).ended, Ended::Failed);
    EXPECT_FALSE(rig.KitHas("Alder Vale"));
}

TEST_F(RoutePackaging, WithoutTheRoutesFolderFails) {
    rig.folder.Disk().Rename(rig.folder / "Rail Simulator\\Content\\Routes", rig.folder / "away");
    EXPECT_EQ(rig.PackageRoute({0}).ended, Ended::Failed);
    EXPECT_THAT(rig.messages.at(0).text, StartsWith("The route could not be packaged: Path not found\r\n"));
    EXPECT_THAT(rig.messages.at(0).text, HasSubstr("\r\nRouteSetup.exe"));
}

TEST_F(RoutePackaging, CollectsEveryFileThatCannotBeReplaced) {
    const std::string first = rig.folder.Write("Kit\\" + kTarget + "\\RouteProperties.xml", "locked");
    const std::string second = rig.folder.Write("Kit\\" + kTarget + "\\Scenery\\+001.bin", "locked");
    MakeReadOnly(first);
    MakeReadOnly(second);
    EXPECT_EQ(rig.PackageRoute({0}).ended, Ended::Failed);
    ASSERT_EQ(rig.messages.size(), 1U);
    EXPECT_EQ(rig.messages[0].text, "The package is not complete; these could not be copied:\r\nPermission denied: " +
                                        platform::ForDisplay(first) +
                                        "\r\nPermission denied: " + platform::ForDisplay(second));
    EXPECT_EQ(rig.Kit(kTarget + "\\Scenarios.bin").substr(0, 4), "BIN:");
}

TEST_F(RoutePackaging, ShowsProgressFileByFile) {
    rig.PackageRoute({0});
    const auto& shown = rig.rig.ui.ProgressShown();
    ASSERT_FALSE(shown.empty());
    EXPECT_EQ(shown[0].title, "Packaging Alder Vale");
    EXPECT_EQ(shown[0].total, 6U);
    EXPECT_EQ(shown[0].done, 0U);
    EXPECT_EQ(rig.rig.ui.EventRounds(), 3);
}

TEST_F(RoutePackaging, IsCancelledBetweenFiles) {
    rig.rig.ui.onProgress = [](int) { return false; };
    const routes::Packaged packaged = rig.PackageRoute({0});
    EXPECT_EQ(packaged.ended, Ended::Declined);
    ASSERT_EQ(rig.messages.size(), 1U);
    EXPECT_EQ(rig.messages[0].text,
              "The package was cancelled. What was already made stays: " + rig.Shown("Alder Vale"));
    EXPECT_TRUE(rig.KitHas("Alder Vale\\RouteSetup.exe"));
    EXPECT_FALSE(rig.KitHas(kTarget + "\\RouteProperties.xml"));
}

TEST_F(RoutePackaging, LeavesTheGameAsItWas) {
    const std::string index = rig.folder.Read("Rail Simulator\\Content\\Routes.xml");
    rig.PackageRoute({0});
    EXPECT_EQ(rig.folder.Read("Rail Simulator\\Content\\Routes.xml"), index);
    EXPECT_THAT(rig.folder.Names("Rail Simulator\\Content\\Routes"), ElementsAre(kRouteA, kRouteB));
}

TEST_F(RoutePackaging, WaitsForAnotherCommand) {
    rig.window.isBusy = true;
    EXPECT_EQ(rig.PackageRoute({0}).ended, Ended::Failed);
    EXPECT_FALSE(rig.KitHas("Alder Vale"));
    EXPECT_THAT(rig.window.List1, ElementsAre("Alder Vale", "Bois"));
}

} // namespace
} // namespace tamarind::tests
