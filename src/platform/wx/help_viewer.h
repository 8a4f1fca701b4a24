#pragma once

#include <wx/string.h>

namespace tamarind::platform {

/// Hands a help file to the system's viewer, with the table of contents. False where there is none, or where it cannot
/// show the file.
[[nodiscard]] bool ShowHelpFile(const wxString& path);

} // namespace tamarind::platform
