// SPDX-License-Identifier: MIT
// What is wrong with a level as it stands on a stage, without an engine.
#pragma once

#include "tests/tools/stage/StageLevel.h"

#include <string>
#include <vector>

namespace Tarnex::Test {

enum class Fault {
    Way,   ///< the plan joins two cells, but one does not get across
    Wall,  ///< the plan joins them not, but one gets across
    Hole,  ///< a look out of the level, and not by an opening that the program counts
    Thing, ///< something stands in a wall
    Leaf,  ///< a door swings through a wall or a thing, or hangs beside its doorway
};

struct FaultAt {
    Fault fault;
    std::string words; ///< for messages
};

/// Looks at all that the plan says can be walked to from the place where one arrives.
std::vector<FaultAt> FaultsOf(const StageLevel& level);

} // namespace Tarnex::Test
