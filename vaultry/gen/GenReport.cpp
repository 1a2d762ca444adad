// SPDX-License-Identifier: MIT
#include <vaultry/gen/GenReport.h>

#include <algorithm>

namespace Tarnex {

std::size_t LevelReport::ReachableRooms() const {
    return static_cast<std::size_t>(std::ranges::count_if(rooms, &RoomReport::reachable));
}

bool GenReport::AreLevelsLinked() const {
    bool isFirst = true;
    for (const LevelReport& level : levels) {
        if (!level.made) {
            continue;
        }
        if (!isFirst && !level.linked) {
            return false;
        }
        isFirst = false;
    }
    return true;
}

bool GenReport::IsWalkable() const {
    return AreLevelsLinked() && std::ranges::all_of(levels, &LevelReport::IsWalkable);
}

} // namespace Tarnex
