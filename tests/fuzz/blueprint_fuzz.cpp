// The rules of blueprints on any names and templates: placeholders are replaced as a plain search from left to right
// does it, marker files end in .csv once, no name leads out of its folder, and texts without a warning leave XML whole.
#include "authoring/blueprint.h"
#include "authoring/name_rules.h"
#include "document/clsXMLParse.h"
#include "text/code_page.h"
#include "text/search.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace tamarind;
using authoring::BlueprintTexts;
using session::BlueprintMode;

void Require(bool condition) {
    if (!condition) std::abort();
}

/// The next line of the input, without its line feed.
std::string TakeLine(std::string_view& input) {
    const std::string_view line = input.substr(0, input.find('\n'));
    input.remove_prefix(std::min(input.size(), line.size() + 1));
    return text::FromCodePage(std::string(line));
}

std::string Replaced(const std::string& text, std::string_view key, const std::string& replacement) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const bool isKey = std::string_view(text).substr(at).starts_with(key);
        result += isKey ? replacement : text.substr(at, 1);
        at += isKey ? key.size() : 1;
    }
    return result;
}

void CheckFilling(const std::string& text, BlueprintMode mode, const BlueprintTexts& texts) {
    const bool isRoute = mode == BlueprintMode::RouteTemplate;
    std::string expected = Replaced(text, "ZZZZZZ", texts[0]);
    expected = Replaced(expected, "XXXXXX", isRoute ? texts[1] : authoring::WithCsvEnding(texts[1]));
    if (isRoute) expected = Replaced(expected, "YYYYYY", texts[2]);
    Require(authoring::FillTemplate(text, mode, texts) == expected);
}

void CheckCsv(const std::string& name) {
    const std::string file = authoring::WithCsvEnding(name);
    Require(file.starts_with(name) && (file.size() == name.size() || file == name + ".csv"));
    Require(text::EndsWithNoCase(file, ".csv") && authoring::WithCsvEnding(file) == file);
}

void CheckName(const std::string& name) {
    if (authoring::FileNameRefusal(name, ".xml").empty()) {
        Require(!name.empty() && name.find_first_of("\\/:*?\"<>|") == std::string::npos);
    }
    if (authoring::FolderNameRefusal(name).empty()) Require(name.find_last_not_of(". ") + 1 == name.size());
}

/// Whether XML has a form for every character, and none of them ends a CDATA section.
bool IsPlain(const std::string& text) {
    const auto isPlain = [](char c) { return static_cast<unsigned char>(c) >= 0x20; };
    return std::all_of(text.begin(), text.end(), isPlain) && text.find("]]>") == std::string::npos &&
           text.find("&#") == std::string::npos;
}

void CheckWarnings(BlueprintMode mode, const BlueprintTexts& texts) {
    for (std::size_t row = 0; row < 3; ++row) {
        if (!authoring::BlueprintWarning(row, texts.at(row)).empty() || !IsPlain(texts.at(row))) return;
    }
    const std::string text =
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a><b>ZZZZZZ</b><c>XXXXXX</c><d>YYYYYY</d></a>";
    // Throws where it is no XML, and that ends the run.
    static_cast<void>(document::ParseXml(text::ToCodePage(authoring::FillTemplate(text, mode, texts))));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    std::string_view input(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto mode = static_cast<BlueprintMode>(data[0] % 3 + 1);
    BlueprintTexts texts;
    for (std::size_t row = 0; row < 3; ++row)
        texts.at(row) = TakeLine(input);
    CheckFilling(text::FromCodePage(std::string(input)), mode, texts);
    CheckCsv(texts[1]);
    CheckName(texts[0]);
    CheckWarnings(mode, texts);
    return 0;
}
