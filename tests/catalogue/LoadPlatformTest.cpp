// SPDX-License-Identifier: MIT
// Platforms and their pieces as a configuration gives them.
#include <tests/catalogue/LoaderTest.h>

namespace Tarnex::Test {

namespace {

class LoadPlatformTest : public LoaderTest {
protected:
    const PlatformTile& PieceOf(const char* kindName) const {
        static const PlatformTile none;
        EXPECT_EQ(config.platformList.size(), 1U);
        const DiPtr<PlatformTile> piece =
            config.platformList.empty() ? nullptr : config.platformList.front()->Get(kindName);
        EXPECT_TRUE(piece) << kindName;
        return piece ? *piece : none;
    }
};

} // namespace

TEST_F(LoadPlatformTest, APieceTakesEveryAttribute) {
    Load("<Platform Name='Dock'><Floor UniqueName='slab' ZRotate='90' OffsetX='1' OffsetY='2' "
         "OffsetZ='3' SizeX='4' SizeY='5' SizeZ='6.5'/></Platform>");
    const PlatformTile& piece = PieceOf("Floor");
    EXPECT_EQ(config.platformList.front()->GetName(), "Dock");
    EXPECT_EQ(piece.kindName, "Floor");
    EXPECT_EQ(piece.id, "slab");
    EXPECT_EQ(piece.zRotate, 90);
    EXPECT_EQ(piece.offset, Di3Point(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(piece.size, Di3Point(4.0F, 5.0F, 6.5F));
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadPlatformTest, PieceAttributesIgnoreLetterCase) {
    Load("<pLATFORM NAME='Dock'><bEAM uniqueNAME='post' zrotate='1' OFFSETX='1' offsety='2' "
         "offsetZ='3' sizex='4' SIZEY='5' sIZEz='6'/></pLATFORM>");
    const PlatformTile& piece = PieceOf("Beam");
    EXPECT_EQ(config.platformList.front()->GetName(), "Dock");
    EXPECT_EQ(piece.kindName, "bEAM");
    EXPECT_EQ(piece.id, "post");
    EXPECT_EQ(piece.zRotate, 1);
    EXPECT_EQ(piece.offset, Di3Point(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(piece.size, Di3Point(4.0F, 5.0F, 6.0F));
}

TEST_F(LoadPlatformTest, AbsentAttributesLeaveTheDefaults) {
    Load("<Platform><Floor/></Platform>");
    EXPECT_EQ(config.platformList.front()->GetName(), "");
    EXPECT_EQ(PieceOf("Floor").id, "");
    EXPECT_EQ(PieceOf("Floor").zRotate, 0);
    EXPECT_EQ(PieceOf("Floor").offset, Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(PieceOf("Floor").size, Di3Point(0.0F, 0.0F, 0.0F));
}

TEST_F(LoadPlatformTest, MalformedNumbersReadAsZero) {
    Load("<Platform><Floor ZRotate='x' OffsetX='--1' SizeX='e5'/></Platform>");
    EXPECT_EQ(PieceOf("Floor").zRotate, 0);
    EXPECT_EQ(PieceOf("Floor").offset.x, 0.0F);
    EXPECT_EQ(PieceOf("Floor").size.x, 0.0F);
}

TEST_F(LoadPlatformTest, TextIsNotAnIdentifierHere) {
    Load("<Platform><Floor>slab</Floor></Platform>");
    EXPECT_EQ(PieceOf("Floor").id, "");
}

TEST_F(LoadPlatformTest, AnyTagInsideIsAPiece) {
    Load("<Platform><Furniture UniqueName='f'/><Rail UniqueName='r'/>"
         "<OstrelData UniqueName='o'/></Platform>");
    EXPECT_EQ(PieceOf("Furniture").id, "f");
    EXPECT_EQ(PieceOf("Rail").id, "r");
    EXPECT_EQ(PieceOf("OstrelData").id, "o");
    EXPECT_TRUE(config.contentMgr->GetFurniture().empty());
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadPlatformTest, PiecesCalledRowAndColAreNeverFiled) {
    Load("<Platform><Row/><Col/></Platform>");
    EXPECT_FALSE(config.platformList.front()->Get("Row"));
    EXPECT_FALSE(config.platformList.front()->Get("Col"));
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadPlatformTest, PlatformsKeepTheirOrderAndDuplicates) {
    Load("<Platform Name='B'/><Platform Name='A'/><Platform Name='B'/>");
    ASSERT_EQ(config.platformList.size(), 3U);
    EXPECT_EQ(config.platformList[0]->GetName(), "B");
    EXPECT_EQ(config.platformList[1]->GetName(), "A");
    EXPECT_EQ(config.platformList[2]->GetName(), "B");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadPlatformTest, NorthStairsBringTheOtherThree) {
    Load("<Platform><StairsUpN UniqueName='s' OffsetY='32' ZRotate='90'/></Platform>");
    EXPECT_EQ(PieceOf("StairsUpE").zRotate, 180);
    EXPECT_EQ(PieceOf("StairsUpE").offset, Di3Point(32.0F, 0.0F, 0.0F));
    EXPECT_FALSE(config.platformList.front()->Get("StairsDnN"));
}

TEST_F(LoadPlatformTest, ADuplicatePieceIsAnErrorOfThePlatform) {
    Load("<Platform Name='Dock'><Floor UniqueName='a'/><floor UniqueName='b'/></Platform>");
    EXPECT_EQ(PieceOf("Floor").id, "b");
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : Platform : Duplicate tile 'floor' encountered in Platform 'Dock.'"}));
}

// The tile set is asked first.
TEST_F(LoadPlatformTest, ATagInsideBothIsATile) {
    Load("<Platform Name='P'><TileSet TsType='Room'><Center>m</Center></TileSet>"
         "<Floor UniqueName='f'/></Platform>");
    EXPECT_EQ(TileId("Center"), "m");
    EXPECT_FALSE(config.platformList.front()->Get("Center"));
    EXPECT_EQ(PieceOf("Floor").id, "f");

    Load("<TileSet TsType='Room'><Platform><Floor UniqueName='f'>id</Floor></Platform></TileSet>");
    EXPECT_EQ(TileId("Floor"), "id");
    EXPECT_FALSE(config.platformList.front()->Get("Floor"));
}

} // namespace Tarnex::Test
