#pragma once

#include "session/editor_context.h"

#include <string>

/// Opening, loading and saving the tree editor's document.
namespace tamarind::editors {

/// Sets or clears the modified flag and the "*" at the end of the caption.
void SetModified(session::EditorContext& context, bool modified);

/// Asks whether to save unsaved changes, if there are any, and counts them as settled. False when the answer was
/// Cancel, or when saving failed.
bool MayDropChanges(session::EditorContext& context);

/// An empty document for `path`. Asks about unsaved changes first; false when the answer was Cancel, or when saving
/// them failed: then nothing has changed.
bool NewDocument(session::EditorContext& context, const std::string& path);

/// Parses the document's file and shows it in the tree. False when it is no readable XML: then the user was told line
/// and column, and tree and document are empty.
/// Throws the file's RuntimeError.
bool LoadXmlFile(session::EditorContext& context);

/// Writes the document to its file. False when that failed: then the user was told, and the file is unchanged.
bool SaveXmlFile(session::EditorContext& context);

} // namespace tamarind::editors
