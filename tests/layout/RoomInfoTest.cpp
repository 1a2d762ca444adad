// SPDX-License-Identifier: MIT
// The room grid: slots, maxima, the list of rooms and the rooms around a room.
#include <vaultry/layout/RoomInfo.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Test {

namespace {

class RoomInfoTest : public ::testing::Test {
protected:
    static DiPtr<Layout> Room(int width, int height) {
        return Layout::Create(DiPos(width, height, 0));
    }

    // A grid with a room for every letter, named after it; '.' is an empty slot.
    static void Fill(RoomInfo& rooms, const std::vector<std::string_view>& map) {
        for (std::size_t row = 0; row < map.size(); ++row) {
            for (std::size_t col = 0; col < map[row].size(); ++col) {
                if (map[row][col] != '.') {
                    const DiPtr<Layout> room = Room(3, 3);
                    room->SetName(std::string(1, map[row][col]).c_str());
                    rooms.SetLayout(room, static_cast<int>(row), static_cast<int>(col));
                }
            }
        }
    }

    static std::string NameOf(const DiPtr<Layout>& room) { return room ? room->GetName() : "-"; }

    // The neighbours of the room of that name: north, south, east, west, then the diagonal ones.
    static std::string Around(const RoomInfo& rooms, std::string_view name) {
        const std::vector<DiPtr<Layout>> list = rooms.GetRoomList();
        const auto room = std::ranges::find(list, name, [](const auto& r) { return r->GetName(); });
        return Neighbours(rooms.GetAdjacentRooms(**room));
    }

    static std::string Neighbours(const AdjacentRooms& around) {
        std::string names;
        for (const auto& room : {around.north,
                                 around.south,
                                 around.east,
                                 around.west,
                                 around.northWest,
                                 around.northEast,
                                 around.southWest,
                                 around.southEast}) {
            names += NameOf(room);
        }
        return names;
    }
};

// Slots.

TEST_F(RoomInfoTest, NewGridIsEmpty) {
    const RoomInfo rooms(DiPos(3, 2, 7));
    EXPECT_EQ(rooms.GetSize(), DiPos(3, 2, 7));
    EXPECT_EQ(rooms.GetWidth(), 3U);
    EXPECT_EQ(rooms.GetHeight(), 2U);
    for (std::uint32_t row = 0; row < 2; ++row) {
        EXPECT_EQ(rooms.GetMaxRowHeight(row), 0U);
        for (std::uint32_t col = 0; col < 3; ++col) {
            EXPECT_FALSE(rooms.GetLayout(row, col));
            EXPECT_EQ(rooms.GetMaxColWidth(col), 0U);
        }
    }
    EXPECT_TRUE(rooms.GetRoomList().empty());
    EXPECT_EQ(rooms.GetTotalWidth(), 0U);
    EXPECT_EQ(rooms.GetTotalHeight(), 0U);
}

TEST_F(RoomInfoTest, RowComesFirst) {
    RoomInfo rooms(DiPos(3, 2, 0));
    const DiPtr<Layout> room = Room(3, 3);
    rooms.SetLayout(room, 1, 2);
    EXPECT_EQ(rooms.GetLayout(1, 2), room);
    EXPECT_EQ(rooms.GetRow(1)[2], room);
    EXPECT_FALSE(rooms.GetLayout(1, 1));
}

TEST_F(RoomInfoTest, RowIsReachableForWriting) {
    RoomInfo rooms(DiPos(2, 1, 0));
    const DiPtr<Layout> room = Room(3, 3);
    ASSERT_EQ(rooms.GetRow(0).size(), 2U);
    rooms.GetRow(0)[1] = room;
    EXPECT_EQ(rooms.GetLayout(0, 1), room);
}

TEST_F(RoomInfoTest, ColumnOutsideThrowsOnReadingAndWriting) {
    RoomInfo rooms(DiPos(3, 2, 0));
    const auto message = [](auto&& call) -> std::string {
        try {
            call();
        } catch (const std::out_of_range& e) {
            return e.what();
        }
        return "nothing thrown";
    };
    for (const int col : {3, 4, -1}) {
        const auto unsignedCol = static_cast<std::uint32_t>(col);
        EXPECT_EQ(message([&] { rooms.GetLayout(0, unsignedCol); }), "invalid vector<T> subscript");
        EXPECT_EQ(message([&] { rooms.SetLayout(Room(9, 9), 0, col); }),
                  "invalid vector<T> subscript");
        EXPECT_EQ(message([&] { rooms.SetLayout(nullptr, 0, col); }),
                  "invalid vector<T> subscript");
    }
    EXPECT_EQ(rooms.GetTotalHeight(), 0U);
}

TEST_F(RoomInfoTest, RowOutsideIsNullAndDroppedButItsColumnIsStillChecked) {
    RoomInfo rooms(DiPos(3, 2, 0));
    rooms.SetLayout(Room(9, 9), 2, 0);
    rooms.SetLayout(Room(9, 9), -1, 0);
    EXPECT_FALSE(rooms.GetLayout(2, 0));
    EXPECT_FALSE(rooms.GetLayout(0xFFFFFFFFU, 0));
    EXPECT_TRUE(rooms.GetRoomList().empty());
    EXPECT_EQ(rooms.GetTotalWidth(), 0U);
    EXPECT_THROW(rooms.SetLayout(Room(9, 9), 2, 3), std::out_of_range);
    EXPECT_THROW(rooms.GetLayout(2, 3), std::out_of_range);
}

// Maxima.

TEST_F(RoomInfoTest, RoomRaisesTheMaximaOfItsSlot) {
    RoomInfo rooms(DiPos(3, 2, 0));
    rooms.SetLayout(Room(7, 5), 1, 2);
    EXPECT_EQ(rooms.GetMaxRowHeight(0), 0U);
    EXPECT_EQ(rooms.GetMaxRowHeight(1), 5U);
    EXPECT_EQ(rooms.GetMaxColWidth(0), 0U);
    EXPECT_EQ(rooms.GetMaxColWidth(1), 0U);
    EXPECT_EQ(rooms.GetMaxColWidth(2), 7U);
}

TEST_F(RoomInfoTest, MaximaNeverFall) {
    RoomInfo rooms(DiPos(3, 2, 0));
    rooms.SetLayout(Room(7, 5), 1, 2);
    rooms.SetLayout(nullptr, 1, 2);
    EXPECT_FALSE(rooms.GetLayout(1, 2));
    EXPECT_EQ(rooms.GetMaxRowHeight(1), 5U);
    EXPECT_EQ(rooms.GetMaxColWidth(2), 7U);
    rooms.SetLayout(Room(3, 4), 1, 2);
    EXPECT_EQ(rooms.GetMaxRowHeight(1), 5U);
    EXPECT_EQ(rooms.GetMaxColWidth(2), 7U);
    rooms.SetLayout(Room(3, 6), 1, 0);
    EXPECT_EQ(rooms.GetMaxRowHeight(1), 6U);
    EXPECT_EQ(rooms.GetMaxColWidth(0), 3U);
}

TEST_F(RoomInfoTest, PartsOfARoomCount) {
    RoomInfo rooms(DiPos(1, 1, 0));
    const DiPtr<Layout> room = Room(4, 3);
    const DiPtr<Layout> east = Room(2, 2);
    east->SetOffset(Di3Point(4.0F, 0.0F, 1.0F));
    room->AddChild(east);
    const DiPtr<Layout> north = Room(1, 2);
    north->SetOffset(Di3Point(0.0F, -2.0F, 0.0F));
    room->AddChild(north);
    rooms.SetLayout(room, 0, 0);
    EXPECT_EQ(rooms.GetMaxColWidth(0), 6U);
    EXPECT_EQ(rooms.GetMaxRowHeight(0), 5U);
    room->Dissolve();
}

TEST_F(RoomInfoTest, MaximaCanBeSetAndAddUp) {
    RoomInfo rooms(DiPos(3, 2, 0));
    rooms.SetMaxColWidth(0, 7);
    rooms.SetMaxColWidth(2, 9);
    rooms.SetMaxRowHeight(0, 4);
    rooms.SetMaxRowHeight(1, 1);
    EXPECT_EQ(rooms.GetMaxColWidth(1), 0U);
    EXPECT_EQ(rooms.GetTotalWidth(), 16U);
    EXPECT_EQ(rooms.GetTotalHeight(), 5U);
    rooms.SetMaxColWidth(0, 2);
    EXPECT_EQ(rooms.GetTotalWidth(), 11U);
}

// Rooms.

TEST_F(RoomInfoTest, RoomListGoesRowByRow) {
    RoomInfo rooms(DiPos(3, 3, 0));
    Fill(rooms, {".A.", "B.C", "..D"});
    std::string names;
    for (const DiPtr<Layout>& room : rooms.GetRoomList()) {
        names += room->GetName();
    }
    EXPECT_EQ(names, "ABCD");
}

TEST_F(RoomInfoTest, SlotOfARoomIsColumnThenRow) {
    RoomInfo rooms(DiPos(3, 2, 5));
    Fill(rooms, {"A..", "..B"});
    EXPECT_EQ(rooms.GetLogicalRoomPos(*rooms.GetLayout(1, 2)), DiPos(2, 1, 0));
    EXPECT_EQ(rooms.GetLogicalRoomPos(*rooms.GetLayout(0, 0)), DiPos(0, 0, 0));
}

TEST_F(RoomInfoTest, SlotIsFoundByIdentity) {
    RoomInfo rooms(DiPos(2, 1, 0));
    Fill(rooms, {"AA"});
    EXPECT_EQ(rooms.GetLogicalRoomPos(*rooms.GetLayout(0, 1)), DiPos(1, 0, 0));
}

TEST_F(RoomInfoTest, UnknownRoomHasTheFirstSlot) {
    RoomInfo rooms(DiPos(2, 2, 0));
    Fill(rooms, {"AB", "CD"});
    EXPECT_EQ(rooms.GetLogicalRoomPos(*Room(3, 3)), DiPos(0, 0, 0));
}

// Neighbours, as north, south, east, west and the four diagonal ones, which are always empty.

TEST_F(RoomInfoTest, NeighboursInAFullGrid) {
    RoomInfo rooms(DiPos(3, 3, 0));
    Fill(rooms, {"ABC", "DEF", "GHI"});
    EXPECT_EQ(Around(rooms, "E"), "CGFD----");
    EXPECT_EQ(Around(rooms, "A"), "-DB-----");
    EXPECT_EQ(Around(rooms, "I"), "F--H----");
}

TEST_F(RoomInfoTest, LastRoomToTheNorthWins) {
    RoomInfo rooms(DiPos(3, 3, 0));
    Fill(rooms, {"A.B", "...", ".C."});
    EXPECT_EQ(Around(rooms, "C"), "B-------");
}

TEST_F(RoomInfoTest, NearerRowToTheNorthWinsOverTheFartherOne) {
    RoomInfo rooms(DiPos(3, 3, 0));
    Fill(rooms, {".AB", "C..", "D.."});
    EXPECT_EQ(Around(rooms, "D"), "C-------");
}

TEST_F(RoomInfoTest, FirstRoomToTheSouthWins) {
    RoomInfo rooms(DiPos(3, 3, 0));
    Fill(rooms, {".C.", "...", "A.B"});
    EXPECT_EQ(Around(rooms, "C"), "-A------");
}

TEST_F(RoomInfoTest, NorthernmostRoomToTheEastWins) {
    RoomInfo rooms(DiPos(4, 3, 0));
    Fill(rooms, {"...A", "C..B", "...D"});
    EXPECT_EQ(Around(rooms, "C"), "--A-----");
}

TEST_F(RoomInfoTest, NearestRoomToTheEastOfTheSameRowWins) {
    RoomInfo rooms(DiPos(4, 1, 0));
    Fill(rooms, {"A.BC"});
    EXPECT_EQ(Around(rooms, "A"), "--B-----");
    EXPECT_EQ(Around(rooms, "C"), "---B----");
}

TEST_F(RoomInfoTest, SouthernmostRoomToTheWestWins) {
    RoomInfo rooms(DiPos(4, 3, 0));
    Fill(rooms, {"A...", "B..C", "D..."});
    EXPECT_EQ(Around(rooms, "C"), "---D----");
}

TEST_F(RoomInfoTest, RoomAsFarAsideAsAheadCountsAsNorthOrSouth) {
    RoomInfo rooms(DiPos(2, 2, 0));
    Fill(rooms, {"A.", ".B"});
    EXPECT_EQ(Around(rooms, "A"), "-B------");
    EXPECT_EQ(Around(rooms, "B"), "A-------");
}

TEST_F(RoomInfoTest, LoneRoomHasNoNeighbours) {
    RoomInfo rooms(DiPos(3, 3, 0));
    Fill(rooms, {"...", ".A.", "..."});
    EXPECT_EQ(Around(rooms, "A"), "--------");
}

TEST_F(RoomInfoTest, RoomInTwoSlotsIsNoNeighbourOfItself) {
    RoomInfo rooms(DiPos(3, 1, 0));
    Fill(rooms, {"A.B"});
    rooms.SetLayout(rooms.GetLayout(0, 0), 0, 1);
    EXPECT_EQ(Around(rooms, "A"), "--B-----");
}

TEST_F(RoomInfoTest, UnknownRoomLooksAroundFromTheFirstSlotWhoseRoomIsIgnored) {
    RoomInfo rooms(DiPos(3, 2, 0));
    Fill(rooms, {"A.B", "C.."});
    EXPECT_EQ(Neighbours(rooms.GetAdjacentRooms(*Room(3, 3))), "-CB-----");
}

} // namespace

} // namespace Tarnex::Test
