// SPDX-License-Identifier: MIT
// What `vaultry generate` says about random levels, and how it finds walkable ones.
#include "cli/LevelLines.h"

#include <tests/cli/Program.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

using Json = nlohmann::json;
using Lines = std::vector<std::string>;

class WalkableTest : public ProgramTest {
protected:
    /// Two tight levels of tunnels whose first floor plans cannot be joined with this seed.
    Lines GivenUp(const Lines& more = {}) const {
        Lines arguments = {"generate",
                           "-c",
                           "builtin:caves",
                           "--cave-tileset",
                           "Mold cave tunnels",
                           "--size",
                           "large",
                           "--spacing",
                           "tight",
                           "--levels",
                           "3",
                           "--stamp",
                           "1",
                           "--seed",
                           "128"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }
};

int Count(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

TEST_F(WalkableTest, EachLevelHasALine) {
    const Outcome outcome =
        Run({"generate", "--seed", "3", "--levels", "2", "--size", "tiny", "--spacing", "tight"});
    EXPECT_EQ(outcome.status, 0);
    const Lines lines = outcome.ErrLines();
    ASSERT_EQ(lines.size(), 6U);
    EXPECT_TRUE(lines[0].starts_with("vaultry: level 1: 4 of 4 rooms can be reached, "));
    EXPECT_TRUE(lines[1].starts_with("vaultry: level 2: 4 of 4 rooms can be reached, "));
    EXPECT_TRUE(Contains(lines[2], "; seed 3"));
}

TEST_F(WalkableTest, QuietSaysNothingOfWalkableLevels) {
    const Outcome outcome = Run({"generate", "--quiet", "--seed", "3", "--size", "tiny"});
    EXPECT_EQ(outcome.err, "");
}

TEST_F(WalkableTest, ALevelThatWasGivenUpIsExplained) {
    const Outcome outcome = Run(GivenUp());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(Contains(outcome.err, "warning: level 1 was given up after 3 floor plans: of "));
    EXPECT_TRUE(Contains(outcome.err, "rooms these could not be joined: column "));
    EXPECT_TRUE(Contains(outcome.err, "looser --spacing or a smaller --size"));
    EXPECT_FALSE(Contains(outcome.err, "level 1: "));
    EXPECT_TRUE(Contains(outcome.err, "level 2: "));
}

TEST_F(WalkableTest, JsonTellsOfEveryLevel) {
    const Outcome outcome = Run(GivenUp({"--json"}));
    const Json report = Json::parse(outcome.out);
    EXPECT_EQ(report["walkable"], false);
    ASSERT_EQ(report["levels"].size(), 3U);
    EXPECT_EQ(report["levels"][0]["made"], false);
    EXPECT_EQ(report["levels"][0]["floor-plans"], 3);
    EXPECT_GE(report["levels"][0]["failed-halls"].size(), 2U);
    EXPECT_EQ(report["levels"][1]["made"], true);
    EXPECT_EQ(report["levels"][1]["name"], "dungeon, Level 2");
    EXPECT_EQ(report["levels"][1]["walkable"], true);
    EXPECT_EQ(report["levels"][2]["linked-to-level-before"], true);
}

TEST_F(WalkableTest, EnsureWalkableFindsASeedThatRepeatsByItself) {
    const Outcome found =
        Run(GivenUp({"--ensure-walkable", "-n", "Keep", "-o", "found.esp", "--json"}));
    EXPECT_EQ(found.status, 0);
    const Json report = Json::parse(found.out);
    EXPECT_EQ(report["walkable"], true);
    EXPECT_GT(report["tries"], 1);
    const std::uint32_t tries = report["tries"];
    const std::uint32_t seed = report["seed"];
    EXPECT_EQ(seed, 128U + (tries - 1U) * 2654435769U);
    EXPECT_TRUE(Contains(found.err, "; seed " + std::to_string(seed)));

    Lines again = GivenUp({"-n", "Keep", "-o", "again.esp"});
    *std::ranges::find(again, "128") = std::to_string(seed);
    EXPECT_EQ(Run(again).status, 0);
    EXPECT_EQ(Read("again.esp"), Read("found.esp"));
}

TEST_F(WalkableTest, EnsureWalkableKeepsASeedThatIsWalkable) {
    const Lines arguments = {
        "generate", "--seed", "3", "--stamp", "1", "-n", "Keep", "--size", "tiny", "-o"};
    Lines plain = arguments;
    plain.push_back("plain.esp");
    Lines ensured = arguments;
    ensured.insert(ensured.end(), {"ensured.esp", "--ensure-walkable"});
    EXPECT_EQ(Run(plain).status, 0);
    EXPECT_EQ(Run(ensured).status, 0);
    EXPECT_EQ(Read("ensured.esp"), Read("plain.esp"));
}

// What an earlier try chose by chance is not left to the next.
TEST_F(WalkableTest, EnsureWalkableFindsRandomThemesThatRepeatByThemselves) {
    const Lines random = {"--random-theme", "--random-creature-theme", "--random-treasure-theme"};
    const auto with = [&random, this](const char* out, bool ensured) {
        Lines arguments = GivenUp({"-n", "Keep", "-o", out, "--json"});
        arguments.insert(arguments.end(), random.begin(), random.end());
        if (ensured) {
            arguments.emplace_back("--ensure-walkable");
        }
        return arguments;
    };
    const Json report = Json::parse(Run(with("found.esp", true)).out);
    EXPECT_GT(report["tries"], 1);
    const std::uint32_t seed = report["seed"];
    Lines again = with("again.esp", false);
    *std::ranges::find(again, "128") = std::to_string(seed);
    EXPECT_EQ(Run(again).status, 0);
    EXPECT_EQ(Read("again.esp"), Read("found.esp"));
}

TEST_F(WalkableTest, EnsureWalkableGivesUpAfterAThousandTries) {
    // Rooms without walls can never be joined.
    Write("closed.xml", R"(<OstrelData>
        <TileSet TsName="Bare" TsType="Room" TsSize="256"><Center>floor</Center></TileSet>
        <Layout LayoutName="Spot" Type="Room" Width="1" Height="1"/>
        </OstrelData>)");
    const Outcome outcome =
        Run({"generate", "-c", File("closed.xml"), "--ensure-walkable", "--log", "run.log"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(Files(), (Lines{"closed.xml", "run.log"}));
    EXPECT_EQ(Count(Read("run.log"), "Giving up.  Failed to connect rooms"), 1000);
    EXPECT_TRUE(Contains(outcome.err, "none of 1000 seeds made every room of every level"));
    EXPECT_TRUE(Contains(outcome.err, "the tile set \"Bare\" lacks \"HallNS\""));
}

TEST_F(WalkableTest, EnsureClosedFindsASeedThatRepeatsByItself) {
    const Lines open = {"generate",
                        "--seed",
                        "199",
                        "--stamp",
                        "1",
                        "--size",
                        "large",
                        "--spacing",
                        "tight",
                        "--json"};
    const auto with = [&open](Lines more) {
        more.insert(more.begin(), open.begin(), open.end());
        return more;
    };
    const Json plain = Json::parse(Run(with({"-o", "open.esp", "-n", "Keep"})).out);
    ASSERT_GT(plain["levels"][0]["openings-onto-nothing"], 0);
    const Outcome found = Run(with({"--ensure-closed", "-o", "found.esp", "-n", "Keep"}));
    EXPECT_EQ(found.status, 0);
    const Json report = Json::parse(found.out);
    EXPECT_EQ(report["levels"][0]["openings-onto-nothing"], 0);
    EXPECT_GT(report["tries"], 1);
    const std::uint32_t seed = report["seed"];
    Lines again = with({"-o", "again.esp", "-n", "Keep"});
    *std::ranges::find(again, "199") = std::to_string(seed);
    EXPECT_EQ(Run(again).status, 0);
    EXPECT_EQ(Read("again.esp"), Read("found.esp"));
    const Json closed = Json::parse(
        Run(with({"--close-openings", "--ensure-closed", "-o", "closed.esp", "-n", "Keep"})).out);
    EXPECT_EQ(closed["tries"], 1) << "closed where it was open";
}

TEST_F(WalkableTest, EnsureClosedGivesUpAfterAThousandTries) {
    // Junctions lay ends around them, which this set has no piece for.
    Write("open.xml", R"(<OstrelData>
        <TileSet TsName="Endless" TsType="Room" TsSize="256">
            <Center>a</Center><WallN>b</WallN><CornerNW>c</CornerNW><DoorwayN>d</DoorwayN>
            <HallNS>e</HallNS><HallCornerNW>f</HallCornerNW><Hall4Way>g</Hall4Way>
        </TileSet>
        <Layout LayoutName="Spot" Type="Room" Width="1" Height="1"/>
        </OstrelData>)");
    const Outcome outcome = Run({"generate",
                                 "-c",
                                 File("open.xml"),
                                 "--size",
                                 "large",
                                 "--spacing",
                                 "tight",
                                 "--levels",
                                 "2",
                                 "--seed",
                                 "1",
                                 "--ensure-closed",
                                 "--json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(Files(), Lines{"open.xml"});
    EXPECT_EQ(Json::parse(outcome.out)["result"], "unclosed");
    EXPECT_TRUE(Contains(outcome.err,
                         "none of 1000 seeds made a dungeon as wanted without an "
                         "opening onto nothing; try --close-openings"));
}

TEST_F(WalkableTest, EnsureClosedIsForRandomLevels) {
    const Outcome outcome = Run({"generate", "--fixed", "--ensure-closed"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(Contains(outcome.err, "--ensure-closed is for random levels"));
    EXPECT_TRUE(Files().empty());
}

TEST_F(WalkableTest, EnsureWalkableIsForRandomLevels) {
    const Outcome outcome = Run({"generate", "--fixed", "--ensure-walkable"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(Contains(outcome.err, "--ensure-walkable is for random levels"));
    EXPECT_TRUE(Files().empty());
}

LevelReport MadeLevel(std::uint32_t number, std::vector<RoomReport> rooms, std::uint32_t openEnds) {
    LevelReport level;
    level.number = number;
    level.made = true;
    level.rooms = std::move(rooms);
    level.openEnds = openEnds;
    return level;
}

TEST(LevelLinesTest, OneOpeningIsSingular) {
    GenReport report;
    report.levels = {MadeLevel(2, {{{}, {}, {}, true}}, 1)};
    EXPECT_EQ(Cli::LevelLines(report),
              Lines{"level 2: 1 of 1 room can be reached, 1 opening leads nowhere"});
}

TEST(LevelLinesTest, RoomsOutOfReachHaveTheirNumbersOnTheMap) {
    GenReport report;
    report.levels = {MadeLevel(
        1, {{{0, 0, 0}, {}, {}, true}, {{2, 1, 0}, {}, {}, false}, {{0, 3, 0}, {}, {}, false}}, 0)};
    EXPECT_EQ(Cli::LevelWarnings(report),
              Lines{"level 1: rooms 2, 3 of the map cannot be reached; try another --seed, or "
                    "--ensure-walkable"});
}

TEST(LevelLinesTest, LevelsWithoutADoorBetweenThemAreWarnedOf) {
    GenReport report;
    report.levels = {MadeLevel(1, {}, 0), MadeLevel(2, {}, 0)};
    EXPECT_EQ(Cli::LevelWarnings(report),
              Lines{"not every level has a door to the one before: a level has no wall for it, or "
                    "its tile set has no door"});
}

} // namespace

} // namespace Tarnex::Test
