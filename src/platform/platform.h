#pragma once

#include "platform/file_system.h"
#include "platform/processes.h"
#include "platform/registry.h"

#include <memory>

namespace tamarind::platform {

/// What a command needs of the system, handed down from main().
struct Platform {
    Files& files;
    Processes& processes;
    Registry& registry;
};

/// This system's own. `files` is needed by processes that the program carries out itself.
[[nodiscard]] std::unique_ptr<Files> MakeFiles();
[[nodiscard]] std::unique_ptr<Processes> MakeProcesses(Files& files);
[[nodiscard]] std::unique_ptr<Registry> MakeRegistry();

} // namespace tamarind::platform
