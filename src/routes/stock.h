#pragma once

#include "routes/route_window.h"

#include <optional>
#include <string>
#include <vector>

/// The list of what a scenario uses, and what of it is missing: the window frmListRS.
namespace tamarind::routes {

/// Command3: converts the first selected scenario and returns the entries of its list (provider, product and path,
/// joined by "\"). Nothing when none is selected, or when it could not be converted, which is shown.
std::optional<std::vector<std::string>> ListStock(session::EditorContext& context, RouteWindow& window,
                                                  Selection selectedScenarios);

/// The missing check: a line for each entry whose blueprint is not installed, in the order of the list.
[[nodiscard]] std::string MissingStock(const session::EditorContext& context, const std::vector<std::string>& list);

} // namespace tamarind::routes
