// SPDX-License-Identifier: MIT
#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/GenMgr.h>
#include <vaultry/gen/Limits.h>
#include <vaultry/run/BuiltinConfigs.h>
#include <vaultry/run/RunOptions.h>

#include <gtest/gtest.h>

#include <algorithm>
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
                                 : KindOf(row) == OptionKind::Place  ? "1,2,3,4"
                                 : KindOf(row) == OptionKind::Range  ? "7..8"
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
    EXPECT_EQ(Get(options, "size"), OptionValue("Medium"));
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

TEST(RunOptionsTest, ARangeIsTwoNumbersWithinBounds) {
    RunOptions options;
    EXPECT_EQ(Get(options, "lock-levels"), OptionValue("10..50"));
    EXPECT_EQ(Set(options, "lock-levels", "1..100"), "");
    EXPECT_EQ(options.lockLevels, (LockLevels{1, 100}));
    EXPECT_EQ(Set(options, "lock-levels", "7..7"), "");
    EXPECT_EQ(Get(options, "lock-levels"), OptionValue("7..7"));
    EXPECT_EQ(
        Set(options, "lock-levels", "8..7"),
        "is not A..B, two whole numbers from 1 to 100 of which the second is not the smaller");
    for (const char* text : {"",
                             "7",
                             "..",
                             "7..",
                             "..7",
                             "0..7",
                             "7..101",
                             "-1..7",
                             "7..-1",
                             "7.8",
                             " 7..8",
                             "7..8 ",
                             "7...8",
                             "7..8..9",
                             "7..99999999999999999999"}) {
        EXPECT_NE(Set(options, "lock-levels", text), "") << text;
    }
    EXPECT_EQ(options.lockLevels, (LockLevels{7, 7}));
}

TEST(RunOptionsTest, AFileIsAnyPath) {
    RunOptions options;
    EXPECT_EQ(KindOf(*FindRunOption("ids")), OptionKind::File);
    EXPECT_EQ(Get(options, "ids"), OptionValue());
    EXPECT_EQ(Set(options, "ids", "\xC5\x82/my ids.csv"), "");
    EXPECT_EQ(Get(options, "ids"), OptionValue("\xC5\x82/my ids.csv"));
    EXPECT_EQ(Set(options, "ids", ""), "is no path");
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

TEST(RunOptionsTest, WhyAnOptionHasNoEffectIsSaid) {
    const auto why = [](const RunOptions& options, std::string_view name) {
        return WhyIdle(options, *FindRunOption(name));
    };
    RunOptions options;
    EXPECT_EQ(why(options, "template"), "without --fixed");
    EXPECT_EQ(why(options, "max-level"), "without --random-creature-theme");
    EXPECT_EQ(why(options, "size"), "");
    EXPECT_EQ(why(options, "tileset"), "");
    options.randomTileSet = true;
    options.randomCreatureTheme = true;
    EXPECT_EQ(why(options, "tileset"), "beside --random-tileset");
    EXPECT_EQ(why(options, "creature-theme"), "beside --random-creature-theme");
    EXPECT_EQ(why(options, "max-level"), "");
    EXPECT_EQ(why(options, "fixed"), "");
    options.fixed = true;
    EXPECT_EQ(why(options, "template"), "");
    EXPECT_EQ(why(options, "levels"), "beside --fixed");
    // What chance would choose counts for nothing there either.
    EXPECT_EQ(why(options, "random-tileset"), "beside --fixed");
    EXPECT_EQ(why(options, "tileset"), "");
    EXPECT_EQ(why(options, "max-level"), "without --random-creature-theme");
}

TEST(CellNameTest, TheFileNamesTheCell) {
    EXPECT_EQ(CellNameOf("keep.esp"), "keep");
    EXPECT_EQ(CellNameOf("out/my.old keep.omwaddon"), "my.old keep");
    EXPECT_EQ(CellNameOf("C:\\out.d\\keep"), "keep");
    EXPECT_EQ(CellNameOf(".esp"), ".esp");
    EXPECT_EQ(CellNameOf("H\u00F6hle \u0160.esp"), "H\u00F6hle \u0160");
}

TEST(CellNameTest, WhatTheGameLacksBecomesAnUnderscore) {
    EXPECT_EQ(CellNameOf("P\u0159\u00ED \"x\"\n.esp"), "P_\u00ED _x__");
    EXPECT_EQ(CellNameOf("\u041F\u0435\u0449.esp"), "dungeon");
    EXPECT_EQ(CellNameOf(""), "dungeon");
    EXPECT_EQ(CellNameOf(" .esp"), "dungeon");
}

TEST(CellNameTest, TheNumberOfALevelStillFits) {
    const std::string longest(51, 'x');
    EXPECT_EQ(CellNameOf(longest + ".esp"), longest);
    EXPECT_EQ(CellNameOf(longest + "y.esp"), longest);
    EXPECT_EQ(longest.size() + std::string(", Level 1000").size(), 63U);
    EXPECT_EQ(CellNameOf(std::string(50, '\xC3') + "  keep.esp"), "dungeon");
}

class RunNamesTest : public LogTest {
protected:
    RunNamesTest() { manager.Init(VAULTRY_SOURCE_DIR "/data/vaultry.xml"); }

    std::vector<std::string> Unknown(RunOptions& options) {
        std::vector<std::string> names;
        for (const OptionRow* row : SpellNames(options, manager)) {
            names.emplace_back(row->name);
        }
        return names;
    }

    GenMgr manager;
};

TEST_F(RunNamesTest, NamesAreLookedUpInTheirOwnListAndSpeltAsThere) {
    RunOptions options;
    EXPECT_EQ(Unknown(options), std::vector<std::string>());
    options.creatureTheme = "Undead";
    EXPECT_EQ(Unknown(options), std::vector<std::string>());
    options.creatureTheme = "uNDEAD (Easy)";
    options.theme = "Undead";
    options.layout = "Undea";
    EXPECT_EQ(Unknown(options), (std::vector<std::string>{"template", "theme"}));
    EXPECT_EQ(options.creatureTheme, "Undead (easy)");
    EXPECT_EQ(options.theme, "Undead");
}

TEST_F(RunNamesTest, OfTwoNamesTheOneOfTheSameLettersIsMeant) {
    manager.InitFromMemory(
        "<Vaultry><Themes><Theme Name=\"Den\"/><Theme Name=\"den\"/></Themes></Vaultry>", "a.xml");
    RunOptions options;
    for (const char* name : {"den", "Den"}) {
        options.theme = name;
        EXPECT_EQ(Unknown(options), std::vector<std::string>());
        EXPECT_EQ(options.theme, name);
    }
}

TEST_F(RunNamesTest, DefaultsAreNamedWhereTheyMayChange) {
    RunOptions options;
    NameDefaults(options, manager);
    EXPECT_EQ(options.cell, "dungeon");
    EXPECT_EQ(options.tileSet, std::nullopt);
    LoadBuiltin(manager, *std::ranges::find(BuiltinConfigs(), "caves", &BuiltinConfig::name), "a");
    const std::string set = ToUtf8(manager.GetCaveTileSets().front()->GetName());
    options.cell = "Den";
    options.randomTileSet = true;
    NameDefaults(options, manager);
    EXPECT_EQ(options.cell, "Den");
    EXPECT_EQ(options.caveTileSet, std::nullopt);
    options.fixed = true;
    NameDefaults(options, manager);
    EXPECT_EQ(options.caveTileSet, set);
    EXPECT_EQ(options.caveLayout, ToUtf8(manager.GetCaveLayouts().front()->GetName()));
    RunOptions rooms;
    rooms.tileSet = "Velothi";
    rooms.layout = "Small Chamber";
    rooms.fixed = true;
    NameDefaults(rooms, manager);
    EXPECT_EQ(rooms.caveTileSet, std::nullopt);
    EXPECT_EQ(rooms.caveLayout, std::nullopt);
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
        const AddedOption added(
            {"roof", &RunOptions::maxLevel, "The height of roofs", OptionGroup::Shape});
        ASSERT_EQ(RunOptionRows().size(), rows + 1);
        EXPECT_EQ(FindRunOption("roof"), &RunOptionRows().back());
    }
    EXPECT_EQ(RunOptionRows().size(), rows);
    EXPECT_EQ(FindRunOption("roof"), nullptr);
}

} // namespace

} // namespace Tarnex::Test
