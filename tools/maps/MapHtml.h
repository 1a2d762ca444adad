// SPDX-License-Identifier: MIT
// Maps as a page.
#pragma once

#include "tools/maps/LevelMap.h"
#include "tools/maps/MapStyle.h"
#include "tools/maps/MapSurvey.h"

#include <ostream>

namespace Tarnex::Report {

/// Writes one page of its own that loads nothing and runs no script: every level with layers to
/// switch, what is in each room, and what is in each container. Rooms on the map lead to the tables
/// and back.
/// `survey` is that of the levels.
void WriteHtml(MapLevels& levels,
               const MapSurvey& survey,
               const MapCaption& caption,
               MapLook look,
               std::ostream& out);

} // namespace Tarnex::Report
