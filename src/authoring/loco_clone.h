#pragma once

#include "session/editor_context.h"

#include <string>
#include <string_view>

/// A loco is copied into an author's own content, to be made into another one.
namespace tamarind::authoring {

/// Whether a folder lies directly in one whose name begins with "Steam", "Diese" or "Elect", in any letter case.
[[nodiscard]] bool IsLocoFolder(std::string_view folder);
/// The same; when it does not, the person is told.
[[nodiscard]] bool AcceptsLoco(session::EditorContext& context, std::string_view folder);

/// Whether a folder below the game's "Source" is named "RailVehicles", or lies in one that is.
[[nodiscard]] bool IsCloneTarget(const session::EditorContext& context, std::string_view folder);

/// Copies the loco's folder with all that is in it; `to` must not exist. Texts inside the files stay as they are, links
/// that lead out of the folder are left out, and the person is told of that. When it fails, or is cancelled between
/// two files, what was copied is removed, the person is told, and the result is false.
bool CopyLoco(session::EditorContext& context, const std::string& from, const std::string& to);

/// The item of the menu: lets the person choose a loco, a name and a folder for the copy, and copies it. Nothing is
/// changed when one of them is not chosen.
void CloneLoco(session::EditorContext& context);

} // namespace tamarind::authoring
