// SPDX-License-Identifier: MIT
// What a grid element is and where a passage may enter it.
#pragma once

#include <vaultry/layout/GridElmt.h>

#include <array>

namespace Tarnex {

/// The facing of the element's first tile; DirNone without tiles. What stands behind the first tile
/// does not count: a centre with a wall on it faces all sides.
inline TileDirT GetElmtDir(const GridElmt& elmt) {
    const Tile* first = elmt.FirstTile();
    return first == nullptr ? DirNone : GetTileDir(*first);
}

/// The type of the element's first tile; TileNone without tiles. Stairs have none, whatever else
/// they are.
inline TileType GetElmtType(const GridElmt& elmt) {
    const Tile* first = elmt.FirstTile();
    return first == nullptr ? TileNone : GetTileType(*first);
}

/// The first tile of that type, in list order, or null; it lives as long as the element's handle.
/// Without a count, for loops over whole levels.
inline Tile* PeekTileOfType(const GridElmt& elmt, TileType type) {
    for (const DiPtr<Tile>& tile : elmt.tiles) {
        if (GetTileType(*tile) == type) {
            return tile.get();
        }
    }
    return nullptr;
}

/// The same as a handle. It holds the tile even when the element goes.
inline DiPtr<Tile> FindTileOfType(const GridElmt& elmt, TileType type) {
    return PeekTileOfType(elmt, type);
}

/// Whether the element has a tile of that type. All tiles are looked at, not the first alone: a
/// cell may hold a piece of a hall and a doorway.
inline bool HasTileOfType(const GridElmt& elmt, TileType type) {
    return PeekTileOfType(elmt, type) != nullptr;
}

/// Sides of a cell as bits: bit n is the side of value n of TileDirT, in the order N, S, E, W.
using SideBits = std::uint8_t;

/// The bit of a side; `side` is DirN, DirS, DirE or DirW. Other facings are no sides and must not
/// be asked for.
constexpr SideBits SideBit(TileDirT side) {
    return static_cast<SideBits>(1U << static_cast<unsigned>(side));
}

/// The sides of a cell, in the order of their bits.
inline constexpr std::array<TileDirT, 4> kSides = {DirN, DirS, DirE, DirW};

/// The side at the other end of the axis; `side` is one of kSides.
constexpr TileDirT OppositeOf(TileDirT side) {
    return static_cast<TileDirT>(side ^ 1);
}

/// The sides across which a passage may enter the element. A doorway in a room's north wall opens
/// north, a hall corner on its two open sides, a hall end toward the rest of its hall; everything
/// else opens nowhere. The facing and the type are those of the first tile. Whether one can really
/// walk there depends on the neighbour, which has to be open on its side too.
VAULTRY_API SideBits OpenSides(const GridElmt& elmt);

/// Whether a passage may enter the element across that side (DirN, DirS, DirE or DirW).
inline bool OpensTo(const GridElmt& elmt, TileDirT side) {
    return (OpenSides(elmt) & SideBit(side)) != 0;
}

/// Whether a passage may enter the element across the side that the function names.
/// @{

/// Of a doorway in a northern wall, for one.
inline bool OpensNorth(const GridElmt& elmt) {
    return OpensTo(elmt, DirN);
}

/// Of a hall end that closes a hall in the north, for one.
inline bool OpensSouth(const GridElmt& elmt) {
    return OpensTo(elmt, DirS);
}

/// Of a hall corner that is closed to the north and west, for one.
inline bool OpensEast(const GridElmt& elmt) {
    return OpensTo(elmt, DirE);
}

/// Of a hall from east to west, for one.
inline bool OpensWest(const GridElmt& elmt) {
    return OpensTo(elmt, DirW);
}

/// @}

} // namespace Tarnex
