// SPDX-License-Identifier: MIT
// `vaultry search`: what it finds, lists and writes.
#include "cli/SearchReport.h"
#include "tools/facts/DungeonFacts.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <tests/cli/Program.h>
#include <tests/support/LeftOut.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Json = nlohmann::json;
using Lines = std::vector<std::string>;

Lines LinesOf(const std::string& text) {
    std::istringstream stream(text);
    Lines lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

class SearchTest : public ProgramTest {
protected:
    Outcome Search(const std::string& seeds, const Lines& more = {}) const {
        Lines arguments = {"search", "--seeds", seeds, "--size", "small"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }

    void ExpectMistake(const Lines& arguments, const std::string& part) const {
        Lines all = {"search"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        const Outcome outcome = Run(all);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.ErrLines().size(), 1U) << outcome.err;
        EXPECT_TRUE(Contains(outcome.err, part)) << outcome.err;
        EXPECT_TRUE(Files().empty());
    }
};

TEST_F(SearchTest, ListsTheBestAndHowToMakeTheFirst) {
    const Outcome outcome =
        Search("1..60", {"--where", "rooms>=3 and walkable", "--sort", "treasure", "--top", "4"});
    EXPECT_EQ(outcome.status, 0);
    const Lines lines = LinesOf(outcome.out);
    ASSERT_EQ(lines.size(), 8U) << outcome.out;
    EXPECT_EQ(lines[0],
              "seed  treasure  rooms  walkable  halls  loops  dead-ends  creatures  containers");
    EXPECT_EQ(lines[6], "The first is made by");
    std::istringstream first(lines[1]);
    std::string seed;
    first >> seed;
    EXPECT_EQ(lines[7], "  vaultry generate --seed " + seed + " --cell dungeon --size Small");
    EXPECT_TRUE(Contains(outcome.err, "vaultry: found ")) << outcome.err;
    EXPECT_TRUE(Contains(outcome.err, " in 60 seeds, ")) << outcome.err;
    EXPECT_TRUE(Files().empty());
}

TEST_F(SearchTest, JsonHasEveryFactOfEveryHit) {
    const Outcome outcome = Search("1..9", {"--json", "--sort", "rooms:asc"});
    const Json report = Json::parse(outcome.out);
    EXPECT_EQ(report["result"], "complete");
    EXPECT_EQ(report["found"], 9);
    EXPECT_EQ(report["seeds"]["next"], 10);
    ASSERT_EQ(report["hits"].size(), 9U);
    std::int64_t rooms = 0;
    for (const Json& hit : report["hits"]) {
        for (const Report::Fact& fact : Report::Facts()) {
            EXPECT_TRUE(hit.contains(fact.name)) << fact.name;
        }
        EXPECT_GE(hit["rooms"], rooms);
        rooms = hit["rooms"];
    }
    EXPECT_TRUE(report["lost"].empty());
}

#ifndef _WIN32
// What is told of a seed holds for the plug-in that its command line makes.
TEST_F(SearchTest, TheCommandMakesWhatWasFound) {
    const Lines options = {"--creature-theme",
                           "Undead",
                           "--random-tileset",
                           "--levels",
                           "2",
                           "--cell",
                           "The Mage's \"Keep\"",
                           "--stamp",
                           "7"};
    Lines search = options;
    search.insert(search.end(), {"--json", "--sort", "references", "--top", "1"});
    const Json hit = Json::parse(Search("100..130", search).out)["hits"][0];
    const std::string command = hit["command"];
    EXPECT_TRUE(Contains(command, " --cell 'The Mage'\\''s \"Keep\"' ")) << command;
    // The shell takes the line apart as it would a user's.
    const std::string words = command.substr(command.find(' '));
    const Outcome made =
        RunAfter("'" VAULTRY_PROGRAM "'" + words + " --json --out a.esp > a.json", {"--version"});
    EXPECT_EQ(made.status, 0);
    const Json report = Json::parse(Read("a.json"));
    EXPECT_EQ(report["files"][0]["bytes"], hit["bytes"]);
    EXPECT_EQ(report["walkable"].get<bool>() ? 1 : 0, hit["walkable"]);
    EXPECT_EQ(report["containers"]["count"], hit["containers"]);
    std::int64_t references = 0;
    std::int64_t rooms = 0;
    for (const Json& cell : report["cells"]) {
        for (const Json& count : cell["references"]) {
            references += count.get<std::int64_t>();
        }
    }
    for (const Json& level : report["levels"]) {
        rooms += level["rooms"].get<std::int64_t>();
    }
    EXPECT_EQ(references, hit["references"]);
    EXPECT_EQ(rooms, hit["rooms"]);
}
#else
VAULTRY_LEFT_OUT_ON_WINDOWS(SearchTest, "hands the command line to a POSIX shell")
#endif

TEST_F(SearchTest, ASeedIsJudgedTheSameWhateverCameBefore) {
    const Lines random = {"--random-tileset", "--random-theme", "--random-creature-theme"};
    Lines all = random;
    all.insert(all.end(), {"--jobs", "1", "--csv", "all.csv"});
    Lines one = random;
    one.insert(one.end(), {"--csv", "one.csv"});
    EXPECT_EQ(Search("1..40", all).status, 0);
    EXPECT_EQ(Search("40", one).status, 0);
    EXPECT_EQ(LinesOf(Read("all.csv")).back(), LinesOf(Read("one.csv")).back());
}

TEST_F(SearchTest, TheNumberOfJobsChangesNothing) {
    for (const char* jobs : {"1", "2", "5"}) {
        const std::string file = std::string("jobs-") + jobs + ".csv";
        const Outcome outcome =
            Search("0..150", {"--jobs", jobs, "--csv", file, "--sort", "loops", "--top", "30"});
        EXPECT_EQ(outcome.status, 0);
    }
    EXPECT_EQ(LinesOf(Read("jobs-1.csv")).size(), 31U);
    EXPECT_EQ(Read("jobs-1.csv"), Read("jobs-2.csv"));
    EXPECT_EQ(Read("jobs-1.csv"), Read("jobs-5.csv"));
}

TEST_F(SearchTest, SearchesFixedInteriors) {
    const Outcome outcome = Run({"search", "--fixed", "--seeds", "1..5", "--json"});
    const Json report = Json::parse(outcome.out);
    EXPECT_EQ(report["found"], 5);
    EXPECT_EQ(report["hits"][0]["rooms"], 4);
    EXPECT_EQ(report["hits"][0]["walkable"], 1);
    EXPECT_EQ(report["hits"][0]["openings"], 1);
}

TEST_F(SearchTest, NothingFoundIsNoFailure) {
    const Outcome outcome = Search("1..5", {"--where", "rooms>1000", "--csv", "none.csv"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(Contains(outcome.err, "found 0 in 5 seeds"));
    EXPECT_EQ(LinesOf(Read("none.csv")).size(), 1U);
}

TEST_F(SearchTest, NothingFoundTellsWhatWasSeen) {
    const Lines words = {"--where", "rooms>1000 and rooms", "--quiet"};
    const Outcome outcome = Search("1..5", words);
    EXPECT_EQ(outcome.out.find("No dungeon is like that. Of 5 seeds, so many pass each part:\n"),
              0U)
        << outcome.out;
    EXPECT_TRUE(Contains(outcome.out, "\n  rooms>1000      0  rooms ")) << outcome.out;
    EXPECT_TRUE(Contains(outcome.out, "\n  rooms           5  rooms ")) << outcome.out;
    Lines asJson = words;
    asJson.emplace_back("--json");
    const Json parts = Json::parse(Search("1..5", asJson).out)["parts"];
    ASSERT_EQ(parts.size(), 2U);
    EXPECT_EQ(parts[1]["where"], "rooms");
    EXPECT_EQ(parts[1]["seeds"], 5);
    EXPECT_LE(parts[1]["facts"]["rooms"]["least"], parts[1]["facts"]["rooms"]["most"]);
    EXPECT_TRUE(Json::parse(Search("1..5", {"--json"}).out)["parts"].empty());
}

TEST_F(SearchTest, QuietSaysNothing) {
    EXPECT_EQ(Search("1..5", {"--quiet"}).err, "");
}

TEST_F(SearchTest, DrawsAMapOfEveryHit) {
    Write("seed-9.svg", "another folder's");
    const Outcome outcome =
        Search("3..9", {"--thumbnails", "new/maps", "--sort", "rooms", "--top", "2", "--json"});
    EXPECT_EQ(outcome.status, 0);
    const Json report = Json::parse(outcome.out);
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(File("new/maps"))) {
        count += entry.path().extension() == ".svg" ? 1U : 0U;
    }
    EXPECT_EQ(count, 2U);
    for (const Json& hit : report["hits"]) {
        const std::string seed = std::to_string(hit["seed"].get<int>());
        const std::string map = Read("new/maps/seed-" + seed + ".svg");
        EXPECT_TRUE(Contains(map, "</svg>"));
        EXPECT_TRUE(Contains(map, seed));
    }
    EXPECT_EQ(Read("seed-9.svg"), "another folder's");
}

TEST_F(SearchTest, ReplacesMapsThatAreThere) {
    std::filesystem::create_directory(File("maps"));
    Write("maps/seed-3.svg", "old");
    EXPECT_EQ(Search("3", {"--thumbnails", "maps"}).status, 0);
    EXPECT_TRUE(Contains(Read("maps/seed-3.svg"), "</svg>"));
    EXPECT_EQ(Files(), Lines{"maps"});
}

TEST_F(SearchTest, ErrorsOfTheConfigurationAreSaidOnce) {
    const Outcome outcome =
        Run({"search", "--seeds", "1..9", "-c", faultyConfig, "--fixed", "--jobs", "3"});
    EXPECT_EQ(outcome.status, 0);
    const Lines lines = outcome.ErrLines();
    EXPECT_EQ(std::ranges::count(lines, std::string(kFaultyLine)), 1);
}

#ifndef _WIN32
// What a pipe holds can be read once, and every thread needs it.
TEST_F(SearchTest, SearchesTheConfigurationOfAPipe) {
    const Lines asked = {"--seeds", "1..40", "--fixed", "--jobs", "3", "--csv"};
    Lines words = {"search", "-c", smallConfig};
    words.insert(words.end(), asked.begin(), asked.end());
    words.push_back("file.csv");
    EXPECT_EQ(Run(words).status, 0);
    words[2] = "/dev/stdin";
    words.back() = "pipe.csv";
    std::string line = "cat '" + smallConfig + "' | '" VAULTRY_PROGRAM "'";
    for (const std::string& word : words) {
        line += ' ' + word;
    }
    EXPECT_EQ(RunAfter(line, {"--version"}).status, 0);
    EXPECT_EQ(LinesOf(Read("pipe.csv")).size(), 41U);
    std::string table = Read("file.csv");
    for (std::size_t at = 0; (at = table.find(smallConfig, at)) != std::string::npos;) {
        table.replace(at, std::string(smallConfig).size(), "/dev/stdin");
    }
    EXPECT_EQ(Read("pipe.csv"), table);
}
#endif

TEST_F(SearchTest, AConfigurationThatMakesNothingEndsTheSearch) {
    Write("empty.xml", "<OstrelData/>");
    const Outcome outcome = Run({"search", "--seeds", "1..1000000", "-c", File("empty.xml")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(
        Contains(outcome.err, " could not be judged: Error : GenMgr : Unable to generate:"));
    EXPECT_TRUE(Contains(outcome.err, "given up, as too many seeds could not be judged"));
}

TEST_F(SearchTest, ATableInPlaceOfTheConfigurationIsRefused) {
    const Outcome outcome =
        Run({"search", "--seeds", "1", "-c", smallConfig, "--csv", smallConfig});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(Contains(outcome.err, "is named for two files"));
}

TEST_F(SearchTest, MistakesAreToldBeforeAnythingIsDone) {
    ExpectMistake({}, "search needs --sample N or --seeds A..B, or --merge");
    ExpectMistake({"--seeds", "5..3"}, "--seeds: \"5..3\" runs backwards");
    ExpectMistake({"--seeds", "1..4294967296"}, "is no range of seeds such as 1..1000");
    ExpectMistake({"--seeds", "1", "--where", "romms>3"}, "did you mean \"rooms\"?");
    ExpectMistake({"--seeds", "1", "--sort", "lops"}, "did you mean \"loops\"?");
    ExpectMistake({"--seeds", "1", "--top", "0"}, "--top: \"0\" is not a whole number from 1");
    ExpectMistake({"--seeds", "1", "--jobs", "1025"}, "from 1 to 1024");
    EXPECT_EQ(Search("1", {"--top", "1", "--jobs", "1024"}).status, 0);
    ExpectMistake({"--seeds", "1", "--ensure-walkable"}, "--ensure-walkable");
    ExpectMistake({"--seeds", "1", "--tileset", "Velothy"}, "did you mean \"Velothi\"");
    ExpectMistake({"--seeds", "1", "--csv", "no/such.csv"}, "its folder does not exist");
    ExpectMistake({"--seeds", "1", "--thumbnails", "/dev/null/maps"}, "cannot be made");
    ExpectMistake({"--seeds", "1", "--merge", "a.csv"}, "--seeds excludes --merge");
    ExpectMistake({"--merge", "a.csv"}, "\"a.csv\" does not exist");
    ExpectMistake({"--merge", "."}, "\".\" is a folder");
    ExpectMistake({"--merge", "a.csv", "--thumbnails", "maps"}, "--thumbnails is for a search");
}

TEST_F(SearchTest, HelpNamesEveryFact) {
    const Outcome outcome = Run({"search", "--help"});
    EXPECT_EQ(outcome.status, 0);
    for (const Report::Fact& fact : Report::Facts()) {
        EXPECT_TRUE(Contains(outcome.out, "  " + std::string(fact.name) + "  ")) << fact.name;
    }
}

TEST_F(SearchTest, TablesOfPartsMergeIntoTheTableOfTheWhole) {
    const Lines asked = {"--where", "walkable", "--sort", "treasure,rooms:asc", "--top", "20"};
    const auto search = [&](const char* seeds, const char* file) {
        Lines arguments = asked;
        arguments.insert(arguments.end(), {"--csv", file});
        EXPECT_EQ(Search(seeds, arguments).status, 0);
    };
    search("1..90", "whole.csv");
    search("1..30", "a.csv");
    search("25..60", "b.csv"); // overlaps
    search("61..90", "c.csv");
    Lines merge = {"search", "--merge", "b.csv", "c.csv", "a.csv", "--csv", "merged.csv"};
    merge.insert(merge.end(), asked.begin(), asked.end());
    const Outcome outcome = Run(merge);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(Read("merged.csv"), Read("whole.csv"));
    EXPECT_TRUE(Contains(outcome.out, "The first is made by\n  vaultry generate --seed "));
}

TEST_F(SearchTest, ADamagedTableLeavesTheOldOne) {
    EXPECT_EQ(Search("1..5", {"--csv", "a.csv"}).status, 0);
    const std::string whole = Read("a.csv");
    Write("cut.csv", whole.substr(0, whole.size() - 5));
    Write("merged.csv", "old");
    const Outcome outcome = Run({"search", "--merge", "a.csv", "cut.csv", "--csv", "merged.csv"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(Contains(outcome.err, "\"cut.csv\", line 6: the last line is cut off"));
    EXPECT_EQ(Read("merged.csv"), "old");
}

TEST(SearchReportTest, DurationsAreShort) {
    EXPECT_EQ(Cli::Duration(0), "0 s");
    EXPECT_EQ(Cli::Duration(2.55), "2.5 s");
    EXPECT_EQ(Cli::Duration(119.4), "119 s");
    EXPECT_EQ(Cli::Duration(150), "3 min");
    EXPECT_EQ(Cli::Duration(7261), "2 h 1 min");
}

TEST(SearchReportTest, OnlySeedsThatWereJudgedPassOrNot) {
    Cli::SearchReport report;
    report.range = Search::SeedRange{1, 9};
    report.outcome = {Search::SearchEnd::Stopped, 5, 6};
    report.lost = {{2, "no memory"}};
    report.parts = Search::Shortfall(Search::Condition("rooms")).Parts();
    std::ostringstream out;
    Cli::PrintHits(report, out);
    EXPECT_TRUE(Contains(out.str(), "No dungeon so far is like that. Of 4 seeds, so many pass"));
}

TEST(SearchReportTest, FactsAskedForAreListedFirst) {
    const auto fact = [](const char* name) { return Report::FindFact(name).value(); };
    const std::vector<std::size_t> columns =
        Cli::ListedFacts({fact("bytes"), fact("loops"), fact("seed"), fact("bytes")});
    EXPECT_EQ(columns.at(0), fact("seed"));
    EXPECT_EQ(columns.at(1), fact("bytes"));
    EXPECT_EQ(columns.at(2), fact("loops"));
    EXPECT_EQ(columns.at(3), fact("rooms"));
}

TEST_F(SearchTest, ASampleTakesSeedsFromAllOver) {
    const Lines common = {"--size", "tiny", "--csv", "found.csv"};
    Lines whole = {"search", "--sample", "4"};
    whole.insert(whole.end(), common.begin(), common.end());
    ASSERT_EQ(Run(whole).status, 0);
    Lines seeds;
    for (const std::string& line : LinesOf(Read("found.csv"))) {
        seeds.push_back(line.substr(0, line.find(',')));
    }
    // The multiples of 2654435769 modulo 2^32, by seed.
    EXPECT_EQ(seeds, (Lines{"seed", "1013904242", "2027808484", "2654435769", "3668340011"}));
    const Json report =
        Json::parse(Run({"search", "--sample", "2..3", "--size", "tiny", "--json"}).out);
    EXPECT_EQ(report.at("hits").size(), 2U);
    EXPECT_EQ(report.at("sample").at("first"), 2);
    EXPECT_EQ(report.at("sample").at("next"), 4);
    EXPECT_FALSE(report.contains("seeds"));
}

TEST_F(SearchTest, ASampleGoesWithNoOtherChoiceOfSeeds) {
    ExpectMistake({"--sample", "4", "--seeds", "1..2"}, "--sample");
    ExpectMistake({"--sample", "0"}, "--sample: \"0\"");
    ExpectMistake({}, "needs --sample N or --seeds A..B");
}

TEST_F(SearchTest, NothingAmongNeighboursPointsToASample) {
    const Lines never = {"--where", "rooms>1000"};
    EXPECT_TRUE(Contains(Search("1..3", never).err, "--sample"));
    EXPECT_FALSE(Contains(Search("3", never).err, "--sample"));
    EXPECT_FALSE(
        Contains(Run({"search", "--sample", "3", "--size", "tiny", "--where", "rooms>1000"}).err,
                 "--sample"));
}

} // namespace

} // namespace Tarnex::Test
