// SPDX-License-Identifier: MIT
// What is copied from a finished level.
#include "tools/maps/LevelMap.h"

#include <gtest/gtest.h>

#include <tests/tools/maps/SampleMap.h>

namespace Tarnex::Test {

namespace {

// A room cell with a doorway to the south and a hall below it that goes on into nothing.
class LevelMapTest : public ::testing::Test {
protected:
    LevelMapTest() {
        Put(0, {"DoorwayS", "DoorS"});
        Put(1, {"HallNS"});
    }

    DiPtr<GridElmt> Put(std::int32_t row, const std::vector<const char*>& kinds) {
        DiPtr<GridElmt> elmt(new GridElmt);
        for (const char* kind : kinds) {
            DiPtr<Tile> tile(new Tile);
            tile->kindName = kind;
            elmt->AddTile(tile);
        }
        layout->SetElmt(elmt, row, 0);
        return elmt;
    }

    Report::LevelMap Map(const LevelReport* report = nullptr) const {
        return Report::MapOf({*layout, cell, tileSet, config, report});
    }

    static std::string Words(const Report::LevelMap& map, const Report::MapCell& cell) {
        Report::ListedItems listed;
        return Report::CellWords(map, cell, listed);
    }

    DiPtr<Layout> layout = Layout::Create(DiPos(1, 3, 0));
    Tarnex::Cell cell{"Vault"};
    TileSet tileSet;
    ConfigMgr config;
};

TEST_F(LevelMapTest, CopiesNameTilesAndOpenings) {
    const Report::LevelMap map = Map();
    EXPECT_EQ(map.name, "Vault");
    EXPECT_EQ(map.tileSize, 256);
    EXPECT_EQ(map.At(0, 0).tile, PlanTile::Room);
    EXPECT_EQ(map.At(0, 0).doorway, Open("S"));
    EXPECT_TRUE(map.At(0, 0).door);
    EXPECT_EQ(map.At(0, 1).tile, PlanTile::Hall);
    EXPECT_EQ(map.At(0, 1).open, Open("NS"));
}

TEST_F(LevelMapTest, IsAsLargeAsWhatIsOnIt) {
    layout->SetElmt({}, 0, 0);
    const Report::LevelMap map = Map();
    EXPECT_EQ(map.width, 1);
    EXPECT_EQ(map.height, 1);
    EXPECT_EQ(map.At(0, 0).tile, PlanTile::Hall);
    EXPECT_EQ(map.corner.y, -256.0F);
    layout->SetElmt({}, 1, 0);
    EXPECT_TRUE(Map().cells.empty());
}

TEST_F(LevelMapTest, TheCellOfTheArrivalTellsWhatToType) {
    std::vector<Report::LevelMap> maps = {Map(), Map()};
    AddArrivals(maps, {{1, "Vault", Di3Point(20.0F, -256.0F, -96.0F), 90, true}});
    EXPECT_EQ(maps[0].ArrivalCell(), nullptr);
    ASSERT_EQ(maps[1].ArrivalCell(), &maps[1].At(0, 1));
    EXPECT_EQ(Words(maps[1], maps[1].At(0, 1)),
              "HallNS\nArrive here: player->positioncell 20 -256 -96 90 \"Vault\"\n"
              "Opens onto nothing");
}

TEST_F(LevelMapTest, AnArrivalBesideTheMapIsInNoCell) {
    std::vector<Report::LevelMap> maps = {Map()};
    AddArrivals(maps, {{0, "Vault", Di3Point(0.0F, 256.0F, 0.0F), 0, false}});
    EXPECT_EQ(maps[0].ArrivalCell(), nullptr);
}

TEST_F(LevelMapTest, MarksOpeningsOntoNothing) {
    const Report::LevelMap map = Map();
    EXPECT_EQ(map.At(0, 0).loose, 0);
    EXPECT_EQ(map.At(0, 1).loose, Open("S"));
}

TEST_F(LevelMapTest, NumbersRoomsAndTellsWhichCannotBeReached) {
    LevelReport report;
    report.rooms = {{{}, DiPos(0, 0, 0), DiPos(1, 1, 0), false}};
    const Report::LevelMap map = Map(&report);
    EXPECT_EQ(map.At(0, 0).room, 1U);
    EXPECT_EQ(map.At(0, 1).room, 0U);
    EXPECT_FALSE(map.IsReachable(map.At(0, 0)));
    EXPECT_EQ(Words(map, map.At(0, 0)), "Room 1 (cannot be reached)\nDoorwayS, DoorS");
}

TEST_F(LevelMapTest, PartsAtOtherHeightsAreDrawnWhereTheLevelIsEmpty) {
    const DiPtr<Layout> part = Layout::Create(DiPos(1, 2, 0));
    part->SetOffset(Di3Point(0.0F, 1.0F, -3.0F));
    for (std::int32_t row = 0; row < 2; ++row) {
        part->SetElmt(layout->GetElmt(0, 0), row, 0);
    }
    layout->AddChild(part);
    const Report::LevelMap map = Map();
    EXPECT_EQ(map.At(0, 1).tile, PlanTile::Hall);
    EXPECT_EQ(map.At(0, 2).tile, PlanTile::Room);
    EXPECT_EQ(map.At(0, 1).loose, Open("S"));
    layout->Dissolve();
}

TEST_F(LevelMapTest, PartsFarFromTheLevelAreLeftOutAndCounted) {
    constexpr float kFarthest = Report::kFarthestCell;
    const auto add = [this](float x, float y) {
        const DiPtr<Layout> part = Layout::Create(DiPos(1, 1, 0));
        part->SetOffset(Di3Point(x, y, -3.0F));
        part->SetElmt(layout->GetElmt(1, 0), 0, 0);
        layout->AddChild(part);
    };
    add(1.0F + kFarthest, 0.0F);
    add(0.0F, -1.0F - kFarthest);
    EXPECT_EQ(Map().leftOut, 0U);
    add(2.0F + kFarthest, 0.0F);
    add(0.0F, -2.0F - kFarthest);
    add(3e9F, 3e9F);
    add(-3e9F, -3e9F);
    EXPECT_EQ(Map().leftOut, 4U);
    layout->Dissolve();
}

TEST_F(LevelMapTest, NamesTheLevelBehindATeleportingDoor) {
    const DiPtr<Layout> other = Layout::Create(DiPos(1, 1, 0));
    other->SetName("Level 2");
    layout->GetElmt(0, 0)->isTeleport = true;
    layout->GetElmt(0, 0)->teleLayout = other;
    EXPECT_EQ(Map().At(0, 0).leadsTo, "Level 2");
}

TEST(StackAlikeTest, ItemsAreCountedTogetherUnlessTheyAreRefilled) {
    std::vector<Report::MapItem> items = {
        {"meat", 1}, {"cup", 2}, {"meat", 4}, {"meat", -3}, {"meat", -1}};
    Report::StackAlike(items);
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(Report::ItemWords(items[0]), "5 x meat");
    EXPECT_EQ(Report::ItemWords(items[1]), "2 x cup");
    EXPECT_EQ(Report::ItemWords(items[2]), "-4 x meat");
}

TEST(MainContentTest, CreaturesComeBeforeFurniture) {
    const Report::LevelMap map = SampleMap();
    EXPECT_EQ(Report::MainContent(map.At(2, 1))->name, "rat");
    EXPECT_EQ(Report::MainContent(map.At(0, 0))->name, "chest <big>");
    EXPECT_EQ(Report::MainContent(map.At(1, 1)), nullptr);
}

} // namespace

} // namespace Tarnex::Test
