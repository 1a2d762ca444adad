// SPDX-License-Identifier: MIT
// Tables of other searches as one.
#pragma once

#include "cli/CancelSignals.h"
#include "tools/search/Condition.h"
#include "tools/search/Ranking.h"
#include "tools/search/Shortfall.h"

#include <cstdint>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace Tarnex::Cli {

/// More dungeons are not merged at once: all are held in memory, at about 430 bytes each.
inline constexpr std::size_t kMostMerged = 4'000'000;

/// Tells apart what is not the same in every column.
struct HitOrder {
    bool operator()(const Search::Hit& a, const Search::Hit& b) const {
        return std::tie(a.values, a.command) < std::tie(b.values, b.command);
    }
};

/// Ranges that overlap give a dungeon twice; here it is once.
using MergedHits = std::set<Search::Hit, HitOrder>;

/// What stands in tables.
struct MergedTables {
    MergedHits hits;
    std::vector<std::string> older; ///< paths of tables of earlier versions (see GenerateLines)
    std::uint64_t missed = 0;       ///< rows for which the condition does not hold,
    Search::Shortfall shortfall;    ///< and how near they come
};

/// The dungeons of all tables for which the condition holds, with command lines that are printed
/// anew. Throws UsageError, which names file and line, for what `vaultry search --csv` did
/// not write and for more than `most` dungeons. After a signal the answer is not whole.
MergedTables ReadTables(const std::vector<std::string>& paths,
                        const Search::Condition& where,
                        const CancelSignals& signals,
                        std::size_t most = kMostMerged);

/// What is said of such a table.
std::string OlderTable(const std::string& path);

} // namespace Tarnex::Cli
