#include "routes/scenario_hand_over.h"

#include "platform/myfile.h"
#include "platform/paths.h"
#include "routes/folder_name.h"
#include "routes/working_files.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <optional>
#include <utility>

namespace tamarind::routes {

using session::EditorContext;
using text::ErrorNumber;
using text::RuntimeError;

namespace {

constexpr std::string_view kOpenTag = "<cScenarioProperties";
constexpr std::string_view kCloseTag = "</cScenarioProperties>";

Ended Refuse(EditorContext& context, const std::string& reason) {
    context.ui.Show({.text = "This scenario cannot be edited: " + reason});
    return Ended::Failed;
}

std::optional<IndexParts> ListedRecord(const EditorContext& context, const RouteWindow& window, const std::string& id) {
    std::string index;
    try {
        platform::ReadUniFile(context.platform.files, context.session.TempFiles() + "\\" + window.ScenarioXmlName,
                              index);
        return SplitIndex(index, id);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

/// The text of the scenario's own file; nothing when it could not be converted, with what is known of the reason.
std::optional<std::string> ConvertedScenario(EditorContext& context, RouteWindow& window, const std::string& folder,
                                             std::string& reason) {
    const std::string base = context.session.TempFiles() + "\\Scenario.";
    const platform::BusyPointer pointer(context.ui);
    const Busy busy(context, window, base);
    try {
        return ConvertToText(context, folder + "\\Scenario.bin", base + "xml");
    } catch (const RuntimeError& error) {
        reason = "\r\n" + error.Description();
        return std::nullopt;
    }
}

} // namespace

IndexParts SplitIndex(std::string_view indexText, std::string_view id) {
    const std::string element = ">" + std::string(id) + "</DevString";
    const std::size_t position = text::FindNoCase(indexText, element);
    const std::size_t start = text::FindLastNoCase(indexText, kOpenTag, position);
    if (position == 0 || start == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    const std::size_t close = text::FindNoCase(indexText, kCloseTag, start);
    if (close < position) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    const std::size_t end = close - 1 + kCloseTag.size();
    return {std::string(indexText.substr(0, start - 1)), std::string(indexText.substr(start - 1, end - start + 1)),
            std::string(indexText.substr(end))};
}

Ended EditScenario(EditorContext& context, RouteWindow& window, Selection selectedScenarios) {
    if (window.isBusy || !MayUseTempFiles(context)) return Ended::Failed;
    const auto& ids = context.session.Routes.ScenarioIds;
    if (selectedScenarios.empty() || !window.hasScenarios || selectedScenarios.front() >= ids.size())
        return Ended::Failed;
    const std::string id = ids[selectedScenarios.front()];
    if (!IsFolderName(id)) return Refuse(context, "\"" + id + "\" is not the name of a folder.");
    auto parts = ListedRecord(context, window, id);
    if (!parts) return Refuse(context, "the list of scenarios holds no whole record of it. Please list them again.");
    const std::string folder = window.RouteFolder + "\\Scenarios\\" + id;
    std::string reason;
    auto text = ConvertedScenario(context, window, folder, reason);
    if (!text) {
        return Refuse(context, "its file could not be converted.\r\n" +
                                   platform::ForDisplay(folder + "\\Scenario.bin") + reason);
    }
    context.session.ScenarioEdit = {.EditRouteFolder = window.RouteFolder,
                                    .EditScenarioFolder = folder,
                                    .ScenarioRecord = std::move(parts->record),
                                    .ScenarioIndexHead = std::move(parts->head),
                                    .ScenarioIndexTail = std::move(parts->tail),
                                    .ScenarioText = std::move(*text)};
    context.view.ShowScenarioEditor();
    if (window.hasScenarios) window.List3 = context.session.Routes.ScenarioNames; // the name may be another one now
    return Ended::Done;
}

} // namespace tamarind::routes
