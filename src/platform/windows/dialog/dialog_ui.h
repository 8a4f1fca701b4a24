#pragma once

#include "platform/dialog.h"

#include <windows.h>

namespace tamarind::platform {

/// The user interface over a dialog: system message boxes, and the dialog's handlers.
class DialogUserInterface final : public UserInterface {
public:
    DialogUserInterface(const Dialog& dialog, HWND window) : dialog_(dialog), window_(window) {}

    Answer Show(const Message& message) override;
    std::string AskForFile(const FileDialog& dialog) override;
    /// No program with such a window asks for text.
    std::string AskForText(const std::string& prompt, const std::string& title, const std::string& preset) override;
    void SetBusy(bool busy) override;
    void ProcessEvents() override;
    void ShowStatus(const std::string& text) override;
    bool ShowProgress(const Progress& progress) override;
    void EndProgress() override;
    [[nodiscard]] bool StopRequested() override;

private:
    const Dialog& dialog_;
    HWND window_;
    int busyDepth_ = 0;
};

/// Carries out one window message, with the keys of a dialog.
void Dispatch(HWND window, MSG& message);

} // namespace tamarind::platform
