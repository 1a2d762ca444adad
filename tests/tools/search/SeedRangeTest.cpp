// SPDX-License-Identifier: MIT
#include "tools/search/SeedRange.h"

#include "tools/text/UsageError.h"

#include <gtest/gtest.h>

namespace Tarnex::Test {

namespace {

using Search::ParseSeedRange;
using Search::SeedRange;

TEST(SeedRangeTest, BothEndsAreIncluded) {
    EXPECT_EQ(ParseSeedRange("1..1000"), (SeedRange{1, 1000}));
    EXPECT_EQ(ParseSeedRange("7..7"), (SeedRange{7, 7}));
    EXPECT_EQ(ParseSeedRange("7"), (SeedRange{7, 7}));
    EXPECT_EQ(ParseSeedRange("1..1000").Count(), 1000U);
}

TEST(SeedRangeTest, AllSeedsThereAreCanBeCounted) {
    EXPECT_EQ(ParseSeedRange("0..4294967295").Count(), 4294967296U);
}

TEST(SeedRangeTest, RefusesAnythingElse) {
    for (const char* text : {"",
                             "..",
                             "1..",
                             "..5",
                             "1...5",
                             "1..5..9",
                             "1-5",
                             "1 .. 5",
                             "-1..5",
                             "+1..5",
                             "1..5x",
                             "0x1..5",
                             "1..4294967296",
                             "1..99999999999999999999999",
                             "5..3"}) {
        EXPECT_THROW(ParseSeedRange(text), UsageError) << text;
    }
}

TEST(SampleTest, ANumberCountsFromTheFirst) {
    EXPECT_EQ(Search::ParseSample("1000"), (SeedRange{1, 1000}));
    EXPECT_EQ(Search::ParseSample("1"), (SeedRange{1, 1}));
    EXPECT_EQ(Search::ParseSample("1001..2000"), (SeedRange{1001, 2000}));
    EXPECT_EQ(Search::ParseSample("7..7"), (SeedRange{7, 7}));
    EXPECT_EQ(Search::ParseSample("4294967295").Count(), 4294967295U);
}

TEST(SampleTest, RefusesAnythingElse) {
    for (const char* text : {"", "0", "0..5", "5..4", "-1", "x", "1..", "4294967296", "1...2"}) {
        EXPECT_THROW(Search::ParseSample(text), UsageError) << text;
    }
}

} // namespace

} // namespace Tarnex::Test
