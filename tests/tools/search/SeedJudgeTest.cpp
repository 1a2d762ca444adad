// SPDX-License-Identifier: MIT
#include "tools/search/SeedJudge.h"

#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/RunState.h>

#include <gtest/gtest.h>

#include <new>
#include <optional>
#include <string>

namespace Tarnex::Test {

namespace {

using Search::Condition;
using Search::SeedJudge;
using Search::Verdict;

class SeedJudgeTest : public ::testing::Test {
protected:
    SeedJudgeTest() {
        Logger::InitWithoutFile();
        manager.Init(VAULTRY_SOURCE_DIR "/data/vaultry.xml");
        RunOptions options;
        options.levelSize = RandomGenInfo::Tiny;
        options.stamp = 1;
        run.emplace(manager, options);
    }

    SeedJudge JudgeOf(const char* where) {
        return {manager,
                [this](std::uint32_t seed) { return run->GenerateFrom(seed); },
                Condition(where)};
    }

    RunState state;
    UseRunState use{&state};
    GenMgr manager;
    std::optional<Tarnex::Run> run; // not that of the test
};

TEST_F(SeedJudgeTest, AWantedSeedComesWithItsFacts) {
    SeedJudge judge = JudgeOf("rooms>0 and errors=0");
    Logger::WriteError("Test", "logged before");
    const Verdict verdict = judge.Judge(7);
    ASSERT_TRUE(verdict.found);
    EXPECT_EQ(verdict.found->front(), 7);
    EXPECT_EQ(verdict.found->size(), Report::Facts().size());
    EXPECT_TRUE(verdict.missed.empty());
    EXPECT_EQ(verdict.fault, "");
    // The second time too, and whatever was made in between.
    judge.Judge(8);
    EXPECT_EQ(judge.Judge(7).found, verdict.found);
}

TEST_F(SeedJudgeTest, AnUnwantedSeedComesWithNothing) {
    const Verdict verdict = JudgeOf("rooms>1000").Judge(7);
    EXPECT_FALSE(verdict.found);
    EXPECT_EQ(verdict.missed.size(), Report::Facts().size());
    EXPECT_EQ(verdict.fault, "");
}

TEST_F(SeedJudgeTest, ASeedWithoutADungeonComesWithTheReason) {
    manager.defTileSet = nullptr;
    const Verdict verdict = JudgeOf("rooms>0").Judge(7);
    EXPECT_FALSE(verdict.found);
    EXPECT_EQ(verdict.fault, "Error : GenMgr : Unable to generate:  No default tile set.");
}

TEST_F(SeedJudgeTest, WithoutMemoryOneSeedIsLostAndLeavesNothingForTheNext) {
    const Verdict alone = JudgeOf("rooms>0").Judge(8);
    SeedJudge judge(
        manager,
        [this](std::uint32_t seed) {
            RunResult result = run->GenerateFrom(seed);
            return seed == 7 ? throw std::bad_alloc() : result;
        },
        Condition("rooms>0"));
    EXPECT_EQ(judge.Judge(7).fault, "out of memory");
    EXPECT_EQ(judge.Judge(8).found, alone.found);
}

} // namespace

} // namespace Tarnex::Test
