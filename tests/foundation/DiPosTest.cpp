// SPDX-License-Identifier: MIT
#include <vaultry/foundation/DiPos.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace Tarnex::Test {

namespace {

TEST(DiPosTest, StartsAtZero) {
    const DiPos pos;
    EXPECT_EQ(pos.x, 0);
    EXPECT_EQ(pos.y, 0);
    EXPECT_EQ(pos.z, 0);
    EXPECT_TRUE(pos.isZero());
}

TEST(DiPosTest, TakesItsComponentsInOrder) {
    const DiPos pos(1, -2, 3);
    EXPECT_EQ(pos.x, 1);
    EXPECT_EQ(pos.y, -2);
    EXPECT_EQ(pos.z, 3);
}

TEST(DiPosTest, SetReplacesAllComponents) {
    DiPos pos(1, 2, 3);
    pos.set(-4, 5, -6);
    EXPECT_EQ(pos.x, -4);
    EXPECT_EQ(pos.y, 5);
    EXPECT_EQ(pos.z, -6);
}

TEST(DiPosTest, AddsComponentWise) {
    DiPos pos(1, 2, 3);
    pos += DiPos(10, -20, 30);
    EXPECT_EQ(pos, DiPos(11, -18, 33));
    EXPECT_EQ(DiPos(1, 2, 3) + DiPos(4, 5, 6), DiPos(5, 7, 9));
}

TEST(DiPosTest, SubtractsComponentWise) {
    DiPos pos(1, 2, 3);
    pos -= DiPos(10, -20, 30);
    EXPECT_EQ(pos, DiPos(-9, 22, -27));
}

TEST(DiPosTest, IsZeroNeedsAllThreeComponents) {
    EXPECT_TRUE(DiPos(0, 0, 0).isZero());
    EXPECT_FALSE(DiPos(1, 0, 0).isZero());
    EXPECT_FALSE(DiPos(0, -1, 0).isZero());
    EXPECT_FALSE(DiPos(0, 0, 1).isZero());
}

TEST(DiPosTest, CopiesAreIndependent) {
    DiPos original(1, 2, 3);
    const DiPos copy = original;
    original.set(7, 8, 9);
    EXPECT_EQ(copy, DiPos(1, 2, 3));
    original = copy;
    EXPECT_EQ(original, DiPos(1, 2, 3));
}

TEST(DiPosTest, ComparesAllThreeComponents) {
    EXPECT_EQ(DiPos(1, 2, 3), DiPos(1, 2, 3));
    EXPECT_NE(DiPos(1, 2, 3), DiPos(0, 2, 3));
    EXPECT_NE(DiPos(1, 2, 3), DiPos(1, 0, 3));
    EXPECT_NE(DiPos(1, 2, 3), DiPos(1, 2, 0));
}

TEST(DiPosTest, HoldsThreeSigned32BitNumbers) {
    static_assert(std::is_same_v<decltype(DiPos::x), std::int32_t>);
    static_assert(std::is_same_v<decltype(DiPos::y), std::int32_t>);
    static_assert(std::is_same_v<decltype(DiPos::z), std::int32_t>);
    const DiPos extremes(2147483647, -2147483647 - 1, -1);
    EXPECT_EQ(extremes.x, 2147483647);
    EXPECT_EQ(extremes.y, -2147483647 - 1);
}

} // namespace

} // namespace Tarnex::Test
