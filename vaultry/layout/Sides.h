// SPDX-License-Identifier: MIT
// The four sides of a cell, each with its step and its tiles.
#pragma once

#include <vaultry/catalogue/TileKind.h>
#include <vaultry/foundation/DiPos.h>
#include <vaultry/foundation/Export.h>

#include <array>

namespace Tarnex {

/// One side: everything that differs between north, south, east and west.
struct Side {
    TileDirT dir;      ///< DirN, DirS, DirE or DirW
    TileDirT opposite; ///< of the other end of the axis
    DiPos step;        ///< one cell outward
    TileKind wall;     ///< that faces this side
    TileKind doorway;  ///< in that wall
    TileKind doorjamb; ///< of that doorway
    TileKind door;     ///< in that doorway
    TileKind hallEnd;  ///< the end closed on this side
};

/// The sides in the order N, S, E, W.
VAULTRY_API const std::array<Side, 4>& Sides();

/// The side of a straight facing, or null for any other.
const Side* FindSide(TileDirT dir);

} // namespace Tarnex
