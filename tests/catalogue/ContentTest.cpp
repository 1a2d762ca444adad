// SPDX-License-Identifier: MIT
// Content templates and the items made from them.
#include <vaultry/catalogue/ContentItem.h>
#include <vaultry/catalogue/ContentTemplate.h>
#include <vaultry/catalogue/Vocabulary.h>

#include <gtest/gtest.h>

namespace Tarnex::Test {

namespace {

template <typename T>
T Chest() {
    T content;
    content.uniqueName = "chest_01";
    content.friendlyName = "Chest";
    content.modelFile = "o\\chest.nif";
    content.contentKind = "Container";
    content.subtype = "Wood";
    content.maxCount = 2;
    content.level = 3;
    content.value = 4;
    content.zRotate = 5;
    content.weight = 6.5F;
    content.size = Di3Point(7.0F, 8.0F, 9.0F);
    content.offset = Di3Point(10.0F, 11.0F, 12.0F);
    content.stacking = StackTop;
    return content;
}

void ExpectChest(const ContentBase& content) {
    EXPECT_EQ(content.uniqueName, "chest_01");
    EXPECT_EQ(content.friendlyName, "Chest");
    EXPECT_EQ(content.modelFile, "o\\chest.nif");
    EXPECT_EQ(content.contentKind, "Container");
    EXPECT_EQ(content.subtype, "Wood");
    EXPECT_EQ(content.maxCount, 2);
    EXPECT_EQ(content.level, 3);
    EXPECT_EQ(content.value, 4);
    EXPECT_EQ(content.zRotate, 5);
    EXPECT_EQ(content.weight, 6.5F);
    EXPECT_EQ(content.size, Di3Point(7.0F, 8.0F, 9.0F));
    EXPECT_EQ(content.offset, Di3Point(10.0F, 11.0F, 12.0F));
    EXPECT_EQ(content.stacking, 2);
}

template <typename T>
class ContentTest : public ::testing::Test {};

using Contents = ::testing::Types<ContentItem, ContentTemplate>;
TYPED_TEST_SUITE(ContentTest, Contents);

} // namespace

TYPED_TEST(ContentTest, StartsWithADefaultInEveryField) {
    const TypeParam content;
    EXPECT_EQ(content.uniqueName, "");
    EXPECT_EQ(content.friendlyName, "");
    EXPECT_EQ(content.modelFile, "");
    EXPECT_EQ(content.contentKind, "");
    EXPECT_EQ(content.subtype, "");
    EXPECT_EQ(content.maxCount, 1);
    EXPECT_EQ(content.level, 1);
    EXPECT_EQ(content.value, 0);
    EXPECT_EQ(content.zRotate, 0);
    EXPECT_EQ(content.weight, 0.0F);
    EXPECT_EQ(content.size, Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(content.offset, Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(content.stacking, 0);
}

TYPED_TEST(ContentTest, CanBePlaced) {
    EXPECT_TRUE(TypeParam().Instantiable());
}

TYPED_TEST(ContentTest, CopiesEveryField) {
    const TypeParam chest = Chest<TypeParam>();
    ExpectChest(TypeParam(chest));
    TypeParam assigned;
    assigned = chest;
    ExpectChest(assigned);
}

TYPED_TEST(ContentTest, TakesEveryFieldOfContentOfAnotherSort) {
    TypeParam content;
    content.CopyFrom(Chest<ContentItem>());
    ExpectChest(content);
    TypeParam other;
    other.CopyFrom(Chest<ContentTemplate>());
    ExpectChest(other);
}

TEST(StackingWords, AndTheirCodesAreThoseOfTheFormat) {
    EXPECT_EQ(static_cast<int>(StackNo), 0);
    EXPECT_EQ(static_cast<int>(StackBottom), 1);
    EXPECT_EQ(static_cast<int>(StackTop), 2);
    EXPECT_EQ(static_cast<int>(StackYes), 3);
    EXPECT_EQ(Stack_No, "No");
    EXPECT_EQ(Stack_Bottom, "Bottom");
    EXPECT_EQ(Stack_Top, "Top");
    EXPECT_EQ(Stack_Yes, "Yes");
}

TEST(ContentWords, AreThoseOfTheFormat) {
    EXPECT_EQ(Content_Armor, "Armor");
    EXPECT_EQ(Content_Clothing, "Clothing");
    EXPECT_EQ(Content_Container, "Container");
    EXPECT_EQ(Content_Creature, "Creature");
    EXPECT_EQ(Content_Furniture, "Furniture");
    EXPECT_EQ(Content_Rug, "Rug");
    EXPECT_EQ(Content_Tapestry, "Tapestry");
    EXPECT_EQ(Content_Treasure, "Treasure");
    EXPECT_EQ(Content_Weapon, "Weapon");
    EXPECT_EQ(Attrib_FriendlyName, "FName");
}

TEST(SubtypeWords, AreThoseOfTheFormat) {
    EXPECT_EQ(Treasure_Book, "Book");
    EXPECT_EQ(Treasure_Gem, "Gem");
    EXPECT_EQ(Treasure_Gold, "Gold");
    EXPECT_EQ(Treasure_Ingredient, "Ingredient");
    EXPECT_EQ(Treasure_Misc, "Misc");
    EXPECT_EQ(Treasure_Tool, "Tool");
    EXPECT_EQ(Treasure_Armor, "Armor");
    EXPECT_EQ(Treasure_Clothing, "Clothing");
    EXPECT_EQ(Treasure_Weapon, "Weapon");
    EXPECT_EQ(Creature_Bird, "Bird");
    EXPECT_EQ(Creature_Creature, "Creature");
    EXPECT_EQ(Creature_Daedra, "Daedra");
    EXPECT_EQ(Creature_Fish, "Fish");
    EXPECT_EQ(Creature_Humanoid, "Humanoid");
    EXPECT_EQ(Creature_Undead, "Undead");
}

} // namespace Tarnex::Test
