#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tamarind::session {

/// A flag of the routes window that is set.
inline constexpr std::int16_t kSet = -1;

/// What the routes window shares with the menu commands that open it and with the windows of other jobs.
struct RouteState {
    std::int16_t RouteFormMode = 0;    ///< 0: deleting and checking; kSet: packaging a route
    std::int16_t ScenarioPackMode = 0; ///< kSet while a window packages scenarios
    std::int16_t AssetPackMode = 0;    ///< kSet while the window of the asset packager is open
    std::string PackageFolderName;     ///< of the scenario or asset package

    // Parallel lists, index from 0. Ids are names of folders below "Content\Routes", or below a route's "Scenarios".
    std::vector<std::string> RouteNames;
    std::vector<std::string> RouteIds;
    std::vector<std::string> ScenarioNames; ///< of the route listed last
    std::vector<std::string> ScenarioIds;
};

} // namespace tamarind::session
