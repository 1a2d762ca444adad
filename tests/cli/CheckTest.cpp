// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <tests/cli/Program.h>

namespace Tarnex::Test {

namespace {

using CheckTest = ProgramTest;

TEST_F(CheckTest, TheBuiltInConfigurationIsClean) {
    const Outcome outcome = Run({"check", "builtin"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "Nothing is wrong.\n");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(CheckTest, TheBuiltInCavesHaveNothingOfWeight) {
    EXPECT_EQ(Run({"check", "builtin:caves"}).status, 0);
    EXPECT_EQ(Run({"check", "builtin:grottoes"}).status, 0);
}

TEST_F(CheckTest, AFindingIsAFailureWithItsPlace) {
    Write(
        "my.xml",
        "<OstrelData>\n<Container UniqueName=\"c\" ModelFile=\"m\" SizeX=\"9\"/>\n</OstrelData>\n");
    const Outcome outcome = Run({"check", "my.xml"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out,
              "my.xml:1:1: error: there is no tile set\n"
              "    Nothing can be generated.\n"
              "my.xml:1:1: error: there is no layout\n"
              "    Nothing can be generated.\n"
              "my.xml:2:1: note: no Theme chooses Container \"c\"\n"
              "    It is never placed. Name it in a ThemeItem.\n"
              "my.xml:2:1: warning: Container \"c\" has no capacity\n"
              "    It takes only what weighs nothing. Give its capacity as Weight.\n"
              "2 errors, 1 warning, 1 note.\n");
}

TEST_F(CheckTest, JsonGivesThePlaceToPrograms) {
    Write("my.xml", "<OstrelData>\n<Rug UniqueName=\"r\" Stak=\"No\"/>\n</OstrelData>\n");
    const Outcome outcome = Run({"check", "my.xml", "--json"});
    EXPECT_EQ(outcome.status, 1);
    const auto json = nlohmann::json::parse(outcome.out);
    EXPECT_EQ(json.at("config"), "my.xml");
    EXPECT_EQ(json.at("usable"), true);
    EXPECT_EQ(json.at("clean"), false);
    const auto& finding = json.at("findings").at(3);
    EXPECT_EQ(finding.at("weight"), "warning");
    EXPECT_EQ(finding.at("line"), 2);
    EXPECT_EQ(finding.at("message"), "Rug has no attribute \"Stak\"");
    EXPECT_EQ(finding.at("meaning"), "It is ignored.");
    EXPECT_EQ(finding.at("column"), 21);
    EXPECT_EQ(finding.at("nearest"), "Stack");
}

TEST_F(CheckTest, SeveralAreNamedAndTheWorstCounts) {
    Write("empty.xml", "<OstrelData/>\n");
    Write("torn.xml", "<OstrelData>\n<Rug>\n</OstrelData>\n");
    const Outcome one = Run({"check", "builtin", "empty.xml"});
    EXPECT_EQ(one.status, 1);
    EXPECT_EQ(one.out,
              "builtin: Nothing is wrong.\n"
              "empty.xml:1:1: error: there is no tile set\n"
              "    Nothing can be generated.\n"
              "empty.xml:1:1: error: there is no layout\n"
              "    Nothing can be generated.\n"
              "empty.xml: 2 errors, 0 warnings, 0 notes.\n");
    EXPECT_EQ(Run({"check", "torn.xml", "empty.xml", "builtin"}).status, 2);
    EXPECT_EQ(Run({"check", "builtin", "builtin:caves"}).status, 0);
}

TEST_F(CheckTest, AMissingOneDoesNotKeepTheOthersFromBeingChecked) {
    const Outcome outcome = Run({"check", "none.xml", "builtin"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "builtin: Nothing is wrong.\n");
    EXPECT_EQ(outcome.err, "vaultry: the configuration \"none.xml\" does not exist\n");
}

TEST_F(CheckTest, JsonOfSeveralIsAList) {
    const auto json = nlohmann::json::parse(Run({"check", "builtin", "none.xml", "--json"}).out);
    ASSERT_EQ(json.size(), 1U);
    EXPECT_EQ(json.at(0).at("config"), "builtin");
}

TEST_F(CheckTest, TheSwitchOfTheOtherVerbsIsTaken) {
    EXPECT_EQ(Run({"check", "-c", "builtin"}).out, "Nothing is wrong.\n");
    EXPECT_EQ(Run({"check", "--config=builtin"}).out, "Nothing is wrong.\n");
}

#ifndef _WIN32
TEST_F(CheckTest, StandardInputIsOne) {
    Write("my.xml", "<OstrelData/>\n");
    const Outcome outcome = RunAfter("exec <my.xml", {"check", "-"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Contains(outcome.out, "-:1:1: error: there is no tile set\n")) << outcome.out;
}

TEST_F(CheckTest, StandardInputIsReadOnce) {
    const Outcome outcome = RunAfter("exec </dev/null", {"check", "-", "-"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "vaultry: standard input can be read only once: \"-\" is given twice\n");
}

TEST_F(CheckTest, StandardInputWithoutEndIsRefused) {
    const Outcome outcome = RunAfter("exec </dev/zero", {"check", "-"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "vaultry: standard input is larger than 64 MiB; name a file instead\n");
}
#endif

TEST_F(CheckTest, AMissingFileIsNamed) {
    const Outcome outcome = Run({"check", "none.xml"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "vaultry: the configuration \"none.xml\" does not exist\n");
}

TEST_F(CheckTest, APlugInIsToldFromAConfiguration) {
    Run({"generate", "--quiet", "-o", "a b.esp"});
    const Outcome outcome = Run({"check", "a b.esp"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err,
              "vaultry: \"a b.esp\" is a plug-in, not a configuration; \"vaultry inspect \"a "
              "b.esp\"\" tells what it holds\n");
}

TEST_F(CheckTest, WhatIsNoXmlIsUnusable) {
    Write("my.xml", "<OstrelData>\n<Rug>\n</OstrelData>\n");
    const Outcome outcome = Run({"check", "my.xml"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.out.find("my.xml:3:"), std::string::npos) << outcome.out;
    EXPECT_NE(outcome.out.find("Fatal Error parsing XML"), std::string::npos) << outcome.out;
}

} // namespace

} // namespace Tarnex::Test
