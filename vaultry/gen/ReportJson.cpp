// SPDX-License-Identifier: MIT
#include <vaultry/gen/ReportJson.h>

#include <vaultry/foundation/CodePage.h>

#include <nlohmann/json.hpp>

namespace Tarnex {

namespace {

using Json = nlohmann::ordered_json;

Json SlotJson(const DiPos& slot) {
    return {slot.x, slot.y};
}

Json LevelJson(const LevelReport& level) {
    Json json = {{"level", level.number},
                 {"name", ToUtf8(level.name)},
                 {"made", level.made},
                 {"floor-plans", level.attempts},
                 {"rooms", level.rooms.size()},
                 {"reachable-rooms", level.ReachableRooms()},
                 {"openings-onto-nothing", level.openEnds},
                 {"linked-to-level-before", level.linked},
                 {"walkable", level.IsWalkable()}};
    Json& halls = json["failed-halls"] = Json::array();
    for (const FailedHall& hall : level.failedHalls) {
        halls.push_back({{"from", SlotJson(hall.from)}, {"to", SlotJson(hall.to)}});
    }
    return json;
}

} // namespace

std::string LevelsToJson(const GenReport& report) {
    Json levels = Json::array();
    for (const LevelReport& level : report.levels) {
        levels.push_back(LevelJson(level));
    }
    return levels.dump();
}

} // namespace Tarnex
