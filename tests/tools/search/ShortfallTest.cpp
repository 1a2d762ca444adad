// SPDX-License-Identifier: MIT
#include "tools/search/Shortfall.h"

#include <gtest/gtest.h>

namespace Tarnex::Test {

namespace {

using Search::Condition;
using Search::Shortfall;

// A dungeon with that many rooms and loops.
Report::FactValues Dungeon(std::int64_t rooms, std::int64_t loops) {
    Report::FactValues values(Report::Facts().size());
    values.at(Report::FindFact("rooms").value()) = rooms;
    values.at(Report::FindFact("loops").value()) = loops;
    return values;
}

TEST(ShortfallTest, TellsHowManyPassAndWhatWasSeen) {
    Shortfall shortfall(Condition("rooms>=9 and loops<=rooms"));
    shortfall.Note(Dungeon(4, 2));
    shortfall.Note(Dungeon(8, 9));
    shortfall.Note(Dungeon(6, 0));
    ASSERT_EQ(shortfall.Parts().size(), 2U);
    const Shortfall::Part& rooms = shortfall.Parts()[0];
    EXPECT_EQ(rooms.text, "rooms>=9");
    EXPECT_EQ(rooms.held, 0U);
    ASSERT_EQ(rooms.ranges.size(), 1U);
    EXPECT_EQ(rooms.ranges[0].fact, Report::FindFact("rooms"));
    EXPECT_EQ(rooms.ranges[0].least, 4);
    EXPECT_EQ(rooms.ranges[0].most, 8);
    EXPECT_EQ(shortfall.Parts()[1].held, 2U);
    EXPECT_EQ(shortfall.Parts()[1].ranges.size(), 2U);
}

TEST(ShortfallTest, WithoutAConditionThereIsNothingToPass) {
    Shortfall shortfall{Condition()};
    shortfall.Note(Dungeon(1, 1));
    EXPECT_TRUE(shortfall.Parts().empty());
}

} // namespace

} // namespace Tarnex::Test
