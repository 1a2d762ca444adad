// SPDX-License-Identifier: MIT
// Random levels: their floor plans, the choices made by chance and the order of a run.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <tests/gen/OpenRandom.h>

namespace Tarnex::Test {

namespace {

using Info = RandomGenInfo;

constexpr std::int32_t U = kUnit;

// The first `count` draws.
Draws Head(const DrawLog& log, std::size_t count) {
    const Draws& all = log.Bounds();
    return {all.begin(), all.begin() + static_cast<std::ptrdiff_t>(std::min(count, all.size()))};
}

// RandomInt(n) gives anything but `index`.
Wish Not(std::int32_t index, std::int32_t n) {
    return [=](std::int32_t raw) { return raw % n != index; };
}

class GenIntRandomTest : public GenTest {
protected:
    void AddTemplate(std::string_view map, const char* type = "Room") {
        const DiPtr<LayoutTemplate> plan = ToTemplate(map);
        plan->SetType(type);
        auto& list =
            std::string_view(type) == "Cave" ? info.config.caveLayouts : info.config.roomLayouts;
        list.push_back(plan);
    }

    void UseCaveTiles() {
        tiles = MakeFullTileSet("cAvE");
        info.defTileSet = tiles;
    }

    // The slots that hold a room, as a map of '#' and '.'.
    static std::string Marked(RoomInfo& rooms) {
        std::string map;
        for (std::uint32_t row = 0; row < rooms.GetHeight(); ++row) {
            map += row == 0 ? "" : "/";
            for (const DiPtr<Layout>& room : rooms.GetRow(row)) {
                map += room ? '#' : '.';
            }
        }
        return map;
    }

    // Seeds such that slots of a grid of one column are drawn by these rows.
    static void SeedRows(const Wish& target, const std::vector<Wish>& rows) {
        std::vector<Wish> wishes = {target};
        for (const Wish& row : rows) {
            wishes.insert(wishes.end(), {row, Any()});
        }
        SeedFor(wishes);
    }

    // The sizes of the rooms, '-' for an empty slot.
    static std::string Sizes(RoomInfo& rooms) {
        std::string sizes;
        for (std::uint32_t row = 0; row < rooms.GetHeight(); ++row) {
            for (const DiPtr<Layout>& room : rooms.GetRow(row)) {
                sizes += (sizes.empty() ? "" : " ") + (room ? Size(*room) : "-");
            }
        }
        return sizes;
    }

    void Create(RoomInfo& rooms) { OpenRandom(info).CreateRooms(rooms); }
    void Space(RoomInfo& rooms) { OpenRandom(info).SpaceRooms(rooms); }

    std::string LaidOut(int width, int height) {
        const DiPtr<Layout> room = Layout::Create(DiPos(width, height, 0));
        OpenRandom(info).LayoutRoom(*room);
        return ToText(*room);
    }
};

// Room grids.

struct GridCase {
    Info::LevelSizeT size;
    std::int32_t raw; // the number drawn, of 32767; -1 where none is
    int columns;
    int rows;
};

TEST_F(GenIntRandomTest, GridSizesAtTheBordersOfTheirOdds) {
    const std::vector<GridCase> cases = {
        {Info::Tiny, -1, 2, 2},      {Info::Small, 0, 1, 6},
        {Info::Small, 3276, 1, 6},   {Info::Small, 3277, 3, 2},
        {Info::Small, 32767, 3, 2},  {Info::Medium, -1, 3, 3},
        {Info::Large, 3276, 6, 2},   {Info::Large, 3277, 4, 3},
        {Info::Large, 13106, 4, 3},  {Info::Large, 13107, 4, 4},
        {Info::Large, 29490, 4, 4},  {Info::Large, 29491, 4, 5},
        {Info::Large, 32767, 4, 5},  {Info::Random, 0, 2, 2},
        {Info::Random, 4915, 2, 2},  {Info::Random, 4916, 1, 6},
        {Info::Random, 6553, 1, 6},  {Info::Random, 6554, 3, 2},
        {Info::Random, 9830, 3, 2},  {Info::Random, 9831, 3, 3},
        {Info::Random, 19660, 3, 3}, {Info::Random, 19661, 4, 3},
        {Info::Random, 27851, 4, 3}, {Info::Random, 27852, 2, 6},
        {Info::Random, 29490, 2, 6}, {Info::Random, 29491, 4, 4},
        {Info::Random, 32111, 4, 4}, {Info::Random, 32112, 5, 4},
        {Info::Random, 32767, 5, 4}, {static_cast<Info::LevelSizeT>(17), 32767, 5, 4},
    };
    for (const GridCase& c : cases) {
        SCOPED_TRACE(std::to_string(c.size) + " at " + std::to_string(c.raw));
        info.randomInfo.levelSize = c.size;
        SeedFor({c.raw < 0 ? Any() : Exactly(c.raw)});
        const DrawLog draws;
        DiPos grid;
        OpenRandom(info).InitRoomGridSize(grid);
        EXPECT_EQ(grid, DiPos(c.columns, c.rows, 0));
        EXPECT_EQ(draws.Bounds(), c.raw < 0 ? Draws() : Draws{U});
    }
}

// Which slots take a room.

TEST_F(GenIntRandomTest, TightFillsEverySlotRowByRow) {
    info.randomInfo.roomSpacing = Info::Tight;
    AddTemplate(kLongPlan);
    AddTemplate("c");
    SeedFor({Any(),
             UpTo(0.49),          // a share of 0.3
             UpTo(0.29),          // below it: a template,
             Pick(1, 2),          // the second one
             Above(0.31),         // a room,
             UpTo(0.29),          // the smallest
             Above(0.31),         // a room
             Between(0.31, 0.59), // of a middling size
             Pick(2, 3),
             Pick(1, 3),
             Above(0.31),
             Above(0.91), // the largest
             Pick(4, 5),
             Pick(0, 5)});
    const DrawLog draws;
    RoomInfo rooms(DiPos(2, 2, 0));
    Create(rooms);
    EXPECT_EQ(Sizes(rooms), "1x1 3x3 5x4 7x3");
    EXPECT_EQ(draws.Bounds(), (Draws{2, U, U, 2, U, U, U, U, 3, 3, U, U, 5, 5}));
    EXPECT_EQ(rooms.GetMaxRowHeight(0), 3U);
    EXPECT_EQ(rooms.GetMaxRowHeight(1), 4U);
    EXPECT_EQ(rooms.GetMaxColWidth(0), 5U);
    EXPECT_EQ(rooms.GetMaxColWidth(1), 7U);
}

TEST_F(GenIntRandomTest, SemiTightLeavesOneSlotInEightEmptyAtTheEnd) {
    info.randomInfo.roomSpacing = Info::SemiTight;
    AddTemplate(kLongPlan);
    const auto marked = [this](const DiPos& size, const Wish& target) {
        SeedFor({target});
        RoomInfo rooms(size);
        Create(rooms);
        return Marked(rooms);
    };
    EXPECT_EQ(marked(DiPos(3, 3, 0), Any()), "###/###/##.");
    EXPECT_EQ(marked(DiPos(2, 2, 0), Pick(0, 2)), "##/##");
    EXPECT_EQ(marked(DiPos(4, 3, 0), Any()), "####/####/###.");
    EXPECT_EQ(marked(DiPos(4, 4, 0), Pick(0, 8)), "####/####/####/##..");
    EXPECT_EQ(marked(DiPos(4, 4, 0), Pick(6, 8)), "####/####/####/##..");
}

TEST_F(GenIntRandomTest, SemiTightFillsMoreWhenTheTargetIsHigher) {
    info.randomInfo.roomSpacing = Info::SemiTight;
    AddTemplate(kLongPlan);
    SeedFor({Pick(7, 8)});
    const DrawLog draws;
    RoomInfo rooms(DiPos(4, 4, 0));
    Create(rooms);
    EXPECT_EQ(Marked(rooms), "####/####/####/###.");
    EXPECT_EQ(Head(draws, 2), (Draws{8, U}));
}

TEST_F(GenIntRandomTest, OtherSpacingsMarkSlotsByChanceRowBeforeColumn) {
    AddTemplate(kLongPlan);
    for (const int spacing : {0, 3, 4, 9}) {
        info.randomInfo.roomSpacing = static_cast<Info::RoomSpacingT>(spacing);
        SeedFor(
            {Pick(0, 3), Pick(1, 2), Pick(0, 3), Pick(0, 2), Pick(2, 3), Pick(1, 2), Pick(1, 3)});
        const DrawLog draws;
        RoomInfo rooms(DiPos(3, 2, 0));
        Create(rooms);
        EXPECT_EQ(Marked(rooms), "..#/##.") << spacing;
        EXPECT_EQ(Head(draws, 8), (Draws{3, 2, 3, 2, 3, 2, 3, U})) << spacing;
    }
}

TEST_F(GenIntRandomTest, TargetIsHalfTheSlotsAndUpToAllButOne) {
    info.randomInfo.roomSpacing = Info::Loose;
    AddTemplate(kLongPlan);
    const std::vector<std::string> marked = {"#/#/#/././.", "#/#/#/#/./.", "#/#/#/#/#/."};
    const std::vector<Draws> expected = {{3, 6, 1, 6, 1, 6, 1, U},
                                         {3, 6, 1, 6, 1, 6, 1, 6, 1, U},
                                         {3, 6, 1, 6, 1, 6, 1, 6, 1, 6, 1, U}};
    const std::vector<Wish> rows = {Pick(0, 6), Pick(1, 6), Pick(2, 6), Pick(3, 6), Pick(4, 6)};
    for (std::size_t extra = 0; extra < 3; ++extra) {
        const auto count = static_cast<std::ptrdiff_t>(3 + extra);
        SeedRows(Pick(static_cast<int>(extra), 3), {rows.begin(), rows.begin() + count});
        const DrawLog draws;
        RoomInfo rooms(DiPos(1, 6, 0));
        Create(rooms);
        EXPECT_EQ(Marked(rooms), marked[extra]);
        EXPECT_EQ(Head(draws, expected[extra].size()), expected[extra]);
    }
}

TEST_F(GenIntRandomTest, TargetBelowThreeMeansEverySlot) {
    info.randomInfo.roomSpacing = Info::Loose;
    AddTemplate(kLongPlan);
    // Half of three is one, and nothing is added to it.
    SeedRows(Any(), {Pick(2, 3), Pick(0, 3), Pick(1, 3)});
    const DrawLog draws;
    RoomInfo rooms(DiPos(1, 3, 0));
    Create(rooms);
    EXPECT_EQ(Marked(rooms), "#/#/#");
    EXPECT_EQ(Head(draws, 8), (Draws{1, 3, 1, 3, 1, 3, 1, U}));
}

TEST_F(GenIntRandomTest, TargetOfThreeIsKept) {
    info.randomInfo.roomSpacing = Info::Loose;
    AddTemplate(kLongPlan);
    SeedRows(Pick(1, 2), {Pick(3, 4), Pick(0, 4), Pick(1, 4)});
    RoomInfo rooms(DiPos(1, 4, 0));
    Create(rooms);
    EXPECT_EQ(Marked(rooms), "#/#/./#");
}

TEST_F(GenIntRandomTest, FourMissesInARowAreDrawnAgain) {
    info.randomInfo.roomSpacing = Info::Loose;
    AddTemplate(kLongPlan);
    const Wish first = Pick(0, 2);
    SeedRows(Any(), {first, first, first, first, first, Pick(1, 2)});
    const DrawLog draws;
    RoomInfo rooms(DiPos(1, 2, 0));
    Create(rooms);
    EXPECT_EQ(Marked(rooms), "#/#");
    EXPECT_EQ(Head(draws, 14), (Draws{1, 2, 1, 2, 1, 2, 1, 2, 1, 2, 1, 2, 1, U}));
}

TEST_F(GenIntRandomTest, FifthMissInARowLosesARoom) {
    info.randomInfo.roomSpacing = Info::Loose;
    AddTemplate(kLongPlan);
    const Wish second = Pick(1, 2);
    SeedRows(Any(), {second, second, second, second, second, second});
    const DrawLog draws;
    RoomInfo rooms(DiPos(1, 2, 0));
    Create(rooms);
    EXPECT_EQ(Marked(rooms), "./#");
    EXPECT_EQ(Head(draws, 14), (Draws{1, 2, 1, 2, 1, 2, 1, 2, 1, 2, 1, 2, 1, U}));
}

TEST_F(GenIntRandomTest, FreeSlotEndsTheRowOfMisses) {
    info.randomInfo.roomSpacing = Info::Loose;
    AddTemplate(kLongPlan);
    const Wish first = Pick(0, 3);
    const Wish taken = Not(2, 3);
    SeedRows(
        Any(),
        {first, first, first, first, first, Pick(1, 3), taken, taken, taken, taken, Pick(2, 3)});
    const DrawLog draws;
    RoomInfo rooms(DiPos(1, 3, 0));
    Create(rooms);
    EXPECT_EQ(Marked(rooms), "#/#/#");
    EXPECT_EQ(Head(draws, 24),
              (Draws{1, 3, 1, 3, 1, 3, 1, 3, 1, 3, 1, 3, 1, 3, 1, 3, 1, 3, 1, 3, 1, 3, 1, U}));
}

TEST_F(GenIntRandomTest, LostRoomEndsTheRowOfMisses) {
    info.randomInfo.roomSpacing = Info::Loose;
    AddTemplate(kLongPlan);
    std::vector<Wish> rows(10, Pick(0, 3));
    rows.push_back(Pick(2, 3));
    SeedRows(Any(), rows);
    const DrawLog draws;
    RoomInfo rooms(DiPos(1, 3, 0));
    Create(rooms);
    EXPECT_EQ(Marked(rooms), "#/./#");
    EXPECT_EQ(Head(draws, 24),
              (Draws{1, 3, 1, 3, 1, 3, 1, 3, 1, 3, 1, 3, 1, 3, 1, 3, 1, 3, 1, 3, 1, 3, 1, U}));
}

TEST_F(GenIntRandomTest, SlotOfAMissingTemplateStaysEmpty) {
    info.randomInfo.roomSpacing = Info::Tight;
    SeedFor({Any(), UpTo(0.49), UpTo(0.29), Above(0.31), UpTo(0.29)});
    const DrawLog draws;
    RoomInfo rooms(DiPos(2, 1, 0));
    Create(rooms);
    EXPECT_EQ(Sizes(rooms), "- 3x3");
    EXPECT_EQ(draws.Bounds(), (Draws{1, U, U, U, U}));
}

// The share of templates.

struct ShareCase {
    Wish share;
    Wish room;
    const char* size;
    Draws draws;
};

TEST_F(GenIntRandomTest, TemplateSharesAtTheBordersOfTheirOdds) {
    info.randomInfo.roomSpacing = Info::Tight;
    AddTemplate(kLongPlan);
    const Draws fromTemplate = {0, U, U, 1};
    const Draws random = {0, U, U, U};
    const std::vector<ShareCase> cases = {
        // The draw for the share at its borders, the draw for the room between two shares.
        {Exactly(16383), Between(0.31, 0.39), "3x3", random},
        {Exactly(16384), Between(0.31, 0.39), "9x2", fromTemplate},
        {Exactly(29490), Between(0.41, 0.49), "3x3", random},
        {Exactly(29491), Between(0.41, 0.49), "9x2", fromTemplate},
        // The draw for the room right at the share.
        {UpTo(0.49), Exactly(9830), "9x2", fromTemplate},
        {UpTo(0.49), Exactly(9831), "3x3", random},
        {Between(0.51, 0.89), Exactly(13106), "9x2", fromTemplate},
        {Between(0.51, 0.89), Exactly(13107), "3x3", random},
        {Above(0.91), Exactly(16383), "9x2", fromTemplate},
        {Above(0.91), Exactly(16384), "3x3", random},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        const ShareCase& c = cases[i];
        // With a single slot the target is drawn from nothing; the last draw makes a small room.
        SeedFor({Any(), c.share, c.room, UpTo(0.29)});
        const DrawLog draws;
        RoomInfo rooms(DiPos(1, 1, 0));
        Create(rooms);
        EXPECT_EQ(Sizes(rooms), c.size);
        EXPECT_EQ(draws.Bounds(), c.draws);
    }
}

// Rooms.

struct RoomCase {
    std::int32_t raw;
    int choices; // 1: without a draw
    int width;
    int height;
};

TEST_F(GenIntRandomTest, RoomSizesAtTheBordersOfTheirOdds) {
    const std::vector<RoomCase> cases = {
        {0, 1, 3, 3},
        {9830, 1, 3, 3},
        {9831, 3, 5, 3},
        {19660, 3, 3, 5},
        {19661, 4, 6, 3},
        {29490, 4, 3, 6},
        {29491, 5, 7, 3},
        {32767, 5, 3, 7},
    };
    for (const RoomCase& c : cases) {
        SCOPED_TRACE(c.raw);
        const bool drawn = c.choices > 1;
        SeedFor({Exactly(c.raw),
                 drawn ? Pick(c.width - 3, c.choices) : Any(),
                 drawn ? Pick(c.height - 3, c.choices) : Any()});
        const DrawLog draws;
        const DiPtr<Layout> room = OpenRandom(info).CreateRoom();
        EXPECT_EQ(room->GetSize(), DiPos(c.width, c.height, 0));
        EXPECT_EQ(room->GetName(), "");
        EXPECT_EQ(draws.Bounds(), drawn ? (Draws{U, c.choices, c.choices}) : Draws{U});
    }
}

TEST_F(GenIntRandomTest, RoomHasWallsAroundItsFloor) {
    EXPECT_EQ(LaidOut(5, 4), Map(R"(
        NW wN wN wN NE
        wW c  c  c  wE
        wW c  c  c  wE
        SW wS wS wS SE)"));
    EXPECT_EQ(LaidOut(3, 3), Map(R"(
        NW wN NE
        wW c  wE
        SW wS SE)"));
}

TEST_F(GenIntRandomTest, InFlatAndNarrowRoomsTheNorthernAndWesternNamesWin) {
    EXPECT_EQ(LaidOut(4, 1), Map("NW wN wN NE"));
    EXPECT_EQ(LaidOut(1, 4), Map("NW\nwW\nwW\nSW"));
    EXPECT_EQ(LaidOut(1, 1), Map("NW"));
    EXPECT_EQ(LaidOut(2, 2), Map("NW NE\nSW SE"));
}

TEST_F(GenIntRandomTest, RoomUsesTheCurrentTileSet) {
    const DiPtr<TileSet> other = MakeFullTileSet();
    OpenRandom gen(info);
    gen.tileSet = other;
    const DiPtr<Layout> room = Layout::Create(DiPos(1, 1, 0));
    gen.LayoutRoom(*room);
    EXPECT_EQ(room->GetElmt(0, 0)->tiles.front(), other->Get("CornerNW"));
}

TEST_F(GenIntRandomTest, TileThatTheSetLacksLeavesAnElementWithoutTiles) {
    tiles = MakeDi<TileSet>();
    Tile wall;
    wall.kindName = "WallN";
    tiles->Set(wall);
    info.defTileSet = tiles;
    EXPECT_EQ(LaidOut(3, 3), Map(R"(
        o  wN o
        wW o  wE
        o  wS o)"));
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(GenIntRandomTest, TemplateIsDrawnFromThoseOfTheTileSetsType) {
    AddTemplate("c c", "Room");
    AddTemplate("c c c", "Room");
    AddTemplate("c\nc", "Cave");
    AddTemplate("c\nc\nc", "Cave");
    AddTemplate("c\nc\nc\nc", "Cave");
    {
        SeedFor({Pick(1, 2)});
        const DrawLog draws;
        EXPECT_EQ(Size(*OpenRandom(info).CreateFromUserLayout()), "3x1");
        EXPECT_EQ(draws.Bounds(), (Draws{2}));
    }
    UseCaveTiles();
    SeedFor({Pick(2, 3)});
    const DrawLog draws;
    EXPECT_EQ(Size(*OpenRandom(info).CreateFromUserLayout()), "1x4");
    EXPECT_EQ(draws.Bounds(), (Draws{3}));
}

TEST_F(GenIntRandomTest, WithoutATemplateOfTheTypeNothingIsDrawn) {
    AddTemplate("c", "Cave");
    {
        const DrawLog draws;
        EXPECT_FALSE(OpenRandom(info).CreateFromUserLayout());
        EXPECT_EQ(draws.Bounds(), Draws());
    }
    info.config.caveLayouts.clear();
    AddTemplate("c", "Room");
    UseCaveTiles();
    EXPECT_FALSE(OpenRandom(info).CreateFromUserLayout());
}

TEST_F(GenIntRandomTest, TypeOfTheCurrentTileSetCounts) {
    AddTemplate("c", "Cave");
    OpenRandom gen(info);
    gen.tileSet = MakeFullTileSet("Cave");
    EXPECT_TRUE(gen.CreateFromUserLayout());
}

TEST_F(GenIntRandomTest, RoomFromATemplateHasItsOuterDoorsClosedAndNoName) {
    AddTemplate(R"(
        NW DN NE
        wW c  dE
        SW wS SE)");
    const DiPtr<LayoutTemplate> part = ToTemplate("dW dE");
    part->SetOffset(Di3Point(3.0F, 1.0F, 0.5F));
    info.config.roomLayouts.front()->AddChild(part);
    OpenRandom gen(info);
    const DiPtr<Layout> room = gen.CreateFromUserLayout();
    EXPECT_EQ(ToText(*room), Map(R"(
        NW wN NE
        wW c  dE
        SW wS SE)"));
    EXPECT_EQ(room->GetName(), "");
    ASSERT_EQ(room->GetChildren().size(), 1U);
    EXPECT_EQ(room->GetChildren().front()->GetOffset(), Di3Point(3.0F, 1.0F, 0.5F));
    EXPECT_EQ(ToText(*room->GetChildren().front()), Map("dW wE"));
    room->Dissolve();
}

// Spacing.

struct SpacingCase {
    Info::RoomSpacingT spacing;
    bool cave;
    std::int32_t raw; // the number drawn; -1 where none is
    std::uint32_t lo;
    std::uint32_t hi; // 0: nothing is added, nothing drawn
};

TEST_F(GenIntRandomTest, SpacingsAtTheBordersOfTheirOdds) {
    const std::vector<SpacingCase> cases = {
        {Info::Tight, false, -1, 0, 0},
        {Info::Tight, true, -1, 0, 0},
        {Info::SemiTight, false, -1, 0, 3},
        {Info::SemiLoose, true, -1, 2, 5},
        {Info::Loose, false, -1, 3, 6},
        {Info::RandomSpacing, true, 8191, 0, 0},
        {Info::RandomSpacing, true, 8192, 0, 3},
        {Info::RandomSpacing, true, 16383, 0, 3},
        {Info::RandomSpacing, true, 16384, 2, 5},
        {Info::RandomSpacing, true, 24575, 2, 5},
        {Info::RandomSpacing, true, 24576, 4, 8},
        {Info::RandomSpacing, true, 32767, 4, 8},
        {Info::RandomSpacing, false, 16383, 0, 0},
        {Info::RandomSpacing, false, 16384, 0, 3},
        {Info::RandomSpacing, false, 26213, 0, 3},
        {Info::RandomSpacing, false, 26214, 2, 4},
        {Info::RandomSpacing, false, 31128, 2, 4},
        {Info::RandomSpacing, false, 31129, 3, 6},
        {Info::RandomSpacing, false, 32767, 3, 6},
        {static_cast<Info::RoomSpacingT>(-3), false, 32767, 3, 6},
    };
    for (const SpacingCase& c : cases) {
        SCOPED_TRACE(std::to_string(c.spacing) + " at " + std::to_string(c.raw));
        info.randomInfo.roomSpacing = c.spacing;
        info.defTileSet = MakeFullTileSet(c.cave ? "CAVE" : "Room");
        const auto choices = static_cast<std::int32_t>(c.hi - c.lo + 1);
        std::vector<Wish> wishes;
        Draws expected;
        if (c.raw >= 0) {
            wishes.push_back(Exactly(c.raw));
            expected.push_back(U);
        }
        if (c.hi > 0) {
            wishes.insert(wishes.end(), {Pick(0, choices), Pick(choices - 1, choices)});
            expected.insert(expected.end(), {choices, choices});
        }
        SeedFor(wishes);
        const DrawLog draws;
        RoomInfo rooms(DiPos(1, 1, 0));
        rooms.SetMaxRowHeight(0, 10);
        rooms.SetMaxColWidth(0, 20);
        Space(rooms);
        EXPECT_EQ(rooms.GetMaxRowHeight(0), 10 + c.lo);
        EXPECT_EQ(rooms.GetMaxColWidth(0), 20 + c.hi);
        EXPECT_EQ(draws.Bounds(), expected);
    }
}

TEST_F(GenIntRandomTest, RowsAreSpacedBeforeColumns) {
    info.randomInfo.roomSpacing = Info::Loose;
    SeedFor({Pick(0, 4), Pick(1, 4), Pick(2, 4), Pick(3, 4), Pick(1, 4)});
    const DrawLog draws;
    RoomInfo rooms(DiPos(2, 3, 0));
    rooms.SetMaxRowHeight(1, 7);
    rooms.SetMaxColWidth(1, 9);
    Space(rooms);
    EXPECT_EQ(rooms.GetMaxRowHeight(0), 3U);
    EXPECT_EQ(rooms.GetMaxRowHeight(1), 11U);
    EXPECT_EQ(rooms.GetMaxRowHeight(2), 5U);
    EXPECT_EQ(rooms.GetMaxColWidth(0), 6U);
    EXPECT_EQ(rooms.GetMaxColWidth(1), 13U);
    EXPECT_EQ(draws.Bounds(), (Draws{4, 4, 4, 4, 4}));
}

// Placing.

class PlaceRoomsTest : public GenIntRandomTest {
protected:
    void TearDown() override {
        if (main) {
            main->Dissolve();
        }
    }

    DiPtr<Layout> Room(int row, int col, std::string_view map) {
        const DiPtr<Layout> room = ToLayout(map, *tiles, 0);
        rooms.SetLayout(room, row, col);
        return room;
    }

    DiPtr<Layout> Part(Layout& room, const Di3Point& offset, std::string_view map = "c") {
        const DiPtr<Layout> part = ToLayout(map, *tiles, 0);
        part->SetOffset(offset);
        room.AddChild(part);
        return part;
    }

    // A room with one part, alone in its slot, which is as wide and high as given.
    Di3Point OffsetWithPart(const Di3Point& part, std::uint32_t width, std::uint32_t height) {
        const DiPtr<Layout> room = ToLayout("c c c\nc c c\nc c c", *tiles, 0);
        Part(*room, part);
        RoomInfo slot(DiPos(1, 1, 0));
        slot.SetLayout(room, 0, 0);
        slot.SetMaxColWidth(0, width);
        slot.SetMaxRowHeight(0, height);
        const DiPtr<Layout> level = Layout::Create(DiPos(12, 12, 0));
        OpenRandom(info).PlaceRooms(*level, slot);
        level->Dissolve();
        return room->GetOffset();
    }

    // Places the rooms in a level with a cell to spare.
    void Place() {
        main = Layout::Create(DiPos(static_cast<int>(rooms.GetTotalWidth()) + 1,
                                    static_cast<int>(rooms.GetTotalHeight()) + 1,
                                    0));
        OpenRandom(info).PlaceRooms(*main, rooms);
    }

    RoomInfo rooms{DiPos(2, 2, 0)};
    DiPtr<Layout> main;
};

TEST_F(PlaceRoomsTest, RoomIsShiftedInItsSlotDownBeforeRight) {
    const DiPtr<Layout> room = Room(0, 0, "NW NE\nSW SE");
    rooms.SetMaxRowHeight(0, 6);
    rooms.SetMaxColWidth(0, 7);
    SeedFor({Pick(2, 4), Pick(4, 5)});
    const DrawLog draws;
    Place();
    EXPECT_EQ(room->GetOffset(), Di3Point(4.0F, 2.0F, 0.0F));
    EXPECT_EQ(draws.Bounds(), (Draws{4, 5}));
    EXPECT_EQ(ToText(*main), Map(R"(
        . . . . .  .  . .
        . . . . .  .  . .
        . . . . NW NE . .
        . . . . SW SE . .
        . . . . .  .  . .
        . . . . .  .  . .
        . . . . .  .  . .)"));
}

TEST_F(PlaceRoomsTest, RoomsThatFillTheirSlotsDrawNothing) {
    Room(0, 0, "NW NE\nSW SE");
    Room(0, 1, "wN wN\nwS wS");
    Room(1, 0, "wW wW");
    Room(1, 1, "wE wE");
    const DrawLog draws;
    Place();
    EXPECT_EQ(draws.Bounds(), Draws());
    EXPECT_EQ(ToText(*main), Map(R"(
        NW NE wN wN .
        SW SE wS wS .
        wW wW wE wE .
        .  .  .  .  .)"));
}

TEST_F(PlaceRoomsTest, PlayOnOneAxisDrawsOnce) {
    Room(0, 0, "NW NE");
    rooms.SetMaxRowHeight(0, 3);
    SeedFor({Pick(1, 2)});
    {
        const DrawLog draws;
        Place();
        EXPECT_EQ(draws.Bounds(), (Draws{2}));
        EXPECT_EQ(ToText(main->GetElmt(1, 0)), "NW");
    }
    main->Dissolve();
    rooms.SetMaxRowHeight(0, 1);
    rooms.SetMaxColWidth(0, 5);
    SeedFor({Pick(2, 3)});
    const DrawLog draws;
    Place();
    EXPECT_EQ(draws.Bounds(), (Draws{3}));
    EXPECT_EQ(ToText(main->GetElmt(0, 2)), "NW");
}

TEST_F(PlaceRoomsTest, EmptySlotsTakeTheirPlace) {
    rooms.SetMaxColWidth(0, 3);
    rooms.SetMaxRowHeight(0, 2);
    Room(1, 1, "NW NE");
    const DrawLog draws;
    Place();
    EXPECT_EQ(draws.Bounds(), Draws());
    EXPECT_EQ(ToText(*main), Map(R"(
        . . . .  .  .
        . . . .  .  .
        . . . NW NE .
        . . . .  .  .)"));
}

TEST_F(PlaceRoomsTest, LevelSharesTheElementsAndTakesTheParts) {
    const DiPtr<Layout> room = Room(1, 1, "c c c");
    const DiPtr<Layout> part = Part(*room, {1.0F, 1.0F, 2.0F});
    rooms.SetMaxColWidth(0, 4);
    rooms.SetMaxRowHeight(0, 2);
    Place();
    EXPECT_EQ(main->GetElmt(2, 4), room->GetElmt(0, 0));
    EXPECT_TRUE(room->GetChildren().empty());
    ASSERT_EQ(main->GetChildren().size(), 1U);
    EXPECT_EQ(main->GetChildren().front(), part);
    EXPECT_EQ(part->GetOffset(), Di3Point(5.0F, 3.0F, 2.0F));
    EXPECT_EQ(part->GetParent(), room);
}

TEST_F(PlaceRoomsTest, RoomMakesWayForPartsThatReachOut) {
    EXPECT_EQ(OffsetWithPart({-2.0F, 0.0F, 0.0F}, 5, 3), Di3Point(2.0F, 0.0F, 0.0F));
    EXPECT_EQ(OffsetWithPart({0.0F, -1.0F, 0.0F}, 3, 4), Di3Point(0.0F, 1.0F, 0.0F));
    EXPECT_EQ(OffsetWithPart({-1.0F, -2.0F, 0.0F}, 4, 5), Di3Point(1.0F, 2.0F, 0.0F));
    EXPECT_EQ(OffsetWithPart({1.0F, 1.0F, 0.0F}, 3, 3), Di3Point(0.0F, 0.0F, 0.0F));
}

TEST_F(PlaceRoomsTest, DrawnShiftStandsWhenItLeavesRoomForTheParts) {
    // The room and its part are 5 wide and 3 high: 3 shifts are possible to the right.
    SeedFor({Pick(1, 3)});
    EXPECT_EQ(OffsetWithPart({-2.0F, 0.0F, 0.0F}, 8, 3), Di3Point(2.0F, 0.0F, 0.0F));
    SeedFor({Pick(2, 3)});
    EXPECT_EQ(OffsetWithPart({-2.0F, 0.0F, 0.0F}, 8, 3), Di3Point(2.0F, 0.0F, 0.0F));
    SeedFor({Pick(3, 4)});
    EXPECT_EQ(OffsetWithPart({-2.0F, 0.0F, 0.0F}, 9, 3), Di3Point(3.0F, 0.0F, 0.0F));
    SeedFor({Pick(3, 4)});
    EXPECT_EQ(OffsetWithPart({0.0F, -2.0F, 0.0F}, 3, 9), Di3Point(0.0F, 3.0F, 0.0F));
}

TEST_F(PlaceRoomsTest, FractionOfAPartsReachIsCutOff) {
    EXPECT_EQ(OffsetWithPart({-0.5F, 0.0F, 0.0F}, 3, 3), Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_EQ(OffsetWithPart({-1.5F, -1.75F, 0.0F}, 4, 4), Di3Point(1.0F, 1.0F, 0.0F));
    // A shift of 1 is less than 1.5, a shift of 2 is not.
    SeedFor({Pick(1, 3)});
    EXPECT_EQ(OffsetWithPart({-1.5F, 0.0F, 0.0F}, 7, 3), Di3Point(1.0F, 0.0F, 0.0F));
    SeedFor({Pick(2, 3)});
    EXPECT_EQ(OffsetWithPart({-1.5F, 0.0F, 0.0F}, 7, 3), Di3Point(2.0F, 0.0F, 0.0F));
}

// One level.

TEST_F(GenIntRandomTest, LevelHasThreeCellsToSpareInTheEastAndSouth) {
    info.randomInfo.roomSpacing = Info::Tight;
    SeedFor({Any(), UpTo(0.49), Above(0.31), UpTo(0.29)});
    const DiPtr<Layout> level = OpenRandom(info).MainLayout(DiPos(1, 1, 0));
    ASSERT_TRUE(level);
    EXPECT_EQ(level->GetSize(), DiPos(6, 6, 0));
    EXPECT_EQ(ToText(level->GetElmt(0, 0)), "NW");
    EXPECT_EQ(ToText(level->GetElmt(1, 1)), "c");
    EXPECT_EQ(ToText(level->GetElmt(0, 2)), "NE");
    level->Dissolve();
}

TEST_F(GenIntRandomTest, GapsWidenTheLevel) {
    info.randomInfo.roomSpacing = Info::Loose;
    // No room at all: only the gaps of one row and one column count.
    SeedFor({Any(), Any(), Any(), UpTo(0.49), UpTo(0.29), Pick(1, 4), Pick(3, 4)});
    const DrawLog draws;
    const DiPtr<Layout> level = OpenRandom(info).MainLayout(DiPos(1, 1, 0));
    ASSERT_TRUE(level);
    EXPECT_EQ(level->GetSize(), DiPos(9, 7, 0));
    // Without rooms there are no halls to draw for.
    EXPECT_EQ(draws.Bounds(), (Draws{0, 1, 1, U, U, 4, 4}));
}

TEST_F(GenIntRandomTest, RoomsThatCannotBeJoinedMakeNoLevel) {
    info.randomInfo.roomSpacing = Info::Tight;
    tiles = MakeDi<TileSet>();
    info.defTileSet = tiles;
    SeedFor({Any(), UpTo(0.49), Above(0.31), UpTo(0.29), Above(0.31), UpTo(0.29)});
    EXPECT_FALSE(OpenRandom(info).MainLayout(DiPos(2, 1, 0)));
}

// Tile sets by chance.

class RandomTileSetTest : public GenIntRandomTest {
protected:
    RandomTileSetTest() {
        info.config.caveTileSets = {MakeFullTileSet("Cave"), MakeFullTileSet("Cave")};
        info.config.roomTileSets = {MakeFullTileSet()};
        info.randomInfo.randomTileSet = true;
    }

    const DiPtr<TileSet>& Cave(std::size_t index) const { return info.config.caveTileSets[index]; }
    const DiPtr<TileSet>& Room() const { return info.config.roomTileSets[0]; }

    // The set in use afterwards, which is the run's default too.
    DiPtr<TileSet> Chosen(bool first) {
        OpenRandom gen(info);
        gen.InitRandomTileSet(first);
        EXPECT_EQ(gen.tileSet, info.defTileSet);
        return gen.tileSet;
    }
};

TEST_F(RandomTileSetTest, WithoutTheSwitchNothingIsDrawn) {
    info.randomInfo.randomTileSet = false;
    const DrawLog draws;
    EXPECT_EQ(Chosen(true), tiles);
    EXPECT_EQ(Chosen(false), tiles);
    EXPECT_EQ(draws.Bounds(), Draws());
}

TEST_F(RandomTileSetTest, FirstLevelPicksFromCavesThenRooms) {
    const std::vector<DiPtr<TileSet>> sets = {Cave(0), Cave(1), Room()};
    for (int i = 0; i < 3; ++i) {
        SeedFor({Pick(i, 3)});
        const DrawLog draws;
        EXPECT_EQ(Chosen(true), sets[static_cast<std::size_t>(i)]);
        EXPECT_EQ(draws.Bounds(), (Draws{3}));
    }
}

TEST_F(RandomTileSetTest, LaterLevelKeepsItsSetUpToSevenTenths) {
    SeedFor({Exactly(22936), Pick(1, 3)});
    {
        const DrawLog draws;
        EXPECT_EQ(Chosen(false), tiles);
        EXPECT_EQ(draws.Bounds(), (Draws{U}));
    }
    SeedFor({Exactly(22937), Pick(1, 3)});
    const DrawLog draws;
    EXPECT_EQ(Chosen(false), Cave(1));
    EXPECT_EQ(draws.Bounds(), (Draws{U, 3}));
}

TEST_F(RandomTileSetTest, WithoutTileSetsTheCurrentOneStays) {
    info.config.caveTileSets.clear();
    info.config.roomTileSets.clear();
    const DrawLog draws;
    EXPECT_EQ(Chosen(true), tiles);
    EXPECT_EQ(draws.Bounds(), Draws());
}

// Themes by chance.

class RandomThemesTest : public GenIntRandomTest {
protected:
    static DiPtr<Theme> Leveled(const char* name, int level) {
        const DiPtr<Theme> theme = MakeTheme(name, {});
        theme->level = level;
        return theme;
    }

    static std::string NameOf(const DiPtr<Theme>& theme) { return theme ? theme->GetName() : "-"; }

    // The names of furniture, creature and treasure theme after the choice.
    std::string Chosen(bool first) {
        OpenRandom(info).InitRandomThemes(first);
        return NameOf(info.defTheme) + " " + NameOf(info.defCreatureTheme) + " " +
               NameOf(info.defTreasureTheme);
    }

    static std::string
    Filtered(const std::vector<int>& levels, std::uint32_t lo, std::uint32_t hi) {
        std::vector<DiPtr<Theme>> themes;
        for (const int level : levels) {
            themes.push_back(Leveled(std::to_string(level).c_str(), level));
        }
        std::string names;
        for (const DiPtr<Theme>& theme : OpenRandom::FilterThemes(themes, lo, hi)) {
            names += (names.empty() ? "" : " ") + theme->GetName();
        }
        return names;
    }
};

constexpr std::uint32_t kMost = std::numeric_limits<std::uint32_t>::max();

TEST_F(RandomThemesTest, FilterKeepsBothEndsInListOrder) {
    EXPECT_EQ(Filtered({5, 1, 2, 6, 4, 1}, 2, 5), "5 2 4");
    EXPECT_EQ(Filtered({0, 1, 2147483647}, 1, kMost), "1 2147483647");
    EXPECT_EQ(Filtered({0, 1}, 0, 0), "0");
    EXPECT_EQ(Filtered({}, 0, kMost), "");
}

TEST_F(RandomThemesTest, FilterWithItsEndsTheWrongWayRoundTakesTheUpperOne) {
    EXPECT_EQ(Filtered({1, 2, 3, 4}, 4, 2), "2");
}

TEST_F(RandomThemesTest, NegativeLevelsNeverMatch) {
    EXPECT_EQ(Filtered({-1, -2147483647, 3}, 0, kMost), "3");
}

TEST_F(RandomThemesTest, WithoutTheSwitchesNothingIsDrawn) {
    info.config.themes = {Leveled("F", 1)};
    info.config.creatureThemes = {Leveled("C", 1)};
    info.config.treasureThemes = {Leveled("T", 1)};
    info.defTheme = Leveled("old", 1);
    const DrawLog draws;
    EXPECT_EQ(Chosen(true), "old - -");
    EXPECT_EQ(Chosen(false), "old - -");
    EXPECT_EQ(draws.Bounds(), Draws());
}

TEST_F(RandomThemesTest, FirstLevelChoosesFurnitureCreaturesTreasure) {
    info.randomInfo.randomTheme = true;
    info.randomInfo.randomCreatureTheme = true;
    info.randomInfo.randomTreasureTheme = true;
    info.config.themes = {Leveled("F0", 0), Leveled("F1", 1), Leveled("F9", 9)};
    info.config.creatureThemes = {
        Leveled("C0", 0), Leveled("C1", 1), Leveled("C5", 5), Leveled("C6", 6), Leveled("C3", 3)};
    info.config.treasureThemes = {
        Leveled("T7", 7), Leveled("T0", 0), Leveled("T1", 1), Leveled("T2", 2), Leveled("T3", 3)};
    SeedFor({Pick(1, 2), Pick(2, 3), Pick(0, 4)});
    const DrawLog draws;
    EXPECT_EQ(Chosen(true), "F9 C3 T7");
    EXPECT_EQ(draws.Bounds(), (Draws{2, 3, 4}));
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(RandomThemesTest, CreatureThemesAreHeldToTheLevelsAskedFor) {
    info.randomInfo.randomCreatureTheme = true;
    info.randomInfo.minLevel = 3;
    info.randomInfo.maxLevel = 4;
    info.config.creatureThemes = {
        Leveled("C2", 2), Leveled("C3", 3), Leveled("C4", 4), Leveled("C5", 5)};
    SeedFor({Pick(1, 2)});
    const DrawLog draws;
    EXPECT_EQ(Chosen(true), "- C4 -");
    EXPECT_EQ(draws.Bounds(), (Draws{2}));
}

TEST_F(RandomThemesTest, LaterLevelsKeepTheirThemesUpToAThirdOrAQuarter) {
    info.config.themes = {Leveled("F", 1)};
    info.config.creatureThemes = {Leveled("C", 1)};
    info.config.treasureThemes = {Leveled("T", 1)};
    struct Case {
        bool Info::*wanted;
        std::int32_t raw;
        const char* chosen;
        Draws draws;
    };
    const std::vector<Case> cases = {
        {&Info::randomTheme, 10813, "- - -", {U}},
        {&Info::randomTheme, 10814, "F - -", {U, 1}},
        {&Info::randomCreatureTheme, 8191, "- - -", {U}},
        {&Info::randomCreatureTheme, 8192, "- C -", {U, 1}},
        {&Info::randomTreasureTheme, 8191, "- - -", {U}},
        {&Info::randomTreasureTheme, 8192, "- - T", {U, 1}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.raw);
        info.randomInfo = Info();
        info.randomInfo.*c.wanted = true;
        info.defTheme = nullptr;
        info.defCreatureTheme = nullptr;
        info.defTreasureTheme = nullptr;
        SeedFor({Exactly(c.raw)});
        const DrawLog draws;
        EXPECT_EQ(Chosen(false), c.chosen);
        EXPECT_EQ(draws.Bounds(), c.draws);
    }
}

TEST_F(RandomThemesTest, WithoutAMatchAllThemesAreCandidates) {
    info.randomInfo.randomTheme = true;
    info.randomInfo.randomCreatureTheme = true;
    info.randomInfo.randomTreasureTheme = true;
    info.randomInfo.minLevel = 2;
    info.randomInfo.maxLevel = 4;
    info.config.themes = {Leveled("F0", 0), Leveled("F-", -1)};
    info.config.creatureThemes = {Leveled("C1", 1), Leveled("C5", 5), Leveled("C9", 9)};
    info.config.treasureThemes = {
        Leveled("T0", 0), Leveled("Ta", 0), Leveled("Tb", 0), Leveled("Tc", 0)};
    SeedFor({Pick(1, 2), Pick(1, 3), Pick(3, 4)});
    const DrawLog draws;
    EXPECT_EQ(Chosen(true), "F- C5 Tc");
    EXPECT_EQ(draws.Bounds(), (Draws{2, 3, 4}));
    EXPECT_EQ(ErrorLines(),
              (Lines{"Error : Generator : No matching furniture themes.",
                     "Error : Generator : No creature themes with 2 <= Level <= 4.",
                     "Error : Generator : No matching treasure themes."}));
}

TEST_F(RandomThemesTest, LevelsInTheMessageAreSigned) {
    info.randomInfo.randomCreatureTheme = true;
    info.randomInfo.minLevel = 4294967294U;
    info.randomInfo.maxLevel = 4294967295U;
    Chosen(true);
    EXPECT_EQ(ErrorLines(),
              (Lines{"Error : Generator : No creature themes with -2 <= Level <= -1."}));
}

TEST_F(RandomThemesTest, WithoutAnyThemeTheOldOneStaysAndNothingIsDrawn) {
    info.randomInfo.randomTheme = true;
    info.randomInfo.randomCreatureTheme = true;
    info.randomInfo.randomTreasureTheme = true;
    info.defTheme = Leveled("F", 1);
    info.defCreatureTheme = Leveled("C", 1);
    info.defTreasureTheme = Leveled("T", 1);
    const DrawLog draws;
    EXPECT_EQ(Chosen(true), "F C T");
    EXPECT_EQ(draws.Bounds(), Draws());
    EXPECT_EQ(ErrorLines().size(), 3U);
}

} // namespace

} // namespace Tarnex::Test
