#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// The twelve fields of a scenario's record. Functions of text alone.
namespace tamarind::authoring {

/// In the order of the window's text boxes.
enum class Field : std::size_t {
    DisplayName,
    Description,
    Briefing,
    StartTime, ///< four digits
    Duration,
    StartDay,
    StartMonth,
    StartYear,
    Season,
    WeatherProvider,
    WeatherProduct,
    WeatherBlueprint,
};

inline constexpr std::size_t kFieldCount = 12;

/// A text for each field.
class FieldTexts {
public:
    [[nodiscard]] std::string& operator[](Field field) { return texts_.at(static_cast<std::size_t>(field)); }
    [[nodiscard]] const std::string& operator[](Field field) const {
        return texts_.at(static_cast<std::size_t>(field));
    }
    [[nodiscard]] auto begin() const { return texts_.begin(); }
    [[nodiscard]] auto end() const { return texts_.end(); }
    bool operator==(const FieldTexts&) const = default;

private:
    std::array<std::string, kFieldCount> texts_;
};

[[nodiscard]] const char* LabelOf(Field field);

/// Reads the fields of a record. A record without the last one leaves it empty.
/// Throws RuntimeError, with the name of the field's element as its details, where one cannot be read.
[[nodiscard]] FieldTexts ReadFields(std::string_view record);

/// The record with the fields in it, texts as typed: nothing is made XML. The three localised texts become the same in
/// all five languages. Throws InvalidProcedureCall where an element is missing, TypeMismatch for a time of no numbers.
[[nodiscard]] std::string WriteFields(std::string_view record, const FieldTexts& fields);

/// What is wrong with a text that is written as it is typed; empty when nothing is. "&" that begins no entity and "<"
/// break the record; what stands in front of a ">" is lost when the text is read again; and with `isCodePage` a letter
/// outside of Windows-1252 becomes "?".
[[nodiscard]] std::string TextWarning(std::string_view text, bool isCodePage);

} // namespace tamarind::authoring
