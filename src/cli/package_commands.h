#pragma once

#include "cli/commands.h"

/// "package ...". Each does what the buttons of its window do, one after the other.
namespace tamarind::cli {

[[nodiscard]] Result PackageRoute(session::EditorContext& context, const Arguments& arguments);
[[nodiscard]] Result PackageScenarios(session::EditorContext& context, const Arguments& arguments);
[[nodiscard]] Result PackageAssets(session::EditorContext& context, const Arguments& arguments);

} // namespace tamarind::cli
