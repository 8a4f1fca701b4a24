#include "authoring/entities.h"

#include <algorithm>
#include <array>

namespace tamarind::authoring {
namespace {

/// Whether an entity stands at the front: "&amp;" and its like, or a character's number.
bool IsEntity(std::string_view text) {
    constexpr std::array<std::string_view, 5> kEntities{"&amp;", "&lt;", "&gt;", "&apos;", "&quot;"};
    if (std::any_of(kEntities.begin(), kEntities.end(), [text](std::string_view e) { return text.starts_with(e); }))
        return true;
    if (!text.starts_with("&#")) return false;
    text.remove_prefix(2);
    const bool isHex = text.starts_with('x');
    if (isHex) text.remove_prefix(1);
    const std::size_t digits = text.find_first_not_of(isHex ? "0123456789abcdefABCDEF" : "0123456789");
    return digits != std::string_view::npos && digits > 0 && text[digits] == ';';
}

} // namespace

bool HasLoneAmpersand(std::string_view text) {
    for (std::size_t at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1)) {
        if (!IsEntity(text.substr(at))) return true;
    }
    return false;
}

} // namespace tamarind::authoring
