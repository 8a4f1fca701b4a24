#pragma once

#include <string>

namespace tamarind::platform {

/// Moves a file or folder into the recycle bin; on a drive that has none it is deleted for good. False, and nothing
/// changed, for a link, which the shell might follow, and for a path that is too long for it. Throws FileNotFound when
/// there is no such entry, PermissionDenied when it could not be moved.
bool MoveToRecycleBin(const std::string& path);

} // namespace tamarind::platform
