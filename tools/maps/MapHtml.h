// SPDX-License-Identifier: MIT
// Maps as a page.
#pragma once

#include "tools/maps/LevelMap.h"
#include "tools/maps/MapStyle.h"
#include "tools/maps/MapSurvey.h"

#include <ostream>
#include <string_view>

namespace Tarnex::Report {

/// What the head of a page begins with. Nothing may be loaded, and nothing runs.
inline constexpr std::string_view kPageHead =
    "<meta charset=\"utf-8\"/>\n"
    "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
    "<meta http-equiv=\"Content-Security-Policy\" "
    "content=\"default-src 'none'; style-src 'unsafe-inline'; img-src data:\"/>\n"
    "<link rel=\"icon\" href=\"data:,\"/>\n";

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
