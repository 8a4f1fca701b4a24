#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tamarind::text {

/// Whether every byte is below 80, so that the text is the same in UTF-8 and in every code page.
[[nodiscard]] bool IsAscii(std::string_view text);

/// Windows-1252 bytes as UTF-8. All 256 bytes have a character: the five that the code page leaves undefined
/// (81, 8D, 8F, 90, 9D) become the control characters of the same number.
[[nodiscard]] std::string FromCodePage(std::string bytes);

/// UTF-8 as Windows-1252 bytes; a character outside the code page, or a byte that is no UTF-8, becomes "?".
[[nodiscard]] std::string ToCodePage(std::string_view text);

/// Whether ToCodePage loses nothing of the text.
[[nodiscard]] bool FitsCodePage(std::string_view text);

/// UTF-16 with a byte-order mark of either order as UTF-8; without a mark little-endian is taken. A lone surrogate
/// becomes U+FFFD, a trailing odd byte is dropped.
[[nodiscard]] std::string FromUtf16(std::string_view bytes);

/// Appends one code point (at most 10FFFF) as UTF-8.
void AppendUtf8(std::string& text, char32_t codePoint);

/// Takes one code point off the front of `text`, which must not be empty. A byte that starts no valid sequence
/// counts as one invalid code point.
struct CodePoint {
    char32_t value = 0;
    bool valid = true;
};
[[nodiscard]] CodePoint TakeCodePoint(std::string_view& text);

/// The Unicode value of one Windows-1252 byte.
[[nodiscard]] char32_t CodePageToUnicode(std::uint8_t byte);

} // namespace tamarind::text
