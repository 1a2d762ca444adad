// SPDX-License-Identifier: MIT
// What a grid element is by its first tile, and where a passage may enter it.
#include <vaultry/layout/ElmtKind.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace Tarnex::Test {

namespace {

DiPtr<GridElmt> ElmtOf(std::initializer_list<const char*> names) {
    auto elmt = MakeDi<GridElmt>();
    for (const char* name : names) {
        auto tile = MakeDi<Tile>();
        tile->kindName = name;
        elmt->AddTile(tile);
    }
    return elmt;
}

// The sides that an element of that one tile opens to, as letters in the order N, S, E, W.
std::string OpenSides(const char* name) {
    const DiPtr<GridElmt> elmt = ElmtOf({name});
    std::string sides;
    sides += OpensNorth(*elmt) ? "N" : "";
    sides += OpensSouth(*elmt) ? "S" : "";
    sides += OpensEast(*elmt) ? "E" : "";
    sides += OpensWest(*elmt) ? "W" : "";
    return sides;
}

} // namespace

TEST(ElmtOpenings, AnElementWithoutTilesIsNothingAndOpensNowhere) {
    const DiPtr<GridElmt> elmt = ElmtOf({});
    EXPECT_EQ(GetElmtType(*elmt), TileNone);
    EXPECT_EQ(GetElmtDir(*elmt), DirNone);
    EXPECT_FALSE(OpensNorth(*elmt) || OpensSouth(*elmt) || OpensEast(*elmt) || OpensWest(*elmt));
    EXPECT_FALSE(FindTileOfType(*elmt, TileNone));
    EXPECT_FALSE(HasTileOfType(*elmt, TileNone));
}

TEST(ElmtOpenings, OnlyTheFirstTileCounts) {
    const DiPtr<GridElmt> elmt = ElmtOf({"Center", "WallN"});
    EXPECT_EQ(GetElmtType(*elmt), TileCenter);
    EXPECT_EQ(GetElmtDir(*elmt), DirAll);
}

TEST(ElmtOpenings, AnUnknownFirstTileHidesWhatFollows) {
    const DiPtr<GridElmt> elmt = ElmtOf({"Statue", "DoorwayN"});
    EXPECT_EQ(GetElmtType(*elmt), TileNone);
    EXPECT_EQ(GetElmtDir(*elmt), DirNone);
    EXPECT_FALSE(OpensNorth(*elmt));
}

TEST(ElmtOpenings, StairsHaveAnAxisButNoTypeAndOpenNowhere) {
    const DiPtr<GridElmt> elmt = ElmtOf({"StairsUpE"});
    EXPECT_EQ(GetElmtType(*elmt), TileNone);
    EXPECT_EQ(GetElmtDir(*elmt), DirEW);
    EXPECT_EQ(OpenSides("StairsUpE"), "");
    EXPECT_EQ(OpenSides("StairsDnN_2"), "");
}

TEST(ElmtOpenings, TheFirstTileOfATypeIsFoundWhereverItStands) {
    const DiPtr<GridElmt> elmt = ElmtOf({"Center", "DoorjambS", "DoorN"});
    EXPECT_EQ(FindTileOfType(*elmt, TileDoorway), elmt->tiles[1]);
    EXPECT_TRUE(HasTileOfType(*elmt, TileDoorway));
    EXPECT_EQ(FindTileOfType(*elmt, TileWall), nullptr);
    EXPECT_FALSE(HasTileOfType(*elmt, TileWall));
}

TEST(ElmtOpenings, DoorwaysOpenToTheirOwnSide) {
    for (const std::string kind : {"Doorway", "Doorjamb", "Door"}) {
        for (const std::string side : {"N", "S", "E", "W"}) {
            EXPECT_EQ(OpenSides((kind + side).c_str()), side) << kind;
        }
    }
}

TEST(ElmtOpenings, CornerDoorwaysOpenNowhere) {
    for (const char* name : {"DoorwayNW_W", "DoorwayNE_N", "DoorwaySE_S", "DoorwaySW_W"}) {
        EXPECT_EQ(OpenSides(name), "") << name;
    }
}

TEST(ElmtOpenings, HallsOpenAlongTheirAxis) {
    EXPECT_EQ(OpenSides("HallNS"), "NS");
    EXPECT_EQ(OpenSides("HallEW"), "EW");
    EXPECT_EQ(OpenSides("HallNS_2"), "NS");
    EXPECT_EQ(OpenSides("HallEW_2"), "EW");
    EXPECT_EQ(OpenSides("Hall4Way"), "NSEW");
}

TEST(ElmtOpenings, HallCornersOpenOnTheSidesTheyAreNotNamedAfter) {
    EXPECT_EQ(OpenSides("HallCornerNW"), "SE");
    EXPECT_EQ(OpenSides("HallCornerNE"), "SW");
    EXPECT_EQ(OpenSides("HallCornerSW"), "NE");
    EXPECT_EQ(OpenSides("HallCornerSE"), "NW");
}

TEST(ElmtOpenings, HallEndsOpenTowardTheRestOfTheHall) {
    EXPECT_EQ(OpenSides("HallEndN"), "S");
    EXPECT_EQ(OpenSides("HallEndS"), "N");
    EXPECT_EQ(OpenSides("HallEndE"), "W");
    EXPECT_EQ(OpenSides("HallEndW"), "E");
}

TEST(ElmtOpenings, RoomPiecesOpenNowhere) {
    for (const char* name : {"WallN", "WallS", "WallE", "WallW", "Center", "Center_22"}) {
        EXPECT_EQ(OpenSides(name), "") << name;
    }
    for (const char* name : {"CornerNW", "CornerNE", "CornerSW", "CornerSE"}) {
        EXPECT_EQ(OpenSides(name), "") << name;
    }
}

} // namespace Tarnex::Test
