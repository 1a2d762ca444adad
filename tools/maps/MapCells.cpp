// SPDX-License-Identifier: MIT
#include "tools/maps/MapCells.h"

#include "tools/plugins/LockWords.h"
#include "tools/text/Words.h"

#include <algorithm>
#include <cmath>

namespace Tarnex::Report {

namespace {

bool HasSide(SideBits sides, TileDirT side) {
    return (sides & SideBit(side)) != 0;
}

bool IsArea(const MapCell& cell) {
    return cell.room == 0 && (cell.tile == PlanTile::Room || cell.tile == PlanTile::Stairs);
}

void Extend(MapRoom& room, const DiPos& cell) {
    const DiPos end(std::max(room.origin.x + room.size.x, cell.x + 1),
                    std::max(room.origin.y + room.size.y, cell.y + 1),
                    0);
    room.origin = DiPos(std::min(room.origin.x, cell.x), std::min(room.origin.y, cell.y), 0);
    room.size = DiPos(end.x - room.origin.x, end.y - room.origin.y, 0);
}

void NumberArea(LevelMap& map, MapCell& start) {
    const auto number = static_cast<std::uint32_t>(map.rooms.size() + 1);
    map.rooms.push_back({start.place, DiPos(1, 1, 0), true});
    start.room = number;
    Walk(map, std::vector{&start}, [&](const MapCell& from, MapCell& to, TileDirT side) {
        const bool throughDoorway =
            HasSide(from.doorway, side) || HasSide(to.doorway, OppositeOf(side));
        if (throughDoorway || !IsArea(to)) {
            return false;
        }
        to.room = number;
        Extend(map.rooms.back(), to.place);
        return true;
    });
}

} // namespace

MapCell DrawnCell(const GridElmt& elmt) {
    MapCell cell{PlanCellOf(elmt)};
    for (const DiPtr<Tile>& tile : elmt.tiles) {
        cell.tiles.push_back(Shown(tile->kindName.Text()));
        cell.door = cell.door || IsDoorTile(*tile);
    }
    if (elmt.isTeleport && elmt.teleLayout) {
        cell.leadsTo = Shown(elmt.teleLayout->GetName());
    }
    cell.platform = !elmt.platforms.empty();
    return cell;
}

MapLock DrawnLock(const std::optional<PluginLock>& lock) {
    return lock ? MapLock{IsLocked(*lock), !lock->trap.empty(), LockWords(lock)} : MapLock();
}

MapStand StandOf(const Di3Point& offset, double turn, const Di3Point& size, std::int32_t tileSize) {
    const auto cells = [tileSize](float units) { return double{units} / std::max(tileSize, 1); };
    return {
        cells(offset.x), -cells(offset.y), turn, std::abs(cells(size.x)), std::abs(cells(size.y))};
}

void NumberAreas(LevelMap& map) {
    for (MapCell& cell : map.cells) {
        if (cell.tile == PlanTile::Room && IsArea(cell)) {
            NumberArea(map, cell);
        }
    }
}

void MarkWaysIn(LevelMap& map) {
    for (MapCell& cell : map.cells) {
        cell.waysIn = static_cast<SideBits>(cell.loose & cell.doorway);
        cell.loose = static_cast<SideBits>(cell.loose & ~unsigned{cell.doorway});
    }
}

void JudgeReach(LevelMap& map) {
    const std::vector<bool> reached = ReachedRooms(map, map.rooms.size());
    for (std::size_t i = 0; i < map.rooms.size(); ++i) {
        map.rooms[i].reachable = reached[i];
    }
}

} // namespace Tarnex::Report
