#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// Hexadecimal text and numbers as the textures' XML has them.
namespace tamarind::convert {

/// Letter case does not count. A character that is no hexadecimal digit counts as -1 and is not rejected: "G" is -1,
/// "1G" is 15, "GG" is -17. Empty text gives 0. Throws Overflow beyond 32 bits.
[[nodiscard]] std::int32_t Hex2Dec(std::string_view text);

/// Upper-case digits without leading zeros, so 0 gives an empty text. A negative number gives the eight digits of its
/// two's complement.
[[nodiscard]] std::string Dec2Hex(std::int32_t number);

/// Turns each pair of characters into the low byte of its Hex2Dec, in order, into the front of `bytes`. Blanks,
/// carriage returns and line feeds are left out before pairs are counted; an odd last character is not used. Returns
/// the number of bytes. Throws SubscriptOutOfRange when there are more than `bytes` has room for.
std::size_t DecodeHex(std::string_view text, std::span<std::uint8_t> bytes);

/// Appends the bytes as upper-case digits: groups of eight bytes, four groups to a line with a single blank between
/// them, a line feed after each line. No bytes give no line.
void AppendHexLines(std::string& text, std::string_view bytes);

/// How many characters AppendHexLines appends for that many bytes.
[[nodiscard]] std::size_t HexLinesLength(std::size_t bytes);

} // namespace tamarind::convert
