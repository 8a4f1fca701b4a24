#include "cli_program.h"

#include "support/sample_package.h"
#include "system/program.h"

#include <gmock/gmock.h>

// Packages installed into the sample game: the whole tree afterwards, byte for byte.
namespace tamarind::tests {
namespace {

using nlohmann::json;
using samples::DecodeBinary;
using samples::Differences;
using samples::ReadFile;
using samples::ReadTree;
using samples::Utf8;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Tree = std::map<std::string, std::string>;

class CliInstall : public CliTest {
protected:
    CliInstall() : package_(Path("Pack")) {
        game_ = samples::WriteSampleGame(folder_);
        fs::create_directories(package_);
        before_ = ReadTree(game_);
    }
    [[nodiscard]] std::string Alder(const std::string& name) const {
        return "Content/Routes/" + std::string(samples::kAlderRoute) + "/" + name;
    }
    /// What the tree becomes when the package's content is copied over it.
    [[nodiscard]] Tree WithContent() const {
        Tree tree = ReadTree(package_ / "Rail Simulator");
        Tree merged = before_;
        for (auto& [name, bytes] : tree)
            merged[name] = bytes;
        return merged;
    }
    static std::vector<std::string> Texts(const json& report) {
        std::vector<std::string> texts;
        for (const json& message : report["messages"])
            texts.push_back(message["text"]);
        return texts;
    }
    static Tree WithoutPaks(Tree tree) {
        for (const char* const name : {"RailSimulator", "RailSimulatorUS", "RailSimulatorCore"})
            tree.erase("Assets/Kuju/" + std::string(name) + "/BluePrints.pak");
        return tree;
    }

    fs::path package_;
    Tree before_;
};

TEST_F(CliInstall, OfARouteGivesExactlyTheTreeOfTheRules) {
    MakeRoutePackage(package_);
    const json report = RunJson({"--yes", "install", Utf8(package_)}, 0);
    EXPECT_EQ(report["result"], (json{{"mode", 1}}));
    EXPECT_THAT(Texts(report), ElementsAre("You are about to install Route - Moor & Fen\r\n"
                                           "Into your Rail Simulator Routes folder - Please Confirm.",
                                           "Your package has been installed."));
    Tree expected = WithoutPaks(WithContent());
    const std::string index = before_["Content/Routes.xml"];
    expected["Content/Routes.xml"] = WithRecordAtTheEnd(index, kPackedRouteRecord);
    expected["Content/Routes.xml.bak"] = index;
    EXPECT_THAT(Differences(ReadTree(game_), expected), IsEmpty());
    // Once more: its own record is replaced.
    EXPECT_EQ(Run({"--yes", "install", Utf8(package_)}).exitCode, 0);
    expected["Content/Routes.xml.bak"] = expected["Content/Routes.xml"];
    EXPECT_THAT(Differences(ReadTree(game_), expected), IsEmpty());
    EXPECT_THAT(ReadFile(package_ / "RouteSetup.log"), HasSubstr("Routes.xml.bak"));
}

TEST_F(CliInstall, OfScenariosGivesExactlyTheTreeOfTheRules) {
    MakeScenarioPackage(package_);
    fs::copy_file(samples::ProgramFolder() / SERZ_NAME, game_ / "serz.exe");
    before_ = ReadTree(game_);
    const json report = RunJson({"install", Utf8(package_)}, 0);
    EXPECT_EQ(report["result"], (json{{"mode", 2}}));
    EXPECT_THAT(Texts(report), ElementsAre("Your package has been installed."));
    Tree expected = WithoutPaks(WithContent());
    const std::string old = before_[Alder("Scenarios.bin")];
    const std::string index = DecodeBinary(old).value_or("");
    expected[Alder("Scenarios.bin")] =
        samples::EncodeBinary(WithRecordAtTheEnd(WithoutRecord(index, kPackedScenario), kPackedScenarioRecord));
    expected[Alder("Scenarios.bak")] = old;
    EXPECT_THAT(Differences(ReadTree(game_), expected), IsEmpty());
}

TEST_F(CliInstall, OfAssetsGivesExactlyTheTreeOfTheRules) {
    PutFile(package_ / "Rail Simulator/Assets/Fernhollow/Thing.bin", "thing");
    PutFile(package_ / "Rail Simulator/Assets/FERNHOLLOW.txt", "text");
    const json report = RunJson({"install", Utf8(package_)}, 0);
    EXPECT_EQ(report["result"], (json{{"mode", 3}}));
    Tree expected = WithoutPaks(before_);
    expected["Assets/Fernhollow/Thing.bin"] = "thing";
    expected["Assets/FERNHOLLOW.txt"] = "text";
    EXPECT_THAT(Differences(ReadTree(game_), expected), IsEmpty());
}

TEST_F(CliInstall, PrefersTheConverterOfThePackage) {
    MakeScenarioPackage(package_);
    fs::copy_file(samples::ProgramFolder() / SERZ_NAME, package_ / "serz.exe");
    samples::WriteFile(game_ / "serz.exe", "no program");
    EXPECT_EQ(Run({"install", Utf8(package_)}).exitCode, 0);
}

TEST_F(CliInstall, GoesOnWithoutAConverterThatWorksAndSaysSo) {
    MakeScenarioPackage(package_);
    fs::copy_file(samples::ProgramFolder() / SERZ_NAME, package_ / "serz.exe");
    std::vector<std::string> words = {"install", Utf8(package_)};
    const Ran ran = Run(words, {{"TAMARIND_SERZ_FAIL", "1"}});
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_THAT(ran.errors, HasSubstr("Your package has been installed.\nThe scenarios could not be added"));
    EXPECT_EQ(ReadTree(game_)[Alder("Scenarios.bin")], before_[Alder("Scenarios.bin")]);
}

TEST_F(CliInstall, OfARouteEndsAfterNo) {
    MakeRoutePackage(package_);
    EXPECT_EQ(Run({"--no", "install", Utf8(package_)}).exitCode, 3);
    EXPECT_THAT(Differences(ReadTree(game_), before_), IsEmpty());
}

TEST_F(CliInstall, OverWriteProtectedFilesIsDoneInTwoRuns) {
    MakeRoutePackage(package_);
    const fs::path tile = game_ / "Content/Routes" / kPackedRoute / "RouteProperties.xml";
    PutFile(tile, "old");
    fs::permissions(tile, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
    const Ran first = Run({"--yes", "install", Utf8(package_)});
    EXPECT_EQ(first.exitCode, 1);
    EXPECT_THAT(first.errors, HasSubstr("All files are now Read/Write"));
    EXPECT_EQ(ReadFile(tile), "old");
    EXPECT_EQ(Run({"--yes", "install", Utf8(package_)}).exitCode, 0);
    EXPECT_EQ(ReadFile(tile), "properties");
}

TEST_F(CliInstall, SaysBeforehandWhatItWillDo) {
    MakeRoutePackage(package_);
    EXPECT_THAT(Run({"--no", "install", Utf8(package_)}).errors,
                testing::StartsWith("Route: Moor & Fen\nFiles: 2, 19 bytes\nTarget: "));
}

TEST_F(CliInstall, NeedsAPackage) {
    const Ran ran = Run({"install", Utf8(Path("missing"))});
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_THAT(ran.errors, HasSubstr("There is no folder"));
}

TEST_F(CliInstall, TakesNoEmptyWordForTheCurrentFolder) {
    for (const std::vector<std::string>& words : {std::vector<std::string>{"install", ""}, {"package", "verify", ""}}) {
        const Ran ran = Run(words);
        EXPECT_EQ(ran.exitCode, 1);
        EXPECT_THAT(ran.errors, HasSubstr("There is no folder \"\"."));
    }
}

TEST_F(CliInstall, VerifyReportsAWholePackage) {
    MakeRoutePackage(package_);
    PutFile(package_ / "RouteSetup.exe", "MZ");
    const json report = RunJson({"package", "verify", Utf8(package_)}, 0);
    EXPECT_EQ(report["result"]["kind"], "route");
    EXPECT_EQ(report["result"]["records"], json::parse(R"([{"id": "5a1e0d10-0009-4c00-9a10-7a3a21d0a009",
                                                            "name": "Moor & Fen"}])"));
    EXPECT_EQ(report["result"]["files"].size(), 2U);
    EXPECT_TRUE(report["result"]["problems"].empty());
}

TEST_F(CliInstall, VerifyFailsWhereSomethingIsOdd) {
    MakeScenarioPackage(package_);
    const Ran ran = Run({"package", "verify", Utf8(package_)});
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_THAT(ran.output,
                HasSubstr("kind\tscenario\nrecord\t5a1e0d20-0002-4c00-9a10-7a3a21d0b002\tNew Mail\nfile\t"));
    EXPECT_THAT(ran.output, HasSubstr("problem\tThe setup program \"AssetSetup.exe\" is missing.\n"));
}

} // namespace
} // namespace tamarind::tests
