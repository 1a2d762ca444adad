// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <tests/gen/HallFixture.h>
#include <vector>

namespace Tarnex::Test {

namespace {

DiDirection Towards(int dx, int dy) {
    return {DiPos(), At(dx, dy)};
}

// A way whose step does not follow from its distances.
DiDirection Way(int stepX, int stepY, int dx, int dy) {
    DiDirection way = Towards(dx, dy);
    way.stepX = stepX;
    way.stepY = stepY;
    return way;
}

class GenHallBaseTest : public HallTest {
protected:
    using Search = std::function<DiPos()>;

    // Every place that the search may draw, in the order in which it keeps them. Empty: it found
    // none, and drew nothing.
    static std::string Candidates(const Search& search) {
        std::vector<std::int32_t> bounds;
        {
            const DrawLog log;
            search();
            bounds = log.Bounds();
        }
        if (bounds.empty()) {
            EXPECT_EQ(Show(search()), "0,0");
            return "";
        }
        EXPECT_EQ(bounds.size(), 1U);
        std::string all;
        for (std::int32_t i = 0; i < bounds.front(); ++i) {
            SeedFor({Pick(i, bounds.front())});
            all += (all.empty() ? "" : " ") + Show(search());
        }
        return all;
    }

    std::string Doorways(const Layout& room, const DiDirection& way) {
        return Candidates([&] { return Halls().FindForDoorway(room, way); });
    }
    // What a way to one side finds there; it also leads aside by that distance.
    std::string North(const Layout& room, int dx) { return Doorways(room, Way(0, -1, dx, -5)); }
    std::string South(const Layout& room, int dx) { return Doorways(room, Way(0, 1, dx, 5)); }
    std::string East(const Layout& room, int dy) { return Doorways(room, Way(1, 0, 5, dy)); }
    std::string West(const Layout& room, int dy) { return Doorways(room, Way(-1, 0, -5, dy)); }

    // Whether the tile may be opened in the middle of a level that holds that cell one step away.
    bool SafeBefore(std::string_view tile, const DiPos& outside, std::string_view cell) {
        Level(5, 5);
        Put(At(2, 2) + outside, cell);
        return Halls().IsSafeForDoor(*ToElmt(tile, *tiles)->tiles.front(), At(2, 2));
    }

    // What becomes of the middle of a map of 3 x 3.
    CvtAction CvtOf(std::string_view map) {
        Level(map);
        return Halls().CanInPlaceCvt(At(1, 1));
    }
};

constexpr std::string_view kRoom = R"(
    NW wN wN wN NE
    wW c  c  c  wE
    wW c  c  c  wE
    SW wS wS wS SE)";

TEST_F(GenHallBaseTest, CenterIsTheHalfSizeFromTheTruncatedOffset) {
    Level(20, 20);
    const DiPtr<Layout> room = Layout::Create(DiPos(5, 4, 7));
    room->SetOffset(Di3Point(3.9F, 2.2F, 1.0F));
    EXPECT_EQ(Halls().FindCenter(*room), DiPos(5, 4, 0));
    room->SetOffset(Di3Point(-1.9F, -0.5F, 0.0F));
    EXPECT_EQ(Halls().FindCenter(*room), DiPos(1, 2, 0));
}

TEST_F(GenHallBaseTest, PosToRoomReportsOneCellPastSouthAndEast) {
    Level(20, 20);
    const DiPtr<Layout> room = RoomApart(0, 0, 2, 1, "c c c c \n c c c c \n c c c c");
    for (int y = 0; y <= 6; ++y) {
        for (int x = 0; x <= 8; ++x) {
            const bool covered = x >= 2 && x <= 6 && y >= 1 && y <= 4;
            EXPECT_EQ(Halls().PosToRoom(At(x, y)) != nullptr, covered) << x << "," << y;
        }
    }
    EXPECT_EQ(Halls().PosToRoom(At(6, 4)), room.get());
}

TEST_F(GenHallBaseTest, PlaceInTwoRoomsBelongsToTheFirstOfTheRoomGrid) {
    Level(20, 20);
    const DiPtr<Layout> south = RoomApart(2, 0, 1, 4, kSmallRoom);
    const DiPtr<Layout> north = RoomApart(0, 1, 1, 1, kSmallRoom);
    const DiPtr<Layout> east = RoomApart(0, 3, 4, 1, kSmallRoom);
    EXPECT_EQ(Halls().PosToRoom(At(2, 4)), north.get());
    EXPECT_EQ(Halls().PosToRoom(At(4, 2)), north.get());
    EXPECT_EQ(Halls().PosToRoom(At(5, 2)), east.get());
    EXPECT_EQ(Halls().PosToRoom(At(2, 5)), south.get());
    EXPECT_EQ(Halls().PosToRoom(At(4, 4)), north.get());
    EXPECT_EQ(Halls().PosToRoom(At(5, 4)), east.get());
}

TEST_F(GenHallBaseTest, PosToRoomComparesWithTheUncutOffset) {
    Level(20, 20);
    RoomApart(0, 0, 0, 0, kSmallRoom)->SetOffset(Di3Point(2.5F, 1.5F, 0.0F));
    EXPECT_FALSE(Halls().PosToRoom(At(2, 3)));
    EXPECT_FALSE(Halls().PosToRoom(At(4, 1)));
    EXPECT_TRUE(Halls().PosToRoom(At(3, 2)));
    EXPECT_TRUE(Halls().PosToRoom(At(5, 4)));
    EXPECT_FALSE(Halls().PosToRoom(At(6, 4)));
    EXPECT_FALSE(Halls().PosToRoom(At(5, 5)));
}

// Doorway search.

TEST_F(GenHallBaseTest, NorthernSearchRunsFromTheNorthAndTakesTheSideItLeadsTo) {
    Level(12, 12);
    const DiPtr<Layout> room = Room(0, 0, 2, 2, kRoom);
    EXPECT_EQ(North(*room, 0), "3,2 4,2 5,2");
    EXPECT_EQ(North(*room, -3), "3,2 4,2 5,2 2,3 2,4");
    EXPECT_EQ(North(*room, 3), "3,2 4,2 5,2 6,3 6,4");
}

TEST_F(GenHallBaseTest, SouthernSearchRunsFromTheSouthAndTakesTheSideItLeadsTo) {
    Level(12, 12);
    const DiPtr<Layout> room = Room(0, 0, 2, 2, kRoom);
    EXPECT_EQ(South(*room, 0), "3,5 4,5 5,5");
    EXPECT_EQ(South(*room, -3), "3,5 4,5 5,5 2,4 2,3");
    EXPECT_EQ(South(*room, 3), "3,5 4,5 5,5 6,4 6,3");
}

TEST_F(GenHallBaseTest, EasternSearchRunsFromTheEastAndTakesTheSideItLeadsTo) {
    Level(12, 12);
    const DiPtr<Layout> room = Room(0, 0, 2, 2, kRoom);
    EXPECT_EQ(East(*room, 0), "6,3 6,4");
    EXPECT_EQ(East(*room, -1), "6,3 6,4 5,2 4,2 3,2");
    EXPECT_EQ(East(*room, 1), "6,3 6,4 5,5 4,5 3,5");
}

TEST_F(GenHallBaseTest, WesternSearchRunsFromTheWestAndTakesTheSideItLeadsTo) {
    Level(12, 12);
    const DiPtr<Layout> room = Room(0, 0, 2, 2, kRoom);
    EXPECT_EQ(West(*room, 0), "2,3 2,4");
    EXPECT_EQ(West(*room, -1), "2,3 2,4 3,2 4,2 5,2");
    EXPECT_EQ(West(*room, 1), "2,3 2,4 3,5 4,5 5,5");
}

TEST_F(GenHallBaseTest, DoorwaysCountWhereThereIsNoWall) {
    Level(12, 12);
    const DiPtr<Layout> room = Room(0, 0, 2, 2, R"(
        NW dN wN  DN NE
        dW c  c&dN c wE
        SW c  c   c  SE)");
    EXPECT_EQ(North(*room, 0), "3,2 4,2 5,2 4,3");
    EXPECT_EQ(West(*room, 0), "2,3");
}

TEST_F(GenHallBaseTest, FirstWallDecidesBeforeAnyDoorway) {
    Level(12, 12);
    const DiPtr<Layout> room = Room(0, 0, 2, 2, "dE&wN&wE dN&dE");
    EXPECT_EQ(North(*room, 0), "2,2 3,2");
    EXPECT_EQ(East(*room, 0), "");
}

TEST_F(GenHallBaseTest, MissingAndShadowElementsOfARoomAreSkipped) {
    Level(12, 12);
    const DiPtr<Layout> room = RoomApart(0, 0, 2, 2, "wN~ . wN o wN");
    EXPECT_EQ(North(*room, 0), "4,2 6,2");
}

TEST_F(GenHallBaseTest, SearchReadsTheRoomAndNotTheLevelInItsPlace) {
    Level(12, 12);
    const DiPtr<Layout> room = RoomApart(0, 0, 2, 2, kSmallRoom);
    EXPECT_EQ(North(*room, 0), "3,2");
}

TEST_F(GenHallBaseTest, PlacesAreTheTruncatedOffsetFarther) {
    Level(12, 12);
    const DiPtr<Layout> room = RoomApart(0, 0, 0, 0, "wN wN");
    room->SetOffset(Di3Point(3.9F, 2.9F, 0.0F));
    EXPECT_EQ(North(*room, 0), "3,2 4,2");
}

TEST_F(GenHallBaseTest, RoomFlushWithTheBorderOffersNoDoorwayThere) {
    Level(5, 5);
    const DiPtr<Layout> room = Room(0, 0, 0, 0, R"(
        NW wN wN wN NE
        wW c  c  c  wE
        wW c  c  c  wE
        wW c  c  c  wE
        SW wS wS wS SE)");
    EXPECT_EQ(North(*room, 0), "");
    EXPECT_EQ(South(*room, 0), "");
    EXPECT_EQ(East(*room, 0), "");
    EXPECT_EQ(West(*room, 0), "");
}

TEST_F(GenHallBaseTest, WallsThatAreNotSafeAreNoCandidates) {
    Level(12, 12);
    const DiPtr<Layout> room = Room(0, 0, 2, 2, kRoom);
    Put(At(3, 1), "c");
    Put(At(5, 1), "-");
    EXPECT_EQ(North(*room, 0), "4,2");
}

TEST_F(GenHallBaseTest, SearchFollowsTheStep) {
    Level(12, 12);
    const DiPtr<Layout> room = Room(0, 0, 2, 2, kRoom);
    EXPECT_EQ(Doorways(*room, Towards(0, 5)), "3,5 4,5 5,5");
    EXPECT_EQ(Doorways(*room, Towards(0, -5)), "3,2 4,2 5,2");
    EXPECT_EQ(Doorways(*room, Towards(5, 0)), "6,3 6,4");
    EXPECT_EQ(Doorways(*room, Towards(-5, 0)), "2,3 2,4");
}

TEST_F(GenHallBaseTest, EqualDistancesSearchNorthOrSouthFirst) {
    Level(12, 12);
    const DiPtr<Layout> room = Room(0, 0, 2, 2, kRoom);
    EXPECT_EQ(Doorways(*room, Towards(5, 5)), "3,5 4,5 5,5 6,4 6,3");
    EXPECT_EQ(Doorways(*room, Towards(-5, -5)), "3,2 4,2 5,2 2,3 2,4");
}

TEST_F(GenHallBaseTest, WayWithoutAStepSearchesTheWest) {
    Level(12, 12);
    const DiPtr<Layout> room = Room(0, 0, 2, 2, kRoom);
    EXPECT_EQ(Doorways(*room, Towards(0, 0)), "2,3 2,4");
}

TEST_F(GenHallBaseTest, SideWithoutADoorwayIsFollowedByTheOtherAxis) {
    Level(12, 12);
    const DiPtr<Layout> north = Room(0, 0, 2, 2, "wN");
    const DiPtr<Layout> west = Room(0, 1, 5, 2, "wW");
    const DiPtr<Layout> east = Room(0, 2, 2, 5, "wE");
    const DiPtr<Layout> south = Room(0, 3, 5, 5, "wS");
    EXPECT_EQ(Doorways(*north, Way(0, 1, -2, -3)), "2,2");
    EXPECT_EQ(Doorways(*north, Way(0, 1, 2, -3)), "2,2");
    EXPECT_EQ(Doorways(*south, Way(0, -1, 2, 3)), "5,5");
    EXPECT_EQ(Doorways(*west, Way(1, 0, -2, -3)), "5,2");
    EXPECT_EQ(Doorways(*west, Way(1, 0, -2, 3)), "5,2");
    EXPECT_EQ(Doorways(*east, Way(-1, 0, 2, 3)), "2,5");
}

TEST_F(GenHallBaseTest, OtherAxisIsNotTriedWithoutADistanceAlongIt) {
    Level(12, 12);
    const DiPtr<Layout> north = Room(0, 0, 2, 2, "wN");
    const DiPtr<Layout> west = Room(0, 1, 5, 2, "wW");
    EXPECT_EQ(Doorways(*north, Way(0, 1, 0, -3)), "");
    EXPECT_EQ(Doorways(*west, Way(1, 0, -3, 0)), "");
}

TEST_F(GenHallBaseTest, RoomWithoutADoorwayThatWayGivesNone) {
    Level(12, 12);
    const DiPtr<Layout> room = Room(0, 0, 2, 2, "c wN wE");
    EXPECT_EQ(Doorways(*room, Towards(-1, 5)), "");
    EXPECT_EQ(Doorways(*room, Towards(-5, 1)), "");
}

// Safety of a doorway.

TEST_F(GenHallBaseTest, DoorwayIsSafeByWhatLiesOutside) {
    struct Row {
        const char* cell;
        const char* sides; // the facings for which that cell outside is safe
    };
    const std::array<Row, 22> rows = {{
        {".", "NSEW"}, {"wS", "NSEW"}, {"wN", "NSEW"}, {"dE", "NSEW"}, {"DS", "NSEW"},
        {"|", "NS"},   {"-", "EW"},    {",-", "NW"},   {"-,", "NE"},   {"`-", "SW"},
        {"-'", "SE"},  {"+", "NSEW"},  {"^", ""},      {"v", ""},      {">", ""},
        {"<", ""},     {"c", ""},      {"NW", ""},     {"uN", ""},     {"o", ""},
        {"wS~", ""},   {"|~", ""},
    }};
    for (const Row& row : rows) {
        std::string sides;
        sides += SafeBefore("wN", At(0, -1), row.cell) ? "N" : "";
        sides += SafeBefore("wS", At(0, 1), row.cell) ? "S" : "";
        sides += SafeBefore("wE", At(1, 0), row.cell) ? "E" : "";
        sides += SafeBefore("wW", At(-1, 0), row.cell) ? "W" : "";
        EXPECT_EQ(sides, row.sides) << row.cell;
    }
}

TEST_F(GenHallBaseTest, FirstTileOutsideDecides) {
    EXPECT_FALSE(SafeBefore("wN", At(0, -1), "c&wS"));
    EXPECT_TRUE(SafeBefore("wN", At(0, -1), "wS&c"));
}

TEST_F(GenHallBaseTest, DoorwayTileIsAsSafeAsAWall) {
    EXPECT_TRUE(SafeBefore("dS", At(0, 1), "|"));
    EXPECT_FALSE(SafeBefore("dS", At(0, 1), "-"));
}

TEST_F(GenHallBaseTest, OnlyStraightFacingsCanBeOpened) {
    for (const char* tile : {"NW", "SE", "c", "NWw", "SEs", "|", "+"}) {
        EXPECT_FALSE(SafeBefore(tile, At(0, 0), ".")) << tile;
    }
}

TEST_F(GenHallBaseTest, NoDoorwayIsSafeOnTheBorder) {
    Level(6, 5);
    const Tile& south = *tiles->Get("WallS");
    const Tile& east = *tiles->Get("WallE");
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 6; ++x) {
            const bool inside = x >= 1 && x <= 4 && y >= 1 && y <= 3;
            EXPECT_EQ(Halls().IsSafeForDoor(south, At(x, y)), inside) << x << "," << y;
            EXPECT_EQ(Halls().IsSafeForDoor(east, At(x, y)), inside) << x << "," << y;
        }
    }
}

// Conversion in place.

TEST_F(GenHallBaseTest, NothingAndShadowsCannotBeConverted) {
    EXPECT_EQ(CvtOf(". . . \n . . . \n . . ."), CvtNone);
    EXPECT_EQ(CvtOf(". . . \n . |~ . \n . . ."), CvtNone);
    EXPECT_EQ(CvtOf(". . . \n . ^~ . \n . . ."), CvtNone);
    EXPECT_EQ(Halls().CanInPlaceCvt(At(-1, 1)), CvtNone);
    EXPECT_EQ(Halls().CanInPlaceCvt(At(1, 3)), CvtNone);
}

TEST_F(GenHallBaseTest, RoomPiecesAndJunctionsCannotBeConverted) {
    for (const std::string cell : {"dN", "DE", "wS", "c", "NW", "uN", "o", "+", "wN&|", "NWw"}) {
        EXPECT_EQ(CvtOf(". . . \n . " + cell + " . \n . . ."), CvtNone) << cell;
    }
}

TEST_F(GenHallBaseTest, HallEndsAndCornersBecomeCornersWhateverIsAround) {
    for (const std::string cell : {"^", "v", ">", "<", ",-", "-,", "`-", "-'"}) {
        EXPECT_EQ(CvtOf(". + . \n + " + cell + " + \n . + ."), CvtCorner) << cell;
    }
}

TEST_F(GenHallBaseTest, HallWithAnOpenEndBecomesACorner) {
    EXPECT_EQ(CvtOf("+ . + \n + | + \n + + +"), CvtCorner);
    EXPECT_EQ(CvtOf("+ + + \n + | + \n + . +"), CvtCorner);
    EXPECT_EQ(CvtOf("+ + + \n . - + \n + + +"), CvtCorner);
    EXPECT_EQ(CvtOf("+ + + \n + - . \n + + +"), CvtCorner);
}

TEST_F(GenHallBaseTest, HallAtTheBorderBecomesACorner) {
    Level("| \n |");
    EXPECT_EQ(Halls().CanInPlaceCvt(At(0, 0)), CvtCorner);
    EXPECT_EQ(Halls().CanInPlaceCvt(At(0, 1)), CvtCorner);
    Level("- -");
    EXPECT_EQ(Halls().CanInPlaceCvt(At(0, 0)), CvtCorner);
    EXPECT_EQ(Halls().CanInPlaceCvt(At(1, 0)), CvtCorner);
}

TEST_F(GenHallBaseTest, ThroughHallBecomesAJunction) {
    EXPECT_EQ(CvtOf(". | . \n . | . \n . | ."), CvtFourWay);
    EXPECT_EQ(CvtOf(". ,- . \n . |2 . \n . -' ."), CvtFourWay);
    EXPECT_EQ(CvtOf(". ^ . \n . | . \n . v ."), CvtFourWay);
    EXPECT_EQ(CvtOf(". DS . \n . | . \n . dN ."), CvtFourWay);
    EXPECT_EQ(CvtOf(". . . \n - - - \n . . ."), CvtFourWay);
    EXPECT_EQ(CvtOf(". . . \n ,- -2 -' \n . . ."), CvtFourWay);
    EXPECT_EQ(CvtOf(". . . \n < - > \n . . ."), CvtFourWay);
    EXPECT_EQ(CvtOf(". . . \n dE - DW \n . . ."), CvtFourWay);
}

TEST_F(GenHallBaseTest, HallWithAClosedNeighbourBecomesACorner) {
    for (const std::string north : {"-", "v", "-'", "dN", "wS", "c", "o"}) {
        EXPECT_EQ(CvtOf(". " + north + " . \n . | . \n . | ."), CvtCorner) << north;
    }
    for (const std::string south : {"-", "^", ",-", "dS", "wN", "c", "o"}) {
        EXPECT_EQ(CvtOf(". | . \n . | . \n . " + south + " ."), CvtCorner) << south;
    }
    for (const std::string west : {"|", ">", "-,", "dW", "wE", "c", "o"}) {
        EXPECT_EQ(CvtOf(". . . \n " + west + " - - \n . . ."), CvtCorner) << west;
    }
    for (const std::string east : {"|", "<", "`-", "dE", "wW", "c", "o"}) {
        EXPECT_EQ(CvtOf(". . . \n - - " + east + " \n . . ."), CvtCorner) << east;
    }
}

TEST_F(GenHallBaseTest, ShadowNeighboursCountLikeOthers) {
    EXPECT_EQ(CvtOf(". |~ . \n . | . \n . |~ ."), CvtFourWay);
    EXPECT_EQ(CvtOf(". |~ . \n . | . \n . -~ ."), CvtCorner);
}

} // namespace

} // namespace Tarnex::Test
