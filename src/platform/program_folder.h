#pragma once

#include <string>

/// Where the program stands for its commands: the folder of its settings, TempFiles and packages, with the files that
/// it brings along (RouteSetup.exe, BluePrints, help) beside them. That is the executable's own folder, except for an
/// installation that several people share: then each of them has a folder of their own.
namespace tamarind::platform {

/// The program's folder, as the program spells paths. Nothing is made.
[[nodiscard]] std::string ProgramFolder();

/// Makes the folder where it is a person's own, with links to what the installation brings along; does nothing in the
/// executable's folder. Throws the RuntimeError of what fails.
void PrepareProgramFolder();

} // namespace tamarind::platform
