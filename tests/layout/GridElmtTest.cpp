// SPDX-License-Identifier: MIT
#include <vaultry/layout/GridElmt.h>
#include <vaultry/layout/Layout.h>

#include <gtest/gtest.h>

#include <tests/support/TextGrid.h>

#include <array>
#include <functional>
#include <set>
#include <thread>
#include <vector>

namespace Tarnex::Test {

namespace {

class GridElmtTest : public ::testing::Test {
protected:
    DiPtr<TileSet> tiles = MakeFullTileSet();
};

TEST_F(GridElmtTest, NewElementIsEmptyAndOpenToContent) {
    const GridElmt elmt;
    EXPECT_TRUE(elmt.contents.empty());
    EXPECT_TRUE(elmt.platforms.empty());
    EXPECT_TRUE(elmt.tiles.empty());
    EXPECT_EQ(elmt.platformHeight, 0);
    EXPECT_EQ(elmt.teleDest, DiPos(0, 0, 0));
    EXPECT_FALSE(elmt.teleLayout);
    EXPECT_FALSE(elmt.isTeleport);
    EXPECT_FALSE(elmt.isFull);
    EXPECT_FALSE(elmt.isShadow);
    EXPECT_EQ(elmt.FirstTile(), nullptr);
}

TEST_F(GridElmtTest, TilesAndContentsAreKeptInOrderOfAddition) {
    GridElmt elmt;
    const auto chest = MakeDi<ContentItem>();
    const auto rug = MakeDi<ContentItem>();
    elmt.AddTile(tiles->Get("Center"));
    elmt.AddTile(tiles->Get("StairsUpN"));
    elmt.AddContent(chest);
    elmt.AddContent(rug);
    ASSERT_EQ(elmt.tiles.size(), 2U);
    EXPECT_EQ(elmt.tiles[0], tiles->Get("Center"));
    EXPECT_EQ(elmt.tiles[1], tiles->Get("StairsUpN"));
    EXPECT_EQ(elmt.FirstTile(), tiles->Get("Center").get());
    ASSERT_EQ(elmt.contents.size(), 2U);
    EXPECT_EQ(elmt.contents[0], chest);
    EXPECT_EQ(elmt.contents[1], rug);
}

TEST_F(GridElmtTest, NullTilesAndContentsAreIgnored) {
    GridElmt elmt;
    elmt.AddTile(nullptr);
    elmt.AddContent(nullptr);
    EXPECT_TRUE(elmt.tiles.empty());
    EXPECT_TRUE(elmt.contents.empty());
}

TEST_F(GridElmtTest, HasTileIgnoresCaseAndLooksBeyondTheFirstTile) {
    const DiPtr<GridElmt> elmt = ToElmt("DN", *tiles);
    EXPECT_TRUE(elmt->HasTile("DoorwayN"));
    EXPECT_TRUE(elmt->HasTile("doorn"));
    EXPECT_TRUE(elmt->HasTile("DOORJAMBN"));
    EXPECT_FALSE(elmt->HasTile("DoorS"));
    EXPECT_FALSE(elmt->HasTile("Door"));
    EXPECT_FALSE(elmt->HasTile(""));
    EXPECT_FALSE(GridElmt().HasTile("DoorN"));
}

TEST_F(GridElmtTest, HasTileFindsNamesOutsideTheVocabulary) {
    Tile lamp;
    lamp.kindName = "Lamp";
    tiles->Set(lamp);
    EXPECT_TRUE(ToElmt("?Lamp", *tiles)->HasTile("LAMP"));
}

TEST_F(GridElmtTest, ReplacingTilesLeavesTheNewOneAlone) {
    const DiPtr<GridElmt> elmt = ToElmt("DN", *tiles);
    elmt->ReplaceTiles(tiles->Get("WallN"));
    EXPECT_EQ(ToText(elmt), "wN");
    elmt->ReplaceTiles(nullptr);
    EXPECT_EQ(ToText(elmt), "o");
}

void ExpectFilled(const GridElmt& elmt, const Layout* level) {
    EXPECT_EQ(elmt.contents.size(), 1U);
    EXPECT_EQ(elmt.platforms.size(), 1U);
    EXPECT_EQ(elmt.tiles.size(), 1U);
    EXPECT_EQ(elmt.platformHeight, 32);
    EXPECT_EQ(elmt.teleDest, DiPos(3, 4, 5));
    EXPECT_EQ(elmt.teleLayout.get(), level);
    EXPECT_TRUE(elmt.isTeleport);
    EXPECT_TRUE(elmt.isFull);
    EXPECT_TRUE(elmt.isShadow);
}

TEST_F(GridElmtTest, CopyTakesEveryFieldAndSharesThePieces) {
    const DiPtr<Layout> level = Layout::Create(DiPos(1, 1, 0));
    GridElmt elmt;
    elmt.AddContent(MakeDi<ContentItem>());
    elmt.platforms.push_back(MakeDi<PlatformTile>());
    elmt.AddTile(tiles->Get("DoorN"));
    elmt.platformHeight = 32;
    elmt.teleDest = DiPos(3, 4, 5);
    elmt.teleLayout = level;
    elmt.isTeleport = elmt.isFull = elmt.isShadow = true;

    const GridElmt copy(elmt);
    GridElmt assigned;
    assigned.AddTile(tiles->Get("WallN"));
    assigned = elmt;
    for (const GridElmt* twin : {&copy, static_cast<const GridElmt*>(&assigned)}) {
        ExpectFilled(*twin, level.get());
        EXPECT_EQ(twin->contents[0], elmt.contents[0]);
        EXPECT_EQ(twin->platforms[0], elmt.platforms[0]);
        EXPECT_EQ(twin->tiles[0], elmt.tiles[0]);
    }
}

TEST_F(GridElmtTest, CopyOwnsItsLists) {
    const DiPtr<GridElmt> elmt = ToElmt("wN", *tiles);
    GridElmt copy(*elmt);
    copy.AddTile(tiles->Get("Center"));
    copy.AddContent(MakeDi<ContentItem>());
    copy.platforms.push_back(MakeDi<PlatformTile>());
    EXPECT_EQ(ToText(elmt), "wN");
    EXPECT_TRUE(elmt->contents.empty());
    EXPECT_TRUE(elmt->platforms.empty());
}

#if !defined(__SANITIZE_ADDRESS__) // which wants memory of its own for each element
using Elements = std::vector<DiPtr<GridElmt>>;

constexpr std::size_t kMoreThanABlock = 1000;

Elements NewElements() {
    Elements elements;
    for (std::size_t i = 0; i < kMoreThanABlock; ++i) {
        elements.push_back(MakeDi<GridElmt>());
    }
    return elements;
}

std::set<const GridElmt*> PlacesOf(const Elements& elements) {
    std::set<const GridElmt*> places;
    for (const DiPtr<GridElmt>& elmt : elements) {
        places.insert(elmt.get());
    }
    return places;
}

TEST_F(GridElmtTest, MemoryServesTheNextElements) {
    const std::set<const GridElmt*> first = PlacesOf(NewElements());
    EXPECT_EQ(first.size(), kMoreThanABlock);
    EXPECT_EQ(PlacesOf(NewElements()), first);
}

// Two threads, one after the other; the elements of the first are let go of by the second.
TEST_F(GridElmtTest, SharedMemoryServesOtherThreads) {
    Elements elements;
    std::thread([&elements] {
        elements = NewElements();
        GridElmt::ShareMemory();
    }).join();
    const std::set<const GridElmt*> first = PlacesOf(elements);
    std::thread([&elements] {
        elements.clear();
        GridElmt::ShareMemory();
        GridElmt::ShareMemory(); // nothing is left to share
    }).join();
    std::thread([&elements] { elements = NewElements(); }).join();
    EXPECT_EQ(PlacesOf(elements), first);
}

TEST_F(GridElmtTest, ThreadsGetMemoryOfTheirOwn) {
    std::array<Elements, 2> elements;
    const auto work = [](Elements& mine) {
        for (int round = 0; round < 20; ++round) {
            mine.clear();
            GridElmt::ShareMemory();
            mine = NewElements();
        }
    };
    std::thread other(work, std::ref(elements[1]));
    work(elements[0]);
    other.join();
    std::set<const GridElmt*> all = PlacesOf(elements[0]);
    all.merge(PlacesOf(elements[1]));
    EXPECT_EQ(all.size(), 2 * kMoreThanABlock);
}
#endif

} // namespace

} // namespace Tarnex::Test
