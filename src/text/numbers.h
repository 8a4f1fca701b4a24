#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tamarind::text {

/// A decimal number with optional sign, fraction and exponent, blanks around it allowed.
/// Throws TypeMismatch when the text is no number.
[[nodiscard]] double ReadNumber(std::string_view text);

/// Rounded to the nearest whole number, halves to even. Throws Overflow outside -32768 to 32767.
[[nodiscard]] std::int16_t ToInt16(double number);

/// Rounded to the nearest whole number, halves to even, and held within -32768 to 32767.
[[nodiscard]] std::int16_t ClampToInt16(double number);

} // namespace tamarind::text
