// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/layout/ElmtKind.h>
#include <vaultry/layout/Passages.h>

#include <array>
#include <utility>

namespace Tarnex {

namespace {

constexpr SideBits Bit(TileDirT side) {
    return static_cast<SideBits>(1U << static_cast<unsigned>(side));
}

constexpr SideBits kAll = 0xF;
constexpr SideBits kNorthSouth = Bit(DirN) | Bit(DirS);
constexpr SideBits kEastWest = Bit(DirE) | Bit(DirW);

constexpr SideBits Without(SideBits closed) {
    return static_cast<SideBits>(kAll & ~closed);
}

// The sides of a facing: its own for the straight ones, both for a corner.
constexpr std::array<SideBits, 12> kFacingSides = {
    Bit(DirN),
    Bit(DirS),
    Bit(DirE),
    Bit(DirW),
    Bit(DirN) | Bit(DirW),
    Bit(DirN) | Bit(DirE),
    Bit(DirS) | Bit(DirW),
    Bit(DirS) | Bit(DirE),
    kNorthSouth,
    kEastWest,
    kAll,
    0,
};

// A corner with a doorway on one of its two walls stays closed on the other.
constexpr std::array<std::pair<std::string_view, SideBits>, 8> kCornerDoorways = {{
    {Tile_DoorwayNW_W, Without(Bit(DirN))},
    {Tile_DoorwayNE_N, Without(Bit(DirE))},
    {Tile_DoorwaySE_E, Without(Bit(DirS))},
    {Tile_DoorwaySW_S, Without(Bit(DirW))},
    {Tile_DoorwayNW_N, Without(Bit(DirW))},
    {Tile_DoorwayNE_E, Without(Bit(DirN))},
    {Tile_DoorwaySE_S, Without(Bit(DirE))},
    {Tile_DoorwaySW_W, Without(Bit(DirS))},
}};

SideBits DoorwaySides(const Tile& tile) {
    for (const auto& [kind, sides] : kCornerDoorways) {
        if (tile.kindName.Kind().Name() == kind) {
            return sides;
        }
    }
    return kAll;
}

SideBits HallSides(const GridElmt& elmt) {
    SideBits sides = 0;
    for (const TileDirT side : {DirN, DirS, DirE, DirW}) {
        sides |= OpensTo(elmt, side) ? Bit(side) : SideBits{0};
    }
    return sides;
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
        return HallSides(elmt);
    case TileNone:
        break;
    }
    return facing; // stairs, or closed all around
}

} // namespace Tarnex
