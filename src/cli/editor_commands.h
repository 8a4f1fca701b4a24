#pragma once

#include "cli/commands.h"

namespace tamarind::cli {

[[nodiscard]] Result HighlightFile(session::EditorContext& context, const Arguments& arguments);
[[nodiscard]] Result FindRows(session::EditorContext& context, const Arguments& arguments);

} // namespace tamarind::cli
