#include "platform/processes.h"

#include "text/runtime_error.h"

namespace tamarind::platform {
namespace {

/// Tells the user interface that an outside program is being waited for, for the length of a scope.
class Waiting {
public:
    explicit Waiting(UserInterface& ui) : ui_(ui) { ui_.SetWaiting(true); }
    ~Waiting() { ui_.SetWaiting(false); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

private:
    UserInterface& ui_;
};

} // namespace

double ShellWait(Processes& processes, UserInterface& ui, const ProcessStart& start, bool pumpEvents) {
    std::unique_ptr<RunningProcess> process;
    try {
        process = processes.Start(start);
    } catch (const text::RuntimeError&) {
        return 0; // callers look at the output file, not at the start
    }
    const Waiting waiting(ui);
    do {
        processes.Sleep(kPollInterval);
        if (pumpEvents) {
            ui.ProcessEvents();
        }
        if (ui.StopRequested()) {
            process->Stop();
        }
    } while (!process->HasEnded());
    return static_cast<double>(process->Id());
}

} // namespace tamarind::platform
