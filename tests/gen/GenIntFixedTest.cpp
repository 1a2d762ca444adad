// SPDX-License-Identifier: MIT
#include <vaultry/gen/GenIntFixed.h>

#include <gtest/gtest.h>

#include <tests/gen/GenTest.h>

namespace Tarnex::Test {

namespace {

class FixedTest : public GenTest {
protected:
    // The references of the one cell that a run makes.
    Lines Generated() {
        info.mod.ResetContent();
        GenIntFixed(info).Gen();
        EXPECT_EQ(info.mod.GetCells().size(), 1U);
        return RefLines(*info.mod.GetCells().at(0));
    }

    void AddPlatformKit() {
        PlatformTile floor;
        floor.kindName = "Floor";
        floor.id = "floor";
        floor.size = Di3Point(256.0F, 256.0F, 0.0F);
        auto kit = MakeDi<Platform>();
        kit->Set(floor);
        info.config.platformList.push_back(kit);
    }
};

TEST_F(FixedTest, TemplateBecomesOneCell) {
    info.cellName = "Hut";
    info.defTemplate = ToTemplate("NW wN\n.  c");
    EXPECT_EQ(
        Generated(),
        (Lines{"NorthMarker 0 -150 0", "CornerNW 0 0 0", "WallN 256 0 0", "Center 256 -256 0"}));
    EXPECT_EQ(info.mod.GetCells()[0]->GetName(), "Hut");
}

TEST_F(FixedTest, ParametersOfRandomLevelsPlayNoPart) {
    info.cellName = "Hut";
    info.defTemplate = ToTemplate("c");
    info.randomInfo.numLevels = 3;
    info.randomInfo.randomTileSet = info.randomInfo.randomTheme = true;
    info.randomInfo.randomCreatureTheme = info.randomInfo.randomTreasureTheme = true;
    info.config.roomTileSets = {MakeFullTileSet(), MakeFullTileSet()};
    info.config.themes = {MakeTheme("A", {}), MakeTheme("B", {})};
    const DrawLog draws;
    EXPECT_EQ(Generated().size(), 2U);
    EXPECT_EQ(info.mod.GetCells()[0]->GetName(), "Hut");
    EXPECT_EQ(info.defTileSet, tiles);
    EXPECT_FALSE(info.defTheme);
    EXPECT_EQ(draws.Bounds(), Draws{});
}

TEST_F(FixedTest, ChildTemplatesAreShiftedByTheirPlace) {
    info.defTemplate = ToTemplate("c");
    const auto child = ToTemplate("wN");
    const auto grandchild = ToTemplate("NW");
    child->SetOffset(Di3Point(1.0F, 1.0F, 0.0F));
    grandchild->SetOffset(Di3Point(2.0F, 3.0F, 0.25F));
    child->AddChild(grandchild);
    info.defTemplate->AddChild(child);
    EXPECT_EQ(
        Generated(),
        (Lines{
            "NorthMarker 0 -150 0", "Center 0 0 0", "WallN 256 -256 0", "CornerNW 768 -1024 64"}));
}

TEST_F(FixedTest, PlatformsAreForCavesAndOnRequestOnly) {
    AddPlatformKit();
    info.defTemplate = ToTemplate("wN");
    EXPECT_EQ(Generated().size(), 2U);
    info.addPlatforms = true;
    EXPECT_EQ(Generated().size(), 2U);
    for (const char* type : {"Cave", "cave"}) {
        tiles->SetType(type);
        EXPECT_EQ(Generated(), (Lines{"NorthMarker 0 -150 0", "WallN 0 0 0", "floor 0 0 -112"}));
    }
    info.addPlatforms = false;
    EXPECT_EQ(Generated().size(), 2U);
}

TEST_F(FixedTest, PlatformIsDrawnBeforeTheContents) {
    AddPlatformKit();
    AddPlatformKit();
    Add("Furniture", "bed");
    info.defTheme = MakeTheme("Plain", {{}});
    info.addPlatforms = true;
    tiles->SetType("Cave");
    info.defTemplate = ToTemplate("wN wN wN");
    const DrawLog draws;
    Generated();
    EXPECT_EQ(draws.Bounds(), (Draws{2, 1, 3, 1, 2, 1, 1}));
}

TEST_F(FixedTest, ContentStandsOnItsPlatform) {
    AddPlatformKit();
    Add("Furniture", "bed");
    info.defTheme = MakeTheme("Plain", {{}});
    info.addPlatforms = true;
    tiles->SetType("Cave");
    info.defTemplate = ToTemplate("wN");
    // 128 to the wall and 128 down to the floor, 16 up again.
    EXPECT_EQ(Generated(),
              (Lines{"NorthMarker 0 -150 0", "WallN 0 0 0", "floor 0 0 -112", "bed 0 128 -112"}));
}

TEST_F(FixedTest, ContainersAreFilledWithTreasureAtTheEnd) {
    ContentTemplate& chest = Add("Container", "chest");
    chest.weight = 10.0F;
    AddTreasure("Gem", "ruby").weight = 1.0F;
    info.defTheme = MakeTheme("Plain", {{.type = "Container"}});
    info.defTreasureTheme = MakeTheme("Hoard", {{.type = "Gem"}});
    info.defTemplate = ToTemplate("wN wN");
    const DrawLog draws;
    Generated();
    EXPECT_EQ(draws.Bounds(), (Draws{1, 2, 1, 1, 1, 2, 1, 1, 2, 1}));
    ASSERT_EQ(info.mod.GetContainers().size(), 2U);
    EXPECT_EQ(info.mod.GetContainers()[0]->GetInventory().size() +
                  info.mod.GetContainers()[1]->GetInventory().size(),
              2U);
}

TEST_F(FixedTest, SecondRunFillsItsOwnContainersOnly) {
    Add("Container", "chest").weight = 10.0F;
    AddTreasure("Gem", "ruby");
    info.defTheme = MakeTheme("Plain", {{.type = "Container"}});
    info.defTreasureTheme = MakeTheme("Hoard", {{.type = "Gem"}});
    info.defTemplate = ToTemplate("wN");
    GenIntFixed gen(info);
    gen.Gen();
    gen.Gen();
    ASSERT_EQ(info.mod.GetContainers().size(), 2U);
    EXPECT_EQ(info.mod.GetContainers()[0]->GetInventory().size(), 1U);
    EXPECT_EQ(info.mod.GetContainers()[1]->GetInventory().size(), 1U);
    EXPECT_EQ(info.mod.GetContainers()[1]->GetId(), "Ctr7_2");
}

TEST_F(FixedTest, TemplateIsTakenAtConstruction) {
    info.defTemplate = ToTemplate("c");
    GenIntFixed gen(info);
    info.defTemplate = nullptr;
    gen.Gen();
    EXPECT_EQ(RefLines(*info.mod.GetCells()[0]), (Lines{"NorthMarker 0 -150 0", "Center 0 0 0"}));
}

TEST_F(FixedTest, UnknownTilesAreReportedOnceEachAndLeftOut) {
    info.defTemplate = MakeDi<LayoutTemplate>(DiPos(1, 1, 0));
    info.defTemplate->SetName("Hut");
    const auto cell = MakeDi<TemplateElmt>();
    cell->tileNames = {TileKindName("Lamp"), TileKindName("Lantern")};
    info.defTemplate->SetElmt(cell, 0, 0);
    EXPECT_EQ(Generated(), Lines{"NorthMarker 0 -150 0"});
    EXPECT_EQ(
        ErrorLines(),
        (Lines{"Error : Generator : Tile Set 'Full' does not have a Tile 'Lamp', called for by "
               "Layout 'Hut'.",
               "Error : Generator : Tile Set 'Full' does not have a Tile 'Lantern', called "
               "for by Layout 'Hut'."}));
}

class Watcher : public JobStatus {
public:
    void SetPos(std::int32_t /*position*/) override { ++calls; }
    void SetRange(std::int32_t /*low*/, std::int32_t /*high*/) override { ++calls; }
    void SetText(const std::string& /*text*/) override { ++calls; }
    void StepIt() override { ++calls; }
    bool HasBeenCanceled() const override {
        ++polls;
        return true;
    }

    int calls = 0;
    mutable int polls = 0;
};

TEST_F(FixedTest, NoProgressIsReportedAndNoCancelAskedFor) {
    Watcher watcher;
    info.jobStatus = &watcher;
    info.defTemplate = ToTemplate("c");
    EXPECT_EQ(Generated().size(), 2U);
    EXPECT_EQ(watcher.calls, 0);
    EXPECT_EQ(watcher.polls, 0);
}

TEST_F(FixedTest, RunLeavesNothingOfItsLayoutBehind) {
    info.defTemplate = ToTemplate("c");
    info.defTemplate->AddChild(ToTemplate("wN"));
    info.defTemplate->GetChildren()[0]->AddChild(ToTemplate("wN"));
    Generated();
    // Only the set holds the tiles any more.
    EXPECT_FALSE(tiles->Get(TileKindName("WallN"))->isShared());
    EXPECT_FALSE(tiles->Get(TileKindName("Center"))->isShared());
}

} // namespace

} // namespace Tarnex::Test
