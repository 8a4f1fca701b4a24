#pragma once

#include "platform/processes.h"

#include <memory>
#include <string>
#include <vector>

namespace tamarind::platform {

/// Everything about a new process, in native spelling.
struct SpawnOptions {
    std::vector<std::string> arguments; ///< the program first; without a "/" it is looked for in the search path
    std::vector<std::string> environment;
    std::string folder;         ///< empty: the current one
    bool discardOutput = false; ///< else both outputs go to this program's error output
};

/// Starts a process in a process group of its own. Errors as Processes::Start.
[[nodiscard]] std::unique_ptr<RunningProcess> Spawn(const SpawnOptions& options);

} // namespace tamarind::platform
