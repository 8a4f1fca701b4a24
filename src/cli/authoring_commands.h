#pragma once

#include "cli/commands.h"

/// The commands for authors: blueprints, and the folders of developers and their add-ons.
namespace tamarind::cli {

/// "blueprint named", "blueprint series" and "blueprint route".
[[nodiscard]] Result MakeNamedBlueprint(session::EditorContext& context, const Arguments& arguments);
[[nodiscard]] Result MakeSeriesBlueprint(session::EditorContext& context, const Arguments& arguments);
[[nodiscard]] Result MakeRouteBlueprint(session::EditorContext& context, const Arguments& arguments);

[[nodiscard]] Result MakeDeveloperFolder(session::EditorContext& context, const Arguments& arguments);
/// "folders addon".
[[nodiscard]] Result MakeAddOnFolders(session::EditorContext& context, const Arguments& arguments);
/// "folders loco".
[[nodiscard]] Result CheckLoco(session::EditorContext& context, const Arguments& arguments);

} // namespace tamarind::cli
