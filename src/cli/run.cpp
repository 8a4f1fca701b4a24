#include "cli/run.h"

#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/report.h"
#include "cli/route_commands.h"
#include "platform/console.h"
#include "platform/paths.h"
#include "platform/program_folder.h"
#include "session/headless_view.h"
#include "text/search.h"

#include <istream>
#include <ostream>
#include <utility>

namespace tamarind::cli {

using platform::TerminalUserInterface;

namespace {

int ExitStatus(Outcome outcome) {
    switch (outcome) {
    case Outcome::Done: return 0;
    case Outcome::Failed: return 1;
    case Outcome::Declined: return 3;
    }
    return 1;
}

int ReportUsage(const ParseResult& parsed, std::ostream& output, std::ostream& messages) {
    const bool isWrong = *parsed.exitCode != 0;
    (isWrong ? messages : output) << parsed.message;
    if (isWrong && parsed.arguments.json) output << JsonReport(parsed.arguments.command, {}, nullptr, std::nullopt);
    return *parsed.exitCode;
}

std::optional<platform::Answer> PresetAnswer(const Arguments& arguments) {
    if (!arguments.answerYes) return std::nullopt;
    return *arguments.answerYes ? platform::Answer::Yes : platform::Answer::No;
}

std::optional<std::string> AskPerson(std::istream& input) {
    std::string line;
    if (!platform::StandardInputIsTerminal() || !std::getline(input, line)) return std::nullopt;
    return line;
}

void ShowError(std::ostream& messages, const text::RuntimeError& error) {
    messages << "Run-time error " << error.Number() << ": " << error.Description() << '\n';
    if (!error.Details().empty()) {
        messages << text::ReplaceAll(platform::ForDisplay(error.Details()), "\r\n", "\n") << '\n';
    }
}

std::string ProgramFolderOf(const Arguments& arguments) {
    if (!arguments.programFolder.empty()) return platform::FromNative(arguments.programFolder);
    platform::PrepareProgramFolder();
    return platform::ProgramFolder();
}

} // namespace

int Run(const std::vector<std::string>& words, const platform::Platform& platform, std::istream& input,
        std::ostream& output, std::ostream& messages) {
    const ParseResult parsed = ParseArguments(words);
    if (parsed.exitCode) return ReportUsage(parsed, output, messages);
    const Arguments& arguments = parsed.arguments;
    platform::CatchInterrupt();

    session::Session session;
    document::OpenDocument document;
    session::HeadlessView view;
    TerminalUserInterface ui({.answer = PresetAnswer(arguments),
                              .answerTo = AnswersByOption(arguments),
                              .showsProgress = platform::StandardErrorIsTerminal(),
                              .isQuiet = arguments.json,
                              .isInterrupted = platform::IsInterrupted},
                             messages, [&input] { return AskPerson(input); });
    session::EditorContext context{session, document, platform, ui, view};
    Result result;
    std::optional<text::RuntimeError> error;
    try {
        session.ProgramFolder = ProgramFolderOf(arguments);
        result = RunCommand(context, arguments);
    } catch (const text::RuntimeError& caught) {
        error = caught;
        result = {Outcome::Failed};
        ShowError(messages, caught);
    }
    output << (arguments.json ? JsonReport(arguments.command, ui.Messages(), std::move(result.json), error)
                              : result.lines)
           << std::flush;
    return ExitStatus(result.outcome);
}

} // namespace tamarind::cli
