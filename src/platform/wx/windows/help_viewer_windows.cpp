#include "platform/wx/help_viewer.h"

#include <windows.h>

namespace tamarind::platform {

namespace {

constexpr UINT kDisplayContents = 1;
using HelpFunction = HWND(WINAPI*)(HWND owner, const wchar_t* file, UINT command, DWORD_PTR data);

} // namespace

bool ShowHelpFile(const wxString& path) {
    // Loaded when it is wanted: not every system has it.
    static const HMODULE viewer = LoadLibraryW(L"hhctrl.ocx");
    if (viewer == nullptr) return false;
    const auto show = reinterpret_cast<HelpFunction>(reinterpret_cast<void*>(GetProcAddress(viewer, "HtmlHelpW")));
    // The empty name behind ">" is the window's.
    return show != nullptr && show(nullptr, (path + ">").wc_str(), kDisplayContents, 0) != nullptr;
}

} // namespace tamarind::platform
