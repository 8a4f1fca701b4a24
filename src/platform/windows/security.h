#pragma once

#include <string>

namespace tamarind::platform {

/// Owner, group and access list of `source` given to `target`, as far as the system allows. Where it does not, the
/// target keeps what it inherited from its folder.
void CopySecurity(const std::wstring& source, const std::wstring& target);

} // namespace tamarind::platform
