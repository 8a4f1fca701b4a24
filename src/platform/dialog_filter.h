#pragma once

#include <string>

namespace tamarind::platform {

/// A file dialog's filter ("Text|*.a;*.b") with patterns that ignore letter case on this system.
[[nodiscard]] std::string DialogFilter(const std::string& filter);

} // namespace tamarind::platform
