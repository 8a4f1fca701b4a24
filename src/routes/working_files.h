#pragma once

#include "session/editor_context.h"

#include "routes/route_window.h"

#include <optional>
#include <string>

/// What the commands of the routes window do with TempFiles.
namespace tamarind::routes {

/// For the length of a command that converts: no other command of the window begins, and no game file of the same
/// working files is opened or saved.
class Busy {
public:
    /// `tempBase` as in Session::convertingBases; empty when the command has no fixed working files.
    Busy(session::EditorContext& context, RouteWindow& window, const std::string& tempBase = {});
    ~Busy();
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    session::EditorContext& context_;
    RouteWindow& window_;
};

/// Whether no game file is being converted, whose working files a command could take away; if not, the person is told.
bool MayUseTempFiles(session::EditorContext& context);

/// Deletes what is in TempFiles, or makes the folder. What is kept in TempFiles\Recovered stays.
void ClearTempFiles(session::EditorContext& context);

/// Deletes a working file, if there is one; what cannot be deleted stays.
void RemoveWorkingFile(platform::Files& files, const std::string& path);

/// Converts one file. Nothing when the converter wrote nothing; an earlier result is gone before.
std::optional<std::string> ConvertToText(session::EditorContext& context, const std::string& binaryPath,
                                         const std::string& xmlPath);

} // namespace tamarind::routes
