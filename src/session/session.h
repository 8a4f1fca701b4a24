#pragma once

#include "session/authoring_state.h"
#include "session/route_state.h"
#include "session/scenario_edit_state.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tamarind::session {

/// Which editor the person chose for this run.
enum class SessionEditor : std::int16_t { Default = 0, Text = 1, Tree = 2 };

/// The settings and state of one run, made by main() and handed down.
struct Session {
    std::string ProgramFolder; ///< holds "preferences.txt", TempFiles and all else that the program writes
    std::string RailSimPath;   ///< the game folder, without a trailing "\"
    std::string TextureEditorPath;
    std::string ViewerPath;
    bool XmlEditorDefault = false; ///< the tree editor is the default editor
    session::SessionEditor SessionEditor = SessionEditor::Default;
    std::string CommandFile;     ///< the file to open next
    bool UseCommandFile = false; ///< the next open command takes CommandFile without asking
    bool RSFileLoaded = false;
    std::string RSFileExt; ///< of the open game file, without the dot
    /// Set when "preferences.txt" could not be understood: it is kept under a backup name before it is written again.
    bool preferencesUnreadable = false;

    std::string FileBaseName; ///< the open game file's name up to and including its last dot
    std::string TempBase;     ///< FileBaseName in TempFiles: + "bin" is the working copy, + "xml" its XML

    bool skipsMarkerPicture = false; ///< the person saves marker files without looking at them, in this run

    RouteState Routes;
    ScenarioEditState ScenarioEdit;
    AuthoringState Authoring;

    std::vector<std::string> convertingBases; ///< TempBase of each game file that is being converted now

    [[nodiscard]] std::string TempFiles() const { return ProgramFolder + "\\TempFiles"; }
    [[nodiscard]] bool UsesTreeEditor() const {
        return SessionEditor == SessionEditor::Default ? XmlEditorDefault : SessionEditor == SessionEditor::Tree;
    }
};

} // namespace tamarind::session
