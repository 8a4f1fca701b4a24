#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The rules of the game's two indexes: that of the routes, and each route's own of its scenarios. Functions of text
/// alone; every search is without regard to letter case, positions count from 1, and each rule reads the text once.
namespace tamarind::routes {

/// What the rule for a name in five languages finds.
struct FoundName {
    std::string name;     ///< as it stands, entities included; empty when all five languages are
    std::size_t next = 0; ///< where the next search continues: the closing tag of the last language tried
};

/// The first name that is not empty of English, French, Italian, German and Spanish, looked for from `start` on. The
/// entry's end is no border: where an element is missing, that of a later entry is taken.
/// Throws InvalidProcedureCall where a language that has to be tried, or its closing tag, is nowhere to be found.
[[nodiscard]] FoundName LocalisedName(std::string_view text, std::size_t start);

/// Appends id and display name of every record of an index. Throws InvalidProcedureCall at a record without a closing
/// tag or without a name; what was found before it, the record's id included, stays appended.
///
/// An index of scenarios is read by the same rule. There the name is to be cut a second time, from the content of its
/// last language to the closing tag of the id; since that lies in front of the name, the cut has a negative length, and
/// such a cut leaves the name as it is.
void ScanRecords(std::string_view text, std::vector<std::string>& ids, std::vector<std::string>& names);

enum class IndexKind { Routes, Scenarios };

/// The index without the entry in which the id first occurs. In front of a next entry one character more than needed
/// stays. Throws InvalidProcedureCall when the id does not occur, when no entry begins before it, or when the last
/// entry is not closed.
[[nodiscard]] std::string RemoveEntry(std::string_view indexText, std::string_view id, IndexKind kind);

} // namespace tamarind::routes
