// SPDX-License-Identifier: MIT
#include <vaultry/game/GameCell.h>
#include <vaultry/game/GameFault.h>

#include <gtest/gtest.h>

#include <bit>
#include <sstream>
#include <string>

namespace Tarnex::Test {

namespace {

std::string Zeros(std::size_t count) {
    return std::string(count, '\0');
}

std::string Word(std::uint32_t word) {
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        bytes += static_cast<char>(static_cast<unsigned char>(word >> shift));
    }
    return bytes;
}

std::string Sub(const std::string& tag, const std::string& data) {
    return tag + Word(static_cast<std::uint32_t>(data.size())) + data;
}

std::string Rec(const std::string& tag, const std::string& data, std::uint32_t flags = 0) {
    return tag + Word(static_cast<std::uint32_t>(data.size())) + Word(0) + Word(flags) + data;
}

std::string Text(const std::string& tag, const std::string& text) {
    return Sub(tag, text + '\0');
}

// Flags and place of a cell.
std::string Data(std::uint32_t flags, std::int32_t x, std::int32_t y) {
    return Sub("DATA",
               Word(flags) + Word(static_cast<std::uint32_t>(x)) +
                   Word(static_cast<std::uint32_t>(y)));
}

const std::string kHeader = Rec("TES3", Zeros(308));
const std::string kRef = Sub("FRMR", Word(1)) + Text("NAME", "rock") + Sub("DATA", Zeros(24));
const std::string kTown =
    Text("NAME", "Town") + Data(6, -2, 9) + Text("RGNN", "West Gash") + Sub("NAM5", Word(7));
const std::string kHouse =
    Text("NAME", "Town, House") + Data(1, 0, 0) + Sub("WHGT", Word(0)) + Sub("AMBI", Zeros(16));

// Heights that climb by 8 to the east and by 16 to the north, from 80.
std::string Slope() {
    std::string heights = Word(std::bit_cast<std::uint32_t>(10.0F));
    for (int y = 0; y < 65; ++y) {
        for (int x = 0; x < 65; ++x) {
            heights += static_cast<char>(x == 0 ? (y == 0 ? 0 : 2) : 1);
        }
    }
    return heights + Zeros(3);
}

std::string Land(std::int32_t x, std::int32_t y, const std::string& rest) {
    return Rec(
        "LAND",
        Sub("INTV", Word(static_cast<std::uint32_t>(x)) + Word(static_cast<std::uint32_t>(y))) +
            Sub("DATA", Word(1)) + rest);
}

// What a file behind others says of the cell.
GameCell Read(const std::string& bytes, const CellAsked& asked, GameCell cell = {}) {
    std::istringstream file(bytes);
    ReadGameCell(file, asked, cell);
    return cell;
}

std::string FaultOf(const std::string& bytes, const CellAsked& asked = {"", -2, 9}) {
    try {
        Read(bytes, asked);
    } catch (const GameFault& e) {
        return e.what();
    }
    return "";
}

TEST(GameCellTest, TheHeadIsKeptByteForByte) {
    const std::string bytes = kHeader + Rec("STAT", Zeros(9000)) + Rec("CELL", kHouse + kRef) +
                              Rec("CELL", kTown + Sub("NAM0", Word(1)) + kRef) +
                              Rec("CELL", Text("NAME", "") + Data(2, -2, 8));
    const GameCell town = Read(bytes, {"", -2, 9});
    ASSERT_TRUE(town.head);
    EXPECT_EQ(town.head->bytes, kTown);
    EXPECT_EQ(town.name, "Town");
    EXPECT_FALSE(town.land);
    const GameCell house = Read(bytes, {"town, HOUSE", 0, 0});
    ASSERT_TRUE(house.head);
    EXPECT_EQ(house.head->bytes, kHouse);
    EXPECT_EQ(house.name, "Town, House");
    EXPECT_EQ(Read(bytes, {"", -2, 8}).head->bytes, Text("NAME", "") + Data(2, -2, 8));
    EXPECT_FALSE(Read(bytes, {"", 9, -2}).head);
    EXPECT_FALSE(Read(bytes, {"Town", 0, 0}).head);
}

TEST(GameCellTest, TheLastFileThatHasTheCellCounts) {
    const std::string renamed = Text("NAME", "City") + Data(2, -2, 9);
    const CellAsked asked{"", -2, 9};
    const GameCell first = Read(kHeader + Rec("CELL", kTown), asked);
    EXPECT_EQ(Read(kHeader, asked, first).head->bytes, kTown);
    const GameCell last = Read(kHeader + Rec("CELL", renamed + kRef), asked, first);
    EXPECT_EQ(last.head->bytes, renamed);
    EXPECT_EQ(last.name, "City");
}

TEST(GameCellTest, WhatAFileTakesAwayDoesNotCount) {
    const CellAsked asked{"", -2, 9};
    const GameCell first = Read(kHeader + Rec("CELL", kTown), asked);
    EXPECT_EQ(Read(kHeader + Rec("CELL", kTown, 0x20), asked).head, std::nullopt);
    const std::string deleted = Text("NAME", "Gone") + Data(2, -2, 9) + Sub("DELE", Word(0));
    EXPECT_EQ(Read(kHeader + Rec("CELL", deleted), asked, first).head->bytes, kTown);
}

TEST(GameCellTest, WhatMovesReferencesOfOthersIsNoPartOfTheHead) {
    const std::string moved = Sub("MVRF", Word(1)) + Sub("CNDT", Zeros(8)) + kRef;
    EXPECT_EQ(Read(kHeader + Rec("CELL", kTown + moved), {"", -2, 9}).head->bytes, kTown);
}

TEST(GameCellTest, AHeadIsFoundBeforeAnyNumberOfReferences) {
    std::string refs;
    while (refs.size() < 20'000) {
        refs += kRef;
    }
    EXPECT_EQ(Read(kHeader + Rec("CELL", kTown + refs), {"", -2, 9}).head->bytes, kTown);
}

TEST(GameCellTest, FilesThatAreNoneAreRefused) {
    EXPECT_EQ(FaultOf(""), "it is empty");
    EXPECT_EQ(FaultOf("TES3"), "it ends in the middle of a record");
    EXPECT_EQ(FaultOf(Rec("CELL", kTown)), "it is no file of the game");
    EXPECT_EQ(FaultOf(kHeader), "");
    EXPECT_EQ(FaultOf(kHeader + "CELL"), "it ends in the middle of a record");
    const std::string cell = kHeader + Rec("CELL", kTown);
    EXPECT_EQ(FaultOf(cell.substr(0, cell.size() - 1)), "it ends in the middle of a record");
    EXPECT_EQ(FaultOf(kHeader + "STAT" + Word(0xFFFFFFFF) + Zeros(8)),
              "it ends in the middle of a record");
}

TEST(GameCellTest, ADamagedCellMattersOnlyWhereItIsAskedFor) {
    const std::string damaged = kHeader + Rec("CELL", kTown + "RGNN" + Word(5) + "a");
    EXPECT_EQ(FaultOf(damaged), "the cell in it is damaged");
    EXPECT_EQ(FaultOf(damaged, {"", 0, 0}), "");
    const std::string endless = kHeader + Rec("CELL", kTown + Sub("XXXX", Zeros(9000)));
    EXPECT_EQ(FaultOf(endless), "the cell in it is damaged");
    EXPECT_EQ(FaultOf(kHeader + Rec("CELL", Text("NAME", "A") + Sub("DATA", Zeros(8)))), "");
}

TEST(GameCellTest, HeightsAddUpFromTheSouthWest) {
    const GameCell cell =
        Read(kHeader + Land(-2, 8, "") + Land(-2, 9, Sub("VHGT", Slope())), {"", -2, 9});
    ASSERT_TRUE(cell.land);
    ASSERT_EQ(cell.land->heights.size(), 65U * 65U);
    EXPECT_EQ(cell.land->heights[0], 80.0F);
    EXPECT_EQ(cell.land->heights[64], 592.0F);
    EXPECT_EQ(cell.land->heights[65], 96.0F);
    EXPECT_EQ(cell.land->heights[65 * 64], 1104.0F);
    EXPECT_FALSE(Read(kHeader + Land(-2, 9, Sub("VHGT", Slope())), {"A", -2, 9}).land);
}

TEST(GameCellTest, LandWithoutHeightsHasNone) {
    const CellAsked asked{"", -2, 9};
    const GameCell first = Read(kHeader + Land(-2, 9, Sub("VHGT", Slope())), asked);
    ASSERT_TRUE(first.land);
    EXPECT_FALSE(Read(kHeader + Land(-2, 9, ""), asked, first).land);
    EXPECT_FALSE(Read(kHeader + Land(-2, 9, Sub("VHGT", Zeros(4231))), asked).land);
    EXPECT_TRUE(Read(kHeader + Land(-2, 9, Sub("VHGT", Zeros(4232))), asked).land);
    EXPECT_TRUE(Read(kHeader + Rec("LAND", Sub("INTV", Zeros(4))), asked, first).land);
    EXPECT_FALSE(
        Read(kHeader + Land(-2, 9, Sub("VHGT", Word(0x7FC00000) + Zeros(4228))), asked).land);
}

TEST(GameCellTest, TheHeightBetweenIsThatOfATriangle) {
    LandHeights land{std::vector<float>(65 * 65)};
    land.heights[1] = 128.0F;  // to the east of the corner
    land.heights[65] = 256.0F; // to the north
    land.heights[66] = 512.0F; // to the north-east
    EXPECT_EQ(HeightAt(land, 0, 0), 0.0);
    EXPECT_EQ(HeightAt(land, 128, 0), 128.0);
    EXPECT_EQ(HeightAt(land, 0, 128), 256.0);
    EXPECT_EQ(HeightAt(land, 128, 128), 512.0);
    // On the cut, and to either side of it.
    EXPECT_EQ(HeightAt(land, 64, 64), 192.0);
    EXPECT_EQ(HeightAt(land, 32, 32), 96.0);
    EXPECT_EQ(HeightAt(land, 96, 96), 352.0);
    EXPECT_EQ(HeightAt(land, 96, 32), 160.0);
}

TEST(GameCellTest, TheHeightAtTheEdgeIsThatOfTheLastSquare) {
    LandHeights land{std::vector<float>(65 * 65)};
    land.heights.back() = 100.0F;
    EXPECT_EQ(HeightAt(land, 8192, 8192), 100.0);
    EXPECT_EQ(HeightAt(land, 9000, 9000), 100.0);
    EXPECT_EQ(HeightAt(land, -5, -5), 0.0);
}

} // namespace

} // namespace Tarnex::Test
