#include "authoring/blueprint.h"

#include "authoring/entities.h"
#include "text/code_page.h"
#include "text/search.h"

namespace tamarind::authoring {

using session::BlueprintMode;

namespace {

constexpr std::string_view kCsv = ".csv";
constexpr const char* kNamePlaceholder = "ZZZZZZ";
constexpr const char* kSecondPlaceholder = "XXXXXX";
constexpr const char* kThirdPlaceholder = "YYYYYY";

constexpr BlueprintForm kNamed{"Set up Blueprint for a Named Marker file",
                               {"Named Marker File Name:", ".csv File Name:"},
                               "\\BluePrints\\Blue_Named.xml",
                               "Select your RouteMarkers folder"};
constexpr BlueprintForm kSeries{"Set up Blueprint for a Series Marker file",
                                {"Series Marker File Name:", ".csv File Name:"},
                                "\\BluePrints\\Blue_Series.xml",
                                "Select your RouteMarkers folder"};
constexpr BlueprintForm kRoute{"Set up Blueprint for a Route Template",
                               {"Route Template Name:", "Longitude:", "Latitude:"},
                               "\\BluePrints\\Blue_Route.xml",
                               "Select your TemplateRoutes folder"};

} // namespace

const BlueprintForm& FormOf(BlueprintMode mode) {
    switch (mode) {
    case BlueprintMode::NamedMarker: return kNamed;
    case BlueprintMode::SeriesMarker: return kSeries;
    case BlueprintMode::RouteTemplate: return kRoute;
    }
    return kNamed;
}

std::string WithCsvEnding(std::string_view name) {
    return std::string(name) + (text::EndsWithNoCase(name, kCsv) ? "" : std::string(kCsv));
}

std::string FillTemplate(std::string_view text, BlueprintMode mode, const BlueprintTexts& texts) {
    const std::string named = text::ReplaceAll(text, kNamePlaceholder, texts[0]);
    if (mode != BlueprintMode::RouteTemplate) {
        return text::ReplaceAll(named, kSecondPlaceholder, WithCsvEnding(texts[1]));
    }
    return text::ReplaceAll(text::ReplaceAll(named, kSecondPlaceholder, texts[1]), kThirdPlaceholder, texts[2]);
}

std::string BlueprintWarning(std::size_t row, std::string_view text) {
    // The first row's text is the name of the file, too, where an entity would be taken by the letter.
    const bool isFileName = row == 0;
    if (text.find('<') != std::string_view::npos)
        return isFileName ? "\"<\" cannot be in a name." : "\"<\" breaks the blueprint: write \"&lt;\".";
    if (HasLoneAmpersand(text))
        return isFileName ? "\"&\" breaks the blueprint: leave it out."
                          : "\"&\" breaks the blueprint: write \"&amp;\".";
    if (!text::FitsCodePage(text)) return "Some letters are written as \"?\".";
    return {};
}

} // namespace tamarind::authoring
