// SPDX-License-Identifier: MIT
// The odds by which random levels are laid out.
#pragma once

#include <vaultry/foundation/DiPos.h>
#include <vaultry/gen/RandomGenInfo.h>

#include <cstdint>
#include <vector>

namespace Tarnex {

/// A room grid that is taken for draws below a threshold.
struct GridOdds {
    double below;         ///< the threshold; that of the last row lies above every draw
    std::int32_t columns; ///< slots from west to east
    std::int32_t rows;    ///< slots from north to south
};

/// The room grids of a level size; a single one is taken without a draw. A size outside the words
/// counts as Random.
const std::vector<GridOdds>& RoomGrids(RandomGenInfo::LevelSizeT size);

/// The spacings that are taken for draws below a threshold.
struct SpacingOdds {
    double below;       ///< the threshold; that of the last row lies above every draw
    SpacingRange range; ///< the gaps
};

/// The spacings of a word; a single one is taken without a draw. A spacing outside the words counts
/// as Random.
const std::vector<SpacingOdds>& RoomSpacings(RandomGenInfo::RoomSpacingT spacing, bool cave);

/// The row whose threshold lies above the draw, or the last one.
template <typename Row>
const Row& PickBelow(const std::vector<Row>& rows, double draw) {
    for (const Row& row : rows) {
        if (draw < row.below) {
            return row;
        }
    }
    return rows.back();
}

} // namespace Tarnex
