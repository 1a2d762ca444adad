// SPDX-License-Identifier: MIT
#include <vaultry/gen/TidyHalls.h>

#include <gtest/gtest.h>

#include <tests/gen/PlannedLevel.h>

namespace Tarnex::Test {

namespace {

std::string Tidied(PlannedLevel& level, std::uint32_t steps) {
    return level.After([steps](HallPlan& plan, RunMeter& meter) { TidyHalls(plan, steps, meter); });
}

constexpr const char* kWestRoom = "NW wN NE \n wW c DE \n SW wS SE";
constexpr const char* kEastRoom = "NW wN NE \n DW c wE \n SW wS SE";

TEST(TidyHallsTest, AKnotBecomesAHall) {
    PlannedLevel level(R"(
        .  . . . . . .  . .
        .  . . ^ ^ . .  . .
        .  . . + + - .  . .
        .  . . + + > .  . .
        .  . . v v . .  . .)");
    level.AddRoom(kWestRoom, 1, 0);
    level.AddRoom(kEastRoom, 1, 6);
    EXPECT_EQ(Tidied(level, 4), Map(R"(
        .  .  .  . . . .  .  .
        NW wN NE . . . NW wN NE
        wW c  DE - - - DW c  wE
        SW wS SE . . . SW wS SE
        .  .  .  . . . .  .  .)"));
}

// The round is of eight pieces: three that the doorways need and five beside them.
TEST(TidyHallsTest, AWayRoundOfMorePiecesStays) {
    PlannedLevel level(R"(
        .  . . ^  . ^  .  . .
        .  . . +  - +  .  . .
        .  . . |  . |  .  . .
        .  . . `- - -' .  . .)");
    level.AddRoom(kWestRoom, 0, 0);
    level.AddRoom(kEastRoom, 0, 6);
    const std::string before = ToText(*level.level);
    EXPECT_EQ(Tidied(level, 7), before);
}

TEST(TidyHallsTest, AWayRoundOfJustSoManyPiecesGoes) {
    PlannedLevel level(R"(
        .  . . ^  . ^  .  . .
        .  . . +  - +  .  . .
        .  . . |  . |  .  . .
        .  . . `- - -' .  . .)");
    level.AddRoom(kWestRoom, 0, 0);
    level.AddRoom(kEastRoom, 0, 6);
    EXPECT_EQ(Tidied(level, 8), Map(R"(
        NW wN NE . . . NW wN NE
        wW c  DE - - - DW c  wE
        SW wS SE . . . SW wS SE
        .  .  .  . . . .  .  .)"));
}

TEST(TidyHallsTest, ADeadEndGoesWhateverItsLength) {
    PlannedLevel level(R"(
        .  . . . ^ . .  . .
        .  . . - + - .  . .
        .  . . . | . .  . .
        .  . . . | . .  . .
        .  . . . v . .  . .)");
    level.AddRoom(kWestRoom, 0, 0);
    level.AddRoom(kEastRoom, 0, 6);
    EXPECT_EQ(Tidied(level, 1000), Map(R"(
        NW wN NE . . . NW wN NE
        wW c  DE - - - DW c  wE
        SW wS SE . . . SW wS SE
        .  .  .  . . . .  .  .
        .  .  .  . . . .  .  .)"));
}

TEST(TidyHallsTest, AJunctionOfThreeWaysKeepsAnEndOnItsFourthSide) {
    PlannedLevel level(R"(
        .  .  .  . .  . .  .  .
        .  .  .  - +  - .  .  .
        .  .  .  . |  . .  .  .
        .  .  .  . .  . .  .  .
        .  .  .  . .  . .  .  .
        .  .  .  . .  . .  .  .)");
    level.AddRoom(kWestRoom, 0, 0);
    level.AddRoom(kEastRoom, 0, 6);
    level.AddRoom("NW DN NE \n wW c wE \n SW wS SE", 3, 3);
    Draw(*level.level, 0, 3, ",- + -,", *level.tiles);
    Draw(*level.level, 1, 3, "+ + +", *level.tiles);
    Draw(*level.level, 2, 3, "v | v", *level.tiles);
    EXPECT_EQ(Tidied(level, 8), Map(R"(
        NW wN NE .  ^  .  NW wN NE
        wW c  DE -  +  -  DW c  wE
        SW wS SE .  |  .  SW wS SE
        .  .  .  NW DN NE .  .  .
        .  .  .  wW c  wE .  .  .
        .  .  .  SW wS SE .  .  .)"));
}

TEST(TidyHallsTest, HallsThatARoomWasDrawnWithStay) {
    PlannedLevel level(". . . . . \n . . . . .");
    level.AddRoom(",- - -, \n `- - -'", 0, 1);
    const std::string before = ToText(*level.level);
    EXPECT_EQ(Tidied(level, 100), before);
}

TEST(TidyHallsTest, ASetThatLacksAPieceKeepsItsHalls) {
    PlannedLevel level("< - >");
    level.tiles = MakeDi<TileSet>();
    HallPlan plan = level.Plan();
    TidyHalls(plan, 8, level.meter);
    EXPECT_TRUE(plan.Changes().empty());
}

TEST(TidyHallsTest, HallsThatNoDoorwayLeadsToGo) {
    PlannedLevel level("< - >");
    EXPECT_EQ(Tidied(level, 8), Map(". . ."));
}

} // namespace

} // namespace Tarnex::Test
