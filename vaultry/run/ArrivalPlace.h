// SPDX-License-Identifier: MIT
// The choice of the place where one arrives on a level.
#pragma once

#include <vaultry/catalogue/ContentTemplate.h>
#include <vaultry/gen/LevelObserver.h>
#include <vaultry/layout/LevelPlan.h>
#include <vaultry/run/Arrival.h>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace Tarnex {

/// Something that one must not stand in.
struct Obstacle {
    Di3Point place;      ///< of its middle [world units]
    double reach = 64.0; ///< how far from there it may fill the floor [world units]
};

/// The obstacle that content makes: the circle around its box, whichever way that is turned, or the
/// usual one where the content has no size. Nothing for what lies flat on the floor.
VAULTRY_API std::optional<Obstacle> ObstacleOf(const ContentBase& content, const Di3Point& place);

/// Where a level lies in the world.
struct Ground {
    Di3Point corner;           ///< the middle of the cell at (0, 0) of the plan [world units]
    std::int32_t tileSize = 0; ///< edge of a cell [world units]
    double feet = 0.0;         ///< of somebody who stands, above the middle of a cell [world units]
};

/// The height of somebody's feet above the middle of a cell: that of the first creature of the
/// configuration, whose author knows where its floors are; without one, null, the middle itself,
/// where doors between levels let one arrive. [world units]
VAULTRY_API double FeetHeight(const ContentTemplate* creature, std::int32_t tileSize);

/// The ground of a level that was made.
Ground GroundOf(const FinishedLevel& level);

/// The way one looks at a side, one of kSides: clockwise from north. [whole degrees]
std::int32_t FacingOf(TileDirT side);

/// One cell as a place to stand.
struct StandingCell {
    DiPos place;               ///< on the plan
    bool good = false;         ///< the floor is as an Arrival's should be
    bool reduced = false;      ///< see PlanCell
    SideBits open = 0;         ///< see PlanCell
    std::array<int, 4> view{}; ///< cells of floor ahead by side, up to kLongestView
};

/// The feet of somebody who stands in the middle of a cell, of a reduced one in that of its floor.
Di3Point FeetAt(const StandingCell& cell, const Ground& ground);

/// The place where one arrives best, without level and name: where nothing stands within a body's
/// width, not at a wall, away from things and with floor ahead, in this order. A thing counts in
/// the four cells all around its own. Nothing when there are no cells.
VAULTRY_API std::optional<Arrival> BestArrival(const std::vector<StandingCell>& cells,
                                               const std::vector<Obstacle>& obstacles,
                                               const Ground& ground);

/// More floor ahead makes a view no better. [cells]
inline constexpr int kLongestView = 8;

/// The cells of a LevelPlan, or of a grid like it, whose neighbours are joined. `isReachable` tells
/// of a cell whether one can walk to it.
template <typename Grid, typename IsReachable>
std::vector<StandingCell> StandingCells(const Grid& plan, const IsReachable& isReachable) {
    const auto isFloor = [](const PlanCell& cell) {
        return cell.tile == PlanTile::Room && cell.even && cell.doorway == 0;
    };
    std::vector<StandingCell> cells;
    for (const auto& cell : plan.cells) {
        if (cell.tile == PlanTile::Empty) {
            continue;
        }
        StandingCell& standing = cells.emplace_back();
        standing.place = plan.PlaceOf(cell);
        standing.good = isFloor(cell) && isReachable(cell);
        standing.reduced = cell.reduced;
        standing.open = cell.open;
        for (const Side& side : Sides()) {
            const auto* at = &cell;
            int& view = standing.view[static_cast<std::size_t>(side.dir)];
            while (view < kLongestView && (at->ways & SideBit(side.dir)) != 0) {
                at = plan.Next(*at, side.dir);
                if (!isFloor(*at)) {
                    break;
                }
                ++view;
            }
        }
    }
    return cells;
}

/// Where one arrives on a level that was made; nothing on an empty one.
std::optional<Arrival> ArrivalOf(const FinishedLevel& level);

} // namespace Tarnex
