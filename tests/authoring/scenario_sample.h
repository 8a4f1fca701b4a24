#pragma once

#include <string>

namespace tamarind::tests {

/// A localised text with English alone.
[[nodiscard]] inline std::string LocalisedText(const std::string& tag, const std::string& english) {
    return "<" + tag + ">\r\n<English d:type=\"text\">" + english +
           "</English>\r\n<French d:type=\"text\"></French>\r\n<Italian d:type=\"text\"></Italian>\r\n"
           "<German d:type=\"text\"></German>\r\n<Spanish d:type=\"text\"></Spanish>\r\n</" +
           tag + ">\r\n";
}

/// The keys and values of a scenario's record, in its order.
struct RecordValues {
    std::string id = "s1";
    std::string name = "Morning Milk";
    std::string description = "Take the empties.";
    std::string briefing = "Stop everywhere.";
    std::string start = "43200.0000";
    std::string minutes = "45";
    std::string day = "1";
    std::string month = "5";
    std::string year = "1958";
    std::string season = "SEASON_SPRING";
    std::string provider = "Fernhollow";
    std::string product = "AlderVale";
    std::string blueprint = "Weather\\Clear.xml";
    std::string without = {}; ///< the element that is left out
};

/// A record as the converter writes it.
[[nodiscard]] inline std::string ScenarioRecord(const RecordValues& values = {}) {
    const auto value = [&values](const std::string& key, const std::string& text) {
        return key == values.without ? "" : "<" + key + " d:type=\"text\">" + text + "</" + key + ">\r\n";
    };
    const auto block = [&values](const std::string& key, const std::string& text) {
        return key == values.without ? "" : LocalisedText(key, text);
    };
    return "<cScenarioProperties d:id=\"1\">\r\n" + value("DevString", values.id) + block("DisplayName", values.name) +
           block("Description", values.description) + block("Briefing", values.briefing) +
           value("StartTime", values.start) + value("DurationMins", values.minutes) + value("StartDD", values.day) +
           value("StartMM", values.month) + value("StartYYYY", values.year) + value("Season", values.season) +
           value("Provider", values.provider) + value("Product", values.product) +
           value("BlueprintID", values.blueprint) + "</cScenarioProperties>";
}

} // namespace tamarind::tests
