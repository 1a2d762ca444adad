// SPDX-License-Identifier: MIT
#include "tools/runs/RunLine.h"

#include "tools/text/UsageError.h"

#include <gtest/gtest.h>

#include <string>
#include <tests/support/Contains.h>

namespace Tarnex::Test {

namespace {

TEST(RunLineTest, OnlyWhatIsNotUsualIsSaid) {
    EXPECT_EQ(Report::GenerateCommandLine({}, 7),
              "vaultry generate --seed 7 --cell dungeon --size Medium");
    Report::RunRequest options;
    options.config = "my maps/a.xml";
    options.caveTileSet = "It's";
    options.levelSize = RandomGenInfo::Large;
    options.roomSpacing = RandomGenInfo::SemiTight;
    options.randomTheme = true;
    options.stamp = -3;
    EXPECT_EQ(
        Report::GenerateCommandLine(options, 4294967295U),
        "vaultry generate --seed 4294967295 --config \"my maps/a.xml\" --cell dungeon "
        "--cave-tileset \"It's\" --size Large --spacing Semi-tight --random-theme --stamp -3");
}

TEST(RunLineTest, TheMarginOfAMapNamesEveryOptionThatShapesLevels) {
    EXPECT_EQ(Report::LevelWords({}), "--size Medium");
    Report::RunRequest options;
    options.theme = "Noble hall";
    options.maxLevel = 12;
    options.randomTileSet = true;
    options.randomCreatureTheme = true;
    options.stamp = 1;
    options.cell = "Keep";
    EXPECT_EQ(Report::LevelWords(options),
              "--theme \"Noble hall\" --max-level 12 --size Medium --random-tileset "
              "--random-creature-theme");
    options.fixed = true;
    EXPECT_FALSE(Contains(Report::LevelWords(options), "--size"));
}

TEST(RunLineTest, WhatIsPrintedIsReadBack) {
    Report::RunRequest request;
    request.config = "-my maps/$a.xml";
    request.keepGoing = true;
    request.cell = "-Höhle 'x'";
    request.caveTileSet = "It's";
    request.numLevels = 10;
    request.levelSize = RandomGenInfo::Large;
    request.randomTheme = true;
    request.stamp = 9;
    const std::string line = Report::GenerateCommandLine(request, 4294967295U);
    const Report::RunRequest read = Report::ReadCommandLine(line);
    EXPECT_EQ(read.seed, 4294967295U);
    EXPECT_EQ(read.cell, request.cell);
    EXPECT_EQ(Report::GenerateCommandLine(read, *read.seed), line);
    EXPECT_EQ(Report::GenerateCommandLine(Report::ReadCommandLine("vaultry generate"), 1),
              "vaultry generate --seed 1 --cell dungeon --size Medium");
}

TEST(RunLineTest, OptionsMayBeWrittenInEveryWay) {
    const Report::RunRequest read = Report::ReadCommandLine(
        "vaultry generate -nKeep --size=large -c a.xml --levels 2 --fixed --seed=0");
    EXPECT_EQ(read.cell, "Keep");
    EXPECT_EQ(read.levelSize, RandomGenInfo::Large);
    EXPECT_EQ(read.config, "a.xml");
    EXPECT_EQ(read.numLevels, 2U);
    EXPECT_TRUE(read.fixed);
    EXPECT_EQ(read.seed, 0U);
}

std::string Refusal(const std::string& line) {
    try {
        Report::ReadCommandLine(line);
    } catch (const UsageError& e) {
        return e.what();
    }
    return {};
}

TEST(RunLineTest, OtherLinesAreRefused) {
    const std::string other = "it does not begin with vaultry generate";
    EXPECT_EQ(Refusal(""), other);
    EXPECT_EQ(Refusal("vaultry map"), other);
    const std::string start = "vaultry generate ";
    EXPECT_EQ(Refusal(start + "keep.esp"), "\"keep.esp\" is no option");
    EXPECT_EQ(Refusal(start + "-"), "\"-\" is no option");
    EXPECT_EQ(Refusal(start + "-o keep.esp"), "\"-o\" is no option of a run");
    EXPECT_EQ(Refusal(start + "--"), "\"--\" is no option of a run");
    EXPECT_EQ(Refusal(start + "--levels"), "\"--levels\" lacks its value");
    EXPECT_EQ(Refusal(start + "--levels x"),
              "--levels: \"x\" is not a whole number from 1 to 1000");
    EXPECT_EQ(Refusal(start + "--fixed=true"), "\"--fixed=true\" takes no value");
    EXPECT_EQ(Refusal(start + "--keep-going=1"), "\"--keep-going=1\" takes no value");
    EXPECT_EQ(Refusal(start + "--seed 1 --seed 2"), "--seed is given twice");
    EXPECT_EQ(Refusal(start + "-c a --config b"), "--config is given twice");
    EXPECT_EQ(Refusal(start + "--tileset a --cave-tileset b"), "--cave-tileset excludes --tileset");
    EXPECT_EQ(Refusal(start + "--seed 1;ls"), "\";\" stands outside of quotation marks");
}

} // namespace

} // namespace Tarnex::Test
