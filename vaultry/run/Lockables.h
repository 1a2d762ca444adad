// SPDX-License-Identifier: MIT
// What can be locked on a level.
#pragma once

#include <vaultry/gen/LevelObserver.h>
#include <vaultry/layout/LevelPlan.h>

#include <cstddef>
#include <vector>

namespace Tarnex {

/// A door in a doorway of the level's plan.
struct LockableDoor {
    DiPos place;                     ///< its cell
    TileDirT side = DirN;            ///< of the cell, across which it stands
    const GridElmt* elmt;            ///< of its cell; not null
    std::vector<std::size_t> leaves; ///< their places among the cell's references, one at least
};

/// A container.
struct LockableChest {
    DiPos place;         ///< its cell, if that is on the plan
    bool within = false; ///< it stands on the even floor of a cell of the plan
    std::size_t ref = 0; ///< its place among the cell's references
};

/// What can be locked on a level, in the order of its references. All of it lives as long as the
/// level.
struct Lockables {
    std::vector<LockableDoor> doors;
    std::vector<LockableChest> chests;
};

/// Finds the doors and containers of a level that was made. A door counts whose leaves stand in a
/// doorway that the plan knows, all across the side that the doorway opens to; of the others nobody
/// could say which way they bar.
/// @{
VAULTRY_API Lockables LockablesOf(const FinishedLevel& level);
/// By a plan that is there already.
Lockables LockablesOf(const FinishedLevel& level, const LevelPlan& plan);
/// @}

} // namespace Tarnex
