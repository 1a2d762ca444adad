// SPDX-License-Identifier: MIT
// What comes of a seed.
#pragma once

#include "tools/facts/DungeonFacts.h"

#include <optional>
#include <string>

namespace Tarnex::Search {

/// What came of one seed.
struct Verdict {
    std::optional<Report::FactValues> found; ///< the facts, if the seed is wanted
    std::string fault;                       ///< why there is no dungeon; empty: there is one
    Report::FactValues missed{};             ///< the facts, if there is one that is not wanted
};

} // namespace Tarnex::Search
