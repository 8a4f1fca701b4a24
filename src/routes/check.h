#pragma once

#include "routes/report_sink.h"
#include "routes/route_window.h"

#include <optional>
#include <string>
#include <vector>

/// The check of a route's content: which of its objects, and which of their textures, are not installed.
namespace tamarind::routes {

// What the check asks.
inline constexpr const char* kShapesQuestion = "Do you wish to view a list of Shapes used by this route?";
inline constexpr const char* kCheckTexturesQuestion = "Would you like to check for missing Textures ?";
inline constexpr const char* kTexturesQuestion = "Do you wish to view a list of Textures used by this route?";

struct CheckOptions {
    std::size_t jobs = 0; ///< how many conversions run at a time; 0: as many as the machine has processors
};

/// What a check found. Full names, sorted, each once.
struct CheckResult {
    Ended ended = Ended::Done;
    bool isComplete = true; ///< false when the person cancelled it
    std::vector<std::string> shapes;
    std::optional<std::vector<std::string>> textures; ///< nothing when they were not asked for
};

/// Command4: checks the last selected route, asking what to list and whether to check textures as well. Progress is
/// shown; cancelling ends the scan at once, and what was found until then is reported, marked as incomplete. Files that
/// cannot be converted are counted and named in the reports. Lists and reports are the same for any number of jobs.
CheckResult CheckRoute(session::EditorContext& context, RouteWindow& window, Selection selectedRoutes,
                       ReportSink& reports, const CheckOptions& options = {});

/// The message for a failure of RemoveDuplicates.
[[nodiscard]] std::string DuplicatesMessage(const std::string& error);

} // namespace tamarind::routes
