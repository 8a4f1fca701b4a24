#include "install/asset_window.h"

#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/safe_write.h"
#include "platform/tree_copy.h"
#include "routes/package_copy.h"
#include "routes/package_layout.h"
#include "routes/route_window.h"
#include "routes/scenario_packaging.h"
#include "routes/working_files.h"
#include "text/code_page.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>

namespace tamarind::install {

using routes::Ended;
using routes::Packaged;
using session::EditorContext;
using text::ErrorNumber;
using text::RuntimeError;

namespace {

constexpr const char* kAllFiles = "*.*";

/// For the length of a command that waits or copies.
class Busy {
public:
    Busy(EditorContext& context, AssetWindow& window) : context_(context), window_(window), pointer_(context.ui) {
        window_.isBusy = true;
        context_.session.convertingBases.push_back(context.session.TempFiles() + "\\Scenario.");
    }
    ~Busy() {
        context_.session.convertingBases.pop_back();
        window_.isBusy = false;
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    EditorContext& context_;
    AssetWindow& window_;
    platform::BusyPointer pointer_;
};

void ShowError(EditorContext& context, const RuntimeError& error) {
    const std::string details = error.Details().empty() ? "" : "\r\n" + platform::ForDisplay(error.Details());
    context.ui.Show({.text = error.Description() + details});
}

/// Runs a handler under the window's error trap.
template <typename Step> bool Trap(EditorContext& context, const Step& step) {
    try {
        step();
        return true;
    } catch (const RuntimeError& error) {
        ShowError(context, error);
        return false;
    }
}

/// Makes a folder the current one; nothing changes when it cannot be listed.
void GoTo(EditorContext& context, AssetWindow& window, const std::string& folder) {
    const auto& files = context.platform.files;
    const std::string drive = DriveOf(folder);
    const bool isRoot = RootOf(drive) == RootOf(folder);
    const std::string path = isRoot ? RootOf(drive) : platform::WithoutTrailingBackslash(folder);
    std::vector<FolderRow> rows = FolderRows(files, path);
    std::vector<std::string> names = FileNames(files, path, window.Text2);
    window.Drive1 = drive;
    window.Dir1 = path;
    window.DirRows = std::move(rows);
    window.File1 = std::move(names);
    window.Text1 = platform::ForDisplay(path);
}

std::string StartFolder(const EditorContext& context) {
    const auto& session = context.session;
    if (session.RailSimPath.empty()) return {};
    const std::string& game = session.RailSimPath;
    std::string folder = game;
    if (session.Routes.AssetPackMode != 0) {
        folder = game + "\\Assets";
    } else if (session.Routes.ScenarioPackMode != 0) {
        folder = game + "\\Content\\Routes";
    }
    return NearestFolder(context.platform.files, folder);
}

/// Why a folder cannot be in a package; empty when it can.
std::string Refusal(const AssetWindow& window) {
    if (window.SourceFolder.empty()) return "Please click on the folder to be added first.";
    const std::string folder = platform::ForDisplay(window.SourceFolder);
    if (!routes::HoldsGameRoot(window.SourceFolder)) {
        return "The folder\r\n" + folder +
               "\r\ncannot be added: its path does not contain \"Rail Simulator\", so its place in the game is "
               "unknown.";
    }
    if (!routes::FitsCopyScript(window.SourceFolder)) {
        return "The folder\r\n" + folder + "\r\ncannot be added: its path holds a quote or a control character.";
    }
    return {};
}

/// The route that a scenario's folder belongs to: the name in front of "\Scenarios".
std::string RouteOf(const std::string& scenarioFolder) {
    const std::size_t end = text::FindLastNoCase(scenarioFolder, "\\Scenarios");
    return platform::NameOf(std::string_view(scenarioFolder).substr(0, end == 0 ? 0 : end - 1));
}

std::string PackageFolder(const EditorContext& context) {
    return context.session.ProgramFolder + "\\" + context.session.Routes.PackageFolderName;
}

void WriteMarkers(EditorContext& context, const AssetWindow& window, const std::string& package) {
    auto& files = context.platform.files;
    platform::CopyFile(files, context.session.TempFiles() + "\\" + routes::kScenarioMarker,
                       package + "\\" + routes::kScenarioMarker);
    std::vector<std::string> names;
    for (const std::string& path : window.List1)
        names.push_back(platform::NameOf(path));
    platform::WriteSafely(files, package + "\\" + routes::kScenarioList,
                          text::ToCodePage(routes::ScenarioListText(window.RouteFolderName, names)));
}

Packaged Process(EditorContext& context, const AssetWindow& window, const std::string& package) {
    const bool packsScenarios = context.session.Routes.ScenarioPackMode != 0;
    if (packsScenarios) {
        routes::CollectScenarioRecords(context, window.List1.empty() ? std::string() : window.List1.front(),
                                       window.sources);
    }
    const routes::PackageCopy copy = routes::RunCopyScript(context, "Packaging assets", window.CopyScript);
    if (copy.isCancelled) {
        context.ui.Show({.text = routes::CancelledText(copy, package)});
        return {Ended::Declined, package};
    }
    platform::CopyFile(context.platform.files, context.session.ProgramFolder + "\\" + routes::kSetupProgram,
                       package + "\\" + routes::kSecondSetupProgram);
    if (packsScenarios) WriteMarkers(context, window, package);
    context.ui.Show({.text = "Your assets are now saved in \r\n" + platform::ForDisplay(package) +
                             "\r\nYou may now zip up this folder and distribute it.",
                     .icon = platform::Icon::Information,
                     .opensFolder = package});
    routes::ShowProblems(context, copy);
    return {copy.problems.empty() ? Ended::Done : Ended::Failed, package};
}

std::string SizeText(std::uint64_t bytes) {
    constexpr double kUnit = 1024;
    const auto size = static_cast<double>(bytes);
    if (size < kUnit) return fmt::format("{} byte{}", bytes, bytes == 1 ? "" : "s");
    if (size < kUnit * kUnit) return fmt::format("{:.1f} KB", size / kUnit);
    if (size < kUnit * kUnit * kUnit) return fmt::format("{:.1f} MB", size / (kUnit * kUnit));
    return fmt::format("{:.1f} GB", size / (kUnit * kUnit * kUnit));
}

} // namespace

std::string CaptionOf(AssetControl control) {
    switch (control) {
    case AssetControl::Command1: return "Add to Package";
    case AssetControl::Command2: return "Exit";
    case AssetControl::Command3: return "Process";
    case AssetControl::Command4: return "Remove from Package";
    }
    return {};
}

bool IsEnabled(AssetControl control, const AssetWindow& window) {
    return !window.isBusy && (control != AssetControl::Command1 || routes::HoldsGameRoot(window.SourceFolder));
}

void OpenAssetPackager(EditorContext& context) {
    const auto& state = context.session.Routes;
    if (routes::PackagesScenarios(state)) {
        context.view.ShowRoutes();
        context.ui.ShowStatus(routes::kScenariosFirst);
        return;
    }
    if (state.AssetPackMode != 0 || BeginAssetPackaging(context)) context.view.ShowAssets();
}

bool BeginAssetPackaging(EditorContext& context) {
    if (!routes::MayUseTempFiles(context)) return false;
    routes::ClearTempFiles(context);
    context.session.Routes.AssetPackMode = session::kSet;
    context.session.Routes.PackageFolderName.clear();
    return true;
}

void LoadAssets(EditorContext& context, AssetWindow& window) {
    auto& files = context.platform.files;
    window = {};
    window.Drives = files.Drives();
    const std::string folder = StartFolder(context);
    const bool hasC = std::find(window.Drives.begin(), window.Drives.end(), "C:") != window.Drives.end();
    const std::string drive = hasC || window.Drives.empty() ? "C:" : window.Drives.front();
    Trap(context, [&] { GoTo(context, window, folder.empty() ? RootOf(drive) : folder); });
    Trap(context, [&] {
        const std::string temp = context.session.TempFiles();
        if (!platform::FolderExists(files, temp)) files.CreateFolder(temp);
    });
}

bool ChangeDrive(EditorContext& context, AssetWindow& window, const std::string& drive) {
    return Trap(context, [&] { GoTo(context, window, RootOf(drive)); });
}

bool ClickFolder(EditorContext& context, AssetWindow& window, std::size_t row) {
    if (row >= window.DirRows.size()) return false;
    if (!SelectFolder(context, window, std::string(window.DirRows[row].path))) return false;
    if (!routes::HoldsGameRoot(window.SourceFolder)) {
        context.ui.ShowStatus("This folder cannot be added: its path does not contain \"Rail Simulator\".");
    }
    return true;
}

bool SelectFolder(EditorContext& context, AssetWindow& window, const std::string& folder) {
    return Trap(context, [&] {
        if (!platform::FolderExists(context.platform.files, folder)) {
            throw RuntimeError(ErrorNumber::PathNotFound, folder);
        }
        GoTo(context, window, folder);
        window.SourceFolder = window.Dir1;
        window.RelativePath = routes::RelativePath(window.Dir1);
    });
}

bool ChangePattern(EditorContext& context, AssetWindow& window, const std::string& pattern) {
    window.Text2 = pattern.empty() ? kAllFiles : pattern;
    return Trap(context, [&] { window.File1 = FileNames(context.platform.files, window.Dir1, window.Text2); });
}

Ended AddFolder(EditorContext& context, AssetWindow& window) {
    if (window.isBusy) return Ended::Failed;
    const std::string refusal = Refusal(window);
    if (!refusal.empty()) {
        context.ui.Show({.text = refusal});
        return Ended::Failed;
    }
    auto& state = context.session.Routes;
    if (state.PackageFolderName.empty()) state.PackageFolderName = platform::NameOf(window.SourceFolder);
    if (state.ScenarioPackMode != 0 && window.RouteFolderName.empty()) {
        window.RouteFolderName = RouteOf(window.SourceFolder);
    }
    window.CopyScript += routes::CopyScriptLine(window.SourceFolder, PackageFolder(context), window.RelativePath);
    window.List1.push_back(window.RelativePath);
    window.sources.push_back(window.SourceFolder);
    return Ended::Done;
}

void RemoveFolders(AssetWindow& window, Selection rows) {
    for (std::size_t i = rows.size(); i > 0; --i) {
        const std::size_t row = rows[i - 1];
        if (row >= window.List1.size()) continue;
        window.List1.erase(window.List1.begin() + static_cast<std::ptrdiff_t>(row));
        window.sources.erase(window.sources.begin() + static_cast<std::ptrdiff_t>(row));
    }
    window.Text3.clear();
}

void ShowDetail(EditorContext& context, AssetWindow& window, Selection rows) {
    window.Text3.clear();
    if (rows.empty() || rows.back() >= window.sources.size()) return;
    const auto& files = context.platform.files;
    const std::string folder = window.sources[rows.back()];
    const platform::BusyPointer pointer(context.ui);
    const platform::Tree tree = platform::ListTree(files, folder);
    std::uint64_t bytes = 0;
    for (const platform::Tree::File& file : tree.files) {
        const auto stamp = files.Stamp(folder + "\\" + file.path);
        bytes += stamp ? stamp->size : 0;
    }
    window.Text3 = fmt::format("{}: {} file{}, {}", platform::ForDisplay(folder), tree.files.size(),
                               tree.files.size() == 1 ? "" : "s", SizeText(bytes));
}

Packaged ProcessAssets(EditorContext& context, AssetWindow& window) {
    if (window.isBusy || !routes::MayUseTempFiles(context)) return {Ended::Failed, {}};
    const Busy busy(context, window);
    Packaged packaged{Ended::Failed, PackageFolder(context)};
    Trap(context, [&] { packaged = Process(context, window, packaged.folder); });
    return packaged;
}

void CloseAssets(EditorContext& context, AssetWindow& window) {
    context.session.Routes.AssetPackMode = 0;
    context.session.Routes.ScenarioPackMode = 0;
    window.RouteFolderName.clear();
    window.isClosed = true;
}

} // namespace tamarind::install
