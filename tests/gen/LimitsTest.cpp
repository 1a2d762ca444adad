// SPDX-License-Identifier: MIT
// A mistyped number costs a line in the log, not hours or all memory.
#include <tests/gen/GenTest.h>

#include <vaultry/foundation/Random.h>
#include <vaultry/gen/GenIntRandom.h>

#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;
using LimitsTest = GenTest;

TEST_F(LimitsTest, AThemeItemTriesAtMostAHundredThousandPlacements) {
    Add("Furniture", "table");
    info.defTileSet = tiles;
    OpenGen gen(info);
    const DiPtr<Layout> layout = ToLayout("NW wN NE\nwW c wE\nSW wS SE", *tiles);
    OpenGen::SortedElmts sorted;
    gen.SortLayout(sorted, *layout);
    ThemeItem item;
    item.type = "Furniture";
    item.chance = -1.0F;
    item.maximum = 2'000'000'000;
    gen.PlaceFurniture(sorted, item);
    EXPECT_EQ(ErrorLines(),
              Lines{"Error : Generator : Theme '' asks for 2000000000 placements of "
                    "'Furniture'; 100000 were tried."});
}

TEST_F(LimitsTest, AHundredThousandPlacementsAreNothingToSpeakOf) {
    Add("Furniture", "table");
    OpenGen gen(info);
    const DiPtr<Layout> layout = ToLayout("wN", *tiles);
    OpenGen::SortedElmts sorted;
    gen.SortLayout(sorted, *layout);
    ThemeItem item;
    item.type = "Furniture";
    item.chance = -1.0F;
    item.maximum = 100'000;
    gen.PlaceFurniture(sorted, item);
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(LimitsTest, TreasureIsTriedAtMostAHundredThousandTimesPerItem) {
    AddTreasure("Gold", "gold_001");
    OpenGen gen(info);
    std::vector<DiPtr<Container>> chests = {MakeDi<Container>()};
    chests[0]->SetWeight(1.0F);
    ThemeItem item;
    item.type = "Gold";
    item.minimum = 2'147'483'647;
    gen.PlaceCtrTreasure(chests, item);
    EXPECT_EQ(ErrorLines(),
              Lines{"Error : Generator : Theme '' asks for 2147483647 placements of 'Gold'; "
                    "100000 were tried."});
    EXPECT_EQ(chests[0]->GetInventory().size(), 100'000U);
}

// Which theme asks for too much is told while its items are placed, and no longer.
TEST_F(LimitsTest, TheThemeThatAsksForTooMuchIsNamed) {
    Add("Furniture", "table");
    AddTreasure("Gold", "gold_001");
    const ItemSpec tables = {.chance = -1.0F, .maximum = 100'001};
    info.defTheme = MakeTheme("Hall", {tables});
    info.defTreasureTheme =
        MakeTheme("Hoard", {{.type = "Gold", .chance = -1.0F, .maximum = 100'001}});
    OpenGen gen(info);
    const DiPtr<Layout> layout = ToLayout("wN", *tiles);
    std::vector<DiPtr<Container>> chests = {MakeDi<Container>()};
    chests[0]->SetWeight(1.0F);
    gen.AddContents(*layout);
    gen.AddCtrTreasure(chests);
    OpenGen::SortedElmts sorted;
    gen.SortLayout(sorted, *layout);
    gen.PlaceFurniture(sorted, MakeItem(tables));
    EXPECT_EQ(ErrorLines(),
              (Lines{"Error : Generator : Theme 'Hall' asks for 100001 placements of 'Furniture'; "
                     "100000 were tried.",
                     "Error : Generator : Theme 'Hoard' asks for 100001 placements of 'Gold'; "
                     "100000 were tried.",
                     "Error : Generator : Theme '' asks for 100001 placements of 'Furniture'; "
                     "100000 were tried."}));
}

TEST_F(LimitsTest, NoThemeIsNamedOnceFurnishingHasEnded) {
    Add("Furniture", "table");
    info.defTheme = MakeTheme("Hall", {});
    OpenGen gen(info);
    const DiPtr<Layout> layout = ToLayout("wN", *tiles);
    gen.AddContents(*layout);
    OpenGen::SortedElmts sorted;
    gen.SortLayout(sorted, *layout);
    gen.PlaceFurniture(sorted, MakeItem({.chance = -1.0F, .maximum = 100'001}));
    EXPECT_EQ(ErrorLines(),
              Lines{"Error : Generator : Theme '' asks for 100001 placements of 'Furniture'; "
                    "100000 were tried."});
}

TEST_F(LimitsTest, APlatformOfTinyPiecesLacksThoseBeyondTheLimit) {
    OpenGen gen(info);
    Platform platform;
    platform.SetName("Sand");
    PlatformTile floor;
    floor.kindName = "Floor";
    floor.size = Di3Point(0.25F, 0.25F, 1.0F);
    platform.Set(floor);
    floor.kindName = "StairsUpN";
    floor.id = "stairs";
    platform.Set(floor);
    const DiPtr<GridElmt> wall = ToElmt("wN", *tiles);
    gen.AddPlatform(*wall, platform);
    ASSERT_EQ(wall->platforms.size(), 10'001U);
    EXPECT_EQ(wall->platforms.front()->id, "stairs");
    EXPECT_EQ(ErrorLines(),
              Lines{"Error : Generator : Platform 'Sand' asks for 1024 x 1024 floor pieces in a "
                    "cell.  Max = 10000."});
}

TEST_F(LimitsTest, APlatformOfTenThousandPiecesIsWhole) {
    Platform platform;
    PlatformTile floor;
    floor.kindName = "Floor";
    floor.size = Di3Point(2.56F, 2.56F, 1.0F);
    platform.Set(floor);
    floor.kindName = "Beam";
    platform.Set(floor);
    const DiPtr<GridElmt> wall = ToElmt("wN", *tiles);
    OpenGen(info).AddPlatform(*wall, platform);
    EXPECT_EQ(wall->platforms.size(), 10'002U); // with a beam at both ends
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(LimitsTest, ALevelThatWouldNotFitIntoMemoryIsGivenUp) {
    const DiPtr<LayoutTemplate> plan = ToTemplate("wN", "Far");
    const auto part = MakeDi<LayoutTemplate>(DiPos(1, 1, 0));
    part->SetOffset(Di3Point(1e9F, 1e9F, 0.0F));
    plan->AddChild(part);
    info.config.roomLayouts = {plan};
    info.cellName = "Keep";
    info.randomInfo.levelSize = RandomGenInfo::Large;
    info.randomInfo.roomSpacing = RandomGenInfo::Tight;
    SeedRandom(1);
    GenIntRandom(info).Gen();
    const Lines errors = ErrorLines();
    ASSERT_EQ(errors.size(), 4U);
    EXPECT_TRUE(errors[0].starts_with("Error : Generator : Level too large (H="));
    EXPECT_TRUE(errors[0].ends_with(").  Max = 1000000 cells."));
    EXPECT_EQ(errors[3],
              "Error : Generator : Internal:  Giving up.  Failed to connect rooms in layout.");
    EXPECT_TRUE(info.mod.GetCells().empty());
}

// Else levels that come to nothing would take what is left for those that do.
TEST_F(LimitsTest, TheMemoryOfAGivenUpFloorPlanNoLongerCounts) {
    info.config.roomLayouts = {ToTemplate("c", "Spot")};
    info.defTileSet = MakeDi<TileSet>(); // without tiles no rooms are joined
    info.randomInfo.roomSpacing = RandomGenInfo::Tight;
    info.randomInfo.numLevels = 2;
    SeedRandom(1);
    GenIntRandom(info).Gen();
    ASSERT_EQ(info.report.levels.size(), 2U);
    for (const LevelReport& level : info.report.levels) {
        EXPECT_FALSE(level.made);
        EXPECT_EQ(level.attempts, 3U);
        EXPECT_GT(level.size.x, 0);
    }
    EXPECT_EQ(info.meter.GetMemory(), 0U);
    info.defTileSet = tiles;
    GenIntRandom(info).Gen();
    EXPECT_GT(info.meter.GetMemory(), 0U);
}

} // namespace

} // namespace Tarnex::Test
