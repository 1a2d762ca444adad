// SPDX-License-Identifier: MIT
// Judging many seeds at once.
#pragma once

#include "tools/search/SeedRange.h"
#include "tools/search/Verdict.h"

#include <vaultry/foundation/JobStatus.h>

#include <cstdint>
#include <functional>
#include <string>

namespace Tarnex::Search {

/// Judges a seed.
using Judge = std::function<Verdict(std::uint32_t seed)>;

/// Makes a judge for the thread that calls, which alone uses it and lets go of it. `status`, which
/// outlives the judge, asks for the end of a run whose verdict is not waited for any more. Called
/// by several threads at once.
using MakeJudge = std::function<Judge(JobStatus& status)>;

/// Hears of a search while it runs, on the thread that searches, and of the seeds in their order.
class SearchListener {
public:
    virtual ~SearchListener() = default;
    /// A seed that is wanted.
    virtual void Found(Report::FactValues values) = 0;
    /// The facts of a seed that is not wanted.
    virtual void Missed(const Report::FactValues& /*values*/) {}
    /// A seed that could not be judged.
    virtual void Lost(std::uint32_t seed, const std::string& why) = 0;
    /// Asked several times a second with how many seeds are done; false ends the search.
    virtual bool GoesOn(std::uint64_t done) = 0;
};

/// How a search ended.
enum class SearchEnd {
    Complete,
    Stopped, ///< the listener asked for it
    Failed,  ///< too many seeds could not be judged
};

/// How far a search came.
struct SearchOutcome {
    SearchEnd end = SearchEnd::Complete;
    std::uint64_t done = 0;     ///< seeds that are done, lost ones included
    std::uint64_t nextSeed = 0; ///< all seeds before it are done
};

/// As many seeds may be lost until a search is given up.
inline constexpr std::uint32_t kMostLost = 20;

/// Judges every seed of the range on `jobs` threads, or on as many as there are seeds. What is
/// found depends on no number of jobs, and neither does what a search came to that was not stopped.
/// Throws what a judge throws, and std::system_error when a thread cannot be started, in either
/// case once all threads have ended.
SearchOutcome SearchSeeds(const SeedRange& range,
                          std::size_t jobs,
                          const MakeJudge& makeJudge,
                          SearchListener& listener);

} // namespace Tarnex::Search
