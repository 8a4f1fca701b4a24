#pragma once

#include "platform/ui.h"

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace tamarind::platform {

/// The user interface of a terminal: messages go to one stream, questions are answered beforehand or by a line of
/// input, and everything shown is remembered for the report. There are no file dialogs: they count as cancelled.
class TerminalUserInterface : public UserInterface {
public:
    struct Shown {
        Message message;
        Answer answer;
    };

    struct Options {
        std::optional<Answer> answer = {}; ///< to every question; without it a person is asked
        /// An answer to one question alone; it comes before `answer`.
        std::function<std::optional<Answer>(const Message&)> answerTo = {};
        bool showsProgress = false;                                 ///< on a line that is written over and over
        bool isQuiet = false;                                       ///< messages are remembered only
        std::function<bool()> isInterrupted = [] { return false; }; ///< Ctrl-C stops an outside program
    };

    /// `ask` returns a typed line, nothing where nobody can type.
    TerminalUserInterface(const Options& options, std::ostream& output,
                          std::function<std::optional<std::string>()> ask);

    Answer Show(const Message& message) override;
    std::string AskForFile(const FileDialog& dialog) override;
    std::string AskForText(const std::string& prompt, const std::string& title, const std::string& preset) override;
    void SetBusy(bool busy) override;
    void ProcessEvents() override;
    void ShowStatus(const std::string& text) override;
    bool ShowProgress(const Progress& progress) override;
    void EndProgress() override;
    [[nodiscard]] bool StopRequested() override;

    [[nodiscard]] const std::vector<Shown>& Messages() const { return shown_; }

private:
    Answer AnswerTo(const Message& message);

    Options options_;
    std::ostream& output_;
    std::function<std::optional<std::string>()> ask_;
    std::vector<Shown> shown_;
    bool hasProgressLine_ = false;
};

} // namespace tamarind::platform
