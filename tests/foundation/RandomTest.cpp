// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Random.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <type_traits>
#include <vector>

namespace Tarnex::Test {

namespace {

constexpr std::int32_t kEveryValue = 32768;
// The first draw after these seeds is the greatest value, the least and a middle one.
constexpr std::uint32_t kSeedOf32767 = 30091;
constexpr std::uint32_t kSeedOf0 = 20057;
constexpr std::uint32_t kSeedOf16384 = 15040;

std::vector<std::int32_t> Draws(std::uint32_t seed, std::int32_t bound, int count) {
    SeedRandom(seed);
    std::vector<std::int32_t> draws;
    for (int i = 0; i < count; ++i) {
        draws.push_back(RandomInt(bound));
    }
    return draws;
}

// Drawn while the program starts, before any test has seeded.
const std::vector<std::int32_t> unseededDraws = {
    RandomInt(kEveryValue), RandomInt(kEveryValue), RandomInt(kEveryValue)};

class RandomTest : public ::testing::Test {
protected:
    ~RandomTest() override { RecordDraws(nullptr, nullptr); }

    static void Note(const RandomDraw& draw, void* context) {
        static_cast<std::vector<RandomDraw>*>(context)->push_back(draw);
    }

    void StartRecording() { RecordDraws(Note, &recorded); }

    void
    ExpectDraw(std::size_t place, std::uint64_t index, std::int32_t bound, std::int32_t value) {
        ASSERT_LT(place, recorded.size());
        EXPECT_EQ(recorded[place].index, index);
        EXPECT_EQ(recorded[place].bound, bound);
        EXPECT_EQ(recorded[place].value, value);
    }

    std::vector<RandomDraw> recorded;
};

TEST_F(RandomTest, Seed1GivesItsWellKnownDraws) {
    EXPECT_EQ(Draws(1, kEveryValue, 8),
              (std::vector{41, 18467, 6334, 26500, 19169, 15724, 11478, 29358}));
}

TEST_F(RandomTest, UnseededItStartsFrom1) {
    EXPECT_EQ(unseededDraws, (std::vector{41, 18467, 6334}));
}

TEST_F(RandomTest, Seed12345GivesItsWellKnownDraws) {
    EXPECT_EQ(Draws(12345, kEveryValue, 4), (std::vector{7584, 19164, 25795, 22125}));
}

TEST_F(RandomTest, TheEndsOfTheSeedRangeAreSeedsLikeAnyOther) {
    EXPECT_EQ(Draws(0, kEveryValue, 4), (std::vector{38, 7719, 21238, 2437}));
    EXPECT_EQ(Draws(4294967295U, kEveryValue, 4), (std::vector{35, 29739, 3374, 11141}));
}

TEST_F(RandomTest, SeedingAgainRepeatsTheDraws) {
    const std::vector<std::int32_t> first = Draws(777, 100, 50);
    EXPECT_EQ(Draws(777, 100, 50), first);
    EXPECT_NE(Draws(778, 100, 50), first);
}

TEST_F(RandomTest, RandomIntIsTheDrawModuloItsBound) {
    EXPECT_EQ(Draws(1, 6, 5), (std::vector{5, 5, 4, 4, 5}));
    EXPECT_EQ(Draws(1, 100, 5), (std::vector{41, 67, 34, 0, 69}));
}

TEST_F(RandomTest, ABoundOf1GivesZeroAndDraws) {
    EXPECT_EQ(Draws(1, 1, 2), (std::vector{0, 0}));
    EXPECT_EQ(RandomInt(kEveryValue), 6334);
}

TEST_F(RandomTest, ABoundBelow1GivesZeroAndDrawsOnce) {
    for (const std::int32_t bound : {0, -1, -2, std::numeric_limits<std::int32_t>::min()}) {
        SeedRandom(1);
        EXPECT_EQ(RandomInt(bound), 0) << bound;
        EXPECT_EQ(RandomInt(kEveryValue), 18467) << bound;
    }
}

TEST_F(RandomTest, ABoundBeyondTheDrawsChangesNothing) {
    EXPECT_EQ(Draws(1, std::numeric_limits<std::int32_t>::max(), 3),
              (std::vector{41, 18467, 6334}));
}

TEST_F(RandomTest, RandomUnitReachesOneExactly) {
    SeedRandom(kSeedOf32767);
    EXPECT_EQ(RandomUnit(), 1.0F);
    SeedRandom(kSeedOf32767);
    EXPECT_EQ(RandomInt(kEveryValue), 32767);
}

TEST_F(RandomTest, RandomUnitReachesZero) {
    SeedRandom(kSeedOf0);
    EXPECT_EQ(RandomUnit(), 0.0F);
}

// The scale is a single-precision 1/32767 and the product is rounded once more.
TEST_F(RandomTest, RandomUnitIsASinglePrecisionProduct) {
    static_assert(std::is_same_v<decltype(RandomUnit()), float>);
    SeedRandom(1);
    EXPECT_EQ(RandomUnit(), 0x1.480290p-10F);
    EXPECT_EQ(RandomUnit(), 0x1.208e42p-1F);
    EXPECT_EQ(RandomUnit(), 0x1.8be318p-3F);
    SeedRandom(kSeedOf16384);
    EXPECT_EQ(RandomUnit(), 0x1.000200p-1F);
}

TEST_F(RandomTest, BothKindsDrawFromOneSequence) {
    SeedRandom(1);
    EXPECT_EQ(RandomInt(kEveryValue), 41);
    RandomUnit();
    EXPECT_EQ(RandomInt(kEveryValue), 6334);
}

TEST_F(RandomTest, TheRecorderReportsIndexBoundAndValue) {
    SeedRandom(1);
    StartRecording();
    RandomInt(10);
    RandomUnit();
    RandomInt(0);
    ASSERT_EQ(recorded.size(), 3U);
    ExpectDraw(0, 1, 10, 41);
    ExpectDraw(1, 2, -1, 18467);
    ExpectDraw(2, 3, 0, 6334);
}

TEST_F(RandomTest, TheRecorderStopsWhenItIsTakenAway) {
    StartRecording();
    RandomInt(10);
    RecordDraws(nullptr, nullptr);
    RandomInt(10);
    RandomUnit();
    EXPECT_EQ(recorded.size(), 1U);
}

TEST_F(RandomTest, EachRecordingCountsFromOne) {
    SeedRandom(1);
    StartRecording();
    RandomInt(5);
    RandomInt(5);
    StartRecording();
    RandomInt(5);
    ASSERT_EQ(recorded.size(), 3U);
    ExpectDraw(2, 1, 5, 6334);
}

TEST_F(RandomTest, RecordingDoesNotChangeTheDraws) {
    StartRecording();
    EXPECT_EQ(Draws(12345, kEveryValue, 4), (std::vector{7584, 19164, 25795, 22125}));
}

TEST_F(RandomTest, SeedingDoesNotRestartTheCountOfDraws) {
    StartRecording();
    RandomInt(5);
    SeedRandom(1);
    RandomInt(5);
    ASSERT_EQ(recorded.size(), 2U);
    ExpectDraw(1, 2, 5, 41);
}

} // namespace

} // namespace Tarnex::Test
