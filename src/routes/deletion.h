#pragma once

#include "routes/folder_name.h"
#include "routes/route_window.h"

#include <string>

/// Deleting routes and scenarios. Their folders go to the system's trash where there is one.
namespace tamarind::routes {

/// OKButton while RouteFormMode is 0: asks, deletes the first selected route and closes the window. The routes index is
/// written without a backup, but its last state is kept in TempFiles\Recovered first; where that fails nothing is
/// deleted. Throws InvalidProcedureCall, which ends the program, when the index does not hold the route; its folder is
/// gone then.
Ended DeleteRoute(session::EditorContext& context, RouteWindow& window, Selection selectedRoutes);

/// Command2: asks, deletes the first selected scenario of List3, and converts the edited index back; the old one stays
/// under a backup name. A failure is shown; what was changed before stays changed.
Ended DeleteScenario(session::EditorContext& context, RouteWindow& window, Selection selectedScenarios);

/// Moves the folder to the trash; where there is none it is deleted for good, with read-only files. Links are deleted,
/// never followed. A failure is no error: the status line tells when something stayed.
void DeleteFolder(session::EditorContext& context, const std::string& folder);

} // namespace tamarind::routes
