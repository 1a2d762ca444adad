// SPDX-License-Identifier: MIT
// What a grid element is and where a passage may enter it.
#pragma once

#include <vaultry/layout/GridElmt.h>

namespace Tarnex {

/// The facing of the element's first tile; DirNone without tiles.
inline TileDirT GetElmtDir(const GridElmt& elmt) {
    const Tile* first = elmt.FirstTile();
    return first == nullptr ? DirNone : GetTileDir(*first);
}

/// The type of the element's first tile; TileNone without tiles.
inline TileType GetElmtType(const GridElmt& elmt) {
    const Tile* first = elmt.FirstTile();
    return first == nullptr ? TileNone : GetTileType(*first);
}

/// The first tile of that type, in list order, or null; it lives as long as the element's handle.
inline Tile* PeekTileOfType(const GridElmt& elmt, TileType type) {
    for (const DiPtr<Tile>& tile : elmt.tiles) {
        if (GetTileType(*tile) == type) {
            return tile.get();
        }
    }
    return nullptr;
}

/// The same as a handle.
inline DiPtr<Tile> FindTileOfType(const GridElmt& elmt, TileType type) {
    return PeekTileOfType(elmt, type);
}

/// Whether the element has a tile of that type.
inline bool HasTileOfType(const GridElmt& elmt, TileType type) {
    return PeekTileOfType(elmt, type) != nullptr;
}

/// Sides of a cell as bits: bit n is the side of value n of TileDirT, in the order N, S, E, W.
using SideBits = std::uint8_t;

/// The bit of a side; `side` is DirN, DirS, DirE or DirW.
constexpr SideBits SideBit(TileDirT side) {
    return static_cast<SideBits>(1U << static_cast<unsigned>(side));
}

/// The sides across which a passage may enter the element. A doorway in a room's north wall opens
/// north, a hall corner on its two open sides, a hall end toward the rest of its hall; everything
/// else opens nowhere.
VAULTRY_API SideBits OpenSides(const GridElmt& elmt);

/// Whether a passage may enter the element across that side (DirN, DirS, DirE or DirW).
inline bool OpensTo(const GridElmt& elmt, TileDirT side) {
    return (OpenSides(elmt) & SideBit(side)) != 0;
}

/// Whether a passage may enter the element across the side that the function names.
/// @{

inline bool OpensNorth(const GridElmt& elmt) {
    return OpensTo(elmt, DirN);
}

inline bool OpensSouth(const GridElmt& elmt) {
    return OpensTo(elmt, DirS);
}

inline bool OpensEast(const GridElmt& elmt) {
    return OpensTo(elmt, DirE);
}

inline bool OpensWest(const GridElmt& elmt) {
    return OpensTo(elmt, DirW);
}

/// @}

} // namespace Tarnex
