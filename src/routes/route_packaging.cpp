#include "routes/route_packaging.h"

#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/safe_write.h"
#include "routes/deletion.h"
#include "routes/package_copy.h"
#include "routes/package_layout.h"
#include "routes/working_files.h"
#include "text/code_page.h"
#include "text/runtime_error.h"

#include <fmt/format.h>

#include <vector>

namespace tamarind::routes {

using session::EditorContext;
using text::ErrorNumber;
using text::RuntimeError;

namespace {

/// One route on its way into a package.
struct Job {
    std::string name;
    std::string id;
    std::string package;           ///< its folder
    std::vector<std::string> made; ///< in plain words, for a failure's message
};

template <typename Item> void EraseAt(std::vector<Item>& list, std::size_t index) {
    if (index < list.size()) list.erase(list.begin() + static_cast<std::ptrdiff_t>(index));
}

std::string RouteBlock(const RouteWindow& window, const Job& job) {
    try {
        return EntryOf(window.RoutesText, job.id, IndexKind::Routes);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Code(), window.RoutesFile).With("The routes index holds no whole entry of the route.");
    }
}

void CheckNames(const Job& job) {
    if (!IsPackageName(job.name)) {
        throw RuntimeError(ErrorNumber::PathAccessError, "\"" + job.name + "\"")
            .With("The route's name cannot be the name of a folder.");
    }
    if (!IsFolderName(job.id)) {
        throw RuntimeError(ErrorNumber::PathAccessError, "\"" + job.id + "\"")
            .With("The route's id cannot be the name of a folder.");
    }
}

/// Makes the folders that are missing; the path of the last one.
std::string MakeFolders(EditorContext& context, Job& job) {
    auto& files = context.platform.files;
    std::string folder = job.package;
    const auto make = [&] {
        if (platform::FolderExists(files, folder)) return;
        files.CreateFolder(folder);
    };
    make();
    job.made.push_back(platform::ForDisplay(job.package));
    for (const std::string& name : {std::string(kGameRoot), std::string("Content"), std::string("Routes"), job.id}) {
        folder += "\\" + name;
        make();
    }
    return folder;
}

void ShowFailure(EditorContext& context, const Job& job, const RuntimeError& error) {
    std::string text = "The route could not be packaged: " + error.Description();
    if (!error.Details().empty()) text += "\r\n" + platform::ForDisplay(error.Details());
    text += job.made.empty() ? "\r\nNothing was made." : "\r\nAlready made, and kept:";
    for (const std::string& made : job.made)
        text += "\r\n" + made;
    context.ui.Show({.text = text});
}

Packaged Package(EditorContext& context, const RouteWindow& window, Job& job) {
    auto& files = context.platform.files;
    const std::string block = RouteBlock(window, job);
    CheckNames(job);
    const std::string target = MakeFolders(context, job);
    platform::WriteSafely(files, job.package + "\\" + kRouteMarker, text::ToCodePage(block + "\r\n"));
    job.made.emplace_back(kRouteMarker);
    context.ui.ProcessEvents();
    platform::CopyFile(files, context.session.ProgramFolder + "\\" + kSetupProgram, job.package + "\\" + kSetupProgram);
    job.made.emplace_back(kSetupProgram);
    context.ui.ProcessEvents();
    const std::string source = RouteFolderOf(context, job.id);
    if (!platform::FolderExists(files, source)) throw RuntimeError(ErrorNumber::PathNotFound, source);
    const PackageCopy copy = CopyPackageFolder(context, "Packaging " + job.name, source, target);
    context.ui.ProcessEvents();
    if (copy.isCancelled) {
        context.ui.Show({.text = CancelledText(copy, job.package)});
        return {Ended::Declined, job.package};
    }
    if (!copy.problems.empty()) {
        ShowProblems(context, copy);
        context.ui.ShowStatus(
            fmt::format("{} of {} files are in {}", copy.copied, copy.total, platform::ForDisplay(job.package)));
        return {Ended::Failed, job.package};
    }
    context.ui.Show(
        {.text = "You may now zip up the folder " + platform::ForDisplay(job.package) + "\r\nready for distribution.",
         .icon = platform::Icon::Information,
         .opensFolder = job.package});
    ShowProblems(context, copy);
    return {Ended::Done, job.package};
}

} // namespace

void OpenRoutePackager(EditorContext& context) { OpenRoutesFor(context, session::kSet); }

Packaged PackageRoute(EditorContext& context, RouteWindow& window, Selection selectedRoutes) {
    if (window.isBusy) return {Ended::Failed, {}};
    if (selectedRoutes.empty()) return {};
    auto& state = context.session.Routes;
    const std::size_t selected = selectedRoutes.front();
    Job job{.name = window.List1.at(selected), .id = window.List2.at(selected), .package = {}, .made = {}};
    job.package = context.session.ProgramFolder + "\\" + job.name;
    // All four stay parallel, so that the next command takes the route that the window shows.
    for (auto* const list : {&window.List1, &window.List2, &state.RouteNames, &state.RouteIds})
        EraseAt(*list, selected);
    const platform::BusyPointer pointer(context.ui);
    const Busy busy(context, window);
    try {
        return Package(context, window, job);
    } catch (const RuntimeError& error) {
        ShowFailure(context, job, error);
        return {Ended::Failed, job.made.empty() ? std::string() : job.package};
    }
}

} // namespace tamarind::routes
