// SPDX-License-Identifier: MIT
#include <vaultry/gen/GenHallBase.h>

#include <vaultry/foundation/Numeric.h>
#include <vaultry/foundation/Random.h>

#include <cmath>

namespace Tarnex {

namespace {

// The cells of the level from `first` to `last`, both included.
struct CellRange {
    DiPos first;
    DiPos last;
};

// Both far bounds are inclusive: a room covers one row and one column more than it has.
CellRange CoveredCells(const Layout& room) {
    const auto first = [](float offset) { return TruncToInt(std::ceil(offset)); };
    const auto last = [](float offset, std::int32_t extent) {
        return TruncToInt(std::floor(double{offset} + extent));
    };
    const Di3Point& at = room.GetOffset();
    const DiPos& size = room.GetSize();
    return {DiPos(first(at.x), first(at.y), 0), DiPos(last(at.x, size.x), last(at.y, size.y), 0)};
}

// The first wall or, when there is none, the first doorway.
// An element with both can still be opened at its wall.
const Tile* PeekWallOrDoorway(const GridElmt& elmt) {
    const Tile* doorway = nullptr;
    for (const DiPtr<Tile>& tile : elmt.tiles) {
        const TileType type = GetTileType(*tile);
        if (type == TileWall) {
            return tile.get();
        }
        if (type == TileDoorway && doorway == nullptr) {
            doorway = tile.get();
        }
    }
    return doorway;
}

std::size_t CellIndex(const Layout& main, const DiPos& pos) {
    return static_cast<std::size_t>(pos.y) * main.GetWidth() + static_cast<std::size_t>(pos.x);
}

// The side towards which a distance along one axis leads; null for a distance of 0.
const Side* SideTowards(bool vertical, std::int32_t distance) {
    const TileDirT negative = vertical ? DirN : DirW;
    const TileDirT positive = vertical ? DirS : DirE;
    return distance == 0 ? nullptr : FindSide(distance < 0 ? negative : positive);
}

} // namespace

GenHallBase::GenHallBase(const GenInfo& info_, Layout& main_, const RoomInfo& rooms_)
    : info(info_), main(main_), rooms(rooms_),
      roomAt(main_.GetWidth() * std::size_t{main_.GetHeight()}) {
    for (const DiPtr<Layout>& room : rooms.GetRoomList()) {
        MapRoom(*room);
    }
}

void GenHallBase::MapRoom(const Layout& room) {
    const CellRange cells = CoveredCells(room);
    for (std::int32_t y = cells.first.y; y <= cells.last.y; ++y) {
        for (std::int32_t x = cells.first.x; x <= cells.last.x; ++x) {
            const DiPos pos(x, y, 0);
            // Rooms meet in the row and column that they cover beyond their own; the first one
            // keeps them.
            if (IsInside(pos) && PosToRoom(pos) == nullptr) {
                roomAt[CellIndex(main, pos)] = &room;
            }
        }
    }
}

bool GenHallBase::IsInside(const DiPos& pos) const {
    // Negative places are far outside as unsigned numbers.
    return static_cast<std::uint32_t>(pos.x) < main.GetWidth() &&
           static_cast<std::uint32_t>(pos.y) < main.GetHeight();
}

// Nothing lies beyond, so that nothing may open there.
bool GenHallBase::IsOnBorder(const DiPos& pos) const {
    const DiPos& size = main.GetSize();
    return pos.x <= 0 || pos.y <= 0 || pos.x >= size.x - 1 || pos.y >= size.y - 1;
}

DiPos GenHallBase::FindCenter(const Layout& room) const {
    const DiPos& size = room.GetSize();
    return OriginOf(room) + DiPos(size.x / 2, size.y / 2, 0);
}

const Layout* GenHallBase::PosToRoom(const DiPos& pos) const {
    return roomAt[CellIndex(main, pos)];
}

DiPos GenHallBase::FindForDoorway(const Layout& room, const DiDirection& way) const {
    const bool vertical = way.stepY != 0;
    const Side* ahead = SideTowards(vertical, vertical ? way.stepY : way.stepX);
    // A way without a step has no side ahead; the western one stands in, so that some doorway is
    // found.
    const DiPos found = SearchSide(room, ahead != nullptr ? *ahead : Sides()[DirW], way);
    // (0, 0, 0) can stand for none: on the border no doorway is safe.
    if (!(found == DiPos())) {
        return found;
    }
    const Side* aside = SideTowards(!vertical, vertical ? way.distX : way.distY);
    return aside != nullptr ? SearchSide(room, *aside, way) : DiPos();
}

// From the side inward, line by line. Walls that look aside are taken too if the way leads there,
// so that a room in a corner of the level has a way out.
DiPos GenHallBase::SearchSide(const Layout& room, const Side& side, const DiDirection& way) const {
    const bool byRows = side.step.y != 0;
    const bool fromFar = side.dir == DirS || side.dir == DirE;
    const Side* aside = SideTowards(!byRows, byRows ? way.distX : way.distY);
    const SideBits facings = static_cast<SideBits>(
        SideBit(side.dir) | (aside != nullptr ? SideBit(aside->dir) : SideBits{0}));
    const DiPos& size = room.GetSize();
    const std::int32_t lines = byRows ? size.y : size.x;
    const std::int32_t length = byRows ? size.x : size.y;
    info.meter.Step(std::int64_t{lines} * length);
    std::vector<DiPos> candidates;
    candidates.reserve(static_cast<std::size_t>(lines) + static_cast<std::size_t>(length));
    // Every line, not only the outermost: rooms made by hand have walls inside, and notches.
    for (std::int32_t i = 0; i < lines; ++i) {
        const std::int32_t line = fromFar ? lines - 1 - i : i;
        for (std::int32_t along = 0; along < length; ++along) {
            const DiPos cell = byRows ? DiPos(along, line, 0) : DiPos(line, along, 0);
            AddIfSafe(candidates, room, cell, facings);
        }
    }
    // Nothing is drawn where there is nothing to choose from.
    return candidates.empty() ? DiPos() : DrawOne(candidates);
}

void GenHallBase::AddIfSafe(std::vector<DiPos>& candidates,
                            const Layout& room,
                            const DiPos& cell,
                            SideBits facings) const {
    // The room's own elements, which may differ from the level's after a hall was taken back.
    const Layout::Row& row = room.GetRow(static_cast<std::uint32_t>(cell.y));
    const DiPtr<GridElmt>& elmt = row[static_cast<std::size_t>(cell.x)];
    if (!elmt || elmt->isShadow) {
        return;
    }
    const Tile* tile = PeekWallOrDoorway(*elmt);
    if (tile == nullptr || (facings & SideBit(GetTileDir(*tile))) == 0) {
        return;
    }
    const DiPos pos = OriginOf(room) + cell;
    if (IsSafeForDoor(*tile, pos)) {
        candidates.push_back(pos);
    }
}

bool GenHallBase::IsSafeForDoor(const Tile& tile, const DiPos& pos) const {
    const Side* side = FindSide(GetTileDir(tile));
    // A doorway in a corner has no facing that would tell where outside is.
    if (side == nullptr || IsOnBorder(pos)) {
        return false;
    }
    const GridElmt* outside = ElmtAt(pos + side->step);
    if (outside == nullptr) {
        return true;
    }
    // A part of another room, raised or lowered: its walls are not in this grid to be opened.
    if (outside->isShadow) {
        return false;
    }
    switch (GetElmtType(*outside)) {
        // Rooms back to back get a door between them.
    case TileWall:
    case TileDoorway:
        return true;
        // A hall that runs past would be cut open from the side; only one that leads here is met.
    case TileHall:
        return OpensTo(*outside, side->opposite);
    default:
        return false;
    }
}

// True when the neighbours on the side and on the opposite one both open towards the piece.
bool GenHallBase::IsThroughHall(const DiPos& pos, const Side& side) const {
    // Whatever shape the neighbours have, only their openings count: a doorway joins as a hall
    // does.
    const Side& back = *FindSide(side.opposite);
    const GridElmt* ahead = ElmtAt(pos + side.step);
    const GridElmt* behind = ElmtAt(pos + back.step);
    if (ahead == nullptr || behind == nullptr) {
        return false;
    }
    return OpensTo(*ahead, side.opposite) && OpensTo(*behind, side.dir);
}

CvtAction GenHallBase::CanInPlaceCvt(const DiPos& pos) const {
    const GridElmt* elmt = ElmtAt(pos);
    if (elmt == nullptr || elmt->isShadow) {
        return CvtNone;
    }
    const TileType type = GetElmtType(*elmt);
    // An end has one opening; a corner adds another.
    if (type == TileHallEnd) {
        return CvtCorner;
    }
    if (type != TileHall) {
        return CvtNone;
    }
    switch (GetElmtDir(*elmt)) {
    case DirN:
    case DirS:
    case DirNS:
        // Other halls may use a piece with both ends joined, so its openings must stay.
        return IsThroughHall(pos, Sides()[DirN]) ? CvtFourWay : CvtCorner;
    case DirE:
    case DirW:
    case DirEW:
        return IsThroughHall(pos, Sides()[DirE]) ? CvtFourWay : CvtCorner;
    case DirNW:
    case DirNE:
    case DirSW:
    case DirSE:
        return CvtCorner;
    default:
        return CvtNone;
    }
}

} // namespace Tarnex
