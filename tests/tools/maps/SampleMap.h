// SPDX-License-Identifier: MIT
// A small hand-made level: a room with a door to the south, a hall that ends in nothing, stairs.
#pragma once

#include "tools/maps/LevelMap.h"

#include <utility>
#include <vector>

namespace Tarnex::Test {

/// The sides that are open, by letters: Open("NS").
inline SideBits Open(std::string_view letters) {
    unsigned sides = 0;
    for (const char letter : letters) {
        sides |= 1U << std::string_view("NSEW").find(letter);
    }
    return static_cast<SideBits>(sides);
}

inline Report::MapCell Cell(PlanTile tile, std::string_view open) {
    Report::MapCell cell;
    cell.tile = tile;
    cell.open = Open(open);
    cell.sameFloor = true;
    return cell;
}

/// Makes the grid of a map of its cells, row by row.
inline void SetCells(Report::LevelMap& map,
                     std::int32_t width,
                     std::int32_t height,
                     std::vector<Report::MapCell> cells) {
    std::vector<DiPos> places;
    for (std::int32_t y = 0; y < height; ++y) {
        for (std::int32_t x = 0; x < width; ++x) {
            places.emplace_back(x, y, 0);
        }
    }
    map.Frame(places);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        cells[i].place = places[i];
    }
    map.cells = std::move(cells);
}

/// The levels of a drawing.
inline Report::MapCollector Levels(std::vector<Report::LevelMap> maps) {
    Report::MapCollector levels;
    levels.Maps() = std::move(maps);
    return levels;
}

inline Report::LevelMap SampleMap() {
    Report::LevelMap map;
    map.name = "Vault <1> & more";
    map.tileSet = "Stone";
    map.tileSize = 256;
    SetCells(map,
             4,
             4,
             {Cell(PlanTile::Room, "SE"),
              Cell(PlanTile::Room, "SEW"),
              Cell(PlanTile::Room, "SW"),
              Cell(PlanTile::Stairs, "NS"),
              Cell(PlanTile::Room, "NSE"),
              Cell(PlanTile::Room, "NSEW"),
              Cell(PlanTile::Room, "NSW"),
              {},
              Cell(PlanTile::Room, "NE"),
              Cell(PlanTile::Room, "NSEW"),
              Cell(PlanTile::Room, "NW"),
              {},
              {},
              Cell(PlanTile::Hall, "NE"),
              Cell(PlanTile::Hall, "EW"),
              {}});
    map.rooms = {{DiPos(0, 0, 0), DiPos(3, 3, 0), true}};
    for (std::int32_t i = 0; i < 9; ++i) {
        map.Held(i % 3, i / 3).room = 1;
    }
    map.Held(1, 2).doorway = Open("S");
    map.Held(1, 2).door = true;
    map.Held(1, 2).tiles = {"DoorwayS", "DoorS"};
    map.Held(0, 0).contents = {{Report::MapSign::Rug, "rug_01"},
                               {Report::MapSign::Container, "chest <big>"}};
    map.Held(1, 0).contents = {{Report::MapSign::Tapestry, "tapestry_01"}};
    map.Held(2, 1).contents = {{Report::MapSign::Furniture, "table_01"},
                               {Report::MapSign::Creature, "rat"}};
    map.Held(2, 2).contents = {{Report::MapSign::Other, "thing"}};
    map.Held(2, 3).loose = Open("E");
    return map;
}

} // namespace Tarnex::Test
