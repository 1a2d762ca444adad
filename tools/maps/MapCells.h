// SPDX-License-Identifier: MIT
// The steps by which a map is drawn up from elements, whether generated or read.
#pragma once

#include "tools/maps/LevelMap.h"

#include <vaultry/layout/GridElmt.h>

namespace Tarnex::Report {

/// One element as it is drawn, with its tiles, doors, platform and contents. Its loose ends are the
/// sides that must lead somewhere, until FindLooseEnds knows what they lead to.
MapCell DrawnCell(const GridElmt& elmt);

/// Keeps the loose ends that face no other opening.
void FindLooseEnds(LevelMap& map);

/// For a map without rooms: numbers the areas of floor between doorways, row by row.
void NumberAreas(LevelMap& map);

/// Marks the rooms that cannot be walked to from the first one.
void JudgeReach(LevelMap& map);

} // namespace Tarnex::Report
