// SPDX-License-Identifier: MIT
// Maps of what a plug-in places.
#pragma once

#include "apps/report/LevelMap.h"
#include "apps/report/PieceIndex.h"

#include <string>
#include <vector>

namespace Tarnex::Report {

/// A tile further than this from the middle of its level is not drawn. [cells]
inline constexpr std::int32_t kFarthestCell = 256;

/// Draws up the map of a cell: floors, walls and doors from the tiles of the set that knows most of
/// its references, everything else as marks. Rooms are the areas between doorways. A reference at
/// no place, or far away from the others, is counted and left out.
LevelMap MapOf(const PluginCell& cell, const PluginFile& file, const PieceIndex& pieces);

/// How many references of the cells a configuration knows as tiles.
std::size_t CountKnownTiles(const std::vector<const PluginCell*>& cells, const PieceIndex& pieces);

} // namespace Tarnex::Report
