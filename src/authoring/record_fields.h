#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// How values are read from and written into the XML of a scenario, as functions of text alone: nothing is parsed, each
/// rule is a few searches from a position on. Every search minds letter case, positions count from 1, and a key finds
/// every element whose name begins with it.
namespace tamarind::authoring {

/// Reads one value: from the first "<" + key at or after `position`, the text between the next ">" and the next "</" +
/// key; `position` is then that closing tag. Where there is no such key, `position` becomes 0 and `value` stays.
/// Throws InvalidProcedureCall when `position` is 0, and for an element that does not end.
void GetTag(std::string_view text, std::size_t& position, std::string_view key, std::string& value);

/// Writes one value in place of the text that GetTag would read; `position` is then the closing tag in the new text.
/// Throws InvalidProcedureCall, and changes nothing, when `position` is 0 or there is no whole element.
void PutDetail(std::string& text, std::size_t& position, std::string_view key, std::string_view value);

/// The text with PutDetail applied again and again from its start on, until no opening tag of the key is left. Throws
/// as PutDetail.
[[nodiscard]] std::string PutEveryDetail(std::string_view text, std::string_view key, std::string_view value);

/// A text in five languages: the first that is not empty of English, French, Italian, German and Spanish, each looked
/// for from where the one before ended; `position` is then the closing tag of the last one tried. The content begins
/// behind the last ">" in front of the closing tag. Throws InvalidProcedureCall where a language that has to be tried
/// is nowhere to be found, or when `position` is 0.
[[nodiscard]] std::string ReadLocalised(std::string_view text, std::size_t& position);

/// Puts the same value into all five languages, in the order above. Throws InvalidProcedureCall when one is missing;
/// those before it are then written.
void WriteLocalised(std::string& text, std::size_t& position, std::string_view value);

} // namespace tamarind::authoring
