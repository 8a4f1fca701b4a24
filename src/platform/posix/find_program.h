#pragma once

#include "platform/command_line.h"
#include "platform/processes.h"

#include <optional>
#include <string>
#include <vector>

namespace tamarind::platform {

/// What a file is to the process starter.
enum class ProgramKind { Native, Windows, Batch, Unknown };

struct FoundProgram {
    std::string native; ///< its path on disk
    ProgramKind kind = ProgramKind::Unknown;
    std::vector<CommandArgument> arguments;
};

/// The program that a command line names: with a folder just there, without one in the search folders, the current
/// folder of the new process, then the search path; ".exe" and ".bat" are added to names without an ending.
[[nodiscard]] std::optional<FoundProgram> FindProgram(const ProcessStart& start);

} // namespace tamarind::platform
