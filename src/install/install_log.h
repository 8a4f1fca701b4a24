#pragma once

#include "platform/file_system.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tamarind::install {

/// What an installation has done, for "RouteSetup.log" beside the installer.
struct InstallLog {
    std::string what; ///< a route's name, or what else was installed
    std::string gameFolder;
    std::vector<std::string> indexes;  ///< a sentence an index: changed, and where its backup is
    std::vector<std::string> replaced; ///< files, relative to the game folder
    std::size_t added = 0;             ///< files that were not there before
    std::vector<std::string> removed;  ///< files, relative to the game folder
    std::vector<std::string> notes;    ///< what else there is to say
    std::string ending;
};

/// Lines ended by CR LF.
[[nodiscard]] std::string FormatLog(const InstallLog& log);

/// Writes the log, replacing an earlier one. Throws as WriteSafely.
void WriteLog(platform::Files& files, const std::string& packageFolder, const InstallLog& log);

} // namespace tamarind::install
