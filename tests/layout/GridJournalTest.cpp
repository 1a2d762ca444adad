// SPDX-License-Identifier: MIT
#include <vaultry/layout/GridJournal.h>

#include <gtest/gtest.h>

#include <tests/support/TextGrid.h>

namespace Tarnex::Test {

namespace {

class GridJournalTest : public ::testing::Test {
protected:
    /// Replaces one cell's tiles as a hall does.
    void Change(int row, int col, const char* cell) {
        journal.Touch(DiPos(col, row, 0));
        const auto& elmt =
            grid->GetElmt(static_cast<std::uint32_t>(row), static_cast<std::uint32_t>(col));
        const DiPtr<GridElmt> wanted = ToElmt(cell, *tiles);
        if (elmt) {
            elmt->tiles = wanted->tiles;
        } else {
            grid->SetElmt(wanted, row, col);
        }
    }

    DiPtr<TileSet> tiles = MakeFullTileSet();
    DiPtr<Layout> grid = ToLayout(R"(
        NW wN NE .
        wW c  wE .
        SW wS SE .)",
                                  *tiles);
    GridJournal journal{*grid};
};

TEST_F(GridJournalTest, RollbackRestoresChangedAndFilledCells) {
    const std::string before = ToText(*grid);
    Change(1, 2, "DE");
    Change(1, 3, "-");
    journal.Rollback();
    EXPECT_EQ(ToText(*grid), before);
}

TEST_F(GridJournalTest, ACellChangedTwiceReturnsToItsFirstState) {
    const std::string before = ToText(*grid);
    Change(1, 3, "-");
    Change(1, 3, "+");
    Change(1, 2, "dE");
    Change(1, 2, "DE");
    journal.Rollback();
    EXPECT_EQ(ToText(*grid), before);
}

TEST_F(GridJournalTest, BeginKeepsWhatWasDoneBefore) {
    Change(1, 2, "DE");
    journal.Begin();
    Change(1, 3, "-");
    journal.Rollback();
    EXPECT_EQ(ToText(*grid), Map(R"(
        NW wN NE .
        wW c  DE .
        SW wS SE .)"));
}

TEST_F(GridJournalTest, AnAttemptGoesOnAfterARollback) {
    Change(1, 3, "-");
    journal.Rollback();
    Change(0, 3, "|");
    journal.Rollback();
    EXPECT_FALSE(grid->GetElmt(0, 3));
    EXPECT_FALSE(grid->GetElmt(1, 3));
}

TEST_F(GridJournalTest, TheFirstRollbackEndsTheSharingWithTheRoomAsTheAttemptLeftIt) {
    const DiPtr<Layout> room = ToLayout("wN", *tiles);
    room->SetOffset(Di3Point(3.0F, 0.0F, 0.0F));
    grid->AddContents(*room);
    ASSERT_EQ(grid->GetElmt(0, 3), room->GetElmt(0, 0));
    Change(0, 3, "DN");
    journal.Rollback();
    EXPECT_EQ(ToText(grid->GetElmt(0, 3)), "wN");
    EXPECT_EQ(ToText(room->GetElmt(0, 0)), "DN");
}

TEST_F(GridJournalTest, UnchangedCellsStayTheSameElementsUntilTheFirstRollbackOnly) {
    const DiPtr<GridElmt> center = grid->GetElmt(1, 1);
    journal.Rollback();
    const DiPtr<GridElmt> own = grid->GetElmt(1, 1);
    EXPECT_FALSE(own == center);
    EXPECT_EQ(ToText(own), "c");
    journal.Rollback();
    EXPECT_EQ(grid->GetElmt(1, 1), own);
}

TEST_F(GridJournalTest, PlacesOutsideTheGridAreIgnored) {
    const std::string before = ToText(*grid);
    journal.Touch(DiPos(-1, 0, 0));
    journal.Touch(DiPos(4, 0, 0));
    journal.Touch(DiPos(0, 3, 0));
    journal.Rollback();
    EXPECT_EQ(ToText(*grid), before);
}

} // namespace

} // namespace Tarnex::Test
