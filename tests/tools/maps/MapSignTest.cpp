// SPDX-License-Identifier: MIT
// What things are drawn as.
#include "tools/maps/MapSign.h"

#include <gtest/gtest.h>

namespace Tarnex::Test {

namespace {

using Report::MapSign;
using Report::SignOf;

TEST(MapSignTest, ALightIsOneWhereverItHangs) {
    for (const RefSort sort :
         {RefSort::Furniture, RefSort::Rug, RefSort::Tapestry, RefSort::Other}) {
        EXPECT_EQ(SignOf(sort, "Light_Logpile10", {}), MapSign::Light);
        EXPECT_NE(SignOf(sort, "lighthouse", {}), MapSign::Light);
    }
    EXPECT_EQ(SignOf(RefSort::Creature, "light_spirit", {}), MapSign::Creature);
}

TEST(MapSignTest, ARugIsWhatLiesFlat) {
    const auto drawn = [](const Di3Point& size) { return SignOf(RefSort::Rug, "thing", size); };
    EXPECT_EQ(drawn({160.0F, 120.0F, 30.0F}), MapSign::Rug);
    EXPECT_EQ(drawn({160.0F, -120.0F, 30.5F}), MapSign::Furniture);
    EXPECT_EQ(drawn({}), MapSign::Other);
    EXPECT_EQ(SignOf(RefSort::Rug, "de_Rug_01", {}), MapSign::Rug);
    EXPECT_EQ(SignOf(RefSort::Furniture, "thing", {160.0F, 120.0F, 3.0F}), MapSign::Furniture);
}

} // namespace

} // namespace Tarnex::Test
