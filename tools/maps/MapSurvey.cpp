// SPDX-License-Identifier: MIT
#include "tools/maps/MapSurvey.h"

#include <algorithm>
#include <bit>

namespace Tarnex::Report {

void AddTo(MapSurvey& survey, const LevelMap& map) {
    SurveyedLevel& level = survey.levels.emplace_back();
    level.outline = map;
    level.rooms = map.rooms.size();
    level.reachableRooms =
        static_cast<std::size_t>(std::ranges::count(map.rooms, true, &MapRoom::reachable));
    for (const MapCell& cell : map.cells) {
        level.looseEnds += static_cast<std::size_t>(std::popcount(cell.loose));
        level.teleports += cell.teleport ? 1 : 0;
    }
    survey.legend |= LegendOf(map);
}

MapSurvey SurveyOf(MapLevels& levels) {
    MapSurvey survey;
    for (std::size_t i = 0; i < levels.Count(); ++i) {
        AddTo(survey, levels.Level(i));
    }
    return survey;
}

} // namespace Tarnex::Report
