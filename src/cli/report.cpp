#include "cli/report.h"

#include <utility>

namespace tamarind::cli {

using nlohmann::ordered_json;
using platform::Answer;
using platform::Buttons;
using platform::Icon;

namespace {

const char* NameOf(Icon icon) {
    switch (icon) {
    case Icon::None: return "none";
    case Icon::Information: return "information";
    case Icon::Question: return "question";
    case Icon::Exclamation: return "exclamation";
    case Icon::Critical: return "critical";
    }
    return "";
}

const char* NameOf(Buttons buttons) {
    switch (buttons) {
    case Buttons::Ok: return "ok";
    case Buttons::YesNo: return "yesno";
    case Buttons::YesNoCancel: return "yesnocancel";
    }
    return "";
}

const char* NameOf(Answer answer) {
    switch (answer) {
    case Answer::Ok: return "ok";
    case Answer::Yes: return "yes";
    case Answer::No: return "no";
    case Answer::Cancel: return "cancel";
    }
    return "";
}

} // namespace

std::string JsonReport(const std::string& command, const std::vector<platform::TerminalUserInterface::Shown>& messages,
                       ordered_json result, const std::optional<text::RuntimeError>& error) {
    ordered_json report = {{"command", command}, {"messages", ordered_json::array()}, {"result", nullptr}};
    report["result"] = std::move(result); // may be large
    for (const auto& [message, answer] : messages) {
        report["messages"].push_back({{"icon", NameOf(message.icon)},
                                      {"title", message.title},
                                      {"text", message.text},
                                      {"buttons", NameOf(message.buttons)},
                                      {"answer", NameOf(answer)}});
    }
    report["error"] = nullptr;
    if (error) report["error"] = {{"number", error->Number()}, {"description", error->Description()}};
    // A file name may hold bytes that are no UTF-8.
    std::string text = report.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
    return text += '\n';
}

std::string OnOneLine(std::string_view text) {
    std::string line;
    for (const char c : text) {
        switch (c) {
        case '\\': line += "\\\\"; break;
        case '\n': line += "\\n"; break;
        case '\r': line += "\\r"; break;
        case '\t': line += "\\t"; break;
        default: line += c;
        }
    }
    return line;
}

} // namespace tamarind::cli
