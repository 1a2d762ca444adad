// SPDX-License-Identifier: MIT
#include "tools/check/ConfigCheck.h"

#include "tests/support/Contains.h"

#include <vaultry/foundation/Logger.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <string>

namespace Tarnex::Report {

namespace {

// A tile set with all that random levels need.
constexpr const char* kWholeSet =
    "<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>a</CornerNW><WallN>"
    "b</WallN><Center>c</Center><DoorwayN>d</DoorwayN><DoorjambN>"
    "e</DoorjambN><DoorN>f</DoorN><HallNS>g</HallNS><HallCornerNW>"
    "h</HallCornerNW><HallEndN>i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n";

// The smallest room with a way in.
std::string Room(const std::string& type) {
    return "<Layout LayoutName=\"L\" Type=\"" + type +
           "\" Width=\"2\" Height=\"3\">"
           "<Row><Col>CornerNW</Col><Col>CornerNE</Col></Row>"
           "<Row><Col>WallW</Col><Col>DoorwayE</Col></Row>"
           "<Row><Col>CornerSW</Col><Col>CornerSE</Col></Row></Layout>\n";
}

constexpr std::array kAside = {"counts as 5",
                               "where nothing",
                               "no doorway leads",
                               "no Theme chooses",
                               "has no Value",
                               "\" has no items",
                               "has no SizeX and"};

class ConfigCheckTest : public ::testing::Test {
protected:
    ConfigCheckTest() {
        Logger::Close();
        Logger::ResetErrors();
        Logger::InitWithoutFile();
    }

    static ConfigCheck Judge(const std::string& inside) {
        return CheckConfig(
            "my.xml", RecordConfigText("<OstrelData>\n" + inside + "</OstrelData>\n", "my.xml"));
    }

    static std::string Printed(const ConfigCheck& check) {
        std::ostringstream out;
        PrintCheck(check, out);
        return out.str();
    }

    // What is printed of a document with these lines inside its root, which stands on line 1. They
    // are a part of a configuration, with single cells and things: what these lack as a whole is
    // left out.
    static std::string Check(const std::string& inside) {
        ConfigCheck check = Judge(inside);
        std::erase_if(check.findings, [](const ConfigFinding& finding) {
            const std::string& message = finding.message;
            if (message.starts_with("there is no ")) {
                return finding.place.line == 1;
            }
            return std::ranges::any_of(kAside, [&message](const char* part) {
                return Tarnex::Test::Contains(message, part);
            });
        });
        return Printed(check);
    }
};

TEST_F(ConfigCheckTest, NothingCanBeMadeOfAnEmptyConfiguration) {
    EXPECT_EQ(Printed(Judge("")),
              "my.xml:1:1: error: there is no tile set\n"
              "    Nothing can be generated.\n"
              "my.xml:1:1: error: there is no layout\n"
              "    Nothing can be generated.\n"
              "2 errors, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ATileSetAndALayoutAreEnough) {
    EXPECT_EQ(Printed(Judge(kWholeSet + Room("Room"))), "Nothing is wrong.\n");
}

TEST_F(ConfigCheckTest, WhatTheParserCallsNoErrorIsNone) {
    const std::string text =
        "<!DOCTYPE OstrelData [<!ATTLIST Rug Max CDATA '1' Max CDATA '2'>]>\n<OstrelData>\n" +
        (kWholeSet + Room("Room")) + "</OstrelData>\n";
    EXPECT_EQ(Printed(CheckConfig("my.xml", RecordConfigText(text, "my.xml"))),
              "Nothing is wrong.\n");
}

TEST_F(ConfigCheckTest, CavesAloneAreNoted) {
    std::string set = kWholeSet;
    set.replace(set.find("Room"), 4, "Cave");
    EXPECT_EQ(Printed(Judge(set + Room("Cave"))),
              "my.xml:1:1: note: there is no Room tile set\n"
              "    Nothing is generated unless --cave-tileset chooses one.\n"
              "my.xml:1:1: note: there is no Room layout\n"
              "    Nothing is generated unless --cave-template chooses one.\n"
              "0 errors, 0 warnings, 2 notes.\n");
}

TEST_F(ConfigCheckTest, AMisspeltElementIsToldWithTheNearestOne) {
    EXPECT_EQ(Check("<Tapestri/>\n"),
              "my.xml:2:1: error: XML Parser : Unrecognized tag in XML:  'Tapestri'\n"
              "    The element is ignored.\n"
              "    Nearest: Tapestry\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AnElementInTheWrongPlaceIsToldSo) {
    EXPECT_EQ(Check("<ThemeItem Type=\"Rug\"/>\n"),
              "my.xml:2:1: error: XML Parser : Unrecognized tag in XML:  'ThemeItem'\n"
              "    It is ignored: it stands outside the element that it belongs to.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMisspeltAttributeIsToldWithTheNearestOne) {
    EXPECT_EQ(Check("<Rug UniqueName=\"r\" Stak=\"No\"/>\n"),
              "my.xml:2:21: warning: Rug has no attribute \"Stak\"\n"
              "    It is ignored.\n"
              "    Nearest: Stack\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, RowsAndCellsHaveNoAttributes) {
    EXPECT_EQ(Check(std::string(kWholeSet) +
                    "<Layout LayoutName=\"L\" Type=\"Room\"><Row Index=\"0\">"
                    "<Col Width=\"1\">Center</Col></Row></Layout>\n"),
              "my.xml:3:41: warning: Row has no attribute \"Index\"\n"
              "    It is ignored.\n"
              "my.xml:3:56: warning: Col has no attribute \"Width\"\n"
              "    It is ignored.\n"
              "0 errors, 2 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, TheRootHasNoAttributesButThoseOfSchemas) {
    EXPECT_EQ(Check("<OstrelData xsi:noNamespaceSchemaLocation=\"x.xsd\" "
                    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" Lang=\"en\"/>\n"),
              "my.xml:2:105: warning: OstrelData has no attribute \"Lang\"\n"
              "    It is ignored.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AnAttributeGivenTwiceIsTold) {
    EXPECT_EQ(Check("<Rug UniqueName=\"r\" uniquename=\"s\"/>\n"),
              "my.xml:2:21: warning: Rug has the attribute \"uniquename\" twice\n"
              "    The last one counts; unique names are added to the earlier ones.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMisspeltStackingIsTold) {
    EXPECT_EQ(Check("<Rug UniqueName=\"r\" Stack=\"Yess\"/>\n"),
              "my.xml:2:21: warning: Stack has no word \"Yess\"\n"
              "    It counts as No.\n"
              "    Nearest: Yes\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMisspeltAreaIsTold) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallN Area=\"Half\">b</WallN><Center>"
                    "c</Center><DoorwayN>d</DoorwayN><DoorjambN>"
                    "e</DoorjambN><DoorN>f</DoorN><HallNS>g</HallNS>"
                    "<HallCornerNW>h</HallCornerNW><HallEndN>"
                    "i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"),
              "my.xml:2:64: warning: Area has no word \"Half\"\n"
              "    The tile is of full size.\n"
              "    Nearest: HalfSize\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMisspeltTypeOfACreatureIsTold) {
    EXPECT_EQ(Check("<Creature UniqueName=\"gull\" Type=\"Brid\"/>\n"
                    "<CreatureTheme Name=\"T\" Level=\"1\"><ThemeItem "
                    "Type=\"Creature\"/></CreatureTheme>\n"),
              "my.xml:2:29: warning: Type has no word \"Brid\"\n"
              "    It is placed like any creature that is no Bird and no Fish.\n"
              "    Nearest: Bird\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMisspeltTypeOfATileSetIsTold) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Rooms\"><CornerNW>"
                    "a</CornerNW><WallN>b</WallN><Center>c</Center>"
                    "<DoorwayN>d</DoorwayN><DoorjambN>e</DoorjambN>"
                    "<DoorN>f</DoorN><HallNS>g</HallNS><HallCornerNW>"
                    "h</HallCornerNW><HallEndN>i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"),
              "my.xml:2:21: error: XML Parser : Unrecognized TileSet "
              "Type 'Rooms' in TileSet 'S'.\n"
              "    The tile set is dropped. Write TsType=\"Room\" or TsType=\"Cave\".\n"
              "    Nearest: Room\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMisspeltTypeOfALayoutIsTold) {
    EXPECT_EQ(Check(std::string(kWholeSet) + "<Layout LayoutName=\"L\" Type=\"Roon\"><Row><Col>"
                                             "Center</Col></Row></Layout>\n"),
              "my.xml:3:24: error: XML Parser : Unrecognized Layout "
              "Type 'Roon' in Layout 'L'.\n"
              "    The layout is dropped. Write Type=\"Room\" or Type=\"Cave\".\n"
              "    Nearest: Room\n"
              "1 error, 0 warnings, 0 notes.\n");
}

// What is wrong is told by what it is, whatever words the document names things with.
TEST_F(ConfigCheckTest, NamesThatReadLikeMessagesChangeNoFinding) {
    for (const std::string name :
         {"Plain2", "Unusual tile set size", "Unrecognized tag", "a'b' Type '"}) {
        EXPECT_EQ(Check(std::string(kWholeSet) + "<Layout LayoutName=\"" + name +
                        "\"\n Type=\"Romo\"><Row><Col>Center</Col></Row></Layout>\n"),
                  "my.xml:4:2: error: XML Parser : Unrecognized Layout Type 'Romo' in Layout '" +
                      name +
                      "'.\n"
                      "    The layout is dropped. Write Type=\"Room\" or Type=\"Cave\".\n"
                      "    Nearest: Room\n"
                      "1 error, 0 warnings, 0 notes.\n");
    }
}

TEST_F(ConfigCheckTest, AnApostropheBelongsToTheWord) {
    EXPECT_TRUE(Tarnex::Test::Contains(Check("<TileSet TsName=\"S\" TsType=\"Roo'm\"></TileSet>\n"),
                                       "    The tile set is dropped. Write TsType=\"Room\" or "
                                       "TsType=\"Cave\".\n    Nearest: Room\n"));
}

TEST_F(ConfigCheckTest, AMisspeltTypeOfAnItemIsTold) {
    EXPECT_EQ(Check("<Rug UniqueName=\"r\"/>\n"
                    "<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rag\"/></Theme>\n"),
              "my.xml:3:38: error: a Theme has no items of the type \"Rag\"\n"
              "    The item is skipped.\n"
              "    Nearest: Rug\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ACommaForThePointIsTold) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\" "
                    "Chance=\"0,5\"/></Theme>\n"
                    "<Rug UniqueName=\"r\"/>\n"),
              "my.xml:2:49: warning: Chance \"0,5\" is no number\n"
              "    It is read as 0.\n"
              "    Nearest: 0.5\n"
              "my.xml:2:49: warning: the item has no Chance and no Min\n"
              "    It places nothing.\n"
              "0 errors, 2 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, LettersBehindANumberAreTold) {
    EXPECT_EQ(Check("<Rug UniqueName=\"r\" ZRotate=\"12abc\"/>\n"),
              "my.xml:2:21: warning: ZRotate \"12abc\" is no whole number\n"
              "    It is read as 12.\n"
              "    Nearest: 12\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AnEmptyNumberIsTold) {
    EXPECT_EQ(Check("<Rug UniqueName=\"r\" ZRotate=\"\"/>\n"),
              "my.xml:2:21: warning: ZRotate \"\" is no whole number\n"
              "    It is read as 0.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AFractionIsNoWholeNumber) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\" "
                    "Min=\"1.5\"/></Theme>\n"
                    "<Rug UniqueName=\"r\"/>\n"),
              "my.xml:2:49: warning: Min \"1.5\" is no whole number\n"
              "    It is read as 1.\n"
              "    Nearest: 1\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, NotANumberIsNoNumber) {
    EXPECT_EQ(Check("<Rug UniqueName=\"r\" OffsetX=\"nan\"/>\n"),
              "my.xml:2:21: warning: OffsetX \"nan\" is no number\n"
              "    It is read as 0.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ANumberThatNoneCanHoldIsTold) {
    EXPECT_EQ(Check("<Rug UniqueName=\"r\" OffsetX=\"1e999\" ZRotate=\"99999999999\"/>\n"),
              "my.xml:2:21: warning: OffsetX \"1e999\" is too large\n"
              "    It is read as infinity.\n"
              "my.xml:2:37: warning: ZRotate \"99999999999\" is too large\n"
              "    It is read as 2147483647.\n"
              "0 errors, 2 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, NumbersWithSignsAndExponentsAreFine) {
    EXPECT_EQ(Check("<Rug UniqueName=\"r\" OffsetX=\"-1.5e1\" "
                    "OffsetY=\"+.5\" OffsetZ=\" 7. \" ZRotate=\" -90 \"/>\n"),
              "Nothing is wrong.\n");
}

class ConfigBoundTest : public ConfigCheckTest,
                        public ::testing::WithParamInterface<const char*> {};

// What is said of other things, as that a theme places nothing, is not asked here.
TEST_P(ConfigBoundTest, ANumberEqualToItsBoundMakesSense) {
    const std::string printed = Check(GetParam() + std::string("\n"));
    EXPECT_EQ(printed.find("is less than"), std::string::npos) << printed;
    EXPECT_EQ(printed.find("lies outside"), std::string::npos) << printed;
}

INSTANTIATE_TEST_SUITE_P(
    Numbers,
    ConfigBoundTest,
    ::testing::Values(
        "<TileSet TsName='S' TsType='Room' TsSize='1' WallThickness='0'/>",
        "<TileSet TsName='S' TsType='Room'><WallN Scale='0.5'>a</WallN></TileSet>",
        "<TileSet TsName='S' TsType='Room'><WallN Scale='2'>a</WallN></TileSet>",
        "<Platform Name='P'><Floor SizeX='0' SizeY='0' SizeZ='0'>f</Floor></Platform>",
        "<Theme Name='T' Level='0'><ThemeItem Type='Rug' Min='-1' Ratio='0'/></Theme>",
        "<Theme Name='T' Level='1'><ThemeItem Type='Rug' Chance='0'/></Theme>",
        "<Theme Name='T' Level='1'><ThemeItem Type='Rug' Chance='1'/></Theme>",
        "<Treasure UniqueName='t' Type='Gem' Max='1' Level='0' Value='0'/>",
        "<Container UniqueName='c' Weight='0' SizeX='0' SizeY='0' SizeZ='0'/>"));

TEST_F(ConfigCheckTest, AMinAboveTheMaxIsTold) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\" "
                    "Min=\"5\" Max=\"3\"/></Theme>\n"
                    "<Rug UniqueName=\"r\"/>\n"),
              "my.xml:2:49: warning: Min 5 is greater than Max 3\n"
              "    No more than Max are placed.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ANegativeMinIsTold) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\" "
                    "Min=\"-2\"/></Theme>\n"
                    "<Rug UniqueName=\"r\"/>\n"),
              "my.xml:2:49: warning: Min \"-2\" is less than -1\n"
              "    It counts as 0.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMaxOfNothingIsTold) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\" "
                    "Max=\"0\"/></Theme>\n"
                    "<Rug UniqueName=\"r\"/>\n"),
              "my.xml:2:49: warning: Max is 0\n"
              "    The item places nothing.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, MinusOneMeansNotGiven) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\" "
                    "Min=\"-1\" Max=\"-1\"/></Theme>\n"
                    "<Rug UniqueName=\"r\"/>\n"),
              "Nothing is wrong.\n");
}

TEST_F(ConfigCheckTest, AMinBeyondTheLimitIsTold) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\" "
                    "Min=\"2000000000\"/></Theme>\n"
                    "<Rug UniqueName=\"r\"/>\n"),
              "my.xml:2:49: warning: Min is greater than 100000\n"
              "    The item gets no more turns than these in a cell.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMinOfTheLimitIsFine) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\" "
                    "Min=\"100000\" Max=\"100000\"/></Theme>\n"
                    "<Rug UniqueName=\"r\"/>\n"),
              "Nothing is wrong.\n");
}

TEST_F(ConfigCheckTest, AChanceInHundredthsIsTold) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\" "
                    "Chance=\"25\"/></Theme>\n"
                    "<Rug UniqueName=\"r\"/>\n"),
              "my.xml:2:49: warning: Chance \"25\" lies outside 0 to 1\n"
              "    Above 1 it counts as 1, below 0 as 0.\n"
              "    Nearest: 0.25\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ANegativeChanceIsTold) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\" "
                    "Chance=\"-0.5\" Min=\"1\"/></Theme>\n"
                    "<Rug UniqueName=\"r\"/>\n"),
              "my.xml:2:49: warning: Chance \"-0.5\" lies outside 0 to 1\n"
              "    Above 1 it counts as 1, below 0 as 0.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AnItemWithoutChanceAndMinIsTold) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\" "
                    "Chance=\"0\"/></Theme>\n"
                    "<Rug UniqueName=\"r\"/>\n"),
              "my.xml:2:49: warning: the item has no Chance and no Min\n"
              "    It places nothing.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ANegativeRatioIsTold) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\" "
                    "Ratio=\"-1\"/></Theme>\n"
                    "<Rug UniqueName=\"r\"/>\n"),
              "my.xml:2:49: warning: Ratio \"-1\" is less than 0\n"
              "    Without a Max the item places nothing.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMaxOfContentBelowOneIsTold) {
    EXPECT_EQ(Check("<Armor UniqueName=\"a\" Max=\"0\"/>\n"),
              "my.xml:2:23: warning: Max \"0\" is less than 1\n"
              "    It counts as 1.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ANegativeValueIsTold) {
    EXPECT_EQ(Check("<Armor UniqueName=\"a\" Value=\"-5\"/>\n"),
              "my.xml:2:23: warning: Value \"-5\" is less than 0\n"
              "    It counts as worthless.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMaxThatTheValueForbidsIsNoted) {
    EXPECT_EQ(Check("<Treasure Type=\"Gem\" UniqueName=\"g\" Max=\"6\" Value=\"834\"/>\n"),
              "my.xml:2:37: note: Treasure \"g\" is too dear for a Max of 6\n"
              "    Stacks are limited by their total value; it never "
              "lies in stacks of more than 5.\n"
              "0 errors, 0 warnings, 1 note.\n");
}

TEST_F(ConfigCheckTest, AMaxThatTheValueAllowsIsFine) {
    EXPECT_EQ(Check("<Treasure Type=\"Gem\" UniqueName=\"g\" Max=\"6\" Value=\"833\"/>\n"),
              "Nothing is wrong.\n");
}

TEST_F(ConfigCheckTest, AMaxOfFiveMayBeOfAnyValue) {
    EXPECT_EQ(Check("<Treasure Type=\"Gem\" UniqueName=\"g\" Max=\"5\" Value=\"30000\"/>\n"),
              "Nothing is wrong.\n");
}

TEST_F(ConfigCheckTest, AMaxOfWhatHasNoStacksIsNoted) {
    EXPECT_EQ(Check("<Rug UniqueName=\"r\" Max=\"3\"/>\n"),
              "my.xml:2:21: note: Max has no use for Rug \"r\"\n"
              "    Only what lies in containers has stacks.\n"
              "0 errors, 0 warnings, 1 note.\n");
}

TEST_F(ConfigCheckTest, NegativeSizesAndWeightsAreTold) {
    EXPECT_EQ(Check("<Armor UniqueName=\"a\" Weight=\"-1\" SizeX=\"-2\"/>\n"),
              "my.xml:2:23: warning: Weight \"-1\" is less than 0\n"
              "    It makes room in containers instead of taking it.\n"
              "my.xml:2:35: warning: SizeX \"-2\" is less than 0\n"
              "    It is placed as if it reached the other way.\n"
              "0 errors, 2 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AScaleThatTheGameDoesNotTakeIsTold) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallN>b</WallN><Center Scale=\"3\">"
                    "c</Center><DoorwayN>d</DoorwayN><DoorjambN>"
                    "e</DoorjambN><DoorN>f</DoorN><HallNS>g</HallNS>"
                    "<HallCornerNW>h</HallCornerNW><HallEndN>"
                    "i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"),
              "my.xml:2:81: warning: Scale \"3\" lies outside 0.5 to 2\n"
              "    The game shows it at the nearer of 0.5 and 2.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ATileSizeOfNothingIsTold) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsSize=\"0\" TsType=\"Room\">"
                    "<CornerNW>a</CornerNW><WallN>b</WallN><Center>"
                    "c</Center><DoorwayN>d</DoorwayN><DoorjambN>"
                    "e</DoorjambN><DoorN>f</DoorN><HallNS>g</HallNS>"
                    "<HallCornerNW>h</HallCornerNW><HallEndN>"
                    "i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"),
              "my.xml:2:21: warning: XML Parser : Unusual tile set size (0) for tile set 'S'.\n"
              "    The size is used as it is. Give the edge of a cell in units, mostly 256.\n"
              "my.xml:2:21: warning: TsSize \"0\" is less than 1\n"
              "    The cells of a level lie one upon the other, or mirrored.\n"
              "0 errors, 2 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ALayoutWithoutCellsIsTold) {
    EXPECT_EQ(
        Check(std::string(kWholeSet) + "<Layout LayoutName=\"L\" Type=\"Room\" Width=\"0\"/>\n"),
        "my.xml:3:36: warning: Layout \"L\" has a Width of 0\n"
        "    The layout has no cells.\n"
        "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ALayoutOfNegativeSizeIsTold) {
    EXPECT_EQ(
        Check(std::string(kWholeSet) + "<Layout LayoutName=\"L\" Type=\"Room\" Height=\"-1\"/>\n"),
        "my.xml:3:1: error: XML Parser : Layout size too large "
        "(H=-1, W=5) for Layout set 'L'.  Max = 1024.\n"
        "    The layout is refused.\n"
        "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, CellsBeyondTheSizeOfALayoutAreTold) {
    EXPECT_EQ(Check(std::string(kWholeSet) +
                    "<Layout LayoutName=\"L\" Type=\"Room\" Width=\"1\" Height=\"1\">\n"
                    "<Row><Col>Center</Col>\n"
                    "  <Col>Center</Col></Row></Layout>\n"),
              "my.xml:3:36: error: Layout \"L\" has a Width of 1, but 2 columns\n"
              "    What is drawn beyond it is dropped.\n"
              "    Nearest: Width=\"2\"\n"
              "my.xml:5:3: error: XML Parser : Too many rows/cols in "
              "Layout 'L' at Row 1 Col 2.\n"
              "    The cell is dropped.\n"
              "2 errors, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ATileGivenTwiceIsTold) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallN>b</WallN><Center>c</Center>"
                    "<WallE>w</WallE><DoorwayN>d</DoorwayN><DoorjambN>"
                    "e</DoorjambN><DoorN>f</DoorN><HallNS>g</HallNS>"
                    "<HallCornerNW>h</HallCornerNW><HallEndN>"
                    "i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"),
              "my.xml:2:91: warning: TileSet : Duplicate tile 'WallE' "
              "encountered in TileSet 'S.'\n"
              "    The later one is used, and nothing is derived from it. Remove it unless it is "
              "meant to differ.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ATileSetForFixedLayoutsIsNoted) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "c</CornerNW><WallN>w</WallN><Center>f</Center></TileSet>\n"),
              "my.xml:2:1: note: tile set \"S\" lacks DoorwayN, "
              "DoorjambN, DoorN, HallNS, HallCornerNW, HallEndN, Hall4Way\n"
              "    The set serves fixed layouts; random levels cannot be built with it.\n"
              "0 errors, 0 warnings, 1 note.\n");
}

TEST_F(ConfigCheckTest, ATileSetWithSomeHallPiecesOnlyIsAWarning) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "c</CornerNW><WallN>w</WallN><Center>f</Center>"
                    "<DoorwayN>d</DoorwayN><DoorjambN>j</DoorjambN>"
                    "<DoorN>d</DoorN><HallNS>h</HallNS><HallEndN>e</HallEndN></TileSet>\n"),
              "my.xml:2:1: warning: tile set \"S\" lacks HallCornerNW, Hall4Way\n"
              "    Random levels get holes, or their rooms cannot be joined.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, PiecesGivenOneByOneMustBeComplete) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallS>s</WallS><WallE>e</WallE>"
                    "<Center>c</Center><DoorwayN>d</DoorwayN>"
                    "<DoorjambN>e</DoorjambN><DoorN>f</DoorN><HallNS>"
                    "g</HallNS><HallCornerNW>h</HallCornerNW><HallEndN>"
                    "i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"),
              "my.xml:2:1: warning: tile set \"S\" lacks WallN\n"
              "    Random levels get holes, or their rooms cannot be joined.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMisspeltTileIsTold) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallN>b</WallN><Center>c</Center>"
                    "<StarsUpN>s</StarsUpN><DoorwayN>d</DoorwayN>"
                    "<DoorjambN>e</DoorjambN><DoorN>f</DoorN><HallNS>"
                    "g</HallNS><HallCornerNW>h</HallCornerNW><HallEndN>"
                    "i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"),
              "my.xml:2:91: warning: \"StarsUpN\" is no kind of tile, "
              "and no layout calls for it\n"
              "    It is never placed.\n"
              "    Nearest: StairsUpN\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ATileOfItsOwnKindThatALayoutCallsForIsFine) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallN>b</WallN><Center>c</Center>"
                    "<Altar>s</Altar><DoorwayN>d</DoorwayN><DoorjambN>"
                    "e</DoorjambN><DoorN>f</DoorN><HallNS>g</HallNS>"
                    "<HallCornerNW>h</HallCornerNW><HallEndN>"
                    "i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"
                    "<Layout LayoutName=\"L\" Type=\"Room\"><Row><Col>"
                    "Altar</Col></Row></Layout>\n"),
              "Nothing is wrong.\n");
}

TEST_F(ConfigCheckTest, ARequiredTileThatTheSetLacksIsTold) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallN>b</WallN><Center "
                    "Requires=\"Altar\">c</Center><DoorwayN>d</DoorwayN>"
                    "<DoorjambN>e</DoorjambN><DoorN>f</DoorN><HallNS>"
                    "g</HallNS><HallCornerNW>h</HallCornerNW><HallEndN>"
                    "i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"),
              "my.xml:2:81: error: the tile set has no tile \"Altar\" that Center requires\n"
              "    The companion is left out without a message.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ATileWithoutIdentifierIsTold) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallN>b</WallN><Center/><DoorwayN>"
                    "d</DoorwayN><DoorjambN>e</DoorjambN><DoorN>"
                    "f</DoorN><HallNS>g</HallNS><HallCornerNW>"
                    "h</HallCornerNW><HallEndN>i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"),
              "my.xml:2:73: error: Center has no identifier\n"
              "    What is placed refers to no object.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, LineBreaksAroundAnIdentifierAreTold) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallN>b</WallN><Center>\n"
                    "  floor_01\n"
                    "</Center><DoorwayN>d</DoorwayN><DoorjambN>"
                    "e</DoorjambN><DoorN>f</DoorN><HallNS>g</HallNS>"
                    "<HallCornerNW>h</HallCornerNW><HallEndN>"
                    "i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"),
              "my.xml:2:73: error: Center has blanks or line breaks "
              "around its identifier \"floor_01\"\n"
              "    They belong to the identifier, and the game does not find it.\n"
              "    Nearest: floor_01\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AnIdentifierThatACommentEndsIsTold) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallN>b</WallN><Center>floor<!-- of "
                    "wood -->_01</Center><DoorwayN>d</DoorwayN>"
                    "<DoorjambN>e</DoorjambN><DoorN>f</DoorN><HallNS>"
                    "g</HallNS><HallCornerNW>h</HallCornerNW><HallEndN>"
                    "i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"),
              "my.xml:2:73: error: the identifier of Center is read up to \"floor\" only\n"
              "    A comment, an entity or another element ends it, "
              "and the game does not find it.\n"
              "    Nearest: floor_01\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ALongIdentifierOfATileIsTold) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallN>b</WallN><Center>"
                    "abcdefghijklmnopqrstuvwxyz012345</Center>"
                    "<DoorwayN>d</DoorwayN><DoorjambN>e</DoorjambN>"
                    "<DoorN>f</DoorN><HallNS>g</HallNS><HallCornerNW>"
                    "h</HallCornerNW><HallEndN>i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"),
              "my.xml:2:73: error: Center "
              "\"abcdefghijklmnopqrstuvwxyz012345\" has an identifier of "
              "32 bytes, the game takes 31\n"
              "    The game does not find it. Shorten it.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ALongIdentifierOfAPlatformPieceIsTold) {
    EXPECT_EQ(Check("<Platform Name=\"P\"><Floor "
                    "UniqueName=\"abcdefghijklmnopqrstuvwxyz012345\" "
                    "SizeX=\"128\" SizeY=\"128\"/></Platform>\n"),
              "my.xml:2:27: error: Floor "
              "\"abcdefghijklmnopqrstuvwxyz012345\" has an identifier of "
              "32 bytes, the game takes 31\n"
              "    The game does not find it. Shorten it.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ALongIdentifierOfACreatureIsTold) {
    EXPECT_EQ(Check("<Creature UniqueName=\"abcdefghijklmnopqrstuvwxyz012345\"/>\n"
                    "<CreatureTheme Name=\"T\" Level=\"1\"><ThemeItem "
                    "Type=\"Creature\"/></CreatureTheme>\n"),
              "my.xml:2:11: error: Creature "
              "\"abcdefghijklmnopqrstuvwxyz012345\" has an identifier of "
              "32 bytes, the game takes 31\n"
              "    The game does not find it. Shorten it.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ALongIdentifierOfFurnitureIsTold) {
    EXPECT_EQ(Check("<Furniture UniqueName=\"abcdefghijklmnopqrstuvwxyz012345\"/>\n"),
              "my.xml:2:12: error: Furniture "
              "\"abcdefghijklmnopqrstuvwxyz012345\" has an identifier of "
              "32 bytes, the game takes 31\n"
              "    The game does not find it. Shorten it.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ALongIdentifierInAContainerIsTold) {
    EXPECT_EQ(Check("<Armor UniqueName=\"abcdefghijklmnopqrstuvwxyz012345\"/>\n"),
              "my.xml:2:8: error: Armor "
              "\"abcdefghijklmnopqrstuvwxyz012345\" has an identifier of "
              "32 bytes, the game takes 31\n"
              "    It is cut in containers, and the game does not find it. Shorten it.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AnIdentifierOf31BytesIsFine) {
    EXPECT_EQ(Check("<Armor UniqueName=\"abcdefghijklmnopqrstuvwxyz01234\"/>\n"),
              "Nothing is wrong.\n");
}

TEST_F(ConfigCheckTest, BytesCountForAnIdentifier) {
    EXPECT_EQ(Check("<Armor UniqueName=\"abcdefghijklmnopqrstuvwxyz0123\xC3\xA4\"/>\n"),
              "Nothing is wrong.\n");
}

TEST_F(ConfigCheckTest, LongTextsOfAContainerAreTold) {
    EXPECT_EQ(Check("<Container UniqueName=\"c\" "
                    "FName=\"abcdefghijklmnopqrstuvwxyz012345\" "
                    "ModelFile=\"abcdefghijklmnopqrstuvwxyz012345\" Weight=\"5\"/>\n"),
              "my.xml:2:27: warning: FName "
              "\"abcdefghijklmnopqrstuvwxyz012345\" is a text of 32 bytes, the game takes 31\n"
              "    The game's editor cuts it.\n"
              "my.xml:2:68: warning: ModelFile "
              "\"abcdefghijklmnopqrstuvwxyz012345\" is a text of 32 bytes, the game takes 31\n"
              "    The game's editor cuts it.\n"
              "0 errors, 2 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ContentWithoutIdentifierIsTold) {
    EXPECT_EQ(Check("<Rug/>\n"),
              "my.xml:2:1: error: Rug has no identifier\n"
              "    What is placed refers to no object.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AContainerWithoutModelIsTold) {
    EXPECT_EQ(Check("<Container UniqueName=\"c\" Weight=\"5\"/>\n"),
              "my.xml:2:1: warning: Container \"c\" has no ModelFile\n"
              "    It cannot be seen. Give the path of its model.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AContainerWithoutCapacityIsTold) {
    EXPECT_EQ(Check("<Container UniqueName=\"c\" ModelFile=\"m.nif\"/>\n"),
              "my.xml:2:1: warning: Container \"c\" has no capacity\n"
              "    It takes only what weighs nothing. Give its capacity as Weight.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, TreasureThatNoContainerCanCarryIsTold) {
    EXPECT_EQ(Check("<Container UniqueName=\"c\" ModelFile=\"m.nif\" Weight=\"5\"/>\n"
                    "<Container UniqueName=\"unused\" ModelFile=\"m.nif\" Weight=\"50\"/>\n"
                    "<Theme Name=\"T\" Level=\"1\"><ThemeItem "
                    "Type=\"Container\" UniqueName=\"c\"/></Theme>\n"
                    "<Weapon UniqueName=\"w\" Weight=\"6\"/>\n"
                    "<Weapon UniqueName=\"v\" Weight=\"5\"/>\n"),
              "my.xml:5:24: warning: Weapon \"w\" is heavier than any container can carry\n"
              "    It is never placed.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, TreasureWithoutContainersIsTold) {
    EXPECT_EQ(Check("<Weapon UniqueName=\"w\" Weight=\"6\"/>\n"
                    "<TreasureTheme Name=\"T\" Level=\"1\"><ThemeItem "
                    "Type=\"Weapon\"/></TreasureTheme>\n"),
              "my.xml:3:1: warning: there is no container that a Theme "
              "places for TreasureTheme \"T\"\n"
              "    Treasure lies in containers only: none is placed.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ATreasureOfNoKnownTypeIsTold) {
    EXPECT_EQ(Check("<Treasure Type=\"Gems\" UniqueName=\"g\"/>\n"),
              "my.xml:2:11: error: Treasure \"g\" has the unknown type \"Gems\"\n"
              "    It is dropped without a message. Write one of the types of treasure.\n"
              "    Nearest: Gem\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ATileSetOfTheSameNameIsTold) {
    EXPECT_EQ(Check(std::string(kWholeSet) + kWholeSet),
              "my.xml:3:10: warning: TileSet \"S\" is given twice, first on line 2\n"
              "    By name the first one is found; this one is used only by chance. Give it "
              "another name.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, NamesOfTileSetsDifferByTheirLetters) {
    EXPECT_EQ(Check(std::string(kWholeSet) +
                    "<TileSet TsName=\"s\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallN>b</WallN><Center>c</Center>"
                    "<DoorwayN>d</DoorwayN><DoorjambN>e</DoorjambN>"
                    "<DoorN>f</DoorN><HallNS>g</HallNS><HallCornerNW>"
                    "h</HallCornerNW><HallEndN>i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"),
              "Nothing is wrong.\n");
}

TEST_F(ConfigCheckTest, ALayoutOfTheSameNameIsTold) {
    EXPECT_EQ(Check(std::string(kWholeSet) + "<Layout LayoutName=\"L\" Type=\"Room\"/>\n"
                                             "<Layout LayoutName=\"L\" Type=\"Cave\"/>\n"
                                             "<Layout LayoutName=\"L\" Type=\"Room\"/>\n"),
              "my.xml:5:9: warning: Layout \"L\" is given twice, first on line 3\n"
              "    By name the first one is found; this one is used only by chance. Give it "
              "another name.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AThemeOfTheSameNameIsTold) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"/>\n"
                    "<CreatureTheme Name=\"T\" Level=\"1\"/>\n"
                    "<Theme Name=\"T\" Level=\"2\"/>\n"),
              "my.xml:4:8: warning: Theme \"T\" is given twice, first on line 2\n"
              "    By name the first one is found; this one is used only by chance. Give it "
              "another name.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, WhatHasNoNameIsNoted) {
    EXPECT_EQ(Check("<Theme Level=\"1\"/>\n"),
              "my.xml:2:1: note: Theme has no Name\n"
              "    It cannot be chosen by name.\n"
              "0 errors, 0 warnings, 1 note.\n");
}

TEST_F(ConfigCheckTest, ContentOfTheSameNameIsTold) {
    EXPECT_EQ(Check("<Rug UniqueName=\"r\"/>\n"
                    "<Rug UniqueName=\"R\"/>\n"
                    "<Tapestry UniqueName=\"r\"/>\n"),
              "my.xml:3:6: warning: Rug \"R\" is given twice, first on line 2\n"
              "    Theme items that name it find the first one. Remove one of the two.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ABlankAfterACommaIsFoundInALayout) {
    EXPECT_EQ(Check(std::string(kWholeSet) + "<Layout LayoutName=\"L\" Type=\"Room\"><Row><Col>"
                                             "WallN, WallE</Col></Row></Layout>\n"),
              "my.xml:3:41: error: no Room tile set has a tile \" WallE\"\n"
              "    The cell stays without this piece; the blank belongs to the name.\n"
              "    Nearest: WallE\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMisspeltTileInALayoutIsTold) {
    EXPECT_EQ(Check(std::string(kWholeSet) + "<Layout LayoutName=\"L\" Type=\"Room\"><Row><Col>"
                                             "Centre</Col></Row></Layout>\n"),
              "my.xml:3:41: error: no Room tile set has a tile \"Centre\"\n"
              "    The cell stays without this piece.\n"
              "    Nearest: Center\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ACornerDoorwayOnTheRimCannotBeClosed) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallN>b</WallN><DoorwayNW_W>"
                    "k</DoorwayNW_W><Center>c</Center><DoorwayN>"
                    "d</DoorwayN><DoorjambN>e</DoorjambN><DoorN>"
                    "f</DoorN><HallNS>g</HallNS><HallCornerNW>"
                    "h</HallCornerNW><HallEndN>i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"
                    "<Layout LayoutName=\"L\" Type=\"Room\">\n"
                    "<Row><Col>DoorwayNW_W</Col><Col>WallN</Col></Row></Layout>\n"),
              "my.xml:4:6: warning: the corner doorway \"DoorwayNW_W\" opens onto nothing\n"
              "    Random levels remove it and have nothing to close the corner.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ADoorwayOnTheRimIsClosedByAWall) {
    EXPECT_EQ(Check(std::string(kWholeSet) +
                    "<Layout LayoutName=\"L\" Type=\"Room\"><Row><Col>"
                    "DoorwayN</Col></Row><Row><Col>Center</Col></Row></Layout>\n"),
              "Nothing is wrong.\n");
}

TEST_F(ConfigCheckTest, ADoorwayOnTheRimOfASetWithoutTheWallCannotBeClosed) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallS>b</WallS><WallE>b</WallE>"
                    "<WallW>b</WallW><Center>c</Center><DoorwayN>"
                    "d</DoorwayN><DoorjambN>e</DoorjambN><DoorN>"
                    "f</DoorN><HallNS>g</HallNS><HallCornerNW>"
                    "h</HallCornerNW><HallEndN>i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"
                    "<Layout LayoutName=\"L\" Type=\"Room\"><Row><Col>"
                    "DoorwayN</Col></Row><Row><Col>Center</Col></Row></Layout>\n"),
              "my.xml:2:1: warning: tile set \"S\" lacks WallN\n"
              "    Random levels get holes, or their rooms cannot be joined.\n"
              "my.xml:3:41: warning: the doorway \"DoorwayN\" opens onto "
              "nothing, and WallN is not in tile set \"S\"\n"
              "    Random levels remove it and have nothing to close the wall.\n"
              "0 errors, 2 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AHallOnTheRimOfASetWithoutHallEndsCannotBeClosed) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallN>b</WallN><Center>c</Center>"
                    "<DoorwayN>d</DoorwayN><DoorjambN>e</DoorjambN>"
                    "<DoorN>f</DoorN><HallNS>g</HallNS><HallCornerNW>"
                    "h</HallCornerNW><Hall4Way>j</Hall4Way></TileSet>\n"
                    "<Layout LayoutName=\"L\" Type=\"Room\"><Row><Col>"
                    "HallNS,DoorwayN</Col></Row></Layout>\n"),
              "my.xml:2:1: warning: tile set \"S\" lacks HallEndN\n"
              "    Random levels get holes, or their rooms cannot be joined.\n"
              "my.xml:3:41: warning: the doorway \"DoorwayN\" opens onto "
              "nothing, and HallEndN is not in tile set \"S\"\n"
              "    Random levels remove it and have nothing to close the wall.\n"
              "my.xml:3:41: warning: HallNS and DoorwayN stand in one cell\n"
              "    Each brings a floor of its own; they stand in each other. Leave one out.\n"
              "    Nearest: HallNS\n"
              "0 errors, 3 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ADoorwayBetweenTwoCellsIsFine) {
    EXPECT_EQ(Check(std::string(kWholeSet) + "<Layout LayoutName=\"L\" Type=\"Room\"><Row><Col>"
                                             "Center</Col></Row><Row><Col>DoorwayN</Col></Row>"
                                             "<Row><Col>Center</Col></Row></Layout>\n"),
              "Nothing is wrong.\n");
}

TEST_F(ConfigCheckTest, ANestedLayoutHasARimOfItsOwn) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Room\"><CornerNW>"
                    "a</CornerNW><WallS>b</WallS><WallE>b</WallE>"
                    "<WallW>b</WallW><Center>c</Center><DoorwayN>"
                    "d</DoorwayN><DoorjambN>e</DoorjambN><DoorN>"
                    "f</DoorN><HallNS>g</HallNS><HallCornerNW>"
                    "h</HallCornerNW><HallEndN>i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"
                    "<Layout LayoutName=\"L\" Type=\"Room\"><Row><Col>DoorwayN</Col></Row>\n"
                    "<Layout LayoutName=\"M\" OffsetX=\"1\"><Row><Col>DoorwayN</Col>"
                    "</Row></Layout></Layout>\n"),
              "my.xml:2:1: warning: tile set \"S\" lacks WallN\n"
              "    Random levels get holes, or their rooms cannot be joined.\n"
              "my.xml:4:41: warning: the doorway \"DoorwayN\" opens onto "
              "nothing, and WallN is not in tile set \"S\"\n"
              "    Random levels remove it and have nothing to close the wall.\n"
              "0 errors, 2 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AThemeItemThatFindsNothingIsAnError) {
    EXPECT_EQ(Check("<Creature UniqueName=\"mudcrab\"/>\n"
                    "<CreatureTheme Name=\"T\" Level=\"1\">\n"
                    "<ThemeItem Type=\"Creature\" "
                    "UniqueName=\"mudcrap\"/><ThemeItem Type=\"Creature\"/></CreatureTheme>\n"),
              "my.xml:4:28: error: no Creature has the unique name \"mudcrap\"\n"
              "    The item places nothing more when this name is drawn.\n"
              "    Nearest: mudcrab\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AThemeItemOfAKindWithoutContentIsAnError) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\"/></Theme>\n"),
              "my.xml:2:38: error: there is no content of the type \"Rug\"\n"
              "    The item places nothing.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ContentInsideATileSetIsToldSo) {
    EXPECT_TRUE(Tarnex::Test::Contains(
        Check("<TileSet TsName=\"S\" TsType=\"Room\">\n<Rug>r</Rug></TileSet>\n"),
        "my.xml:3:1: error: Rug stands inside a tile set\n"
        "    It is taken for a tile, and nothing is known by its name. Move it behind "
        "</TileSet>.\n"));
}

TEST_F(ConfigCheckTest, AnItemTypeThatTheThemeIgnoresIsAnError) {
    EXPECT_EQ(Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Creature\"/></Theme>\n"),
              "my.xml:2:38: error: a Theme has no items of the type \"Creature\"\n"
              "    The item is skipped.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AThemeItemThatNamesAFishIsAnError) {
    EXPECT_EQ(Check("<Creature UniqueName=\"rat\"/>\n"
                    "<Creature UniqueName=\"slaughterfish\" Type=\"Fish\"/>\n"
                    "<CreatureTheme Name=\"T\" Level=\"1\"><ThemeItem "
                    "Type=\"Creature\" UniqueName=\"slaughterfish,rat\"/></CreatureTheme>\n"),
              "my.xml:4:62: error: the Creature \"slaughterfish\" is a bird or fish\n"
              "    Birds and fish are never placed; the item places "
              "nothing more when this name is drawn.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AThemeItemWithNothingButBirdsAndFishIsAnError) {
    EXPECT_EQ(Check("<Creature UniqueName=\"racer\" Type=\"Bird\"/>\n"
                    "<CreatureTheme Name=\"T\" Level=\"1\"><ThemeItem "
                    "Type=\"Creature\"/></CreatureTheme>\n"),
              "my.xml:3:46: error: all creatures are birds and fish, which are never placed\n"
              "    The item places nothing.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AThemeWithoutLevelIsNoted) {
    EXPECT_EQ(Check("<Creature UniqueName=\"rat\"/>\n"
                    "<CreatureTheme Name=\"T\"><ThemeItem Type=\"Creature\"/></CreatureTheme>\n"),
              "my.xml:3:1: note: CreatureTheme \"T\" has no Level\n"
              "    It can be chosen by name, but not by chance, which asks for a Level of 1 or "
              "more.\n"
              "    Nearest: Level=\"1\"\n"
              "0 errors, 0 warnings, 1 note.\n");
}

TEST_F(ConfigCheckTest, ACreatureThatNoThemeChoosesIsNoted) {
    EXPECT_EQ(Check("<Creature UniqueName=\"rat\"/>\n"),
              "my.xml:2:1: note: no CreatureTheme chooses Creature \"rat\"\n"
              "    It is never placed. Name it in a ThemeItem.\n"
              "0 errors, 0 warnings, 1 note.\n");
}

TEST_F(ConfigCheckTest, WhatStandsInRoomsAndNoThemeChoosesIsNoted) {
    EXPECT_EQ(Printed(Judge(kWholeSet + Room("Room") + "<Rug UniqueName=\"r\"/>\n")),
              "my.xml:4:1: note: no Theme chooses Rug \"r\"\n"
              "    It is never placed. Name it in a ThemeItem.\n"
              "0 errors, 0 warnings, 1 note.\n");
}

TEST_F(ConfigCheckTest, AThemeWithoutItemsIsTold) {
    EXPECT_EQ(Printed(Judge(kWholeSet + Room("Room") + "<Theme Name=\"T\" Level=\"1\"/>\n")),
              "my.xml:4:1: warning: Theme \"T\" has no items\n"
              "    Levels with it stay empty. Give it a ThemeItem for each kind of thing.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ARatioAboveOneIsToldWithTheFraction) {
    EXPECT_EQ(
        Check("<Rug UniqueName=\"r\"/>\n<Theme Name=\"T\" Level=\"1\">\n"
              "<ThemeItem Type=\"Rug\" Ratio=\"36\"/>\n"
              "<ThemeItem Type=\"Rug\" Ratio=\"1\"/></Theme>\n"),
        "my.xml:4:23: warning: Ratio \"36\" asks for more than one in each cell\n"
        "    It fills every one, and the items behind it find no room. It is no percentage: 1 "
        "stands for all.\n"
        "    Nearest: 0.36\n"
        "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ContainersTakeSeveralStacksButNotThatMany) {
    const std::string chest =
        "<Container UniqueName=\"c\" ModelFile=\"m\" Weight=\"9\"/>"
        "<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Container\"/></Theme>"
        "<Armor UniqueName=\"a\" Value=\"1\"/>\n";
    EXPECT_EQ(Check(chest + "<TreasureTheme Name=\"T\" Level=\"1\">"
                            "<ThemeItem Type=\"Armor\" Ratio=\"20\"/></TreasureTheme>\n"),
              "Nothing is wrong.\n");
    EXPECT_EQ(
        Check(chest + "<TreasureTheme Name=\"T\" Level=\"1\">"
                      "<ThemeItem Type=\"Armor\" Ratio=\"21\"/></TreasureTheme>\n"),
        "my.xml:3:59: warning: Ratio \"21\" asks for more than 20 stacks in each container\n"
        "    It fills every one, and the items behind it find no room. It is no percentage: 1 "
        "stands for all.\n"
        "    Nearest: 0.21\n"
        "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ARatioOfNothingIsTold) {
    EXPECT_EQ(Check("<Rug UniqueName=\"r\"/>\n<Theme Name=\"T\" Level=\"1\">\n"
                    "<ThemeItem Type=\"Rug\" Ratio=\"0\"/>\n"
                    "<ThemeItem Type=\"Rug\" Ratio=\"0\" Max=\"2\"/></Theme>\n"),
              "my.xml:4:23: warning: Ratio is 0\n"
              "    One is placed all the same, with its Chance. Max=\"0\" stands for none.\n"
              "    Nearest: Max=\"0\"\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMisspeltNumberIsToldWithWhatCountsInstead) {
    EXPECT_EQ(Check("<Rug UniqueName=\"r\"/>\n<Theme Name=\"T\" Level=\"1\">\n"
                    "<ThemeItem Type=\"Rug\" Raito=\"0.2\" Chanze=\"0.5\"/></Theme>\n"),
              "my.xml:4:23: warning: ThemeItem has no attribute \"Raito\"\n"
              "    It is ignored, and Ratio counts as 1: one for each cell, or for each "
              "container.\n"
              "    Nearest: Ratio\n"
              "my.xml:4:35: warning: ThemeItem has no attribute \"Chanze\"\n"
              "    It is ignored, and Chance counts as 1.\n"
              "    Nearest: Chance\n"
              "0 errors, 2 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AnAttributeThatIsThereAlreadyIsNotMeant) {
    EXPECT_TRUE(Tarnex::Test::Contains(
        Check("<Layout LayoutName=\"L\" Type=\"Room\" Width=\"5\" Higth=\"5\"/>\n"),
        "    It is ignored, and Height counts as 5.\n    Nearest: Height\n"));
}

TEST_F(ConfigCheckTest, ANameThatNothingNamesIsNearerThanOneThatIsNamed) {
    EXPECT_EQ(Check("<Rug UniqueName=\"rug_1\"/><Rug UniqueName=\"rug_2\"/>\n"
                    "<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\" UniqueName=\"rug_1\"/>\n"
                    "<ThemeItem Type=\"Rug\" UniqueName=\"rug_3\"/></Theme>\n"),
              "my.xml:4:23: error: no Rug has the unique name \"rug_3\"\n"
              "    The item places nothing more when this name is drawn.\n"
              "    Nearest: rug_2\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, FurnitureLargerThanACellIsTold) {
    const std::string theme =
        "<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Furniture\"/></Theme>\n";
    EXPECT_EQ(Printed(Judge(kWholeSet + Room("Room") + theme +
                            "<Furniture UniqueName=\"f\" SizeX=\"256\" SizeY=\"257\"/>\n")),
              "my.xml:5:39: warning: Furniture \"f\" has a SizeY greater than a cell of 256\n"
              "    It stands in walls and in what is beside it. Sizes are counted in units.\n"
              "0 errors, 1 warning, 0 notes.\n");
    EXPECT_EQ(Printed(Judge(kWholeSet + Room("Room") + theme + "<Furniture UniqueName=\"f\"/>\n")),
              "my.xml:5:1: warning: Furniture \"f\" has no SizeX and no SizeY\n"
              "    It stands half in the wall. Give its width and depth in units.\n"
              "    Nearest: SizeX\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, TreasureWithoutValueIsNoted) {
    EXPECT_EQ(Printed(Judge(kWholeSet + Room("Room") + "<Armor UniqueName=\"a\"/>\n")),
              "my.xml:4:1: note: Armor \"a\" has no Value\n"
              "    It counts as worthless: it is found as often as what is cheap. Give its Value.\n"
              "    Nearest: Value\n"
              "0 errors, 0 warnings, 1 note.\n");
}

TEST_F(ConfigCheckTest, WholeTurnsAndSlashesAreTold) {
    EXPECT_EQ(
        Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Container\"/></Theme>\n"
              "<Container UniqueName=\"c\" ModelFile=\"o/c.nif\" Weight=\"9\" ZRotate=\"900\"/>"
              "\n"),
        "my.xml:3:27: note: ModelFile has the sign /\n"
        "    The folders of the game's models are parted by \\; tools for plug-ins may not find "
        "it.\n"
        "    Nearest: o\\c.nif\n"
        "my.xml:3:58: warning: ZRotate \"900\" lies outside -360 to 360\n"
        "    Whole turns in it have no effect.\n"
        "    Nearest: 180\n"
        "0 errors, 1 warning, 1 note.\n");
}

// What is printed of a whole document.
std::string PrintedOf(const std::string& document) {
    std::ostringstream out;
    PrintCheck(CheckConfig("my.xml", RecordConfigText(document, "my.xml")), out);
    return out.str();
}

TEST_F(ConfigCheckTest, AMissingEndTagIsToldWhereItsElementBegins) {
    EXPECT_EQ(
        PrintedOf("<OstrelData>\n<Theme Name=\"A\" Level=\"1\">\n"
                  "<Theme Name=\"B\" Level=\"1\"></Theme>\n</OstrelData>\n"),
        "my.xml:2:1: error: Theme begins here, and its end tag is missing or misspelt\n"
        "    Line 4 ends another one, and nothing behind that is read. Write </Theme> where it "
        "ends.\n"
        "my.xml:4:3: error: XML Parser : Fatal Error parsing XML line 4 col 3:  expected end of "
        "tag 'Theme'\n"
        "    Everything after this place is missing. Probably </Theme> is missing before this "
        "place, or misspelt.\n"
        "2 errors, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AnotherEncodingIsToldAtItsFirstLetter) {
    EXPECT_EQ(PrintedOf("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<OstrelData>\n"
                        "<!-- \xC3\xA9 --><Rug UniqueName=\"caf\xE9\"/></OstrelData>\n"),
              "my.xml:3:31: error: the letter \"\xC3\xA9\" is no UTF-8, but of windows-1252 or the "
              "like\n"
              "    Everything after this place is missing. Save the document as UTF-8, or write "
              "encoding=\"windows-1252\" in its first line.\n"
              "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, Utf16UnderAnotherNameIsTold) {
    std::string wide = "\xFF\xFE";
    for (const char c : std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<OstrelData/>")) {
        wide += c;
        wide += '\0';
    }
    EXPECT_EQ(
        PrintedOf(wide),
        "my.xml:1:31: error: the document is UTF-16, but its first line names \"UTF-8\"\n"
        "    Nothing of it can be read. Save it as UTF-8 (in PowerShell: Set-Content -Encoding "
        "utf8), or write encoding=\"UTF-16\" there.\n"
        "    Nearest: UTF-16\n"
        "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AMisspeltPieceOfAPlatformIsTold) {
    EXPECT_EQ(Check("<Platform Name=\"P\"><Floor UniqueName=\"f\" "
                    "SizeX=\"128\" SizeY=\"128\"/><Beem UniqueName=\"b\"/></Platform>\n"),
              "my.xml:2:67: warning: \"Beem\" is no piece of a platform\n"
              "    It is never placed.\n"
              "    Nearest: Beam\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, APlatformWithoutFloorIsTold) {
    EXPECT_EQ(Check("<Platform Name=\"P\"><Beam UniqueName=\"b\"/></Platform>\n"),
              "my.xml:2:1: warning: Platform \"P\" has no Floor\n"
              "    Nothing is built where it is chosen.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AFloorWithoutSizeIsTold) {
    EXPECT_EQ(Check("<Platform Name=\"P\"><Floor UniqueName=\"f\" SizeX=\"128\"/></Platform>\n"),
              "my.xml:2:20: warning: Floor has no SizeY\n"
              "    No floor is laid.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, AFloorOfTinyPiecesIsTold) {
    EXPECT_EQ(Check("<TileSet TsName=\"S\" TsType=\"Cave\"><CornerNW>"
                    "a</CornerNW><WallN>b</WallN><Center>c</Center>"
                    "<DoorwayN>d</DoorwayN><DoorjambN>e</DoorjambN>"
                    "<DoorN>f</DoorN><HallNS>g</HallNS><HallCornerNW>"
                    "h</HallCornerNW><HallEndN>i</HallEndN><Hall4Way>j</Hall4Way></TileSet>\n"
                    "<Platform Name=\"P\"><Floor UniqueName=\"f\" "
                    "SizeX=\"1e-9\" SizeY=\"128\"/></Platform>\n"),
              "my.xml:3:42: warning: a cell of 256 takes more than 10000 pieces of this floor\n"
              "    No more than these are laid.\n"
              "0 errors, 1 warning, 0 notes.\n");
}

TEST_F(ConfigCheckTest, OfManyTileSetsThatCannotCloseADoorwayThreeAreNamed) {
    std::string sets;
    for (const char* name : {"A", "B", "C", "D", "E"}) {
        sets += std::string("<TileSet TsName=\"") + name +
                "\" TsType=\"Room\"><DoorwayN>d</DoorwayN></TileSet>\n";
    }
    const std::string printed = Check(sets + "<Layout LayoutName=\"L\" Type=\"Room\"><Row>"
                                             "<Col>DoorwayN</Col></Row></Layout>\n");
    EXPECT_NE(printed.find("my.xml:7:41: warning: the doorway \"DoorwayN\" opens onto nothing, and "
                           "WallN is not in tile set \"A\", \"B\", \"C\" and 2 more\n"),
              std::string::npos)
        << printed;
}

TEST_F(ConfigCheckTest, NamesOfAMegabyteAreCut) {
    const std::string name(1'000'000, 'n');
    const std::string printed =
        Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\" UniqueName=\"" + name +
              "\"/></Theme>\n<Rug UniqueName=\"r\"/>\n");
    EXPECT_EQ(printed,
              "my.xml:2:49: error: no Rug has the unique name \"" + std::string(200, 'n') +
                  "...\"\n    The item places nothing more when this name is drawn.\n"
                  "1 error, 0 warnings, 0 notes.\n");
}

TEST_F(ConfigCheckTest, ANameOf200LettersIsShownWhole) {
    const std::string name(200, 'n');
    const std::string printed =
        Check("<Theme Name=\"T\" Level=\"1\"><ThemeItem Type=\"Rug\" UniqueName=\"" + name +
              "\"/></Theme>\n<Rug UniqueName=\"r\"/>\n");
    EXPECT_NE(printed.find('"' + name + "\"\n"), std::string::npos) << printed;
}

// A hundred by a hundred are laid, one more are not.
TEST_F(ConfigCheckTest, OnlyMoreFloorPiecesThanTheLimitAreTold) {
    const auto warned = [](const char* size) {
        return Check(std::string("<TileSet TsName='C' TsType='Cave' TsSize='1000'/>"
                                 "<Platform Name='P'><Floor UniqueName='f' SizeX='10' SizeY='") +
                     size + "' SizeZ='1'/></Platform>\n")
                   .find("pieces of this floor") != std::string::npos;
    };
    EXPECT_FALSE(warned("10"));
    EXPECT_TRUE(warned("9.9"));
}

} // namespace

} // namespace Tarnex::Report
