#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

namespace tamarind::platform {

/// The title of every message box whose command names no other.
inline constexpr const char* kApplicationTitle = "Tamarind";

enum class Icon { None, Information, Question, Exclamation, Critical };
enum class Buttons { Ok, YesNo, YesNoCancel };
enum class Answer { Ok, Yes, No, Cancel };

struct Message {
    std::string text; ///< line breaks are CR LF
    Icon icon = Icon::Exclamation;
    std::string title = kApplicationTitle;
    Buttons buttons = Buttons::Ok;
    std::string opensFolder = {}; ///< beside OK, a second button opens this folder, where there are windows
};

struct FileDialog {
    bool save = false;
    std::string title = {};
    std::string filter = {};      ///< "Text|*.a;*.b", pairs separated by "|"; the first pair is chosen
    std::string startFolder = {}; ///< empty: where the last dialog ended
    std::string defaultExtension = {};
    bool confirmsOverwriting = false; ///< a save dialog asks itself before an existing file is chosen
};

/// How far a long job is.
struct Progress {
    std::string title;                             ///< the job in a few words
    std::string current;                           ///< what it works on now
    std::size_t done = 0;                          ///< of `total`
    std::size_t total = 0;                         ///< may grow while the job runs
    std::optional<std::chrono::seconds> left = {}; ///< estimated; nothing while nobody can tell
};

/// "12 of 300", and the time left in words where it is known: "12 of 300, about 2 min left".
[[nodiscard]] std::string ProgressText(const Progress& progress);

/// Everything that a command says to, or asks of, the person at the screen. Implemented by windows, by the terminal
/// and by the tests.
class UserInterface {
public:
    virtual ~UserInterface() = default;

    /// Shows a message and waits; Answer::Ok for a message with only that button.
    virtual Answer Show(const Message& message) = 0;
    /// The chosen path; empty when the dialog was cancelled.
    virtual std::string AskForFile(const FileDialog& dialog) = 0;
    /// The entered text; empty when cancelled or left empty.
    virtual std::string AskForText(const std::string& prompt, const std::string& title, const std::string& preset) = 0;

    /// The hourglass pointer; calls nest.
    virtual void SetBusy(bool busy) = 0;
    /// Lets pending input and painting happen.
    virtual void ProcessEvents() = 0;
    /// One line in plain words that needs no answer.
    virtual void ShowStatus(const std::string& text) = 0;
    /// Shows how far a long job is, from the first call on until EndProgress. False when the person asked to end it.
    virtual bool ShowProgress(const Progress& /*progress*/) { return true; }
    virtual void EndProgress() {}
    /// Whether the person asked to stop the outside program that is being waited for.
    [[nodiscard]] virtual bool StopRequested() { return false; }
    /// Told before and after waiting for an outside program.
    virtual void SetWaiting(bool /*waiting*/) {}
};

/// The hourglass for the length of a scope.
class BusyPointer {
public:
    explicit BusyPointer(UserInterface& ui) : ui_(ui) { ui_.SetBusy(true); }
    ~BusyPointer() { ui_.SetBusy(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    UserInterface& ui_;
};

} // namespace tamarind::platform
