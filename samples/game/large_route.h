#pragma once

#include <filesystem>

namespace tamarind::samples {

/// How much of a large route, for measuring.
struct LargeRoute {
    int tiles = 3000;
    int blueprints = 1000;
    int shapes = 300;
    int references = 40; ///< placed objects a tile
};

/// Writes a game with one large route, "large", to "Rail Simulator" below `folder` and gives that folder's path. Every
/// tenth blueprint and every tenth shape is not installed; each shape has two textures, one of them missing.
std::filesystem::path WriteLargeRoute(const std::filesystem::path& folder, const LargeRoute& size);

} // namespace tamarind::samples
