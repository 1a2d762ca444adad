// SPDX-License-Identifier: MIT
// The way in from the world, from the command line to the bytes.
#include <vaultry/output/PluginReader.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <string>
#include <tests/cli/Program.h>
#include <vector>

namespace Tarnex::Test {

namespace {

class EntranceTest : public ProgramTest {
protected:
    // A dungeon with an entrance, written to "keep.esp".
    Outcome Enter(const std::vector<std::string>& options) {
        std::vector<std::string> words = {
            "generate", "--seed", "3", "--stamp", "5", "-o", "keep.esp"};
        words.insert(words.end(), options.begin(), options.end());
        return Run(words);
    }

    // The head of a cell, from its name up to what follows.
    static std::string HeadAt(const std::string& bytes, std::size_t start) {
        const std::size_t end = std::min(bytes.find("FRMR", start), bytes.find("LAND", start));
        return bytes.substr(start, end - start);
    }
};

TEST_F(EntranceTest, ThePlaceTheLandAndTheCellAreThoseOfTheGame) {
    Run({"stage", "stage", "-c", "builtin:grottoes"});
    const Outcome outcome =
        Enter({"--entrance", "1000,500,,90", "--game", "stage", "--cell", "Keep"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(Contains(outcome.err,
                         "vaultry: or walk in; to stand before the door: player->position 1128 500 "
                         "1055 90\n"))
        << outcome.err;
    const std::string bytes = Read("keep.esp");
    const PluginFile file = ReadPlugin(bytes);
    ASSERT_EQ(file.exteriors.size(), 1U);
    const PluginCell& outside = file.exteriors[0];
    EXPECT_EQ(outside.name, "The Stage");
    EXPECT_EQ(outside.region, "stage_region");
    // The slope climbs by 8 on 128 to the north; the door's middle is 80 above it.
    ASSERT_EQ(outside.refs.size(), 1U);
    EXPECT_EQ(outside.refs[0].place.position.z, 1024.0F + 31.25F + 80.0F);
    EXPECT_EQ(outside.refs[0].destination->cell, "Keep");
    // What the game says of the cell is said again, byte for byte.
    const std::string name("NAME\x0A\0\0\0The Stage\0", 18);
    const std::string master = Read("stage/Morrowind.esm");
    EXPECT_EQ(HeadAt(bytes, bytes.find(name)), HeadAt(master, master.find(name)));
    EXPECT_EQ(HeadAt(bytes, bytes.find(name)).size(), 18U + 20U + 21U);
    EXPECT_EQ(Run({"inspect", "keep.esp"}).status, 0);
}

TEST_F(EntranceTest, WithoutTheGameARegionAndAHeightDo) {
    const Outcome outcome =
        Enter({"--entrance", "-5,-9000,300", "--entrance-region", "West Gash", "--json"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    const nlohmann::json json = nlohmann::json::parse(outcome.out);
    EXPECT_EQ(json.at("entrance").at("outside").at("console"), "player->position -5 -8872 300 0");
    EXPECT_EQ(json.at("entrance").at("inside").at("cell"), "keep");
    EXPECT_EQ(json.at("options").at("entrance"), "-5,-9000,300");
    const PluginFile file = ReadPlugin(Read("keep.esp"));
    ASSERT_EQ(file.exteriors.size(), 1U);
    EXPECT_EQ(file.exteriors[0].column, -1);
    EXPECT_EQ(file.exteriors[0].row, -2);
    EXPECT_EQ(file.exteriors[0].flags, 2U);
    EXPECT_TRUE(nlohmann::json::parse(Run({"generate", "--seed", "3", "--json"}).out)
                    .at("entrance")
                    .is_null());
}

TEST_F(EntranceTest, TheLineThatRepeatsHasThePlace) {
    Enter(
        {"--entrance", "-5,-9000,300", "--entrance-region", "West Gash", "--describe", "--quiet"});
    const std::string line = Run({"inspect", "keep.esp"}).out;
    EXPECT_TRUE(Contains(line, "--entrance=-5,-9000,300 --entrance-region \"West Gash\"")) << line;
}

TEST_F(EntranceTest, AnInteriorOfTheGameIsFoundInAnyCase) {
    // A plug-in with an interior will do for a file of the game.
    std::filesystem::create_directory(File("game"));
    Run({"generate",
         "--seed",
         "9",
         "--stamp",
         "5",
         "-o",
         "game/Tavern.esm",
         "--cell",
         "Old Tavern",
         "--quiet"});
    const Outcome outcome = Enter(
        {"--entrance", "256,-256,-96,180", "--entrance-cell", "old TAVERN", "--game", "game"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(Contains(outcome.err, "player->positioncell 256 -384 -96 180 \"Old Tavern\"\n"))
        << outcome.err;
    const PluginFile file = ReadPlugin(Read("keep.esp"));
    ASSERT_EQ(file.cells.size(), 2U);
    EXPECT_EQ(file.cells[0].name, "keep");
    const PluginCell& tavern = file.cells[1];
    EXPECT_EQ(tavern.name, "Old Tavern");
    EXPECT_EQ(tavern.ambient, ReadPlugin(Read("game/Tavern.esm")).cells.at(0).ambient);
    ASSERT_EQ(tavern.refs.size(), 1U);
    EXPECT_EQ(tavern.refs[0].destination->cell, "keep");
    const auto back = std::ranges::find_if(file.cells[0].refs, [](const PluginRef& ref) {
        return ref.destination && ref.destination->cell == "Old Tavern";
    });
    EXPECT_NE(back, file.cells[0].refs.end());
    EXPECT_EQ(Run({"inspect", "keep.esp"}).status, 0);
}

TEST_F(EntranceTest, WhatIsMissingIsSaidWithWhatHelps) {
    const std::string start = "Error : Run : There is no place for the entrance:  ";
    const auto fault = [&](std::vector<std::string> options) {
        const Outcome outcome = Enter(options);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.err.substr(0, start.size()), start);
        return outcome.err.substr(start.size(), outcome.err.find('\n') - start.size());
    };
    Run({"stage", "stage", "-c", "builtin:grottoes"});
    EXPECT_EQ(fault({"--entrance", "0,0", "--game", "nowhere"}),
              "--game: \"nowhere\" is no folder.");
    EXPECT_EQ(fault({"--entrance", "90000,0,5", "--game", "stage"}),
              "no file of the game has a cell (10, 0) of the world.");
    EXPECT_EQ(fault({"--entrance", "0,0,5", "--entrance-cell", "Nowhere", "--game", "stage"}),
              "no file of the game has an interior \"Nowhere\".");
    EXPECT_EQ(fault({"--entrance", "0,0", "--entrance-cell", "Nowhere", "--game", "stage"}),
              "an interior has no land: give the height of its floor, --entrance X,Y,Z.");
    EXPECT_EQ(fault({"--entrance", "0,0", "--entrance-region", "West Gash"}),
              "without the game's files a place needs its height, --entrance X,Y,Z.");
    std::filesystem::create_directory(File("broken"));
    Write("broken/Morrowind.esm", "TES3");
    const std::string broken = fault({"--entrance", "0,0,5", "--game", "broken"});
    EXPECT_TRUE(
        Contains(broken, "Morrowind.esm\": it ends in the middle of a record; look whether"))
        << broken;
    EXPECT_EQ(Read("keep.esp"), "");
}

#ifndef _WIN32

TEST_F(EntranceTest, WithoutAFolderTheGameIsThatOfTheEngine) {
    Run({"stage", "stage", "-c", "builtin:grottoes"});
    const std::string set = "mkdir -p openmw && export XDG_CONFIG_HOME=\"$PWD\"";
    const std::vector<std::string> words = {
        "generate", "--seed", "3", "--stamp", "5", "-o", "keep.esp", "--entrance", "0,0"};
    EXPECT_TRUE(Contains(RunAfter(set, words).err, "no openmw.cfg names files of the game"));
    const std::string listed =
        set + " && printf 'data=\"%s\"\\ncontent=morrowind.ESM\\n' \"$PWD/stage\" > "
              "openmw/openmw.cfg";
    EXPECT_EQ(RunAfter(listed, words).status, 0);
    EXPECT_EQ(ReadPlugin(Read("keep.esp")).exteriors.at(0).name, "The Stage");
}

#endif

TEST_F(EntranceTest, ADungeonWithoutAWallForADoorHasNoEntrance) {
    const Outcome outcome =
        Generate({"-o", "keep.esp", "--entrance", "0,0,0", "--entrance-region", "West Gash"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(Contains(outcome.err,
                         "Error : Generator : No wall of 'keep' is free for a door that leads out; "
                         "try another seed or tile set.\n"))
        << outcome.err;
    EXPECT_EQ(ReadPlugin(Read("keep.esp")).exteriorCells, 0U);
}

TEST_F(EntranceTest, ADungeonIsNoInteriorOfTheGame) {
    EXPECT_TRUE(Contains(
        Enter({"--cell", "keep", "--entrance", "0,0,0", "--entrance-cell", "KEEP"}).err,
        "the dungeon has the name of the interior that it is entered from; give it another"));
}

TEST_F(EntranceTest, OptionsWithoutEffectAreWarnedOf) {
    EXPECT_TRUE(Contains(Enter({"--entrance-region", "West Gash"}).err,
                         "warning: --entrance-region has no effect without --entrance"));
    EXPECT_TRUE(Contains(Enter({"--game", "nowhere"}).err,
                         "warning: --game has no effect without --entrance"));
}

TEST_F(EntranceTest, MapsTellOfTheDoorThatLeadsOut) {
    Enter(
        {"--entrance", "0,0,0", "--entrance-region", "West Gash", "--map", "keep.svg", "--quiet"});
    EXPECT_TRUE(Contains(Read("keep.svg"), "→ outside"));
    EXPECT_TRUE(Contains(Read("keep.svg"), ">door to the outside</text>"));
    EXPECT_TRUE(Contains(Run({"map", "keep.esp"}).out, "» leads to the outside\n"));
}

} // namespace

} // namespace Tarnex::Test
