// SPDX-License-Identifier: MIT
// Maps for programs that draw their own.
#pragma once

#include "tools/maps/LevelMap.h"

#include <string>

namespace Tarnex::Report {

/// The levels of a run as one JSON object: of each its cells that hold something, its rooms, and
/// everything that is placed, where it stands in the world. `mod` holds a cell for each level, in
/// their order.
std::string ToJson(MapLevels& levels, const Mod& mod);

} // namespace Tarnex::Report
