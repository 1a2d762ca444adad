// SPDX-License-Identifier: MIT
#include <vaultry/layout/LevelPlan.h>

#include <vaultry/layout/Passages.h>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace Tarnex {

namespace {

// A doorway in a corner has no facing of its own: the last letter of its kind is the side.
SideBits DoorwaySide(const GridElmt& elmt) {
    const Tile* doorway = PeekTileOfType(elmt, TileDoorway);
    if (doorway == nullptr) {
        return 0;
    }
    const TileDirT facing = GetTileDir(*doorway);
    if (facing <= DirW) {
        return SideBit(facing);
    }
    const std::string_view name = doorway->kindName.Kind().Name();
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

std::int32_t Beyond(std::int32_t from, std::int32_t distance) {
    const std::int64_t sum = std::int64_t{from} + distance;
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(sum, -kFarthestOrigin, kFarthestOrigin));
}

DiPos Beyond(const DiPos& from, const DiPos& distance) {
    return {Beyond(from.x, distance.x), Beyond(from.y, distance.y), 0};
}

} // namespace

LevelPlan::LevelPlan(const DiPos& newSize) : size(newSize) {
    cells.resize(Index(size) + 1);
    for (const Side& side : Sides()) {
        steps[static_cast<std::size_t>(side.dir)] =
            static_cast<std::ptrdiff_t>(Index(side.step)) - static_cast<std::ptrdiff_t>(Index({}));
    }
}

DiPos LevelPlan::PlaceOf(const PlanCell& cell) const {
    const std::ptrdiff_t stride = steps[DirS];
    const std::ptrdiff_t index = &cell - cells.data();
    return {static_cast<std::int32_t>(index % stride) - 1,
            static_cast<std::int32_t>(index / stride) - 1,
            0};
}

PlanCell WaysOf(const GridElmt& elmt) {
    PlanCell cell;
    cell.tile = TileOf(elmt);
    cell.open = WalkableSides(elmt);
    cell.loose = OpenSides(elmt);
    cell.teleport = elmt.isTeleport;
    cell.doorway = elmt.isTeleport ? DoorwaySide(elmt) : SideBits{0};
    cell.sameFloor = true;
    return cell;
}

PlanCell PlanCellOf(const GridElmt& elmt) {
    PlanCell cell = WaysOf(elmt);
    cell.doorway = DoorwaySide(elmt);
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
                             Beyond(parent.origin, OriginOf(*child)),
                             i == 0 && height <= kSameFloor,
                             parent.even && height == 0.0F});
        }
    }
    // The form over ranges does not compile with clang 14.
    std::stable_partition(
        parts.begin(), parts.end(), [](const LevelPart& part) { return part.sameFloor; });
    return parts;
}

LevelPlan PlanOf(const Layout& level, PlanCell (*cellOf)(const GridElmt&)) {
    LevelPlan plan(level.GetSize());
    for (const LevelPart& part : PartsOf(level)) {
        if (!part.sameFloor) {
            break;
        }
        plan.UnderTiles(*part.layout, part.origin, [&](PlanCell& cell, const GridElmt& elmt) {
            if (cell.tile == PlanTile::Empty) {
                cell = cellOf(elmt);
                cell.even = cell.even && part.even;
            }
        });
    }
    JoinNeighbours(plan);
    return plan;
}

} // namespace Tarnex
