// The scenario editor's fields, read from and written to any bytes: what one pass writes is what the plainest reading
// of the rule writes, and what was written is read again.
#include "authoring/record_fields.h"
#include "authoring/scenario_fields.h"
#include "authoring/start_time.h"
#include "text/runtime_error.h"

#include <cstdint>
#include <cstdlib>
#include <optional>

namespace {

using namespace tamarind;
using authoring::Field;

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

bool IsPlain(std::string_view text) { return text.find_first_of("<>") == std::string_view::npos; }

void TryRecord(std::string_view record, std::string_view typed) {
    auto fields = Try([&] { return authoring::ReadFields(record); });
    if (!fields) return;
    (*fields)[Field::Briefing] = typed;
    const auto written = Try([&] { return authoring::WriteFields(record, *fields); });
    if (!written || !IsPlain(typed)) return;
    for (const std::string& text : *fields) {
        if (!IsPlain(text)) return; // keys within values
    }
    const auto again = Try([&] { return authoring::ReadFields(*written); });
    Require(again.has_value());
    Require((*again)[Field::Season] == (*fields)[Field::Season]);
    if (!typed.empty()) Require((*again)[Field::Briefing] == typed);
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
    TryRecord(text, typed);
    static_cast<void>(Try([&] { return authoring::ShownStartTime(typed); }));
    static_cast<void>(Try([&] { return authoring::StoredStartTime(typed); }));
    static_cast<void>(authoring::StartInWords(
        {.time = typed.substr(0, 4), .day = typed, .month = typed, .year = typed, .minutes = typed}));
    static_cast<void>(authoring::TextWarning(typed, true));
    return 0;
}
