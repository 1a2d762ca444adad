// SPDX-License-Identifier: MIT
// Maps of plug-ins, whoever wrote them.
#include "tools/maps/PluginMap.h"
#include "tools/text/Words.h"

#include <gtest/gtest.h>

#include <limits>
#include <tests/tools/maps/SampleMap.h>
#include <tests/tools/plugins/SamplePlugin.h>

namespace Tarnex::Test {

namespace {

using Report::LevelMap;

// A tile set of three tiles and a chair, and a cell to place them in.
class PluginMapTest : public ::testing::Test {
protected:
    PluginMapTest() {
        DiPtr<TileSet> set(new TileSet);
        set->SetName("Stone");
        set->SetType("Room");
        set->SetTileSize(256);
        AddTile(*set, "Center", "floor");
        AddTile(*set, "DoorwayN", "doorway");
        AddTile(*set, "DoorN", "gate");
        config.roomTileSets.push_back(set);
        auto chair = MakeDi<ContentTemplate>();
        chair->contentKind = "Furniture";
        chair->uniqueName = "chair";
        config.contentMgr->Add(chair);
        cell = mod.CreateCell("Hall");
    }

    static void AddTile(TileSet& set, const char* kind, const char* id) {
        Tile tile;
        tile.kindName = kind;
        tile.id = id;
        set.Set(tile);
    }

    void Put(const char* id, float x, float y, float z = 0.0F, int quarters = 0) {
        cell->AddRef(PlacedAt(id, x, y, z, quarters));
    }

    LevelMap Map() { return MapOfFirst(ReadBack(mod)); }

    LevelMap MapOfFirst(const PluginFile& file) const {
        Report::PluginChests chests(file);
        return Report::MapOf(file.cells.at(0), chests, Report::PieceIndex(config));
    }

    ConfigMgr config;
    Mod mod;
    DiPtr<Tarnex::Cell> cell;
};

TEST_F(PluginMapTest, LocksAreThoseOfDoorsAndThings) {
    Put("doorway", 0, 0);
    Put("gate", 0, 0);
    Put("floor", 0, -256);
    Put("Ctr1_1", 0, -256);
    RefLock lock;
    lock.level = 35;
    lock.key = "Key1_1";
    cell->LockRef(1, lock);
    RefLock trap;
    trap.trap = "a_trap";
    cell->LockRef(3, trap);
    const LevelMap map = Map();
    EXPECT_TRUE(map.At(0, 0).lock.locked);
    EXPECT_FALSE(map.At(0, 0).lock.trapped);
    EXPECT_EQ(map.At(0, 0).lock.words, "locked at 35, key \"Key1_1\"");
    EXPECT_FALSE(map.At(0, 1).lock.locked);
    ASSERT_EQ(map.At(0, 1).contents.size(), 1U);
    EXPECT_FALSE(map.At(0, 1).contents[0].lock.locked);
    EXPECT_TRUE(map.At(0, 1).contents[0].lock.trapped);
}

TEST_F(PluginMapTest, KnownTilesBecomeFloorsAndDoors) {
    Put("FLOOR", 256, -512);
    Put("doorway", 256, -256);
    Put("gate", 256, -256);
    Put("Chair", 200, -500);
    const LevelMap map = Map();
    EXPECT_EQ(map.tileSet, "Stone");
    EXPECT_EQ(map.width, 1);
    EXPECT_EQ(map.height, 2);
    EXPECT_TRUE(map.At(0, 0).door);
    EXPECT_EQ(map.At(0, 0).doorway, Open("N"));
    EXPECT_EQ(map.At(0, 1).tile, PlanTile::Room);
    EXPECT_EQ(map.At(0, 1).contents.at(0).sign, Report::MapSign::Furniture);
    EXPECT_EQ(map.rooms.size(), 1U);
}

TEST_F(PluginMapTest, TheGridLiesWhereTheTilesSay) {
    Put("floor", 1100, -60);
    Put("floor", 1356, -60);
    Put("chair", 1400, -100);
    const LevelMap map = Map();
    EXPECT_EQ(map.width, 2);
    EXPECT_EQ(map.height, 1);
    EXPECT_EQ(map.At(1, 0).contents.size(), 1U);
}

TEST_F(PluginMapTest, TurnedTilesAreTheOtherSides) {
    Put("doorway", 0, 0, 0, 1);
    EXPECT_EQ(Map().At(0, 0).doorway, Open("E"));
}

TEST_F(PluginMapTest, UnknownObjectsAreMarks) {
    Put("somebody's statue", 0, 0);
    Put("ex_wooden_door_02", 600, 0);
    Put("in_doorway_arch", 600, 0);
    const LevelMap map = Map();
    EXPECT_TRUE(map.tileSet.empty());
    EXPECT_EQ(map.At(0, 0).tile, PlanTile::Empty);
    EXPECT_EQ(map.At(0, 0).contents.at(0).sign, Report::MapSign::Other);
    EXPECT_EQ(map.At(2, 0).contents.at(0).sign, Report::MapSign::Door);
    EXPECT_EQ(map.At(2, 0).contents.at(1).sign, Report::MapSign::Other);
    EXPECT_TRUE(map.rooms.empty());
}

// Of two cells of floor the one without the chair, at the height of the level.
TEST_F(PluginMapTest, OneArrivesOnTheFloorAwayFromThings) {
    Put("floor", 64.0F, 0.0F, 640.0F);
    Put("floor", 320.0F, 0.0F, 640.0F);
    Put("chair", 320.0F, 0.0F, 512.0F);
    const LevelMap map = Map();
    ASSERT_TRUE(map.arrival);
    EXPECT_TRUE(map.arrival->good);
    EXPECT_EQ(ConsoleLine(*map.arrival), "player->positioncell 64 0 640 90 \"Hall\"");
    EXPECT_EQ(map.ArrivalCell(), &map.At(0, 0));
}

TEST_F(PluginMapTest, WhatIsNotKnownIsInTheWayToo) {
    Put("floor", 0.0F, 0.0F);
    Put("statue", 90.0F, 0.0F);
    const LevelMap map = Map();
    ASSERT_TRUE(map.arrival);
    EXPECT_FALSE(map.arrival->good);
}

TEST_F(PluginMapTest, NobodyArrivesWhereNothingIsFloor) {
    Put("chair", 0.0F, 0.0F);
    EXPECT_FALSE(Map().arrival);
}

TEST_F(PluginMapTest, ContainersHaveNamesAndTreasure) {
    Mod sample;
    FillSample(sample);
    const PluginFile file = ReadBack(sample);
    const LevelMap map = MapOfFirst(file);
    std::size_t containers = 0;
    for (const Report::MapCell& place : map.cells) {
        for (const Report::MapContent& content : place.contents) {
            if (content.sign == Report::MapSign::Container) {
                ++containers;
                EXPECT_EQ(content.label, Report::Shown(file.containers.at(0).name));
                EXPECT_EQ(content.chest->items.size(), file.containers.at(0).items.size());
            }
        }
    }
    EXPECT_EQ(containers, 1U);
}

TEST_F(PluginMapTest, WhatIsFarAwayOrNowhereIsCountedAndLeftOut) {
    Put("floor", 0, 0);
    Put("floor", 256, 0);
    Put("floor", 1e30F, 0);
    Put("chair", 0, -3e38F);
    Put("chair", std::numeric_limits<float>::quiet_NaN(), 0);
    Put("chair", 0, std::numeric_limits<float>::infinity());
    const LevelMap map = Map();
    EXPECT_EQ(map.leftOut, 4U);
    EXPECT_EQ(map.width, 2);
    EXPECT_EQ(map.height, 1);
}

TEST_F(PluginMapTest, ACellOfNothingIsAnEmptyMap) {
    const LevelMap map = Map();
    EXPECT_EQ(map.width, 0);
    EXPECT_EQ(map.height, 0);
}

TEST_F(PluginMapTest, OtherFloorsAreDrawnWhereTheMainFloorIsEmpty) {
    Put("floor", 0, 0);
    Put("floor", 256, 0);
    Put("doorway", 256, 0, 1024);
    Put("floor", 512, 0, 1024);
    const LevelMap map = Map();
    EXPECT_EQ(map.At(1, 0).doorway, 0);
    EXPECT_EQ(map.At(2, 0).tile, PlanTile::Room);
    EXPECT_FALSE(map.At(2, 0).sameFloor);
}

TEST_F(PluginMapTest, RoomsThatHangTogetherByNothingAreOutOfReach) {
    Put("floor", 0, 0);
    Put("floor", 1024, 0);
    const LevelMap map = Map();
    ASSERT_EQ(map.rooms.size(), 2U);
    EXPECT_TRUE(map.rooms[0].reachable);
    EXPECT_FALSE(map.rooms[1].reachable);
}

} // namespace

} // namespace Tarnex::Test
