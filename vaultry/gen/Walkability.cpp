// SPDX-License-Identifier: MIT
#include <vaultry/gen/Walkability.h>

#include <vaultry/layout/LevelPlan.h>

#include <bit>

namespace Tarnex {

namespace {

void NumberRooms(LevelPlan& plan, const std::vector<DiPtr<Layout>>& rooms) {
    for (std::size_t i = 0; i < rooms.size(); ++i) {
        // Rooms that their parts push aside can reach out of the level.
        plan.UnderTiles(*rooms[i], OriginOf(*rooms[i]), [i](PlanCell& cell, const GridElmt&) {
            // Where rooms overlap the later one lies on top, as it does in the level.
            cell.room = static_cast<std::uint32_t>(i + 1);
        });
    }
}

} // namespace

void JudgeWalkability(LevelReport& report, const Layout& main, const RoomInfo& rooms) {
    LevelPlan plan = PlanOf(main, WaysOf);
    report.openEnds = 0;
    for (const PlanCell& cell : plan.cells) {
        // Few cells have any; a junction may have several.
        if (cell.loose != 0) {
            report.openEnds += static_cast<std::uint32_t>(std::popcount(cell.loose));
        }
    }
    const auto list = rooms.GetRoomList();
    // Numbers from 1: halls belong to no room and have 0.
    NumberRooms(plan, list);
    const std::vector<bool> reached = ReachedRooms(plan, list.size());
    report.rooms.clear();
    for (std::size_t i = 0; i < list.size(); ++i) {
        report.rooms.push_back({rooms.GetLogicalRoomPos(*list[i]),
                                OriginOf(*list[i]),
                                list[i]->GetSize(),
                                reached[i]});
    }
}

} // namespace Tarnex
