// SPDX-License-Identifier: MIT
#include "tools/search/SeedSearch.h"

#include "tools/search/SeedQueue.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace Tarnex::Search {

namespace {

constexpr std::chrono::milliseconds kPatience(20); // between two questions whether to go on

// Ends with the queue. Each thread has one, since it counts the steps of runs.
class WhileOpen : public JobStatus {
public:
    explicit WhileOpen(const SeedQueue& seeds) : queue(seeds) {}

    bool HasBeenCanceled() const override { return queue.IsClosed(); }

private:
    const SeedQueue& queue;
};

void JudgeAll(SeedQueue& queue, const MakeJudge& makeJudge) noexcept {
    try {
        WhileOpen status(queue);
        const Judge judge = makeJudge(status);
        while (const std::optional<std::uint32_t> seed = queue.Take()) {
            queue.Give(*seed, judge(*seed));
        }
    } catch (...) {
        queue.Fail(std::current_exception());
    }
}

// The threads that judge the seeds of a queue. Their end closes it.
class Threads {
public:
    explicit Threads(SeedQueue& seeds) : queue(seeds) {}
    ~Threads() {
        queue.Close();
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
    Threads(const Threads&) = delete;
    Threads& operator=(const Threads&) = delete;

    void Start(std::uint64_t count, const MakeJudge& makeJudge) try {
        while (threads.size() < count) {
            threads.emplace_back([this, &makeJudge] { JudgeAll(queue, makeJudge); });
        }
    } catch (const std::system_error& e) {
        throw std::system_error(e.code(), "a thread cannot be started");
    }

private:
    SeedQueue& queue;
    std::vector<std::thread> threads;
};

class Search {
public:
    Search(const SeedRange& whole, SearchListener& searchListener)
        : range(whole), listener(searchListener), queue(range), next(range.first) {}

    SearchOutcome Run(std::size_t jobs, const MakeJudge& makeJudge) {
        const SearchEnd end = Listen(jobs, makeJudge);
        if (end == SearchEnd::Stopped) {
            NoteRest();
        }
        return {done == range.Count() ? SearchEnd::Complete : end, done, next};
    }

private:
    SearchEnd Listen(std::size_t jobs, const MakeJudge& makeJudge) {
        Threads threads(queue);
        threads.Start(std::min<std::uint64_t>(jobs, range.Count()), makeJudge);
        while (done < range.Count()) {
            for (Verdict& verdict : queue.Collect(kPatience)) {
                Note(next, std::move(verdict));
                if (lost > kMostLost) {
                    return SearchEnd::Failed;
                }
            }
            if (!listener.GoesOn(done)) {
                return SearchEnd::Stopped;
            }
        }
        return SearchEnd::Complete;
    }

    // What was found counts, also behind a seed that was left.
    void NoteRest() {
        std::uint64_t seed = next;
        for (std::optional<Verdict>& verdict : queue.Rest()) {
            if (verdict) {
                Note(seed, std::move(*verdict));
            }
            ++seed;
        }
    }

    void Note(std::uint64_t seed, Verdict verdict) {
        ++done;
        next += seed == next ? 1U : 0U;
        if (verdict.found) {
            listener.Found(std::move(*verdict.found));
        } else if (!verdict.fault.empty()) {
            ++lost;
            std::ranges::replace(verdict.fault, '\n', ' ');
            listener.Lost(static_cast<std::uint32_t>(seed), verdict.fault);
        } else if (!verdict.missed.empty()) {
            listener.Missed(verdict.missed);
        }
    }

    SeedRange range;
    SearchListener& listener;
    SeedQueue queue;
    std::uint64_t next; // all seeds before it are done
    std::uint64_t done = 0;
    std::uint32_t lost = 0;
};

} // namespace

SearchOutcome SearchSeeds(const SeedRange& range,
                          std::size_t jobs,
                          const MakeJudge& makeJudge,
                          SearchListener& listener) {
    return Search(range, listener).Run(jobs, makeJudge);
}

} // namespace Tarnex::Search
