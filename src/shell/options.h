#pragma once

#include "session/editor_context.h"

/// The commands of the "Options" menu.
namespace tamarind::shell {

/// Asks for the game's executable; its folder becomes the game folder. Cancelling the file dialog empties it.
void SelectRailSimPath(session::EditorContext& context);
/// Which editor is the default; kept in the settings.
void SelectDefaultEditor(session::EditorContext& context);
/// For this run only.
void UseTamarindEditor(session::EditorContext& context);
void UseXmlEditor(session::EditorContext& context);

} // namespace tamarind::shell
