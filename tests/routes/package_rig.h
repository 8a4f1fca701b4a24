#pragma once

#include "platform/batch_file.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "routes/package_layout.h"
#include "routes/route_packaging.h"
#include "routes/scenario_packaging.h"
#include "support/editor_rig.h"
#include "support/fake_converter.h"
#include "support/faulty_files.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tamarind::tests {

inline constexpr const char* kRouteA = "a0000000-0000-4000-8000-00000000000a";
inline constexpr const char* kRouteB = "b0000000-0000-4000-8000-00000000000b";
inline constexpr const char* kMilk = "c0000000-0000-4000-8000-000000000001";
inline constexpr const char* kMail = "c0000000-0000-4000-8000-000000000002";

inline void MakeReadOnly(const std::string& path) {
    namespace fs = std::filesystem;
    const std::string native = platform::ToNative(path);
    fs::permissions(fs::path(std::u8string(native.begin(), native.end())),
                    fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
}

/// The record of an index without white space round it.
[[nodiscard]] inline std::string PackageRecord(const std::string& tag, const std::string& id,
                                               const std::string& english) {
    return "<" + tag + " d:id=\"1\">\r\n<DevString>" + id + "</DevString>\r\n<English>" + english +
           "</English>\r\n<French></French><Italian></Italian><German></German><Spanish></Spanish>\r\n</" + tag + ">";
}
[[nodiscard]] inline std::string RouteRecord(const std::string& id, const std::string& english) {
    return PackageRecord("cRouteProperties", id, english);
}
[[nodiscard]] inline std::string ScenarioRecord(const std::string& id, const std::string& english) {
    return PackageRecord("cScenarioProperties", id, english);
}

/// A kit in "Kit" with a setup program, and a game in "Rail Simulator" with two routes and two scenarios of the first
/// one, on the real disk. The converter is a function, and so is the shell that runs the copy script.
class PackageRig {
public:
    explicit PackageRig(Fault fault = {}, const std::string& nameOfA = "Alder Vale")
        : files(folder.Disk(), fault), rig(files, folder / "Kit"), converter(folder.Disk()) {
        folder.MakeFolder("Kit\\TempFiles");
        folder.Write("Kit\\RouteSetup.exe", "the setup program");
        folder.Write("Rail Simulator\\Content\\Routes.xml", "<Routes><Record>" + RouteRecord(kRouteA, nameOfA) +
                                                                RouteRecord(kRouteB, "Bois") + "</Record></Routes>");
        WriteGame(Route(kRouteA, "RouteProperties.xml"), "<x/>");
        WriteGame(Route(kRouteA, "Scenery\\+001.bin"), "tile");
        WriteGame(Route(kRouteB, "RouteProperties.xml"), "<y/>");
        WriteGame(Route(kRouteA, "Scenarios.bin"), GameFile("<Index><Record>" + ScenarioRecord(kMilk, "Milk") +
                                                            ScenarioRecord(kMail, "Mail") + "</Record></Index>"));
        WriteGame(Scenario(kMilk, "Scenario.bin"), "milk");
        WriteGame(Scenario(kMilk, "Sub\\Extra.bin"), "extra");
        WriteGame(Scenario(kMail, "Scenario.bin"), "mail");
        context.session.RailSimPath = folder / "Rail Simulator";
        rig.processes.run = [this](const platform::ProcessStart& start) { RunOutside(start); };
        rig.ui.onMessage = [this](const platform::Message& message) { messages.push_back(message); };
    }

    [[nodiscard]] static std::string Route(const std::string& id, const std::string& name) {
        return "Content\\Routes\\" + id + "\\" + name;
    }
    [[nodiscard]] static std::string Scenario(const std::string& id, const std::string& name) {
        return Route(kRouteA, "Scenarios\\" + id + "\\" + name);
    }
    void WriteGame(const std::string& name, const std::string& bytes) const {
        folder.Write("Rail Simulator\\" + name, bytes);
    }
    [[nodiscard]] bool Has(const std::string& name) const { return folder.Disk().EntryExists(folder / name); }
    [[nodiscard]] std::string Kit(const std::string& name) const { return folder.Read("Kit\\" + name); }
    [[nodiscard]] bool KitHas(const std::string& name) const { return Has("Kit\\" + name); }
    /// A path below the kit as messages show it.
    [[nodiscard]] std::string Shown(const std::string& name) const {
        return platform::ForDisplay(folder / ("Kit\\" + name));
    }

    void LoadRoutes() { routes::LoadRoutes(context, window); }
    /// The routes window for scenarios, with those of the first route listed.
    void ListScenarios() {
        routes::BeginScenarioPackaging(context);
        LoadRoutes();
        const std::vector<std::size_t> first{0};
        routes::ListScenarios(context, window, first);
    }
    routes::Packaged PackageRoute(std::vector<std::size_t> selected) {
        return routes::PackageRoute(context, window, selected);
    }
    routes::Ended Add(std::vector<std::size_t> selected) { return routes::AddToPackage(context, window, selected); }
    routes::Packaged Process() { return routes::ProcessPackage(context, window); }

    TempFolder folder;
    FaultyFiles files;
    EditorRig rig;
    FakeConverter converter;
    session::EditorContext& context = rig.context;
    routes::RouteWindow window;
    std::vector<platform::Message> messages;
    int scripts = 0;          ///< how often the copy script ran
    bool scriptFails = false; ///< it copies nothing

private:
    void RunOutside(const platform::ProcessStart& start) {
        if (start.commandLine != routes::kCopyScript) {
            converter(start);
            return;
        }
        ++scripts;
        if (scriptFails) return;
        std::string text;
        platform::ReadUniFile(folder.Disk(), start.folder + "\\" + start.commandLine, text);
        const auto commands = platform::ParseBatchFile(text);
        if (!commands) return;
        for (const platform::BatchCommand& command : *commands)
            platform::RunBatchCommand(files, command, {});
    }
};

} // namespace tamarind::tests
