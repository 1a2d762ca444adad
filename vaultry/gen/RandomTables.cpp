// SPDX-License-Identifier: MIT
#include <vaultry/gen/RandomTables.h>

#include <array>

namespace Tarnex {

namespace {

constexpr double kOtherwise = 2.0; // above every draw

constexpr SpacingRange kNoGaps = {0, 0};

} // namespace

const std::vector<GridOdds>& RoomGrids(RandomGenInfo::LevelSizeT size) {
    // Now and then a level is one long row, so that not all of a size feel alike. A single entry is
    // taken without a draw.
    // In the order of the level sizes.
    static const std::array<std::vector<GridOdds>, 5> grids = {{
        {{0.15, 2, 2},
         {0.2, 1, 6},
         {0.3, 3, 2},
         {0.6, 3, 3},
         {0.85, 4, 3},
         {0.9, 2, 6},
         {0.98, 4, 4},
         {kOtherwise, 5, 4}},
        {{kOtherwise, 2, 2}},
        {{0.1, 1, 6}, {kOtherwise, 3, 2}},
        {{kOtherwise, 3, 3}},
        {{0.1, 6, 2}, {0.4, 4, 3}, {0.9, 4, 4}, {kOtherwise, 4, 5}},
    }};
    const auto index = static_cast<std::size_t>(size);
    return grids[index < grids.size() ? index : 0];
}

const std::vector<SpacingOdds>& RoomSpacings(RandomGenInfo::RoomSpacingT spacing, bool cave) {
    // Caves are spread wider: long tunnels are what one expects of them.
    static const std::vector<SpacingOdds> inCaves = {
        {0.25, kNoGaps}, {0.5, {0, 3}}, {0.75, {2, 5}}, {kOtherwise, {4, 8}}};
    static const std::vector<SpacingOdds> elsewhere = {
        {0.5, kNoGaps}, {0.8, {0, 3}}, {0.95, {2, 4}}, {kOtherwise, {3, 6}}};
    // In the order of the spacings, from Tight on.
    static const std::array<std::vector<SpacingOdds>, 4> given = {{
        {{kOtherwise, kNoGaps}},
        {{kOtherwise, {0, 3}}},
        {{kOtherwise, {2, 5}}},
        {{kOtherwise, {3, 6}}},
    }};
    const auto index = static_cast<std::size_t>(spacing) - 1;
    if (index < given.size()) {
        return given[index];
    }
    return cave ? inCaves : elsewhere;
}

} // namespace Tarnex
