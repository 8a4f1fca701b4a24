#pragma once

#include <cstdint>
#include <string>

namespace tamarind::session {

/// What a blueprint is made for.
enum class BlueprintMode : std::int16_t { NamedMarker = 1, SeriesMarker = 2, RouteTemplate = 3 };

/// What the window that chooses a folder is open for.
enum class FolderJob {
    AddOn,           ///< the folders of a new add-on are made
    BlueprintOutput, ///< the folder that a blueprint goes into
    LocoToClone,
    CloneTarget, ///< the folder that the copy of a loco goes into
};

/// What the tools for authors hand over to each other.
struct AuthoringState {
    FolderJob Folder = FolderJob::AddOn;
    session::BlueprintMode BlueprintMode = session::BlueprintMode::NamedMarker;
    std::string BlueprintFolder; ///< full path, as those below
    std::string CloneSource;     ///< a loco's folder; empty when none was accepted
    std::string CloneTarget;
};

} // namespace tamarind::session
