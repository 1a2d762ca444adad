// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ContentMgr.h>

#include <array>
#include <tests/support/LogTest.h>

namespace Tarnex::Test {

namespace {

struct ListCase {
    const char* word; // what GetList calls the list
    const char* kind;
    const char* subtype;
    const ContentList& (ContentMgr::*get)() const;
};

constexpr std::array<ListCase, 14> kLists = {{
    {"Container", "Container", "", &ContentMgr::GetContainers},
    {"Creature", "Creature", "", &ContentMgr::GetCreatures},
    {"Furniture", "Furniture", "", &ContentMgr::GetFurniture},
    {"Rug", "Rug", "", &ContentMgr::GetRugs},
    {"Tapestry", "Tapestry", "", &ContentMgr::GetTapestries},
    {"Armor", "Armor", "", &ContentMgr::GetArmor},
    {"Book", "Treasure", "Book", &ContentMgr::GetBooks},
    {"Clothing", "Clothing", "", &ContentMgr::GetClothes},
    {"Gem", "Treasure", "Gem", &ContentMgr::GetGems},
    {"Gold", "Treasure", "Gold", &ContentMgr::GetGold},
    {"Ingredient", "Treasure", "Ingredient", &ContentMgr::GetIngredients},
    {"Misc", "Treasure", "Misc", &ContentMgr::GetMisc},
    {"Tool", "Treasure", "Tool", &ContentMgr::GetTools},
    {"Weapon", "Weapon", "", &ContentMgr::GetWeapons},
}};

class ContentMgrTest : public LogTest {
protected:
    DiPtr<ContentTemplate> Add(const char* kind, const char* subtype = "", const char* name = "") {
        auto content = MakeDi<ContentTemplate>();
        content->contentKind = kind;
        content->subtype = subtype;
        content->uniqueName = name;
        mgr.Add(content);
        return content;
    }

    // How many templates all lists hold together.
    std::size_t Count() const {
        std::size_t count = 0;
        for (const ListCase& list : kLists) {
            count += (mgr.*list.get)().size();
        }
        return count;
    }

    ContentMgr mgr;
};

using Lines = std::vector<std::string>;

} // namespace

TEST_F(ContentMgrTest, StartsEmpty) {
    EXPECT_EQ(Count(), 0U);
}

TEST_F(ContentMgrTest, EveryKindHasItsList) {
    for (const ListCase& list : kLists) {
        SCOPED_TRACE(list.word);
        const std::size_t before = Count();
        const DiPtr<ContentTemplate> content = Add(list.kind, list.subtype);
        EXPECT_EQ((mgr.*list.get)(), ContentList({content}));
        EXPECT_EQ(Count(), before + 1);
    }
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(ContentMgrTest, EveryWordFindsItsList) {
    for (const ListCase& list : kLists) {
        EXPECT_EQ(&mgr.GetList(list.word), &(mgr.*list.get)()) << list.word;
    }
    EXPECT_EQ(&mgr.GetList("tApEsTrY"), &mgr.GetTapestries());
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(ContentMgrTest, KindAndSubtypeIgnoreLetterCase) {
    Add("TREASURE", "gold");
    Add("weapon");
    EXPECT_EQ(mgr.GetGold().size(), 1U);
    EXPECT_EQ(mgr.GetWeapons().size(), 1U);
}

TEST_F(ContentMgrTest, TreasureOfAnotherSubtypeIsDroppedSilently) {
    for (const char* subtype : {"Weapon", "Armor", "Clothing", "Container", "Books", ""}) {
        Add("Treasure", subtype);
    }
    EXPECT_EQ(Count(), 0U);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(ContentMgrTest, TheSubtypeOfOtherContentDoesNotSortIt) {
    Add("Weapon", "Gold");
    EXPECT_EQ(mgr.GetWeapons().size(), 1U);
    EXPECT_EQ(Count(), 1U);
}

TEST_F(ContentMgrTest, AnUnknownKindIsAnErrorAndDropped) {
    Add("Statue");
    Add("Gold");
    Add("");
    EXPECT_EQ(Count(), 0U);
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : Content : Unrecognized content type 'Statue'",
                     "Error : Content : Unrecognized content type 'Gold'",
                     "Error : Content : Unrecognized content type ''"}));
}

TEST_F(ContentMgrTest, AnUnknownWordGivesTheFurnitureListAndAnError) {
    EXPECT_EQ(&mgr.GetList("Clothes"), &mgr.GetFurniture());
    EXPECT_EQ(&mgr.GetList("Treasure"), &mgr.GetFurniture());
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : Internal : Unrecognized content type 'Clothes'.",
                     "Error : Internal : Unrecognized content type 'Treasure'."}));
}

TEST_F(ContentMgrTest, ListsKeepTheOrderOfAdditionAndDuplicates) {
    DiPtr<ContentTemplate> first = Add("Rug", "", "a");
    const DiPtr<ContentTemplate> second = Add("Rug", "", "b");
    mgr.Add(first);
    EXPECT_EQ(mgr.GetRugs(), ContentList({first, second, first}));
}

TEST_F(ContentMgrTest, FindsTheFirstTemplateOfAName) {
    Add("Rug", "", "Red");
    const DiPtr<ContentTemplate> blue = Add("Rug", "", "Blue");
    Add("Rug", "", "BLUE");
    EXPECT_EQ(ContentMgr::FindWithUniqueName("bLUE", mgr.GetRugs()), blue);
    EXPECT_EQ(ContentMgr::FindWithUniqueName("Green", mgr.GetRugs()), nullptr);
    EXPECT_EQ(ContentMgr::FindWithUniqueName("Blue", mgr.GetFurniture()), nullptr);
}

TEST_F(ContentMgrTest, AnItemIsACopyOfItsTemplate) {
    const DiPtr<ContentTemplate> rug = Add("Rug", "Wool", "Red");
    rug->maxCount = 7;
    const DiPtr<ContentItem> item = ContentMgr::CvtToItem(*rug);
    EXPECT_EQ(item->contentKind, "Rug");
    EXPECT_EQ(item->subtype, "Wool");
    EXPECT_EQ(item->uniqueName, "Red");
    EXPECT_EQ(item->maxCount, 7);
    item->zRotate = 90;
    item->uniqueName = "Blue";
    EXPECT_EQ(rug->zRotate, 0);
    EXPECT_EQ(rug->uniqueName, "Red");
}

} // namespace Tarnex::Test
