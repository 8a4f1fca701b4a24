#pragma once

#include <string>

class wxWindow;

namespace tamarind::platform {

/// Shows the table of contents of a help file, a program's path: with the system's viewer for such files where there is
/// one, else from the pages that lie in the folder "help" beside the file. Tells when there are neither.
void ShowHelp(wxWindow& window, const std::string& file);

} // namespace tamarind::platform
