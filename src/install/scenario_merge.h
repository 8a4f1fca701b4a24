#pragma once

#include <span>
#include <string>
#include <string_view>

/// The rules by which scenarios' records get into a route's index of scenarios. Functions of text alone, letter case
/// ignored.
namespace tamarind::install {

inline constexpr std::string_view kScenarioOpenTag = "<cScenarioProperties";
inline constexpr std::string_view kScenarioCloseTag = "</cScenarioProperties>";

/// The index without the records of the scenarios listed. For one entry after the other, the record is removed in which
/// the entry first occurs in what is left; an entry that occurs nowhere, or in no whole record, removes nothing. The
/// index is read once for all entries of eight ASCII characters or more, as ids are.
[[nodiscard]] std::string RemoveScenarios(std::string_view index, std::span<const std::string> entries);

/// The index without the old records of the scenarios listed and with the new records behind the last one.
/// Throws InvalidProcedureCall when `records` holds none or no whole ones, and when the index has no place for them.
[[nodiscard]] std::string MergeScenarios(std::string_view index, std::span<const std::string> entries,
                                         std::string_view records);

} // namespace tamarind::install
