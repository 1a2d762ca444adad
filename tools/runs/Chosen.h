// SPDX-License-Identifier: MIT
// What chance chose for the levels of a run, in words.
#pragma once

#include <vaultry/gen/GenReport.h>

#include <string>
#include <vector>

namespace Tarnex::Report {

/// The tile set and the themes of each level that were left to chance, a line for a level that has
/// any: `level 1 by chance: theme "Noble hall"`. UTF-8.
std::vector<std::string> ChosenNames(const GenReport& report, const RandomGenInfo& asked);

/// Likewise, with size and spacing, which maps show without words.
std::vector<std::string> ChosenLines(const GenReport& report, const RandomGenInfo& asked);

} // namespace Tarnex::Report
