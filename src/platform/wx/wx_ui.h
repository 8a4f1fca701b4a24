#pragma once

#include "platform/ui.h"

#include <functional>
#include <string>

class wxWindow;

namespace tamarind::platform {

/// Message boxes and dialogs of the window system, above one window.
class WxUserInterface : public UserInterface {
public:
    /// What the window does for it.
    struct Window {
        std::function<wxWindow*()> parent;
        std::function<void(const std::string&)> showStatus;
        std::function<void(bool)> setWaiting;
        std::function<bool()> stopRequested;
    };

    explicit WxUserInterface(Window window);

    Answer Show(const Message& message) override;
    std::string AskForFile(const FileDialog& dialog) override;
    std::string AskForText(const std::string& prompt, const std::string& title, const std::string& preset) override;
    void SetBusy(bool busy) override;
    void ProcessEvents() override;
    void ShowStatus(const std::string& text) override;
    [[nodiscard]] bool StopRequested() override;
    void SetWaiting(bool waiting) override;

private:
    Window window_;
};

} // namespace tamarind::platform
