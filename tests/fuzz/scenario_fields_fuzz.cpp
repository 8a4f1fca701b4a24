// The scenario editor's fields, read from and written to any bytes: what one pass writes is what the plainest reading
// of the rule writes, and what was written to a whole record is read again.
#include "authoring/record_fields.h"
#include "authoring/scenario_fields.h"
#include "authoring/start_time.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <optional>

namespace {

using namespace tamarind;
using authoring::Field;
using authoring::FieldTexts;

void Require(bool condition) {
    if (!condition) std::abort();
}

/// The rule's result; nothing where it fails, which it may in one way alone.
template <typename Rule> auto Try(const Rule& rule) -> std::optional<decltype(rule())> {
    try {
        return rule();
    } catch (const text::RuntimeError& error) {
        Require(error.Code() == text::ErrorNumber::InvalidProcedureCall ||
                error.Code() == text::ErrorNumber::TypeMismatch || error.Code() == text::ErrorNumber::Overflow);
        return std::nullopt;
    }
}

std::string PutOneByOne(std::string text, std::string_view key, std::string_view value) {
    std::size_t position = 1;
    while (text.find("<" + std::string(key), position - 1) != std::string::npos)
        authoring::PutDetail(text, position, key, value);
    return text;
}

/// Any record: its rules end, or fail in the ways that they may.
void TryRecord(std::string_view record) {
    if (const auto fields = Try([&] { return authoring::ReadFields(record); }))
        static_cast<void>(Try([&] { return authoring::WriteFields(record, *fields); }));
}

/// A whole record, with a line of the input for each value: what is written is read again.
void TryWholeRecord(std::string_view values) {
    constexpr std::array<const char*, 9> kKeys{"StartTime", "DurationMins", "StartDD", "StartMM",    "StartYYYY",
                                               "Season",    "Provider",     "Product", "BlueprintID"};
    if (values.find_first_of("<>") != std::string_view::npos) return;
    FieldTexts fields;
    for (std::size_t i = 0; i < authoring::kFieldCount; ++i) {
        const std::string_view value = values.substr(0, values.find('\n'));
        fields[static_cast<Field>(i)] = value;
        values.remove_prefix(std::min(value.size() + 1, values.size()));
    }
    std::string record;
    for (const char* const key : {"DisplayName", "Description", "Briefing"}) {
        record += "<" + std::string(key) + ">";
        for (const char* const language : {"English", "French", "Italian", "German", "Spanish"})
            record += "<" + std::string(language) + ">old</" + language + ">";
    }
    for (const char* const key : kKeys)
        record += "<" + std::string(key) + ">0</" + key + ">";
    const auto written = Try([&] { return authoring::WriteFields(record, fields); });
    if (!written) return; // a start that is no number
    auto again = authoring::ReadFields(*written);
    again[Field::StartTime] = fields[Field::StartTime]; // that is rounded
    Require(again == fields);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t end = input.find('\n');
    if (end == std::string_view::npos) return 0;
    const std::string_view typed = input.substr(0, end);
    const std::string_view text = input.substr(end + 1);
    for (const std::string_view key : {"PlayerDriver", "Name", "S"}) {
        Require(Try([&] { return authoring::PutEveryDetail(text, key, typed); }) ==
                Try([&] { return PutOneByOne(std::string(text), key, typed); }));
    }
    TryRecord(text);
    TryWholeRecord(input);
    static_cast<void>(Try([&] { return authoring::ShownStartTime(typed); }));
    static_cast<void>(Try([&] { return authoring::StoredStartTime(typed); }));
    static_cast<void>(authoring::StartInWords(
        {.time = typed.substr(0, 4), .day = typed, .month = typed, .year = typed, .minutes = typed}));
    static_cast<void>(authoring::TextWarning(typed, true));
    return 0;
}
