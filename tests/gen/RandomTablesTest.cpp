// SPDX-License-Identifier: MIT
// The odds of room grids and spacings, at the borders between their rows.
#include <vaultry/gen/RandomTables.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

using Info = RandomGenInfo;

// One row of a table as the draws see it: everything from `from` up to the next row's `from`.
struct Row {
    double from;
    std::string what;
};

double JustBelow(double draw) {
    return std::nextafter(draw, -1.0);
}

// Each row begins exactly at its own threshold and ends right before the next one.
template <typename Table, typename Describe>
void ExpectRows(const Table& table, const std::vector<Row>& rows, Describe describe) {
    ASSERT_EQ(table.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(describe(PickBelow(table, rows[i].from)), rows[i].what) << rows[i].from;
        const double last = i + 1 < rows.size() ? JustBelow(rows[i + 1].from) : 1.0;
        EXPECT_EQ(describe(PickBelow(table, last)), rows[i].what) << last;
    }
}

void ExpectGrids(Info::LevelSizeT size, const std::vector<Row>& rows) {
    ExpectRows(RoomGrids(size), rows, [](const GridOdds& grid) {
        return std::to_string(grid.columns) + "x" + std::to_string(grid.rows);
    });
}

void ExpectSpacings(Info::RoomSpacingT spacing, bool cave, const std::vector<Row>& rows) {
    ExpectRows(RoomSpacings(spacing, cave), rows, [](const SpacingOdds& odds) {
        return odds.range.AddsNothing()
                   ? std::string("nothing")
                   : std::to_string(odds.range.lo) + "-" + std::to_string(odds.range.hi);
    });
}

const std::vector<Row> kRandomGrids = {{0.0, "2x2"},
                                       {0.15, "1x6"},
                                       {0.2, "3x2"},
                                       {0.3, "3x3"},
                                       {0.6, "4x3"},
                                       {0.85, "2x6"},
                                       {0.9, "4x4"},
                                       {0.98, "5x4"}};
const std::vector<Row> kCaveSpacings = {
    {0.0, "nothing"}, {0.25, "0-3"}, {0.5, "2-5"}, {0.75, "4-8"}};
const std::vector<Row> kOtherSpacings = {
    {0.0, "nothing"}, {0.5, "0-3"}, {0.8, "2-4"}, {0.95, "3-6"}};

TEST(RandomTablesTest, TinyAndMediumHaveOneGridAndNeedNoDraw) {
    ExpectGrids(Info::Tiny, {{0.0, "2x2"}});
    ExpectGrids(Info::Medium, {{0.0, "3x3"}});
}

TEST(RandomTablesTest, GridsAreColumnsByRows) {
    ExpectGrids(Info::Small, {{0.0, "1x6"}, {0.1, "3x2"}});
    ExpectGrids(Info::Large, {{0.0, "6x2"}, {0.1, "4x3"}, {0.4, "4x4"}, {0.9, "4x5"}});
    ExpectGrids(Info::Random, kRandomGrids);
}

TEST(RandomTablesTest, SizeOutsideTheWordsCountsAsRandom) {
    for (const int size : {-1, 5, 1000000}) {
        ExpectGrids(static_cast<Info::LevelSizeT>(size), kRandomGrids);
    }
}

TEST(RandomTablesTest, GivenSpacingsNeedNoDrawAndIgnoreTheTileSet) {
    for (const bool cave : {false, true}) {
        ExpectSpacings(Info::Tight, cave, {{0.0, "nothing"}});
        ExpectSpacings(Info::SemiTight, cave, {{0.0, "0-3"}});
        ExpectSpacings(Info::SemiLoose, cave, {{0.0, "2-5"}});
        ExpectSpacings(Info::Loose, cave, {{0.0, "3-6"}});
    }
}

TEST(RandomTablesTest, RandomSpacingIsWiderInCaves) {
    ExpectSpacings(Info::RandomSpacing, true, kCaveSpacings);
    ExpectSpacings(Info::RandomSpacing, false, kOtherSpacings);
}

TEST(RandomTablesTest, SpacingOutsideTheWordsCountsAsRandom) {
    for (const int spacing : {-1, 5, 1000000}) {
        ExpectSpacings(static_cast<Info::RoomSpacingT>(spacing), true, kCaveSpacings);
        ExpectSpacings(static_cast<Info::RoomSpacingT>(spacing), false, kOtherSpacings);
    }
}

} // namespace

} // namespace Tarnex::Test
