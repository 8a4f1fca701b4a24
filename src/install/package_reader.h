#pragma once

#include "platform/file_system.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// What a distribution package holds; its files' names are in routes/package_layout.h, and their letter case does not
/// count. Nothing here changes the disk.
namespace tamarind::install {

inline constexpr const char* kInstallLog = "RouteSetup.log";    ///< of the package folder, made by the installer
inline constexpr const char* kConvertedIndex = "Scenarios.xml"; ///< made by the installer

/// Whether the package has a file of that name. A link that leads out of the package is none: what lies outside is
/// never read.
[[nodiscard]] bool HasOwnFile(const platform::Files& files, const std::string& packageFolder, const std::string& name);

/// The text of one of the package's own files. Throws FileNotFound when it has none, and what reading throws.
[[nodiscard]] std::string ReadOwnFile(const platform::Files& files, const std::string& packageFolder,
                                      const std::string& name);

/// Makes room for a file that the installer writes into the package's folder: whatever bears its name, in any letter
/// case, goes. A package may bring a link under that name, through which a stranger's file would be overwritten.
/// Throws what removing throws.
void MakeRoom(platform::Files& files, const std::string& path);

enum class InstallMode : std::int16_t { Route = 1, Scenario = 2, Assets = 3 };

/// The kind of a package, by the markers in its folder: a route's comes before those of scenarios.
[[nodiscard]] InstallMode ModeOf(const platform::Files& files, const std::string& packageFolder);

/// "Scenario.yyy".
struct ScenarioList {
    std::string routeFolder; ///< name of the route's folder; empty when the file holds nothing
    std::vector<std::string> ids;
};

/// Reads items that end at a comma or at the end of a line; quotes round an item are taken off, and a blank line is an
/// empty item.
[[nodiscard]] ScenarioList ParseScenarioList(std::string_view text);

/// A list that is larger than any that a packager makes is none.
inline constexpr std::size_t kMostListBytes = std::size_t{1024} * 1024;

/// The list of a package. Throws FileNotFound when it has none, and InvalidProcedureCall when the file is too large.
[[nodiscard]] ScenarioList ReadScenarioList(const platform::Files& files, const std::string& packageFolder);

/// What lies in a package's content folder. Paths are relative to it and begin without "\".
struct PackageContent {
    struct File {
        std::string path;
        std::uint64_t size = 0; ///< bytes
    };
    std::string root;                 ///< the content folder, its links followed
    bool exists = false;              ///< there is a content folder
    std::vector<std::string> folders; ///< each behind the one that holds it
    std::vector<File> files;          ///< also links to files inside the content folder
    std::vector<std::string> skipped; ///< links to folders, links that lead out or nowhere, and what cannot be listed
    std::uint64_t bytes = 0;
};

[[nodiscard]] PackageContent SurveyContent(const platform::Files& files, const std::string& packageFolder);

} // namespace tamarind::install
