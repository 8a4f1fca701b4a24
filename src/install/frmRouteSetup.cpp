#include "install/frmRouteSetup.h"

#include "platform/paths.h"
#include "text/runtime_error.h"

namespace tamarind::install {

using platform::ControlKind;
using platform::Growth;

platform::DialogDesign frmRouteSetup::Design() {
    constexpr int kWidth = 560;
    constexpr int kHeight = 320;
    const auto stretches = Growth::Stretches;
    const auto moves = Growth::Moves;
    return {.caption = kInstallerCaption,
            .width = kWidth,
            .height = kHeight,
            .controls = {
                {Label1, ControlKind::Label, "&Rail Simulator Path", 12, 12, 536, 18, stretches},
                {Text1, ControlKind::TextBox, "", 12, 32, 476, 24, stretches},
                {Command1, ControlKind::Button, ".....", 496, 31, 52, 26, moves},
                {Description, ControlKind::ReadOnlyText, "", 12, 68, 536, 160, stretches, stretches},
                {Status, ControlKind::Label, "", 12, 236, 536, 18, stretches, moves, true},
                {ProgressBar, ControlKind::ProgressBar, "", 12, 256, 536, 14, stretches, moves, true},
                {Command2, ControlKind::DefaultButton, "Install Route", 318, 280, 130, 28, moves, moves},
                {Cancel, ControlKind::Button, "Close", 456, 280, 92, 28, moves, moves},
            }};
}

frmRouteSetup::frmRouteSetup(const platform::Platform& platform, platform::Dialog& dialog,
                             const std::string& packageFolder)
    : dialog_(dialog), installer_{platform, dialog.Ui(), packageFolder} {
    dialog_.onPress = [this](int id) { Press(id); };
    dialog_.onEnter = [this](int id) {
        if (id == Text1) Guard([this] { Text1_Enter(); });
    };
    dialog_.onLeave = [this](int id) {
        // So that what is typed is described before the button is pressed.
        const bool isTyped = id == Text1 && !isBusy_ && dialog_.Text(Text1) != installer_.RailSimPath;
        if (isTyped) Guard([this] { Text1_Enter(); });
    };
    dialog_.onProgress = [this](const platform::Progress& progress) { return ShowProgress(progress); };
    dialog_.onStatus = [this](const std::string& text) {
        dialog_.SetVisible(Status, true);
        dialog_.SetText(Status, text);
    };
    dialog_.isStopRequested = [this] { return isCancelled_; };
}

template <typename Handler> void frmRouteSetup::Guard(const Handler& handler) {
    try {
        handler();
    } catch (const text::RuntimeError& error) {
        dialog_.Ui().Show({.text = "Run-time error " + std::to_string(error.Number()) + ": " + error.Description() +
                                   "\r\n" + platform::ForDisplay(error.Details()),
                           .icon = platform::Icon::Critical});
        dialog_.Close();
    }
}

void frmRouteSetup::Run() {
    Guard([this] { Form_Load(); });
    dialog_.Run();
}

void frmRouteSetup::Press(int id) {
    Guard([this, id] {
        switch (id) {
        case Command1: Command1_Click(); break;
        case Command2: Command2_Click(); break;
        case Cancel: Cancel_Click(); break;
        default: break;
        }
    });
}

void frmRouteSetup::Form_Load() {
    dialog_.SetCaption(InstallerCaption());
    LoadInstaller(installer_);
    dialog_.SetText(Text1, installer_.RailSimPath);
    dialog_.SetText(Command2, InstallCaption(installer_.InstallMode));
    Describe();
}

void frmRouteSetup::Text1_Enter() {
    installer_.RailSimPath = dialog_.Text(Text1);
    Describe();
}

void frmRouteSetup::Command1_Click() {
    const std::string folder = dialog_.AskForFolder("Rail Simulator Path", dialog_.Text(Text1));
    if (folder.empty()) return;
    dialog_.SetText(Text1, platform::WithoutTrailingBackslash(folder));
    Text1_Enter();
}

void frmRouteSetup::Command2_Click() {
    if (isBusy_) return;
    isCancelled_ = false;
    installer_.RailSimPath = dialog_.Text(Text1);
    Describe();
    ShowBusy(true);
    const Ended how = Install(installer_);
    ShowBusy(false);
    if (how != Ended::Done && how != Ended::Incomplete)
        return; // the path may be corrected, and the button pressed again
    dialog_.Hide();
    dialog_.Close();
}

void frmRouteSetup::Cancel_Click() {
    isCancelled_ = isBusy_;
    if (!isBusy_) dialog_.Close();
}

void frmRouteSetup::Describe() {
    std::string text;
    for (const std::string& line : DescribeInstallation(installer_))
        text.append(text.empty() ? "" : "\r\n").append(line);
    dialog_.SetText(Description, text);
}

void frmRouteSetup::ShowBusy(bool busy) {
    isBusy_ = busy;
    for (const int id : {Text1, Command1, Command2})
        dialog_.SetEnabled(id, !busy);
    dialog_.SetText(Cancel, busy ? "Cancel" : "Close");
    for (const int id : {Status, ProgressBar})
        dialog_.SetVisible(id, busy);
    dialog_.SetText(Status, "");
    dialog_.SetFill(ProgressBar, 0, 1);
}

bool frmRouteSetup::ShowProgress(const platform::Progress& progress) {
    dialog_.SetText(Status, platform::ProgressText(progress) + ": " + progress.current);
    dialog_.SetFill(ProgressBar, progress.done, progress.total);
    return !isCancelled_;
}

} // namespace tamarind::install
