// SPDX-License-Identifier: MIT
// Platforms along walls, piece by piece.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <tests/gen/GenTest.h>

namespace Tarnex::Test {

namespace {

PlatformTile Piece(const char* kind, const Di3Point& size, const Di3Point& offset) {
    PlatformTile piece;
    piece.kindName = kind;
    piece.id = kind;
    piece.size = size;
    piece.offset = offset;
    return piece;
}

class PlatformsTest : public GenTest {
protected:
    // The kit: slabs of 64 x 64 x 16 at (1, 2, 3), beams of 16 x 8 x 40 at (0.5, 0, 4), stairs of
    // 10 x 10 x 40 at (7, 9, 11), or at (0, 0, 11) where they are derived.
    static DiPtr<Platform> Kit(bool floor = true, bool beam = true, bool stairs = true) {
        auto kit = MakeDi<Platform>();
        if (floor) {
            kit->Set(Piece("Floor", Di3Point(64.0F, 64.0F, 16.0F), Di3Point(1.0F, 2.0F, 3.0F)));
        }
        if (beam) {
            kit->Set(Piece("Beam", Di3Point(16.0F, 8.0F, 40.0F), Di3Point(0.5F, 0.0F, 4.0F)));
        }
        if (stairs) {
            kit->Set(
                Piece("StairsUpN", Di3Point(10.0F, 10.0F, 40.0F), Di3Point(7.0F, 9.0F, 11.0F)));
        }
        return kit;
    }

    // The pieces on a tile of that kind standing at (5, 0, 6): "id x y z", with " r" and the
    // degrees unless 0.
    Lines Pieces(const char* kind, const Platform& kit, int area = AreaFull) {
        auto tile = MakeDi<Tile>();
        tile->kindName = kind;
        tile->area = area;
        tile->offset = Di3Point(5.0F, 0.0F, 6.0F);
        elmt = GridElmt();
        elmt.AddTile(tile);
        OpenGen(info).AddPlatform(elmt, kit);
        Lines lines;
        for (const DiPtr<PlatformTile>& piece : elmt.platforms) {
            std::array<char, 96> text{};
            const Di3Point& at = piece->offset;
            std::snprintf(text.data(),
                          text.size(),
                          "%s %.9g %.9g %.9g",
                          piece->id.c_str(),
                          double{at.x},
                          double{at.y},
                          double{at.z});
            lines.emplace_back(text.data());
            if (piece->zRotate != 0) {
                lines.back() += " r" + std::to_string(piece->zRotate);
            }
        }
        return lines;
    }

    GridElmt elmt;
};

TEST_F(PlatformsTest, NorthWallHasStairsSlabsRowByRowAndBeamsAtItsEnds) {
    EXPECT_EQ(Pieces("WallN", *Kit()),
              (Lines{
                  "StairsUpN 7 -160 -121", "Floor -95 -94 -101", "Beam -119.5 -124 7",
                  "Floor -31 -94 -101",    "Floor 33 -94 -101",  "Floor 97 -94 -101",
                  "Beam 120.5 -124 7",     "Floor -95 -30 -101", "Floor -31 -30 -101",
                  "Floor 33 -30 -101",     "Floor 97 -30 -101",  "Floor -95 34 -101",
                  "Floor -31 34 -101",     "Floor 33 34 -101",   "Floor 97 34 -101",
                  "Floor -95 98 -101",     "Floor -31 98 -101",  "Floor 33 98 -101",
                  "Floor 97 98 -101",
              }));
    EXPECT_EQ(elmt.platformHeight, 16);
}

TEST_F(PlatformsTest, SouthWallHasItsBeamsInTheLastRow) {
    EXPECT_EQ(Pieces("WallS", *Kit()),
              (Lines{
                  "StairsUpN -7 352 -121 r180", "Floor -95 98 -101",  "Floor -31 98 -101",
                  "Floor 33 98 -101",           "Floor 97 98 -101",   "Floor -95 162 -101",
                  "Floor -31 162 -101",         "Floor 33 162 -101",  "Floor 97 162 -101",
                  "Floor -95 226 -101",         "Floor -31 226 -101", "Floor 33 226 -101",
                  "Floor 97 226 -101",          "Floor -95 290 -101", "Beam -119.5 316 7",
                  "Floor -31 290 -101",         "Floor 33 290 -101",  "Floor 97 290 -101",
                  "Beam 120.5 316 7",
              }));
}

TEST_F(PlatformsTest, EastWallHasItsBeamsInTheFirstColumn) {
    EXPECT_EQ(Pieces("WallE", *Kit()),
              (Lines{
                  "StairsUpN 32 -7 -121 r90", "Floor 97 -94 -101",  "Beam 72.5 -124 7",
                  "Floor 161 -94 -101",       "Floor 225 -94 -101", "Floor 289 -94 -101",
                  "Floor 97 -30 -101",        "Floor 161 -30 -101", "Floor 225 -30 -101",
                  "Floor 289 -30 -101",       "Floor 97 34 -101",   "Floor 161 34 -101",
                  "Floor 225 34 -101",        "Floor 289 34 -101",  "Floor 97 98 -101",
                  "Beam 72.5 124 7",          "Floor 161 98 -101",  "Floor 225 98 -101",
                  "Floor 289 98 -101",
              }));
}

TEST_F(PlatformsTest, WestWallHasItsBeamsInTheLastColumn) {
    EXPECT_EQ(Pieces("WallW", *Kit()),
              (Lines{
                  "StairsUpN 160 7 -121 r270", "Floor -95 -94 -101", "Floor -31 -94 -101",
                  "Floor 33 -94 -101",         "Floor 97 -94 -101",  "Beam 120.5 -124 7",
                  "Floor -95 -30 -101",        "Floor -31 -30 -101", "Floor 33 -30 -101",
                  "Floor 97 -30 -101",         "Floor -95 34 -101",  "Floor -31 34 -101",
                  "Floor 33 34 -101",          "Floor 97 34 -101",   "Floor -95 98 -101",
                  "Floor -31 98 -101",         "Floor 33 98 -101",   "Floor 97 98 -101",
                  "Beam 120.5 124 7",
              }));
}

// Two negative counts make no positive number of slabs.
TEST_F(PlatformsTest, SlabsOfNegativeSizeAreNotLaidButTheStairsStand) {
    for (const float size : {-8.0F, -1e-9F, -1e-30F}) {
        for (const char* kind : {"WallN", "WallS", "WallE", "WallW"}) {
            for (const float other : {size, 1e-9F}) {
                const DiPtr<Platform> kit = Kit(false);
                kit->Set(Piece("Floor", Di3Point(size, other, 16.0F), Di3Point()));
                EXPECT_EQ(Pieces(kind, *kit).size(), 1U) << kind;
            }
        }
    }
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(PlatformsTest, HalfWallHasHalfTheRows) {
    for (const int area : {AreaHalf, AreaQuarter}) {
        EXPECT_EQ(Pieces("WallN", *Kit(), area),
                  (Lines{
                      "StairsUpN 7 -160 -121",
                      "Floor -95 -94 -101",
                      "Beam -119.5 -124 7",
                      "Floor -31 -94 -101",
                      "Floor 33 -94 -101",
                      "Floor 97 -94 -101",
                      "Beam 120.5 -124 7",
                      "Floor -95 -30 -101",
                      "Floor -31 -30 -101",
                      "Floor 33 -30 -101",
                      "Floor 97 -30 -101",
                  }));
    }
}

TEST_F(PlatformsTest, CornersHaveSlabsAlone) {
    EXPECT_EQ(
        Pieces("CornerSE", *Kit(), AreaHalf),
        (Lines{
            "Floor -95 34 -101", "Floor -31 34 -101", "Floor -95 98 -101", "Floor -31 98 -101"}));
    for (const char* kind : {"CornerNW", "CornerNE", "CornerSW", "CornerSE"}) {
        EXPECT_EQ(Pieces(kind, *Kit()).size(), 16U) << kind;
    }
}

TEST_F(PlatformsTest, SingleSlabTakesItsBeamToTheLowSide) {
    auto kit = Kit(false, true, false);
    kit->Set(Piece("Floor", Di3Point(256.0F, 256.0F, 16.0F), Di3Point()));
    // The only slab is both the first and the last of its row.
    EXPECT_EQ(Pieces("WallN", *kit), (Lines{"Floor 0 0 -104", "Beam -119.5 -124 7"}));
    EXPECT_EQ(Pieces("WallS", *kit), (Lines{"Floor 0 0 -104", "Beam -119.5 -124 7"}));
    EXPECT_EQ(Pieces("WallW", *kit), (Lines{"Floor 0 0 -104", "Beam -119.5 -124 7"}));
    EXPECT_EQ(Pieces("WallE", *kit), (Lines{"Floor 0 0 -104", "Beam -119.5 -124 7"}));
}

TEST_F(PlatformsTest, WithoutAFloorNothingChanges) {
    EXPECT_EQ(Pieces("WallN", *Kit(false)), Lines{});
    EXPECT_EQ(elmt.platformHeight, 0);
    EXPECT_EQ(Pieces("Center", *Kit(false)), Lines{});
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(PlatformsTest, WithoutStairsTheFloorIsLaidAllTheSame) {
    EXPECT_EQ(Pieces("WallN", *Kit(true, true, false)).size(), 18U);
    EXPECT_EQ(Pieces("WallN", *Kit(true, true, false))[0], "Floor -95 -94 -101");
}

TEST_F(PlatformsTest, WithoutABeamItsRowEndsThereAndTheNextGoesOn) {
    EXPECT_EQ(Pieces("WallN", *Kit(true, false, false)),
              (Lines{
                  "Floor -95 -94 -101",
                  "Floor -95 -30 -101",
                  "Floor -31 -30 -101",
                  "Floor 33 -30 -101",
                  "Floor 97 -30 -101",
                  "Floor -95 34 -101",
                  "Floor -31 34 -101",
                  "Floor 33 34 -101",
                  "Floor 97 34 -101",
                  "Floor -95 98 -101",
                  "Floor -31 98 -101",
                  "Floor 33 98 -101",
                  "Floor 97 98 -101",
              }));
    EXPECT_EQ(Pieces("WallE", *Kit(true, false, false)),
              (Lines{
                  "Floor 97 -94 -101",
                  "Floor 97 -30 -101",
                  "Floor 161 -30 -101",
                  "Floor 225 -30 -101",
                  "Floor 289 -30 -101",
                  "Floor 97 34 -101",
                  "Floor 161 34 -101",
                  "Floor 225 34 -101",
                  "Floor 289 34 -101",
                  "Floor 97 98 -101",
              }));
    EXPECT_EQ(Pieces("CornerNW", *Kit(true, false, false)).size(), 16U);
}

TEST_F(PlatformsTest, OtherTilesAreReportedThoughTheirHeightIsSet) {
    EXPECT_EQ(Pieces("DoorwayN", *Kit()), Lines{});
    EXPECT_EQ(elmt.platformHeight, 16);
    EXPECT_EQ(Pieces("hallNS", *Kit()), Lines{});
    EXPECT_EQ(ErrorLines(),
              (Lines{"Error : Generator : Internal error. Unrecognized tile type 'DoorwayN' for "
                     "platform.",
                     "Error : Generator : Internal error. Unrecognized tile type 'hallNS' for "
                     "platform."}));
}

TEST_F(PlatformsTest, HeightFollowsTheCell) {
    for (const auto& [size, height] : {std::pair{511, 16}, {512, 32}, {1023, 32}, {1024, 64}}) {
        tiles->SetTileSize(size);
        Pieces("WallN", *Kit());
        EXPECT_EQ(elmt.platformHeight, height) << size;
    }
}

TEST_F(PlatformsTest, StairsStandOnTheGroundOfLargerCells) {
    tiles->SetTileSize(1024);
    // 11 - (1024 - 40) / 2 - (40 - 64)
    EXPECT_EQ(Pieces("WallN", *Kit())[0], "StairsUpN 7 -544 -457");
}

TEST_F(PlatformsTest, RunningPositionsAreRoundedAtEachStep) {
    auto kit = MakeDi<Platform>();
    kit->Set(Piece("Floor", Di3Point(10.7F, 256.0F, 0.0F), Di3Point()));
    tiles->SetTileSize(256);
    const Lines pieces = Pieces("CornerNW", *kit);
    ASSERT_EQ(pieces.size(), 23U);
    EXPECT_EQ(pieces[0], "Floor 0 0 -112");
    // From the start, 10 times 10.7 in one step would be 107.
    EXPECT_EQ(pieces[10], "Floor 106.999985 0 -112");
}

TEST_F(PlatformsTest, PiecesOfTheKitStayAsTheyAre) {
    const DiPtr<Platform> kit = Kit();
    const Lines first = Pieces("WallN", *kit);
    EXPECT_EQ(Pieces("WallN", *kit), first);
    EXPECT_EQ(kit->Get("Floor")->offset, Di3Point(1.0F, 2.0F, 3.0F));
}

// Which platform, along which walls.

class AddPlatformsTest : public PlatformsTest {
protected:
    // The height built in each cell, the layout drawn as map.
    std::string Raised(std::string_view map) {
        OpenGen gen(info);
        const DiPtr<Layout> layout = ToLayout(map, *tiles);
        gen.AddPlatforms(*layout);
        std::string heights;
        for (const DiPtr<GridElmt>& cell : layout->GetRow(0)) {
            heights += cell->platforms.empty() ? ". " : cell->platforms[0]->id + " ";
        }
        return Map(heights);
    }
};

TEST_F(AddPlatformsTest, EveryStraightWallIsRaised) {
    info.config.platformList = {Kit(true, true, false)};
    const DrawLog draws;
    EXPECT_EQ(Raised("wN c NW wE DN | wS&c ^ wW"), Map("Floor . . Floor . . Floor . Floor"));
    EXPECT_EQ(draws.Bounds(), Draws{1});
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(AddPlatformsTest, PlatformIsChosenByOneDrawForAllWalls) {
    auto other = MakeDi<Platform>();
    PlatformTile slab = Piece("Floor", Di3Point(256.0F, 256.0F, 8.0F), Di3Point());
    slab.id = "Slab";
    other->Set(slab);
    info.config.platformList = {Kit(true, true, false), other, Kit(true, true, false)};
    SeedFor({Pick(1, 3)});
    const DrawLog draws;
    EXPECT_EQ(Raised("wN wS"), Map("Slab Slab"));
    EXPECT_EQ(draws.Bounds(), Draws{3});
}

TEST_F(AddPlatformsTest, NoPlatformMeansNoDraw) {
    const DrawLog draws;
    EXPECT_EQ(Raised("wN"), Map("."));
    EXPECT_EQ(draws.Bounds(), Draws{});
}

TEST_F(AddPlatformsTest, WithoutWallsThePlatformIsStillDrawn) {
    info.config.platformList = {Kit()};
    const DrawLog draws;
    EXPECT_EQ(Raised("c"), Map("."));
    EXPECT_EQ(draws.Bounds(), Draws{1});
}

} // namespace

} // namespace Tarnex::Test
