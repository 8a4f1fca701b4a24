#include "child_program.h"

#include <list>
#include <stdexcept>
#include <utility>
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

/// A child inherits this program's environment; it is as before at the end of the scope.
class EnvironmentChange {
public:
    explicit EnvironmentChange(const std::pair<const std::string, std::string>& variable)
        : name_(Wide(variable.first)), old_(32768, L'\0') {
        const DWORD length = GetEnvironmentVariableW(name_.c_str(), old_.data(), static_cast<DWORD>(old_.size()));
        hadValue_ = length > 0;
        SetEnvironmentVariableW(name_.c_str(), Wide(variable.second).c_str());
    }
    ~EnvironmentChange() { SetEnvironmentVariableW(name_.c_str(), hadValue_ ? old_.c_str() : nullptr); }
    EnvironmentChange(const EnvironmentChange&) = delete;
    EnvironmentChange& operator=(const EnvironmentChange&) = delete;

private:
    std::wstring name_;
    std::wstring old_;
    bool hadValue_ = false;
};

/// A file that a child can write; the child's stream of that number where no file is asked for.
class Stream {
public:
    Stream(const std::filesystem::path& file, DWORD own) : handle_(GetStdHandle(own)), isFile_(!file.empty()) {
        if (isFile_) {
            SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
            handle_ = CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                                  CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        }
    }
    ~Stream() {
        if (isFile_) {
            CloseHandle(handle_);
        }
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;
    [[nodiscard]] HANDLE Handle() const { return handle_; }

private:
    HANDLE handle_;
    bool isFile_;
};

constexpr int kAttempts = 3;
constexpr DWORD kPause = 200; // milliseconds

} // namespace

struct ChildProgram::System {
    HANDLE process = nullptr;
    bool hasEnded = false;
};

ChildProgram::ChildProgram(const std::filesystem::path& program, const Arguments& arguments,
                           const Environment& environment, const Surroundings& surroundings)
    : system_(std::make_unique<System>()) {
    std::wstring commandLine = L'"' + program.native() + L'"';
    for (const std::string& argument : arguments) {
        commandLine += L' ' + Quoted(argument);
    }
    std::list<EnvironmentChange> changes(environment.begin(), environment.end());
    STARTUPINFOW start{};
    start.cb = sizeof start;
    const bool hasFiles = !surroundings.output.empty() || !surroundings.errors.empty();
    const Stream output(surroundings.output, STD_OUTPUT_HANDLE);
    const Stream errors(surroundings.errors, STD_ERROR_HANDLE);
    start.dwFlags = hasFiles ? STARTF_USESTDHANDLES : 0;
    start.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    start.hStdOutput = output.Handle();
    start.hStdError = errors.Handle();
    PROCESS_INFORMATION process{};
    BOOL started = FALSE;
    DWORD error = ERROR_SUCCESS;
    // Wine on a busy machine has refused to start a program that it started a moment before and after.
    for (int attempt = 0; attempt < kAttempts && started == FALSE; ++attempt) {
        Sleep(attempt == 0 ? 0 : kPause);
        started =
            CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, hasFiles ? TRUE : FALSE, 0, nullptr,
                           surroundings.folder.empty() ? nullptr : surroundings.folder.c_str(), &start, &process);
        error = GetLastError();
    }
    changes.clear();
    if (started == FALSE) {
        throw std::runtime_error("cannot start " + program.string() + ": system error " + std::to_string(error));
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
