// SPDX-License-Identifier: MIT
#include <vaultry/gen/RandomGenInfo.h>

#include <gtest/gtest.h>

namespace Tarnex::Test {

namespace {

using Words = std::vector<std::string>;

TEST(RandomGenInfoTest, DefaultsAskForOneLevelAndNoChoice) {
    const RandomGenInfo info;
    EXPECT_EQ(info.numLevels, 1U);
    EXPECT_EQ(info.minLevel, 1U);
    EXPECT_EQ(info.maxLevel, 5U);
    EXPECT_EQ(info.levelSize, 0);
    EXPECT_EQ(info.roomSpacing, 0);
    EXPECT_FALSE(info.randomTileSet);
    EXPECT_FALSE(info.randomTheme);
    EXPECT_FALSE(info.randomCreatureTheme);
    EXPECT_FALSE(info.randomTreasureTheme);
}

TEST(RandomGenInfoTest, CopyTakesEveryField) {
    RandomGenInfo info;
    info.numLevels = 3;
    info.minLevel = 4;
    info.maxLevel = 9;
    info.levelSize = RandomGenInfo::Large;
    info.roomSpacing = RandomGenInfo::Loose;
    info.randomTileSet = info.randomTheme = true;
    info.randomCreatureTheme = info.randomTreasureTheme = true;
    const RandomGenInfo copy(info);
    RandomGenInfo assigned;
    assigned = info;
    for (const RandomGenInfo* twin : {&copy, static_cast<const RandomGenInfo*>(&assigned)}) {
        EXPECT_EQ(twin->numLevels, 3U);
        EXPECT_EQ(twin->minLevel, 4U);
        EXPECT_EQ(twin->maxLevel, 9U);
        EXPECT_EQ(twin->levelSize, RandomGenInfo::Large);
        EXPECT_EQ(twin->roomSpacing, RandomGenInfo::Loose);
        EXPECT_TRUE(twin->randomTileSet && twin->randomTheme);
        EXPECT_TRUE(twin->randomCreatureTheme && twin->randomTreasureTheme);
    }
}

TEST(RandomGenInfoTest, WordsStandInTheOrderOfTheirValuesAndNeverGrow) {
    for (int call = 0; call < 2; ++call) {
        EXPECT_EQ(RandomGenInfo::GetLevelSizeStrings(),
                  (Words{"Random", "Tiny", "Small", "Medium", "Large"}));
        EXPECT_EQ(RandomGenInfo::GetRoomSpacingStrings(),
                  (Words{"Random", "Tight", "Semi-tight", "Semi-loose", "Loose"}));
    }
    EXPECT_EQ(&RandomGenInfo::GetLevelSizeStrings(), &RandomGenInfo::GetLevelSizeStrings());
}

TEST(RandomGenInfoTest, LevelSizeWordsIgnoreCase) {
    EXPECT_EQ(RandomGenInfo::StringToLevelSize("Random"), 0);
    EXPECT_EQ(RandomGenInfo::StringToLevelSize("tiny"), 1);
    EXPECT_EQ(RandomGenInfo::StringToLevelSize("sMALL"), 2);
    EXPECT_EQ(RandomGenInfo::StringToLevelSize("MEDIUM"), 3);
    EXPECT_EQ(RandomGenInfo::StringToLevelSize("Large"), 4);
}

TEST(RandomGenInfoTest, RoomSpacingWordsIgnoreCase) {
    EXPECT_EQ(RandomGenInfo::StringToRoomSpacing("random"), 0);
    EXPECT_EQ(RandomGenInfo::StringToRoomSpacing("TIGHT"), 1);
    EXPECT_EQ(RandomGenInfo::StringToRoomSpacing("Semi-Tight"), 2);
    EXPECT_EQ(RandomGenInfo::StringToRoomSpacing("sEmI-lOOSe"), 3);
    EXPECT_EQ(RandomGenInfo::StringToRoomSpacing("Loose"), 4);
}

TEST(RandomGenInfoTest, OtherTextsMeanRandom) {
    for (const char* text : {"Huge", "", " Tiny", "Tin", "Tight", "4"}) {
        EXPECT_EQ(RandomGenInfo::StringToLevelSize(text), RandomGenInfo::Random) << text;
    }
    for (const char* text : {"Semi tight", "", "Semi", "Tiny", "SemiLoose"}) {
        EXPECT_EQ(RandomGenInfo::StringToRoomSpacing(text), 0) << text;
    }
}

TEST(RandomGenInfoTest, NoTextMeansRandom) {
    EXPECT_EQ(RandomGenInfo::StringToLevelSize(nullptr), RandomGenInfo::Random);
    EXPECT_EQ(RandomGenInfo::StringToRoomSpacing(nullptr), RandomGenInfo::RandomSpacing);
}

} // namespace

} // namespace Tarnex::Test
