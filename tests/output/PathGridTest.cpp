// SPDX-License-Identifier: MIT
#include <vaultry/output/PathGrid.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/output/PluginBytes.h>

namespace Tarnex::Test {

namespace {

TEST(PathGridTest, WithoutPointsNeitherPointsNorWaysAreWritten) {
    PathGrid grid("A");
    EXPECT_EQ(Written(grid),
              "PGRD" + Hex("1E 00 00 00") + Zeros(8) +                          //
                  "DATA" + Hex("0C 00 00 00") + Zeros(8) + Hex("00 04 00 00") + //
                  "NAME" + Hex("02 00 00 00") + "A" + Zeros(1));
}

TEST(PathGridTest, PointsStandBeforeTheWaysOfAll) {
    PathGrid grid("Crypt");
    grid.points = {{0, -256, -96, {1, 2}}, {258, 1, 0, {0}}, {-1, 0, 0, {}}};
    EXPECT_EQ(grid.GetCell(), "Crypt");
    EXPECT_EQ(Written(grid),
              "PGRD" + Hex("6E 00 00 00") + Zeros(8) +                              //
                  "DATA" + Hex("0C 00 00 00") + Zeros(8) + Hex("00 04 03 00") +     //
                  "NAME" + Hex("06 00 00 00") + "Crypt" + Zeros(1) +                //
                  "PGRP" + Hex("30 00 00 00") +                                     //
                  Hex("00 00 00 00 00 FF FF FF A0 FF FF FF") + Hex("01 02 00 00") + //
                  Hex("02 01 00 00 01 00 00 00 00 00 00 00") + Hex("01 01 00 00") + //
                  Hex("FF FF FF FF 00 00 00 00 00 00 00 00") + Hex("01 00 00 00") + //
                  "PGRC" + Hex("0C 00 00 00") + Hex("01 00 00 00 02 00 00 00 00 00 00 00"));
}

TEST(PathGridTest, PointsWithoutWaysHaveNoListOfThem) {
    PathGrid grid("A");
    grid.points = {{1, 2, 3, {}}};
    const std::vector<Record> records = WalkRecords(Written(grid));
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(Tags(records[0].subs), "DATA NAME PGRP");
}

TEST(PathGridTest, HoldsAsManyPointsAndWaysAsTheirNumbersCan) {
    PathGrid grid("A");
    grid.points.resize(kMostPathPoints);
    grid.points[1].ways.resize(kMostPathWays);
    const std::vector<Record> records = WalkRecords(Written(grid));
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].subs.at(0).data, Zeros(8) + Hex("00 04 FF 7F"));
    EXPECT_EQ(records[0].subs.at(2).data.size(), 16 * kMostPathPoints);
    EXPECT_EQ(records[0].subs.at(2).data.substr(16, 16), Zeros(12) + Hex("01 FF 00 00"));
    EXPECT_EQ(records[0].subs.at(3).data.size(), 4 * kMostPathWays);
}

} // namespace

} // namespace Tarnex::Test
