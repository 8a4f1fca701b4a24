#include "game/large_route.h"

#include "game/game_tree.h"
#include "game/xml_text.h"

#include <string>

namespace tamarind::samples {
namespace {

constexpr int kMissingStep = 10;

std::string BlueprintName(int number) { return "Scenery\\Object" + std::to_string(number); }

std::string TileXml(const LargeRoute& size, int tile) {
    XmlText xml("cTile");
    xml.Open("Record");
    for (int i = 0; i < size.references; ++i) {
        const std::string path = BlueprintName((tile * 7 + i) % size.blueprints) + ".xml";
        xml.OpenRecord("cSceneryEntity").Reference("Blueprint", {"Large", "Set", path});
        xml.Open("Position").Value("East", "number", "1.0000").Value("North", "number", "2.0000").Close().Close();
    }
    return xml.Finish();
}

std::string BlueprintXml(int shape) {
    XmlText xml("cBlueprintFile");
    xml.Open("Record").OpenRecord("cSceneryBlueprint");
    xml.Leaf("GeometryID", "text", "Large\\Set\\Scenery\\[00]Shape" + std::to_string(shape));
    return xml.Finish();
}

std::string ShapeXml(int shape) {
    constexpr std::size_t kVertexBytes = 16384;
    XmlText xml("cShapeFile");
    xml.Open("Record").OpenRecord("cMesh").Open("Vertices").Blob(std::string(kVertexBytes, '\x5A')).Close();
    xml.Open("TextureByName").Leaf("e", "text", "Textures\\[00]Skin" + std::to_string(shape));
    xml.Leaf("e", "text", "..\\Textures\\[00]Missing" + std::to_string(shape));
    return xml.Finish();
}

} // namespace

std::filesystem::path WriteLargeRoute(const std::filesystem::path& folder, const LargeRoute& size) {
    const std::filesystem::path path = folder / "Rail Simulator";
    const GameTree game(path);
    XmlText catalogue("cRouteCatalogue");
    catalogue.Open("Record").OpenRecord("cRouteProperties").Leaf("DevString", "text", "large");
    catalogue.Localised("DisplayName", {"Large", "", "", "", ""});
    game.AddText("Content/Routes.xml", catalogue.Finish());
    for (int tile = 0; tile < size.tiles; ++tile)
        game.AddBinary("Content/Routes/large/Scenery/" + std::to_string(tile) + ".bin", TileXml(size, tile));
    const std::string assets = "Assets/Large/Set/Scenery/";
    for (int number = 0; number < size.blueprints; ++number) {
        if (number % kMissingStep == kMissingStep - 1) continue;
        game.AddBinary(assets + "Object" + std::to_string(number) + ".bin", BlueprintXml(number % size.shapes));
    }
    for (int shape = 0; shape < size.shapes; ++shape) {
        game.AddBinary(assets + "Textures/Skin" + std::to_string(shape) + ".TgPcDx", "<Texture/>");
        if (shape % kMissingStep == kMissingStep - 1) continue;
        game.AddBinary(assets + "Shape" + std::to_string(shape) + ".GeoPcDx", ShapeXml(shape));
    }
    return path;
}

} // namespace tamarind::samples
