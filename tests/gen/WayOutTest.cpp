// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/gen/WayOut.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/support/TextGrid.h>

namespace Tarnex::Test {

namespace {

class WayOutTest : public testing::Test {
protected:
    // The map's first room is the first of the list.
    void Draw(std::string_view map, std::vector<RoomReport> rooms) {
        level = ToLayout(map, *tiles);
        report.rooms = std::move(rooms);
    }

    // Puts a thing of that kind into a cell.
    void Put(std::int32_t row, std::int32_t col, std::string_view kind = Content_Container) {
        const auto thing = MakeDi<ContentItem>();
        thing->contentKind = kind;
        At(row, col)->AddContent(thing);
    }

    const DiPtr<GridElmt>& At(std::int32_t row, std::int32_t col) const {
        return level->GetElmt(static_cast<std::uint32_t>(row), static_cast<std::uint32_t>(col));
    }

    // "row col side", and whether it is a door already.
    std::string Chosen(const LevelReport* rooms) const {
        const auto found = ChooseWayOut(*level, *tiles, rooms);
        if (!found) {
            return "none";
        }
        return std::to_string(found->place.y) + ' ' + std::to_string(found->place.x) + ' ' +
               "NSEW"[found->side->dir] + (found->isDoor ? " door" : "");
    }
    std::string Chosen() const { return Chosen(&report); }

    const DiPtr<TileSet> tiles = MakeFullTileSet();
    DiPtr<Layout> level;
    LevelReport report;
};

constexpr std::string_view kRoom = R"(
    NW wN NE
    wW c  wE
    SW wS SE)";

TEST_F(WayOutTest, TheFirstFreeWallOfARoom) {
    Draw(kRoom, {{{}, {}, {3, 3, 0}, true}});
    EXPECT_EQ(Chosen(), "0 1 N");
    // Away from what stands there.
    Put(0, 1);
    EXPECT_EQ(Chosen(), "2 1 S");
    Put(2, 1);
    EXPECT_EQ(Chosen(), "1 0 W");
    Put(1, 0);
    EXPECT_EQ(Chosen(), "1 2 E");
    Put(1, 2);
    EXPECT_EQ(Chosen(), "none");
}

TEST_F(WayOutTest, WhereEveryWallHasSomethingItIsWhatCanGo) {
    Draw(kRoom, {{{}, {}, {3, 3, 0}, true}});
    Put(0, 1, Content_Container);
    Put(1, 0, Content_Furniture);
    Put(1, 2, Content_Creature);
    Put(2, 1, Content_Tapestry);
    Put(2, 1, Content_Furniture);
    EXPECT_EQ(Chosen(), "1 0 W");
    Put(1, 0, Content_Container);
    EXPECT_EQ(Chosen(), "2 1 S");
    Put(2, 1, Content_Creature);
    EXPECT_EQ(Chosen(), "none");
}

TEST_F(WayOutTest, RatherAWallWithFewThingsAround) {
    Draw(R"(
        NW wN wN wN NE
        wW c  c  c  wE
        SW wS wS wS SE)",
         {{{}, {}, {5, 3, 0}, true}});
    Put(1, 1);
    EXPECT_EQ(Chosen(), "0 3 N");
    Put(1, 4);
    EXPECT_EQ(Chosen(), "0 1 N");
    // What is flat is in nobody's way.
    Put(1, 3, Content_Rug);
    Put(1, 3, Content_Rug);
    Put(1, 2);
    EXPECT_EQ(Chosen(), "1 0 W");
}

TEST_F(WayOutTest, RatherAWallWithNothingBehindIt) {
    Draw(R"(
        .  |  .
        NW wN NE
        wW c  wE
        SW wS SE)",
         {{{}, {0, 1, 0}, {3, 3, 0}, true}});
    EXPECT_EQ(Chosen(), "2 0 W");
}

TEST_F(WayOutTest, AnyWallOfTheFirstRoomBeforeThoseOfOthers) {
    Draw(R"(
        NW wN NE . NW wN NE
        wW c  wE . wW c  wE
        SW wS SE . SW wS SE)",
         {{{}, {4, 0, 0}, {3, 3, 0}, true}, {{}, {}, {3, 3, 0}, true}});
    EXPECT_EQ(Chosen(), "0 5 N");
    Put(0, 5);
    Put(1, 4);
    Put(1, 5);
    Put(1, 6);
    EXPECT_EQ(Chosen(), "2 5 S");
    Put(2, 5);
    EXPECT_EQ(Chosen(), "0 1 N");
    report.rooms[1].reachable = false;
    EXPECT_EQ(Chosen(), "none");
}

TEST_F(WayOutTest, OnlyAWallThatOneComesToFromInside) {
    Draw(R"(
        wN
        wN
        wS)",
         {{{}, {}, {1, 3, 0}, true}});
    EXPECT_EQ(Chosen(), "2 0 S");
    Put(2, 0);
    EXPECT_EQ(Chosen(), "1 0 N");
    Put(1, 0);
    EXPECT_EQ(Chosen(), "none");
}

TEST_F(WayOutTest, NotWhereThereIsAPlatform) {
    Draw(kRoom, {{{}, {}, {3, 3, 0}, true}});
    At(0, 1)->platforms.push_back(MakeDi<PlatformTile>());
    EXPECT_EQ(Chosen(), "1 0 W");
}

TEST_F(WayOutTest, ATileSetWithoutDoorsHasNoWayOut) {
    Draw(kRoom, {{{}, {}, {3, 3, 0}, true}});
    EXPECT_FALSE(ChooseWayOut(*level, *MakeDi<TileSet>(), &report));
}

TEST_F(WayOutTest, AFixedInteriorIsLeftByTheDoorOfItsAuthor) {
    Draw(R"(
        NW wN NE
        wW c  wE
        SW DS SE)",
         {});
    EXPECT_EQ(Chosen(nullptr), "2 1 S door");
    // A doorway without a leaf is no door.
    At(2, 1)->ReplaceTiles(tiles->Get(TileKind::Of(Tile_sDoorway)));
    EXPECT_EQ(Chosen(nullptr), "0 1 N");
}

TEST_F(WayOutTest, ADoorBetweenRoomsIsNoWayOut) {
    Draw(R"(
        NW wN NE
        wW DE dW
        SW wS SE)",
         {});
    EXPECT_EQ(Chosen(nullptr), "0 1 N");
}

} // namespace

} // namespace Tarnex::Test
