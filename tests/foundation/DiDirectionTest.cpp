// SPDX-License-Identifier: MIT
#include <vaultry/foundation/DiDirection.h>

#include <gtest/gtest.h>

namespace Tarnex::Test {

namespace {

void ExpectStep(const DiDirection& direction, std::int32_t stepX, std::int32_t stepY) {
    EXPECT_EQ(direction.stepX, stepX);
    EXPECT_EQ(direction.stepY, stepY);
}

void ExpectDistances(const DiDirection& direction, std::int32_t distX, std::int32_t distY) {
    EXPECT_EQ(direction.distX, distX);
    EXPECT_EQ(direction.distY, distY);
}

TEST(DiDirectionTest, StartsWithoutStepOrDistance) {
    const DiDirection direction;
    ExpectStep(direction, 0, 0);
    ExpectDistances(direction, 0, 0);
}

TEST(DiDirectionTest, ATieMovesAlongY) {
    const DiDirection direction(DiPos(0, 0, 0), DiPos(3, 3, 0));
    ExpectStep(direction, 0, 1);
    ExpectDistances(direction, 3, 3);
}

TEST(DiDirectionTest, ATieOfOppositeSignsMovesAlongY) {
    const DiDirection direction(DiPos(0, 0, 0), DiPos(3, -3, 0));
    ExpectStep(direction, 0, -1);
    ExpectDistances(direction, 3, -3);
}

TEST(DiDirectionTest, MovesWestToATargetInTheSameRow) {
    const DiDirection direction(DiPos(5, 2, 0), DiPos(1, 2, 0));
    ExpectStep(direction, -1, 0);
    ExpectDistances(direction, -4, 0);
}

TEST(DiDirectionTest, MovesEastToATargetInTheSameRow) {
    const DiDirection direction(DiPos(1, 2, 0), DiPos(2, 2, 0));
    ExpectStep(direction, 1, 0);
    ExpectDistances(direction, 1, 0);
}

TEST(DiDirectionTest, MovesNorthToATargetInTheSameColumn) {
    const DiDirection direction(DiPos(2, 7, 0), DiPos(2, 6, 0));
    ExpectStep(direction, 0, -1);
    ExpectDistances(direction, 0, -1);
}

TEST(DiDirectionTest, MovesAlongTheLongerAxis) {
    ExpectStep(DiDirection(DiPos(0, 0, 0), DiPos(4, 3, 0)), 1, 0);
    ExpectStep(DiDirection(DiPos(0, 0, 0), DiPos(-4, 3, 0)), -1, 0);
    ExpectStep(DiDirection(DiPos(0, 0, 0), DiPos(3, 4, 0)), 0, 1);
    ExpectStep(DiDirection(DiPos(0, 0, 0), DiPos(3, -4, 0)), 0, -1);
}

TEST(DiDirectionTest, AtTheTargetThereIsNothingLeft) {
    const DiDirection direction(DiPos(4, 4, 0), DiPos(4, 4, 0));
    ExpectStep(direction, 0, 0);
    ExpectDistances(direction, 0, 0);
}

TEST(DiDirectionTest, IgnoresZ) {
    const DiDirection direction(DiPos(0, 0, -9), DiPos(0, 0, 100));
    ExpectStep(direction, 0, 0);
    ExpectDistances(direction, 0, 0);
}

TEST(DiDirectionTest, SetReplacesWhatStoodThere) {
    DiDirection direction(DiPos(0, 0, 0), DiPos(9, 1, 0));
    direction.Set(DiPos(0, 5, 0), DiPos(0, 2, 0));
    ExpectStep(direction, 0, -1);
    ExpectDistances(direction, 0, -3);
}

TEST(DiDirectionTest, DistancesAreReadWithoutSign) {
    const DiDirection direction(DiPos(5, 9, 0), DiPos(1, 2, 0));
    EXPECT_EQ(direction.GetDistanceX(), 4U);
    EXPECT_EQ(direction.GetDistanceY(), 7U);
}

TEST(DiDirectionTest, TheLargestNegativeDistanceHasAMagnitude) {
    const DiDirection direction(DiPos(0, 0, 0), DiPos(-2147483647 - 1, 0, 0));
    EXPECT_EQ(direction.GetDistanceX(), 2147483648U);
    ExpectStep(direction, -1, 0);
}

TEST(DiDirectionTest, ACopyCarriesTheStepAlone) {
    const DiDirection original(DiPos(0, 0, 0), DiPos(3, 3, 0));
    const DiDirection copy = original;
    ExpectStep(copy, 0, 1);
    ExpectDistances(copy, 0, 0);
}

TEST(DiDirectionTest, AssignmentCarriesTheStepAlone) {
    const DiDirection source(DiPos(0, 0, 0), DiPos(0, -8, 0));
    DiDirection target(DiPos(0, 0, 0), DiPos(2, 1, 0));
    target = source;
    ExpectStep(target, 0, -1);
    ExpectDistances(target, 2, 1);
}

// At most one component of a step is not 0, whatever the target.
TEST(DiDirectionTest, NeverStepsDiagonally) {
    for (std::int32_t x = -3; x <= 3; ++x) {
        for (std::int32_t y = -3; y <= 3; ++y) {
            const DiDirection direction(DiPos(0, 0, 0), DiPos(x, y, 0));
            EXPECT_EQ(direction.stepX * direction.stepY, 0) << x << ", " << y;
            const bool arrived = x == 0 && y == 0;
            EXPECT_EQ(direction.stepX == 0 && direction.stepY == 0, arrived) << x << ", " << y;
        }
    }
}

} // namespace

} // namespace Tarnex::Test
