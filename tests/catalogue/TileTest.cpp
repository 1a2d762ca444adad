// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/Tile.h>

#include <gtest/gtest.h>

namespace Tarnex::Test {

TEST(Tile, StartsEmptyUnturnedAndUnscaled) {
    const Tile tile;
    EXPECT_STREQ(tile.ID(), "");
    EXPECT_EQ(tile.area, 0);
    EXPECT_TRUE(tile.IsFullSize());
    EXPECT_TRUE(tile.kindName.empty());
    EXPECT_EQ(tile.zRotate, 0);
    EXPECT_EQ(tile.deltaZ, 0);
    EXPECT_EQ(tile.offset, Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(tile.scale, 1.0F);
    EXPECT_TRUE(tile.requiredName.empty());
}

TEST(Tile, OnlyAreaZeroIsFullSize) {
    Tile tile;
    tile.area = 1;
    EXPECT_FALSE(tile.IsFullSize());
    tile.area = 2;
    EXPECT_FALSE(tile.IsFullSize());
    tile.area = 0;
    EXPECT_TRUE(tile.IsFullSize());
}

TEST(Tile, CopiesEveryField) {
    Tile tile;
    tile.id = "in_wall_01";
    tile.area = 2;
    tile.kindName = "WallN";
    tile.zRotate = 45;
    tile.deltaZ = 64;
    tile.offset = Di3Point(1.0F, 2.0F, 3.0F);
    tile.scale = 0.5F;
    tile.requiredName = "Center";

    Tile assigned;
    assigned = tile;
    for (const Tile& copy : {Tile(tile), assigned}) {
        EXPECT_STREQ(copy.ID(), "in_wall_01");
        EXPECT_EQ(copy.area, 2);
        EXPECT_EQ(copy.kindName, "WallN");
        EXPECT_EQ(copy.zRotate, 45);
        EXPECT_EQ(copy.deltaZ, 64);
        EXPECT_EQ(copy.offset, Di3Point(1.0F, 2.0F, 3.0F));
        EXPECT_EQ(copy.scale, 0.5F);
        EXPECT_EQ(copy.requiredName, "Center");
    }
}

TEST(IsDoorTile, IsTrueForTheFourDoorsInAnyLetterCase) {
    for (const char* name : {"DoorN", "DoorS", "DoorE", "DoorW", "DOORn", "doorw"}) {
        Tile tile;
        tile.kindName = name;
        EXPECT_TRUE(IsDoorTile(tile)) << name;
    }
}

TEST(IsDoorTile, IsFalseForDoorwaysJambsAndEverythingElse) {
    for (const char* name :
         {"DoorwayN", "DoorjambN", "DoorwayNW_N", "WallN", "Door", "DoorN_2", ""}) {
        Tile tile;
        tile.kindName = name;
        EXPECT_FALSE(IsDoorTile(tile)) << name;
    }
}

} // namespace Tarnex::Test
