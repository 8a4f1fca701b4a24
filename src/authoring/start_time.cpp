#include "authoring/start_time.h"

#include "text/numbers.h"
#include "text/runtime_error.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace tamarind::authoring {

using text::ErrorNumber;
using text::RuntimeError;

namespace {

constexpr std::int64_t kSecondsPerMinute = 60;
constexpr std::int64_t kSecondsPerHour = 3600;

constexpr std::array<const char*, 7> kWeekdays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                               "Thursday", "Friday", "Saturday"};
constexpr std::array<const char*, 12> kMonths{"January", "February", "March",     "April",   "May",      "June",
                                              "July",    "August",   "September", "October", "November", "December"};

/// A number as the record's texts have it: the sign in front of the leading zeros.
const char* SignOf(double number) { return number < 0 ? "-" : ""; }

std::string TwoDigits(std::int16_t number) { return fmt::format("{}{:02}", SignOf(number), std::abs(int{number})); }

/// Held in 32 bits, as numbers of seconds are.
std::int64_t WholeSeconds(double seconds) {
    const double whole = std::nearbyint(seconds);
    if (std::abs(whole) > std::numeric_limits<std::int32_t>::max()) throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<std::int64_t>(whole);
}

std::int64_t TypedSeconds(std::string_view shown) {
    const std::size_t half = std::min<std::size_t>(2, shown.size());
    const auto hours = text::ToInt16(text::ReadNumber(shown.substr(0, half)));
    const auto minutes = text::ToInt16(text::ReadNumber(shown.substr(shown.size() - half)));
    return hours * kSecondsPerHour + minutes * kSecondsPerMinute;
}

std::optional<int> DigitsOf(std::string_view text) {
    constexpr std::size_t kMostDigits = 4;
    const bool areDigits = std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (text.empty() || text.size() > kMostDigits || !areDigits) return std::nullopt;
    return static_cast<int>(text::ReadNumber(text));
}

std::optional<std::chrono::sys_days> DateOf(const TypedStart& start) {
    const auto day = DigitsOf(start.day);
    const auto month = DigitsOf(start.month);
    const auto year = DigitsOf(start.year);
    if (!day || !month || !year) return std::nullopt;
    const std::chrono::year_month_day date(std::chrono::year(*year), std::chrono::month(static_cast<unsigned>(*month)),
                                           std::chrono::day(static_cast<unsigned>(*day)));
    if (!date.ok()) return std::nullopt;
    return std::chrono::sys_days(date);
}

std::string DateInWords(std::chrono::sys_days days) {
    const std::chrono::year_month_day date(days);
    return fmt::format("{}, {} {} {}", kWeekdays.at(std::chrono::weekday(days).c_encoding()),
                       static_cast<unsigned>(date.day()), kMonths.at(static_cast<unsigned>(date.month()) - 1),
                       static_cast<int>(date.year()));
}

} // namespace

std::string ShownStartTime(std::string_view seconds) {
    const double number = text::ReadNumber(seconds);
    const auto hours = text::ToInt16(number / static_cast<double>(kSecondsPerHour));
    const auto rest = static_cast<double>(WholeSeconds(number) % kSecondsPerHour);
    return TwoDigits(hours) + TwoDigits(text::ToInt16(rest / static_cast<double>(kSecondsPerMinute)));
}

std::string StoredStartTime(std::string_view shown) {
    const auto seconds = static_cast<double>(TypedSeconds(shown));
    return fmt::format("{}{:010.4f}", SignOf(seconds), std::abs(seconds));
}

std::string StartInWords(const TypedStart& start) {
    constexpr std::size_t kTimeDigits = 4;
    constexpr std::int64_t kHoursPerDay = 24;
    auto date = DateOf(start);
    if (!date) return "This date is not in the calendar.";
    if (start.time.size() != kTimeDigits || !DigitsOf(start.time)) return "This time is not four digits.";
    const std::int64_t minutes = TypedSeconds(start.time) / kSecondsPerMinute;
    const std::int64_t hours = minutes / kSecondsPerMinute;
    *date += std::chrono::days(hours / kHoursPerDay);
    std::string words =
        fmt::format("{}, {:02}:{:02}", DateInWords(*date), hours % kHoursPerDay, minutes % kSecondsPerMinute);
    if (const auto length = DigitsOf(start.minutes))
        words += fmt::format(", for {} minute{}", *length, *length == 1 ? "" : "s");
    return words;
}

} // namespace tamarind::authoring
