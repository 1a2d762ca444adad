// SPDX-License-Identifier: MIT
#include <vaultry/run/EntrancePlace.h>

#include <gtest/gtest.h>

#include <string>

namespace Tarnex::Test {

namespace {

constexpr const char* kNoPlace =
    "is not X,Y or X,Y,Z or X,Y,Z,ANGLE; Z may be empty, for the height of the land";
constexpr const char* kNoNumber = "has a number that is none, or lies beyond 4194304 units";
constexpr const char* kNoAngle = "has an angle that is not a whole number from -360 to 360";

// What is wrong with the text; the place that it reads as, for nothing.
std::string Read(const std::string& text) {
    EntrancePlace place;
    const std::string fault = ReadPlace(text, place);
    return fault.empty() ? TextOf(place) : fault;
}

TEST(EntrancePlaceTest, HeightAndAngleMayBeLeftOut) {
    EntrancePlace place;
    EXPECT_EQ(ReadPlace("-11200,70500.5", place), "");
    EXPECT_EQ(place, (EntrancePlace{-11200.0, 70500.5, std::nullopt, 0}));
    EXPECT_EQ(ReadPlace("1,2,-3", place), "");
    EXPECT_EQ(place, (EntrancePlace{1.0, 2.0, -3.0, 0}));
    EXPECT_EQ(ReadPlace("1,2,,90", place), "");
    EXPECT_EQ(place, (EntrancePlace{1.0, 2.0, std::nullopt, 90}));
    EXPECT_EQ(ReadPlace("1,2,3,359", place), "");
    EXPECT_EQ(place, (EntrancePlace{1.0, 2.0, 3.0, 359}));
}

TEST(EntrancePlaceTest, AnglesAreBroughtToOneRound) {
    EXPECT_EQ(Read("0,0,0,-90"), "0,0,0,270");
    EXPECT_EQ(Read("0,0,0,360"), "0,0,0");
    EXPECT_EQ(Read("0,0,0,-360"), "0,0,0");
    EXPECT_EQ(Read("0,0,0,361"), kNoAngle);
    EXPECT_EQ(Read("0,0,0,-361"), kNoAngle);
    EXPECT_EQ(Read("0,0,0,1.5"), kNoAngle);
    EXPECT_EQ(Read("0,0,0,"), kNoAngle);
}

TEST(EntrancePlaceTest, TheTextOfAPlaceReadsAsThatPlace) {
    for (const char* const text :
         {"0,0", "1.25,-7.5", "1,2,3", "1,2,,90", "-4194304,4194304,4194304,1", "0.1,0,0,180"}) {
        EXPECT_EQ(Read(text), text);
    }
    EXPECT_EQ(Read("-0,1e3,"), "0,1000");
}

TEST(EntrancePlaceTest, WhatIsNoPlaceSaysWhatOneIs) {
    for (const char* const text : {"", "1", "1,2,3,4,5"}) {
        EXPECT_EQ(Read(text), kNoPlace) << text;
    }
    for (const char* const text : {"a,b",
                                   "1,",
                                   ",1",
                                   "1, 2",
                                   "1,2,x",
                                   "nan,0",
                                   "inf,0",
                                   "4194304.5,0",
                                   "0,-4194304.5",
                                   "0,0,4194305"}) {
        EXPECT_EQ(Read(text), kNoNumber) << text;
    }
}

TEST(EntrancePlaceTest, WhatCannotBeReadLeavesThePlaceAsItWas) {
    EntrancePlace place{1.0, 2.0, 3.0, 4};
    EXPECT_NE(ReadPlace("5,6,7,x", place), "");
    EXPECT_EQ(place, (EntrancePlace{1.0, 2.0, 3.0, 4}));
}

} // namespace

} // namespace Tarnex::Test
