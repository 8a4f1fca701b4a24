#pragma once

#include <string>
#include <windows.h>

namespace tamarind::platform {

/// The system's folder chooser over a window. The chosen folder; empty when cancelled.
[[nodiscard]] std::string ChooseFolder(HWND owner, const std::string& title, const std::string& startFolder);

} // namespace tamarind::platform
