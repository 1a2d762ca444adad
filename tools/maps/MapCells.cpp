// SPDX-License-Identifier: MIT
#include "tools/maps/MapCells.h"

#include "tools/text/Words.h"

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/gen/ContentPlace.h>
#include <vaultry/gen/Sides.h>
#include <vaultry/layout/Passages.h>

#include <algorithm>
#include <string_view>

namespace Tarnex::Report {

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

MapTile TileOf(const GridElmt& elmt) {
    switch (GetElmtType(elmt)) {
    case TileHall:
    case TileHallEnd:
        return MapTile::Hall;
    case TileNone:
        return MapTile::Stairs;
    default:
        return MapTile::Room;
    }
}

// Behind a teleporting door is another level, whatever stands there on this one.
SideBits Ways(const MapCell& cell) {
    return static_cast<SideBits>(cell.open & ~(cell.teleport ? cell.doorway : 0));
}

bool HasSide(SideBits sides, TileDirT side) {
    return (sides & SideBit(side)) != 0;
}

bool CanPass(const LevelMap& map, const DiPos& from, const Side& side) {
    const DiPos to = from + side.step;
    return map.IsInside(to.x, to.y) && map.At(to.x, to.y).sameFloor &&
           HasSide(Ways(map.At(from.x, from.y)), side.dir) &&
           HasSide(Ways(map.At(to.x, to.y)), side.opposite);
}

// The cells around that `enters` lets one walk to, and their neighbours, and so on.
template <typename Enters>
void Flood(const LevelMap& map, std::vector<DiPos> open, const Enters& enters) {
    while (!open.empty()) {
        const DiPos from = open.back();
        open.pop_back();
        for (const Side& side : Sides()) {
            const DiPos to = from + side.step;
            if (CanPass(map, from, side) && enters(from, to, side)) {
                open.push_back(to);
            }
        }
    }
}

bool IsArea(const MapCell& cell) {
    return cell.room == 0 && (cell.tile == MapTile::Room || cell.tile == MapTile::Stairs);
}

void Extend(MapRoom& room, const DiPos& cell) {
    const DiPos end(std::max(room.origin.x + room.size.x, cell.x + 1),
                    std::max(room.origin.y + room.size.y, cell.y + 1),
                    0);
    room.origin = DiPos(std::min(room.origin.x, cell.x), std::min(room.origin.y, cell.y), 0);
    room.size = DiPos(end.x - room.origin.x, end.y - room.origin.y, 0);
}

void NumberArea(LevelMap& map, const DiPos& start) {
    const std::size_t number = map.rooms.size() + 1;
    map.rooms.push_back({start, DiPos(1, 1, 0), true});
    map.Held(start.x, start.y).room = number;
    Flood(map, {start}, [&](const DiPos& from, const DiPos& to, const Side& side) {
        const bool throughDoorway = HasSide(map.At(from.x, from.y).doorway, side.dir) ||
                                    HasSide(map.At(to.x, to.y).doorway, side.opposite);
        if (throughDoorway || !IsArea(map.At(to.x, to.y))) {
            return false;
        }
        map.Held(to.x, to.y).room = number;
        Extend(map.rooms.back(), to);
        return true;
    });
}

} // namespace

MapCell DrawnCell(const GridElmt& elmt) {
    MapCell cell;
    cell.tile = TileOf(elmt);
    cell.open = WalkableSides(elmt);
    cell.loose = OpenSides(elmt);
    if (const Tile* doorway = PeekTileOfType(elmt, TileDoorway)) {
        cell.doorway = DoorwaySide(*doorway);
    }
    for (const DiPtr<Tile>& tile : elmt.tiles) {
        cell.tiles.push_back(Shown(tile->kindName.Text()));
        cell.door = cell.door || IsDoorTile(*tile);
    }
    cell.teleport = elmt.isTeleport;
    if (elmt.isTeleport && elmt.teleLayout) {
        cell.leadsTo = Shown(elmt.teleLayout->GetName());
    }
    cell.platform = !elmt.platforms.empty();
    for (const DiPtr<ContentItem>& item : elmt.contents) {
        cell.contents.push_back({SortOf(*item), Shown(item->uniqueName)});
    }
    return cell;
}

void FindLooseEnds(LevelMap& map) {
    for (MapCell& cell : map.cells) {
        if (!cell.sameFloor) {
            cell.loose = 0;
        }
        cell.loose = static_cast<SideBits>(cell.loose & Ways(cell));
        for (const Side& side : Sides()) {
            if (CanPass(map, cell.place, side)) {
                cell.loose = static_cast<SideBits>(cell.loose & ~SideBit(side.dir));
            }
        }
    }
}

void NumberAreas(LevelMap& map) {
    for (const MapCell& cell : map.cells) {
        if (cell.tile == MapTile::Room && IsArea(cell)) {
            NumberArea(map, cell.place);
        }
    }
}

void JudgeReach(LevelMap& map) {
    std::vector<bool> visited(map.cells.size());
    const auto number = [&map](const DiPos& place) {
        return static_cast<std::size_t>(&map.At(place.x, place.y) - map.cells.data());
    };
    const auto visit = [&](const DiPos& /*from*/, const DiPos& to, const Side& /*side*/) {
        auto seen = visited[number(to)];
        const bool isNew = !seen;
        seen = true;
        return isNew;
    };
    std::vector<DiPos> start;
    for (const MapCell& cell : map.cells) {
        if (cell.room == 1) {
            visited[number(cell.place)] = true;
            start.push_back(cell.place);
        }
    }
    Flood(map, start, visit);
    for (MapRoom& room : map.rooms) {
        room.reachable = false;
    }
    for (const MapCell& cell : map.cells) {
        if (cell.room > 0 && (visited[number(cell.place)] || !cell.sameFloor)) {
            map.rooms[cell.room - 1].reachable = true;
        }
    }
}

} // namespace Tarnex::Report
