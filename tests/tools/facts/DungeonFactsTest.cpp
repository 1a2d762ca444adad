// SPDX-License-Identifier: MIT
#include "tools/facts/DungeonFacts.h"

#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/GenMgr.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <set>
#include <string>
#include <tests/support/TempDir.h>

namespace Tarnex::Test {

namespace {

using Report::DungeonTally;
using Report::LevelShape;

std::int64_t Value(const DungeonTally& tally, std::string_view fact) {
    return Report::ValuesOf(tally).at(Report::FindFact(fact).value());
}

TEST(DungeonFactsTest, NamesAreLowerCaseWordsAndEachStandsOnce) {
    std::set<std::string_view> names;
    for (const Report::Fact& fact : Report::Facts()) {
        EXPECT_TRUE(names.insert(fact.name).second) << fact.name;
        EXPECT_EQ(fact.name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789-"),
                  std::string_view::npos);
        EXPECT_FALSE(fact.help.empty());
    }
    EXPECT_EQ(Report::Facts().front().name, "seed");
}

TEST(DungeonFactsTest, NamesAreFoundInAnySpelling) {
    EXPECT_EQ(Report::FindFact("Dead_Ends"), Report::FindFact("dead-ends"));
    EXPECT_TRUE(Report::FindFact("dead-ends"));
    EXPECT_FALSE(Report::FindFact("dead ends"));
    EXPECT_FALSE(Report::FindFact(""));
}

TEST(DungeonFactsTest, LevelsAreAddedUpAndTheLongestWayIsTheLongestOfAny) {
    DungeonTally tally;
    tally.seed = 4'000'000'000U;
    tally.levels = {{3, 4, 1, 2, 5, 1, 20, 90, true}, {6, 7, 2, 1, 0, 0, 15, 80, true}};
    EXPECT_EQ(Value(tally, "seed"), 4'000'000'000);
    EXPECT_EQ(Value(tally, "levels"), 2);
    EXPECT_EQ(Value(tally, "rooms"), 9);
    EXPECT_EQ(Value(tally, "halls"), 11);
    EXPECT_EQ(Value(tally, "junctions"), 3);
    EXPECT_EQ(Value(tally, "loops"), 3);
    EXPECT_EQ(Value(tally, "dead-ends"), 5);
    EXPECT_EQ(Value(tally, "openings"), 1);
    EXPECT_EQ(Value(tally, "longest-way"), 20);
    EXPECT_EQ(Value(tally, "area"), 170);
}

TEST(DungeonFactsTest, CreaturesAreCountedByLevel) {
    DungeonTally tally;
    tally.creatureLevels = {-3, 1, 4, 5, 9, 9, 10, 14, 15, 99};
    EXPECT_EQ(Value(tally, "creatures"), 10);
    EXPECT_EQ(Value(tally, "creatures-to-4"), 3);
    EXPECT_EQ(Value(tally, "creatures-5-9"), 3);
    EXPECT_EQ(Value(tally, "creatures-10-14"), 2);
    EXPECT_EQ(Value(tally, "creatures-from-15"), 2);
    EXPECT_EQ(Value(tally, "creature-levels"), 163);
}

DiPtr<ContentTemplate>
Content(const char* kind, const char* subtype, const char* name, std::int32_t number) {
    auto content = MakeDi<ContentTemplate>();
    content->contentKind = kind;
    content->subtype = subtype;
    content->uniqueName = name;
    content->level = number;
    content->value = number;
    return content;
}

class TallyTest : public ::testing::Test {
protected:
    void Know(const char* kind, const char* subtype, const char* name, std::int32_t number) {
        DiPtr<ContentTemplate> content = Content(kind, subtype, name, number);
        catalogue.Add(content);
    }

    DungeonTally Count() { return Report::Tally(mod, report, {}, Report::ContentWorth(catalogue)); }

    ContentMgr catalogue;
    Mod mod;
    GenReport report;
};

TEST_F(TallyTest, TreasureIsWorthWhatTheCatalogueSays) {
    Know("Treasure", "Gold", "coin", 5);
    Know("Treasure", "Misc", "Cup", 20);
    Know("Treasure", "Misc", "cup", 9000); // the first counts
    const DiPtr<Container> chest = mod.CreateContainer();
    chest->Add("coin", 10);
    chest->Add("CUP", 2);
    chest->Add("unknown", 7);
    mod.CreateContainer()->Add("coin", 1);
    EXPECT_EQ(Count().treasure, 95);
    EXPECT_EQ(Count().containers, 2U);
}

TEST_F(TallyTest, WhatIsRefilledIsWorthNoLess) {
    Know("Treasure", "Misc", "cup", 20);
    mod.CreateContainer()->Add("cup", static_cast<std::uint32_t>(-2));
    EXPECT_EQ(Count().treasure, 40);
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(Report::ContentWorth(catalogue).StackValue("cup", kLeast),
              20 * (std::int64_t{1} << 31));
}

TEST_F(TallyTest, TreasureBeyondAllNumbersStaysAtTheGreatest) {
    Know("Treasure", "Gold", "star", std::numeric_limits<std::int32_t>::max());
    const DiPtr<Container> chest = mod.CreateContainer();
    for (int i = 0; i < 5; ++i) {
        chest->Add("star", std::numeric_limits<std::int32_t>::max());
    }
    EXPECT_EQ(Count().treasure, std::numeric_limits<std::int64_t>::max());
}

TEST_F(TallyTest, CreaturesHaveTheLevelsOfTheCatalogue) {
    Know("Creature", "Creature", "rat", 3);
    const DiPtr<Cell> cell = mod.CreateCell("Den");
    for (const char* name : {"Rat", "stranger"}) {
        Ref ref(name);
        ref.sort = RefSort::Creature;
        cell->AddRef(ref);
    }
    EXPECT_EQ(Count().creatureLevels, (std::vector<std::int32_t>{3, 1}));
}

// A whole run: what is told must agree with the file and with the library's own report.
class RealFactsTest : public ::testing::TestWithParam<RandomGenInfo::RoomSpacingT> {};

TEST_P(RealFactsTest, AgreeWithTheFileAndTheReport) {
    const TempDir folder;
    Logger::InitWithoutFile();
    GenMgr manager;
    manager.Init(VAULTRY_SOURCE_DIR "/data/vaultry.xml");
    manager.SetDefaultCreatureTheme("Undead");
    RandomGenInfo parameters;
    parameters.numLevels = 2;
    parameters.levelSize = RandomGenInfo::Medium;
    parameters.roomSpacing = GetParam();
    manager.SetRandomInfo(parameters);
    const Report::ContentWorth worth(*manager.config.contentMgr);
    Report::ShapeCollector shapes;
    manager.SetLevelObserver(&shapes);
    std::int64_t loops = 0;
    for (std::uint32_t seed = 1; seed <= 40; ++seed) {
        SeedRandom(seed);
        SetContainerStamp(1);
        ASSERT_EQ(manager.Generate("Test", false), ModResult::Written);
        const DungeonTally tally = Report::Tally(manager.mod, manager.report, shapes.Take(), worth);
        std::size_t made = 0;
        for (const LevelReport& level : manager.report.levels) {
            if (!level.made) {
                continue;
            }
            const LevelShape& shape = tally.levels.at(made++);
            EXPECT_EQ(shape.rooms, level.rooms.size()) << seed;
            EXPECT_EQ(shape.openings, level.openEnds) << seed;
            EXPECT_EQ(shape.connected, level.ReachableRooms() == level.rooms.size()) << seed;
        }
        EXPECT_EQ(tally.levels.size(), made);
        EXPECT_EQ(tally.walkable, manager.report.IsWalkable());
        const std::string file = folder.File("out.esp");
        ASSERT_EQ(manager.WriteMod(file.c_str()), ModResult::Written);
        EXPECT_EQ(tally.bytes, std::filesystem::file_size(file));
        EXPECT_EQ(Value(tally, "creatures"),
                  static_cast<std::int64_t>(
                      tally.references[static_cast<std::size_t>(RefSort::Creature)]));
        EXPECT_EQ(tally.containers, tally.references[static_cast<std::size_t>(RefSort::Container)]);
        loops += Value(tally, "loops");
    }
    // The rooms are joined in a ring.
    EXPECT_GT(loops, 40);
    Logger::Close();
}

INSTANTIATE_TEST_SUITE_P(Spacings,
                         RealFactsTest,
                         ::testing::Values(RandomGenInfo::Tight,
                                           RandomGenInfo::SemiTight,
                                           RandomGenInfo::Loose));

} // namespace

} // namespace Tarnex::Test
