#pragma once

#include <string>

namespace tamarind::platform {

/// Throws the RuntimeError that belongs to an errno value; its details name `path`, as the program spells it.
/// A missing file whose folder is missing too is PathNotFound.
[[noreturn]] void ThrowSystemError(int error, const std::string& path);

} // namespace tamarind::platform
