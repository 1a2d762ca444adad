// SPDX-License-Identifier: MIT
// The vocabulary of tile kinds with the facing and type of each.
#include <vaultry/catalogue/Tile.h>
#include <vaultry/catalogue/TileKind.h>
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Text.h>

#include <gtest/gtest.h>

#include <array>

namespace Tarnex::Test {

namespace {

struct KindCase {
    std::string_view constant;
    std::string_view name;
    int dir;
    int type;
};

// clang-format off
constexpr std::array<KindCase, 59> kKinds = {{
    // constant          name            facing type
    {Tile_SwCorner,     "CornerSW",       6,   1},
    {Tile_NwCorner,     "CornerNW",       4,   1},
    {Tile_NeCorner,     "CornerNE",       5,   1},
    {Tile_SeCorner,     "CornerSE",       7,   1},
    {Tile_nWall,        "WallN",          0,   6},
    {Tile_sWall,        "WallS",          1,   6},
    {Tile_eWall,        "WallE",          2,   6},
    {Tile_wWall,        "WallW",          3,   6},
    {Tile_Center,       "Center",        10,   0},
    {Tile_Center_2,     "Center_22",     10,   0},
    {Tile_nDoorway,     "DoorwayN",       0,   2},
    {Tile_sDoorway,     "DoorwayS",       1,   2},
    {Tile_eDoorway,     "DoorwayE",       2,   2},
    {Tile_wDoorway,     "DoorwayW",       3,   2},
    {Tile_DoorwayNW_W,  "DoorwayNW_W",   11,   2},
    {Tile_DoorwayNE_N,  "DoorwayNE_N",   11,   2},
    {Tile_DoorwaySE_E,  "DoorwaySE_E",   11,   2},
    {Tile_DoorwaySW_S,  "DoorwaySW_S",   11,   2},
    {Tile_DoorwayNW_N,  "DoorwayNW_N",   11,   2},
    {Tile_DoorwayNE_E,  "DoorwayNE_E",   11,   2},
    {Tile_DoorwaySE_S,  "DoorwaySE_S",   11,   2},
    {Tile_DoorwaySW_W,  "DoorwaySW_W",   11,   2},
    {Tile_nDoorjamb,    "DoorjambN",      0,   2},
    {Tile_sDoorjamb,    "DoorjambS",      1,   2},
    {Tile_eDoorjamb,    "DoorjambE",      2,   2},
    {Tile_wDoorjamb,    "DoorjambW",      3,   2},
    {Tile_nDoor,        "DoorN",          0,   2},
    {Tile_sDoor,        "DoorS",          1,   2},
    {Tile_eDoor,        "DoorE",          2,   2},
    {Tile_wDoor,        "DoorW",          3,   2},
    {Tile_HallNS,       "HallNS",         8,   3},
    {Tile_HallEW,       "HallEW",         9,   3},
    {Tile_HallNS_2,     "HallNS_2",       8,   3},
    {Tile_HallEW_2,     "HallEW_2",       9,   3},
    {Tile_HallEndN,     "HallEndN",       0,   4},
    {Tile_HallEndS,     "HallEndS",       1,   4},
    {Tile_HallEndE,     "HallEndE",       2,   4},
    {Tile_HallEndW,     "HallEndW",       3,   4},
    {Tile_HallCornerNW, "HallCornerNW",   4,   3},
    {Tile_HallCornerNE, "HallCornerNE",   5,   3},
    {Tile_HallCornerSW, "HallCornerSW",   6,   3},
    {Tile_HallCornerSE, "HallCornerSE",   7,   3},
    {Tile_Hall4Way,     "Hall4Way",      10,   3},
    {Tile_nStairsUp,    "StairsUpN",      8,   7},
    {Tile_sStairsUp,    "StairsUpS",      8,   7},
    {Tile_eStairsUp,    "StairsUpE",      9,   7},
    {Tile_wStairsUp,    "StairsUpW",      9,   7},
    {Tile_nStairsDn,    "StairsDnN",      8,   7},
    {Tile_sStairsDn,    "StairsDnS",      8,   7},
    {Tile_eStairsDn,    "StairsDnE",      9,   7},
    {Tile_wStairsDn,    "StairsDnW",      9,   7},
    {Tile_nStairsUp_2,  "StairsUpN_2",    8,   7},
    {Tile_sStairsUp_2,  "StairsUpS_2",    8,   7},
    {Tile_eStairsUp_2,  "StairsUpE_2",    9,   7},
    {Tile_wStairsUp_2,  "StairsUpW_2",    9,   7},
    {Tile_nStairsDn_2,  "StairsDnN_2",    8,   7},
    {Tile_sStairsDn_2,  "StairsDnS_2",    8,   7},
    {Tile_eStairsDn_2,  "StairsDnE_2",    9,   7},
    {Tile_wStairsDn_2,  "StairsDnW_2",    9,   7},
}};
// clang-format on

Tile TileNamed(std::string_view name) {
    Tile tile;
    tile.kindName = name;
    return tile;
}

} // namespace

TEST(TileKind, ConstantsSpellTheNames) {
    for (const KindCase& kind : kKinds) {
        EXPECT_EQ(kind.constant, kind.name);
    }
}

TEST(TileKind, EveryNameHasItsFacingAndType) {
    for (const KindCase& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        const Tile tile = TileNamed(kind.name);
        EXPECT_EQ(static_cast<int>(GetTileDir(tile)), kind.dir);
        EXPECT_EQ(static_cast<int>(GetTileType(tile)), kind.type);
    }
}

TEST(TileKind, NamesAreFoundInAnyLetterCase) {
    for (const KindCase& kind : kKinds) {
        SCOPED_TRACE(kind.name);
        const Tile tile = TileNamed(ToUpper(kind.name));
        EXPECT_EQ(static_cast<int>(GetTileDir(tile)), kind.dir);
        EXPECT_EQ(static_cast<int>(GetTileType(tile)), kind.type);
    }
    EXPECT_EQ(GetTileDir(TileNamed("hALLcORNERsw")), DirSW);
    EXPECT_EQ(GetTileType(TileNamed("hALLcORNERsw")), TileHall);
}

TEST(TileKind, ThereAreNoOtherKinds) {
    EXPECT_EQ(TileKind::kCount, 59U);
    for (const KindCase& kind : kKinds) {
        EXPECT_EQ(TileKind::Of(kind.name).Name(), kind.name);
    }
}

TEST(TileKind, AnUnknownNameHasNeitherFacingNorType) {
    for (const std::string_view name :
         {"", "Wall", "WallN ", " WallN", "WallNN", "Center_2", "Hall4Way_2", "StairsUp"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(GetTileDir(TileNamed(name)), DirNone);
        EXPECT_EQ(GetTileType(TileNamed(name)), TileNone);
        EXPECT_FALSE(TileKind::Of(name).IsKnown());
        EXPECT_EQ(TileKind::Of(name).Name(), "");
    }
}

TEST(TileKind, CornerDoorwaysHaveNoFacing) {
    for (const std::string_view name : {"DoorwayNW_W",
                                        "DoorwayNE_N",
                                        "DoorwaySE_E",
                                        "DoorwaySW_S",
                                        "DoorwayNW_N",
                                        "DoorwayNE_E",
                                        "DoorwaySE_S",
                                        "DoorwaySW_W"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(GetTileDir(TileNamed(name)), DirNone);
        EXPECT_EQ(GetTileType(TileNamed(name)), TileDoorway);
    }
}

TEST(TileKind, TypesAndFacingsKeepTheirNumbers) {
    EXPECT_EQ(static_cast<int>(TileCenter), 0);
    EXPECT_EQ(static_cast<int>(TileCorner), 1);
    EXPECT_EQ(static_cast<int>(TileDoorway), 2);
    EXPECT_EQ(static_cast<int>(TileHall), 3);
    EXPECT_EQ(static_cast<int>(TileHallEnd), 4);
    EXPECT_EQ(static_cast<int>(TileWall), 6);
    EXPECT_EQ(static_cast<int>(TileNone), 7);
    const std::array dirs = {
        DirN, DirS, DirE, DirW, DirNW, DirNE, DirSW, DirSE, DirNS, DirEW, DirAll, DirNone};
    for (std::size_t i = 0; i < dirs.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(dirs[i]), i);
    }
}

TEST(TileKind, TileSetWordsAreThoseOfTheFormat) {
    EXPECT_EQ(Tile_TileSet, "TileSet");
    EXPECT_EQ(Tile_TsName, "TsName");
    EXPECT_EQ(Tile_TsType, "TsType");
    EXPECT_EQ(Tile_TsSize, "TsSize");
    EXPECT_EQ(Tile_Room, "Room");
    EXPECT_EQ(Tile_Cave, "Cave");
}

TEST(TileKindName, KeepsTheTextAsWritten) {
    const TileKindName name = "wALLn";
    EXPECT_EQ(name.Text(), "wALLn");
    EXPECT_STREQ(name.c_str(), "wALLn");
    EXPECT_FALSE(name.empty());
    EXPECT_EQ(name.Kind().Name(), "WallN");
    EXPECT_TRUE(TileKindName().empty());
}

} // namespace Tarnex::Test
