// SPDX-License-Identifier: MIT
#include "cli/CommandWords.h"

#include "tools/text/UsageError.h"

#include <gtest/gtest.h>

#include <string>

namespace Tarnex::Test {

namespace {

TEST(GenerateLinesTest, PrintsAnewWhatDecidesWhatIsGenerated) {
    Cli::GenerateLines lines;
    const auto understood = lines.Read("vaultry generate --size=small -o /etc/passwd --log x "
                                       "--levels 1 --seed 07 -n 'A  b' --quiet");
    EXPECT_EQ(understood.seed, 7U);
    EXPECT_EQ(understood.line, "vaultry generate --seed 7 --cell \"A  b\" --size Small");
}

TEST(GenerateLinesTest, LinesThatDifferInTheSeedAloneAreReadAlike) {
    Cli::GenerateLines lines;
    const std::string behind = " --levels 2 --size tiny -n '--seed 9'";
    for (const std::string seed : {"1", "2", "4294967295", "007"}) {
        const auto understood = lines.Read("vaultry generate --seed " + seed + behind);
        EXPECT_EQ(std::to_string(understood.seed), std::to_string(std::stoul(seed)));
        EXPECT_EQ(understood.line,
                  "vaultry generate --seed " + std::to_string(understood.seed) +
                      " --cell=\"--seed 9\" --levels 2 --size Tiny");
    }
    EXPECT_FALSE(lines.ReadOlder());
}

TEST(GenerateLinesTest, WhatIsNotNamedIsWhatEarlierVersionsMeant) {
    Cli::GenerateLines lines;
    const auto read = [&lines](const std::string& behind) {
        const std::string start = "vaultry generate --seed 1";
        return lines.Read(start + behind).line.substr(start.size());
    };
    const std::string cell = " --cell \"Vaultry Dungeon\"";
    const std::string caves = " --config builtin:caves";
    EXPECT_EQ(read(""), cell + " --size Random");
    EXPECT_TRUE(lines.ReadOlder());
    EXPECT_EQ(read(" --levels 3"), cell + " --levels 3 --size Random");
    EXPECT_EQ(read(" -n A"), " --cell A --size Random");
    EXPECT_EQ(read(" --size tiny"), cell + " --size Tiny");
    EXPECT_EQ(read(" --fixed"), cell + " --fixed");
    EXPECT_EQ(read(caves), caves + cell + " --tileset Velothi --size Random");
    EXPECT_EQ(read(caves + " --fixed"),
              caves + cell + " --fixed --tileset Velothi --template \"Small Chamber\"");
    EXPECT_EQ(read(caves + " --fixed --cave-tileset A --cave-template B"),
              caves + cell + " --fixed --cave-tileset A --cave-template B");
}

std::string RefusalOfLine(const std::string& line) {
    try {
        Cli::GenerateLines lines;
        lines.Read("vaultry generate --seed 1");
        lines.Read(line);
    } catch (const UsageError& e) {
        return e.what();
    }
    return {};
}

TEST(GenerateLinesTest, RefusesOtherLines) {
    const std::string other = "it does not begin with vaultry generate";
    EXPECT_EQ(RefusalOfLine(""), other);
    EXPECT_EQ(RefusalOfLine("vaultry"), other);
    EXPECT_EQ(RefusalOfLine("rm -r /home"), other);
    EXPECT_EQ(RefusalOfLine("vaultry search --seeds 1"), other);
    EXPECT_EQ(RefusalOfLine("vaultry generate"), "it has no --seed");
    EXPECT_EQ(RefusalOfLine("vaultry generate --help"), "it has no --seed");
    EXPECT_EQ(RefusalOfLine("vaultry generate --seed 4294967296"),
              "--seed: \"4294967296\" is not a whole number from 0 to 4294967295");
    EXPECT_EQ(RefusalOfLine("vaultry generate --seed 1;ls"),
              "\";\" stands outside of quotation marks");
    EXPECT_NE(RefusalOfLine("vaultry generate --seed 1 --seed 2"), "");
    EXPECT_NE(RefusalOfLine("vaultry generate --seed 1 --nonsense"), "");
}

} // namespace

} // namespace Tarnex::Test
