#include "game/content.h"

#include <array>
#include <span>

namespace tamarind::samples {
namespace {

struct Placement {
    BlueprintReference blueprint;
    std::string_view east;
    std::string_view north;
};

constexpr BlueprintReference kMill{kFernhollow, kAlderVale, R"(Scenery\Buildings\Mill.xml)"};
constexpr BlueprintReference kBarn{kFernhollow, kAlderVale, R"(Scenery\Buildings\Mill & Barn.xml)"};
constexpr BlueprintReference kCottage{kFernhollow, kAlderVale, R"(Scenery\Buildings\Miller's Cottage.xml)"};
constexpr BlueprintReference kSignalHut{kFernhollow, kAlderVale, R"(Scenery\Structures\Signal Hut.xml)"};
constexpr BlueprintReference kCrane{kTansywick, kHarbourSet, R"(Scenery\Structures\Crane.xml)"};
constexpr BlueprintReference kFence{kTansywick, kHarbourSet, R"(RailNetwork\Lofts\Fence.xml)"};
constexpr BlueprintReference kLane{kTansywick, kHarbourSet, R"(RailNetwork\Roads\Lane.xml)"};
// Neither of these is installed, so that a check has something to find.
constexpr BlueprintReference kWindmill{kFernhollow, kAlderVale, R"(Scenery\Buildings\Windmill.xml)"};
constexpr BlueprintReference kForge{kFernhollow, kAlderVale, R"(Scenery\Buildings\Smith & Son's Forge.xml)"};

// The mill stands twice on the first tile and once more on the second.
constexpr std::array<Placement, 6> kFirstScenery{{{kMill, "120.5000", "40.2500"},
                                                  {kBarn, "132.0000", "44.7500"},
                                                  {kMill, "480.0000", "512.5000"},
                                                  {kCottage, "490.2500", "505.0000"},
                                                  {kWindmill, "700.0000", "15.0000"},
                                                  {kForge, "702.5000", "21.0000"}}};
constexpr std::array<Placement, 3> kSecondScenery{
    {{kMill, "8.0000", "9.0000"}, {kSignalHut, "16.5000", "30.0000"}, {kCrane, "900.0000", "100.0000"}}};
constexpr std::array<Placement, 2> kLofts{{{kFence, "0.0000", "12.0000"}, {kFence, "64.0000", "12.0000"}}};
constexpr std::array<Placement, 1> kRoads{{{kLane, "256.0000", "0.0000"}}};
constexpr std::array<Placement, 2> kBoisScenery{{{kCottage, "33.0000", "66.0000"}, {kCrane, "5.0000", "5.0000"}}};

std::string TileXml(std::span<const Placement> placements, std::string_view entity) {
    XmlText xml("cTile");
    xml.Open("Record");
    for (const Placement& placement : placements) {
        xml.OpenRecord(entity).Reference("Blueprint", placement.blueprint);
        xml.Open("Position").Value("East", "number", placement.east).Value("North", "number", placement.north);
        // An empty path, as the game writes it where nothing is referred to.
        xml.Close().Reference("Attachment", {}).Close();
    }
    return xml.Finish();
}

std::string TracksXml() {
    XmlText xml("cTrackNetwork");
    xml.Open("Record");
    for (const std::string_view length : {"125.0000", "87.5000", "300.2500"}) {
        xml.OpenRecord("cRibbon").Value("Length", "number", length).Value("SpeedLimit", "number", "60").Close();
    }
    return xml.Finish();
}

} // namespace

void AddTiles(const GameTree& game) {
    const std::string alder = RouteFolder(kAlderRoute);
    game.AddBinary(alder + "/Scenery/+000000+000000.bin", TileXml(kFirstScenery, "cSceneryEntity"));
    game.AddBinary(alder + "/Scenery/+000001-000001.bin", TileXml(kSecondScenery, "cSceneryEntity"));
    game.AddBinary(alder + "/Networks/Loft Tiles/+000000+000000.bin", TileXml(kLofts, "cLoftEntity"));
    game.AddBinary(alder + "/Networks/Road Tiles/+000000+000000.bin", TileXml(kRoads, "cRoadEntity"));
    game.AddBinary(alder + "/Networks/Tracks.bin", TracksXml());

    // A route without roads, and one with everything that it uses in place.
    game.AddBinary(RouteFolder(kBoisRoute) + "/Scenery/+000000+000000.bin", TileXml(kBoisScenery, "cSceneryEntity"));
    game.AddBinary(RouteFolder(kBoisRoute) + "/Networks/Loft Tiles/+000000+000000.bin", TileXml(kLofts, "cLoftEntity"));
    game.AddBinary(RouteFolder(kBoisRoute) + "/Networks/Tracks.bin", TracksXml());
    game.AddBinary(RouteFolder(kThornbyRoute) + "/Scenery/+000000+000000.bin",
                   TileXml(kSecondScenery, "cSceneryEntity"));
    game.AddBinary(RouteFolder(kThornbyRoute) + "/Networks/Tracks.bin", TracksXml());
}

} // namespace tamarind::samples
