// SPDX-License-Identifier: MIT
// The decisions of platform placement: how many slabs, from where, which stairs.
#pragma once

#include <vaultry/catalogue/PlatformTile.h>
#include <vaultry/catalogue/Tile.h>

#include <cstdint>
#include <optional>
#include <string_view>

namespace Tarnex {

/// The stairs of a platform and where their free coordinate lies.
struct StairsPlan {
    std::string_view kind; ///< name of the piece
    float Di3Point::*axis; ///< x or y
    float place;           ///< on that axis [world units]
};

/// The slabs of one element's platform: a grid of `columns` by `rows` from (x, y), growing by the
/// slab's size, at the height z. [world units]
struct PlatformPlan {
    std::int32_t columns; ///< 0 for slabs larger than the place, less for a negative size
    std::int32_t rows;    ///< likewise
    float x;              ///< of the first slab
    float y;              ///< of the first slab
    float z;              ///< of all slabs
    std::optional<StairsPlan> stairs; ///< walls have some, corners none
    std::int32_t beamRow;             ///< the row with beams at both ends, or kNoBeams
    std::int32_t beamColumn;          ///< the column with beams at both ends, or kNoBeams

    /// The row or column of beams when there are none.
    static constexpr std::int32_t kNoBeams = -1;
};

/// The height of a platform in cells of that size. [world units]
std::int32_t PlatformHeight(std::int32_t tileSize);

/// The platform along the wall or in the corner that `tile` makes, built of slabs like `floor`;
/// nothing for any other kind of tile.
std::optional<PlatformPlan>
PlanPlatform(const Tile& tile, const PlatformTile& floor, std::int32_t tileSize);

} // namespace Tarnex
