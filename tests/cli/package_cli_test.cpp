#include "cli_program.h"

#include "game/content.h"
#include "system/program.h"

#include <gmock/gmock.h>

#include <map>

namespace tamarind::tests {
namespace {

using nlohmann::json;
using samples::ReadFile;
using samples::ReadTree;
using samples::Utf8;
using samples::WriteFile;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kAlder = "5a1e0d10-0001-4c00-9a10-7a3a21d0a001";
constexpr const char* kMilk = "5a1e0d20-0001-4c00-9a10-7a3a21d0b001";
constexpr const char* kMail = "5a1e0d20-0002-4c00-9a10-7a3a21d0b002";
constexpr const char* kShunt = "5a1e0d20-0003-4c00-9a10-7a3a21d0b003";

using Content = std::map<std::string, std::string>;

/// The sample game, and any bytes for the setup program.
class PackageCli : public CliTest {
protected:
    PackageCli() {
        game_ = samples::WriteSampleGame(folder_);
        WriteFile(kit_ / "RouteSetup.exe", "any\r\nbytes\x1A");
    }
    json Json(const std::vector<std::string>& words, int exitCode = 0) {
        return RunJson(words, exitCode, environment_);
    }

    Environment environment_ = WithOwnCopyProgram();
};

// Names of tests are names of folders, and with a package of scenarios below them paths come close to 260 characters.

/// The record that holds the id, cut out by hand.
std::string Record(const std::string& index, const std::string& tag, const std::string& id) {
    const std::size_t start = index.rfind("<" + tag, index.find(id));
    const std::string close = "</" + tag + ">";
    return index.substr(start, index.find(close, start) + close.size() - start);
}

TEST_F(PackageCli, RoutePackagesTheWholeRoute) {
    const std::string name = "Alder Vale to Quillmouth";
    const Content before = ReadTree(game_);
    const json report = Json({"package", "route", kAlder});
    EXPECT_EQ(report["result"], (json{{"folder", Shown(kit_ / name)}}));
    const json expected = {
        {"icon", "information"},
        {"title", "Tamarind"},
        {"text", "You may now zip up the folder " + Shown(kit_ / name) + "\r\nready for distribution."},
        {"buttons", "ok"},
        {"answer", "ok"}};
    EXPECT_EQ(report["messages"], json::array({expected}));
    Content wanted;
    for (const auto& [path, bytes] : ReadTree(game_ / "Content" / "Routes" / kAlder))
        wanted["Rail Simulator/Content/Routes/" + std::string(kAlder) + "/" + path] = bytes;
    wanted["RouteSetup.exe"] = "any\r\nbytes\x1A";
    wanted["Route_Setup.xxx"] = Record(ReadFile(game_ / "Content" / "Routes.xml"), "cRouteProperties", kAlder) + "\r\n";
    EXPECT_EQ(ReadTree(kit_ / name), wanted);
    EXPECT_EQ(ReadTree(game_), before);
}

TEST_F(PackageCli, RouteTakesADisplayNameAndPrintsTheFolder) {
    const Ran ran = Run({"package", "route", "Thornby & Marrow Junction"}, environment_);
    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, Shown(kit_ / "Thornby &amp; Marrow Junction") + "\n");
    EXPECT_THAT(ran.errors, HasSubstr("You may now zip up the folder "));
}

TEST_F(PackageCli, RouteWithoutTheSetupProgramFails) {
    fs::remove(kit_ / "RouteSetup.exe");
    const json report = Json({"package", "route", kAlder}, 1);
    EXPECT_TRUE(report["result"].is_null());
    EXPECT_TRUE(report["error"].is_null());
    EXPECT_THAT(report["messages"][0]["text"].get<std::string>(),
                HasSubstr("The route could not be packaged: File not found"));
    EXPECT_THAT(Names("Kit/Alder Vale to Quillmouth"), ElementsAre("Rail Simulator", "Route_Setup.xxx"));
}

TEST_F(PackageCli, RouteThatIsNotThereFails) {
    EXPECT_EQ(Json({"package", "route", "Nowhere"}, 1)["messages"][0]["text"], "There is no route \"Nowhere\".");
}

TEST_F(PackageCli, ScenariosStayInOrder) {
    fs::create_directories(kit_ / "TempFiles");
    WriteFile(kit_ / "TempFiles" / "Scenario.zzz", "left over");
    const json report = Json({"package", "scenarios", "Alder Vale to Quillmouth", "Harbour Shunt & Return", kMilk});
    const fs::path package = kit_ / kShunt;
    EXPECT_EQ(report["result"], (json{{"folder", Shown(package)}}));
    EXPECT_EQ(report["messages"][0]["text"], "Your Scenarios are now saved in \r\n" + Shown(package) +
                                                 "\r\nYou may now zip up this folder and distribute it.");
    const std::string index = ReadFile(kit_ / "TempFiles" / "Scenarios.xml");
    const std::string scenarios = "Content/Routes/" + std::string(kAlder) + "/Scenarios/";
    Content wanted;
    for (const char* id : {kShunt, kMilk}) {
        for (const auto& [path, bytes] : ReadTree(game_ / scenarios / id))
            wanted["Rail Simulator/content" + scenarios.substr(7) + id + "/" + path] = bytes;
    }
    wanted["AssetSetup.exe"] = "any\r\nbytes\x1A";
    wanted["Scenario.yyy"] = std::string(kAlder) + "\r\n" + kShunt + "\r\n" + kMilk + "\r\n";
    wanted["Scenario.zzz"] =
        Record(index, "cScenarioProperties", kShunt) + "\r\n" + Record(index, "cScenarioProperties", kMilk) + "\r\n";
    EXPECT_EQ(ReadTree(package), wanted);
}

TEST_F(PackageCli, ScenariosThatAreNotThereFailBeforeAnythingIsMade) {
    const json report = Json({"package", "scenarios", kAlder, kMail, "Nowhere"}, 1);
    EXPECT_EQ(report["messages"][0]["text"], "There is no scenario \"Nowhere\".");
    EXPECT_FALSE(fs::exists(kit_ / kMail));
}

TEST_F(PackageCli, ScenariosNeedTheSetup) {
    fs::remove(kit_ / "RouteSetup.exe");
    const json report = Json({"package", "scenarios", kAlder, kMail}, 1);
    EXPECT_EQ(report["messages"][0]["text"], "Error File not found occurred in Command3_click");
    EXPECT_TRUE(fs::exists(kit_ / kMail / "Rail Simulator"));
}

TEST_F(PackageCli, AssetsPackagesFoldersUnderTheNameOfTheFirst) {
    const fs::path first = game_ / "Assets" / "Tansywick" / "HarbourSet";
    const fs::path second = game_ / "Source" / "Fernhollow";
    const json report = Json({"package", "assets", Utf8(first), Utf8(second)});
    EXPECT_EQ(report["result"], (json{{"folder", Shown(kit_ / "HarbourSet")}}));
    EXPECT_EQ(report["messages"][0]["text"], "Your assets are now saved in \r\n" + Shown(kit_ / "HarbourSet") +
                                                 "\r\nYou may now zip up this folder and distribute it.");
    Content wanted{{"AssetSetup.exe", "any\r\nbytes\x1A"}};
    for (const auto& [path, bytes] : ReadTree(first))
        wanted["Rail Simulator/Assets/Tansywick/HarbourSet/" + path] = bytes;
    for (const auto& [path, bytes] : ReadTree(second))
        wanted["Rail Simulator/Source/Fernhollow/" + path] = bytes;
    EXPECT_EQ(ReadTree(kit_ / "HarbourSet"), wanted);
}

TEST_F(PackageCli, AssetsOutsideRailSimulatorAreRefused) {
    const json report = Json({"package", "assets", Utf8(kit_)}, 1);
    EXPECT_THAT(report["messages"][0]["text"].get<std::string>(),
                HasSubstr("its path does not contain \"Rail Simulator\""));
    EXPECT_THAT(Names("Kit"), ElementsAre("RouteSetup.exe", "TempFiles", "serz.exe"));
}

TEST_F(PackageCli, AssetsThatAreNotThereFail) {
    const json report = Json({"package", "assets", Utf8(game_ / "Assets" / "none")}, 1);
    EXPECT_THAT(report["messages"][0]["text"].get<std::string>(), HasSubstr("Path not found"));
}

TEST_F(PackageCli, WrongUsageIsTold) {
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
             {"package"}, {"package", "route"}, {"package", "scenarios", kAlder}, {"package", "assets"}}) {
        EXPECT_EQ(Run(words).exitCode, 2) << testing::PrintToString(words);
    }
    EXPECT_EQ(RunJson({"package", "route"}, 2)["command"], "package route");
}

} // namespace
} // namespace tamarind::tests
