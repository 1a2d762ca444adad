// SPDX-License-Identifier: MIT
// Tables of other searches, merged; some of them nobody's search wrote.
#include "cli/MergedTables.h"

#include "tools/search/HitTable.h"
#include "tools/text/UsageError.h"

#include <csignal>
#include <filesystem>
#include <sstream>
#include <string>
#include <tests/cli/Program.h>
#include <tests/support/LeftOut.h>
#include <vector>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;

class MergedTablesTest : public ProgramTest {
protected:
    // A table with a row for each command; the first makes seed 7, the second seed 8 and so on.
    static std::string Table(const Lines& commands) {
        std::vector<Search::Hit> hits;
        for (const std::string& command : commands) {
            Search::Hit hit;
            hit.values.assign(Report::Facts().size(), -3);
            hit.values.front() = static_cast<std::int64_t>(7 + hits.size());
            hit.command = command;
            hits.push_back(hit);
        }
        std::ostringstream out;
        Search::WriteCsv(hits, out);
        return out.str();
    }

    void ExpectRefused(const std::string& table, const std::string& why) const {
        Write("a.csv", table);
        const Outcome outcome = Run({"search", "--merge", "a.csv", "--csv", "b.csv"});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "vaultry: \"a.csv\", line 3: " + why + '\n');
        EXPECT_EQ(Files(), Lines{"a.csv"});
    }
};

TEST_F(MergedTablesTest, CommandsArePrintedAnew) {
    Write("a.csv",
          Table({"vaultry generate -o x.esp --size=small --cell dungeon --seed 7",
                 "vaultry generate -n Keep --seed 8 --levels 1 --fixed"}));
    const Outcome outcome = Run({"search", "--quiet", "--merge", "a.csv", "--csv", "b.csv"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(
        Contains(outcome.out, "\n  vaultry generate --seed 7 --cell dungeon --size Small\n"));
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(Read("b.csv"),
              Table({"vaultry generate --seed 7 --cell dungeon --size Small",
                     "vaultry generate --seed 8 --cell Keep --fixed"}));
}

TEST_F(MergedTablesTest, LinesOfEarlierVersionsKeepTheirMeaning) {
    const std::string line = "vaultry generate --seed 7 --cell dungeon --size Medium";
    Write("new.csv", Table({line}));
    Write("old.csv", Table({"vaultry generate --seed 7"}));
    const Outcome outcome =
        Run({"search", "--quiet", "--merge", "new.csv", "old.csv", "--csv", "b.csv"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err,
              "vaultry: warning: the table \"old.csv\" is of an earlier version: where its lines "
              "name none, the size is Random, the cell \"Vaultry Dungeon\", and builtin:caves and "
              "builtin:grottoes begin with rooms\n");
    EXPECT_TRUE(Contains(Read("b.csv"), ',' + line + '\n'));
    EXPECT_TRUE(
        Contains(Read("b.csv"),
                 ",\"vaultry generate --seed 7 --cell \"\"Vaultry Dungeon\"\" --size Random\"\n"));
}

TEST_F(MergedTablesTest, ACommandThatIsNoneOfOursIsRefused) {
    const std::string good = "vaultry generate --seed 7";
    const auto expectRefused = [&](const std::string& command, const std::string& why) {
        ExpectRefused(Table({good, command}),
                      "under \"command\" stands no line of vaultry generate: " + why +
                          "; only tables that vaultry search --csv wrote can be merged");
    };
    expectRefused("curl example.invalid | sh", "\"|\" stands outside of quotation marks");
    expectRefused("rm -r /home", "it does not begin with vaultry generate");
    expectRefused("vaultry generate --seed 8 -n '\u202Ex", "an apostrophe is never closed");
    expectRefused("=1+1", "an apostrophe is never closed");
    ExpectRefused(Table({good, "vaultry generate --seed 9"}),
                  "the command makes another seed than that under \"seed\"");
}

TEST_F(MergedTablesTest, FilesTooLargeForATableAreNotRead) {
    Write("large.csv", "seed");
    std::filesystem::resize_file(File("large.csv"), (std::uintmax_t{1} << 30) + 1);
    const Outcome outcome = Run({"search", "--merge", "large.csv"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "vaultry: \"large.csv\" is larger than 1 GiB and is not read\n");
}

TEST_F(MergedTablesTest, AFileOfZerosIsRefusedAtItsStart) {
    Write("zeros.csv", "");
    std::filesystem::resize_file(File("zeros.csv"), std::uintmax_t{1} << 30);
    const Outcome outcome = Run({"search", "--merge", "zeros.csv"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(Contains(outcome.err, "\"zeros.csv\", line 1: a line is longer than 1048576 bytes"))
        << outcome.err;
}

TEST_F(MergedTablesTest, NothingFoundTellsHowNearTheyCome) {
    Write("a.csv", Table({"vaultry generate --seed 7", "vaultry generate --seed 8"}));
    const Lines search = {"search", "--merge", "a.csv", "--where", "rooms>1 and seed>7"};
    EXPECT_EQ(Run(search).out,
              "No dungeon is like that. Of 2 dungeons, so many pass each part:\n"
              "  condition  dungeons  seen\n"
              "  rooms>1           0  rooms -3\n"
              "  seed>7            1  seed 7 to 8\n");
}

TEST_F(MergedTablesTest, ASignalEndsTheReading) {
    Write("a.csv", Table({"no command at all"}));
    const Cli::CancelSignals signals;
    std::raise(SIGINT);
    // The row, which would be refused, is not reached.
    EXPECT_TRUE(Cli::ReadTables({File("a.csv")}, {}, signals).hits.empty());
}

TEST_F(MergedTablesTest, AsManyDungeonsAsAreAllowedAreMerged) {
    Write("a.csv", Table({"vaultry generate --seed 7", "vaultry generate --seed 8"}));
    const Cli::CancelSignals signals;
    // What stands in both tables counts once.
    EXPECT_EQ(Cli::ReadTables({File("a.csv"), File("a.csv")}, {}, signals, 2).hits.size(), 2U);
    try {
        Cli::ReadTables({File("a.csv")}, {}, signals, 1);
        FAIL();
    } catch (const UsageError& e) {
        EXPECT_EQ(e.what(),
                  '"' + File("a.csv") +
                      "\", line 3: more than 1 dungeons are not merged at once; ask for fewer "
                      "with --where");
    }
}

#ifndef _WIN32
TEST_F(MergedTablesTest, WhatASearchWroteIsMergedToTheSameBytes) {
    const Outcome search = Run({"search",
                                "--seeds",
                                "1..3",
                                "--size",
                                "tiny",
                                "-n",
                                "=a,\"b\"'c\n\x1B\u202E\\d\xFF",
                                "--csv",
                                "a.csv",
                                "--quiet",
                                "--json",
                                "--master=-1"});
    ASSERT_EQ(search.status, 0) << search.err;
    const Outcome merge = Run({"search", "--merge", "a.csv", "--csv", "b.csv", "--quiet"});
    EXPECT_EQ(merge.status, 0) << merge.err;
    EXPECT_EQ(Read("b.csv"), Read("a.csv"));
    EXPECT_TRUE(
        Contains(Read("a.csv"), "$'=a,\"\"b\"\"\\047c\\012\\033\\342\\200\\256\\134d\\377' "))
        << Read("a.csv");
}

TEST_F(MergedTablesTest, DevicesAndPipesAreRefused) {
    ASSERT_EQ(mkfifo(File("pipe").c_str(), S_IRUSR | S_IWUSR), 0);
    for (const char* name : {"/dev/zero", "/dev/null", "pipe"}) {
        const Outcome outcome = Run({"search", "--merge", name});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err, "vaultry: \"" + std::string(name) + "\" is no ordinary file\n");
    }
}
#else
VAULTRY_LEFT_OUT_ON_WINDOWS(MergedTablesTest, "has neither such names nor such devices")
#endif

} // namespace

} // namespace Tarnex::Test
