// SPDX-License-Identifier: MIT
// Furnishing: which content, how much of it, on which elements, with which draws.
#include <gtest/gtest.h>

#include <sstream>
#include <tests/gen/GenTest.h>

namespace Tarnex::Test {

namespace {

class ContentTest : public GenTest {
protected:
    const ContentMgr& Catalogue() const { return *info.config.contentMgr; }

    // Furnishes a drawn layout from the themes of the context.
    DiPtr<Layout> Furnished(std::string_view map) {
        OpenGen gen(info);
        DiPtr<Layout> layout = ToLayout(map, *tiles);
        gen.AddContents(*layout);
        return layout;
    }

    void Furnish(const std::vector<ItemSpec>& items) { info.defTheme = MakeTheme("Plain", items); }
    void Populate(const std::vector<ItemSpec>& items) {
        info.defCreatureTheme = MakeTheme("Wild", items);
    }
};

// Places content on `walls` wall elements in a row.
class PlaceItemsTest : public ContentTest {
protected:
    OpenGen gen{info};
    DiPtr<Layout> row;
    OpenGen::ElmtList elements;

    void Walls(int walls) {
        row = Layout::Create(DiPos(walls, 1, 0));
        for (int col = 0; col < walls; ++col) {
            row->SetElmt(ToElmt("wN", *tiles), 0, col);
            elements.push_back(row->GetElmt(0, static_cast<std::uint32_t>(col)).get());
        }
    }

    // Places and answers with the bounds of the draws.
    Draws Place(const ItemSpec& item, std::uint32_t count) {
        const DrawLog draws;
        gen.PlaceItems(elements, MakeItem(item), Catalogue().GetFurniture(), count);
        return draws.Bounds();
    }

    int Placed() const {
        int placed = 0;
        for (const DiPtr<GridElmt>& elmt : row->GetRow(0)) {
            placed += static_cast<int>(elmt->contents.size());
        }
        return placed;
    }
};

TEST_F(PlaceItemsTest, CertainPlacementsDrawContentAndPositionOnly) {
    Add("Furniture", "bed");
    Walls(3);
    EXPECT_EQ(Place({}, 3), (Draws{1, 3, 1, 2, 1, 1}));
    EXPECT_EQ(ContentMap(*row), Map("bed bed bed"));
    EXPECT_TRUE(elements.empty());
}

TEST_F(PlaceItemsTest, PlacementsByChanceDrawThatFirst) {
    Add("Furniture", "bed");
    Walls(10);
    SeedFor({UpTo(0.3),
             Any(),
             Any(),
             Above(0.3),
             UpTo(0.3),
             Any(),
             Any(),
             Above(0.3),
             Above(0.3),
             Above(0.3)});
    EXPECT_EQ(Place({.ratio = 0.5F, .chance = 0.3F}, 10),
              (Draws{kUnit, 1, 10, kUnit, kUnit, 1, 9, kUnit, kUnit, kUnit}));
    EXPECT_EQ(Placed(), 2);
}

TEST_F(PlaceItemsTest, AtMostOneMoreThanTheRatioIsPlaced) {
    Add("Furniture", "bed");
    Walls(10);
    SeedFor({UpTo(0.5),
             Any(),
             Any(),
             UpTo(0.5),
             Any(),
             Any(),
             UpTo(0.5),
             Any(),
             Any(),
             UpTo(0.5),
             Any(),
             Any(),
             UpTo(0.5),
             Any(),
             Any(),
             UpTo(0.5),
             Any(),
             Any()});
    EXPECT_EQ(
        Place({.ratio = 0.5F, .chance = 0.5F}, 10),
        (Draws{kUnit, 1, 10, kUnit, 1, 9, kUnit, 1, 8, kUnit, 1, 7, kUnit, 1, 6, kUnit, 1, 5}));
    EXPECT_EQ(Placed(), 6);
}

TEST_F(PlaceItemsTest, CertainShareNeedsNoChanceAndTheOneBeyondDoes) {
    Add("Furniture", "bed");
    Walls(4);
    EXPECT_EQ(Place({.ratio = 0.5F}, 4), (Draws{1, 4, 1, 3, kUnit, 1, 2}));
    EXPECT_EQ(Placed(), 3);
}

TEST_F(PlaceItemsTest, DrawEqualToTheChanceStillPlaces) {
    Add("Furniture", "bed");
    Walls(1);
    const float chance = 9830.0F * (1.0F / 32767.0F);
    SeedFor({Exactly(9831)});
    EXPECT_EQ(Place({.chance = chance}, 1), Draws{kUnit});
    EXPECT_EQ(Placed(), 0);
    SeedFor({Exactly(9830)});
    EXPECT_EQ(Place({.chance = chance}, 1), (Draws{kUnit, 1, 1}));
    EXPECT_EQ(Placed(), 1);
}

TEST_F(PlaceItemsTest, MinimumIsPlacedWithoutChance) {
    Add("Furniture", "bed");
    Walls(4);
    SeedFor({Any(), Any(), Any(), Any(), Above(0.0)});
    EXPECT_EQ(Place({.ratio = 0.0F, .chance = 0.0F, .minimum = 2, .maximum = 3}, 4),
              (Draws{1, 4, 1, 3, kUnit}));
    EXPECT_EQ(Placed(), 2);
}

TEST_F(PlaceItemsTest, MaximumBelowTheMinimumWins) {
    Add("Furniture", "bed");
    Walls(4);
    EXPECT_EQ(Place({.minimum = 3, .maximum = 1}, 4), (Draws{1, 4}));
}

TEST_F(PlaceItemsTest, NegativeMinimumLeavesAllToChance) {
    Add("Furniture", "bed");
    Walls(2);
    SeedFor({UpTo(0.5), Any(), Any(), Above(0.5)});
    EXPECT_EQ(Place({.chance = 0.5F, .minimum = -2, .maximum = 2}, 2), (Draws{kUnit, 1, 2, kUnit}));
}

TEST_F(PlaceItemsTest, MaximumOfNoneStopsWithoutADraw) {
    Add("Furniture", "bed");
    Walls(2);
    for (const int maximum : {0, -2, -100}) {
        EXPECT_EQ(Place({.maximum = maximum}, 2), Draws{});
        EXPECT_EQ(Place({.minimum = 2, .maximum = maximum}, 2), Draws{});
    }
    EXPECT_EQ(Place({.ratio = -1.0F}, 2), Draws{});
    EXPECT_EQ(Placed(), 0);
}

TEST_F(PlaceItemsTest, NoElementsMeansNoDraws) {
    Add("Furniture", "bed");
    EXPECT_EQ(Place({.minimum = 5}, 7), Draws{});
}

TEST_F(PlaceItemsTest, ContentIsChosenBeforeItShowsThatNoElementIsLeft) {
    Add("Furniture", "bed");
    Walls(2);
    EXPECT_EQ(Place({.maximum = 5}, 2), (Draws{1, 2, 1, 1, kUnit, 1}));
    EXPECT_EQ(Placed(), 2);
}

TEST_F(PlaceItemsTest, NoContentStopsAfterTheFirstSuccessfulChance) {
    Walls(3);
    EXPECT_EQ(Place({}, 3), Draws{});
    SeedFor({Above(0.5), UpTo(0.5)});
    EXPECT_EQ(Place({.chance = 0.5F}, 3), (Draws{kUnit, kUnit}));
    EXPECT_EQ(elements.size(), 3U);
}

TEST_F(PlaceItemsTest, ElementAtTheDrawnPositionIsTaken) {
    Add("Furniture", "bed");
    Walls(4);
    SeedFor({Any(), Pick(2, 4), Any(), Pick(2, 3)});
    Place({.maximum = 2}, 4);
    EXPECT_EQ(ContentMap(*row), Map(". . bed bed"));
    EXPECT_EQ(elements.size(), 2U);
}

TEST_F(PlaceItemsTest, ThingsFillTheirElementAndRugsDoNot) {
    Add("Furniture", "bed");
    Walls(1);
    Place({}, 1);
    EXPECT_TRUE(row->GetElmt(0, 0)->isFull);

    info.config.Reset();
    Add("Rug", "carpet").contentKind = "rUG";
    elements.clear();
    Walls(1);
    gen.PlaceItems(elements, MakeItem({.type = "Rug"}), Catalogue().GetRugs(), 1);
    EXPECT_FALSE(row->GetElmt(0, 0)->isFull);
    EXPECT_EQ(ContentMap(*row), Map("carpet"));
    EXPECT_TRUE(elements.empty());
}

TEST_F(PlaceItemsTest, ElementWithoutTilesIsUsedUpButStaysEmpty) {
    Add("Furniture", "bed");
    row = ToLayout("o", *tiles);
    elements = {row->GetElmt(0, 0).get()};
    EXPECT_EQ(Place({}, 1), (Draws{1, 1}));
    EXPECT_EQ(Placed(), 0);
    EXPECT_TRUE(row->GetElmt(0, 0)->isFull);
}

TEST_F(PlaceItemsTest, PlacedItemIsACopyMovedToItsWall) {
    tiles->SetWallThickness(16.0F);
    ContentTemplate& bed = Add("Furniture", "bed");
    bed.size = Di3Point(20.0F, 40.0F, 60.0F);
    bed.friendlyName = "Bed";
    bed.modelFile = "bed.nif";
    bed.weight = 4.0F;
    Walls(1);
    Place({}, 1);
    const ContentItem& item = *row->GetElmt(0, 0)->contents[0];
    EXPECT_EQ(item.offset, Di3Point(0.0F, 92.0F, -98.0F));
    EXPECT_EQ(item.uniqueName, "bed");
    EXPECT_EQ(item.friendlyName, "Bed");
    EXPECT_EQ(item.modelFile, "bed.nif");
    EXPECT_EQ(item.weight, 4.0F);
    EXPECT_EQ(bed.offset, Di3Point(0.0F, 0.0F, 0.0F));
}

// Which content.

class SelectTest : public ContentTest {
protected:
    OpenGen gen{info};

    std::string Selected(const ItemSpec& item) const {
        const DiPtr<ContentTemplate> content =
            gen.SelectContent(MakeItem(item), Catalogue().GetFurniture());
        return content ? content->uniqueName : "(none)";
    }
};

TEST_F(SelectTest, OneUniqueNameIsLookedUpWithoutADraw) {
    Add("Furniture", "bed");
    Add("Furniture", "Table");
    const DrawLog draws;
    EXPECT_EQ(Selected({.names = {"tABLE"}}), "Table");
    EXPECT_EQ(draws.Bounds(), Draws{});
}

TEST_F(SelectTest, OneOfSeveralUniqueNamesIsDrawnAndThenLookedUp) {
    Add("Furniture", "bed");
    Add("Furniture", "table");
    Add("Furniture", "chair");
    SeedFor({Pick(2, 3), Pick(0, 3)});
    const DrawLog draws;
    EXPECT_EQ(Selected({.names = {"chair", "bed", "table"}}), "table");
    EXPECT_EQ(Selected({.names = {"chair", "bed", "table"}}), "chair");
    EXPECT_EQ(draws.Bounds(), (Draws{3, 3}));
}

TEST_F(SelectTest, NamedContentIsNeverRare) {
    Add("Furniture", "throne").value = 1000000;
    const DrawLog draws;
    EXPECT_EQ(Selected({.names = {"throne"}}), "throne");
    EXPECT_EQ(draws.Bounds(), Draws{});
}

TEST_F(SelectTest, UnknownUniqueNameIsReportedAsWritten) {
    Add("Furniture", "bed");
    Add("Container", "chest");
    EXPECT_EQ(Selected({.type = "furniturE", .names = {"Sofa"}}), "(none)");
    // Only the candidates count, not the whole catalogue.
    EXPECT_EQ(Selected({.names = {"chest"}}), "(none)");
    SeedFor({Pick(1, 2)});
    EXPECT_EQ(Selected({.names = {"bed", "Lamp"}}), "(none)");
    EXPECT_EQ(ErrorLines(),
              (Lines{"Error : Generator : Unrecognized UniqueName 'Sofa' in ThemeItem "
                     "Type='furniturE'.",
                     "Error : Generator : Unrecognized UniqueName 'chest' in ThemeItem "
                     "Type='Furniture'.",
                     "Error : Generator : Unrecognized UniqueName 'Lamp' in ThemeItem "
                     "Type='Furniture'."}));
}

TEST_F(SelectTest, EmptyListGivesNothingWithoutADraw) {
    const DrawLog draws;
    EXPECT_EQ(Selected({}), "(none)");
    EXPECT_FALSE(gen.SelectItem({}));
    EXPECT_EQ(draws.Bounds(), Draws{});
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(SelectTest, CandidateAtTheDrawnPositionIsChosen) {
    Add("Furniture", "bed");
    Add("Furniture", "table");
    Add("Furniture", "chair");
    SeedFor({Pick(1, 3), Pick(2, 3), Pick(0, 3)});
    EXPECT_EQ(Selected({}), "table");
    EXPECT_EQ(Selected({}), "chair");
    EXPECT_EQ(Selected({}), "bed");
}

struct RarityCase {
    int value;
    int accepted; // the last draw behind RandomUnit that is accepted; -1: there is no such draw
};

TEST_F(SelectTest, ValuableContentIsAcceptedRarely) {
    const RarityCase cases[] = {
        {-5, -1},
        {0, -1},
        {1000, -1},
        {1001, 3276},
        {5000, 3276},
        {5001, 1638},
        {10000, 1638},
        {10001, 327},
        {25000, 327},
        {25001, 32},
        {30000, 32},
        {2147483647, 32},
    };
    ContentTemplate& gem = Add("Furniture", "gem");
    Add("Furniture", "stone");
    for (const RarityCase& c : cases) {
        gem.value = c.value;
        const DrawLog draws;
        if (c.accepted < 0) {
            SeedFor({Pick(0, 2)});
            EXPECT_EQ(Selected({}), "gem") << c.value;
            EXPECT_EQ(draws.Bounds(), Draws{2}) << c.value;
            continue;
        }
        SeedFor({Pick(0, 2), Exactly(c.accepted)});
        EXPECT_EQ(Selected({}), "gem") << c.value;
        SeedFor({Pick(0, 2), Exactly(c.accepted + 1), Pick(1, 2)});
        EXPECT_EQ(Selected({}), "stone") << c.value;
        EXPECT_EQ(draws.Bounds(), (Draws{2, kUnit, 2, kUnit, 2})) << c.value;
    }
}

TEST_F(SelectTest, RejectedContentIsPickedFromTheWholeListAgain) {
    Add("Furniture", "gem").value = 5000;
    SeedFor({Any(), Above(0.1), Any(), Above(0.1), Any(), UpTo(0.1)});
    const DrawLog draws;
    EXPECT_EQ(Selected({}), "gem");
    EXPECT_EQ(draws.Bounds(), (Draws{1, kUnit, 1, kUnit, 1, kUnit}));
}

TEST_F(SelectTest, TypeOfAnItemNamesItsList) {
    Add("Furniture", "bed");
    AddTreasure("Gem", "ruby");
    EXPECT_EQ(gen.ThemeItemToContent(MakeItem({.type = "gem"}))->uniqueName, "ruby");
    EXPECT_FALSE(gen.ThemeItemToContent(MakeItem({.type = "Gem", .names = {"bed"}})));
}

TEST_F(SelectTest, SubtypesAreRemovedWithoutRegardToCase) {
    Add("Creature", "gull", "bIRD");
    Add("Creature", "rat", "Creature");
    Add("Creature", "lark", "Bird");
    ContentList list = Catalogue().GetCreatures();
    OpenGen::RemoveBySubtype(list, "Bird");
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0]->uniqueName, "rat");
    EXPECT_EQ(Catalogue().GetCreatures().size(), 3U);
}

TEST_F(SelectTest, FullElementsAreRemovedInOrder) {
    const DiPtr<Layout> layout = ToLayout("wN wS wE wW", *tiles);
    OpenGen::ElmtList list;
    for (const DiPtr<GridElmt>& elmt : layout->GetRow(0)) {
        list.push_back(elmt.get());
    }
    list[0]->isFull = list[2]->isFull = true;
    OpenGen::RemoveFullElmts(list);
    EXPECT_EQ(list, (OpenGen::ElmtList{layout->GetElmt(0, 1).get(), layout->GetElmt(0, 3).get()}));
}

// How much of it.

class QtyTest : public ContentTest {
protected:
    OpenGen gen{info};

    std::uint32_t Qty(int most, int value) const {
        ContentTemplate content;
        content.maxCount = most;
        content.value = value;
        return gen.DetermineQty(content);
    }
};

TEST_F(QtyTest, SmallPilesAreAsDrawn) {
    SeedFor({Pick(0, 5), Pick(4, 5)});
    const DrawLog draws;
    EXPECT_EQ(Qty(5, 100000), 1U);
    EXPECT_EQ(Qty(5, 100000), 5U);
    EXPECT_EQ(draws.Bounds(), (Draws{5, 5}));
}

TEST_F(QtyTest, CheapPilesAreAsDrawn) {
    SeedFor({Pick(99, 100), Pick(9, 10), Pick(9, 10), Pick(9, 10)});
    const DrawLog draws;
    EXPECT_EQ(Qty(100, 1), 100U);
    EXPECT_EQ(Qty(10, 25), 10U);
    EXPECT_EQ(Qty(10, 0), 10U);
    EXPECT_EQ(Qty(10, -1000), 10U);
    EXPECT_EQ(draws.Bounds(), (Draws{100, 10, 10, 10}));
}

TEST_F(QtyTest, APileWorthAsMuchAsIsPlausibleIsAsDrawnAndOneWorthMoreIsNot) {
    const Wish poor = [](std::int32_t raw) { return raw < 3277; };
    SeedFor({Pick(249, 1000), Pick(250, 1000), poor});
    const DrawLog draws;
    EXPECT_EQ(Qty(1000, 1), 250U);
    EXPECT_EQ(Qty(1000, 1), 10U);
    EXPECT_EQ(draws.Bounds(), (Draws{1000, 1000, kUnit}));
}

TEST_F(QtyTest, LargePilesAreCutToAPlausibleWorth) {
    struct WorthCase {
        int raw; // behind RandomUnit
        std::uint32_t quantity;
    };
    const WorthCase cases[] = {
        {0, 10},
        {3276, 10},
        {3277, 25},
        {6553, 25},
        {6554, 50},
        {13106, 50},
        {13107, 100},
        {22936, 100},
        {22937, 250},
        {29490, 250},
        {29491, 500},
        {31128, 500},
        {31129, 1000},
        {32439, 1000},
        {32440, 2500},
        {32734, 2500},
        {32735, 5000},
        {32767, 5000},
    };
    const Wish large = [](std::int32_t raw) { return raw % 6000 >= 250; };
    for (const WorthCase& c : cases) {
        SeedFor({large, Exactly(c.raw)});
        const DrawLog draws;
        EXPECT_EQ(Qty(6000, 1), c.quantity) << c.raw;
        EXPECT_EQ(draws.Bounds(), (Draws{6000, kUnit})) << c.raw;
    }
}

TEST_F(QtyTest, WorthIsDividedByTheValue) {
    SeedFor({Pick(9, 10), Between(0.4, 0.69)});
    EXPECT_EQ(Qty(10, 26), 3U);
    // At least one, whatever it is worth.
    SeedFor({Pick(5, 6), UpTo(0.09)});
    EXPECT_EQ(Qty(6, 1000), 1U);
    // Six times the value does not fit into 32 bits.
    SeedFor({Pick(5, 6), UpTo(0.09)});
    EXPECT_EQ(Qty(6, 2147483647), 1U);
}

TEST_F(QtyTest, MaximumLimitsTheWorth) {
    SeedFor({Pick(299, 300), Above(0.9991)});
    EXPECT_EQ(Qty(300, 1), 300U);
}

TEST_F(QtyTest, MaximumBelowOneCountsAsOne) {
    const DrawLog draws;
    EXPECT_EQ(Qty(1, 1000), 1U);
    EXPECT_EQ(Qty(0, 1000), 1U);
    EXPECT_EQ(Qty(-7, 1000), 1U);
    EXPECT_EQ(draws.Bounds(), (Draws{1, 1, 1}));
}

// Where, by kind of content.

TEST_F(ContentTest, WithoutAFurnitureThemeNothingIsPlacedAtAll) {
    Add("Creature", "rat");
    Populate({{.type = "Creature"}});
    const DrawLog draws;
    EXPECT_EQ(ContentMap(*Furnished("c c")), Map(". ."));
    EXPECT_EQ(draws.Bounds(), Draws{});
}

TEST_F(ContentTest, WallThingsStandAtWallsAndInCorners) {
    for (const char* type : {"Container", "Furniture", "Tapestry"}) {
        info.config.Reset();
        Add(type, "thing");
        Furnish({{.type = type}});
        EXPECT_EQ(ContentMap(*Furnished("NW wN c | DN ^ + SE o wS")),
                  Map("thing thing . . . . . thing . thing"))
            << type;
    }
}

TEST_F(ContentTest, WallsComeBeforeCornersInTheListOfElements) {
    Add("Furniture", "bed");
    Furnish({{.maximum = 2}});
    SeedFor({Any(), Pick(3, 5), Any(), Pick(2, 4)});
    const DrawLog draws;
    EXPECT_EQ(ContentMap(*Furnished("NW wN wE SE wS")), Map("bed . . . bed"));
    EXPECT_EQ(draws.Bounds(), (Draws{1, 5, 1, 4}));
}

TEST_F(ContentTest, CornersOfCavesStayFree) {
    Add("Furniture", "bed");
    Furnish({{}});
    for (const char* type : {"Cave", "cAVE"}) {
        tiles->SetType(type);
        EXPECT_EQ(ContentMap(*Furnished("NW wN SE")), Map(". bed ."));
        const DrawLog draws;
        EXPECT_EQ(ContentMap(*Furnished("NW SE")), Map(". ."));
        EXPECT_EQ(draws.Bounds(), Draws{});
    }
}

TEST_F(ContentTest, CornersCountForTheRatioInRoomsOnly) {
    Add("Furniture", "bed");
    Furnish({{.ratio = 0.5F, .chance = 1.0F}});
    const DrawLog draws;
    Furnished("NW wN wS SE");
    EXPECT_EQ(draws.Bounds(), (Draws{1, 4, 1, 3, kUnit, 1, 2}));
    tiles->SetType("Cave");
    const std::size_t before = draws.Bounds().size();
    Furnished("NW wN wS SE");
    EXPECT_EQ(
        Draws(draws.Bounds().begin() + static_cast<std::ptrdiff_t>(before), draws.Bounds().end()),
        (Draws{1, 2, kUnit, 1, 1}));
}

TEST_F(ContentTest, RugsLieInTheMiddleAndLeaveTheElementFree) {
    Add("Rug", "carpet");
    Add("Creature", "rat");
    Furnish({{.type = "Rug"}, {.type = "rug"}});
    Populate({{.type = "Creature"}});
    const DiPtr<Layout> layout = Furnished("c");
    EXPECT_EQ(ContentMap(*layout), Map("carpet,carpet,rat"));
    EXPECT_TRUE(layout->GetElmt(0, 0)->isFull);
    Populate({});
    EXPECT_EQ(ContentMap(*Furnished("NW wN | DN c")), Map(". . . . carpet,carpet"));
}

TEST_F(ContentTest, FullElementsAreOutForLaterItemsButStillCount) {
    Add("Furniture", "bed");
    Add("Container", "chest");
    // Half of two walls is one for certain, though only one is still free.
    Furnish({{.maximum = 1}, {.type = "Container", .ratio = 0.5F, .maximum = 1}});
    SeedFor({Any(), Pick(1, 2)});
    const DrawLog draws;
    EXPECT_EQ(ContentMap(*Furnished("wN wS")), Map("chest bed"));
    EXPECT_EQ(draws.Bounds(), (Draws{1, 2, 1, 1}));
}

TEST_F(ContentTest, FullWallsAndCornersLeaveNothingToDraw) {
    Add("Furniture", "bed");
    Add("Tapestry", "banner");
    Furnish({{}, {.type = "Tapestry"}});
    const DrawLog draws;
    EXPECT_EQ(ContentMap(*Furnished("NW wN")), Map("bed bed"));
    EXPECT_EQ(draws.Bounds(), (Draws{1, 2, 1, 1}));
}

TEST_F(ContentTest, CreaturesStandInTheMiddleInHallsAndAtWalls) {
    Add("Creature", "rat");
    Furnish({});
    Populate({{.type = "creature"}});
    EXPECT_EQ(ContentMap(*Furnished("NW wN c | DN ^ + SE o wS")),
              Map(". rat rat rat . . rat . . rat"));
}

TEST_F(ContentTest, CreaturesTakeCentersThenHallsThenWalls) {
    Add("Creature", "rat");
    Furnish({});
    Populate({{.type = "Creature", .maximum = 3}});
    SeedFor({Any(), Pick(0, 6), Any(), Pick(1, 5), Any(), Pick(2, 4)});
    const DrawLog draws;
    EXPECT_EQ(ContentMap(*Furnished("wN | c wS - c")), Map("rat rat rat . . ."));
    EXPECT_EQ(draws.Bounds(), (Draws{1, 6, 1, 5, 1, 4}));
}

TEST_F(ContentTest, CreaturesFillTheirElements) {
    Add("Creature", "rat");
    Furnish({});
    Populate({{.type = "Creature"}, {.type = "Creature"}});
    const DrawLog draws;
    EXPECT_EQ(ContentMap(*Furnished("c | wN")), Map("rat rat rat"));
    EXPECT_EQ(draws.Bounds(), (Draws{1, 3, 1, 2, 1, 1}));
}

TEST_F(ContentTest, FurnitureKeepsCreaturesAway) {
    Add("Furniture", "bed");
    Add("Creature", "rat");
    Furnish({{}});
    Populate({{.type = "Creature"}});
    EXPECT_EQ(ContentMap(*Furnished("wN c NW")), Map("bed rat bed"));
}

TEST_F(ContentTest, BirdsAndFishAreNotPlaced) {
    Add("Creature", "trout", "Fish");
    Add("Creature", "rat", "Creature");
    Add("Creature", "gull", "bird");
    Furnish({});
    Populate({{.type = "Creature"}});
    const DrawLog draws;
    EXPECT_EQ(ContentMap(*Furnished("c c")), Map("rat rat"));
    EXPECT_EQ(draws.Bounds(), (Draws{1, 2, 1, 1}));
}

TEST_F(ContentTest, OnlyFishMeansNoCreatures) {
    Add("Creature", "trout", "fish");
    Furnish({});
    Populate({{.type = "Creature"}});
    EXPECT_EQ(ContentMap(*Furnished("c c")), Map(". ."));
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(ContentTest, NamedFishIsUnknown) {
    Add("Creature", "trout", "Fish");
    Furnish({});
    Populate({{.type = "Creature", .names = {"trout"}}});
    EXPECT_EQ(ContentMap(*Furnished("c c")), Map(". ."));
    EXPECT_EQ(ErrorLines(),
              Lines{"Error : Generator : Unrecognized UniqueName 'trout' in ThemeItem "
                    "Type='Creature'."});
}

TEST_F(ContentTest, ItemsOfAThemeAreTakenInOrder) {
    Add("Furniture", "bed");
    Add("Container", "chest");
    Add("Rug", "carpet");
    Add("Tapestry", "banner");
    Furnish({{.type = "TAPESTRY", .maximum = 1},
             {.type = "rug"},
             {.type = "container", .maximum = 1},
             {.type = "furniture", .maximum = 1}});
    SeedFor({Any(), Pick(2, 3), Any(), Any(), Any(), Pick(1, 2)});
    EXPECT_EQ(ContentMap(*Furnished("wN wS wE c")), Map("bed chest banner carpet"));
}

TEST_F(ContentTest, UnknownItemTypesAreReportedWithTheFurnitureThemesName) {
    Add("Furniture", "bed");
    Furnish({{.type = "Creature"}, {.type = "Lamp"}, {}});
    Populate({{.type = "Furniture"}, {.type = ""}});
    EXPECT_EQ(ContentMap(*Furnished("wN")), Map("bed"));
    // The creature theme's messages name the furniture theme on purpose.
    EXPECT_EQ(
        ErrorLines(),
        (Lines{"Error : Generator : Unrecognized theme item type 'Creature' in Theme 'Plain'.",
               "Error : Generator : Unrecognized theme item type 'Lamp' in Theme 'Plain'.",
               "Error : Generator : Unrecognized theme item type 'Furniture' in "
               "CreatureTheme 'Plain'.",
               "Error : Generator : Unrecognized theme item type '' in CreatureTheme "
               "'Plain'."}));
}

TEST_F(ContentTest, ChildLayoutsAreFurnishedTogetherWithTheirParent) {
    Add("Furniture", "bed");
    Furnish({{}});
    OpenGen gen(info);
    const DiPtr<Layout> layout = ToLayout("wN", *tiles);
    layout->AddChild(ToLayout("wS c", *tiles));
    const DrawLog draws;
    gen.AddContents(*layout);
    EXPECT_EQ(ContentMap(*layout), Map("bed"));
    EXPECT_EQ(ContentMap(*layout->GetChildren()[0]), Map("bed ."));
    EXPECT_EQ(draws.Bounds(), (Draws{1, 2, 1, 1}));
    layout->Dissolve();
}

// Contents to references.

class CvtContentsTest : public GenTest {
protected:
    OpenGen gen{info};
    GridElmt elmt;

    CvtContentsTest() { gen.InitCell(); }

    ContentItem& Put(const char* kind, const char* name) {
        auto item = MakeDi<ContentItem>();
        item->contentKind = kind;
        item->uniqueName = name;
        elmt.AddContent(item);
        return *item;
    }

    Lines Converted(const DiPos& pos = {}, const Di3Point& offset = {}) {
        gen.CvtContents(*gen.cell, elmt, pos, offset);
        return PlacedLines(*gen.cell);
    }
};

TEST_F(CvtContentsTest, ContentsBecomeReferencesInOrder) {
    ContentItem& bed = Put("Furniture", "bed");
    bed.offset = Di3Point(10.0F, 20.0F, -30.0F);
    bed.zRotate = 90;
    Put("Creature", "rat");
    EXPECT_EQ(Converted(DiPos(1, 2, 0), Di3Point(1.0F, 0.0F, 0.5F)),
              (Lines{"bed 522 -492 98 r1.57079637", "rat 512 -512 128"}));
    EXPECT_TRUE(info.mod.GetContainers().empty());
}

TEST_F(CvtContentsTest, ContainerGetsARecordOfItsOwn) {
    ContentItem& chest = Put("cONTAINER", "chest");
    chest.friendlyName = "Old Chest";
    chest.modelFile = "o\\chest.nif";
    chest.weight = 62.5F;
    EXPECT_EQ(Converted(), Lines{"Ctr7_1 0 0 0"});
    EXPECT_EQ(chest.uniqueName, "Ctr7_1");
    ASSERT_EQ(info.mod.GetContainers().size(), 1U);
    Container& record = *info.mod.GetContainers()[0];
    EXPECT_EQ(record.GetId(), "Ctr7_1");
    EXPECT_EQ(record.GetFriendlyName(), "Old Chest");
    std::ostringstream bytes;
    record.Write(bytes);
    EXPECT_NE(bytes.str().find("o\\chest.nif"), std::string::npos);
    EXPECT_EQ(record.GetWeight(), 62.5F);
    EXPECT_EQ(record.GetEncumbrance(), 0.0F);
    EXPECT_TRUE(record.GetInventory().empty());
    ASSERT_EQ(gen.containers.size(), 1U);
    EXPECT_EQ(gen.containers[0], info.mod.GetContainers()[0]);
}

TEST_F(CvtContentsTest, ContainersAreNumberedThroughTheRun) {
    Put("Container", "chest");
    Put("Rug", "carpet");
    Put("Container", "chest");
    EXPECT_EQ(Converted(), (Lines{"Ctr7_1 0 0 0", "carpet 0 0 0", "Ctr7_2 0 0 0"}));
    OpenGen next(info);
    next.InitCell();
    next.CvtContents(*next.cell, elmt, DiPos(), Di3Point());
    EXPECT_EQ(PlacedLines(*next.cell), (Lines{"Ctr7_3 0 0 0", "carpet 0 0 0", "Ctr7_4 0 0 0"}));
    EXPECT_EQ(next.containers.size(), 2U);
    EXPECT_EQ(info.mod.GetContainers().size(), 4U);
}

TEST_F(CvtContentsTest, ReferencesTellWhatTheyStandFor) {
    for (const char* kind : {"Container", "creature", "Furniture", "Rug", "Tapestry", "Armor"}) {
        Put(kind, kind);
    }
    Converted();
    std::vector<RefSort> sorts;
    for (const Ref& ref : gen.cell->GetRefs()) {
        sorts.push_back(ref.sort);
    }
    EXPECT_EQ(sorts,
              (std::vector<RefSort>{RefSort::Marker,
                                    RefSort::Container,
                                    RefSort::Creature,
                                    RefSort::Furniture,
                                    RefSort::Rug,
                                    RefSort::Tapestry,
                                    RefSort::Other}));
}

} // namespace

} // namespace Tarnex::Test
