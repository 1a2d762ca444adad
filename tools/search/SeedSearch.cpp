// SPDX-License-Identifier: MIT
#include "tools/search/SeedSearch.h"

#include "tools/search/WorkerPool.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <deque>
#include <utility>
#include <vector>

namespace Tarnex::Search {

namespace {

constexpr std::chrono::milliseconds kPatience(100);
constexpr std::uint64_t kLargestPortion = 32; // seeds handed over at once
constexpr std::uint64_t kPortionsEach = 8;    // at least, so that all workers end together
constexpr std::size_t kAhead = 2;             // portions that a worker has, so that none waits

// An answer is one line per seed: what kind it is, then the facts or the fault.
constexpr char kWanted = '+';
constexpr char kUnwanted = '-';
constexpr char kFaulty = '!';

std::string RequestOf(const SeedRange& portion) {
    return std::to_string(portion.first) + ".." + std::to_string(portion.last);
}

std::string AnswerOf(const Verdict& verdict) {
    if (!verdict.fault.empty()) {
        std::string line = kFaulty + verdict.fault;
        std::ranges::replace(line, '\n', ' ');
        return line;
    }
    if (!verdict.found) {
        return std::string(1, kUnwanted);
    }
    std::string line(1, kWanted);
    for (const std::int64_t value : *verdict.found) {
        line += ' ' + std::to_string(value);
    }
    return line;
}

Report::FactValues ParseValues(std::string_view text) {
    Report::FactValues values;
    values.reserve(Report::Facts().size());
    while (!text.empty()) {
        text.remove_prefix(1);
        std::int64_t value = 0;
        const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
        text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
        values.push_back(value);
    }
    return values;
}

WorkerPool::Serve ServeWith(Judge judge) {
    return [judge = std::move(judge)](const std::string& request, const WorkerPool::Reply& reply) {
        const SeedRange portion = ParseSeedRange(request);
        for (std::uint64_t seed = portion.first; seed <= portion.last; ++seed) {
            reply(AnswerOf(judge(static_cast<std::uint32_t>(seed))));
        }
    };
}

// Deals out the seeds of a range and keeps account of who has which.
class Search {
public:
    Search(const SeedRange& whole, std::size_t jobs, Judge judge, SearchListener& searchListener)
        : range(whole), next(range.first), listener(searchListener),
          accounts(static_cast<std::size_t>(std::min<std::uint64_t>(jobs, range.Count()))),
          portionSize(std::clamp<std::uint64_t>(
              range.Count() / (accounts.size() * kPortionsEach), 1, kLargestPortion)),
          pool(accounts.size(), ServeWith(std::move(judge))) {}

    SearchOutcome Run() {
        for (std::size_t worker = 0; worker < accounts.size(); ++worker) {
            Deal(worker);
        }
        SearchEnd end = SearchEnd::Complete;
        while (done < range.Count() && end == SearchEnd::Complete) {
            const std::vector<WorkerPool::Event> events = pool.Wait(kPatience);
            // What was found counts, but whoever wants an end may have ended the workers too.
            for (const WorkerPool::Event& event : events) {
                Note(event);
            }
            if (!listener.GoesOn(done)) {
                end = SearchEnd::Stopped;
            } else if (failures > kMostFailures) {
                end = SearchEnd::Failed;
            } else {
                Replace(events);
            }
        }
        return {done == range.Count() ? SearchEnd::Complete : end, done, FirstOpen()};
    }

private:
    // The seeds that a worker has, the one under way first.
    struct Account {
        std::deque<SeedRange> portions;
        std::optional<std::uint32_t> triedAgain;
    };

    void Deal(std::size_t worker) {
        Account& account = accounts[worker];
        while (account.portions.size() < kAhead && next <= range.last) {
            const std::uint64_t last = std::min<std::uint64_t>(next + portionSize - 1, range.last);
            account.portions.push_back(
                {static_cast<std::uint32_t>(next), static_cast<std::uint32_t>(last)});
            next = last + 1;
            pool.Send(worker, RequestOf(account.portions.back()));
        }
    }

    // The worker is through with its present seed.
    void Advance(std::size_t worker) {
        Account& account = accounts[worker];
        SeedRange& portion = account.portions.front();
        ++done;
        if (portion.first < portion.last) {
            ++portion.first;
        } else {
            account.portions.pop_front();
        }
    }

    void Note(const WorkerPool::Event& event) {
        for (const std::string& line : event.lines) {
            if (failures > kMostFailures) {
                return; // enough was told
            }
            if (line.front() == kWanted) {
                listener.Found(ParseValues(std::string_view(line).substr(1)));
            } else if (line.front() == kFaulty) {
                ++failures;
                listener.Lost(accounts[event.worker].portions.front().first, line.substr(1));
            }
            Advance(event.worker);
        }
        if (!event.end) {
            Deal(event.worker);
        }
    }

    void Replace(const std::vector<WorkerPool::Event>& events) {
        for (const WorkerPool::Event& event : events) {
            if (event.end && !accounts[event.worker].portions.empty()) {
                ++failures;
                Blame(event.worker, *event.end);
                pool.Restart(event.worker);
                for (const SeedRange& portion : accounts[event.worker].portions) {
                    pool.Send(event.worker, RequestOf(portion));
                }
                Deal(event.worker);
            }
        }
    }

    // A seed that ends its worker twice is at fault itself.
    void Blame(std::size_t worker, const std::string& how) {
        Account& account = accounts[worker];
        const std::uint32_t seed = account.portions.front().first;
        const std::string why = "its worker " + how;
        if (account.triedAgain == seed) {
            listener.Lost(seed, why);
            Advance(worker);
        } else {
            account.triedAgain = seed;
            listener.TriedAgain(seed, why);
        }
    }

    std::uint64_t FirstOpen() const {
        std::uint64_t first = next;
        for (const Account& account : accounts) {
            if (!account.portions.empty()) {
                first = std::min<std::uint64_t>(first, account.portions.front().first);
            }
        }
        return first;
    }

    SeedRange range;
    std::uint64_t next; // the first seed that nobody has
    std::uint64_t done = 0;
    std::uint32_t failures = 0;
    SearchListener& listener;
    std::vector<Account> accounts;
    std::uint64_t portionSize;
    WorkerPool pool;
};

} // namespace

SearchListener::~SearchListener() = default;

SearchOutcome
SearchSeeds(const SeedRange& range, std::size_t jobs, Judge judge, SearchListener& listener) {
    return Search(range, jobs, std::move(judge), listener).Run();
}

} // namespace Tarnex::Search
