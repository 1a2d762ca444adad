// SPDX-License-Identifier: MIT
// Maps for the terminal.
#pragma once

#include "tools/maps/LevelMap.h"

#include <ostream>

namespace Tarnex::Report {

/// Prints the map, two characters for a cell, without blanks at the ends of lines; below it where
/// doors lead and which rooms cannot be reached. `colour`: with the escape sequences of terminals.
void PrintMap(const LevelMap& map, bool colour, std::ostream& out);

/// Prints what the characters mean.
void PrintMapLegend(std::ostream& out);

} // namespace Tarnex::Report
