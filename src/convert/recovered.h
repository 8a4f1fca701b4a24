#pragma once

#include "session/editor_context.h"

#include <string>

namespace tamarind::convert {

/// Keeps the text editor's unsaved text in TempFiles\Recovered, under a name that is still free there, and returns that
/// path; empty when there was nothing unsaved. Throws RuntimeError when it cannot be written.
std::string KeepUnsavedText(session::EditorContext& context);

/// The same for the tree editor's document.
std::string KeepUnsavedDocument(session::EditorContext& context);

} // namespace tamarind::convert
