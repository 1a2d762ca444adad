// SPDX-License-Identifier: MIT
// `vaultry map` and the maps that `vaultry generate` writes.
#include <nlohmann/json.hpp>

#include <string>
#include <tests/cli/Program.h>
#include <tests/support/LeftOut.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;
using MapTest = ProgramTest;

TEST_F(MapTest, PrintsEveryLevelAndWritesNothing) {
    const Outcome outcome = Run({"map", "--seed", "7", "--levels", "2", "--size", "small"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(Contains(outcome.out, "dungeon, Level 1 ("));
    EXPECT_TRUE(Contains(outcome.out, "dungeon, Level 2 ("));
    EXPECT_TRUE(Contains(outcome.out, "» leads to dungeon, Level 2\n"));
    EXPECT_TRUE(Contains(outcome.out, "\nseed 7\n"));
    EXPECT_TRUE(Files().empty());
}

TEST_F(MapTest, PrintsAFixedInterior) {
    const Outcome outcome = Run({"map", "--fixed", "--seed", "7"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(Contains(outcome.out, "dungeon ("));
    EXPECT_TRUE(Contains(outcome.out, "┏"));
}

TEST_F(MapTest, IsPlainWhenNotOnATerminal) {
    EXPECT_FALSE(Contains(Run({"map", "--seed", "7"}).out, "\x1B"));
}

TEST_F(MapTest, GenerateWritesTheMapBesideThePlugIn) {
    EXPECT_EQ(Generate({"--map", "map.svg"}).status, 0);
    EXPECT_EQ(Files(), (Lines{"dungeon.esp", "map.svg"}));
    EXPECT_TRUE(Contains(Read("map.svg"), "</svg>"));
    EXPECT_TRUE(Contains(Read("map.svg"), "--fixed</text>"));
}

TEST_F(MapTest, TheMapChangesNothingInThePlugIn) {
    const Lines same = {"--seed", "7", "--stamp", "1", "-n", "Keep"};
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

TEST_F(MapTest, MapWritesFilesInsteadOfTheTerminal) {
    const Outcome outcome =
        Run({"map", "--fixed", "--seed", "7", "--map", "a.SVG", "--html", "a.html"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(Files(), (Lines{"a.SVG", "a.html"}));
    EXPECT_TRUE(Contains(outcome.err, "vaultry: drew \"a.html\": "));
    EXPECT_TRUE(Contains(outcome.err, "vaultry: 2 maps drawn; seed 7\n"));
}

TEST_F(MapTest, QuietSaysNothingAndLogsWhereAsked) {
    const Outcome outcome =
        Run({"map", "--seed", "7", "--map", "a.svg", "--quiet", "--log", "map.log"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out + outcome.err, "");
    EXPECT_EQ(Files(), (Lines{"a.svg", "map.log"}));
    EXPECT_FALSE(Read("map.log").empty());
}

TEST_F(MapTest, JsonNamesEveryFile) {
    const Outcome drawn = Run({"map", "--seed", "7", "--map", "a.svg", "--json"});
    const auto map = nlohmann::json::parse(drawn.out);
    EXPECT_EQ(map.at("result"), "drawn");
    EXPECT_EQ(map.at("seed"), 7);
    ASSERT_EQ(map.at("files").size(), 1U);
    EXPECT_EQ(map.at("files")[0].at("path"), "a.svg");
    EXPECT_EQ(map.at("files")[0].at("bytes"), Read("a.svg").size());
    const Outcome made = Generate({"--map", "b.svg", "--html", "b.html", "--json"});
    const auto files = nlohmann::json::parse(made.out).at("files");
    ASSERT_EQ(files.size(), 3U);
    EXPECT_EQ(files[0].at("path"), "dungeon.esp");
    EXPECT_EQ(files[1].at("path"), "b.svg");
    EXPECT_EQ(files[2].at("path"), "b.html");
}

TEST_F(MapTest, DrawsThePlugInThatItWrote) {
    EXPECT_EQ(Run({"generate", "--seed", "7", "--levels", "2", "--size", "small"}).status, 0);
    const Outcome drawn = Run({"map", "dungeon.esp"});
    EXPECT_EQ(drawn.status, 0);
    EXPECT_TRUE(Contains(drawn.out, "dungeon, Level 2 (Imperial small, north is up"));
    EXPECT_TRUE(Contains(drawn.out, "» leads to dungeon, Level 1\n"));
    const auto json =
        nlohmann::json::parse(Run({"map", "dungeon.esp", "--json", "-n", "Dungeon, level 2"}).out);
    EXPECT_EQ(json.at("config"), "builtin:default");
    ASSERT_EQ(json.at("levels").size(), 1U);
    EXPECT_EQ(json.at("levels")[0].at("references-left-out"), 0);
}

TEST_F(MapTest, FindsTheConfigurationThatFitsAPlugIn) {
    EXPECT_EQ(Run({"generate",
                   "-c",
                   "builtin:grottoes",
                   "--fixed",
                   "--cave-tileset",
                   "Lava cave rooms",
                   "--cave-template",
                   "Sea Caves"})
                  .status,
              0);
    const Outcome drawn = Run({"map", "dungeon.esp", "--map", "a.svg"});
    EXPECT_EQ(drawn.status, 0);
    EXPECT_TRUE(Contains(Read("a.svg"), "configuration builtin:grottoes</text>"));
    EXPECT_TRUE(Contains(Read("a.svg"), "drawn from dungeon.esp</text>"));
    EXPECT_TRUE(Contains(Read("a.svg"), "Lava cave rooms, "));
}

TEST_F(MapTest, APlugInOfUnknownTilesIsDrawnAsMarks) {
    EXPECT_EQ(Generate({}).status, 0);
    const Outcome drawn = Run({"map", "dungeon.esp"});
    EXPECT_EQ(drawn.status, 0);
    EXPECT_TRUE(Contains(drawn.err, "knows no tile of the plug-in"));
    EXPECT_TRUE(Contains(Run({"map", "dungeon.esp", "-c", smallConfig}).out, "(Stone, north"));
}

TEST_F(MapTest, RefusesToDrawWhatIsNotThere) {
    EXPECT_EQ(Generate({}).status, 0);
    EXPECT_TRUE(Contains(Run({"map", "no.esp"}).err, "\"no.esp\" does not exist"));
    EXPECT_TRUE(Contains(Run({"map", "dungeon.esp", "--cell", "Attic"}).err,
                         "\"dungeon.esp\" has no interior cell \"Attic\""));
    EXPECT_TRUE(Contains(Run({"map", "dungeon.esp", "--seed", "7"}).err,
                         "--seed shapes what is generated and does not go with a plug-in"));
    const Outcome same = Run({"map", "dungeon.esp", "--html", "dungeon.esp"});
    EXPECT_EQ(same.status, 2);
    EXPECT_TRUE(Contains(same.err, "\"dungeon.esp\" is named for two files"));
}

TEST_F(MapTest, SaysThatAPlugInEndsTooEarly) {
    EXPECT_EQ(Generate({}).status, 0);
    const std::string whole = Read("dungeon.esp");
    Write("cut.esp", whole.substr(0, whole.size() - 10));
    EXPECT_TRUE(
        Contains(Run({"map", "cut.esp"}).err, "warning: \"cut.esp\" cannot be read to its end"));
}

TEST_F(MapTest, RefusesScalesAndLooksThatThereAreNot) {
    for (const char* scale : {"0", "0.09", "11", "nan", "2x", "-1", ""}) {
        const Outcome outcome = Run({"map", "--scale", scale});
        EXPECT_EQ(outcome.status, 2) << scale;
        EXPECT_TRUE(Contains(outcome.err, "is not a number from 0.1 to 10")) << outcome.err;
    }
    EXPECT_TRUE(Contains(Run({"map", "--look", "pink"}).err, "is none of Auto, Light, Dark"));
}

TEST_F(MapTest, TakesTheSmallestAndTheLargestScale) {
    for (const char* scale : {"0.1", "10"}) {
        EXPECT_EQ(Run({"map", "--seed", "7", "--scale", scale}).status, 0) << scale;
    }
}

// Of rooms of one cell without doorways no level can be joined.
TEST_F(MapTest, WithoutALevelNothingIsDrawn) {
    Write("closed.xml",
          "<OstrelData><TileSet TsName=\"A\" TsType=\"Room\" TsSize=\"256\">"
          "<Center>c</Center></TileSet><Layout LayoutName=\"One\" Type=\"Room\" Width=\"1\" "
          "Height=\"1\"><Row><Col>Center</Col></Row></Layout></OstrelData>");
    const Outcome outcome = Run({"map", "-c", "closed.xml", "--seed", "1", "--map", "a.svg"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Contains(outcome.err, "vaultry: nothing was generated; seed 1\n"));
    EXPECT_EQ(Files(), Lines{"closed.xml"});
    EXPECT_EQ(Run({"generate", "-c", "closed.xml", "--seed", "1", "--map", "a.svg"}).status, 0);
    EXPECT_TRUE(Contains(Read("a.svg"), "No level was made.</text>"));
}

TEST_F(MapTest, TheMarginRepeatsTheRun) {
    EXPECT_EQ(Run({"map", "--seed", "7", "--random-tileset", "--max-level", "9", "--map", "a.svg"})
                  .status,
              0);
    EXPECT_TRUE(Contains(Read("a.svg"), "--max-level 9 --size Medium --random-tileset</text>"));
}

TEST_F(MapTest, AnOldMapStaysWhenNothingIsGenerated) {
    Write("map.svg", "old");
    EXPECT_EQ(
        Run({"generate", "-c", faultyConfig, "--fixed", "--strict", "--map", "map.svg"}).status, 1);
    EXPECT_EQ(Read("map.svg"), "old");
}

#ifndef _WIN32
// What a program shows on a terminal of its own.
class MapTerminalTest : public MapTest {
protected:
    std::string OnTerminal(const std::string& preparation, const std::string& arguments) const {
        const Outcome shown = RunAfter(
            preparation + " && export SHELL=/bin/sh && script -qec \"'" VAULTRY_PROGRAM "' " +
                arguments + "\" /dev/null >shown.txt </dev/null",
            {"--version"});
        EXPECT_EQ(shown.status, 0);
        return Read("shown.txt");
    }

    // A carriage return that ends no line goes back over the progress.
    static bool HasProgress(const std::string& shown) {
        for (std::size_t at = shown.find('\r'); at != std::string::npos;
             at = shown.find('\r', at + 1)) {
            if (at + 1 < shown.size() && shown[at + 1] != '\n' && shown[at + 1] != '\r') {
                return true;
            }
        }
        return false;
    }
};

TEST_F(MapTerminalTest, MapsAreColouredUnlessRefused) {
    EXPECT_TRUE(Contains(OnTerminal("unset NO_COLOR", "map --seed 7"), "\x1B[36m"));
    EXPECT_TRUE(Contains(OnTerminal("export NO_COLOR=", "map --seed 7"), "\x1B[36m"));
    EXPECT_FALSE(Contains(OnTerminal("export NO_COLOR=1", "map --seed 7"), "\x1B"));
}

TEST_F(MapTerminalTest, ProgressIsShownUnlessQuiet) {
    EXPECT_TRUE(HasProgress(OnTerminal("cd .", "map --seed 7")));
    EXPECT_FALSE(HasProgress(OnTerminal("cd .", "map --seed 7 --quiet")));
}
#else
VAULTRY_LEFT_OUT_ON_WINDOWS(MapTerminalTest, "makes a terminal with script")
#endif

} // namespace

} // namespace Tarnex::Test
