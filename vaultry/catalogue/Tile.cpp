// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/Tile.h>

#include <vaultry/catalogue/Vocabulary.h>

#include <algorithm>
#include <array>

namespace Tarnex {

bool IsDoorTile(const Tile& tile) {
    static const std::array doors = {TileKind::Of(Tile_nDoor),
                                     TileKind::Of(Tile_sDoor),
                                     TileKind::Of(Tile_eDoor),
                                     TileKind::Of(Tile_wDoor)};
    return std::ranges::find(doors, tile.kindName.Kind()) != doors.end();
}

} // namespace Tarnex
