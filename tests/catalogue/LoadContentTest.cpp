// SPDX-License-Identifier: MIT
// Content as a configuration gives it.
#include <array>
#include <tests/catalogue/LoaderTest.h>

namespace Tarnex::Test {

namespace {

class LoadContentTest : public LoaderTest {
protected:
    // The only rug.
    const ContentTemplate& LoadRug(const std::string& attrs) {
        static const ContentTemplate none;
        Load("<Rug " + attrs + "/>");
        const ContentList& rugs = config.contentMgr->GetRugs();
        EXPECT_EQ(rugs.size(), 1U);
        return rugs.size() == 1 ? *rugs.front() : none;
    }
};

struct TagCase {
    const char* tag;
    const ContentList& (ContentMgr::*get)() const;
};

constexpr std::array<TagCase, 9> kTags = {{{"Armor", &ContentMgr::GetArmor},
                                           {"Clothing", &ContentMgr::GetClothes},
                                           {"Container", &ContentMgr::GetContainers},
                                           {"Creature", &ContentMgr::GetCreatures},
                                           {"Furniture", &ContentMgr::GetFurniture},
                                           {"Rug", &ContentMgr::GetRugs},
                                           {"Tapestry", &ContentMgr::GetTapestries},
                                           {"Treasure", &ContentMgr::GetGems},
                                           {"Weapon", &ContentMgr::GetWeapons}}};

} // namespace

TEST_F(LoadContentTest, EveryContentTagIsFiledAsItsKind) {
    for (const TagCase& content : kTags) {
        SCOPED_TRACE(content.tag);
        Load(std::string("<") + content.tag + " UniqueName='x' Type='Gem'/>");
        const ContentList& list = (*config.contentMgr.*content.get)();
        ASSERT_EQ(list.size(), 1U);
        EXPECT_EQ(list.front()->contentKind, content.tag);
        EXPECT_EQ(list.front()->uniqueName, "x");
    }
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadContentTest, TagsIgnoreLetterCaseAndAreKeptAsWritten) {
    Load("<wEAPON/>");
    ASSERT_EQ(config.contentMgr->GetWeapons().size(), 1U);
    EXPECT_EQ(config.contentMgr->GetWeapons().front()->contentKind, "wEAPON");
}

TEST_F(LoadContentTest, EveryAttributeIsTaken) {
    const ContentTemplate& rug =
        LoadRug("UniqueName='red' FName='Red Rug' ModelFile='f\\rug.nif' Type='Wool' Max='2' "
                "Level='3' Value='4' ZRotate='5' Weight='6.5' SizeX='7' SizeY='8' SizeZ='9' "
                "OffsetX='10' OffsetY='11' OffsetZ='12' Stack='Top'");
    EXPECT_EQ(rug.uniqueName, "red");
    EXPECT_EQ(rug.friendlyName, "Red Rug");
    EXPECT_EQ(rug.modelFile, "f\\rug.nif");
    EXPECT_EQ(rug.contentKind, "Rug");
    EXPECT_EQ(rug.subtype, "Wool");
    EXPECT_EQ(rug.maxCount, 2);
    EXPECT_EQ(rug.level, 3);
    EXPECT_EQ(rug.value, 4);
    EXPECT_EQ(rug.zRotate, 5);
    EXPECT_EQ(rug.weight, 6.5F);
    EXPECT_EQ(rug.size, Di3Point(7.0F, 8.0F, 9.0F));
    EXPECT_EQ(rug.offset, Di3Point(10.0F, 11.0F, 12.0F));
    EXPECT_EQ(rug.stacking, 2);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadContentTest, AttributesIgnoreLetterCase) {
    const ContentTemplate& rug =
        LoadRug("UNIQUENAME='red' fname='Red Rug' MODELfile='m' tYPE='Wool' MAX='2' level='3' "
                "VALUE='4' zROTATE='5' WEIGHT='6' sizex='7' SIZEY='8' sIZEz='9' offsetx='10' "
                "OFFSETY='11' oFFSETz='12' STACK='tOP'");
    EXPECT_EQ(rug.uniqueName, "red");
    EXPECT_EQ(rug.friendlyName, "Red Rug");
    EXPECT_EQ(rug.modelFile, "m");
    EXPECT_EQ(rug.subtype, "Wool");
    EXPECT_EQ(rug.maxCount, 2);
    EXPECT_EQ(rug.level, 3);
    EXPECT_EQ(rug.value, 4);
    EXPECT_EQ(rug.zRotate, 5);
    EXPECT_EQ(rug.weight, 6.0F);
    EXPECT_EQ(rug.size, Di3Point(7.0F, 8.0F, 9.0F));
    EXPECT_EQ(rug.offset, Di3Point(10.0F, 11.0F, 12.0F));
    EXPECT_EQ(rug.stacking, 2);
}

TEST_F(LoadContentTest, AbsentAttributesLeaveTheDefaults) {
    const ContentTemplate& rug = LoadRug("");
    EXPECT_EQ(rug.uniqueName, "");
    EXPECT_EQ(rug.friendlyName, "");
    EXPECT_EQ(rug.modelFile, "");
    EXPECT_EQ(rug.contentKind, "Rug");
    EXPECT_EQ(rug.subtype, "");
    EXPECT_EQ(rug.maxCount, 1);
    EXPECT_EQ(rug.level, 1);
    EXPECT_EQ(rug.value, 0);
    EXPECT_EQ(rug.zRotate, 0);
    EXPECT_EQ(rug.weight, 0.0F);
    EXPECT_EQ(rug.size, Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(rug.offset, Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(rug.stacking, 0);
}

TEST_F(LoadContentTest, MalformedNumbersReadAsFarAsTheyGo) {
    const ContentTemplate& rug =
        LoadRug("Max='many' Level='' Value='12gp' ZRotate='+7' Weight='1e1kg' SizeX='.5' "
                "SizeY='5.' SizeZ='-.25' OffsetX='1e' OffsetY='. 5' OffsetZ='- 5'");
    EXPECT_EQ(rug.maxCount, 0);
    EXPECT_EQ(rug.level, 0);
    EXPECT_EQ(rug.value, 12);
    EXPECT_EQ(rug.zRotate, 7);
    EXPECT_EQ(rug.weight, 10.0F);
    EXPECT_EQ(rug.size, Di3Point(0.5F, 5.0F, -0.25F));
    EXPECT_EQ(rug.offset, Di3Point(1.0F, 0.0F, 0.0F));
}

TEST_F(LoadContentTest, UniqueNamesOfContentAreNotLists) {
    EXPECT_EQ(LoadRug("UniqueName='red,blue'").uniqueName, "red,blue");
}

TEST_F(LoadContentTest, StackKnowsItsWords) {
    struct StackCase {
        const char* word;
        int code;
    };
    constexpr std::array<StackCase, 11> kStacks = {{{"No", 0},
                                                    {"Bottom", 1},
                                                    {"Top", 2},
                                                    {"Yes", 3},
                                                    {"bOTTOM", 1},
                                                    {"TOP", 2},
                                                    {"yes", 3},
                                                    {"YES", 3},
                                                    {"Maybe", 0},
                                                    {"3", 0},
                                                    {"", 0}}};
    for (const StackCase& stack : kStacks) {
        EXPECT_EQ(LoadRug(std::string("Stack='") + stack.word + "'").stacking, stack.code)
            << stack.word;
    }
}

TEST_F(LoadContentTest, TheLastStackWordCounts) {
    EXPECT_EQ(LoadRug("Stack='Yes' STACK='Never'").stacking, 0);
}

TEST_F(LoadContentTest, TreasureIsSortedBySubtype) {
    Load("<Treasure Type='Book'/><Treasure Type='GEM'/><Treasure Type='gold'/>"
         "<Treasure Type='Ingredient'/><Treasure Type='Misc'/><Treasure Type='Tool'/>");
    EXPECT_EQ(config.contentMgr->GetBooks().size(), 1U);
    EXPECT_EQ(config.contentMgr->GetGems().size(), 1U);
    EXPECT_EQ(config.contentMgr->GetGold().size(), 1U);
    EXPECT_EQ(config.contentMgr->GetIngredients().size(), 1U);
    EXPECT_EQ(config.contentMgr->GetMisc().size(), 1U);
    EXPECT_EQ(config.contentMgr->GetTools().size(), 1U);
}

TEST_F(LoadContentTest, AWeaponIsNotTreasureOfTypeWeapon) {
    Load("<Weapon UniqueName='sword'/><Treasure UniqueName='axe' Type='Weapon'/>");
    ASSERT_EQ(config.contentMgr->GetWeapons().size(), 1U);
    EXPECT_EQ(config.contentMgr->GetWeapons().front()->uniqueName, "sword");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadContentTest, ContentInsideContentIsContentOfItsOwn) {
    Load("<Container UniqueName='outer'><Rug UniqueName='inner'/></Container>");
    EXPECT_EQ(config.contentMgr->GetContainers().size(), 1U);
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadContentTest, ContentKeepsDocumentOrderAndDuplicates) {
    Load("<Rug UniqueName='b'/><Rug UniqueName='a'/><Rug UniqueName='b'/>");
    const ContentList& rugs = config.contentMgr->GetRugs();
    ASSERT_EQ(rugs.size(), 3U);
    EXPECT_EQ(rugs[0]->uniqueName, "b");
    EXPECT_EQ(rugs[1]->uniqueName, "a");
    EXPECT_EQ(rugs[2]->uniqueName, "b");
}

TEST_F(LoadContentTest, ContentAfterATileSetAndAPlatformIsContentAgain) {
    Load("<TileSet TsType='Room'><Rug>tile</Rug></TileSet><Platform><Rug/></Platform><Rug/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
}

} // namespace Tarnex::Test
