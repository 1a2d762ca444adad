// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigMgr.h>

#include <gtest/gtest.h>

namespace Tarnex::Test {

namespace {

void ExpectEmpty(const ConfigMgr& config) {
    EXPECT_TRUE(config.platformList.empty());
    EXPECT_TRUE(config.caveLayouts.empty());
    EXPECT_TRUE(config.roomLayouts.empty());
    EXPECT_TRUE(config.themes.empty());
    EXPECT_TRUE(config.creatureThemes.empty());
    EXPECT_TRUE(config.treasureThemes.empty());
    EXPECT_TRUE(config.caveTileSets.empty());
    EXPECT_TRUE(config.roomTileSets.empty());
    ASSERT_TRUE(config.contentMgr);
    EXPECT_TRUE(config.contentMgr->GetRugs().empty());
}

void Fill(ConfigMgr& config) {
    auto rug = MakeDi<ContentTemplate>();
    rug->contentKind = "Rug";
    config.contentMgr->Add(rug);
    config.platformList.push_back(MakeDi<Platform>());
    config.caveLayouts.push_back(MakeDi<LayoutTemplate>(DiPos(1, 1, 0)));
    config.roomLayouts.push_back(MakeDi<LayoutTemplate>(DiPos(1, 1, 0)));
    config.themes.push_back(MakeDi<Theme>());
    config.creatureThemes.push_back(MakeDi<Theme>());
    config.treasureThemes.push_back(MakeDi<Theme>());
    config.caveTileSets.push_back(MakeDi<TileSet>());
    config.roomTileSets.push_back(MakeDi<TileSet>());
}

} // namespace

TEST(ConfigMgr, StartsEmptyWithACatalogue) {
    ExpectEmpty(ConfigMgr());
}

TEST(ConfigMgr, ResetEmptiesEveryListAndRenewsTheCatalogue) {
    ConfigMgr config;
    Fill(config);
    const DiPtr<ContentMgr> before = config.contentMgr;
    config.Reset();
    ExpectEmpty(config);
    EXPECT_NE(config.contentMgr, before);
}

TEST(ConfigMgr, WhatOthersHoldOutlivesAReset) {
    ConfigMgr config;
    Fill(config);
    config.themes.front()->SetName("Crypt");
    const DiPtr<Theme> held = config.themes.front();
    config.Reset();
    EXPECT_EQ(held->GetName(), "Crypt");
    EXPECT_FALSE(held->isShared());
}

} // namespace Tarnex::Test
