// SPDX-License-Identifier: MIT
// Where keys have to lie so that every locked door can be opened.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace Tarnex {

/// Where a door leads that leaves the level.
inline constexpr std::size_t kAway = ~std::size_t{0};

/// A door that could be locked, between two places of a site.
struct SiteDoor {
    std::size_t from = 0;
    std::size_t to = 0; ///< may be kAway
};

/// A level by its doors: a place is all that hangs together without passing one of them.
struct LockSite {
    std::size_t places = 0;          ///< their number
    std::vector<SiteDoor> doors;     ///< in the order in which they are to be locked
    std::vector<std::size_t> chests; ///< the place of each container that could hold a key
    std::vector<std::size_t> starts; ///< the places where somebody may come in, at least one
};

/// What is to be locked.
struct KeyPlan {
    /// For each door the chest that holds its key; nothing for a door that is not locked.
    std::vector<std::optional<std::size_t>> keys;
    std::vector<bool> reached; ///< for each place whether one comes there from a start
};

/// Locks of the doors that are `wanted` (for each door whether) those that have a place for a key.
/// Whoever comes in at any start, opens only what he has the key of, and takes the keys out of all
/// chests that he gets at, comes to open every locked door:
///
///   - the key of a door lies where one gets without passing that door, nor one whose key lies
///     behind it,
///   - no locked door stands between two starts that hang together,
///   - a door for which there is no such chest is not locked, nor is one that nobody gets to.
///
/// `choose` is asked for one of so many chests, from 0, once for each door that is locked; doors
/// come in the order in which one gets to them, of several at a time the first.
VAULTRY_API KeyPlan PlanKeys(const LockSite& site,
                             const std::vector<bool>& wanted,
                             const std::function<std::size_t(std::size_t)>& choose);

} // namespace Tarnex
