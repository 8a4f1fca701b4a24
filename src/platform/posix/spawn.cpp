#include "platform/posix/spawn.h"

#include "platform/posix/native_path.h"
#include "platform/posix/system_error.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

namespace tamarind::platform {
namespace {

class PosixProcess final : public RunningProcess {
public:
    explicit PosixProcess(pid_t id) : id_(id) {}

    std::uint64_t Id() const override { return static_cast<std::uint64_t>(id_); }

    bool HasEnded() override {
        if (!ended_) {
            const pid_t result = waitpid(id_, nullptr, WNOHANG);
            ended_ = result == id_ || (result < 0 && errno == ECHILD);
        }
        return ended_;
    }

    void Stop() override {
        if (!HasEnded()) {
            kill(-id_, SIGKILL); // the group: the process and what it started
        }
    }

private:
    pid_t id_;
    bool ended_ = false;
};

/// The settings of a start; each setter returns an error number, the first one that is none wins.
class SpawnSettings {
public:
    SpawnSettings() {
        posix_spawn_file_actions_init(&actions_);
        posix_spawnattr_init(&attributes_);
    }
    ~SpawnSettings() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    void Fill(const SpawnOptions& options) {
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        Keep(posix_spawnattr_setflags(&attributes_,
                                      POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
        Keep(posix_spawnattr_setpgroup(&attributes_, 0));
        Keep(posix_spawnattr_setsigmask(&attributes_, &none));
        Keep(posix_spawnattr_setsigdefault(&attributes_, &all));
        Keep(posix_spawn_file_actions_addopen(&actions_, 0, "/dev/null", O_RDONLY, 0));
        if (options.discardOutput) {
            Keep(posix_spawn_file_actions_addopen(&actions_, 1, "/dev/null", O_WRONLY, 0));
            Keep(posix_spawn_file_actions_adddup2(&actions_, 1, 2));
        } else {
            // What it says must not get into this program's results.
            Keep(posix_spawn_file_actions_adddup2(&actions_, 2, 1));
        }
        if (!options.folder.empty()) {
            Keep(posix_spawn_file_actions_addchdir_np(&actions_, options.folder.c_str()));
        }
        Keep(posix_spawn_file_actions_addclosefrom_np(&actions_, 3));
    }

    [[nodiscard]] int Error() const { return error_; }
    [[nodiscard]] const posix_spawn_file_actions_t* Actions() const { return &actions_; }
    [[nodiscard]] const posix_spawnattr_t* Attributes() const { return &attributes_; }

private:
    void Keep(int error) { error_ = error_ == 0 ? error : error_; }

    posix_spawn_file_actions_t actions_ = {};
    posix_spawnattr_t attributes_ = {};
    int error_ = 0;
};

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

std::unique_ptr<RunningProcess> Spawn(const SpawnOptions& options) {
    std::vector<std::string> arguments = options.arguments;
    std::vector<std::string> environment = options.environment;
    SpawnSettings settings;
    settings.Fill(options);
    pid_t id = 0;
    const int error = settings.Error() != 0
                          ? settings.Error()
                          : posix_spawnp(&id, arguments.front().c_str(), settings.Actions(), settings.Attributes(),
                                         Pointers(arguments).data(), Pointers(environment).data());
    if (error != 0) {
        ThrowSystemError(error, ProgramSpelling(arguments.front()));
    }
    return std::make_unique<PosixProcess>(id);
}

} // namespace tamarind::platform
