// SPDX-License-Identifier: MIT
// The steps by which a map is drawn up from elements, whether generated or read.
#pragma once

#include "tools/maps/LevelMap.h"

#include <vaultry/layout/GridElmt.h>
#include <vaultry/output/PluginFile.h>

#include <optional>

namespace Tarnex::Report {

/// One element as it is drawn, with its tiles, doors and platform.
MapCell DrawnCell(const GridElmt& elmt);

/// A lock, if there is one, as it is drawn and told.
MapLock DrawnLock(const std::optional<PluginLock>& lock);

/// How something of that size stands that far from the middle of its cell [world units] and so
/// turned [degrees].
MapStand StandOf(const Di3Point& offset, double turn, const Di3Point& size, std::int32_t tileSize);

/// For a map without rooms: numbers the areas of floor between doorways, row by row.
void NumberAreas(LevelMap& map);

/// For the map of a fixed interior: its doorways onto nothing are what it is entered by.
void MarkWaysIn(LevelMap& map);

/// Marks the rooms that cannot be walked to from the first one.
void JudgeReach(LevelMap& map);

} // namespace Tarnex::Report
