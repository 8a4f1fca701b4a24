#include "routes/route_window.h"

#include "platform/myfile.h"
#include "platform/paths.h"
#include "routes/catalogue.h"
#include "routes/working_files.h"
#include "text/runtime_error.h"

#include <fmt/format.h>

namespace tamarind::routes {

using session::EditorContext;
using session::RouteState;
using text::ErrorNumber;
using text::RuntimeError;

namespace {

std::string ConvertedIndex(EditorContext& context, RouteWindow& window) {
    auto& session = context.session;
    const std::string index = window.RouteFolder + "\\Scenarios.bin";
    session.CommandFile = index;
    const std::string name = platform::NameOf(index);
    window.ScenarioXmlName = name.substr(0, name.size() - std::string_view(".bin").size()) + ".xml";
    const std::string xml = session.TempFiles() + "\\" + window.ScenarioXmlName;
    if (!platform::FileExists(context.platform.files, index)) {
        RemoveWorkingFile(context.platform.files, xml);
        return {}; // a route without scenarios
    }
    const platform::BusyPointer pointer(context.ui);
    const Busy busy(context, window, session.TempFiles() + "\\" + platform::BaseNameWithDot(name));
    const auto text = ConvertToText(context, index, xml);
    if (!text) throw RuntimeError(ErrorNumber::FileNotFound, xml);
    return *text;
}

void FillScenarioLists(EditorContext& context, RouteWindow& window) {
    const RouteState& state = context.session.Routes;
    window.List3 = state.ScenarioNames;
    if (!PackagesScenarios(state)) window.List4 = state.ScenarioIds;
}

} // namespace

bool PackagesRoute(const RouteState& state) { return state.RouteFormMode != 0; }
bool PackagesScenarios(const RouteState& state) { return state.ScenarioPackMode != 0; }

std::string TitleOf(const RouteState& state) {
    return PackagesRoute(state) ? "Select Route to Package" : "Select Route";
}

std::string CaptionOf(Control control, const RouteState& state) {
    switch (control) {
    case Control::Command1: return "List Scenarios in Selected Route";
    case Control::Command2: return "Delete Selected Scenario";
    case Control::Command3: return "List Stock used by selected Scenario";
    case Control::Command4: return "Check Selected Route";
    case Control::Command5: return "Add to Package";
    case Control::Command6: return "Process Package";
    case Control::Command7: return "Edit Selected Scenario";
    case Control::OKButton: return PackagesRoute(state) ? "Package Selected Route" : "Delete Selected Route";
    case Control::CancelButton: return "&Exit";
    case Control::LabelRouteName: return "Route Name";
    case Control::LabelRouteFolder: return "Route Folder";
    case Control::LabelScenarioName: return "Scenario Name";
    case Control::LabelScenarioFolder: return "Scenario Folder";
    }
    return {};
}

bool IsVisible(Control control, const RouteState& state) {
    switch (control) {
    case Control::Command2:
    case Control::Command3:
    case Control::Command4:
    case Control::OKButton: return !PackagesScenarios(state);
    case Control::Command5:
    case Control::Command6: return PackagesScenarios(state);
    default: return true;
    }
}

bool IsEnabled(Control control, const RouteState& /*state*/, const RouteWindow& window) {
    switch (control) {
    case Control::Command1: return !window.isBusy && !window.showsPackage;
    case Control::Command2:
    case Control::Command3:
    case Control::Command7: return !window.isBusy && window.hasScenarios;
    case Control::Command4:
    case Control::Command5:
    case Control::Command6:
    case Control::OKButton:
    case Control::CancelButton: return !window.isBusy;
    default: return true;
    }
}

std::string StatusText(const EditorContext& context, const RouteWindow& window, Selection selectedRoutes) {
    const std::size_t count = window.List1.size();
    if (window.showsPackage) return fmt::format("{} scenario{} in the package", count, count == 1 ? "" : "s");
    std::string text = fmt::format("{} route{}", count, count == 1 ? "" : "s");
    if (!selectedRoutes.empty() && selectedRoutes.back() < window.List2.size()) {
        text += "   " + platform::ForDisplay(RouteFolderOf(context, window.List2[selectedRoutes.back()]));
    } else if (window.hasScenarios) {
        text += "   Scenarios of " + platform::ForDisplay(window.RouteFolder);
    }
    return text;
}

std::vector<std::string> RouteFiles(const EditorContext& context, const RouteWindow& window, Selection selectedRoutes) {
    std::vector<std::string> names;
    if (selectedRoutes.empty() || selectedRoutes.back() >= window.List2.size()) return names;
    try {
        for (const auto& entry :
             context.platform.files.List(RouteFolderOf(context, window.List2[selectedRoutes.back()]))) {
            if (!entry.isFolder) names.push_back(entry.name);
        }
    } catch (const RuntimeError&) {
        names.clear(); // an index can name a route whose folder is gone
    }
    return names;
}

std::string RouteFolderOf(const EditorContext& context, const std::string& routeId) {
    return context.session.RailSimPath + "\\content\\Routes\\" + routeId;
}

void OpenRoutes(EditorContext& context) { OpenRoutesFor(context, 0); }

void OpenRoutesFor(EditorContext& context, std::int16_t routeFormMode) {
    RouteState& state = context.session.Routes;
    if (PackagesScenarios(state)) {
        context.view.ShowRoutes();
        context.ui.ShowStatus(kScenariosFirst);
        return;
    }
    // The mode is that of the window while one is open.
    if (state.RouteFormMode != routeFormMode && !context.view.CloseRoutes()) return;
    state.RouteFormMode = routeFormMode;
    context.view.ShowRoutes();
}

void LoadRoutes(EditorContext& context, RouteWindow& window) {
    RouteState& state = context.session.Routes;
    window = {};
    state.RouteNames.clear();
    state.RouteIds.clear();
    window.RoutesFile = context.session.RailSimPath + "\\Content\\Routes.xml";
    platform::ReadUniFile(context.platform.files, window.RoutesFile, window.RoutesText);
    try {
        ScanRecords(window.RoutesText, state.RouteIds, state.RouteNames);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Code(), window.RoutesFile).With("The routes index is not whole.");
    }
    window.List1 = state.RouteNames;
    window.List2 = state.RouteIds;
}

void CloseRoutes(EditorContext& context, RouteWindow& window) {
    context.session.Routes.ScenarioPackMode = 0;
    window.isClosed = true;
}

Ended ListScenarios(EditorContext& context, RouteWindow& window, Selection selectedRoutes) {
    if (window.isBusy || window.showsPackage || !MayUseTempFiles(context)) return Ended::Failed;
    RouteState& state = context.session.Routes;
    window.isFile1Visible = false;
    window.List3.clear();
    window.List4.clear();
    window.hasScenarios = false;
    state.ScenarioIds.clear();
    state.ScenarioNames.clear();
    if (selectedRoutes.empty()) return Ended::Done;
    try {
        window.RouteFolder = RouteFolderOf(context, state.RouteIds.at(selectedRoutes.back()));
        const std::string text = ConvertedIndex(context, window);
        window.hasScenarios = true;
        ScanRecords(text, state.ScenarioIds, state.ScenarioNames);
        FillScenarioLists(context, window);
    } catch (const RuntimeError& error) {
        FillScenarioLists(context, window);
        context.ui.Show({.text = "An Error " + error.Description() + " occurred while\r\nchecking for Scenarios."});
        return Ended::Failed;
    }
    return Ended::Done;
}

} // namespace tamarind::routes
