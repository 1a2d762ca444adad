// SPDX-License-Identifier: MIT
// The map vocabulary that other tests draw with.
#include <vaultry/layout/ElmtKind.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <tests/support/LogTest.h>
#include <tests/support/TextGrid.h>

namespace Tarnex::Test {

namespace {

class TextGrid : public LogTest {
protected:
    DiPtr<TileSet> tiles = MakeFullTileSet();
};

TEST_F(TextGrid, FullTileSetHoldsEveryKindWithItsNameAsId) {
    for (const char* name : {"CornerSE",
                             "WallW",
                             "Center",
                             "Center_22",
                             "DoorwayE",
                             "DoorwaySW_W",
                             "DoorwaySW_S",
                             "DoorjambS",
                             "DoorW",
                             "HallEW",
                             "HallEW_2",
                             "HallEndW",
                             "HallCornerSE",
                             "Hall4Way",
                             "StairsUpW",
                             "StairsDnW",
                             "StairsUpW_2",
                             "StairsDnW_2"}) {
        ASSERT_TRUE(tiles->Get(TileKindName(name))) << name;
        EXPECT_STREQ(tiles->Get(TileKindName(name))->ID(), name);
    }
    EXPECT_TRUE(tiles->AllowCornerDoors());
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(TextGrid, EveryCodeIsReadAndPrintedAsItself) {
    const char* map = R"(
        NW  NE  SW  SE  wN wS wE wW  c   c2
        dN  dS  dE  dW  jN jS jE jW  lN  lS
        lE  lW  NWw NWn NEn NEe SEe SEs SWs SWw
        |   -   |2  -2  ^  v  >  <  ,-  -,
        `-  -'  +   uN  uS uE uW nN nS nE
        nW  uN2 uS2 uE2 uW2 nN2 nS2 nE2 nW2 .
        DN  DS  DE  DW  o  o~ |~ DN! c&uN ^~!
    )";
    EXPECT_EQ(ToText(*ToLayout(map, *tiles)), Map(map));
}

TEST_F(TextGrid, MapIsPaddedByColumn) {
    EXPECT_EQ(Map("\n  c   DN!\n\n  .   c&uN  |\n"), "\nc DN!\n. c&uN |\n");
}

TEST_F(TextGrid, FirstTileOfADoorwayWithDoorIsTheDoorway) {
    const DiPtr<GridElmt> elmt = ToElmt("DE", *tiles);
    ASSERT_EQ(elmt->tiles.size(), 3U);
    EXPECT_EQ(elmt->tiles[0]->kindName, "DoorwayE");
    EXPECT_EQ(elmt->tiles[1]->kindName, "DoorjambE");
    EXPECT_EQ(elmt->tiles[2]->kindName, "DoorE");
    EXPECT_EQ(ToText(elmt), "DE");
}

TEST_F(TextGrid, DrawLeavesTheRestOfALayoutAlone) {
    const DiPtr<Layout> layout = ToLayout("c c c \n c c c", *tiles);
    Draw(*layout, 1, 1, "wN .", *tiles);
    EXPECT_EQ(ToText(*layout), Map(R"(
        c c  c
        c wN .)"));
}

TEST_F(TextGrid, TilesOfOtherNamesShowByName) {
    Tile lamp;
    lamp.kindName = "Lamp";
    tiles->Set(lamp);
    EXPECT_EQ(ToText(*ToLayout("c&?Lamp ?lamp", *tiles)), Map("c&?Lamp ?Lamp"));
}

TEST_F(TextGrid, MapsThatMakeNoSenseAreRefused) {
    EXPECT_THROW(ToLayout("c c \n c", *tiles), std::invalid_argument);
    EXPECT_THROW(ToLayout("xx", *tiles), std::invalid_argument);
    EXPECT_THROW(ToLayout("?Lamp", *tiles), std::invalid_argument);
    EXPECT_THROW(ToLayout("c", *MakeDi<TileSet>()), std::invalid_argument);
}

} // namespace

} // namespace Tarnex::Test
