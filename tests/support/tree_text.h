#pragma once

#include "document/clsNode.h"

#include <string>

namespace tamarind::tests {

/// The tree as one line that a test can compare: key:name[attribute=value,...]{text}(children).
[[nodiscard]] std::string TreeText(const document::clsNode& top);

} // namespace tamarind::tests
