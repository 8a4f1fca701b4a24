#pragma once

#include "install/package_reader.h"
#include "platform/platform.h"
#include "platform/ui.h"

#include <string>
#include <vector>

/// The installer without its window: what it shows, as plain data, and its commands as functions.
namespace tamarind::install {

struct Installer {
    platform::Platform platform;
    platform::UserInterface& ui;
    std::string packageFolder; ///< the installer's own folder
    std::string RailSimPath = {};
    install::InstallMode InstallMode = InstallMode::Assets; ///< set once, by LoadInstaller
};

inline constexpr const char* kInstallerCaption = "RouteSetup";

/// The window's caption with the program's version.
[[nodiscard]] std::string InstallerCaption();
/// What the button that installs reads.
[[nodiscard]] std::string InstallCaption(InstallMode mode);

/// Window load: finds the game folder and the mode. Without a game folder, RailSimPath is empty.
void LoadInstaller(Installer& installer);

/// Whether the folder looks like the game's.
[[nodiscard]] bool LooksLikeGame(const platform::Files& files, const std::string& folder);

/// What is going to happen, in plain words, a line each: the route's name or the number of scenarios, files and their
/// size, the target, and whatever a careful person wants to know before.
[[nodiscard]] std::vector<std::string> DescribeInstallation(const Installer& installer);

enum class Ended {
    Done,
    Incomplete, ///< it came to its end, but steps failed and were passed over; the person was told
    Refused,    ///< before anything was changed; the person was told why
    Declined,   ///< a question was not answered with Yes
    Cancelled,  ///< between two files
};

/// Command2: the whole installation into RailSimPath. A "Permission denied" is asked about, any other error is passed
/// over, and the person is told after the last message. Whatever happens to the game's indexes, each of them is wholly
/// old or wholly new, or its backup stands whole beside it.
Ended Install(Installer& installer);

} // namespace tamarind::install
