#include "child_program.h"

#include <stdexcept>
#include <windows.h>

namespace tamarind::samples {
namespace {

std::wstring Wide(const std::string& text) {
    return std::filesystem::path(std::u8string(text.begin(), text.end())).native();
}

/// Quotes round the path only, as in: serz.exe "in" xml:"out".
std::wstring Quoted(const std::string& argument) {
    const std::size_t colon = argument.find(':');
    const bool isSwitch = colon == 3 || (argument.starts_with('/') && colon == 4);
    const std::size_t start = isSwitch ? colon + 1 : 0;
    return Wide(argument.substr(0, start)) + L'"' + Wide(argument.substr(start)) + L'"';
}

} // namespace

struct ChildProgram::System {
    HANDLE process = nullptr;
    bool hasEnded = false;
};

ChildProgram::ChildProgram(const std::filesystem::path& program, const Arguments& arguments,
                           const Environment& environment)
    : system_(std::make_unique<System>()) {
    std::wstring commandLine = L'"' + program.native() + L'"';
    for (const std::string& argument : arguments) {
        commandLine += L' ' + Quoted(argument);
    }
    for (const auto& [name, value] : environment) {
        SetEnvironmentVariableW(Wide(name).c_str(), Wide(value).c_str());
    }
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    const BOOL started = CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                        nullptr, &start, &process);
    for (const auto& [name, value] : environment) {
        SetEnvironmentVariableW(Wide(name).c_str(), nullptr);
    }
    if (started == FALSE) {
        throw std::runtime_error("cannot start " + program.string());
    }
    CloseHandle(process.hThread);
    system_->process = process.hProcess;
}

ChildProgram::~ChildProgram() {
    Stop();
    CloseHandle(system_->process);
}

std::optional<int> ChildProgram::WaitFor(std::chrono::milliseconds time) {
    if (WaitForSingleObject(system_->process, static_cast<DWORD>(time.count())) != WAIT_OBJECT_0) {
        return std::nullopt;
    }
    system_->hasEnded = true;
    DWORD code = 0;
    GetExitCodeProcess(system_->process, &code);
    return static_cast<int>(code);
}

void ChildProgram::Stop() {
    if (!system_->hasEnded) {
        TerminateProcess(system_->process, 99);
        WaitForSingleObject(system_->process, INFINITE);
        system_->hasEnded = true;
    }
}

std::filesystem::path ProgramFolder() {
    std::wstring name(32768, L'\0');
    name.resize(GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size())));
    return std::filesystem::path(name).parent_path();
}

} // namespace tamarind::samples
