#pragma once

#include "cli/commands.h"

/// The commands of the scenario editor. Each lists the route's scenarios first and hands one over, as the windows do.
namespace tamarind::cli {

[[nodiscard]] Result ShowScenario(session::EditorContext& context, const Arguments& arguments);
[[nodiscard]] Result SetScenario(session::EditorContext& context, const Arguments& arguments);
[[nodiscard]] Result DriveScenario(session::EditorContext& context, const Arguments& arguments);

} // namespace tamarind::cli
