#pragma once

#include <string>
#include <string_view>

/// The rules by which a route's record gets into the game's index of routes. Functions of text alone, letter case
/// ignored, each reading the text a fixed number of times.
namespace tamarind::install {

inline constexpr std::string_view kRouteOpenTag = "<cRouteProperties";
inline constexpr std::string_view kRouteCloseTag = "</cRouteProperties>";

/// The content of the record's first English name as it stands; empty when there is none.
[[nodiscard]] std::string EnglishNameOf(std::string_view record);

/// The content of the record's first id as it stands; empty when there is none.
[[nodiscard]] std::string KeyOf(std::string_view record);

/// The index with the record in it: in place of the one in which the record's key first occurs, else behind the last
/// record. Throws InvalidProcedureCall when the record has no key or is not whole, and when the index has no whole
/// record round the key or no place for a new one.
[[nodiscard]] std::string MergeRoute(std::string_view catalogue, std::string_view record);

} // namespace tamarind::install
