#include "platform/windows/dialog/dialog_ui.h"

#include "platform/windows/wide.h"

namespace tamarind::platform {
namespace {

UINT IconFlag(Icon icon) {
    switch (icon) {
    case Icon::None: return 0;
    case Icon::Information: return MB_ICONINFORMATION;
    case Icon::Question: return MB_ICONQUESTION;
    case Icon::Exclamation: return MB_ICONEXCLAMATION;
    case Icon::Critical: return MB_ICONERROR;
    }
    return 0;
}

UINT ButtonsFlag(Buttons buttons) {
    switch (buttons) {
    case Buttons::Ok: return MB_OK;
    case Buttons::YesNo: return MB_YESNO;
    case Buttons::YesNoCancel: return MB_YESNOCANCEL;
    }
    return MB_OK;
}

} // namespace

void Dispatch(HWND window, MSG& message) {
    if (IsDialogMessageW(window, &message) != 0) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

Answer DialogUserInterface::Show(const Message& message) {
    const UINT flags = IconFlag(message.icon) | ButtonsFlag(message.buttons) | MB_SETFOREGROUND;
    switch (MessageBoxW(window_, ToWide(message.text).c_str(), ToWide(message.title).c_str(), flags)) {
    case IDYES: return Answer::Yes;
    case IDNO: return Answer::No;
    case IDCANCEL: return message.buttons == Buttons::Ok ? Answer::Ok : Answer::Cancel;
    default: return Answer::Ok;
    }
}

std::string DialogUserInterface::AskForFile(const FileDialog&) { return {}; }

std::string DialogUserInterface::AskForText(const std::string&, const std::string&, const std::string&) { return {}; }

void DialogUserInterface::SetBusy(bool busy) {
    busyDepth_ += busy ? 1 : -1;
    SetCursor(LoadCursorW(nullptr, busyDepth_ > 0 ? IDC_WAIT : IDC_ARROW));
}

void DialogUserInterface::ProcessEvents() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
        if (message.message == WM_QUIT) { // for the loop that runs this one
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        Dispatch(window_, message);
    }
}

void DialogUserInterface::ShowStatus(const std::string& text) {
    if (dialog_.onStatus) dialog_.onStatus(text);
}

bool DialogUserInterface::ShowProgress(const Progress& progress) {
    const bool goesOn = !dialog_.onProgress || dialog_.onProgress(progress);
    ProcessEvents();
    return goesOn && !StopRequested();
}

void DialogUserInterface::EndProgress() {
    if (dialog_.onEndProgress) dialog_.onEndProgress();
}

bool DialogUserInterface::StopRequested() { return dialog_.isStopRequested && dialog_.isStopRequested(); }

} // namespace tamarind::platform
