// SPDX-License-Identifier: MIT
#include <vaultry/layout/LevelPlan.h>

#include <gtest/gtest.h>

#include <tests/support/TextGrid.h>

#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

constexpr SideBits kEast = SideBit(DirE);
constexpr SideBits kWest = SideBit(DirW);

class LevelPlanTest : public ::testing::Test {
protected:
    // A part of the level at the given height.
    DiPtr<Layout> AddPart(const char* map, int row, int col, float z) {
        const DiPtr<Layout> part = ToLayout(map, *tiles);
        part->SetOffset(Di3Point(static_cast<float>(col), static_cast<float>(row), z));
        level->AddChild(part);
        return part;
    }

    ~LevelPlanTest() override { level->Dissolve(); }

    DiPtr<TileSet> tiles = MakeFullTileSet();
    DiPtr<Layout> level = Layout::Create(DiPos(5, 2, 0));
};

TEST_F(LevelPlanTest, WaysLeadWhereBothCellsAreOpenAndTheOtherOpeningsAreLoose) {
    Draw(*level, 0, 0, "- - wW |", *tiles);
    LevelPlan plan = PlanOf(*level);
    ASSERT_EQ(plan.cells.size(), 4U);
    EXPECT_EQ(plan.cells[0].ways, kEast);
    EXPECT_EQ(plan.cells[0].loose, kWest);
    EXPECT_EQ(plan.cells[1].ways, kWest);
    EXPECT_EQ(plan.cells[1].loose, kEast);
    EXPECT_EQ(plan.cells[2].ways, 0);
    EXPECT_EQ(plan.cells[2].loose, 0) << "the floor of a room needs to lead nowhere";
    EXPECT_EQ(plan.cells[3].loose, SideBit(DirN) | SideBit(DirS));
    EXPECT_EQ(plan.Find(DiPos(4, 0, 0)), nullptr);
}

TEST_F(LevelPlanTest, ElementsTellTileDoorwayAndTeleport) {
    const auto cell = [this](const char* text) { return PlanCellOf(*ToElmt(text, *tiles)); };
    EXPECT_EQ(cell("wN").tile, PlanTile::Room);
    EXPECT_EQ(cell("^").tile, PlanTile::Hall);
    EXPECT_EQ(cell("uN").tile, PlanTile::Stairs);
    EXPECT_EQ(cell("DE").doorway, kEast);
    EXPECT_EQ(cell("NWw").doorway, kWest);
    EXPECT_EQ(cell("c").doorway, 0);
    EXPECT_TRUE(cell("DE!").teleport);
    EXPECT_FALSE(cell("DE").teleport);
}

TEST_F(LevelPlanTest, ATeleportingDoorLeadsToNoNeighbour) {
    Draw(*level, 0, 0, "DE! -", *tiles);
    const LevelPlan plan = PlanOf(*level);
    EXPECT_EQ(plan.cells[0].ways, 0);
    EXPECT_EQ(plan.cells[0].loose, 0);
    EXPECT_EQ(plan.cells[1].loose, kEast | kWest);
}

TEST_F(LevelPlanTest, PartsComeAfterTheLevelThoseOnItsFloorFirst) {
    const DiPtr<Layout> high = AddPart("c", 0, 0, 1.5F);
    const DiPtr<Layout> near = AddPart("c", 1, 3, -1.0F);
    const DiPtr<Layout> inner = Layout::Create(DiPos(1, 1, 1));
    inner->SetOffset(Di3Point(-1.0F, -1.0F, 0.0F));
    near->AddChild(inner);
    const std::vector<LevelPart> parts = PartsOf(*level);
    ASSERT_EQ(parts.size(), 4U);
    EXPECT_EQ(parts[0].layout, level.get());
    EXPECT_EQ(parts[1].layout, near.get());
    EXPECT_EQ(parts[1].origin, DiPos(3, 1, 0));
    EXPECT_TRUE(parts[1].sameFloor);
    EXPECT_EQ(parts[2].layout, high.get());
    EXPECT_FALSE(parts[2].sameFloor);
    EXPECT_EQ(parts[3].layout, inner.get());
    EXPECT_EQ(parts[3].origin, DiPos(2, 0, 0));
    EXPECT_FALSE(parts[3].sameFloor) << "how high it lies depends on the part that it is in";
}

TEST_F(LevelPlanTest, ThePlanHoldsTheFirstOnTheFloorInsideTheLevel) {
    Draw(*level, 0, 0, "-", *tiles);
    AddPart("| c", 0, 0, 1.0F);
    AddPart("c c", 1, 4, 0.0F);
    AddPart("c", 1, 0, 1.5F);
    const LevelPlan plan = PlanOf(*level);
    EXPECT_EQ(plan.cells.size(), 3U);
    EXPECT_EQ(plan.Find(DiPos(0, 0, 0))->open, kEast | kWest);
    EXPECT_NE(plan.Find(DiPos(1, 0, 0)), nullptr);
    EXPECT_NE(plan.Find(DiPos(4, 1, 0)), nullptr);
}

TEST_F(LevelPlanTest, CellsStandRowByRowWhateverTheOrderOfTheirPlaces) {
    LevelPlan plan;
    plan.SetGrid(DiPos(2, 2, 0), [](const auto& mark) {
        for (const DiPos& place :
             {DiPos(1, 1, 0), DiPos(0, 1, 0), DiPos(1, 0, 0), DiPos(1, 1, 0)}) {
            mark(place);
        }
    });
    ASSERT_EQ(plan.cells.size(), 3U);
    EXPECT_EQ(plan.cells[0].place, DiPos(1, 0, 0));
    EXPECT_EQ(plan.cells[1].place, DiPos(0, 1, 0));
    EXPECT_EQ(plan.cells[2].place, DiPos(1, 1, 0));
    EXPECT_EQ(plan.Find(DiPos(0, 0, 0)), nullptr);
}

TEST_F(LevelPlanTest, RoomsAreReachedFromTheFirst) {
    Draw(*level, 0, 0, "c c . c c", *tiles);
    LevelPlan plan = PlanOf(*level);
    for (std::size_t i = 0; i < plan.cells.size(); ++i) {
        plan.cells[i].room = i + 1;
    }
    EXPECT_EQ(ReachedRooms(plan, 5), (std::vector<bool>{true, true, false, false, false}));
    plan.cells[3].sameFloor = false;
    EXPECT_EQ(ReachedRooms(plan, 5), (std::vector<bool>{true, true, false, true, false}));
}

TEST_F(LevelPlanTest, OneComesDownToTheFloorButNotUp) {
    Draw(*level, 0, 0, "- -", *tiles);
    LevelPlan plan = PlanOf(*level);
    plan.cells[0].sameFloor = false;
    JoinNeighbours(plan);
    EXPECT_EQ(plan.cells[0].ways, kEast);
    EXPECT_EQ(plan.cells[1].ways, 0);
}

} // namespace

} // namespace Tarnex::Test
