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
        // Levels given up leave no gap: doors join those that there are.
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
    // A level that was given up is none to walk in, though the others may hang together.
    return AreLevelsLinked() && std::ranges::all_of(levels, &LevelReport::IsWalkable);
}

bool GenReport::IsClosed() const {
    return std::ranges::all_of(
        levels, [](const LevelReport& level) { return level.made && level.openEnds == 0; });
}

} // namespace Tarnex
