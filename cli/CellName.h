// SPDX-License-Identifier: MIT
// What the game makes of a cell's name.
#pragma once

#include "cli/Options.h"

#include <string>
#include <vector>

namespace Tarnex::Cli {

/// One line for each thing that the name asked for loses in the game: letters that Windows-1252
/// lacks, and bytes beyond the 63 of a cell's name, the numbers of several levels included.
std::vector<std::string> CellNameWarnings(const GenerateOptions& options);

} // namespace Tarnex::Cli
