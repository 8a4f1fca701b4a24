#include "game/content.h"

#include <array>
#include <span>

namespace tamarind::samples {
namespace {

struct Vehicle {
    std::string_view name;
    BlueprintReference blueprint;
};

struct Consist {
    const LocalisedText* service; ///< none: a loose consist
    std::span<const Vehicle> vehicles;
    bool playerDriven;
};

struct Scenario {
    std::string_view id;
    LocalisedText name;
    LocalisedText description;
    LocalisedText briefing;
    std::string_view startTime; ///< seconds after midnight
    std::string_view minutes;
    std::array<std::string_view, 3> startDate; ///< day, month, year
    std::string_view season;
    BlueprintReference weather;
    std::span<const Consist> consists;
};

constexpr BlueprintReference kWren{kFernhollow, kAlderVale, R"(RailVehicles\Steam\Wren\Wren.xml)"};
constexpr BlueprintReference kOtter{kFernhollow, kAlderVale, R"(RailVehicles\Diesel\Otter\Otter.xml)"};
constexpr BlueprintReference kSaltVan{kTansywick, kHarbourSet, R"(RailVehicles\Freight\SaltVan\SaltVan.xml)"};
// Not installed, so that a list of stock has something missing.
constexpr BlueprintReference kMailCoach{kTansywick, kHarbourSet, R"(RailVehicles\Coaches\Mail\Mail.xml)"};

constexpr LocalisedText kMilkService{"Milk Empties", "Lait", "Latte", "Milchwagen", "Leche"};
constexpr LocalisedText kMailService{"", "", "Posta di notte", "Nachtpost", "Correo nocturno"};

constexpr std::array<Vehicle, 3> kMilkTrain{
    {{"Wren 12", kWren}, {"Salt Van 301", kSaltVan}, {"Salt Van 302", kSaltVan}}};
constexpr std::array<Vehicle, 2> kMailTrain{{{"Otter 4", kOtter}, {"Mail Coach 7", kMailCoach}}};
constexpr std::array<Vehicle, 2> kSidings{{{"Salt Van 310", kSaltVan}, {"", kSaltVan}}};

constexpr std::array<Consist, 4> kMilkConsists{{{&kMilkService, kMilkTrain, true},
                                                {&kMailService, kMailTrain, false},
                                                {nullptr, kSidings, false},
                                                {nullptr, {}, false}}};
constexpr std::array<Consist, 2> kMailConsists{{{nullptr, kSidings, false}, {&kMailService, kMailTrain, true}}};

constexpr std::array<Scenario, 3> kScenarios{{
    {"5a1e0d20-0001-4c00-9a10-7a3a21d0b001",
     {"Morning Milk", "Le lait du matin", "Il latte del mattino", "Milch am Morgen", "La leche de la ma\xC3\xB1\x61na"},
     {"Take the empties up the vale.", "Remontez les wagons vides.", "", "Leerzug das Tal hinauf.", ""},
     {"Leave the dairy at half past five & stop everywhere.", "", "", "", ""},
     "19800.0000",
     "45",
     {"1", "5", "1958"},
     "SEASON_SPRING",
     {kFernhollow, kAlderVale, R"(Weather\Clear.xml)"},
     kMilkConsists},
    {"5a1e0d20-0002-4c00-9a10-7a3a21d0b002",
     {"", "", "", "Nachtpost nach Quillm\xC3\xBCnde", "Correo de noche"},
     {"", "", "", "Die Post wartet nicht.", ""},
     {"", "", "", "", "Salga a tiempo."},
     "20700.0000",
     "90",
     {"24", "12", "1961"},
     "SEASON_WINTER",
     {kTansywick, kHarbourSet, R"(Weather\Snow.xml)"},
     kMailConsists},
    {"5a1e0d20-0003-4c00-9a10-7a3a21d0b003",
     {"Harbour Shunt & Return", "", "", "", ""},
     {"Sort the vans on the quay.", "", "", "", ""},
     {"The crane's driver gives the signals.", "", "", "", ""},
     "43200.0000",
     "30",
     {"17", "9", "1959"},
     "SEASON_AUTUMN",
     {kFernhollow, kAlderVale, R"(Weather\Drizzle.xml)"},
     kMailConsists},
}};

void AddRecord(XmlText& xml, const Scenario& scenario) {
    xml.OpenRecord("cScenarioProperties");
    xml.Open("ID").OpenRecord("Identifier").Leaf("DevString", "text", scenario.id).Close().Close();
    xml.Localised("DisplayName", scenario.name).Localised("Description", scenario.description);
    xml.Localised("Briefing", scenario.briefing);
    xml.Value("StartTime", "number", scenario.startTime).Value("DurationMins", "number", scenario.minutes);
    xml.Value("StartDD", "number", scenario.startDate[0]).Value("StartMM", "number", scenario.startDate[1]);
    xml.Value("StartYYYY", "number", scenario.startDate[2]).Value("Season", "keyword", scenario.season);
    xml.Reference("WeatherBlueprint", scenario.weather);
    xml.Close();
}

void AddConsist(XmlText& xml, const Consist& consist) {
    const std::string_view flag = consist.playerDriven ? "1" : "0";
    xml.OpenRecord("cConsist");
    xml.Open("Driver").OpenRecord("cDriver").Value("PlayerDriver", "flag", flag);
    if (consist.service != nullptr) {
        xml.Localised("ServiceName", *consist.service);
    }
    xml.Value("PlayerControlled", "flag", flag).Close().Close().Open("Vehicles");
    for (const Vehicle& vehicle : consist.vehicles) {
        xml.OpenRecord("cVehicle").Leaf("Name", "text", vehicle.name).Reference("Blueprint", vehicle.blueprint);
        xml.Value("Flipped", "flag", "0").Close();
    }
    xml.Close().Close();
}

std::string ScenarioXml(const Scenario& scenario) {
    XmlText xml("cScenario");
    xml.Open("Record");
    for (const Consist& consist : scenario.consists) {
        AddConsist(xml, consist);
    }
    return xml.Finish();
}

} // namespace

void AddScenarios(const GameTree& game) {
    const std::string route = RouteFolder(kAlderRoute);
    XmlText index("cScenarioIndex");
    index.Open("Record");
    for (const Scenario& scenario : kScenarios) {
        AddRecord(index, scenario);
        game.AddBinary(route + "/Scenarios/" + std::string(scenario.id) + "/Scenario.bin", ScenarioXml(scenario));
    }
    game.AddBinary(route + "/Scenarios.bin", index.Finish());

    // Routes without scenarios have an index as well.
    XmlText empty("cScenarioIndex");
    const std::string emptyXml = empty.Open("Record").Finish();
    game.AddBinary(RouteFolder(kBoisRoute) + "/Scenarios.bin", emptyXml);
    game.AddBinary(RouteFolder(kThornbyRoute) + "/Scenarios.bin", emptyXml);
}

} // namespace tamarind::samples
