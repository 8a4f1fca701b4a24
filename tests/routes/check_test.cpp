#include "routes/check.h"

#include "routes/route_rig.h"
#include "routes/scan_progress.h"
#include "routes/stock.h"
#include "text/search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using platform::Answer;
using routes::CheckResult;
using routes::Ended;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kNothingMissing = "Route Scenery checked out OK";
constexpr const char* kMissing = "Following item(s) were missing from this route:-\r\n\r\n";

class RouteCheck : public testing::Test {
protected:
    RouteCheck() { rig_.MakeRoutes({"Alder", "Bois"}); }

    std::string Asset(const std::string& name) const { return rig_.folder / ("Game\\Assets\\" + name); }
    void WriteTile(const std::string& name, const std::string& references) {
        rig_.folder.Write(RouteRig::Route("r1") + "\\" + name, GameFile("<cTile>\r\n" + references + "</cTile>\r\n"));
    }
    void WriteBlueprint(const std::string& name, const std::string& geometry = "") {
        rig_.folder.Write("Game\\Assets\\" + name, GameFile("<Blueprint>\r\n" + geometry + "</Blueprint>\r\n"));
    }
    void WriteShape(const std::string& name, const std::string& textures) {
        rig_.folder.Write("Game\\Assets\\" + name,
                          GameFile("<Shape>\r\n<TextureByName>\r\n" + textures + "</TextureByName>\r\n</Shape>\r\n"));
    }
    CheckResult Check(std::vector<Answer> answers = {Answer::No, Answer::No}, std::size_t jobs = 1) {
        rig_.rig.ui.answers.assign(answers.begin(), answers.end());
        const std::vector<std::size_t> first{0};
        return routes::CheckRoute(rig_.context, rig_.window, first, rig_.reports, {.jobs = jobs});
    }

    RouteRig rig_;
};

TEST_F(RouteCheck, OfARouteWithoutAnythingIsOk) {
    const CheckResult result = Check();
    EXPECT_EQ(result.ended, Ended::Done);
    EXPECT_THAT(result.shapes, IsEmpty());
    EXPECT_FALSE(result.textures);
    EXPECT_THAT(rig_.reports.texts, ElementsAre(kNothingMissing));
}

TEST_F(RouteCheck, ScansSceneryThenLoftsThenRoads) {
    WriteTile("Networks\\Road Tiles\\t.bin", TileReference("P", "Q", "c.xml"));
    WriteTile("Networks\\Loft Tiles\\t.bin", TileReference("P", "Q", "b.xml"));
    WriteTile("Scenery\\t.bin", TileReference("P", "Q", "a.xml"));
    Check();
    EXPECT_THAT(rig_.reports.texts, ElementsAre(kMissing + Asset("P\\Q\\a.bin") + "\r\n" + Asset("P\\Q\\b.bin") +
                                                "\r\n" + Asset("P\\Q\\c.bin") + "\r\n"));
}

TEST_F(RouteCheck, AsksWhatToList) {
    Check();
    ASSERT_EQ(rig_.rig.ui.Messages().size(), 2U);
    for (const platform::Message& question : rig_.rig.ui.Messages()) {
        EXPECT_EQ(question.icon, platform::Icon::Question);
        EXPECT_EQ(question.buttons, platform::Buttons::YesNo);
        EXPECT_EQ(question.title, "Tamarind");
    }
    EXPECT_THAT(rig_.rig.ui.MessageTexts(), ElementsAre("Do you wish to view a list of Shapes used by this route?",
                                                        "Would you like to check for missing Textures ?"));
}

TEST_F(RouteCheck, AsksForTheListOfTexturesAfterTheirCheck) {
    Check({Answer::No, Answer::Yes, Answer::No});
    EXPECT_EQ(rig_.rig.ui.MessageTexts().back(), "Do you wish to view a list of Textures used by this route?");
    EXPECT_THAT(rig_.reports.texts, ElementsAre(kNothingMissing, "Texture Check:-\r\n\r\n"));
}

TEST_F(RouteCheck, ListsABlueprintOnceHoweverOftenItStands) {
    WriteBlueprint("P\\Q\\Mill.bin");
    WriteBlueprint("P\\Q\\Barn.bin");
    WriteTile("Scenery\\a.bin", TileReference("P", "Q", "Mill.xml") + TileReference("P", "Q", "Mill.xml"));
    WriteTile("Scenery\\b.bin", TileReference("P", "Q", "Barn.xml") + TileReference("P", "Q", "Mill.xml"));
    const CheckResult result = Check({Answer::Yes, Answer::No});
    EXPECT_THAT(result.shapes, ElementsAre(Asset("P\\Q\\Barn.bin"), Asset("P\\Q\\Mill.bin")));
    EXPECT_THAT(rig_.reports.texts,
                ElementsAre(Asset("P\\Q\\Barn.bin") + "\r\n" + Asset("P\\Q\\Mill.bin") + "\r\n", kNothingMissing));
}

TEST_F(RouteCheck, ReportsEveryMissingReferenceWhereItStands) {
    WriteTile("Scenery\\a.bin", TileReference("P", "Q", "x.xml") + TileReference("P", "Q", "x.xml"));
    Check();
    EXPECT_THAT(rig_.reports.texts,
                ElementsAre(kMissing + Asset("P\\Q\\x.bin") + "\r\n" + Asset("P\\Q\\x.bin") + "\r\n"));
}

TEST_F(RouteCheck, FindsABlueprintWithEntitiesButDoesNotListIt) {
    WriteBlueprint("P\\Q\\Mill & Barn.bin");
    WriteTile("Scenery\\a.bin", TileReference("P", "Q", "Mill &amp; Barn.xml"));
    const CheckResult result = Check();
    EXPECT_THAT(result.shapes, IsEmpty());
    EXPECT_THAT(rig_.reports.texts, ElementsAre(kNothingMissing));
}

TEST_F(RouteCheck, ListsAMissingBlueprintWithEntities) {
    WriteTile("Scenery\\a.bin", TileReference("P", "Q", "Son&apos;s.xml") + TileReference("P", "Q", "plain.xml"));
    const CheckResult result = Check();
    EXPECT_THAT(result.shapes, ElementsAre(Asset("P\\Q\\Son's.bin")));
    EXPECT_THAT(rig_.reports.texts,
                ElementsAre(kMissing + Asset("P\\Q\\Son's.bin") + "\r\n" + Asset("P\\Q\\plain.bin") + "\r\n"));
}

TEST_F(RouteCheck, FindsNamesInAnyScript) {
    WriteBlueprint("P\\Q\\\xD0\x94\xD0\xBE\xD0\xBC.bin");
    WriteBlueprint("P\\Q\\Caf\xC3\xA9.bin");
    // The converter writes one as UTF-8, another as a single-byte text.
    WriteTile("Scenery\\a.bin",
              TileReference("P", "Q", "\xD0\x94\xD0\xBE\xD0\xBC.xml") + TileReference("P", "Q", "Caf\xE9.xml"));
    const CheckResult result = Check();
    EXPECT_THAT(result.shapes,
                ElementsAre(Asset("P\\Q\\Caf\xC3\xA9.bin"), Asset("P\\Q\\\xD0\x94\xD0\xBE\xD0\xBC.bin")));
    EXPECT_THAT(rig_.reports.texts, ElementsAre(kNothingMissing));
}

TEST_F(RouteCheck, CountsAndNamesFilesThatAreNoGameFilesAndGoesOn) {
    rig_.folder.Write(RouteRig::Route("r1") + "\\Scenery\\b.bin", "no game file");
    rig_.folder.Write(RouteRig::Route("r1") + "\\Scenery\\c.bin", GameFile("no XML"));
    rig_.folder.Write(RouteRig::Route("r1") + "\\Scenery\\d.bin", "");
    WriteTile("Scenery\\e.bin", TileReference("P", "Q", "x.xml"));
    rig_.folder.Write(RouteRig::Route("r1") + "\\Scenery\\f.bin", GameFile("<t>\r\n<Provider>P</Provider>\r\n"));
    Check();
    const std::string scenery = rig_.folder / "Game\\Content\\Routes\\r1\\Scenery\\";
    EXPECT_THAT(rig_.reports.texts,
                ElementsAre(kMissing + Asset("P\\Q\\x.bin") + "\r\n\r\n4 file(s) could not be converted:-\r\n\r\n" +
                            scenery + "b.bin\r\n" + scenery + "c.bin\r\n" + scenery + "d.bin\r\n" + scenery +
                            "f.bin\r\n"));
}

TEST_F(RouteCheck, IsNotOkWhenFilesCouldNotBeConverted) {
    rig_.folder.Write(RouteRig::Route("r1") + "\\Scenery\\b.bin", "no game file");
    Check();
    EXPECT_THAT(rig_.reports.texts, ElementsAre("1 file(s) could not be converted:-\r\n\r\n" +
                                                (rig_.folder / "Game\\Content\\Routes\\r1\\Scenery\\b.bin") + "\r\n"));
}

TEST_F(RouteCheck, ClearsTempFilesButForWhatIsRecovered) {
    rig_.folder.Write("Kit\\TempFiles\\old.xml", "x");
    rig_.folder.Write("Kit\\TempFiles\\Sub\\old.xml", "x");
    rig_.folder.Write("Kit\\TempFiles\\Recovered\\Routes.xml", "kept");
    WriteTile("Scenery\\a.bin", "");
    Check({Answer::No, Answer::No}, 4);
    EXPECT_THAT(rig_.folder.Names("Kit\\TempFiles"), ElementsAre("Recovered"));
    EXPECT_EQ(rig_.folder.Read("Kit\\TempFiles\\Recovered\\Routes.xml"), "kept");
}

TEST_F(RouteCheck, EndsTheListOfScenarios) {
    rig_.MakeScenarios({"Milk"});
    rig_.List({0});
    Check();
    EXPECT_FALSE(rig_.window.hasScenarios);
    EXPECT_FALSE(rig_.window.isBusy);
}

TEST_F(RouteCheck, OfSeveralRoutesTakesTheLast) {
    WriteTile("Scenery\\a.bin", TileReference("P", "Q", "x.xml"));
    rig_.rig.ui.answers = {Answer::No, Answer::No};
    const std::vector<std::size_t> both{0, 1};
    routes::CheckRoute(rig_.context, rig_.window, both, rig_.reports, {.jobs = 1});
    EXPECT_THAT(rig_.reports.texts, ElementsAre(kNothingMissing));
}

constexpr const char* kMillGeometry = "<GeometryID>P\\Q\\Scenery\\[00]Mill</GeometryID>\r\n";

TEST_F(RouteCheck, FindsTheTexturesOfAShape) {
    WriteTile("Scenery\\a.bin", TileReference("P", "Q", "Scenery\\Mill.xml"));
    WriteBlueprint("P\\Q\\Scenery\\Mill.bin", kMillGeometry);
    WriteShape("P\\Q\\Scenery\\Mill.GeoPcDx", "<e>..\\Textures\\[00]Brick</e>\r\n<e>[00]Textures\\Slate</e>\r\n");
    rig_.folder.Write("Game\\Assets\\P\\Q\\Textures\\Brick.TgPcDx", "x");
    const CheckResult result = Check({Answer::No, Answer::Yes, Answer::Yes});
    const std::string brick = Asset("P\\Q\\Textures\\Brick.TgPcDx");
    const std::string slate = Asset("P\\Q\\Scenery\\Textures\\Slate.TgPcDx");
    ASSERT_TRUE(result.textures);
    EXPECT_THAT(*result.textures, ElementsAre(slate, brick));
    EXPECT_THAT(rig_.reports.texts, ElementsAre(kNothingMissing, slate + "\r\n" + brick + "\r\n",
                                                "Texture Check:-\r\n\r\n" + slate + "\r\n"));
    EXPECT_THAT(rig_.window.List3, ElementsAre(Asset("P\\Q\\Scenery\\Mill.bin")));
}

TEST_F(RouteCheck, ConvertsACopyOfTheShape) {
    WriteTile("Scenery\\a.bin", TileReference("P", "Q", "Scenery\\Mill.xml"));
    WriteBlueprint("P\\Q\\Scenery\\Mill.bin", kMillGeometry);
    WriteShape("P\\Q\\Scenery\\Mill.GeoPcDx", "");
    Check({Answer::No, Answer::Yes, Answer::No});
    const std::string base = rig_.folder / "Kit\\TempFiles\\Mill.";
    EXPECT_EQ(rig_.rig.processes.starts.back().commandLine, "serz.exe \"" + base + "bin\" xml:\"" + base + "xml\"");
    EXPECT_THAT(rig_.folder.Names("Kit\\TempFiles"), IsEmpty());
}

TEST_F(RouteCheck, GoesOnToTheNextShapeWhenOneIsMissing) {
    WriteTile("Scenery\\a.bin", TileReference("P", "Q", "Mill.xml"));
    WriteBlueprint("P\\Q\\Mill.bin", "<GeometryID>P\\Q\\[00]Gone</GeometryID>\r\n<GeometryID>P\\Q\\Plain</GeometryID>"
                                     "\r\n<GeometryID>P\\Q\\[00]Mill</GeometryID>\r\n"
                                     "<GeometryID>P\\Q\\[00]Never</GeometryID>\r\n");
    WriteShape("P\\Q\\Mill.GeoPcDx", "");
    Check({Answer::No, Answer::Yes, Answer::No});
    EXPECT_EQ(rig_.reports.texts.back(), "Texture Check:-\r\n\r\nP\\Q\\Gone\r\n");
}

TEST_F(RouteCheck, NamesABlueprintThatIsMissing) {
    WriteTile("Scenery\\a.bin", TileReference("P", "Q", "Son&apos;s.xml"));
    Check({Answer::No, Answer::Yes, Answer::No});
    EXPECT_EQ(rig_.reports.texts.back(),
              "Texture Check:-\r\n\r\nShape file missing:-  " + Asset("P\\Q\\Son's.bin") + "\r\n");
}

TEST_F(RouteCheck, NamesBlueprintsAndShapesThatCannotBeConverted) {
    WriteTile("Scenery\\a.bin", TileReference("P", "Q", "Bad.xml") + TileReference("P", "Q", "Mill.xml"));
    rig_.folder.Write("Game\\Assets\\P\\Q\\Bad.bin", "no game file");
    WriteBlueprint("P\\Q\\Mill.bin", "<GeometryID>P\\Q\\[00]Mill</GeometryID>\r\n");
    rig_.folder.Write("Game\\Assets\\P\\Q\\Mill.GeoPcDx", "no game file");
    Check({Answer::No, Answer::Yes, Answer::No});
    EXPECT_EQ(rig_.reports.texts.back(), "Texture Check:-\r\n\r\n\r\n2 file(s) could not be converted:-\r\n\r\n" +
                                             Asset("P\\Q\\Bad.bin") + "\r\n" + Asset("P\\Q\\Mill.GeoPcDx") + "\r\n");
}

/// A route with some of everything, checked with `jobs` converters at a time.
std::vector<std::string> ReportsWith(std::size_t jobs, int looksBeforeEnd) {
    RouteRig rig;
    rig.MakeRoutes({"Alder"});
    for (int i = 0; i < 40; ++i) {
        const std::string n = std::to_string(i);
        const std::string tile = RouteRig::Route("r1") + "\\Scenery\\" + n + ".bin";
        if (i % 7 == 0) {
            rig.folder.Write(tile, "broken");
            continue;
        }
        rig.folder.Write(tile, GameFile("<t>\r\n" + TileReference("P", "Q", "b" + n + ".xml") +
                                        TileReference("P", "Q", "gone" + n + ".xml")));
        rig.folder.Write("Game\\Assets\\P\\Q\\b" + n + ".bin",
                         GameFile("<b>\r\n<GeometryID>P\\Q\\[00]none" + n + "</GeometryID>\r\n<GeometryID>P\\Q\\[00]s" +
                                  std::to_string(i % 5) + "</GeometryID>\r\n"));
        rig.folder.Write(
            "Game\\Assets\\P\\Q\\s" + std::to_string(i % 5) + ".GeoPcDx",
            GameFile("<s>\r\n<TextureByName>\r\n<e>text" + std::to_string(i % 5) + "</e>\r\n</TextureByName>\r\n"));
    }
    rig.rig.processes.looksBeforeEnd = looksBeforeEnd;
    rig.rig.ui.answers = {Answer::Yes, Answer::Yes, Answer::Yes};
    const std::vector<std::size_t> first{0};
    routes::CheckRoute(rig.context, rig.window, first, rig.reports, {.jobs = jobs});
    for (std::string& text : rig.reports.texts)
        text = text::ReplaceAll(text, rig.folder.Path(), "");
    return rig.reports.texts;
}

TEST(OverlappingCheck, ReportsTheSameAsOneAtATime) {
    const std::vector<std::string> alone = ReportsWith(1, 0);
    ASSERT_EQ(alone.size(), 4U);
    EXPECT_THAT(alone[1], HasSubstr("gone39.bin"));
    EXPECT_THAT(alone[3], HasSubstr("none39"));
    EXPECT_EQ(ReportsWith(2, 1), alone);
    EXPECT_EQ(ReportsWith(8, 3), alone);
}

TEST_F(RouteCheck, ShowsProgress) {
    WriteTile("Scenery\\a.bin", "");
    WriteTile("Networks\\Loft Tiles\\b.bin", "");
    Check();
    ASSERT_FALSE(rig_.rig.ui.ProgressShown().empty());
    const platform::Progress& first = rig_.rig.ui.ProgressShown().front();
    EXPECT_EQ(first.total, 2U);
    EXPECT_EQ(first.done, 0U);
    EXPECT_EQ(first.current, "a.bin");
}

TEST_F(RouteCheck, ThatIsCancelledReportsWhatItFoundAsIncomplete) {
    WriteTile("Scenery\\a.bin", TileReference("P", "Q", "x.xml"));
    WriteTile("Scenery\\b.bin", TileReference("P", "Q", "y.xml"));
    WriteTile("Networks\\Loft Tiles\\c.bin", TileReference("P", "Q", "z.xml"));
    int looks = 0;
    rig_.rig.ui.onEvents = [&](int) { rig_.rig.ui.stopRequested = ++looks == 2; };
    const CheckResult result = Check({});
    EXPECT_EQ(result.ended, Ended::Failed);
    EXPECT_FALSE(result.isComplete);
    EXPECT_THAT(rig_.reports.texts, ElementsAre("INCOMPLETE: the check was cancelled after 1 of 3 files.\r\n\r\n" +
                                                (kMissing + Asset("P\\Q\\x.bin") + "\r\n")));
    EXPECT_EQ(rig_.rig.processes.starts.size(), 2U);
    EXPECT_EQ(rig_.rig.processes.stops, 1);
}

TEST_F(RouteCheck, EndsWhenTheProgressDialogIsCancelled) {
    WriteTile("Scenery\\a.bin", TileReference("P", "Q", "x.xml"));
    rig_.rig.ui.onProgress = [](int) { return false; };
    EXPECT_FALSE(Check({}).isComplete);
    EXPECT_THAT(rig_.reports.texts, ElementsAre("INCOMPLETE: the check was cancelled after 0 of 1 files.\r\n\r\n"));
}

TEST(DuplicatesMessage, NamesTheSubroutine) {
    EXPECT_EQ(routes::DuplicatesMessage("Overflow"), "An error Overflow occurred in subroutine 'RemD2' please advise "
                                                     "the Tamarind project with details of operation being processed.");
}

TEST(TimeLeft, GoesOnAsUntilNow) {
    using std::chrono::milliseconds;
    using std::chrono::seconds;
    EXPECT_EQ(routes::TimeLeft(milliseconds(2000), 1, 4), seconds(6));
    EXPECT_EQ(routes::TimeLeft(milliseconds(100), 4, 4), seconds(0));
    EXPECT_FALSE(routes::TimeLeft(milliseconds(100), 0, 4));
}

TEST(ProgressText, TellsCountAndTime) {
    platform::Progress progress;
    progress.done = 12;
    progress.total = 300;
    EXPECT_EQ(platform::ProgressText(progress), "12 of 300");
    progress.left = std::chrono::seconds(119);
    EXPECT_EQ(platform::ProgressText(progress), "12 of 300, about 119 s left");
    progress.left = std::chrono::seconds(150);
    EXPECT_EQ(platform::ProgressText(progress), "12 of 300, about 3 min left");
}

class Stock : public testing::Test {
protected:
    Stock() {
        rig_.MakeRoutes({"Alder"});
        rig_.MakeScenarios({"Milk"});
        rig_.List({0});
    }
    std::optional<std::vector<std::string>> List() {
        const std::vector<std::size_t> first{0};
        return routes::ListStock(rig_.context, rig_.window, first);
    }
    static constexpr const char* kScenario = "Game\\Content\\Routes\\r1\\Scenarios\\s1\\Scenario.bin";

    RouteRig rig_;
};

TEST_F(Stock, ListsWhatTheScenarioUses) {
    rig_.folder.Write(kScenario, GameFile("<Provider>P</Provider><Product>Q</Product>"
                                          "<BlueprintID d:type=\"x\">Wren.xml</BlueprintID>"
                                          "<BlueprintID d:type=\"x\">Mail.xml</BlueprintID>"));
    const auto list = List();
    ASSERT_TRUE(list);
    EXPECT_THAT(*list, ElementsAre("P\\Q\\Wren.xml", "P\\Q\\Mail.xml"));
    rig_.folder.Write("Game\\Assets\\P\\Q\\Wren.bin", "x");
    EXPECT_EQ(routes::MissingStock(rig_.context, *list), "P\\Q\\Mail.xml is missing\r\n");
}

TEST_F(Stock, OfAnythingInPlaceReportsNothing) { EXPECT_EQ(routes::MissingStock(rig_.context, {}), ""); }

TEST_F(Stock, KeepsTheOrderOfTheList) {
    EXPECT_EQ(routes::MissingStock(rig_.context, {"b.xml", "a.xml", "b.xml"}),
              "b.xml is missing\r\na.xml is missing\r\nb.xml is missing\r\n");
}

TEST_F(Stock, OfAScenarioThatCannotBeConvertedIsNone) {
    rig_.folder.Write(kScenario, "no game file");
    rig_.folder.Write("Kit\\TempFiles\\Scenario.xml", "an earlier result");
    EXPECT_FALSE(List());
    EXPECT_THAT(rig_.rig.ui.MessageTexts(), ElementsAre(HasSubstr("This scenario could not be converted:\r\n")));
}

TEST(ReportSaving, AsksForAFileInReports) {
    RouteRig rig;
    rig.rig.ui.filePaths = {rig.folder / "Kit\\Reports\\a.txt"};
    EXPECT_TRUE(routes::SaveReport(rig.context, "one\r\n"));
    const platform::FileDialog dialog = rig.rig.ui.FileDialogs().at(0);
    EXPECT_TRUE(dialog.save);
    EXPECT_EQ(dialog.title, "Save Object File");
    EXPECT_EQ(dialog.filter, "Text Files (*.txt)|*.txt");
    EXPECT_EQ(dialog.startFolder, rig.folder / "Kit\\Reports");
    EXPECT_EQ(rig.folder.Read("Kit\\Reports\\a.txt"), "one\r\n");
}

TEST(ReportSaving, ThatIsCancelledWritesNothing) {
    RouteRig rig;
    rig.rig.ui.filePaths = {""};
    EXPECT_FALSE(routes::SaveReport(rig.context, "one\r\n"));
    EXPECT_THAT(rig.folder.Names("Kit\\Reports"), IsEmpty());
}

} // namespace
} // namespace tamarind::tests
