#pragma once

#include "session/editor_context.h"

#include <string>

namespace tamarind::shell {

/// The window's caption before anything is opened.
inline constexpr const char* kDesignCaption = "RS bin file editor and texture viewer";

/// "  Version N.N.N   Rail Simulator path in use is - " and the game folder.
[[nodiscard]] std::string VersionCaption(const session::Session& session);

/// Which open command a file's ending selects.
enum class OpenCommand { None, RailSimFile, Texture, Xml, RailSimFileInTree, TextureOnTextPage, XmlInTree };
[[nodiscard]] OpenCommand CommandForFile(const std::string& path, bool xmlEditorDefault);

/// Opens a file that was handed over, with the command of its ending, in the editor that is in use. Tells when no
/// command opens such files.
void OpenFile(session::EditorContext& context, const std::string& path);

/// A command line without the double quote at its start and the one at its end.
[[nodiscard]] std::string WithoutQuotes(std::string commandLine);

/// Everything from the start to the window's being ready: settings, working folder, game folder, caption, and the file
/// named on the command line. A step that fails shows why and start-up goes on.
void StartUp(session::EditorContext& context, const std::string& commandLine);

/// The game folder, from the settings or else the registry, for programs without a window.
void FindGameFolder(session::EditorContext& context);

/// Reads the settings, if there are any; shows why when they cannot be understood.
void ReadSettings(session::EditorContext& context);

} // namespace tamarind::shell
