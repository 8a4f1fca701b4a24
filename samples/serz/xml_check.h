#pragma once

#include <string_view>

namespace tamarind::samples {

/// A cheap test whether 8-bit text is XML: after a byte order mark and blanks it begins with "<", and it holds one
/// element whose tags are balanced, with nothing but blanks, comments and instructions outside it. Names, attributes
/// and entities are not checked.
[[nodiscard]] bool IsBalancedXml(std::string_view text);

} // namespace tamarind::samples
