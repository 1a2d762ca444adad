// SPDX-License-Identifier: MIT
// Judging many seeds at once.
#pragma once

#include "tools/facts/DungeonFacts.h"
#include "tools/search/SeedRange.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace Tarnex::Search {

/// What came of one seed.
struct Verdict {
    std::optional<Report::FactValues> found; ///< the facts, if the seed is wanted
    std::string fault;                       ///< why there is no dungeon; empty: there is one
};

/// Judges a seed. Runs in processes of its own, which begin as copies of this one.
using Judge = std::function<Verdict(std::uint32_t seed)>;

/// Hears of a search while it runs.
class SearchListener {
public:
    virtual ~SearchListener();
    /// A seed that is wanted; the seeds come in no order.
    virtual void Found(Report::FactValues values) = 0;
    /// A seed that will be tried a second time, as its worker ended.
    virtual void TriedAgain(std::uint32_t seed, const std::string& why) = 0;
    /// A seed that could not be judged.
    virtual void Lost(std::uint32_t seed, const std::string& why) = 0;
    /// Asked several times a second with how many seeds are done; false ends the search.
    virtual bool GoesOn(std::uint64_t done) = 0;
};

/// How a search ended.
enum class SearchEnd {
    Complete,
    Stopped, ///< the listener asked for it
    Failed,  ///< too many seeds could not be judged, or too many workers ended
};

/// How far a search came.
struct SearchOutcome {
    SearchEnd end = SearchEnd::Complete;
    std::uint64_t done = 0;     ///< seeds that are done, lost ones included
    std::uint64_t nextSeed = 0; ///< all seeds before it are done
};

/// As many seeds may be lost, and as many workers may end, until a search is given up.
inline constexpr std::uint32_t kMostFailures = 20;

/// Judges every seed of the range in `jobs` worker processes. A worker that ends is replaced, and
/// its seed is tried once more. What is found depends on no number of jobs. Throws
/// std::system_error when a worker cannot be started.
SearchOutcome
SearchSeeds(const SeedRange& range, std::size_t jobs, Judge judge, SearchListener& listener);

} // namespace Tarnex::Search
