// SPDX-License-Identifier: MIT
#include "tools/runs/Chosen.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;

class ChosenTest : public testing::Test {
protected:
    ChosenTest() {
        LevelChoices level;
        level.number = 2;
        level.tileSet = MakeDi<TileSet>();
        level.tileSet->SetName("Caf\xE9");
        level.theme = MakeDi<Theme>();
        level.theme->SetName("Noble hall");
        level.treasureTheme = MakeDi<Theme>();
        level.treasureTheme->SetName("Larder\n");
        level.roomGrid = DiPos(4, 3, 0);
        level.spacing = {2, 5};
        report.chosen = {level};
        asked.levelSize = RandomGenInfo::Medium;
        asked.roomSpacing = RandomGenInfo::Loose;
    }

    GenReport report;
    RandomGenInfo asked;
};

TEST_F(ChosenTest, WhatWasAskedForWasNotChosenByChance) {
    EXPECT_EQ(Report::ChosenLines(report, asked), Lines{});
    EXPECT_EQ(Report::ChosenNames(report, asked), Lines{});
}

TEST_F(ChosenTest, EachLevelHasALineOfWhatWasLeftToChance) {
    asked = RandomGenInfo();
    asked.randomTileSet = asked.randomTheme = true;
    asked.randomCreatureTheme = asked.randomTreasureTheme = true;
    report.chosen.push_back(report.chosen.front());
    report.chosen.back().number = 3;
    report.chosen.back().spacing = {0, 0};
    report.chosen.back().theme = nullptr;
    EXPECT_EQ(Report::ChosenLines(report, asked),
              (Lines{"level 2 by chance: tile set \"Café\", theme \"Noble hall\", "
                     "treasure theme \"Larder?\", size 4 x 3 rooms, spacing 2 to 5 cells",
                     "level 3 by chance: tile set \"Café\", treasure theme \"Larder?\", "
                     "size 4 x 3 rooms, no spacing"}));
    EXPECT_EQ(Report::ChosenNames(report, asked).back(),
              "level 3 by chance: tile set \"Café\", treasure theme \"Larder?\"");
}

TEST_F(ChosenTest, NothingOfAFixedInteriorIsLeftToChance) {
    asked = RandomGenInfo();
    report.chosen.front().number = 0;
    EXPECT_EQ(Report::ChosenLines(report, asked), Lines{});
}

} // namespace

} // namespace Tarnex::Test
