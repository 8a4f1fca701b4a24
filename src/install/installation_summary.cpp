#include "install/catalogue_merge.h"
#include "install/installer.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "routes/package_layout.h"
#include "text/runtime_error.h"

#include <array>
#include <utility>

namespace tamarind::install {
namespace {

/// "1.5 MB"; whole bytes below a thousand.
std::string SizeText(std::uint64_t bytes) {
    constexpr std::array kUnits = {" KB", " MB", " GB", " TB"};
    constexpr std::uint64_t kThousand = 1000;
    if (bytes < kThousand) return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes");
    std::uint64_t tenths = bytes / (kThousand / 10);
    std::size_t unit = 0;
    while (tenths >= kThousand * 10 && unit + 1 < kUnits.size()) {
        tenths /= kThousand;
        ++unit;
    }
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + kUnits.at(unit);
}

std::string DescribeRoute(const Installer& installer) {
    try {
        return "Route: " +
               EnglishNameOf(ReadOwnFile(installer.platform.files, installer.packageFolder, routes::kRouteMarker));
    } catch (const text::RuntimeError& error) {
        return "Route: its marker cannot be read: " + error.Description();
    }
}

std::string DescribeScenarios(const Installer& installer) {
    try {
        const ScenarioList list = ReadScenarioList(installer.platform.files, installer.packageFolder);
        return "Scenarios: " + std::to_string(list.ids.size()) + ", for the route " + list.routeFolder;
    } catch (const text::RuntimeError& error) {
        return "Scenarios: their list cannot be read: " + error.Description();
    }
}

void AddWarnings(const Installer& installer, const PackageContent& content, std::vector<std::string>& lines) {
    const auto& files = installer.platform.files;
    const bool bringsHook = content.exists && platform::FileExists(files, content.root + "\\" + routes::kInstallHook);
    if (bringsHook || platform::FileExists(files, installer.RailSimPath + "\\" + routes::kInstallHook)) {
        lines.emplace_back("At the end the commands in \"RS-Install.bat\" will be run" +
                           std::string(bringsHook ? ", which comes with the package." : "."));
    }
    if (installer.InstallMode == InstallMode::Scenario &&
        platform::FileExists(files, installer.packageFolder + "\\serz.exe")) {
        lines.emplace_back("The converter \"serz.exe\" that comes with the package will be run.");
    }
    if (!content.exists) lines.emplace_back("The package holds no folder \"Rail Simulator\".");
    if (!content.skipped.empty()) {
        const std::size_t count = content.skipped.size();
        lines.push_back(std::to_string(count) + (count == 1 ? " entry leads" : " entries lead") +
                        " elsewhere and will be skipped.");
    }
    if (!LooksLikeGame(files, installer.RailSimPath)) {
        lines.emplace_back("The target does not look like the game's folder: it holds no \"RailSim.exe\".");
    }
}

} // namespace

std::vector<std::string> DescribeInstallation(const Installer& installer) {
    std::vector<std::string> lines;
    switch (installer.InstallMode) {
    case InstallMode::Route: lines.push_back(DescribeRoute(installer)); break;
    case InstallMode::Scenario: lines.push_back(DescribeScenarios(installer)); break;
    case InstallMode::Assets: lines.emplace_back("Assets"); break;
    }
    const PackageContent content = SurveyContent(installer.platform.files, installer.packageFolder);
    lines.push_back("Files: " + std::to_string(content.files.size()) + ", " + SizeText(content.bytes));
    lines.push_back("Target: " +
                    (installer.RailSimPath.empty() ? "none yet" : platform::ForDisplay(installer.RailSimPath)));
    AddWarnings(installer, content, lines);
    return lines;
}

} // namespace tamarind::install
