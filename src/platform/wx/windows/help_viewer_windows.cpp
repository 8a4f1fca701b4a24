#include "platform/wx/help_viewer.h"

#include <wx/filename.h>

#include <windows.h>

namespace tamarind::platform {

namespace {

constexpr UINT kDisplayContents = 1;
using HelpFunction = HWND(WINAPI*)(HWND owner, const wchar_t* file, UINT command, DWORD_PTR data);

/// Wine's viewer opens every help file, but its window stays empty.
bool IsWine() {
    const HMODULE system = GetModuleHandleW(L"ntdll.dll");
    return system != nullptr && GetProcAddress(system, "wine_get_version") != nullptr;
}

/// The viewer shows a file that came from elsewhere with every page empty: one that bears the mark of a download, and
/// one on a drive of the network.
bool IsBlocked(const wxString& path) {
    if (GetFileAttributesW((path + ":Zone.Identifier").wc_str()) != INVALID_FILE_ATTRIBUTES) return true;
    const wxFileName name(path);
    return path.StartsWith("\\\\") || GetDriveTypeW((name.GetVolume() + ":\\").wc_str()) == DRIVE_REMOTE;
}

} // namespace

bool ShowHelpFile(const wxString& path) {
    if (IsWine() || IsBlocked(path)) return false;
    // Loaded when it is wanted: not every system has it.
    static const HMODULE viewer = LoadLibraryW(L"hhctrl.ocx");
    if (viewer == nullptr) return false;
    const auto show = reinterpret_cast<HelpFunction>(reinterpret_cast<void*>(GetProcAddress(viewer, "HtmlHelpW")));
    // The empty name behind ">" is the window's.
    return show != nullptr && show(nullptr, (path + ">").wc_str(), kDisplayContents, 0) != nullptr;
}

} // namespace tamarind::platform
