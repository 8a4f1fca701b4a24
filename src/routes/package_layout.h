#pragma once

#include "routes/catalogue.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What a distribution package looks like: names of its files, and their texts. The packagers write it, the installer
/// reads it. Functions of text alone; searches are without regard to letter case.
///
/// A package is a folder inside the program's own. It holds the setup program, marker files, and below "Rail Simulator"
/// the content at its place relative to the folder that holds the game.
namespace tamarind::routes {

inline constexpr const char* kSetupProgram = "RouteSetup.exe";       ///< in the program's folder and route packages
inline constexpr const char* kSecondSetupProgram = "AssetSetup.exe"; ///< the same in scenario and asset packages
inline constexpr const char* kRouteMarker = "Route_Setup.xxx";       ///< a route's record of the routes index
inline constexpr const char* kScenarioMarker = "Scenario.zzz";       ///< the scenarios' records of their index
inline constexpr const char* kScenarioList = "Scenario.yyy";         ///< the route's id, then the scenarios'
inline constexpr const char* kGameRoot = "Rail Simulator";           ///< below it the content
inline constexpr const char* kInstallHook = "RS-Install.bat";        ///< in kGameRoot, put there by hand
inline constexpr const char* kCopyScript = "do_read.bat";            ///< in TempFiles; no part of the package

/// The entry of an index in which the id first occurs, from its opening tag to the end of its closing one, unchanged.
/// A route's entry ends with the first closing tag behind the id, a scenario's with the first behind its opening tag.
/// Throws InvalidProcedureCall when the id does not occur, when no entry begins before it, or when it is not closed.
[[nodiscard]] std::string EntryOf(std::string_view indexText, std::string_view id, IndexKind kind);

[[nodiscard]] bool HoldsGameRoot(std::string_view path);
/// The path from the first "Rail Simulator" on; the whole path, which is wrong, when it holds none.
[[nodiscard]] std::string RelativePath(std::string_view path);

/// One line of the copy script, with its line end. Paths are taken as they are, empty ones too.
[[nodiscard]] std::string CopyScriptLine(std::string_view sourceFolder, std::string_view packageFolder,
                                         std::string_view relativePath);
/// The whole file: the lines as one, so that it ends with an empty line.
[[nodiscard]] std::string CopyScriptFile(std::string_view lines);

/// The path of an index of scenarios, from that of a scenario below it: the part in front of the last "\Scenarios", and
/// "\Scenarios.bin". Without that part the bare name.
[[nodiscard]] std::string ScenarioIndexOf(std::string_view scenarioPath);

/// Scenario.yyy: the route's id and the names, a line each.
[[nodiscard]] std::string ScenarioListText(std::string_view routeId, std::span<const std::string> names);

/// The last characters of a text, all of a shorter one.
[[nodiscard]] std::string LastCharacters(std::string_view text, std::size_t count);

/// How many characters of a scenario's path are its id.
inline constexpr std::size_t kIdLength = 36;

/// Whether a path can stand between the quotes of a copy script: no quote, no control character.
[[nodiscard]] bool FitsCopyScript(std::string_view path);

/// Whether a folder of that name can be made on every system: IsFolderName, and not the name of a device.
[[nodiscard]] bool IsPackageName(std::string_view name);

} // namespace tamarind::routes
