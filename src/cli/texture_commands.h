#pragma once

#include "cli/commands.h"

/// "texture ...". Those of several files go on after one that failed.
namespace tamarind::cli {

[[nodiscard]] Result ExportTextures(session::EditorContext& context, const Arguments& arguments);
[[nodiscard]] Result ImportTextures(session::EditorContext& context, const Arguments& arguments);
[[nodiscard]] Result PreviewTexture(session::EditorContext& context, const Arguments& arguments);

} // namespace tamarind::cli
