#include "cli_program.h"

#include "support/sample_package.h"
#include "system/program.h"

#include <gmock/gmock.h>

// From one game into a package and from that into another game: the whole tree afterwards, byte for byte.
namespace tamarind::tests {
namespace {

using samples::DecodeBinary;
using samples::Differences;
using samples::EncodeBinary;
using samples::ReadFile;
using samples::ReadTree;
using samples::Utf8;
using samples::WriteFile;
using testing::IsEmpty;

using Tree = std::map<std::string, std::string>;

const std::string kAlder(samples::kAlderRoute);
constexpr const char* kMilk = "5a1e0d20-0001-4c00-9a10-7a3a21d0b001";
constexpr const char* kShunt = "5a1e0d20-0003-4c00-9a10-7a3a21d0b003";

/// The record that holds the id, from its tag to its end.
std::string RecordOf(const std::string& index, const std::string& tag, const std::string& id) {
    const std::size_t start = index.rfind("<" + tag, index.find(id));
    const std::string close = "</" + tag + ">";
    return index.substr(start, index.find(close, start) + close.size() - start);
}

/// A text without its one occurrence of a part.
std::string Without(std::string text, const std::string& part) { return text.erase(text.find(part), part.size()); }

/// The author's game, and a player's that has something of its own and lacks what the package brings.
class PackageCircle : public CliTest {
protected:
    PackageCircle() : author_(samples::WriteSampleGame(folder_)) {
        WriteFile(kit_ / "RouteSetup.exe", "setup");
        fs::create_directories(Path("Home"));
        player_ = samples::WriteSampleGame(Path("Home"));
        PutFile(player_ / "Assets/Own/Shed.bin", "the player's own");
    }
    void Package(const std::string& name, const std::vector<std::string>& words) {
        game_ = author_;
        std::vector<std::string> all = {"package"};
        all.insert(all.end(), words.begin(), words.end());
        const Ran ran = Run(all, WithOwnCopyProgram());
        EXPECT_EQ(ran.exitCode, 0) << ran.errors;
        package_ = kit_ / name;
        EXPECT_EQ(ran.output, Shown(package_) + "\n");
    }
    void Install() {
        game_ = player_;
        const Ran ran = Run({"--yes", "install", Utf8(package_)});
        EXPECT_EQ(ran.exitCode, 0) << ran.errors;
    }
    /// A tree with the author's files below a folder, and without what every installation deletes.
    [[nodiscard]] Tree With(Tree tree, const std::string& folder) const {
        for (const auto& [name, bytes] : ReadTree(author_ / folder))
            tree.insert_or_assign(folder + "/" + name, bytes);
        for (const char* const name : {"RailSimulator", "RailSimulatorUS", "RailSimulatorCore"})
            tree.erase("Assets/Kuju/" + std::string(name) + "/BluePrints.pak");
        return tree;
    }

    fs::path author_;
    fs::path player_;
    fs::path package_;
};

TEST_F(PackageCircle, BringsARouteToAnotherGame) {
    const std::string folder = "Content/Routes/" + kAlder;
    const std::string record = RecordOf(ReadFile(author_ / "Content/Routes.xml"), "cRouteProperties", kAlder);
    const std::string old = Without(ReadFile(player_ / "Content/Routes.xml"), record + "\r\n");
    WriteFile(player_ / "Content/Routes.xml", old);
    fs::remove_all(player_ / folder);
    Tree expected = With(ReadTree(player_), folder);
    expected["Content/Routes.xml"] = WithRecordAtTheEnd(old, record + "\r\n");
    expected["Content/Routes.xml.bak"] = old;

    Package("Alder Vale to Quillmouth", {"route", kAlder});
    Install();
    EXPECT_THAT(Differences(ReadTree(player_), expected), IsEmpty());
    // Once more: the record is replaced by itself.
    Install();
    expected["Content/Routes.xml.bak"] = expected["Content/Routes.xml"];
    EXPECT_THAT(Differences(ReadTree(player_), expected), IsEmpty());
}

TEST_F(PackageCircle, BringsScenariosToAnotherGame) {
    const std::string route = "Content/Routes/" + kAlder;
    const std::string scenarios = route + "/Scenarios/";
    const std::string index = DecodeBinary(ReadFile(author_ / route / "Scenarios.bin")).value_or("");
    const std::string shunt = RecordOf(index, "cScenarioProperties", kShunt);
    const std::string milk = RecordOf(index, "cScenarioProperties", kMilk);
    // The player has no shunt, and an older milk train.
    const std::string old = Without(index, "\t\t" + shunt + "\r\n");
    WriteFile(player_ / route / "Scenarios.bin", EncodeBinary(old));
    fs::remove_all(player_ / (scenarios + kShunt));
    WriteFile(player_ / (scenarios + kMilk) / "Scenario.bin", "older");
    fs::copy_file(samples::ProgramFolder() / SERZ_NAME, player_ / "serz.exe");
    const std::string oldFile = ReadFile(player_ / route / "Scenarios.bin");
    Tree expected = With(With(ReadTree(player_), scenarios + kShunt), scenarios + kMilk);
    expected[route + "/Scenarios.bin"] =
        EncodeBinary(WithRecordAtTheEnd(WithoutRecord(old, kMilk), shunt + "\r\n" + milk + "\r\n"));
    expected[route + "/Scenarios.bak"] = oldFile;

    Package(kShunt, {"scenarios", kAlder, kShunt, kMilk});
    Install();
    EXPECT_THAT(Differences(ReadTree(player_), expected), IsEmpty());
}

TEST_F(PackageCircle, BringsAssetsToAnotherGame) {
    const std::string folder = "Assets/Tansywick/HarbourSet";
    fs::remove_all(player_ / folder);
    PutFile(player_ / "Source/Fernhollow/own.txt", "stays");
    const Tree expected = With(With(ReadTree(player_), folder), "Source/Fernhollow");

    Package("HarbourSet", {"assets", Utf8(author_ / folder), Utf8(author_ / "Source/Fernhollow")});
    Install();
    EXPECT_THAT(Differences(ReadTree(player_), expected), IsEmpty());
}

TEST_F(PackageCircle, GivesPackagesThatAreWhole) {
    Package("Alder Vale to Quillmouth", {"route", kAlder});
    EXPECT_EQ(Run({"package", "verify", Utf8(package_)}).exitCode, 0);
    Package(kShunt, {"scenarios", kAlder, kShunt});
    EXPECT_EQ(Run({"package", "verify", Utf8(package_)}).exitCode, 0);
    Package("HarbourSet", {"assets", Utf8(author_ / "Assets/Tansywick/HarbourSet")});
    EXPECT_EQ(Run({"package", "verify", Utf8(package_)}).exitCode, 0);
}

} // namespace
} // namespace tamarind::tests
