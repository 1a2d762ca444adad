// SPDX-License-Identifier: MIT
#include <vaultry/gen/ContentPlace.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/gen/GenTest.h>

namespace Tarnex::Test {

namespace {

// How many.

struct CountCase {
    ItemSpec item;
    std::uint32_t count;
    std::int64_t minimum;
    std::int64_t maximum;
    std::int64_t treasureMaximum;
};

// clang-format off
const CountCase kCounts[] = {
    // By chance alone: none for certain, and one more than the ratio's share.
    {{.ratio = 0.5F, .chance = 0.3F},                               10,  0,  6,  6},
    {{.ratio = 0.0F, .chance = 0.3F},                               10,  0,  1,  1},
    {{.ratio = 1.0F, .chance = 0.3F},                               10,  0, 10, 10},
    {{.ratio = 2.0F, .chance = 0.3F},                               10,  0, 20, 20},
    // For certain.
    {{.ratio = 0.5F, .chance = 1.0F},                               10,  5,  6,  6},
    {{.ratio = 0.5F, .chance = 1.5F},                               10,  5,  6,  6},
    {{.ratio = 0.5F, .chance = 0.999F},                             10,  0,  6,  6},
    {{.ratio = 1.0F, .chance = 1.0F},                               10, 10, 10, 10},
    {{.ratio = 2.5F, .chance = 1.0F},                                3,  7,  7,  7},
    {{.ratio = 0.25F, .chance = 1.0F},                               3,  0,  1,  1},
    // The ratio is single precision: 0.7 and 0.9 lie below, 0.1 lies above.
    {{.ratio = 0.7F, .chance = 1.0F},                               10,  6,  7,  7},
    {{.ratio = 0.9F, .chance = 1.0F},                               10,  8,  9,  9},
    {{.ratio = 0.1F, .chance = 1.0F},                               10,  1,  2,  2},
    // Given.
    {{.ratio = 0.5F, .chance = 0.3F, .minimum = 2},                 10,  2,  6,  6},
    {{.ratio = 0.5F, .chance = 1.0F, .minimum = 2},                 10,  2,  6,  6},
    {{.ratio = 0.5F, .chance = 1.0F, .minimum = 0},                 10,  0,  6,  6},
    {{.ratio = 0.5F, .chance = 0.3F, .maximum = 3},                 10,  0,  3,  3},
    {{.ratio = 0.5F, .chance = 1.0F, .maximum = 3},                 10,  5,  3,  3},
    {{.ratio = 0.5F, .chance = 1.0F, .minimum = 1, .maximum = 40},  10,  1, 40, 40},
    {{.ratio = 0.5F, .chance = 1.0F, .maximum = 0},                 10,  5,  0,  0},
    // A minimum above the maximum raises that of treasure, unless it is given.
    {{.ratio = 0.5F, .chance = 0.3F, .minimum = 8},                 10,  8,  6,  8},
    {{.ratio = 0.5F, .chance = 0.3F, .minimum = 8, .maximum = 3},   10,  8,  3,  3},
    // Only -1 means "not given".
    {{.ratio = 0.5F, .chance = 1.0F, .minimum = -2},                10, -2,  6,  6},
    {{.ratio = 0.5F, .chance = 1.0F, .maximum = -2},                10,  5, -2, -2},
    {{.ratio = -0.5F, .chance = 0.3F},                              10,  0, -4,  0},
    {{.ratio = -0.5F, .chance = 1.0F},                              10, -5, -4, -4},
    // Beyond the whole numbers.
    {{.ratio = 1e30F, .chance = 1.0F},                              10, 2147483647, 2147483647, 2147483647},
    {{.ratio = 1.0F, .chance = 1.0F},                                0,  0,  0,  0},
};
// clang-format on

std::string Words(const CountCase& c) {
    return "ratio " + std::to_string(c.item.ratio) + " chance " + std::to_string(c.item.chance) +
           " min " + std::to_string(c.item.minimum) + " max " + std::to_string(c.item.maximum);
}

TEST(ContentPlaceTest, CountsFollowRatioChanceMinimumAndMaximum) {
    for (const CountCase& c : kCounts) {
        const PlacementCounts counts = CountPlacements(MakeItem(c.item), c.count);
        EXPECT_EQ(counts.minimum, c.minimum) << Words(c);
        EXPECT_EQ(counts.maximum, c.maximum) << Words(c);
    }
}

TEST(ContentPlaceTest, TreasureRaisesAMaximumThatIsNotGiven) {
    for (const CountCase& c : kCounts) {
        const PlacementCounts counts = CountTreasure(MakeItem(c.item), c.count);
        EXPECT_EQ(counts.minimum, c.minimum) << Words(c);
        EXPECT_EQ(counts.maximum, c.treasureMaximum) << Words(c);
    }
}

// Where.

struct Place {
    float x;
    float y;
    float z;
    int turn;

    bool operator==(const Place&) const = default;
};

void PrintTo(const Place& place, std::ostream* out) {
    *out << place.x << ' ' << place.y << ' ' << place.z << " turned " << place.turn;
}

class FitTest : public ::testing::Test {
protected:
    DiPtr<TileSet> tiles = MakeFullTileSet();
    GridElmt elmt;

    FitTest() { tiles->SetWallThickness(16.0F); }

    void Stand(const char* kind, int area = AreaFull) {
        Tile tile;
        tile.kindName = kind;
        tile.area = area;
        elmt.ReplaceTiles(MakeDi<Tile>(tile));
    }

    static ContentItem Bench() {
        ContentItem item;
        item.size = Di3Point(20.0F, 40.0F, 60.0F);
        item.offset = Di3Point(3.0F, 5.0F, 7.0F);
        item.zRotate = 30;
        return item;
    }

    Place Fit(ContentItem item = Bench()) const {
        FitIntoElement(item, elmt, *tiles);
        return {item.offset.x, item.offset.y, item.offset.z, item.zRotate};
    }
};

struct FitCase {
    const char* kind;
    Place full;
    Place reduced;
};

// Of a cell of 256 with walls of 16 and a thing of 20 x 40 x 60 at (3, 5, 7) turned by 30.
// clang-format off
const FitCase kWallFits[] = {
    {"WallN",    {  3.0F,  97.0F, -91.0F,  30}, {  3.0F, -31.0F, -91.0F,  30}},
    {"CornerNE", {-13.0F,  97.0F, -91.0F,  30}, {-23.0F, -31.0F, -91.0F,  30}},
    {"WallS",    { -3.0F, -97.0F, -91.0F, 210}, { -3.0F,  31.0F, -91.0F, 210}},
    {"CornerSW", { 13.0F, -97.0F, -91.0F, 210}, { 23.0F,  31.0F, -91.0F, 210}},
    {"WallW",    {-97.0F,   3.0F, -91.0F, 300}, { 31.0F,   3.0F, -91.0F, 300}},
    {"CornerNW", {-97.0F, -13.0F, -91.0F, 300}, { 31.0F, -23.0F, -91.0F, 300}},
    {"WallE",    { 97.0F,  -3.0F, -91.0F, 120}, {-31.0F,  -3.0F, -91.0F, 120}},
    {"CornerSE", { 97.0F,  13.0F, -91.0F, 120}, {-31.0F,  23.0F, -91.0F, 120}},
};

const FitCase kCaveFits[] = {
    {"HallCornerNW", { 67.0F, 5.0F, -59.0F, 30}, { 67.0F, 5.0F, -59.0F, 30}},
    {"HallCornerSW", { 67.0F, 5.0F, -59.0F, 30}, { 67.0F, 5.0F, -59.0F, 30}},
    {"HallCornerNE", {-61.0F, 5.0F, -59.0F, 30}, {-61.0F, 5.0F, -59.0F, 30}},
    {"HallCornerSE", {-61.0F, 5.0F, -59.0F, 30}, {-61.0F, 5.0F, -59.0F, 30}},
};

const char* const kOtherKinds[] = {
    "Center", "Center_22",
    "DoorwayN", "DoorwayS", "DoorwayE", "DoorwayW",
    "DoorwayNW_W", "DoorwayNE_N", "DoorwaySE_E", "DoorwaySW_S",
    "DoorwayNW_N", "DoorwayNE_E", "DoorwaySE_S", "DoorwaySW_W",
    "DoorjambN", "DoorjambS", "DoorjambE", "DoorjambW",
    "DoorN", "DoorS", "DoorE", "DoorW",
    "HallNS", "HallEW", "HallNS_2", "HallEW_2",
    "HallEndN", "HallEndS", "HallEndE", "HallEndW", "Hall4Way",
    "StairsUpN", "StairsUpS", "StairsUpE", "StairsUpW",
    "StairsDnN", "StairsDnS", "StairsDnE", "StairsDnW",
    "StairsUpN_2", "StairsUpS_2", "StairsUpE_2", "StairsUpW_2",
    "StairsDnN_2", "StairsDnS_2", "StairsDnE_2", "StairsDnW_2",
    "Lamp",
};
// clang-format on

const Place kCentred = {3.0F, 5.0F, -91.0F, 30};

TEST_F(FitTest, ThingsStandAgainstWallsAndInCornersOfRoomsAndCaves) {
    for (const char* type : {"Room", "Cave"}) {
        tiles->SetType(type);
        for (const FitCase& c : kWallFits) {
            Stand(c.kind, AreaFull);
            EXPECT_EQ(Fit(), c.full) << type << ' ' << c.kind;
            Stand(c.kind, AreaHalf);
            EXPECT_EQ(Fit(), c.reduced) << type << ' ' << c.kind << " half";
            Stand(c.kind, AreaQuarter);
            EXPECT_EQ(Fit(), c.reduced) << type << ' ' << c.kind << " quarter";
        }
    }
}

TEST_F(FitTest, ThingsInHallCornersOfCavesMoveIntoTheOpen) {
    for (const char* type : {"Cave", "cave"}) {
        tiles->SetType(type);
        for (const FitCase& c : kCaveFits) {
            for (const int area : {AreaFull, AreaHalf, AreaQuarter}) {
                Stand(c.kind, area);
                EXPECT_EQ(Fit(), c.full) << c.kind << ' ' << area;
            }
        }
    }
}

TEST_F(FitTest, ThingsInHallCornersOfRoomsStayInTheMiddle) {
    for (const FitCase& c : kCaveFits) {
        Stand(c.kind);
        EXPECT_EQ(Fit(), kCentred) << c.kind;
    }
}

TEST_F(FitTest, ThingsAnywhereElseStayInTheMiddle) {
    for (const char* type : {"Room", "Cave"}) {
        tiles->SetType(type);
        for (const char* kind : kOtherKinds) {
            for (const int area : {AreaFull, AreaHalf}) {
                Stand(kind, area);
                EXPECT_EQ(Fit(), kCentred) << type << ' ' << kind << ' ' << area;
            }
        }
    }
}

TEST_F(FitTest, OnlyTheFirstTileCountsAndItsNameIgnoresCase) {
    Stand("wALLn");
    elmt.AddTile(tiles->Get("WallS"));
    EXPECT_EQ(Fit(), kWallFits[0].full);
}

TEST_F(FitTest, QuarterOfACellIsAWholeNumber) {
    tiles->SetType("Cave");
    tiles->SetTileSize(250);
    Stand("HallCornerNW");
    EXPECT_EQ(Fit(), (Place{65.0F, 5.0F, -56.0F, 30}));
}

TEST_F(FitTest, PlatformLiftsAndHalvesTheWall) {
    elmt.platforms.push_back(MakeDi<PlatformTile>());
    elmt.platformHeight = 16;
    Stand("WallN");
    EXPECT_EQ(Fit(), (Place{3.0F, 105.0F, -75.0F, 30}));
    Stand("CornerSE", AreaHalf);
    EXPECT_EQ(Fit(), (Place{-23.0F, 15.0F, -75.0F, 120}));
    Stand("Center");
    EXPECT_EQ(Fit(), (Place{3.0F, 5.0F, -75.0F, 30}));
}

TEST_F(FitTest, HeightWithoutPiecesLiftsNothing) {
    elmt.platformHeight = 16;
    Stand("WallN");
    EXPECT_EQ(Fit(), kWallFits[0].full);
}

TEST_F(FitTest, AngleIsBroughtBackByOneTurn) {
    struct TurnCase {
        const char* kind;
        int before;
        int after;
    };
    const TurnCase cases[] = {
        {"WallS", 179, 359},
        {"WallS", 180, 0},
        {"WallW", 300, 210},
        {"WallE", 269, 359},
        {"WallE", 270, 0},
        {"WallE", 700, 430},
        {"WallE", -400, 50},
        {"WallS", -1000, -460},
        {"WallW", 2147483647, 2147483557},
        // Without a turn the angle stays as it was written.
        {"WallN", 700, 700},
        {"CornerNE", -30, -30},
        {"Center", 360, 360},
    };
    for (const TurnCase& c : cases) {
        Stand(c.kind);
        ContentItem item = Bench();
        item.zRotate = c.before;
        EXPECT_EQ(Fit(item).turn, c.after) << c.kind << ' ' << c.before;
    }
}

TEST_F(FitTest, EachStepIsRoundedToSinglePrecision) {
    tiles->SetWallThickness(24.7F);
    Stand("WallN");
    ContentItem item = Bench();
    item.size.y = 54.9F;
    item.offset.y = -29.1F;
    // One rounding at the end would give 46.75, single precision throughout 46.7500038.
    EXPECT_EQ(Fit(item).y, 46.7499962F);
}

} // namespace

} // namespace Tarnex::Test
