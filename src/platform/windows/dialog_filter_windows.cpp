#include "platform/dialog_filter.h"

namespace tamarind::platform {

std::string DialogFilter(const std::string& filter) { return filter; }

} // namespace tamarind::platform
