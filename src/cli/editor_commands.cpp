#include "cli/editor_commands.h"

#include "editors/document_commands.h"
#include "editors/highlighter.h"
#include "editors/tree_search.h"
#include "platform/console.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "text/code_page.h"

#include <algorithm>
#include <utility>

namespace tamarind::cli {

using editors::Colour;
using editors::ColourRun;
using nlohmann::ordered_json;
using session::EditorContext;

namespace {

constexpr std::string_view kBlueOn = "\x1B[34m";
constexpr std::string_view kRedOn = "\x1B[31m";
constexpr std::string_view kColourOff = "\x1B[39m";

std::size_t CountCharacters(std::string_view text) {
    // Every byte but those that only go on with a character.
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

ordered_json RunsInCharacters(std::string_view text, const std::vector<ColourRun>& runs) {
    ordered_json list = ordered_json::array();
    std::size_t byte = 0;
    std::size_t character = 0;
    for (const ColourRun& run : runs) {
        character += CountCharacters(text.substr(byte, run.start - byte));
        const std::size_t length = CountCharacters(text.substr(run.start, run.length));
        list.push_back(ordered_json::array({character, length, run.colour == Colour::Blue ? "blue" : "red"}));
        character += length;
        byte = run.start + run.length;
    }
    return list;
}

std::string InTerminalColours(std::string_view text, const std::vector<ColourRun>& runs) {
    std::string coloured;
    std::size_t byte = 0;
    for (const ColourRun& run : runs) {
        coloured += text.substr(byte, run.start - byte);
        coloured += run.colour == Colour::Blue ? kBlueOn : kRedOn;
        coloured += text.substr(run.start, run.length);
        coloured += kColourOff;
        byte = run.start + run.length;
    }
    return coloured += text.substr(byte);
}

} // namespace

Result HighlightFile(EditorContext& context, const Arguments& arguments) {
    std::string text;
    text = text::FromCodePage(platform::ReadBytes(context.platform.files, platform::FromNative(arguments.xml)));
    const auto runs = editors::HighlightXml(text);
    Result result{Outcome::Done};
    if (arguments.json) {
        result.json["runs"] = RunsInCharacters(text, runs);
    } else {
        result.lines = platform::WantsColours() ? InTerminalColours(text, runs) : std::move(text);
    }
    return result;
}

Result FindRows(EditorContext& context, const Arguments& arguments) {
    context.document.path = platform::FromNative(arguments.xml);
    if (!editors::LoadXmlFile(context)) return {Outcome::Failed};
    const auto where = arguments.inText ? editors::SearchIn::ElementTexts : editors::SearchIn::RowTexts;
    const auto found = editors::FindAllRows(context, where, {arguments.text, arguments.wholeWord});
    if (!found) return {Outcome::Failed};
    Result result{Outcome::Done, ordered_json::object({{"rows", ordered_json::array()}})};
    for (const document::clsNode* const node : *found) {
        result.json["rows"].push_back(node->NodeKeyText());
        result.lines += node->NodeKeyText() + "\n";
    }
    return result;
}

} // namespace tamarind::cli
