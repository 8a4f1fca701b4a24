#pragma once

#include "cli/commands.h"

/// Installing packages, and looking at them.
namespace tamarind::cli {

[[nodiscard]] Result InstallPackage(session::EditorContext& context, const Arguments& arguments);
[[nodiscard]] Result VerifyPackage(session::EditorContext& context, const Arguments& arguments);

} // namespace tamarind::cli
