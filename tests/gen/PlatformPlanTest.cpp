// SPDX-License-Identifier: MIT
#include <vaultry/gen/PlatformPlan.h>

#include <gtest/gtest.h>

#include <string>

namespace Tarnex::Test {

namespace {

TEST(PlatformPlanTest, HeightGrowsWithTheCell) {
    EXPECT_EQ(PlatformHeight(1), 16);
    EXPECT_EQ(PlatformHeight(256), 16);
    EXPECT_EQ(PlatformHeight(511), 16);
    EXPECT_EQ(PlatformHeight(512), 32);
    EXPECT_EQ(PlatformHeight(1023), 32);
    EXPECT_EQ(PlatformHeight(1024), 64);
    EXPECT_EQ(PlatformHeight(4096), 64);
}

PlatformTile Slab(float x, float y, float z) {
    PlatformTile floor;
    floor.kindName = "Floor";
    floor.size = Di3Point(x, y, z);
    return floor;
}

Tile TileOf(const char* kind, int area) {
    Tile tile;
    tile.kindName = kind;
    tile.area = area;
    tile.offset = Di3Point(5.0F, 7.0F, 9.0F);
    return tile;
}

struct PlanCase {
    const char* kind;
    int area;
    int columns;
    int rows;
    float x;
    float y;
    const char* stairs; // "" for none
    char axis;
    float place;
    int beamRow;
    int beamColumn;
};

// A cell of 256 with slabs of 64 x 32 x 8; the tile stands at (5, 7, 9).
// clang-format off
const PlanCase kPlans[] = {
    {"WallN",    AreaFull,    4, 8, -112.0F, -112.0F, "StairsUpN", 'y', -144.0F,  0, -1},
    {"CornerNE", AreaFull,    4, 8, -112.0F, -112.0F, "",          ' ',    0.0F, -1, -1},
    {"WallS",    AreaFull,    4, 8, -112.0F,  112.0F, "StairsUpS", 'y',  368.0F,  7, -1},
    {"CornerSW", AreaFull,    4, 8, -112.0F,  112.0F, "",          ' ',    0.0F, -1, -1},
    {"WallW",    AreaFull,    4, 8, -112.0F, -112.0F, "StairsUpW", 'x',  144.0F, -1,  3},
    {"CornerNW", AreaFull,    4, 8, -112.0F, -112.0F, "",          ' ',    0.0F, -1, -1},
    {"WallE",    AreaFull,    4, 8,  112.0F, -112.0F, "StairsUpE", 'x',   48.0F, -1,  0},
    {"CornerSE", AreaFull,    4, 8,  112.0F, -112.0F, "",          ' ',    0.0F, -1, -1},

    {"WallN",    AreaHalf,    4, 4, -112.0F, -112.0F, "StairsUpN", 'y', -144.0F,  0, -1},
    {"CornerNE", AreaHalf,    2, 4,  -96.0F, -112.0F, "",          ' ',    0.0F, -1, -1},
    {"WallS",    AreaHalf,    4, 4, -112.0F,   16.0F, "StairsUpS", 'y',  144.0F,  3, -1},
    {"CornerSW", AreaHalf,    2, 4,  -91.0F,   16.0F, "",          ' ',    0.0F, -1, -1},
    {"WallW",    AreaHalf,    2, 8,  -91.0F, -112.0F, "StairsUpW", 'x',   37.0F, -1,  1},
    {"CornerNW", AreaHalf,    2, 4,  -91.0F, -112.0F, "",          ' ',    0.0F, -1, -1},
    {"WallE",    AreaHalf,    2, 8,  -96.0F, -112.0F, "StairsUpE", 'x', -160.0F, -1,  0},
    {"CornerSE", AreaHalf,    2, 4,  -96.0F,   32.0F, "",          ' ',    0.0F, -1, -1},

    {"WallW",    AreaQuarter, 2, 8,  -91.0F, -112.0F, "StairsUpW", 'x',   37.0F, -1,  1},
    {"cornerse", AreaQuarter, 2, 4,  -96.0F,   32.0F, "",          ' ',    0.0F, -1, -1},
};
// clang-format on

void ExpectStairs(const StairsPlan& stairs, const PlanCase& c) {
    EXPECT_EQ(stairs.kind, c.stairs);
    EXPECT_EQ(stairs.axis == &Di3Point::x ? 'x' : 'y', c.axis);
    EXPECT_EQ(stairs.place, c.place);
}

TEST(PlatformPlanTest, EveryWallAndCornerHasItsFormulas) {
    for (const PlanCase& c : kPlans) {
        SCOPED_TRACE(std::string(c.kind) + " area " + std::to_string(c.area));
        const auto plan = PlanPlatform(TileOf(c.kind, c.area), Slab(64.0F, 32.0F, 8.0F), 256);
        ASSERT_TRUE(plan);
        EXPECT_EQ(plan->columns, c.columns);
        EXPECT_EQ(plan->rows, c.rows);
        EXPECT_EQ(plan->x, c.x);
        EXPECT_EQ(plan->y, c.y);
        EXPECT_EQ(plan->z, -108.0F);
        EXPECT_EQ(plan->stairs.has_value(), c.axis != ' ');
        if (plan->stairs) {
            ExpectStairs(*plan->stairs, c);
        }
        EXPECT_EQ(plan->beamRow, c.beamRow);
        EXPECT_EQ(plan->beamColumn, c.beamColumn);
    }
}

TEST(PlatformPlanTest, OtherKindsHaveNoPlatform) {
    for (const char* kind : {"Center",
                             "DoorwayN",
                             "HallNS",
                             "HallCornerNW",
                             "HallEndN",
                             "StairsUpN",
                             "DoorwayNW_N",
                             "Lamp",
                             ""}) {
        EXPECT_FALSE(PlanPlatform(TileOf(kind, AreaFull), Slab(64.0F, 32.0F, 8.0F), 256)) << kind;
    }
}

TEST(PlatformPlanTest, FloorLevelFollowsTheHeightOfTheCell) {
    const Tile wall = TileOf("WallN", AreaFull);
    EXPECT_EQ(PlanPlatform(wall, Slab(64.0F, 64.0F, 16.0F), 256)->z, -104.0F);
    EXPECT_EQ(PlanPlatform(wall, Slab(64.0F, 64.0F, 16.0F), 512)->z, -216.0F);
    EXPECT_EQ(PlanPlatform(wall, Slab(64.0F, 64.0F, 16.0F), 1024)->z, -440.0F);
}

TEST(PlatformPlanTest, CountsAreCutAndHalvesAreCutAgain) {
    const auto full = PlanPlatform(TileOf("CornerNE", AreaFull), Slab(50.0F, 36.0F, 0.0F), 256);
    EXPECT_EQ(full->columns, 5);
    EXPECT_EQ(full->rows, 7);
    const auto half = PlanPlatform(TileOf("CornerNE", AreaHalf), Slab(50.0F, 36.0F, 0.0F), 256);
    EXPECT_EQ(half->columns, 2);
    EXPECT_EQ(half->rows, 3);
    // 25.6 in single precision lies a little above.
    EXPECT_EQ(PlanPlatform(TileOf("WallN", AreaFull), Slab(25.6F, 64.0F, 0.0F), 256)->columns, 9);
}

TEST(PlatformPlanTest, SlabsWithoutExtentAreNeverLaid) {
    const auto plan = PlanPlatform(TileOf("WallN", AreaFull), Slab(0.0F, 0.0F, 0.0F), 256);
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->columns, 0);
    EXPECT_EQ(plan->rows, 0);
    EXPECT_EQ(PlanPlatform(TileOf("WallN", AreaFull), Slab(-64.0F, 300.0F, 0.0F), 256)->columns,
              -4);
    EXPECT_EQ(PlanPlatform(TileOf("WallN", AreaFull), Slab(-64.0F, 300.0F, 0.0F), 256)->rows, 0);
}

} // namespace

} // namespace Tarnex::Test
