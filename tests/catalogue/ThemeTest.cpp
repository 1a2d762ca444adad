// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/Theme.h>

#include <gtest/gtest.h>

namespace Tarnex::Test {

TEST(Theme, StartsWithoutNameLevelAndItems) {
    const Theme theme;
    EXPECT_EQ(theme.GetName(), "");
    EXPECT_EQ(theme.level, 0);
    EXPECT_TRUE(theme.items.empty());
}

TEST(Theme, KeepsItsName) {
    Theme theme;
    theme.SetName("Crypt");
    EXPECT_EQ(theme.GetName(), "Crypt");
}

TEST(ThemeItem, StartsWithNothingGiven) {
    const ThemeItem item;
    EXPECT_EQ(item.type, "");
    EXPECT_TRUE(item.uniqueNames.empty());
    EXPECT_EQ(item.ratio, 1.0F);
    EXPECT_EQ(item.chance, 1.0F);
    EXPECT_EQ(item.minimum, -1);
    EXPECT_EQ(item.maximum, -1);
}

} // namespace Tarnex::Test
