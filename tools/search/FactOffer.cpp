// SPDX-License-Identifier: MIT
#include "tools/search/FactOffer.h"

#include "tools/facts/DungeonFacts.h"
#include "tools/text/NearNames.h"
#include "tools/text/Quote.h"

namespace Tarnex::Search {

std::string NoFact(std::string_view name) {
    const bool isLong = name.size() > Report::kLongestQuote;
    std::string text = Report::Quote(name) + " is no fact";
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
