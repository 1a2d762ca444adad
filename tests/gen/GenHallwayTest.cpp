// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <tests/gen/HallFixture.h>
#include <tuple>
#include <vector>

namespace Tarnex::Test {

namespace {

using Bounds = std::vector<std::int32_t>;

class GenHallwayTest : public HallTest {
protected:
    // Starts anew with a level and a cursor that has not come anywhere.
    template <typename... Parts>
    void Level(Parts... parts) {
        HallTest::Level(parts...);
        cursor = {};
    }
    bool Connect(const DiPtr<Layout>& from, const DiPtr<Layout>& to) {
        return Halls().ConnectRooms(*from, *to);
    }
    void Step() { Halls().NextStep(cursor); }
    void Leave() { Halls().LeaveRoom(cursor); }

    // Where a walk stands in a hall, with the tile there.
    void StandAt(const DiPos& pos, const DiPos& dest) {
        cursor.place = pos;
        cursor.dest = dest;
        cursor.tile = Elmt(pos) ? Elmt(pos)->FirstTile() : nullptr;
    }
    // Where a walk stands inside a room.
    void StandInside(const DiPtr<Layout>& room, const DiPos& pos, const DiPos& dest) {
        cursor.inside = room.get();
        cursor.place = pos;
        cursor.dest = dest;
    }
    std::string LastStep() const { return Show(cursor.lastStep); }
    std::string CurTile() const {
        return cursor.tile != nullptr ? cursor.tile->kindName.Text() : "none";
    }
    // The number of log lines with that text after the source.
    std::ptrdiff_t Warnings(const std::string& text) const {
        return std::ranges::count(LogLines(), "Warning : GenHall : " + text);
    }

    // Two small rooms in a row that stand so far apart that the second one's western wall is at
    // column `wall`.
    void Row(int wall) {
        Level(wall + 4, 5);
        west = Room(0, 0, 1, 1);
        east = Room(0, 1, wall, 1);
    }

    HallCursor cursor;
    DiPtr<Layout> west;
    DiPtr<Layout> east;
};

// What leaves a hall without a piece to lay.
const std::vector<std::string_view> kRoomKindsOnly = {
    "CornerNW", "WallN", "Center", "DoorwayN", "DoorjambN", "DoorN"};

// Whole halls.

TEST_F(GenHallwayTest, StraightHallJoinsTwoRooms) {
    Row(7);
    SeedFor({Any(), Above(0.2), UpTo(0.2)});
    const DrawLog log;
    EXPECT_TRUE(Connect(west, east));
    EXPECT_EQ(Grid(), Map(R"(
        . .  .  .  . . . .  .  .  .
        . NW wN NE . . . NW wN NE .
        . wW c  DE - - - dW c  wE .
        . SW wS SE . . . SW wS SE .
        . .  .  .  . . . .  .  .  .)"));
    EXPECT_EQ(log.Bounds(), Bounds({1, kUnit, kUnit}));
}

TEST_F(GenHallwayTest, StraightHallRunsSouthAndNorth) {
    for (const bool southward : {true, false}) {
        Level(5, 10);
        const DiPtr<Layout> north = Room(0, 0, 1, 1);
        const DiPtr<Layout> south = Room(1, 0, 1, 6);
        SeedFor({Any(), UpTo(0.2), Above(0.2)});
        EXPECT_TRUE(Connect(southward ? north : south, southward ? south : north));
        EXPECT_EQ(Cell(At(2, 3)), southward ? "dS" : "DS");
        EXPECT_EQ(Cell(At(2, 4)), "|");
        EXPECT_EQ(Cell(At(2, 5)), "|");
        EXPECT_EQ(Cell(At(2, 6)), southward ? "DN" : "dN");
    }
}

TEST_F(GenHallwayTest, HallTurnsWhereTheOtherDistanceIsAtLeastAsLong) {
    Level(11, 11);
    const DiPtr<Layout> from = Room(0, 0, 1, 1);
    const DiPtr<Layout> to = Room(1, 1, 7, 7);
    SeedFor({Pick(0, 2), Above(0.2), Above(0.2)});
    const DrawLog log;
    EXPECT_TRUE(Connect(from, to));
    // The corner next to the second room's own corner led nowhere and was undone.
    EXPECT_EQ(Grid(), Map(R"(
        . .  .  .  .  .  .  .  .  .  .
        . NW wN NE .  .  .  .  .  .  .
        . wW c  wE .  .  .  .  .  .  .
        . SW DS SE .  .  .  .  .  .  .
        . .  `- -  -, .  .  .  .  .  .
        . .  .  .  `- -, .  .  .  .  .
        . .  .  .  .  `- -, .  .  .  .
        . .  .  .  .  .  |  NW wN NE .
        . .  .  .  .  .  `- DW c  wE .
        . .  .  .  .  .  .  SW wS SE .
        . .  .  .  .  .  .  .  .  .  .)"));
    EXPECT_EQ(log.Bounds(), Bounds({2, kUnit, kUnit}));
}

TEST_F(GenHallwayTest, HallPassesThroughARoomOnItsWay) {
    Level(15, 5);
    const DiPtr<Layout> from = Room(0, 0, 1, 1);
    Room(0, 1, 6, 1);
    const DiPtr<Layout> to = Room(0, 2, 11, 1);
    SeedFor({Any(), UpTo(0.2), Above(0.2), Any(), UpTo(0.2), Above(0.2)});
    const DrawLog log;
    EXPECT_TRUE(Connect(from, to));
    EXPECT_EQ(Grid(), Map(R"(
        . .  .  .  . . .  .  .  . . .  .  .  .
        . NW wN NE . . NW wN NE . . NW wN NE .
        . wW c  dE - - DW c  dE - - DW c  wE .
        . SW wS SE . . SW wS SE . . SW wS SE .
        . .  .  .  . . .  .  .  . . .  .  .  .)"));
    EXPECT_EQ(log.Bounds(), Bounds({1, kUnit, kUnit, 1, kUnit, kUnit}));
}

TEST_F(GenHallwayTest, HallGoesRoundAShadow) {
    Level(13, 8);
    const DiPtr<Layout> from = Room(0, 0, 1, 3);
    const DiPtr<Layout> to = Room(0, 1, 9, 3);
    const DiPtr<Layout> pillar = ToLayout("c", *tiles);
    pillar->SetOffset(Di3Point(6.0F, 4.0F, 0.0F));
    level->AddChild(pillar);
    level->AddShadows(-1.0F, 1.0F);
    SeedFor({Any(), Above(0.2), Above(0.2)});
    EXPECT_TRUE(Connect(from, to));
    EXPECT_EQ(Grid(), Map(R"(
        . .  .  .  . .  .  . .  .  .  .  .
        . .  .  .  . .  .  . .  .  .  .  .
        . .  .  .  . .  .  . .  .  .  .  .
        . NW wN NE . ,- -  - -, NW wN NE .
        . wW c  DE - -' c~ . `- DW c  wE .
        . SW wS SE . .  .  . .  SW wS SE .
        . .  .  .  . .  .  . .  .  .  .  .
        . .  .  .  . .  .  . .  .  .  .  .)"));
}

// The cell past the first room's eastern edge, the second one's own wall, counts as the first's.
TEST_F(GenHallwayTest, RoomsSideBySideAreJoinedFromTheEasternOne) {
    Row(4);
    std::vector<Wish> wishes(154, Any());
    wishes.push_back(Above(0.2));
    wishes.push_back(Above(0.2));
    SeedFor(wishes);
    const DrawLog log;
    EXPECT_TRUE(Connect(west, east));
    EXPECT_EQ(Grid(), Map(R"(
        . .  .  .  .  .  .  .
        . NW wN NE NW wN NE .
        . wW c  dE DW c  wE .
        . SW wS SE SW wS SE .
        . .  .  .  .  .  .  .)"));
    // A run of 301 steps from the western room, 151 of them out of it, then three draws.
    EXPECT_EQ(log.Bounds().size(), 156U);
}

TEST_F(GenHallwayTest, DetourLeadsThroughANeighbourAndThenOnToTheDestination) {
    Level(11, 11);
    const DiPtr<Layout> from = Room(1, 1, 1, 1, "c c c \n c c c \n c wS c");
    const DiPtr<Layout> to = Room(0, 0, 7, 1);
    Room(0, 1, 1, 7, "NW wN NE \n c c wE \n c c c");
    SeedFor({UpTo(0.7), Any(), Any(), Above(0.2), Above(0.2), Pick(1, 2), UpTo(0.2), Above(0.2)});
    const DrawLog log;
    EXPECT_TRUE(Connect(from, to));
    EXPECT_EQ(Grid(), Map(R"(
        . .  .  .  .  .  .  .  .  .  .
        . c  c  c  .  .  .  NW wN NE .
        . c  c  c  .  .  ,- DW c  wE .
        . c  DS c  .  .  |  SW wS SE .
        . .  |  .  .  ,- -' .  .  .  .
        . .  |  .  ,- -' .  .  .  .  .
        . .  |  .  |  .  .  .  .  .  .
        . NW DN NE |  .  .  .  .  .  .
        . c  c  dE -' .  .  .  .  .  .
        . c  c  c  .  .  .  .  .  .  .
        . .  .  .  .  .  .  .  .  .  .)"));
    EXPECT_EQ(log.Bounds(), Bounds({kUnit, kUnit, 1, kUnit, kUnit, 2, kUnit, kUnit}));
}

// Limits.

TEST_F(GenHallwayTest, ThreeHundredStepsAreEnough) {
    Row(302);
    EXPECT_TRUE(Connect(west, east));
    EXPECT_EQ(Cell(At(4, 2)), "-");
    EXPECT_EQ(Cell(At(301, 2)), "-");
}

TEST_F(GenHallwayTest, HallThatFinishesInTheStepTooManyIsTakenBackAndCounts) {
    Row(303);
    const std::string before = Grid();
    EXPECT_TRUE(Connect(west, east));
    EXPECT_EQ(Grid(), before);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(GenHallwayTest, HallTooLongIsGivenUpAfterFiveRuns) {
    Row(304);
    const std::string before = Grid();
    const DrawLog log;
    EXPECT_FALSE(Connect(west, east));
    EXPECT_EQ(Grid(), before);
    EXPECT_EQ(LogLines(),
              std::vector<std::string>(
                  {"Warning : GenHall : Unable to complete hall.  CurXY=(303,2) DestXY=(305,2) "
                   "Blocked=0 Stuck=0"}));
    // One doorway in each run.
    EXPECT_EQ(log.Bounds(), Bounds({1, kUnit, 1, kUnit, 1, kUnit, 1, kUnit, 1, kUnit}));
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(GenHallwayTest, FailedHallLeavesEarlierHallsAlone) {
    Level(330, 9);
    const DiPtr<Layout> first = Room(0, 0, 1, 1);
    const DiPtr<Layout> second = Room(0, 1, 10, 1);
    const DiPtr<Layout> far = Room(0, 2, 320, 1);
    ASSERT_TRUE(Connect(first, second));
    const std::string before = Grid();
    EXPECT_FALSE(Connect(first, far));
    EXPECT_EQ(Grid(), before);
    EXPECT_FALSE(Connect(far, second));
    EXPECT_EQ(Grid(), before);
    EXPECT_TRUE(Connect(second, first));
    EXPECT_EQ(Grid(), before);
}

TEST_F(GenHallwayTest, FailedHallTakesBackWhatItDidToOtherHalls) {
    Level(320, 9);
    const DiPtr<Layout> from = Room(0, 0, 1, 3);
    const DiPtr<Layout> to = Room(0, 1, 304, 3);
    Draw(*level, 3, 20, "| . \n | . \n | .", *tiles); // crossed
    Draw(*level, 3, 40, ". | \n | c", *tiles);        // run past by a junction
    Draw(*level, 4, 60, "- c", *tiles);               // followed, then left by a corner
    Draw(*level, 4, 80, ">", *tiles);                 // driven on
    const std::string before = Grid();
    EXPECT_FALSE(Connect(from, to));
    EXPECT_EQ(Grid(), before);
}

// The walk changes elements that level and room share, until it is taken back once.
TEST_F(GenHallwayTest, RoomsShareTheLevelsElementsUntilTheFirstRestore) {
    Row(7);
    SeedFor({Any(), Above(0.2), UpTo(0.2)});
    ASSERT_TRUE(Connect(west, east));
    EXPECT_EQ(west->GetElmt(1, 2), Elmt(At(3, 2)));
    EXPECT_EQ(ToText(west->GetElmt(1, 2)), "DE");

    Row(304);
    SeedFor({Any(), UpTo(0.2), Any(), UpTo(0.2), Any(), UpTo(0.2)});
    ASSERT_FALSE(Connect(west, east));
    EXPECT_EQ(Cell(At(3, 2)), "wE");
    EXPECT_EQ(ToText(west->GetElmt(1, 2)), "dE");
    EXPECT_EQ(Cell(At(304, 2)), "wW");
    EXPECT_EQ(ToText(east->GetElmt(1, 0)), "wW");
    for (std::uint32_t row = 0; row < 3; ++row) {
        for (std::uint32_t col = 0; col < 3; ++col) {
            EXPECT_NE(west->GetElmt(row, col), level->GetElmt(row + 1, col + 1));
        }
    }
}

TEST_F(GenHallwayTest, RestoredElementsKeepEverythingButTheTilesCarved) {
    Row(304);
    const DiPtr<GridElmt> wall = Elmt(At(3, 2));
    wall->platformHeight = 64;
    wall->isTeleport = true;
    wall->teleDest = DiPos(7, 8, 9);
    ASSERT_FALSE(Connect(west, east));
    EXPECT_EQ(Cell(At(3, 2)), "wE!");
    EXPECT_EQ(Elmt(At(3, 2))->platformHeight, 64);
    EXPECT_EQ(Elmt(At(3, 2))->teleDest, DiPos(7, 8, 9));
}

TEST_F(GenHallwayTest, HallBlockedTenTimesStartsAgainFromItsRoomTwiceInARun) {
    UseTiles(kRoomKindsOnly);
    Row(7);
    const std::string before = Grid();
    const Bounds run = {1, kUnit, kUnit, 1, kUnit, kUnit, 1, kUnit};
    Bounds runs;
    std::vector<Wish> wishes;
    for (int i = 0; i < 5; ++i) {
        runs.insert(runs.end(), run.begin(), run.end());
        wishes.insert(wishes.end(),
                      {Any(), Any(), UpTo(0.7), Any(), Any(), UpTo(0.7), Any(), Any()});
    }
    SeedFor(wishes);
    const DrawLog log;
    EXPECT_FALSE(Connect(west, east));
    EXPECT_EQ(log.Bounds(), runs);
    EXPECT_EQ(Grid(), before);
    EXPECT_EQ(LogLines(),
              std::vector<std::string>(
                  {"Warning : GenHall : Unable to complete hall.  CurXY=(3,2) DestXY=(8,2) "
                   "Blocked=278 Stuck=270"}));
}

TEST_F(GenHallwayTest, RoomWithoutADoorSeeksADetourAtOnce) {
    Level(20, 17);
    const DiPtr<Layout> from = Room(0, 0, 10, 13, "c c c \n c c c \n c c c");
    const DiPtr<Layout> to = Room(0, 1, 14, 13, "c c c \n c c c \n c c c");
    // Whatever was reported last, by another test even, was not one of the two rooms.
    StandInside(from, At(3, 3), At(3, 9));
    Leave();
    SeedFor({UpTo(0.7),
             UpTo(0.7),
             UpTo(0.7),
             UpTo(0.7),
             UpTo(0.7),
             UpTo(0.7),
             UpTo(0.7),
             UpTo(0.7),
             UpTo(0.7),
             UpTo(0.7)});
    const DrawLog log;
    EXPECT_FALSE(Connect(from, to));
    EXPECT_EQ(log.Bounds(), Bounds(10, kUnit));
    EXPECT_EQ(Warnings("Unable to complete hall.  CurXY=(11,14) DestXY=(15,14) "
                       "Blocked=2990 Stuck=300"),
              1);
    // Each run starts in the other room, so that each has a new place to report.
    EXPECT_EQ(Warnings("No place for door at XY (11,14) DeltaXY (4,0)"), 3);
    EXPECT_EQ(Warnings("No place for door at XY (15,14) DeltaXY (-4,0)"), 2);
}

TEST_F(GenHallwayTest, DetourToAnywhereIsDrawnFromThreeQuartersOn) {
    Level(20, 17);
    const DiPtr<Layout> from = Room(0, 0, 10, 13, "c c c \n c c c \n c c c");
    const DiPtr<Layout> to = Room(0, 1, 14, 13, "c c c \n c c c \n c c c");
    SeedFor({Exactly(24575), UpTo(0.7)});
    {
        const DrawLog log;
        EXPECT_FALSE(Connect(from, to));
        EXPECT_EQ(log.Bounds()[1], kUnit);
    }
    SeedFor({Exactly(24576), Pick(0, 20), Pick(16, 17)});
    {
        const DrawLog log;
        EXPECT_FALSE(Connect(from, to));
        EXPECT_EQ(Bounds(log.Bounds().begin(), log.Bounds().begin() + 4),
                  Bounds({kUnit, 20, 17, kUnit}));
    }
    EXPECT_EQ(Warnings("No place for door at XY (11,14) DeltaXY (-10,1)"), 0);
}

// Each of 1505 vain searches looks at 10,000 cells.
TEST_F(GenHallwayTest, SearchOfALargeRoomAsksWhetherTheRunIsStillWanted) {
    Level(210, 110);
    const auto withoutDoors = [this](int slotCol, int x) {
        const DiPtr<Layout> room = Layout::Create(DiPos(100, 100, 0));
        room->SetOffset(Di3Point(static_cast<float>(x), 1.0F, 0.0F));
        rooms.SetLayout(room, 0, slotCol);
        return room;
    };
    const DiPtr<Layout> from = withoutDoors(0, 1);
    const DiPtr<Layout> to = withoutDoors(1, 105);
    const Asked asked;
    info.meter.Start(&asked);
    EXPECT_FALSE(Connect(from, to));
    EXPECT_GT(asked.times, 70);
}

// Starting and turning.

TEST_F(GenHallwayTest, WalkBeginsInTheMiddleOfItsRoom) {
    Row(7);
    cursor = Halls().Prep(*west, *east);
    EXPECT_EQ(cursor.inside, west.get());
    EXPECT_EQ(cursor.destRoom, east.get());
    EXPECT_EQ(cursor.place, At(2, 2));
    EXPECT_EQ(cursor.dest, At(8, 2));
    EXPECT_EQ(CurTile(), "none");
    EXPECT_EQ(LastStep(), "0,0");
    EXPECT_EQ(cursor.blocked, 0U);
    EXPECT_FALSE(cursor.finished);
}

// Destinations.

TEST_F(GenHallwayTest, DestinationIsTheMiddleOfARoomWhereTheLevelHasIt) {
    Row(7);
    const DrawLog log;
    EXPECT_EQ(Halls().TrueDest(*east, At(2, 2)), At(8, 2));
    Put(At(8, 2), "o");
    EXPECT_EQ(Halls().TrueDest(*east, At(2, 2)), At(8, 2));
    EXPECT_TRUE(log.Bounds().empty());
}

TEST_F(GenHallwayTest, DestinationIsADoorwayWhereTheMiddleIsMissingOrAShadow) {
    Level(11, 5);
    const DiPtr<Layout> room = RoomApart(0, 0, 7, 1, kSmallRoom);
    EXPECT_EQ(Halls().TrueDest(*room, At(2, 2)), At(9, 2));
    Put(At(8, 2), "c~");
    EXPECT_EQ(Halls().TrueDest(*room, At(2, 2)), At(9, 2));
    EXPECT_EQ(Halls().TrueDest(*room, At(10, 2)), At(7, 2));
}

TEST_F(GenHallwayTest, DestinationWithoutMiddleAndDoorwayIsTheMiddle) {
    Level(11, 5);
    const DiPtr<Layout> room = RoomApart(0, 0, 7, 1, ". . . \n . . . \n . . .");
    const DrawLog log;
    EXPECT_EQ(Halls().TrueDest(*room, At(2, 2)), At(8, 2));
    EXPECT_TRUE(log.Bounds().empty());
}

TEST_F(GenHallwayTest, RandomDestinationIsDrawnColumnFirstAndStaysOffTheBorder) {
    Level(7, 5);
    const std::array<int, 7> xs = {1, 1, 2, 3, 4, 5, 5};
    const std::array<int, 5> ys = {1, 1, 2, 3, 3};
    const DrawLog log;
    for (int x = 0; x < 7; ++x) {
        for (int y = 0; y < 5; ++y) {
            SeedFor({Pick(x, 7), Pick(y, 5)});
            EXPECT_EQ(Halls().RandomDest(),
                      At(xs[static_cast<std::size_t>(x)], ys[static_cast<std::size_t>(y)]));
        }
    }
    EXPECT_EQ(Bounds(log.Bounds().begin(), log.Bounds().begin() + 4), Bounds({7, 5, 7, 5}));
}

class DetourTest : public HallTest {
protected:
    DetourTest() { Level(60, 60); }

    // A room for that slot of the room grid; its middle in the level tells the slot.
    DiPtr<Layout> InSlot(int slotRow, int slotCol) {
        return Room(slotRow, slotCol, 10 * slotCol + 5, 10 * slotRow + 5);
    }
    // The slot, row and column, of the room that a detour from one room on the way to another
    // leads through, or "none" when the destination stays.
    std::string Detour(const DiPtr<Layout>& from, const DiPtr<Layout>& to) {
        HallCursor cursor;
        cursor.inside = from.get();
        cursor.destRoom = to.get();
        cursor.dest = At(59, 59);
        const DrawLog log;
        const DiPos dest = Halls().AltDest(cursor);
        draws = log.Bounds();
        if (dest == At(59, 59)) {
            return "none";
        }
        return std::to_string((dest.y - 6) / 10) + "," + std::to_string((dest.x - 6) / 10);
    }

    Bounds draws;
};

TEST_F(DetourTest, RoomsOfOneColumnDetourStraightWithoutADraw) {
    const DiPtr<Layout> north = InSlot(0, 2);
    const DiPtr<Layout> middle = InSlot(2, 2);
    const DiPtr<Layout> south = InSlot(4, 2);
    InSlot(3, 0);
    InSlot(1, 4);
    EXPECT_EQ(Detour(south, north), "2,2");
    EXPECT_TRUE(draws.empty());
    EXPECT_EQ(Detour(north, south), "2,2");
    EXPECT_EQ(Detour(middle, north), "0,2");
    EXPECT_TRUE(draws.empty());
}

TEST_F(DetourTest, RoomsOfOneRowDetourStraightWithoutADraw) {
    const DiPtr<Layout> west = InSlot(2, 0);
    const DiPtr<Layout> middle = InSlot(2, 2);
    const DiPtr<Layout> east = InSlot(2, 4);
    InSlot(0, 2);
    InSlot(4, 2);
    EXPECT_EQ(Detour(west, east), "2,2");
    EXPECT_TRUE(draws.empty());
    EXPECT_EQ(Detour(middle, west), "2,0");
    EXPECT_EQ(Detour(middle, east), "2,4");
    EXPECT_TRUE(draws.empty());
}

TEST_F(DetourTest, BelowAHalfTheVerticalNeighbourComesFirst) {
    const DiPtr<Layout> middle = InSlot(2, 2);
    InSlot(1, 2);
    InSlot(3, 2);
    InSlot(2, 1);
    InSlot(2, 3);
    for (const auto& [row, col, expected] :
         {std::tuple(0, 0, "1,2"), {0, 4, "1,2"}, {4, 0, "3,2"}, {4, 4, "3,2"}}) {
        const DiPtr<Layout> to = RoomApart(row, col, 10 * col + 5, 10 * row + 5, kSmallRoom);
        SeedFor({Exactly(16383)});
        const std::string detour = Detour(middle, to);
        EXPECT_EQ(detour, expected) << row << "," << col;
        EXPECT_EQ(draws, Bounds({kUnit}));
        rooms.SetLayout(nullptr, row, col);
    }
}

TEST_F(DetourTest, FromAHalfOnTheHorizontalNeighbourComesFirst) {
    const DiPtr<Layout> middle = InSlot(2, 2);
    InSlot(1, 2);
    InSlot(3, 2);
    InSlot(2, 1);
    InSlot(2, 3);
    for (const auto& [row, col, expected] :
         {std::tuple(0, 0, "2,1"), {0, 4, "2,3"}, {4, 0, "2,1"}, {4, 4, "2,3"}}) {
        const DiPtr<Layout> to = RoomApart(row, col, 10 * col + 5, 10 * row + 5, kSmallRoom);
        SeedFor({Exactly(16384)});
        EXPECT_EQ(Detour(middle, to), expected) << row << "," << col;
        EXPECT_EQ(draws, Bounds({kUnit}));
        rooms.SetLayout(nullptr, row, col);
    }
}

TEST_F(DetourTest, MissingNeighbourIsReplacedByTheOther) {
    const DiPtr<Layout> corner = InSlot(0, 0);
    const DiPtr<Layout> lower = InSlot(3, 1);
    SeedFor({Exactly(32767)});
    EXPECT_EQ(Detour(corner, lower), "3,1");
    EXPECT_EQ(draws, Bounds({kUnit}));
    rooms.SetLayout(nullptr, 3, 1);
    const DiPtr<Layout> farther = InSlot(1, 3);
    SeedFor({Exactly(0)});
    EXPECT_EQ(Detour(corner, farther), "1,3");
    EXPECT_EQ(draws, Bounds({kUnit}));
}

TEST_F(DetourTest, NoDetourToTheRoomItself) {
    const DiPtr<Layout> room = InSlot(2, 2);
    InSlot(1, 2);
    EXPECT_EQ(Detour(room, room), "none");
    EXPECT_TRUE(draws.empty());
}

TEST_F(DetourTest, NeighbourWhosePointIsTheOriginIsNoDetour) {
    const DiPtr<Layout> from = InSlot(0, 3);
    Room(0, 1, 0, 0, "c");
    const DiPtr<Layout> to = InSlot(0, 0);
    EXPECT_EQ(Detour(from, to), "none");
}

TEST_F(DetourTest, DetourMayAimAtADoorwayOfTheNeighbour) {
    const DiPtr<Layout> from = InSlot(2, 2);
    const DiPtr<Layout> to = RoomApart(2, 3, 35, 25, kSmallRoom);
    HallCursor cursor;
    cursor.inside = from.get();
    cursor.place = At(26, 26);
    cursor.destRoom = to.get();
    EXPECT_EQ(Halls().AltDest(cursor), At(37, 26));
}

// Leaving a room.

TEST_F(GenHallwayTest, RoomIsLeftByADoorwayCutIntoItsWall) {
    struct Row {
        DiPos dest;
        DiPos door;
        const char* cell;
        const char* tile;
        const char* step;
    };
    for (const Row& row : {Row{At(4, 0), At(4, 3), "DN", "DoorwayN", "0,-1"},
                           Row{At(4, 8), At(4, 5), "DS", "DoorwayS", "0,1"},
                           Row{At(8, 4), At(5, 4), "DE", "DoorwayE", "1,0"},
                           Row{At(0, 4), At(3, 4), "DW", "DoorwayW", "-1,0"}}) {
        Level(9, 9);
        StandInside(Room(0, 0, 3, 3), At(4, 4), row.dest);
        cursor.lastStep = At(1, 1);
        cursor.blocked = 3;
        SeedFor({Any(), Above(0.2)});
        Leave();
        EXPECT_EQ(cursor.place, row.door);
        EXPECT_EQ(Cell(row.door), row.cell);
        EXPECT_EQ(CurTile(), row.tile);
        EXPECT_EQ(LastStep(), row.step);
        EXPECT_EQ(cursor.inside, nullptr);
        EXPECT_EQ(cursor.blocked, 3U);
    }
}

TEST_F(GenHallwayTest, RoomIsLeftByAnExistingDoorwayAsItIs) {
    Level(9, 9);
    StandInside(Room(0, 0, 3, 3, ". DN . \n . c ."), At(4, 4), At(4, 0));
    cursor.lastStep = At(1, 0);
    const DrawLog log;
    Leave();
    EXPECT_EQ(Cell(At(4, 3)), "DN");
    EXPECT_EQ(LastStep(), "0,-1");
    EXPECT_EQ(CurTile(), "DoorwayN");
    EXPECT_EQ(cursor.inside, nullptr);
    EXPECT_EQ(log.Bounds(), Bounds({1}));
}

TEST_F(GenHallwayTest, FirstTileOfTheElementBecomesTheCurrentOne) {
    Level(9, 9);
    StandInside(Room(0, 0, 3, 3, ". c&dN . \n . c ."), At(4, 4), At(4, 0));
    Leave();
    EXPECT_EQ(CurTile(), "Center");
    EXPECT_EQ(LastStep(), "0,-1");
}

TEST_F(GenHallwayTest, DoorwayMissingInTheLevelMovesTheCursorOnly) {
    for (const char* cell : {".", "c", "|"}) {
        Level(9, 9);
        const DiPtr<Layout> room = RoomApart(0, 0, 3, 3, kSmallRoom);
        Put(At(4, 3), cell);
        StandInside(room, At(4, 4), At(4, 0));
        cursor.lastStep = At(1, 0);
        Leave();
        EXPECT_EQ(cursor.place, At(4, 3));
        EXPECT_EQ(cursor.inside, room.get());
        EXPECT_EQ(LastStep(), "1,0");
        EXPECT_EQ(CurTile(), "none");
        EXPECT_EQ(cursor.blocked, 0U);
        EXPECT_EQ(Cell(At(4, 3)), cell);
    }
}

TEST_F(GenHallwayTest, RoomWithoutADoorBlocksTenfold) {
    Level(9, 9);
    const DiPtr<Layout> room = Room(0, 0, 3, 3, "c c c \n c c c \n c c c");
    StandInside(room, At(4, 4), At(4, 0));
    cursor.lastStep = At(1, 0);
    cursor.blocked = 2;
    Leave();
    EXPECT_EQ(cursor.blocked, 12U);
    EXPECT_EQ(cursor.place, At(4, 4));
    EXPECT_EQ(cursor.inside, room.get());
    EXPECT_EQ(LastStep(), "1,0");
}

TEST_F(GenHallwayTest, MissingDoorIsReportedOncePerNewPlace) {
    Level(30, 30);
    const DiPtr<Layout> room = Room(0, 0, 20, 20, "c c c \n c c c \n c c c");
    const auto leaveFrom = [&](int x, int y) {
        StandInside(room, At(x, y), At(23, 3));
        Leave();
    };
    // The place reported last outlives its carver and its test.
    leaveFrom(22, 22);
    const std::size_t before = LogLines().size();
    leaveFrom(21, 22);
    leaveFrom(21, 22);
    GenHallway(info, *level, rooms).LeaveRoom(cursor);
    leaveFrom(21, 22);
    EXPECT_EQ(LogLines().size(), before + 1);
    EXPECT_EQ(LogLines().back(),
              "Warning : GenHall : No place for door at XY (21,22) DeltaXY (2,-19)");
    leaveFrom(21, 21);
    leaveFrom(22, 21);
    leaveFrom(21, 21);
    EXPECT_EQ(LogLines().size(), before + 4);
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(GenHallwayTest, DestinationWithoutAStepLeavesByTheWest) {
    Level(9, 9);
    StandInside(Room(0, 0, 3, 3), At(4, 4), At(4, 4));
    Leave();
    EXPECT_EQ(cursor.place, At(3, 4));
    EXPECT_EQ(CurTile(), "DoorwayW");
}

// Single steps.

TEST_F(GenHallwayTest, NothingHappensWithoutACurrentTile) {
    Level(9, 9);
    StandAt(At(4, 4), At(4, 0));
    Step();
    EXPECT_EQ(cursor.place, At(4, 4));
    EXPECT_EQ(cursor.blocked, 0U);
}

TEST_F(GenHallwayTest, StepIntoAnEmptyCellLaysAHallThere) {
    Level(". . . . \n . - . . \n . . . .");
    StandAt(At(1, 1), At(3, 1));
    cursor.lastStep = At(1, 0);
    cursor.blocked = 1;
    Step();
    EXPECT_EQ(Grid(), Map(". . . . \n . - - . \n . . . ."));
    EXPECT_EQ(cursor.place, At(2, 1));
    EXPECT_EQ(CurTile(), "HallEW");
    EXPECT_EQ(LastStep(), "1,0");
    EXPECT_EQ(cursor.blocked, 0U);
}

TEST_F(GenHallwayTest, TurnReplacesThePieceInPlace) {
    Level(". . . \n . |&uN . \n . | .");
    StandAt(At(1, 1), At(2, 1));
    cursor.lastStep = At(0, -1);
    cursor.blocked = 1;
    Step();
    EXPECT_EQ(Grid(), Map(". . . \n . ,- . \n . | ."));
    EXPECT_EQ(cursor.place, At(1, 1));
    EXPECT_EQ(CurTile(), "HallCornerNW");
    EXPECT_EQ(LastStep(), "0,-1");
    EXPECT_EQ(cursor.blocked, 1U);
}

TEST_F(GenHallwayTest, TurnOffAThroughHallMakesAJunction) {
    Level(". | . \n . | . \n . | .");
    StandAt(At(1, 1), At(2, 1));
    cursor.blocked = 1;
    Step();
    EXPECT_EQ(Grid(), Map(". | . \n < + > \n . | ."));
    EXPECT_EQ(CurTile(), "Hall4Way");
    EXPECT_EQ(cursor.blocked, 1U);
}

TEST_F(GenHallwayTest, JunctionRefusedIsTheCurrentTileAllTheSame) {
    Level(". | . \n c | . \n . | .");
    StandAt(At(1, 1), At(2, 1));
    Step();
    EXPECT_EQ(Grid(), Map(". | . \n c | . \n . | ."));
    EXPECT_EQ(CurTile(), "Hall4Way");
    EXPECT_EQ(cursor.blocked, 1U);
}

TEST_F(GenHallwayTest, JunctionRefusedAtItsDestinationIsTriedAgainAndLeavesTheHallWhole) {
    Level(". c . \n - - - \n . . .");
    StandAt(At(1, 1), At(1, 1));
    Step();
    EXPECT_EQ(CurTile(), "Hall4Way");
    EXPECT_EQ(cursor.blocked, 1U);
    Step();
    EXPECT_EQ(CurTile(), "HallNS");
    EXPECT_EQ(cursor.blocked, 2U);
    EXPECT_EQ(Grid(), Map(". c . \n - - - \n . . ."));
}

TEST_F(GenHallwayTest, SecondFailureTurnsTheWalkAside) {
    Level(R"(
        . . . . .
        . . . . .
        . - - c .
        . . . . .)");
    StandAt(At(2, 2), At(4, 2));
    cursor.lastStep = At(1, 0);
    Step();
    EXPECT_EQ(cursor.blocked, 1U);
    Step();
    EXPECT_EQ(cursor.blocked, 2U);
    EXPECT_EQ(Cell(At(2, 2)), "-");
    Step();
    EXPECT_EQ(Cell(At(2, 2)), "-'");
    EXPECT_EQ(cursor.blocked, 2U);
    Step();
    EXPECT_EQ(Cell(At(2, 1)), "|");
    EXPECT_EQ(cursor.blocked, 0U);
}

TEST_F(GenHallwayTest, FourthFailureStraightensACorner) {
    Level(R"(
        . . .  . .
        . . .  . .
        . . `- c .
        . . |  . .)");
    StandAt(At(2, 2), At(4, 3));
    cursor.lastStep = At(0, -1);
    cursor.blocked = 3;
    Step();
    EXPECT_EQ(Cell(At(2, 2)), "`-");
    EXPECT_EQ(cursor.blocked, 4U);
    Step();
    EXPECT_EQ(Cell(At(2, 2)), "|");
    EXPECT_EQ(cursor.blocked, 4U);
}

TEST_F(GenHallwayTest, StepOffTheLevelIsBlockedAndReported) {
    struct Row {
        const char* map;
        DiPos pos;
        DiPos dest;
    };
    for (const Row& row : {Row{"| .", At(0, 0), At(0, -3)},
                           Row{"| .", At(0, 0), At(0, 3)},
                           Row{"- .", At(0, 0), At(-3, 0)},
                           Row{". -", At(1, 0), At(3, 0)}}) {
        Level(row.map);
        StandAt(row.pos, row.dest);
        const std::ptrdiff_t before = Warnings("Internal:  out of bounds in NextStep()");
        Step();
        EXPECT_EQ(Grid(), Map(row.map));
        EXPECT_EQ(cursor.place, row.pos);
        EXPECT_EQ(cursor.blocked, 1U);
        EXPECT_EQ(LastStep(), "0,0");
        EXPECT_EQ(Warnings("Internal:  out of bounds in NextStep()"), before + 1);
    }
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(GenHallwayTest, DoorwayOfAnotherRoomLeadsIntoItsMiddle) {
    Level(12, 5);
    const DiPtr<Layout> room = Room(0, 0, 5, 1);
    cursor.destRoom = Room(0, 1, 9, 1).get();
    Put(At(4, 2), "-");
    StandAt(At(4, 2), At(10, 2));
    SeedFor({Above(0.2)});
    Step();
    EXPECT_EQ(Cell(At(5, 2)), "DW");
    EXPECT_EQ(cursor.inside, room.get());
    EXPECT_EQ(cursor.place, At(6, 2));
    EXPECT_EQ(CurTile(), "DoorwayW");
    EXPECT_EQ(LastStep(), "1,0");
    EXPECT_FALSE(cursor.finished);
}

TEST_F(GenHallwayTest, DoorwayOfNoRoomIsWalkedThrough) {
    Level(". . . . . \n . - wW . . \n . . . . .");
    cursor.destRoom = RoomApart(0, 0, 9, 9, kSmallRoom).get();
    StandAt(At(1, 1), At(4, 1));
    SeedFor({UpTo(0.2)});
    Step();
    EXPECT_EQ(cursor.inside, nullptr);
    EXPECT_EQ(cursor.place, At(2, 1));
    Step();
    EXPECT_EQ(Grid(), Map(". . . . . \n . - dW - . \n . . . . ."));
}

TEST_F(GenHallwayTest, DoorwayOfTheDestinationFinishesTheHall) {
    Level(9, 5);
    cursor.destRoom = Room(0, 0, 5, 1).get();
    Put(At(4, 2), "-");
    StandAt(At(4, 2), At(6, 2));
    Step();
    EXPECT_TRUE(cursor.finished);
    EXPECT_EQ(cursor.place, At(5, 2));
    EXPECT_EQ(cursor.inside, nullptr);
}

TEST_F(GenHallwayTest, JunctionPastTheDestinationsEdgeFinishesTheHall) {
    Level(9, 5);
    cursor.destRoom = Room(0, 0, 1, 1).get();
    Put(At(5, 2), "-");
    Put(At(4, 2), "-");
    StandAt(At(5, 2), At(2, 2));
    Step();
    EXPECT_EQ(cursor.place, At(4, 2));
    EXPECT_FALSE(cursor.finished);

    Put(At(4, 2), "+");
    StandAt(At(5, 2), At(2, 2));
    Step();
    EXPECT_EQ(cursor.place, At(4, 2));
    EXPECT_TRUE(cursor.finished);
}

TEST_F(GenHallwayTest, JunctionAwayFromTheDestinationIsPassed) {
    Level(9, 5);
    cursor.destRoom = Room(0, 0, 1, 1).get();
    Put(At(7, 2), "-");
    Put(At(6, 2), "+");
    StandAt(At(7, 2), At(2, 2));
    Step();
    EXPECT_EQ(cursor.place, At(6, 2));
    EXPECT_FALSE(cursor.finished);
    Step();
    EXPECT_EQ(Cell(At(5, 2)), "-");
}

TEST_F(GenHallwayTest, JunctionNameIsComparedWithoutRegardToCase) {
    UseTiles({"HallEW", "hall4way"});
    Level(9, 5);
    cursor.destRoom = Room(0, 0, 1, 1).get();
    Put(At(5, 2), "-");
    level->SetElmt(MakeDi<GridElmt>(), 2, 4);
    Elmt(At(4, 2))->AddTile(info.defTileSet->Get("Hall4Way"));
    StandAt(At(5, 2), At(2, 2));
    Step();
    EXPECT_TRUE(cursor.finished);
}

TEST_F(GenHallwayTest, ElementMovedOntoGivesItsFirstTile) {
    Level(". . . . \n . | c&dN . \n . . . .");
    cursor.destRoom = RoomApart(0, 0, 9, 9, kSmallRoom).get();
    StandAt(At(1, 1), At(3, 1));
    cursor.tile = tiles->Get("HallEW").get();
    Step();
    EXPECT_EQ(cursor.place, At(2, 1));
    EXPECT_EQ(CurTile(), "Center");
    EXPECT_EQ(cursor.inside, nullptr);
}

TEST_F(GenHallwayTest, ElementRefusedLeavesTheCursor) {
    Level(". . . . \n . - c . \n . . . .");
    StandAt(At(1, 1), At(3, 1));
    Step();
    EXPECT_EQ(cursor.place, At(1, 1));
    EXPECT_EQ(cursor.blocked, 1U);
    EXPECT_EQ(LastStep(), "0,0");
}

TEST_F(GenHallwayTest, JunctionAtItsDestinationBecomesAStraightHall) {
    Level(". | . \n - + - \n . | .");
    StandAt(At(1, 1), At(1, 1));
    Step();
    EXPECT_EQ(Grid(), Map(". | . \n - | - \n . | ."));
    EXPECT_EQ(CurTile(), "HallNS");
    EXPECT_EQ(cursor.blocked, 0U);
}

// All halls of a level.

TEST_F(GenHallwayTest, NoRoomsNeedNoHallsAndNoDraws) {
    Level(9, 9);
    const DrawLog log;
    EXPECT_TRUE(Halls().Gen());
    EXPECT_TRUE(log.Bounds().empty());
    EXPECT_TRUE(Halls().GetFailedHalls().empty());
}

TEST_F(GenHallwayTest, TwoRoomsAreJoinedThereAndBack) {
    Row(7);
    SeedFor({UpTo(0.5), Any(), Above(0.2), UpTo(0.2)});
    const DrawLog log;
    EXPECT_TRUE(Halls().Gen());
    EXPECT_EQ(Grid(), Map(R"(
        . .  .  .  . . . .  .  .  .
        . NW wN NE . . . NW wN NE .
        . wW c  DE - - - dW c  wE .
        . SW wS SE . . . SW wS SE .
        . .  .  .  . . . .  .  .  .)"));
    EXPECT_EQ(log.Bounds(), Bounds({kUnit, 1, kUnit, kUnit, 1}));
}

TEST_F(GenHallwayTest, ShadowsAreSeenWhileHallsAreCarvedAndGoneAfterwards) {
    Level(13, 8);
    Room(0, 0, 1, 3);
    Room(0, 1, 9, 3);
    const auto add = [&](float z) {
        const DiPtr<Layout> pillar = ToLayout("c", *tiles);
        pillar->SetOffset(Di3Point(6.0F, 4.0F, z));
        level->AddChild(pillar);
    };
    add(1.5F);
    add(-1.5F);
    add(1.0F);
    EXPECT_TRUE(Halls().Gen());
    EXPECT_EQ(Cell(At(6, 4)), ".");
    EXPECT_EQ(Grid().find('~'), std::string::npos);
}

TEST_F(GenHallwayTest, RoomsAboveAndBelowCastNoShadow) {
    Level(13, 8);
    Room(0, 0, 1, 3);
    Room(0, 1, 9, 3);
    const DiPtr<Layout> pillar = ToLayout("c", *tiles);
    pillar->SetOffset(Di3Point(6.0F, 4.0F, 1.5F));
    level->AddChild(pillar);
    EXPECT_TRUE(Halls().Gen());
    EXPECT_EQ(Cell(At(6, 4)), "-");
}

TEST_F(GenHallwayTest, RoomAloneIsToleratedWithoutAHall) {
    Level(11, 5);
    Room(0, 0, 4, 1);
    const std::string before = Grid();
    std::vector<Wish> wishes = {Any()};
    Bounds expected = {kUnit};
    for (int run = 0; run < 5; ++run) {
        wishes.insert(wishes.end(),
                      {Any(), Any(), UpTo(0.7), Any(), Any(), UpTo(0.7), Any(), Any()});
        expected.insert(expected.end(), {1, kUnit, kUnit, 1, kUnit, kUnit, 1, kUnit});
    }
    SeedFor(wishes);
    const DrawLog log;
    EXPECT_TRUE(Halls().Gen());
    EXPECT_EQ(Grid(), before);
    EXPECT_EQ(Halls().GetFailedHalls().size(), 1U);
    EXPECT_EQ(log.Bounds(), expected);
    EXPECT_EQ(Warnings("Unable to complete hall.  CurXY=(4,2) DestXY=(5,2) Blocked=278 Stuck=270"),
              1);
}

TEST_F(GenHallwayTest, OneFailedHallIsTolerated) {
    Level(340, 5);
    Room(0, 0, 1, 1);
    Room(0, 1, 160, 1);
    Room(0, 2, 330, 1);
    SeedFor({UpTo(0.5)});
    EXPECT_TRUE(Halls().Gen());
    ASSERT_EQ(Halls().GetFailedHalls().size(), 1U);
    EXPECT_EQ(Halls().GetFailedHalls().front().from, At(2, 0));
    EXPECT_EQ(Halls().GetFailedHalls().front().to, At(0, 0));
    for (int x = 4; x < 330; ++x) {
        EXPECT_TRUE(Elmt(At(x, 2))) << x;
    }
}

TEST_F(GenHallwayTest, TwoFailedHallsAreAFailure) {
    Row(320);
    const std::string before = Grid();
    SeedFor({UpTo(0.5)});
    EXPECT_FALSE(Halls().Gen());
    ASSERT_EQ(Halls().GetFailedHalls().size(), 2U);
    EXPECT_EQ(Halls().GetFailedHalls()[0].from, At(0, 0));
    EXPECT_EQ(Halls().GetFailedHalls()[1].from, At(1, 0));
    EXPECT_EQ(Halls().GetFailedHalls()[1].to, At(0, 0));
    EXPECT_EQ(Grid(), before);
}

class RoomOrderTest : public HallTest {
protected:
    // The columns of rooms that no hall can leave, in the order in which halls were tried.
    std::string Order(int count) {
        Level(40, 9);
        for (int i = 0; i < 5; ++i) {
            rooms.SetLayout(nullptr, 0, i);
        }
        for (int i = 0; i < count; ++i) {
            Room(0, i, 3 + 7 * i, 4, "c");
        }
        const DrawLog log;
        Halls().Gen();
        draws = log.Bounds();
        std::string order;
        std::int32_t next = Halls().GetFailedHalls().front().from.x;
        for (const auto& hall : Halls().GetFailedHalls()) {
            EXPECT_EQ(hall.from.x, next);
            next = hall.to.x;
            order += (order.empty() ? "" : " ") + std::to_string(hall.from.x);
        }
        EXPECT_EQ(next, Halls().GetFailedHalls().front().from.x);
        return order;
    }
    Bounds FirstDraws(std::size_t count) const {
        return {draws.begin(), draws.begin() + static_cast<std::ptrdiff_t>(count)};
    }

    Bounds draws;
};

TEST_F(RoomOrderTest, RingFollowsTheRoomGridUpToAHalf) {
    SeedFor({Exactly(16383)});
    EXPECT_EQ(Order(5), "0 1 2 3 4");
    EXPECT_EQ(FirstDraws(2), Bounds({kUnit, kUnit}));
}

TEST_F(RoomOrderTest, HalfOfTheRoomsMoveToTheEndAboveAHalf) {
    SeedFor({Exactly(16384), Pick(1, 5), Pick(0, 5)});
    EXPECT_EQ(Order(5), "2 3 4 1 0");
    EXPECT_EQ(FirstDraws(4), Bounds({kUnit, 5, 5, kUnit}));
    SeedFor({Above(0.5), Pick(0, 3)});
    EXPECT_EQ(Order(3), "1 2 0");
    EXPECT_EQ(FirstDraws(3), Bounds({kUnit, 3, kUnit}));
}

TEST_F(RoomOrderTest, TwoRoomsAreShuffledButASingleOneIsNot) {
    SeedFor({Above(0.5), Pick(0, 2)});
    EXPECT_EQ(Order(2), "1 0");
    EXPECT_EQ(FirstDraws(3), Bounds({kUnit, 2, kUnit}));
    SeedFor({Above(0.5)});
    EXPECT_EQ(Order(1), "0");
    EXPECT_EQ(FirstDraws(2), Bounds({kUnit, kUnit}));
}

// Tile sets that lack pieces.

// The first run leaves the western room's own wall without a tile, so that later runs from there
// find no place for a door any more.
TEST_F(GenHallwayTest, DoorwayTheTileSetLacksEndsTheWalkUntilTheStepLimit) {
    UseTiles({"HallNS"});
    Row(7);
    const std::string before = Grid();
    SeedFor({Any(), Any(), Any(), Any(), UpTo(0.7), UpTo(0.7), Any(), Any(), UpTo(0.7), UpTo(0.7)});
    const DrawLog log;
    EXPECT_FALSE(Connect(west, east));
    EXPECT_EQ(Grid(), before);
    EXPECT_EQ(log.Bounds(), Bounds({1, kUnit, 1, kUnit, kUnit, kUnit, 1, kUnit, kUnit, kUnit}));
    EXPECT_EQ(ToText(west->GetElmt(1, 2)), "o");
    EXPECT_EQ(Warnings("Unable to complete hall.  CurXY=(2,2) DestXY=(8,2) Blocked=2990 Stuck=300"),
              1);
}

TEST_F(GenHallwayTest, WallMetWithoutADoorwayInTheTileSetStopsTheCursorThere) {
    UseTiles({"HallNS", "DoorwayE", "DoorE"});
    Row(7);
    const std::string before = Grid();
    EXPECT_FALSE(Connect(west, east));
    EXPECT_EQ(Grid(), before);
    EXPECT_EQ(Warnings("Unable to complete hall.  CurXY=(7,2) DestXY=(8,2) Blocked=0 Stuck=0"), 1);
}

struct LackingSet {
    const char* name;
    std::vector<std::string_view> kinds;
};

class LackingTiles : public HallTest, public ::testing::WithParamInterface<LackingSet> {
protected:
    // Rooms at random places of their slots.
    void ScatterRooms(std::mt19937& chance) {
        Level(44, 44);
        const auto from0To = [&chance](std::uint32_t last) {
            return static_cast<int>(chance() % (last + 1));
        };
        for (int row = 0; row < 4; ++row) {
            for (int col = 0; col < 4; ++col) {
                if (from0To(3) == 0) {
                    continue;
                }
                const char* map =
                    from0To(1) == 0 ? "NW wN wN wN NE \n wW c c c wE \n wW c c c wE \n wW c c c wE "
                                      "\n SW wS wS wS SE"
                                    : "NW wN wN NE \n wW c c wE \n SW wS wS SE";
                Room(row, col, 10 * col + from0To(5), 10 * row + from0To(5), map);
            }
        }
        const DiPtr<Layout> loft = ToLayout("c c \n wS wS", *tiles);
        loft->SetOffset(
            Di3Point(static_cast<float>(from0To(40)), static_cast<float>(from0To(40)), 0.0F));
        level->AddChild(loft);
    }
    // The cells that no hall may change.
    std::string Floors() const {
        std::string floors;
        for (std::uint32_t row = 0; row < level->GetHeight(); ++row) {
            for (const DiPtr<GridElmt>& elmt : level->GetRow(row)) {
                const std::string cell = ToText(elmt);
                const bool fixed =
                    cell == "c" || cell == "NW" || cell == "NE" || cell == "SW" || cell == "SE";
                floors += fixed ? cell : " ";
            }
        }
        return floors;
    }
};

TEST_P(LackingTiles, CarvingEndsAndSparesFloorsAndCorners) {
    UseTiles(GetParam().kinds);
    for (std::uint32_t seed = 1; seed <= 10; ++seed) {
        std::mt19937 chance(seed);
        ScatterRooms(chance);
        SeedRandom(seed);
        const std::string floors = Floors();
        const bool done = Halls().Gen();
        EXPECT_EQ(done, Halls().GetFailedHalls().size() < 2) << seed;
        EXPECT_EQ(Floors(), floors) << seed;
        EXPECT_EQ(Grid().find('~'), std::string::npos) << seed;
        level->Dissolve();
        for (int row = 0; row < 4; ++row) {
            for (int col = 0; col < 4; ++col) {
                rooms.SetLayout(nullptr, row, col);
            }
        }
    }
    EXPECT_TRUE(ErrorLines().empty());
}

const std::vector<LackingSet> kLackingSets = {
    {"Nothing",
     {"CornerNW",
      "WallN",
      "Center",
      "DoorwayN",
      "DoorjambN",
      "DoorN",
      "HallNS",
      "HallCornerNW",
      "HallEndN",
      "Hall4Way"}},
    {"EverythingButRooms", {"CornerNW", "WallN", "Center", "DoorwayN", "DoorjambN", "DoorN"}},
    {"Junctions", {"DoorwayN", "DoorjambN", "DoorN", "HallNS", "HallCornerNW", "HallEndN"}},
    {"NorthSouthHalls",
     {"DoorwayN", "DoorjambN", "DoorN", "HallEW", "HallCornerNW", "HallEndN", "Hall4Way"}},
    {"Corners", {"DoorwayN", "DoorjambN", "DoorN", "HallNS", "HallEndN", "Hall4Way"}},
    {"HallEnds", {"DoorwayN", "DoorjambN", "DoorN", "HallNS", "HallCornerNW", "Hall4Way"}},
    {"Doorways", {"DoorjambN", "DoorN", "HallNS", "HallCornerNW", "HallEndN", "Hall4Way"}},
    {"JunctionsAndEnds", {"DoorwayN", "HallNS", "HallCornerNW"}},
    {"All", {}},
};

INSTANTIATE_TEST_SUITE_P(WithoutPieces,
                         LackingTiles,
                         ::testing::ValuesIn(kLackingSets),
                         [](const auto& set) { return std::string(set.param.name); });

} // namespace

} // namespace Tarnex::Test
