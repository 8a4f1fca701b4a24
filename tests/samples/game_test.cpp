#include "fixture.h"
#include "game/content.h"
#include "game/pictures.h"
#include "serz/binary_format.h"
#include "serz/xml_check.h"
#include "system/program.h"

#include <algorithm>
#include <array>
#include <set>

namespace tamarind::samples {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kAlder = "Content/Routes/5a1e0d10-0001-4c00-9a10-7a3a21d0a001/";

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end = 0; (end = text.find("\r\n", start)) != std::string::npos; start = end + 2) {
        lines.push_back(text.substr(start, end - start));
    }
    return lines;
}

/// The texts of every element of that name, which has no elements inside it, in order.
std::vector<std::string> Values(const std::string& xml, const std::string& element) {
    std::vector<std::string> values;
    const std::string close = "</" + element + ">";
    std::size_t at = 0;
    while ((at = xml.find("<" + element, at)) != std::string::npos) {
        at += element.size() + 1;
        if (xml[at] == ' ' || xml[at] == '>') {
            const std::size_t start = xml.find('>', at) + 1;
            at = xml.find(close, start);
            values.push_back(xml.substr(start, at - start));
        }
    }
    return values;
}

class SampleGame : public SampleTest {
protected:
    SampleGame() : tree_(ReadTree(WriteSampleGame(folder_))) {}

    const std::string& File(const std::string& name) const {
        static const std::string kNothing;
        const auto found = tree_.find(name);
        EXPECT_NE(found, tree_.end()) << name;
        return found == tree_.end() ? kNothing : found->second;
    }
    std::string Xml(const std::string& name) const { return DecodeBinary(File(name)).value_or(""); }
    /// Whether "Assets" holds that file; the name comes with "\" and the ending is exchanged.
    bool HasAsset(std::string name, const std::string& ending) const {
        std::replace(name.begin(), name.end(), '\\', '/');
        return tree_.contains("Assets/" + name + ending);
    }

    std::map<std::string, std::string> tree_;
};

class SampleGameProgram : public SampleTest {
protected:
    static std::optional<int> Run(const Arguments& arguments) {
        return ChildProgram(ProgramFolder() / SAMPLE_GAME_NAME, arguments, {}).WaitFor(kLongTime);
    }
};

TEST_F(SampleGameProgram, WritesTheSameFilesEveryTime) {
    ASSERT_EQ(Run({Utf8(Path("one"))}), 0);
    ASSERT_EQ(Run({Utf8(Path("two words"))}), 0);
    const auto first = ReadTree(Path("one"));
    EXPECT_TRUE(first.contains("Rail Simulator/RailSim.exe"));
    EXPECT_TRUE(first == ReadTree(Path("two words")));
    ASSERT_EQ(Run({Utf8(Path("one"))}), 0);
    EXPECT_TRUE(first == ReadTree(Path("one")));
}

TEST_F(SampleGameProgram, WantsOneFolder) {
    EXPECT_EQ(Run({}), 2);
    EXPECT_EQ(Run({Utf8(Path("one")), Utf8(Path("two"))}), 2);
}

TEST_F(SampleGameProgram, FailsWhereAFileIsInTheWay) {
    WriteFile(Path("one"), "no folder");
    EXPECT_EQ(Run({Utf8(Path("one"))}), 1);
}

TEST_F(SampleGame, HoldsOnlyWholeXmlInTheConvertersFormat) {
    const std::set<std::string> endings{".bin", ".XSec", ".GeoPcDx", ".TgPcDx"};
    for (const auto& [name, bytes] : tree_) {
        if (endings.contains(fs::path(name).extension().string())) {
            const std::optional<std::string> xml = DecodeBinary(bytes);
            ASSERT_TRUE(xml) << name;
            EXPECT_TRUE(IsBalancedXml(*xml)) << name;
        }
    }
}

TEST_F(SampleGame, HasThreeRoutesWithTheirFolders) {
    const std::vector<std::string> ids = Values(File("Content/Routes.xml"), "DevString");
    ASSERT_EQ(ids.size(), 3U);
    for (const std::string& id : ids) {
        EXPECT_EQ(id.size(), 36U);
        EXPECT_TRUE(tree_.contains("Content/Routes/" + id + "/Scenery/+000000+000000.bin")) << id;
        EXPECT_TRUE(tree_.contains("Content/Routes/" + id + "/Scenarios.bin")) << id;
    }
}

TEST_F(SampleGame, NamesItsRoutesInFiveLanguages) {
    const std::string& routes = File("Content/Routes.xml");
    EXPECT_EQ(Values(routes, "English"),
              (std::vector<std::string>{"Alder Vale to Quillmouth", "", "Thornby &amp; Marrow Junction"}));
    EXPECT_EQ(Values(routes, "French"),
              (std::vector<std::string>{"Val d&apos;Aulne - Quillmouth", "Ligne du Bois Perdu", ""}));
    for (const std::string language : {"Italian", "German", "Spanish"}) {
        EXPECT_EQ(Values(routes, language).size(), 3U) << language;
    }
}

// A record is put after the last ">" before the last "</Record": two characters further stands the line's indent.
TEST_F(SampleGame, EndsTheCatalogueWithALineForTheRecordsEnd) {
    const std::vector<std::string> lines = Lines(File("Content/Routes.xml"));
    ASSERT_GE(lines.size(), 3U);
    EXPECT_EQ(lines[lines.size() - 3], "\t\t</cRouteProperties>");
    EXPECT_EQ(lines[lines.size() - 2], "\t</Record>");
    EXPECT_EQ(lines[lines.size() - 1], "</cRouteCatalogue>");
}

TEST_F(SampleGame, HasThreeScenariosWithTheirFiles) {
    const std::string index = Xml(std::string(kAlder) + "Scenarios.bin");
    const std::vector<std::string> ids = Values(index, "DevString");
    ASSERT_EQ(ids.size(), 3U);
    for (const std::string& id : ids) {
        EXPECT_EQ(id.size(), 36U);
        EXPECT_TRUE(tree_.contains(std::string(kAlder) + "Scenarios/" + id + "/Scenario.bin")) << id;
    }
    EXPECT_EQ(Values(index, "StartTime"), (std::vector<std::string>{"19800.0000", "20700.0000", "43200.0000"}));
}

TEST_F(SampleGame, HasTheScenarioKeysInTheOrderInWhichTheyAreSearched) {
    const std::string index = Xml(std::string(kAlder) + "Scenarios.bin");
    std::size_t at = index.find("<cScenarioProperties");
    for (const std::string key : {"DevString", "DisplayName>", "Description>", "Briefing>", "StartTime", "DurationMins",
                                  "StartDD", "StartMM", "StartYYYY", "Season", "Provider", "Product", "BlueprintID"}) {
        const std::size_t next = index.find("<" + key, at);
        ASSERT_NE(next, std::string::npos) << key;
        EXPECT_LT(next, index.find("</cScenarioProperties>")) << key;
        at = next;
    }
}

TEST_F(SampleGame, HasTheWeatherOfEveryScenario) {
    const std::string index = Xml(std::string(kAlder) + "Scenarios.bin");
    const std::vector<std::string> providers = Values(index, "Provider");
    const std::vector<std::string> products = Values(index, "Product");
    const std::vector<std::string> blueprints = Values(index, "BlueprintID");
    ASSERT_EQ(blueprints.size(), 3U);
    for (std::size_t scenario = 0; scenario < 3; ++scenario) {
        const std::string& path = blueprints[scenario];
        const std::string name = providers[scenario] + "\\" + products[scenario] + "\\" + path;
        EXPECT_TRUE(HasAsset(name.substr(0, name.size() - 4), ".bin")) << name;
    }
}

TEST_F(SampleGame, HasServicesLooseConsistsAndAnEmptyOne) {
    const std::string scenario =
        Xml(std::string(kAlder) + "Scenarios/5a1e0d20-0001-4c00-9a10-7a3a21d0b001/Scenario.bin");
    EXPECT_EQ(Values(scenario, "PlayerDriver"), (std::vector<std::string>{"1", "0", "0", "0"}));
    EXPECT_EQ(Values(scenario, "PlayerControlled"), (std::vector<std::string>{"1", "0", "0", "0"}));
    EXPECT_EQ(Values(scenario, "ServiceName").size(), 2U);
    EXPECT_EQ(Values(scenario, "Name"), (std::vector<std::string>{"Wren 12", "Salt Van 301", "Salt Van 302", "Otter 4",
                                                                  "Mail Coach 7", "Salt Van 310", ""}));
    const std::size_t last = scenario.rfind("<cConsist");
    EXPECT_EQ(scenario.find("<Name", last), std::string::npos);
}

// Product on the line after the provider, blueprint three lines after the product.
TEST_F(SampleGame, WritesEveryBlueprintReferenceInTheSameLines) {
    int count = 0;
    for (const auto& [name, bytes] : tree_) {
        const std::vector<std::string> lines = Lines(DecodeBinary(bytes).value_or(""));
        for (std::size_t line = 0; line < lines.size(); ++line) {
            if (lines[line].find("<Provider") != std::string::npos) {
                ASSERT_LT(line + 4, lines.size()) << name;
                EXPECT_NE(lines[line + 1].find("<Product"), std::string::npos) << name;
                EXPECT_NE(lines[line + 4].find("<BlueprintID d:type"), std::string::npos) << name;
                ++count;
            }
        }
    }
    EXPECT_GE(count, 30);
}

TEST_F(SampleGame, PlacesInstalledAndMissingObjects) {
    const std::string tile = Xml(std::string(kAlder) + "Scenery/+000000+000000.bin");
    const std::vector<std::string> paths = Values(tile, "BlueprintID");
    const auto has = [&paths](const std::string& path) {
        return std::find(paths.begin(), paths.end(), path) != paths.end();
    };
    EXPECT_TRUE(has("Scenery\\Buildings\\Mill &amp; Barn.xml"));
    EXPECT_TRUE(HasAsset("Fernhollow\\AlderVale\\Scenery\\Buildings\\Mill & Barn", ".bin"));
    EXPECT_TRUE(has("Scenery\\Buildings\\Miller&apos;s Cottage.xml"));
    EXPECT_TRUE(HasAsset("Fernhollow\\AlderVale\\Scenery\\Buildings\\Miller's Cottage", ".bin"));
    EXPECT_TRUE(has("Scenery\\Buildings\\Windmill.xml"));
    EXPECT_FALSE(HasAsset("Fernhollow\\AlderVale\\Scenery\\Buildings\\Windmill", ".bin"));
    EXPECT_FALSE(tree_.contains("Content/Routes/5a1e0d10-0002-4c00-9a10-7a3a21d0a002/Networks/Road Tiles/"
                                "+000000+000000.bin"));
}

TEST_F(SampleGame, HasTheShapeOfEveryBlueprintButOne) {
    std::vector<std::string> missing;
    for (const auto& [name, bytes] : tree_) {
        if (!name.ends_with(".bin") || !name.starts_with("Assets/")) {
            continue;
        }
        for (std::string shape : Values(DecodeBinary(bytes).value_or(""), "GeometryID")) {
            const std::size_t bracket = shape.find('[');
            ASSERT_NE(bracket, std::string::npos) << name;
            shape.erase(bracket, 4);
            if (!HasAsset(shape, ".GeoPcDx")) {
                missing.push_back(shape);
            }
        }
    }
    EXPECT_EQ(missing, std::vector<std::string>{"Fernhollow\\AlderVale\\Scenery\\Structures\\SignalHut"});
}

TEST_F(SampleGame, HasTheTexturesOfItsShapesButOne) {
    std::vector<std::string> missing;
    int count = 0;
    for (const auto& [name, bytes] : tree_) {
        if (!name.ends_with(".GeoPcDx")) {
            continue;
        }
        for (std::string texture : Values(DecodeBinary(bytes).value_or(""), "e")) {
            texture.erase(texture.find('['), 4);
            std::replace(texture.begin(), texture.end(), '\\', '/');
            const std::string path = (fs::path(name).parent_path() / texture).lexically_normal().generic_string();
            if (!tree_.contains(path + ".TgPcDx")) {
                missing.push_back(path);
            }
            ++count;
        }
    }
    EXPECT_EQ(count, 10);
    EXPECT_EQ(missing, std::vector<std::string>{"Assets/Fernhollow/AlderVale/Scenery/Textures/Thatch"});
}

struct TextureCase {
    std::string path;
    std::string format;
    std::vector<std::size_t> sizes;
};

// Bytes of a level: DXT1 8 a block of 4 x 4 pixels, DXT3 16 a block, uncompressed 4 a pixel; at least one block.
TEST_F(SampleGame, HasTexturesInEveryFormatWithBlobsOfTheRightSize) {
    const std::string alder = "Assets/Fernhollow/AlderVale/";
    const std::array<TextureCase, 4> cases{{
        {alder + "Scenery/Textures/Brick", "HC_IMAGE_FORMAT_COMPRESSED", {2048, 512, 128, 32, 8, 8, 8}},
        {alder + "Scenery/Textures/Slate", "HC_IMAGE_FORMAT_COMPRESSED_EXPL_ALPHA", {1024, 256, 64, 16, 16, 16}},
        {alder + "Textures/Grass", "HC_IMAGE_FORMAT_COLA8888", {1024, 256, 64, 16, 4}},
        {"Assets/Tansywick/HarbourSet/Textures/Board", "HC_IMAGE_FORMAT_COL888", {1024, 256, 64, 16, 4}},
    }};
    for (const TextureCase& expected : cases) {
        const std::string xml = Xml(expected.path + ".TgPcDx");
        EXPECT_EQ(Values(xml, "Format").front(), expected.format);
        EXPECT_EQ(Values(xml, "Width").front(), Values(xml, "Height").front());
        std::vector<std::size_t> stated;
        std::vector<std::size_t> decoded;
        std::size_t at = 0;
        while ((at = xml.find("<d:blob", at)) != std::string::npos) {
            const std::size_t quote = xml.find('"', at);
            const std::size_t secondQuote = xml.find('"', quote + 1);
            stated.push_back(std::stoul(xml.substr(quote + 1, secondQuote - quote - 1)));
            const std::size_t end = xml.find("</d:blob", at);
            const std::string hex = xml.substr(secondQuote + 2, end - secondQuote - 2);
            EXPECT_EQ(hex.find_first_not_of("0123456789ABCDEF \r\n"), std::string::npos) << expected.path;
            const auto isDigit = [](char character) { return character > ' '; };
            decoded.push_back(static_cast<std::size_t>(std::count_if(hex.begin(), hex.end(), isDigit)) / 2);
            at = end;
        }
        EXPECT_EQ(stated, expected.sizes) << expected.path;
        EXPECT_EQ(decoded, expected.sizes) << expected.path;
    }
}

TEST_F(SampleGame, HasATrackWithAGaugeToEdit) {
    const std::string xml = Xml("Assets/Fernhollow/AlderVale/RailNetwork/CrossSections/Track.XSec");
    EXPECT_EQ(Values(xml, "Gauge"), std::vector<std::string>{"1435"});
}

TEST_F(SampleGame, HasTextFilesOfEveryKindBelowSource) {
    std::set<std::string> endings;
    for (const auto& [name, bytes] : tree_) {
        if (name.starts_with("Source/")) {
            endings.insert(fs::path(name).extension().string());
        }
    }
    EXPECT_EQ(endings, (std::set<std::string>{".xml", ".tgt", ".cost", ".csv"}));
}

// Red FF0000 is 11111 000000 00000 = F800, blue 0000FF is 001F. Red is the brighter one here: 2 * 255 against 255.
TEST(EncodeDxt1, KeepsTheTwoColoursOfABlock) {
    Picture picture{4, 4, std::vector<Pixel>(16, Pixel{0, 0, 255, 255})};
    picture.pixels[0] = {255, 0, 0, 255};
    EXPECT_EQ(EncodeDxt1(picture), std::string("\x00\xF8\x1F\x00\x54\x55\x55\x55", 8));
}

// Alpha 255 and 16 give the digits F and 1; the left pixel has the lower half of the byte.
TEST(EncodeDxt3, PutsFourBitsOfAlphaBeforeTheColours) {
    Picture picture{4, 4, std::vector<Pixel>(16, Pixel{0, 0, 0, 255})};
    picture.pixels[1].alpha = 16;
    EXPECT_EQ(EncodeDxt3(picture), std::string("\x1F\xFF\xFF\xFF\xFF\xFF\xFF\xFF\0\0\0\0\0\0\0\0", 16));
}

TEST(Encode32Bit, OrdersBlueGreenRedAlpha) { EXPECT_EQ(Encode32Bit({1, 1, {Pixel{1, 2, 3, 4}}}), "\x03\x02\x01\x04"); }

TEST(Halved, GivesTheMeanOfFourPixels) {
    const Picture picture{2, 2, {{10, 0, 0, 255}, {20, 0, 0, 255}, {30, 0, 0, 255}, {40, 8, 0, 255}}};
    const Picture half = Halved(picture);
    ASSERT_EQ(half.pixels.size(), 1U);
    EXPECT_EQ(half.pixels[0].red, 25);
    EXPECT_EQ(half.pixels[0].green, 2);
    EXPECT_EQ(half.pixels[0].alpha, 255);
}

} // namespace
} // namespace tamarind::samples
