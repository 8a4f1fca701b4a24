#pragma once

#include "platform/file_system.h"

#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// The two batch commands that the program itself writes, for systems that have no batch files.
namespace tamarind::platform {

/// `ATTRIB -R "folder\*.*" /s /d`, likewise with -H and -S.
struct ClearAttributes {
    std::string folder;
    bool operator==(const ClearAttributes&) const = default;
};

/// `call Xcopy "source" "destination\*.*" /I /C /S`; `source` is a file, a folder, or a folder and "\*.*".
struct CopyToFolder {
    std::string source;      ///< without "\*.*"
    std::string destination; ///< a folder, without "\*.*"
    bool operator==(const CopyToFolder&) const = default;
};

using BatchCommand = std::variant<ClearAttributes, CopyToFolder>;

/// Nothing when the line is any other command.
[[nodiscard]] std::optional<BatchCommand> ParseBatchCommand(std::string_view line);
/// The commands of a whole batch file, empty lines left out; nothing when it holds any other command.
[[nodiscard]] std::optional<std::vector<BatchCommand>> ParseBatchFile(std::string_view text);

/// Carries out a command as far as it goes: an entry that fails is passed over. Ends early on a stop request, between
/// files. Copying takes links as ListTree does.
void RunBatchCommand(Files& files, const BatchCommand& command, const std::stop_token& stop);

} // namespace tamarind::platform
