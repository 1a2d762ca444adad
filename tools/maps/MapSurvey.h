// SPDX-License-Identifier: MIT
// What must be known of all levels before the first is drawn.
#pragma once

#include "tools/maps/LevelMap.h"
#include "tools/maps/MapStyle.h"

#include <cstddef>
#include <vector>

namespace Tarnex::Report {

/// What there is to say about a level in short.
struct SurveyedLevel {
    MapOutline outline;
    std::size_t rooms = 0;
    std::size_t reachableRooms = 0;
    std::size_t looseEnds = 0; ///< openings onto nothing
    std::size_t teleports = 0; ///< cells with a door to another level
};

/// What is needed of all levels at once, so that only one at a time need be held.
struct MapSurvey {
    std::vector<SurveyedLevel> levels;
    LegendNeeds legend;
};

/// Adds what is on the map.
void AddTo(MapSurvey& survey, const LevelMap& map);

/// Looks at all levels, one after the other.
MapSurvey SurveyOf(MapLevels& levels);

} // namespace Tarnex::Report
