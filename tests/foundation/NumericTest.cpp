// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Numeric.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace Tarnex::Test {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::int32_t kMax = 2147483647;
constexpr std::int32_t kMin = -2147483647 - 1;

TEST(TruncToIntTest, CutsTowardZero) {
    EXPECT_EQ(TruncToInt(0.0), 0);
    EXPECT_EQ(TruncToInt(-0.0), 0);
    EXPECT_EQ(TruncToInt(2.0), 2);
    EXPECT_EQ(TruncToInt(2.999), 2);
    EXPECT_EQ(TruncToInt(-2.999), -2);
    EXPECT_EQ(TruncToInt(0.999), 0);
    EXPECT_EQ(TruncToInt(-0.999), 0);
}

TEST(TruncToIntTest, NotANumberGivesZero) {
    EXPECT_EQ(TruncToInt(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(TruncToInt(-std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(TruncToIntTest, ReachesTheEndsOfTheRange) {
    EXPECT_EQ(TruncToInt(2147483646.9), 2147483646);
    EXPECT_EQ(TruncToInt(2147483647.0), kMax);
    EXPECT_EQ(TruncToInt(-2147483647.9), -kMax);
    EXPECT_EQ(TruncToInt(-2147483648.0), kMin);
}

TEST(TruncToIntTest, SaturatesBeyondTheRange) {
    EXPECT_EQ(TruncToInt(2147483647.5), kMax);
    EXPECT_EQ(TruncToInt(2147483648.0), kMax);
    EXPECT_EQ(TruncToInt(1e300), kMax);
    EXPECT_EQ(TruncToInt(kInfinity), kMax);
    EXPECT_EQ(TruncToInt(-2147483648.5), kMin);
    EXPECT_EQ(TruncToInt(-1e300), kMin);
    EXPECT_EQ(TruncToInt(-kInfinity), kMin);
}

TEST(RadiansPerDegreeTest, IsPiDividedBy180) {
    EXPECT_EQ(kRadiansPerDegree, 0.017453292519943295);
    EXPECT_EQ(static_cast<float>(90 * kRadiansPerDegree), 0x1.921fb6p+0F);
}

} // namespace

} // namespace Tarnex::Test
