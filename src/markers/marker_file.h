#pragma once

#include "markers/marker_list.h"
#include "session/editor_context.h"

#include <optional>
#include <string>

namespace tamarind::markers {

/// "Convert Marker files": asks for an exported file, reads it, and asks where to save the list.
void ConvertMarkerFile(session::EditorContext& context);

/// Its first half, for a file that is named already: the list; nothing, which the person is told, when the name ends
/// in none of the four ways. What the list leaves out is told in a line. A missing file is an empty list, but for a
/// ".wpt" the error FileNotFound; other errors as those of the readers and Files::Open.
[[nodiscard]] std::optional<MarkerList> ReadMarkerFile(session::EditorContext& context, const std::string& path);

} // namespace tamarind::markers
