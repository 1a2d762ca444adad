// SPDX-License-Identifier: MIT
// What is offered for a word that is being typed, asked by the shells themselves where there are.
#include "cli/Completion.h"
#include "tests/cli/Program.h"
#include "tests/support/LeftOut.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace Tarnex::Test {

namespace {

using Cli::Complete;
using Cli::Completion;
using Lines = std::vector<std::string>;

Lines Offered(const Lines& before, const std::string& typed) {
    Lines words;
    for (const Completion::Word& word : Complete(before, typed).words) {
        words.push_back(word.text);
    }
    return words;
}

bool Has(const Lines& lines, const std::string& line) {
    return std::ranges::find(lines, line) != lines.end();
}

class CompletionTest : public ProgramTest {};

TEST_F(CompletionTest, VerbsComeFirst) {
    EXPECT_EQ(Offered({}, "gen"), Lines{"generate"});
    EXPECT_EQ(Offered({}, "co"), (Lines{"config", "completion"}));
    EXPECT_EQ(Offered({}, "he"), Lines{"help"});
    EXPECT_EQ(Offered({"help"}, "se"), Lines{"search"});
    EXPECT_EQ(Offered({"genrate"}, ""), Lines{});
}

TEST_F(CompletionTest, SwitchesAreOfferedOnce) {
    EXPECT_EQ(Offered({"generate"}, "--random-t"),
              (Lines{"--random-tileset", "--random-theme", "--random-treasure-theme"}));
    EXPECT_EQ(Offered({"generate", "--random-theme"}, "--random-th"), Lines{});
    EXPECT_EQ(Offered({"generate", "-n", "A"}, "--ce"), Lines{});
    EXPECT_EQ(Offered({"generate", "--cell=A"}, "--ce"), Lines{});
    EXPECT_EQ(Offered({"inspect"}, "--r"), Lines{"--refs"});
    EXPECT_TRUE(Has(Offered({"generate"}, ""), "--preset"));
}

TEST_F(CompletionTest, WordsAreOfferedInAnyCase) {
    EXPECT_EQ(Offered({"generate", "--size"}, ""),
              (Lines{"Random", "Tiny", "Small", "Medium", "Large"}));
    EXPECT_EQ(Offered({"map", "--spacing"}, "semi"), (Lines{"Semi-tight", "Semi-loose"}));
    EXPECT_EQ(Offered({"map", "--seed", "1"}, "--size=t"), Lines{"--size=Tiny"});
    EXPECT_EQ(Offered({"generate", "--look"}, "d"), Lines{"Dark"});
    EXPECT_EQ(Offered({"generate", "--preset"}, "to"), Lines{"tomb"});
    EXPECT_EQ(Offered({"completion"}, ""), (Lines{"bash", "zsh", "fish", "powershell"}));
    EXPECT_EQ(Offered({"config"}, ""), (Lines{"default", "caves", "grottoes"}));
}

TEST_F(CompletionTest, OfSeveralKeysTheLastIsCompleted) {
    EXPECT_EQ(Offered({"search", "--sort"}, "loo"), Lines{"loops"});
    EXPECT_EQ(Offered({"search", "--sort"}, "rooms,loo"), Lines{"rooms,loops"});
    EXPECT_EQ(Offered({"search"}, "--sort=rooms,loo"), Lines{"--sort=rooms,loops"});
}

TEST_F(CompletionTest, NamesComeFromTheConfigurationOnTheLine) {
    EXPECT_EQ(Offered({"generate", "-c", smallConfig, "--tileset"}, ""), (Lines{"Stone", "Höhle"}));
    EXPECT_EQ(Offered({"map", "--config=" + smallConfig}, "--tileset=st"),
              Lines{"--tileset=Stone"});
    EXPECT_TRUE(Has(Offered({"generate", "-c", "builtin:caves", "--cave-tileset"}, "bone"),
                    "Bone cave tunnels"));
    EXPECT_TRUE(Has(Offered({"generate", "--preset", "Cave", "--cave-tileset"}, "bone"),
                    "Bone cave tunnels"));
    EXPECT_TRUE(Has(Offered({"search", "--theme"}, "smug"), "Smugglers' den"));
}

TEST_F(CompletionTest, ABrokenConfigurationOffersNothing) {
    EXPECT_EQ(Offered({"generate", "-c", "none.xml", "--tileset"}, ""), Lines{});
    Write("torn.xml", "<OstrelData>\n<Rug>\n");
    EXPECT_EQ(Offered({"generate", "-c", File("torn.xml"), "--tileset"}, ""), Lines{});
}

#ifndef _WIN32
// Nobody writes to this one.
TEST_F(CompletionTest, NoPipeIsWaitedFor) {
    ASSERT_EQ(mkfifo(File("pipe").c_str(), 0600), 0);
    EXPECT_EQ(Offered({"generate", "-c", File("pipe"), "--theme"}, ""), Lines{});
}
#else
VAULTRY_LEFT_OUT_ON_WINDOWS(CompletionTest, "has no named pipes among its files")
#endif

// A configuration comes from a stranger.
TEST_F(CompletionTest, NamesThatCouldHarmAreLeftOut) {
    Write("my.xml",
          "<OstrelData><Theme Name=\"a&#9;b\"/><Theme Name=\"a&#10;b\"/><Theme Name=\"ab\"/>"
          "</OstrelData>");
    EXPECT_EQ(Offered({"generate", "-c", File("my.xml"), "--theme"}, ""), Lines{"ab"});
}

TEST_F(CompletionTest, FilesAreLeftToTheShell) {
    const auto paths = [](const Lines& before) { return Complete(before, "").paths; };
    EXPECT_EQ(paths({"inspect"}), Completion::Paths::Files);
    EXPECT_EQ(paths({"generate", "-o"}), Completion::Paths::Files);
    EXPECT_EQ(paths({"generate", "-c"}), Completion::Paths::Files);
    EXPECT_EQ(paths({"check"}), Completion::Paths::Files);
    EXPECT_EQ(paths({"search", "--thumbnails"}), Completion::Paths::Folders);
    EXPECT_EQ(paths({"generate", "--seed"}), Completion::Paths::None);
    EXPECT_EQ(paths({"config"}), Completion::Paths::None);
    EXPECT_EQ(paths({"generate"}), Completion::Paths::None);
    EXPECT_TRUE(Has(Offered({"generate", "-c"}, "bui"), "builtin:caves"));
    EXPECT_TRUE(Has(Offered({"check"}, "bui"), "builtin:caves"));
}

TEST_F(CompletionTest, AShellIsAnsweredLineByLine) {
    EXPECT_EQ(Run({"__complete", "inspect", "=--j"}).out,
              "none\n--json\tAs JSON, with every reference\n");
    EXPECT_TRUE(Contains(Run({"__complete"}).out, "none\ngenerate\t"));
    EXPECT_EQ(Run({"__complete", "inspect", "="}).out, "files\n");
}

TEST_F(CompletionTest, AnUnknownShellIsRefused) {
    const Outcome outcome = Run({"completion", "ksh"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(Contains(outcome.err, "\"ksh\" is none of bash, zsh, fish, powershell"));
}

// There is no such shell among Debian's packages.
TEST_F(CompletionTest, PowerShellFindsNamesInApostrophes) {
    const std::string script = Run({"completion", "powershell"}).out;
    EXPECT_TRUE(Contains(script, R"("'" + ($word -replace '([''\u2018-\u201B])', '$1$1') + "'")"));
    EXPECT_FALSE(Contains(script, "'\"' +"));
}

TEST_F(CompletionTest, PowerShellHasItsEncodingBack) {
    const std::string script = Run({"completion", "powershell"}).out;
    EXPECT_TRUE(Contains(script, "$encoding = [Console]::OutputEncoding\n    try {"));
    EXPECT_TRUE(Contains(script, "finally {\n        [Console]::OutputEncoding = $encoding\n"));
}

TEST_F(CompletionTest, PowerShellAsksTheProgram) {
    const std::string script = Run({"completion", "powershell"}).out;
    EXPECT_TRUE(Contains(script, "Register-ArgumentCompleter -Native -CommandName vaultry"));
    EXPECT_TRUE(Contains(script, "& $program __complete @before \"=$typed\""));
    for (const char* pair : {"()", "{}", "[]"}) {
        // One of each stands in a pattern.
        EXPECT_EQ(std::ranges::count(script, pair[0]), std::ranges::count(script, pair[1])) << pair;
    }
}

#ifndef _WIN32

class ShellCompletionTest : public ProgramTest {
protected:
    // Has a shell read the script and do what is said, where vaultry is the program.
    std::string Answers(const std::string& shell, const std::string& doing) const {
        Write("completion", Run({"completion", shell}).out);
        std::filesystem::create_directory(File("bin"));
        std::error_code known;
        std::filesystem::create_symlink(VAULTRY_PROGRAM, File("bin/vaultry"), known);
        Write("ask", doing);
        EXPECT_EQ(
            RunAfter("PATH=$PWD/bin:$PATH HOME=$PWD " + shell + " ./ask >answers", {"--version"})
                .status,
            0);
        return Read("answers");
    }

    std::string Bash(const std::string& words) const {
        return Answers("bash",
                       "source ./completion\nCOMP_WORDS=(" + words +
                           ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_vaultry\n"
                           "printf '%s\\n' \"${COMPREPLY[@]}\"\n");
    }

    // The functions of its own completion are told what to print.
    std::string Zsh(const std::string& words) const {
        return Answers("zsh",
                       "compdef() { }\ncompset() { }\nsource ./completion\n"
                       "_describe() { print -rl -- \"${(@P)4}\" }\n"
                       "_files() { print -r -- files $* }\nwords=(" +
                           words + ")\nCURRENT=$#words\n_vaultry\n");
    }

    std::string Fish(const std::string& line) const {
        return Answers("fish", "source ./completion\ncomplete -C '" + line + "'\n");
    }
};

TEST_F(ShellCompletionTest, BashOffersVerbsSwitchesAndWords) {
    EXPECT_EQ(Bash("vaultry co"), "config\ncompletion\n");
    EXPECT_EQ(Bash("vaultry inspect --r"), "--refs\n");
    EXPECT_EQ(Bash("vaultry map --spacing semi"), "Semi-tight\nSemi-loose\n");
    EXPECT_EQ(Bash("vaultry generate --seed ''"), "\n");
}

TEST_F(ShellCompletionTest, BashTakesQuotesAndSignsApart) {
    EXPECT_EQ(Bash("vaultry generate --theme '\"Smug'"), "Smugglers' den\n");
    EXPECT_EQ(Bash("vaultry generate --theme 'Smugglers\\'\\''\\ d'"), "Smugglers' den\n");
    EXPECT_EQ(Bash("vaultry map --size = t"), "Tiny\n");
    EXPECT_EQ(Bash("vaultry map --size ="), "Random\nTiny\nSmall\nMedium\nLarge\n");
    EXPECT_EQ(Bash("vaultry list -c builtin : ca"), "caves\n");
    EXPECT_TRUE(Contains(Bash("vaultry map -c builtin : caves --cave-tileset bone"),
                         "Bone cave tunnels\n"));
}

TEST_F(ShellCompletionTest, BashCompletesFilesOfAnyName) {
    for (const char* name : {"two words.xml", "*", "$(touch made)", "a;b"}) {
        Write(name, "");
    }
    EXPECT_EQ(Bash("vaultry list -c tw"), "two words.xml\n");
    EXPECT_EQ(Bash("vaultry inspect '$'"), "$(touch made)\n");
    EXPECT_EQ(Bash("vaultry inspect '*'"), "*\n");
    EXPECT_FALSE(std::filesystem::exists(File("made")));
}

TEST_F(ShellCompletionTest, BashTakesNoNameForAFolder) {
    std::filesystem::create_directory(File("config"));
    std::filesystem::create_directory(File("Smugglers' den"));
    const auto bash = [this](const std::string& words) {
        return Answers("bash",
                       "source ./completion\ncompopt() { echo \"$@\"; }\nCOMP_WORDS=(" + words +
                           ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_vaultry\n"
                           "printf '%s\\n' \"${COMPREPLY[@]}\"\n");
    };
    EXPECT_EQ(bash("vaultry con"), "+o filenames\nconfig\n");
    EXPECT_EQ(bash("vaultry generate --theme Smug"), "+o filenames\nSmugglers\\'\\ den\n");
    EXPECT_EQ(bash("vaultry generate --theme '\"Smug'"), "+o filenames\nSmugglers' den\n");
    EXPECT_EQ(bash("vaultry inspect con"), "config\n");
}

TEST_F(ShellCompletionTest, BashFindsTheProgramAtHome) {
    EXPECT_EQ(Bash("'~/bin/vaultry' insp"), "inspect\n");
}

TEST_F(ShellCompletionTest, ZshOffersWhatTheProgramSays) {
    EXPECT_EQ(Zsh("vaultry inspect --r"), "--refs:Every reference, rotations in degrees\n");
    EXPECT_TRUE(Zsh("vaultry generate --theme \"'Smug\"").starts_with("Smugglers' den:"));
    EXPECT_EQ(Zsh("vaultry list -c builtin:ca"), "builtin\\:caves:\nfiles\n");
    EXPECT_EQ(Zsh("vaultry generate --seed ''"), "");
}

TEST_F(ShellCompletionTest, FishOffersWhatTheProgramSays) {
    EXPECT_EQ(Fish("vaultry inspect --r"), "--refs\tEvery reference, rotations in degrees\n");
    EXPECT_TRUE(Contains(Fish("vaultry generate --theme Smug"), "Smugglers"));
    EXPECT_EQ(Fish("vaultry map --size t"), "Tiny\n");
    Write("two words.xml", "");
    EXPECT_TRUE(Contains(Fish("vaultry inspect tw"), "two words.xml"));
}

#else
VAULTRY_LEFT_OUT_ON_WINDOWS(ShellCompletionTest, "has no POSIX shell")
#endif

} // namespace

} // namespace Tarnex::Test
