#pragma once

#include "platform/ui.h"

#include <functional>
#include <memory>
#include <string>

class wxGenericProgressDialog;
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
    ~WxUserInterface() override;
    WxUserInterface(const WxUserInterface&) = delete;
    WxUserInterface& operator=(const WxUserInterface&) = delete;

    Answer Show(const Message& message) override;
    std::string AskForFile(const FileDialog& dialog) override;
    std::string AskForText(const std::string& prompt, const std::string& title, const std::string& preset) override;
    void SetBusy(bool busy) override;
    void ProcessEvents() override;
    void ShowStatus(const std::string& text) override;
    bool ShowProgress(const Progress& progress) override;
    void EndProgress() override;
    [[nodiscard]] bool StopRequested() override;
    void SetWaiting(bool waiting) override;

private:
    Window window_;
    std::unique_ptr<wxGenericProgressDialog> progress_;
};

} // namespace tamarind::platform
