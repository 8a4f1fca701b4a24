#pragma once

#include "session/editor_context.h"
#include "text/runtime_error.h"

#include <string>

namespace tamarind::shell {

/// Writes the settings, asks about unsaved changes of the tree editor and keeps unsaved text of the text editor in
/// TempFiles\Recovered. False when the window is to stay open: the answer was Cancel, or saving failed.
/// Throws a RuntimeError of saving.
bool MayClose(session::EditorContext& context);

/// The last resort for an error that no command handles: shows number and description, keeps unsaved editor text in
/// TempFiles\Recovered and names that place. The program ends afterwards.
void ReportFatalError(session::EditorContext& context, const text::RuntimeError& error);

} // namespace tamarind::shell
