// SPDX-License-Identifier: MIT
// The odds by which random levels are laid out.
#pragma once

#include <vaultry/foundation/DiPos.h>
#include <vaultry/foundation/Export.h>
#include <vaultry/gen/RandomGenInfo.h>

#include <cstdint>
#include <vector>

namespace Tarnex {

/// A room grid that is taken for draws below a threshold.
struct GridOdds {
    double below;
    std::int32_t columns;
    std::int32_t rows;
};

/// The room grids of a level size; a single one is taken without a draw. A size outside the words
/// counts as Random.
VAULTRY_API const std::vector<GridOdds>& RoomGrids(RandomGenInfo::LevelSizeT size);

/// Cells added to each row and column of rooms: lo to hi by chance. hi of 0: none, without a draw.
struct SpacingRange {
    std::int32_t lo;
    std::int32_t hi;

    bool AddsNothing() const { return hi == 0; }
};

/// The spacings that are taken for draws below a threshold.
struct SpacingOdds {
    double below;
    SpacingRange range;
};

/// The spacings of a word; a single one is taken without a draw. A spacing outside the words counts
/// as Random.
VAULTRY_API const std::vector<SpacingOdds>& RoomSpacings(RandomGenInfo::RoomSpacingT spacing,
                                                         bool cave);

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
