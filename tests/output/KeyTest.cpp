// SPDX-License-Identifier: MIT
#include <vaultry/output/Key.h>

#include <gtest/gtest.h>

#include <string>
#include <tests/output/PluginBytes.h>

namespace Tarnex::Test {

namespace {

// Weight 0, worth 0, a key.
std::string KeyData() {
    return "MCDT" + Hex("0C 00 00 00") + Zeros(8) + Hex("01 00 00 00");
}

TEST(KeyTest, WhatItLacksIsLeftOut) {
    Key key("K");
    EXPECT_EQ(key.GetId(), "K");
    EXPECT_EQ(Written(key),
              "MISC" + Hex("1E 00 00 00") + Zeros(8) +           //
                  "NAME" + Hex("02 00 00 00") + "K" + Zeros(1) + //
                  KeyData());
}

TEST(KeyTest, ModelNameAndIconStandInTheOrderOfTheFormat) {
    Key key("Key1_1");
    key.name = "Key 1";
    key.model = "m\\k.nif";
    key.icon = "m\\k.tga";
    EXPECT_EQ(Written(key),
              "MISC" + Hex("51 00 00 00") + Zeros(8) +                  //
                  "NAME" + Hex("07 00 00 00") + "Key1_1" + Zeros(1) +   //
                  "MODL" + Hex("08 00 00 00") + "m\\k.nif" + Zeros(1) + //
                  "FNAM" + Hex("06 00 00 00") + "Key 1" + Zeros(1) +    //
                  KeyData() +                                           //
                  "ITEX" + Hex("08 00 00 00") + "m\\k.tga" + Zeros(1));
}

} // namespace

} // namespace Tarnex::Test
