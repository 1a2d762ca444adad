// SPDX-License-Identifier: MIT
#include "tools/facts/LevelShape.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <tests/tools/maps/SampleMap.h>
#include <utility>
#include <vector>

namespace Tarnex::Test {

namespace {

using Report::LevelMap;
using Report::LevelShape;
using Rows = std::vector<std::string>;

bool IsRoom(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// One character for a cell: letters are rooms, a capital is a cell with a doorway, open all around
// as all cells of rooms here; "-", "|", "+" are halls, "=" stairs to east and west, "." nothing.
LevelMap Drawn(const Rows& rows) {
    LevelMap map;
    std::vector<Report::MapCell> cells;
    for (const std::string& row : rows) {
        for (const char c : row) {
            Report::MapCell& cell = cells.emplace_back();
            if (c == '-' || c == '|' || c == '+') {
                cell = Cell(PlanTile::Hall, c == '-' ? "EW" : c == '|' ? "NS" : "NSEW");
            } else if (c == '=') {
                cell = Cell(PlanTile::Stairs, "EW");
            } else if (IsRoom(c)) {
                cell = Cell(PlanTile::Room, "NSEW");
                cell.room = static_cast<std::uint32_t>(Lower(c) - 'a' + 1);
                map.rooms.resize(std::max<std::size_t>(map.rooms.size(), cell.room));
            }
        }
    }
    SetCells(map,
             static_cast<std::int32_t>(rows.front().size()),
             static_cast<std::int32_t>(rows.size()),
             std::move(cells));
    // A room's wall stands wherever the neighbour is no part of it, but for doorways.
    const auto at = [&rows, &map](std::int32_t x, std::int32_t y) {
        return map.IsInside(DiPos(x, y, 0))
                   ? rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]
                   : '.';
    };
    for (std::int32_t y = 0; y < map.height; ++y) {
        for (std::int32_t x = 0; x < map.width; ++x) {
            const char c = at(x, y);
            if (!IsRoom(c)) {
                continue;
            }
            const std::vector<std::pair<char, SideBits>> sides = {{at(x, y - 1), Open("N")},
                                                                  {at(x, y + 1), Open("S")},
                                                                  {at(x + 1, y), Open("E")},
                                                                  {at(x - 1, y), Open("W")}};
            for (const auto& [neighbour, side] : sides) {
                if (Lower(neighbour) == Lower(c)) {
                    continue;
                }
                if (c != Lower(c)) {
                    map.Held(x, y).doorway = side;
                } else {
                    map.Held(x, y).open = static_cast<SideBits>(map.At(x, y).open & ~side);
                }
            }
        }
    }
    return map;
}

LevelShape Shape(const Rows& rows) {
    return Report::ShapeOf(Drawn(rows));
}

TEST(LevelShapeTest, TwoRoomsAndAHall) {
    const LevelShape shape = Shape({"aA--Bb", "aa..bb"});
    EXPECT_EQ(shape.rooms, 2U);
    EXPECT_EQ(shape.halls, 1U);
    EXPECT_EQ(shape.junctions, 0U);
    EXPECT_EQ(shape.loops, 0U);
    EXPECT_EQ(shape.deadEnds, 0U);
    EXPECT_EQ(shape.longestWay, 3U);
    EXPECT_EQ(shape.area, 10U);
    EXPECT_TRUE(shape.connected);
}

TEST(LevelShapeTest, WaysThatAreWaitedForNoMoreAreNotMeasured) {
    class AtOnce : public JobStatus {
        bool HasBeenCanceled() const override { return true; }
    };
    const JobStatus never;
    const LevelMap map = Drawn({"A-B"});
    const AtOnce atOnce;
    EXPECT_EQ(Report::ShapeOf(map, &never).longestWay, 2U);
    EXPECT_EQ(Report::ShapeOf(map, &atOnce).longestWay, 0U);
}

TEST(LevelShapeTest, ASecondHallClosesALoop) {
    EXPECT_EQ(Shape({"aA--Bb", "aA--Bb"}).loops, 1U);
    EXPECT_EQ(Shape({"aA--Bb", "aa..bb", "aA--Bb", "aa..bb", "aA--Bb"}).loops, 2U);
    EXPECT_EQ(Shape({"aA--Bb", "aa..bb", "aA--Bb", "aa..bb", "aA--Bb"}).halls, 3U);
}

TEST(LevelShapeTest, AJunctionPartsHalls) {
    const LevelShape shape = Shape({"A-+-B", "..|..", "..C.."});
    EXPECT_EQ(shape.junctions, 1U);
    EXPECT_EQ(shape.halls, 3U);
    EXPECT_EQ(shape.loops, 0U);
    EXPECT_EQ(shape.longestWay, 4U);
}

TEST(LevelShapeTest, AHallThatEndsIsADeadEnd) {
    EXPECT_EQ(Shape({"A-+-.", "..|..", "..B.."}).deadEnds, 1U);
    EXPECT_EQ(Shape({"A-", ".."}).deadEnds, 1U);
}

TEST(LevelShapeTest, ASquareOfHallsIsNoLoopButAWiderRingIs) {
    EXPECT_EQ(Shape({"A++B", ".++."}).loops, 0U);
    EXPECT_EQ(Shape({"A+++B", ".+.+.", ".+++."}).loops, 1U);
}

TEST(LevelShapeTest, WallsBetweenNeighboursAreNoWay) {
    const LevelShape shape = Shape({"ab", "ab"});
    EXPECT_EQ(shape.rooms, 2U);
    EXPECT_FALSE(shape.connected);
    EXPECT_EQ(shape.longestWay, 0U);
}

TEST(LevelShapeTest, DoorwaysBetweenNeighboursAreOneStep) {
    const LevelShape shape = Shape({"aAB", "aab"});
    EXPECT_TRUE(shape.connected);
    EXPECT_EQ(shape.longestWay, 1U);
    EXPECT_EQ(shape.loops, 0U);
}

TEST(LevelShapeTest, ADoorwayIsAWayWhereverItsDoorLeads) {
    LevelMap map = Drawn({"aAB", "aab"});
    map.Held(1, 0).teleport = true;
    EXPECT_TRUE(Report::ShapeOf(map).connected);
}

// Chambers of one drawn room, joined by a hall of its own, are no way round.
TEST(LevelShapeTest, ARoomOfTwoChambersIsNoLoop) {
    const LevelShape shape = Shape({"A--A"});
    EXPECT_EQ(shape.rooms, 1U);
    EXPECT_EQ(shape.halls, 1U);
    EXPECT_EQ(shape.loops, 0U);
}

TEST(LevelShapeTest, StairsAreWaysButNoDeadEnds) {
    EXPECT_EQ(Shape({"A=B"}).longestWay, 2U);
    EXPECT_EQ(Shape({"A=."}).deadEnds, 0U);
}

TEST(LevelShapeTest, OtherHeightsCountForTheAreaAlone) {
    LevelMap map = Drawn({"A--B"});
    map.Held(1, 0).sameFloor = false;
    const LevelShape shape = Report::ShapeOf(map);
    EXPECT_EQ(shape.area, 4U);
    EXPECT_EQ(shape.halls, 1U);
    EXPECT_FALSE(shape.connected);
}

TEST(LevelShapeTest, OpeningsOntoNothingAreThoseOfTheMap) {
    EXPECT_EQ(Report::ShapeOf(SampleMap()).openings, 1U);
}

TEST(LevelShapeTest, AnEmptyMapHasNothing) {
    const LevelShape shape = Report::ShapeOf(LevelMap());
    EXPECT_EQ(shape.rooms, 0U);
    EXPECT_EQ(shape.area, 0U);
    EXPECT_TRUE(shape.connected);
}

} // namespace

} // namespace Tarnex::Test
