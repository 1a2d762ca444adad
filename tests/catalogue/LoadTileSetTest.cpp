// SPDX-License-Identifier: MIT
// Tile sets and their tiles as a configuration gives them.
#include <array>
#include <tests/catalogue/LoaderTest.h>

namespace Tarnex::Test {

namespace {

class LoadTileSetTest : public LoaderTest {
protected:
    // A room tile set around `tiles`.
    void LoadTiles(const std::string& tiles) {
        Load("<TileSet TsName='Crypt' TsType='Room'>" + tiles + "</TileSet>");
    }
};

} // namespace

TEST_F(LoadTileSetTest, TakesEveryAttribute) {
    Load("<TileSet TsName='Crypt' TsType='Room' WallThickness='12.5' TsSize='512'/>");
    EXPECT_EQ(RoomSet().GetName(), "Crypt");
    EXPECT_EQ(RoomSet().GetType(), "Room");
    EXPECT_EQ(RoomSet().GetWallThickness(), 12.5F);
    EXPECT_EQ(RoomSet().GetTileSize(), 512);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadTileSetTest, AbsentAttributesLeaveTheDefaults) {
    Load("<TileSet TsType='Room'/>");
    EXPECT_EQ(RoomSet().GetName(), "");
    EXPECT_EQ(RoomSet().GetTileSize(), 256);
}

TEST_F(LoadTileSetTest, NamesAndTypesIgnoreLetterCase) {
    Load("<tILEsET TSNAME='Deep' tstype='cAVE' wallTHICKNESS='3' tsSIZE='128'/>"
         "<TILESET tsname='Wide' TSTYPE='ROOM'/>");
    ASSERT_EQ(config.caveTileSets.size(), 1U);
    EXPECT_EQ(config.caveTileSets[0]->GetName(), "Deep");
    EXPECT_EQ(config.caveTileSets[0]->GetType(), "cAVE");
    EXPECT_EQ(config.caveTileSets[0]->GetWallThickness(), 3.0F);
    EXPECT_EQ(config.caveTileSets[0]->GetTileSize(), 128);
    EXPECT_EQ(RoomSet().GetName(), "Wide");
}

TEST_F(LoadTileSetTest, SetsOfBothTypesKeepTheirOrderAndDuplicates) {
    Load("<TileSet TsName='A' TsType='Room'/><TileSet TsName='B' TsType='Cave'/>"
         "<TileSet TsName='C' TsType='Room'/><TileSet TsName='B' TsType='Cave'/>");
    ASSERT_EQ(config.roomTileSets.size(), 2U);
    EXPECT_EQ(config.roomTileSets[0]->GetName(), "A");
    EXPECT_EQ(config.roomTileSets[1]->GetName(), "C");
    ASSERT_EQ(config.caveTileSets.size(), 2U);
    EXPECT_EQ(config.caveTileSets[0]->GetName(), "B");
    EXPECT_EQ(config.caveTileSets[1]->GetName(), "B");
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(LoadTileSetTest, ASetOfAnotherTypeIsDroppedWithAnError) {
    Load("<TileSet TsName='Attic' TsType='House'/><TileSet TsName='Void'/>"
         "<TileSet TsName='Blank' TsType='Room '/>");
    EXPECT_TRUE(config.roomTileSets.empty());
    EXPECT_TRUE(config.caveTileSets.empty());
    EXPECT_EQ(
        ErrorLines(),
        Lines({"Error : XML Parser : Unrecognized TileSet Type 'House' in TileSet 'Attic'.",
               "Error : XML Parser : Unrecognized TileSet Type '' in TileSet 'Void'.",
               "Error : XML Parser : Unrecognized TileSet Type 'Room ' in TileSet 'Blank'."}));
}

TEST_F(LoadTileSetTest, SizesFrom128To1024AreUsual) {
    Load("<TileSet TsType='Room' TsSize='128'/><TileSet TsType='Room' TsSize='1024'/>");
    EXPECT_EQ(config.roomTileSets.front()->GetTileSize(), 128);
    EXPECT_EQ(config.roomTileSets.back()->GetTileSize(), 1024);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadTileSetTest, AnUnusualSizeIsAnErrorAndKept) {
    Load("<TileSet TsName='Small' TsType='Room' TsSize='127'/>"
         "<TileSet TsName='Large' TsType='Room' TsSize='1025'/>"
         "<TileSet TsName='Odd' TsType='Room' TsSize='big'/>"
         "<TileSet TsName='Below' TsType='Room' TsSize='-5'/>");
    ASSERT_EQ(config.roomTileSets.size(), 4U);
    EXPECT_EQ(config.roomTileSets[0]->GetTileSize(), 127);
    EXPECT_EQ(config.roomTileSets[1]->GetTileSize(), 1025);
    EXPECT_EQ(config.roomTileSets[2]->GetTileSize(), 0);
    EXPECT_EQ(config.roomTileSets[3]->GetTileSize(), -5);
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : XML Parser : Unusual tile set size (127) for tile set 'Small'.",
                     "Error : XML Parser : Unusual tile set size (1025) for tile set 'Large'.",
                     "Error : XML Parser : Unusual tile set size (0) for tile set 'Odd'.",
                     "Error : XML Parser : Unusual tile set size (-5) for tile set 'Below'."}));
}

TEST_F(LoadTileSetTest, TheSizeErrorKnowsOnlyANameThatStandsBeforeTheSize) {
    Load("<TileSet TsSize='64' TsName='Late' TsType='Room'/>");
    EXPECT_EQ(RoomSet().GetName(), "Late");
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : XML Parser : Unusual tile set size (64) for tile set ''."}));
}

TEST_F(LoadTileSetTest, ATileTakesEveryAttribute) {
    LoadTiles("<Center ZRotate='45' DeltaZ='64' OffsetX='1.5' OffsetY='-2.5' OffsetZ='3.25' "
              "Scale='0.5' Area='HalfSize' Requires='WallN'>floor_01</Center>");
    const Tile& tile = TileOf("Center");
    EXPECT_EQ(tile.kindName, "Center");
    EXPECT_EQ(tile.id, "floor_01");
    EXPECT_EQ(tile.zRotate, 45);
    EXPECT_EQ(tile.deltaZ, 64);
    EXPECT_EQ(tile.offset, Di3Point(1.5F, -2.5F, 3.25F));
    EXPECT_EQ(tile.scale, 0.5F);
    EXPECT_EQ(tile.area, 1);
    EXPECT_EQ(tile.requiredName, "WallN");
}

TEST_F(LoadTileSetTest, TileAttributesIgnoreLetterCase) {
    LoadTiles("<CENTER zROTATE='45' DELTAZ='64' offsetx='1' OFFSETY='2' oFFSETz='3' SCALE='2' "
              "AREA='QUARTERsize' REQUIRES='x'/>");
    const Tile& tile = TileOf("Center");
    EXPECT_EQ(tile.kindName, "CENTER");
    EXPECT_EQ(tile.zRotate, 45);
    EXPECT_EQ(tile.deltaZ, 64);
    EXPECT_EQ(tile.offset, Di3Point(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(tile.scale, 2.0F);
    EXPECT_EQ(tile.area, 2);
    EXPECT_FALSE(tile.IsFullSize());
    EXPECT_EQ(tile.requiredName, "x");
}

TEST_F(LoadTileSetTest, ATileWithoutAttributesHasTheDefaults) {
    LoadTiles("<Center/>");
    const Tile& tile = TileOf("Center");
    EXPECT_EQ(tile.id, "");
    EXPECT_EQ(tile.zRotate, 0);
    EXPECT_EQ(tile.deltaZ, 0);
    EXPECT_EQ(tile.offset, Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(tile.scale, 1.0F);
    EXPECT_EQ(tile.area, 0);
    EXPECT_TRUE(tile.requiredName.empty());
}

TEST_F(LoadTileSetTest, AreaKnowsTwoWords) {
    struct AreaCase {
        const char* word;
        int area;
    };
    constexpr std::array<AreaCase, 8> kAreas = {{{"HalfSize", 1},
                                                 {"halfsize", 1},
                                                 {"QuarterSize", 2},
                                                 {"qUARTERsIZE", 2},
                                                 {"FullSize", 0},
                                                 {"Half", 0},
                                                 {"1", 0},
                                                 {"", 0}}};
    for (const AreaCase& area : kAreas) {
        LoadTiles(std::string("<Center Area='") + area.word + "'/>");
        EXPECT_EQ(TileOf("Center").area, area.area) << area.word;
    }
}

TEST_F(LoadTileSetTest, MalformedNumbersReadAsFarAsTheyGo) {
    LoadTiles("<Center ZRotate='90deg' DeltaZ='none' OffsetX='1.5m' OffsetY='abc' OffsetZ=' +2e1x' "
              "Scale=''/>");
    const Tile& tile = TileOf("Center");
    EXPECT_EQ(tile.zRotate, 90);
    EXPECT_EQ(tile.deltaZ, 0);
    EXPECT_EQ(tile.offset, Di3Point(1.5F, 0.0F, 20.0F));
    EXPECT_EQ(tile.scale, 0.0F);
}

TEST_F(LoadTileSetTest, NumbersOutOfRangeAndInOtherNotations) {
    LoadTiles("<Center ZRotate='99999999999' DeltaZ='-99999999999' OffsetX='0x10' OffsetY='inf' "
              "OffsetZ='nan' Scale='1,5'/>");
    const Tile& tile = TileOf("Center");
    EXPECT_EQ(tile.zRotate, 2147483647);
    EXPECT_EQ(tile.deltaZ, -2147483647 - 1);
    EXPECT_EQ(tile.offset, Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(tile.scale, 1.0F);
}

TEST_F(LoadTileSetTest, UnknownAttributesAreIgnored) {
    LoadTiles("<Center Colour='red' Offset='3' UniqueName='x' SizeX='9'>a</Center>");
    EXPECT_EQ(TileId("Center"), "a");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadTileSetTest, AnAttributeGivenTwiceInDifferentCaseIsAppliedTwice) {
    Load("<TileSet TsName='a' TSNAME='b' TsType='Room' TsSize='64' TSSIZE='256'/>");
    EXPECT_EQ(RoomSet().GetName(), "b");
    EXPECT_EQ(RoomSet().GetTileSize(), 256);
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : XML Parser : Unusual tile set size (64) for tile set 'b'."}));
}

TEST_F(LoadTileSetTest, UnknownKindsAreFiledUnderTheirName) {
    LoadTiles("<Statue>st_01</Statue>");
    EXPECT_EQ(TileId("sTATUE"), "st_01");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadTileSetTest, AWordOfAnotherElementIsATileInsideATileSet) {
    LoadTiles("<Furniture>f</Furniture><ThemeItem>t</ThemeItem><OstrelData>o</OstrelData>"
              "<Floor>p</Floor>");
    EXPECT_EQ(TileId("Furniture"), "f");
    EXPECT_EQ(TileId("ThemeItem"), "t");
    EXPECT_EQ(TileId("OstrelData"), "o");
    EXPECT_EQ(TileId("Floor"), "p");
    EXPECT_TRUE(config.contentMgr->GetFurniture().empty());
    EXPECT_TRUE(LogLines().empty());
}

// Their end tags belong to the grid of a layout, wherever they stand.
TEST_F(LoadTileSetTest, TilesCalledRowAndColAreNeverFiled) {
    LoadTiles("<Row>r</Row><Col>c</Col><Center>m</Center>");
    EXPECT_EQ(TileId("Row"), "(none)");
    EXPECT_EQ(TileId("Col"), "(none)");
    EXPECT_EQ(TileId("Center"), "m");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadTileSetTest, ANorthTileBringsTheOthersWhenItEnds) {
    LoadTiles("<WallN ZRotate='90' OffsetX='8'>w</WallN>");
    EXPECT_EQ(TileId("WallS"), "w");
    EXPECT_EQ(TileOf("WallE").zRotate, 180);
    EXPECT_EQ(TileOf("WallW").offset, Di3Point(0.0F, 8.0F, 0.0F));
}

TEST_F(LoadTileSetTest, ADuplicateTileIsAnErrorOfTheSet) {
    LoadTiles("<WallN>a</WallN><wallE>b</wallE>");
    EXPECT_EQ(TileId("WallE"), "b");
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : TileSet : Duplicate tile 'wallE' encountered in TileSet 'Crypt.'"}));
}

TEST_F(LoadTileSetTest, ATileInsideATileReplacesIt) {
    LoadTiles("<Center>outer<Statue>inner</Statue>more</Center>");
    EXPECT_EQ(TileId("Statue"), "inner");
    EXPECT_EQ(TileId("Center"), "(none)");
}

TEST_F(LoadTileSetTest, ATileOfTheSameNameInsideATileIsFiledOnce) {
    LoadTiles("<Center>outer<Center>inner</Center></Center>");
    EXPECT_EQ(TileId("Center"), "inner");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadTileSetTest, ASetInsideASetReplacesIt) {
    Load("<TileSet TsName='Outer' TsType='Room'><Center>a</Center>"
         "<TileSet TsName='Inner' TsType='Room'><Statue>b</Statue></TileSet>"
         "<Hall4Way>c</Hall4Way></TileSet>");
    EXPECT_EQ(RoomSet().GetName(), "Inner");
    EXPECT_EQ(TileId("Center"), "(none)");
    EXPECT_EQ(TileId("Statue"), "b");
    EXPECT_EQ(ErrorLines(), Lines({"Error : XML Parser : Unrecognized tag in XML:  'Hall4Way'"}));
}

TEST_F(LoadTileSetTest, TextOutsideTilesIsIgnored) {
    LoadTiles("one<Center>two</Center>three");
    EXPECT_EQ(TileId("Center"), "two");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadTileSetTest, TopLevelElementsKeepTheirMeaningInsideATileSet) {
    LoadTiles("<Theme Name='T'/><Platform Name='P'/><Layout LayoutName='L' Type='Room'/>"
              "<CreatureTheme Name='C'/><TreasureTheme Name='V'/><Center>m</Center>");
    EXPECT_EQ(TileId("Center"), "m");
    EXPECT_EQ(TileId("Theme"), "(none)");
    EXPECT_EQ(config.themes.size(), 1U);
    EXPECT_EQ(config.platformList.size(), 1U);
    EXPECT_EQ(config.roomLayouts.size(), 1U);
    EXPECT_EQ(config.creatureThemes.size(), 1U);
    EXPECT_EQ(config.treasureThemes.size(), 1U);
    EXPECT_TRUE(LogLines().empty());
}

// The set of the tile ended first, so that nothing can file the tile any more.
TEST_F(LoadTileSetTest, ATileLeftOpenTakesTheNextText) {
    Load("<TileSet TsType='Cave'><Center><TileSet TsType='Cave'></TileSet></Center></TileSet>"
         "<Layout Type='Room' Width='2' Height='1'>"
         "<Row><Col>WallN</Col><Col>WallS</Col></Row></Layout>");
    EXPECT_EQ(GridText(RoomLayout()), "- [WallS]\n");
}

} // namespace Tarnex::Test
