#pragma once

#include "cli/commands.h"
#include "platform/ui.h"

#include <functional>
#include <optional>

/// The commands on routes and scenarios. Each loads the routes first, as their window does.
namespace tamarind::cli {

[[nodiscard]] Result ListRoutes(session::EditorContext& context, const Arguments& arguments);
[[nodiscard]] Result ListScenarios(session::EditorContext& context, const Arguments& arguments);
[[nodiscard]] Result ListStock(session::EditorContext& context, const Arguments& arguments);
[[nodiscard]] Result CheckRoute(session::EditorContext& context, const Arguments& arguments);
[[nodiscard]] Result DeleteRoute(session::EditorContext& context, const Arguments& arguments);
[[nodiscard]] Result DeleteScenario(session::EditorContext& context, const Arguments& arguments);

/// Answers to single questions that the options of a command give; nothing where the command has no such options.
[[nodiscard]] std::function<std::optional<platform::Answer>(const platform::Message&)>
AnswersByOption(const Arguments& arguments);

} // namespace tamarind::cli
