// SPDX-License-Identifier: MIT
// Maps for the terminal.
#pragma once

#include "tools/maps/LevelMap.h"

#include <cstddef>
#include <ostream>

namespace Tarnex::Report {

/// What a map is printed on.
struct TextPage {
    bool colour = false;     ///< takes the escape sequences of terminals
    std::size_t columns = 0; ///< that a line may have; 0: any number
};

/// Prints the map, two characters for a cell, without blanks at the ends of lines; below it where
/// doors lead and which rooms cannot be reached. What is wider than the page is printed with one
/// character for a cell, and cut if need be, which a line below tells.
void PrintMap(const LevelMap& map, const TextPage& page, std::ostream& out);

/// Prints what the characters mean.
void PrintMapLegend(std::ostream& out);

} // namespace Tarnex::Report
