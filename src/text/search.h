#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Searches and cuts on UTF-8 text. Positions count bytes from 1; 0 means "not found". "NoCase" variants ignore
/// letter case of the Latin, Greek and Cyrillic alphabets.
namespace tamarind::text {

/// Position of `key` in `text` at or after `start`; 0 when there is none.
/// Throws InvalidProcedureCall when `start` is 0. An empty key is found at `start`, or not past the end.
[[nodiscard]] std::size_t Find(std::string_view text, std::string_view key, std::size_t start = 1);

/// Position of the last `key` that ends at or before `end`; 0 when there is none, or when `end` is 0.
[[nodiscard]] std::size_t FindLast(std::string_view text, std::string_view key,
                                   std::size_t end = std::string_view::npos);

/// The `length` bytes from position `start`, fewer where the text ends earlier.
/// Throws InvalidProcedureCall when `start` is below 1 or `length` is negative.
[[nodiscard]] std::string Cut(std::string_view text, std::int64_t start, std::int64_t length);

/// Every `key` replaced, from left to right, replacements not searched again. An empty key replaces nothing.
[[nodiscard]] std::string ReplaceAll(std::string_view text, std::string_view key, std::string_view replacement);

/// The text with every letter in lower case, one code point for one code point.
[[nodiscard]] std::string ToLower(std::string_view text);

[[nodiscard]] bool EqualNoCase(std::string_view left, std::string_view right);
[[nodiscard]] bool EndsWithNoCase(std::string_view text, std::string_view ending);
/// Below 0, 0 or above 0 as `left` sorts before, with or after `right`.
[[nodiscard]] int CompareNoCase(std::string_view left, std::string_view right);

} // namespace tamarind::text
