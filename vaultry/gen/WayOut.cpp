// SPDX-License-Identifier: MIT
#include <vaultry/gen/WayOut.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/layout/ElmtKind.h>
#include <vaultry/layout/LevelPlan.h>

#include <algorithm>
#include <tuple>

namespace Tarnex {

namespace {

// What lies flat on the floor is in nobody's way.
std::size_t CountThings(const GridElmt& elmt) {
    return static_cast<std::size_t>(std::ranges::count_if(
        elmt.contents, [](const DiPtr<ContentItem>& item) { return !item->IsKind(Content_Rug); }));
}

// In the cells all around, the cell's own included.
std::size_t ThingsAround(const Layout& level, const DiPos& place) {
    std::size_t count = 0;
    const DiPos& size = level.GetSize();
    for (std::int32_t y = std::max(place.y - 1, 0); y <= std::min(place.y + 1, size.y - 1); ++y) {
        for (std::int32_t x = std::max(place.x - 1, 0); x <= std::min(place.x + 1, size.x - 1);
             ++x) {
            const DiPtr<GridElmt>& elmt =
                level.GetElmt(static_cast<std::uint32_t>(y), static_cast<std::uint32_t>(x));
            count += elmt ? CountThings(*elmt) : 0;
        }
    }
    return count;
}

bool IsInside(const RoomReport& room, const DiPos& place) {
    const DiPos at(place.x - room.origin.x, place.y - room.origin.y, 0);
    return at.x >= 0 && at.y >= 0 && at.x < room.size.x && at.y < room.size.y;
}

// The number of the first room that has the place, of those one can walk to; nothing outside. All
// of a fixed interior is one.
std::optional<std::size_t> RoomOf(const LevelReport* report, const DiPos& place) {
    if (report == nullptr) {
        return 0;
    }
    const auto room = std::ranges::find_if(report->rooms, [&place](const RoomReport& each) {
        return each.reachable && IsInside(each, place);
    });
    return room == report->rooms.end()
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(room - report->rooms.begin()));
}

bool HasDoorFor(const TileSet& set, const Side& side) {
    return set.Get(side.doorway) && set.Get(side.door);
}

// What may have to go for a door: neither treasure nor creatures.
bool MayGo(const DiPtr<ContentItem>& item) {
    return item->IsKind(Content_Furniture) || item->IsKind(Content_Tapestry) ||
           item->IsKind(Content_Rug);
}

// The side of a wall that a door could be set into; null for none.
const Side* UsableWall(const GridElmt& elmt, const PlanCell& cell, const TileSet& set) {
    const bool free = elmt.platforms.empty() && std::ranges::all_of(elmt.contents, MayGo);
    const Side* const side = GetElmtType(elmt) == TileWall ? FindSide(GetElmtDir(elmt)) : nullptr;
    const bool inward = side != nullptr && (cell.ways & SideBit(side->opposite)) != 0;
    return free && inward && HasDoorFor(set, *side) ? side : nullptr;
}

// The side of a door that opens onto nothing; null for none.
const Side* OuterDoor(const GridElmt& elmt, const PlanCell& cell) {
    const bool hasLeaf =
        std::ranges::any_of(elmt.tiles, [](const DiPtr<Tile>& tile) { return IsDoorTile(*tile); });
    const auto side = std::ranges::find_if(Sides(), [&cell](const Side& each) {
        return (cell.loose & cell.doorway & SideBit(each.dir)) != 0;
    });
    return hasLeaf && side != Sides().end() ? &*side : nullptr;
}

// The better place is the smaller one.
using Rank = std::tuple<bool, bool, std::size_t, std::size_t, bool>;

} // namespace

std::optional<WayOutPlace>
ChooseWayOut(const Layout& level, const TileSet& set, const LevelReport* report) {
    const LevelPlan plan = PlanOf(level, PlanCellOf);
    std::optional<WayOutPlace> best;
    Rank least;
    ForEachTiled(level, DiPos(), [&](const GridElmt& elmt, const DiPos& at) {
        const PlanCell& cell = plan.At(at);
        const Side* const door = report == nullptr ? OuterDoor(elmt, cell) : nullptr;
        const Side* const side = door != nullptr ? door : UsableWall(elmt, cell, set);
        const std::optional<std::size_t> room = RoomOf(report, at);
        if (side == nullptr || !room) {
            return;
        }
        const bool backed = plan.Next(cell, side->dir)->tile != PlanTile::Empty;
        const bool bare = elmt.contents.empty();
        const Rank rank{door == nullptr, !bare, *room, ThingsAround(level, at), backed};
        if (!best || rank < least) {
            best = {at, side, door != nullptr};
            least = rank;
        }
    });
    return best;
}

} // namespace Tarnex
