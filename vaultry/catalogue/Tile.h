// SPDX-License-Identifier: MIT
// One model piece that fills a cell of a layout grid.
#pragma once

#include <vaultry/catalogue/TileKind.h>
#include <vaultry/foundation/Di3Point.h>
#include <vaultry/foundation/DiRcObject.h>

#include <string>

namespace Tarnex {

/// How much of its cell a tile covers.
enum TileArea : std::int32_t {
    AreaFull = 0,    ///< the whole cell
    AreaHalf = 1,    ///< a wall that stands on the centre line of its cell
    AreaQuarter = 2, ///< a corner whose two walls meet in the centre of its cell
};

/// A wall, corner, doorway, door, hall piece, stair or floor centre of a tile set.
///
/// Pieces face north as they are drawn. Where a piece stands: its offset is added to the
/// north-south and east-west place of its cell and to the height of its layout, and nothing is
/// checked, so that a piece may reach into the next cell.
struct VAULTRY_API Tile : public DiRcObject {
    std::string id;               ///< object identifier written into the plug-in
    std::int32_t area = AreaFull; ///< a value of TileArea
    TileKindName kindName;        ///< the name under which the set files it
    std::int32_t zRotate = 0;     ///< clockwise from above [degrees, whole, not normalised]
    std::int32_t deltaZ = 0;      ///< height climbed by a stair piece [world units]
    Di3Point offset;              ///< from the cell's reference point [world units]
    /// Of the model. The game shows it at the nearer of 0.5 and 2; the plug-in has the number as it
    /// is.
    float scale = 1.0F;
    /// Kind name of a companion placed together with this one; empty for none, and one that the set
    /// lacks is left out without a word.
    TileKindName requiredName;

    /// The identifier as a C string, which lives as long as the tile is not changed. Never null;
    /// empty when the configuration gives none, and written as it is.
    const char* ID() const { return id.c_str(); }
    /// Whether the tile covers its whole cell.
    bool IsFullSize() const { return area == AreaFull; }
};

/// The facing of the tile's kind; DirNone when it has none.
inline TileDirT GetTileDir(const Tile& tile) {
    return tile.kindName.Kind().Dir();
}

/// The type of the tile's kind; TileNone when it has none.
inline TileType GetTileType(const Tile& tile) {
    return tile.kindName.Kind().Type();
}

/// True for the four doors, which carry the teleport of a teleporting door. Doorways and jambs are
/// none: they are the hole in the wall and its frame.
VAULTRY_API bool IsDoorTile(const Tile& tile);

} // namespace Tarnex
