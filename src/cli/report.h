#pragma once

#include "cli/commands.h"
#include "platform/terminal/terminal_ui.h"
#include "text/runtime_error.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamarind::cli {

/// The one object of --json, with a line end:
///   {"command", "messages": [{"icon", "title", "text", "buttons", "answer"}, ...], "result" or null,
///    "error": {"number", "description"} or null}
[[nodiscard]] std::string JsonReport(const std::string& command,
                                     const std::vector<platform::TerminalUserInterface::Shown>& messages,
                                     nlohmann::ordered_json result, const std::optional<text::RuntimeError>& error);

/// Text on one line of a table: line breaks, tabs and "\" as escapes.
[[nodiscard]] std::string OnOneLine(std::string_view text);

} // namespace tamarind::cli
