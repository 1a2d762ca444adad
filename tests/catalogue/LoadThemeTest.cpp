// SPDX-License-Identifier: MIT
// Themes and their items as a configuration gives them.
#include <array>
#include <tests/catalogue/LoaderTest.h>

namespace Tarnex::Test {

namespace {

using ThemeList = std::vector<DiPtr<Theme>> ConfigMgr::*;

struct KindCase {
    const char* tag;
    ThemeList list;
};

constexpr std::array<KindCase, 3> kKinds = {{{"Theme", &ConfigMgr::themes},
                                             {"CreatureTheme", &ConfigMgr::creatureThemes},
                                             {"TreasureTheme", &ConfigMgr::treasureThemes}}};

std::string Element(const std::string& tag, const std::string& attrs, const std::string& body) {
    return "<" + tag + " " + attrs + ">" + body + "</" + tag + ">";
}

class LoadThemeTest : public LoaderTest {
protected:
    // The only item of the only theme.
    const ThemeItem& LoadItem(const std::string& attrs) {
        static const ThemeItem none;
        Load("<Theme><ThemeItem " + attrs + "/></Theme>");
        const bool one = config.themes.size() == 1 && config.themes.front()->items.size() == 1;
        EXPECT_TRUE(one);
        return one ? *config.themes.front()->items.front() : none;
    }

    // The types of the items of the first theme of a list.
    std::string ItemTypes(ThemeList list) const {
        std::string types;
        if ((config.*list).empty()) {
            return "(no theme)";
        }
        for (const DiPtr<ThemeItem>& item : (config.*list).front()->items) {
            types += (types.empty() ? "" : " ") + item->type;
        }
        return types;
    }
};

} // namespace

TEST_F(LoadThemeTest, EachKindHasItsListInDocumentOrder) {
    for (const KindCase& kind : kKinds) {
        SCOPED_TRACE(kind.tag);
        Load(Element(kind.tag, "Name='A' Level='3'", "") + Element(kind.tag, "Name='B'", "") +
             Element(kind.tag, "Name='A' Level='-1'", ""));
        const auto& themes = config.*kind.list;
        ASSERT_EQ(themes.size(), 3U);
        EXPECT_EQ(
            config.themes.size() + config.creatureThemes.size() + config.treasureThemes.size(), 3U);
        EXPECT_EQ(themes[0]->GetName(), "A");
        EXPECT_EQ(themes[0]->level, 3);
        EXPECT_EQ(themes[1]->GetName(), "B");
        EXPECT_EQ(themes[1]->level, 0);
        EXPECT_EQ(themes[2]->GetName(), "A");
        EXPECT_EQ(themes[2]->level, -1);
    }
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadThemeTest, NamesIgnoreLetterCase) {
    Load("<tHEME NAME='a' LEVEL='1'/><CREATUREtheme name='b' lEVEL='2'/>"
         "<treasuretheme nAmE='c' level='x'/>");
    EXPECT_EQ(config.themes.at(0)->GetName(), "a");
    EXPECT_EQ(config.themes.at(0)->level, 1);
    EXPECT_EQ(config.creatureThemes.at(0)->GetName(), "b");
    EXPECT_EQ(config.creatureThemes.at(0)->level, 2);
    EXPECT_EQ(config.treasureThemes.at(0)->GetName(), "c");
    EXPECT_EQ(config.treasureThemes.at(0)->level, 0);
}

TEST_F(LoadThemeTest, ThemesWithoutAttributesHaveTheDefaults) {
    Load("<Theme/>");
    EXPECT_EQ(config.themes.at(0)->GetName(), "");
    EXPECT_EQ(config.themes.at(0)->level, 0);
    EXPECT_TRUE(config.themes.at(0)->items.empty());
}

TEST_F(LoadThemeTest, AnItemTakesEveryAttribute) {
    const ThemeItem& item = LoadItem("Type='Rug' Ratio='0.25' Chance='0.5' Min='2' Max='7' "
                                     "UniqueName='red'");
    EXPECT_EQ(item.type, "Rug");
    EXPECT_EQ(item.ratio, 0.25F);
    EXPECT_EQ(item.chance, 0.5F);
    EXPECT_EQ(item.minimum, 2);
    EXPECT_EQ(item.maximum, 7);
    EXPECT_EQ(item.uniqueNames, Names({"red"}));
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadThemeTest, ItemAttributesIgnoreLetterCase) {
    const ThemeItem& item = LoadItem("TYPE='Rug' rATIO='0.25' CHANCE='0.5' min='2' MAX='7' "
                                     "UNIQUEname='red'");
    EXPECT_EQ(item.type, "Rug");
    EXPECT_EQ(item.ratio, 0.25F);
    EXPECT_EQ(item.chance, 0.5F);
    EXPECT_EQ(item.minimum, 2);
    EXPECT_EQ(item.maximum, 7);
    EXPECT_EQ(item.uniqueNames, Names({"red"}));
}

TEST_F(LoadThemeTest, AnItemWithoutAttributesHasTheDefaults) {
    const ThemeItem& item = LoadItem("");
    EXPECT_EQ(item.type, "");
    EXPECT_EQ(item.ratio, 1.0F);
    EXPECT_EQ(item.chance, 1.0F);
    EXPECT_EQ(item.minimum, -1);
    EXPECT_EQ(item.maximum, -1);
    EXPECT_TRUE(item.uniqueNames.empty());
}

TEST_F(LoadThemeTest, MalformedNumbersReadAsZero) {
    const ThemeItem& item = LoadItem("Ratio='half' Chance='' Min='few' Max='-'");
    EXPECT_EQ(item.ratio, 0.0F);
    EXPECT_EQ(item.chance, 0.0F);
    EXPECT_EQ(item.minimum, 0);
    EXPECT_EQ(item.maximum, 0);
}

TEST_F(LoadThemeTest, UniqueNamesAreAList) {
    EXPECT_EQ(LoadItem("UniqueName='red,blue;green'").uniqueNames, Names({"red", "blue", "green"}));
    EXPECT_EQ(LoadItem("UniqueName=';;red,,'").uniqueNames, Names({"red"}));
    EXPECT_EQ(LoadItem("UniqueName='red, blue'").uniqueNames, Names({"red", " blue"}));
    EXPECT_TRUE(LoadItem("UniqueName=''").uniqueNames.empty());
}

// The parser turns a line break or tab that is written as such into a blank; a reference keeps it.
TEST_F(LoadThemeTest, OnlyReferencedLineBreaksSeparateUniqueNames) {
    EXPECT_EQ(LoadItem("UniqueName='a\nb\tc'").uniqueNames, Names({"a b c"}));
    EXPECT_EQ(LoadItem("UniqueName='a&#10;b&#9;c&#13;d'").uniqueNames, Names({"a", "b", "c", "d"}));
}

TEST_F(LoadThemeTest, UniqueNamesGivenTwiceAddUp) {
    EXPECT_EQ(LoadItem("UniqueName='a,b' UNIQUENAME='c'").uniqueNames, Names({"a", "b", "c"}));
}

TEST_F(LoadThemeTest, ItemsKeepDocumentOrderInEveryKind) {
    for (const KindCase& kind : kKinds) {
        SCOPED_TRACE(kind.tag);
        Load(
            Element(kind.tag,
                    "",
                    "<ThemeItem Type='Rug'/><themeITEM Type='Furniture'/><ThemeItem Type='Rug'/>"));
        EXPECT_EQ(ItemTypes(kind.list), "Rug Furniture Rug");
    }
}

TEST_F(LoadThemeTest, AnItemGoesToTheThemeBeforeAnyOther) {
    Load("<Theme><CreatureTheme><TreasureTheme><ThemeItem Type='in'/></TreasureTheme>"
         "</CreatureTheme></Theme>");
    EXPECT_EQ(ItemTypes(&ConfigMgr::themes), "in");
    EXPECT_EQ(ItemTypes(&ConfigMgr::creatureThemes), "");
    EXPECT_EQ(ItemTypes(&ConfigMgr::treasureThemes), "");

    Load("<TreasureTheme><CreatureTheme><Theme><ThemeItem Type='a'/></Theme>"
         "<ThemeItem Type='b'/></CreatureTheme><ThemeItem Type='c'/></TreasureTheme>");
    EXPECT_EQ(ItemTypes(&ConfigMgr::themes), "a");
    EXPECT_EQ(ItemTypes(&ConfigMgr::creatureThemes), "b");
    EXPECT_EQ(ItemTypes(&ConfigMgr::treasureThemes), "c");
}

TEST_F(LoadThemeTest, AnItemOfACreatureThemeInsideATreasureThemeGoesToTheCreatureTheme) {
    Load("<CreatureTheme><TreasureTheme><ThemeItem Type='in'/></TreasureTheme></CreatureTheme>");
    EXPECT_EQ(ItemTypes(&ConfigMgr::creatureThemes), "in");
    EXPECT_EQ(ItemTypes(&ConfigMgr::treasureThemes), "");
}

TEST_F(LoadThemeTest, AThemeInsideAThemeReplacesIt) {
    Load("<Theme Name='Outer'><ThemeItem Type='a'/><Theme Name='Inner'><ThemeItem Type='b'/>"
         "</Theme></Theme>");
    ASSERT_EQ(config.themes.size(), 1U);
    EXPECT_EQ(config.themes.front()->GetName(), "Inner");
    EXPECT_EQ(ItemTypes(&ConfigMgr::themes), "b");
}

TEST_F(LoadThemeTest, AnItemOutsideAnyThemeIsUnrecognized) {
    Load("<Theme/><ThemeItem Type='Rug'/>");
    EXPECT_TRUE(config.themes.at(0)->items.empty());
    EXPECT_EQ(ErrorLines(), Lines({"Error : XML Parser : Unrecognized tag in XML:  'ThemeItem'"}));
}

TEST_F(LoadThemeTest, AnItemMayStandDeeperInItsTheme) {
    Load("<Theme><Group><ThemeItem Type='Rug'/></Group></Theme>");
    EXPECT_EQ(ItemTypes(&ConfigMgr::themes), "Rug");
    EXPECT_EQ(ErrorLines(), Lines({"Error : XML Parser : Unrecognized tag in XML:  'Group'"}));
}

TEST_F(LoadThemeTest, ContentInsideAThemeIsFiledAsContent) {
    Load("<Theme><Rug UniqueName='r'/><ThemeItem Type='Rug'/></Theme>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_EQ(ItemTypes(&ConfigMgr::themes), "Rug");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadThemeTest, AnItemInsideATileSetIsATile) {
    Load("<Theme><TileSet TsType='Room'><ThemeItem>x</ThemeItem></TileSet></Theme>");
    EXPECT_EQ(ItemTypes(&ConfigMgr::themes), "");
    EXPECT_EQ(TileId("ThemeItem"), "x");
}

} // namespace Tarnex::Test
