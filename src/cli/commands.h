#pragma once

#include "cli/arguments.h"
#include "session/editor_context.h"

#include <nlohmann/json.hpp>

#include <string>

namespace tamarind::cli {

enum class Outcome {
    Done,
    Failed,   ///< refused or failed; the person was told why
    Declined, ///< a question was answered No or Cancel
};

/// What a command leaves: the same as an object and as plain lines.
struct Result {
    Outcome outcome = Outcome::Done;
    nlohmann::ordered_json json = {};
    std::string lines = {};
};

/// Carries out the command that `arguments` names. Throws RuntimeError as the command does.
[[nodiscard]] Result RunCommand(session::EditorContext& context, const Arguments& arguments);

} // namespace tamarind::cli
