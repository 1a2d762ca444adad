// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/foundation/RunState.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/LevelObserver.h>
#include <vaultry/layout/LevelPlan.h>
#include <vaultry/output/PluginReader.h>
#include <vaultry/run/Run.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <sstream>
#include <string>
#include <tests/support/LogTest.h>
#include <thread>
#include <vector>

namespace Tarnex::Test {

namespace {

class RunTest : public LogTest {
protected:
    RunTest() {
        manager.Init(VAULTRY_SOURCE_DIR "/data/vaultry.xml");
        options.levelSize = RandomGenInfo::Tiny;
        options.seed = 3;
        options.stamp = 1;
    }

    // All that a run could leave behind besides the plug-in.
    std::vector<const void*> Defaults() const {
        return {manager.defTileSet.get(),
                manager.defTemplate.get(),
                manager.defTheme.get(),
                manager.defCreatureTheme.get(),
                manager.defTreasureTheme.get()};
    }

    std::string Bytes() {
        std::ostringstream stream;
        manager.mod.Write(stream);
        return stream.str();
    }

    // The name alone is the fixture's.
    RunResult Generate() { return Tarnex::Run(manager, options).Generate(); }

    GenMgr manager;
    RunOptions options;
};

TEST_F(RunTest, SeedAndStampAloneDecide) {
    EXPECT_EQ(Generate().end, RunEnd::Made);
    const std::string first = Bytes();
    options.seed = 4;
    EXPECT_EQ(Generate().end, RunEnd::Made);
    EXPECT_NE(Bytes(), first);
    options.seed = 3;
    const RunResult again = Generate();
    EXPECT_EQ(Bytes(), first);
    EXPECT_EQ(again.seed, 3U);
    EXPECT_EQ(again.stamp, 1);
    EXPECT_EQ(again.tries, 1U);
    EXPECT_EQ(again.levels.levels.size(), 1U);
}

// Four bytes of each reference, and nothing else.
TEST_F(RunTest, ReferencesAreNumberedThroughAllCellsWhereTheyAreToBeUnique) {
    options.numLevels = 3;
    Generate();
    const std::string before = Bytes();
    options.uniqueReferences = true;
    Generate();
    const std::string bytes = Bytes();
    ASSERT_EQ(bytes.size(), before.size());
    PluginFile plain = ReadPlugin(before);
    std::uint32_t number = 0;
    std::string renumbered = before;
    for (const PluginCell& cell : plain.cells) {
        for (const PluginRef& ref : cell.refs) {
            ++number;
            for (std::size_t byte = 0; byte < 4; ++byte) {
                renumbered.at(ref.offset + 8 + byte) = static_cast<char>(number >> 8 * byte);
            }
        }
    }
    EXPECT_GT(number, plain.cells.front().refs.size());
    EXPECT_EQ(bytes, renumbered);
    options.uniqueReferences = false;
    Generate();
    EXPECT_EQ(Bytes(), before);
}

// Behind all that is there without them.
TEST_F(RunTest, PathGridsAreAddedForEveryCell) {
    options.numLevels = 2;
    Generate();
    const std::string before = Bytes();
    options.pathGrid = true;
    const RunResult made = Generate();
    const std::string bytes = Bytes();
    EXPECT_TRUE(bytes.starts_with(before));
    const PluginFile file = ReadPlugin(bytes);
    EXPECT_TRUE(file.findings.empty());
    ASSERT_EQ(file.pathGrids.size(), 2U);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(file.pathGrids[i].cell, file.cells.at(i).name);
        EXPECT_GE(file.pathGrids[i].points.size(), 9 * made.levels.levels[i].rooms.size());
    }
    EXPECT_EQ(made.arrivals.size(), 2U);
    options.pathGrid = false;
    Generate();
    EXPECT_EQ(Bytes(), before);
}

TEST_F(RunTest, PlayableIsAllThatNeedsNoAnswer) {
    options.numLevels = 2;
    options.pathGrid = options.uniqueReferences = true;
    Generate();
    const std::string all = Bytes();
    options.pathGrid = options.uniqueReferences = false;
    options.playable = true;
    EXPECT_EQ(WhyIdle(options, *FindRunOption("path-grid")), "beside --playable");
    EXPECT_EQ(WhyIdle(options, *FindRunOption("unique-references")), "beside --playable");
    Generate();
    EXPECT_EQ(Bytes(), all);
}

TEST_F(RunTest, ACellWithoutANameHasNoPathGrid) {
    options.pathGrid = true;
    options.cell = "";
    Generate();
    EXPECT_EQ(manager.mod.GetCells().size(), 1U);
    EXPECT_TRUE(manager.mod.GetPathGrids().empty());
}

// The references of a cell that another has not, whatever their numbers.
std::vector<std::string> Added(const PluginCell& before, const PluginCell& now) {
    std::multiset<std::string> known;
    const auto textOf = [](const PluginRef& ref) {
        const Di3Point& at = ref.place.position;
        return ref.id + ' ' + std::to_string(at.x) + ' ' + std::to_string(at.y) + ' ' +
               std::to_string(at.z) + ' ' + std::to_string(ref.place.rotation.z);
    };
    for (const PluginRef& ref : before.refs) {
        known.insert(textOf(ref));
    }
    std::vector<std::string> added;
    for (const PluginRef& ref : now.refs) {
        const auto found = known.find(textOf(ref));
        if (found == known.end()) {
            added.push_back(ref.id);
        } else {
            known.erase(found);
        }
    }
    return added;
}

const PluginRef* TeleportTo(const PluginCell& cell, const std::string& name) {
    const auto door = std::ranges::find_if(cell.refs, [&name](const PluginRef& ref) {
        return ref.destination && ref.destination->cell == name;
    });
    return door == cell.refs.end() ? nullptr : &*door;
}

TEST_F(RunTest, AnEntranceIsADoorOutsideAndOneInTheFirstLevelThatLeadBothWays) {
    options.numLevels = 2;
    Generate();
    const std::string plain = Bytes();
    const PluginFile before = ReadPlugin(plain);
    options.entrance = {1000.0, -9000.0, 300.0, 90};
    options.entranceRegion = "West Gash";
    const RunResult made = Generate();
    ASSERT_EQ(made.end, RunEnd::Made);
    EXPECT_TRUE(made.problems.empty());
    const PluginFile file = ReadPlugin(Bytes());
    EXPECT_TRUE(file.findings.empty());
    ASSERT_EQ(file.cells.size(), 2U);
    ASSERT_EQ(file.exteriors.size(), 1U);
    EXPECT_EQ(file.exteriors[0].column, 0);
    EXPECT_EQ(file.exteriors[0].row, -2);
    EXPECT_EQ(file.exteriors[0].region, "West Gash");
    EXPECT_EQ(file.exteriors[0].name, "");

    const PluginRef* const outer = TeleportTo(file.exteriors[0], "dungeon, Level 1");
    const PluginRef* const inner = TeleportTo(file.cells[0], "");
    ASSERT_NE(outer, nullptr);
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(inner->id, "in_impsmall_door_01");
    EXPECT_EQ(inner->destination->arrival.position.x, 1128.0F);
    EXPECT_EQ(inner->destination->arrival.position.y, -9000.0F);
    EXPECT_EQ(inner->destination->arrival.position.z, 300.0F);
    // One stands on the floor, no farther from the door than in the middle of its cell.
    const Di3Point& at = outer->destination->arrival.position;
    EXPECT_EQ(at.z, -96.0F);
    EXPECT_LE(std::hypot(at.x - inner->place.position.x, at.y - inner->place.position.y), 160.0F);

    // A wall became a doorway with its door; all else stands where it stood.
    const std::vector<std::string> doors = {
        "in_impsmall_r_entr_01", "in_impsmall_doorjam_01", "in_impsmall_door_01"};
    EXPECT_EQ(Added(before.cells[0], file.cells[0]), doors);
    EXPECT_EQ(Added(file.cells[0], before.cells[0]).size(), 1U);
    EXPECT_EQ(Added(before.cells[1], file.cells[1]), std::vector<std::string>());
    const std::size_t firstCell = before.cells[0].offset;
    EXPECT_EQ(Bytes().substr(0, firstCell), plain.substr(0, firstCell));

    ASSERT_TRUE(made.entrance);
    EXPECT_EQ(made.entrance->inside.cell, "dungeon, Level 1");
    EXPECT_EQ(made.entrance->outside.facing, 90);
    options.entrance.reset();
    Generate();
    EXPECT_EQ(Bytes(), plain);
}

TEST_F(RunTest, TheEntranceOfAFixedInteriorIsTheDoorOfItsAuthor) {
    options.fixed = true;
    options.layout = "Sunken Shrine";
    Generate();
    const PluginFile before = ReadPlugin(Bytes());
    options.entrance = {0.0, 0.0, 0.0, 0};
    options.entranceRegion = "West Gash";
    ASSERT_TRUE(Generate().entrance);
    const PluginFile file = ReadPlugin(Bytes());
    EXPECT_EQ(Added(before.cells.at(0), file.cells.at(0)), std::vector<std::string>());
    EXPECT_NE(TeleportTo(file.cells[0], ""), nullptr);
}

TEST_F(RunTest, AnEntranceNeedsTheGameOrAHeightAndARegionAndACellWithAName) {
    const auto refused = [this] {
        const RunResult result = Generate();
        EXPECT_EQ(result.end, RunEnd::Refused);
        EXPECT_EQ(result.problems.size(), 1U);
        return result.problems.empty() ? "" : TextOf(result.problems[0]);
    };
    const std::string start = "Run : There is no place for the entrance:  ";
    options.entrance = {0.0, 0.0, 0.0, 0};
    options.game = {VAULTRY_SOURCE_DIR "/nowhere"};
    EXPECT_EQ(refused(), start + "--game: \"" VAULTRY_SOURCE_DIR "/nowhere\" is no folder.");
    options.game.reset();
    options.entranceRegion = "West Gash";
    options.entrance->z.reset();
    EXPECT_EQ(refused(),
              start + "without the game's files a place needs its height, --entrance X,Y,Z.");
    options.entrance->z = 0.0;
    options.cell = "";
    EXPECT_EQ(refused(), start + "no door leads to a cell without a name; give it one.");
}

TEST_F(RunTest, ASearchJudgesTheDungeonThatIsMade) {
    options.entrance = {0.0, 0.0, std::nullopt, 0};
    Tarnex::Run run(manager, options);
    EXPECT_EQ(run.GenerateFrom(3).end, RunEnd::Made);
    const PluginFile searched = ReadPlugin(Bytes());
    options.entrance->z = 0.0;
    options.entranceRegion = "West Gash";
    Generate();
    const PluginFile made = ReadPlugin(Bytes());
    EXPECT_EQ(Added(searched.cells.at(0), made.cells.at(0)), std::vector<std::string>());
    EXPECT_NE(TeleportTo(searched.cells[0], ""), nullptr);
}

TEST_F(RunTest, WhatChanceDecidesIsToldAndRepeats) {
    options.seed.reset();
    options.stamp.reset();
    const RunResult first = Generate();
    const std::string bytes = Bytes();
    options.seed = first.seed;
    options.stamp = first.stamp;
    Generate();
    EXPECT_EQ(Bytes(), bytes);
}

TEST_F(RunTest, NothingIsLeftInTheManager) {
    const std::vector<const void*> before = Defaults();
    options.randomTileSet = options.randomTheme = true;
    options.randomCreatureTheme = options.randomTreasureTheme = true;
    options.layout = "Sunken Shrine";
    options.platforms = true;
    options.numLevels = 2;
    // Each of the four is chosen otherwise than by default by some of these seeds.
    Tarnex::Run run(manager, options);
    for (std::uint32_t seed = 0; seed < 20; ++seed) {
        EXPECT_EQ(run.GenerateFrom(seed).end, RunEnd::Made);
        EXPECT_EQ(Defaults(), before) << "seed " << seed;
    }
    EXPECT_EQ(manager.randomInfo.numLevels, 1U);
    EXPECT_FALSE(manager.randomInfo.randomTheme);
    EXPECT_FALSE(manager.addPlatforms);
    EXPECT_FALSE(manager.nameSingleLevel);
}

// The creatures that are met on each level.
class CreatureNotes : public LevelObserver {
public:
    void StartOver() override { levels.clear(); }
    void LevelFinished(const FinishedLevel& level) override {
        std::set<std::string>& names = levels.emplace_back();
        for (const Ref& ref : level.cell.GetRefs()) {
            if (ref.sort == RefSort::Creature) {
                names.insert(ref.GetName());
            }
        }
    }
    std::vector<std::set<std::string>> levels;
};

std::set<std::string> CreaturesOf(const Theme& theme) {
    std::set<std::string> names;
    for (const DiPtr<ThemeItem>& item : theme.items) {
        names.insert(item->uniqueNames.begin(), item->uniqueNames.end());
    }
    return names;
}

TEST_F(RunTest, WhatEachLevelWasMadeFromIsTold) {
    options.randomTileSet = options.randomCreatureTheme = true;
    options.roomSpacing = RandomGenInfo::SemiLoose;
    options.numLevels = 3;
    CreatureNotes notes;
    manager.SetLevelObserver(&notes);
    std::set<std::string> themes;
    Tarnex::Run run(manager, options);
    for (std::uint32_t seed = 0; seed < 20; ++seed) {
        const GenReport report = run.GenerateFrom(seed).levels;
        ASSERT_EQ(report.chosen.size(), notes.levels.size());
        for (std::size_t i = 0; i < report.chosen.size(); ++i) {
            const LevelChoices& chosen = report.chosen[i];
            const LevelReport& level = report.levels[chosen.number - 1];
            EXPECT_EQ(chosen.cell, level.name);
            EXPECT_EQ(chosen.tileSet, level.tileSet);
            EXPECT_EQ(chosen.roomGrid, DiPos(2, 2, 0));
            EXPECT_EQ(chosen.spacing.lo, 2);
            EXPECT_EQ(chosen.spacing.hi, 5);
            EXPECT_FALSE(chosen.layout);
            EXPECT_EQ(chosen.theme, manager.defTheme);
            ASSERT_TRUE(chosen.creatureTheme);
            themes.insert(chosen.creatureTheme->GetName());
            EXPECT_TRUE(std::ranges::includes(CreaturesOf(*chosen.creatureTheme), notes.levels[i]))
                << "seed " << seed << ", level " << chosen.number;
        }
    }
    manager.SetLevelObserver(nullptr);
    EXPECT_GT(themes.size(), 2U);
}

TEST_F(RunTest, AFixedInteriorTellsItsLayout) {
    options.fixed = true;
    options.layout = "Sunken Shrine";
    options.theme = "Noble hall";
    const RunResult result = Generate();
    ASSERT_EQ(result.levels.chosen.size(), 1U);
    const LevelChoices& chosen = result.levels.chosen.front();
    EXPECT_EQ(chosen.number, 0U);
    EXPECT_EQ(chosen.cell, "dungeon");
    EXPECT_EQ(chosen.layout->GetName(), "Sunken Shrine");
    EXPECT_EQ(chosen.theme->GetName(), "Noble hall");
    EXPECT_FALSE(chosen.creatureTheme);
    EXPECT_TRUE(result.levels.levels.empty());
}

TEST_F(RunTest, TheCallersChanceAndContainersGoOnAsIfThereWereNone) {
    SeedRandom(5);
    const std::int32_t drawn = RandomInt(1000000);
    SetContainerStamp(9);
    const std::string id = NextContainerId();
    SeedRandom(5);
    SetContainerStamp(9);
    Generate();
    EXPECT_EQ(RandomInt(1000000), drawn);
    EXPECT_EQ(NextContainerId(), id);
}

TEST_F(RunTest, WhoeverRecordsDrawsSeesThoseOfRunsCountedOn) {
    std::vector<std::uint64_t> numbers;
    const auto note = [](const RandomDraw& draw, void* list) {
        static_cast<std::vector<std::uint64_t>*>(list)->push_back(draw.index);
    };
    RecordDraws(note, &numbers);
    Generate();
    const std::size_t once = numbers.size();
    Generate();
    RandomInt(2);
    RecordDraws(nullptr, nullptr);
    EXPECT_GT(once, 0U);
    ASSERT_EQ(numbers.size(), 2 * once + 1);
    EXPECT_EQ(numbers.front(), 1U);
    EXPECT_EQ(numbers.back(), numbers.size());
}

TEST_F(RunTest, ANameThatTheConfigurationLacksIsRefused) {
    options.theme = "No such hall";
    const RunResult result = Generate();
    EXPECT_EQ(result.end, RunEnd::Refused);
    ASSERT_EQ(result.problems.size(), 1U);
    EXPECT_EQ(result.problems.front(),
              (Problem{ProblemKind::UnknownName, {"theme", "No such hall"}}));
    EXPECT_EQ(
        ErrorLines(),
        std::vector<std::string>{"Error : Run : The configuration has no theme \"No such hall\"."});
    EXPECT_EQ(ErrorLines(), Tarnex::ErrorLines(result.problems));
}

TEST_F(RunTest, ErrorsAreThoseOfTheRunAlone) {
    options.theme = "No such hall";
    Generate();
    options.theme.reset();
    EXPECT_EQ(Generate().problems, std::vector<Problem>());
}

// Counts what it is shown since the last start.
class Counting : public LevelObserver {
public:
    void StartOver() override {
        ++starts;
        levels = 0;
    }
    void LevelFinished(const FinishedLevel& /*level*/) override { ++levels; }

    int starts = 0;
    int levels = 0;
};

TEST_F(RunTest, FurtherSeedsAreTriedUntilOneIsWalkable) {
    manager.Init(VAULTRY_SOURCE_DIR "/data/caves.xml");
    options.caveTileSet = "Mold cave tunnels";
    options.levelSize = RandomGenInfo::Large;
    options.roomSpacing = RandomGenInfo::Tight;
    options.numLevels = 3;
    options.seed = 128;
    EXPECT_FALSE(Generate().levels.IsWalkable());
    options.ensureWalkable = true;
    Counting counting;
    manager.SetLevelObserver(&counting);
    const RunResult found = Generate();
    manager.SetLevelObserver(nullptr);
    EXPECT_EQ(found.end, RunEnd::Made);
    EXPECT_TRUE(found.levels.IsWalkable());
    EXPECT_GT(found.tries, 1U);
    EXPECT_EQ(found.seed, FurtherSeed(128, found.tries - 1));
    EXPECT_EQ(counting.starts, static_cast<int>(found.tries));
    EXPECT_EQ(counting.levels, 3);
    const std::string bytes = Bytes();
    options.ensureWalkable = false;
    options.seed = found.seed;
    Generate();
    EXPECT_EQ(Bytes(), bytes);
}

TEST_F(RunTest, FurtherSeedsAreTriedUntilNothingOpensOntoNothing) {
    options.levelSize = RandomGenInfo::Large;
    options.roomSpacing = RandomGenInfo::Tight;
    options.seed = 125;
    ASSERT_FALSE(Generate().levels.IsClosed());
    options.ensureClosed = true;
    const RunResult found = Generate();
    EXPECT_EQ(found.end, RunEnd::Made);
    EXPECT_TRUE(found.levels.IsClosed());
    EXPECT_EQ(found.seed, FurtherSeed(125, found.tries - 1));
    EXPECT_GT(found.tries, 1U);
}

TEST_F(RunTest, WhatIsPlayableIsClosed) {
    options.levelSize = RandomGenInfo::Large;
    options.roomSpacing = RandomGenInfo::Tight;
    options.seed = 125;
    const std::uint32_t open = Generate().levels.levels.at(0).openEnds;
    options.playable = true;
    const std::uint32_t left = Generate().levels.levels.at(0).openEnds;
    EXPECT_LT(left, open);
    options.playable = false;
    options.closeOpenings = true;
    EXPECT_EQ(Generate().levels.levels.at(0).openEnds, left);
}

TEST_F(RunTest, AFixedInteriorIsMadeOnce) {
    options.fixed = options.ensureWalkable = options.ensureClosed = true;
    const RunResult result = Generate();
    EXPECT_EQ(result.end, RunEnd::Made);
    EXPECT_EQ(result.tries, 1U);
    EXPECT_TRUE(result.levels.levels.empty());
}

// The plan of each level: what is open, and the doors to other levels.
class PlanNotes : public LevelObserver {
public:
    void StartOver() override { notes.clear(); }
    void LevelFinished(const FinishedLevel& level) override {
        std::string note = level.layout.GetTileSet() ? level.layout.GetTileSet()->GetName() : "";
        for (const PlanCell& cell : PlanOf(level.layout).cells) {
            note += ' ' + std::to_string(cell.open) + (cell.teleport ? "t" : "");
        }
        notes.push_back(note);
    }

    std::vector<std::string> notes;
};

TEST_F(RunTest, AnotherSeedOfContentsKeepsThePlan) {
    options.numLevels = 3;
    options.randomTileSet = options.randomTheme = options.randomCreatureTheme = true;
    PlanNotes plan;
    manager.SetLevelObserver(&plan);
    Generate();
    const std::vector<std::string> notes = plan.notes;
    const std::string bytes = Bytes();
    ASSERT_EQ(notes.size(), 3U);
    options.contentSeed = 0;
    Generate();
    EXPECT_EQ(plan.notes, notes);
    const std::string ofNull = Bytes();
    EXPECT_NE(ofNull, bytes);
    options.contentSeed = UINT32_MAX;
    Generate();
    EXPECT_EQ(plan.notes, notes);
    EXPECT_NE(Bytes(), ofNull);
    options.contentSeed = 0;
    Generate();
    EXPECT_EQ(Bytes(), ofNull);
    options.seed = 4;
    Generate();
    EXPECT_NE(plan.notes, notes);
    manager.SetLevelObserver(nullptr);
}

TEST_F(RunTest, AnotherSeedOfContentsFurnishesAFixedInteriorAnew) {
    options.fixed = true;
    options.contentSeed = 1;
    Generate();
    const std::string first = Bytes();
    options.seed = 4;
    Generate();
    EXPECT_EQ(Bytes(), first);
    options.contentSeed = 2;
    Generate();
    EXPECT_NE(Bytes(), first);
}

TEST(FurtherSeedTest, SeedsStepByTheGoldenRatio) {
    EXPECT_EQ(FurtherSeed(7, 0), 7U);
    EXPECT_EQ(FurtherSeed(7, 1), 2654435776U);
    EXPECT_EQ(FurtherSeed(7, 2), 1013904249U);
}

// Runs on a thread of its own, in a log that nobody else writes.
std::string BytesOf(std::uint32_t seed) {
    RunState state;
    const UseRunState use(&state);
    Logger::InitWithoutFile();
    GenMgr manager;
    manager.Init(VAULTRY_SOURCE_DIR "/data/vaultry.xml");
    RunOptions options;
    options.seed = seed;
    options.stamp = 1;
    Run(manager, options).Generate();
    std::ostringstream stream;
    manager.mod.Write(stream);
    return stream.str();
}

TEST(RunThreadsTest, ThreadsWithARunEachDoNotDisturbEachOther) {
    const std::vector<std::string> alone = {BytesOf(1), BytesOf(2)};
    std::vector<std::string> together(2);
    std::thread first([&] { together[0] = BytesOf(1); });
    std::thread second([&] { together[1] = BytesOf(2); });
    first.join();
    second.join();
    EXPECT_EQ(together, alone);
}

} // namespace

} // namespace Tarnex::Test
