// SPDX-License-Identifier: MIT
#include "tools/search/SeedSearch.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <new>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace Tarnex::Test {

namespace {

using Search::Judge;
using Search::SearchEnd;
using Search::SearchOutcome;
using Search::SeedRange;
using Search::Verdict;
using Seeds = std::set<std::uint32_t>;
using Reasons = std::vector<std::pair<std::uint32_t, std::string>>;

// Keeps account of everything that it hears.
class Listener : public Search::SearchListener {
public:
    void Found(Report::FactValues values) override {
        EXPECT_EQ(values.size(), 2U);
        EXPECT_EQ(values.at(1), -values.at(0));
        ExpectInOrder(static_cast<std::uint32_t>(values.at(0)));
        found.insert(static_cast<std::uint32_t>(values.at(0)));
    }
    void Lost(std::uint32_t seed, const std::string& why) override {
        ExpectInOrder(seed);
        lost.emplace_back(seed, why);
    }
    bool GoesOn(std::uint64_t done) override { return done < stopAt && !stop; }

    std::uint64_t stopAt = UINT64_MAX;
    std::atomic<bool> stop = false;
    Seeds found;
    Reasons lost;

private:
    void ExpectInOrder(std::uint32_t seed) {
        EXPECT_GE(seed, least);
        least = std::uint64_t{seed} + 1;
    }

    std::uint64_t least = 0; // that may come next
};

Verdict Wanted(std::uint32_t seed) {
    return {Report::FactValues{seed, -std::int64_t{seed}}, {}};
}

Verdict Faulty(std::uint32_t /*seed*/) {
    return {std::nullopt, "no tiles"};
}

SearchOutcome
SearchWith(const SeedRange& range, std::size_t jobs, const Judge& judge, Listener& listener) {
    return Search::SearchSeeds(
        range, jobs, [&judge](JobStatus&) { return judge; }, listener);
}

// All seeds of the range but the given ones.
Seeds AllBut(const SeedRange& range, const Seeds& missing) {
    Seeds seeds;
    for (std::uint64_t seed = range.first; seed <= range.last; ++seed) {
        if (!missing.contains(static_cast<std::uint32_t>(seed))) {
            seeds.insert(static_cast<std::uint32_t>(seed));
        }
    }
    return seeds;
}

// Judges until it is told that nobody waits any more.
Verdict JudgeTillTheEnd(const JobStatus& status) {
    while (!status.HasBeenCanceled()) {
        std::this_thread::yield();
    }
    return Wanted(0);
}

TEST(SeedSearchTest, FindsTheSameWhateverTheNumberOfJobs) {
    for (const std::size_t jobs : {1U, 2U, 7U, 64U}) {
        Listener listener;
        const auto judge = [](std::uint32_t seed) {
            return seed % 3 == 0 ? Wanted(seed) : Verdict();
        };
        const SearchOutcome outcome = SearchWith({10, 1009}, jobs, judge, listener);
        EXPECT_EQ(outcome.end, SearchEnd::Complete);
        EXPECT_EQ(outcome.done, 1000U);
        EXPECT_EQ(outcome.nextSeed, 1010U);
        EXPECT_EQ(listener.found.size(), 333U);
        EXPECT_TRUE(listener.found.contains(1008));
    }
}

TEST(SeedSearchTest, ComesToTheEndOfAllSeeds) {
    const SeedRange range{4294967290U, 4294967295U};
    Listener listener;
    const SearchOutcome outcome = SearchWith(range, 4, Wanted, listener);
    EXPECT_EQ(outcome.end, SearchEnd::Complete);
    EXPECT_EQ(outcome.done, 6U);
    EXPECT_EQ(outcome.nextSeed, 4294967296U);
    EXPECT_EQ(listener.found, AllBut(range, {}));
}

TEST(SeedSearchTest, OneSeedTakesOneThread) {
    Listener listener;
    std::atomic<int> judges = 0;
    const auto make = [&judges](JobStatus&) -> Judge {
        ++judges;
        return Wanted;
    };
    EXPECT_EQ(Search::SearchSeeds({3, 3}, 1024, make, listener).done, 1U);
    EXPECT_EQ(judges, 1);
    EXPECT_EQ(listener.found, Seeds{3});
}

TEST(SeedSearchTest, EachThreadMakesAndDropsItsOwnJudge) {
    // Whether it is used and dropped on the thread that made it.
    struct Own {
        std::thread::id maker = std::this_thread::get_id();
        std::atomic<int>& wrong;
        explicit Own(std::atomic<int>& count) : wrong(count) {}
        ~Own() { Check(); }
        Own(const Own&) = delete;
        Own& operator=(const Own&) = delete;
        void Check() const { wrong += maker == std::this_thread::get_id() ? 0 : 1; }
    };
    Listener listener;
    std::atomic<int> wrong = 0;
    const auto make = [&wrong](JobStatus&) -> Judge {
        const auto own = std::make_shared<Own>(wrong);
        return [own](std::uint32_t seed) {
            own->Check();
            return Wanted(seed);
        };
    };
    EXPECT_EQ(Search::SearchSeeds({1, 500}, 3, make, listener).done, 500U);
    EXPECT_EQ(wrong, 0);
}

TEST(SeedSearchTest, FaultsAreToldInTheOrderOfTheSeeds) {
    for (const std::size_t jobs : {1U, 2U, 7U}) {
        Listener listener;
        const auto judge = [](std::uint32_t seed) {
            return seed % 400 == 4 ? Verdict{std::nullopt, "no\ntiles"} : Wanted(seed);
        };
        const SearchOutcome outcome = SearchWith({1, 999}, jobs, judge, listener);
        EXPECT_EQ(outcome.end, SearchEnd::Complete);
        EXPECT_EQ(listener.found, AllBut({1, 999}, {4, 404, 804}));
        EXPECT_EQ(listener.lost, (Reasons{{4, "no tiles"}, {404, "no tiles"}, {804, "no tiles"}}));
    }
}

TEST(SeedSearchTest, TwentyFaultySeedsAreBorne) {
    const SeedRange range{1, 60};
    const auto judge = [](std::uint32_t faulty) {
        return
            [faulty](std::uint32_t seed) { return seed <= faulty ? Faulty(seed) : Wanted(seed); };
    };
    Listener twenty;
    EXPECT_EQ(SearchWith(range, 1, judge(20), twenty).end, SearchEnd::Complete);
    EXPECT_EQ(twenty.lost.size(), 20U);
    Listener more;
    EXPECT_EQ(SearchWith(range, 1, judge(21), more).end, SearchEnd::Failed);
}

TEST(SeedSearchTest, IsGivenUpAtTheSamePlaceWhateverTheNumberOfJobs) {
    for (const std::size_t jobs : {1U, 2U, 7U}) {
        Listener listener;
        const SearchOutcome outcome = SearchWith({1000, 1'000'000}, jobs, Faulty, listener);
        EXPECT_EQ(outcome.end, SearchEnd::Failed);
        EXPECT_EQ(outcome.done, 21U);
        EXPECT_EQ(outcome.nextSeed, 1021U);
        EXPECT_EQ(listener.lost.size(), 21U);
        EXPECT_EQ(listener.lost.back().first, 1020U);
    }
}

TEST(SeedSearchTest, StopsWithWhatItHas) {
    Listener listener;
    listener.stopAt = 100;
    const SearchOutcome outcome = SearchWith({5, 4'000'000'000U}, 3, Wanted, listener);
    EXPECT_EQ(outcome.end, SearchEnd::Stopped);
    EXPECT_GE(outcome.done, 100U);
    EXPECT_EQ(listener.found.size(), outcome.done);
    // All before the seed to go on with are there.
    std::uint32_t next = 5;
    while (listener.found.contains(next)) {
        ++next;
    }
    EXPECT_EQ(outcome.nextSeed, next);
}

TEST(SeedSearchTest, ASeedUnderWayIsLeftAndWhatWasFoundBehindItCounts) {
    Listener listener;
    const auto make = [&listener](JobStatus& status) -> Judge {
        return [&](std::uint32_t seed) {
            listener.stop = listener.stop || seed == 9;
            return seed == 0 ? JudgeTillTheEnd(status) : Wanted(seed);
        };
    };
    const SearchOutcome outcome = Search::SearchSeeds({0, 4'000'000'000U}, 2, make, listener);
    EXPECT_EQ(outcome.end, SearchEnd::Stopped);
    EXPECT_EQ(outcome.nextSeed, 0U);
    EXPECT_FALSE(listener.found.contains(0));
    EXPECT_TRUE(listener.found.contains(8));
    EXPECT_EQ(outcome.done, listener.found.size());
}

TEST(SeedSearchTest, NoMoreIsJudgedBehindASlowSeedThanCanBeKept) {
    constexpr std::uint32_t kMost = 65536;
    Listener listener;
    std::atomic<std::uint32_t> judged = 0;
    const auto make = [&](JobStatus& status) -> Judge {
        return [&](std::uint32_t seed) {
            listener.stop = listener.stop || seed == kMost - 1;
            ++judged;
            return seed == 0 ? JudgeTillTheEnd(status) : Verdict();
        };
    };
    const SearchOutcome outcome = Search::SearchSeeds({0, 4'000'000'000U}, 2, make, listener);
    EXPECT_EQ(outcome.end, SearchEnd::Stopped);
    EXPECT_EQ(judged, kMost);
}

TEST(SeedSearchTest, WhatAJudgeThrowsIsThrown) {
    for (const std::size_t jobs : {1U, 3U}) {
        Listener listener;
        const auto judge = [](std::uint32_t seed) {
            return seed == 40 ? throw std::runtime_error("no luck") : Wanted(seed);
        };
        EXPECT_THROW(SearchWith({1, 4'000'000'000U}, jobs, judge, listener), std::runtime_error);
        const auto noMemory = [](std::uint32_t) -> Verdict { throw std::bad_alloc(); };
        EXPECT_THROW(SearchWith({1, 4'000'000'000U}, jobs, noMemory, listener), std::bad_alloc);
    }
}

TEST(SeedSearchTest, WhatTheMakingOfAJudgeThrowsIsThrownAndEndsTheOthers) {
    Listener listener;
    std::atomic<int> made = 0;
    const auto make = [&made](JobStatus& status) -> Judge {
        if (++made == 2) {
            throw std::bad_alloc();
        }
        return [&status](std::uint32_t) { return JudgeTillTheEnd(status); };
    };
    EXPECT_THROW(Search::SearchSeeds({1, 9}, 3, make, listener), std::bad_alloc);
}

TEST(SeedSearchTest, WhatTheListenerThrowsIsThrownOnceTheThreadsHaveEnded) {
    class Throwing : public Listener {
        bool GoesOn(std::uint64_t /*done*/) override { throw std::bad_alloc(); }
    } listener;
    const auto make = [](JobStatus& status) -> Judge {
        return [&status](std::uint32_t) { return JudgeTillTheEnd(status); };
    };
    EXPECT_THROW(Search::SearchSeeds({1, 9}, 2, make, listener), std::bad_alloc);
}

} // namespace

} // namespace Tarnex::Test
