// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Random.h>
#include <vaultry/foundation/RunState.h>
#include <vaultry/run/KeyPlan.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <set>
#include <vector>

namespace Tarnex::Test {

namespace {

using Keys = std::vector<std::optional<std::size_t>>;

constexpr auto kNoKey = std::nullopt;

std::size_t First(std::size_t /*count*/) {
    return 0;
}

std::size_t Last(std::size_t count) {
    return count - 1;
}

Keys AllLocked(const LockSite& site, std::size_t (*choose)(std::size_t) = First) {
    return PlanKeys(site, std::vector<bool>(site.doors.size(), true), choose).keys;
}

TEST(KeyPlanTest, AKeyLiesBeforeItsDoor) {
    const LockSite row = {3, {{0, 1}, {1, 2}}, {0, 1}, {0}};
    EXPECT_EQ(AllLocked(row), (Keys{0, 0}));
    // Of the second door it may lie behind the first.
    EXPECT_EQ(AllLocked(row, Last), (Keys{0, 1}));
}

TEST(KeyPlanTest, ADoorWithoutAChestBeforeItStaysOpen) {
    EXPECT_EQ(AllLocked({3, {{0, 1}, {1, 2}}, {1}, {0}}), (Keys{kNoKey, 0}));
    EXPECT_EQ(AllLocked({3, {{0, 1}, {1, 2}}, {2}, {0}}), (Keys{kNoKey, kNoKey}));
    EXPECT_EQ(AllLocked({2, {{0, 1}}, {}, {0}}), Keys{kNoKey});
}

TEST(KeyPlanTest, DoorsThatAreNotToBeLockedAreOpen) {
    const KeyPlan plan = PlanKeys({3, {{0, 1}, {1, 2}}, {1}, {0}}, {false, true}, First);
    EXPECT_EQ(plan.keys, (Keys{kNoKey, 0}));
    EXPECT_EQ(plan.reached, (std::vector<bool>{true, true, true}));
}

TEST(KeyPlanTest, NobodyIsAskedForADoorThatIsNotLocked) {
    std::vector<std::size_t> asked;
    const auto note = [&asked](std::size_t count) {
        asked.push_back(count);
        return std::size_t{0};
    };
    PlanKeys({4, {{0, 1}, {1, 2}, {2, 3}}, {1, 2, 2}, {0}}, {true, true, true}, note);
    EXPECT_EQ(asked, (std::vector<std::size_t>{1, 3}));
}

TEST(KeyPlanTest, DoorsThatOneStandsBeforeAreTakenInTheirOrder) {
    // The third is met first, since the others are behind it.
    const LockSite site = {4, {{1, 2}, {1, 3}, {0, 1}}, {0, 1, 2, 3}, {0}};
    EXPECT_EQ(AllLocked(site, Last), (Keys{1, 2, 0}));
}

TEST(KeyPlanTest, NoLockStandsBetweenStartsThatHangTogether) {
    // Two ways from one to the other, one by two doors and one by three.
    const LockSite site = {5, {{0, 1}, {1, 2}, {0, 3}, {3, 4}, {4, 2}}, {0, 2}, {0, 2}};
    EXPECT_EQ(AllLocked(site), (Keys{kNoKey, kNoKey, 0, 0, 0}));
    EXPECT_EQ(AllLocked({3, {{0, 1}, {1, 2}}, {0}, {2, 1, 0}}), (Keys{kNoKey, kNoKey}));
    EXPECT_EQ(AllLocked({2, {{0, 1}}, {0}, {0, 0}}), Keys{0});
}

TEST(KeyPlanTest, WhereStartsDoNotHangTogetherEachHasItsOwnKeys) {
    const LockSite site = {4, {{0, 1}, {2, 3}}, {0, 3}, {0, 2}};
    EXPECT_EQ(AllLocked(site), (Keys{0, kNoKey}));
}

TEST(KeyPlanTest, WhereNobodyGetsToNothingIsLocked) {
    const KeyPlan plan = PlanKeys({4, {{0, 1}, {2, 3}}, {0, 2}, {0}}, {true, true}, First);
    EXPECT_EQ(plan.keys, (Keys{0, kNoKey}));
    EXPECT_EQ(plan.reached, (std::vector<bool>{true, true, false, false}));
    EXPECT_EQ(AllLocked({2, {{0, 1}}, {0}, {}}), Keys{kNoKey});
}

TEST(KeyPlanTest, ADoorMayLeadAwayOrRoundInACircle) {
    EXPECT_EQ(AllLocked({2, {{0, kAway}, {0, 1}, {1, kAway}}, {1}, {0}}),
              (Keys{kNoKey, kNoKey, 0}));
    EXPECT_EQ(AllLocked({1, {{0, 0}}, {0}, {0}}), Keys{0});
}

// Somebody who opens what he has the key of, and what is not locked, until nothing changes.
std::set<std::size_t> Explored(const LockSite& site, const Keys& keys, std::size_t start) {
    std::set<std::size_t> places = {start};
    const auto opens = [&](std::size_t door) {
        return !keys[door] || places.contains(site.chests[*keys[door]]);
    };
    for (std::size_t before = 0; before != places.size();) {
        before = places.size();
        for (std::size_t door = 0; door < site.doors.size(); ++door) {
            const auto& [from, to] = site.doors[door];
            if (to != kAway && opens(door) && (places.contains(from) || places.contains(to))) {
                places.insert({from, to});
            }
        }
    }
    return places;
}

LockSite DrawSite() {
    const auto draw = [](std::int32_t n) { return static_cast<std::size_t>(RandomInt(n)); };
    LockSite site;
    site.places = 1 + draw(12);
    const auto place = [&] { return draw(static_cast<std::int32_t>(site.places)); };
    for (std::size_t doors = draw(20); doors > 0; --doors) {
        const std::size_t from = place();
        const std::size_t to = place();
        site.doors.push_back({from, draw(8) == 0 ? kAway : to});
    }
    for (std::size_t chests = draw(6); chests > 0; --chests) {
        site.chests.push_back(place());
    }
    for (std::size_t starts = 1 + draw(3); starts > 0; --starts) {
        site.starts.push_back(place());
    }
    return site;
}

TEST(KeyPlanTest, FromEveryStartEverythingCanBeOpened) {
    RunState state;
    const UseRunState use(&state);
    SeedRandom(2026);
    std::size_t locked = 0;
    for (int i = 0; i < 3000; ++i) {
        const LockSite site = DrawSite();
        std::vector<bool> wanted;
        for (std::size_t door = 0; door < site.doors.size(); ++door) {
            wanted.push_back(RandomInt(4) > 0);
        }
        const KeyPlan plan = PlanKeys(site, wanted, [](std::size_t count) {
            return static_cast<std::size_t>(RandomInt(static_cast<std::int32_t>(count)));
        });
        for (std::size_t door = 0; door < site.doors.size(); ++door) {
            EXPECT_TRUE(wanted[door] || !plan.keys[door]);
            locked += plan.keys[door] ? 1 : 0;
        }
        for (const std::size_t start : site.starts) {
            const std::set<std::size_t> places = Explored(site, plan.keys, start);
            EXPECT_EQ(places, Explored(site, Keys(site.doors.size()), start)) << "site " << i;
            for (std::size_t door = 0; door < site.doors.size(); ++door) {
                const bool before = places.contains(site.doors[door].from);
                EXPECT_TRUE(!before || plan.reached[site.doors[door].from]);
                EXPECT_TRUE(!before || !plan.keys[door] ||
                            places.contains(site.chests[*plan.keys[door]]))
                    << "site " << i << ", door " << door;
            }
        }
    }
    EXPECT_GT(locked, 3000U);
}

} // namespace

} // namespace Tarnex::Test
