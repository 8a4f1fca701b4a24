#pragma once

#include "routes/report_sink.h"
#include "routes/route_window.h"
#include "support/editor_rig.h"
#include "support/fake_converter.h"
#include "support/faulty_files.h"
#include "support/temp_folder.h"

#include <string>
#include <vector>

namespace tamarind::tests {

class CollectedReports : public routes::ReportSink {
public:
    void ShowReport(const std::string& text) override { texts.push_back(text); }
    std::vector<std::string> texts;
};

/// One entry of an index, as the converter writes it.
[[nodiscard]] inline std::string IndexEntry(const std::string& tag, const std::string& id, const std::string& english) {
    return "\t<" + tag + " d:id=\"1\">\r\n\t\t<DevString d:type=\"text\">" + id + "</DevString>\r\n\t\t<English>" +
           english + "</English>\r\n\t\t<French></French>\r\n\t\t<Italian></Italian>\r\n\t\t<German></German>\r\n" +
           "\t\t<Spanish></Spanish>\r\n\t</" + tag + ">\r\n";
}

[[nodiscard]] inline std::string RouteEntry(const std::string& id, const std::string& english) {
    return IndexEntry("cRouteProperties", id, english);
}

[[nodiscard]] inline std::string ScenarioEntry(const std::string& id, const std::string& english) {
    return IndexEntry("cScenarioProperties", id, english);
}

/// The lines of a blueprint reference in a tile.
[[nodiscard]] inline std::string TileReference(const std::string& provider, const std::string& product,
                                               const std::string& path) {
    return "<Provider>" + provider + "</Provider>\r\n<Product>" + product + "</Product>\r\n\r\n\r\n<BlueprintID>" +
           path + "</BlueprintID>\r\n";
}

/// A kit in "Kit" and a game in "Game" on the real disk, with the fake converter. The trash is a folder of the test's.
class RouteRig {
public:
    explicit RouteRig(Fault fault = {})
        : files(folder.Disk(), fault), rig(files, folder / "Kit"), converter(folder.Disk()) {
        folder.MakeFolder("Kit\\TempFiles");
        folder.MakeFolder("Game\\Content\\Routes");
        files.trash = folder.MakeFolder("Trash");
        context.session.RailSimPath = folder / "Game";
        rig.processes.run = [this](const platform::ProcessStart& start) { converter(start); };
    }

    /// Routes r1, r2, … with the names given, each with its folder; their window is loaded.
    void MakeRoutes(const std::vector<std::string>& names) {
        std::string index = "<cRouteCatalogue>\r\n";
        for (std::size_t i = 0; i < names.size(); ++i) {
            const std::string id = "r" + std::to_string(i + 1);
            index += RouteEntry(id, names[i]);
            folder.Write(Route(id) + "\\RouteProperties.xml", "<x/>");
        }
        folder.Write("Game\\Content\\Routes.xml", index + "</cRouteCatalogue>\r\n");
        routes::LoadRoutes(context, window);
    }

    /// Scenarios s1, s2, … of route r1.
    void MakeScenarios(const std::vector<std::string>& names) {
        std::string index = "<cScenarioIndex>\r\n";
        for (std::size_t i = 0; i < names.size(); ++i) {
            const std::string id = "s" + std::to_string(i + 1);
            index += ScenarioEntry(id, names[i]);
            folder.Write(Route("r1") + "\\Scenarios\\" + id + "\\Scenario.bin", GameFile("<cScenario/>"));
        }
        folder.Write(Route("r1") + "\\Scenarios.bin", GameFile(index + "</cScenarioIndex>\r\n"));
    }

    [[nodiscard]] static std::string Route(const std::string& id) { return "Game\\Content\\Routes\\" + id; }
    [[nodiscard]] bool Has(const std::string& name) const { return folder.Disk().EntryExists(folder / name); }

    routes::Ended List(std::vector<std::size_t> selected) { return routes::ListScenarios(context, window, selected); }

    TempFolder folder;
    FaultyFiles files;
    EditorRig rig;
    FakeConverter converter;
    session::EditorContext& context = rig.context;
    routes::RouteWindow window;
    CollectedReports reports;
};

} // namespace tamarind::tests
