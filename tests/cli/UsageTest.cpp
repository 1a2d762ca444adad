// SPDX-License-Identifier: MIT
// Arguments that cannot be followed: one clear line, status 2 and nothing written.
#include <string>
#include <tests/cli/Program.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;

class UsageTest : public ProgramTest {
protected:
    // Expects one line of the program's own with `part` in it, and no file that was not there.
    void ExpectMistake(const Outcome& outcome, const std::string& part) const {
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        ASSERT_EQ(outcome.ErrLines().size(), 1U) << outcome.err;
        EXPECT_EQ(outcome.err.substr(0, 9), "vaultry: ");
        EXPECT_TRUE(Contains(outcome.err, part)) << outcome.err;
        EXPECT_EQ(Files(), there);
    }

    Lines there;
};

TEST_F(UsageTest, WithoutAVerbShowsTheHelp) {
    const Outcome outcome = Run({});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(Contains(outcome.err, "generate"));
    EXPECT_TRUE(Contains(outcome.err, "list"));
    EXPECT_TRUE(Contains(outcome.err, "config"));
}

TEST_F(UsageTest, MistakesPointToTheHelpOfTheirVerb) {
    ExpectMistake(Generate({"--frob"}), "see \"vaultry generate --help\"");
    ExpectMistake(Run({"--frob"}), "see \"vaultry --help\"");
}

TEST_F(UsageTest, MissingArgumentsAreNamed) {
    ExpectMistake(Run({"inspect"}), "inspect needs PLUGIN: \"vaultry inspect PLUGIN\"; see ");
    ExpectMistake(Run({"diff", "a.esp"}), "diff needs A and B: \"vaultry diff A B\"; see ");
    ExpectMistake(Run({"check"}), "check needs CONFIG...: \"vaultry check CONFIG...\"; see ");
    ExpectMistake(Run({"inspect", "-x.esp"}), "; a file of that name stands behind \"--\"");
    ExpectMistake(Run({"inspect", "--", "-x.esp"}), "\"-x.esp\"");
}

TEST_F(UsageTest, VerbsAreAnsweredWithTheNearest) {
    ExpectMistake(Run({"genrate"}), "there is no verb \"genrate\"; did you mean \"generate\"?");
    ExpectMistake(Run({"helo"}), "did you mean \"help\"?");
    ExpectMistake(Run({"help", "genrate"}), "did you mean \"generate\"?");
    ExpectMistake(Run({"genrate", "--help"}), "did you mean \"generate\"?");
    ExpectMistake(Run({"frobnicate"}), "\"frobnicate\"; see \"vaultry --help\"");
}

TEST_F(UsageTest, OptionsAreAnsweredWithTheNearest) {
    for (const Lines& words : {Lines{"--sed", "7"}, {"--sed=7"}, {"-seed", "7"}, {"-sed", "7"}}) {
        ExpectMistake(Generate(words), "; did you mean \"--seed\"?");
    }
    ExpectMistake(Generate({"--sed", "7", "--levl", "2"}), "generate has no option --sed;");
    ExpectMistake(Run({"map", "--level", "2"}),
                  "map has no option --level; did you mean \"--levels\"");
    ExpectMistake(Run({"--versoin"}), "did you mean \"--version\"?");
}

// Those of one letter all are near each other.
TEST_F(UsageTest, ShortOptionsAreNotGuessed) {
    ExpectMistake(Generate({"-x"}), "generate has no option -x; see \"vaultry generate --help\"");
}

TEST_F(UsageTest, OptionsOfAnotherVerbNameIt) {
    ExpectMistake(Generate({"--where", "rooms"}), "--where belongs to search, not to generate");
    ExpectMistake(Run({"search", "--seed=7"}), "--seed belongs to generate, map, not to search");
    ExpectMistake(Run({"--seed", "7", "generate"}),
                  "--seed stands behind its verb, generate or map");
    ExpectMistake(Run({"--seed", "7"}), "--seed stands behind its verb, generate or map");
}

TEST_F(UsageTest, AWordTooManyIsNamed) {
    ExpectMistake(Run({"list", "config"}), "\"config\" is one word too many for list");
    ExpectMistake(Generate({"-n", "Old", "Keep", "--frob"}), "\"Keep\" is one word too many");
}

TEST_F(UsageTest, OptionWithoutItsValue) {
    ExpectMistake(Generate({"--seed"}), "--seed: a value is missing");
}

TEST_F(UsageTest, OptionGivenTwice) {
    ExpectMistake(Generate({"--seed", "1", "--seed", "2"}), "--seed: given twice");
}

TEST_F(UsageTest, AlternativesExcludeEachOther) {
    ExpectMistake(Generate({"--tileset", "Stone", "--cave-tileset", "Cavern"}), "--cave-tileset");
    ExpectMistake(Generate({"--template", "Spot", "--cave-template", "Den"}), "--cave-template");
}

TEST_F(UsageTest, EmptyCellName) {
    ExpectMistake(Generate({"-n", ""}), "--cell");
}

TEST_F(UsageTest, EmptyMasterName) {
    ExpectMistake(Generate({"--master", ""}), "--master");
}

TEST_F(UsageTest, UnknownWordsAreAnsweredWithTheKnownOnes) {
    ExpectMistake(Generate({"--size", "huge"}), "\"huge\" is none of Random, Tiny, Small, Medium");
    ExpectMistake(Generate({"--spacing", "semi"}), "Semi-tight, Semi-loose, Loose");
    ExpectMistake(Generate({"--size", ""}), "--size");
}

TEST_F(UsageTest, ConfigurationThatDoesNotExist) {
    ExpectMistake(Run({"generate", "-c", "none.xml"}), "\"none.xml\" does not exist");
    ExpectMistake(Run({"list", "-c", "none.xml"}), "\"none.xml\" does not exist");
}

TEST_F(UsageTest, ConfigurationThatIsAFolder) {
    ExpectMistake(Run({"generate", "-c", "."}), "\".\" is a folder");
}

TEST_F(UsageTest, BuiltInConfigurationThatDoesNotExist) {
    ExpectMistake(Run({"generate", "-c", "builtin:attic"}), "\"attic\"");
    ExpectMistake(Run({"config", "attic"}), "\"attic\"");
}

TEST_F(UsageTest, OutputThatIsAFolder) {
    ExpectMistake(Generate({"-o", "."}), "\".\" is a folder");
    ExpectMistake(Generate({"-o", "name/"}), "\"name/\" is a folder");
}

TEST_F(UsageTest, OutputWithoutAName) {
    ExpectMistake(Generate({"-o", ""}), "needs a name");
}

TEST_F(UsageTest, OutputInAFolderThatDoesNotExist) {
    ExpectMistake(Generate({"-o", "none/dungeon.esp"}), "its folder does not exist");
}

TEST_F(UsageTest, OutputMistakesAreFoundBeforeAnythingIsGenerated) {
    Write("run.log", "an older run\n");
    there = {"run.log"};
    ExpectMistake(Generate({"-o", "none/dungeon.esp", "--log", "run.log"}), "folder");
    EXPECT_EQ(Read("run.log"), "an older run\n");
}

TEST_F(UsageTest, LogInAFolderThatDoesNotExist) {
    ExpectMistake(Generate({"--log", "none/run.log"}), "its folder does not exist");
}

TEST_F(UsageTest, LogThatIsAFolder) {
    ExpectMistake(Generate({"--log", "."}), "\".\" is a folder");
}

TEST_F(UsageTest, OneFileForTwoPurposes) {
    ExpectMistake(Generate({"-o", "x", "--log", "./x"}), "two files");
    Write("my.xml", "<OstrelData/>");
    there = {"my.xml"};
    ExpectMistake(Run({"generate", "-c", "my.xml", "-o", "my.xml"}), "two files");
    ExpectMistake(Run({"generate", "-c", "my.xml", "--log", "./my.xml"}), "two files");
    EXPECT_EQ(Read("my.xml"), "<OstrelData/>");
}

TEST_F(UsageTest, UnknownNamesAreAnsweredWithTheNearest) {
    ExpectMistake(Generate({"--tileset", "Stnoe"}),
                  "no room tile set \"Stnoe\"; did you mean \"Stone\"?");
    ExpectMistake(Generate({"--cave-tileset", "Tavern"}), "did you mean \"Cavern\"?");
    ExpectMistake(Generate({"--template", "Chamberr"}), "did you mean \"Chamber\"?");
    ExpectMistake(Generate({"--cave-template", "Ten"}), "did you mean \"Den\"?");
    ExpectMistake(Generate({"--theme", "Storerom"}), "did you mean \"Storeroom\"?");
    ExpectMistake(Generate({"--creature-theme", "Undeath"}), "did you mean \"Undead\"?");
    ExpectMistake(Generate({"--treasure-theme", "Coin"}), "did you mean \"Coins\"?");
}

TEST_F(UsageTest, TheCaseOfANameDoesNotMatter) {
    ExpectMistake(Generate({"--tileset", "ston"}), "did you mean \"Stone\"?");
    EXPECT_EQ(Generate({"--tileset", "sTONE"}).status, 0);
}

TEST_F(UsageTest, RoomAndCaveNamesAreKeptApart) {
    ExpectMistake(Generate({"--tileset", "Cavern"}), "no room tile set \"Cavern\"");
    ExpectMistake(Generate({"--cave-tileset", "Stone"}), "no cave tile set \"Stone\"");
}

TEST_F(UsageTest, FarOffNamesAreAnsweredWithAllThereAre) {
    ExpectMistake(Generate({"--tileset", "Xyzzy plugh"}), "there are \"Stone\", \"Höhle\"");
}

TEST_F(UsageTest, NameWithALetterThatTheGameLacksIsUnknown) {
    ExpectMistake(Generate({"--tileset", "St\xCE\xA9ne"}), "did you mean \"Stone\"?");
}

TEST_F(UsageTest, MistakenNameComesAfterTheErrorsThatMayExplainIt) {
    const Outcome outcome = Run({"generate", "-c", faultyConfig, "--theme", "Attic"});
    EXPECT_EQ(outcome.status, 2);
    ASSERT_EQ(outcome.ErrLines().size(), 2U);
    EXPECT_EQ(outcome.ErrLines()[0], kFaultyLine);
    EXPECT_TRUE(Contains(outcome.ErrLines()[1], "\"Attic\""));
}

TEST_F(UsageTest, ControlCharactersDoNotBreakTheLine) {
    ExpectMistake(Run({"generate", "-c", "two\nlines\x1B[31m"}), "\"two?lines?[31m\"");
}

struct WrongNumber {
    const char* option;
    const char* text;
};

class WrongNumberTest : public UsageTest, public ::testing::WithParamInterface<WrongNumber> {};

TEST_P(WrongNumberTest, IsNamedWithItsOption) {
    const WrongNumber& wrong = GetParam();
    const std::string part =
        std::string(wrong.option) + ": \"" + wrong.text + "\" is not a whole number from ";
    ExpectMistake(Generate({wrong.option, wrong.text}), part);
}

INSTANTIATE_TEST_SUITE_P(Numbers,
                         WrongNumberTest,
                         ::testing::Values(WrongNumber{"--seed", "-1"},
                                           WrongNumber{"--seed", "+1"},
                                           WrongNumber{"--seed", "1e3"},
                                           WrongNumber{"--seed", "4294967296"},
                                           WrongNumber{"--seed", "99999999999999999999"},
                                           WrongNumber{"--seed", "12x"},
                                           WrongNumber{"--seed", " 12"},
                                           WrongNumber{"--seed", "0x10"},
                                           WrongNumber{"--seed", "1.5"},
                                           WrongNumber{"--seed", ""},
                                           WrongNumber{"--levels", "0"},
                                           WrongNumber{"--levels", "-3"},
                                           WrongNumber{"--levels", "1001"},
                                           WrongNumber{"--min-level", "low"},
                                           WrongNumber{"--max-level", "-1"},
                                           WrongNumber{"--master-size", "1k"},
                                           WrongNumber{"--stamp", "-1"},
                                           WrongNumber{"--stamp", "9223372036854775808"}));

using RightNumberTest = WrongNumberTest;

// The least and the greatest that there is.
TEST_P(RightNumberTest, IsTaken) {
    const Outcome outcome = Generate({GetParam().option, GetParam().text});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
}

INSTANTIATE_TEST_SUITE_P(Numbers,
                         RightNumberTest,
                         ::testing::Values(WrongNumber{"--seed", "0"},
                                           WrongNumber{"--seed", "4294967295"},
                                           WrongNumber{"--levels", "1"},
                                           WrongNumber{"--levels", "1000"},
                                           WrongNumber{"--min-level", "0"},
                                           WrongNumber{"--max-level", "4294967295"},
                                           WrongNumber{"--stamp", "0"},
                                           WrongNumber{"--stamp", "9007199254740991"}));

} // namespace

} // namespace Tarnex::Test
