#include "cli/scenario_commands.h"

#include "authoring/scenario_save.h"
#include "authoring/scenario_window.h"
#include "cli/catalogue.h"
#include "cli/report.h"
#include "platform/paths.h"
#include "routes/scenario_hand_over.h"

#include <fmt/format.h>

namespace tamarind::cli {

using authoring::Consist;
using authoring::Field;
using authoring::ScenarioWindow;
using nlohmann::ordered_json;
using session::EditorContext;

namespace {

static_assert(std::tuple_size_v<decltype(Arguments::fields)> == authoring::kFieldCount);

/// Loads the editor; false when it does not open, and the person was told.
bool Open(EditorContext& context, const Arguments& arguments, ScenarioWindow& window) {
    Catalogue catalogue(context, arguments);
    return catalogue.FindScenario(arguments) &&
           routes::EditScenario(context, catalogue.window, catalogue.scenario) == routes::Ended::Done &&
           authoring::LoadScenario(context, window);
}

/// The vehicles that the list of a consist shows.
std::vector<std::string> NamedVehicles(const Consist& consist) {
    std::vector<std::string> names;
    for (const std::string& name : consist.vehicles) {
        if (!name.empty()) names.push_back(name);
    }
    return names;
}

std::string LineOf(std::size_t index, const Consist& consist) {
    std::string line =
        fmt::format("{}\t{}\t{}", index, consist.isPlayerDriven ? "player" : "", OnOneLine(consist.name));
    for (const std::string& vehicle : NamedVehicles(consist))
        line += "\t" + OnOneLine(vehicle);
    return line + "\n";
}

Result Backup(const authoring::Written& written) {
    if (!written.isDone) return {Outcome::Failed};
    const std::string backup = written.backup.empty() ? "" : platform::ToNative(written.backup);
    return {Outcome::Done, {{"backup", backup.empty() ? ordered_json() : ordered_json(backup)}}, backup + "\n"};
}

} // namespace

Result ShowScenario(EditorContext& context, const Arguments& arguments) {
    ScenarioWindow window;
    if (!Open(context, arguments, window)) return {Outcome::Failed};
    Result result{Outcome::Done, {{"fields", ordered_json::array()}, {"consists", ordered_json::array()}}};
    for (std::size_t i = 0; i < authoring::kFieldCount; ++i) {
        const std::string& text = window.Text1[static_cast<Field>(i)];
        result.json["fields"].push_back(text);
        std::string label = authoring::LabelOf(static_cast<Field>(i));
        if (label.ends_with(':')) label.pop_back();
        result.lines += label + "\t" + OnOneLine(text) + "\n";
    }
    for (std::size_t i = 0; i < window.Consists.size(); ++i) {
        const Consist& consist = window.Consists[i];
        result.json["consists"].push_back({{"name", consist.name}, {"vehicles", NamedVehicles(consist)}});
        result.lines += LineOf(i, consist);
    }
    return result;
}

Result SetScenario(EditorContext& context, const Arguments& arguments) {
    ScenarioWindow window;
    if (!Open(context, arguments, window)) return {Outcome::Failed};
    for (std::size_t i = 0; i < arguments.fields.size(); ++i) {
        if (arguments.fields.at(i)) window.Text1[static_cast<Field>(i)] = *arguments.fields.at(i);
    }
    return Backup(authoring::SaveChanges(context, window));
}

Result DriveScenario(EditorContext& context, const Arguments& arguments) {
    ScenarioWindow window;
    if (!Open(context, arguments, window)) return {Outcome::Failed};
    const auto count = static_cast<int>(window.Consists.size());
    if (arguments.consist < -1 || arguments.consist >= count) {
        context.ui.Show({.text = fmt::format("There is no consist {}: the scenario has {}, counted from 0.",
                                             arguments.consist, count)});
        return {Outcome::Failed};
    }
    return Backup(authoring::DriveIt(context, window, arguments.consist));
}

} // namespace tamarind::cli
