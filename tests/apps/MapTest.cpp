// SPDX-License-Identifier: MIT
// `vaultry map` and the maps that `vaultry generate` writes.
#include <string>
#include <tests/apps/Program.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;
using MapTest = ProgramTest;

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST_F(MapTest, PrintsEveryLevelAndWritesNothing) {
    const Outcome outcome = Run({"map", "--seed", "7", "--levels", "2", "--size", "small"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(Contains(outcome.out, "Vaultry Dungeon, Level 1 ("));
    EXPECT_TRUE(Contains(outcome.out, "Vaultry Dungeon, Level 2 ("));
    EXPECT_TRUE(Contains(outcome.out, "» leads to Vaultry Dungeon, Level 2\n"));
    EXPECT_TRUE(Contains(outcome.out, "\nseed 7\n"));
    EXPECT_TRUE(Files().empty());
}

TEST_F(MapTest, PrintsAFixedInterior) {
    const Outcome outcome = Run({"map", "--fixed", "--seed", "7"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(Contains(outcome.out, "Vaultry Dungeon ("));
    EXPECT_TRUE(Contains(outcome.out, "┏"));
}

TEST_F(MapTest, IsPlainWhenNotOnATerminal) {
    EXPECT_FALSE(Contains(Run({"map", "--seed", "7"}).out, "\x1B"));
    EXPECT_FALSE(Contains(RunAfter("export NO_COLOR=1", {"map", "--seed", "7"}).out, "\x1B"));
}

TEST_F(MapTest, GenerateWritesTheMapBesideThePlugIn) {
    EXPECT_EQ(Generate({"--map", "map.svg"}).status, 0);
    EXPECT_EQ(Files(), (Lines{"dungeon.esp", "map.svg"}));
    EXPECT_TRUE(Contains(Read("map.svg"), "</svg>"));
    EXPECT_TRUE(Contains(Read("map.svg"), "--fixed</text>"));
}

TEST_F(MapTest, TheMapChangesNothingInThePlugIn) {
    const Lines same = {"--seed", "7", "--stamp", "1"};
    Lines with = same;
    with.insert(with.end(), {"-o", "with.esp", "--map", "map.svg"});
    Lines without = same;
    without.insert(without.end(), {"-o", "without.esp"});
    EXPECT_EQ(Generate(with).status, 0);
    EXPECT_EQ(Generate(without).status, 0);
    EXPECT_EQ(Read("with.esp"), Read("without.esp"));
}

TEST_F(MapTest, RefusesAMapInPlaceOfThePlugIn) {
    const Outcome outcome = Generate({"-o", "a.svg", "--map", "a.svg"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(Contains(outcome.err, "\"a.svg\" is named for two files"));
    EXPECT_TRUE(Files().empty());
}

TEST_F(MapTest, RefusesOtherKindsOfPicture) {
    const Outcome outcome = Generate({"--map", "map.gif"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(Contains(outcome.err, "--map: \"map.gif\" ends neither in .svg nor in .png"));
    EXPECT_TRUE(Files().empty());
}

TEST_F(MapTest, ARunThatFailsLeavesNoMap) {
    EXPECT_EQ(
        Run({"generate", "-c", faultyConfig, "--fixed", "--strict", "--map", "map.svg"}).status, 1);
    EXPECT_TRUE(Files().empty());
}

} // namespace

} // namespace Tarnex::Test
