// SPDX-License-Identifier: MIT
// What a grid element is and where a passage may enter it.
#pragma once

#include <vaultry/layout/GridElmt.h>

namespace Tarnex {

/// The facing of the element's first tile; DirNone without tiles.
VAULTRY_API TileDirT GetElmtDir(const GridElmt& elmt);

/// The type of the element's first tile; TileNone without tiles.
VAULTRY_API TileType GetElmtType(const GridElmt& elmt);

/// The first tile of that type, in list order, or null.
VAULTRY_API DiPtr<Tile> FindTileOfType(const GridElmt& elmt, TileType type);
VAULTRY_API bool HasTileOfType(const GridElmt& elmt, TileType type);

/// Whether a passage may enter the element across that side (DirN, DirS, DirE or DirW). A doorway
/// in a room's north wall opens north, a hall corner on its two open sides, a hall end toward the
/// rest of its hall; everything else opens nowhere.
VAULTRY_API bool OpensTo(const GridElmt& elmt, TileDirT side);

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

} // namespace Tarnex
