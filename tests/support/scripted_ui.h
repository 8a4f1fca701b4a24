#pragma once

#include "platform/ui.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace tamarind::tests {

/// One thing that the person at the screen would have seen.
struct Shown {
    enum class Kind { Message, FileDialog, TextQuestion, Status };
    Kind kind = Kind::Message;
    platform::Message message;       ///< of a Message; `text` and `title` also of a TextQuestion, `text` of a Status
    platform::FileDialog fileDialog; ///< of a FileDialog
    std::string preset;              ///< of a TextQuestion
};

/// A user interface that answers from prepared queues and records everything shown, in order. A question that nobody
/// prepared an answer for, an answer that nobody asked for, and an hourglass left on fail the test.
class ScriptedUserInterface : public platform::UserInterface {
public:
    ScriptedUserInterface() = default;
    ~ScriptedUserInterface() override;
    ScriptedUserInterface(const ScriptedUserInterface&) = delete;
    ScriptedUserInterface& operator=(const ScriptedUserInterface&) = delete;

    // Prepared answers. A message that has only an OK button needs none.
    std::deque<platform::Answer> answers;
    std::deque<std::string> filePaths; ///< an empty one cancels
    std::deque<std::string> texts;     ///< an empty one cancels

    /// Called at each ProcessEvents with the number of the call, from 1.
    std::function<void(int)> onEvents;
    /// Called while a message is on the screen.
    std::function<void(const platform::Message&)> onMessage;
    bool stopRequested = false;
    /// The answer to the n-th ShowProgress, from 1; without it every job goes on.
    std::function<bool(int)> onProgress;

    [[nodiscard]] const std::vector<Shown>& Everything() const { return shown_; }
    [[nodiscard]] std::vector<platform::Message> Messages() const;
    [[nodiscard]] std::vector<std::string> MessageTexts() const;
    [[nodiscard]] std::vector<platform::FileDialog> FileDialogs() const;
    [[nodiscard]] std::vector<std::string> StatusLines() const;
    [[nodiscard]] int EventRounds() const { return eventRounds_; }
    [[nodiscard]] int BusyDepth() const { return busyDepth_; }
    /// How often the hourglass was switched on from off.
    [[nodiscard]] int BusyTimes() const { return busyTimes_; }
    [[nodiscard]] const std::vector<platform::Progress>& ProgressShown() const { return progress_; }
    [[nodiscard]] const std::vector<bool>& WaitingCalls() const { return waitingCalls_; }

    platform::Answer Show(const platform::Message& message) override;
    std::string AskForFile(const platform::FileDialog& dialog) override;
    std::string AskForText(const std::string& prompt, const std::string& title, const std::string& preset) override;
    void SetBusy(bool busy) override;
    void ProcessEvents() override;
    void ShowStatus(const std::string& text) override;
    bool ShowProgress(const platform::Progress& progress) override;
    void EndProgress() override;
    [[nodiscard]] bool StopRequested() override { return stopRequested; }
    void SetWaiting(bool waiting) override { waitingCalls_.push_back(waiting); }

private:
    std::vector<Shown> shown_;
    std::vector<bool> waitingCalls_;
    std::vector<platform::Progress> progress_;
    bool isProgressShown_ = false;
    int eventRounds_ = 0;
    int busyDepth_ = 0;
    int busyTimes_ = 0;
};

} // namespace tamarind::tests
