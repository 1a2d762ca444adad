// SPDX-License-Identifier: MIT
#include <vaultry/layout/ElmtKind.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/support/TextGrid.h>

namespace Tarnex::Test {

namespace {

struct KindCase {
    const char* name;
    int dir;
    int type;
    const char* opens; // the sides that open, in the order N, S, E, W
};

// clang-format off
const KindCase kKinds[] = {
    {"CornerSW",      6, 1, ""},
    {"CornerNW",      4, 1, ""},
    {"CornerNE",      5, 1, ""},
    {"CornerSE",      7, 1, ""},
    {"WallN",         0, 6, ""},
    {"WallS",         1, 6, ""},
    {"WallE",         2, 6, ""},
    {"WallW",         3, 6, ""},
    {"Center",       10, 0, ""},
    {"Center_22",    10, 0, ""},
    {"DoorwayN",      0, 2, "N"},
    {"DoorwayS",      1, 2, "S"},
    {"DoorwayE",      2, 2, "E"},
    {"DoorwayW",      3, 2, "W"},
    {"DoorwayNW_W",  11, 2, ""},
    {"DoorwayNE_N",  11, 2, ""},
    {"DoorwaySE_E",  11, 2, ""},
    {"DoorwaySW_S",  11, 2, ""},
    {"DoorwayNW_N",  11, 2, ""},
    {"DoorwayNE_E",  11, 2, ""},
    {"DoorwaySE_S",  11, 2, ""},
    {"DoorwaySW_W",  11, 2, ""},
    {"DoorjambN",     0, 2, "N"},
    {"DoorjambS",     1, 2, "S"},
    {"DoorjambE",     2, 2, "E"},
    {"DoorjambW",     3, 2, "W"},
    {"DoorN",         0, 2, "N"},
    {"DoorS",         1, 2, "S"},
    {"DoorE",         2, 2, "E"},
    {"DoorW",         3, 2, "W"},
    {"HallNS",        8, 3, "NS"},
    {"HallEW",        9, 3, "EW"},
    {"HallNS_2",      8, 3, "NS"},
    {"HallEW_2",      9, 3, "EW"},
    {"HallEndN",      0, 4, "S"},
    {"HallEndS",      1, 4, "N"},
    {"HallEndE",      2, 4, "W"},
    {"HallEndW",      3, 4, "E"},
    {"HallCornerNW",  4, 3, "SE"},
    {"HallCornerNE",  5, 3, "SW"},
    {"HallCornerSW",  6, 3, "NE"},
    {"HallCornerSE",  7, 3, "NW"},
    {"Hall4Way",     10, 3, "NSEW"},
    {"StairsUpN",     8, 7, ""},
    {"StairsUpS",     8, 7, ""},
    {"StairsUpE",     9, 7, ""},
    {"StairsUpW",     9, 7, ""},
    {"StairsDnN",     8, 7, ""},
    {"StairsDnS",     8, 7, ""},
    {"StairsDnE",     9, 7, ""},
    {"StairsDnW",     9, 7, ""},
    {"StairsUpN_2",   8, 7, ""},
    {"StairsUpS_2",   8, 7, ""},
    {"StairsUpE_2",   9, 7, ""},
    {"StairsUpW_2",   9, 7, ""},
    {"StairsDnN_2",   8, 7, ""},
    {"StairsDnS_2",   8, 7, ""},
    {"StairsDnE_2",   9, 7, ""},
    {"StairsDnW_2",   9, 7, ""},
    {"Lamp",         11, 7, ""},
    {"",             11, 7, ""},
};
// clang-format on
static_assert(std::size(kKinds) == 61);

std::string SidesOpen(const GridElmt& elmt) {
    std::string sides;
    sides += OpensNorth(elmt) ? "N" : "";
    sides += OpensSouth(elmt) ? "S" : "";
    sides += OpensEast(elmt) ? "E" : "";
    sides += OpensWest(elmt) ? "W" : "";
    return sides;
}

DiPtr<Tile> TileOf(const char* name) {
    auto tile = MakeDi<Tile>();
    tile->kindName = name;
    return tile;
}

GridElmt ElmtOf(std::initializer_list<const char*> names) {
    GridElmt elmt;
    for (const char* name : names) {
        elmt.AddTile(TileOf(name));
    }
    return elmt;
}

TEST(ElmtKind, FirstTileGivesFacingTypeAndOpenSides) {
    for (const KindCase& kind : kKinds) {
        const GridElmt elmt = ElmtOf({kind.name});
        EXPECT_EQ(GetElmtDir(elmt), kind.dir) << kind.name;
        EXPECT_EQ(GetElmtType(elmt), kind.type) << kind.name;
        EXPECT_EQ(SidesOpen(elmt), kind.opens) << kind.name;
    }
}

TEST(ElmtKind, OpenSidesAreBitsInTheOrderNorthSouthEastWest) {
    EXPECT_EQ(OpenSides(ElmtOf({"DoorwayN"})), 1);
    EXPECT_EQ(OpenSides(ElmtOf({"DoorwayS"})), 2);
    EXPECT_EQ(OpenSides(ElmtOf({"DoorwayE"})), 4);
    EXPECT_EQ(OpenSides(ElmtOf({"DoorwayW"})), 8);
    EXPECT_EQ(OpenSides(ElmtOf({"Hall4Way"})), 15);
    EXPECT_EQ(OpenSides(ElmtOf({"WallN"})), 0);
}

TEST(ElmtKind, CaseOfTheNameDoesNotMatter) {
    const GridElmt elmt = ElmtOf({"hallCORNERsw"});
    EXPECT_EQ(GetElmtDir(elmt), DirSW);
    EXPECT_EQ(GetElmtType(elmt), TileHall);
    EXPECT_EQ(SidesOpen(elmt), "NE");
}

TEST(ElmtKind, ElementWithoutTilesHasNoKindAndOpensNowhere) {
    const GridElmt elmt;
    EXPECT_EQ(GetElmtDir(elmt), DirNone);
    EXPECT_EQ(GetElmtType(elmt), TileNone);
    EXPECT_EQ(SidesOpen(elmt), "");
    EXPECT_FALSE(FindTileOfType(elmt, TileNone));
    EXPECT_FALSE(HasTileOfType(elmt, TileNone));
}

TEST(ElmtKind, OnlyTheFirstTileCounts) {
    const GridElmt floor = ElmtOf({"Center", "WallN"});
    EXPECT_EQ(GetElmtType(floor), TileCenter);
    EXPECT_EQ(GetElmtDir(floor), DirAll);
    const GridElmt wall = ElmtOf({"WallN", "Hall4Way"});
    EXPECT_EQ(SidesOpen(wall), "");
    const GridElmt unknown = ElmtOf({"Lamp", "HallNS"});
    EXPECT_EQ(GetElmtType(unknown), TileNone);
    EXPECT_EQ(SidesOpen(unknown), "");
}

TEST(ElmtKind, StairsHaveAnAxisButNoTypeAndOpenNowhere) {
    const GridElmt elmt = ElmtOf({"StairsUpE"});
    EXPECT_EQ(GetElmtType(elmt), TileNone);
    EXPECT_EQ(GetElmtDir(elmt), DirEW);
    EXPECT_EQ(SidesOpen(elmt), "");
}

TEST(ElmtKind, FirstTileOfATypeIsFoundInListOrder) {
    const GridElmt elmt = ElmtOf({"Center", "DoorwayN", "DoorjambN", "StairsUpN"});
    EXPECT_EQ(FindTileOfType(elmt, TileDoorway), elmt.tiles[1]);
    EXPECT_EQ(FindTileOfType(elmt, TileCenter), elmt.tiles[0]);
    EXPECT_EQ(FindTileOfType(elmt, TileNone), elmt.tiles[3]);
    EXPECT_FALSE(FindTileOfType(elmt, TileWall));
    EXPECT_TRUE(HasTileOfType(elmt, TileDoorway));
    EXPECT_TRUE(HasTileOfType(elmt, TileNone));
    EXPECT_FALSE(HasTileOfType(elmt, TileWall));
    EXPECT_FALSE(HasTileOfType(elmt, TileHallEnd));
}

} // namespace

} // namespace Tarnex::Test
