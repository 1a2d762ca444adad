// SPDX-License-Identifier: MIT
#include "tools/check/ConfigCheck.h"

#include <vaultry/foundation/Logger.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace Tarnex::Report {

namespace {

using Rows = std::initializer_list<const char*>;

constexpr const char* kSet =
    "<TileSet TsName=\"S\" TsType=\"Room\" TsSize=\"256\"><CornerNW>a</CornerNW><WallN>b</WallN>"
    "<Center>c</Center><DoorwayN>d</DoorwayN><DoorjambN>e</DoorjambN><DoorN>f</DoorN>"
    "<HallNS>g</HallNS><HallCornerNW>h</HallCornerNW><HallEndN>i</HallEndN><Hall4Way>j</Hall4Way>"
    "<StairsUpN DeltaZ=\"128\">k</StairsUpN></TileSet>";

class LayoutDrawingTest : public ::testing::Test {
protected:
    LayoutDrawingTest() {
        Logger::Close();
        Logger::ResetErrors();
        Logger::InitWithoutFile();
    }

    // Rows of cells, "CornerNW WallN CornerNE", each on a line; "-" is an empty cell.
    static std::string RowsOf(Rows rows) {
        std::string text;
        for (const std::string row : rows) {
            text += "<Row><Col>";
            for (const char letter : row) {
                text += letter == ' ' ? "</Col><Col>" : letter == '-' ? "" : std::string(1, letter);
            }
            text += "</Col></Row>\n";
        }
        return text;
    }

    // What is found, a line each: line, message, and what comes nearest. The rows begin on line 2.
    static std::string Found(const std::string& attributes, const std::string& inside) {
        const ConfigCheck check = CheckConfig(
            "my.xml",
            RecordConfigText("<OstrelData>" + std::string(kSet) +
                                 "<Layout LayoutName=\"L\" Type=\"Room\" " + attributes + ">\n" +
                                 inside + "</Layout></OstrelData>\n",
                             "my.xml"));
        std::string found;
        for (const ConfigFinding& finding : check.findings) {
            EXPECT_NE(finding.meaning, "");
            found += std::to_string(finding.place.line) + ": " + finding.message +
                     (finding.nearest.empty() ? "" : " -> " + finding.nearest) + '\n';
        }
        return found;
    }

    static std::string Square(Rows rows) {
        const std::string size = std::to_string(rows.size());
        return Found("Width=\"" + size + "\" Height=\"" + size + '"', RowsOf(rows));
    }
};

TEST_F(LayoutDrawingTest, ARoomWithADoorIsFine) {
    EXPECT_EQ(Square({"CornerNW DoorwayN,DoorjambN,DoorN CornerNE",
                      "WallW Center WallE",
                      "CornerSW WallS CornerSE"}),
              "");
}

TEST_F(LayoutDrawingTest, ARoomWithoutAnyDoorwayIsNoted) {
    EXPECT_EQ(Square({"CornerNW WallN CornerNE", "WallW Center WallE", "CornerSW WallS CornerSE"}),
              "1: no doorway leads out of Layout \"L\"\n");
}

TEST_F(LayoutDrawingTest, AFloorWhereAWallMustBeIsTold) {
    EXPECT_EQ(
        Square({"CornerNW DoorwayN CornerNE", "Center Center WallE", "CornerSW WallS CornerSE"}),
        "3: Center is open to the west, where nothing stands -> WallW\n");
}

TEST_F(LayoutDrawingTest, AWallInsideOutIsToldOnceAndTheRightOneIsNearest) {
    EXPECT_EQ(
        Square({"CornerNW DoorwayN CornerNE", "WallE Center WallE", "CornerSW WallS CornerSE"}),
        "3: WallE is closed to the east, where Center on line 3 is open, and is open to the "
        "west, where nothing stands -> WallW\n");
}

TEST_F(LayoutDrawingTest, ADoorwayThatFacesTheRoomIsToldWithItsDoor) {
    EXPECT_EQ(Square({"CornerNW DoorwayS,DoorjambS,DoorS CornerNE",
                      "WallW Center WallE",
                      "CornerSW WallS CornerSE"}),
              "1: no doorway leads out of Layout \"L\"\n"
              "2: DoorwayS has a doorway to the south, where Center on line 3 is open, and is open "
              "to the north, where nothing stands -> DoorwayN,DoorjambN,DoorN\n");
}

TEST_F(LayoutDrawingTest, ADoorInACornerIsTold) {
    EXPECT_EQ(Square({"DoorwayN,DoorjambN,DoorN WallN CornerNE",
                      "WallW Center WallE",
                      "CornerSW WallS CornerSE"}),
              "2: DoorwayN is open to the west, where nothing stands -> CornerNW\n");
}

TEST_F(LayoutDrawingTest, AForgottenCornerIsToldAtTheEmptyCell) {
    EXPECT_EQ(Square({"- DoorwayN CornerNE", "WallW Center WallE", "CornerSW WallS CornerSE"}),
              "2: the cell is empty, and WallW on line 3 and DoorwayN on line 2 open to it -> "
              "CornerNW\n");
}

TEST_F(LayoutDrawingTest, ARowThatEndsTooEarlyIsTold) {
    EXPECT_EQ(
        Square({"CornerNW DoorwayN CornerNE", "WallW Center WallE", "CornerSW WallS"}),
        "4: the row ends before a place that WallS on line 4 and WallE on line 3 open to it -> "
        "CornerSE\n");
}

TEST_F(LayoutDrawingTest, ADoorNeedsItsDoorway) {
    EXPECT_EQ(Square({"CornerNW DoorwayN CornerNE",
                      "WallW Center WallE",
                      "CornerSW DoorjambS,DoorS CornerSE"}),
              "4: DoorjambS stands in a cell without DoorwayS -> DoorwayS\n");
    EXPECT_EQ(
        Square(
            {"CornerNW DoorwayN,DoorE CornerNE", "WallW Center WallE", "CornerSW WallS CornerSE"}),
        "2: DoorE stands in a cell without DoorwayE -> DoorN\n");
}

TEST_F(LayoutDrawingTest, PiecesInOneCellStandInEachOther) {
    EXPECT_EQ(
        Square(
            {"CornerNW DoorwayN CornerNE", "WallW Center WallE", "CornerSW WallS,Center CornerSE"}),
        "4: WallS and Center stand in one cell -> WallS\n");
}

TEST_F(LayoutDrawingTest, ADoorwayAgainstAWallNamesBoth) {
    EXPECT_EQ(Found("Width=\"3\" Height=\"5\"",
                    RowsOf({"CornerNW DoorwayN CornerNE",
                            "WallW Center WallE",
                            "CornerSW DoorwayS CornerSE",
                            "CornerNW WallN CornerNE",
                            "CornerSW WallS CornerSE"})),
              "4: DoorwayS has a doorway to the south, where WallN on line 5 is closed -> WallS\n");
}

TEST_F(LayoutDrawingTest, AMissingPieceOfAHallIsToldAtItsPlace) {
    EXPECT_EQ(Found("Width=\"7\" Height=\"3\"",
                    RowsOf({"CornerNW DoorwayN CornerNE - CornerNW WallN CornerNE",
                            "WallW Center DoorwayE - DoorwayW Center WallE",
                            "CornerSW WallS CornerSE - CornerSW WallS CornerSE"})),
              "3: the cell is empty, and DoorwayE on line 3 and DoorwayW on line 3 open to it -> "
              "HallEW\n");
}

TEST_F(LayoutDrawingTest, APartWithoutAWayIsToldAtItsDoorway) {
    EXPECT_EQ(Found("Width=\"7\" Height=\"3\"",
                    RowsOf({"CornerNW DoorwayN CornerNE - CornerNW WallN CornerNE",
                            "WallW Center WallE - WallW Center DoorwayE",
                            "CornerSW WallS CornerSE - CornerSW WallS CornerSE"})),
              "3: no way leads from here to the rest of Layout \"L\", 9 cells in all\n");
}

TEST_F(LayoutDrawingTest, OfManyMisfitsAFewAreTold) {
    EXPECT_EQ(Found("Width=\"28\" Height=\"1\"",
                    RowsOf({"Center - Center - Center - Center - Center - Center - Center - "
                            "Center - Center - Center - Center - Center - Center - Center -"}))
                  .substr(0, 120),
              "1: 15 more cells of Layout \"L\" do not fit those beside them\n"
              "1: no doorway leads out of Layout \"L\"\n"
              "2: the cell is empty, ");
}

// A room, stairs that climb north out of it, and a room inside at their upper end.
class StairsTest : public LayoutDrawingTest {
protected:
    static std::string FoundWith(const std::string& offsets,
                                 const std::string& stairs = "StairsUpN") {
        return Found("Width=\"3\" Height=\"4\"",
                     RowsOf({("- " + stairs + " -").c_str(),
                             "CornerNW DoorwayN CornerNE",
                             "WallW Center DoorwayE",
                             "CornerSW WallS CornerSE"}) +
                         "<Layout LayoutName=\"U\" Width=\"3\" Height=\"2\" " + offsets + ">\n" +
                         RowsOf({"CornerNW WallN CornerNE", "CornerSW DoorwayS CornerSE"}) +
                         "</Layout>\n");
    }
};

TEST_F(StairsTest, LeadToALayoutAtTheirHeight) {
    EXPECT_EQ(FoundWith("OffsetY=\"-2\" OffsetZ=\"0.5\""), "");
    EXPECT_EQ(FoundWith("OffsetY=\"-2\" OffsetZ=\"-0.5\"", "StairsDnN"), "");
}

TEST_F(StairsTest, MissALayoutAtAnotherHeightAndTheRightOneIsNearest) {
    EXPECT_EQ(FoundWith("OffsetY=\"-2\" OffsetZ=\"1\""),
              "2: StairsUpN leads on to the north, where nothing stands\n"
              "6: no way leads to Layout \"U\" -> OffsetZ=\"0.5\"\n");
    EXPECT_EQ(FoundWith("OffsetY=\"-3\" OffsetZ=\"0.5\""),
              "2: StairsUpN leads on to the north, where nothing stands\n"
              "6: no way leads to Layout \"U\" -> OffsetY=\"-2\"\n");
}

TEST_F(StairsTest, ForgottenOnesAreToldAtTheirPlace) {
    EXPECT_EQ(FoundWith("OffsetY=\"-2\" OffsetZ=\"0.5\"", "-"),
              "2: the cell is empty, and DoorwayN on line 3 and DoorwayS on line 8, at another "
              "height, open to it -> StairsUpN\n");
    EXPECT_EQ(FoundWith("OffsetY=\"-2\" OffsetZ=\"-0.5\"", "-"),
              "2: the cell is empty, and DoorwayN on line 3 and DoorwayS on line 8, at another "
              "height, open to it -> StairsDnN\n");
}

TEST_F(StairsTest, ThatEndAtAWallOfAnotherLayoutTellOfItsOffset) {
    EXPECT_EQ(FoundWith("OffsetX=\"1\" OffsetY=\"-2\" OffsetZ=\"0.5\""),
              "2: StairsUpN leads on to the north, where CornerSW on line 8 is closed\n"
              "6: no way leads to Layout \"U\" -> OffsetX=\"0\"\n");
}

TEST_F(StairsTest, CountHeightsInCells) {
    EXPECT_EQ(FoundWith("OffsetY=\"-2\" OffsetZ=\"128\""),
              "2: StairsUpN leads on to the north, where nothing stands\n"
              "6: Layout \"U\" stands 128 cells away, 32768 units -> 0.5\n");
    EXPECT_EQ(FoundWith("OffsetY=\"-512\" OffsetZ=\"0.5\""),
              "2: StairsUpN leads on to the north, where nothing stands\n"
              "6: Layout \"U\" stands 512 cells away, 131072 units -> -2\n");
}

TEST_F(StairsTest, LayoutsThatStandInEachOtherAreTold) {
    EXPECT_EQ(FoundWith("OffsetY=\"0\" OffsetZ=\"0.5\""),
              "6: Layout \"U\" stands in Layout \"L\" on line 1, in 4 cells\n");
}

TEST_F(LayoutDrawingTest, ASizeThatIsNotThatOfTheRowsIsTold) {
    const std::string room = RowsOf({"CornerNW DoorwayN CornerNE", "CornerSW WallS CornerSE"});
    EXPECT_EQ(Found("Width=\"3\" Height=\"4\"", room),
              "1: Layout \"L\" has a Height of 4, but 2 rows -> Height=\"2\"\n");
    EXPECT_EQ(Found("Width=\"4\" Height=\"2\"", room),
              "1: Layout \"L\" has a Width of 4, but 3 columns -> Width=\"3\"\n");
    EXPECT_EQ(Found("Height=\"2\"", room),
              "1: Layout \"L\" has no Width, which counts as 5, but 3 columns -> Width=\"3\"\n");
}

TEST_F(LayoutDrawingTest, ARowBehindALayoutInsideIsTold) {
    EXPECT_EQ(Found("Width=\"3\" Height=\"2\"",
                    RowsOf({"CornerNW DoorwayN CornerNE"}) +
                        "<Layout LayoutName=\"U\" Width=\"1\" Height=\"1\"><Row><Col/></Row>"
                        "</Layout>\n" +
                        RowsOf({"CornerSW WallS CornerSE"})),
              "4: a row of Layout \"L\" stands behind a layout inside it\n");
}

TEST_F(LayoutDrawingTest, APieceOfNoKnownKindGoesWithAnything) {
    EXPECT_EQ(Square({"CornerNW DoorwayN CornerNE", "WallW Pilar Wal", "CornerSW WallS CornerSE"}),
              "3: no Room tile set has a tile \"Pilar\"\n"
              "3: no Room tile set has a tile \"Wal\" -> WallE\n");
}

} // namespace

} // namespace Tarnex::Report
