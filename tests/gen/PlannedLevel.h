// SPDX-License-Identifier: MIT
// A drawn level whose halls are changed.
#pragma once

#include <vaultry/gen/HallPlan.h>
#include <vaultry/gen/RunMeter.h>

#include <string>
#include <tests/support/TextGrid.h>
#include <vector>

namespace Tarnex::Test {

/// A level drawn as text, see TextGrid.h, with rooms upon it.
class PlannedLevel {
public:
    explicit PlannedLevel(const char* map) : level(ToLayout(map, *tiles)) {}
    ~PlannedLevel() { level->Dissolve(); }
    PlannedLevel(const PlannedLevel&) = delete;
    PlannedLevel& operator=(const PlannedLevel&) = delete;

    /// Draws a room whose north-western corner is there.
    void AddRoom(const char* map, int row, int col) {
        const DiPtr<Layout> room = ToLayout(map, *tiles);
        room->SetOffset(Di3Point(static_cast<float>(col), static_cast<float>(row), 0.0F));
        level->AddContents(*room);
        rooms.SetLayout(room, 0, count++);
    }

    HallPlan Plan() const { return {*level, rooms, *tiles}; }

    /// The level after `change` had its plan.
    template <typename Change>
    std::string After(const Change& change) {
        HallPlan plan = Plan();
        change(plan, meter);
        openEnds = plan.CountOpenEnds();
        ApplyChanges(*level, *tiles, plan.Changes());
        return ToText(*level);
    }

    DiPtr<TileSet> tiles = MakeFullTileSet();
    DiPtr<Layout> level;
    RoomInfo rooms{DiPos(8, 1, 0)};
    RunMeter meter;
    std::uint32_t openEnds = 0; ///< that After left

private:
    int count = 0;
};

} // namespace Tarnex::Test
