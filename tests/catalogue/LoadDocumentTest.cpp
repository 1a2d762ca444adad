// SPDX-License-Identifier: MIT
// Documents as a whole: the root, unknown elements, and the defaults that follow from a load.
#include <vaultry/gen/GenMgr.h>

#include <tests/catalogue/LoaderTest.h>

namespace Tarnex::Test {

namespace {

using LoadDocumentTest = LoaderTest;

constexpr const char* kFinished = "Info : GenMgr : Finished parsing XML config file.";

constexpr const char* kTwoOfEach =
    "<OstrelData>"
    "<TileSet TsName='C1' TsType='Cave'/><TileSet TsName='R1' TsType='Room'/>"
    "<TileSet TsName='R2' TsType='Room'/>"
    "<Layout LayoutName='LC' Type='Cave'/><Layout LayoutName='L1' Type='Room'/>"
    "<Layout LayoutName='L2' Type='Room'/>"
    "<Theme Name='T1'/><Theme Name='T2'/><CreatureTheme Name='K1'/><CreatureTheme Name='K2'/>"
    "<TreasureTheme Name='V1'/><TreasureTheme Name='V2'/><Rug UniqueName='red'/>"
    "<Platform Name='P'/></OstrelData>";

std::size_t CountAll(const ConfigMgr& config) {
    const ContentMgr& content = *config.contentMgr;
    return config.platformList.size() + config.caveLayouts.size() + config.roomLayouts.size() +
           config.themes.size() + config.creatureThemes.size() + config.treasureThemes.size() +
           config.caveTileSets.size() + config.roomTileSets.size() +
           content.GetContainers().size() + content.GetRugs().size();
}

} // namespace

TEST_F(LoadDocumentTest, AnEmptyRootFilesAndLogsNothing) {
    LoadDocument("<OstrelData/>");
    EXPECT_EQ(CountAll(config), 0U);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadDocumentTest, TheRootIsRecognisedInAnyLetterCaseAndAnywhere) {
    LoadDocument("<oSTRELdATA any='1'><OstrelData><Rug/></OstrelData></oSTRELdATA>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadDocumentTest, AnotherRootIsUnrecognizedButRead) {
    LoadDocument("<Data><Rug/></Data>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_EQ(ErrorLines(), Lines({"Error : XML Parser : Unrecognized tag in XML:  'Data'"}));
}

TEST_F(LoadDocumentTest, AnElementMayBeTheRoot) {
    LoadDocument("<TileSet TsType='Room'><Center>m</Center></TileSet>");
    EXPECT_EQ(TileId("Center"), "m");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadDocumentTest, AnUnknownElementIsSkippedAndItsChildrenAreRead) {
    Load("<Group><Rug/><Center/></Group>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : XML Parser : Unrecognized tag in XML:  'Group'",
                     "Error : XML Parser : Unrecognized tag in XML:  'Center'"}));
}

TEST_F(LoadDocumentTest, OnlyTheQualifiedNameCounts) {
    LoadDocument("<OstrelData xmlns='urn:any' xmlns:p='urn:p'><Rug p:UniqueName='no' "
                 "UniqueName='yes'/><p:Rug/><TileSet TsType='Room'><p:Center>m</p:Center>"
                 "</TileSet></OstrelData>");
    ASSERT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_EQ(config.contentMgr->GetRugs().front()->uniqueName, "yes");
    EXPECT_EQ(TileId("Center"), "(none)");
    EXPECT_EQ(TileId("p:Center"), "m");
    EXPECT_EQ(ErrorLines(), Lines({"Error : XML Parser : Unrecognized tag in XML:  'p:Rug'"}));
}

TEST_F(LoadDocumentTest, AnInternalSubsetMayGiveAttributesTheirValue) {
    LoadWithSubset("<!ATTLIST Rug Max CDATA '9'>", "<Rug/><Rug Max='2'/>");
    const ContentList& rugs = config.contentMgr->GetRugs();
    ASSERT_EQ(rugs.size(), 2U);
    EXPECT_EQ(rugs[0]->maxCount, 9);
    EXPECT_EQ(rugs[1]->maxCount, 2);
}

TEST_F(LoadDocumentTest, ADocumentIsNotValidated) {
    LoadWithSubset("<!ELEMENT OstrelData EMPTY><!ATTLIST Rug key ID #REQUIRED>", "<Rug/>");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadDocumentTest, ALoadTakesTheFirstOfEachAsDefaults) {
    GenMgr mgr;
    mgr.Init(dir.Write("a.xml", kTwoOfEach).c_str());
    ASSERT_TRUE(mgr.GetDefaultTemplate());
    EXPECT_EQ(mgr.GetDefaultTemplate()->GetName(), "L1");
    EXPECT_EQ(mgr.GetDefaultTheme()->GetName(), "T1");
    EXPECT_EQ(mgr.GetDefaultTileSet()->GetName(), "R1");
    EXPECT_EQ(mgr.GetDefaultTreasureTheme()->GetName(), "V1");
    EXPECT_FALSE(mgr.GetDefaultCreatureTheme());
    EXPECT_EQ(LogLines(), Lines({kFinished}));
}

TEST_F(LoadDocumentTest, ASecondLoadReplacesTheFirst) {
    GenMgr mgr;
    mgr.Init(dir.Write("a.xml", kTwoOfEach).c_str());
    mgr.SetDefaultCreatureTheme("K2");
    mgr.Init(dir.Write("b.xml", "<OstrelData><Theme Name='New'/></OstrelData>").c_str());
    EXPECT_EQ(CountAll(mgr.config), 1U);
    EXPECT_EQ(mgr.GetDefaultTheme()->GetName(), "New");
    EXPECT_FALSE(mgr.GetDefaultTemplate());
    EXPECT_FALSE(mgr.GetDefaultTileSet());
    EXPECT_FALSE(mgr.GetDefaultTreasureTheme());
    ASSERT_TRUE(mgr.GetDefaultCreatureTheme());
    EXPECT_EQ(mgr.GetDefaultCreatureTheme()->GetName(), "K2");
}

TEST_F(LoadDocumentTest, AMissingFileIsOneFatalErrorAndLeavesNoDefaults) {
    GenMgr mgr;
    mgr.Init(dir.Write("a.xml", kTwoOfEach).c_str());
    mgr.Init(dir.File("missing.xml").c_str());
    EXPECT_EQ(ErrorLines().size(), 1U);
    EXPECT_NE(FatalLine().find("missing.xml"), std::string::npos);
    EXPECT_EQ(LogLines().back(), kFinished);
    EXPECT_EQ(CountAll(mgr.config), 0U);
    EXPECT_FALSE(mgr.GetDefaultTemplate());
    EXPECT_FALSE(mgr.GetDefaultTheme());
    EXPECT_FALSE(mgr.GetDefaultTileSet());
    EXPECT_FALSE(mgr.GetDefaultTreasureTheme());
}

TEST_F(LoadDocumentTest, AFileNameBeyondTheCodePageIsOpened) {
    GenMgr mgr;
    mgr.Init(dir.Write("\xC3\xA9\xE2\x82\xAC\xE4\xB8\xAD 100% #1.xml", kTwoOfEach).c_str());
    EXPECT_TRUE(ErrorLines().empty());
    EXPECT_EQ(CountAll(mgr.config), 14U);
}

TEST_F(LoadDocumentTest, WhatWasFiledBeforeAFatalErrorStaysAndGivesTheDefaults) {
    GenMgr mgr;
    mgr.Init(dir.Write("a.xml",
                       "<OstrelData><TileSet TsName='R1' TsType='Room'/><Theme Name='T1'/>"
                       "<Theme Name='T2'><oops></Theme><Rug/></OstrelData>")
                 .c_str());
    EXPECT_NE(FatalLine(), "");
    EXPECT_EQ(mgr.GetDefaultTileSet()->GetName(), "R1");
    EXPECT_EQ(mgr.GetThemes().size(), 1U);
    EXPECT_TRUE(mgr.config.contentMgr->GetRugs().empty());
    EXPECT_EQ(LogLines().back(), kFinished);
}

} // namespace Tarnex::Test
