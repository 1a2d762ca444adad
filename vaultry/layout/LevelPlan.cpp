// SPDX-License-Identifier: MIT
#include <vaultry/layout/LevelPlan.h>

#include <vaultry/layout/Passages.h>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace Tarnex {

namespace {

// A doorway in a corner has no facing of its own: the last letter of its kind is the side.
SideBits DoorwaySide(const Tile& tile) {
    const TileDirT facing = GetTileDir(tile);
    if (facing <= DirW) {
        return SideBit(facing);
    }
    const std::string_view name = tile.kindName.Kind().Name();
    const std::size_t side = std::string_view("NSEW").find(name.empty() ? ' ' : name.back());
    return side == std::string_view::npos ? SideBits{0} : SideBit(static_cast<TileDirT>(side));
}

PlanTile TileOf(const GridElmt& elmt) {
    switch (GetElmtType(elmt)) {
    case TileHall:
    case TileHallEnd:
        return PlanTile::Hall;
    case TileNone:
        return PlanTile::Stairs;
    default:
        return PlanTile::Room;
    }
}

} // namespace

PlanCell PlanCellOf(const GridElmt& elmt) {
    PlanCell cell;
    cell.tile = TileOf(elmt);
    cell.open = WalkableSides(elmt);
    cell.loose = OpenSides(elmt);
    if (const Tile* doorway = PeekTileOfType(elmt, TileDoorway)) {
        cell.doorway = DoorwaySide(*doorway);
    }
    cell.teleport = elmt.isTeleport;
    cell.sameFloor = true;
    cell.even = elmt.platforms.empty();
    cell.reduced = !elmt.tiles.empty() && !elmt.FirstTile()->IsFullSize();
    return cell;
}

std::vector<LevelPart> PartsOf(const Layout& level) {
    std::vector<LevelPart> parts = {{&level, DiPos(), true, true}};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const LevelPart parent = parts[i];
        for (const DiPtr<Layout>& child : parent.layout->GetChildren()) {
            const float height = std::abs(child->GetOffset().z);
            parts.push_back({child.get(),
                             parent.origin + OriginOf(*child),
                             i == 0 && height <= kSameFloor,
                             parent.even && height == 0.0F});
        }
    }
    // The form over ranges does not compile with clang 14.
    std::stable_partition(
        parts.begin(), parts.end(), [](const LevelPart& part) { return part.sameFloor; });
    return parts;
}

LevelPlan PlanOf(const Layout& level) {
    const std::vector<LevelPart> parts = PartsOf(level);
    LevelPlan plan;
    const auto forEach = [&](const auto& visit) {
        for (const LevelPart& part : parts) {
            if (!part.sameFloor) {
                break;
            }
            ForEachTiled(*part.layout, part.origin, [&](const GridElmt& elmt, const DiPos& place) {
                if (plan.IsInside(place)) {
                    visit(elmt, place, part.even);
                }
            });
        }
    };
    plan.SetGrid(level.GetSize(), [&](const auto& mark) {
        forEach([&mark](const GridElmt&, const DiPos& place, bool) { mark(place); });
    });
    forEach([&plan](const GridElmt& elmt, const DiPos& place, bool even) {
        PlanCell& cell = *plan.Find(place);
        if (cell.tile == PlanTile::Empty) {
            cell = PlanCellOf(elmt);
            cell.place = place;
            cell.even = cell.even && even;
        }
    });
    JoinNeighbours(plan);
    return plan;
}

} // namespace Tarnex
