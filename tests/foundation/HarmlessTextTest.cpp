// SPDX-License-Identifier: MIT
#include <vaultry/foundation/HarmlessText.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Test {

namespace {

using namespace std::string_literals;

// The first and the last character of each dangerous range.
const std::vector<std::string>& Dangerous() {
    static const std::vector<std::string> characters = {
        "\0"s,    "\x01",   "\t",     "\n",     "\r",     "\x1B",   "\x1F",
        "\x7F",   "\u0080", "\u0085", "\u009B", "\u009F", "\u061C", "\u200E",
        "\u200F", "\u2028", "\u2029", "\u202A", "\u202E", "\u2066", "\u2069"};
    return characters;
}

// Their neighbours, and letters of every length.
const std::vector<std::string>& Harmless() {
    static const std::vector<std::string> characters = {" ",
                                                        "~",
                                                        "\u00A0",
                                                        "\u061B",
                                                        "\u061D",
                                                        "\u200D",
                                                        "\u2010",
                                                        "\u2027",
                                                        "\u202F",
                                                        "\u2065",
                                                        "\u206A",
                                                        "a",
                                                        "ä",
                                                        "€",
                                                        "城",
                                                        "\U0001F3F0"};
    return characters;
}

// What is no UTF-8: a lone byte, an end cut off, an overlong form, a surrogate, beyond Unicode.
const std::vector<std::string>& Malformed() {
    static const std::vector<std::string> bytes = {
        "\x9B", "\xE2\x80", "\xC0\x8A", "\xED\xA0\x80", "\xF4\x90\x80\x80"};
    return bytes;
}

std::string Repeated(std::string_view text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

TEST(HarmlessTextTest, TerminalsGetNoDangerousCharacter) {
    for (const std::string& c : Dangerous()) {
        EXPECT_EQ(ForTerminal("a" + c + "b" + c), "a?b?");
    }
    for (const std::string& c : Harmless()) {
        EXPECT_EQ(ForTerminal(c + "a" + c), c + "a" + c);
    }
    for (const std::string& bytes : Malformed()) {
        EXPECT_EQ(ForTerminal('a' + bytes + 'b'), 'a' + Repeated("\uFFFD", bytes.size()) + 'b');
    }
    EXPECT_EQ(ForTerminal(""), "");
}

TEST(HarmlessTextTest, MarkupIsEscapedAndHoldsOnlyWhatXmlAllows) {
    EXPECT_EQ(ForMarkup("<a b=\"c\">&'"), "&lt;a b=&quot;c&quot;&gt;&amp;'");
    EXPECT_EQ(ForMarkup("a\uFFFE\uFFFFb\uFFFD"), "a??b\uFFFD");
    for (const std::string& c : Dangerous()) {
        EXPECT_EQ(ForMarkup(c + "b"), c == "\n" ? "\nb" : "?b");
    }
    for (const std::string& c : Harmless()) {
        EXPECT_EQ(ForMarkup(c), c);
    }
    for (const std::string& bytes : Malformed()) {
        EXPECT_EQ(ForMarkup(bytes), Repeated("\uFFFD", bytes.size()));
    }
}

TEST(HarmlessTextTest, CellsOfATableAreNoFormulas) {
    for (const char sign : {'=', '+', '-', '@'}) {
        EXPECT_EQ(ForTable(sign + "1"s), std::string("'") + sign + '1');
        EXPECT_EQ(ForTable("a"s + sign), "a"s + sign);
    }
    EXPECT_EQ(ForTable("\t=1"), "'?=1");
    EXPECT_EQ(ForTable("\r=1"), "'?=1");
    EXPECT_EQ(ForTable(""), "");
    EXPECT_EQ(ForTable("a,b"), "\"a,b\"");
    EXPECT_EQ(ForTable("say \"a\""), "\"say \"\"a\"\"\"");
    EXPECT_EQ(ForTable("=a,\"\n"), "\"'=a,\"\"?\"");
    for (const std::string& c : Dangerous()) {
        EXPECT_EQ(ForTable("b" + c), "b?");
    }
}

TEST(HarmlessTextTest, JsonStandsForTheSameInHarmlessCharacters) {
    EXPECT_EQ(ForJson("{\n  \"a\": \"\\u001b\x7F\u009B\u202E\u2069ä\"\n}\n"),
              "{\n  \"a\": \"\\u001b\\u007f\\u009b\\u202e\\u2069ä\"\n}\n");
    EXPECT_EQ(ForJson("\u0080"), "\\u0080");
    EXPECT_EQ(ForJson("\u2028a\u2029\x7F"), "\\u2028a\\u2029\\u007f");
    EXPECT_EQ(ForJson(""), "");
    for (const std::string& c : Harmless()) {
        EXPECT_EQ(ForJson(c + "a" + c), c + "a" + c);
        EXPECT_EQ(ForJson(c + "\x7F" + c), c + "\\u007f" + c);
    }
}

TEST(HarmlessTextTest, WordsForAShellAreQuotedWhereTheyMust) {
    EXPECT_EQ(ForShell("a-b_c./:,+@=9Z"), "a-b_c./:,+@=9Z");
    EXPECT_EQ(ForShell(""), "\"\"");
    EXPECT_EQ(ForShell("a b"), "\"a b\"");
    EXPECT_EQ(ForShell("it's"), "\"it's\"");
    EXPECT_EQ(ForShell("Höhle"), "\"Höhle\"");
    EXPECT_EQ(ForShell("C:\\my mods\\a.xml"), "\"C:\\my mods\\a.xml\"");
    // Some shells take this for a command's path or for a variable.
    EXPECT_EQ(ForShell("=ls"), "\"=ls\"");
    EXPECT_EQ(ForShell("@Home"), "\"@Home\"");
    EXPECT_EQ(ForShell("~"), "\"~\"");
}

TEST(HarmlessTextTest, WhatQuotationMarksChangeInSomeShellIsInApostrophes) {
    for (const char* word :
         {"$(reboot)", "`ls`", "a \"b\"", "ha!", "%PATH%", "a \\", "\\\\a b", "a “b”"}) {
        EXPECT_EQ(ForShell(word), "'" + std::string(word) + "'");
    }
    EXPECT_EQ(ForShell("it's $5"), "'it'\\''s $5'");
}

TEST(HarmlessTextTest, WhatEveryShellReadsAlikeIsKnown) {
    for (const char* word : {"a-b", "", "a b", "it's", "=ls", "@Home", "&calc&", "C:\\my mods"}) {
        EXPECT_TRUE(IsSameInEveryShell(word)) << word;
    }
    for (const char* word : {"$a", "!&calc&", "%PATH%", "a\"b", "a\\", "a\nb", "a“b", "\xFF"}) {
        EXPECT_FALSE(IsSameInEveryShell(word)) << word;
    }
}

TEST(HarmlessTextTest, DangerousCharactersAreNumbersForAShell) {
    EXPECT_EQ(ForShell("a\x1B[2J"), "$'a\\033[2J'");
    EXPECT_EQ(ForShell("two\nlines"), "$'two\\012lines'");
    EXPECT_EQ(ForShell("it's\\\x01ä"), "$'it\\047s\\134\\001ä'");
    EXPECT_EQ(ForShell("\u202E\x9B"), "$'\\342\\200\\256\\233'");
}

TEST(HarmlessTextTest, LogsKeepWhatXmlAllows) {
    EXPECT_EQ(ForLog("a\tb\nc\rd\x7F\x80\x81\x9B\x9F\xFF"), "a\tb\nc\rd\x7F\x80\x81\x9B\x9F\xFF");
    EXPECT_EQ(ForLog("\x01\x08\x0B\x0C\x0E\x1B\x1F\0"s), "????????");
}

} // namespace

} // namespace Tarnex::Test
