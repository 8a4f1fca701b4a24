#include "cli_program.h"

#include "game/content.h"
#include "serz/binary_format.h"
#include "system/program.h"

#include <gmock/gmock.h>

// The scenario editor's commands, on the sample game.
namespace tamarind::tests {
namespace {

using nlohmann::json;
using samples::ReadFile;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kAlder = "5a1e0d10-0001-4c00-9a10-7a3a21d0a001";
constexpr const char* kMilk = "5a1e0d20-0001-4c00-9a10-7a3a21d0b001";
constexpr const char* kMail = "5a1e0d20-0002-4c00-9a10-7a3a21d0b002";

class ScenarioCli : public CliTest {
protected:
    ScenarioCli() { game_ = samples::WriteSampleGame(folder_); }

    [[nodiscard]] fs::path Route() const { return game_ / "Content" / "Routes" / kAlder; }
    [[nodiscard]] fs::path Scenario() const { return Route() / "Scenarios" / kMilk / "Scenario.bin"; }
    json Show() { return RunJson({"scenario", "show", kAlder, kMilk}, 0)["result"]; }
    std::string Lines() { return Run({"scenario", "show", kAlder, kMilk}).output; }
    /// The XML of a game file, by the open command.
    std::string XmlOf(const fs::path& file) {
        const auto xml = RunJson({"open", samples::Utf8(file)}, 0)["result"]["xml"].get<std::string>();
        return ReadFile(fs::path(std::u8string(xml.begin(), xml.end())));
    }
};

/// The letter case of "content" is the program's own where the system has both in one.
MATCHER_P(IsBackup, path, "names the backup " + samples::Utf8(path)) {
    if (arg.size() != 1 || !arg.contains("backup")) return false;
    const std::string named = arg["backup"];
    return fs::equivalent(fs::path(std::u8string(named.begin(), named.end())), path);
}

TEST_F(ScenarioCli, ShowsFieldsAndConsists) {
    const json report = RunJson({"scenario", "show", kAlder, "Morning Milk"}, 0);
    EXPECT_EQ(report["command"], "scenario show");
    EXPECT_EQ(report["result"]["fields"],
              json::array({"Morning Milk", "Take the empties up the vale.",
                           "Leave the dairy at half past five &amp; stop everywhere.", "0630", "45", "1", "5", "1958",
                           "SEASON_SPRING", "Fernhollow", "AlderVale", "Weather\\Clear.xml"}));
    EXPECT_EQ(report["result"]["consists"],
              json::array({{{"name", "Milk Empties"}, {"vehicles", {"Wren 12", "Salt Van 301", "Salt Van 302"}}},
                           {{"name", "Posta di notte"}, {"vehicles", {"Otter 4", "Mail Coach 7"}}},
                           {{"name", "Loose Consist"}, {"vehicles", {"Salt Van 310"}}},
                           {{"name", "Loose Consist"}, {"vehicles", json::array()}}}));
    EXPECT_TRUE(report["messages"].empty());
}

TEST_F(ScenarioCli, ShowsThemAsLines) {
    const Ran ran = Run({"scenario", "show", kAlder, kMilk});
    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, "Display Name\tMorning Milk\n"
                          "Description\tTake the empties up the vale.\n"
                          "Briefing\tLeave the dairy at half past five &amp; stop everywhere.\n"
                          "Start Time (24 hour)\t0630\n"
                          "Duration (mins)\t45\n"
                          "Start Day\t1\n"
                          "Start Month\t5\n"
                          "Start Year\t1958\n"
                          "Season\tSEASON_SPRING\n"
                          "Weather Provider\tFernhollow\n"
                          "Weather Product\tAlderVale\n"
                          "Weather Blueprint\tWeather\\\\Clear.xml\n"
                          "0\tplayer\tMilk Empties\tWren 12\tSalt Van 301\tSalt Van 302\n"
                          "1\t\tPosta di notte\tOtter 4\tMail Coach 7\n"
                          "2\t\tLoose Consist\tSalt Van 310\n"
                          "3\t\tLoose Consist\n");
}

TEST_F(ScenarioCli, SetsEveryFieldAndShowsItAgain) {
    const std::string before = ReadFile(Route() / "Scenarios.bin");
    const json report = RunJson({"scenario",
                                 "set",
                                 kAlder,
                                 kMilk,
                                 "--display-name",
                                 "Evening Milk",
                                 "--description",
                                 "",
                                 "--briefing",
                                 "Stop nowhere.",
                                 "--start-time",
                                 "2015",
                                 "--duration",
                                 "50",
                                 "--day",
                                 "24",
                                 "--month",
                                 "12",
                                 "--year",
                                 "1961",
                                 "--season",
                                 "SEASON_WINTER",
                                 "--weather-provider",
                                 "Tansywick",
                                 "--weather-product",
                                 "HarbourSet",
                                 "--weather-blueprint",
                                 "Weather\\Snow.xml"},
                                0);
    EXPECT_THAT(report["result"], IsBackup(Route() / "Scenarios.bak"));
    EXPECT_EQ(report["messages"][0]["text"], "Your Scenario File has been updated.");
    EXPECT_EQ(report["messages"][0]["icon"], "information");
    EXPECT_EQ(ReadFile(Route() / "Scenarios.bak"), before);
    EXPECT_EQ(Show()["fields"], json::array({"Evening Milk", "", "Stop nowhere.", "2015", "50", "24", "12", "1961",
                                             "SEASON_WINTER", "Tansywick", "HarbourSet", "Weather\\Snow.xml"}));
    EXPECT_EQ(RunJson({"scenarios", kAlder}, 0)["result"]["scenarios"][0]["name"], "Evening Milk");
}

TEST_F(ScenarioCli, LeavesOtherScenariosAlone) {
    const json before = RunJson({"scenario", "show", kAlder, kMail}, 0)["result"];
    Run({"scenario", "set", kAlder, kMilk, "--display-name", "Evening Milk"});
    EXPECT_EQ(RunJson({"scenario", "show", kAlder, kMail}, 0)["result"], before);
}

TEST_F(ScenarioCli, SavesTheShownStartWhenNothingIsSet) {
    EXPECT_EQ(RunJson({"scenario", "show", kAlder, kMail}, 0)["result"]["fields"][3], "0645"); // 20700 seconds
    EXPECT_EQ(Run({"scenario", "set", kAlder, kMail}).exitCode, 0);
    EXPECT_THAT(XmlOf(Route() / "Scenarios.bin"), HasSubstr(">24300.0000</StartTime>"));
}

TEST_F(ScenarioCli, RefusesAMistakeAndWritesNothing) {
    const std::string before = ReadFile(Route() / "Scenarios.bin");
    const json report = RunJson({"scenario", "set", kAlder, kMilk, "--start-time", "5:30"}, 1);
    EXPECT_EQ(report["messages"][0]["text"], "The time must be in 24hour format, e.g. 0530");
    EXPECT_EQ(report["messages"][0]["icon"], "exclamation");
    EXPECT_TRUE(report["result"].is_null());
    EXPECT_EQ(ReadFile(Route() / "Scenarios.bin"), before);
    EXPECT_FALSE(fs::exists(Route() / "Scenarios.bak"));
}

TEST_F(ScenarioCli, TakesValuesThatBeginWithADash) {
    EXPECT_EQ(Run({"scenario", "set", kAlder, kMilk, "--display-name=-Milk-", "--duration", "-1"}).exitCode, 0);
    const json fields = Show()["fields"];
    EXPECT_EQ(fields[0], "-Milk-");
    EXPECT_EQ(fields[4], "-1");
}

TEST_F(ScenarioCli, LetsThePlayerDriveAnotherConsistAndShowsItAgain) {
    const std::string before = ReadFile(Scenario());
    const json report = RunJson({"scenario", "drive", kAlder, kMilk, "1"}, 0);
    const fs::path backup = Scenario().parent_path() / "Scenario.bak";
    EXPECT_THAT(report["result"], IsBackup(backup));
    EXPECT_EQ(report["messages"][0]["text"], "Your Scenario Driver information has been updated.");
    EXPECT_EQ(ReadFile(backup), before);
    EXPECT_THAT(Lines(), HasSubstr("0\t\tMilk Empties\t"));
    EXPECT_THAT(Lines(), HasSubstr("1\tplayer\tPosta di notte\t"));
    const std::string xml = XmlOf(Scenario());
    EXPECT_THAT(xml, HasSubstr(">1</PlayerDriver>"));
    EXPECT_THAT(xml, Not(HasSubstr(">1</PlayerControlled>")));
}

TEST_F(ScenarioCli, TakesTheFirstDriverOfAllForNoConsist) {
    EXPECT_EQ(Run({"scenario", "drive", kAlder, kMilk, "2"}).exitCode, 0);
    EXPECT_THAT(Lines(), HasSubstr("2\tplayer\tLoose Consist\t"));
    EXPECT_EQ(Run({"scenario", "drive", kAlder, kMilk, "-1"}).exitCode, 0);
    EXPECT_THAT(Lines(), HasSubstr("0\tplayer\tMilk Empties\t"));
}

TEST_F(ScenarioCli, RefusesAConsistThatIsNotThere) {
    for (const char* const number : {"4", "-2"}) {
        const json report = RunJson({"scenario", "drive", kAlder, kMilk, number}, 1);
        EXPECT_EQ(report["messages"][0]["text"],
                  "There is no consist " + std::string(number) + ": the scenario has 4, counted from 0.");
    }
    EXPECT_FALSE(fs::exists(Scenario().parent_path() / "Scenario.bak"));
}

TEST_F(ScenarioCli, TakesNoEmptyWordForTheFirstConsist) {
    EXPECT_EQ(Run({"scenario", "drive", kAlder, kMilk, ""}).exitCode, 2);
    EXPECT_FALSE(fs::exists(Scenario().parent_path() / "Scenario.bak"));
}

// The converter takes no markup that is not whole.
TEST_F(ScenarioCli, PutsTheOldIndexBackWhenTheConverterWritesNothing) {
    const std::string index = ReadFile(Route() / "Scenarios.bin");
    const json report = RunJson({"scenario", "set", kAlder, kMilk, "--display-name", "Milk <b"}, 1);
    ASSERT_EQ(report["messages"].size(), 2U);
    EXPECT_EQ(report["messages"][0]["text"], "Your Scenario File has been updated.");
    EXPECT_THAT(report["messages"][1]["text"].get<std::string>(),
                HasSubstr("Nothing was changed: the converter wrote no new file, and the old one is in its place."));
    EXPECT_EQ(report["messages"][1]["icon"], "exclamation");
    EXPECT_TRUE(report["result"].is_null());
    EXPECT_EQ(ReadFile(Route() / "Scenarios.bin"), index);
    EXPECT_EQ(ReadFile(Route() / "Scenarios.bak"), index);
}

TEST_F(ScenarioCli, PutsTheOldScenarioBackWhenTheConverterWritesNothing) {
    const std::string scenario =
        samples::EncodeBinary("<cScenario><cConsist><PlayerDriver>0</PlayerDriver></cConsist></cScenaria>");
    samples::WriteFile(Scenario(), scenario);
    const json report = RunJson({"scenario", "drive", kAlder, kMilk, "0"}, 1);
    ASSERT_EQ(report["messages"].size(), 2U);
    EXPECT_EQ(report["messages"][0]["text"], "Your Scenario Driver information has been updated.");
    EXPECT_THAT(report["messages"][1]["text"].get<std::string>(), HasSubstr("Nothing was changed"));
    EXPECT_EQ(ReadFile(Scenario()), scenario);
}

TEST_F(ScenarioCli, RefusesAScenarioThatCannotBeConverted) {
    samples::WriteFile(Scenario(), "TSRZ cut");
    const json report = RunJson({"scenario", "show", kAlder, kMilk}, 1);
    EXPECT_THAT(report["messages"][0]["text"].get<std::string>(),
                HasSubstr("This scenario cannot be edited: its file could not be converted."));
    EXPECT_EQ(RunJson({"scenario", "show", kAlder, "Nowhere"}, 1)["messages"][0]["text"],
              "There is no scenario \"Nowhere\".");
}

TEST_F(ScenarioCli, TellsUsage) {
    EXPECT_EQ(Run({"scenario"}).exitCode, 2);
    EXPECT_EQ(Run({"scenario", "show", kAlder}).exitCode, 2);
    EXPECT_EQ(Run({"scenario", "drive", kAlder, kMilk}).exitCode, 2);
    EXPECT_EQ(Run({"scenario", "drive", kAlder, kMilk, "first"}).exitCode, 2);
    EXPECT_EQ(Run({"scenario", "set", kAlder, kMilk, "--colour", "red"}).exitCode, 2);
    EXPECT_THAT(Run({"scenario", "set", "--help"}).output, HasSubstr("--weather-blueprint"));
}

} // namespace
} // namespace tamarind::tests
