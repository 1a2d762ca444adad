// SPDX-License-Identifier: MIT
#include "tools/text/ShellWords.h"
#include "tests/support/LeftOut.h"
#include "tests/support/TempDir.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/HarmlessText.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Test {

namespace {

using namespace std::string_literals;
using Words = std::vector<std::string>;

TEST(SplitCommandLineTest, TakesApartWhatIsQuotedForAShell) {
    const Words words = {"a-b",
                         "",
                         "two words",
                         "it's",
                         "''",
                         "\\",
                         "$(ls)",
                         "a\nb",
                         "\x1B[2J'\\",
                         "\u202E",
                         "\x9B\xFF",
                         "\0\1"s,
                         "Höhle",
                         "--cell=-x",
                         "=ls",
                         "~",
                         std::string(300, '\'')};
    std::string line;
    for (const std::string& word : words) {
        line += ForShell(word) + "  ";
    }
    EXPECT_EQ(Report::SplitCommandLine(line), words);
    EXPECT_EQ(Report::SplitCommandLine("'a'b\\''c'"), Words{"ab'c"});
    EXPECT_EQ(Report::SplitCommandLine("\"a'b c\"d"), Words{"a'b cd"});
    EXPECT_EQ(Report::SplitCommandLine(R"("C:\my mods\a.xml")"), Words{R"(C:\my mods\a.xml)"});
    EXPECT_EQ(Report::SplitCommandLine(""), Words{});
    EXPECT_EQ(Report::SplitCommandLine("  "), Words{});
}

std::string Refusal(const std::string& line) {
    try {
        Report::SplitCommandLine(line);
    } catch (const UsageError& e) {
        return e.what();
    }
    return {};
}

// Words of signs that mean something to shells, and of bytes that could harm a terminal.
Words RandomWords(std::string_view signs) {
    constexpr int kWords = 2000;
    constexpr unsigned kLongest = 12;
    std::minstd_rand chance(1);
    Words words(kWords);
    for (std::string& word : words) {
        for (std::size_t length = chance() % kLongest; word.size() < length;) {
            word += signs[chance() % signs.size()];
        }
    }
    return words;
}

constexpr std::string_view kSigns = "ab$(`)'\"\\;|&<>*?[]{}~#!=- ^%,@/.";
constexpr std::string_view kBytes = "ab01'\\$ \n\r\t\x01\x1B\x7F\x80\x9B\xAE\xC2\xE2\xFF";

TEST(SplitCommandLineTest, TakesApartAnyWords) {
    for (const std::string_view signs : {kSigns, kBytes}) {
        const Words words = RandomWords(signs);
        std::string line;
        for (const std::string& word : words) {
            line += ForShell(word) + ' ';
        }
        EXPECT_EQ(Report::SplitCommandLine(line), words);
        EXPECT_EQ(ForTerminal(line), line);
    }
}

#ifndef _WIN32
// What the shell passes on when it is given the words in one line.
Words PassedOnBy(const std::string& shell, const Words& words) {
    const TempDir folder;
    std::string line = "printf '%s\\0'";
    for (const std::string& word : words) {
        line += ' ' + ForShell(word);
    }
    const std::string script = folder.Write("script", line + '\n');
    const std::string command = shell + " '" + script + "' > '" + folder.File("words") + '\'';
    EXPECT_EQ(std::system(command.c_str()), 0);
    Words passed;
    std::istringstream stream(ReadFile(PathFromUtf8(folder.File("words"))));
    for (std::string word; std::getline(stream, word, '\0');) {
        passed.push_back(word);
    }
    return passed;
}

TEST(SplitCommandLineTest, ShellsPassOnTheSameWords) {
    EXPECT_EQ(PassedOnBy("sh", RandomWords(kSigns)), RandomWords(kSigns));
    EXPECT_EQ(PassedOnBy("bash", RandomWords(kSigns)), RandomWords(kSigns));
    EXPECT_EQ(PassedOnBy("bash", RandomWords(kBytes)), RandomWords(kBytes));
}

// A shell that does not know $'...' takes the words for others, but never for more than words.
TEST(SplitCommandLineTest, NoShellTakesAWordForACommand) {
    EXPECT_EQ(PassedOnBy("sh", RandomWords(kBytes)).size(), RandomWords(kBytes).size());
}
#else
VAULTRY_LEFT_OUT_ON_WINDOWS(SplitCommandLineTest, "has no POSIX shell")
#endif

TEST(SplitCommandLineTest, RefusesWhatAShellWouldActUpon) {
    for (const char sign : "$`;&|<>*?[]{}()~#!\n\t\r^"s) {
        EXPECT_EQ(Refusal("vaultry "s + sign + " x"),
                  "\""s + sign + "\" stands outside of quotation marks");
    }
    EXPECT_EQ(Refusal("a\x1B"), "\"\x1B\" stands outside of quotation marks");
    EXPECT_EQ(Refusal("\\a"), "\"\\\" stands outside of quotation marks");
    EXPECT_EQ(Refusal("a 'b"), "an apostrophe is never closed");
    EXPECT_EQ(Refusal("a \"b"), "a quotation mark is never closed");
    for (const char sign : "$`!%"s) {
        EXPECT_EQ(Refusal("\"a"s + sign + '"'), "\""s + sign + "\" stands between quotation marks");
    }
    for (const char* line : {R"("a\")", R"("a\\b")"}) {
        EXPECT_EQ(Refusal(line), "a backslash between quotation marks escapes what follows");
    }
    EXPECT_EQ(Refusal("$'a\\'b"), "a backslash within $'...' needs three octal digits");
    EXPECT_EQ(Refusal("$'\\x41'"), "a backslash within $'...' needs three octal digits");
    EXPECT_EQ(Refusal("$'\\400'"), "a backslash within $'...' needs three octal digits");
    EXPECT_EQ(Refusal("$'\\377'"), "");
}

} // namespace

} // namespace Tarnex::Test
