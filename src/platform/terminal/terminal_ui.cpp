#include "platform/terminal/terminal_ui.h"

#include <cctype>
#include <ostream>
#include <utility>

namespace tamarind::platform {
namespace {

std::string WithPlainLineEnds(const std::string& text) {
    std::string plain;
    for (const char c : text) {
        if (c != '\r') plain += c;
    }
    return plain;
}

std::optional<Answer> AnswerFromLine(const std::string& line, Buttons buttons) {
    const int first = line.empty() ? 0 : std::tolower(static_cast<unsigned char>(line.front()));
    if (first == 'y') return Answer::Yes;
    if (first == 'n') return Answer::No;
    if (first == 'c' && buttons == Buttons::YesNoCancel) return Answer::Cancel;
    return std::nullopt;
}

} // namespace

TerminalUserInterface::TerminalUserInterface(const Options& options, std::ostream& output,
                                             std::function<std::optional<std::string>()> ask)
    : options_(options), output_(output), ask_(std::move(ask)) {}

Answer TerminalUserInterface::Show(const Message& message) {
    EndProgress();
    if (!options_.isQuiet) output_ << WithPlainLineEnds(message.text) << '\n';
    const Answer answer = message.buttons == Buttons::Ok ? Answer::Ok : AnswerTo(message);
    shown_.push_back({message, answer});
    return answer;
}

Answer TerminalUserInterface::AnswerTo(const Message& message) {
    if (options_.answerTo) {
        if (const auto answer = options_.answerTo(message)) return *answer;
    }
    if (options_.answer) return *options_.answer;
    while (true) {
        output_ << (options_.isQuiet ? WithPlainLineEnds(message.text) + ' ' : "")
                << (message.buttons == Buttons::YesNo ? "[y/n] " : "[y/n/c] ") << std::flush;
        const auto line = ask_();
        if (!line) return Answer::No;
        if (const auto answer = AnswerFromLine(*line, message.buttons)) return *answer;
    }
}

std::string TerminalUserInterface::AskForFile(const FileDialog&) { return {}; }

std::string TerminalUserInterface::AskForText(const std::string&, const std::string&, const std::string&) { return {}; }

void TerminalUserInterface::SetBusy(bool) {}

void TerminalUserInterface::ProcessEvents() {}

bool TerminalUserInterface::ShowProgress(const Progress& progress) {
    constexpr const char* kClearLine = "\r\x1B[K";
    if (options_.showsProgress) {
        output_ << kClearLine << ProgressText(progress) << ": " << progress.current << std::flush;
        hasProgressLine_ = true;
    }
    return !options_.isInterrupted();
}

void TerminalUserInterface::EndProgress() {
    if (hasProgressLine_) output_ << "\r\x1B[K" << std::flush;
    hasProgressLine_ = false;
}

bool TerminalUserInterface::StopRequested() { return options_.isInterrupted(); }

void TerminalUserInterface::ShowStatus(const std::string& text) { output_ << text << '\n'; }

} // namespace tamarind::platform
