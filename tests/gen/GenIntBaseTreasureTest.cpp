// SPDX-License-Identifier: MIT
// Filling containers: which of them, how much, what they can carry.
#include <gtest/gtest.h>

#include <tests/gen/GenTest.h>

namespace Tarnex::Test {

namespace {

class TreasureTest : public GenTest {
protected:
    OpenGen gen{info};
    std::vector<DiPtr<Container>> chests;

    void Chests(const std::vector<float>& capacities) {
        chests.clear();
        for (const float capacity : capacities) {
            chests.push_back(MakeDi<Container>());
            chests.back()->SetWeight(capacity);
        }
    }

    ContentTemplate& Gem(const char* name, float weight, int most = 1) {
        ContentTemplate& gem = AddTreasure("Gem", name);
        gem.weight = weight;
        gem.maxCount = most;
        return gem;
    }

    // Fills the chests and answers with the bounds of the draws.
    Draws Fill(ItemSpec item = {}) {
        if (std::string(item.type) == "Furniture") {
            item.type = "Gem";
        }
        const DrawLog draws;
        gen.PlaceCtrTreasure(chests, MakeItem(item));
        return draws.Bounds();
    }

    // The inventory of each chest: "ruby 2, opal 1"; "" for an empty one.
    Lines Inventories() const {
        Lines lines;
        for (const DiPtr<Container>& chest : chests) {
            std::string line;
            for (const auto& [name, count] : chest->GetInventory()) {
                line += (line.empty() ? "" : ", ") + name + " " + std::to_string(count);
            }
            lines.push_back(line);
        }
        return lines;
    }
};

TEST_F(TreasureTest, DrawsAreContentContainerAndQuantity) {
    Gem("ruby", 1.0F, 3);
    Chests({100.0F, 100.0F});
    SeedFor({Any(), Pick(1, 2), Pick(2, 3), Any(), Pick(0, 2), Pick(0, 3)});
    EXPECT_EQ(Fill(), (Draws{1, 2, 3, 1, 2, 3}));
    EXPECT_EQ(Inventories(), (Lines{"ruby 1", "ruby 3"}));
    EXPECT_EQ(chests[0]->GetEncumbrance(), 1.0F);
    EXPECT_EQ(chests[1]->GetEncumbrance(), 3.0F);
}

TEST_F(TreasureTest, ChanceIsDrawnFirstAndRareAndCheapContentDrawMore) {
    ContentTemplate& ruby = Gem("ruby", 0.0F, 100);
    ruby.value = 2000;
    Chests({1.0F});
    SeedFor({UpTo(0.5), Any(), UpTo(0.1), Any(), Pick(49, 100), UpTo(0.09)});
    EXPECT_EQ(Fill({.chance = 0.5F}), (Draws{kUnit, 1, kUnit, 1, 100, kUnit}));
    EXPECT_EQ(Inventories(), Lines{"ruby 1"});
}

TEST_F(TreasureTest, OneContainerTakesSeveralEntriesOfOneThing) {
    Gem("ruby", 1.0F);
    Chests({100.0F, 100.0F});
    SeedFor({Any(), Pick(0, 2), Any(), Any(), Pick(0, 2), Any()});
    Fill();
    EXPECT_EQ(Inventories(), (Lines{"ruby 1, ruby 1", ""}));
    EXPECT_EQ(chests[0]->GetEncumbrance(), 2.0F);
}

TEST_F(TreasureTest, MinimumRaisesAMaximumThatIsNotGiven) {
    Gem("ruby", 0.0F);
    Chests({1.0F});
    EXPECT_EQ(Fill({.minimum = 4}), (Draws{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}));
    EXPECT_EQ(chests[0]->GetInventory().size(), 4U);
    EXPECT_EQ(Fill({.minimum = 4, .maximum = 1}), (Draws{1, 1, 1}));
}

TEST_F(TreasureTest, MaximumOfNoneStopsWithoutADraw) {
    Gem("ruby", 0.0F);
    Chests({1.0F});
    EXPECT_EQ(Fill({.maximum = 0}), Draws{});
    EXPECT_EQ(Fill({.maximum = -3}), Draws{});
    EXPECT_EQ(Fill({.minimum = 5, .maximum = -3}), Draws{});
}

TEST_F(TreasureTest, SkippedTurnsDrawTheChanceOnly) {
    Gem("ruby", 0.0F);
    Chests({1.0F, 1.0F});
    SeedFor({Above(0.5), Above(0.5)});
    EXPECT_EQ(Fill({.chance = 0.5F}), (Draws{kUnit, kUnit}));
    EXPECT_EQ(Inventories(), (Lines{"", ""}));
}

TEST_F(TreasureTest, NoCandidatesStopAfterTheFirstSuccessfulChance) {
    Chests({1.0F, 1.0F});
    EXPECT_EQ(Fill(), Draws{});
    SeedFor({Above(0.5), UpTo(0.5)});
    EXPECT_EQ(Fill({.chance = 0.5F, .maximum = 9}), (Draws{kUnit, kUnit}));
}

TEST_F(TreasureTest, DrawnContainerMayBeFilledToTheBrim) {
    Gem("ruby", 2.5F);
    Chests({5.0F});
    Fill({.minimum = 3});
    EXPECT_EQ(Inventories(), Lines{"ruby 1, ruby 1"});
    EXPECT_EQ(chests[0]->GetEncumbrance(), 5.0F);
}

TEST_F(TreasureTest, ContainerFoundInsteadMustStayBelowTheBrim) {
    Gem("ruby", 5.0F);
    Chests({4.0F, 5.0F, 5.5F, 9.0F});
    SeedFor({Any(), Pick(0, 4)});
    Fill({.maximum = 1});
    EXPECT_EQ(Inventories(), (Lines{"", "", "ruby 1", ""}));
    Chests({4.0F, 5.0F});
    SeedFor({Any(), Pick(0, 2)});
    Fill({.maximum = 1});
    EXPECT_EQ(Inventories(), (Lines{"", ""}));
}

TEST_F(TreasureTest, SearchCountsTheLoadAndTakesTheFirstInOrder) {
    Gem("ruby", 5.0F);
    Chests({4.0F, 9.0F, 9.0F, 9.0F});
    chests[1]->SetEncumbrance(4.0F);
    SeedFor({Any(), Pick(0, 4)});
    Fill({.maximum = 1});
    EXPECT_EQ(Inventories(), (Lines{"", "", "ruby 1", ""}));
    EXPECT_EQ(chests[2]->GetEncumbrance(), 5.0F);
}

TEST_F(TreasureTest, HeavyStacksAreLoweredToFit) {
    Gem("ingot", 2.0F, 5);
    Chests({6.0F, 100.0F});
    SeedFor({Any(), Pick(0, 2), Pick(4, 5)});
    Fill({.maximum = 1});
    EXPECT_EQ(Inventories(), (Lines{"ingot 3", ""}));
    EXPECT_EQ(chests[0]->GetEncumbrance(), 6.0F);
}

TEST_F(TreasureTest, StacksOfUnitWeightOneAreHeavyEnough) {
    Gem("coin", 1.0F, 5);
    Chests({2.5F, 100.0F});
    SeedFor({Any(), Pick(0, 2), Pick(4, 5)});
    Fill({.maximum = 1});
    EXPECT_EQ(Inventories(), (Lines{"coin 2", ""}));
}

TEST_F(TreasureTest, LightStacksGoElsewhereWhole) {
    Gem("feather", 0.75F, 5);
    Chests({3.0F, 4.0F});
    SeedFor({Any(), Pick(0, 2), Pick(4, 5)});
    Fill({.maximum = 1});
    EXPECT_EQ(Inventories(), (Lines{"", "feather 5"}));
    EXPECT_EQ(chests[1]->GetEncumbrance(), 3.75F);
    Chests({3.0F, 3.75F});
    SeedFor({Any(), Pick(0, 2), Pick(4, 5)});
    Fill({.maximum = 1});
    EXPECT_EQ(Inventories(), (Lines{"", ""}));
}

TEST_F(TreasureTest, LoweredStackOfOneThatIsStillTooHeavyGoesElsewhereAsOne) {
    Gem("anvil", 8.0F, 4);
    Chests({6.0F, 8.0F, 30.0F});
    SeedFor({Any(), Pick(0, 3), Pick(3, 4)});
    Fill({.maximum = 1});
    EXPECT_EQ(Inventories(), (Lines{"", "", "anvil 1"}));
    EXPECT_EQ(chests[2]->GetEncumbrance(), 8.0F);
}

TEST_F(TreasureTest, WhatFitsNowhereIsDroppedAndTheNextTurnGoesOn) {
    Gem("anvil", 8.0F);
    Gem("pin", 0.0F);
    Chests({6.0F});
    SeedFor({Pick(0, 2), Any(), Any(), Pick(1, 2), Any(), Any()});
    EXPECT_EQ(Fill({.minimum = 2}), (Draws{2, 1, 1, 2, 1, 1}));
    EXPECT_EQ(Inventories(), Lines{"pin 1"});
}

TEST_F(TreasureTest, WeightIsLoweredStepByStepInSinglePrecision) {
    // Eleven of 1.1 weigh 12.1; two less are 9.89999962, where nine would be 9.90000057.
    Gem("rod", 1.1F, 11);
    Chests({9.9F});
    SeedFor({Any(), Any(), Pick(10, 11)});
    Fill({.maximum = 1});
    EXPECT_EQ(Inventories(), Lines{"rod 9"});
    EXPECT_EQ(chests[0]->GetEncumbrance(), 9.89999962F);
}

TEST_F(TreasureTest, NamedTreasureIsLookedUpInTheListOfItsType) {
    Gem("ruby", 0.0F);
    Gem("opal", 0.0F);
    Chests({1.0F});
    EXPECT_EQ(Fill({.names = {"opal"}}), (Draws{1, 1}));
    EXPECT_EQ(Inventories(), Lines{"opal 1"});
    EXPECT_EQ(Fill({.names = {"chalice"}, .minimum = 3}), Draws{});
    EXPECT_EQ(ErrorLines(),
              Lines{"Error : Generator : Unrecognized UniqueName 'chalice' in ThemeItem "
                    "Type='Gem'."});
}

TEST_F(TreasureTest, UnknownTypeIsReportedAndFurnitureServes) {
    Add("Furniture", "stool");
    Chests({1.0F});
    gen.PlaceCtrTreasure(chests, MakeItem({.type = "Jewel"}));
    EXPECT_EQ(Inventories(), Lines{"stool 1"});
    EXPECT_EQ(ErrorLines(), Lines{"Error : Internal : Unrecognized content type 'Jewel'."});
}

TEST_F(TreasureTest, WithoutContainersNothingIsLookedUp) {
    EXPECT_EQ(Fill({.type = "Jewel"}), Draws{});
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(TreasureTest, ThemeFillsTheContainersItemByItem) {
    Gem("ruby", 0.0F);
    AddTreasure("Book", "tome");
    info.defTreasureTheme =
        MakeTheme("Hoard", {{.type = "Book"}, {.type = "Gem"}, {.type = "bOOK"}});
    Chests({1.0F});
    const DrawLog draws;
    gen.AddCtrTreasure(chests);
    EXPECT_EQ(Inventories(), Lines{"tome 1, ruby 1, tome 1"});
    EXPECT_EQ(draws.Bounds(), (Draws{1, 1, 1, 1, 1, 1, 1, 1, 1}));
}

TEST_F(TreasureTest, WithoutAThemeContainersStayEmpty) {
    Gem("ruby", 0.0F);
    Chests({1.0F});
    const DrawLog draws;
    gen.AddCtrTreasure(chests);
    EXPECT_EQ(Inventories(), Lines{""});
    EXPECT_EQ(draws.Bounds(), Draws{});
}

} // namespace

} // namespace Tarnex::Test
