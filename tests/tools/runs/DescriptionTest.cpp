// SPDX-License-Identifier: MIT
#include "tools/runs/Description.h"

#include <gtest/gtest.h>

#include <string>

namespace Tarnex::Test {

namespace {

using Report::Description;
using Report::DescriptionOf;
using Report::RunRequest;

constexpr const char* kSigned = "vaultry 9.8.7: ";

// With a cell of that many letters.
RunRequest Named(std::size_t letters) {
    RunRequest request;
    request.cell = std::string(letters, 'a');
    request.stamp = 1;
    request.describe = true;
    return request;
}

TEST(DescriptionTest, TheHeaderHoldsTheLine) {
    const Description description = DescriptionOf(Named(4), 7);
    const std::string line =
        "vaultry generate --seed 7 --cell aaaa --size Medium --stamp 1 --describe";
    EXPECT_TRUE(description.header.starts_with("vaultry "));
    EXPECT_TRUE(description.header.ends_with(": " + line));
    EXPECT_EQ(description.beside, "");
    EXPECT_EQ(Report::CommandIn(description.header), line);
    EXPECT_FALSE(Report::StandsBeside(description.header));
}

TEST(DescriptionTest, WhatIsLongerThanADescriptionMayBeGoesBesideIt) {
    const std::size_t spare = 255 - DescriptionOf(Named(1), 7).header.size();
    const Description longest = DescriptionOf(Named(1 + spare), 7);
    EXPECT_EQ(longest.header.size(), 255U);
    EXPECT_EQ(longest.beside, "");
    const Description longer = DescriptionOf(Named(2 + spare), 7);
    EXPECT_TRUE(Report::StandsBeside(longer.header));
    EXPECT_LE(longer.header.size(), 255U);
    EXPECT_EQ(Report::CommandIn(longer.header), "");
    EXPECT_EQ(Report::CommandIn(longer.beside), Report::GenerateCommandLine(Named(2 + spare), 7));
    EXPECT_EQ(Report::PathBeside("a/keep.esp"), "a/keep.esp.txt");
}

TEST(DescriptionTest, LettersThatTheGameLacksGoBesideToo) {
    RunRequest request = Named(4);
    request.config = "Höhle.xml";
    EXPECT_EQ(DescriptionOf(request, 7).beside, "");
    request.config = "Žižkov \xE2\x98\x83.xml";
    const std::string line = Report::GenerateCommandLine(request, 7);
    EXPECT_EQ(Report::CommandIn(DescriptionOf(request, 7).beside), line);
}

TEST(DescriptionTest, OnlyALineThatVaultryUnderstandsIsPassedOn) {
    for (const std::string line : {"vaultry generate --seed 7; rm -rf .",
                                   "vaultry generate --seed 7 $(reboot)",
                                   "vaultry generate --seed 7 --nonsense",
                                   "vaultry generate --seed x",
                                   "vaultry generate --cell a",
                                   "vaultry generate --seed 7\nrm keep",
                                   ""}) {
        EXPECT_EQ(Report::CommandIn(kSigned + line), "") << line;
    }
    EXPECT_EQ(Report::CommandIn("Auto-generated mod"), "");
    EXPECT_EQ(Report::CommandIn("vaultry generate --seed 7"), "");
    // Whatever is quoted is quoted anew.
    EXPECT_EQ(
        Report::CommandIn("vaultry 9.0: vaultry generate --seed 7 '--cell' 'a&b' --size large"),
        "vaultry generate --seed 7 --cell \"a&b\" --size Large");
}

TEST(DescriptionTest, WhatNotEveryShellReadsAlikeIsKeptBack) {
    for (const std::string word :
         {"'!&calc&'", "'%PATH%'", "'$(calc)'", "'a\"&calc&\"'", "$'a\\012calc'"}) {
        const std::string description = kSigned + ("vaultry generate --seed 7 --cell " + word);
        EXPECT_EQ(Report::CommandIn(description), "") << word;
        EXPECT_TRUE(Report::IsKeptBack(description)) << word;
    }
    for (const char* line : {"vaultry generate --seed 7 --cell @Home", "ls", ""}) {
        EXPECT_FALSE(Report::IsKeptBack(kSigned + std::string(line))) << line;
    }
    EXPECT_FALSE(Report::IsKeptBack("Auto-generated mod"));
}

} // namespace

} // namespace Tarnex::Test
