// SPDX-License-Identifier: MIT
#include <vaultry/gen/WorldPlace.h>

#include <gtest/gtest.h>

#include <cmath>

namespace Tarnex::Test {

namespace {

TEST(WorldPlaceTest, RowsRunSouthTowardsNegativeY) {
    EXPECT_EQ(WorldPosition(DiPos(1, 2, 0), {}, Di3Point(10.0F, 20.0F, 30.0F), 256),
              Di3Point(266.0F, -492.0F, 30.0F));
}

TEST(WorldPlaceTest, OffsetOfTheLayoutIsMeasuredInCells) {
    EXPECT_EQ(WorldPosition(DiPos(0, 0, 0), Di3Point(3.0F, 4.0F, 0.5F), {}, 256),
              Di3Point(768.0F, -1024.0F, 128.0F));
    EXPECT_EQ(WorldPosition(
                  DiPos(2, 1, 0), Di3Point(-1.0F, -3.0F, -2.0F), Di3Point(1.0F, 2.0F, 3.0F), 100),
              Di3Point(101.0F, 202.0F, -197.0F));
}

TEST(WorldPlaceTest, LevelOfTheGridPositionPlaysNoPart) {
    EXPECT_EQ(WorldPosition(DiPos(1, 1, 9), {}, {}, 256), Di3Point(256.0F, -256.0F, 0.0F));
}

TEST(WorldPlaceTest, SumsAreRoundedOnceAtTheEnd) {
    const Di3Point at = WorldPosition(
        DiPos(1000, 1000, 0), Di3Point(0.3F, 0.3F, 0.3F), Di3Point(0.1F, 0.1F, 0.1F), 256);
    EXPECT_EQ(at.x, 256076.906F); // single precision at each step would give 256076.891
    EXPECT_EQ(at.y, -256076.703F);
    EXPECT_EQ(at.z, 76.9000015F);
}

TEST(WorldPlaceTest, NorthWestCornerIsAPlainZero) {
    const Di3Point at = WorldPosition(DiPos(0, 0, 0), {}, Di3Point(-0.0F, 0.0F, -0.0F), 256);
    EXPECT_FALSE(std::signbit(at.x));
    EXPECT_FALSE(std::signbit(at.y));
    EXPECT_FALSE(std::signbit(at.z));
}

TEST(WorldPlaceTest, HugeCellsDoNotOverflow) {
    EXPECT_EQ(WorldPosition(DiPos(1023, 1023, 0), {}, {}, 2147483647),
              Di3Point(2196875770881.0F, -2196875770881.0F, 0.0F));
}

TEST(WorldPlaceTest, WholeDegreesBecomeRadians) {
    EXPECT_EQ(Radians(0), 0.0F);
    EXPECT_EQ(Radians(1), 0.0174532924F);
    EXPECT_EQ(Radians(90), 1.57079637F);
    EXPECT_EQ(Radians(180), 3.14159274F);
    EXPECT_EQ(Radians(270), 4.71238899F);
    EXPECT_EQ(Radians(-90), -1.57079637F);
    EXPECT_EQ(Radians(2147483647), 37480660.0F);
}

} // namespace

} // namespace Tarnex::Test
