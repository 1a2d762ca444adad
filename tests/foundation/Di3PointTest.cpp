// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Di3Point.h>

#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>

namespace Tarnex::Test {

namespace {

TEST(Di3PointTest, StartsAtZero) {
    const Di3Point point;
    EXPECT_EQ(point.x, 0.0F);
    EXPECT_EQ(point.y, 0.0F);
    EXPECT_EQ(point.z, 0.0F);
}

TEST(Di3PointTest, TakesItsComponentsInOrder) {
    const Di3Point point(1.5F, -2.5F, 3.5F);
    EXPECT_EQ(point.x, 1.5F);
    EXPECT_EQ(point.y, -2.5F);
    EXPECT_EQ(point.z, 3.5F);
}

TEST(Di3PointTest, AddsComponentWise) {
    Di3Point point(1.0F, 2.0F, 3.0F);
    point += Di3Point(0.5F, -4.0F, 0.25F);
    EXPECT_EQ(point, Di3Point(1.5F, -2.0F, 3.25F));
    EXPECT_EQ(Di3Point(1.0F, 2.0F, 3.0F) + Di3Point(4.0F, 5.0F, 6.0F), Di3Point(5.0F, 7.0F, 9.0F));
}

TEST(Di3PointTest, SubtractsComponentWise) {
    Di3Point point(1.0F, 2.0F, 3.0F);
    point -= Di3Point(0.5F, -4.0F, 0.25F);
    EXPECT_EQ(point, Di3Point(0.5F, 6.0F, 2.75F));
}

TEST(Di3PointTest, SumsAreRoundedToSinglePrecision) {
    Di3Point point(16777216.0F, 0.0F, 0.0F);
    point += Di3Point(1.0F, 0.0F, 0.0F);
    EXPECT_EQ(point.x, 16777216.0F);
}

TEST(Di3PointTest, NegateChangesEachSign) {
    Di3Point point(1.5F, -2.5F, 3.5F);
    point.negate();
    EXPECT_EQ(point, Di3Point(-1.5F, 2.5F, -3.5F));
}

TEST(Di3PointTest, NegateGivesZeroASign) {
    Di3Point point(0.0F, -0.0F, 0.0F);
    point.negate();
    EXPECT_TRUE(std::signbit(point.x));
    EXPECT_FALSE(std::signbit(point.y));
    EXPECT_TRUE(std::signbit(point.z));
}

TEST(Di3PointTest, CopiesAreIndependent) {
    Di3Point original(1.0F, 2.0F, 3.0F);
    const Di3Point copy = original;
    original.negate();
    EXPECT_EQ(copy, Di3Point(1.0F, 2.0F, 3.0F));
    original = copy;
    EXPECT_EQ(original, Di3Point(1.0F, 2.0F, 3.0F));
}

TEST(Di3PointTest, HoldsThreeSinglePrecisionNumbers) {
    static_assert(std::is_same_v<decltype(Di3Point::x), float>);
    static_assert(std::is_same_v<decltype(Di3Point::y), float>);
    static_assert(std::is_same_v<decltype(Di3Point::z), float>);
    EXPECT_EQ(sizeof(Di3Point), 12U);
}

} // namespace

} // namespace Tarnex::Test
