#pragma once

#include "session/editor_context.h"

/// The commands of the "Options" menu, and those that hand exported textures to the programs chosen there.
namespace tamarind::shell {

/// Asks for the game's executable; its folder becomes the game folder. Cancelling the file dialog empties it.
void SelectRailSimPath(session::EditorContext& context);
/// Which editor is the default; kept in the settings.
void SelectDefaultEditor(session::EditorContext& context);
/// Which programs show and change exported textures. Cancelling the file dialog empties the path.
void SelectTextureEditor(session::EditorContext& context);
void SelectViewer(session::EditorContext& context);
/// For this run only.
void UseTamarindEditor(session::EditorContext& context);
void UseXmlEditor(session::EditorContext& context);

/// Empties the text page. Unsaved text is kept in TempFiles\\Recovered first.
void ClearScreen(session::EditorContext& context);
/// Deletes TempFiles with all that is in it, and makes it anew.
void ClearTempFiles(session::EditorContext& context);
/// Takes the write protection off everything in the game folder.
void MakeGameFilesWritable(session::EditorContext& context);

// Of the "Help" menu.

void ShowContents(session::EditorContext& context);
void ShowAbout(session::EditorContext& context);

// Of the "Conversions" menu.

/// Opens the open texture's exported picture in that program and waits until it is closed.
void ViewDdsFile(session::EditorContext& context);
void EditDdsFile(session::EditorContext& context);

} // namespace tamarind::shell
