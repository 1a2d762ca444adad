// SPDX-License-Identifier: MIT
#include <vaultry/output/RGBColor.h>

#include <gtest/gtest.h>

#include <tests/output/PluginBytes.h>

namespace Tarnex::Test {

namespace {

void ExpectChannels(const RGBColor& color, int r, int g, int b) {
    EXPECT_EQ(color.r, r);
    EXPECT_EQ(color.g, g);
    EXPECT_EQ(color.b, b);
}

TEST(RGBColorTest, StartsBlack) {
    RGBColor color;
    ExpectChannels(color, 0, 0, 0);
    EXPECT_EQ(Written(color), Hex("00 00 00 00"));
}

TEST(RGBColorTest, WritesItsChannelsAndAZeroByte) {
    RGBColor color(242, 217, 217);
    ExpectChannels(color, 242, 217, 217);
    EXPECT_EQ(Written(color), Hex("F2 D9 D9 00"));
    RGBColor steps(1, 2, 3);
    EXPECT_EQ(Written(steps), Hex("01 02 03 00"));
    RGBColor white(255, 255, 255);
    EXPECT_EQ(Written(white), Hex("FF FF FF 00"));
}

TEST(RGBColorTest, OnlyTheLowByteOfAChannelIsWritten) {
    RGBColor color(256, 511, -1);
    ExpectChannels(color, 256, 511, -1);
    EXPECT_EQ(Written(color), Hex("00 FF FF 00"));
    RGBColor negative(-2147483647 - 1, -256, -255);
    EXPECT_EQ(Written(negative), Hex("00 00 01 00"));
}

TEST(RGBColorTest, CopiesCarryTheChannels) {
    const RGBColor original(10, 20, 30);
    const RGBColor copy(original);
    ExpectChannels(copy, 10, 20, 30);
    RGBColor target(1, 1, 1);
    target = original;
    ExpectChannels(target, 10, 20, 30);
}

} // namespace

} // namespace Tarnex::Test
