// SPDX-License-Identifier: MIT
#include <vaultry/gen/HallPlan.h>

#include <gtest/gtest.h>

#include <tests/gen/PlannedLevel.h>

namespace Tarnex::Test {

namespace {

class HallPlanTest : public ::testing::Test {
protected:
    HallPlanTest() { drawn.AddRoom("NW wN NE \n DW&c c DE \n SW wS SE", 0, 0); }

    PlanCell& At(HallPlan& plan, int row, int col) {
        // With the border of empty cells around the level.
        const auto width = static_cast<std::size_t>(drawn.level->GetWidth()) + 2;
        return plan.Cells()[(static_cast<std::size_t>(row) + 1) * width +
                            static_cast<std::size_t>(col) + 1];
    }

    PlannedLevel drawn{R"(
        . . . . . .
        . . . - + -
        . . . . v |&dE
        . . . . . .)"};
};

TEST_F(HallPlanTest, WhatASetHasAPieceForCanBeExchanged) {
    HallPlan plan = drawn.Plan();
    EXPECT_EQ(plan.PartOf(At(plan, 1, 1)), PlanPart::Kept) << "the middle of a room";
    EXPECT_EQ(plan.PartOf(At(plan, 1, 2)), PlanPart::Doorway);
    EXPECT_EQ(plan.PartOf(At(plan, 1, 0)), PlanPart::Kept) << "a doorway with something else in it";
    EXPECT_EQ(plan.PartOf(At(plan, 1, 3)), PlanPart::Hall);
    EXPECT_EQ(plan.PartOf(At(plan, 2, 4)), PlanPart::Hall);
    EXPECT_EQ(plan.PartOf(At(plan, 2, 5)), PlanPart::Kept) << "a hall with a doorway in it";
    EXPECT_EQ(plan.PartOf(At(plan, 3, 3)), PlanPart::Kept) << "nothing";
    EXPECT_TRUE(plan.Changes().empty());
}

TEST_F(HallPlanTest, WhatIsLeftOpenIsOpenAndItsNeighboursAreClosedElsewhere) {
    HallPlan plan = drawn.Plan();
    PlanCell& junction = At(plan, 1, 4);
    plan.Leave(junction, SideBit(DirW) | SideBit(DirE));
    plan.Leave(At(plan, 2, 4), At(plan, 2, 4).open);
    ApplyChanges(*drawn.level, *drawn.tiles, plan.Changes());
    EXPECT_EQ(ToText(drawn.level->GetElmt(1, 4)), "-");
    EXPECT_EQ(ToText(drawn.level->GetElmt(2, 4)), ".") << "nothing is open there any more";
}

TEST_F(HallPlanTest, AnEndStandsInAnEmptyCellOfTheLevel) {
    HallPlan plan = drawn.Plan();
    PlanCell& junction = At(plan, 1, 4);
    EXPECT_EQ(junction.loose, SideBit(DirN));
    ASSERT_TRUE(plan.AddEnd(junction, DirN));
    EXPECT_EQ(junction.loose, 0);
    EXPECT_FALSE(plan.AddEnd(junction, DirS)) << "something stands there";
    EXPECT_FALSE(plan.AddEnd(At(plan, 1, 5), DirE)) << "beyond the edge";
    EXPECT_EQ(plan.Changes(),
              (std::vector<PieceChange>{{DiPos(4, 0, 0), TileKind::Of("HallEndN")}}));
}

TEST_F(HallPlanTest, ASetWithoutAPieceCannotHaveItStand) {
    TileSet few;
    Tile straight;
    straight.kindName = "HallNS";
    few.Set(straight);
    const HallPlan plan(*drawn.level, drawn.rooms, few);
    EXPECT_TRUE(plan.HasHall(SideBit(DirE) | SideBit(DirW)));
    EXPECT_FALSE(plan.HasHall(SideBit(DirE)));
    EXPECT_FALSE(plan.HasAllHalls());
    EXPECT_TRUE(drawn.Plan().HasAllHalls());
}

TEST_F(HallPlanTest, WhatStandsInACellStaysWithItsNewPiece) {
    const auto thing = MakeDi<ContentItem>();
    drawn.level->GetElmt(1, 4)->AddContent(thing);
    ApplyChanges(*drawn.level,
                 *drawn.tiles,
                 {{DiPos(4, 1, 0), TileKind::Of("HallEW")}, {DiPos(3, 1, 0), TileKind()}});
    EXPECT_EQ(drawn.level->GetElmt(1, 4)->contents.size(), 1U);
    EXPECT_EQ(drawn.level->GetElmt(1, 3), nullptr);
}

} // namespace

} // namespace Tarnex::Test
