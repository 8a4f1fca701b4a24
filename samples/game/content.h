#pragma once

#include "game/game_tree.h"
#include "game/xml_text.h"

#include <filesystem>
#include <string>
#include <string_view>

/// What the sample game holds, by kind. Every name is our own invention, and every run writes the same bytes.
namespace tamarind::samples {

inline constexpr std::string_view kFernhollow = "Fernhollow";
inline constexpr std::string_view kAlderVale = "AlderVale";
inline constexpr std::string_view kTansywick = "Tansywick";
inline constexpr std::string_view kHarbourSet = "HarbourSet";

/// Folder names of the routes below "Content/Routes".
inline constexpr std::string_view kAlderRoute = "5a1e0d10-0001-4c00-9a10-7a3a21d0a001";
inline constexpr std::string_view kBoisRoute = "5a1e0d10-0002-4c00-9a10-7a3a21d0a002";
inline constexpr std::string_view kThornbyRoute = "5a1e0d10-0003-4c00-9a10-7a3a21d0a003";

/// The folder of a route, relative to the game folder.
[[nodiscard]] std::string RouteFolder(std::string_view routeId);

/// "Content/Routes.xml" and each route's own properties.
void AddRoutes(const GameTree& game);
/// The scenario index of the first route and its scenarios.
void AddScenarios(const GameTree& game);
/// Scenery and network tiles of every route.
void AddTiles(const GameTree& game);
/// Blueprints, shapes, weather and the track's cross-section.
void AddAssets(const GameTree& game);
void AddTextures(const GameTree& game);
/// The developer's side: XML and text files below "Source".
void AddSource(const GameTree& game);

/// Writes the whole game to "Rail Simulator" below `folder` and gives that folder's path.
std::filesystem::path WriteSampleGame(const std::filesystem::path& folder);

} // namespace tamarind::samples
