// SPDX-License-Identifier: MIT
// Runs of random levels: names, progress, cancelling, levels given up, what is left afterwards.
#include <vaultry/foundation/Logger.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/GenIntFixed.h>
#include <vaultry/gen/GenMgr.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <tests/gen/OpenRandom.h>

namespace Tarnex::Test {

namespace {

using Info = RandomGenInfo;

constexpr std::int32_t U = kUnit;

constexpr const char* kGivingUp =
    "Error : Generator : Internal:  Giving up.  Failed to connect rooms in layout.";

class RandomRunTest : public LogTest {
protected:
    RandomRunTest() {
        mgr.config.roomTileSets = {tiles};
        mgr.defTileSet = tiles;
        mgr.defTemplate = ToTemplate("c");
        mgr.randomInfo.levelSize = Info::Tiny;
        mgr.randomInfo.roomSpacing = Info::Tight;
        mgr.jobStatus = &job;
        SeedRandom(1);
    }

    Lines CellNames() const {
        Lines names;
        for (const auto& cell : mgr.mod.GetCells()) {
            names.push_back(cell->GetName());
        }
        return names;
    }

    // Rooms of this set have neither walls nor anything else, so that no hall can leave them.
    void UseBareTiles() {
        bare->SetType("Room");
        mgr.config.roomTileSets = {bare};
        mgr.config.roomLayouts = {ToTemplate(". .")};
        mgr.defTileSet = bare;
    }

    // Lets the full and the bare set alternate by chance, and finds a seed for which the levels
    // that can be made are those of that name.
    void SkipLevels(unsigned count, const Lines& made) {
        bare->SetType("Room");
        mgr.config.roomTileSets = {tiles, bare};
        mgr.randomInfo.numLevels = count;
        mgr.randomInfo.randomTileSet = true;
        for (std::uint32_t seed = 0; seed < 2000; ++seed) {
            Logger::ResetErrors();
            job.events.clear();
            SeedRandom(seed);
            mgr.Generate("Crypt", false);
            if (CellNames() == made) {
                return;
            }
        }
        FAIL() << "no seed skips these levels";
    }

    // Whether any layout of a run still holds a tile of the set.
    static bool IsHeld(const TileSet& set) {
        static constexpr std::array kinds = {"CornerNW", "WallN", "WallE", "Center", "HallNS"};
        return std::ranges::any_of(kinds,
                                   [&set](const char* kind) { return set.Get(kind)->isShared(); });
    }

    Job job;
    GenMgr mgr;
    DiPtr<TileSet> tiles = MakeFullTileSet();
    DiPtr<TileSet> bare = MakeDi<TileSet>();
};

TEST_F(RandomRunTest, SeveralLevelsAreNumbered) {
    mgr.randomInfo.numLevels = 3;
    EXPECT_EQ(mgr.Generate("Crypt", false), ModResult::Written);
    EXPECT_EQ(CellNames(), (Lines{"Crypt, Level 1", "Crypt, Level 2", "Crypt, Level 3"}));
    EXPECT_EQ(mgr.cellName, "Crypt, Level 3");
}

TEST_F(RandomRunTest, ReportTellsOfEachLevelInOrder) {
    mgr.randomInfo.numLevels = 3;
    mgr.Generate("Crypt", false);
    ASSERT_EQ(mgr.report.levels.size(), 3U);
    for (std::uint32_t i = 0; i < 3; ++i) {
        const LevelReport& level = mgr.report.levels[i];
        EXPECT_EQ(level.number, i + 1);
        EXPECT_EQ(level.name, CellNames()[i]);
        EXPECT_TRUE(level.made);
        EXPECT_EQ(level.tileSet, tiles);
        EXPECT_EQ(level.roomGrid, DiPos(2, 2, 0));
        EXPECT_EQ(level.linked, i > 0);
    }
    EXPECT_TRUE(mgr.report.AreLevelsLinked());
}

TEST_F(RandomRunTest, ReportIsOfTheLastRunAlone) {
    mgr.randomInfo.numLevels = 2;
    mgr.Generate("Crypt", false);
    mgr.Generate("Mine", false);
    ASSERT_EQ(mgr.report.levels.size(), 2U);
    EXPECT_EQ(mgr.report.levels[0].name, "Mine, Level 1");
}

TEST_F(RandomRunTest, GeneratorRunTwiceReportsItsLastRunAlone) {
    mgr.randomInfo.numLevels = 2;
    GenIntRandom gen(mgr);
    gen.Gen();
    gen.Gen();
    EXPECT_EQ(mgr.report.levels.size(), 2U);
    EXPECT_EQ(CellNames().size(), 4U);
    GenIntFixed(mgr).Gen();
    EXPECT_TRUE(mgr.report.levels.empty());
}

TEST_F(RandomRunTest, LevelsOfASetWithoutDoorsAreNotLinked) {
    const auto doorless = MakeDi<TileSet>();
    doorless->SetType("Room");
    for (std::size_t i = 0; i < TileKind::kCount; ++i) {
        if (const DiPtr<Tile> tile = tiles->Get(TileKind::At(i).Name()); !IsDoorTile(*tile)) {
            doorless->Set(*tile);
        }
    }
    mgr.config.roomTileSets = {doorless};
    mgr.defTileSet = doorless;
    mgr.randomInfo.numLevels = 2;
    mgr.Generate("Crypt", false);
    ASSERT_EQ(mgr.report.levels.size(), 2U);
    EXPECT_TRUE(mgr.report.levels[1].made);
    EXPECT_FALSE(mgr.report.levels[1].linked);
    EXPECT_FALSE(mgr.report.AreLevelsLinked());
}

TEST_F(RandomRunTest, NextRunStartsFromItsOwnName) {
    mgr.randomInfo.numLevels = 2;
    mgr.Generate("Crypt", false);
    mgr.Generate("Mine", false);
    EXPECT_EQ(CellNames(), (Lines{"Mine, Level 1", "Mine, Level 2"}));
}

TEST_F(RandomRunTest, CellOfASingleLevelHasNoName) {
    mgr.Generate("Crypt", false);
    EXPECT_EQ(CellNames(), Lines{""});
    EXPECT_EQ(mgr.cellName, "");
}

TEST_F(RandomRunTest, CellOfASingleLevelIsNamedWhenAskedFor) {
    mgr.SetNameSingleLevel(true);
    mgr.Generate("Crypt", false);
    EXPECT_EQ(CellNames(), Lines{"Crypt"});
}

TEST_F(RandomRunTest, SeveralLevelsAreNumberedWhetherOrNotASingleOneIsNamed) {
    mgr.SetNameSingleLevel(true);
    mgr.randomInfo.numLevels = 2;
    mgr.Generate("Crypt", false);
    EXPECT_EQ(CellNames(), (Lines{"Crypt, Level 1", "Crypt, Level 2"}));
}

TEST_F(RandomRunTest, WithoutLevelsThereAreNoCells) {
    mgr.randomInfo.numLevels = 0;
    EXPECT_EQ(mgr.Generate("Crypt", false), ModResult::Written);
    EXPECT_EQ(CellNames(), Lines());
    EXPECT_EQ(job.events, (Lines{"Generating Layouts", "Adding Content"}));
}

TEST_F(RandomRunTest, LevelIsGivenUpAfterThreeAttempts) {
    UseBareTiles();
    Draws attempts;
    {
        const DrawLog draws;
        OpenRandom gen(mgr);
        for (int i = 0; i < 3; ++i) {
            EXPECT_FALSE(gen.MainLayout(DiPos(2, 2, 0)));
        }
        attempts = draws.Bounds();
    }
    SeedRandom(1);
    const DrawLog draws;
    EXPECT_EQ(mgr.Generate("Crypt", false), ModResult::Written);
    EXPECT_EQ(draws.Bounds(), attempts);
    EXPECT_EQ(CellNames(), Lines());
    EXPECT_EQ(ErrorLines(), Lines{kGivingUp});
    EXPECT_EQ(job.events, (Lines{"Generating Layouts", "Adding Content"}));
}

TEST_F(RandomRunTest, ReportOfALevelGivenUpNamesTheRoomsThatCouldNotBeJoined) {
    UseBareTiles();
    mgr.Generate("Crypt", false);
    ASSERT_EQ(mgr.report.levels.size(), 1U);
    const LevelReport& level = mgr.report.levels[0];
    EXPECT_FALSE(level.made);
    EXPECT_EQ(level.attempts, 3U);
    ASSERT_GE(level.failedHalls.size(), 2U);
    for (const FailedHall& hall : level.failedHalls) {
        EXPECT_FALSE(hall.from == hall.to);
        EXPECT_LT(std::max({hall.from.x, hall.from.y, hall.to.x, hall.to.y}), 2);
    }
}

TEST_F(RandomRunTest, SkippedLevelKeepsItsNumber) {
    SkipLevels(3, {"Crypt, Level 1", "Crypt, Level 3"});
    EXPECT_EQ(ErrorLines(), Lines{kGivingUp});
    EXPECT_EQ(job.events, (Lines{"Generating Layouts", "step", "step", "Adding Content"}));
}

TEST_F(RandomRunTest, LevelAfterASkippedOneCanBeTheFirst) {
    SkipLevels(2, {"Crypt, Level 2"});
    EXPECT_EQ(ErrorLines(), Lines{kGivingUp});
}

TEST_F(RandomRunTest, LastLevelCanBeSkipped) {
    SkipLevels(2, {"Crypt, Level 1"});
    EXPECT_EQ(job.events, (Lines{"Generating Layouts", "step", "Adding Content"}));
}

TEST_F(RandomRunTest, AfterASkippedLevelTheTileSetOfTheLastOneMadeIsInUse) {
    SkipLevels(2, {"Crypt, Level 1"});
    EXPECT_EQ(mgr.defTileSet, tiles);
}

TEST_F(RandomRunTest, LevelAfterASkippedOneMayKeepItsTileSet) {
    UseBareTiles();
    mgr.randomInfo.numLevels = 2;
    mgr.randomInfo.randomTileSet = true;
    Draws expected;
    {
        const DrawLog draws;
        OpenRandom gen(mgr);
        for (const bool first : {true, false}) {
            gen.InitRandomTileSet(first);
            for (int i = 0; i < 3; ++i) {
                EXPECT_FALSE(gen.MainLayout(DiPos(2, 2, 0)));
            }
        }
        expected = draws.Bounds();
    }
    SeedRandom(1);
    const DrawLog draws;
    mgr.Generate("Crypt", false);
    EXPECT_EQ(draws.Bounds(), expected);
    EXPECT_EQ(ErrorLines(), (Lines{kGivingUp, kGivingUp}));
}

TEST_F(RandomRunTest, ProgressIsAStepPerLevel) {
    mgr.randomInfo.numLevels = 3;
    mgr.Generate("Crypt", false);
    EXPECT_EQ(job.events, (Lines{"Generating Layouts", "step", "step", "step", "Adding Content"}));
    EXPECT_EQ(job.GetPos(), 3);
    // Once before each level and once before the file would be written.
    EXPECT_EQ(job.polls, 4);
}

TEST_F(RandomRunTest, RunWorksWithoutAJobStatus) {
    mgr.SetJobStatus(nullptr);
    mgr.randomInfo.numLevels = 2;
    EXPECT_EQ(mgr.Generate("Crypt", false), ModResult::Written);
    EXPECT_EQ(CellNames().size(), 2U);
}

TEST_F(RandomRunTest, CancellingBeforeALevelLeavesNothing) {
    mgr.randomInfo.numLevels = 3;
    const std::string file = dir.File("out.esp");
    for (int granted = 0; granted < 3; ++granted) {
        SCOPED_TRACE(granted);
        job = Job();
        job.granted = granted;
        EXPECT_EQ(mgr.CreateMod(file.c_str(), "Crypt", false), ModResult::Canceled);
        Lines events = {"Generating Layouts"};
        events.resize(1 + static_cast<std::size_t>(granted), "step");
        EXPECT_EQ(job.events, events);
        EXPECT_EQ(CellNames(), Lines());
        EXPECT_FALSE(std::filesystem::exists(file));
        EXPECT_FALSE(IsHeld(*tiles));
        EXPECT_TRUE(ErrorLines().empty());
    }
}

TEST_F(RandomRunTest, CancellingBeforeALevelCountsThoughTheStatusForgetsIt) {
    class Once : public JobStatus {
    public:
        explicit Once(int at_) : at(at_) {}
        bool HasBeenCanceled() const override { return asked++ == at; }

    private:
        int at;
        mutable int asked = 0;
    };
    mgr.randomInfo.numLevels = 3;
    const std::string file = dir.File("out.esp");
    for (int at = 0; at < 3; ++at) {
        SCOPED_TRACE(at);
        Once once(at);
        mgr.SetJobStatus(&once);
        EXPECT_EQ(mgr.CreateMod(file.c_str(), "Crypt", false), ModResult::Canceled);
        EXPECT_TRUE(mgr.report.canceled);
        EXPECT_FALSE(std::filesystem::exists(file));
    }
    mgr.SetJobStatus(nullptr);
    EXPECT_EQ(mgr.CreateMod(file.c_str(), "Crypt", false), ModResult::Written);
    EXPECT_FALSE(mgr.report.canceled);
}

TEST_F(RandomRunTest, WhereverARunIsCancelledTheNextOneIsAsIfItHadNotBeen) {
    const auto add = [this](const char* kind, const char* name, const char* subtype) {
        auto content = MakeDi<ContentTemplate>();
        content->contentKind = kind;
        content->uniqueName = name;
        content->subtype = subtype;
        content->weight = 100.0F;
        mgr.config.contentMgr->Add(content);
    };
    add("Container", "chest", "");
    add("Treasure", "ruby", "Gem");
    // Asks several times a level.
    const ItemSpec tries = {.type = "Gem", .chance = 0.0F, .maximum = 20'000};
    mgr.config.themes = {MakeTheme("Plain", {{.type = "Container", .minimum = 2}})};
    mgr.config.treasureThemes = {
        MakeTheme("Gems", {{.type = "Gem", .minimum = 3}, tries, {.type = "Gem", .minimum = 3}})};
    mgr.config.themes[0]->level = 1;
    mgr.config.treasureThemes[0]->level = 1;
    mgr.config.caveTileSets = {MakeFullTileSet("Cave")};
    mgr.config.roomLayouts = {ToTemplate(kLongPlan)};
    mgr.randomInfo.numLevels = 3;
    mgr.randomInfo.randomTileSet = true;
    mgr.randomInfo.randomTheme = true;
    mgr.randomInfo.randomTreasureTheme = true;
    const std::string file = dir.File("out.esp");
    const auto run = [this, &file](int granted) {
        job = Job();
        job.granted = granted;
        SeedRandom(7);
        SetContainerStamp(1000);
        return mgr.CreateMod(file.c_str(), "Crypt", false);
    };
    ASSERT_EQ(run(1 << 30), ModResult::Written);
    const std::string whole = ReadFile(file);
    const int questions = job.polls;
    EXPECT_GT(questions, 10);
    for (int granted = 0; granted < questions; ++granted) {
        SCOPED_TRACE(granted);
        std::filesystem::remove(file);
        EXPECT_EQ(run(granted), ModResult::Canceled);
        EXPECT_FALSE(std::filesystem::exists(file));
        EXPECT_EQ(run(1 << 30), ModResult::Written);
        EXPECT_EQ(ReadFile(file), whole);
    }
}

TEST_F(RandomRunTest, CancellingAfterTheLastLevelWritesNoFile) {
    mgr.randomInfo.numLevels = 3;
    job.granted = 3;
    const std::string file = dir.File("out.esp");
    EXPECT_EQ(mgr.CreateMod(file.c_str(), "Crypt", false), ModResult::Canceled);
    EXPECT_EQ(job.events.back(), "Adding Content");
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(RandomRunTest, CancelledRunLeavesAnEarlierFileAlone) {
    job.granted = 0;
    const std::string file = dir.Write("out.esp", "as it was");
    EXPECT_EQ(mgr.CreateMod(file.c_str(), "Crypt", false), ModResult::Canceled);
    EXPECT_EQ(ReadFile(file), "as it was");
}

TEST_F(RandomRunTest, LayoutsGoWithTheRun) {
    EXPECT_FALSE(IsHeld(*tiles));
    const DiPtr<LayoutTemplate> plan = ToTemplate("NW wN NE\nSW wS SE");
    plan->AddChild(ToTemplate("c c"));
    mgr.config.roomLayouts = {plan};
    mgr.randomInfo.numLevels = 3;
    bool held = false;
    job.onText = [&](const std::string& text) {
        held = text == "Adding Content" && IsHeld(*tiles);
    };
    mgr.Generate("Crypt", false);
    EXPECT_TRUE(held);
    EXPECT_FALSE(IsHeld(*tiles));
}

TEST_F(RandomRunTest, LayoutsOfFailedAttemptsGoToo) {
    // Parts of rooms without walls: the rooms cannot be joined.
    Tile floor;
    floor.kindName = "Center";
    bare->Set(floor);
    UseBareTiles();
    const DiPtr<LayoutTemplate> plan = ToTemplate("c c c");
    plan->AddChild(ToTemplate("c c"));
    mgr.config.roomLayouts = {plan};
    mgr.Generate("Crypt", false);
    EXPECT_EQ(ErrorLines(), Lines{kGivingUp});
    EXPECT_FALSE(bare->Get("Center")->isShared());
}

TEST_F(RandomRunTest, EachLevelIsWrittenWithItsOwnTileSet) {
    const DiPtr<TileSet> cave = MakeFullTileSet("Cave", 512);
    cave->Get("CornerNW")->id = "cave_corner";
    mgr.config.caveTileSets = {cave};
    mgr.randomInfo.numLevels = 2;
    mgr.randomInfo.randomTileSet = true;
    const auto corners = [](const Cell& cell, std::string_view id) {
        return std::ranges::count(cell.GetRefs(), id, &Ref::GetName);
    };
    // The caves, listed first, come second: that takes a draw above 0.7 on the second level.
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        SeedRandom(seed);
        mgr.Generate("Crypt", false);
        const auto& cells = mgr.mod.GetCells();
        ASSERT_EQ(cells.size(), 2U);
        if (corners(*cells[0], "CornerNW") > 0 && corners(*cells[1], "cave_corner") > 0) {
            EXPECT_EQ(corners(*cells[0], "cave_corner"), 0);
            EXPECT_EQ(corners(*cells[1], "CornerNW"), 0);
            EXPECT_EQ(mgr.defTileSet, cave);
            return;
        }
    }
    FAIL() << "no seed gives a room level and then a cave level";
}

TEST_F(RandomRunTest, DoorsThenThemesOfTheFirstLevelThenOfTheSecond) {
    const DiPtr<Theme> theme = MakeTheme("Plain", {});
    theme->level = 1;
    mgr.config.themes = {theme};
    mgr.randomInfo.randomTheme = true;
    mgr.randomInfo.numLevels = 2;
    std::optional<DrawLog> draws;
    job.onText = [&draws](const std::string& text) {
        if (text == "Adding Content") {
            draws.emplace();
        }
    };
    mgr.Generate("Crypt", false);
    ASSERT_TRUE(draws);
    const Draws& bounds = draws->Bounds();
    ASSERT_GE(bounds.size(), 4U);
    EXPECT_GT(bounds[0], 1); // the walls of the second level
    EXPECT_GT(bounds[1], 1); // the walls of the first level
    EXPECT_EQ(bounds[2], 1); // the first level chooses a theme anyway
    EXPECT_EQ(bounds[3], U); // the second may keep it
    EXPECT_EQ(mgr.defTheme, theme);
}

TEST_F(RandomRunTest, FirstLevelMadeChoosesItsThemesAnywayWhateverItsNumber) {
    const DiPtr<Theme> theme = MakeTheme("Plain", {});
    theme->level = 1;
    mgr.config.themes = {theme};
    mgr.randomInfo.randomTheme = true;
    std::optional<DrawLog> draws;
    job.onText = [&draws](const std::string& text) {
        draws.reset();
        if (text == "Adding Content") {
            draws.emplace();
        }
    };
    SkipLevels(2, {"Crypt, Level 2"});
    ASSERT_TRUE(draws);
    EXPECT_EQ(draws->Bounds(), (Draws{1}));
}

TEST_F(RandomRunTest, EachLevelFillsItsOwnContainers) {
    auto chest = MakeDi<ContentTemplate>();
    chest->contentKind = "Container";
    chest->uniqueName = "chest";
    mgr.config.contentMgr->Add(chest);
    mgr.defTheme = MakeTheme("Plain", {{.type = "Container", .minimum = 2, .maximum = 2}});
    mgr.randomInfo.numLevels = 3;
    OpenRandom gen(mgr);
    gen.Gen();
    EXPECT_EQ(mgr.mod.GetContainers().size(), 6U);
    ASSERT_EQ(gen.containers.size(), 2U);
    EXPECT_EQ(gen.containers.back(), mgr.mod.GetContainers().back());
}

TEST_F(RandomRunTest, WhatARunLeavesIsWhereTheNextOneStarts) {
    const DiPtr<TileSet> cave = MakeFullTileSet("Cave");
    mgr.config.roomTileSets.clear();
    mgr.config.caveTileSets = {cave};
    mgr.randomInfo.randomTileSet = true;
    mgr.Generate("Crypt", false);
    EXPECT_EQ(mgr.defTileSet, cave);
    mgr.randomInfo.randomTileSet = false;
    mgr.Generate("Crypt", false);
    EXPECT_EQ(mgr.defTileSet, cave);
}

} // namespace

} // namespace Tarnex::Test
