#pragma once

#include "authoring/blueprint.h"
#include "session/editor_context.h"

#include <optional>
#include <string>

/// The window that makes blueprints, without its controls: what it shows, as plain data, and its command as a function.
namespace tamarind::authoring {

inline constexpr const char* kBlueprintWindowTitle = "BluePrint Designer";

struct BlueprintWindow {
    session::BlueprintMode mode = session::BlueprintMode::NamedMarker;
    BlueprintTexts Text1; ///< as typed
};

// The items of the menu. Each lets the person choose the output folder first, and ends when none is chosen.

void MakeNamedMarker(session::EditorContext& context);
void MakeSeriesMarker(session::EditorContext& context);
void MakeRouteTemplate(session::EditorContext& context);

/// What Command1 is going to write, in words: nothing, why not, or which file, and whether that is there already.
[[nodiscard]] std::string OutputInWords(const session::EditorContext& context, const BlueprintWindow& window);

/// Command1: makes the blueprint in the session's BlueprintFolder and returns its path. An existing file is replaced
/// without a question. A name that no file can bear, a template that is missing and every failure are told, and
/// nothing is changed.
std::optional<std::string> MakeBlueprint(session::EditorContext& context, const BlueprintWindow& window);

} // namespace tamarind::authoring
