// SPDX-License-Identifier: MIT
// Grids of elements: access, hierarchy, merging, shadows, the deep search, snapshots.
#include <vaultry/layout/Layout.h>

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <tests/support/TextGrid.h>

namespace Tarnex::Test {

namespace {

constexpr std::uint32_t kMinusOne = 0xFFFFFFFFU;

class LayoutTest : public ::testing::Test {
protected:
    DiPtr<TileSet> tiles = MakeFullTileSet();

    DiPtr<Layout> Drawn(std::string_view map, const Di3Point& offset = {}) const {
        DiPtr<Layout> layout = ToLayout(map, *tiles);
        layout->SetOffset(offset);
        return layout;
    }

    static DiPtr<Layout> Sized(const DiPos& size, const Di3Point& offset = {}) {
        DiPtr<Layout> layout = Layout::Create(size);
        layout->SetOffset(offset);
        return layout;
    }

    // The elements found at a place, as the codes of a map.
    static std::string Deep(const Layout& layout,
                            std::uint32_t row,
                            std::uint32_t col,
                            float zMin = -1.0F,
                            float zMax = 1.0F) {
        std::string codes;
        for (const DiPtr<GridElmt>& elmt : layout.GetElmtsDeep(row, col, zMin, zMax)) {
            codes += (codes.empty() ? "" : " ") + ToText(elmt);
        }
        return codes;
    }
};

// Creation and cells.

TEST_F(LayoutTest, NewLayoutIsAnEmptyGridOfItsSize) {
    const DiPtr<Layout> layout = Layout::Create(DiPos(3, 2, 5));
    EXPECT_EQ(layout->GetSize(), DiPos(3, 2, 5));
    EXPECT_EQ(layout->GetWidth(), 3U);
    EXPECT_EQ(layout->GetHeight(), 2U);
    EXPECT_EQ(layout->GetOffset(), Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(layout->GetName(), "");
    EXPECT_FALSE(layout->GetTileSet());
    EXPECT_TRUE(layout->GetChildren().empty());
    EXPECT_EQ(ToText(*layout), Map(". . .\n. . ."));
}

TEST_F(LayoutTest, NameOffsetAndTileSetAreKept) {
    const DiPtr<Layout> layout = Layout::Create(DiPos(1, 1, 0));
    layout->SetName("Crypt");
    layout->SetOffset(Di3Point(1.5F, -2.0F, 3.0F));
    layout->SetTileSet(tiles);
    EXPECT_EQ(layout->GetName(), "Crypt");
    EXPECT_EQ(layout->GetOffset(), Di3Point(1.5F, -2.0F, 3.0F));
    EXPECT_EQ(layout->GetTileSet(), tiles);
}

TEST_F(LayoutTest, RowComesFirst) {
    const DiPtr<Layout> layout = Layout::Create(DiPos(3, 2, 0));
    layout->SetElmt(ToElmt("wN", *tiles), 1, 2);
    EXPECT_EQ(ToText(*layout), Map(". . .\n. . wN"));
    EXPECT_EQ(ToText(layout->GetElmt(1, 2)), "wN");
    EXPECT_EQ(layout->GetElmt(1, 2), layout->GetRow(1)[2]);
}

TEST_F(LayoutTest, StoringNullClearsTheCell) {
    const DiPtr<Layout> layout = Drawn("wN c");
    layout->SetElmt(nullptr, 0, 0);
    EXPECT_EQ(ToText(*layout), Map(". c"));
}

TEST_F(LayoutTest, ReadingOutsideGivesNull) {
    const DiPtr<Layout> layout = Drawn("c c c\nc c c");
    EXPECT_TRUE(layout->GetElmt(1, 2));
    EXPECT_FALSE(layout->GetElmt(2, 0));
    EXPECT_FALSE(layout->GetElmt(0, 3));
    EXPECT_FALSE(layout->GetElmt(kMinusOne, 0));
    EXPECT_FALSE(layout->GetElmt(0, kMinusOne));
    EXPECT_FALSE(Layout::Create(DiPos(0, 0, 0))->GetElmt(0, 0));
}

TEST_F(LayoutTest, WritingAColumnOutsideThrows) {
    const DiPtr<Layout> layout = Layout::Create(DiPos(3, 2, 0));
    for (const int col : {3, 4, -1}) {
        try {
            layout->SetElmt(ToElmt("c", *tiles), 0, col);
            FAIL() << "column " << col;
        } catch (const std::out_of_range& e) {
            EXPECT_STREQ(e.what(), "invalid vector<T> subscript");
        }
    }
    EXPECT_EQ(ToText(*layout), Map(". . .\n. . ."));
}

TEST_F(LayoutTest, WritingARowOutsideIsDroppedButItsColumnIsStillChecked) {
    const DiPtr<Layout> layout = Layout::Create(DiPos(2, 2, 0));
    layout->SetElmt(ToElmt("c", *tiles), 2, 0);
    layout->SetElmt(ToElmt("c", *tiles), -1, 1);
    EXPECT_EQ(ToText(*layout), Map(". .\n. ."));
    EXPECT_THROW(layout->SetElmt(ToElmt("c", *tiles), 2, 2), std::out_of_range);
    EXPECT_THROW(layout->SetElmt(ToElmt("c", *tiles), -1, -1), std::out_of_range);
}

TEST_F(LayoutTest, LayoutWithoutColumnsTakesNothing) {
    for (const std::int32_t width : {0, -3}) {
        const DiPtr<Layout> layout = Layout::Create(DiPos(width, 2, 0));
        EXPECT_THROW(layout->SetElmt(ToElmt("c", *tiles), 0, 0), std::out_of_range);
        EXPECT_TRUE(layout->GetRow(0).empty());
    }
}

TEST_F(LayoutTest, HasTilesNeedsAnElementWithTiles) {
    const DiPtr<Layout> layout = Drawn("c o .");
    EXPECT_TRUE(layout->HasTiles(0, 0));
    EXPECT_FALSE(layout->HasTiles(0, 1));
    EXPECT_FALSE(layout->HasTiles(0, 2));
    EXPECT_FALSE(layout->HasTiles(0, 3));
    EXPECT_FALSE(layout->HasTiles(kMinusOne, 0));
}

// Hierarchy.

TEST_F(LayoutTest, RootIsItsOwnParent) {
    const DiPtr<Layout> root = Layout::Create(DiPos(1, 1, 0));
    EXPECT_EQ(root->GetParent(), root);
    EXPECT_EQ(root->GetRoot(), root);
}

TEST_F(LayoutTest, ChildrenKnowTheirParentAndRoot) {
    const DiPtr<Layout> root = Layout::Create(DiPos(1, 1, 0));
    const DiPtr<Layout> child = Layout::Create(DiPos(1, 1, 0));
    const DiPtr<Layout> grandchild = Layout::Create(DiPos(1, 1, 0));
    root->AddChild(child);
    root->AddChild(nullptr);
    child->AddChild(grandchild);
    ASSERT_EQ(root->GetChildren().size(), 1U);
    EXPECT_EQ(root->GetChildren()[0], child);
    EXPECT_EQ(child->GetParent(), root);
    EXPECT_EQ(grandchild->GetParent(), child);
    EXPECT_EQ(grandchild->GetRoot(), root);
    root->Dissolve();
}

TEST_F(LayoutTest, SmallestChildOffsetIsTakenComponentByComponent) {
    const DiPtr<Layout> root = Layout::Create(DiPos(9, 9, 1));
    EXPECT_EQ(root->GetMinChildOffset(), Di3Point(0.0F, 0.0F, 0.0F));
    root->AddChild(Sized(DiPos(1, 1, 1), Di3Point(4.0F, 7.0F, 3.0F)));
    EXPECT_EQ(root->GetMinChildOffset(), Di3Point(4.0F, 7.0F, 3.0F));
    root->AddChild(Sized(DiPos(1, 1, 1), Di3Point(6.0F, -2.5F, 3.0F)));
    root->AddChild(Sized(DiPos(1, 1, 1), Di3Point(5.0F, 0.0F, 1.0F)));
    EXPECT_EQ(root->GetMinChildOffset(), Di3Point(4.0F, -2.5F, 1.0F));
    root->Dissolve();
}

struct TotalCase {
    const char* what;
    std::vector<std::pair<DiPos, Di3Point>> children;
    DiPos total;
};

TEST_F(LayoutTest, TotalSizeGrowsByTheReachOfChildren) {
    // clang-format off
    const TotalCase cases[] = {
        {"no children",              {},                                                   {10, 10, 1}},
        {"inside",                   {{{4, 4, 1}, {2, 2, 0}}},                             {10, 10, 1}},
        {"far east, past the north", {{{4, 4, 1}, {8, -2, 0}}},                            {12, 12, 1}},
        {"above",                    {{{4, 4, 1}, {0, 0, 3}}},                             {10, 10, 4}},
        {"below",                    {{{4, 4, 1}, {0, 0, -3}}},                            {10, 10, 4}},
        {"twice west adds up",       {{{4, 4, 1}, {-2, 0, 0}}, {{4, 4, 1}, {-2, 5, 0}}},   {14, 10, 1}},
        {"west, then far east",      {{{4, 4, 1}, {-2, 0, 0}}, {{4, 4, 1}, {9, 0, 0}}},    {13, 10, 1}},
        {"far east, then west",      {{{4, 4, 1}, {9, 0, 0}}, {{4, 4, 1}, {-2, 0, 0}}},    {15, 10, 1}},
        {"wider than all to the west", {{{20, 4, 1}, {-2, 0, 0}}},                         {20, 10, 1}},
        {"fractions are cut",        {{{4, 4, 1}, {8.75F, -0.75F, 0}}},                    {12, 10, 1}},
        {"fraction over one",        {{{4, 4, 1}, {0, -1.75F, 0}}},                        {10, 11, 1}},
    };
    // clang-format on
    for (const TotalCase& c : cases) {
        const DiPtr<Layout> root = Layout::Create(DiPos(10, 10, 1));
        for (const auto& [size, offset] : c.children) {
            root->AddChild(Sized(size, offset));
        }
        EXPECT_EQ(root->GetTotalSize().x, c.total.x) << c.what;
        EXPECT_EQ(root->GetTotalSize().y, c.total.y) << c.what;
        EXPECT_EQ(root->GetTotalSize().z, c.total.z) << c.what;
        root->Dissolve();
    }
}

TEST_F(LayoutTest, TotalSizeCountsGrandchildren) {
    const DiPtr<Layout> root = Layout::Create(DiPos(5, 5, 1));
    const DiPtr<Layout> child = Sized(DiPos(3, 3, 1), Di3Point(2.0F, 0.0F, 1.0F));
    root->AddChild(child);
    child->AddChild(Sized(DiPos(2, 2, 1), Di3Point(3.0F, -1.0F, 2.0F)));
    EXPECT_EQ(child->GetTotalSize(), DiPos(5, 4, 3));
    EXPECT_EQ(root->GetTotalSize(), DiPos(7, 5, 4));
    root->Dissolve();
}

// Merging.

TEST_F(LayoutTest, MergedLayoutLandsAtItsOffset) {
    const DiPtr<Layout> level = Layout::Create(DiPos(10, 10, 0));
    const DiPtr<Layout> room = Drawn("NW wN NE\nwW c wE\nSW wS SE", Di3Point(2.0F, 1.0F, 0.0F));
    level->AddContents(*room);
    EXPECT_EQ(ToText(*level), Map(R"(
        . . .  .  .  . . . . .
        . . NW wN NE . . . . .
        . . wW c  wE . . . . .
        . . SW wS SE . . . . .
        . . .  .  .  . . . . .
        . . .  .  .  . . . . .
        . . .  .  .  . . . . .
        . . .  .  .  . . . . .
        . . .  .  .  . . . . .
        . . .  .  .  . . . . .)"));
}

TEST_F(LayoutTest, MergingClearsWhereTheOtherIsEmptyAndSharesElements) {
    const DiPtr<Layout> level = Drawn("c c c\nc c c");
    const DiPtr<Layout> room = Drawn(". wN", Di3Point(1.0F, 0.0F, 0.0F));
    level->AddContents(*room);
    EXPECT_EQ(ToText(*level), Map("c . wN\nc c c"));
    EXPECT_EQ(level->GetElmt(0, 2), room->GetElmt(0, 1));
    EXPECT_EQ(ToText(*room), Map(". wN"));
    EXPECT_EQ(room->GetOffset(), Di3Point(1.0F, 0.0F, 0.0F));
}

TEST_F(LayoutTest, MergingCutsFractionsOfTheOffset) {
    const DiPtr<Layout> level = Drawn(". . .\n. . .");
    level->AddContents(*Drawn("c", Di3Point(1.9F, 0.9F, 0.0F)));
    level->AddContents(*Drawn("wN", Di3Point(-0.9F, -0.9F, 0.0F)));
    EXPECT_EQ(ToText(*level), Map("wN c .\n. . ."));
}

TEST_F(LayoutTest, MergingDropsRowsOutsideButThrowsForColumnsOutside) {
    const DiPtr<Layout> level = Drawn(". .\n. .");
    level->AddContents(*Drawn("c c\nwN wN\nwS wS", Di3Point(0.0F, -1.0F, 0.0F)));
    EXPECT_EQ(ToText(*level), Map("wN wN\nwS wS"));
    EXPECT_THROW(level->AddContents(*Drawn("c c", Di3Point(1.0F, 0.0F, 0.0F))), std::out_of_range);
    EXPECT_THROW(level->AddContents(*Drawn("c", Di3Point(-1.0F, 0.0F, 0.0F))), std::out_of_range);
}

TEST_F(LayoutTest, MergedChildrenMoveOverWithTheirShiftAndKeepTheirParent) {
    const DiPtr<Layout> level = Layout::Create(DiPos(9, 9, 0));
    level->AddChild(Sized(DiPos(1, 1, 1)));
    const DiPtr<Layout> room = Sized(DiPos(2, 2, 1), Di3Point(3.0F, 4.0F, 5.0F));
    const DiPtr<Layout> loft = Sized(DiPos(1, 1, 1), Di3Point(0.5F, 1.0F, 2.0F));
    const DiPtr<Layout> pit = Sized(DiPos(1, 1, 1), Di3Point(1.0F, 0.0F, -2.0F));
    room->AddChild(loft);
    room->AddChild(pit);
    level->AddContents(*room);
    ASSERT_EQ(level->GetChildren().size(), 3U);
    EXPECT_EQ(level->GetChildren()[1], loft);
    EXPECT_EQ(level->GetChildren()[2], pit);
    EXPECT_EQ(loft->GetOffset(), Di3Point(3.5F, 5.0F, 2.0F));
    EXPECT_EQ(pit->GetOffset(), Di3Point(4.0F, 4.0F, -2.0F));
    EXPECT_EQ(loft->GetParent(), room);
    EXPECT_TRUE(room->GetChildren().empty());
    level->Dissolve();
}

// Shadows.

TEST_F(LayoutTest, ShadowsShowDirectChildrenInEmptyCells) {
    const DiPtr<Layout> level = Drawn(". . . .\n. - . .\n. . . .");
    const DiPtr<Layout> room = Drawn("NW wN .\nwW c o", Di3Point(1.0F, 0.0F, 0.0F));
    level->AddChild(room);
    level->AddShadows(-1.0F, 1.0F);
    EXPECT_EQ(ToText(*level), Map(R"(
        . NW~ wN~ .
        . -   c~  o~
        . .   .   .)"));
    EXPECT_NE(level->GetElmt(0, 1), room->GetElmt(0, 0));
    EXPECT_FALSE(room->GetElmt(0, 0)->isShadow);
    EXPECT_FALSE(level->GetElmt(1, 1)->isShadow);
    level->RemoveShadows();
    EXPECT_EQ(ToText(*level), Map(". . . .\n. - . .\n. . . ."));
    level->Dissolve();
}

TEST_F(LayoutTest, ShadowsAreThrownWithinTheLimitsOnly) {
    const DiPtr<Layout> level = Drawn(". . . . . .");
    float col = 0.0F;
    for (const float z : {-1.5F, -1.0F, 0.0F, 1.0F, 1.5F, 2.0F}) {
        level->AddChild(Drawn("c", Di3Point(col, 0.0F, z)));
        col += 1.0F;
    }
    level->AddShadows(-1.0F, 1.0F);
    EXPECT_EQ(ToText(*level), Map(". c~ c~ c~ . ."));
    level->Dissolve();
}

TEST_F(LayoutTest, ShadowsStopAtTheBorder) {
    const DiPtr<Layout> level = Drawn(". .\n. .");
    level->AddChild(Drawn("wN wS\nwE wW", Di3Point(-1.0F, -1.0F, 0.0F)));
    level->AddChild(Drawn("NW NE\nSW SE", Di3Point(1.0F, 1.0F, 0.0F)));
    level->AddShadows(-1.0F, 1.0F);
    EXPECT_EQ(ToText(*level), Map("wW~ .\n. NW~"));
    level->Dissolve();
}

TEST_F(LayoutTest, ShadowPositionsAreCutTowardsZero) {
    const DiPtr<Layout> level = Drawn(". . .");
    level->AddChild(Drawn("wN wS", Di3Point(-0.5F, -0.5F, 0.0F)));
    level->AddShadows(-1.0F, 1.0F);
    // Both cells fall on column 0; the first one stays.
    EXPECT_EQ(ToText(*level), Map("wN~ . ."));
    level->Dissolve();
}

TEST_F(LayoutTest, GrandchildrenThrowNoShadow) {
    const DiPtr<Layout> level = Drawn(". .");
    const DiPtr<Layout> room = Layout::Create(DiPos(1, 1, 1));
    level->AddChild(room);
    room->AddChild(Drawn("c", Di3Point(0.0F, 0.0F, 0.0F)));
    level->AddShadows(-1.0F, 1.0F);
    EXPECT_EQ(ToText(*level), Map(". ."));
    level->Dissolve();
}

TEST_F(LayoutTest, FirstChildWinsAShadowCell) {
    const DiPtr<Layout> level = Drawn(".");
    level->AddChild(Drawn("wN"));
    level->AddChild(Drawn("wS"));
    level->AddShadows(-1.0F, 1.0F);
    EXPECT_EQ(ToText(*level), Map("wN~"));
    level->Dissolve();
}

TEST_F(LayoutTest, RemovingShadowsLeavesTheChildrenAlone) {
    const DiPtr<Layout> level = Drawn(". c~ c");
    const DiPtr<Layout> room = Drawn("c~");
    level->AddChild(room);
    level->RemoveShadows();
    EXPECT_EQ(ToText(*level), Map(". . c"));
    EXPECT_EQ(ToText(*room), Map("c~"));
    level->Dissolve();
}

// The elements at one place.

TEST_F(LayoutTest, DeepSearchFromAChildFindsTheRootsElementFirst) {
    const DiPtr<Layout> root = Layout::Create(DiPos(8, 8, 1));
    root->SetElmt(ToElmt("c", *tiles), 5, 5);
    const DiPtr<Layout> child = Drawn("wN wS", Di3Point(5.0F, 5.0F, 0.0F));
    root->AddChild(child);
    EXPECT_EQ(Deep(*child, 0, 0), "c wN");
    EXPECT_EQ(Deep(*child, 0, 1), "wS");
    EXPECT_EQ(Deep(*root, 5, 5), "c wN");
    EXPECT_EQ(Deep(*root, 0, 0), "");
    EXPECT_EQ(child->GetElmtsDeep(0, 0, -1.0F, 1.0F)[1], child->GetElmt(0, 0));
    root->Dissolve();
}

TEST_F(LayoutTest, DeepSearchGoesDepthFirst) {
    const DiPtr<Layout> root = Drawn("c");
    const DiPtr<Layout> first = Drawn("wN");
    root->AddChild(first);
    first->AddChild(Drawn("wS"));
    root->AddChild(Drawn("wE"));
    EXPECT_EQ(Deep(*root, 0, 0), "c wN wS wE");
    EXPECT_EQ(Deep(*first->GetChildren()[0], 0, 0), "c wN wS wE");
    root->Dissolve();
}

TEST_F(LayoutTest, DeepSearchLimitsAreRelativeToTheLayoutAsked) {
    const DiPtr<Layout> root = Drawn("c");
    const DiPtr<Layout> loft = Drawn("wN", Di3Point(0.0F, 0.0F, 2.0F));
    const DiPtr<Layout> attic = Drawn("wS", Di3Point(0.0F, 0.0F, 1.0F));
    root->AddChild(loft);
    loft->AddChild(attic);
    EXPECT_EQ(Deep(*root, 0, 0), "c");
    EXPECT_EQ(Deep(*root, 0, 0, 0.0F, 2.0F), "c wN");
    EXPECT_EQ(Deep(*root, 0, 0, 0.5F, 3.0F), "wN wS");
    EXPECT_EQ(Deep(*loft, 0, 0), "wN wS");
    EXPECT_EQ(Deep(*loft, 0, 0, -2.0F, 0.0F), "c wN");
    EXPECT_EQ(Deep(*attic, 0, 0, 0.0F, 0.0F), "wS");
    EXPECT_EQ(Deep(*attic, 0, 0, 1.0F, -1.0F), "");
    root->Dissolve();
}

TEST_F(LayoutTest, RowMinusOneOfARootCanBeRowZeroOfAChild) {
    const DiPtr<Layout> root = Drawn("c");
    const DiPtr<Layout> child = Drawn("wN", Di3Point(-1.0F, -1.0F, 0.0F));
    root->AddChild(child);
    EXPECT_EQ(Deep(*root, kMinusOne, kMinusOne), "wN");
    EXPECT_EQ(Deep(*child, 0, 0), "wN");
    EXPECT_EQ(Deep(*child, 1, 1), "c");
    EXPECT_EQ(Deep(*root, kMinusOne, 0), "");
    root->Dissolve();
}

TEST_F(LayoutTest, DeepSearchCutsPositionsTowardsZero) {
    const DiPtr<Layout> root = Drawn("wN wS");
    const DiPtr<Layout> child = Drawn("c -", Di3Point(0.5F, 0.5F, 0.0F));
    root->AddChild(child);
    // Up: 0.5 is 0 and 1.5 is 1; down from there: -0.5 is 0 and 0.5 is 0.
    EXPECT_EQ(Deep(*child, 0, 0), "wN c");
    EXPECT_EQ(Deep(*child, 0, 1), "wS c");
    root->Dissolve();
}

TEST_F(LayoutTest, DeepSearchSurvivesOffsetsBeyondEveryGrid) {
    const DiPtr<Layout> root = Drawn("c");
    const float huge = std::numeric_limits<float>::max();
    const DiPtr<Layout> child = Drawn("wN", Di3Point(huge, -huge, 0.0F));
    root->AddChild(child);
    EXPECT_EQ(Deep(*root, 0, 0), "c");
    EXPECT_EQ(Deep(*child, 0, 0), "");
    EXPECT_EQ(root->GetTotalSize(), DiPos(2147483647, 2147483647, 1));
    root->AddShadows(-1.0F, 1.0F);
    EXPECT_EQ(ToText(*root), Map("c"));
    root->Dissolve();
}

// Snapshots.

TEST_F(LayoutTest, SnapshotCopiesEveryCellAndSharesTheTiles) {
    const DiPtr<Layout> level = Drawn("c . wN\n. - .");
    const DiPtr<Layout> snapshot = Drawn("wS wS wS\nwS wS wS");
    snapshot->ShallowCopy(*level);
    EXPECT_EQ(ToText(*snapshot), Map("c . wN\n. - ."));
    EXPECT_NE(snapshot->GetElmt(0, 0), level->GetElmt(0, 0));
    EXPECT_EQ(snapshot->GetElmt(0, 0)->tiles[0], level->GetElmt(0, 0)->tiles[0]);
    level->GetElmt(0, 0)->ReplaceTiles(tiles->Get("Hall4Way"));
    EXPECT_EQ(ToText(snapshot->GetElmt(0, 0)), "c");
}

TEST_F(LayoutTest, SnapshotTakesCellsAlone) {
    const DiPtr<Layout> level = Drawn("c", Di3Point(1.0F, 2.0F, 3.0F));
    level->SetName("Crypt");
    level->SetTileSet(tiles);
    level->AddChild(Layout::Create(DiPos(1, 1, 1)));
    const DiPtr<Layout> snapshot = Layout::Create(DiPos(1, 1, 1));
    snapshot->ShallowCopy(*level);
    EXPECT_EQ(ToText(*snapshot), Map("c"));
    EXPECT_EQ(snapshot->GetName(), "");
    EXPECT_EQ(snapshot->GetOffset(), Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_FALSE(snapshot->GetTileSet());
    EXPECT_TRUE(snapshot->GetChildren().empty());
    level->Dissolve();
}

TEST_F(LayoutTest, SnapshotOfAnotherSizeDoesNothing) {
    const DiPtr<Layout> level = Drawn("c c");
    for (const DiPos& size : {DiPos(1, 1, 1), DiPos(2, 2, 1), DiPos(2, 1, 0)}) {
        const DiPtr<Layout> other = Layout::Create(size);
        level->ShallowCopy(*other);
        EXPECT_EQ(ToText(*level), Map("c c"));
    }
    Layout::Create(DiPos(3, 0, 0))->ShallowCopy(*Layout::Create(DiPos(3, 0, 0)));
}

// The end of a run.

class CountedLayout : public Layout {
public:
    static int live;
    CountedLayout() : Layout(DiPos(1, 1, 0)) { ++live; }
    ~CountedLayout() override { --live; }
};
int CountedLayout::live = 0;

struct CountedTile : public Tile {
    static int live;
    CountedTile() { ++live; }
    ~CountedTile() override { --live; }
};
int CountedTile::live = 0;

DiPtr<Layout> CountedLevel() {
    DiPtr<Layout> level = MakeDi<CountedLayout>();
    const auto elmt = MakeDi<GridElmt>();
    elmt->AddTile(MakeDi<CountedTile>());
    level->SetElmt(elmt, 0, 0);
    return level;
}

TEST_F(LayoutTest, DissolvingFreesAWholeTree) {
    {
        const DiPtr<Layout> root = CountedLevel();
        const DiPtr<Layout> child = CountedLevel();
        root->AddChild(child);
        child->AddChild(CountedLevel());
        root->AddChild(CountedLevel());
        EXPECT_EQ(CountedLayout::live, 4);
        EXPECT_EQ(CountedTile::live, 4);
        root->Dissolve();
        EXPECT_TRUE(root->GetChildren().empty());
        EXPECT_EQ(child->GetParent(), child);
    }
    EXPECT_EQ(CountedLayout::live, 0);
    EXPECT_EQ(CountedTile::live, 0);
}

TEST_F(LayoutTest, DissolvingFreesMergedRoomsToo) {
    {
        const DiPtr<Layout> level = CountedLevel();
        const DiPtr<Layout> room = CountedLevel();
        room->AddChild(CountedLevel());
        level->AddContents(*room);
        level->Dissolve();
    }
    EXPECT_EQ(CountedLayout::live, 0);
    EXPECT_EQ(CountedTile::live, 0);
}

TEST_F(LayoutTest, DissolvingFreesLevelsJoinedByDoors) {
    {
        const DiPtr<Layout> upper = CountedLevel();
        const DiPtr<Layout> lower = CountedLevel();
        upper->GetElmt(0, 0)->teleLayout = lower;
        lower->GetElmt(0, 0)->teleLayout = upper;
        upper->Dissolve();
        lower->Dissolve();
    }
    EXPECT_EQ(CountedLayout::live, 0);
    EXPECT_EQ(CountedTile::live, 0);
}

} // namespace

} // namespace Tarnex::Test
