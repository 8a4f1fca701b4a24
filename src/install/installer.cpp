#include "install/installer.h"

#include "install/installation.h"
#include "platform/myfile.h"
#include "platform/paths.h"

namespace tamarind::install {
namespace {

constexpr const char* kInstallationKey = "Software\\Rail Simulator\\Packager Manager\\Installation";
constexpr const char* kDefaultFolder = "c:\\program files\\Rail Simulator";
constexpr const char* kGameProgram = "\\RailSim.exe";

std::string RegisteredFolder(platform::Registry& registry) {
    const auto value = platform::GetRegistryValue(registry, platform::RootKey::LocalMachine, kInstallationKey, "");
    const auto* const folder = std::get_if<std::string>(&value);
    return folder == nullptr ? std::string() : platform::WithoutTrailingBackslash(*folder);
}

} // namespace

std::string InstallerCaption() { return std::string(kInstallerCaption) + "  Version " TAMARIND_VERSION; }

std::string InstallCaption(InstallMode mode) {
    switch (mode) {
    case InstallMode::Route: return "Install Route";
    case InstallMode::Scenario: return "Install Scenario";
    case InstallMode::Assets: break;
    }
    return "Install Assets";
}

void LoadInstaller(Installer& installer) {
    const auto& files = installer.platform.files;
    installer.RailSimPath = RegisteredFolder(installer.platform.registry);
    if (installer.RailSimPath.empty() && platform::FileExists(files, std::string(kDefaultFolder) + kGameProgram)) {
        installer.RailSimPath = kDefaultFolder;
    }
    installer.InstallMode = ModeOf(files, installer.packageFolder);
}

bool LooksLikeGame(const platform::Files& files, const std::string& folder) {
    return platform::FolderExists(files, folder) && (platform::FileExists(files, folder + kGameProgram) ||
                                                     (platform::FolderExists(files, folder + "\\Assets") &&
                                                      platform::FolderExists(files, folder + "\\Content")));
}

Ended Install(Installer& installer) {
    installer.RailSimPath = platform::WithoutTrailingBackslash(installer.RailSimPath);
    return Installation(installer).Run();
}

} // namespace tamarind::install
