#include "routes/deletion.h"

#include "platform/expect_error.h"
#include "platform/paths.h"
#include "routes/route_rig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using platform::Answer;
using routes::Ended;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

Ended DeleteRoute(RouteRig& rig, const std::vector<std::size_t>& selected, Answer answer = Answer::Yes) {
    rig.rig.ui.answers.push_back(answer);
    return routes::DeleteRoute(rig.context, rig.window, selected);
}

Ended DeleteScenario(RouteRig& rig, const std::vector<std::size_t>& selected, Answer answer = Answer::Yes) {
    rig.rig.ui.answers.push_back(answer);
    return routes::DeleteScenario(rig.context, rig.window, selected);
}

constexpr const char* kIndex = "Game\\Content\\Routes.xml";

TEST(DeleteRoute, AsksFirst) {
    RouteRig rig;
    rig.MakeRoutes({"Alder"});
    const std::string index = rig.folder.Read(kIndex);
    EXPECT_EQ(DeleteRoute(rig, {0}, Answer::No), Ended::Declined);
    ASSERT_EQ(rig.rig.ui.Messages().size(), 1U);
    const platform::Message question = rig.rig.ui.Messages()[0];
    EXPECT_EQ(question.text, "Do you really wish to delete the selected route(s)?");
    EXPECT_EQ(question.icon, platform::Icon::Exclamation);
    EXPECT_EQ(question.buttons, platform::Buttons::YesNo);
    EXPECT_EQ(question.title, "Tamarind");
    EXPECT_TRUE(rig.Has(RouteRig::Route("r1")));
    EXPECT_EQ(rig.folder.Read(kIndex), index);
    EXPECT_FALSE(rig.window.isClosed);
}

TEST(DeleteRoute, TakesFolderAndEntryAway) {
    RouteRig rig;
    rig.MakeRoutes({"Alder", "Bois"});
    EXPECT_EQ(DeleteRoute(rig, {1}), Ended::Done);
    EXPECT_FALSE(rig.Has(RouteRig::Route("r2")));
    EXPECT_TRUE(rig.Has(RouteRig::Route("r1")));
    EXPECT_EQ(rig.folder.Read(kIndex),
              "<cRouteCatalogue>\r\n" + RouteEntry("r1", "Alder") + "\t\r\n</cRouteCatalogue>\r\n");
    EXPECT_EQ(rig.window.RoutesText, rig.folder.Read(kIndex));
    EXPECT_TRUE(rig.window.isClosed);
    EXPECT_THAT(rig.window.List1, ElementsAre("Alder"));
    EXPECT_THAT(rig.window.List2, ElementsAre("r1"));
}

TEST(DeleteRoute, OfSeveralTakesTheUpperOneAndCloses) {
    RouteRig rig;
    rig.MakeRoutes({"Alder", "Bois", "Thornby"});
    EXPECT_EQ(DeleteRoute(rig, {1, 2}), Ended::Done);
    EXPECT_FALSE(rig.Has(RouteRig::Route("r2")));
    EXPECT_TRUE(rig.Has(RouteRig::Route("r3")));
    EXPECT_TRUE(rig.window.isClosed);
}

TEST(DeleteRoute, WithNothingSelectedOnlyCloses) {
    RouteRig rig;
    rig.MakeRoutes({"Alder"});
    EXPECT_EQ(DeleteRoute(rig, {}), Ended::Done);
    EXPECT_TRUE(rig.window.isClosed);
    EXPECT_TRUE(rig.Has(RouteRig::Route("r1")));
}

TEST(DeleteRoute, MovesTheFolderToTheTrash) {
    RouteRig rig;
    rig.MakeRoutes({"Alder"});
    DeleteRoute(rig, {0});
    EXPECT_EQ(rig.folder.Read("Trash\\r1\\RouteProperties.xml"), "<x/>");
}

TEST(DeleteRoute, DeletesForGoodWhereThereIsNoTrash) {
    RouteRig rig;
    rig.files.trash.clear();
    rig.MakeRoutes({"Alder"});
    EXPECT_EQ(DeleteRoute(rig, {0}), Ended::Done);
    EXPECT_FALSE(rig.Has(RouteRig::Route("r1")));
}

TEST(DeleteRoute, KeepsTheIndexAsItWasInTempFiles) {
    RouteRig rig;
    rig.MakeRoutes({"Alder", "Bois"});
    const std::string first = rig.folder.Read(kIndex);
    DeleteRoute(rig, {0});
    EXPECT_EQ(rig.folder.Read("Kit\\TempFiles\\Recovered\\Routes.xml"), first);
    EXPECT_THAT(rig.rig.ui.StatusLines(),
                ElementsAre("The routes index as it was is kept in " +
                            platform::ForDisplay(rig.folder / "Kit\\TempFiles\\Recovered\\Routes.xml")));
    const std::string second = rig.folder.Read(kIndex);
    routes::LoadRoutes(rig.context, rig.window);
    DeleteRoute(rig, {0});
    EXPECT_EQ(rig.folder.Read("Kit\\TempFiles\\Recovered\\Routes.1.xml"), second);
    EXPECT_THAT(rig.folder.Names("Game\\Content"), ElementsAre("Routes", "Routes.xml")); // no backup beside it
}

TEST(DeleteRoute, GoesOnWithoutAFolder) {
    RouteRig rig;
    rig.MakeRoutes({"Alder"});
    platform::Files& disk = rig.folder.Disk();
    disk.Remove(rig.folder / (RouteRig::Route("r1") + "\\RouteProperties.xml"));
    disk.RemoveFolder(rig.folder / RouteRig::Route("r1"));
    EXPECT_EQ(DeleteRoute(rig, {0}), Ended::Done);
    EXPECT_THAT(rig.folder.Read(kIndex), Not(HasSubstr("r1")));
}

TEST(DeleteRoute, OfARouteThatTheIndexDoesNotHoldFailsWithTheFolderGone) {
    RouteRig rig;
    rig.MakeRoutes({"Alder"});
    rig.window.RoutesText = "<cRouteCatalogue/>";
    rig.rig.ui.answers = {Answer::Yes};
    const std::vector<std::size_t> first{0};
    const auto error = ErrorOf([&] { static_cast<void>(routes::DeleteRoute(rig.context, rig.window, first)); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 5);
    EXPECT_THAT(error->Details(), HasSubstr("The folder of the route r1 is gone"));
    EXPECT_FALSE(rig.Has(RouteRig::Route("r1")));
}

TEST(DeleteRoute, RefusesAnIdThatIsNoFolderName) {
    for (const std::string id : {"", "..", ".", "...", " ", "a\\b", "a/b", "C:"}) {
        RouteRig rig;
        rig.folder.Write(kIndex, RouteEntry(id, "Odd"));
        rig.folder.MakeFolder("Game\\Content\\Routes\\other");
        routes::LoadRoutes(rig.context, rig.window);
        EXPECT_EQ(DeleteRoute(rig, {0}), Ended::Failed) << id;
        EXPECT_EQ(rig.rig.ui.MessageTexts().back(), "Nothing was deleted: \"" + id + "\" is not the name of a folder.");
        EXPECT_TRUE(rig.Has("Game\\Content\\Routes\\other")) << id;
    }
}

TEST(FolderName, MayHoldAnyScript) {
    EXPECT_TRUE(routes::IsFolderName("5a1e0d10-0001"));
    EXPECT_TRUE(routes::IsFolderName("\xD0\x94\xD0\xB5\xD0\xBF\xD0\xBE 1.2"));
    EXPECT_FALSE(routes::IsFolderName("a\tb"));
}

class ScenarioDeletion : public testing::Test {
protected:
    ScenarioDeletion() {
        rig_.MakeRoutes({"Alder"});
        rig_.MakeScenarios({"Milk", "Mail", "Salt"});
        old_ = rig_.folder.Read(kBinary);
        rig_.List({0});
    }

    static constexpr const char* kBinary = "Game\\Content\\Routes\\r1\\Scenarios.bin";
    static constexpr const char* kFolder = "Game\\Content\\Routes\\r1\\Scenarios\\";

    RouteRig rig_;
    std::string old_;
};

TEST_F(ScenarioDeletion, AsksFirst) {
    EXPECT_EQ(DeleteScenario(rig_, {0}, Answer::No), Ended::Declined);
    const platform::Message question = rig_.rig.ui.Messages()[0];
    EXPECT_EQ(question.text, "Do you really wish to delete the selected scenario?");
    EXPECT_EQ(question.icon, platform::Icon::Exclamation);
    EXPECT_EQ(question.buttons, platform::Buttons::YesNo);
    EXPECT_EQ(question.title, "Tamarind");
    EXPECT_EQ(rig_.folder.Read(kBinary), old_);
    EXPECT_TRUE(rig_.Has(std::string(kFolder) + "s1"));
}

TEST_F(ScenarioDeletion, TakesFolderAndEntryAwayAndKeepsABackup) {
    EXPECT_EQ(DeleteScenario(rig_, {0}), Ended::Done);
    EXPECT_FALSE(rig_.Has(std::string(kFolder) + "s1"));
    EXPECT_TRUE(rig_.Has("Trash\\s1\\Scenario.bin"));
    const std::string edited = "<cScenarioIndex>\r\n\t" + ("\t" + ScenarioEntry("s2", "Mail").substr(1)) +
                               ScenarioEntry("s3", "Salt") + "</cScenarioIndex>\r\n";
    EXPECT_EQ(rig_.folder.Read(kBinary), GameFile(edited));
    EXPECT_EQ(rig_.folder.Read("Kit\\TempFiles\\Scenarios.xml"), edited);
    EXPECT_EQ(rig_.folder.Read(std::string(kBinary) + ".bak"), old_);
    EXPECT_THAT(rig_.window.List3, ElementsAre("Mail", "Salt"));
    EXPECT_THAT(rig_.window.List4, ElementsAre("s2", "s3"));
}

TEST_F(ScenarioDeletion, ConvertsIntoTheIndex) {
    DeleteScenario(rig_, {0});
    const std::string index = rig_.folder / "Game\\content\\Routes\\r1\\Scenarios.bin";
    EXPECT_EQ(rig_.rig.processes.starts.back().commandLine,
              "serz.exe \"" + (rig_.folder / "Kit\\TempFiles\\Scenarios.xml") + "\" bin:\"" + index + "\"");
    EXPECT_EQ(rig_.context.session.CommandFile, index);
}

TEST_F(ScenarioDeletion, OfTheNextOneTakesWhatTheListShows) {
    DeleteScenario(rig_, {0});
    const std::string second = rig_.folder.Read(kBinary);
    EXPECT_EQ(DeleteScenario(rig_, {0}), Ended::Done);
    EXPECT_FALSE(rig_.Has(std::string(kFolder) + "s2"));
    EXPECT_TRUE(rig_.Has(std::string(kFolder) + "s3"));
    EXPECT_THAT(rig_.folder.Read(kBinary), Not(HasSubstr("s2")));
    EXPECT_EQ(rig_.folder.Read(std::string(kBinary) + ".bak"), old_);
    EXPECT_EQ(rig_.folder.Read(std::string(kBinary) + ".bak1"), second);
}

TEST_F(ScenarioDeletion, TakesTheFirstFreeBackupName) {
    rig_.folder.Write(std::string(kBinary) + ".bak", "a");
    rig_.folder.Write(std::string(kBinary) + ".bak1", "b");
    DeleteScenario(rig_, {0});
    EXPECT_EQ(rig_.folder.Read(std::string(kBinary) + ".bak2"), old_);
}

TEST_F(ScenarioDeletion, OverwritesTheIndexWhenAllBackupNamesAreTaken) {
    rig_.folder.Write(std::string(kBinary) + ".bak", "x");
    for (int i = 1; i <= 50; ++i)
        rig_.folder.Write(std::string(kBinary) + ".bak" + std::to_string(i), "x");
    EXPECT_EQ(DeleteScenario(rig_, {0}), Ended::Done);
    EXPECT_THAT(rig_.folder.Read(kBinary), Not(HasSubstr("s1")));
    EXPECT_FALSE(rig_.Has(std::string(kBinary) + ".bak51"));
}

TEST_F(ScenarioDeletion, PutsTheOldIndexBackWhenTheConverterLeavesNone) {
    rig_.converter.isBroken = true;
    EXPECT_EQ(DeleteScenario(rig_, {0}), Ended::Failed);
    EXPECT_EQ(rig_.folder.Read(kBinary), old_);
    EXPECT_EQ(rig_.folder.Read(std::string(kBinary) + ".bak"), old_);
    EXPECT_FALSE(rig_.Has(std::string(kFolder) + "s1"));
    EXPECT_EQ(rig_.rig.ui.MessageTexts().back(),
              "The converter wrote no new index of scenarios. The scenario's folder is gone, but its entry still "
              "stands in\r\n" +
                  platform::ForDisplay(rig_.folder / "Game\\content\\Routes\\r1\\Scenarios.bin"));
}

TEST_F(ScenarioDeletion, SaysSoToWhenThereIsNoBackupName) {
    rig_.folder.Write(std::string(kBinary) + ".bak", "x");
    for (int i = 1; i <= 50; ++i)
        rig_.folder.Write(std::string(kBinary) + ".bak" + std::to_string(i), "x");
    rig_.converter.isBroken = true;
    EXPECT_EQ(DeleteScenario(rig_, {0}), Ended::Failed);
    EXPECT_EQ(rig_.folder.Read(kBinary), old_);
}

TEST_F(ScenarioDeletion, ThatFailsShowsTheErrorWithTheFolderGone) {
    rig_.folder.Disk().Remove(rig_.folder / "Kit\\TempFiles\\Scenarios.xml");
    EXPECT_EQ(DeleteScenario(rig_, {0}), Ended::Failed);
    EXPECT_EQ(rig_.rig.ui.MessageTexts().back(),
              "An error occurred in Delete Selected Scenario\r\nInvalid procedure call or argument");
    EXPECT_FALSE(rig_.Has(std::string(kFolder) + "s1"));
    EXPECT_EQ(rig_.folder.Read(kBinary), old_);
    EXPECT_FALSE(rig_.window.isBusy);
    EXPECT_THAT(rig_.context.session.convertingBases, IsEmpty());
}

TEST_F(ScenarioDeletion, WithNothingSelectedChangesNothing) {
    EXPECT_EQ(DeleteScenario(rig_, {}), Ended::Done);
    EXPECT_EQ(rig_.folder.Read(kBinary), old_);
}

TEST_F(ScenarioDeletion, RefusesAnIdThatIsNoFolderName) {
    rig_.context.session.Routes.ScenarioIds[0] = "..";
    EXPECT_EQ(DeleteScenario(rig_, {0}), Ended::Failed);
    EXPECT_TRUE(rig_.Has(kFolder));
    EXPECT_TRUE(rig_.Has(std::string(kFolder) + "s1"));
}

} // namespace
} // namespace tamarind::tests
