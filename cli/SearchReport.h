// SPDX-License-Identifier: MIT
// What a search came to.
#pragma once

#include "cli/Options.h"
#include "tools/search/Ranking.h"
#include "tools/search/SeedSearch.h"
#include "tools/search/Shortfall.h"

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace Tarnex::Cli {

/// A seed that could not be judged.
struct LostSeed {
    std::uint32_t seed = 0;
    std::string why;
};

/// Everything that is said of a search or of a merge. All text is UTF-8.
struct SearchReport {
    SearchOptions options;
    std::optional<Search::SeedRange> range; ///< none: tables were merged
    bool scattered = false;                 ///< the range is of numbers, as of --sample
    Search::SearchOutcome outcome;
    std::uint64_t found = 0;                    ///< also those that were not kept
    std::vector<Search::Shortfall::Part> parts; ///< of the condition, when nothing was found
    std::vector<Search::Hit> hits;
    std::vector<std::size_t> columns; ///< the facts to list
    std::vector<LostSeed> lost;
    std::vector<std::string> errors; ///< of the configuration
    double seconds = 0.0;            ///< that the search took
};

/// The facts to list: the seed, those that were asked for, then those that most ask for.
std::vector<std::size_t> ListedFacts(const std::vector<std::size_t>& askedFor);

/// A line for each hit, and the command line that makes the first one; or, without a hit, how many
/// pass each part of the condition.
void PrintHits(const SearchReport& report, std::ostream& out);

/// One line: how many of how many were found.
std::string Summary(const SearchReport& report);

std::string ToJson(const SearchReport& report);

/// "90 s", "12 min", "5 h 3 min".
std::string Duration(double seconds);

} // namespace Tarnex::Cli
