#include "game/content.h"

#include <array>

namespace tamarind::samples {
namespace {

struct Route {
    std::string_view id;
    LocalisedText name;
    std::string_view originLatitude;
    std::string_view originLongitude;
};

// The second has no English name and is known by its French one; the third one's name needs an entity.
constexpr std::array<Route, 3> kRoutes{{
    {kAlderRoute,
     {"Alder Vale to Quillmouth", "Val d'Aulne - Quillmouth", "Valle d'Ontano - Quillmouth",
      "Erlental nach Quillm\xC3\xBCnde", "Valle del Aliso - Quillmouth"},
     "51.2500",
     "-1.7500"},
    {kBoisRoute,
     {"", "Ligne du Bois Perdu", "Linea del Bosco Perduto", "", "L\xC3\xADnea del Bosque Perdido"},
     "47.1250",
     "3.5000"},
    {kThornbyRoute, {"Thornby & Marrow Junction", "", "", "Thornby und Marrow", ""}, "53.8750", "-0.6250"},
}};

void AddRecord(XmlText& xml, const Route& route) {
    xml.OpenRecord("cRouteProperties");
    xml.Open("ID").OpenRecord("Identifier").Leaf("DevString", "text", route.id).Close().Close();
    xml.Localised("DisplayName", route.name);
    xml.Open("RouteOrigin").Value("Latitude", "number", route.originLatitude);
    xml.Value("Longitude", "number", route.originLongitude).Close();
    xml.Value("Version", "number", "1");
    xml.Close();
}

} // namespace

std::string RouteFolder(std::string_view routeId) { return "Content/Routes/" + std::string(routeId); }

void AddRoutes(const GameTree& game) {
    XmlText catalogue("cRouteCatalogue");
    catalogue.Open("Record");
    for (const Route& route : kRoutes) {
        AddRecord(catalogue, route);
        XmlText own("cRouteFile");
        own.Open("Record");
        AddRecord(own, route);
        game.AddText(RouteFolder(route.id) + "/RouteProperties.xml", own.Finish());
    }
    game.AddText("Content/Routes.xml", catalogue.Finish());
}

} // namespace tamarind::samples
