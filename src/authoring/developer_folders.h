#pragma once

#include "session/editor_context.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Where new content is made: the game's "Source" folder, a folder in it for each developer, and in that one for each
/// add-on, with a fixed tree of folders.
namespace tamarind::authoring {

/// The game's folder "Source"; empty while the game's folder is not known.
[[nodiscard]] std::string SourceFolder(const session::EditorContext& context);
/// Whether the game's folder is known; the person is told when it is not.
[[nodiscard]] bool KnowsGame(session::EditorContext& context);

/// The folders of an add-on below its own, such as "Scenery\Clocks", in the order in which they are made.
[[nodiscard]] std::vector<std::string> AddOnFolders();

/// Makes a developer's folder, and "Source" where that is missing; returns its path. A name that no folder can bear,
/// one that is taken and every failure are told; what was made is then taken back.
std::optional<std::string> MakeDeveloperFolder(session::EditorContext& context, const std::string& name);

enum class AddOn {
    Made,
    Exists, ///< something bears that name: nothing was made
    Failed, ///< the person was told, and what was made is taken back
};
/// Makes the folder `base` with all that belongs into it.
AddOn MakeAddOn(session::EditorContext& context, const std::string& base);

// The items of the menu.

/// Asks for the developer's name; no name changes nothing.
void SetUpDeveloperFolder(session::EditorContext& context);
void SetUpSubFolders(session::EditorContext& context);

} // namespace tamarind::authoring
