#pragma once

#include "authoring/scenario_sample.h"
#include "authoring/scenario_save.h"
#include "authoring/scenario_window.h"
#include "routes/route_rig.h"
#include "routes/scenario_hand_over.h"

#include <string>
#include <vector>

namespace tamarind::tests {

inline constexpr const char* kIndexFile = "Game\\Content\\Routes\\r1\\Scenarios.bin";
inline constexpr const char* kScenarioFile = "Game\\Content\\Routes\\r1\\Scenarios\\s1\\Scenario.bin";
inline constexpr const char* kUpdated = "Your Scenario File has been updated.";
inline constexpr const char* kDriverUpdated = "Your Scenario Driver information has been updated.";

[[nodiscard]] inline std::string TrainText(const std::string& service, const std::string& flag) {
    return "<cConsist>\r\n<PlayerDriver>" + flag + "</PlayerDriver>\r\n" + LocalisedText("ServiceName", service) +
           "<PlayerControlled>" + flag + "</PlayerControlled>\r\n<Name>" + service + " 1</Name>\r\n</cConsist>\r\n";
}

/// A route with two scenarios, s1 and s2, that are listed; s1 has two trains, and its weather is installed.
class ScenarioRig : public RouteRig {
public:
    explicit ScenarioRig(Fault fault = {}, const RecordValues& values = {}) : RouteRig(fault) {
        MakeRoutes({"Alder"});
        record = ScenarioRecord(values);
        index = kHead + record + kTail;
        folder.Write(kIndexFile, GameFile(index));
        folder.Write(kScenarioFile, GameFile(scenario));
        folder.Write("Game\\Assets\\Fernhollow\\AlderVale\\Weather\\Clear.bin", "w");
        folder.Write("Game\\Assets\\Fernhollow\\AlderVale\\Weather\\Drizzle.bin", "w");
        folder.Write("Game\\Assets\\Fernhollow\\AlderVale\\Weather\\notes.txt", "n");
        List({0});
    }

    routes::Ended HandOver(std::size_t scenarioIndex = 0) {
        const std::vector<std::size_t> selected{scenarioIndex};
        return routes::EditScenario(context, window, selected);
    }

    /// Hands s1 over and loads the editor; whether it opened.
    bool OpenEditor() { return HandOver() == routes::Ended::Done && authoring::LoadScenario(context, editor); }

    [[nodiscard]] std::vector<std::string> Told() const { return rig.ui.MessageTexts(); }

    inline static const std::string kHead = "<cScenarioIndex>\r\n";
    inline static const std::string kTail =
        "\r\n" + ScenarioRecord({.id = "s2", .name = "Mail", .start = "7200"}) + "\r\n</cScenarioIndex>\r\n";

    std::string record;
    std::string index;
    std::string scenario = "<cScenario>\r\n" + TrainText("Milk", "1") + TrainText("Mail", "0") +
                           "<cConsist>\r\n</cConsist>\r\n</cScenario>\r\n";
    authoring::ScenarioWindow editor;
};

} // namespace tamarind::tests
