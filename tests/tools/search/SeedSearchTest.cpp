// SPDX-License-Identifier: MIT
// Searching in worker processes, which may end at any time.
#ifndef _WIN32

#include "tools/search/SeedSearch.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <set>
#include <stdexcept>
#include <string>
#include <tests/support/TempDir.h>
#include <utility>

namespace Tarnex::Test {

namespace {

using Search::SearchEnd;
using Search::SearchOutcome;
using Search::SeedRange;
using Search::Verdict;
using Seeds = std::set<std::uint32_t>;
using Reasons = std::set<std::pair<std::uint32_t, std::string>>;

// Asked at least ten times a second, the listener ends a search that has long come no further: a
// seed that nobody judges fails a test instead of keeping it for ever.
constexpr int kLongestStandstill = 600;

// Keeps account of everything that it hears.
class Listener : public Search::SearchListener {
public:
    void Found(Report::FactValues values) override {
        EXPECT_EQ(values.size(), 2U);
        EXPECT_EQ(values.at(1), -values.at(0));
        EXPECT_TRUE(found.insert(static_cast<std::uint32_t>(values.at(0))).second);
    }
    void TriedAgain(std::uint32_t seed, const std::string& why) override {
        triedAgain.emplace(seed, why);
    }
    void Lost(std::uint32_t seed, const std::string& why) override { lost.emplace(seed, why); }
    bool GoesOn(std::uint64_t done) override {
        standstill = done == lastDone ? standstill + 1 : 0;
        lastDone = done;
        return done < stopAt && standstill < kLongestStandstill;
    }

    std::uint64_t stopAt = UINT64_MAX;
    Seeds found;
    Reasons triedAgain;
    Reasons lost;

private:
    std::uint64_t lastDone = 0;
    int standstill = 0;
};

Verdict Wanted(std::uint32_t seed) {
    return {Report::FactValues{seed, -std::int64_t{seed}}, {}};
}

class SeedSearchTest : public ::testing::Test {
protected:
    SearchOutcome Run(const SeedRange& range, std::size_t jobs, Search::Judge judge) {
        return Search::SearchSeeds(range, jobs, std::move(judge), listener);
    }

    // All seeds of the range but the given ones.
    static Seeds AllBut(const SeedRange& range, const Seeds& missing) {
        Seeds seeds;
        for (std::uint64_t seed = range.first; seed <= range.last; ++seed) {
            if (!missing.contains(static_cast<std::uint32_t>(seed))) {
                seeds.insert(static_cast<std::uint32_t>(seed));
            }
        }
        return seeds;
    }

    Listener listener;
};

TEST_F(SeedSearchTest, FindsTheSameWhateverTheNumberOfJobs) {
    for (const std::size_t jobs : {1U, 2U, 7U, 64U}) {
        listener = Listener();
        const SearchOutcome outcome = Run({10, 1009}, jobs, [](std::uint32_t seed) {
            return seed % 3 == 0 ? Wanted(seed) : Verdict();
        });
        EXPECT_EQ(outcome.end, SearchEnd::Complete);
        EXPECT_EQ(outcome.done, 1000U);
        EXPECT_EQ(outcome.nextSeed, 1010U);
        EXPECT_EQ(listener.found.size(), 333U);
        EXPECT_TRUE(listener.found.contains(1008));
    }
}

TEST_F(SeedSearchTest, ComesToTheEndOfAllSeeds) {
    const SeedRange range{4294967290U, 4294967295U};
    const SearchOutcome outcome = Run(range, 4, Wanted);
    EXPECT_EQ(outcome.done, 6U);
    EXPECT_EQ(outcome.nextSeed, 4294967296U);
    EXPECT_EQ(listener.found, AllBut(range, {}));
}

TEST_F(SeedSearchTest, ASeedThatEndsItsWorkerTwiceIsLeftOut) {
    const SeedRange range{0, 200};
    const SearchOutcome outcome = Run(range, 2, [](std::uint32_t seed) {
        if (seed == 7 || seed == 200) {
            std::raise(SIGKILL);
        }
        return Wanted(seed);
    });
    EXPECT_EQ(outcome.end, SearchEnd::Complete);
    EXPECT_EQ(outcome.done, 201U);
    EXPECT_EQ(listener.found, AllBut(range, {7, 200}));
    const std::string why = "its worker was ended by signal 9 (Killed)";
    const Reasons both = {{7, why}, {200, why}};
    EXPECT_EQ(listener.triedAgain, both);
    EXPECT_EQ(listener.lost, both);
}

TEST_F(SeedSearchTest, AWorkerThatIsKilledOnceLosesNothing) {
    const TempDir folder;
    const std::string mark = folder.File("killed");
    const SeedRange range{0, 200};
    const SearchOutcome outcome = Run(range, 2, [&mark](std::uint32_t seed) {
        if (seed == 50 && !std::filesystem::exists(mark)) {
            std::ofstream(mark).close();
            std::raise(SIGKILL);
        }
        return Wanted(seed);
    });
    EXPECT_EQ(outcome.end, SearchEnd::Complete);
    EXPECT_EQ(listener.found, AllBut(range, {}));
    EXPECT_EQ(listener.triedAgain.size(), 1U);
    EXPECT_TRUE(listener.lost.empty());
}

TEST_F(SeedSearchTest, AWorkerThatThrowsEnds) {
    Run({1, 9}, 1, [](std::uint32_t seed) {
        return seed == 4 ? throw std::runtime_error("no") : Wanted(seed);
    });
    EXPECT_EQ(listener.lost, (Reasons{{4, "its worker ended with status 1"}}));
}

TEST_F(SeedSearchTest, FaultsAreTold) {
    const SearchOutcome outcome = Run({1, 9}, 2, [](std::uint32_t seed) {
        return seed == 4 ? Verdict{std::nullopt, "no\ntiles"} : Wanted(seed);
    });
    EXPECT_EQ(outcome.end, SearchEnd::Complete);
    EXPECT_EQ(listener.found, AllBut({1, 9}, {4}));
    EXPECT_EQ(listener.lost, (Reasons{{4, "no tiles"}}));
}

TEST_F(SeedSearchTest, TwentyFaultySeedsAreBorne) {
    const SeedRange range{1, 60};
    const auto judge = [](std::uint32_t faulty) {
        return [faulty](std::uint32_t seed) {
            return seed <= faulty ? Verdict{std::nullopt, "no tiles"} : Wanted(seed);
        };
    };
    EXPECT_EQ(Run(range, 1, judge(20)).end, SearchEnd::Complete);
    EXPECT_EQ(listener.lost.size(), 20U);
    listener = Listener();
    EXPECT_EQ(Run(range, 1, judge(21)).end, SearchEnd::Failed);
}

TEST_F(SeedSearchTest, IsGivenUpWhenNothingWorks) {
    const SearchOutcome faults = Run({0, 1'000'000}, 2, [](std::uint32_t) {
        return Verdict{std::nullopt, "no tiles"};
    });
    EXPECT_EQ(faults.end, SearchEnd::Failed);
    EXPECT_LT(faults.done, 1'000'000U);
    const SearchOutcome deaths = Run({0, 1'000'000}, 2, [](std::uint32_t) {
        std::raise(SIGKILL);
        return Verdict();
    });
    EXPECT_EQ(deaths.end, SearchEnd::Failed);
}

TEST_F(SeedSearchTest, StopsWithWhatItHas) {
    listener.stopAt = 100;
    const SearchOutcome outcome = Run({5, 4'000'000'000U}, 3, Wanted);
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

} // namespace

} // namespace Tarnex::Test

#else

#include <tests/support/LeftOut.h>

VAULTRY_LEFT_OUT_ON_WINDOWS(
    SeedSearchTest,
    "workers there are this program started again, and judge no functions of a test")

#endif
