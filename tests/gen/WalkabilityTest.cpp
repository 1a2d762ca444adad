// SPDX-License-Identifier: MIT
#include <vaultry/gen/Walkability.h>

#include <gtest/gtest.h>

#include <tests/support/TextGrid.h>

#include <vector>

namespace Tarnex::Test {

namespace {

class WalkabilityTest : public ::testing::Test {
protected:
    /// Draws a room into the level at (row, col) and files it in the room grid.
    DiPtr<Layout> AddRoom(const char* map, int row, int col, int slotRow, int slotCol) {
        const DiPtr<Layout> room = ToLayout(map, *tiles);
        room->SetOffset(Di3Point(static_cast<float>(col), static_cast<float>(row), 0.0F));
        main->AddContents(*room);
        rooms.SetLayout(room, slotRow, slotCol);
        return room;
    }

    LevelReport Judge() const {
        LevelReport report;
        JudgeWalkability(report, *main, rooms);
        report.made = true;
        return report;
    }

    DiPtr<TileSet> tiles = MakeFullTileSet();
    DiPtr<Layout> main = Layout::Create(DiPos(12, 6, 0));
    RoomInfo rooms{DiPos(2, 1, 0)};
};

constexpr const char* kWestRoom = R"(
    NW wN NE
    wW c  DE
    SW wS SE)";
constexpr const char* kEastRoom = R"(
    NW wN NE
    dW c  wE
    SW wS SE)";

TEST_F(WalkabilityTest, RoomsJoinedByAHallAreReached) {
    AddRoom(kWestRoom, 1, 1, 0, 0);
    AddRoom(kEastRoom, 1, 6, 0, 1);
    Draw(*main, 2, 4, "- -", *tiles);
    const LevelReport report = Judge();
    ASSERT_EQ(report.rooms.size(), 2U);
    EXPECT_EQ(report.ReachableRooms(), 2U);
    EXPECT_EQ(report.openEnds, 0U);
    EXPECT_TRUE(report.IsWalkable());
}

TEST_F(WalkabilityTest, WhereAPartLiesOverTheLevelTheLevelsOwnElementCounts) {
    AddRoom(kWestRoom, 1, 1, 0, 0);
    AddRoom(kEastRoom, 1, 6, 0, 1);
    Draw(*main, 2, 4, "- -", *tiles);
    const DiPtr<Layout> part = ToLayout("+", *tiles);
    part->SetOffset(Di3Point(4.0F, 2.0F, 0.0F));
    main->AddChild(part);
    const LevelReport report = Judge();
    EXPECT_EQ(report.ReachableRooms(), 2U);
    EXPECT_EQ(report.openEnds, 0U);
    main->Dissolve();
}

TEST_F(WalkabilityTest, AHallWithAGapReachesNothingAndLeavesTwoOpeningsOntoNothing) {
    AddRoom(kWestRoom, 1, 1, 0, 0);
    AddRoom(kEastRoom, 1, 6, 0, 1);
    Draw(*main, 2, 4, "-", *tiles);
    const LevelReport report = Judge();
    EXPECT_EQ(report.ReachableRooms(), 1U);
    EXPECT_TRUE(report.rooms[0].reachable);
    EXPECT_FALSE(report.rooms[1].reachable);
    EXPECT_EQ(report.openEnds, 2U);
    EXPECT_FALSE(report.IsWalkable());
}

TEST_F(WalkabilityTest, APassageNeedsBothSidesOpen) {
    AddRoom(kWestRoom, 1, 1, 0, 0);
    AddRoom(R"(
        NW wN NE
        wW c  wE
        SW wS SE)",
            1,
            4,
            0,
            1);
    const LevelReport report = Judge();
    EXPECT_EQ(report.ReachableRooms(), 1U);
    EXPECT_EQ(report.openEnds, 1U);
}

TEST_F(WalkabilityTest, DoorwaysBackToBackJoinRooms) {
    AddRoom(kWestRoom, 1, 1, 0, 0);
    AddRoom(kEastRoom, 1, 4, 0, 1);
    EXPECT_EQ(Judge().ReachableRooms(), 2U);
}

TEST_F(WalkabilityTest, HallsAreFollowedThroughCornersEndsAndJunctions) {
    AddRoom(kWestRoom, 1, 1, 0, 0);
    AddRoom(kEastRoom, 2, 6, 0, 1);
    Draw(*main,
         1,
         4,
         R"(
        . ^
        - +
        . `-)",
         *tiles);
    Draw(*main, 2, 4, "- +", *tiles);
    Draw(*main, 3, 5, "`-", *tiles);
    const LevelReport report = Judge();
    EXPECT_EQ(report.ReachableRooms(), 2U);
    EXPECT_EQ(report.openEnds, 1U); // the junction's eastern arm
}

TEST_F(WalkabilityTest, RoomsAreReportedWithSlotOriginAndSize) {
    AddRoom(kWestRoom, 1, 2, 0, 0);
    AddRoom("NW NE\nSW SE", 3, 8, 0, 1);
    const LevelReport report = Judge();
    ASSERT_EQ(report.rooms.size(), 2U);
    EXPECT_EQ(report.rooms[1].slot, DiPos(1, 0, 0));
    EXPECT_EQ(report.rooms[1].origin, DiPos(8, 3, 0));
    EXPECT_EQ(report.rooms[1].size.x, 2);
    EXPECT_EQ(report.rooms[0].origin, DiPos(2, 1, 0));
}

TEST_F(WalkabilityTest, APartRaisedByOneCellCountsAndAHigherOneDoesNot) {
    AddRoom(kWestRoom, 1, 1, 0, 0);
    AddRoom(kEastRoom, 1, 6, 0, 1);
    const DiPtr<Layout> part = ToLayout("- -", *tiles);
    part->SetOffset(Di3Point(4.0F, 2.0F, 1.0F));
    main->AddChild(part);
    EXPECT_EQ(Judge().ReachableRooms(), 2U);
    part->SetOffset(Di3Point(4.0F, 2.0F, 1.5F));
    EXPECT_EQ(Judge().ReachableRooms(), 1U);
    main->Dissolve();
}

TEST_F(WalkabilityTest, WhatLiesBesideTheLevelJoinsNothing) {
    AddRoom(kEastRoom, 1, 2, 0, 0);
    Draw(*main, 2, 0, "- -", *tiles);
    for (const Di3Point& beside : {Di3Point(-1.0F, 2.0F, 0.0F), Di3Point(3.0F, -1.0F, 0.0F)}) {
        const DiPtr<Layout> part = ToLayout("+", *tiles);
        part->SetOffset(beside);
        main->AddChild(part);
    }
    EXPECT_EQ(Judge().openEnds, 1U); // the hall's western end
    main->Dissolve();
}

TEST_F(WalkabilityTest, ALevelWithoutRoomsIsWalkable) {
    const LevelReport report = Judge();
    EXPECT_TRUE(report.rooms.empty());
    EXPECT_TRUE(report.IsWalkable());
}

TEST_F(WalkabilityTest, ChangesNothing) {
    AddRoom(kWestRoom, 1, 1, 0, 0);
    const std::string before = ToText(*main);
    Judge();
    EXPECT_EQ(ToText(*main), before);
}

LevelReport Level(bool made, bool linked, std::vector<bool> reachable) {
    LevelReport level;
    level.made = made;
    level.linked = linked;
    for (const bool reached : reachable) {
        level.rooms.push_back({DiPos(), DiPos(), DiPos(), reached});
    }
    return level;
}

TEST(GenReportTest, TheFirstLevelNeedsNoDoorToTheOneBefore) {
    GenReport report;
    report.levels = {Level(true, false, {true}), Level(true, true, {true})};
    EXPECT_TRUE(report.AreLevelsLinked());
    EXPECT_TRUE(report.IsWalkable());
}

TEST(GenReportTest, ALevelWithoutADoorBreaksTheChain) {
    GenReport report;
    report.levels = {Level(true, false, {true}), Level(true, false, {true})};
    EXPECT_FALSE(report.AreLevelsLinked());
    EXPECT_FALSE(report.IsWalkable());
}

TEST(GenReportTest, ALevelThatWasGivenUpDoesNotBreakTheChainButTheWalk) {
    GenReport report;
    report.levels = {
        Level(false, false, {}), Level(true, false, {true}), Level(true, true, {true})};
    EXPECT_TRUE(report.AreLevelsLinked());
    EXPECT_FALSE(report.IsWalkable());
}

TEST(GenReportTest, OneRoomOutOfReachMakesTheRunUnwalkable) {
    GenReport report;
    report.levels = {Level(true, false, {true, false, true})};
    EXPECT_EQ(report.levels[0].ReachableRooms(), 2U);
    EXPECT_FALSE(report.IsWalkable());
}

} // namespace

} // namespace Tarnex::Test
