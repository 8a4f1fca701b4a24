#pragma once

#include "fixture.h"
#include "game/content.h"
#include "serz/binary_format.h"

#include <filesystem>
#include <string>

/// Packages for the sample game, made by hand, and what their installation has to give.
namespace tamarind::tests {

inline constexpr const char* kPackedRoute = "5a1e0d10-0009-4c00-9a10-7a3a21d0a009";
inline constexpr const char* kPackedScenario = "5a1e0d20-0002-4c00-9a10-7a3a21d0b002"; ///< one that the game has
inline const std::string kPackedRouteRecord =
    "<cRouteProperties d:id=\"7\">\r\n<DevString d:type=\"text\">" + std::string(kPackedRoute) +
    "</DevString>\r\n<English>Moor & Fen</English>\r\n</cRouteProperties>\r\n";
inline const std::string kPackedScenarioRecord = "<cScenarioProperties d:id=\"8\"><DevString>" +
                                                 std::string(kPackedScenario) +
                                                 "</DevString><English>New Mail</English></cScenarioProperties>\r\n";

inline void PutFile(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    samples::WriteFile(path, bytes);
}

inline void MakeRoutePackage(const std::filesystem::path& package) {
    PutFile(package / "Route_Setup.xxx", kPackedRouteRecord);
    const auto route = package / "Rail Simulator/Content/Routes" / kPackedRoute;
    PutFile(route / "RouteProperties.xml", "properties");
    PutFile(route / "Scenery/+000000+000000.bin", std::string("tile\0tile", 9));
}

inline void MakeScenarioPackage(const std::filesystem::path& package) {
    const std::string route(samples::kAlderRoute);
    PutFile(package / "Scenario.zzz", kPackedScenarioRecord);
    PutFile(package / "Scenario.yyy", route + "\r\n" + kPackedScenario + "\r\n");
    PutFile(package / "Rail Simulator/Content/Routes" / route / "Scenarios" / kPackedScenario / "Scenario.bin", "new");
}

/// Behind the last record stand CR, LF, a tab and "</Record>". The new one goes behind the LF, which stands once more.
inline std::string WithRecordAtTheEnd(const std::string& index, const std::string& record) {
    const std::size_t end = index.rfind("\r\n\t</Record>");
    return index.substr(0, end + 2) + record + index.substr(end + 1);
}

/// Without the record that holds the id, from its tag to its end.
inline std::string WithoutRecord(const std::string& index, const std::string& id) {
    const std::string close = "</cScenarioProperties>";
    const std::size_t at = index.find(id);
    const std::size_t start = index.rfind("<cScenarioProperties", at);
    const std::size_t end = index.find(close, at) + close.size();
    return index.substr(0, start) + index.substr(end);
}

} // namespace tamarind::tests
