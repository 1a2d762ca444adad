// SPDX-License-Identifier: MIT
// Closing what opens onto nothing.
#pragma once

#include <vaultry/gen/HallPlan.h>
#include <vaultry/gen/RunMeter.h>

namespace Tarnex {

/// Closes the openings of a level that lead nowhere, row by row, where the set has a piece for it.
/// A doorway becomes the wall that it was cut into. A hall gets the piece that is open on
/// its other sides alone, and goes where there are none. No set has a piece with three openings: a
/// junction with one side too many gets an end there, in the next cell. Where that is taken, the
/// junction gives up another of its ways, so that two are left: a dead end before one that closes a
/// second such junction, before a hall and before a doorway, and only if one comes round to the
/// other side of it still. What was joined stays joined. Draws nothing.
void CloseOpenings(HallPlan& plan, RunMeter& meter);

} // namespace Tarnex
