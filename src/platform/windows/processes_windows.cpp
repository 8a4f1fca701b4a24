#include "platform/command_line.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "platform/windows/handle.h"
#include "platform/windows/wide.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <optional>
#include <utility>
#include <windows.h>

namespace tamarind::platform {
namespace {

class WindowsProcess final : public RunningProcess {
public:
    WindowsProcess(Handle process, Handle job, DWORD id)
        : process_(std::move(process)), job_(std::move(job)), id_(id) {}

    std::uint64_t Id() const override { return id_; }
    // Not by the exit code: a program may well end with the one that means "still active".
    bool HasEnded() override { return WaitForSingleObject(process_.Get(), 0) != WAIT_TIMEOUT; }
    void Stop() override {
        if (!job_.IsOpen() || TerminateJobObject(job_.Get(), 1) == 0) {
            TerminateProcess(process_.Get(), 1);
        }
    }

private:
    Handle process_;
    Handle job_; ///< holds the process and what it started; may be none
    DWORD id_;
};

std::optional<std::wstring> FileAt(const std::string& path) {
    std::wstring wide = SystemPath(path);
    const DWORD attributes = GetFileAttributesW(wide.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return std::nullopt;
    }
    return wide;
}

std::optional<std::wstring> FileWithEnding(const std::string& path) {
    std::optional<std::wstring> file = FileAt(path);
    if (!file && ExtensionOf(NameOf(path)).empty()) {
        file = FileAt(path + ".exe");
        if (!file) {
            file = FileAt(path + ".bat");
        }
    }
    return file;
}

std::optional<std::wstring> InSearchPath(const std::string& name) {
    const std::wstring wide = ToWide(name);
    const DWORD size = SearchPathW(nullptr, wide.c_str(), L".exe", 0, nullptr, nullptr);
    std::wstring found(size, L'\0');
    const DWORD length = SearchPathW(nullptr, wide.c_str(), L".exe", size, found.data(), nullptr);
    if (size == 0 || length == 0 || length >= size) {
        return std::nullopt;
    }
    found.resize(length);
    return found;
}

std::optional<std::wstring> Locate(const std::string& name, const ProcessStart& start) {
    if (name.find('\\') != std::string::npos) {
        return FileWithEnding(name);
    }
    std::vector<std::string> folders = start.searchFolders;
    folders.push_back(start.folder);
    for (const std::string& folder : folders) {
        std::optional<std::wstring> file =
            folder.empty() ? std::nullopt : FileWithEnding(WithoutTrailingBackslash(folder) + "\\" + name);
        if (file) {
            return file;
        }
    }
    return InSearchPath(name);
}

bool IsVariable(std::wstring_view entry, std::wstring_view name) {
    return entry.size() > name.size() && entry[name.size()] == L'=' &&
           CompareStringOrdinal(entry.data(), static_cast<int>(name.size()), name.data(), static_cast<int>(name.size()),
                                TRUE) == CSTR_EQUAL;
}

/// This program's environment with the search folders in front of the search path, in the form that a new process
/// takes: entries ended by a zero each, and one more zero.
std::wstring Environment(const ProcessStart& start) {
    std::wstring folders;
    for (const std::string& folder : start.searchFolders) {
        folders += ToWide(folder) + L";";
    }
    std::wstring block;
    bool found = false;
    wchar_t* const entries = GetEnvironmentStringsW();
    for (const wchar_t* at = entries; at != nullptr && *at != L'\0';) {
        const std::wstring entry = at;
        at += entry.size() + 1;
        const bool isPath = IsVariable(entry, L"PATH");
        found = found || isPath;
        block += isPath ? entry.substr(0, 5) + folders + entry.substr(5) : entry;
        block += L'\0';
    }
    FreeEnvironmentStringsW(entries);
    if (!found) {
        block += L"PATH=" + folders + L'\0';
    }
    return block + L'\0';
}

/// What CreateProcess is given.
struct Command {
    std::wstring application;
    std::wstring line;
};

Command CommandFor(const std::wstring& program, const ProcessStart& start, std::size_t argumentsBegin) {
    const std::string name = FromWide(program);
    if (!text::EndsWithNoCase(name, ".bat") && !text::EndsWithNoCase(name, ".cmd")) {
        return {program, ToWide(start.commandLine)};
    }
    std::wstring folder(MAX_PATH, L'\0');
    folder.resize(GetSystemDirectoryW(folder.data(), MAX_PATH));
    const std::wstring shell = folder + L"\\cmd.exe";
    // The outer pair of quotes is the one that the shell takes away.
    return {shell, L"\"" + shell + L"\" /d /c \"\"" + program + L"\"" +
                       ToWide(start.commandLine.substr(argumentsBegin)) + L"\""};
}

/// A job that the process joins before it runs, so that everything it starts is in it.
Handle PutIntoJob(HANDLE process) {
    Handle job(CreateJobObjectW(nullptr, nullptr));
    if (!job.IsOpen() || AssignProcessToJobObject(job.Get(), process) == 0) {
        return Handle(INVALID_HANDLE_VALUE);
    }
    return job;
}

std::unique_ptr<RunningProcess> Launch(Command command, const ProcessStart& start) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    const bool hidden = start.style == WindowStyle::Hidden;
    startup.wShowWindow = hidden ? SW_HIDE : SW_SHOWNORMAL;
    // A console program has a console of its own, so that nothing it says gets into this program's output.
    const DWORD console = hidden ? CREATE_NO_WINDOW : CREATE_NEW_CONSOLE;
    const DWORD flags = CREATE_SUSPENDED | CREATE_UNICODE_ENVIRONMENT | console;
    std::wstring environment = Environment(start);
    const std::wstring folder = ToWide(start.folder);
    PROCESS_INFORMATION information = {};
    if (CreateProcessW(command.application.c_str(), command.line.data(), nullptr, nullptr, FALSE, flags,
                       environment.data(), folder.empty() ? nullptr : folder.c_str(), &startup, &information) == 0) {
        const DWORD error = GetLastError();
        ThrowSystemError(error == ERROR_DIRECTORY ? ERROR_PATH_NOT_FOUND : error, start.commandLine);
    }
    Handle process(information.hProcess);
    const Handle thread(information.hThread);
    Handle job = PutIntoJob(process.Get());
    ResumeThread(thread.Get());
    return std::make_unique<WindowsProcess>(std::move(process), std::move(job), information.dwProcessId);
}

class WindowsProcesses final : public Processes {
public:
    std::unique_ptr<RunningProcess> Start(const ProcessStart& start) override {
        for (const ProgramCandidate& candidate : ProgramCandidates(start.commandLine)) {
            const std::optional<std::wstring> program = Locate(candidate.name, start);
            if (program) {
                return Launch(CommandFor(*program, start, candidate.end), start);
            }
        }
        throw text::RuntimeError(text::ErrorNumber::FileNotFound, start.commandLine);
    }

    void Sleep(std::chrono::milliseconds duration) override { ::Sleep(static_cast<DWORD>(duration.count())); }
};

} // namespace

std::unique_ptr<Processes> MakeProcesses(Files& /*files*/) { return std::make_unique<WindowsProcesses>(); }

} // namespace tamarind::platform
