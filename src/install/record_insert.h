#pragma once

#include <string>
#include <string_view>

namespace tamarind::install {

/// An index with records put behind the last ">" in front of its last "</Record". Two characters behind that ">" stay
/// in front of the records, and the second of them stands behind the records once more: indexes have had it so from the
/// first installers on. A line break that would double after records that end with one is left out.
/// Throws InvalidProcedureCall when there is no such place.
[[nodiscard]] std::string InsertRecords(std::string_view index, std::string_view records);

/// `left`, the records and `right` as one text; a line break of `right` that would double is left out.
[[nodiscard]] std::string JoinAround(std::string_view left, std::string_view records, std::string_view right);

/// Whether the text holds records: at least one opening tag, and as many closing ones, which come behind.
[[nodiscard]] bool HoldsWholeRecords(std::string_view text, std::string_view openTag, std::string_view closeTag);

/// How often `key` stands in the text, letter case ignored.
[[nodiscard]] std::size_t CountOf(std::string_view text, std::string_view key);

} // namespace tamarind::install
