#pragma once

#include "session/editor_context.h"

#include <string>

/// Opening and saving game files and XML files: one command an item of the two "Files" menus.
///
/// A game file is copied to TempFiles under its base name + "bin", converted to base name + "xml" there, edited,
/// converted back, and put in place of the original, whose old content stays under a backup name. Errors that a
/// command does not show itself leave it as RuntimeError; a game file is then unchanged.
namespace tamarind::convert {

struct Saved {
    bool done = false;
    std::string backup = {}; ///< where the old content is now; empty when all backup names were taken
};

// The text editor's menu. The open commands return whether there was a file to open and, for game files, whether the
// converter wrote its XML.
bool OpenRailSimFile(session::EditorContext& context);
bool OpenTextureFile(session::EditorContext& context);
bool OpenXmlFile(session::EditorContext& context);
Saved SaveRailSimFile(session::EditorContext& context);
void SaveXmlText(session::EditorContext& context);
void SaveXmlTextAs(session::EditorContext& context);

// The tree editor's menu.
bool OpenRailSimFileInTree(session::EditorContext& context);
bool OpenXmlFileInTree(session::EditorContext& context);
Saved SaveRailSimFileFromTree(session::EditorContext& context);
void SaveXmlFromTree(session::EditorContext& context);
void SaveXmlFromTreeAs(session::EditorContext& context);

} // namespace tamarind::convert
