#include "text/numbers.h"

#include "text/runtime_error.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace tamarind::text {
namespace {

constexpr double kLowest = std::numeric_limits<std::int16_t>::min();
constexpr double kHighest = std::numeric_limits<std::int16_t>::max();

std::string_view Trim(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// To the nearest whole number, halves to even: what the default rounding mode does.
double Round(double number) { return std::nearbyint(number); }

} // namespace

double ReadNumber(std::string_view text) {
    std::string_view digits = Trim(text);
    if (digits.starts_with('+') && !digits.starts_with("+-")) digits.remove_prefix(1);
    double number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    if (error == std::errc::result_out_of_range) throw RuntimeError(ErrorNumber::Overflow);
    if (error != std::errc() || stop != end || !std::isfinite(number)) throw RuntimeError(ErrorNumber::TypeMismatch);
    return number;
}

std::int16_t ToInt16(double number) {
    const double whole = Round(number);
    if (whole < kLowest || whole > kHighest) throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<std::int16_t>(whole);
}

std::int16_t ClampToInt16(double number) { return ToInt16(std::clamp(number, kLowest, kHighest)); }

} // namespace tamarind::text
