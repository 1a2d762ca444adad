// SPDX-License-Identifier: MIT
#include "tests/support/LogTest.h"

#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/foundation/RunState.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <thread>
#include <vector>

namespace Tarnex::Test {

namespace {

constexpr std::int32_t kEveryValue = 32768;

class RunStateTest : public LogTest {
protected:
    void SetUp() override { SeedRandom(1); }
};

TEST_F(RunStateTest, AStateHasItsOwnChance) {
    RunState state;
    {
        const UseRunState use(&state);
        SeedRandom(12345);
        EXPECT_EQ(RandomInt(kEveryValue), 7584);
    }
    EXPECT_EQ(RandomInt(kEveryValue), 41);
    const UseRunState again(&state);
    EXPECT_EQ(RandomInt(kEveryValue), 19164);
}

TEST_F(RunStateTest, AnUnseededStateStartsFromOne) {
    RunState state;
    SeedRandom(12345);
    const UseRunState use(&state);
    EXPECT_EQ(RandomInt(kEveryValue), 41);
}

TEST_F(RunStateTest, AStateHasItsOwnRecorder) {
    std::vector<std::int32_t> drawn;
    RecordDraws(
        [](const RandomDraw& draw, void* context) {
            static_cast<std::vector<std::int32_t>*>(context)->push_back(draw.value);
        },
        &drawn);
    {
        RunState state;
        const UseRunState use(&state);
        RandomInt(kEveryValue);
        RecordDraws(nullptr, nullptr);
    }
    RandomInt(kEveryValue);
    RecordDraws(nullptr, nullptr);
    EXPECT_EQ(drawn, (std::vector{41}));
}

TEST_F(RunStateTest, AStateHasItsOwnLogAndErrors) {
    const std::string file = dir.File("own.txt");
    RunState state;
    {
        const UseRunState use(&state);
        Logger::Init(file.c_str());
        Logger::WriteError("Test", "inside");
        EXPECT_EQ(ErrorLines(), (std::vector<std::string>{"Error : Test : inside"}));
    }
    EXPECT_TRUE(ErrorLines().empty());
    Logger::WriteError("Test", "outside");
    EXPECT_EQ(LogLines(), (std::vector<std::string>{"Error : Test : outside"}));
    EXPECT_EQ(ReadFile(file), "Error : Test : inside\n");
}

TEST_F(RunStateTest, UsesNestAndTellWhatTheyReplaced) {
    RunState outer;
    RunState inner;
    EXPECT_NE(&CurrentRunState(), &outer);
    const UseRunState useOuter(&outer);
    EXPECT_EQ(useOuter.Outer(), nullptr);
    {
        const UseRunState useInner(&inner);
        EXPECT_EQ(useInner.Outer(), &outer);
        EXPECT_EQ(&CurrentRunState(), &inner);
    }
    EXPECT_EQ(&CurrentRunState(), &outer);
}

TEST_F(RunStateTest, NullStandsForTheProcess) {
    RunState& process = CurrentRunState();
    RunState state;
    const UseRunState use(&state);
    {
        const UseRunState none(nullptr);
        EXPECT_EQ(&CurrentRunState(), &process);
    }
    EXPECT_EQ(&CurrentRunState(), &state);
}

TEST_F(RunStateTest, AnotherThreadUsesTheStateOfTheProcess) {
    RunState state;
    const UseRunState use(&state);
    std::int32_t drawn = 0;
    std::thread([&drawn] { drawn = RandomInt(kEveryValue); }).join();
    EXPECT_EQ(drawn, 41);
    const UseRunState none(nullptr);
    EXPECT_EQ(RandomInt(kEveryValue), 18467);
}

} // namespace

} // namespace Tarnex::Test
