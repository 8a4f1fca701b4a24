#include "cli_program.h"

#include "game/content.h"
#include "system/program.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tamarind::tests {
namespace {

using nlohmann::json;
using samples::ReadFile;
using samples::Utf8;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kAlder = "5a1e0d10-0001-4c00-9a10-7a3a21d0a001";
constexpr const char* kBois = "5a1e0d10-0002-4c00-9a10-7a3a21d0a002";
constexpr const char* kMilk = "5a1e0d20-0001-4c00-9a10-7a3a21d0b001";
constexpr const char* kMail = "5a1e0d20-0002-4c00-9a10-7a3a21d0b002";

/// The sample game, and a trash of the test's own where the system lets one choose.
class RouteCli : public CliTest {
protected:
    RouteCli() { game_ = samples::WriteSampleGame(folder_); }

    Ran RunHere(const std::vector<std::string>& words) { return Run(words, environment_); }
    json Json(const std::vector<std::string>& words, int exitCode = 0) {
        return RunJson(words, exitCode, environment_);
    }

    /// A path below the game's Assets as reports name it, in the program's spelling.
    [[nodiscard]] std::string Asset(const std::string& name) const {
        std::string path = Utf8(game_.lexically_normal()) + "\\Assets\\" + name;
        std::replace(path.begin(), path.end(), '/', '\\');
        return path;
    }
    [[nodiscard]] fs::path Route(const std::string& id) const { return game_ / "Content" / "Routes" / id; }

    Environment environment_{{"XDG_DATA_HOME", Utf8(Path("Data"))}};
};

TEST_F(RouteCli, ListsRoutes) {
    const Ran ran = RunHere({"routes"});
    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, "5a1e0d10-0001-4c00-9a10-7a3a21d0a001\tAlder Vale to Quillmouth\n"
                          "5a1e0d10-0002-4c00-9a10-7a3a21d0a002\tLigne du Bois Perdu\n"
                          "5a1e0d10-0003-4c00-9a10-7a3a21d0a003\tThornby &amp; Marrow Junction\n");
    EXPECT_EQ(Json({"routes"})["result"]["routes"][1], (json{{"id", kBois}, {"name", "Ligne du Bois Perdu"}}));
}

TEST_F(RouteCli, ListsTheScenariosOfARouteByIdOrName) {
    const json byId = Json({"scenarios", kAlder});
    EXPECT_EQ(byId["result"]["scenarios"].size(), 3U);
    EXPECT_EQ(byId["result"]["scenarios"][0], (json{{"id", kMilk}, {"name", "Morning Milk"}}));
    EXPECT_EQ(Json({"scenarios", "alder vale to quillmouth"})["result"], byId["result"]);
    EXPECT_EQ(Json({"scenarios", "Thornby & Marrow Junction"})["result"]["scenarios"], json::array());
}

TEST_F(RouteCli, RefusesARouteThatIsNotThere) {
    const json report = Json({"scenarios", "Nowhere"}, 1);
    EXPECT_EQ(report["messages"][0]["text"], "There is no route \"Nowhere\".");
    EXPECT_EQ(report["messages"][0]["icon"], "exclamation");
    EXPECT_TRUE(report["result"].is_null());
}

TEST_F(RouteCli, RefusesANameThatTwoRoutesBear) {
    samples::WriteFile(game_ / "Content" / "Routes.xml", "<DevString>a</DevString><English>Same</English>"
                                                         "<DevString>b</DevString><English>Same</English>");
    EXPECT_EQ(Json({"check", "Same"}, 1)["messages"][0]["text"],
              "More than one route is called \"Same\"; please give its id.");
}

TEST_F(RouteCli, EndsWithTheErrorOfARoutesIndexThatIsCutOff) {
    samples::WriteFile(game_ / "Content" / "Routes.xml", "<DevString>a</DevString><English>Sa");
    const json report = Json({"routes"}, 1);
    EXPECT_EQ(report["error"]["number"], 5);
}

TEST_F(RouteCli, ListsStockAndWhatIsMissingOfIt) {
    const json result = Json({"stock", kAlder, "Morning Milk"})["result"];
    EXPECT_EQ(result["list"].size(), 7U);
    EXPECT_EQ(result["list"][0], "Fernhollow\\AlderVale\\RailVehicles\\Steam\\Wren\\Wren.xml");
    EXPECT_EQ(result["report"], "Tansywick\\HarbourSet\\RailVehicles\\Coaches\\Mail\\Mail.xml is missing\r\n");
}

TEST_F(RouteCli, ChecksARoute) {
    const json report = Json({"check", kAlder});
    EXPECT_EQ(report["result"]["reports"],
              json::array({"Following item(s) were missing from this route:-\r\n\r\n" +
                           Asset("Fernhollow\\AlderVale\\Scenery\\Buildings\\Windmill.bin") + "\r\n" +
                           Asset("Fernhollow\\AlderVale\\Scenery\\Buildings\\Smith & Son's Forge.bin") + "\r\n"}));
    EXPECT_EQ(report["result"]["shapes"].size(), 6U); // mill, forge, hut, fence, lane, crane
    EXPECT_TRUE(report["result"]["textures"].is_null());
    ASSERT_EQ(report["messages"].size(), 2U);
    EXPECT_EQ(report["messages"][0]["answer"], "no");
    EXPECT_EQ(report["messages"][1]["text"], "Would you like to check for missing Textures ?");
}

TEST_F(RouteCli, ChecksTexturesWhenAsked) {
    const json report = Json({"check", kAlder, "--list-shapes", "--textures", "--list-textures"});
    const json& reports = report["result"]["reports"];
    ASSERT_EQ(reports.size(), 4U);
    EXPECT_EQ(reports[2], Asset("Fernhollow\\AlderVale\\Scenery\\Textures\\Brick.TgPcDx") + "\r\n" +
                              Asset("Fernhollow\\AlderVale\\Scenery\\Textures\\Slate.TgPcDx") + "\r\n" +
                              Asset("Tansywick\\HarbourSet\\Textures\\Board.TgPcDx") + "\r\n");
    EXPECT_EQ(reports[3], "Texture Check:-\r\n\r\nShape file missing:-  " +
                              Asset("Fernhollow\\AlderVale\\Scenery\\Buildings\\Smith & Son's Forge.bin") +
                              "\r\nFernhollow\\AlderVale\\Scenery\\Structures\\SignalHut\r\n");
    for (const json& message : report["messages"])
        EXPECT_EQ(message["answer"], "yes");
}

TEST_F(RouteCli, ChecksARouteWithoutRoadsAndWithAllInPlace) {
    const std::vector<std::string> lines = Json({"check", kBois})["result"]["reports"];
    // One of its blueprints bears an apostrophe, and is found.
    EXPECT_THAT(lines, ElementsAre("Route Scenery checked out OK"));
}

TEST_F(RouteCli, ReportsTheSameForAnyNumberOfJobs) {
    const std::vector<std::string> words = {"check", kAlder, "--list-shapes", "--textures", "--list-textures"};
    const auto with = [&](const std::string& jobs) {
        std::vector<std::string> all = words;
        all.insert(all.end(), {"--jobs", jobs});
        return RunHere(all).output;
    };
    const std::string alone = with("1");
    EXPECT_THAT(alone, HasSubstr("Texture Check:-"));
    EXPECT_EQ(with("2"), alone);
    EXPECT_EQ(with("8"), alone);
}

TEST_F(RouteCli, NamesTilesThatCannotBeConverted) {
    samples::WriteFile(Route(kBois) / "Scenery" / "bad.bin", "TSRZ cut");
    const std::vector<std::string> reports = Json({"check", kBois})["result"]["reports"];
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_THAT(reports[0], HasSubstr("1 file(s) could not be converted:-\r\n\r\n"));
    EXPECT_THAT(reports[0], HasSubstr("bad.bin\r\n"));
}

TEST_F(RouteCli, ChecksOnWhenEveryConversionFails) {
    environment_["TAMARIND_SERZ_FAIL"] = "1";
    const std::vector<std::string> reports = Json({"check", kAlder})["result"]["reports"];
    EXPECT_THAT(reports, ElementsAre(HasSubstr("4 file(s) could not be converted:-")));
}

TEST_F(RouteCli, DeletesARouteAfterAQuestion) {
    EXPECT_EQ(RunHere({"delete", "route", kBois, "--no"}).exitCode, 3);
    EXPECT_TRUE(fs::exists(Route(kBois)));
    const std::string index = ReadFile(game_ / "Content" / "Routes.xml");
    const json report = Json({"delete", "route", kBois, "--yes"});
    EXPECT_EQ(report["command"], "delete route");
    EXPECT_EQ(report["result"], (json{{"id", kBois}}));
    EXPECT_FALSE(fs::exists(Route(kBois)));
    EXPECT_THAT(ReadFile(game_ / "Content" / "Routes.xml"), Not(HasSubstr(kBois)));
    EXPECT_EQ(ReadFile(kit_ / "TempFiles" / "Recovered" / "Routes.xml"), index);
    EXPECT_EQ(Json({"routes"})["result"]["routes"].size(), 2U);
}

TEST_F(RouteCli, DeletesScenariosOneAfterTheOther) {
    const fs::path index = Route(kAlder) / "Scenarios.bin";
    const std::string first = ReadFile(index);
    EXPECT_EQ(Json({"delete", "scenario", kAlder, "Morning Milk", "--yes"})["result"], (json{{"id", kMilk}}));
    const std::string second = ReadFile(index);
    EXPECT_EQ(Json({"delete", "scenario", kAlder, kMail, "--yes"})["result"], (json{{"id", kMail}}));
    EXPECT_EQ(ReadFile(Route(kAlder) / "Scenarios.bin.bak"), first);
    EXPECT_EQ(ReadFile(Route(kAlder) / "Scenarios.bin.bak1"), second);
    EXPECT_FALSE(fs::exists(Route(kAlder) / "Scenarios" / kMilk));
    EXPECT_FALSE(fs::exists(Route(kAlder) / "Scenarios" / kMail));
    EXPECT_EQ(Json({"scenarios", kAlder})["result"]["scenarios"].size(), 1U);
}

TEST_F(RouteCli, TellsUsageOfTheDeleteCommands) {
    EXPECT_EQ(RunHere({"delete"}).exitCode, 2);
    EXPECT_EQ(RunHere({"delete", "route"}).exitCode, 2);
    EXPECT_EQ(RunHere({"check", kAlder, "--jobs", "0"}).exitCode, 2);
    EXPECT_THAT(RunHere({"delete", "scenario", "--help"}).output, HasSubstr("SCENARIO"));
}

} // namespace
} // namespace tamarind::tests
