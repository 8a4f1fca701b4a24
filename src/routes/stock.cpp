#include "routes/stock.h"

#include "platform/paths.h"
#include "routes/assets.h"
#include "routes/references.h"
#include "routes/working_files.h"
#include "text/runtime_error.h"

namespace tamarind::routes {

using session::EditorContext;
using text::RuntimeError;

std::optional<std::vector<std::string>> ListStock(EditorContext& context, RouteWindow& window,
                                                  Selection selectedScenarios) {
    if (window.isBusy || !MayUseTempFiles(context)) return std::nullopt;
    if (selectedScenarios.empty() || !window.hasScenarios) return std::nullopt;
    const std::string& id = context.session.Routes.ScenarioIds.at(selectedScenarios.front());
    const std::string scenario = window.RouteFolder + "\\Scenarios\\" + id + "\\Scenario.bin";
    const std::string base = context.session.TempFiles() + "\\Scenario.";
    std::string reason;
    try {
        const platform::BusyPointer pointer(context.ui);
        const Busy busy(context, window, base);
        if (const auto text = ConvertToText(context, scenario, base + "xml")) return ScanStock(*text);
    } catch (const RuntimeError& error) {
        reason = "\r\n" + error.Description();
    }
    context.ui.Show({.text = "This scenario could not be converted:\r\n" + platform::ForDisplay(scenario) + reason});
    return std::nullopt;
}

std::string MissingStock(const EditorContext& context, const std::vector<std::string>& list) {
    AssetFinder assets(context.platform.files, context.session.RailSimPath);
    std::string report;
    for (const std::string& entry : list) {
        if (!assets.Find(context.session.RailSimPath + "\\Assets\\" + WithBinaryEnding(entry))) {
            report += entry + " is missing\r\n";
        }
    }
    return report;
}

} // namespace tamarind::routes
