// SPDX-License-Identifier: MIT
// A cancelled run ends soon wherever it is, and none takes more than it may.
#include <tests/gen/GenTest.h>

#include <vaultry/foundation/Random.h>
#include <vaultry/gen/GenIntFixed.h>
#include <vaultry/gen/GenIntRandom.h>
#include <vaultry/gen/GenMgr.h>
#include <vaultry/gen/Limits.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;

// Each turn of placing draws at least once, and one that is skipped exactly once.
constexpr std::uint64_t kMostTurns = 4'000;

// Counts the draws between two questions, and cancels at a wanted question.
class Questions : public JobStatus {
public:
    explicit Questions(int cancelAt_) : cancelAt(cancelAt_) { RecordDraws(Count, this); }
    ~Questions() override { RecordDraws(nullptr, nullptr); }
    Questions(const Questions&) = delete;
    Questions& operator=(const Questions&) = delete;

    bool HasBeenCanceled() const override {
        longest = std::max(longest, draws);
        draws = 0;
        return ++asked >= cancelAt;
    }

    mutable int asked = 0;
    mutable std::uint64_t draws = 0;
    mutable std::uint64_t longest = 0;

private:
    static void Count(const RandomDraw& /*draw*/, void* context) {
        ++static_cast<Questions*>(context)->draws;
    }

    int cancelAt;
};

constexpr int kNever = 1 << 30;

class RunMeterTest : public GenTest {
protected:
    RunMeterTest() {
        info.defTileSet = tiles;
        info.cellName = "Keep";
        info.defTemplate = ToTemplate("NW wN NE\nwW c wE\nSW wS SE");
    }

    // Items that are tried a hundred thousand times each and place nothing.
    static std::vector<ItemSpec> Tries(const char* type, std::size_t count) {
        return std::vector<ItemSpec>(count, ItemSpec{type, {}, 1.0F, -1.0F, -1, 100'000});
    }

    void RunFixed() { GenIntFixed(info).Gen(); }
};

TEST_F(RunMeterTest, PlacingContentsAsksEverySoManyTurns) {
    Add("Furniture", "table");
    info.defTheme = MakeTheme("Tries", Tries("Furniture", 3));
    Questions questions(kNever);
    info.jobStatus = &questions;
    RunFixed();
    EXPECT_GT(questions.asked, 15);
    EXPECT_LT(questions.longest, kMostTurns);
    EXPECT_LT(questions.draws, kMostTurns);
}

TEST_F(RunMeterTest, PlacingTreasureAsksEverySoManyTurns) {
    Add("Container", "chest");
    AddTreasure("Gold", "gold_001");
    info.defTheme = MakeTheme("Chests", {{"Container", {}, 1.0F, 1.0F, -1, 4}});
    info.defTreasureTheme = MakeTheme("Tries", Tries("Gold", 3));
    Questions questions(kNever);
    info.jobStatus = &questions;
    RunFixed();
    EXPECT_GT(questions.asked, 15);
    EXPECT_LT(questions.longest, kMostTurns);
}

// Content of a value that is hardly ever accepted is drawn again and again.
TEST_F(RunMeterTest, ChoosingRareContentAsksToo) {
    Add("Rug", "carpet").value = 30'000;
    info.defTheme =
        MakeTheme("Carpets", std::vector<ItemSpec>(4000, {"Rug", {}, 1.0F, 1.0F, 1, 1}));
    Questions questions(kNever);
    info.jobStatus = &questions;
    RunFixed();
    EXPECT_GT(questions.asked, 2);
    EXPECT_LT(questions.longest, 2'000'000U);
}

TEST_F(RunMeterTest, ACancelledRunEndsAtTheQuestion) {
    Add("Furniture", "table");
    info.defTheme = MakeTheme("Tries", Tries("Furniture", 3));
    Questions questions(2);
    info.jobStatus = &questions;
    RunFixed();
    EXPECT_EQ(questions.asked, 2);
    EXPECT_LT(questions.draws, kMostTurns);
    EXPECT_TRUE(info.report.canceled);
    EXPECT_TRUE(ErrorLines().empty());
}

TEST_F(RunMeterTest, ACancelledRunLeavesNothingOfItsLayoutBehind) {
    Add("Furniture", "table");
    info.defTemplate->AddChild(ToTemplate("wN"));
    info.defTheme = MakeTheme("Tries", Tries("Furniture", 1));
    Questions questions(1);
    info.jobStatus = &questions;
    RunFixed();
    EXPECT_TRUE(info.report.canceled);
    EXPECT_FALSE(tiles->Get(TileKindName("Center"))->isShared());
}

TEST_F(RunMeterTest, ARunOfManyLevelsCanBeCancelledWithinALevel) {
    info.config.roomLayouts = {info.defTemplate};
    info.randomInfo.levelSize = RandomGenInfo::Large;
    info.randomInfo.numLevels = 100;
    Questions questions(30);
    info.jobStatus = &questions;
    GenIntRandom(info).Gen();
    EXPECT_EQ(questions.asked, 30);
    EXPECT_TRUE(info.report.levels.size() < 100U);
    EXPECT_FALSE(tiles->Get(TileKindName("Center"))->isShared());
}

// A status that is asked once may forget that it said yes.
TEST_F(RunMeterTest, WhatWasCancelledInTheMiddleIsNotWritten) {
    class Once : public JobStatus {
    public:
        bool HasBeenCanceled() const override { return ++asked == 1; }
        mutable int asked = 0;
    };
    GenMgr mgr;
    mgr.config.contentMgr = info.config.contentMgr;
    Add("Furniture", "table");
    mgr.defTileSet = tiles;
    mgr.defTemplate = info.defTemplate;
    mgr.defTheme = MakeTheme("Tries", Tries("Furniture", 1));
    Once once;
    mgr.SetJobStatus(&once);
    EXPECT_EQ(mgr.CreateMod(dir.File("a.esp").c_str(), "Keep", true), ModResult::Canceled);
    EXPECT_FALSE(std::filesystem::exists(dir.File("a.esp")));
}

TEST_F(RunMeterTest, QuestionsChangeNoDraw) {
    Add("Furniture", "table");
    info.defTheme = MakeTheme("Tries", Tries("Furniture", 1));
    const auto drawn = [this](JobStatus* status) {
        info.jobStatus = status;
        SeedRandom(7);
        const DrawLog draws;
        RunFixed();
        return draws.Bounds();
    };
    JobStatus status;
    EXPECT_EQ(drawn(nullptr), drawn(&status));
}

// A tile with a name of a megabyte, three thousand times.
TEST_F(RunMeterTest, LongNamesDoNotFillTheMemory) {
    Tile tile;
    tile.kindName = "Long";
    tile.id = std::string(1'000'000, 'x');
    tiles->Set(tile);
    const auto plan = MakeDi<LayoutTemplate>(DiPos(60, 50, 0));
    const auto elmt = MakeDi<TemplateElmt>();
    elmt->tileNames.emplace_back("Long");
    for (std::int32_t row = 0; row < 50; ++row) {
        for (std::int32_t col = 0; col < 60; ++col) {
            plan->SetElmt(elmt, row, col);
        }
    }
    GenMgr mgr;
    mgr.defTileSet = tiles;
    mgr.defTemplate = plan;
    EXPECT_EQ(mgr.Generate("Keep", true), ModResult::Refused);
    EXPECT_EQ(ErrorLines(),
              Lines{"Error : GenMgr : The run asks for more than 2048 MiB of memory; it is given "
                    "up."});
}

TEST_F(RunMeterTest, ARunMakesAThousandLevelsAtMost) {
    info.defTileSet = MakeDi<TileSet>(); // without tiles a level fails at once
    info.randomInfo.numLevels = 4'000'000'000U;
    info.randomInfo.levelSize = RandomGenInfo::Tiny;
    GenIntRandom(info).Gen();
    EXPECT_EQ(info.report.levels.size(), kMaxLevels);
    EXPECT_EQ(ErrorLines().front(),
              "Error : Generator : The run asks for 4000000000 levels; 1000 are made.");
}

TEST_F(RunMeterTest, AThousandLevelsAreNotTooMany) {
    info.defTileSet = MakeDi<TileSet>();
    info.randomInfo.numLevels = 1000;
    info.randomInfo.levelSize = RandomGenInfo::Tiny;
    GenIntRandom(info).Gen();
    EXPECT_EQ(info.report.levels.size(), 1000U);
    for (const std::string& error : ErrorLines()) {
        EXPECT_EQ(error.find("levels;"), std::string::npos) << error;
    }
}

// The only room to choose is a maze of that many layouts inside one.
void MakeLevelOfMazes(GenInfo& info, int parts) {
    const DiPtr<LayoutTemplate> plan = ToTemplate("wN", "Maze");
    for (int i = 0; i < parts; ++i) {
        plan->AddChild(ToTemplate("c"));
    }
    info.config.roomLayouts = {plan};
    info.randomInfo.levelSize = RandomGenInfo::Large;
    info.randomInfo.roomSpacing = RandomGenInfo::Tight;
    SeedRandom(1);
    GenIntRandom(info).Gen();
}

TEST_F(RunMeterTest, ALayoutOfTooManyPartsMakesNoRoom) {
    MakeLevelOfMazes(info, 65);
    const Lines errors = ErrorLines();
    EXPECT_NE(std::ranges::find(errors,
                                "Error : Generator : Layout 'Maze' has 65 layouts inside; it makes "
                                "no room.  Max = 64."),
              errors.end());
    EXPECT_EQ(info.mod.GetCells().size(), 1U);
}

TEST_F(RunMeterTest, ALayoutOfSixtyFourPartsMakesARoom) {
    MakeLevelOfMazes(info, 64);
    for (const std::string& error : ErrorLines()) {
        EXPECT_EQ(error.find("it makes no room"), std::string::npos) << error;
    }
}

TEST_F(RunMeterTest, PlatformsOfAllWallsTogetherAreLimited) {
    PlatformTile floor;
    floor.kindName = "Floor";
    floor.size = Di3Point(2.56F, 2.56F, 1.0F); // a hundred by a hundred in a cell
    info.config.platformList = {MakeDi<Platform>()};
    info.config.platformList.front()->SetName("Sand");
    info.config.platformList.front()->Set(floor);
    for (const char* kind : {"StairsUpN", "Beam"}) {
        floor.kindName = kind;
        info.config.platformList.front()->Set(floor);
    }
    info.meter.Start(nullptr);
    OpenGen gen(info);
    std::string map;
    for (int i = 0; i < 110; ++i) {
        map += "wN ";
    }
    const DiPtr<Layout> layout = ToLayout(map, *tiles);
    gen.AddPlatforms(*layout);
    EXPECT_EQ(ErrorLines(),
              Lines{"Error : Generator : Platform 'Sand' asks for more than 1000000 floor "
                    "pieces in all; the rest of the walls stay without."});
    EXPECT_EQ(layout->GetElmt(0, 99)->platforms.size(), 10'003U); // with two beams
    EXPECT_EQ(layout->GetElmt(0, 100)->platforms.size(), 1U);     // the stairs
    EXPECT_EQ(layout->GetElmt(0, 109)->platforms.size(), 1U);
}

TEST_F(RunMeterTest, PlacingEndsAfterSoManySteps) {
    RunMeter meter;
    meter.Start(nullptr);
    EXPECT_TRUE(meter.StepPlacing(kMaxPlacingSteps));
    EXPECT_FALSE(meter.StepPlacing(1));
    EXPECT_FALSE(meter.StepPlacing(1));
    EXPECT_EQ(ErrorLines(),
              Lines{"Error : Generator : The themes ask for more than 10000000000 steps of "
                    "placing; nothing more is placed."});
}

TEST_F(RunMeterTest, EveryRunMayTakeAsMuchAsTheFirst) {
    RunMeter meter;
    for (int run = 0; run < 2; ++run) {
        meter.Start(nullptr);
        EXPECT_NO_THROW(meter.TakeMemory(kMaxRunMemory));
        EXPECT_TRUE(meter.StepPlacing(kMaxPlacingSteps));
        EXPECT_THROW(meter.TakeMemory(1), LimitReached);
        EXPECT_FALSE(meter.StepPlacing(1));
    }
    EXPECT_EQ(ErrorLines().size(), 2U);
}

TEST_F(RunMeterTest, MemoryGivenBackMayBeTakenAgain) {
    RunMeter meter;
    meter.Start(nullptr);
    meter.TakeMemory(1000);
    const std::uint64_t before = meter.GetMemory();
    meter.TakeMemory(kMaxRunMemory - 1000);
    meter.ReturnTo(before);
    EXPECT_NO_THROW(meter.TakeMemory(kMaxRunMemory - 1000));
    EXPECT_THROW(meter.TakeMemory(1), LimitReached);
}

} // namespace

} // namespace Tarnex::Test
