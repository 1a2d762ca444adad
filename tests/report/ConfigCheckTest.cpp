// SPDX-License-Identifier: MIT
#include "apps/report/ConfigCheck.h"

#include <vaultry/foundation/Logger.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace Tarnex::Report {

namespace {

class ConfigCheckTest : public ::testing::Test {
protected:
    ConfigCheckTest() {
        Logger::Close();
        Logger::ResetErrors();
        Logger::InitWithoutFile();
    }

    // What is printed of a document with these lines inside its root, which stands on line 1.
    static std::string Check(const std::string& inside) {
        const std::string text = "<OstrelData>\n" + inside + "</OstrelData>\n";
        std::ostringstream out;
        PrintCheck(CheckConfig("my.xml", RecordConfigText(text, "my.xml")), out);
        return out.str();
    }
};

TEST_F(ConfigCheckTest, AnEmptyConfigurationIsClean) {
    EXPECT_EQ(Check(""), "Nothing is wrong.\n");
}

TEST_F(ConfigCheckTest, AMisspeltElementIsToldWithTheNearestOne) {
    EXPECT_EQ(Check("<Tapestri/>\n"),
              "my.xml:2:12: error: XML Parser : Unrecognized tag in XML:  'Tapestri'\n"
              "    The element is ignored.\n"
              "    Nearest: Tapestry\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMisspeltAttributeIsToldWithTheNearestOne) {
    EXPECT_EQ(Check("<Rug UniqName=\"r\"/>\n"),
              "my.xml:2:20: warning: Rug has no attribute \"UniqName\"\n"
              "    It is ignored.\n"
              "    Nearest: UniqueName\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMisspeltKeywordIsTold) {
    EXPECT_EQ(Check("<Rug UniqueName=\"r\" Stack=\"Yess\"/>\n"),
              "my.xml:2:35: warning: Stack has no word \"Yess\"\n"
              "    It counts as No.\n"
              "    Nearest: Yes\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ATileSetForFixedLayoutsIsNoted) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>c</CornerNW><WallN>w</WallN>\n"
                    "<Center>f</Center></TileSet>\n"),
              "my.xml:2:35: note: tile set \"S\" lacks DoorwayN, DoorjambN, DoorN, HallNS, "
              "HallCornerNW, HallEndN, Hall4Way\n"
              "    The set serves fixed layouts; random levels cannot be built with it.\n"
              "0 errors, 0 warnings, 1 note.\n");
}

TEST_F(ConfigCheckTest, ATileSetWithSomeHallPiecesOnlyIsAWarning) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>c</CornerNW><WallN>w</WallN>\n"
                    "<Center>f</Center><DoorwayN>d</DoorwayN><DoorjambN>j</DoorjambN>\n"
                    "<DoorN>d</DoorN><HallNS>h</HallNS><HallEndN>e</HallEndN></TileSet>\n"),
              "my.xml:2:35: warning: tile set \"S\" lacks HallCornerNW, Hall4Way\n"
              "    Random levels get holes, or their rooms cannot be joined.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ABlankAfterACommaIsFoundInALayout) {
    const std::string printed = Check(
        "<TileSet TsName=\"S\" TsType=\"Room\"><WallN>w</WallN></TileSet>\n"
        "<Layout LayoutName=\"L\" Type=\"Room\"><Row><Col>WallN, WallE</Col></Row></Layout>\n");
    EXPECT_NE(printed.find("my.xml:3:46: error: no Room tile set has a tile \" WallE\"\n"
                           "    The cell stays without this piece; the blank belongs to the name.\n"
                           "    Nearest: WallE\n"),
              std::string::npos)
        << printed;
}

TEST_F(ConfigCheckTest, AThemeItemThatFindsNothingIsAnError) {
    EXPECT_EQ(
        Check("<Creature UniqueName=\"mudcrab\"/>\n"
              "<CreatureTheme Name=\"T\" Level=\"1\">\n"
              "<ThemeItem Type=\"Creature\" UniqueName=\"mudcrap,mudcrab\"/></CreatureTheme>\n"),
        "my.xml:4:58: error: no Creature has the unique name \"mudcrap\"\n"
        "    The item places nothing more when this name is drawn.\n"
        "    Nearest: mudcrab\n"
        "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AnItemTypeThatTheThemeIgnoresIsAnError) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Creature\"/></Theme>\n"),
              "my.xml:2:55: error: a Theme has no items of the type \"Creature\"\n"
              "    The item is skipped.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ACornerDoorwayOnTheRimCannotBeClosed) {
    EXPECT_EQ(Check("<Layout LayoutName=\"L\" Type=\"Room\">\n"
                    "<Row><Col>DoorwayNW_W</Col><Col>WallN</Col></Row></Layout>\n"),
              "my.xml:3:11: warning: the corner doorway \"DoorwayNW_W\" opens onto nothing\n"
              "    Random levels remove it and have nothing to close the corner.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ACreatureThatNoThemeWithALevelChoosesIsNoted) {
    EXPECT_EQ(Check("<Creature UniqueName=\"rat\"/>\n"
                    "<CreatureTheme Name=\"T\"><ThemeItem Type=\"Creature\"/></CreatureTheme>\n"),
              "my.xml:2:29: note: no creature theme with a Level of 1 or more chooses Creature "
              "\"rat\"\n"
              "    Random creature themes never place it.\n"
              "0 errors, 0 warnings, 1 note.\n");
}

TEST_F(ConfigCheckTest, AContainerWithoutCapacityIsAWarning) {
    EXPECT_EQ(Check("<Container UniqueName=\"c\"/>\n"),
              "my.xml:2:28: warning: Container \"c\" has no capacity\n"
              "    It takes only what weighs nothing.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, TreasureThatNoContainerCanCarryIsAWarning) {
    EXPECT_EQ(Check("<Container UniqueName=\"c\" Weight=\"5\"/>\n"
                    "<Weapon UniqueName=\"w\" Weight=\"6\"/>\n"),
              "my.xml:3:36: warning: Weapon \"w\" is heavier than any container can carry\n"
              "    It is never placed.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AnIdentifierOf32BytesIsTooLong) {
    EXPECT_EQ(Check("<Armor UniqueName=\"abcdefghijklmnopqrstuvwxyz012345\"/>\n"),
              "my.xml:2:55: error: Armor \"abcdefghijklmnopqrstuvwxyz012345\" has an identifier of "
              "more than 31 bytes\n"
              "    It is cut in containers, and the game does not find it.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, DuplicatesThatHideEachOtherAreToldAtTheSecond) {
    EXPECT_EQ(Check("<Rug UniqueName=\"r\"/>\n<Rug UniqueName=\"R\"/>\n"),
              "my.xml:3:22: warning: Rug \"R\" is given twice\n"
              "    Theme items that name it find the first one.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ATreasureOfNoKnownTypeIsAnError) {
    EXPECT_EQ(Check("<Treasure Type=\"Gems\" UniqueName=\"g\" Max=\"0\"/>\n"),
              "my.xml:2:47: warning: Treasure \"g\" has a Max of \"0\"\n"
              "    It counts as 1.\n"
              "my.xml:2:47: error: Treasure \"g\" has the unknown type \"Gems\"\n"
              "    It is dropped without a message.\n"
              "    Nearest: Gem\n"
              "1 error, 1 warning, 0 notes.\n");
}

} // namespace

} // namespace Tarnex::Report
