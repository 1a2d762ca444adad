// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <tests/cli/Program.h>

namespace Tarnex::Test {

namespace {

class DiffTest : public ProgramTest {
protected:
    DiffTest() {
        Generate({"--seed", "3", "--stamp", "5", "-o", "a.esp", "-n", "Keep"});
        Generate({"--seed", "3", "--stamp", "5", "-o", "b.esp", "-n", "Tower"});
    }
};

TEST_F(DiffTest, LikeRunsGiveTheSame) {
    Generate({"--seed", "3", "--stamp", "5", "-o", "b.esp", "-n", "Keep"});
    const Outcome outcome = Run({"diff", "a.esp", "b.esp"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "The plug-ins are the same.\n");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(DiffTest, DifferencesAreAFailureAndNamed) {
    const Outcome outcome = Run({"diff", "a.esp", "b.esp"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out,
              "Cell \"Keep\"\n"
              "  is missing\n"
              "Cell \"Tower\"\n"
              "  is new\n"
              "2 differences.\n");
    EXPECT_EQ(outcome.err, "");
}

TEST_F(DiffTest, JsonNamesThemForPrograms) {
    const Outcome outcome = Run({"diff", "--json", "a.esp", "b.esp"});
    EXPECT_EQ(outcome.status, 1);
    const auto json = nlohmann::json::parse(outcome.out);
    EXPECT_EQ(json.at("a"), "a.esp");
    EXPECT_EQ(json.at("b"), "b.esp");
    EXPECT_EQ(json.at("same"), false);
    EXPECT_EQ(json.at("differences").at(0).at("kind"), "cell-removed");
    EXPECT_EQ(json.at("differences").at(1).at("kind"), "cell-added");
}

TEST_F(DiffTest, AFileThatEndsTooEarlyIsComparedWithAWarning) {
    const std::string whole = Read("a.esp");
    Write("b.esp", whole.substr(0, whole.size() - 10));
    const Outcome outcome = Run({"diff", "a.esp", "b.esp"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "vaultry: warning: \"b.esp\" could be read in part only, see \"vaultry inspect\"\n");
}

TEST_F(DiffTest, WhatIsNoPluginIsRefusedInOneLine) {
    const Outcome outcome = Run({"diff", "a.esp", "none.esp"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "vaultry: \"none.esp\" does not exist\n");
}

TEST_F(DiffTest, NeedsTwoFiles) {
    const Outcome outcome = Run({"diff", "a.esp"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.ErrLines().size(), 1U);
}

} // namespace

} // namespace Tarnex::Test
