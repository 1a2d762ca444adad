// SPDX-License-Identifier: MIT
#include <vaultry/layout/HallPiece.h>
#include <vaultry/layout/Passages.h>

#include <gtest/gtest.h>

#include <bit>
#include <tests/support/TextGrid.h>

namespace Tarnex::Test {

namespace {

SideBits OpenOf(TileKind kind) {
    static const DiPtr<TileSet> tiles = MakeFullTileSet();
    GridElmt elmt;
    elmt.AddTile(tiles->Get(kind));
    return WalkableSides(elmt);
}

TEST(HallPieceTest, APieceOfHallIsOpenOnJustTheSidesItWasAskedForBy) {
    for (SideBits open = 0; open <= 0xF; ++open) {
        const TileKind kind = HallPieceOf(open);
        const int sides = std::popcount(open);
        ASSERT_EQ(kind.IsKnown(), sides != 0 && sides != 3) << int{open};
        if (kind.IsKnown()) {
            EXPECT_EQ(OpenOf(kind), open);
            EXPECT_EQ(kind.Type(), sides == 1 ? TileHallEnd : TileHall);
        }
    }
}

} // namespace

} // namespace Tarnex::Test
