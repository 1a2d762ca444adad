// SPDX-License-Identifier: MIT
// The doors of random levels: those that would open onto nothing and those between levels.
#include <gtest/gtest.h>

#include <tests/gen/OpenRandom.h>

namespace Tarnex::Test {

namespace {

class GenIntDoorsTest : public GenTest {
protected:
    void TearDown() override {
        for (const DiPtr<Layout>& layout : drawn) {
            layout->Dissolve();
        }
    }

    // A layout that lives until the end of the test.
    DiPtr<Layout> Drawn(std::string_view map) {
        drawn.push_back(ToLayout(map, *tiles));
        drawn.back()->SetTileSet(tiles);
        return drawn.back();
    }

    DiPtr<Layout> Child(Layout& parent, const Di3Point& offset, std::string_view map) {
        const DiPtr<Layout> child = ToLayout(map, *tiles);
        child->SetOffset(offset);
        parent.AddChild(child);
        return child;
    }

    // What is left of a room when it stands alone.
    std::string Closed(std::string_view map) {
        const DiPtr<Layout> room = Drawn(map);
        Close(*room);
        return ToText(*room);
    }

    void Close(Layout& room) { OpenRandom(info).RemoveExteriorDoors(room); }

    void Link(const OpenRandom::Levels& levels) { OpenRandom(info).AddTeleportingDoors(levels); }

    DiPos Find(const Layout& layout, TileType type) {
        return OpenRandom(info).FindElmt(layout, type);
    }

    // The kind names of an element's tiles.
    static Lines Kinds(const GridElmt& elmt) {
        Lines kinds;
        for (const DiPtr<Tile>& tile : elmt.tiles) {
            kinds.push_back(tile->kindName.Text());
        }
        return kinds;
    }

    static const GridElmt& At(const Layout& layout, const DiPos& pos) {
        return *layout.GetElmt(static_cast<std::uint32_t>(pos.y),
                               static_cast<std::uint32_t>(pos.x));
    }

    static void ExpectLeads(const Layout& from,
                            const DiPos& door,
                            const DiPtr<Layout>& to,
                            const DiPos& arrival) {
        const GridElmt& elmt = At(from, door);
        EXPECT_TRUE(elmt.isTeleport);
        EXPECT_EQ(elmt.teleLayout, to);
        EXPECT_EQ(elmt.teleDest, arrival);
    }

    std::vector<DiPtr<Layout>> drawn;
};

// Exterior doors.

TEST_F(GenIntDoorsTest, DoorwaysOnTheRimBecomeWalls) {
    EXPECT_EQ(Closed(R"(
        NW dN NE
        dW c  dE
        SW dS SE)"),
              Map(R"(
        NW wN NE
        wW c  wE
        SW wS SE)"));
}

TEST_F(GenIntDoorsTest, DoorsGoWithTheirDoorways) {
    EXPECT_EQ(Closed(R"(
        NW DN NE
        DW c  DE
        SW DS SE)"),
              Map(R"(
        NW wN NE
        wW c  wE
        SW wS SE)"));
}

TEST_F(GenIntDoorsTest, DoorwaysWithAHallBecomeHallEndsWhateverTheOrderOfTheirTiles) {
    EXPECT_EQ(Closed(R"(
        .    |&dN .
        -&dW  +   dE&-
        .    dS&| .)"),
              Map(R"(
        . ^ .
        < + >
        . v .)"));
}

TEST_F(GenIntDoorsTest, DoorwayWithSomethingOnBothSidesStays) {
    const std::string_view map = R"(
        NW wN wN NE
        wW dE dW wE
        SW wS wS SE)";
    EXPECT_EQ(Closed(map), Map(map));
}

TEST_F(GenIntDoorsTest, DoorwayIsLookedAtAlongItsFacingOnly) {
    EXPECT_EQ(Closed("c dE c"), Map("c dE c"));
    EXPECT_EQ(Closed("c dW c"), Map("c dW c"));
    EXPECT_EQ(Closed("c\ndN\nc"), Map("c\ndN\nc"));
    EXPECT_EQ(Closed("c\ndS\nc"), Map("c\ndS\nc"));
}

TEST_F(GenIntDoorsTest, DoorwayWithNothingInsideIsClosedToo) {
    EXPECT_EQ(Closed(". dE c"), Map(". wE c"));
    EXPECT_EQ(Closed(". dW c"), Map(". wW c"));
    EXPECT_EQ(Closed(".\ndN\nc"), Map(".\nwN\nc"));
    EXPECT_EQ(Closed("c\ndN\n."), Map("c\nwN\n."));
}

TEST_F(GenIntDoorsTest, ElementWithoutTilesIsSomething) {
    EXPECT_EQ(Closed("o dE o"), Map("o dE o"));
}

TEST_F(GenIntDoorsTest, WallMadeFromADoorwayKeepsItsNeighboursOpen) {
    EXPECT_EQ(Closed("dW dW c"), Map("wW dW c"));
}

TEST_F(GenIntDoorsTest, FirstDoorwayTileDecides) {
    EXPECT_EQ(Closed("c&jN&dE"), Map("wN"));
    EXPECT_EQ(Closed("c\nc&lS&dE\nc"), Map("c\nc&lS&dE\nc"));
    EXPECT_EQ(Closed("c&uN&dE"), Map("wE"));
}

TEST_F(GenIntDoorsTest, DiagonalDoorwayOnTheRimLosesItsTiles) {
    EXPECT_EQ(Closed(R"(
        NWw wN NEe
        wW  c  wE
        SWw wS SEs)"),
              Map(R"(
        o  wN o
        wW c  wE
        o  wS o)"));
}

TEST_F(GenIntDoorsTest, DiagonalDoorwayIsLookedAtFromEastAndWest) {
    EXPECT_EQ(Closed("c NWn c"), Map("c NWn c"));
    EXPECT_EQ(Closed("c\nNWn\nc"), Map("c\no\nc"));
}

TEST_F(GenIntDoorsTest, DiagonalDoorwayWithAHallLosesBoth) {
    EXPECT_EQ(Closed("|&NWn"), Map("o"));
}

TEST_F(GenIntDoorsTest, TilesComeFromTheGeneratorsSet) {
    const DiPtr<TileSet> other = MakeFullTileSet("Cave");
    const DiPtr<Layout> room = Drawn("dN |&dN");
    OpenRandom gen(info);
    gen.tileSet = other;
    gen.RemoveExteriorDoors(*room);
    EXPECT_EQ(room->GetElmt(0, 0)->tiles.front(), other->Get("WallN"));
    EXPECT_EQ(room->GetElmt(0, 1)->tiles.front(), other->Get("HallEndN"));
}

TEST_F(GenIntDoorsTest, TileThatTheSetLacksLeavesAnElementWithoutTiles) {
    const DiPtr<Layout> room = Drawn("dN |&dN");
    OpenRandom gen(info);
    gen.tileSet = MakeDi<TileSet>();
    gen.RemoveExteriorDoors(*room);
    EXPECT_EQ(ToText(*room), Map("o o"));
}

TEST_F(GenIntDoorsTest, DoorwayBetweenTwoPartsStays) {
    const DiPtr<Layout> room = Drawn("c dE");
    const DiPtr<Layout> part = Child(*room, {2.0F, 0.0F, 0.0F}, "dW dE");
    Close(*room);
    EXPECT_EQ(ToText(*room), Map("c dE"));
    EXPECT_EQ(ToText(*part), Map("dW wE"));
}

TEST_F(GenIntDoorsTest, PartToTheNorthAndWestIsSeen) {
    const DiPtr<Layout> room = Drawn("dN c");
    Child(*room, {0.0F, -1.0F, 0.0F}, "c");
    Child(*room, {0.0F, 1.0F, 0.0F}, "c");
    Close(*room);
    EXPECT_EQ(ToText(*room), Map("dN c"));
    const DiPtr<Layout> other = Drawn("dW c");
    Child(*other, {-1.0F, 0.0F, 0.0F}, "c");
    Close(*other);
    EXPECT_EQ(ToText(*other), Map("dW c"));
}

TEST_F(GenIntDoorsTest, PartCountsUpToHalfACellAboveOrBelow) {
    for (const float z : {-0.5F, 0.5F}) {
        const DiPtr<Layout> room = Drawn("c dE");
        Child(*room, {2.0F, 0.0F, z}, "c");
        Close(*room);
        EXPECT_EQ(ToText(*room), Map("c dE")) << z;
    }
    for (const float z : {-0.6F, 0.6F, 1.0F}) {
        const DiPtr<Layout> room = Drawn("c dE");
        Child(*room, {2.0F, 0.0F, z}, "c");
        Close(*room);
        EXPECT_EQ(ToText(*room), Map("c wE")) << z;
    }
}

TEST_F(GenIntDoorsTest, PartsOfPartsAreClosedAgainstTheirOwnFloor) {
    const DiPtr<Layout> room = Drawn("c c");
    const DiPtr<Layout> part = Child(*room, {2.0F, 0.0F, 2.0F}, "dW c dE");
    const DiPtr<Layout> inner = Child(*part, {3.0F, 0.0F, 0.0F}, "c dE");
    Close(*room);
    EXPECT_EQ(ToText(*part), Map("wW c dE"));
    EXPECT_EQ(ToText(*inner), Map("c wE"));
}

TEST_F(GenIntDoorsTest, ClosingDoorsDrawsNothing) {
    const DrawLog draws;
    Closed("dN |&dN NWn");
    EXPECT_EQ(draws.Bounds(), Draws());
}

// Finding a place.

TEST_F(GenIntDoorsTest, PlacesAreCountedRowByRow) {
    const DiPtr<Layout> level = Drawn(R"(
        .  wN .
        wW c  wE
        .  wS .)");
    const std::vector<DiPos> places = {{1, 0, 0}, {0, 1, 0}, {2, 1, 0}, {1, 2, 0}};
    for (std::size_t i = 0; i < places.size(); ++i) {
        SeedFor({Pick(static_cast<int>(i), 4)});
        const DrawLog draws;
        EXPECT_EQ(Find(*level, TileWall), places[i]);
        EXPECT_EQ(draws.Bounds(), (Draws{4}));
    }
}

TEST_F(GenIntDoorsTest, AnyTileOfTheTypeMakesACandidate) {
    const DiPtr<Layout> level = Drawn("c o . c&uN&wE");
    const DrawLog draws;
    EXPECT_EQ(Find(*level, TileWall), DiPos(3, 0, 0));
    EXPECT_EQ(draws.Bounds(), (Draws{1}));
}

TEST_F(GenIntDoorsTest, PartsOfferNoPlaces) {
    const DiPtr<Layout> level = Drawn("c c");
    Child(*level, {0.0F, 0.0F, 0.0F}, "wN wN");
    const DrawLog draws;
    EXPECT_EQ(Find(*level, TileWall), DiPos(0, 0, 0));
    EXPECT_EQ(draws.Bounds(), Draws());
}

TEST_F(GenIntDoorsTest, EveryTypeCanBeSought) {
    const DiPtr<Layout> level = Drawn("c NW dN | ^ wN");
    EXPECT_EQ(Find(*level, TileCenter), DiPos(0, 0, 0));
    EXPECT_EQ(Find(*level, TileCorner), DiPos(1, 0, 0));
    EXPECT_EQ(Find(*level, TileDoorway), DiPos(2, 0, 0));
    EXPECT_EQ(Find(*level, TileHall), DiPos(3, 0, 0));
    EXPECT_EQ(Find(*level, TileHallEnd), DiPos(4, 0, 0));
    EXPECT_EQ(Find(*level, TileWall), DiPos(5, 0, 0));
}

// One door.

TEST_F(GenIntDoorsTest, DoorIsDoorwayJambAndLeafOfTheFacing) {
    const DiPtr<Layout> level = Drawn("wN wS wE wW");
    const std::vector<Lines> doors = {{"DoorwayN", "DoorjambN", "DoorN"},
                                      {"DoorwayS", "DoorjambS", "DoorS"},
                                      {"DoorwayE", "DoorjambE", "DoorE"},
                                      {"DoorwayW", "DoorjambW", "DoorW"}};
    OpenRandom gen(info);
    for (int x = 0; x < 4; ++x) {
        const DiPos pos(x, 0, 0);
        EXPECT_EQ(gen.AddTeleDoor(*level, pos).get(), &At(*level, pos));
        EXPECT_EQ(Kinds(At(*level, pos)), doors[static_cast<std::size_t>(x)]);
    }
    EXPECT_EQ(ToText(*level), Map("DN DS DE DW"));
}

TEST_F(GenIntDoorsTest, FirstTileOfTheElementGivesTheFacing) {
    const DiPtr<Layout> level = Drawn("wS&wE&c");
    OpenRandom(info).AddTeleDoor(*level, DiPos());
    EXPECT_EQ(ToText(*level), Map("DS"));
}

TEST_F(GenIntDoorsTest, ElementWithoutAStraightFacingIsReturnedAsItIs) {
    const DiPtr<Layout> level = Drawn("c&wN NW | o");
    OpenRandom gen(info);
    for (int x = 0; x < 4; ++x) {
        EXPECT_TRUE(gen.AddTeleDoor(*level, DiPos(x, 0, 0)));
    }
    EXPECT_EQ(ToText(*level), Map("c&wN NW | o"));
}

TEST_F(GenIntDoorsTest, EmptyCellAndPlaceOutsideGiveNoDoor) {
    const DiPtr<Layout> level = Drawn(". wN");
    OpenRandom gen(info);
    EXPECT_FALSE(gen.AddTeleDoor(*level, DiPos(0, 0, 0)));
    EXPECT_FALSE(gen.AddTeleDoor(*level, DiPos(2, 0, 0)));
    EXPECT_FALSE(gen.AddTeleDoor(*level, DiPos(1, 1, 0)));
    EXPECT_FALSE(gen.AddTeleDoor(*level, DiPos(-1, 0, 0)));
    EXPECT_EQ(ToText(*level), Map(". wN"));
}

TEST_F(GenIntDoorsTest, DoorComesFromTheLevelsOwnSet) {
    const DiPtr<TileSet> other = MakeFullTileSet("Cave");
    const DiPtr<Layout> level = Drawn("wN");
    level->SetTileSet(other);
    const DiPtr<GridElmt> door = OpenRandom(info).AddTeleDoor(*level, DiPos());
    ASSERT_EQ(door->tiles.size(), 3U);
    EXPECT_EQ(door->tiles[0], other->Get("DoorwayN"));
    EXPECT_EQ(door->tiles[1], other->Get("DoorjambN"));
    EXPECT_EQ(door->tiles[2], other->Get("DoorN"));
}

TEST_F(GenIntDoorsTest, DoorLacksWhatItsSetLacks) {
    const DiPtr<TileSet> poor = MakeDi<TileSet>();
    Tile leaf;
    leaf.kindName = "DoorN";
    poor->Set(leaf);
    const DiPtr<Layout> level = Drawn("wN");
    level->SetTileSet(poor);
    OpenRandom(info).AddTeleDoor(*level, DiPos());
    EXPECT_EQ(ToText(*level), Map("lN"));
}

// Doors between levels.

TEST_F(GenIntDoorsTest, SingleLevelHasNoTeleportingDoors) {
    const DiPtr<Layout> level = Drawn("wN wN");
    const DrawLog draws;
    Link({});
    Link({level});
    EXPECT_EQ(ToText(*level), Map("wN wN"));
    EXPECT_EQ(draws.Bounds(), Draws());
}

TEST_F(GenIntDoorsTest, TwoLevelsLeadToEachOtherAndTheLaterDrawsFirst) {
    const DiPtr<Layout> a = Drawn("c wN\nwW c");
    const DiPtr<Layout> b = Drawn("wE wE wE");
    SeedFor({Pick(2, 3), Pick(1, 2)});
    const DrawLog draws;
    Link({a, b});
    EXPECT_EQ(draws.Bounds(), (Draws{3, 2}));
    EXPECT_EQ(ToText(*a), Map("c wN\nDW! c"));
    EXPECT_EQ(ToText(*b), Map("wE wE DE!"));
    ExpectLeads(*a, {0, 1, 0}, b, {2, 0, 0});
    ExpectLeads(*b, {2, 0, 0}, a, {0, 1, 0});
}

TEST_F(GenIntDoorsTest, MiddleLevelHasADoorUpAndADoorDown) {
    const DiPtr<Layout> a = Drawn("wN");
    const DiPtr<Layout> b = Drawn("wS wS wS");
    const DiPtr<Layout> c = Drawn("wW wW");
    // The door to the first level is no wall any more when the pair with the last one is made.
    SeedFor({Pick(1, 3), Pick(0, 1), Pick(1, 2), Pick(1, 2)});
    const DrawLog draws;
    Link({a, b, c});
    EXPECT_EQ(draws.Bounds(), (Draws{3, 1, 2, 2}));
    EXPECT_EQ(ToText(*a), Map("DN!"));
    EXPECT_EQ(ToText(*b), Map("wS DS! DS!"));
    EXPECT_EQ(ToText(*c), Map("wW DW!"));
    ExpectLeads(*a, {0, 0, 0}, b, {1, 0, 0});
    ExpectLeads(*b, {1, 0, 0}, a, {0, 0, 0});
    ExpectLeads(*b, {2, 0, 0}, c, {1, 0, 0});
    ExpectLeads(*c, {1, 0, 0}, b, {2, 0, 0});
}

TEST_F(GenIntDoorsTest, EachLevelKeepsItsOwnTiles) {
    const DiPtr<TileSet> cave = MakeFullTileSet("Cave");
    const DiPtr<Layout> a = Drawn("wN");
    const DiPtr<Layout> b = Drawn("wN");
    b->SetTileSet(cave);
    Link({a, b});
    EXPECT_EQ(a->GetElmt(0, 0)->tiles.front(), tiles->Get("DoorwayN"));
    EXPECT_EQ(b->GetElmt(0, 0)->tiles.front(), cave->Get("DoorwayN"));
}

TEST_F(GenIntDoorsTest, LevelWithoutWallsEndsTheChain) {
    const DiPtr<Layout> a = Drawn("wN");
    const DiPtr<Layout> b = Drawn(". c");
    const DiPtr<Layout> c = Drawn("wW wW");
    const DrawLog draws;
    Link({a, b, c});
    // The first level's wall has become a door by then, but leads nowhere.
    EXPECT_EQ(ToText(*a), Map("DN"));
    EXPECT_FALSE(a->GetElmt(0, 0)->teleLayout);
    EXPECT_EQ(ToText(*b), Map(". c"));
    EXPECT_EQ(ToText(*c), Map("wW wW"));
    EXPECT_EQ(draws.Bounds(), (Draws{1}));
}

TEST_F(GenIntDoorsTest, PairsBeforeALevelWithoutWallsStayLinked) {
    const DiPtr<Layout> a = Drawn("wN");
    const DiPtr<Layout> b = Drawn("wS wS");
    const DiPtr<Layout> c = Drawn(". .");
    const DiPtr<Layout> d = Drawn("wW");
    SeedFor({Pick(0, 2)});
    Link({a, b, c, d});
    EXPECT_EQ(ToText(*a), Map("DN!"));
    EXPECT_EQ(ToText(*b), Map("DS! DS"));
    EXPECT_EQ(ToText(*c), Map(". ."));
    EXPECT_EQ(ToText(*d), Map("wW"));
}

TEST_F(GenIntDoorsTest, WithoutWallsWhateverStandsInTheCornerIsTaken) {
    const DiPtr<Layout> a = Drawn("wN");
    const DiPtr<Layout> b = Drawn("NW c");
    const DiPtr<Layout> c = Drawn("wW");
    const DrawLog draws;
    Link({a, b, c});
    EXPECT_EQ(draws.Bounds(), (Draws{1, 1}));
    EXPECT_EQ(ToText(*a), Map("DN!"));
    EXPECT_EQ(ToText(*b), Map("NW! c"));
    EXPECT_EQ(ToText(*c), Map("DW!"));
    ExpectLeads(*a, {0, 0, 0}, b, {0, 0, 0});
    // The second pair takes the same corner.
    ExpectLeads(*b, {0, 0, 0}, c, {0, 0, 0});
    ExpectLeads(*c, {0, 0, 0}, b, {0, 0, 0});
}

TEST_F(GenIntDoorsTest, WithoutWallsADoorwayInTheCornerGetsTheDoor) {
    const DiPtr<Layout> a = Drawn("wN");
    const DiPtr<Layout> b = Drawn("dE c");
    Link({a, b});
    EXPECT_EQ(ToText(*b), Map("DE! c"));
    ExpectLeads(*b, {0, 0, 0}, a, {0, 0, 0});
}

} // namespace

} // namespace Tarnex::Test
