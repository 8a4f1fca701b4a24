#pragma once

#include "platform/file_system.h"

#include <string>

namespace tamarind::platform {

/// Opens a file for reading; other programs may read it meanwhile.
[[nodiscard]] std::unique_ptr<InputFile> OpenInput(const std::string& path);
[[nodiscard]] std::unique_ptr<OutputFile> OpenOutput(const std::string& path, CreateMode mode);

} // namespace tamarind::platform
