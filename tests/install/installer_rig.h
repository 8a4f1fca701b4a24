#pragma once

#include "install/installer.h"
#include "install/record_insert.h"
#include "platform/paths.h"
#include "support/fake_converter.h"
#include "support/fake_processes.h"
#include "support/fake_registry.h"
#include "support/scripted_ui.h"
#include "support/temp_folder.h"
#include "text/runtime_error.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>

namespace tamarind::tests {

inline constexpr const char* kRoutesIndex = "<Routes>\r\n<Record>\r\n</Record>\r\n</Routes>";
inline constexpr const char* kRouteRecord =
    "<cRouteProperties><DevString>new-route</DevString><English>New Line</English>"
    "</cRouteProperties>\r\n";
inline constexpr const char* kScenarioIndex = "<Index>\r\n<Record>\r\n</Record>\r\n</Index>";
inline constexpr const char* kScenarioId = "5a1e0d20-0009-4c00-9a10-7a3a21d0b009";
inline constexpr const char* kScenarioRecord =
    "<cScenarioProperties><DevString>5a1e0d20-0009-4c00-9a10-7a3a21d0b009</DevString></cScenarioProperties>\r\n";

/// A game in "Game" with one route and a package in "P", on the real disk; the converter is played.
class InstallerRig : public testing::Test {
public:
    InstallerRig() : disk(folder.Disk()), converter(disk) {
        folder.Write("Game\\Content\\Routes.xml", kRoutesIndex);
        folder.Write("Game\\Content\\Routes\\old-route\\Scenarios.bin", GameFile(kScenarioIndex));
        folder.MakeFolder("P");
        installer.RailSimPath = folder / "Game";
        processes.run = [this](const platform::ProcessStart& start) { Play(start); };
    }

    /// Plays the converter, which knows by the file which way to go; other programs do nothing.
    void Play(const platform::ProcessStart& start) {
        if (!start.commandLine.starts_with("serz.exe ")) return;
        platform::ProcessStart played = start;
        const bool isBack = start.commandLine.ends_with("Scenarios.bin\"");
        const std::string word = " xml:\"";
        if (isBack) played.commandLine.replace(start.commandLine.find(word), word.size(), " bin:\"");
        converter(played);
    }

    void MakeRoutePackage() const {
        folder.Write("P\\Route_Setup.xxx", kRouteRecord);
        folder.Write("P\\Rail Simulator\\Content\\Routes\\new-route\\tile.bin", "tile");
    }

    void MakeScenarioPackage() const {
        folder.Write("P\\Scenario.zzz", kScenarioRecord);
        folder.Write("P\\Scenario.yyy", "old-route\r\n" + std::string(kScenarioId) + "\r\n");
        folder.Write("P\\Rail Simulator\\Content\\Routes\\old-route\\Scenarios\\" + std::string(kScenarioId) +
                         "\\Scenario.bin",
                     "scenario");
    }

    install::Ended Run() {
        installer.InstallMode = install::ModeOf(disk, installer.packageFolder);
        return install::Install(installer);
    }

    /// Every file below a folder of the rig with its bytes.
    [[nodiscard]] std::map<std::string, std::string> Tree(const std::string& below) const {
        std::map<std::string, std::string> tree;
        for (const platform::FolderEntry& entry : disk.List(below.empty() ? folder.Path() : folder / below)) {
            const std::string name = below.empty() ? entry.name : below + "\\" + entry.name;
            if (entry.isFolder) {
                tree[name + "\\"] = "";
                tree.merge(Tree(name));
            } else {
                tree[name] = folder.Read(name);
            }
        }
        return tree;
    }

    void Protect(const std::string& name) const {
        using std::filesystem::perms;
        const std::string native = platform::ToNative(folder / name);
        std::filesystem::permissions(std::u8string(native.begin(), native.end()),
                                     perms::owner_write | perms::group_write | perms::others_write,
                                     std::filesystem::perm_options::remove);
    }

    TempFolder folder;
    platform::Files& disk;
    FakeProcesses processes;
    FakeRegistry registry;
    ScriptedUserInterface ui;
    FakeConverter converter;
    install::Installer installer{{disk, processes, registry}, ui, folder / "P"};
};

} // namespace tamarind::tests
