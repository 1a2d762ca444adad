// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <vaultry/output/PluginReader.h>

#include <tests/cli/Program.h>

namespace Tarnex::Test {

namespace {

using StageTest = ProgramTest;

TEST_F(StageTest, StandsInForTheGameUnderTheNameThatPluginsAskFor) {
    const Outcome outcome = Run({"stage", "stage"});
    ASSERT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(Contains(outcome.out, "wrote \"stage\": "));
    Generate({"-o", "a.esp"});
    const PluginFile plugin = ReadPlugin(Read("a.esp"));
    ASSERT_EQ(plugin.header.masters.size(), 1U);
    EXPECT_TRUE(ReadPlugin(Read("stage/" + plugin.header.masters[0].name)).complete);
}

TEST_F(StageTest, IsMadeForConfigurationsOfOnesOwnUnderAnotherName) {
    const Outcome outcome =
        Run({"stage", "s", "-c", smallConfig, "-c", "builtin", "--name", "B.esm"});
    ASSERT_EQ(outcome.status, 0);
    EXPECT_EQ(Read("s/Morrowind.esm"), "");
    EXPECT_TRUE(Contains(outcome.out, "  observed: "));
}

TEST_F(StageTest, TheFoldersOfTheEngineAreLeftAlone) {
    ASSERT_EQ(Run({"stage", "s"}).status, 0);
    const Outcome again = Run({"stage", "s"});
    EXPECT_EQ(again.status, 0);
    const Outcome here = Run({"stage", "."});
    EXPECT_EQ(here.status, 2);
    EXPECT_EQ(here.err, "vaultry: \".\" holds other files; a stage needs a folder of its own\n");
}

#ifndef _WIN32
TEST_F(StageTest, AFolderThatTheEngineIsToldOfIsRefused) {
    const std::string told =
        "mkdir -p cfg/openmw data; "
        "printf 'content=a\\ndata=\"%s/data\"\\n' \"$PWD\" > cfg/openmw/openmw.cfg; "
        "export XDG_CONFIG_HOME=\"$PWD/cfg\"";
    const Outcome outcome = RunAfter(told, {"stage", "data"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err,
              "vaultry: \"data\" holds the game's data; a stage needs a folder of its own\n");
}
#endif

TEST_F(StageTest, AConfigurationThatIsBrokenIsRefusedBeforeAnythingIsWritten) {
    Write("broken.xml", "<OstrelData><TileSet>");
    const Outcome outcome = Run({"stage", "s", "-c", "broken.xml"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err,
              "vaultry: the configuration \"broken.xml\" cannot be read to its end; \"vaultry "
              "check\" tells why\n");
    EXPECT_EQ(Files(), (std::vector<std::string>{"broken.xml"}));
}

} // namespace

} // namespace Tarnex::Test
