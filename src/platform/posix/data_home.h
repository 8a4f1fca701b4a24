#pragma once

#include <string>

namespace tamarind::platform {

/// The native folder of a person's own data: XDG_DATA_HOME, else ".local/share" in the home folder. Empty when neither
/// is known.
[[nodiscard]] std::string DataHome();

/// Makes the native folder and those above it, for this person alone; false, and errno set, when that fails.
[[nodiscard]] bool MakeOwnFolders(const std::string& folder);

} // namespace tamarind::platform
