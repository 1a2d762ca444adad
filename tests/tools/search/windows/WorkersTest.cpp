// SPDX-License-Identifier: MIT
// Workers that end, where a worker is this very program started again: it comes to the one pool
// that is made here, so there can be one test only.
#include "tools/search/SeedSearch.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <utility>

namespace Tarnex::Test {

namespace {

using Search::Verdict;
using Reasons = std::set<std::pair<std::uint32_t, std::string>>;

class Listener : public Search::SearchListener {
public:
    void Found(Report::FactValues values) override { found.insert(values.at(0)); }
    void TriedAgain(std::uint32_t seed, const std::string& why) override {
        triedAgain.emplace(seed, why);
    }
    void Lost(std::uint32_t seed, const std::string& why) override { lost.emplace(seed, why); }
    bool GoesOn(std::uint64_t) override { return true; }

    std::set<std::int64_t> found;
    Reasons triedAgain;
    Reasons lost;
};

// Ends the worker at two seeds, at one of them the first time only.
Verdict Judge(std::uint32_t seed) {
    constexpr int kStatus = 3;
    if (seed == 7) {
        std::_Exit(kStatus);
    }
    if (seed == 150) {
        const std::filesystem::path mark = "ended-once.tmp";
        if (!std::filesystem::remove(mark)) {
            std::ofstream(mark).close();
            std::_Exit(kStatus);
        }
    }
    if (seed == 190) {
        return {std::nullopt, "no\ntiles"};
    }
    return {Report::FactValues{seed}, {}};
}

TEST(WorkersTest, AreReplacedAndTheirSeedsTriedAgain) {
    Listener listener;
    const Search::SearchOutcome outcome = Search::SearchSeeds({0, 200}, 2, Judge, listener);
    EXPECT_EQ(outcome.end, Search::SearchEnd::Complete);
    EXPECT_EQ(outcome.done, 201U);
    EXPECT_EQ(listener.found.size(), 199U);
    EXPECT_FALSE(listener.found.contains(7));
    EXPECT_TRUE(listener.found.contains(150));
    const std::string why = "its worker ended with status 3";
    EXPECT_EQ(listener.triedAgain, (Reasons{{7, why}, {150, why}}));
    EXPECT_EQ(listener.lost, (Reasons{{7, why}, {190, "no tiles"}}));
}

} // namespace

} // namespace Tarnex::Test
