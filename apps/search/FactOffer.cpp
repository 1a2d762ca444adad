// SPDX-License-Identifier: MIT
#include "apps/search/FactOffer.h"

#include "apps/report/DungeonFacts.h"
#include "apps/report/NearNames.h"
#include "apps/search/Quote.h"

namespace Tarnex::Search {

std::string NoFact(std::string_view name) {
    const bool isLong = name.size() > kLongestQuote;
    std::string text = Quote(name) + " is no fact";
    // The effort of comparing grows with the length, and no fact is that long.
    const std::vector<std::string> nearest =
        isLong ? std::vector<std::string>() : Report::NearestNames(name, Report::FactNames());
    if (nearest.empty()) {
        return text + "; \"vaultry search --help\" lists them";
    }
    for (const std::string& fact : nearest) {
        text += (&fact == &nearest.front() ? "; did you mean \"" : " or \"") + fact + '"';
    }
    return text + '?';
}

} // namespace Tarnex::Search
