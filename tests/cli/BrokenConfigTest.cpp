// SPDX-License-Identifier: MIT
// Configurations that cannot be read to their end.
#include <string>
#include <tests/cli/Program.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;

// Everything that a dungeon needs, and then a place where it breaks.
class BrokenConfigTest : public ProgramTest {
protected:
    void WriteBroken(const std::string& rest) const {
        const std::string whole = ReadFile(smallConfig);
        Write("my.xml", whole.substr(0, whole.rfind("</OstrelData>")) + rest);
    }

    // The last line that is said of a run with that end of the configuration.
    std::string SaidOf(const std::string& rest) const {
        WriteBroken(rest);
        const Outcome outcome = Run({"generate", "--fixed", "-c", "my.xml"});
        EXPECT_EQ(outcome.status, 2);
        return outcome.ErrLines().empty() ? "" : outcome.ErrLines().back();
    }
};

constexpr const char* kUnclosed = "<Theme Name=\"Last\">\n</OstrelData>";

TEST_F(BrokenConfigTest, NamesFileLineCauseAndCure) {
    EXPECT_EQ(
        SaidOf(kUnclosed),
        "vaultry: the configuration \"my.xml\" cannot be read beyond line 28: expected end of "
        "tag 'Theme' (probably </Theme> is missing before this place, or misspelt); "
        "\"vaultry check my.xml\" shows the place, --keep-going uses what stands before it");
}

TEST_F(BrokenConfigTest, IsUsedByNoVerbAndNothingIsWritten) {
    WriteBroken(kUnclosed);
    Write("dungeon.esp", "kept");
    for (const Lines& run : {Lines{"generate", "--fixed"},
                             Lines{"map", "--fixed", "--map", "map.svg"},
                             Lines{"search", "--seeds", "1..2", "--csv", "found.csv"},
                             Lines{"list"}}) {
        SCOPED_TRACE(run.front());
        Lines arguments = run;
        arguments.insert(arguments.end(), {"-c", "my.xml"});
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_TRUE(Contains(outcome.err, "cannot be read beyond line 28")) << outcome.err;
        EXPECT_EQ(Files(), (Lines{"dungeon.esp", "my.xml"}));
        EXPECT_EQ(Read("dungeon.esp"), "kept");
    }
}

TEST_F(BrokenConfigTest, IsUsedAsFarAsItGoesWhenAskedTo) {
    WriteBroken(kUnclosed);
    for (const Lines& run : {Lines{"generate", "--fixed"},
                             Lines{"map", "--fixed", "--map", "map.svg"},
                             Lines{"map", "dungeon.esp"},
                             Lines{"list"}}) {
        SCOPED_TRACE(run.front());
        Lines arguments = run;
        arguments.insert(arguments.end(), {"-c", "my.xml"});
        if (run == Lines{"map", "dungeon.esp"}) {
            EXPECT_EQ(Run(arguments).status, 2);
        }
        arguments.emplace_back("--keep-going");
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_TRUE(Contains(outcome.err, "Fatal Error parsing XML line 28")) << outcome.err;
    }
    EXPECT_EQ(Files(), (Lines{"dungeon.esp", "map.svg", "my.xml"}));
}

TEST_F(BrokenConfigTest, IsNotUsedByThoseWhoAreStrict) {
    WriteBroken(kUnclosed);
    const Outcome outcome =
        Run({"generate", "--fixed", "-c", "my.xml", "--keep-going", "--strict"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(Files(), Lines{"my.xml"});
}

TEST_F(BrokenConfigTest, FoundSeedsAreRepeatedInTheSameWay) {
    WriteBroken(kUnclosed);
    const Outcome outcome = Run({"search",
                                 "--fixed",
                                 "--seeds",
                                 "1..1",
                                 "-c",
                                 "my.xml",
                                 "--keep-going",
                                 "--csv",
                                 "found.csv"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(Contains(Read("found.csv"), "--config my.xml --keep-going")) << Read("found.csv");
}

TEST_F(BrokenConfigTest, TellsWhatIsProbablyMeant) {
    struct Row {
        const char* rest;
        const char* cause;
    };
    for (const Row& row :
         {Row{"<Theme Name=\"Last\">", "(probably </Theme> is missing, or the end of the file is)"},
          Row{"<Theme Name=\"Br\xFC\"/></OstrelData>", "save it as UTF-8, or write encoding="},
          Row{"<Theme Name=\"a & b\"/></OstrelData>", "is written &amp;)"},
          Row{"<Theme Name=a/></OstrelData>", "lacks its quotation marks)"},
          Row{"<Theme Name=\"a\"</OstrelData>", "(probably a > or a blank"},
          Row{"</OstrelData><x/>", "(probably what stands behind the last end tag"}}) {
        EXPECT_TRUE(Contains(SaidOf(row.rest), row.cause)) << SaidOf(row.rest);
    }
    Write("my.xml", "");
    EXPECT_TRUE(Contains(Run({"list", "-c", "my.xml"}).err, "(probably the file is empty"));
}

TEST_F(BrokenConfigTest, LimitIsACauseOfItsOwn) {
    std::string deep;
    for (int i = 0; i < 300; ++i) {
        deep += "<Theme>";
    }
    const std::string said = SaidOf(deep);
    EXPECT_TRUE(Contains(said, "elements are nested more than 256 deep; \"vaultry")) << said;
}

// The check says it too, at its place.
TEST_F(BrokenConfigTest, CheckTellsTheCauseAsWell) {
    WriteBroken(kUnclosed);
    const Outcome outcome = Run({"check", "my.xml"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(Contains(outcome.out,
                         "    Everything after this place is missing. Probably </Theme> is missing "
                         "before this place, or misspelt.\n"))
        << outcome.out;
}

} // namespace

} // namespace Tarnex::Test
