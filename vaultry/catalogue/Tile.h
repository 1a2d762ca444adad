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
    AreaFull = 0,
    AreaHalf = 1,
    AreaQuarter = 2,
};

/// A wall, corner, doorway, door, hall piece, stair or floor centre of a tile set.
struct VAULTRY_API Tile : public DiRcObject {
    std::string id; ///< object identifier written into the plug-in
    std::int32_t area = AreaFull;
    TileKindName kindName;    ///< the name under which the set files it
    std::int32_t zRotate = 0; ///< clockwise from above [degrees, whole, not normalised]
    std::int32_t deltaZ = 0;  ///< height climbed by a stair piece [world units]
    Di3Point offset;          ///< from the cell's reference point [world units]
    float scale = 1.0F;
    TileKindName requiredName; ///< kind name of a companion placed together with this one

    const char* ID() const { return id.c_str(); }
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

/// True for the four doors, which carry the teleport of a teleporting door.
VAULTRY_API bool IsDoorTile(const Tile& tile);

} // namespace Tarnex
