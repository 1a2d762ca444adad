// SPDX-License-Identifier: MIT
// The choice of the place where a dungeon can be left.
#pragma once

#include <vaultry/catalogue/TileSet.h>
#include <vaultry/gen/GenReport.h>
#include <vaultry/layout/Layout.h>
#include <vaultry/layout/Sides.h>

#include <optional>

namespace Tarnex {

/// A door that leads out, or a wall that is to have one.
struct WayOutPlace {
    DiPos place;                ///< on the level [cells]
    const Side* side = nullptr; ///< the door's, not null
    bool isDoor = false;        ///< it has a door already
};

/// Where the way out of a level is: in a wall of the first room that has a bare one, or of a room
/// that one can walk to from there; among those the one with the fewest things around, best with
/// nothing behind it. One comes to it from inside, and nothing stands at it. Where every wall has
/// something it is one whose furniture can go, without a container or a creature. A fixed interior,
/// without a report, has its way out where its author drew a door onto nothing, if there is one.
/// Nothing where there is no such wall, or where the tile set has no door for it.
std::optional<WayOutPlace>
ChooseWayOut(const Layout& level, const TileSet& set, const LevelReport* report);

} // namespace Tarnex
