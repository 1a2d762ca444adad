// SPDX-License-Identifier: MIT
// The tiles that follow from a tile given once.
#include <vaultry/catalogue/Mirroring.h>
#include <vaultry/catalogue/TileSet.h>
#include <vaultry/foundation/Logger.h>

#include <array>
#include <climits>
#include <tests/support/LogTest.h>

namespace Tarnex::Test {

namespace {

// What follows from a source turned by 10 degrees at (10, 20, 5) that climbs 64 units.
struct MirrorCase {
    const char* source;
    const char* derived;
    int zRotate;
    float x;
    float y;
    float z;
};

// clang-format off
constexpr std::array<MirrorCase, 43> kMirrors = {{
    // source         derived          zRotate x       y       z
    {"CornerNW",     "CornerNE",      100,  20.0F, -10.0F,   5.0F},
    {"CornerNW",     "CornerSE",      190, -10.0F, -20.0F,   5.0F},
    {"CornerNW",     "CornerSW",      280, -20.0F,  10.0F,   5.0F},

    {"WallN",        "WallS",         190, -10.0F, -20.0F,   5.0F},
    {"WallN",        "WallE",         100,  20.0F, -10.0F,   5.0F},
    {"WallN",        "WallW",         280, -20.0F,  10.0F,   5.0F},

    {"DoorwayN",     "DoorwayS",      190, -10.0F, -20.0F,   5.0F},
    {"DoorwayN",     "DoorwayE",      100,  20.0F, -10.0F,   5.0F},
    {"DoorwayN",     "DoorwayW",      280, -20.0F,  10.0F,   5.0F},

    {"DoorjambN",    "DoorjambS",     190, -10.0F, -20.0F,   5.0F},
    {"DoorjambN",    "DoorjambE",     100,  20.0F, -10.0F,   5.0F},
    {"DoorjambN",    "DoorjambW",     280, -20.0F,  10.0F,   5.0F},

    {"DoorN",        "DoorS",         190, -10.0F, -20.0F,   5.0F},
    {"DoorN",        "DoorE",         100,  20.0F, -10.0F,   5.0F},
    {"DoorN",        "DoorW",         280, -20.0F,  10.0F,   5.0F},

    {"HallNS",       "HallEW",        100,  20.0F, -10.0F,   5.0F},
    {"HallNS_2",     "HallEW_2",      100,  20.0F, -10.0F,   5.0F},

    {"HallCornerNW", "HallCornerNE",  100,  20.0F, -10.0F,   5.0F},
    {"HallCornerNW", "HallCornerSE",  190, -10.0F, -20.0F,   5.0F},
    {"HallCornerNW", "HallCornerSW",  280, -20.0F,  10.0F,   5.0F},

    {"HallEndN",     "HallEndS",      190, -10.0F, -20.0F,   5.0F},
    {"HallEndN",     "HallEndE",      100,  20.0F, -10.0F,   5.0F},
    {"HallEndN",     "HallEndW",      280, -20.0F,  10.0F,   5.0F},

    // The corner doorways keep the offset.
    {"DoorwayNW_W",  "DoorwayNE_N",   100,  10.0F,  20.0F,   5.0F},
    {"DoorwayNW_W",  "DoorwaySE_E",   190,  10.0F,  20.0F,   5.0F},
    {"DoorwayNW_W",  "DoorwaySW_S",   280,  10.0F,  20.0F,   5.0F},

    {"DoorwayNW_N",  "DoorwayNE_E",   100,  10.0F,  20.0F,   5.0F},
    {"DoorwayNW_N",  "DoorwaySE_S",   190,  10.0F,  20.0F,   5.0F},
    {"DoorwayNW_N",  "DoorwaySW_W",   280,  10.0F,  20.0F,   5.0F},

    // The stairs down to the south keep the rotation, but not the offset.
    {"StairsUpN",    "StairsUpS",     190, -10.0F, -20.0F,   5.0F},
    {"StairsUpN",    "StairsUpE",     100,  20.0F, -10.0F,   5.0F},
    {"StairsUpN",    "StairsUpW",     280, -20.0F,  10.0F,   5.0F},
    {"StairsUpN",    "StairsDnN",     190, -10.0F, -20.0F, -59.0F},
    {"StairsUpN",    "StairsDnS",      10, -10.0F, -20.0F, -59.0F},
    {"StairsUpN",    "StairsDnE",     280, -20.0F,  10.0F, -59.0F},
    {"StairsUpN",    "StairsDnW",     100,  20.0F, -10.0F, -59.0F},

    {"StairsUpN_2",  "StairsUpS_2",   190, -10.0F, -20.0F,   5.0F},
    {"StairsUpN_2",  "StairsUpE_2",   100,  20.0F, -10.0F,   5.0F},
    {"StairsUpN_2",  "StairsUpW_2",   280, -20.0F,  10.0F,   5.0F},
    {"StairsUpN_2",  "StairsDnN_2",   190, -10.0F, -20.0F, -59.0F},
    {"StairsUpN_2",  "StairsDnS_2",    10, -10.0F, -20.0F, -59.0F},
    {"StairsUpN_2",  "StairsDnE_2",   280, -20.0F,  10.0F, -59.0F},
    {"StairsUpN_2",  "StairsDnW_2",   100,  20.0F, -10.0F, -59.0F},
}};

// Every kind that brings nothing with it.
constexpr std::array kNoSources = {
    "CornerSW", "CornerNE", "CornerSE", "WallS", "WallE", "WallW", "Center", "Center_22",
    "DoorwayS", "DoorwayE", "DoorwayW", "DoorwayNE_N", "DoorwaySE_E", "DoorwaySW_S",
    "DoorwayNE_E", "DoorwaySE_S", "DoorwaySW_W", "DoorjambS", "DoorjambE", "DoorjambW",
    "DoorS", "DoorE", "DoorW", "HallEW", "HallEW_2", "HallEndS", "HallEndE", "HallEndW",
    "HallCornerNE", "HallCornerSW", "HallCornerSE", "Hall4Way", "StairsUpS", "StairsUpE",
    "StairsUpW", "StairsDnN", "StairsDnS", "StairsDnE", "StairsDnW", "StairsUpS_2",
    "StairsUpE_2", "StairsUpW_2", "StairsDnN_2", "StairsDnS_2", "StairsDnE_2", "StairsDnW_2",
    "Statue", ""};
// clang-format on

constexpr std::array kSources = {"CornerNW",
                                 "WallN",
                                 "DoorwayN",
                                 "DoorjambN",
                                 "DoorN",
                                 "HallNS",
                                 "HallCornerNW",
                                 "HallEndN",
                                 "StairsUpN",
                                 "DoorwayNW_N",
                                 "DoorwayNW_W",
                                 "HallNS_2",
                                 "StairsUpN_2"};

Tile Source(const std::string& kindName) {
    Tile tile;
    tile.id = "model";
    tile.area = 1;
    tile.kindName = kindName;
    tile.zRotate = 10;
    tile.deltaZ = 64;
    tile.offset = Di3Point(10.0F, 20.0F, 5.0F);
    tile.scale = 0.75F;
    tile.requiredName = "Center";
    return tile;
}

Tile Turned(const char* kindName, int zRotate, const Di3Point& offset) {
    Tile tile;
    tile.kindName = kindName;
    tile.zRotate = zRotate;
    tile.offset = offset;
    return tile;
}

class MirroringTest : public LogTest {
protected:
    MirroringTest() { set.SetName("Set"); }

    const Tile& Filed(const char* kindName) const {
        static const Tile none;
        const DiPtr<Tile> tile = set.Get(std::string(kindName));
        EXPECT_TRUE(tile) << kindName;
        return tile ? *tile : none;
    }

    // The kinds in the order in which a source overwrites tiles that are there already.
    std::vector<std::string> OverwrittenBy(const char* source) {
        TileSet crowded;
        for (const MirrorCase& row : kMirrors) {
            if (row.source == std::string(source)) {
                crowded.Set(Source(row.derived));
            }
        }
        Logger::ResetErrors();
        crowded.Set(Source(source));
        std::vector<std::string> kinds;
        for (const std::string& line : ErrorLines()) {
            const std::size_t start = line.find('\'') + 1;
            kinds.push_back(line.substr(start, line.find('\'', start) - start));
        }
        return kinds;
    }

    TileSet set;
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(MirroringTest, EveryDerivedTileIsTurnedMovedAndLoweredByItsRow) {
    for (const char* source : kSources) {
        set.Set(Source(source));
    }
    for (const MirrorCase& row : kMirrors) {
        SCOPED_TRACE(row.derived);
        const Tile& tile = Filed(row.derived);
        EXPECT_EQ(tile.kindName, row.derived);
        EXPECT_EQ(tile.zRotate, row.zRotate);
        EXPECT_EQ(tile.offset, Di3Point(row.x, row.y, row.z));
    }
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(MirroringTest, EverythingElseIsInherited) {
    for (const char* source : kSources) {
        set.Set(Source(source));
    }
    for (const MirrorCase& row : kMirrors) {
        SCOPED_TRACE(row.derived);
        const Tile& tile = Filed(row.derived);
        EXPECT_EQ(tile.id, "model");
        EXPECT_EQ(tile.area, 1);
        EXPECT_EQ(tile.deltaZ, 64);
        EXPECT_EQ(tile.scale, 0.75F);
        EXPECT_EQ(tile.requiredName, "Center");
    }
}

TEST_F(MirroringTest, TheSourceItselfStaysAsGiven) {
    for (const char* source : kSources) {
        SCOPED_TRACE(source);
        set.Set(Source(source));
        EXPECT_EQ(Filed(source).zRotate, 10);
        EXPECT_EQ(Filed(source).offset, Di3Point(10.0F, 20.0F, 5.0F));
    }
}

TEST_F(MirroringTest, EachSourceBringsItsOwnTilesOnly) {
    for (const char* source : kSources) {
        TileSet alone;
        alone.Set(Source(source));
        for (const MirrorCase& row : kMirrors) {
            const bool follows = row.source == std::string(source);
            EXPECT_EQ(static_cast<bool>(alone.Get(std::string(row.derived))), follows)
                << row.derived << " after " << source;
        }
    }
}

TEST_F(MirroringTest, OtherKindsBringNothing) {
    for (const char* kind : kNoSources) {
        EXPECT_TRUE(MirrorTile(Source(kind)).empty()) << kind;
    }
}

TEST_F(MirroringTest, ASourceIsRecognisedInAnyLetterCase) {
    set.Set(Source("hallns_2"));
    EXPECT_EQ(Filed("HallEW_2").kindName, "HallEW_2");
    EXPECT_EQ(Filed("HallNS_2").kindName, "hallns_2");
}

TEST_F(MirroringTest, WallsAreFiledSouthEastWest) {
    EXPECT_EQ(OverwrittenBy("WallN"), Names({"WallS", "WallE", "WallW"}));
    EXPECT_EQ(OverwrittenBy("DoorwayN"), Names({"DoorwayS", "DoorwayE", "DoorwayW"}));
    EXPECT_EQ(OverwrittenBy("DoorjambN"), Names({"DoorjambS", "DoorjambE", "DoorjambW"}));
    EXPECT_EQ(OverwrittenBy("DoorN"), Names({"DoorS", "DoorE", "DoorW"}));
    EXPECT_EQ(OverwrittenBy("HallEndN"), Names({"HallEndS", "HallEndE", "HallEndW"}));
}

TEST_F(MirroringTest, CornersAreFiledClockwise) {
    EXPECT_EQ(OverwrittenBy("CornerNW"), Names({"CornerNE", "CornerSE", "CornerSW"}));
    EXPECT_EQ(OverwrittenBy("HallCornerNW"),
              Names({"HallCornerNE", "HallCornerSE", "HallCornerSW"}));
    EXPECT_EQ(OverwrittenBy("DoorwayNW_W"), Names({"DoorwayNE_N", "DoorwaySE_E", "DoorwaySW_S"}));
    EXPECT_EQ(OverwrittenBy("DoorwayNW_N"), Names({"DoorwayNE_E", "DoorwaySE_S", "DoorwaySW_W"}));
}

TEST_F(MirroringTest, AHallBringsOneTile) {
    EXPECT_EQ(OverwrittenBy("HallNS"), Names({"HallEW"}));
    EXPECT_EQ(OverwrittenBy("HallNS_2"), Names({"HallEW_2"}));
}

TEST_F(MirroringTest, StairsAreFiledUpwardsFirst) {
    EXPECT_EQ(OverwrittenBy("StairsUpN"),
              Names({"StairsUpS",
                     "StairsUpE",
                     "StairsUpW",
                     "StairsDnN",
                     "StairsDnS",
                     "StairsDnE",
                     "StairsDnW"}));
    EXPECT_EQ(OverwrittenBy("StairsUpN_2"),
              Names({"StairsUpS_2",
                     "StairsUpE_2",
                     "StairsUpW_2",
                     "StairsDnN_2",
                     "StairsDnS_2",
                     "StairsDnE_2",
                     "StairsDnW_2"}));
}

TEST_F(MirroringTest, RotationsWrapOnce) {
    set.Set(Turned("WallN", 300, Di3Point(10.0F, 20.0F, 0.0F)));
    EXPECT_EQ(Filed("WallE").zRotate, 30);
    EXPECT_EQ(Filed("WallE").offset, Di3Point(20.0F, -10.0F, 0.0F));
    EXPECT_EQ(Filed("WallS").zRotate, 120);
    EXPECT_EQ(Filed("WallS").offset, Di3Point(-10.0F, -20.0F, 0.0F));
    EXPECT_EQ(Filed("WallW").zRotate, 210);
    EXPECT_EQ(Filed("WallW").offset, Di3Point(-20.0F, 10.0F, 0.0F));
}

TEST_F(MirroringTest, AnAngleBeyondAFullTurnWrapsNoMoreThanOnce) {
    set.Set(Turned("StairsUpN", 400, Di3Point()));
    EXPECT_EQ(Filed("StairsUpE").zRotate, 130);
    EXPECT_EQ(Filed("StairsUpS").zRotate, 220);
    EXPECT_EQ(Filed("StairsUpW").zRotate, 310);
    EXPECT_EQ(Filed("StairsDnS").zRotate, 400);
    set.Set(Turned("WallN", 1000, Di3Point()));
    EXPECT_EQ(Filed("WallE").zRotate, 730);
}

TEST_F(MirroringTest, ANegativeAngleStaysForTheStairsDownSouth) {
    set.Set(Turned("StairsUpN", -100, Di3Point()));
    EXPECT_EQ(Filed("StairsUpE").zRotate, 350);
    EXPECT_EQ(Filed("StairsUpS").zRotate, 80);
    EXPECT_EQ(Filed("StairsDnS").zRotate, -100);
}

// Beyond 2^24 a rotation loses its last digits on the way through single precision.
TEST_F(MirroringTest, HugeRotationsPassThroughSinglePrecision) {
    set.Set(Turned("WallN", 16777217, Di3Point()));
    EXPECT_EQ(Filed("WallN").zRotate, 16777217);
    EXPECT_EQ(Filed("WallE").zRotate, 16776946);
    set.Set(Turned("StairsUpN", INT_MAX, Di3Point()));
    EXPECT_EQ(Filed("StairsUpE").zRotate, 2147483378);
    EXPECT_EQ(Filed("StairsUpW").zRotate, 2147483558);
    EXPECT_EQ(Filed("StairsDnS").zRotate, INT_MAX);
    set.Set(Turned("DoorN", INT_MIN, Di3Point()));
    EXPECT_EQ(Filed("DoorE").zRotate, -2147483198);
}

TEST_F(MirroringTest, StairsDownAreLowerByTheHeightClimbed) {
    Tile stairs = Turned("StairsUpN", 0, Di3Point(0.0F, 0.0F, 8.0F));
    stairs.deltaZ = 64;
    set.Set(stairs);
    for (const char* name : {"StairsUpN", "StairsUpS", "StairsUpE", "StairsUpW"}) {
        EXPECT_EQ(Filed(name).offset.z, 8.0F) << name;
    }
    for (const char* name : {"StairsDnN", "StairsDnS", "StairsDnE", "StairsDnW"}) {
        EXPECT_EQ(Filed(name).offset.z, -56.0F) << name;
    }
}

TEST_F(MirroringTest, CornerDoorwaysKeepTheirOffset) {
    set.Set(Turned("DoorwayNW_W", 0, Di3Point(5.0F, 5.0F, 0.0F)));
    EXPECT_EQ(Filed("DoorwayNE_N").offset, Di3Point(5.0F, 5.0F, 0.0F));
    EXPECT_EQ(Filed("DoorwayNE_N").zRotate, 90);
    EXPECT_EQ(Filed("DoorwaySE_E").offset, Di3Point(5.0F, 5.0F, 0.0F));
    EXPECT_EQ(Filed("DoorwaySE_E").zRotate, 180);
    EXPECT_EQ(Filed("DoorwaySW_S").offset, Di3Point(5.0F, 5.0F, 0.0F));
    EXPECT_EQ(Filed("DoorwaySW_S").zRotate, 270);
}

TEST(NormalizeAngle, WrapsOnce) {
    EXPECT_EQ(NormalizeAngle(0), 0);
    EXPECT_EQ(NormalizeAngle(359), 359);
    EXPECT_EQ(NormalizeAngle(360), 0);
    EXPECT_EQ(NormalizeAngle(720), 360);
    EXPECT_EQ(NormalizeAngle(800), 440);
    EXPECT_EQ(NormalizeAngle(-1), 359);
    EXPECT_EQ(NormalizeAngle(-360), 0);
    EXPECT_EQ(NormalizeAngle(-800), -440);
}

TEST(RotateOffset, TurnsClockwiseAndLeavesTheHeight) {
    const auto turned = [](int degrees) {
        Di3Point point(1.0F, 2.0F, 3.0F);
        RotateOffset(point, degrees);
        return point;
    };
    EXPECT_EQ(turned(90), Di3Point(2.0F, -1.0F, 3.0F));
    EXPECT_EQ(turned(180), Di3Point(-1.0F, -2.0F, 3.0F));
    EXPECT_EQ(turned(270), Di3Point(-2.0F, 1.0F, 3.0F));
}

TEST(RotateOffset, IgnoresOtherAngles) {
    for (const int degrees : {0, 45, 89, 360, 450, -90}) {
        Di3Point point(1.0F, 2.0F, 3.0F);
        RotateOffset(point, degrees);
        EXPECT_EQ(point, Di3Point(1.0F, 2.0F, 3.0F)) << degrees;
    }
}

} // namespace Tarnex::Test
