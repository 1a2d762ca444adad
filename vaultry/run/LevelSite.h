// SPDX-License-Identifier: MIT
// A level as its doors part it.
#pragma once

#include <vaultry/layout/LevelPlan.h>
#include <vaultry/run/KeyPlan.h>
#include <vaultry/run/Lockables.h>

#include <cstddef>
#include <functional>
#include <vector>

namespace Tarnex {

/// A level's doors and containers, and the site that they make.
struct LevelSite {
    LockSite site;
    std::vector<const LockableDoor*> doors;   ///< of the site
    std::vector<const LockableChest*> chests; ///< of the site
    /// For each cell of the plan the place that it belongs to; kAway where nobody walks.
    std::vector<std::size_t> placeOf;
};

/// Parts the floor of a level by its doors. The site has the doors that lead somewhere, from one
/// cell to the next or, where `leadsOn` says so of a teleporting one, away from the level; the
/// containers that one can get at; and no starts yet. Doors and containers are those of `things`,
/// which has to outlive the answer.
VAULTRY_API LevelSite SiteOf(const LevelPlan& plan,
                             const Lockables& things,
                             const std::function<bool(const LockableDoor&)>& leadsOn);

} // namespace Tarnex
