// SPDX-License-Identifier: MIT
#include "tools/search/HitTable.h"

#include "tools/text/UsageError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

using Search::Hit;
using Hits = std::vector<Hit>;

Hit Found(std::int64_t seed, const std::string& command) {
    Hit hit;
    hit.values.assign(Report::Facts().size(), -3);
    hit.values.front() = seed;
    hit.values.back() = std::numeric_limits<std::int64_t>::max();
    hit.command = command;
    return hit;
}

std::string Written(const Hits& hits) {
    std::ostringstream out;
    Search::WriteCsv(hits, out);
    return out.str();
}

Hits Read(const std::string& csv) {
    std::istringstream in(csv);
    Search::HitReader reader(in, "a.csv");
    Hits hits;
    while (std::optional<Hit> hit = reader.Next()) {
        hits.push_back(*std::move(hit));
    }
    return hits;
}

TEST(HitTableTest, WhatIsWrittenIsRead) {
    const Hits hits = {Found(4294967295, "vaultry generate --seed 4294967295"),
                       Found(0, "vaultry generate --cell 'The \"Old\" Keep, part 2'"),
                       Found(1, "")};
    EXPECT_EQ(Read(Written(hits)), hits);
    EXPECT_EQ(Read(Written({})), Hits{});
}

TEST(HitTableTest, EveryFactHasAColumn) {
    const std::string csv = Written({Found(7, "make, it")});
    EXPECT_EQ(csv.find("seed,levels,rooms,halls,"), 0U);
    EXPECT_NE(csv.find(",errors,command\n7,-3,"), std::string::npos);
    EXPECT_NE(csv.find(",9223372036854775807,\"make, it\"\n"), std::string::npos);
}

TEST(HitTableTest, LineEndsOfOtherSystemsAreRead) {
    const Hits hits = {Found(7, "make")};
    std::string csv;
    for (const char c : Written(hits)) {
        csv += c == '\n' ? std::string("\r\n") : std::string(1, c);
    }
    EXPECT_EQ(Read(csv), hits);
}

std::string Mistake(const std::string& csv) {
    try {
        Read(csv);
    } catch (const UsageError& e) {
        return e.what();
    }
    return {};
}

TEST(HitTableTest, MistakesAreToldWithFileAndLine) {
    const std::string head = Written({});
    const std::string columns = std::to_string(1 + std::ranges::count(head, ','));
    std::string good = Written({Found(7, "two, lines")});
    good.replace(good.find(" lines"), 1, "\n");
    EXPECT_EQ(Mistake(""),
              "\"a.csv\", line 1: these are not the columns that this version of vaultry search "
              "--csv writes");
    EXPECT_EQ(Mistake("seed,rooms\n1,2\n"), Mistake(""));
    EXPECT_EQ(Mistake(good + "8,9\n"),
              "\"a.csv\", line 4: " + columns + " columns are expected, not 2");
    EXPECT_EQ(Mistake(good + good),
              "\"a.csv\", line 4: \"seed\" under \"seed\" is no whole number");
    EXPECT_EQ(Mistake(good + "8"), "\"a.csv\", line 4: the last line is cut off");
    EXPECT_EQ(Mistake(head + "\"8"), "\"a.csv\", line 2: the quotation mark is never closed");
    EXPECT_EQ(Mistake(head + std::string(head.size(), ',') + '\n'),
              "\"a.csv\", line 2: " + columns + " columns are expected, not more");
    std::string large = good;
    large.replace(large.find("\n7,") + 1, 1, "99999999999999999999");
    EXPECT_EQ(Mistake(large),
              "\"a.csv\", line 2: \"99999999999999999999\" under \"seed\" is no whole number");
}

TEST(HitTableTest, WhatIsRepeatedOfALongFieldIsCutBetweenLetters) {
    std::string csv = Written({Found(7, "")});
    csv.replace(csv.find("\n7,") + 1, 1, std::string(39, 'a') + "äb");
    EXPECT_EQ(Mistake(csv),
              "\"a.csv\", line 2: \"" + std::string(39, 'a') +
                  "...\" under \"seed\" is no whole number");
}

TEST(HitTableTest, ALineIsReadUpToItsLimit) {
    const std::string plain = Written({Found(7, "")});
    const std::size_t row = plain.size() - plain.find("\n7,") - 1;
    const std::string longest(Search::kLongestRow - row, 'a');
    EXPECT_EQ(Read(Written({Found(7, longest), Found(8, longest)})).size(), 2U);
    const std::string refusal = ": a line is longer than 1048576 bytes, so this is no table that "
                                "vaultry search --csv wrote";
    EXPECT_EQ(Mistake(Written({Found(7, longest), Found(8, longest + 'a')})),
              "\"a.csv\", line 3" + refusal);
    EXPECT_EQ(Mistake(std::string(Search::kLongestRow + 1, '\0')), "\"a.csv\", line 1" + refusal);
    EXPECT_EQ(Mistake(plain + '"' + std::string(Search::kLongestRow + 1, '\n')),
              "\"a.csv\", line 3" + refusal);
}

} // namespace

} // namespace Tarnex::Test
