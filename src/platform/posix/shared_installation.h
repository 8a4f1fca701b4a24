#pragma once

#include <string>

/// An installation that several people use. Folders here are native.
namespace tamarind::platform {

/// A file of this name beside the executables says that nobody's own files belong there, whatever the rights are.
inline constexpr const char* kSharedMark = "shared-installation";

/// Whether the folder of the executables has the mark, or this person must not write there.
[[nodiscard]] bool IsSharedInstallation(const std::string& folder);

/// The folder that a person has instead: "tamarind" among their own data. Empty when that place is not known.
[[nodiscard]] std::string OwnProgramFolder();

/// Makes `own` and in it a link to each thing that the installation brings along. What a person put there under such a
/// name stays; a link that leads nowhere, or into another installation of the program, is led to this one.
/// Throws the RuntimeError of what fails.
void LinkInstalledFiles(const std::string& installation, const std::string& own);

} // namespace tamarind::platform
