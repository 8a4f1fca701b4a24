#include "support/scripted_ui.h"

#include <gtest/gtest.h>
#include <utility>

namespace tamarind::tests {
namespace {

/// The next prepared answer, or a failed test and `otherwise`.
template <typename T> T Next(std::deque<T>& prepared, T otherwise, const std::string& question) {
    if (prepared.empty()) {
        ADD_FAILURE() << "unexpected question: " << question;
        return otherwise;
    }
    T answer = std::move(prepared.front());
    prepared.pop_front();
    return answer;
}

bool Offers(platform::Buttons buttons, platform::Answer answer) {
    switch (buttons) {
    case platform::Buttons::Ok: return answer == platform::Answer::Ok;
    case platform::Buttons::YesNo: return answer == platform::Answer::Yes || answer == platform::Answer::No;
    case platform::Buttons::YesNoCancel: return answer != platform::Answer::Ok;
    }
    return false;
}

} // namespace

ScriptedUserInterface::~ScriptedUserInterface() {
    EXPECT_TRUE(answers.empty()) << answers.size() << " prepared answers were never asked for";
    EXPECT_TRUE(filePaths.empty()) << filePaths.size() << " prepared files were never asked for";
    EXPECT_TRUE(texts.empty()) << texts.size() << " prepared texts were never asked for";
    EXPECT_EQ(busyDepth_, 0) << "the hourglass was left on";
    EXPECT_FALSE(isProgressShown_) << "a progress dialog was left open";
}

std::vector<platform::Message> ScriptedUserInterface::Messages() const {
    std::vector<platform::Message> messages;
    for (const Shown& shown : shown_) {
        if (shown.kind == Shown::Kind::Message) {
            messages.push_back(shown.message);
        }
    }
    return messages;
}

std::vector<std::string> ScriptedUserInterface::MessageTexts() const {
    std::vector<std::string> found;
    for (const platform::Message& message : Messages()) {
        found.push_back(message.text);
    }
    return found;
}

std::vector<platform::FileDialog> ScriptedUserInterface::FileDialogs() const {
    std::vector<platform::FileDialog> dialogs;
    for (const Shown& shown : shown_) {
        if (shown.kind == Shown::Kind::FileDialog) {
            dialogs.push_back(shown.fileDialog);
        }
    }
    return dialogs;
}

std::vector<std::string> ScriptedUserInterface::StatusLines() const {
    std::vector<std::string> lines;
    for (const Shown& shown : shown_) {
        if (shown.kind == Shown::Kind::Status) {
            lines.push_back(shown.message.text);
        }
    }
    return lines;
}

platform::Answer ScriptedUserInterface::Show(const platform::Message& message) {
    EXPECT_FALSE(isProgressShown_) << "under a progress dialog: " << message.text;
    shown_.push_back({Shown::Kind::Message, message, {}, {}});
    if (onMessage) {
        onMessage(message);
    }
    if (message.buttons == platform::Buttons::Ok) {
        return platform::Answer::Ok;
    }
    const platform::Answer answer = Next(answers, platform::Answer::No, message.text);
    EXPECT_TRUE(Offers(message.buttons, answer)) << "no such button under: " << message.text;
    return answer;
}

std::string ScriptedUserInterface::AskForFile(const platform::FileDialog& dialog) {
    shown_.push_back({Shown::Kind::FileDialog, {}, dialog, {}});
    return Next(filePaths, std::string(), dialog.title);
}

std::string ScriptedUserInterface::AskForText(const std::string& prompt, const std::string& title,
                                              const std::string& preset) {
    platform::Message message;
    message.text = prompt;
    message.title = title;
    shown_.push_back({Shown::Kind::TextQuestion, message, {}, preset});
    return Next(texts, std::string(), prompt);
}

void ScriptedUserInterface::SetBusy(bool busy) {
    busyTimes_ += busy && busyDepth_ == 0 ? 1 : 0;
    busyDepth_ += busy ? 1 : -1;
    EXPECT_GE(busyDepth_, 0) << "the hourglass was switched off more often than on";
}

void ScriptedUserInterface::ProcessEvents() {
    ++eventRounds_;
    if (onEvents) {
        onEvents(eventRounds_);
    }
}

void ScriptedUserInterface::ShowStatus(const std::string& text) {
    platform::Message message;
    message.text = text;
    shown_.push_back({Shown::Kind::Status, message, {}, {}});
}

bool ScriptedUserInterface::ShowProgress(const platform::Progress& progress) {
    progress_.push_back(progress);
    isProgressShown_ = true;
    return !onProgress || onProgress(static_cast<int>(progress_.size()));
}

void ScriptedUserInterface::EndProgress() { isProgressShown_ = false; }

} // namespace tamarind::tests
