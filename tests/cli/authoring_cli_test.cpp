#include "cli_program.h"

#include "game/content.h"
#include "system/program.h"

#include <gmock/gmock.h>

// Blueprints, and the folders of developers and add-ons, on the sample game.
namespace tamarind::tests {
namespace {

using nlohmann::json;
using samples::ReadFile;
using samples::Utf8;
using samples::WriteFile;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class AuthoringCli : public CliTest {
protected:
    AuthoringCli() {
        game_ = samples::WriteSampleGame(folder_);
        fs::copy(samples::ProgramFolder() / "BluePrints", kit_ / "BluePrints");
        out_ = game_ / "Source" / "Fernhollow" / "AlderVale" / "RouteMarkers";
    }

    static json MessageOf(const std::string& text) {
        return {{"icon", "exclamation"}, {"title", "Tamarind"}, {"text", text}, {"buttons", "ok"}, {"answer", "ok"}};
    }
    /// Folders below `folder`, with "/".
    static std::vector<std::string> FoldersIn(const fs::path& folder) {
        std::vector<std::string> names;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
            const std::u8string name = entry.path().lexically_relative(folder).generic_u8string();
            names.emplace_back(name.begin(), name.end());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    fs::path out_;
};

MATCHER_P2(IsPathOf, key, path, "names " + samples::Utf8(path)) {
    if (arg.size() != 1 || !arg.contains(key)) return false;
    const std::string named = arg[key];
    return fs::equivalent(fs::path(std::u8string(named.begin(), named.end())), path);
}

TEST_F(AuthoringCli, MakesABlueprintOfNamedMarkers) {
    const json report = RunJson({"blueprint", "named", "Halts of the Vale", "Halts", "-o", Utf8(out_)}, 0);
    EXPECT_EQ(report["command"], "blueprint named");
    EXPECT_THAT(report["result"], IsPathOf("file", out_ / "Halts of the Vale.xml"));
    EXPECT_TRUE(report["messages"].empty());
    const std::string xml = ReadFile(out_ / "Halts of the Vale.xml");
    EXPECT_THAT(xml, HasSubstr("<Name d:type=\"text\">Halts of the Vale</Name>"));
    EXPECT_THAT(xml, HasSubstr("<MarkerFile d:type=\"text\">Halts.csv</MarkerFile>"));
    EXPECT_THAT(xml, Not(HasSubstr("ZZZZZZ")));
    EXPECT_THAT(xml, Not(HasSubstr("XXXXXX")));
}

TEST_F(AuthoringCli, MakesABlueprintOfASeriesOfMarkers) {
    const Ran ran = Run({"blueprint", "series", "Line", "Line.CSV", "-o", Utf8(out_)});
    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, Shown(out_ / "Line.xml") + "\n");
    EXPECT_EQ(ran.errors, "");
    const std::string xml = ReadFile(out_ / "Line.xml");
    EXPECT_THAT(xml, HasSubstr("cSeriesMarkerBlueprint"));
    EXPECT_THAT(xml, HasSubstr("<MarkerFile d:type=\"text\">Line.CSV</MarkerFile>"));
}

TEST_F(AuthoringCli, MakesABlueprintOfARouteWithNegativeNumbers) {
    const json report = RunJson({"blueprint", "route", "New Vale", "-1.75", "-51.25", "-o", Utf8(out_)}, 0);
    EXPECT_THAT(report["result"], IsPathOf("file", out_ / "New Vale.xml"));
    const std::string xml = ReadFile(out_ / "New Vale.xml");
    EXPECT_THAT(xml, HasSubstr("<Longitude d:type=\"number\">-1.75</Longitude>"));
    EXPECT_THAT(xml, HasSubstr("<Latitude d:type=\"number\">-51.25</Latitude>"));
}

TEST_F(AuthoringCli, MakesBlueprintsThatTheEditorAndTheConverterRead) {
    ASSERT_EQ(Run({"blueprint", "named", "M\xC3\xBChle", "Halts", "-o", Utf8(out_)}).exitCode, 0);
    const fs::path file = out_ / std::u8string(u8"M\u00FChle.xml");
    EXPECT_THAT(Run({"tree", Utf8(file)}).output, HasSubstr("\tM\xC3\xBChle\n"));
    EXPECT_EQ(samples::SampleTest::Serz(file, "bin:", Path("a.bin")), 0);
}

TEST_F(AuthoringCli, ReplacesAnEarlierBlueprint) {
    WriteFile(out_ / "Halts.xml", "an earlier one");
    EXPECT_EQ(Run({"blueprint", "named", "Halts", "Halts", "-o", Utf8(out_)}).exitCode, 0);
    EXPECT_THAT(ReadFile(out_ / "Halts.xml"), StartsWith("<?xml "));
}

TEST_F(AuthoringCli, RefusesANameThatNoFileCanBear) {
    const json report = RunJson({"blueprint", "named", "a/b", "Halts", "-o", Utf8(out_)}, 1);
    EXPECT_EQ(report["messages"],
              json::array({MessageOf("\"a/b\" cannot be used as a name: please leave out \\ / : * ? \" < > | and "
                                     "control characters.")}));
    EXPECT_TRUE(report["result"].is_null());
    EXPECT_TRUE(report["error"].is_null());
    EXPECT_EQ(Run({"blueprint", "named", "con", "Halts", "-o", Utf8(out_)}).exitCode, 1);
    EXPECT_EQ(Run({"blueprint", "named", "", "Halts", "-o", Utf8(out_)}).exitCode, 1);
    EXPECT_EQ(FoldersIn(out_), std::vector<std::string>{"Halts.csv"});
}

TEST_F(AuthoringCli, TellsOfATemplateOrAFolderThatIsMissing) {
    const json report = RunJson({"blueprint", "named", "Halts", "Halts", "-o", Utf8(out_ / "none")}, 1);
    ASSERT_EQ(report["messages"].size(), 1U);
    EXPECT_THAT(report["messages"][0]["text"].get<std::string>(),
                StartsWith("Path not found occurred in WriteUniFile"));
    fs::remove(kit_ / "BluePrints" / "Blue_Named.xml");
    const Ran ran = Run({"blueprint", "named", "Halts", "Halts", "-o", Utf8(out_)});
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_THAT(ran.errors, HasSubstr("The template of the blueprint cannot be read: File not found"));
    EXPECT_FALSE(fs::exists(out_ / "Halts.xml"));
}

TEST_F(AuthoringCli, MakesADevelopersFolder) {
    const json report = RunJson({"folders", "developer", "My Own"}, 0);
    EXPECT_EQ(report["command"], "folders developer");
    EXPECT_THAT(report["result"], IsPathOf("folder", game_ / "Source" / "My Own"));
    EXPECT_TRUE(fs::is_directory(game_ / "Source" / "My Own"));
}

TEST_F(AuthoringCli, MakesSourceForADeveloperWhereItIsMissing) {
    fs::remove_all(game_ / "Source");
    EXPECT_EQ(Run({"folders", "developer", "Fern"}).exitCode, 0);
    EXPECT_EQ(FoldersIn(game_ / "Source"), std::vector<std::string>{"Fern"});
}

TEST_F(AuthoringCli, RefusesADeveloperThatIsThere) {
    const json report = RunJson({"folders", "developer", "Fernhollow"}, 1);
    EXPECT_EQ(report["messages"],
              json::array({MessageOf("A Developer Folder with that name already exists. Please try again.")}));
    EXPECT_TRUE(report["result"].is_null());
}

TEST_F(AuthoringCli, RefusesDevelopersThatCannotBeFolders) {
    const auto before = FoldersIn(game_);
    for (const char* const name : {"con", "a/b", "a\\b", "Fern.", "..", ""}) {
        EXPECT_EQ(Run({"folders", "developer", name}).exitCode, 1) << name;
        EXPECT_EQ(Run({"folders", "addon", Utf8(game_ / "Source"), name}).exitCode, 1) << name;
    }
    EXPECT_EQ(FoldersIn(game_), before);
}

TEST_F(AuthoringCli, MakesTheFoldersOfAnAddOn) {
    const fs::path addOn = game_ / "Source" / "Fernhollow" / "New Line";
    const json report = RunJson({"folders", "addon", Utf8(addOn.parent_path()), "New Line"}, 0);
    EXPECT_THAT(report["result"], IsPathOf("folder", addOn));
    EXPECT_EQ(FoldersIn(addOn), (std::vector<std::string>{"Audio",
                                                          "Environment",
                                                          "Particles",
                                                          "RailNetwork",
                                                          "RailVehicles",
                                                          "RouteMarkers",
                                                          "Scenery",
                                                          "Scenery/Animated",
                                                          "Scenery/Billboards",
                                                          "Scenery/Brushes",
                                                          "Scenery/Buildings",
                                                          "Scenery/Characters",
                                                          "Scenery/Clocks",
                                                          "Scenery/Clutter",
                                                          "Scenery/DestinationBoards",
                                                          "Scenery/Procedural",
                                                          "Scenery/Structures",
                                                          "Scenery/Vegetation",
                                                          "Scenery/Vehicles",
                                                          "Scenery/Wildlife",
                                                          "Stations",
                                                          "System",
                                                          "TemplateRoutes",
                                                          "Weather"}));
}

TEST_F(AuthoringCli, MakesNothingForAnAddOnThatIsThere) {
    const fs::path addOn = game_ / "Source" / "Fernhollow" / "AlderVale";
    const auto before = FoldersIn(addOn);
    const Ran ran = Run({"folders", "addon", Utf8(addOn.parent_path()), "AlderVale"});
    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, Shown(addOn) + "\n");
    EXPECT_EQ(ran.errors, "It exists already: nothing was made.\n");
    EXPECT_EQ(FoldersIn(addOn), before);
}

TEST_F(AuthoringCli, TellsOfAnAddOnInAFolderThatIsMissing) {
    const Ran ran = Run({"folders", "addon", Utf8(game_ / "none"), "Vale"});
    EXPECT_EQ(ran.exitCode, 1);
    EXPECT_THAT(ran.errors, StartsWith("The add-on's folders could not be made: Path not found"));
    EXPECT_FALSE(fs::exists(game_ / "none"));
}

TEST_F(AuthoringCli, ChecksAFolderOfALoco) {
    const fs::path otter = game_ / "Assets" / "Fernhollow" / "AlderVale" / "RailVehicles" / "Diesel" / "Otter";
    const json accepted = RunJson({"folders", "loco", Utf8(otter)}, 0);
    EXPECT_EQ(accepted["command"], "folders loco");
    EXPECT_THAT(accepted["result"], IsPathOf("folder", otter));
    for (const fs::path& path : {otter.parent_path(), otter / "Textures"}) {
        const json refused = RunJson({"folders", "loco", Utf8(path)}, 1);
        EXPECT_EQ(refused["result"], json({{"folder", nullptr}}));
        EXPECT_EQ(refused["messages"], json::array({MessageOf("You must select a loco folder in the top level, e.g. "
                                                              "Diesel\\Class55 etc")}));
    }
}

TEST_F(AuthoringCli, WrongUsageIsTold) {
    const std::vector<std::vector<std::string>> wrong = {{"blueprint"},
                                                         {"blueprint", "named", "a", "b"},
                                                         {"blueprint", "named", "a", "-o", "d"},
                                                         {"blueprint", "route", "a", "1", "-o", "d"},
                                                         {"blueprint", "other", "a", "b", "-o", "d"},
                                                         {"folders"},
                                                         {"folders", "developer"},
                                                         {"folders", "addon", "a"},
                                                         {"folders", "loco"}};
    for (const auto& words : wrong)
        EXPECT_EQ(Run(words).exitCode, 2) << testing::PrintToString(words);
    EXPECT_THAT(Run({"blueprint", "route", "--help"}).output, HasSubstr("LATITUDE"));
}

} // namespace
} // namespace tamarind::tests
