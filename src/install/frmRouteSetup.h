#pragma once

#include "install/installer.h"
#include "platform/dialog.h"

#include <string>

namespace tamarind::install {

/// The installer's window.
class frmRouteSetup {
public:
    /// Its controls, by their ids.
    enum : int {
        Label1 = 101,
        Text1,       ///< the game folder
        Command1,    ///< chooses it
        Description, ///< what is going to happen
        Status,
        ProgressBar,
        Command2, ///< installs
        Cancel = platform::kCancelButton,
    };

    [[nodiscard]] static platform::DialogDesign Design();

    /// `dialog` is made from Design and outlives this window.
    frmRouteSetup(const platform::Platform& platform, platform::Dialog& dialog, const std::string& packageFolder);
    frmRouteSetup(const frmRouteSetup&) = delete;
    frmRouteSetup& operator=(const frmRouteSetup&) = delete;

    /// Shows the window until it is closed. Errors that no command handles have been shown then.
    void Run();

private:
    void Form_Load();
    void Text1_Enter();
    void Command1_Click();
    void Command2_Click();
    void Cancel_Click();
    void Describe();
    void ShowBusy(bool busy);
    bool ShowProgress(const platform::Progress& progress);
    void Press(int id);
    /// Carries a handler out; an error that it lets through is shown and closes the window.
    template <typename Handler> void Guard(const Handler& handler);

    platform::Dialog& dialog_;
    Installer installer_;
    bool isBusy_ = false;
    bool isCancelled_ = false;
};

} // namespace tamarind::install
