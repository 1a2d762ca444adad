// SPDX-License-Identifier: MIT
#include "tools/search/Ranking.h"

#include "tools/text/UsageError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

using Search::Hit;
using Search::Order;
using Search::Ranking;
using Seeds = std::vector<std::int64_t>;

Hit Found(std::int64_t seed, std::int64_t rooms, std::int64_t loops) {
    Hit hit;
    hit.values.resize(Report::Facts().size());
    hit.values.at(0) = seed;
    hit.values.at(*Report::FindFact("rooms")) = rooms;
    hit.values.at(*Report::FindFact("loops")) = loops;
    return hit;
}

Seeds Best(const char* keys, std::uint64_t top) {
    Ranking ranking(*keys == '\0' ? Order() : Order(keys), top);
    for (const Hit& hit : {Found(4, 12, 1), Found(2, 9, 3), Found(3, 12, 3), Found(1, 9, 3)}) {
        ranking.Add(hit);
    }
    EXPECT_EQ(ranking.Added(), 4U);
    Seeds seeds;
    for (const Hit& hit : ranking.Take()) {
        seeds.push_back(hit.values.front());
    }
    return seeds;
}

TEST(RankingTest, WithoutKeysTheSeedDecides) {
    EXPECT_EQ(Best("", 0), (Seeds{1, 2, 3, 4}));
}

TEST(RankingTest, TheGreatestComesFirstAndTheSmallerSeedWhereEqual) {
    EXPECT_EQ(Best("loops", 0), (Seeds{1, 2, 3, 4}));
    EXPECT_EQ(Best("rooms", 0), (Seeds{3, 4, 1, 2}));
    EXPECT_EQ(Best("rooms:desc", 0), (Seeds{3, 4, 1, 2}));
    EXPECT_EQ(Best("rooms:asc", 0), (Seeds{1, 2, 3, 4}));
}

TEST(RankingTest, FurtherKeysDecideWhereTheFirstIsEqual) {
    EXPECT_EQ(Best("rooms,loops", 0), (Seeds{3, 4, 1, 2}));
    EXPECT_EQ(Best("rooms,loops:asc", 0), (Seeds{4, 3, 1, 2}));
    EXPECT_EQ(Best("loops,seed", 0), (Seeds{3, 2, 1, 4}));
}

TEST(RankingTest, KeepsTheBest) {
    EXPECT_EQ(Best("rooms", 1), Seeds{3});
    EXPECT_EQ(Best("rooms", 3), (Seeds{3, 4, 1}));
    EXPECT_EQ(Best("rooms", 9), (Seeds{3, 4, 1, 2}));
}

TEST(RankingTest, KeepsTheSameInWhateverOrderTheyAreAdded) {
    std::vector<Hit> hits;
    for (std::int64_t seed = 0; seed < 5000; ++seed) {
        hits.push_back(Found(seed, seed % 17, seed % 5));
    }
    const auto best = [&hits] {
        Ranking ranking(Order("rooms,loops:asc"), 20);
        for (const Hit& hit : hits) {
            ranking.Add(hit);
        }
        return ranking.Take();
    };
    const std::vector<Hit> first = best();
    std::ranges::shuffle(hits, std::mt19937(7));
    EXPECT_EQ(first, best());
    EXPECT_EQ(first.size(), 20U);
}

std::string Mistake(const char* keys) {
    try {
        const Order order(keys);
    } catch (const UsageError& e) {
        return e.what();
    }
    return {};
}

TEST(RankingTest, RefusesKeysThatAreNoFacts) {
    EXPECT_EQ(Mistake("lops"), "--sort: \"lops\" is no fact; did you mean \"loops\"?");
    EXPECT_EQ(Mistake("loops,"), "--sort: \"\" is no fact; \"vaultry search --help\" lists them");
    EXPECT_EQ(Mistake("loops:up"), "--sort: \"up\" is neither asc nor desc");
}

} // namespace

} // namespace Tarnex::Test
