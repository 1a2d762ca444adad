// SPDX-License-Identifier: MIT
#include <vaultry/layout/Passages.h>

#include <gtest/gtest.h>

#include <tests/support/TextGrid.h>

#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

std::string Sides(const char* cell) {
    static const DiPtr<TileSet> tiles = MakeFullTileSet();
    const SideBits bits = WalkableSides(*ToElmt(cell, *tiles));
    std::string text;
    for (const TileDirT side : {DirN, DirS, DirE, DirW}) {
        if ((bits & SideBit(side)) != 0) {
            text += "NSEW"[side];
        }
    }
    return text;
}

struct Case {
    const char* cell; // see TextGrid.h
    const char* sides;
};

TEST(PassagesTest, EveryKindIsLeftAcrossItsOpenSides) {
    const std::vector<Case> cases = {
        {"c", "NSEW"},  {"c2", "NSEW"}, {"NW", "SE"},   {"NE", "SW"},   {"SW", "NE"},
        {"SE", "NW"},   {"wN", "SEW"},  {"wS", "NEW"},  {"wE", "NSW"},  {"wW", "NSE"},
        {"dN", "NSEW"}, {"DS", "NSEW"}, {"dE", "NSEW"}, {"DW", "NSEW"}, {"|", "NS"},
        {"-", "EW"},    {"+", "NSEW"},  {",-", "SE"},   {"-,", "SW"},   {"`-", "NE"},
        {"-'", "NW"},   {"^", "S"},     {"v", "N"},     {">", "W"},     {"<", "E"},
        {"uN", "NS"},   {"uE", "EW"},   {"nS", "NS"},   {"nW", "EW"},   {"NWw", "SEW"},
        {"NWn", "NSE"}, {"NEn", "NSW"}, {"NEe", "SEW"}, {"SEe", "NEW"}, {"SEs", "NSW"},
        {"SWs", "NSE"}, {"SWw", "NEW"}, {"o", ""},
    };
    for (const Case& kind : cases) {
        EXPECT_EQ(Sides(kind.cell), kind.sides) << kind.cell;
    }
}

TEST(PassagesTest, OnlyTheFirstTileCounts) {
    EXPECT_EQ(Sides("wN&dS"), "SEW");
}

} // namespace

} // namespace Tarnex::Test
