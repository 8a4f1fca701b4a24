#pragma once

#include "session/editor_context.h"

#include <string>
#include <string_view>
#include <vector>

/// How the packagers copy: with progress, ended between files when the person asks for it.
namespace tamarind::routes {

/// What a copy left behind.
struct PackageCopy {
    bool isCancelled = false;
    std::size_t copied = 0; ///< files
    std::size_t total = 0;
    std::vector<std::string> problems; ///< one line for each file that is not in the package, and why
    std::vector<std::string> links;    ///< that were left out, because they lead elsewhere
};

/// Copies a folder with all that is in it. A file that fails is a problem, and the copy goes on; without room on the
/// disk it ends.
[[nodiscard]] PackageCopy CopyPackageFolder(session::EditorContext& context, const std::string& title,
                                            const std::string& from, const std::string& to);

/// Writes the copy script into TempFiles, runs it there and waits. The script's own result says nothing, so afterwards
/// each file is looked for. Links leading elsewhere are taken out again where the system's copy program follows them,
/// and so is what a cancelled one left half-written. Throws when the script cannot be written.
[[nodiscard]] PackageCopy RunCopyScript(session::EditorContext& context, const std::string& title,
                                        std::string_view lines);

/// Shows, in an exclamation message, what is not in the package. Whether there was anything.
bool ShowProblems(session::EditorContext& context, const PackageCopy& copy);
/// For a status line or message: a cancelled copy leaves what was made before.
[[nodiscard]] std::string CancelledText(const PackageCopy& copy, const std::string& packageFolder);

} // namespace tamarind::routes
