#pragma once

#include "cli/arguments.h"
#include "session/editor_context.h"

namespace tamarind::cli {

/// What a command needs to know of the game: settings and game folder. Changes nothing on the disk.
void FindGame(session::EditorContext& context, const Arguments& arguments);

/// What a window's start-up does before a command can work on the game: settings, game folder, TempFiles.
void PrepareGame(session::EditorContext& context, const Arguments& arguments);

} // namespace tamarind::cli
