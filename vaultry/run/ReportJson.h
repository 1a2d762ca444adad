// SPDX-License-Identifier: MIT
// What a run came to, for other programs. Not installed: whoever prints it has the JSON library.
#pragma once

#include <vaultry/foundation/CodePage.h>
#include <vaultry/gen/GenReport.h>

#include <nlohmann/json.hpp>

#include <utility>

namespace Tarnex {

/// A level of a run, valid UTF-8 whatever its name holds.
inline nlohmann::ordered_json LevelJson(const LevelReport& level) {
    using Json = nlohmann::ordered_json;
    Json halls = Json::array();
    for (const FailedHall& hall : level.failedHalls) {
        halls.push_back({{"from", {hall.from.x, hall.from.y}}, {"to", {hall.to.x, hall.to.y}}});
    }
    return {{"level", level.number},
            {"name", ToUtf8(level.name)},
            {"made", level.made},
            {"floor-plans", level.attempts},
            {"rooms", level.rooms.size()},
            {"reachable-rooms", level.ReachableRooms()},
            {"openings-onto-nothing", level.openEnds},
            {"linked-to-level-before", level.linked},
            {"walkable", level.IsWalkable()},
            {"failed-halls", std::move(halls)}};
}

/// The levels of a run, in order.
inline nlohmann::ordered_json LevelsJson(const GenReport& report) {
    nlohmann::ordered_json levels = nlohmann::ordered_json::array();
    for (const LevelReport& level : report.levels) {
        levels.push_back(LevelJson(level));
    }
    return levels;
}

} // namespace Tarnex
