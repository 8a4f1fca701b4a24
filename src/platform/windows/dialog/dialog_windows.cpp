#include "platform/dialog.h"
#include "platform/windows/dialog/dialog_ui.h"
#include "platform/windows/dialog/folder_chooser.h"
#include "platform/windows/dialog/screen_scale.h"
#include "platform/windows/wide.h"

#include <algorithm>
#include <commctrl.h>

namespace tamarind::platform {
namespace {

static_assert(kCancelButton == IDCANCEL);
constexpr wchar_t kClassName[] = L"TamarindDialog";
constexpr DWORD kWindowStyle = WS_OVERLAPPEDWINDOW;

struct SystemControl {
    const wchar_t* className;
    DWORD style;
    DWORD extendedStyle = 0;
};

SystemControl SystemControlOf(ControlKind kind) {
    switch (kind) {
    case ControlKind::Label: return {L"STATIC", SS_LEFT | SS_ENDELLIPSIS};
    case ControlKind::TextBox: return {L"EDIT", WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE};
    case ControlKind::ReadOnlyText:
        return {L"EDIT", WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL, WS_EX_CLIENTEDGE};
    case ControlKind::Button: return {L"BUTTON", WS_TABSTOP | BS_PUSHBUTTON};
    case ControlKind::DefaultButton: return {L"BUTTON", WS_TABSTOP | BS_DEFPUSHBUTTON};
    case ControlKind::ProgressBar: return {PROGRESS_CLASSW, PBS_SMOOTH};
    }
    return {L"STATIC", SS_LEFT};
}

class WindowsDialog final : public Dialog {
public:
    explicit WindowsDialog(const DialogDesign& design);
    ~WindowsDialog() override;
    WindowsDialog(const WindowsDialog&) = delete;
    WindowsDialog& operator=(const WindowsDialog&) = delete;

    void SetCaption(const std::string& caption) override { SetWindowTextW(window_, ToWide(caption).c_str()); }
    void SetText(int id, const std::string& text) override { SetWindowTextW(Control(id), ToWide(text).c_str()); }
    std::string Text(int id) const override;
    void SetEnabled(int id, bool enabled) override { EnableWindow(Control(id), enabled ? TRUE : FALSE); }
    void SetVisible(int id, bool visible) override { ShowWindow(Control(id), visible ? SW_SHOW : SW_HIDE); }
    void SetFill(int id, std::size_t done, std::size_t total) override;
    std::string AskForFolder(const std::string& title, const std::string& startFolder) override {
        return ChooseFolder(window_, title, startFolder);
    }
    UserInterface& Ui() override { return ui_; }
    void Run() override;
    void Hide() override { ShowWindow(window_, SW_HIDE); }
    void Close() override { PostQuitMessage(0); }

private:
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wide, LPARAM extra);
    LRESULT Receive(HWND window, UINT message, WPARAM wide, LPARAM extra);
    void Command(int id, int notification);
    [[nodiscard]] const DialogControl* Focused() const;
    [[nodiscard]] LRESULT DefaultButton() const;
    void MakeControl(const DialogControl& control);
    void SetFont();
    void Arrange();
    void ChangeDpi(int dpi, const RECT& place);
    [[nodiscard]] HWND Control(int id) const { return GetDlgItem(window_, id); }
    [[nodiscard]] SIZE LeastSize() const;

    DialogDesign design_;
    int dpi_;
    HFONT font_ = nullptr;
    HWND window_;
    DialogUserInterface ui_;
};

HWND MakeWindow(void* owner) {
    const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_STANDARD_CLASSES | ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&controls);
    return CreateWindowExW(0, kClassName, L"", kWindowStyle, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                           nullptr, nullptr, GetModuleHandleW(nullptr), owner);
}

ATOM RegisterWindowClass(WNDPROC procedure) {
    WNDCLASSEXW type = {};
    type.cbSize = sizeof type;
    type.lpfnWndProc = procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    const auto icon = [&type](int width, int height) {
        return static_cast<HICON>(LoadImageW(type.hInstance, L"tamarind", IMAGE_ICON, GetSystemMetrics(width),
                                             GetSystemMetrics(height), LR_SHARED));
    };
    type.hIcon = icon(SM_CXICON, SM_CYICON);
    type.hIconSm = icon(SM_CXSMICON, SM_CYSMICON);
    type.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    type.lpszClassName = kClassName;
    return RegisterClassExW(&type);
}

WindowsDialog::WindowsDialog(const DialogDesign& design)
    : design_(design), dpi_(DpiOf(nullptr)), window_((RegisterWindowClass(WindowProcedure), MakeWindow(this))),
      ui_(*this, window_) {
    if (window_ == nullptr) ThrowSystemError(GetLastError(), design.caption);
    dpi_ = DpiOf(window_);
    for (const DialogControl& control : design_.controls)
        MakeControl(control);
    SetCaption(design_.caption);
    const SIZE size = LeastSize();
    SetWindowPos(window_, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    SetFont();
    Arrange();
}

WindowsDialog::~WindowsDialog() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
    DeleteObject(font_);
}

void WindowsDialog::MakeControl(const DialogControl& control) {
    const SystemControl type = SystemControlOf(control.kind);
    const DWORD style = type.style | WS_CHILD | (control.isHidden ? 0 : WS_VISIBLE);
    const auto id = static_cast<INT_PTR>(control.id);
    CreateWindowExW(type.extendedStyle, type.className, ToWide(control.text).c_str(), style, 0, 0, 0, 0, window_,
                    reinterpret_cast<HMENU>(id), GetModuleHandleW(nullptr), nullptr);
}

std::string WindowsDialog::Text(int id) const {
    HWND control = Control(id);
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
    return FromWide(text);
}

void WindowsDialog::SetFill(int id, std::size_t done, std::size_t total) {
    constexpr std::size_t kSteps = 1000;
    const std::size_t fill = total == 0 ? 0 : done * kSteps / total;
    SendMessageW(Control(id), PBM_SETRANGE32, 0, kSteps);
    SendMessageW(Control(id), PBM_SETPOS, fill, 0);
}

SIZE WindowsDialog::LeastSize() const {
    return OuterSize({Scaled(design_.width, dpi_), Scaled(design_.height, dpi_)}, kWindowStyle, dpi_);
}

void WindowsDialog::SetFont() {
    HFONT old = font_;
    font_ = MakeMessageFont(dpi_);
    for (const DialogControl& control : design_.controls)
        SendMessageW(Control(control.id), WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
    if (old != nullptr) DeleteObject(old);
}

void WindowsDialog::Arrange() {
    RECT inside = {};
    GetClientRect(window_, &inside);
    const int across = static_cast<int>(inside.right) - Scaled(design_.width, dpi_);
    const int down = static_cast<int>(inside.bottom) - Scaled(design_.height, dpi_);
    const auto moved = [](Growth growth, int more) { return growth == Growth::Moves ? more : 0; };
    const auto stretched = [](Growth growth, int more) { return growth == Growth::Stretches ? more : 0; };
    for (const DialogControl& control : design_.controls) {
        MoveWindow(Control(control.id), Scaled(control.left, dpi_) + moved(control.across, across),
                   Scaled(control.top, dpi_) + moved(control.down, down),
                   Scaled(control.width, dpi_) + stretched(control.across, across),
                   Scaled(control.height, dpi_) + stretched(control.down, down), TRUE);
    }
    InvalidateRect(window_, nullptr, TRUE);
}

void WindowsDialog::ChangeDpi(int dpi, const RECT& place) {
    dpi_ = dpi;
    SetFont();
    SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    Arrange();
}

void WindowsDialog::Run() {
    ShowWindow(window_, SW_SHOWNORMAL);
    SetFocus(GetNextDlgTabItem(window_, nullptr, FALSE));
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        Dispatch(window_, message);
}

const DialogControl* WindowsDialog::Focused() const {
    const int id = GetDlgCtrlID(GetFocus());
    const auto found = std::find_if(design_.controls.begin(), design_.controls.end(),
                                    [id](const DialogControl& control) { return control.id == id; });
    return found == design_.controls.end() ? nullptr : &*found;
}

/// What Enter presses: in a text box nothing, so that it arrives as IDOK.
LRESULT WindowsDialog::DefaultButton() const {
    const DialogControl* const focused = Focused();
    if (focused != nullptr && focused->kind == ControlKind::TextBox) return 0;
    const auto found = std::find_if(design_.controls.begin(), design_.controls.end(), [](const DialogControl& control) {
        return control.kind == ControlKind::DefaultButton;
    });
    return found == design_.controls.end() ? 0 : MAKELRESULT(found->id, DC_HASDEFID);
}

void WindowsDialog::Command(int id, int notification) {
    if (notification == EN_KILLFOCUS && onLeave) onLeave(id);
    if (notification != BN_CLICKED) return;
    const DialogControl* const focused = Focused();
    if (id != IDOK) {
        if (onPress) onPress(id);
    } else if (onEnter && focused != nullptr) {
        onEnter(focused->id);
    }
}

LRESULT WindowsDialog::Receive(HWND window, UINT message, WPARAM wide, LPARAM extra) {
    switch (message) {
    case WM_SIZE: Arrange(); return 0;
    case WM_COMMAND: Command(LOWORD(wide), HIWORD(wide)); return 0;
    case WM_CLOSE: Command(kCancelButton, BN_CLICKED); return 0;
    case DM_GETDEFID: return DefaultButton();
    case WM_GETMINMAXINFO: {
        const SIZE least = LeastSize();
        reinterpret_cast<MINMAXINFO*>(extra)->ptMinTrackSize = {least.cx, least.cy};
        return 0;
    }
    case WM_DPICHANGED: ChangeDpi(LOWORD(wide), *reinterpret_cast<const RECT*>(extra)); return 0;
    default: return DefWindowProcW(window, message, wide, extra);
    }
}

LRESULT CALLBACK WindowsDialog::WindowProcedure(HWND window, UINT message, WPARAM wide, LPARAM extra) {
    if (message == WM_NCCREATE) {
        const auto* const creation = reinterpret_cast<const CREATESTRUCTW*>(extra);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* const dialog = reinterpret_cast<WindowsDialog*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    // While the window is being made its owner is not complete yet.
    const bool isReady = dialog != nullptr && dialog->window_ == window && dialog->font_ != nullptr;
    return isReady ? dialog->Receive(window, message, wide, extra) : DefWindowProcW(window, message, wide, extra);
}

} // namespace

std::unique_ptr<Dialog> MakeDialog(const DialogDesign& design) { return std::make_unique<WindowsDialog>(design); }

} // namespace tamarind::platform
