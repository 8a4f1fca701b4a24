#pragma once

#include <array>
#include <string>
#include <string_view>

/// A scenario's start: seconds after midnight in the record, four digits in the window.
namespace tamarind::authoring {

/// Seconds after midnight as hours and minutes, two digits each. Hours are rounded to the nearest whole number, halves
/// to even, not cut off, so that 20700 (05:45) reads "0645": players' habits and other tools count on it.
/// Throws TypeMismatch when the text is no number, Overflow when it is too large.
[[nodiscard]] std::string ShownStartTime(std::string_view seconds);

/// Four characters as the record holds them, for example "19800.0000" for "0530". Minutes may be more than 59.
/// Throws TypeMismatch when the first two or the last two are no number.
[[nodiscard]] std::string StoredStartTime(std::string_view shown);

/// A start as it is typed.
struct TypedStart {
    std::string_view time; ///< four digits
    std::string_view day;
    std::string_view month;
    std::string_view year;
    std::string_view minutes; ///< how long the scenario takes
};

/// In one line how it will read, such as "Thursday, 1 May 1958, 06:30, for 45 minutes"; or what cannot be read.
[[nodiscard]] std::string StartInWords(const TypedStart& start);

} // namespace tamarind::authoring
