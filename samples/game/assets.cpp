#include "game/content.h"

#include <array>
#include <span>

namespace tamarind::samples {
namespace {

constexpr std::string_view kAlderAssets = "Assets/Fernhollow/AlderVale/";
constexpr std::string_view kHarbourAssets = "Assets/Tansywick/HarbourSet/";

struct Blueprint {
    std::string_view folder; ///< kAlderAssets or kHarbourAssets
    std::string_view path;   ///< without ending
    std::string_view kind;
    std::string_view geometry; ///< as the game writes it: "[00]" stands before the shape's name
};

struct Shape {
    std::string_view folder;
    std::string_view path; ///< without ending
    std::span<const std::string_view> textures;
};

constexpr std::array<Blueprint, 10> kBlueprints{{
    {kAlderAssets, "Scenery/Buildings/Mill", "cSceneryBlueprint", R"(Fernhollow\AlderVale\Scenery\Buildings\[00]Mill)"},
    {kAlderAssets, "Scenery/Buildings/Mill & Barn", "cSceneryBlueprint",
     R"(Fernhollow\AlderVale\Scenery\Buildings\[00]Barn)"},
    {kAlderAssets, "Scenery/Buildings/Miller's Cottage", "cSceneryBlueprint",
     R"(Fernhollow\AlderVale\Scenery\Buildings\[00]Cottage)"},
    // Its shape is not installed.
    {kAlderAssets, "Scenery/Structures/Signal Hut", "cSceneryBlueprint",
     R"(Fernhollow\AlderVale\Scenery\Structures\[00]SignalHut)"},
    {kAlderAssets, "RailVehicles/Steam/Wren/Wren", "cRailVehicleBlueprint",
     R"(Fernhollow\AlderVale\RailVehicles\Steam\Wren\[00]Wren)"},
    {kAlderAssets, "RailVehicles/Diesel/Otter/Otter", "cRailVehicleBlueprint",
     R"(Fernhollow\AlderVale\RailVehicles\Diesel\Otter\[00]Otter)"},
    {kHarbourAssets, "RailVehicles/Freight/SaltVan/SaltVan", "cRailVehicleBlueprint",
     R"(Tansywick\HarbourSet\RailVehicles\Freight\SaltVan\[00]SaltVan)"},
    {kHarbourAssets, "Scenery/Structures/Crane", "cSceneryBlueprint",
     R"(Tansywick\HarbourSet\Scenery\Structures\[00]Crane)"},
    // Lofts and roads have no shape of their own.
    {kHarbourAssets, "RailNetwork/Lofts/Fence", "cLoftBlueprint", ""},
    {kHarbourAssets, "RailNetwork/Roads/Lane", "cRoadBlueprint", ""},
}};

constexpr std::array<std::string_view, 2> kMillTextures{R"([00]..\Textures\Brick)", R"(..\Textures\[00]Slate)"};
// The second is not installed.
constexpr std::array<std::string_view, 2> kBarnTextures{R"(..\Textures\[00]Brick)", R"(..\Textures\[00]Thatch)"};
constexpr std::array<std::string_view, 2> kCottageTextures{R"(..\Textures\[00]Slate)", R"(..\..\Textures\[00]Grass)"};
constexpr std::array<std::string_view, 1> kVehicleTextures{R"(Textures\[00]Livery)"};
constexpr std::array<std::string_view, 1> kCraneTextures{R"(..\..\Textures\[00]Board)"};

constexpr std::array<Shape, 7> kShapes{{
    {kAlderAssets, "Scenery/Buildings/Mill", kMillTextures},
    {kAlderAssets, "Scenery/Buildings/Barn", kBarnTextures},
    {kAlderAssets, "Scenery/Buildings/Cottage", kCottageTextures},
    {kAlderAssets, "RailVehicles/Steam/Wren/Wren", kVehicleTextures},
    {kAlderAssets, "RailVehicles/Diesel/Otter/Otter", kVehicleTextures},
    {kHarbourAssets, "RailVehicles/Freight/SaltVan/SaltVan", kVehicleTextures},
    {kHarbourAssets, "Scenery/Structures/Crane", kCraneTextures},
}};

struct Weather {
    std::string_view folder;
    std::string_view name;
    std::string_view clouds;
    std::string_view rain;
};

constexpr std::array<Weather, 3> kWeathers{{{kAlderAssets, "Clear", "0.1000", "0.0000"},
                                            {kAlderAssets, "Drizzle", "0.8500", "0.2500"},
                                            {kHarbourAssets, "Snow", "0.9500", "0.0000"}}};

std::string Name(std::string_view folder, std::string_view path, std::string_view ending) {
    return std::string(folder) + std::string(path) + std::string(ending);
}

std::string_view LastName(std::string_view path) { return path.substr(path.rfind('/') + 1); }

std::string BlueprintXml(const Blueprint& blueprint) {
    XmlText xml("cBlueprintFile");
    xml.Open("Record").OpenRecord(blueprint.kind).Leaf("Name", "text", LastName(blueprint.path));
    xml.Open("Render").Value("DetailLevel", "number", "1");
    if (!blueprint.geometry.empty()) {
        xml.Leaf("GeometryID", "text", blueprint.geometry);
    }
    xml.Value("CastsShadow", "flag", "1");
    return xml.Finish();
}

/// The eight corners of a box in decimetres, three 16-bit numbers each.
std::string BoxCorners() {
    constexpr std::array<char, 2> kWidth{-40, 40};
    constexpr std::array<char, 2> kHeight{0, 60};
    std::string bytes;
    for (const char east : kWidth) {
        for (const char up : kHeight) {
            for (const char north : kWidth) {
                for (const char value : {east, up, north}) {
                    bytes += value;
                    bytes += value < 0 ? '\xFF' : '\0';
                }
            }
        }
    }
    return bytes;
}

std::string ShapeXml(const Shape& shape) {
    XmlText xml("cShapeFile");
    xml.Open("Record").OpenRecord("cMesh").Leaf("Name", "text", LastName(shape.path));
    xml.Open("Vertices").Blob(BoxCorners()).Close();
    xml.Open("TextureByName");
    for (const std::string_view texture : shape.textures) {
        xml.Leaf("e", "text", texture);
    }
    return xml.Finish();
}

std::string WeatherXml(const Weather& weather) {
    XmlText xml("cBlueprintFile");
    xml.Open("Record").OpenRecord("cWeatherBlueprint").Leaf("Name", "text", weather.name);
    xml.Value("CloudCover", "number", weather.clouds).Value("Rain", "number", weather.rain);
    return xml.Finish();
}

/// The cross-section of a track: a name, the gauge in millimetres, and the outline of the rail.
std::string TrackXml() {
    XmlText xml("cCrossSectionFile");
    xml.Open("Record").OpenRecord("cTrackCrossSection").Leaf("Name", "text", "Branch line, bullhead rail");
    xml.Value("Gauge", "number", "1435").Value("SleeperSpacing", "number", "762");
    xml.Leaf("TextureID", "text", R"(Fernhollow\AlderVale\RailNetwork\CrossSections\[00]Track)");
    xml.Open("Outline");
    struct Point {
        std::string_view across;
        std::string_view up;
    };
    constexpr std::array<Point, 6> kOutline{{{"-35.0000", "145.0000"},
                                             {"35.0000", "145.0000"},
                                             {"35.0000", "105.0000"},
                                             {"10.0000", "90.0000"},
                                             {"10.0000", "20.0000"},
                                             {"-35.0000", "0.0000"}}};
    for (const Point& point : kOutline) {
        xml.OpenRecord("cPoint").Value("Across", "number", point.across).Value("Up", "number", point.up).Close();
    }
    return xml.Finish();
}

} // namespace

void AddAssets(const GameTree& game) {
    for (const Blueprint& blueprint : kBlueprints) {
        game.AddBinary(Name(blueprint.folder, blueprint.path, ".bin"), BlueprintXml(blueprint));
    }
    for (const Shape& shape : kShapes) {
        game.AddBinary(Name(shape.folder, shape.path, ".GeoPcDx"), ShapeXml(shape));
    }
    for (const Weather& weather : kWeathers) {
        const std::string path = "Weather/" + std::string(weather.name);
        game.AddBinary(Name(weather.folder, path, ".bin"), WeatherXml(weather));
    }
    game.AddBinary(Name(kAlderAssets, "RailNetwork/CrossSections/Track", ".XSec"), TrackXml());
}

} // namespace tamarind::samples
