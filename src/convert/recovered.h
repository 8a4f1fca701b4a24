#pragma once

#include "session/editor_context.h"

#include <string>

namespace tamarind::convert {

/// Makes the folder TempFiles\Recovered and finds a name in it that is still free: the base name (with its last dot)
/// and "xml", or a number in between.
std::string FreeRecoveredPath(session::EditorContext& context, const std::string& baseName);

/// Keeps the text editor's unsaved text in TempFiles\Recovered, under a name that is still free there, and returns that
/// path; empty when there was nothing unsaved. Throws RuntimeError when it cannot be written.
std::string KeepUnsavedText(session::EditorContext& context);

/// The same for the tree editor's document.
std::string KeepUnsavedDocument(session::EditorContext& context);

} // namespace tamarind::convert
