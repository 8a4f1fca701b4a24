#pragma once

#include "cli/commands.h"

namespace tamarind::cli {

/// "markers".
[[nodiscard]] Result ConvertMarkers(session::EditorContext& context, const Arguments& arguments);

} // namespace tamarind::cli
