// SPDX-License-Identifier: MIT
#include <vaultry/layout/Sides.h>

#include <vaultry/catalogue/Vocabulary.h>

namespace Tarnex {

const std::array<Side, 4>& Sides() {
    const auto kind = [](std::string_view name) { return TileKind::Of(name); };
    static const std::array<Side, 4> sides = {{
        {DirN,
         DirS,
         {0, -1, 0},
         kind(Tile_nWall),
         kind(Tile_nDoorway),
         kind(Tile_nDoorjamb),
         kind(Tile_nDoor),
         kind(Tile_HallEndN)},
        {DirS,
         DirN,
         {0, 1, 0},
         kind(Tile_sWall),
         kind(Tile_sDoorway),
         kind(Tile_sDoorjamb),
         kind(Tile_sDoor),
         kind(Tile_HallEndS)},
        {DirE,
         DirW,
         {1, 0, 0},
         kind(Tile_eWall),
         kind(Tile_eDoorway),
         kind(Tile_eDoorjamb),
         kind(Tile_eDoor),
         kind(Tile_HallEndE)},
        {DirW,
         DirE,
         {-1, 0, 0},
         kind(Tile_wWall),
         kind(Tile_wDoorway),
         kind(Tile_wDoorjamb),
         kind(Tile_wDoor),
         kind(Tile_HallEndW)},
    }};
    return sides;
}

const Side* FindSide(TileDirT dir) {
    const auto index = static_cast<std::size_t>(dir);
    return index < Sides().size() ? &Sides()[index] : nullptr;
}

} // namespace Tarnex
