#include "routes/scenario_packaging.h"

#include "platform/converter.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/safe_write.h"
#include "routes/deletion.h"
#include "routes/package_copy.h"
#include "routes/package_layout.h"
#include "routes/working_files.h"
#include "text/code_page.h"
#include "text/runtime_error.h"

#include <optional>
#include <vector>

namespace tamarind::routes {

using session::EditorContext;
using session::RouteState;
using text::ErrorNumber;
using text::RuntimeError;

namespace {

/// A name that goes into the package's list of scenarios and leads to one folder alone.
void CheckId(const std::string& id) {
    if (IsFolderName(id) && id.find(',') == std::string::npos) return;
    throw RuntimeError(ErrorNumber::PathAccessError, "\"" + id + "\" is no name of a route's or scenario's folder.");
}

void TakeScenario(EditorContext& context, RouteWindow& window, std::size_t selected) {
    const RouteState& state = context.session.Routes;
    if (selected >= state.ScenarioIds.size()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    const std::string& id = state.ScenarioIds[selected];
    CheckId(platform::NameOf(window.RouteFolder));
    CheckId(id);
    window.PackageScenarioPath = window.RouteFolder + "\\Scenarios\\" + id;
    window.PackageRelativePath = RelativePath(window.PackageScenarioPath);
    window.List4.push_back(window.PackageScenarioPath);
    if (context.session.Routes.PackageFolderName.empty()) context.session.Routes.PackageFolderName = id;
}

/// List1 shows what is in the package from now on.
void ShowPackage(RouteWindow& window) {
    if (window.showsPackage) return;
    window.List1.clear();
    window.List2.clear();
    window.showsPackage = true;
}

void ShowError(EditorContext& context, const RuntimeError& error, const std::string& routine) {
    context.ui.Show({.text = "Error " + error.Description() + " occurred in " + routine});
    if (!error.Details().empty()) context.ui.ShowStatus(platform::ForDisplay(error.Details()));
}

void WriteMarkers(EditorContext& context, const RouteWindow& window, const std::string& package) {
    auto& files = context.platform.files;
    platform::CopyFile(files, context.session.TempFiles() + "\\" + kScenarioMarker, package + "\\" + kScenarioMarker);
    std::vector<std::string> names;
    for (const std::string& path : window.List4)
        names.push_back(LastCharacters(path, kIdLength));
    platform::WriteSafely(files, package + "\\" + kScenarioList,
                          text::ToCodePage(ScenarioListText(window.PackageRouteId, names)));
}

Packaged Process(EditorContext& context, RouteWindow& window, const std::string& package) {
    const RouteState& state = context.session.Routes;
    const bool packsScenarios = state.ScenarioPackMode != 0;
    if (packsScenarios) {
        const std::string first = window.showsPackage && !window.List1.empty() ? window.List1.front() : std::string();
        CollectScenarioRecords(context, first, window.List4);
    }
    context.ui.ProcessEvents();
    const PackageCopy copy = RunCopyScript(context, "Packaging scenarios", window.PackageBatch);
    if (copy.isCancelled) {
        context.ui.Show({.text = CancelledText(copy, package)});
        return {Ended::Declined, package};
    }
    platform::CopyFile(context.platform.files, context.session.ProgramFolder + "\\" + kSetupProgram,
                       package + "\\" + kSecondSetupProgram);
    if (packsScenarios) WriteMarkers(context, window, package);
    context.ui.Show({.text = "Your Scenarios are now saved in \r\n" + platform::ForDisplay(package) +
                             "\r\nYou may now zip up this folder and distribute it.",
                     .icon = platform::Icon::Information,
                     .opensFolder = package});
    ShowProblems(context, copy);
    return {copy.problems.empty() ? Ended::Done : Ended::Failed, package};
}

} // namespace

void OpenScenarioPackager(EditorContext& context) {
    const RouteState& state = context.session.Routes;
    if (state.AssetPackMode != 0) {
        context.view.ShowAssets();
        context.ui.ShowStatus("Please close this window first: it packages assets.");
        return;
    }
    if (!PackagesScenarios(state) && (!context.view.CloseRoutes() || !BeginScenarioPackaging(context))) return;
    context.view.ShowRoutes();
}

bool BeginScenarioPackaging(EditorContext& context) {
    if (!MayUseTempFiles(context)) return false;
    ClearTempFiles(context);
    context.session.Routes.PackageFolderName.clear();
    context.session.Routes.ScenarioPackMode = session::kSet;
    return true;
}

Ended AddToPackage(EditorContext& context, RouteWindow& window, Selection selectedScenarios) {
    if (window.isBusy) return Ended::Failed;
    try {
        if (!selectedScenarios.empty()) TakeScenario(context, window, selectedScenarios.front());
        if (window.PackageRouteId.empty()) window.PackageRouteId = platform::NameOf(window.RouteFolder);
        const std::string package = context.session.ProgramFolder + "\\" + context.session.Routes.PackageFolderName;
        window.PackageBatch += CopyScriptLine(window.PackageScenarioPath, package, window.PackageRelativePath);
        ShowPackage(window);
        window.List1.push_back(window.PackageRelativePath);
        return Ended::Done;
    } catch (const RuntimeError& error) {
        ShowError(context, error, "Command1_click");
        return Ended::Failed;
    }
}

Packaged ProcessPackage(EditorContext& context, RouteWindow& window) {
    if (window.isBusy || !MayUseTempFiles(context)) return {Ended::Failed, {}};
    const std::string package = context.session.ProgramFolder + "\\" + context.session.Routes.PackageFolderName;
    const platform::BusyPointer pointer(context.ui);
    const Busy busy(context, window, context.session.TempFiles() + "\\Scenario.");
    try {
        return Process(context, window, package);
    } catch (const RuntimeError& error) {
        ShowError(context, error, "Command3_click");
        context.ui.ShowStatus("What was already made stays in " + platform::ForDisplay(package));
        return {Ended::Failed, package};
    }
}

void CollectScenarioRecords(EditorContext& context, const std::string& firstEntry,
                            std::span<const std::string> scenarioPaths) {
    auto& files = context.platform.files;
    const std::string folder = context.session.TempFiles();
    const std::string& game = context.session.RailSimPath;
    const std::string parent = game.substr(0, game.rfind('\\') + 1); // with its backslash; nothing without one
    platform::ConvertToXml(context.platform.processes, context.ui, context.ConverterFolders(),
                           parent + ScenarioIndexOf(firstEntry), folder + "\\Scenario.xml");
    std::string index;
    platform::ReadUniFile(files, folder + "\\Scenarios.xml", index);
    const std::string target = folder + "\\" + kScenarioMarker;
    std::string records = platform::FileExists(files, target) ? platform::ReadBytes(files, target) : std::string();
    std::optional<RuntimeError> failure;
    bool hasNew = false;
    for (const std::string& path : scenarioPaths) {
        try {
            records += text::ToCodePage(EntryOf(index, platform::NameOf(path), IndexKind::Scenarios) + "\r\n");
            hasNew = true;
        } catch (const RuntimeError& error) {
            failure = RuntimeError(error.Code(), path).With("The index of scenarios holds no whole entry for it.");
            break;
        }
    }
    if (hasNew) platform::WriteSafely(files, target, records);
    if (failure) throw RuntimeError(*failure);
}

} // namespace tamarind::routes
