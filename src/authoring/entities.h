#pragma once

#include <string_view>

namespace tamarind::authoring {

/// Whether the text holds a "&" that begins no entity: neither one of the five of XML nor a character's number.
[[nodiscard]] bool HasLoneAmpersand(std::string_view text);

} // namespace tamarind::authoring
