// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <tests/gen/HallFixture.h>

namespace Tarnex::Test {

namespace {

// One side of a cell and the codes of what belongs to it.
struct SideOf {
    int dx;
    int dy;
    std::string wall;
    std::string arch;
    std::string door;
    std::string facingWall; // the wall of a room on that side, looking back
    std::string facingArch; // its doorway
    std::string passing;    // a hall running past on that side
    std::string leading;    // a hall leading to that side
};

const std::array<SideOf, 4> kSides = {{
    {0, -1, "wN", "dN", "DN", "wS", "dS", "-", "|"},
    {0, 1, "wS", "dS", "DS", "wN", "dN", "-", "|"},
    {1, 0, "wE", "dE", "DE", "wW", "dW", "|", "-"},
    {-1, 0, "wW", "dW", "DW", "wE", "dE", "|", "-"},
}};

class GenHallJunctionsTest : public HallTest {
protected:
    static constexpr DiPos kHere = DiPos(3, 3, 0);

    // A level with that cell in the middle and nothing else.
    void Alone(std::string_view cell) {
        Level(7, 7);
        Put(kHere, cell);
    }
    static DiPos Beside(const SideOf& side) { return kHere + At(side.dx, side.dy); }

    bool MoveOnto(TileDirT dir) { return Halls().CvtElmt(*Elmt(kHere), dir, kHere); }
    bool MayBeJunction() { return Halls().Try4Way(*Elmt(kHere), kHere, true); }
    bool MakeJunction() { return Halls().Try4Way(*Elmt(kHere), kHere, false); }

    // The cell after a hall piece of that direction has moved onto it, or "no".
    std::string After(std::string_view cell, TileDirT dir) {
        Alone(cell);
        return MoveOnto(dir) ? Cell(kHere) : "no";
    }
};

constexpr std::array<TileDirT, 6> kStraight = {DirN, DirS, DirE, DirW, DirNS, DirEW};
constexpr std::array<TileDirT, 6> kNotStraight = {DirNW, DirNE, DirSW, DirSE, DirAll, DirNone};

// Moving onto an element.

TEST_F(GenHallJunctionsTest, ShadowRefusesBeforeAnythingElse) {
    for (const char* cell : {"dN~", "wN~", "|~", "^~", "c~"}) {
        const DrawLog log;
        EXPECT_EQ(After(cell, DirNS), "no") << cell;
        EXPECT_EQ(Cell(kHere), cell);
        EXPECT_TRUE(log.Bounds().empty());
    }
}

TEST_F(GenHallJunctionsTest, DoorwayIsPassedAsItIs) {
    for (const char* cell : {"dN", "DE", "c&dS", "wN&dN", "NWw", "lW"}) {
        const DrawLog log;
        EXPECT_EQ(After(cell, DirNW), cell);
        EXPECT_EQ(After(cell, DirEW), cell);
        EXPECT_TRUE(log.Bounds().empty());
    }
}

TEST_F(GenHallJunctionsTest, WallBecomesADoorwayFromAStraightStep) {
    for (const TileDirT dir : kStraight) {
        SeedFor({UpTo(0.2)});
        EXPECT_EQ(After("wN", dir), "dN") << dir;
    }
    SeedFor({UpTo(0.2)});
    EXPECT_EQ(After("wS&|", DirNS), "dS");
}

TEST_F(GenHallJunctionsTest, WallNeverBecomesADoorwayFromACornerStep) {
    const DrawLog log;
    for (const TileDirT dir : kNotStraight) {
        EXPECT_EQ(After("wN", dir), "no") << dir;
        EXPECT_EQ(Cell(kHere), "wN");
    }
    EXPECT_TRUE(log.Bounds().empty());
}

TEST_F(GenHallJunctionsTest, HallIsFollowedAlongItsDirection) {
    struct Row {
        const char* cell;
        TileDirT dir;
    };
    for (const Row& row : {Row{"|", DirNS},
                           Row{"|2", DirNS},
                           Row{"-", DirEW},
                           Row{",-", DirNW},
                           Row{"+", DirAll},
                           Row{"c&|", DirNS}}) {
        EXPECT_EQ(After(row.cell, row.dir), row.cell);
    }
}

TEST_F(GenHallJunctionsTest, HallCrossedBecomesAJunction) {
    EXPECT_EQ(After("|", DirEW), "+");
    EXPECT_EQ(After("-", DirNS), "+");
    EXPECT_EQ(After("`-", DirEW), "+");
    EXPECT_EQ(After("|2", DirN), "+");
    EXPECT_EQ(Grid(), Map(R"(
        . . . . . . .
        . . . . . . .
        . . . ^ . . .
        . . < + > . .
        . . . v . . .
        . . . . . . .
        . . . . . . .)"));
}

TEST_F(GenHallJunctionsTest, JunctionIsPassedAnyWay) {
    Level(". c . \n c + c \n . c .");
    EXPECT_TRUE(Halls().CvtElmt(*Elmt(At(1, 1)), DirNS, At(1, 1)));
    EXPECT_TRUE(Halls().CvtElmt(*Elmt(At(1, 1)), DirEW, At(1, 1)));
    EXPECT_EQ(Grid(), Map(". c . \n c + c \n . c ."));
}

TEST_F(GenHallJunctionsTest, HallThatMayNotBeCrossedRefuses) {
    Alone("|");
    Put(At(4, 3), "c");
    EXPECT_FALSE(MoveOnto(DirEW));
    EXPECT_EQ(Cell(kHere), "|");
}

TEST_F(GenHallJunctionsTest, HallEndIsDrivenOnAlongItsAxis) {
    EXPECT_EQ(After("^", DirNS), "|");
    EXPECT_EQ(After("v", DirNS), "|");
    EXPECT_EQ(After(">", DirEW), "-");
    EXPECT_EQ(After("<", DirEW), "-");
    EXPECT_EQ(After("c&^&uN", DirNS), "|");
}

TEST_F(GenHallJunctionsTest, HallEndMetFromAsideBecomesAJunction) {
    EXPECT_EQ(After("^", DirEW), "+");
    EXPECT_EQ(After("v", DirEW), "+");
    EXPECT_EQ(After(">", DirNS), "+");
    EXPECT_EQ(After("<", DirNS), "+");
    EXPECT_EQ(After("^", DirN), "+");
    Alone("^");
    Put(At(3, 2), "c");
    EXPECT_FALSE(MoveOnto(DirEW));
    EXPECT_EQ(Cell(kHere), "^");
}

TEST_F(GenHallJunctionsTest, RoomFloorsCornersAndEmptyElementsRefuse) {
    for (const char* cell : {"c", "c2", "NW", "SE", "uN", "o"}) {
        EXPECT_EQ(After(cell, DirNS), "no") << cell;
        EXPECT_EQ(After(cell, DirEW), "no") << cell;
        EXPECT_EQ(Cell(kHere), cell);
    }
}

// Doorways.

TEST_F(GenHallJunctionsTest, DoorwayGetsADoorAboveAFifth) {
    for (const SideOf& side : kSides) {
        const DrawLog log;
        SeedFor({Above(0.2)});
        Alone(side.wall);
        Halls().CvtToDoorway(kHere);
        EXPECT_EQ(Cell(kHere), side.door);
        EXPECT_EQ(log.Bounds(), std::vector<std::int32_t>({kUnit}));
    }
}

TEST_F(GenHallJunctionsTest, DoorwayStaysAnArchUpToAFifth) {
    for (const SideOf& side : kSides) {
        const DrawLog log;
        SeedFor({UpTo(0.2)});
        Alone(side.wall);
        Halls().CvtToDoorway(kHere);
        EXPECT_EQ(Cell(kHere), side.arch);
        EXPECT_EQ(log.Bounds(), std::vector<std::int32_t>({kUnit}));
    }
}

TEST_F(GenHallJunctionsTest, FifthIsBetweenTwoNeighbouringDraws) {
    Alone("wN");
    SeedFor({Exactly(6553)});
    Halls().CvtToDoorway(kHere);
    EXPECT_EQ(Cell(kHere), "dN");
    Alone("wN");
    SeedFor({Exactly(6554)});
    Halls().CvtToDoorway(kHere);
    EXPECT_EQ(Cell(kHere), "DN");
}

TEST_F(GenHallJunctionsTest, SecondOfTwoDoorwaysBackToBackGetsNoDoor) {
    for (const SideOf& side : kSides) {
        for (const std::string& outside : {side.facingArch, "c&" + side.facingArch}) {
            const DrawLog log;
            SeedFor({Above(0.2)});
            Alone(side.wall);
            Put(Beside(side), outside);
            Halls().CvtToDoorway(kHere);
            EXPECT_EQ(Cell(kHere), side.arch);
            EXPECT_EQ(log.Bounds().size(), 1U);
        }
    }
}

TEST_F(GenHallJunctionsTest, FirstOfTwoDoorwaysBackToBackGetsTheDoor) {
    for (const SideOf& side : kSides) {
        SeedFor({Above(0.2), Above(0.2)});
        Alone(side.wall);
        Put(Beside(side), side.facingWall);
        Halls().CvtToDoorway(kHere);
        Halls().CvtToDoorway(Beside(side));
        EXPECT_EQ(Cell(kHere), side.door);
        EXPECT_EQ(Cell(Beside(side)), side.facingArch);
    }
}

TEST_F(GenHallJunctionsTest, OnlyTheCellOutsideKeepsADoorAway) {
    SeedFor({Above(0.2)});
    Level(R"(
        . . .  .  . . .
        . . .  .  . . .
        . . .  .  . . .
        . . dW wN dE . .
        . . .  dN . . .
        . . .  .  . . .
        . . .  .  . . .)");
    Halls().CvtToDoorway(kHere);
    EXPECT_EQ(Cell(kHere), "DN");
}

TEST_F(GenHallJunctionsTest, DoorAtTheBorderNeedsNothingOutside) {
    SeedFor({Above(0.2)});
    Level("wN");
    Halls().CvtToDoorway(At(0, 0));
    EXPECT_EQ(Cell(At(0, 0)), "DN");
}

TEST_F(GenHallJunctionsTest, FirstTileGivesTheFacingOfADoorway) {
    SeedFor({UpTo(0.2)});
    Alone("wE&wN");
    Halls().CvtToDoorway(kHere);
    EXPECT_EQ(Cell(kHere), "dE");
    SeedFor({Above(0.2)});
    Alone("c&wN");
    Halls().CvtToDoorway(kHere);
    EXPECT_EQ(Cell(kHere), "DW");
}

TEST_F(GenHallJunctionsTest, OnlyWallsBecomeDoorways) {
    const DrawLog log;
    for (const char* cell : {"c", "dN", "NW", "|", "^", "o", "."}) {
        Alone(cell);
        Halls().CvtToDoorway(kHere);
        EXPECT_EQ(Cell(kHere), cell);
    }
    Halls().CvtToDoorway(At(-1, 9));
    EXPECT_TRUE(log.Bounds().empty());
}

TEST_F(GenHallJunctionsTest, DoorwayTakesWhatTheTileSetHas) {
    SeedFor({Above(0.2)});
    UseTiles({"DoorwayN", "DoorN"});
    Alone("wS");
    Halls().CvtToDoorway(kHere);
    EXPECT_EQ(Cell(kHere), "dS&lS");
    UseTiles({"WallN"});
    SeedFor({Above(0.2)});
    Alone("wS");
    Halls().CvtToDoorway(kHere);
    EXPECT_EQ(Cell(kHere), "o");
}

// Whether a junction fits.

TEST_F(GenHallJunctionsTest, NoJunctionOnTheBorder) {
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 5; ++x) {
            for (const char* cell : {"|", "+"}) {
                Level(5, 4);
                Put(At(x, y), cell);
                const bool inside = x >= 1 && x <= 3 && y >= 1 && y <= 2;
                EXPECT_EQ(Halls().Try4Way(*Elmt(At(x, y)), At(x, y), true), inside);
            }
        }
    }
}

TEST_F(GenHallJunctionsTest, JunctionThatIsThereFitsWhateverIsAround) {
    Level(". c . \n c +  c \n . NW .");
    EXPECT_TRUE(Halls().Try4Way(*Elmt(At(1, 1)), At(1, 1), false));
    EXPECT_EQ(Grid(), Map(". c . \n c + c \n . NW ."));
    Put(At(1, 1), "|&+");
    EXPECT_TRUE(Halls().Try4Way(*Elmt(At(1, 1)), At(1, 1), false));
    EXPECT_EQ(Cell(At(1, 1)), "|&+");
}

TEST_F(GenHallJunctionsTest, JunctionFitsByEachNeighbour) {
    for (const SideOf& side : kSides) {
        const std::string passing = side.passing;
        const std::string leading = side.leading;
        for (const std::string& cell : {std::string("."),
                                        std::string("c~"),
                                        std::string("NW~"),
                                        std::string("dN"),
                                        std::string("DW"),
                                        std::string("wN"),
                                        std::string("wE"),
                                        std::string("^"),
                                        std::string("v"),
                                        std::string(">"),
                                        std::string("<"),
                                        std::string("+"),
                                        std::string("c&dN"),
                                        passing,
                                        leading}) {
            Alone("|");
            Put(Beside(side), cell);
            EXPECT_TRUE(MayBeJunction()) << cell << " at " << Show(Beside(side));
        }
        for (const char* cell : {"c", "c2", "NW", "SE", "uN", "o"}) {
            Alone("|");
            Put(Beside(side), cell);
            EXPECT_FALSE(MayBeJunction()) << cell << " at " << Show(Beside(side));
        }
    }
}

TEST_F(GenHallJunctionsTest, TestingAJunctionChangesNothing) {
    const DrawLog log;
    const std::string_view map = R"(
        . . . . . . .
        . - - - - - .
        . . . - . . .
        . . | - c~ . .
        . . . wN . . .
        . . . . . . .
        . . . . . . .)";
    Level(map);
    EXPECT_TRUE(MayBeJunction());
    EXPECT_EQ(Grid(), Map(map));
    EXPECT_TRUE(log.Bounds().empty());
}

TEST_F(GenHallJunctionsTest, RefusedJunctionChangesNothing) {
    const std::string_view map = R"(
        . . . . . . .
        . . . . . . .
        . . . - . . .
        . . c - | . .
        . . . wN . . .
        . . . . . . .
        . . . . . . .)";
    Level(map);
    EXPECT_FALSE(MakeJunction());
    EXPECT_EQ(Grid(), Map(map));
}

TEST_F(GenHallJunctionsTest, HallRunningPastIsRefusedOnTheBorderOnly) {
    Level(". - . \n . | . \n . . .");
    EXPECT_FALSE(Halls().Try4Way(*Elmt(At(1, 1)), At(1, 1), false));
    EXPECT_EQ(Grid(), Map(". - . \n . | . \n . . ."));

    Level(R"(
        . . . c . . .
        . . . c . . .
        . . c - c . .
        . . . | . . .
        . . . . . . .
        . . . . . . .
        . . . . . . .)");
    EXPECT_TRUE(MayBeJunction());
}

TEST_F(GenHallJunctionsTest, HallLeadingToTheBorderIsAccepted) {
    Level(". | . \n - | - \n . | .");
    EXPECT_TRUE(Halls().Try4Way(*Elmt(At(1, 1)), At(1, 1), false));
    EXPECT_EQ(Grid(), Map(". | . \n - + - \n . | ."));
}

TEST_F(GenHallJunctionsTest, WithoutAJunctionTileHallsRunningPastAreRefused) {
    UseTiles({"HallNS", "HallEndN"});
    const std::string_view map = R"(
        . . . . . . .
        . . . . . . .
        . . . - . . .
        . . . - . . .
        . . . . . . .
        . . . . . . .
        . . . . . . .)";
    Level(map);
    EXPECT_FALSE(MakeJunction());
    EXPECT_EQ(Grid(), Map(map));
}

// Each hall runs past the next one; six thousand of them fit into a level.
TEST_F(GenHallJunctionsTest, WithoutAJunctionTileNoTrialLeadsToTheNext) {
    constexpr int kHalls = 100'000;
    UseTiles({"HallNS"});
    Level(3, kHalls + 2);
    for (int y = 1; y <= kHalls; ++y) {
        Put(At(1, y), "-");
    }
    EXPECT_FALSE(Halls().Try4Way(*Elmt(At(1, kHalls)), At(1, kHalls), false));
    EXPECT_EQ(Cell(At(1, kHalls - 1)), "-");
}

// Making a junction.

TEST_F(GenHallJunctionsTest, NoJunctionWithoutAnElement) {
    Level(3, 3);
    Halls().Place4Way(At(1, 1));
    EXPECT_EQ(Grid(), Map(". . . \n . . . \n . . ."));
}

TEST_F(GenHallJunctionsTest, EmptyNeighboursBecomeHallEnds) {
    Level(". . . \n . ^&uN . \n . . .");
    Halls().Place4Way(At(1, 1));
    EXPECT_EQ(Grid(), Map(". ^ . \n < + > \n . v ."));
}

TEST_F(GenHallJunctionsTest, PlacesOutsideTheLevelAreLeftAlone) {
    Level("| . \n . .");
    Halls().Place4Way(At(0, 0));
    EXPECT_EQ(Grid(), Map("+ > \n v ."));
    Level(". . \n . |");
    Halls().Place4Way(At(1, 1));
    EXPECT_EQ(Grid(), Map(". ^ \n < +"));
}

TEST_F(GenHallJunctionsTest, DoorwaysHallsThatLeadThereAndFloorsStay) {
    Level(". | . \n DE | - \n . dW .");
    Halls().Place4Way(At(1, 1));
    EXPECT_EQ(Grid(), Map(". | . \n DE + - \n . dW ."));
    Level(". ,- . \n c | NW \n . + .");
    Halls().Place4Way(At(1, 1));
    EXPECT_EQ(Grid(), Map(". ,- . \n c + NW \n . + ."));
}

TEST_F(GenHallJunctionsTest, WallsAreCutNorthSouthEastWest) {
    SeedFor({Above(0.2), UpTo(0.2), Above(0.2), UpTo(0.2)});
    Level(". wS . \n wE | wW \n . wN .");
    Halls().Place4Way(At(1, 1));
    EXPECT_EQ(Grid(), Map(". DS . \n dE + DW \n . dN ."));
}

TEST_F(GenHallJunctionsTest, WallOfAnyFacingIsCut) {
    SeedFor({UpTo(0.2)});
    Level(". wW . \n . | . \n . . .");
    Halls().Place4Way(At(1, 1));
    EXPECT_EQ(Grid(), Map(". dW . \n < + > \n . v ."));
}

TEST_F(GenHallJunctionsTest, HallEndIsOpenedTowardsTheJunction) {
    struct Row {
        int side;                        // north, south, east, west neighbour
        std::array<const char*, 4> ends; // what ^ v > < become there
    };
    const std::array<Row, 4> rows = {{
        {0, {"^", "|", "-,", ",-"}},
        {1, {"|", "v", "-'", "`-"}},
        {2, {"-,", "-'", ">", "-"}},
        {3, {",-", "`-", "-", "<"}},
    }};
    const std::array<const char*, 4> ends = {"^", "v", ">", "<"};
    for (const Row& row : rows) {
        const SideOf& side = kSides[static_cast<std::size_t>(row.side)];
        for (std::size_t end = 0; end < ends.size(); ++end) {
            Alone("|");
            Put(Beside(side), ends[end]);
            Halls().Place4Way(kHere);
            EXPECT_EQ(Cell(Beside(side)), row.ends[end])
                << ends[end] << " at " << Show(Beside(side));
        }
    }
}

TEST_F(GenHallJunctionsTest, HallEndOpenTowardsTheJunctionStaysAsItIs) {
    Level(". ^&uN . \n <&uN | >&uN \n . v&uN .");
    Halls().Place4Way(At(1, 1));
    EXPECT_EQ(Grid(), Map(". ^&uN . \n <&uN + >&uN \n . v&uN ."));
}

TEST_F(GenHallJunctionsTest, JunctionSpreadsToAHallRunningPast) {
    Level(R"(
        . . . . . . .
        . . . . . . .
        . - - - - - .
        . - - - - - .
        . . . . . . .
        . . . . . . .
        . . . . . . .)");
    EXPECT_TRUE(MakeJunction());
    EXPECT_EQ(Grid(), Map(R"(
        . . . . . . .
        . . . ^ . . .
        . - - + - - .
        . - - + - - .
        . . . v . . .
        . . . . . . .
        . . . . . . .)"));
}

TEST_F(GenHallJunctionsTest, JunctionsSpreadAcrossEveryHallRunningPast) {
    Level(R"(
        . . .  . .  . .
        . - -  - -  - .
        . - -  - -  - .
        . | |  | |  | .
        . . -' . ,- . .
        . . .  . .  . .)");
    EXPECT_TRUE(MakeJunction());
    EXPECT_EQ(Grid(), Map(R"(
        . ^ ^  ^  ^ ^  .
        < + +  +  + +  >
        < + +  +  + +  >
        < + +  +  + +  >
        . v -' `- + -' .
        . . .  .  v .  .)"));
}

TEST_F(GenHallJunctionsTest, JunctionsSpreadThroughAWholeLevel) {
    constexpr int kEdge = 300;
    Level(kEdge, kEdge);
    for (int y = 0; y < kEdge; ++y) {
        for (int x = 0; x < kEdge; ++x) {
            Put(At(x, y), (x + y) % 2 == 0 ? "|" : "-");
        }
    }
    const Asked asked;
    info.meter.Start(&asked);
    Halls().Place4Way(At(kEdge / 2, kEdge / 2));
    EXPECT_GT(asked.times, 0);
    int junctions = 0;
    for (int y = 0; y < kEdge; ++y) {
        for (int x = 0; x < kEdge; ++x) {
            junctions += Elmt(At(x, y))->HasTile("Hall4Way") ? 1 : 0;
        }
    }
    EXPECT_EQ(junctions, kEdge * kEdge);
}

TEST_F(GenHallJunctionsTest, SpreadingComesBeforeTheNextNeighbour) {
    SeedFor({Above(0.2), UpTo(0.2)});
    Level(R"(
        . . . .  . . .
        . . . wS . . .
        . . . -  . . .
        . . . |  . . .
        . . . wN . . .
        . . . .  . . .
        . . . .  . . .)");
    EXPECT_TRUE(MakeJunction());
    EXPECT_EQ(Grid(), Map(R"(
        . . . .  . . .
        . . . DS . . .
        . . < +  > . .
        . . < +  > . .
        . . . dN . . .
        . . . .  . . .
        . . . .  . . .)"));
}

TEST_F(GenHallJunctionsTest, ShadowNeighboursAreFittedLikeOthers) {
    SeedFor({UpTo(0.2)});
    Level(". wS~ . \n v~ | c~ \n . |~ .");
    Halls().Place4Way(At(1, 1));
    EXPECT_EQ(Grid(), Map(". dS~ . \n `-~ + c~ \n . |~ ."));
}

TEST_F(GenHallJunctionsTest, MissingTilesLeaveElementsWithoutTiles) {
    UseTiles({"WallN"});
    Level(". . . \n v | - \n . . .");
    Halls().Place4Way(At(1, 1));
    EXPECT_EQ(Grid(), Map(". o . \n o o - \n . o ."));
}

} // namespace

} // namespace Tarnex::Test
