#include "routes/check.h"

#include "platform/myfile.h"
#include "platform/paths.h"
#include "routes/content_scan.h"
#include "routes/references.h"
#include "routes/working_files.h"
#include "text/runtime_error.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <thread>

namespace tamarind::routes {

using session::EditorContext;
using text::RuntimeError;

namespace {

bool AskYes(EditorContext& context, const std::string& question) {
    return context.ui.Show({.text = question, .icon = platform::Icon::Question, .buttons = platform::Buttons::YesNo}) ==
           platform::Answer::Yes;
}

/// Sorted, each once. A failure is shown and leaves the list as it was.
void SortAndReduce(EditorContext& context, std::vector<std::string>& list) {
    try {
        platform::SortStrings(list, 0, static_cast<std::ptrdiff_t>(list.size()) - 1);
        list = RemoveDuplicates(list);
    } catch (const std::exception& error) {
        context.ui.Show({.text = DuplicatesMessage(error.what())});
    }
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\r\n";
    return text;
}

/// A report with what the person must know to judge it: whether it is complete, and what could not be looked into.
std::string Framed(const std::string& report, const ContentScan& scan, const ScanProgress& progress) {
    std::string text;
    if (progress.IsCancelled()) {
        text = fmt::format("INCOMPLETE: the check was cancelled after {} of {} files.\r\n\r\n", progress.Done(),
                           progress.Total());
    }
    text += report;
    if (!scan.unreadable.empty()) {
        if (!report.empty()) text += "\r\n";
        text += fmt::format("{} file(s) could not be converted:-\r\n\r\n", scan.unreadable.size()) +
                Joined(scan.unreadable);
    }
    return text;
}

std::string SceneryReport(const ContentScan& scan, const ScanProgress& progress) {
    std::string report;
    if (!scan.MissingText.empty()) {
        report = "Following item(s) were missing from this route:-\r\n\r\n" + scan.MissingText;
    } else if (scan.unreadable.empty() && !progress.IsCancelled()) {
        report = "Route Scenery checked out OK";
    }
    return Framed(report, scan, progress);
}

/// Steps 1 to 6: the objects. False when the person cancelled it.
bool CheckScenery(EditorContext& context, ContentScan& scan, ScanProgress& progress, const std::string& routeId,
                  ReportSink& reports) {
    const std::string folder = context.session.RailSimPath + "\\Content\\Routes\\" + routeId;
    const std::array<std::string, 3> folders{folder + "\\Scenery", folder + "\\Networks\\Loft Tiles",
                                             folder + "\\Networks\\Road Tiles"};
    scan.ScanBlueprintRefs(folders);
    progress.End();
    SortAndReduce(context, scan.ShapeList);
    if (!progress.IsCancelled() && AskYes(context, kShapesQuestion)) {
        reports.ShowReport(Joined(scan.ShapeList));
    }
    reports.ShowReport(SceneryReport(scan, progress));
    return !progress.IsCancelled();
}

/// Steps 8 to 10: the textures. False when the person cancelled it.
bool CheckTextures(EditorContext& context, ContentScan& scan, ScanProgress& progress, RouteWindow& window,
                   ReportSink& reports) {
    scan.MissingText.clear();
    scan.unreadable.clear();
    window.isFile1Visible = false;
    window.List3 = scan.ShapeList;
    scan.CheckShapes(window.List3);
    progress.End();
    SortAndReduce(context, scan.TextureList);
    if (!progress.IsCancelled() && AskYes(context, kTexturesQuestion)) {
        reports.ShowReport(Joined(scan.TextureList));
    }
    reports.ShowReport(Framed("Texture Check:-\r\n\r\n" + scan.MissingText, scan, progress));
    return !progress.IsCancelled();
}

void RunCheck(EditorContext& context, RouteWindow& window, const std::string& routeId, ReportSink& reports,
              std::size_t jobs, CheckResult& result) {
    ScanProgress scenery(context.ui, "Checking the route");
    ContentScan scan(context, scenery, jobs);
    result.isComplete = CheckScenery(context, scan, scenery, routeId, reports);
    result.shapes = scan.ShapeList;
    if (!result.isComplete || !AskYes(context, kCheckTexturesQuestion)) return;
    ScanProgress textures(context.ui, "Checking the textures");
    ContentScan textureScan(context, textures, jobs);
    textureScan.ShapeList = std::move(scan.ShapeList);
    result.isComplete = CheckTextures(context, textureScan, textures, window, reports);
    result.textures = std::move(textureScan.TextureList);
}

} // namespace

std::string DuplicatesMessage(const std::string& error) {
    return "An error " + error + " occurred in subroutine 'RemD2' please advise the Tamarind project" +
           " with details of operation being processed.";
}

CheckResult CheckRoute(EditorContext& context, RouteWindow& window, Selection selectedRoutes, ReportSink& reports,
                       const CheckOptions& options) {
    CheckResult result;
    if (window.isBusy || !MayUseTempFiles(context)) {
        result.ended = Ended::Failed;
        return result;
    }
    if (selectedRoutes.empty()) return result;
    const std::size_t processors = std::max(std::thread::hardware_concurrency(), 1U);
    window.hasScenarios = false; // TempFiles with their index is cleared, and List3 may be filled with blueprints
    window.isFile1Visible = false;
    try {
        const Busy busy(context, window);
        ClearTempFiles(context);
        RunCheck(context, window, window.List2.at(selectedRoutes.back()), reports,
                 options.jobs == 0 ? processors : options.jobs, result);
        ClearTempFiles(context);
    } catch (const RuntimeError& error) {
        context.ui.Show({.text = "An error occurred in Check Selected Route\r\n" + error.Description()});
        result.ended = Ended::Failed;
    }
    if (!result.isComplete) result.ended = Ended::Failed;
    return result;
}

} // namespace tamarind::routes
