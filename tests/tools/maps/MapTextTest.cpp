// SPDX-License-Identifier: MIT
// Maps for the terminal.
#include "tools/maps/MapText.h"

#include <gtest/gtest.h>

#include <sstream>
#include <tests/tools/maps/SampleMap.h>

namespace Tarnex::Test {

namespace {

std::string Printed(const Report::LevelMap& map, bool colour, std::size_t columns = 0) {
    std::ostringstream out;
    Report::PrintMap(map, {colour, columns}, out);
    return out.str();
}

TEST(MapTextTest, DrawsRoomsHallsStairsDoorsAndContents) {
    EXPECT_EQ(Printed(SampleMap(), false),
              "Vault <1> & more (Stone, north is up, a cell is 256 units)\n"
              "┏$t━━┓≡≡\n"
              "┃ 1 &┃\n"
              "┗━+━*┛\n"
              "  └──!\n"
              "! onto nothing: 1 opening\n");
}

TEST(MapTextTest, AMapAsWideAsThePageIsDrawnInFull) {
    EXPECT_EQ(Printed(SampleMap(), false, 8), Printed(SampleMap(), false));
}

TEST(MapTextTest, AMapWiderThanThePageHasOneCharacterForACell) {
    const std::string text =
        "Vault <1> & more (Stone, north is up, a cell is 256 units)\n"
        "$t━≡\n"
        "┃1&\n"
        "┗+*\n"
        " └!\n"
        "> one character for a cell; on 8 columns it is drawn in full, or with "
        "--map\n"
        "! onto nothing: 1 opening\n";
    EXPECT_EQ(Printed(SampleMap(), false, 7), text);
    EXPECT_EQ(Printed(SampleMap(), false, 4), text);
}

TEST(MapTextTest, WhatIsWiderStillIsCut) {
    EXPECT_EQ(
        Printed(SampleMap(), false, 3),
        "Vault <1> & more (Stone, north is up, a cell is 256 units)\n"
        "$t>\n"
        "┃1&\n"
        "┗+*\n"
        " └!\n"
        "> cut: the map goes on to the east; on 8 columns it is drawn in full, or with --map\n"
        "! onto nothing: 1 opening\n");
}

TEST(MapTextTest, NamesLevelsBehindDoorsAndRoomsOutOfReach) {
    Report::LevelMap map = SampleMap();
    map.rooms[0].reachable = false;
    map.Held(1, 2).teleport = true;
    map.Held(1, 2).leadsTo = "Level 2";
    EXPECT_EQ(Printed(map, false),
              "Vault <1> & more (Stone, north is up, a cell is 256 units)\n"
              "┏$t━━┓≡≡\n"
              "┃ 1 &┃\n"
              "┗━»━*┛\n"
              "  └──!\n"
              "» leads to Level 2\n"
              "! room 1 cannot be reached\n"
              "! onto nothing: 1 opening\n");
}

TEST(MapTextTest, LocksAreDrawnAndCounted) {
    Report::LevelMap map = SampleMap();
    map.Held(1, 2).lock = {true, false, "locked at 35"};
    map.Held(0, 0).contents[1].lock = {true, true, "locked at 10, trap"};
    EXPECT_EQ(Printed(map, false),
              "Vault <1> & more (Stone, north is up, a cell is 256 units)\n"
              "┏§t━━┓≡≡\n"
              "┃ 1 &┃\n"
              "┗━#━*┛\n"
              "  └──!\n"
              "# locked: 1 door\n"
              "§ locked: 1 container\n"
              "  armed: 1 trap\n"
              "! onto nothing: 1 opening\n");
    map.Held(1, 2).teleport = true;
    map.Held(1, 2).leadsTo = "Level 2";
    EXPECT_NE(Printed(map, false).find("» leads to Level 2, locked at 35\n§ locked"),
              std::string::npos);
}

TEST(MapTextTest, DoorwaysWithoutDoorAndPlatformsHaveMarksOfTheirOwn) {
    Report::LevelMap map = SampleMap();
    map.Held(1, 2).door = false;
    map.Held(1, 1).platform = true;
    map.Held(1, 1).room = 0;
    const std::string text = Printed(map, false);
    EXPECT_NE(text.find("┃ ▒ &┃"), std::string::npos);
    EXPECT_NE(text.find("┗━'━*┛"), std::string::npos);
}

TEST(MapTextTest, ColoursOnlyWhenAskedTo) {
    EXPECT_EQ(Printed(SampleMap(), false).find('\x1B'), std::string::npos);
    const std::string text = Printed(SampleMap(), true);
    EXPECT_NE(text.find("\x1B[0m\x1B[1;31m&"), std::string::npos);
    EXPECT_NE(text.find("\x1B[1;97;41m!\x1B[0m\n"), std::string::npos);
}

} // namespace

} // namespace Tarnex::Test
