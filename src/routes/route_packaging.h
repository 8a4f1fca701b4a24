#pragma once

#include "routes/route_window.h"

#include <string>

namespace tamarind::routes {

/// How packaging ended.
struct Packaged {
    Ended ended = Ended::Done; ///< Declined: the person cancelled it
    std::string folder;        ///< of the package, as far as it was made; empty when nothing was packaged
};

/// The menu command that packages a route: opens the routes window for that.
void OpenRoutePackager(session::EditorContext& context);

/// OKButton while RouteFormMode is set: packages the first selected route, without a question, into a folder named by
/// its display name inside the program's. The route leaves the window's lists; the window stays open. Shows progress;
/// cancelled between files, it leaves what was made. A failure is shown with what was already made, and that stays.
/// Without a selection nothing happens.
Packaged PackageRoute(session::EditorContext& context, RouteWindow& window, Selection selectedRoutes);

} // namespace tamarind::routes
