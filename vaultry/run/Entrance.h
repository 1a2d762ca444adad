// SPDX-License-Identifier: MIT
// The two doors by which one enters a dungeon and leaves it.
#pragma once

#include <vaultry/foundation/Di3Point.h>
#include <vaultry/foundation/Export.h>
#include <vaultry/gen/LevelObserver.h>
#include <vaultry/output/CellHead.h>
#include <vaultry/output/Ref.h>
#include <vaultry/run/Arrival.h>
#include <vaultry/run/RunOptions.h>

#include <optional>
#include <string>

namespace Tarnex {

/// Where the outer door stands and what the game knows of the cell around it.
struct EntranceSite {
    CellHead head;          ///< of that cell
    std::string cell;       ///< the name of an interior [Windows-1252]; empty: the world outside
    Di3Point ground;        ///< below the door [world units]
    Di3Point before;        ///< the ground in front of it, where one comes out [world units]
    std::int32_t angle = 0; ///< see EntrancePlace
};

/// Where one stands who comes out of the door of a place, at the height of `ground`. [world units]
Di3Point BeforeDoor(const EntrancePlace& place, double ground);

/// The site that the options ask for without a look at the game's files: a cell in the wilds. Of a
/// place without a height it lies at 0.
EntranceSite WildernessSite(const EntrancePlace& place, const std::string& region);

/// The site that the options, which ask for one, mean: in the game's files or, where they name a
/// region, in the wilds. Throws GameFault, which says what is missing and what may help.
EntranceSite FindEntranceSite(const RunOptions& options);

/// Where the inner door leads: the ground before the outer one, away from it. As Ref::Teleport
/// takes it.
Ref WayOutTo(const EntranceSite& site);

/// The outer door, of that identifier, which leads to an arrival on a level. The middle of the
/// built-in one is above the ground; any other is taken to be set on it.
Ref OuterDoor(const EntranceSite& site, const Arrival& arrival, const std::string& id);

/// Where one stands who came through the door that leads out of a level: before it, facing away.
/// Nothing on a level without such a door.
std::optional<Arrival> ArrivalAtWayOut(const FinishedLevel& level);

} // namespace Tarnex
