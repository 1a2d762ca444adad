// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Logger.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/GenMgr.h>
#include <vaultry/gen/Limits.h>
#include <vaultry/run/RunOptions.h>

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <tests/support/LogTest.h>
#include <vector>

namespace Tarnex::Test {

namespace {

std::string Set(RunOptions& options, std::string_view name, std::string_view text) {
    return SetOption(options, *FindRunOption(name), text);
}

OptionValue Get(const RunOptions& options, std::string_view name) {
    return ValueOf(options, *FindRunOption(name));
}

TEST(RunOptionsTest, EveryOptionHasANameOfItsOwnAndIsUnsetAtFirst) {
    std::set<std::string> names;
    const RunOptions options;
    for (const OptionRow& row : RunOptionRows()) {
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        EXPECT_TRUE(IsDefault(options, row)) << row.name;
        EXPECT_EQ(FindRunOption(row.name), &row);
    }
    EXPECT_EQ(FindRunOption("level"), nullptr);
    EXPECT_EQ(FindRunOption(""), nullptr);
}

TEST(RunOptionsTest, WhatIsSetIsReadBackAndResetIsAsBefore) {
    RunOptions options;
    for (const OptionRow& row : RunOptionRows()) {
        const std::vector<std::string> words = WordsOf(row);
        const std::string text = KindOf(row) == OptionKind::Switch   ? "true"
                                 : KindOf(row) == OptionKind::Number ? "7"
                                 : words.empty()                     ? "Grot"
                                                                     : words.back();
        EXPECT_EQ(SetOption(options, row, text), "") << row.name;
        EXPECT_FALSE(IsDefault(options, row)) << row.name;
        ResetOption(options, row);
        EXPECT_TRUE(IsDefault(options, row)) << row.name;
    }
}

TEST(RunOptionsTest, KindsOfValuesAreShownAsTheyAre) {
    RunOptions options;
    EXPECT_EQ(Get(options, "seed"), OptionValue());
    EXPECT_EQ(Get(options, "fixed"), OptionValue(false));
    EXPECT_EQ(Get(options, "levels"), OptionValue(std::int64_t{1}));
    EXPECT_EQ(Get(options, "size"), OptionValue("Random"));
    EXPECT_EQ(Set(options, "size", "LARGE"), "");
    EXPECT_EQ(Set(options, "seed", "4294967295"), "");
    EXPECT_EQ(Get(options, "size"), OptionValue("Large"));
    EXPECT_EQ(options.levelSize, RandomGenInfo::Large);
    EXPECT_EQ(options.seed, 4294967295U);
}

TEST(RunOptionsTest, NumbersHaveBounds) {
    RunOptions options;
    const std::string most = std::to_string(kMaxLevels);
    EXPECT_EQ(Set(options, "levels", most), "");
    EXPECT_EQ(Set(options, "levels", std::to_string(kMaxLevels + 1)),
              "is not a whole number from 1 to " + most);
    EXPECT_EQ(Set(options, "levels", "1"), "");
    EXPECT_NE(Set(options, "levels", "0"), "");
    EXPECT_EQ(Set(options, "seed", "0"), "");
    EXPECT_NE(Set(options, "seed", "4294967296"), "");
    EXPECT_NE(Set(options, "seed", "-1"), "");
    EXPECT_EQ(Set(options, "stamp", std::to_string(kMaxStamp)), "");
    EXPECT_NE(Set(options, "stamp", "9223372036854775808"), "");
    for (const char* text : {"", " 1", "1 ", "+1", "-0", "1.0", "0x1", "one"}) {
        EXPECT_NE(Set(options, "levels", text), "") << text;
    }
    EXPECT_EQ(options.numLevels, 1U);
    EXPECT_EQ(options.stamp, kMaxStamp);
}

TEST(RunOptionsTest, WhatIsRefusedChangesNothing) {
    RunOptions options;
    EXPECT_EQ(Set(options, "cave-tileset", "Cavern"), "");
    EXPECT_EQ(Set(options, "spacing", "wide"),
              "is none of Random, Tight, Semi-tight, Semi-loose, Loose");
    EXPECT_EQ(Set(options, "fixed", "yes"), "is not \"true\" or \"false\"");
    EXPECT_EQ(options.caveTileSet, "Cavern");
    EXPECT_EQ(options.roomSpacing, RandomGenInfo::RandomSpacing);
    EXPECT_FALSE(options.fixed);
}

TEST(RunOptionsTest, RivalsTakeEachOthersPlace) {
    RunOptions options;
    Set(options, "tileset", "Stone");
    Set(options, "cave-tileset", "Cavern");
    EXPECT_EQ(options.tileSet, std::nullopt);
    Set(options, "tileset", "Stone");
    EXPECT_EQ(options.caveTileSet, std::nullopt);
    Set(options, "template", "Shrine");
    Set(options, "cave-template", "Den");
    EXPECT_EQ(options.layout, std::nullopt);
    EXPECT_EQ(options.tileSet, "Stone");
}

class RunNamesTest : public LogTest {
protected:
    RunNamesTest() { manager.Init(VAULTRY_SOURCE_DIR "/data/vaultry.xml"); }

    std::vector<std::string> Unknown(const RunOptions& options) {
        std::vector<std::string> names;
        for (const OptionRow* row : UnknownNames(options, manager)) {
            names.emplace_back(row->name);
        }
        return names;
    }

    GenMgr manager;
};

TEST_F(RunNamesTest, NamesAreLookedUpToTheLetterInTheirOwnList) {
    RunOptions options;
    EXPECT_EQ(Unknown(options), std::vector<std::string>());
    options.creatureTheme = "Undead";
    EXPECT_EQ(Unknown(options), std::vector<std::string>());
    options.creatureTheme = "undead";
    options.theme = "Undead";
    EXPECT_EQ(Unknown(options), (std::vector<std::string>{"theme", "creature-theme"}));
}

TEST_F(RunNamesTest, ALetterThatTheGameLacksMatchesNoQuestionMark) {
    manager.InitFromMemory("<Vaultry><Themes><Theme Name=\"?\"/></Themes></Vaultry>", "a.xml");
    RunOptions options;
    options.theme = "\xCE\xA9";
    EXPECT_EQ(Unknown(options), std::vector<std::string>{"theme"});
}

TEST(AddedOptionTest, ARowGoesWithItsObject) {
    const std::size_t rows = RunOptionRows().size();
    {
        const AddedOption added({"roof", &RunOptions::maxLevel, "The height of roofs"});
        ASSERT_EQ(RunOptionRows().size(), rows + 1);
        EXPECT_EQ(FindRunOption("roof"), &RunOptionRows().back());
    }
    EXPECT_EQ(RunOptionRows().size(), rows);
    EXPECT_EQ(FindRunOption("roof"), nullptr);
}

} // namespace

} // namespace Tarnex::Test
