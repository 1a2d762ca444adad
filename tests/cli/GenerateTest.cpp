// SPDX-License-Identifier: MIT
// What `vaultry generate` makes, and what it says about it.
#include <nlohmann/json.hpp>

#include <string>
#include <tests/cli/Program.h>
#include <tests/support/LeftOut.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Json = nlohmann::json;
using Lines = std::vector<std::string>;
using GenerateTest = ProgramTest;

TEST_F(GenerateTest, WritesDungeonEspWithOneCellByDefault) {
    const Outcome outcome = Generate({});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(Files(), Lines{"dungeon.esp"});
    const std::string plugin = Read("dungeon.esp");
    EXPECT_EQ(plugin.substr(0, 4), "TES3");
    EXPECT_TRUE(Contains(plugin, std::string("NAME\x08\0\0\0dungeon", 15)));
    EXPECT_TRUE(outcome.out.empty());
}

// Cells of one name are one to the game.
TEST_F(GenerateTest, NamesTheCellAfterTheFile) {
    const Outcome outcome = Generate({"-o", "Old keep.esp", "--json"});
    EXPECT_EQ(Json::parse(outcome.out)["cells"][0]["name"], "Old keep");
    EXPECT_EQ(Json::parse(outcome.out)["warnings"], Json::array());
    EXPECT_TRUE(
        Contains(Generate({"-o", "P\u0159\u00ED.esp"}).err,
                 "the cell is called \"P_\u00ED\": the file's name is too long for a cell, or "
                 "has letters that cells cannot have; --cell gives it another name\n"));
}

TEST_F(GenerateTest, TellsOfFilesThatTheGameDoesNotList) {
    const std::string line = "\"keep.txt\" ends in none of .esp, .esm, .omwaddon, so that the game "
                             "does not list it\n";
    EXPECT_TRUE(Contains(Generate({"-o", "keep.txt"}).err, line));
    for (const char* name : {"keep.ESP", "keep.esm", "keep.omwaddon"}) {
        EXPECT_FALSE(Contains(Generate({"-o", name}).err, "ends in")) << name;
    }
}

TEST_F(GenerateTest, TellsOfOptionsWithoutEffect) {
    const Outcome outcome =
        Run({"generate", "--template", "cloister", "--theme", "Noble hall", "--random-theme"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(Contains(outcome.err, "warning: --template has no effect without --fixed\n"));
    EXPECT_TRUE(Contains(outcome.err, "warning: --theme has no effect beside --random-theme\n"));
    EXPECT_FALSE(Contains(Run({"generate", "--size", "medium"}).err, "no effect"));
    for (const auto& [arguments, why] : std::vector<std::pair<Lines, std::string>>{
             {{"--fixed", "--platforms"}, "--platforms has no effect without a --cave-tileset"},
             {{"--look", "dark"}, "--look has no effect without --map or --html"},
             {{"--scale", "2", "--html", "a.html"}, "--scale has no effect without a --map that"},
             {{"--keep-going", "--strict"}, "--keep-going has no effect beside --strict"},
             {{"--preset", "grotto", "--size", "large"}, "--size has no effect beside --fixed"},
             {{"--fixed", "--levels", "3"}, "--levels has no effect beside --fixed"}}) {
        Lines all = {"generate"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        EXPECT_TRUE(Contains(Run(all).err, "warning: " + why)) << why;
    }
    EXPECT_FALSE(Contains(Run({"generate", "-c", "builtin:caves", "--fixed", "--platforms"}).err,
                          "no effect"));
}

TEST_F(GenerateTest, TrapsWantASpellOfOnesOwn) {
    const std::string line = "warning: --trap has no effect: no spell is known to be in every game";
    EXPECT_TRUE(Contains(Run({"generate", "--size", "tiny", "--trap", "50"}).err, line));
    Write("ids.csv", "role,id,source\ntrap,a_trap,mine\n");
    const Outcome outcome =
        Run({"generate", "--size", "tiny", "--trap", "50", "--ids", "ids.csv", "--quiet"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(Contains(Read("dungeon.esp"), std::string("TNAM\x07\0\0\0a_trap", 15)));
}

TEST_F(GenerateTest, ATableOfIdsThatCannotBeUsedIsAWrongArgument) {
    Write("ids.csv", "role,id,source\ntarp,a_trap,mine\n");
    for (const char* verb : {"generate", "map"}) {
        const Outcome outcome = Run({verb, "--ids", "ids.csv", "--lock", "10"});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err,
                  "vaultry: the ids \"ids.csv\", line 2: \"tarp\" is no role; there are trap, "
                  "key-model, key-icon, outside-door\n");
    }
    EXPECT_EQ(Run({"generate", "--ids", "none.csv"}).err,
              "vaultry: the ids \"none.csv\" do not exist; --ids names a file\n");
    EXPECT_EQ(Run({"generate", "--ids", "ids.csv", "-o", "ids.csv"}).err,
              "vaultry: \"ids.csv\" is named for two files\n");
    EXPECT_EQ(Files(), Lines{"ids.csv"});
}

TEST_F(GenerateTest, TheCavesBeginWithACave) {
    const Json random = Json::parse(Run({"generate", "-c", "builtin:caves", "--json"}).out);
    EXPECT_EQ(random["options"]["cave-tileset"], "Mold cave tunnels");
    EXPECT_TRUE(random["options"]["cave-template"].is_null());
    const Json fixed =
        Json::parse(Run({"generate", "-c", "builtin:grottoes", "--fixed", "--json"}).out);
    EXPECT_EQ(fixed["options"]["cave-template"], "Smugglers' Grotto");
    const Json rooms =
        Json::parse(Run({"generate", "-c", "builtin:caves", "--tileset", "velothi", "--json"}).out);
    EXPECT_EQ(rooms["options"]["tileset"], "Velothi");
    EXPECT_TRUE(rooms["options"]["cave-tileset"].is_null());
}

TEST_F(GenerateTest, TakesTheNamesOfFileAndCell) {
    const Outcome outcome = Generate({"-o", "keep.esp", "-n", "The Old Keep"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(Files(), Lines{"keep.esp"});
    EXPECT_TRUE(Contains(Read("keep.esp"), "The Old Keep"));
}

TEST_F(GenerateTest, WritesCellNamesInTheCodePageOfTheGame) {
    EXPECT_EQ(Generate({"-n", "Gruft der Mäuse €"}).status, 0);
    EXPECT_TRUE(Contains(Read("dungeon.esp"), "Gruft der M\xE4use \x80"));
}

TEST_F(GenerateTest, FindsNamesBeyondAscii) {
    EXPECT_EQ(Generate({"--tileset", "Höhle"}).status, 0);
    EXPECT_TRUE(Contains(Read("dungeon.esp"), "h_center"));
}

TEST_F(GenerateTest, BuildsWithTheNamedTileSetAndLayout) {
    EXPECT_EQ(Generate({"--tileset", "Stone", "--template", "Spot"}).status, 0);
    EXPECT_TRUE(Contains(Read("dungeon.esp"), "s_center"));
    EXPECT_FALSE(Contains(Read("dungeon.esp"), "s_wall"));
}

TEST_F(GenerateTest, BuildsWithTheNamedCaveTileSetAndLayout) {
    EXPECT_EQ(Generate({"--cave-tileset", "Cavern", "--cave-template", "Den"}).status, 0);
    EXPECT_TRUE(Contains(Read("dungeon.esp"), "c_center"));
}

TEST_F(GenerateTest, MixesARoomTileSetWithACaveLayout) {
    EXPECT_EQ(Generate({"--tileset", "Stone", "--cave-template", "Den"}).status, 0);
    EXPECT_TRUE(Contains(Read("dungeon.esp"), "s_center"));
}

TEST_F(GenerateTest, PlatformsOnARoomTileSetAreNoMistake) {
    EXPECT_EQ(Generate({"--platforms"}).status, 0);
}

TEST_F(GenerateTest, ThemesDecideTheContent) {
    EXPECT_EQ(Generate({"--theme", "Bare", "-o", "bare.esp"}).status, 0);
    EXPECT_EQ(Generate({"--theme", "Storeroom", "-o", "full.esp"}).status, 0);
    EXPECT_FALSE(Contains(Read("bare.esp"), "chest.nif"));
    EXPECT_TRUE(Contains(Read("full.esp"), "chest.nif"));
}

TEST_F(GenerateTest, NamesTheMasterFileAndItsSize) {
    EXPECT_EQ(Generate({"--master", "Other.esm", "--master-size", "258"}).status, 0);
    const std::string plugin = Read("dungeon.esp");
    EXPECT_TRUE(Contains(plugin, std::string("Other.esm\0", 10)));
    EXPECT_TRUE(Contains(plugin, std::string("DATA\x08\0\0\0\x02\x01\0\0\0\0\0\0", 16)));
}

TEST_F(GenerateTest, SizeAloneKeepsTheMasterFileOfTheGame) {
    EXPECT_EQ(Generate({"--master-size", "77"}).status, 0);
    const std::string plugin = Read("dungeon.esp");
    EXPECT_TRUE(Contains(plugin, "Morrowind.esm"));
    EXPECT_TRUE(Contains(plugin, std::string("DATA\x08\0\0\0M\0\0\0\0\0\0\0", 16)));
}

TEST_F(GenerateTest, SameSeedAndStampGiveTheSameBytes) {
    EXPECT_EQ(Generate({"--seed", "7", "--stamp", "5", "-n", "A", "-o", "a.esp"}).status, 0);
    EXPECT_EQ(Generate({"--seed", "7", "--stamp", "5", "-n", "A", "-o", "b.esp"}).status, 0);
    EXPECT_TRUE(Contains(Read("a.esp"), "Ctr5_1"));
    EXPECT_TRUE(Read("a.esp") == Read("b.esp"));
}

TEST_F(GenerateTest, ClosingLineNamesSeedAndStamp) {
    const Outcome outcome = Generate(
        {"--seed", "4294967295", "--stamp", "12", "--theme", "Bare", "--template", "Spot"});
    const std::string line = outcome.ErrLines().at(1);
    EXPECT_TRUE(Contains(line, "1 cell, 2 references, 0 containers"));
    EXPECT_TRUE(line.ends_with("seed 4294967295, stamp 12"));
}

TEST_F(GenerateTest, ClosingLineLeavesOutAStampThatWasNotGiven) {
    const Outcome outcome = Generate({"--seed", "3"});
    EXPECT_TRUE(Contains(outcome.err, "seed 3"));
    EXPECT_FALSE(Contains(outcome.err, "stamp"));
}

TEST_F(GenerateTest, SeedOfTheClosingLineRepeatsTheRun) {
    const Outcome first = Generate({"--stamp", "1", "-n", "A", "-o", "a.esp"});
    const std::size_t place = first.err.rfind("seed ");
    ASSERT_NE(place, std::string::npos);
    const std::string seed = first.err.substr(place + 5, first.err.find(',', place) - place - 5);
    EXPECT_EQ(Generate({"--stamp", "1", "--seed", seed, "-n", "A", "-o", "b.esp"}).status, 0);
    EXPECT_TRUE(Read("a.esp") == Read("b.esp"));
}

TEST_F(GenerateTest, QuietSaysNothingOfSuccess) {
    const Outcome outcome = Generate({"--quiet"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out, "");
}

TEST_F(GenerateTest, QuietStillListsErrors) {
    const Outcome outcome = Run({"generate", "-c", faultyConfig, "--fixed", "--quiet"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.ErrLines(), Lines{kFaultyLine});
}

TEST_F(GenerateTest, ListsErrorLinesAndStillWrites) {
    const Outcome outcome = Run({"generate", "-c", faultyConfig, "--fixed"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(Files(), Lines{"dungeon.esp"});
    ASSERT_EQ(outcome.ErrLines().size(), 6U);
    EXPECT_EQ(outcome.ErrLines()[0], kFaultyLine);
}

TEST_F(GenerateTest, StrictWritesNothingAfterAnError) {
    const Outcome outcome = Run({"generate", "-c", faultyConfig, "--fixed", "--strict"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(Files(), Lines{});
    ASSERT_EQ(outcome.ErrLines().size(), 3U);
    EXPECT_EQ(outcome.ErrLines()[0], kFaultyLine);
    EXPECT_TRUE(Contains(outcome.ErrLines()[2], "because of 1 error"));
}

TEST_F(GenerateTest, StrictCountsWhatGoesWrongWhileWriting) {
    Write("long.xml",
          "<OstrelData><TileSet TsName=\"A\" TsType=\"Room\"><WallN>w</WallN></TileSet>"
          "<Layout LayoutName=\"L\" Type=\"Room\" Width=\"1\" Height=\"1\">"
          "<Row><Col>WallN</Col></Row></Layout>"
          "<Container UniqueName=\"chest\" Weight=\"100\"/>"
          "<Treasure UniqueName=\"an_identifier_longer_than_31_bytes\" Type=\"Gold\"/>"
          "<Theme Name=\"T\"><ThemeItem Type=\"Container\" UniqueName=\"chest\"/></Theme>"
          "<TreasureTheme Name=\"G\"><ThemeItem Type=\"Gold\"/></TreasureTheme></OstrelData>");
    const Outcome outcome = Run({"generate", "-c", "long.xml", "--fixed", "--strict"});
    EXPECT_EQ(outcome.status, 1) << outcome.err;
    EXPECT_EQ(Files(), Lines{"long.xml"});
    EXPECT_TRUE(Contains(outcome.err, "Error : XmlOut : "));
}

TEST_F(GenerateTest, StrictWritesWhenThereIsNoError) {
    EXPECT_EQ(Generate({"--strict"}).status, 0);
    EXPECT_EQ(Files(), Lines{"dungeon.esp"});
}

TEST_F(GenerateTest, ErrorLinesAreUtf8) {
    Write("umlaut.xml",
          "<OstrelData><TileSet TsName=\"H\xC3\xB6hle\" TsType=\"Room\">"
          "<Center>c</Center><Center>c</Center></TileSet></OstrelData>");
    const Outcome outcome = Run({"generate", "-c", "umlaut.xml", "--fixed"});
    EXPECT_TRUE(Contains(outcome.err, "'H\xC3\xB6hle.'"));
}

TEST_F(GenerateTest, NothingGeneratedIsAFailure) {
    Write("empty.xml", "<OstrelData/>");
    const Outcome outcome = Run({"generate", "-c", "empty.xml", "--fixed", "--seed", "9"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(Files(), Lines{"empty.xml"});
    EXPECT_EQ(outcome.ErrLines(),
              (Lines{"Error : GenMgr : Unable to generate:  No default tile set.",
                     "vaultry: nothing was generated; seed 9"}));
}

TEST_F(GenerateTest, LeavesNoLogBehindUnlessAsked) {
    EXPECT_EQ(Run({"generate", "-c", faultyConfig, "--fixed"}).status, 0);
    EXPECT_EQ(Files(), Lines{"dungeon.esp"});
}

TEST_F(GenerateTest, LogHoldsTheLibrarysLinesOnly) {
    EXPECT_EQ(Run({"generate", "-c", faultyConfig, "--fixed", "--log", "run.log"}).status, 0);
    EXPECT_EQ(Files(), (Lines{"dungeon.esp", "run.log"}));
    EXPECT_EQ(Read("run.log"),
              std::string(kFaultyLine) + "\nInfo : GenMgr : Finished parsing XML config file.\n");
}

TEST_F(GenerateTest, LogReplacesAnOlderOne) {
    Write("run.log", "an older run\n");
    EXPECT_EQ(Generate({"--log", "run.log"}).status, 0);
    EXPECT_EQ(Read("run.log"), "Info : GenMgr : Finished parsing XML config file.\n");
}

TEST_F(GenerateTest, ShowsNoProgressWhenNobodyLooks) {
    EXPECT_FALSE(Contains(Generate({}).err, "\r"));
}

TEST_F(GenerateTest, JsonReportsTheRun) {
    const Outcome outcome = Generate({"--json",
                                      "--seed",
                                      "11",
                                      "--stamp",
                                      "22",
                                      "-n",
                                      "Zelle ß",
                                      "--theme",
                                      "Bare",
                                      "--size",
                                      "MEDIUM"});
    EXPECT_EQ(outcome.status, 0);
    const Json json = Json::parse(outcome.out);
    EXPECT_EQ(json["schema"], 1);
    EXPECT_EQ(json["version"], VAULTRY_VERSION);
    EXPECT_EQ(json["result"], "written");
    EXPECT_EQ(json["seed"], 11);
    EXPECT_EQ(json["stamp"], 22);
    EXPECT_EQ(json["config"], smallConfig);
    EXPECT_EQ(json["options"]["theme"], "Bare");
    EXPECT_EQ(json["options"]["size"], "Medium");
    EXPECT_EQ(json["options"]["fixed"], true);
    EXPECT_TRUE(json["options"]["tileset"].is_null());
    ASSERT_EQ(json["files"].size(), 1U);
    EXPECT_EQ(json["files"][0]["path"], "dungeon.esp");
    EXPECT_EQ(json["files"][0]["bytes"], Read("dungeon.esp").size());
    ASSERT_EQ(json["cells"].size(), 1U);
    EXPECT_EQ(json["cells"][0]["name"], "Zelle ß");
    EXPECT_EQ(json["cells"][0]["references"]["marker"], 1);
    EXPECT_EQ(json["cells"][0]["references"]["tile"], 9);
    EXPECT_EQ(json["cells"][0]["references"]["container"], 0);
    EXPECT_EQ(json["cells"][0]["teleports"], 0);
    EXPECT_EQ(json["containers"], (Json{{"count", 0}, {"entries", 0}}));
    EXPECT_EQ(json["errors"], Json::array());
    EXPECT_EQ(json["warnings"], Json::array({"--size has no effect beside --fixed"}));
}

TEST_F(GenerateTest, JsonCountsContainersAndTheirEntries) {
    const Json json = Json::parse(Generate({"--json"}).out);
    EXPECT_EQ(json["cells"][0]["references"]["container"], 1);
    EXPECT_EQ(json["containers"], (Json{{"count", 1}, {"entries", 1}}));
}

TEST_F(GenerateTest, JsonNamesSeedAndStampThatNobodyGave) {
    const Json first = Json::parse(Generate({"--json", "-n", "A", "-o", "a.esp"}).out);
    const std::string seed = std::to_string(first["seed"].get<std::uint32_t>());
    const std::string stamp = std::to_string(first["stamp"].get<std::int64_t>());
    EXPECT_EQ(Generate({"--seed", seed, "--stamp", stamp, "-n", "A", "-o", "b.esp"}).status, 0);
    EXPECT_TRUE(Read("a.esp") == Read("b.esp"));
}

TEST_F(GenerateTest, JsonKeepsErrorsAndWarningsApart) {
    const Outcome outcome =
        Run({"generate", "-c", faultyConfig, "--fixed", "--json", "-n", "Склеп"});
    const Json json = Json::parse(outcome.out);
    EXPECT_EQ(json["errors"], (Json{kFaultyLine}));
    ASSERT_EQ(json["warnings"].size(), 1U);
    EXPECT_TRUE(Contains(json["warnings"][0].get<std::string>(), "?????"));
}

TEST_F(GenerateTest, JsonOfAFailedRunNamesNoFile) {
    const Outcome outcome = Run({"generate", "-c", faultyConfig, "--fixed", "--strict", "--json"});
    EXPECT_EQ(outcome.status, 1);
    const Json json = Json::parse(outcome.out);
    EXPECT_EQ(json["result"], "strict");
    EXPECT_EQ(json["files"], Json::array());
}

#ifndef _WIN32
TEST_F(GenerateTest, JsonIsUtf8WhateverTheArgumentsAre) {
    const Outcome outcome = Generate({"--json", "--quiet", "-o", "b\xFF.esp"});
    EXPECT_EQ(outcome.status, 0);
    const Json json = Json::parse(outcome.out, nullptr, false);
    ASSERT_FALSE(json.is_discarded());
    EXPECT_EQ(json["files"][0]["path"], "b\xEF\xBF\xBD.esp");
}
#else
VAULTRY_LEFT_OUT_ON_WINDOWS(GenerateTest, "gives an argument that is no Unicode text")
#endif

TEST_F(GenerateTest, WarnsOfLettersThatTheGameLacks) {
    const Outcome outcome = Generate({"-n", "Gruft Ω"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(Contains(outcome.ErrLines().at(0), "vaultry: warning: "));
    EXPECT_TRUE(Contains(outcome.ErrLines().at(0), "\"Gruft ?\""));
    EXPECT_TRUE(Contains(Read("dungeon.esp"), "Gruft ?"));
}

TEST_F(GenerateTest, WarnsOfACellNameThatIsTooLongForTheGame) {
    const Outcome outcome = Generate({"-n", std::string(64, 'x')});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(Contains(outcome.ErrLines().at(0), "vaultry: warning: "));
    EXPECT_TRUE(Contains(outcome.ErrLines().at(0), "64 bytes"));
}

TEST_F(GenerateTest, TakesTheLongestCellNameWithoutAWarning) {
    std::string name;
    for (int i = 0; i < 63; ++i) {
        name += "ä";
    }
    EXPECT_EQ(Generate({"--quiet", "-n", name}).err, "");
}

TEST_F(GenerateTest, WarnsOfAMasterFileNameThatTheGameCannotSpell) {
    const Outcome outcome = Generate({"--quiet", "--master", "Ж.esm"});
    EXPECT_EQ(outcome.status, 0);
    ASSERT_EQ(outcome.ErrLines().size(), 1U);
    EXPECT_TRUE(Contains(outcome.err, "master file"));
}

} // namespace

} // namespace Tarnex::Test
