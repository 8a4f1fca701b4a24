#include "game/content.h"
#include "system/program.h"

namespace tamarind::samples {
namespace {

constexpr std::string_view kPlaceholder = "This stands where the game's program would be. It cannot be run.\r\n";

constexpr std::string_view kMarkers = "Name,Longitude,Latitude\r\n"
                                      "Alder Vale,-1.7500,51.2500\r\n"
                                      "Miller's Halt,-1.7125,51.2625\r\n"
                                      "Quillmouth,-1.6500,51.3000\r\n";

std::string SceneryXml() {
    XmlText xml("cBlueprintFile");
    xml.Open("Record").OpenRecord("cSceneryBlueprint").Leaf("Name", "text", "Mill");
    xml.Localised("DisplayName", {"Water mill", "Moulin", "Mulino", "M\xC3\xBChle", "Molino"});
    xml.Leaf("GeometryID", "text", R"(Fernhollow\AlderVale\Scenery\Buildings\[00]Mill)");
    return xml.Finish();
}

std::string CostXml() {
    XmlText xml("cCostFile");
    xml.Open("Record").OpenRecord("cCost").Leaf("Name", "text", "Salt Van").Value("Price", "number", "1250");
    return xml.Finish();
}

std::string TargetXml() {
    XmlText xml("cTargetFile");
    xml.Open("Record").OpenRecord("cTarget").Leaf("Name", "text", "Mill");
    xml.Leaf("Output", "text", R"(Assets\Fernhollow)");
    return xml.Finish();
}

} // namespace

void AddSource(const GameTree& game) {
    game.AddText("RailSim.exe", kPlaceholder);
    const std::string developer = "Source/" + std::string(kFernhollow) + "/" + std::string(kAlderVale);
    game.AddText(developer + "/Scenery/Buildings/Mill.xml", SceneryXml());
    game.AddText(developer + "/Scenery/Buildings/Mill.tgt", TargetXml());
    game.AddText(developer + "/RailVehicles/SaltVan.cost", CostXml());
    game.AddText(developer + "/RouteMarkers/Halts.csv", kMarkers);
}

std::filesystem::path WriteSampleGame(const std::filesystem::path& folder) {
    const std::filesystem::path gameFolder = folder / "Rail Simulator";
    const GameTree game(gameFolder);
    AddRoutes(game);
    AddScenarios(game);
    AddTiles(game);
    AddAssets(game);
    AddTextures(game);
    AddSource(game);
    return gameFolder;
}

} // namespace tamarind::samples
