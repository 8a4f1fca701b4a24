#pragma once

#include "support/editor_rig.h"
#include "support/fake_converter.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace tamarind::tests {

/// A program folder "Kit" with TempFiles and a game folder "Game" on the real disk, and a converter.
class GameRig : public testing::Test {
protected:
    GameRig() : rig(folder.Disk(), folder / "Kit"), converter(folder.Disk()) {
        folder.MakeFolder("Kit\\TempFiles");
        folder.MakeFolder("Game");
        rig.session.RailSimPath = folder / "Game";
        rig.processes.run = [this](const platform::ProcessStart& start) { converter(start); };
    }

    /// Writes a game file and makes it the one to open next; returns its path.
    std::string NextFile(std::string_view name, std::string_view xml) {
        const std::string path = folder.Write("Game\\" + std::string(name), GameFile(xml));
        return NextPath(path);
    }
    std::string NextPath(const std::string& path) {
        rig.session.CommandFile = path;
        rig.session.UseCommandFile = true;
        return path;
    }
    [[nodiscard]] std::string Game(std::string_view name) const { return folder.Read("Game\\" + std::string(name)); }
    [[nodiscard]] std::string Temp(std::string_view name) const {
        return folder.Read("Kit\\TempFiles\\" + std::string(name));
    }
    [[nodiscard]] std::vector<std::string> GameNames() const { return folder.Names("Game"); }
    [[nodiscard]] std::vector<std::string> TempNames() const { return folder.Names("Kit\\TempFiles"); }

    TempFolder folder;
    EditorRig rig;
    FakeConverter converter;
};

} // namespace tamarind::tests
