// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/Platform.h>
#include <vaultry/catalogue/Vocabulary.h>

#include <tests/support/LogTest.h>

namespace Tarnex::Test {

namespace {

PlatformTile Piece(const char* kindName, const char* id = "") {
    PlatformTile piece;
    piece.kindName = kindName;
    piece.id = id;
    return piece;
}

class PlatformTest : public LogTest {
protected:
    PlatformTest() { platform.SetName("Dock"); }

    const PlatformTile& Filed(const char* kindName) const {
        static const PlatformTile none;
        const DiPtr<PlatformTile> piece = platform.Get(kindName);
        EXPECT_TRUE(piece) << kindName;
        return piece ? *piece : none;
    }

    Platform platform;
};

using Lines = std::vector<std::string>;

} // namespace

TEST_F(PlatformTest, StartsEmpty) {
    const Platform fresh;
    EXPECT_EQ(fresh.GetName(), "");
    EXPECT_FALSE(fresh.Get("Floor"));
    EXPECT_FALSE(fresh.GetCopyOf("Floor"));
    const PlatformTile piece;
    EXPECT_EQ(piece.id, "");
    EXPECT_EQ(piece.kindName, "");
    EXPECT_EQ(piece.zRotate, 0);
    EXPECT_EQ(piece.size, Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(piece.offset, Di3Point(0.0F, 0.0F, 0.0F));
}

TEST_F(PlatformTest, WordsAreThoseOfTheFormat) {
    EXPECT_EQ(Platform_Platform, "Platform");
    EXPECT_EQ(Platform_Floor, "Floor");
    EXPECT_EQ(Platform_Beam, "Beam");
}

TEST_F(PlatformTest, PiecesAreFoundInAnyLetterCaseAndKeptAsWritten) {
    platform.Set(Piece("fLOOR", "slab"));
    EXPECT_EQ(Filed("FLOOR").id, "slab");
    EXPECT_EQ(Filed("floor").kindName, "fLOOR");
    EXPECT_FALSE(platform.Get("Beam"));
}

TEST_F(PlatformTest, GetGivesThePieceItself) {
    platform.Set(Piece("Beam"));
    EXPECT_EQ(platform.Get("Beam"), platform.Get("beam"));
}

TEST_F(PlatformTest, ACopyLeavesTheFiledPieceAlone) {
    PlatformTile floor = Piece("Floor", "slab");
    floor.zRotate = 15;
    floor.size = Di3Point(1.0F, 2.0F, 3.0F);
    floor.offset = Di3Point(4.0F, 5.0F, 6.0F);
    platform.Set(floor);

    const DiPtr<PlatformTile> copy = platform.GetCopyOf("floor");
    ASSERT_TRUE(copy);
    EXPECT_NE(copy, platform.Get("Floor"));
    EXPECT_EQ(copy->id, "slab");
    EXPECT_EQ(copy->kindName, "Floor");
    EXPECT_EQ(copy->zRotate, 15);
    EXPECT_EQ(copy->size, Di3Point(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(copy->offset, Di3Point(4.0F, 5.0F, 6.0F));

    copy->zRotate = 99;
    copy->id = "other";
    EXPECT_EQ(Filed("Floor").zRotate, 15);
    EXPECT_EQ(Filed("Floor").id, "slab");
}

TEST_F(PlatformTest, ADuplicateIsAnErrorAndItsValuesWin) {
    platform.Set(Piece("Floor", "first"));
    const DiPtr<PlatformTile> held = platform.Get("Floor");
    platform.Set(Piece("FLOOR", "second"));
    EXPECT_EQ(held->id, "second");
    EXPECT_EQ(held, platform.Get("Floor"));
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : Platform : Duplicate tile 'FLOOR' encountered in Platform 'Dock.'"}));
}

TEST_F(PlatformTest, NorthStairsBringTheOtherThree) {
    PlatformTile stairs = Piece("stairsupn", "steps");
    stairs.zRotate = 90;
    stairs.size = Di3Point(64.0F, 32.0F, 16.0F);
    stairs.offset = Di3Point(0.0F, 32.0F, 0.0F);
    platform.Set(stairs);

    EXPECT_EQ(Filed("StairsUpS").zRotate, 270);
    EXPECT_EQ(Filed("StairsUpS").offset, Di3Point(0.0F, -32.0F, 0.0F));
    EXPECT_EQ(Filed("StairsUpE").zRotate, 180);
    EXPECT_EQ(Filed("StairsUpE").offset, Di3Point(32.0F, 0.0F, 0.0F));
    EXPECT_EQ(Filed("StairsUpW").zRotate, 0);
    EXPECT_EQ(Filed("StairsUpW").offset, Di3Point(-32.0F, 0.0F, 0.0F));
    for (const char* name : {"StairsUpS", "StairsUpE", "StairsUpW"}) {
        EXPECT_EQ(Filed(name).kindName, name);
        EXPECT_EQ(Filed(name).id, "steps");
        EXPECT_EQ(Filed(name).size, Di3Point(64.0F, 32.0F, 16.0F));
    }
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(PlatformTest, NoStairsLeadDownUnlessGiven) {
    platform.Set(Piece("StairsUpN"));
    for (const char* name : {"StairsDnN", "StairsDnS", "StairsDnE", "StairsDnW"}) {
        EXPECT_FALSE(platform.Get(name)) << name;
    }
    platform.Set(Piece("StairsDnN", "given"));
    EXPECT_EQ(Filed("StairsDnN").id, "given");
}

TEST_F(PlatformTest, DerivedStairsReplaceGivenOnesInTheOrderSouthEastWest) {
    platform.Set(Piece("StairsUpW", "given"));
    platform.Set(Piece("StairsUpE", "given"));
    platform.Set(Piece("StairsUpS", "given"));
    platform.Set(Piece("StairsUpN", "derived"));
    EXPECT_EQ(
        ErrorLines(),
        Lines({"Error : Platform : Duplicate tile 'StairsUpS' encountered in Platform 'Dock.'",
               "Error : Platform : Duplicate tile 'StairsUpE' encountered in Platform 'Dock.'",
               "Error : Platform : Duplicate tile 'StairsUpW' encountered in Platform 'Dock.'"}));
    EXPECT_EQ(Filed("StairsUpE").id, "derived");
}

TEST_F(PlatformTest, SecondNorthStairsDeriveNothing) {
    platform.Set(Piece("StairsUpN", "first"));
    platform.Set(Piece("StairsUpN", "second"));
    EXPECT_EQ(Filed("StairsUpN").id, "second");
    EXPECT_EQ(Filed("StairsUpS").id, "first");
    EXPECT_EQ(ErrorLines().size(), 1U);
}

TEST_F(PlatformTest, OtherTilesOfATileSetDeriveNothingHere) {
    platform.Set(Piece("WallN"));
    EXPECT_FALSE(platform.Get("WallS"));
    platform.Set(Piece("StairsUpN_2"));
    EXPECT_FALSE(platform.Get("StairsUpS_2"));
}

} // namespace Tarnex::Test
