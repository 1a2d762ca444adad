// SPDX-License-Identifier: MIT
#include <vaultry/run/Entrance.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace Tarnex::Test {

namespace {

std::string PointOf(const Di3Point& point) {
    return std::to_string(std::lround(point.x)) + ' ' + std::to_string(std::lround(point.y)) + ' ' +
           std::to_string(std::lround(point.z));
}

// Whole degrees of a turn about the upright axis.
long Degrees(const Di3Point& rotation) {
    return std::lround(rotation.z * 180.0 / 3.14159265358979);
}

TEST(EntranceTest, OneComesOutBeforeTheDoorOnItsOwnSide) {
    EXPECT_EQ(PointOf(BeforeDoor({100, 200, 0, 0}, 7)), "100 328 7");
    EXPECT_EQ(PointOf(BeforeDoor({100, 200, 0, 90}, 7)), "228 200 7");
    EXPECT_EQ(PointOf(BeforeDoor({100, 200, 0, 180}, 7)), "100 72 7");
    EXPECT_EQ(PointOf(BeforeDoor({100, 200, 0, 270}, 7)), "-28 200 7");
    EXPECT_EQ(PointOf(BeforeDoor({0, 0, 0, 45}, 0)), "91 91 0");
}

TEST(EntranceTest, ThePlaceDecidesTheCellOfTheWorld) {
    const auto cellOf = [](double x, double y) { return WildernessSite({x, y, 0.0, 0}, "R").head; };
    EXPECT_EQ(cellOf(0, 8191.9), WildernessHead(0, 0, "R"));
    EXPECT_EQ(cellOf(8192, -0.1), WildernessHead(1, -1, "R"));
    EXPECT_EQ(cellOf(-8192, -8192.1), WildernessHead(-1, -2, "R"));
}

TEST(EntranceTest, BothDoorsLeadToEachOther) {
    const EntranceSite site = WildernessSite({1000, 2000, 300.0, 90}, "R");
    const Ref out = WayOutTo(site);
    EXPECT_EQ(out.GetName(), "");
    EXPECT_EQ(PointOf(out.position), "1128 2000 300");
    EXPECT_EQ(Degrees(out.rotation), 90);

    const Arrival inside = {0, "Caf\xC3\xA9, Level 1", {256, -512, -96}, 180, true};
    const Ref door = OuterDoor(site, inside, "ex_cave_door_01");
    EXPECT_EQ(door.GetName(), "ex_cave_door_01");
    EXPECT_EQ(PointOf(door.position), "1000 2000 380");
    EXPECT_EQ(Degrees(door.rotation), 270);
    ASSERT_TRUE(door.GetDestination());
    EXPECT_EQ(door.GetDestination()->GetName(), "Caf\xE9, Level 1");
    EXPECT_EQ(PointOf(door.GetDestination()->position), "256 -512 -96");
    EXPECT_EQ(Degrees(door.GetDestination()->rotation), 180);
    EXPECT_EQ(PointOf(OuterDoor(site, inside, "my_door").position), "1000 2000 300");
}

} // namespace

} // namespace Tarnex::Test
