#include "child_program.h"

#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tamarind::samples {

namespace {

void SendTo(const std::filesystem::path& file, int stream) {
    if (!file.empty()) {
        dup2(open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), stream);
    }
}

void Enter(const Surroundings& surroundings) {
    SendTo(surroundings.output, STDOUT_FILENO);
    SendTo(surroundings.errors, STDERR_FILENO);
    if (!surroundings.folder.empty() && chdir(surroundings.folder.c_str()) != 0) {
        _exit(126);
    }
}

} // namespace

struct ChildProgram::System {
    pid_t id = -1;
    bool hasEnded = false;
};

ChildProgram::ChildProgram(const std::filesystem::path& program, const Arguments& arguments,
                           const Environment& environment, const Surroundings& surroundings)
    : system_(std::make_unique<System>()) {
    std::vector<std::string> texts{program.native()};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> values;
    for (std::string& text : texts) {
        values.push_back(text.data());
    }
    values.push_back(nullptr);
    system_->id = fork();
    if (system_->id < 0) {
        throw std::runtime_error("cannot start " + program.native());
    }
    if (system_->id == 0) {
        for (const auto& [name, value] : environment) {
            setenv(name.c_str(), value.c_str(), 1);
        }
        Enter(surroundings);
        execv(values[0], values.data());
        _exit(127);
    }
}

ChildProgram::~ChildProgram() { Stop(); }

std::optional<int> ChildProgram::WaitFor(std::chrono::milliseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    while (true) {
        int status = 0;
        if (waitpid(system_->id, &status, WNOHANG) == system_->id) {
            system_->hasEnded = true;
            return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        }
        if (std::chrono::steady_clock::now() >= end) {
            return std::nullopt;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

void ChildProgram::Stop() {
    if (!system_->hasEnded) {
        kill(system_->id, SIGKILL);
        waitpid(system_->id, nullptr, 0);
        system_->hasEnded = true;
    }
}

std::filesystem::path ProgramFolder() { return std::filesystem::read_symlink("/proc/self/exe").parent_path(); }

} // namespace tamarind::samples
