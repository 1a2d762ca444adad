// SPDX-License-Identifier: MIT
#include "tools/stage/StagePlan.h"

#include "tests/tools/stage/StageTest.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Tarnex::Test {

namespace {

using Report::Known;
using Report::StageSource;
using Report::StandIn;
using Report::StandInSort;

struct Extent {
    Di3Point low{1e9F, 1e9F, 1e9F};
    Di3Point high{-1e9F, -1e9F, -1e9F};
};

Extent ExtentOf(const Report::Shape& shape) {
    Extent extent;
    for (const Report::Face& face : shape) {
        for (const Di3Point& p : face.corners) {
            extent.low = {std::min(extent.low.x, p.x),
                          std::min(extent.low.y, p.y),
                          std::min(extent.low.z, p.z)};
            extent.high = {std::max(extent.high.x, p.x),
                           std::max(extent.high.y, p.y),
                           std::max(extent.high.z, p.z)};
        }
    }
    return extent;
}

TEST(StagePlanTest, TheBuiltinConfigurationsAgree) {
    const Report::StagePlan plan = BuiltinPlan();
    EXPECT_EQ(plan.remarks, std::vector<std::string>());
    EXPECT_GT(plan.standIns.size(), 1500U);
    const bool measured = std::ranges::all_of(plan.standIns, [](const auto& entry) {
        const std::string& use = entry.second.use;
        return use.find(" of \"") == std::string::npos || entry.second.known != Known::Shaped;
    });
    EXPECT_TRUE(measured) << "a tile that nobody measured";
}

// The proof would go in a circle if a turn in the configuration turned the mesh too.
TEST(StagePlanTest, AMeasuredPieceKeepsItsShapeWhateverAConfigurationSays) {
    const char* const text = "<TileSet TsName=\"S\" TsSize=\"512\"><WallN ZRotate=\"180\" "
                             "OffsetX=\"7\">in_impsmall_r_3way_01</WallN></TileSet>";
    const Report::StagePlan plan = PlanOf(text);
    const StandIn& wall = plan.standIns.at("IN_IMPSMALL_R_3WAY_01");
    EXPECT_EQ(wall.shape, Report::FindPiece("in_impsmall_r_3way_01")->shape);
    EXPECT_EQ(wall.known, Known::Observed);
}

TEST(StagePlanTest, AnUnmeasuredPieceIsShapedAsItsTileSays) {
    const Report::StagePlan plan =
        PlanOf("<TileSet TsName=\"S\" TsSize=\"512\">"
               "<HallNS ZRotate=\"90\" OffsetZ=\"-256\">own_hall</HallNS></TileSet>");
    const StandIn& hall = plan.standIns.at("OWN_HALL");
    EXPECT_EQ(hall.known, Known::Shaped);
    const Extent extent = ExtentOf(hall.shape);
    EXPECT_EQ(extent.low, Di3Point(-256, -160, 0)); // along the east-west axis of its own
    EXPECT_EQ(extent.high, Di3Point(256, 160, 448));
}

TEST(StagePlanTest, StairsClimbByTheirDeltaZ) {
    const Report::StagePlan plan =
        PlanOf("<TileSet TsName=\"S\"><StairsUpN DeltaZ=\"64\">own_stairs</StairsUpN></TileSet>");
    const Report::Shape& stairs = plan.standIns.at("OWN_STAIRS").shape;
    ASSERT_FALSE(stairs.empty());
    EXPECT_EQ(stairs.front().corners[0], Di3Point(-80, -128, -128));
    EXPECT_EQ(stairs.front().corners[2], Di3Point(80, 128, -64));
}

TEST(StagePlanTest, AScaledPieceIsMadeSmallerBeforehand) {
    const Report::StagePlan plan =
        PlanOf("<TileSet TsName=\"S\"><Center Scale=\"2\">own_floor</Center></TileSet>");
    EXPECT_EQ(ExtentOf(plan.standIns.at("OWN_FLOOR").shape).high, Di3Point(64, 64, 64));
}

TEST(StagePlanTest, TilesOfTheSidesAreOnePieceTurned) {
    const Report::StagePlan plan =
        PlanOf("<TileSet TsName=\"S\"><WallN>w</WallN><WallE ZRotate=\"90\">w</WallE>"
               "<DoorwayN>d</DoorwayN><DoorwayS ZRotate=\"180\">d</DoorwayS>"
               "<HallEndN>e</HallEndN><HallEndW ZRotate=\"270\">e</HallEndW></TileSet>");
    EXPECT_EQ(plan.remarks, std::vector<std::string>());
}

TEST(StagePlanTest, TwoShapesForOneObjectAreTold) {
    const StageSource first =
        SourceOf("first", "<O><TileSet TsName=\"A\"><WallN>w</WallN></TileSet></O>");
    const StageSource second =
        SourceOf("second", "<O><TileSet TsName=\"B\"><WallE>W</WallE></TileSet></O>");
    const Report::StagePlan plan = Report::PlanStage({first, second});
    ASSERT_EQ(plan.remarks.size(), 1U);
    EXPECT_EQ(plan.remarks[0],
              "\"W\" needs two shapes, as WallN of \"A\" (first) and as WallE of \"B\" (second); "
              "it has the first");
}

TEST(StagePlanTest, WhatNobodyKnowsIsABoxAndTold) {
    const Report::StagePlan plan =
        PlanOf("<TileSet TsName=\"S\"><Balcony>own_balcony</Balcony></TileSet>");
    EXPECT_EQ(plan.standIns.at("OWN_BALCONY").shape.front().surface, Report::Surface::Unknown);
    EXPECT_EQ(plan.remarks,
              (std::vector<std::string>{"nobody knows what \"own_balcony\" looks like, Balcony of "
                                        "\"S\"; it is a box"}));
}

TEST(StagePlanTest, ThingsStandOnTheFloorTheyAreMeantFor) {
    // Everything of this configuration is raised by 400, as far as a measured room tells.
    const Report::StagePlan plan =
        PlanOf("<TileSet TsName=\"S\" TsType=\"Room\"><Center OffsetZ=\"400\">in_v_s_int_center_01"
               "</Center></TileSet>"
               "<Furniture UniqueName=\"own_table\" SizeX=\"60\" SizeY=\"20\" SizeZ=\"40\" "
               "OffsetZ=\"400\" ZRotate=\"90\"/>");
    const Extent extent = ExtentOf(plan.standIns.at("OWN_TABLE").shape);
    EXPECT_EQ(extent.low, Di3Point(-10, -30, -20));
    EXPECT_EQ(extent.high, Di3Point(10, 30, 20));
}

TEST(StagePlanTest, EveryObjectHasARecordOfItsKind) {
    const Report::StagePlan plan =
        PlanOf("<TileSet TsName=\"S\"><DoorN>d</DoorN><ExitN>in_door_exit</ExitN></TileSet>"
               "<Platform Name=\"P\"><Floor UniqueName=\"p\" SizeX=\"64\" SizeY=\"64\"/></Platform>"
               "<Container UniqueName=\"c\" ModelFile=\"o\\C.nif\"/>"
               "<Tapestry UniqueName=\"light_own_128\"/>"
               "<Creature UniqueName=\"r\"/><Creature UniqueName=\"own_lev+2\"/>"
               "<Treasure UniqueName=\"t\" Type=\"Misc\"/><Weapon UniqueName=\"w\"/>"
               "<Treasure UniqueName=\"random_own\" Type=\"Misc\"/>");
    const auto sort = [&plan](const char* id) { return plan.standIns.at(id).sort; };
    EXPECT_EQ(sort("D"), StandInSort::Door);
    EXPECT_EQ(sort("P"), StandInSort::Static);
    EXPECT_EQ(sort("C"), StandInSort::Container);
    EXPECT_EQ(sort("LIGHT_OWN_128"), StandInSort::Light);
    EXPECT_EQ(sort("R"), StandInSort::Creature);
    EXPECT_EQ(sort("OWN_LEV+2"), StandInSort::Creatures);
    EXPECT_EQ(sort("T"), StandInSort::Item);
    EXPECT_EQ(sort("W"), StandInSort::Item);
    EXPECT_EQ(sort("RANDOM_OWN"), StandInSort::Items);
    EXPECT_EQ(sort("NORTHMARKER"), StandInSort::Static);
}

} // namespace

} // namespace Tarnex::Test
