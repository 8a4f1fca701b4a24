#include "platform/console.h"
#include "platform/windows/wide.h"

#include <io.h>
#include <windows.h>

#include <shellapi.h>

#include <atomic>
#include <string_view>

namespace tamarind::platform {
namespace {

// The system calls the handler on a thread of its own.
std::atomic<bool>& InterruptFlag() {
    static std::atomic<bool> flag = false;
    return flag;
}

BOOL WINAPI OnInterrupt(DWORD event) { return event == CTRL_C_EVENT && !InterruptFlag().exchange(true) ? TRUE : FALSE; }

} // namespace

void CatchInterrupt() { SetConsoleCtrlHandler(OnInterrupt, TRUE); }

bool IsInterrupted() { return InterruptFlag(); }

bool StandardInputIsTerminal() { return _isatty(_fileno(stdin)) != 0; }

bool StandardErrorIsTerminal() {
    const HANDLE handle = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    // A console that takes the sequences that other terminals take.
    return GetConsoleMode(handle, &mode) != 0 && SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

bool WantsColours() { return GetEnvironmentVariableW(L"NO_COLOR", nullptr, 0) <= 1; }

// main() gets them in the system's code page, which has no letters for most names.
std::vector<std::string> ProgramArguments(int, char**) {
    SetConsoleOutputCP(CP_UTF8);
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i)
        arguments.push_back(FromWide(wide[i]));
    LocalFree(wide);
    return arguments;
}

std::string CommandLineText(int, char**) {
    std::wstring_view line = GetCommandLineW();
    const bool quoted = line.starts_with(L'"');
    const std::size_t end = quoted ? line.find(L'"', 1) : line.find(L' ');
    line.remove_prefix(end == std::wstring_view::npos ? line.size() : end + (quoted ? 1 : 0));
    const std::size_t first = line.find_first_not_of(L' ');
    return first == std::wstring_view::npos ? std::string() : FromWide(line.substr(first));
}

} // namespace tamarind::platform
