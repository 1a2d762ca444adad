// SPDX-License-Identifier: MIT
#include <vaultry/gen/ContainerIds.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace Tarnex::Test {

namespace {

TEST(ContainerIdsTest, FixedStampStandsBeforeACounterFromOne) {
    SetContainerStamp(1234567890);
    EXPECT_EQ(NextContainerId(), "Ctr1234567890_1");
    EXPECT_EQ(NextContainerId(), "Ctr1234567890_2");
    EXPECT_EQ(NextContainerId(), "Ctr1234567890_3");
}

TEST(ContainerIdsTest, FixingTheStampRestartsTheCounter) {
    SetContainerStamp(5);
    NextContainerId();
    SetContainerStamp(5);
    EXPECT_EQ(NextContainerId(), "Ctr5_1");
    SetContainerStamp(0);
    EXPECT_EQ(NextContainerId(), "Ctr0_1");
}

#if GTEST_HAS_DEATH_TEST

// In a process of its own, where no stamp was ever fixed.
[[noreturn]] void CheckFreshIds() {
    const std::time_t before = std::time(nullptr);
    const std::string first = NextContainerId();
    const std::string second = NextContainerId();
    const std::time_t after = std::time(nullptr);
    const long long stamp = std::atoll(first.c_str() + 3);
    const bool current = stamp >= before && stamp <= after;
    const bool counted = first == "Ctr" + std::to_string(stamp) + "_1" && second.ends_with("_2");
    std::exit(current && counted ? 0 : 1);
}

TEST(ContainerIdsTest, StampIsTheCurrentTimeUnlessFixed) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(CheckFreshIds(), ::testing::ExitedWithCode(0), "");
}

#endif

} // namespace

} // namespace Tarnex::Test
