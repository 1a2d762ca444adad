// SPDX-License-Identifier: MIT
// Seeds to judge, and what comes of them, between threads.
#pragma once

#include "tools/search/SeedRange.h"
#include "tools/search/Verdict.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <vector>

namespace Tarnex::Search {

/// Deals the seeds of a range out to any number of threads and hands what comes of them to the one
/// that collects it, in the order of the seeds.
class SeedQueue {
public:
    explicit SeedQueue(const SeedRange& range) : next(range.first), last(range.last) {}

    /// For those who judge: the next seed; nothing when all are dealt out or the queue is closed.
    /// Waits when too much was dealt out that could not be collected yet.
    std::optional<std::uint32_t> Take();

    /// Likewise: what came of a seed that was taken. Not heard once the queue is closed, since a
    /// run that was ended early has nothing to say.
    void Give(std::uint32_t seed, Verdict verdict);

    /// Likewise: closes the queue for a fault, which Collect then throws. Not heard either.
    void Fail(std::exception_ptr fault) noexcept;

    /// No more seeds are dealt out and no more verdicts taken.
    void Close() noexcept;
    bool IsClosed() const { return closed; }

    /// For the one who collects: the verdicts of the seeds that follow those collected before, as
    /// far as no seed is missing. When it is not yet the last, waits for more for some time.
    std::vector<Verdict> Collect(std::chrono::milliseconds longest);

    /// Likewise, of a closed queue: of all seeds that are not collected yet, those missing as null.
    std::deque<std::optional<Verdict>> Rest();

private:
    // As many may be dealt out beyond the first that is missing: a seed that takes long keeps no
    // thread waiting, nor the results of more than these.
    static constexpr std::uint64_t kFarthest = 65536;

    bool HasRoom() const { return dealt.size() < kFarthest; }
    bool IsDone() const { return open == 0 && next > last; }

    std::mutex mutex;
    std::condition_variable room; // for more to be dealt out
    std::condition_variable news; // for the one who collects
    std::uint64_t next;           // the first seed not dealt out
    std::uint64_t last;
    std::uint64_t open = 0;                   // seeds that are dealt out, but not given back
    std::deque<std::optional<Verdict>> dealt; // of the seeds before next, but not collected
    std::exception_ptr fault;
    std::atomic<bool> closed = false;
};

} // namespace Tarnex::Search
