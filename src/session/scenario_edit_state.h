#pragma once

#include <string>

namespace tamarind::session {

/// What the routes window hands over to the scenario editor.
struct ScenarioEditState {
    std::string EditRouteFolder;    ///< full path
    std::string EditScenarioFolder; ///< full path
    std::string ScenarioRecord;     ///< from its opening to its closing tag; after a save the whole index
    std::string ScenarioIndexHead;  ///< the text of the route's index of scenarios in front of the record
    std::string ScenarioIndexTail;  ///< and behind it
    std::string ScenarioText;       ///< the scenario's own file
};

} // namespace tamarind::session
