// SPDX-License-Identifier: MIT
// From templates to layouts to references.
#include <gtest/gtest.h>

#include <tests/gen/GenTest.h>

namespace Tarnex::Test {

namespace {

class FrameTest : public GenTest {
protected:
    // A generator whose cell has been begun.
    OpenGen Begun() {
        OpenGen gen(info);
        gen.InitCell();
        return gen;
    }

    DiPtr<Layout> FromTemplate(OpenGen& gen, const DiPtr<LayoutTemplate>& plan) const {
        const DiPtr<Layout> layout = Layout::Create(plan->GetSize());
        gen.TemplateToLayout(*layout, *plan);
        return layout;
    }

    // A tile as the set would hold it, with id "m".
    static DiPtr<Tile> Piece(const char* kind) {
        auto tile = MakeDi<Tile>();
        tile->kindName = kind;
        tile->id = "m";
        return tile;
    }

    static GridElmt Holding(const DiPtr<Tile>& tile) {
        GridElmt elmt;
        elmt.AddTile(tile);
        return elmt;
    }
};

// The generator itself.

TEST_F(FrameTest, GeneratorStartsFromTheDefaultTileSetWithoutACell) {
    const OpenGen gen(info);
    EXPECT_EQ(gen.tileSet, tiles);
    EXPECT_FALSE(gen.cell);
    EXPECT_TRUE(gen.containers.empty());
}

TEST_F(FrameTest, BaseGeneratesNothing) {
    GenIntBase gen(info);
    gen.Gen();
    EXPECT_TRUE(info.mod.GetCells().empty());
}

TEST_F(FrameTest, CopySharesCellTileSetAndContainers) {
    OpenGen gen = Begun();
    gen.containers.push_back(info.mod.CreateContainer());
    const OpenGen copy(gen);
    EXPECT_EQ(copy.cell, gen.cell);
    EXPECT_EQ(copy.tileSet, tiles);
    EXPECT_EQ(copy.containers, gen.containers);
}

TEST_F(FrameTest, CellBeginsWithTheNorthMarker) {
    info.cellName = "Old Crypt";
    const OpenGen gen = Begun();
    ASSERT_EQ(info.mod.GetCells().size(), 1U);
    EXPECT_EQ(info.mod.GetCells()[0], gen.cell);
    EXPECT_EQ(gen.cell->GetName(), "Old Crypt");
    EXPECT_EQ(RefLines(*gen.cell), Lines{"NorthMarker 0 -150 0"});
}

TEST_F(FrameTest, SecondCellReplacesTheHandleAndKeepsTheFirstInThePlugIn) {
    OpenGen gen = Begun();
    const DiPtr<Cell> first = gen.cell;
    info.cellName = "Next";
    gen.InitCell();
    EXPECT_EQ(info.mod.GetCells().size(), 2U);
    EXPECT_NE(gen.cell, first);
    EXPECT_EQ(gen.cell->GetName(), "Next");
}

// Templates.

TEST_F(FrameTest, TemplateBecomesALayoutOfItsTiles) {
    OpenGen gen(info);
    const DiPtr<Layout> layout = FromTemplate(gen, ToTemplate("NW wN .\nDW c&uN o"));
    EXPECT_EQ(ToText(*layout), Map("NW wN .\nDW c&uN o"));
    EXPECT_EQ(layout->GetElmt(0, 1)->tiles[0], tiles->Get("WallN"));
    EXPECT_EQ(layout->GetName(), "");
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(FrameTest, TilesThatTheSetLacksAreReportedAndSkipped) {
    const auto poor = MakeDi<TileSet>();
    poor->SetName("Poor");
    Tile center;
    center.kindName = "Center";
    poor->Set(center);
    info.defTileSet = poor;
    OpenGen gen(info);
    const DiPtr<Layout> layout = FromTemplate(gen, ToTemplate("uN&c wS", "Hut"));
    EXPECT_EQ(ToText(*layout), Map("c o"));
    EXPECT_EQ(ErrorLines(),
              (Lines{"Error : Generator : Tile Set 'Poor' does not have a Tile 'StairsUpN', called "
                     "for by Layout 'Hut'.",
                     "Error : Generator : Tile Set 'Poor' does not have a Tile 'WallS', called for "
                     "by Layout 'Hut'."}));
}

TEST_F(FrameTest, NamesOfATemplateIgnoreCaseAndAreReportedAsWritten) {
    OpenGen gen(info);
    const auto plan = MakeDi<LayoutTemplate>(DiPos(1, 1, 0));
    plan->SetName("Hut");
    const auto cell = MakeDi<TemplateElmt>();
    cell->tileNames = {TileKindName("wallN"), TileKindName("lamP")};
    plan->SetElmt(cell, 0, 0);
    EXPECT_EQ(ToText(*FromTemplate(gen, plan)), Map("wN"));
    EXPECT_EQ(
        ErrorLines(),
        Lines{"Error : Generator : Tile Set 'Full' does not have a Tile 'lamP', called for by "
              "Layout 'Hut'."});
}

TEST_F(FrameTest, ChildTemplatesBecomeChildren) {
    OpenGen gen(info);
    const auto plan = ToTemplate("c c");
    const auto loft = ToTemplate("wN");
    const auto shelf = ToTemplate("wS\nwE");
    const auto pit = ToTemplate("wW");
    loft->SetOffset(Di3Point(1.0F, 2.0F, 0.5F));
    shelf->SetOffset(Di3Point(3.0F, 0.0F, 0.0F));
    plan->AddChild(loft);
    plan->AddChild(pit);
    loft->AddChild(shelf);
    const DiPtr<Layout> layout = FromTemplate(gen, plan);
    ASSERT_EQ(layout->GetChildren().size(), 2U);
    const DiPtr<Layout> first = layout->GetChildren()[0];
    EXPECT_EQ(ToText(*first), Map("wN"));
    EXPECT_EQ(first->GetOffset(), Di3Point(1.0F, 2.0F, 0.5F));
    EXPECT_EQ(first->GetParent(), layout);
    ASSERT_EQ(first->GetChildren().size(), 1U);
    EXPECT_EQ(ToText(*first->GetChildren()[0]), Map("wS\nwE"));
    EXPECT_EQ(first->GetChildren()[0]->GetOffset(), Di3Point(3.0F, 0.0F, 0.0F));
    EXPECT_EQ(ToText(*layout->GetChildren()[1]), Map("wW"));
    layout->Dissolve();
}

// Sorting.

std::string Codes(const OpenGen::ElmtList& list) {
    std::string codes;
    for (GridElmt* elmt : list) {
        codes += (codes.empty() ? "" : " ") + ToText(DiPtr<GridElmt>(elmt));
    }
    return codes;
}

TEST_F(FrameTest, ElementsAreSortedByTheirFirstTileRowByRow) {
    OpenGen gen(info);
    const DiPtr<Layout> layout = ToLayout(R"(
        NW wN DN ^  |   .
        wW c  c2 -  c&wN o
        SE wS jN ,- wS&c +
        uN v  lE NWn -2 wE)",
                                          *tiles);
    OpenGen::SortedElmts sorted;
    gen.SortLayout(sorted, *layout);
    EXPECT_EQ(Codes(sorted.centers), "c c2 c&wN");
    EXPECT_EQ(Codes(sorted.corners), "NW SE");
    EXPECT_EQ(Codes(sorted.halls), "| - ,- + -2");
    EXPECT_EQ(Codes(sorted.walls), "wN wW wS wS&c wE");
    EXPECT_EQ(sorted.numCenters, 3U);
    EXPECT_EQ(sorted.numCorners, 2U);
    EXPECT_EQ(sorted.numHalls, 5U);
    EXPECT_EQ(sorted.numWalls, 5U);
}

TEST_F(FrameTest, ChildrenAreSortedAfterTheirParentAndCounted) {
    OpenGen gen(info);
    const DiPtr<Layout> layout = ToLayout("wN c", *tiles);
    const DiPtr<Layout> loft = ToLayout("wS", *tiles);
    loft->AddChild(ToLayout("wE |", *tiles));
    layout->AddChild(loft);
    layout->AddChild(ToLayout("wW NW", *tiles));
    OpenGen::SortedElmts sorted;
    gen.SortLayout(sorted, *layout);
    EXPECT_EQ(Codes(sorted.walls), "wN wS wE wW");
    EXPECT_EQ(sorted.numWalls, 4U);
    EXPECT_EQ(sorted.numCenters, 1U);
    EXPECT_EQ(sorted.numHalls, 1U);
    EXPECT_EQ(sorted.numCorners, 1U);
    layout->Dissolve();
}

// Tiles to references.

TEST_F(FrameTest, TileBecomesAReferenceAtItsPlace) {
    const OpenGen gen = Begun();
    const DiPtr<Tile> tile = Piece("WallN");
    tile->offset = Di3Point(10.0F, 20.0F, 30.0F);
    tile->zRotate = 90;
    gen.CvtTiles(*gen.cell, Holding(tile), DiPos(1, 2, 0), Di3Point());
    tile->scale = 0.5F;
    tile->zRotate = 450;
    gen.CvtTiles(*gen.cell, Holding(tile), DiPos(0, 0, 0), Di3Point(2.0F, 3.0F, -1.0F));
    EXPECT_EQ(PlacedLines(*gen.cell),
              (Lines{"m 266 -492 30 r1.57079637", "m 522 -748 -226 r7.85398149 s0.5"}));
}

TEST_F(FrameTest, CompanionsFollowTheirTileAtItsPlace) {
    Tile wall;
    wall.kindName = "WallN";
    wall.id = "wall";
    wall.offset.z = 5.0F;
    wall.requiredName = "banner";
    Tile banner;
    banner.kindName = "Banner";
    banner.id = "cloth";
    banner.offset.x = 1.0F;
    banner.requiredName = "Nail";
    Tile nail;
    nail.kindName = "Nail";
    nail.id = "nail";
    const auto set = MakeDi<TileSet>();
    set->Set(wall);
    set->Set(banner);
    set->Set(nail);
    info.defTileSet = set;
    const OpenGen gen = Begun();
    const DiPtr<Layout> layout = ToLayout("wN&?Nail", *set);
    gen.CvtTiles(*gen.cell, *layout->GetElmt(0, 0), DiPos(0, 1, 0), Di3Point());
    // What the companion itself requires is not followed.
    EXPECT_EQ(PlacedLines(*gen.cell), (Lines{"wall 0 -256 5", "cloth 1 -256 0", "nail 0 -256 0"}));
}

TEST_F(FrameTest, MissingCompanionIsSkippedSilently) {
    const OpenGen gen = Begun();
    const DiPtr<Tile> tile = Piece("WallN");
    tile->requiredName = "Banner";
    gen.CvtTiles(*gen.cell, Holding(tile), DiPos(0, 0, 0), Di3Point());
    EXPECT_EQ(PlacedLines(*gen.cell), Lines{"m 0 0 0"});
    EXPECT_TRUE(ErrorLines().empty());
}

// Teleporting doors.

class TeleportTest : public FrameTest {
protected:
    DiPtr<Layout> level = Layout::Create(DiPos(5, 5, 0));
    DiPtr<GridElmt> door = ToElmt("DN!", *tiles);

    TeleportTest() {
        level->SetName("Depths");
        level->SetElmt(ToElmt("DS", *tiles), 2, 3);
        door->teleDest = DiPos(3, 2, 0);
        door->teleLayout = level;
    }

    Lines Placed() {
        const OpenGen gen = Begun();
        gen.CvtTiles(*gen.cell, *door, DiPos(0, 0, 0), Di3Point());
        return PlacedLines(*gen.cell);
    }
};

TEST_F(TeleportTest, OnlyTheDoorItselfLeadsAway) {
    EXPECT_EQ(Placed(),
              (Lines{"DoorwayN 0 0 0", "DoorjambN 0 0 0", "DoorN 0 0 0 -> Depths 768 -512 0"}));
}

TEST_F(TeleportTest, AllFourDoorsLeadAway) {
    for (const char* code : {"lN", "lS", "lE", "lW"}) {
        door->tiles = ToElmt(code, *tiles)->tiles;
        ASSERT_EQ(Placed().size(), 1U) << code;
        EXPECT_NE(Placed()[0].find(" -> Depths"), std::string::npos) << code;
    }
}

TEST_F(TeleportTest, DoorThatCompletesAnotherTileLeadsAwayToo) {
    tiles->Get("DoorwayN")->requiredName = "DoorN";
    door = ToElmt("dN!", *tiles);
    door->teleDest = DiPos(3, 2, 0);
    door->teleLayout = level;
    EXPECT_EQ(Placed(), (Lines{"DoorwayN 0 0 0", "DoorN 0 0 0 -> Depths 768 -512 0"}));
}

TEST_F(TeleportTest, DoorWithoutTheMarkOrTheLevelLeadsNowhere) {
    door->isTeleport = false;
    EXPECT_EQ(Placed()[2], "DoorN 0 0 0");
    door->isTeleport = true;
    door->teleLayout = nullptr;
    EXPECT_EQ(Placed()[2], "DoorN 0 0 0");
}

TEST_F(TeleportTest, DoorToAnEmptyCellOrBeyondTheGridLeadsNowhere) {
    for (const DiPos& at : {DiPos(2, 3, 0), DiPos(5, 0, 0), DiPos(-1, 2, 0), DiPos(3, 5, 0)}) {
        door->teleDest = at;
        EXPECT_EQ(Placed()[2], "DoorN 0 0 0");
    }
}

TEST_F(TeleportTest, ArrivalIsMeasuredInTheCellsOfItsOwnLevel) {
    level->SetTileSet(MakeFullTileSet("Cave", 512));
    level->SetOffset(Di3Point(10.0F, 10.0F, 10.0F));
    level->GetElmt(2, 3)->tiles[0]->offset = Di3Point(9.0F, 9.0F, 9.0F);
    EXPECT_EQ(Placed()[2], "DoorN 0 0 0 -> Depths 1536 -1024 0");
}

TEST_F(TeleportTest, HeightOfTheArrivalCounts) {
    door->teleDest.z = 2;
    EXPECT_EQ(Placed()[2], "DoorN 0 0 0 -> Depths 768 -512 512");
    level->GetElmt(2, 3)->platformHeight = 16;
    EXPECT_EQ(Placed()[2], "DoorN 0 0 0 -> Depths 768 -512 512");
    level->GetElmt(2, 3)->platforms.push_back(MakeDi<PlatformTile>());
    EXPECT_EQ(Placed()[2], "DoorN 0 0 0 -> Depths 768 -512 528");
}

TEST_F(TeleportTest, ArrivalInRowZeroIsAPlainZero) {
    door->teleDest = DiPos(0, 0, 0);
    level->SetElmt(ToElmt("DS", *tiles), 0, 0);
    EXPECT_EQ(Placed()[2], "DoorN 0 0 0 -> Depths 0 0 0");
}

TEST_F(TeleportTest, OneArrivesFacingIntoTheRoom) {
    struct ArrivalCase {
        const char* cell;
        const char* angle;
    };
    const ArrivalCase cases[] = {
        {"DN", " r3.14159274"},
        {"DS", ""},
        {"DE", " r4.71238899"},
        {"DW", " r1.57079637"},
        {"wN", " r3.14159274"},
        {"wE", " r4.71238899"},
        {"v", ""},
        {"<", " r1.57079637"},
        {"NW", ""},
        {"NE", ""},
        {"SW", ""},
        {"SE", ""},
        {"|", ""},
        {"-", ""},
        {"+", ""},
        {"c", ""},
        {"NWn", ""},
        {"o", ""},
        {"c&DN", ""},
    };
    for (const ArrivalCase& c : cases) {
        level->SetElmt(ToElmt(c.cell, *tiles), 2, 3);
        EXPECT_EQ(Placed()[2], "DoorN 0 0 0 -> Depths 768 -512 0" + std::string(c.angle)) << c.cell;
    }
}

// Platform pieces to references.

TEST_F(FrameTest, PlatformPiecesBecomeReferences) {
    const OpenGen gen = Begun();
    GridElmt elmt;
    gen.CvtPlatforms(*gen.cell, elmt, DiPos(1, 1, 0), Di3Point());
    EXPECT_TRUE(PlacedLines(*gen.cell).empty());
    for (const char* id : {"stairs", "floor"}) {
        elmt.platforms.push_back(MakeDi<PlatformTile>());
        elmt.platforms.back()->id = id;
    }
    elmt.platforms[0]->offset = Di3Point(1.0F, 2.0F, 3.0F);
    elmt.platforms[0]->zRotate = 270;
    elmt.platformHeight = 64;
    gen.CvtPlatforms(*gen.cell, elmt, DiPos(1, 2, 0), Di3Point(1.0F, 0.0F, 0.5F));
    EXPECT_EQ(PlacedLines(*gen.cell),
              (Lines{"stairs 513 -510 131 r4.71238899", "floor 512 -512 128"}));
}

// Whole layouts.

TEST_F(FrameTest, ElementsAreWrittenRowByRowTilesThenPlatformsThenContents) {
    OpenGen gen = Begun();
    const DiPtr<Layout> layout = ToLayout("c .\n. wN", *tiles);
    const DiPtr<GridElmt>& first = layout->GetElmt(0, 0);
    first->platforms.push_back(MakeDi<PlatformTile>());
    first->platforms[0]->id = "floor";
    first->AddContent(MakeDi<ContentItem>());
    first->contents[0]->uniqueName = "bed";
    gen.LayoutToCell(*gen.cell, *layout, Di3Point());
    EXPECT_EQ(PlacedLines(*gen.cell),
              (Lines{"Center 0 0 0", "floor 0 0 0", "bed 0 0 0", "WallN 256 -256 0"}));
}

TEST_F(FrameTest, OffsetsOfNestedLayoutsAddUp) {
    OpenGen gen = Begun();
    const DiPtr<Layout> layout = ToLayout("c", *tiles);
    const DiPtr<Layout> child = ToLayout("wN", *tiles);
    const DiPtr<Layout> grandchild = ToLayout("wS", *tiles);
    child->SetOffset(Di3Point(1.0F, 1.0F, 0.0F));
    grandchild->SetOffset(Di3Point(2.0F, 3.0F, 0.5F));
    layout->AddChild(child);
    layout->AddChild(ToLayout("wE", *tiles));
    child->AddChild(grandchild);
    gen.LayoutToCell(*gen.cell, *layout, Di3Point());
    // The turned wall's offset of 0 became -0.0, which a sum with 0.0 keeps.
    EXPECT_EQ(PlacedLines(*gen.cell),
              (Lines{"Center 0 0 0",
                     "WallN 256 -256 0",
                     "WallS 768 -1024 128 r3.14159274",
                     "WallE 0 -0 0 r1.57079637"}));
    layout->Dissolve();
}

TEST_F(FrameTest, LayoutsOwnTileSetDoesNotChangeItsScale) {
    OpenGen gen = Begun();
    const DiPtr<Layout> layout = ToLayout(". c", *tiles);
    layout->SetTileSet(MakeFullTileSet("Cave", 512));
    gen.LayoutToCell(*gen.cell, *layout, Di3Point());
    EXPECT_EQ(PlacedLines(*gen.cell), Lines{"Center 256 0 0"});
}

TEST_F(FrameTest, ElementWithoutTilesLeavesNothing) {
    OpenGen gen = Begun();
    gen.LayoutToCell(*gen.cell, *ToLayout("o .", *tiles), Di3Point());
    EXPECT_TRUE(PlacedLines(*gen.cell).empty());
}

TEST_F(FrameTest, ReferencesTellTilesAndDoorsApart) {
    OpenGen gen = Begun();
    for (const char* kind : {"WallN", "DoorwayN", "DoorjambN", "DoorN"}) {
        gen.CvtTiles(*gen.cell, Holding(Piece(kind)), DiPos(), Di3Point());
    }
    std::vector<RefSort> sorts;
    for (const Ref& ref : gen.cell->GetRefs()) {
        sorts.push_back(ref.sort);
    }
    EXPECT_EQ(sorts,
              (std::vector<RefSort>{
                  RefSort::Marker, RefSort::Tile, RefSort::Tile, RefSort::Tile, RefSort::Door}));
}

} // namespace

} // namespace Tarnex::Test
