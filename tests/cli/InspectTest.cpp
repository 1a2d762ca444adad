// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <tests/cli/Program.h>

namespace Tarnex::Test {

namespace {

class InspectTest : public ProgramTest {
protected:
    InspectTest() { Generate({"--seed", "3", "--stamp", "5", "-o", "keep.esp", "-n", "Keep"}); }

    // Changes one byte of the plug-in.
    void Damage(std::size_t place, char byte) {
        std::string bytes = Read("keep.esp");
        bytes.at(place) = byte;
        Write("keep.esp", bytes);
    }
};

TEST_F(InspectTest, WhatGenerateWritesIsInOrder) {
    const Outcome outcome = Run({"inspect", "keep.esp"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out.substr(0, 19), "keep.esp: plug-in, ");
    EXPECT_NE(outcome.out.find("\nCell \"Keep\": "), std::string::npos);
    EXPECT_NE(outcome.out.find("\nNo inconsistencies.\n"), std::string::npos);
}

TEST_F(InspectTest, TotalsAreThoseOfASearch) {
    const std::vector<std::string> words = {"--preset", "tomb", "--levels", "2", "--stamp", "5"};
    std::vector<std::string> generate = {"generate", "--seed", "3", "-o", "tomb.esp"};
    std::vector<std::string> search = {"search", "--seeds", "3", "--json"};
    generate.insert(generate.end(), words.begin(), words.end());
    search.insert(search.end(), words.begin(), words.end());
    ASSERT_EQ(Run(generate).status, 0);
    const auto facts = nlohmann::json::parse(Run(search).out).at("hits").at(0);
    const auto totals = nlohmann::json::parse(Run({"inspect", "tomb.esp", "--json"}).out)["totals"];
    EXPECT_EQ(totals.at("interiors"), 2);
    EXPECT_EQ(totals.at("references"), facts.at("references"));
    EXPECT_EQ(totals.at("containers"), facts.at("containers"));
    EXPECT_GT(totals.at("lights"), 0);
    const auto& known = totals.at("known");
    EXPECT_EQ(known.at("creatures"), facts.at("creatures"));
    EXPECT_EQ(known.at("treasure"), facts.at("treasure"));
    EXPECT_GE(known.at("areas"), facts.at("rooms"));
    EXPECT_TRUE(
        Contains(Run({"inspect", "tomb.esp"}).out,
                 " creatures, treasure worth " + facts.at("treasure").dump() + " gold pieces\n"));
}

TEST_F(InspectTest, ReferencesAreShownWhenAskedFor) {
    EXPECT_EQ(Run({"inspect", "keep.esp"}).out.find("NorthMarker"), std::string::npos);
    const Outcome outcome = Run({"inspect", "keep.esp", "--refs"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.out.find("  1  NorthMarker "), std::string::npos);
}

TEST_F(InspectTest, FindingsAreAFailure) {
    Damage(320, 99); // the lowest byte of the header's record count
    const Outcome outcome = Run({"inspect", "keep.esp"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "");
    EXPECT_NE(outcome.out.find("\n1 finding:\n  0x0  the header says 99 records, "),
              std::string::npos)
        << outcome.out;
}

TEST_F(InspectTest, JsonHoldsFindingsToo) {
    Damage(320, 99);
    const Outcome outcome = Run({"inspect", "--json", "keep.esp"});
    EXPECT_EQ(outcome.status, 1);
    const auto json = nlohmann::json::parse(outcome.out);
    EXPECT_EQ(json.at("path"), "keep.esp");
    EXPECT_EQ(json.at("version"), VAULTRY_VERSION);
    EXPECT_EQ(json.at("header").at("records"), 99);
    EXPECT_EQ(json.at("cells").at(0).at("name"), "Keep");
    EXPECT_EQ(json.at("cells").at(0).at("references").at(0).at("id"), "NorthMarker");
    EXPECT_EQ(json.at("findings").size(), 1U);
}

TEST_F(InspectTest, WhatIsNoPluginIsRefusedInOneLine) {
    Write("text.esp", "Once upon a time");
    const Outcome text = Run({"inspect", "text.esp"});
    EXPECT_EQ(text.status, 2);
    EXPECT_EQ(text.out, "");
    EXPECT_EQ(text.err,
              "vaultry: \"text.esp\" is not a plug-in: it does not begin with a TES3 record\n");
    const Outcome none = Run({"inspect", "none.esp", "--json"});
    EXPECT_EQ(none.status, 2);
    EXPECT_EQ(none.out, "");
    EXPECT_EQ(none.err, "vaultry: \"none.esp\" does not exist\n");
}

TEST_F(InspectTest, NeedsAFile) {
    const Outcome outcome = Run({"inspect"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.ErrLines().size(), 1U);
}

TEST_F(InspectTest, HelpHasExamples) {
    const Outcome outcome = Run({"inspect", "--help"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.out.find("Examples:\n  vaultry inspect crypt.esp\n"), std::string::npos);
}

} // namespace

} // namespace Tarnex::Test
