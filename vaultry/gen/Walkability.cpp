// SPDX-License-Identifier: MIT
#include <vaultry/gen/Walkability.h>

#include <vaultry/layout/LevelPlan.h>

#include <bit>

namespace Tarnex {

namespace {

void NumberRooms(LevelPlan& plan, const std::vector<DiPtr<Layout>>& rooms) {
    for (std::size_t i = 0; i < rooms.size(); ++i) {
        ForEachTiled(*rooms[i], OriginOf(*rooms[i]), [&](const GridElmt&, const DiPos& place) {
            PlanCell* cell = plan.IsInside(place) ? plan.Find(place) : nullptr;
            if (cell != nullptr) {
                cell->room = i + 1;
            }
        });
    }
}

} // namespace

void JudgeWalkability(LevelReport& report, const Layout& main, const RoomInfo& rooms) {
    LevelPlan plan = PlanOf(main);
    report.openEnds = 0;
    for (const PlanCell& cell : plan.cells) {
        report.openEnds += static_cast<std::uint32_t>(std::popcount(cell.loose));
    }
    const auto list = rooms.GetRoomList();
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
