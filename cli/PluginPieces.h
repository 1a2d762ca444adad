// SPDX-License-Identifier: MIT
// What the references of a plug-in are, by the configuration that it was probably made from.
#pragma once

#include "tools/facts/DungeonFacts.h"
#include "tools/maps/PieceIndex.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Tarnex::Cli {

/// The pieces of a configuration.
struct ChosenPieces {
    std::string config; ///< its name, as `-c` takes it
    Report::PieceIndex pieces;
    Report::ContentWorth worth;
    std::size_t known = 0; ///< references that it knows as tiles
};

/// The pieces of `config`, or, for "builtin", of the one that knows the most of what the cells
/// hold. Throws UsageError for a broken configuration, unless it is to be used all the same.
ChosenPieces ChoosePieces(const std::string& config,
                          bool keepGoing,
                          const std::vector<const PluginCell*>& cells);

} // namespace Tarnex::Cli
