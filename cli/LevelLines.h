// SPDX-License-Identifier: MIT
// What is said about the levels of a run.
#pragma once

#include "cli/RunReport.h"

#include <vaultry/gen/GenReport.h>
#include <vaultry/run/Arrival.h>

#include <string>
#include <vector>

namespace Tarnex::Cli {

/// One line per level that was made: its rooms, how many can be reached, openings onto nothing.
std::vector<std::string> LevelLines(const GenReport& report);

/// What is wrong with the levels: rooms that cannot be reached, levels without doors between them,
/// levels that were given up, with the rooms that could not be joined and what may help.
std::vector<std::string> LevelWarnings(const GenReport& report);

/// The same of a fixed interior.
/// @{
std::string InteriorLine(const InteriorReport& interior);
std::vector<std::string> InteriorWarnings(const InteriorReport& interior);
/// @}

/// The levels on which no place to arrive at is free.
std::vector<std::string> ArrivalWarnings(const std::vector<Arrival>& arrivals);

} // namespace Tarnex::Cli
