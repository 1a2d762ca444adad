// SPDX-License-Identifier: MIT
// Where one can walk on a level, in steps from place to place.
#pragma once

#include <vaultry/gen/LevelObserver.h>
#include <vaultry/output/PathGrid.h>

#include <vector>

namespace Tarnex {

/// The points and ways of a level that was made: at most one point for each cell of its plan, off
/// whatever stands there, and a way each way to those of the neighbours that one walks to straight,
/// past all things with room for a body on either side. Of what can be walked through it is one
/// piece: places that things cut off have no points, nor has what stands on another floor or on a
/// platform. What one reaches by doorways, stairs and doors within the level belongs together.
VAULTRY_API std::vector<PathPoint> PathPointsOf(const FinishedLevel& level);

} // namespace Tarnex
