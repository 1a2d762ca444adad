// SPDX-License-Identifier: MIT
// Plug-ins that say how they were made.
#include "tools/text/ShellWords.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <tests/cli/Program.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Json = nlohmann::json;
using Lines = std::vector<std::string>;

class DescribeTest : public ProgramTest {
protected:
    Outcome Make(const Lines& more) const {
        Lines arguments = {"generate", "--size", "tiny", "--describe", "--quiet"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }

    // The line that inspect prints.
    std::string LineOf(const std::string& plugin) const {
        const Json json = Json::parse(Run({"inspect", plugin, "--json"}).out);
        return json.at("command").is_null() ? "" : json.at("command");
    }

    // Makes what the line says under another name, and compares.
    void ExpectThatItMakes(const std::string& line, const std::string& plugin) const {
        Lines words = Report::SplitCommandLine(line);
        ASSERT_EQ(words.front(), "vaultry") << line;
        words.erase(words.begin());
        words.insert(words.end(), {"-o", "again.esp", "--quiet"});
        EXPECT_EQ(Run(words).status, 0) << line;
        EXPECT_EQ(Read("again.esp"), Read(plugin)) << line;
    }

    // More than a description holds.
    static Lines Long() {
        return {"-o",
                "keep.esp",
                "-n",
                std::string(60, 'n'),
                "--tileset",
                "Imperial small",
                "--theme",
                "Ancestral tomb",
                "--creature-theme",
                "Undead (easy)",
                "--treasure-theme",
                "Merchant's coffers",
                "--stamp",
                "9007199254740991"};
    }
};

TEST_F(DescribeTest, TheLineThatInspectPrintsMakesThePluginAgain) {
    for (const Lines& more : {Lines{},
                              Lines{"--preset", "smugglers", "--random-theme"},
                              Lines{"--ensure-walkable", "--levels", "2", "-n", "Caf\xC3\xA9's"},
                              Lines{"-c", "builtin:grottoes", "--fixed", "--platforms"}}) {
        Lines arguments = {"-o", "keep.esp"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        EXPECT_EQ(Make(arguments).status, 0);
        const std::string line = LineOf("keep.esp");
        EXPECT_TRUE(Contains(Run({"inspect", "keep.esp"}).out, "Made by      " + line + '\n'));
        ExpectThatItMakes(line, "keep.esp");
    }
}

TEST_F(DescribeTest, ALongerLineStandsInAFileBesideThePlugin) {
    const Outcome outcome = Make(Long());
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(Files(), (Lines{"keep.esp", "keep.esp.txt"}));
    ExpectThatItMakes(LineOf("keep.esp"), "keep.esp");
    // Without that file there is no line.
    Write("keep.esp.txt", "vaultry 0.1.0: vaultry generate --seed 7; rm -rf .\n");
    const Outcome inspected = Run({"inspect", "keep.esp"});
    EXPECT_EQ(inspected.status, 0);
    EXPECT_TRUE(Contains(inspected.err, "\"keep.esp.txt\" is to say how the plug-in was made"));
    EXPECT_FALSE(Contains(inspected.out, "Made by"));
}

TEST_F(DescribeTest, ALineThatNotEveryShellReadsAlikeIsNotRepeated) {
    const std::string warning = "keep.esp\" holds the line that made the plug-in, which is not "
                                "repeated since not every shell reads it alike";
    Make({"-o", "keep.esp", "-n", "!&calc&"});
    EXPECT_EQ(LineOf("keep.esp"), "");
    const Outcome inspected = Run({"inspect", "keep.esp"});
    EXPECT_FALSE(Contains(inspected.out, "Made by"));
    EXPECT_TRUE(Contains(inspected.err, warning)) << inspected.err;
}

TEST_F(DescribeTest, SuchALineBesideIsKnownForItsOwn) {
    Lines arguments = Long();
    arguments[3].back() = '%';
    EXPECT_EQ(Make(arguments).status, 0);
    EXPECT_TRUE(Contains(Run({"inspect", "keep.esp"}).err, "keep.esp.txt\" holds the line"));
    EXPECT_EQ(Make(arguments).status, 0);
}

TEST_F(DescribeTest, TheFileBesideIsReported) {
    Lines arguments = Long();
    arguments.emplace_back("--json");
    const Json files = Json::parse(Make(arguments).out).at("files");
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files.at(1).at("path"), "keep.esp.txt");
    EXPECT_EQ(files.at(1).at("bytes"), Read("keep.esp.txt").size());
}

TEST_F(DescribeTest, NothingIsWrittenWhereTheFileBesideCannotBe) {
    for (const Lines& more : {Lines{"--log", "keep.esp.txt"}, Lines{"--html", "keep.esp.txt"}}) {
        Lines arguments = Long();
        arguments.insert(arguments.end(), more.begin(), more.end());
        EXPECT_EQ(Make(arguments).status, 2);
        EXPECT_EQ(Files(), Lines{});
    }
}

TEST_F(DescribeTest, AFileOfSomebodyElseIsNotReplaced) {
    Write("keep.esp.txt", "notes\n");
    const Outcome outcome = Make(Long());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Contains(outcome.err,
                         "\"keep.esp.txt\" is to say how the plug-in was made, and holds something "
                         "else: move it away, or name the plug-in otherwise"));
    EXPECT_EQ(Files(), Lines{"keep.esp.txt"});
    EXPECT_EQ(Read("keep.esp.txt"), "notes\n");
    // One of an earlier plug-in is.
    Write("keep.esp.txt", "vaultry 0.1.0: vaultry generate --seed 7\n");
    EXPECT_EQ(Make(Long()).status, 0);
    ExpectThatItMakes(LineOf("keep.esp"), "keep.esp");
}

TEST_F(DescribeTest, WithoutTheOptionNothingIsSaid) {
    Run({"generate", "--size", "tiny", "-o", "keep.esp", "--quiet"});
    EXPECT_EQ(LineOf("keep.esp"), "");
    EXPECT_FALSE(Contains(Run({"inspect", "keep.esp"}).out, "Made by"));
}

} // namespace

} // namespace Tarnex::Test
