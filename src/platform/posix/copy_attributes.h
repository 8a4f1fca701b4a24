#pragma once

#include <string>

namespace tamarind::platform {

/// Owner and extended attributes (as far as allowed) and access rights of `from` given to `to`. The names in the
/// program's spelling go into error details.
void CopyNativeAttributes(const std::string& from, const std::string& fromPath, const std::string& to,
                          const std::string& toPath);

} // namespace tamarind::platform
