// SPDX-License-Identifier: MIT
#include <vaultry/gen/GenInfo.h>

#include <gtest/gtest.h>

namespace Tarnex::Test {

namespace {

TEST(GenInfoTest, NewContextIsEmpty) {
    const GenInfo info;
    EXPECT_TRUE(info.mod.GetCells().empty());
    EXPECT_TRUE(info.mod.GetContainers().empty());
    EXPECT_TRUE(info.config.roomLayouts.empty());
    EXPECT_TRUE(info.config.contentMgr);
    EXPECT_EQ(info.randomInfo.maxLevel, 5U);
    EXPECT_FALSE(info.defCreatureTheme);
    EXPECT_FALSE(info.defTheme);
    EXPECT_FALSE(info.defTileSet);
    EXPECT_FALSE(info.defTemplate);
    EXPECT_FALSE(info.defTreasureTheme);
    EXPECT_EQ(info.jobStatus, nullptr);
    EXPECT_EQ(info.cellName, "");
    EXPECT_FALSE(info.addPlatforms);
    EXPECT_FALSE(info.nameSingleLevel);
}

} // namespace

} // namespace Tarnex::Test
