#include "authoring/scenario_fields.h"

#include "authoring/entities.h"
#include "authoring/record_fields.h"
#include "authoring/start_time.h"
#include "text/code_page.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <array>

namespace tamarind::authoring {

using text::ErrorNumber;
using text::Find;
using text::RuntimeError;

namespace {

struct FieldKey {
    Field field;
    const char* label;
    const char* key;
};

constexpr std::array<FieldKey, 3> kTexts{{{Field::DisplayName, "Display Name:", "<DisplayName>"},
                                          {Field::Description, "Description", "<Description>"},
                                          {Field::Briefing, "Briefing", "<Briefing>"}}};

/// In the order of a record.
constexpr std::array<FieldKey, 9> kValues{{{Field::StartTime, "Start Time (24 hour)", "StartTime"},
                                           {Field::Duration, "Duration (mins)", "DurationMins"},
                                           {Field::StartDay, "Start Day", "StartDD"},
                                           {Field::StartMonth, "Start Month", "StartMM"},
                                           {Field::StartYear, "Start Year", "StartYYYY"},
                                           {Field::Season, "Season", "Season"},
                                           {Field::WeatherProvider, "Weather Provider", "Provider"},
                                           {Field::WeatherProduct, "Weather Product", "Product"},
                                           {Field::WeatherBlueprint, "Weather Blueprint", "BlueprintID"}}};

/// The first position for a search for the next text: where the one before was found.
constexpr std::size_t kStart = 1;

} // namespace

const char* LabelOf(Field field) {
    const auto index = static_cast<std::size_t>(field);
    return index < kTexts.size() ? kTexts.at(index).label : kValues.at(index - kTexts.size()).label;
}

FieldTexts ReadFields(std::string_view record) {
    FieldTexts fields;
    std::size_t position = kStart;
    const char* key = nullptr;
    try {
        for (const FieldKey& text : kTexts) {
            key = text.key;
            position = Find(record, text.key, position);
            fields[text.field] = ReadLocalised(record, position);
        }
        // Without one the next search has no place to begin, so that only the last one may be missing.
        for (const FieldKey& value : kValues) {
            if (position == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
            key = value.key;
            GetTag(record, position, value.key, fields[value.field]);
        }
        key = "StartTime";
        fields[Field::StartTime] = ShownStartTime(fields[Field::StartTime]);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Code(), text::ReplaceAll(text::ReplaceAll(key, "<", ""), ">", ""));
    }
    return fields;
}

std::string WriteFields(std::string_view record, const FieldTexts& fields) {
    FieldTexts stored = fields;
    stored[Field::StartTime] = StoredStartTime(fields[Field::StartTime]);
    std::string changed(record);
    std::size_t position = kStart;
    for (const FieldKey& text : kTexts) {
        position = Find(changed, text.key, position);
        WriteLocalised(changed, position, stored[text.field]);
    }
    for (const FieldKey& value : kValues)
        PutDetail(changed, position, value.key, stored[value.field]);
    return changed;
}

std::string TextWarning(std::string_view text, bool isCodePage) {
    if (text.find('<') != std::string_view::npos) return "\"<\" breaks the scenario: write \"&lt;\".";
    if (HasLoneAmpersand(text)) return "\"&\" breaks the scenario: write \"&amp;\".";
    if (text.find('>') != std::string_view::npos) return "Text in front of \">\" gets lost: write \"&gt;\".";
    if (isCodePage && !text::FitsCodePage(text)) return "Some letters are written as \"?\".";
    return {};
}

} // namespace tamarind::authoring
