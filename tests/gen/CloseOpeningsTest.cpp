// SPDX-License-Identifier: MIT
#include <vaultry/gen/CloseOpenings.h>

#include <gtest/gtest.h>

#include <tests/gen/PlannedLevel.h>

namespace Tarnex::Test {

namespace {

std::string Closed(PlannedLevel& level) {
    return level.After([](HallPlan& plan, RunMeter& meter) { CloseOpenings(plan, meter); });
}

TEST(CloseOpeningsTest, DoorwaysOntoNothingBecomeTheWallsThatTheyWereCutInto) {
    PlannedLevel level(R"(
        . . . . .
        . . . . .
        . . . . .
        . . . . .
        . . . . .)");
    level.AddRoom("NW DN NE \n dW c DE \n SW dS SE", 1, 1);
    EXPECT_EQ(Closed(level), Map(R"(
        .  .  .  .  .
        .  NW wN NE .
        .  wW c  wE .
        .  SW wS SE .
        .  .  .  .  .)"));
    EXPECT_EQ(level.openEnds, 0U);
}

TEST(CloseOpeningsTest, ADoorwayThatAHallLeadsToStays) {
    PlannedLevel level(R"(
        . . . . . .
        . . . - - .
        . . . . . .)");
    level.AddRoom("NW wN NE \n wW c DE \n SW wS SE", 0, 0);
    EXPECT_EQ(Closed(level), Map(R"(
        NW wN NE . . .
        wW c  DE - > .
        SW wS SE . . .)"))
        << "and the hall ends where it stopped";
    EXPECT_EQ(level.openEnds, 0U);
}

TEST(CloseOpeningsTest, APieceThatIsJoinedWithNothingGoes) {
    PlannedLevel level(R"(
        .  . .  .
        .  - .  ,-
        .  . .  .)");
    EXPECT_EQ(Closed(level), Map(". . . . \n . . . . \n . . . ."));
    EXPECT_EQ(level.openEnds, 0U);
}

TEST(CloseOpeningsTest, AJunctionGetsAnEndBesideIt) {
    PlannedLevel level(R"(
        . . .
        < + >
        . v .)");
    EXPECT_EQ(Closed(level), Map(R"(
        . ^ .
        < + >
        . v .)"));
    EXPECT_EQ(level.openEnds, 0U);
}

TEST(CloseOpeningsTest, WhereTheNextCellIsTakenADeadEndIsGivenUp) {
    PlannedLevel level(R"(
        . . . . .
        . . . . .
        . . . . .
        . < + - >
        . . ^ . .)");
    level.AddRoom("NW wN NE \n wW c wE \n SW wS SE", 0, 2);
    // The southern end is closed towards the junction, the room's corner behind its northern side.
    EXPECT_EQ(Closed(level), Map(R"(
        . . NW wN NE
        . . wW c  wE
        . . SW wS SE
        . < -  -  >
        . . .  .  .)"));
    EXPECT_EQ(level.openEnds, 0U);
}

TEST(CloseOpeningsTest, TwoSuchJunctionsTurnAwayFromEachOther) {
    // Each is joined on three sides, and joined around with the other.
    PlannedLevel level(R"(
        .  . . .
        .  . . .
        ,- + + -,
        |  | | |
        `- + + -'
        .  v v .)");
    level.AddRoom("NW NE \n SW SE", 0, 1);
    EXPECT_EQ(Closed(level), Map(R"(
        .  NW NE .
        .  SW SE .
        ,- -, ,- -,
        |  |  |  |
        `- +  +  -'
        .  v  v  .)"));
    EXPECT_EQ(level.openEnds, 0U);
}

TEST(CloseOpeningsTest, WhatLeadsOnlyThereStaysJoined) {
    constexpr const char* kTee = R"(
        . . . . .
        . . . . .
        < - + - >
        . . | . .
        . . v . .)";
    PlannedLevel level(kTee);
    level.AddRoom("NW NE \n SW SE", 0, 2);
    EXPECT_EQ(Closed(level), Map(R"(
        . . NW NE .
        . . SW SE .
        < - +  -  >
        . . |  .  .
        . . v  .  .)"));
    EXPECT_EQ(level.openEnds, 1U);
}

TEST(CloseOpeningsTest, ASetWithoutAPieceLeavesTheOpening) {
    PlannedLevel level("NW dN NE \n wW c wE \n SW wS SE");
    level.tiles = MakeDi<TileSet>();
    HallPlan plan = level.Plan();
    CloseOpenings(plan, level.meter);
    EXPECT_TRUE(plan.Changes().empty());
}

} // namespace

} // namespace Tarnex::Test
