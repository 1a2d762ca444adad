// SPDX-License-Identifier: MIT
#include <vaultry/layout/LevelPlan.h>

#include <gtest/gtest.h>

#include <tests/support/TextGrid.h>

#include <algorithm>
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

    // The cell in the first row.
    static PlanCell& At(LevelPlan& plan, int col) { return plan.At(DiPos(col, 0, 0)); }

    ~LevelPlanTest() override { level->Dissolve(); }

    DiPtr<TileSet> tiles = MakeFullTileSet();
    DiPtr<Layout> level = Layout::Create(DiPos(5, 2, 0));
};

TEST_F(LevelPlanTest, WaysLeadWhereBothCellsAreOpenAndTheOtherOpeningsAreLoose) {
    Draw(*level, 0, 0, "- - wW |", *tiles);
    LevelPlan plan = PlanOf(*level);
    EXPECT_EQ(At(plan, 0).ways, kEast);
    EXPECT_EQ(At(plan, 0).loose, kWest);
    EXPECT_EQ(At(plan, 1).ways, kWest);
    EXPECT_EQ(At(plan, 1).loose, kEast);
    EXPECT_EQ(At(plan, 2).ways, 0);
    EXPECT_EQ(At(plan, 2).loose, 0) << "the floor of a room needs to lead nowhere";
    EXPECT_EQ(At(plan, 3).loose, SideBit(DirN) | SideBit(DirS));
    EXPECT_EQ(At(plan, 4).tile, PlanTile::Empty);
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
    LevelPlan plan = PlanOf(*level);
    EXPECT_EQ(At(plan, 0).ways, 0);
    EXPECT_EQ(At(plan, 0).loose, 0);
    EXPECT_EQ(At(plan, 1).loose, kEast | kWest);
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
    LevelPlan plan = PlanOf(*level);
    EXPECT_EQ(std::ranges::count(plan.cells, PlanTile::Room, &PlanCell::tile), 2);
    EXPECT_EQ(std::ranges::count(plan.cells, PlanTile::Hall, &PlanCell::tile), 1);
    EXPECT_EQ(At(plan, 0).open, kEast | kWest);
    EXPECT_EQ(At(plan, 1).tile, PlanTile::Room);
    EXPECT_EQ(plan.At(DiPos(4, 1, 0)).tile, PlanTile::Room);
}

TEST_F(LevelPlanTest, PartsBesideThePlanAreLeftOutHoweverFarTheyAre) {
    for (const int place : {-2, 5, INT32_MIN, INT32_MAX}) {
        AddPart("c c", 0, place, 0.0F);
        AddPart("c c", place, 0, 0.0F);
    }
    // Two cells wide, so that one of them is on the plan.
    AddPart("c c", 1, -1, 0.0F);
    AddPart("c c", 1, 4, 0.0F);
    const LevelPlan plan = PlanOf(*level);
    EXPECT_EQ(std::ranges::count(plan.cells, PlanTile::Room, &PlanCell::tile), 2);
    EXPECT_EQ(plan.At(DiPos(0, 1, 0)).tile, PlanTile::Room);
    EXPECT_EQ(plan.At(DiPos(4, 1, 0)).tile, PlanTile::Room);
}

TEST_F(LevelPlanTest, PartsOfPartsAreNoFartherOutThanPlacesReach) {
    const DiPtr<Layout> far = AddPart("c", 0, INT32_MAX, 0.0F);
    const DiPtr<Layout> farther = Layout::Create(DiPos(1, 1, 0));
    farther->SetOffset(Di3Point(3e9F, -3e9F, 0.0F));
    far->AddChild(farther);
    EXPECT_EQ(PartsOf(*level).back().origin, DiPos(kFarthestOrigin, -kFarthestOrigin, 0));
}

TEST_F(LevelPlanTest, CellsStandRowByRowAndKnowTheirPlace) {
    LevelPlan plan(DiPos(3, 2, 0));
    std::size_t last = 0;
    for (const DiPos& place : {DiPos(0, 0, 0), DiPos(2, 0, 0), DiPos(0, 1, 0), DiPos(2, 1, 0)}) {
        const PlanCell& cell = plan.At(place);
        EXPECT_EQ(plan.PlaceOf(cell), place);
        EXPECT_EQ(plan.PlaceOf(*plan.Next(cell, DirW)), place + Sides()[DirW].step);
        const auto index = static_cast<std::size_t>(&cell - plan.cells.data());
        EXPECT_GT(index, last);
        last = index;
    }
}

TEST_F(LevelPlanTest, RoomsAreReachedFromTheFirst) {
    Draw(*level, 0, 0, "c c . c c", *tiles);
    LevelPlan plan = PlanOf(*level);
    std::uint32_t room = 0;
    for (const int col : {0, 1, 3, 4}) {
        At(plan, col).room = ++room;
    }
    EXPECT_EQ(ReachedRooms(plan, 5), (std::vector<bool>{true, true, false, false, false}));
    At(plan, 4).sameFloor = false;
    EXPECT_EQ(ReachedRooms(plan, 5), (std::vector<bool>{true, true, false, true, false}));
}

TEST_F(LevelPlanTest, OneComesDownToTheFloorButNotUp) {
    Draw(*level, 0, 0, "- -", *tiles);
    LevelPlan plan = PlanOf(*level);
    At(plan, 0).sameFloor = false;
    JoinNeighbours(plan);
    EXPECT_EQ(At(plan, 0).ways, kEast);
    EXPECT_EQ(At(plan, 1).ways, 0);
}

} // namespace

} // namespace Tarnex::Test
