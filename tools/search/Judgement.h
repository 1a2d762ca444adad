// SPDX-License-Identifier: MIT
// A condition put to one dungeon, for other programs.
#pragma once

#include "tools/facts/DungeonFacts.h"

#include <optional>
#include <string>
#include <string_view>

namespace Tarnex::Search {

/// Whether the condition holds, and the facts that it asks for with their values and bounds; null
/// where there is no dungeon or no bound. Throws UsageError for what is no condition.
std::string JudgementJson(std::string_view condition,
                          const std::optional<Report::FactValues>& values);

} // namespace Tarnex::Search
