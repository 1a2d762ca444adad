// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <tests/cli/Program.h>

namespace Tarnex::Test {

namespace {

class PlayTest : public ProgramTest {
protected:
    PlayTest() {
        Run({"generate", "--seed", "3", "--stamp", "5", "-o", "keep.esp", "--quiet"});
        Write("Morrowind.esm", "");
    }
};

TEST_F(PlayTest, TheScriptPutsOneWhereInspectArrives) {
    const Outcome outcome =
        Run({"play", "keep.esp", "--stage", ".", "--engine", "openmw", "--print"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(Contains(outcome.out, "--content Morrowind.esm --content keep.esp --start keep "));
    EXPECT_TRUE(Contains(outcome.out, "vaultry-play.txt"));
    const std::string script = Read("vaultry-play.txt");
    EXPECT_TRUE(script.starts_with("player->positioncell "));
    EXPECT_TRUE(Contains(Run({"inspect", "keep.esp"}).out, "  Arrive       " + script));
}

TEST_F(PlayTest, WhatNobodyKnowsIsEnteredWithoutAPlace) {
    Generate({"-o", "own.esp"});
    const Outcome outcome =
        Run({"play", "own.esp", "--stage", ".", "--engine", "openmw", "--print"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err,
              "vaultry: warning: no built-in configuration knows \"own.esp\": one arrives where "
              "OpenMW finds a place\n");
    EXPECT_FALSE(Contains(outcome.out, "--script-run"));
}

TEST_F(PlayTest, AFolderWithoutTheMasterIsNoStage) {
    const Outcome outcome = Run({"play", "keep.esp", "--stage", "nowhere", "--engine", "openmw"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(
        Contains(outcome.err,
                 "is no stage: it has no \"Morrowind.esm\"; \"vaultry stage FOLDER\" makes one\n"));
}

TEST_F(PlayTest, AnEngineThatIsNotThereIsSaid) {
    const Outcome outcome = Run({"play", "keep.esp", "--stage", ".", "--engine", "./nothing"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "vaultry: \"./nothing\" cannot be started\n");
}

#ifndef _WIN32

TEST_F(PlayTest, TheGameIsTheOneOfTheEnginesConfiguration) {
    const std::string set = "mkdir -p openmw && export XDG_CONFIG_HOME=\"$PWD\"";
    const std::vector<std::string> play = {"play", "keep.esp", "--engine", "openmw", "--print"};
    EXPECT_TRUE(Contains(RunAfter(set, play).err,
                         "OpenMW does not load \"Morrowind.esm\": tick it in OpenMW's launcher, or "
                         "play without the game: \"vaultry stage FOLDER\", then --stage FOLDER"));
    const std::string listed = set + " && echo content=Morrowind.esm > openmw/openmw.cfg";
    EXPECT_TRUE(Contains(RunAfter(listed, play).out, " --content keep.esp --start keep "));
    const std::string both = listed + " && echo content=KEEP.esp >> openmw/openmw.cfg";
    EXPECT_FALSE(Contains(RunAfter(both, play).out, "--content"));
    EXPECT_TRUE(Read("openmw/vaultry-play.txt").starts_with("player->positioncell "));
}

TEST_F(PlayTest, TheEngineIsStartedWithItsWords) {
    const std::string engine = "printf '#!/bin/sh\\necho \"$1 $#\"; exit 3\\n' > engine && "
                               "chmod +x engine";
    const Outcome outcome =
        RunAfter(engine, {"play", "keep.esp", "--stage", ".", "--engine", "./engine"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.out, "--skip-menu 21\n");
}

#endif

} // namespace

} // namespace Tarnex::Test
