#pragma once

#include "routes/route_window.h"

#include <string>
#include <string_view>

/// What the scenario editor gets of the routes window.
namespace tamarind::routes {

/// An index of scenarios, taken apart round one record.
struct IndexParts {
    std::string head;
    std::string record; ///< from its opening to its closing tag
    std::string tail;
};

/// Takes the record that holds the id, as the listing read it. Letter case is ignored. Throws InvalidProcedureCall when
/// the id stands in no whole record.
[[nodiscard]] IndexParts SplitIndex(std::string_view indexText, std::string_view id);

/// Command7: hands the first selected scenario over in the session's ScenarioEditState, and opens the editor. Its
/// record comes from the index as it was listed last, its own file is converted. What cannot be edited is told, and
/// nothing is handed over. Without a selected scenario nothing happens: Failed.
Ended EditScenario(session::EditorContext& context, RouteWindow& window, Selection selectedScenarios);

} // namespace tamarind::routes
