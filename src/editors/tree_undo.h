#pragma once

#include "session/editor_context.h"

/// Undo and redo of the tree editor's edits. An edit that sets the modified flag sets it again when it is taken back or
/// repeated; one that does not leaves flag and caption alone. Keys are never given twice.
namespace tamarind::editors {

[[nodiscard]] bool CanUndo(const session::EditorContext& context);
[[nodiscard]] bool CanRedo(const session::EditorContext& context);
void UndoEdit(session::EditorContext& context);
void RedoEdit(session::EditorContext& context);

} // namespace tamarind::editors
