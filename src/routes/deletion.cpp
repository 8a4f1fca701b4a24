#include "routes/deletion.h"

#include "convert/recovered.h"
#include "platform/converter.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/safe_write.h"
#include "routes/catalogue.h"
#include "routes/working_files.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>

namespace tamarind::routes {

using platform::Answer;
using session::EditorContext;
using text::RuntimeError;

namespace {

bool AskToDelete(EditorContext& context, const std::string& question) {
    return context.ui.Show({.text = question, .buttons = platform::Buttons::YesNo}) == Answer::Yes;
}

bool RefuseId(EditorContext& context, const std::string& id) {
    if (IsFolderName(id)) return false;
    context.ui.Show({.text = "Nothing was deleted: \"" + id + "\" is not the name of a folder."});
    return true;
}

/// Keeps the index as it is on the disk; false when that failed, and the person was told.
bool KeepRoutesIndex(EditorContext& context, const std::string& index) {
    auto& files = context.platform.files;
    try {
        const std::string copy =
            convert::FreeRecoveredPath(context, platform::BaseNameWithDot(platform::NameOf(index)));
        platform::CopyFile(files, index, copy);
        context.ui.ShowStatus("The routes index as it was is kept in " + platform::ForDisplay(copy));
        return true;
    } catch (const RuntimeError& error) {
        context.ui.Show({.text = "Nothing was deleted: the routes index could not be kept in TempFiles.\r\n" +
                                 error.Description()});
        return false;
    }
}

template <typename Item> void EraseAt(std::vector<Item>& list, std::size_t index) {
    if (index < list.size()) list.erase(list.begin() + static_cast<std::ptrdiff_t>(index));
}

/// Takes the scenario's entry out of the converted index; false when it could not be written, which was shown.
bool RemoveScenarioEntry(EditorContext& context, const std::string& xml, const std::string& id) {
    auto& files = context.platform.files;
    std::string text;
    platform::ReadUniFile(files, xml, text);
    context.ui.ProcessEvents();
    text = RemoveEntry(text, id, IndexKind::Scenarios);
    const bool isWritten = platform::WriteUniFile(files, context.ui, xml, text);
    context.ui.ProcessEvents();
    return isWritten;
}

/// Keeps the old binary index under a backup name and converts the edited one into its place.
Ended ConvertIndexBack(EditorContext& context, const std::string& xml, const std::string& index) {
    auto& files = context.platform.files;
    const std::string backup = platform::FreeBackupName(files, index);
    if (!backup.empty()) files.Rename(index, backup);
    const auto before = files.Stamp(index);
    platform::ConvertToBinary(context.platform.processes, context.ui, context.ConverterFolders(), xml, index);
    if (platform::IsNewFile(files, index, before)) return Ended::Done;
    if (!backup.empty()) platform::PutBack(files, backup, index);
    context.ui.Show({.text = "The converter wrote no new index of scenarios. The scenario's folder is gone, but its "
                             "entry still stands in\r\n" +
                             platform::ForDisplay(index)});
    return Ended::Failed;
}

Ended DeleteSelectedScenario(EditorContext& context, RouteWindow& window, std::size_t selected) {
    auto& session = context.session;
    const std::string id = session.Routes.ScenarioIds.at(selected);
    if (RefuseId(context, id)) return Ended::Failed;
    const std::string xml = session.TempFiles() + "\\" + window.ScenarioXmlName;
    const std::string index = window.RouteFolder + "\\Scenarios.bin";
    const platform::BusyPointer pointer(context.ui);
    const Busy busy(context, window, session.TempFiles() + "\\" + platform::BaseNameWithDot(window.ScenarioXmlName));
    // The lists stay parallel, so that the next deletion takes what it shows.
    for (auto* const list : {&window.List3, &window.List4, &session.Routes.ScenarioIds, &session.Routes.ScenarioNames})
        EraseAt(*list, selected);
    DeleteFolder(context, window.RouteFolder + "\\Scenarios\\" + id);
    if (!RemoveScenarioEntry(context, xml, id)) return Ended::Failed;
    session.CommandFile = index;
    return ConvertIndexBack(context, xml, index);
}

} // namespace

void DeleteFolder(EditorContext& context, const std::string& folder) {
    auto& files = context.platform.files;
    if (!files.EntryExists(folder)) return;
    try {
        if (!files.MoveToTrash(folder)) platform::DelAll(files, folder);
    } catch (const RuntimeError&) {
        // There is a trash, so nothing is deleted for good; what stays is told below.
    }
    if (files.EntryExists(folder)) {
        context.ui.ShowStatus(platform::ForDisplay(folder) + " could not be deleted, or not wholly.");
    }
}

Ended DeleteRoute(EditorContext& context, RouteWindow& window, Selection selectedRoutes) {
    if (window.isBusy) return Ended::Failed;
    if (!AskToDelete(context, "Do you really wish to delete the selected route(s)?")) return Ended::Declined;
    if (selectedRoutes.empty()) {
        CloseRoutes(context, window);
        return Ended::Done;
    }
    const std::size_t selected = selectedRoutes.front();
    const std::string id = window.List2.at(selected);
    if (RefuseId(context, id) || !KeepRoutesIndex(context, window.RoutesFile)) return Ended::Failed;
    EraseAt(window.List1, selected);
    EraseAt(window.List2, selected);
    DeleteFolder(context, RouteFolderOf(context, id));
    context.ui.ProcessEvents();
    try {
        window.RoutesText = RemoveEntry(window.RoutesText, id, IndexKind::Routes);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Code(), window.RoutesFile)
            .With("The folder of the route " + id + " is gone, but the routes index holds no entry for it.");
    }
    const bool isWritten =
        platform::WriteUniFile(context.platform.files, context.ui, window.RoutesFile, window.RoutesText);
    context.ui.ProcessEvents();
    CloseRoutes(context, window);
    return isWritten ? Ended::Done : Ended::Failed;
}

Ended DeleteScenario(EditorContext& context, RouteWindow& window, Selection selectedScenarios) {
    if (window.isBusy || !MayUseTempFiles(context)) return Ended::Failed;
    if (!AskToDelete(context, "Do you really wish to delete the selected scenario?")) return Ended::Declined;
    if (selectedScenarios.empty() || !window.hasScenarios) return Ended::Done;
    try {
        return DeleteSelectedScenario(context, window, selectedScenarios.front());
    } catch (const RuntimeError& error) {
        context.ui.Show({.text = "An error occurred in Delete Selected Scenario\r\n" + error.Description()});
        return Ended::Failed;
    }
}

} // namespace tamarind::routes
