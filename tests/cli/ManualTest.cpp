// SPDX-License-Identifier: MIT
// The manual page and the completions, which the program tells about itself.
#include "tests/cli/Program.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <sstream>
#include <string>

namespace Tarnex::Test {

namespace {

constexpr std::array<const char*, 10> kVerbs = {"generate",
                                                "map",
                                                "search",
                                                "list",
                                                "config",
                                                "inspect",
                                                "diff",
                                                "check",
                                                "manual",
                                                "completion"};

class ManualTest : public ProgramTest {
protected:
#ifndef _WIN32
    // Has bash complete the last of `words` and returns the answers, a line each.
    std::string Complete(const std::string& words) const {
        Write("completion", Run({"completion", "bash"}).out);
        Write("ask",
              "source ./completion\nCOMP_WORDS=(" + words +
                  ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_vaultry\n"
                  "printf '%s\\n' \"${COMPREPLY[@]}\"\n");
        EXPECT_EQ(RunAfter("bash ./ask >answers", {"--version"}).status, 0);
        return Read("answers");
    }
#endif
};

TEST_F(ManualTest, DescribesEveryVerbAndSwitch) {
    const Outcome page = Run({"manual"});
    ASSERT_EQ(page.status, 0);
    for (const char* verb : kVerbs) {
        EXPECT_TRUE(Contains(page.out, std::string(".SS vaultry ") + verb + '\n')) << verb;
    }
    EXPECT_TRUE(Contains(page.out, "\\fB\\-c\\fR, \\fB\\-\\-config\\fR \\fIFILE\\fR\n"));
    EXPECT_TRUE(Contains(page.out, "\\fB\\-\\-ensure\\-walkable\\fR\n"));
    EXPECT_TRUE(Contains(page.out, "\\fIPLUGIN\\fR\n"));
    EXPECT_TRUE(Contains(page.out, "  vaultry search \\-\\-sample 10000"));
}

TEST_F(ManualTest, NoLineIsTakenForARequestOfTheFormatter) {
    const Outcome page = Run({"manual"});
    std::istringstream lines(page.out);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind('.', 0) == 0) {
            const std::string request = line.substr(1, 2);
            EXPECT_TRUE(request == "TH" || request == "SH" || request == "SS" || request == "TP" ||
                        request == "PP" || request == "nf" || request == "fi" || request == "B" ||
                        request == "B " || request == "I ")
                << line;
        }
    }
}

TEST_F(ManualTest, AnUnknownShellIsRefused) {
    const Outcome outcome = Run({"completion", "fish"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(Contains(outcome.err, "\"fish\" is none of bash, zsh"));
}

#ifndef _WIN32

TEST_F(ManualTest, BashCompletesVerbs) {
    EXPECT_EQ(Complete("vaultry gen"), "generate\n");
    EXPECT_EQ(Complete("vaultry co"), "config\ncompletion\n");
}

TEST_F(ManualTest, BashCompletesTheSwitchesOfAVerb) {
    EXPECT_EQ(Complete("vaultry generate --random-t"),
              "--random-tileset\n--random-theme\n--random-treasure-theme\n");
    EXPECT_EQ(Complete("vaultry inspect --r"), "--refs\n");
}

TEST_F(ManualTest, BashCompletesTheWordsOfASwitch) {
    EXPECT_EQ(Complete("vaultry generate --size ''"), "Random\nTiny\nSmall\nMedium\nLarge\n");
    EXPECT_EQ(Complete("vaultry map --spacing Semi"), "Semi-tight\nSemi-loose\n");
}

TEST_F(ManualTest, BashCompletesFilesOfAnyName) {
    for (const char* name : {"two words.xml", "*", "$(touch made)", "a;b"}) {
        Write(name, "");
    }
    EXPECT_EQ(Complete("vaultry list -c tw"), "two words.xml\n");
    EXPECT_EQ(Complete("vaultry inspect '$'"), "$(touch made)\n");
    EXPECT_EQ(Complete("vaultry inspect '*'"), "*\n");
    EXPECT_FALSE(std::filesystem::exists(File("made")));
}

TEST_F(ManualTest, BashOffersNothingForANumber) {
    EXPECT_EQ(Complete("vaultry generate --seed ''"), "\n");
}

#endif

} // namespace

} // namespace Tarnex::Test
