#pragma once

#include "platform/ui.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tamarind::platform {

enum class WindowStyle { Hidden = 0, NormalFocus = 1 };

struct ProcessStart {
    std::string commandLine; ///< program and arguments, double quotes round what holds blanks
    std::string folder;      ///< current folder of the new process
    /// Where a program named without a folder is looked for before the search path; they also stand in front of the
    /// new process's own search path.
    std::vector<std::string> searchFolders;
    WindowStyle style = WindowStyle::Hidden;
};

class RunningProcess {
public:
    virtual ~RunningProcess() = default;
    [[nodiscard]] virtual std::uint64_t Id() const = 0;
    /// Never blocks. True for good once the process has ended.
    [[nodiscard]] virtual bool HasEnded() = 0;
    /// Ends the process and what it started, by force.
    virtual void Stop() = 0;
};

class Processes {
public:
    virtual ~Processes() = default;
    /// Throws FileNotFound when the program is not found, PermissionDenied or PathAccessError when it cannot be
    /// started.
    [[nodiscard]] virtual std::unique_ptr<RunningProcess> Start(const ProcessStart& start) = 0;
    virtual void Sleep(std::chrono::milliseconds duration) = 0;
};

/// How long to wait before each look at a running process.
inline constexpr std::chrono::milliseconds kPollInterval(50);

/// Starts an outside program and returns when it has ended: its process id, or 0 when it could not be started (no
/// message is shown). Looks every 50 ms, so even a program that ends at once costs one such pause; with `pumpEvents`
/// the user interface lives meanwhile. There is no time-out.
double ShellWait(Processes& processes, UserInterface& ui, const ProcessStart& start, bool pumpEvents);

} // namespace tamarind::platform
