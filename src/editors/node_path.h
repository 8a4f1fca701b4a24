#pragma once

#include "document/clsNode.h"

#include <string>

namespace tamarind::editors {

/// Where an element stands, as "/Line/Station[2]/Platform": the position among those of the same name follows where
/// there are several. Empty for the document node.
[[nodiscard]] std::string PathOf(const document::clsNode& node);

} // namespace tamarind::editors
