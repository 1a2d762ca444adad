// SPDX-License-Identifier: MIT
// Layout templates as a configuration gives them.
#include <tests/catalogue/LoaderTest.h>

namespace Tarnex::Test {

namespace {

class LoadLayoutTest : public LoaderTest {
protected:
    // A room layout of that size, called "Hall", around `body`.
    void LoadGrid(int width, int height, const std::string& body) {
        Load("<Layout LayoutName='Hall' Type='Room' Width='" + std::to_string(width) +
             "' Height='" + std::to_string(height) + "'>" + body + "</Layout>");
    }
};

std::string Named(const std::vector<DiPtr<LayoutTemplate>>& layouts) {
    std::string names;
    for (const DiPtr<LayoutTemplate>& layout : layouts) {
        names += (names.empty() ? "" : " ") + layout->GetName();
    }
    return names;
}

} // namespace

TEST_F(LoadLayoutTest, TakesEveryAttribute) {
    Load("<Layout LayoutName='Hall' Type='Room' Width='3' Height='2' OffsetX='1.5' OffsetY='-2' "
         "OffsetZ='3'/>");
    EXPECT_EQ(RoomLayout().GetName(), "Hall");
    EXPECT_EQ(RoomLayout().GetType(), "Room");
    EXPECT_EQ(RoomLayout().GetSize(), DiPos(3, 2, 0));
    EXPECT_EQ(RoomLayout().GetOffset(), Di3Point(1.5F, -2.0F, 3.0F));
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadLayoutTest, AbsentAttributesLeaveTheDefaults) {
    Load("<Layout Type='Room'/>");
    EXPECT_EQ(RoomLayout().GetName(), "");
    EXPECT_EQ(RoomLayout().GetSize(), DiPos(5, 5, 0));
    EXPECT_EQ(RoomLayout().GetOffset(), Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(GridText(RoomLayout()), "- - - - -\n- - - - -\n- - - - -\n- - - - -\n- - - - -\n");
}

TEST_F(LoadLayoutTest, NamesIgnoreLetterCase) {
    Load("<lAYOUT LAYOUTNAME='Hall' TYPE='ROOM' WIDTH='1' HEIGHT='1' offsetx='1' OFFSETY='2' "
         "oFFSETz='3'><rOW><cOL>WallN</cOL></rOW></lAYOUT>");
    EXPECT_EQ(RoomLayout().GetName(), "Hall");
    EXPECT_EQ(RoomLayout().GetOffset(), Di3Point(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(GridText(RoomLayout()), "[WallN]\n");
}

TEST_F(LoadLayoutTest, LayoutsOfBothTypesKeepTheirOrderAndDuplicates) {
    Load("<Layout LayoutName='A' Type='cave'/><Layout LayoutName='B' Type='rOOM'/>"
         "<Layout LayoutName='A' Type='Cave'/><Layout LayoutName='C' Type='Room'/>");
    EXPECT_EQ(Named(config.caveLayouts), "A A");
    EXPECT_EQ(Named(config.roomLayouts), "B C");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadLayoutTest, ALayoutOfAnotherTypeIsDroppedWithAnError) {
    Load("<Layout LayoutName='Attic' Type='House'/><Layout LayoutName='Void'/>");
    EXPECT_TRUE(config.roomLayouts.empty());
    EXPECT_TRUE(config.caveLayouts.empty());
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : XML Parser : Unrecognized Layout Type 'House' in Layout 'Attic'.",
                     "Error : XML Parser : Unrecognized Layout Type '' in Layout 'Void'."}));
}

TEST_F(LoadLayoutTest, CellsFillTheGridRowByRow) {
    LoadGrid(3,
             2,
             "<Row><Col>CornerNW</Col><Col>WallN</Col><Col>CornerNE</Col></Row>"
             "<Row><Col>WallW</Col><Col>Center</Col><Col>WallE</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()),
              "[CornerNW] [WallN] [CornerNE]\n"
              "[WallW] [Center] [WallE]\n");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadLayoutTest, ACellIsAListOfNames) {
    LoadGrid(2, 1, "<Row><Col>WallN,CornerNE</Col><Col>a;b\tc\nd\r\ne</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "[WallN][CornerNE] [a][b][c][d][e]\n");
}

TEST_F(LoadLayoutTest, ABlankBelongsToTheName) {
    LoadGrid(2, 1, "<Row><Col>WallN, CornerNE</Col><Col> Wall N </Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "[WallN][ CornerNE] [ Wall N ]\n");
}

TEST_F(LoadLayoutTest, EmptyNamesDoNotCount) {
    LoadGrid(2, 1, "<Row><Col>,,WallN;,\n;CornerNE,</Col><Col>,;\n\t</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "[WallN][CornerNE] -\n");
}

TEST_F(LoadLayoutTest, AFormFeedSeparatesTooWhereADocumentMayHoldOne) {
    LoadDocument("<?xml version='1.1'?><OstrelData><Layout Type='Room' Width='1' Height='1'><Row>"
                 "<Col>WallN&#12;WallS</Col></Row></Layout></OstrelData>");
    EXPECT_EQ(GridText(RoomLayout()), "[WallN][WallS]\n");
}

TEST_F(LoadLayoutTest, AVerticalTabDoesNotSeparate) {
    LoadDocument("<?xml version='1.1'?><OstrelData><Layout Type='Room' Width='1' Height='1'><Row>"
                 "<Col>&#11;a</Col></Row></Layout></OstrelData>");
    EXPECT_EQ(GridText(RoomLayout()), "[\va]\n");
}

TEST_F(LoadLayoutTest, ACellWithoutNamesIsEmptyAndCounts) {
    LoadGrid(3, 1, "<Row><Col>WallN</Col><Col/><Col>WallS</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "[WallN] - [WallS]\n");
    EXPECT_TRUE(LogLines().empty());
}

// Each run of text is split on its own.
TEST_F(LoadLayoutTest, ACommentInsideANameEndsTheName) {
    LoadGrid(1, 1, "<Row><Col>Wall<!-- north -->N,Wall&#83;</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "[Wall][N][Wall][S]\n");
}

TEST_F(LoadLayoutTest, ElementsInsideACellAreLookedThrough) {
    LoadGrid(1, 1, "<Row><Col>a<OstrelData>b</OstrelData>c</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "[a][b][c]\n");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadLayoutTest, TextOutsideCellsIsIgnored) {
    LoadGrid(1, 1, "one<Row>two<Col>three</Col>four</Row>five");
    EXPECT_EQ(GridText(RoomLayout()), "[three]\n");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadLayoutTest, OneColumnTooManyIsOneError) {
    LoadGrid(2, 1, "<Row><Col>a</Col><Col>b</Col><Col>c</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "[a] [b]\n");
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : XML Parser : Too many rows/cols in Layout 'Hall' at Row 1 Col 3."}));
}

TEST_F(LoadLayoutTest, ARowTooManyIsAnErrorForEachOfItsCells) {
    LoadGrid(2, 1, "<Row><Col>a</Col></Row><Row><Col>b</Col><Col>c</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "[a] -\n");
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : XML Parser : Too many rows/cols in Layout 'Hall' at Row 2 Col 1.",
                     "Error : XML Parser : Too many rows/cols in Layout 'Hall' at Row 2 Col 2."}));
}

TEST_F(LoadLayoutTest, AnEmptyCellOutsideTheGridIsNoError) {
    LoadGrid(1, 1, "<Row><Col>a</Col><Col/><Col>,</Col><Col>d</Col></Row>");
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : XML Parser : Too many rows/cols in Layout 'Hall' at Row 1 Col 4."}));
}

TEST_F(LoadLayoutTest, CellsWithoutARowStandInOneRow) {
    LoadGrid(3, 1, "<Col>a</Col><Col>b</Col><Col>c</Col>");
    EXPECT_EQ(GridText(RoomLayout()), "[a] [b] [c]\n");
    EXPECT_TRUE(LogLines().empty());
}

// Only the end of a row counts; its start tag does nothing.
TEST_F(LoadLayoutTest, ARowInsideARowEndsTheRow) {
    LoadGrid(
        2, 3, "<Row><Col>a</Col><Row><Col>b</Col></Row><Col>c</Col></Row><Row><Col>d</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "[a] [b]\n[c] -\n[d] -\n");
}

TEST_F(LoadLayoutTest, TheEndOfATileCalledRowEndsARowOfTheLayoutAroundIt) {
    LoadGrid(
        2, 2, "<Row><Col>a</Col><TileSet TsType='Cave'><Row>x</Row></TileSet><Col>b</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "[a] -\n[b] -\n");
}

TEST_F(LoadLayoutTest, ACellInsideACellTakesItsPlace) {
    LoadGrid(2, 1, "<Row><Col>a<Col>b</Col>c</Col><Col>d</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "[b] [d]\n");
}

TEST_F(LoadLayoutTest, SizesUpTo1024AreAccepted) {
    Load("<Layout LayoutName='a' Type='Room' Width='1024' Height='1'/>"
         "<Layout LayoutName='b' Type='Room' Width='0' Height='1024'/>"
         "<Layout LayoutName='c' Type='Room' Width='x' Height='0'/>");
    ASSERT_EQ(Named(config.roomLayouts), "a b c");
    EXPECT_EQ(config.roomLayouts[0]->GetSize(), DiPos(1024, 1, 0));
    EXPECT_EQ(config.roomLayouts[1]->GetSize(), DiPos(0, 1024, 0));
    EXPECT_EQ(config.roomLayouts[2]->GetSize(), DiPos(0, 0, 0));
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadLayoutTest, LargerAndNegativeSizesAreRefused) {
    Load("<Layout LayoutName='Tall' Type='Room' Width='2' Height='1025'/>"
         "<Layout LayoutName='Back' Type='Room' Width='-1' Height='3'/>"
         "<Layout Height='-2147483648' Width='99999999999'/>");
    EXPECT_TRUE(config.roomLayouts.empty());
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : XML Parser : Layout size too large (H=1025, W=2) for Layout set "
                     "'Tall'.  Max = 1024.",
                     "Error : XML Parser : Layout size too large (H=3, W=-1) for Layout set "
                     "'Back'.  Max = 1024.",
                     "Error : XML Parser : Layout size too large (H=-2147483648, W=2147483647) for "
                     "Layout set ''.  Max = 1024."}));
}

TEST_F(LoadLayoutTest, TheCellsOfARefusedLayoutAreUnrecognized) {
    Load("<Layout LayoutName='Tall' Type='Room' Height='1025'><Row><Col>a</Col></Row></Layout>"
         "<Layout LayoutName='Next' Type='Room' Width='1' Height='1'><Row><Col>b</Col></Row>"
         "</Layout>");
    EXPECT_EQ(GridText(RoomLayout()), "[b]\n");
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : XML Parser : Layout size too large (H=1025, W=5) for Layout set "
                     "'Tall'.  Max = 1024.",
                     "Error : XML Parser : Unrecognized tag in XML:  'Row'",
                     "Error : XML Parser : Unrecognized tag in XML:  'Col'"}));
}

TEST_F(LoadLayoutTest, ANestedLayoutIsAChildOfTheOneAroundIt) {
    LoadGrid(1,
             1,
             "<Row><Col>a</Col></Row>"
             "<Layout LayoutName='First' Type='Attic' Width='1' Height='1' OffsetX='2'>"
             "<Row><Col>b</Col></Row></Layout>"
             "<Layout LayoutName='Second' Width='1' Height='1'/>");
    EXPECT_EQ(Named(config.roomLayouts), "Hall");
    EXPECT_EQ(Named(RoomLayout().GetChildren()), "First Second");
    EXPECT_EQ(GridText(RoomLayout()), "[a]\n");
    EXPECT_EQ(GridText(*RoomLayout().GetChildren()[0]), "[b]\n");
    EXPECT_EQ(RoomLayout().GetChildren()[0]->GetOffset(), Di3Point(2.0F, 0.0F, 0.0F));
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadLayoutTest, AChildMayHaveChildren) {
    Load("<Layout LayoutName='A' Type='Cave'><Layout LayoutName='B'><Layout LayoutName='C'/>"
         "</Layout><Layout LayoutName='D'/></Layout>");
    ASSERT_EQ(Named(config.caveLayouts), "A");
    const auto& children = config.caveLayouts.front()->GetChildren();
    ASSERT_EQ(Named(children), "B D");
    EXPECT_EQ(Named(children[0]->GetChildren()), "C");
    EXPECT_TRUE(LogLines().empty());
}

// Children are meant to follow all rows of their parent.
TEST_F(LoadLayoutTest, AfterAChildTheGridStartsOver) {
    LoadGrid(2,
             2,
             "<Row><Col>a</Col><Col>b</Col></Row><Row><Col>c</Col>"
             "<Layout Width='1' Height='1'/>"
             "<Col>d</Col></Row><Row><Col>e</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "[d] [b]\n[e] -\n");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadLayoutTest, TheRowsOfAChildDoNotCountForItsParent) {
    LoadGrid(1,
             2,
             "<Row><Col>a</Col></Row>"
             "<Layout LayoutName='Child' Width='1' Height='2'>"
             "<Row><Col>x</Col></Row><Row><Col>y</Col></Row></Layout>"
             "<Row><Col>b</Col></Row><Row><Col>c</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "[b]\n[c]\n");
    EXPECT_EQ(GridText(*RoomLayout().GetChildren()[0]), "[x]\n[y]\n");
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadLayoutTest, AChildInsideACellDropsTheCell) {
    LoadGrid(2, 1, "<Row><Col>a<Layout Width='1' Height='1'/>b</Col><Col>c</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "[c] -\n");
}

// A refused layout changes nothing, so that its cells go on where the one around it stands, and its
// end tag ends that one.
TEST_F(LoadLayoutTest, ARefusedChildWritesIntoItsParentAndEndsIt) {
    LoadGrid(2,
             2,
             "<Row><Col>a</Col></Row>"
             "<Layout LayoutName='Huge' Width='2000'><Row><Col>b</Col></Row></Layout>"
             "<Row><Col>c</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "[a] -\n[b] -\n");
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : XML Parser : Layout size too large (H=5, W=2000) for Layout set "
                     "'Huge'.  Max = 1024.",
                     "Error : XML Parser : Unrecognized tag in XML:  'Row'",
                     "Error : XML Parser : Unrecognized tag in XML:  'Col'"}));
}

TEST_F(LoadLayoutTest, ARefusedGrandchildEndsTheChildEarly) {
    Load("<Layout LayoutName='A' Type='Room' Width='1' Height='1'>"
         "<Layout LayoutName='B' Width='1' Height='1'><Layout Height='2000'/></Layout>"
         "<Layout LayoutName='C' Type='Room'/></Layout>");
    EXPECT_EQ(Named(config.roomLayouts), "A C");
    EXPECT_EQ(Named(config.roomLayouts.front()->GetChildren()), "B");
    EXPECT_EQ(ErrorLines().size(), 1U);
}

// The open cell is untouched by the refusal.
TEST_F(LoadLayoutTest, ARefusedChildInsideACellEndsTheLayoutOfTheCell) {
    LoadGrid(1, 1, "<Row><Col>a<Layout Height='2000'/>b</Col></Row>");
    EXPECT_EQ(GridText(RoomLayout()), "-\n");
    EXPECT_EQ(ErrorLines().size(), 1U);
}

TEST_F(LoadLayoutTest, RowsAndCellsOutsideALayoutAreUnrecognized) {
    Load("<Row/><Col>a</Col>");
    EXPECT_EQ(ErrorLines(),
              Lines({"Error : XML Parser : Unrecognized tag in XML:  'Row'",
                     "Error : XML Parser : Unrecognized tag in XML:  'Col'"}));
}

TEST_F(LoadLayoutTest, OtherElementsMayStandInALayout) {
    LoadGrid(1, 1, "<Row><Rug UniqueName='r'/><Col>a</Col></Row><Theme Name='t'/>");
    EXPECT_EQ(GridText(RoomLayout()), "[a]\n");
    EXPECT_EQ(config.contentMgr->GetRugs().size(), 1U);
    EXPECT_EQ(config.themes.size(), 1U);
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(LoadLayoutTest, MalformedNumbersReadAsFarAsTheyGo) {
    Load("<Layout Type='Room' Width='3 cells' Height=' 2.9' OffsetX='half' OffsetY='.5.5'/>");
    EXPECT_EQ(RoomLayout().GetSize(), DiPos(3, 2, 0));
    EXPECT_EQ(RoomLayout().GetOffset(), Di3Point(0.0F, 0.5F, 0.0F));
}

} // namespace Tarnex::Test
