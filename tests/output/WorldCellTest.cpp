// SPDX-License-Identifier: MIT
#include <vaultry/output/Mod.h>
#include <vaultry/output/WorldCell.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/output/PluginBytes.h>

namespace Tarnex::Test {

namespace {

Ref Door() {
    Ref place("Crypt");
    place.position = Di3Point(256.0F, -512.0F, -96.0F);
    Ref door("ex_cave_door_01");
    door.position = Di3Point(1.0F, 2.0F, 3.0F);
    door.Teleport(place);
    return door;
}

TEST(WorldCellTest, TheWildsHaveNoNameButWaterAndARegion) {
    EXPECT_EQ(WildernessHead(-2, 9, "West Gash").bytes,
              "NAME" + Hex("01 00 00 00 00") +                                      //
                  "DATA" + Hex("0C 00 00 00 02 00 00 00 FE FF FF FF 09 00 00 00") + //
                  "RGNN" + Hex("0A 00 00 00") + "West Gash" + Zeros(1));
    EXPECT_EQ(Tags(WalkSubRecords(WildernessHead(0, 0, "").bytes)), "NAME DATA");
}

TEST(WorldCellTest, TheHeadIsWrittenAsItIsAndNoNumberOfReferences) {
    WorldCell cell({"NAME" + Hex("02 00 00 00") + "A" + Zeros(1) + "NAM5" + Hex("00 00 00 00")});
    EXPECT_EQ(Written(cell), "CELL" + Hex("12 00 00 00") + Zeros(8) + cell.GetHead().bytes);
    cell.AddRef(Door());
    cell.AddRef(Door());
    const std::string bytes = Written(cell);
    const std::vector<Record> records = WalkRecords(bytes);
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(Tags(records[0].subs), "NAME NAM5 FRMR NAME DODT DNAM DATA FRMR NAME DODT DNAM DATA");
    EXPECT_EQ(records[0].subs[2].data, Hex("01 00 00 00"));
    EXPECT_EQ(records[0].subs[7].data, Hex("02 00 00 00"));
    EXPECT_EQ(Written(cell), bytes);
    EXPECT_EQ(cell.GetRefs().size(), 2U);
}

TEST(WorldCellTest, StandsBehindTheCellsOfAPluginAndBeforePathGrids) {
    Mod mod;
    mod.CreatePathGrid("Crypt");
    mod.CreateWorldCell(WildernessHead(0, 0, ""))->AddRef(Door());
    mod.CreateCell("Crypt")->AddRef(Ref("NorthMarker"));
    EXPECT_EQ(mod.GetWorldCells().size(), 1U);
    std::string tags;
    for (const Record& record : WalkRecords(Written(mod))) {
        tags += record.tag + ' ';
    }
    EXPECT_EQ(tags, "TES3 CELL CELL PGRD ");
    mod.ResetContent();
    EXPECT_TRUE(mod.GetWorldCells().empty());
}

// The number that a reference of the game's own would have is another: it counts the master.
TEST(WorldCellTest, NumbersBeginAnewUnlessTheyAreToBeUnique) {
    Mod mod;
    const DiPtr<Cell> crypt = mod.CreateCell("Crypt");
    crypt->AddRef(Ref("NorthMarker"));
    crypt->AddRef(Ref("barrel_01"));
    mod.CreateWorldCell(WildernessHead(0, 0, ""))->AddRef(Door());
    const auto numberOutside = [&mod] { return WalkRecords(Written(mod)).at(2).subs.at(2).data; };
    EXPECT_EQ(numberOutside(), Hex("01 00 00 00"));
    mod.SetUniqueReferences(true);
    EXPECT_EQ(numberOutside(), Hex("03 00 00 00"));
}

} // namespace

} // namespace Tarnex::Test
