// SPDX-License-Identifier: MIT
#include <vaultry/layout/Passages.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/layout/ElmtKind.h>

#include <array>
#include <utility>

namespace Tarnex {

namespace {

constexpr SideBits kAll = 0xF;
constexpr SideBits kNorthSouth = SideBit(DirN) | SideBit(DirS);
constexpr SideBits kEastWest = SideBit(DirE) | SideBit(DirW);

constexpr SideBits Without(SideBits closed) {
    return static_cast<SideBits>(kAll & ~closed);
}

// The sides of a facing: its own for the straight ones, both for a corner.
constexpr std::array<SideBits, 12> kFacingSides = {
    SideBit(DirN),
    SideBit(DirS),
    SideBit(DirE),
    SideBit(DirW),
    SideBit(DirN) | SideBit(DirW),
    SideBit(DirN) | SideBit(DirE),
    SideBit(DirS) | SideBit(DirW),
    SideBit(DirS) | SideBit(DirE),
    kNorthSouth,
    kEastWest,
    kAll,
    0,
};

// A corner with a doorway on one of its two walls stays closed on the other.
constexpr std::array<std::pair<std::string_view, SideBits>, 8> kCornerDoorways = {{
    {Tile_DoorwayNW_W, Without(SideBit(DirN))},
    {Tile_DoorwayNE_N, Without(SideBit(DirE))},
    {Tile_DoorwaySE_E, Without(SideBit(DirS))},
    {Tile_DoorwaySW_S, Without(SideBit(DirW))},
    {Tile_DoorwayNW_N, Without(SideBit(DirW))},
    {Tile_DoorwayNE_E, Without(SideBit(DirN))},
    {Tile_DoorwaySE_S, Without(SideBit(DirE))},
    {Tile_DoorwaySW_W, Without(SideBit(DirS))},
}};

SideBits DoorwaySides(const Tile& tile) {
    if (GetTileDir(tile) != DirNone) {
        return kAll;
    }
    for (const auto& [kind, sides] : kCornerDoorways) {
        if (tile.kindName.Kind().Name() == kind) {
            return sides;
        }
    }
    return kAll;
}

} // namespace

SideBits WalkableSides(const GridElmt& elmt) {
    const SideBits facing = kFacingSides[static_cast<std::size_t>(GetElmtDir(elmt))];
    switch (GetElmtType(elmt)) {
    case TileCenter:
        return kAll;
    case TileCorner:
    case TileWall:
        return Without(facing);
    case TileDoorway:
        return DoorwaySides(*elmt.FirstTile());
    case TileHall:
    case TileHallEnd:
        return OpenSides(elmt);
    case TileNone:
        break;
    }
    return facing; // stairs, or closed all around
}

} // namespace Tarnex
