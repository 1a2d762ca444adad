// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Groups.h>

#include <gtest/gtest.h>

namespace Tarnex::Test {

namespace {

std::size_t CountLeaders(const Groups& groups, std::size_t size) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < size; ++i) {
        count += groups.IsLeader(i) ? 1U : 0U;
    }
    return count;
}

TEST(GroupsTest, EachStandsAloneAtFirst) {
    Groups groups(3);
    EXPECT_EQ(groups.Of(0), 0U);
    EXPECT_EQ(groups.Of(2), 2U);
    EXPECT_EQ(CountLeaders(groups, 3), 3U);
}

TEST(GroupsTest, WhatIsJoinedByWayOfOthersIsOneGroup) {
    Groups groups(6);
    groups.Join(0, 1);
    groups.Join(2, 3);
    EXPECT_NE(groups.Of(0), groups.Of(3));
    groups.Join(3, 1);
    groups.Join(0, 2); // are one group already
    for (const std::size_t i : {1U, 2U, 3U}) {
        EXPECT_EQ(groups.Of(i), groups.Of(0)) << i;
    }
    EXPECT_EQ(groups.Of(5), 5U);
    EXPECT_EQ(CountLeaders(groups, 6), 3U);
}

TEST(GroupsTest, LongChainsHaveOneLeader) {
    constexpr std::size_t kSize = 10'000;
    Groups groups(kSize);
    for (std::size_t i = 1; i < kSize; ++i) {
        groups.Join(i - 1, i);
    }
    EXPECT_EQ(groups.Of(0), groups.Of(kSize - 1));
    EXPECT_EQ(CountLeaders(groups, kSize), 1U);
}

} // namespace

} // namespace Tarnex::Test
