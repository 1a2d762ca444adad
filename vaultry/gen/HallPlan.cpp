// SPDX-License-Identifier: MIT
#include <vaultry/gen/HallPlan.h>

#include <vaultry/layout/HallPiece.h>
#include <vaultry/layout/Sides.h>

#include <algorithm>
#include <bit>

namespace Tarnex {

namespace {

bool IsAllOfType(const GridElmt& elmt, TileType type) {
    return std::ranges::all_of(
        elmt.tiles, [type](const DiPtr<Tile>& tile) { return GetTileType(*tile) == type; });
}

PlanPart PartOfElmt(const GridElmt& elmt, bool inRoom) {
    // A copy of what a part of a room has there.
    if (elmt.isShadow || !elmt.FirstTile()->IsFullSize()) {
        return PlanPart::Kept;
    }
    switch (GetElmtType(elmt)) {
    case TileDoorway:
        return inRoom && IsAllOfType(elmt, TileDoorway) ? PlanPart::Doorway : PlanPart::Kept;
    case TileHall:
    case TileHallEnd:
        // A second tile is somebody's drawing.
        if (elmt.tiles.size() > 1) {
            return PlanPart::Kept;
        }
        return inRoom ? PlanPart::RoomHall : PlanPart::Hall;
    default:
        return PlanPart::Kept;
    }
}

bool IsHall(PlanPart part) {
    return part == PlanPart::Hall || part == PlanPart::RoomHall;
}

} // namespace

HallPlan::HallPlan(const Layout& level, const RoomInfo& rooms, const TileSet& tileSet)
    : plan(PlanOf(level)), size(level.GetSize()), set(tileSet),
      parts(plan.cells.size(), PlanPart::Kept) {
    std::vector<bool> inRoom(plan.cells.size());
    for (const DiPtr<Layout>& room : rooms.GetRoomList()) {
        plan.UnderTiles(*room, OriginOf(*room), [&](const PlanCell& cell, const GridElmt&) {
            inRoom[NumberOf(cell)] = true;
        });
    }
    // The level's own elements alone: parts of rooms have theirs.
    plan.UnderTiles(level, DiPos(), [&](const PlanCell& cell, const GridElmt& elmt) {
        parts[NumberOf(cell)] = PartOfElmt(elmt, inRoom[NumberOf(cell)]);
    });
    before.reserve(plan.cells.size());
    for (const PlanCell& cell : plan.cells) {
        before.push_back({cell.tile, cell.open});
    }
}

bool HallPlan::Has(TileKind kind) const {
    return kind.IsKnown() && set.Get(kind) != nullptr;
}

TileKind HallPlan::PieceOf(const PlanCell& cell, SideBits open) const {
    if (IsHall(PartOf(cell))) {
        return HallPieceOf(open);
    }
    const auto closed = static_cast<SideBits>(~open & 0xF);
    return std::has_single_bit(closed)
               ? Sides()[static_cast<std::size_t>(std::countr_zero(closed))].wall
               : TileKind();
}

bool HallPlan::HasHall(SideBits open) const {
    return Has(HallPieceOf(open));
}

bool HallPlan::HasAllHalls() const {
    for (SideBits open = 1; open <= 0xF; ++open) {
        if (std::popcount(open) != 3 && !HasHall(open)) {
            return false;
        }
    }
    return true;
}

bool HallPlan::CanLeave(const PlanCell& cell, SideBits open) const {
    const PlanPart part = PartOf(cell);
    if (part == PlanPart::Kept) {
        return false;
    }
    return (IsHall(part) && open == 0) || Has(PieceOf(cell, open));
}

void HallPlan::Leave(PlanCell& cell, SideBits open) {
    for (const TileDirT side : kSides) {
        if ((cell.ways & ~open & SideBit(side)) != 0) {
            PlanCell& other = Next(cell, side);
            const auto back = static_cast<SideBits>(~SideBit(OppositeOf(side)));
            other.ways &= back;
            other.open &= back;
        }
    }
    cell.open &= open;
    cell.ways &= open;
    cell.loose &= open;
    if (open == 0) {
        cell = PlanCell();
    }
}

bool HallPlan::AddEnd(PlanCell& cell, TileDirT side) {
    PlanCell& next = Next(cell, side);
    const DiPos place = plan.PlaceOf(next);
    const bool inside = place.x >= 0 && place.y >= 0 && place.x < size.x && place.y < size.y;
    const SideBits back = SideBit(OppositeOf(side));
    if (!inside || next.tile != PlanTile::Empty || !HasHall(back)) {
        return false;
    }
    next.tile = PlanTile::Hall;
    next.open = back;
    next.ways = back;
    next.sameFloor = true;
    parts[NumberOf(next)] = PlanPart::Hall;
    cell.ways |= SideBit(side);
    cell.loose &= static_cast<SideBits>(~SideBit(side));
    return true;
}

std::uint32_t HallPlan::CountOpenEnds() const {
    std::uint32_t count = 0;
    for (const PlanCell& cell : plan.cells) {
        count += static_cast<std::uint32_t>(std::popcount(cell.loose));
    }
    return count;
}

std::vector<PieceChange> HallPlan::Changes() const {
    std::vector<PieceChange> changes;
    for (const PlanCell& cell : plan.cells) {
        const Before& was = before[NumberOf(cell)];
        if (cell.tile != was.tile || cell.open != was.open) {
            changes.push_back({plan.PlaceOf(cell), PieceOf(cell, cell.open)});
        }
    }
    return changes;
}

void ApplyChanges(Layout& level, const TileSet& set, const std::vector<PieceChange>& changes) {
    for (const auto& [place, kind] : changes) {
        const DiPtr<GridElmt>& there =
            level.GetElmt(static_cast<std::uint32_t>(place.y), static_cast<std::uint32_t>(place.x));
        if (!kind.IsKnown()) {
            level.SetElmt(nullptr, place.y, place.x);
        } else if (there) {
            there->ReplaceTiles(set.Get(kind));
        } else {
            const auto elmt = MakeDi<GridElmt>();
            elmt->AddTile(set.Get(kind));
            level.SetElmt(elmt, place.y, place.x);
        }
    }
}

} // namespace Tarnex
