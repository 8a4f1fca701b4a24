#include "platform/batch_file.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "platform/posix/find_program.h"
#include "platform/posix/native_path.h"
#include "platform/posix/spawn.h"
#include "text/runtime_error.h"

#include <atomic>
#include <cstdlib>
#include <string_view>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tamarind::platform {
namespace {

/// Batch commands that the program carries out itself, beside the user interface.
class BatchProcess final : public RunningProcess {
public:
    BatchProcess(Files& files, std::vector<BatchCommand> commands)
        : worker_([this, &files, commands = std::move(commands)](const std::stop_token& stop) {
              for (const BatchCommand& command : commands) {
                  RunBatchCommand(files, command, stop);
              }
              ended_ = true;
          }) {}

    /// It runs inside this program, so it has this program's number.
    std::uint64_t Id() const override { return static_cast<std::uint64_t>(getpid()); }
    bool HasEnded() override { return ended_; }
    void Stop() override { worker_.request_stop(); }

private:
    std::atomic<bool> ended_ = false;
    std::jthread worker_; // last: it must end before the rest goes
};

std::string WinePath(const std::string& path) { return "Z:" + ProgramSpelling(ToNative(path)); }

std::vector<std::string> Translated(const std::vector<CommandArgument>& arguments,
                                    std::string (*translate)(const std::string&)) {
    std::vector<std::string> texts;
    texts.reserve(arguments.size());
    for (const CommandArgument& argument : arguments) {
        texts.push_back(TranslatePaths(argument, translate));
    }
    return texts;
}

std::string NativeText(const std::string& path) { return ToNative(path); }

/// `folders` joined in front of the old value of an environment variable.
std::string InFront(const std::vector<std::string>& folders, char separator, const char* variable) {
    std::string value;
    for (const std::string& folder : folders) {
        value += folder + separator;
    }
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing changes the environment
    const char* old = std::getenv(variable);
    if (old != nullptr && *old != '\0') {
        return value + old;
    }
    if (!value.empty()) {
        value.pop_back();
    }
    return value;
}

std::vector<std::string> Environment(const ProcessStart& start) {
    std::vector<std::string> environment;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string_view text = *entry;
        if (!text.starts_with("PATH=") && !text.starts_with("WINEPATH=")) {
            environment.emplace_back(text);
        }
    }
    std::vector<std::string> native;
    std::vector<std::string> windows;
    for (const std::string& folder : start.searchFolders) {
        native.push_back(ToNative(folder));
        windows.push_back(WinePath(folder));
    }
    environment.push_back("PATH=" + InFront(native, ':', "PATH"));
    const std::string winePath = InFront(windows, ';', "WINEPATH");
    if (!winePath.empty()) {
        environment.push_back("WINEPATH=" + winePath);
    }
    return environment;
}

std::vector<std::string> NativeArguments(const FoundProgram& program) {
    std::vector<std::string> arguments = {program.native};
    for (std::string& text : Translated(program.arguments, NativeText)) {
        arguments.push_back(std::move(text));
    }
    return arguments;
}

std::vector<std::string> WineArguments(const FoundProgram& program) {
    std::vector<std::string> arguments = {"wine"};
    if (program.kind == ProgramKind::Batch) {
        arguments.insert(arguments.end(), {"cmd", "/c"});
    }
    arguments.push_back("Z:" + ProgramSpelling(program.native));
    for (std::string& text : Translated(program.arguments, WinePath)) {
        arguments.push_back(std::move(text));
    }
    return arguments;
}

class PosixProcesses final : public Processes {
public:
    explicit PosixProcesses(Files& files) : files_(files) {}

    std::unique_ptr<RunningProcess> Start(const ProcessStart& start) override {
        if (std::optional<BatchCommand> command = ParseBatchCommand(start.commandLine)) {
            return std::make_unique<BatchProcess>(files_, std::vector{std::move(*command)});
        }
        const std::optional<FoundProgram> program = FindProgram(start);
        if (!program) {
            throw text::RuntimeError(text::ErrorNumber::FileNotFound, start.commandLine);
        }
        if (!start.folder.empty() && !files_.IsFolder(start.folder)) {
            throw text::RuntimeError(text::ErrorNumber::PathNotFound, start.folder);
        }
        if (program->kind == ProgramKind::Unknown) {
            throw text::RuntimeError(text::ErrorNumber::PathAccessError, ProgramSpelling(program->native));
        }
        if (program->kind == ProgramKind::Batch) {
            std::string content;
            ReadUniFile(files_, ProgramSpelling(program->native), content);
            if (std::optional<std::vector<BatchCommand>> commands = ParseBatchFile(content)) {
                return std::make_unique<BatchProcess>(files_, std::move(*commands));
            }
        }
        SpawnOptions options;
        options.arguments = program->kind == ProgramKind::Native ? NativeArguments(*program) : WineArguments(*program);
        options.environment = Environment(start);
        options.folder = start.folder.empty() ? "" : ToNative(start.folder);
        options.discardOutput = start.style == WindowStyle::Hidden;
        return Spawn(options);
    }

    void Sleep(std::chrono::milliseconds duration) override { std::this_thread::sleep_for(duration); }

private:
    Files& files_;
};

} // namespace

std::unique_ptr<Processes> MakeProcesses(Files& files) { return std::make_unique<PosixProcesses>(files); }

} // namespace tamarind::platform
