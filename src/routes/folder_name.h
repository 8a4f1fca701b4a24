#pragma once

#include <string_view>

namespace tamarind::routes {

/// Whether an id can be the name of a folder, so that its path leads to no other one: not empty, no dots or blanks
/// alone, none of the characters \ / : * ? " < > | and no control character.
[[nodiscard]] bool IsFolderName(std::string_view id);

} // namespace tamarind::routes
