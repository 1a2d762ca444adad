// SPDX-License-Identifier: MIT
// Help, version, and results that do not reach their reader.
#include "cli/CommandLine.h"
#include "cli/CommandHelp.h"

#include <sstream>
#include <string>
#include <tests/cli/Program.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using CommandLineTest = ProgramTest;

TEST_F(CommandLineTest, NamesItsVersion) {
    const Outcome outcome = Run({"--version"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "vaultry " VAULTRY_VERSION "\n");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(CommandLineTest, HelpNamesEveryVerbAndAnExample) {
    const Outcome outcome = Run({"--help"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    for (const char* part : {"generate", "list", "config", "--version", "Example"}) {
        EXPECT_TRUE(Contains(outcome.out, part)) << part;
    }
}

TEST_F(CommandLineTest, HelpOfGenerateNamesEverySwitch) {
    const Outcome outcome = Run({"generate", "--help"});
    EXPECT_EQ(outcome.status, 0);
    for (const char* part : {"-c, --config",
                             "-o, --out",
                             "-n, --cell",
                             "--fixed",
                             "--tileset",
                             "--cave-tileset",
                             "--template",
                             "--cave-template",
                             "--theme",
                             "--creature-theme",
                             "--treasure-theme",
                             "--levels",
                             "--min-level",
                             "--max-level",
                             "--size",
                             "--spacing",
                             "--random-tileset",
                             "--random-theme",
                             "--random-creature-theme",
                             "--random-treasure-theme",
                             "--platforms",
                             "--master",
                             "--master-size",
                             "--seed",
                             "--stamp",
                             "--log",
                             "--strict",
                             "--quiet",
                             "--json",
                             "vaultry generate -o keep.esp"}) {
        EXPECT_TRUE(Contains(outcome.out, part)) << part;
    }
}

TEST_F(CommandLineTest, HelpFitsOnEightyColumns) {
    std::vector<std::string> words = {"--help"};
    for (const Cli::VerbHelp& verb : Cli::DescribeCommandLine().verbs) {
        words.push_back(verb.name);
    }
    for (const std::string& word : words) {
        std::istringstream lines(Run({"help", word}).out);
        for (std::string line; std::getline(lines, line);) {
            EXPECT_LE(line.size(), 80U) << word << ": " << line;
        }
    }
}

TEST_F(CommandLineTest, HelpHasEveryOptionInAGroup) {
    for (const Cli::VerbHelp& verb : Cli::DescribeCommandLine().verbs) {
        const std::string help = Run({"help", verb.name}).out;
        for (const Cli::OptionHelp& option : verb.options) {
            const std::string name = option.names.empty() ? option.value : option.names.back();
            EXPECT_TRUE(Contains(help, ' ' + name)) << verb.name << ' ' << name;
        }
    }
}

TEST_F(CommandLineTest, HelpNamesArgumentsAndDefaults) {
    EXPECT_TRUE(Contains(Run({"map", "-h"}).out, "Usage: vaultry map [OPTIONS] [PLUGIN]\n"));
    EXPECT_TRUE(Contains(Run({"diff", "-h"}).out, "Usage: vaultry diff [OPTIONS] A B\n"));
    EXPECT_TRUE(Contains(Run({"check", "-h"}).out, "Usage: vaultry check [OPTIONS] CONFIG...\n"));
    const std::string help = Run({"generate", "-h"}).out;
    EXPECT_TRUE(
        Contains(help,
                 "\nThe shape of random levels:\n"
                 "      --levels N               Levels, each a cell (default: 1)\n"
                 "      --size WORD              Level size: Random, Tiny, Small, Medium, Large\n"
                 "                               (default: Medium)\n"))
        << help;
    EXPECT_FALSE(Contains(help, "Excludes"));
}

TEST_F(CommandLineTest, HelpOfTheOtherVerbsHasAnExample) {
    EXPECT_TRUE(Contains(Run({"list", "--help"}).out, "vaultry list -c"));
    EXPECT_TRUE(Contains(Run({"config", "--help"}).out, "vaultry config"));
}

TEST_F(CommandLineTest, HelpAndVersionAreWordsToo) {
    EXPECT_EQ(Run({"version"}).out, Run({"--version"}).out);
    EXPECT_EQ(Run({"help"}).out, Run({"--help"}).out);
    EXPECT_EQ(Run({"help", "help"}).out, Run({"--help"}).out);
    EXPECT_EQ(Run({"help", "version"}).out, Run({"--help"}).out);
    EXPECT_EQ(Run({"help", "search"}).out, Run({"search", "--help"}).out);
    EXPECT_EQ(Run({"help", "search"}).status, 0);
}

TEST_F(CommandLineTest, HelpAndVersionLeaveNothingBehind) {
    EXPECT_EQ(Run({"--help"}).status, 0);
    EXPECT_EQ(Run({"--version"}).status, 0);
    EXPECT_TRUE(Files().empty());
}

TEST_F(CommandLineTest, ResultThatCannotBeWrittenIsAFailure) {
    std::ostringstream out;
    std::ostringstream err;
    out.setstate(std::ios::badbit);
    EXPECT_EQ(Cli::RunCommandLine({"list", "-c", smallConfig}, {out, err}), 1);
    EXPECT_EQ(err.str(), "vaultry: standard output could not be written\n");
}

// A random run on a terminal, which speaks of two steps.
class TerminalTest : public ProgramTest {
protected:
    std::string ErrOf(std::vector<std::string> arguments) const {
        std::ostringstream out;
        std::ostringstream err;
        const std::vector<std::string> all = {
            "generate", "--levels", "2", "--seed", "1", "-o", File("dungeon.esp")};
        arguments.insert(arguments.begin(), all.begin(), all.end());
        EXPECT_EQ(Cli::RunCommandLine(arguments, {out, err, true}), 0);
        return err.str();
    }
};

TEST_F(TerminalTest, ShowsProgressAndWipesItBeforeAnythingIsSaid) {
    const std::string err = ErrOf({});
    EXPECT_TRUE(Contains(err, "\rGenerating Layouts, level 1 of 2"));
    EXPECT_TRUE(Contains(err, "\rGenerating Layouts, level 2 of 2"));
    EXPECT_TRUE(Contains(err, "\rAdding Content"));
    EXPECT_TRUE(Contains(err, " \rvaultry: "));
}

TEST_F(TerminalTest, QuietShowsNoProgress) {
    EXPECT_EQ(ErrOf({"--quiet"}), "");
}

} // namespace

} // namespace Tarnex::Test
