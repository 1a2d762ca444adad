// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/TileSet.h>

#include <tests/support/LogTest.h>

namespace Tarnex::Test {

namespace {

class TileSetTest : public LogTest {
protected:
    TileSetTest() { set.SetName("Crypt"); }

    void Give(const char* kindName, const char* id = "", int zRotate = 0) {
        Tile tile;
        tile.kindName = kindName;
        tile.id = id;
        tile.zRotate = zRotate;
        set.Set(tile);
    }

    std::string IdOf(const std::string& kindName) const {
        const DiPtr<Tile> tile = set.Get(kindName);
        return tile ? tile->id : "(none)";
    }

    TileSet set;
};

using Lines = std::vector<std::string>;

} // namespace

TEST_F(TileSetTest, StartsEmpty) {
    const TileSet fresh;
    EXPECT_EQ(fresh.GetName(), "");
    EXPECT_EQ(fresh.GetType(), "");
    EXPECT_EQ(fresh.GetTileSize(), 256);
    EXPECT_FALSE(fresh.Get(std::string("WallN")));
    EXPECT_FALSE(fresh.AllowCornerDoors());
}

TEST_F(TileSetTest, KeepsWhatIsSet) {
    set.SetName("Tomb");
    set.SetType("Cave");
    set.SetTileSize(512);
    set.SetWallThickness(16.5F);
    EXPECT_EQ(set.GetName(), "Tomb");
    EXPECT_EQ(set.GetType(), "Cave");
    EXPECT_EQ(set.GetTileSize(), 512);
    EXPECT_EQ(set.GetWallThickness(), 16.5F);
}

TEST_F(TileSetTest, NamesAreFoundInAnyLetterCaseAndKeptAsWritten) {
    Give("WallW", "west");
    EXPECT_EQ(IdOf("wallw"), "west");
    EXPECT_EQ(IdOf("WALLW"), "west");
    Give("cEnTeR", "floor");
    ASSERT_TRUE(set.Get(std::string("Center")));
    EXPECT_EQ(set.Get(std::string("Center"))->kindName, "cEnTeR");
}

TEST_F(TileSetTest, AnUnknownNameIsFiledAndFoundLikeAnyOther) {
    Give("Statue", "st");
    EXPECT_EQ(IdOf("sTATUE"), "st");
    EXPECT_EQ(IdOf("Statues"), "(none)");
    EXPECT_EQ(GetTileDir(*set.Get(std::string("Statue"))), DirNone);
    EXPECT_EQ(GetTileType(*set.Get(std::string("Statue"))), TileNone);
}

TEST_F(TileSetTest, FoldsTheLettersAToZOnly) {
    Give("Gr\xFC"
         "ft",
         "umlaut");
    EXPECT_EQ(IdOf("GR\xFC"
                   "FT"),
              "umlaut");
    EXPECT_EQ(IdOf("GR\xDC"
                   "FT"),
              "(none)");
}

TEST_F(TileSetTest, FilesACopyOfTheTile) {
    Tile tile;
    tile.kindName = "Center";
    tile.id = "before";
    set.Set(tile);
    tile.id = "after";
    EXPECT_EQ(IdOf("Center"), "before");
}

TEST_F(TileSetTest, ANorthWallBringsTheOtherThree) {
    Give("WallN", "w");
    for (const char* name : {"WallN", "WallS", "WallE", "WallW"}) {
        EXPECT_EQ(IdOf(name), "w") << name;
    }
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(TileSetTest, ASecondNorthWallIsOneErrorAndDerivesNothing) {
    Give("WallN", "first");
    Give("wallN", "second");
    EXPECT_EQ(IdOf("WallN"), "second");
    EXPECT_EQ(IdOf("WallS"), "first");
    EXPECT_EQ(IdOf("WallE"), "first");
    EXPECT_EQ(IdOf("WallW"), "first");
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : TileSet : Duplicate tile 'wallN' encountered in TileSet 'Crypt.'"}));
}

TEST_F(TileSetTest, ADuplicateUnknownNameIsAnErrorToo) {
    Give("Statue", "a");
    Give("STATUE", "b");
    EXPECT_EQ(IdOf("Statue"), "b");
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : TileSet : Duplicate tile 'STATUE' encountered in TileSet 'Crypt.'"}));
}

TEST_F(TileSetTest, HandlesGivenOutBeforeSeeTheValuesOfADuplicate) {
    Give("Center", "old", 10);
    const DiPtr<Tile> held = set.Get(std::string("Center"));
    Give("Center", "new", 20);
    EXPECT_EQ(held->id, "new");
    EXPECT_EQ(held->zRotate, 20);
    EXPECT_EQ(held, set.Get(std::string("Center")));
}

TEST_F(TileSetTest, AnExplicitWallAfterTheNorthOneReplacesTheDerived) {
    Give("WallN", "derived");
    Give("WallE", "given", 77);
    EXPECT_EQ(IdOf("WallE"), "given");
    EXPECT_EQ(set.Get(std::string("WallE"))->zRotate, 77);
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : TileSet : Duplicate tile 'WallE' encountered in TileSet 'Crypt.'"}));
}

TEST_F(TileSetTest, AnExplicitWallBeforeTheNorthOneIsReplacedByTheDerived) {
    Give("WallS", "given");
    Give("WallN", "derived");
    EXPECT_EQ(IdOf("WallS"), "derived");
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : TileSet : Duplicate tile 'WallS' encountered in TileSet 'Crypt.'"}));
}

TEST_F(TileSetTest, CornerDoorsNeedBothSidesOfTheCorner) {
    Give("DoorwayNW_W");
    EXPECT_FALSE(set.AllowCornerDoors());
    Give("doorwaynw_n");
    EXPECT_TRUE(set.AllowCornerDoors());
}

TEST_F(TileSetTest, TheOtherSideOfTheCornerAloneIsNotEnoughEither) {
    Give("DoorwayNW_N");
    EXPECT_FALSE(set.AllowCornerDoors());
}

TEST_F(TileSetTest, DerivedCornerDoorwaysDoNotStandForTheirSource) {
    Give("DoorwayNE_E");
    Give("DoorwayNE_N");
    EXPECT_FALSE(set.AllowCornerDoors());
}

} // namespace Tarnex::Test
