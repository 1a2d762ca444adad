// SPDX-License-Identifier: MIT
#include "cli/ConsoleStatus.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sstream>
#include <string>
#include <tests/support/LeftOut.h>

namespace Tarnex::Cli {

namespace {

TEST(ConsoleStatusTest, ShowsStepAndLevelOnOneLineAndWipesIt) {
    std::ostringstream stream;
    const CancelSignals signals;
    {
        ConsoleStatus status(&stream, signals, 2);
        status.SetText("Laying out");
        status.StepIt();
        status.StepIt();
        status.SetText("Filling");
    }
    EXPECT_EQ(stream.str(),
              "\rLaying out, level 1 of 2"
              "\rLaying out, level 2 of 2"
              "\rLaying out              "
              "\rFilling   "
              "\r       \r");
}

TEST(ConsoleStatusTest, DoesNotCountASingleLevel) {
    std::ostringstream stream;
    const CancelSignals signals;
    ConsoleStatus status(&stream, signals, 1);
    status.SetText("Laying out");
    EXPECT_EQ(stream.str(), "\rLaying out");
}

TEST(ConsoleStatusTest, StaysSilentWithoutAStream) {
    const CancelSignals signals;
    ConsoleStatus status(nullptr, signals, 3);
    status.SetText("Laying out");
    status.StepIt();
    EXPECT_EQ(status.GetPos(), 1);
}

TEST(ConsoleStatusTest, PassesOnTheRequestToStop) {
    const CancelSignals signals;
    const ConsoleStatus status(nullptr, signals, 1);
    EXPECT_FALSE(status.HasBeenCanceled());
    std::raise(SIGINT);
    EXPECT_TRUE(status.HasBeenCanceled());
}

TEST(CancelSignalsTest, NotesTheRequestToTerminate) {
    const CancelSignals signals;
    std::raise(SIGTERM);
    EXPECT_TRUE(signals.Requested());
}

TEST(CancelSignalsTest, ForgetsWhatAnEarlierRunWasAsked) {
    {
        const CancelSignals signals;
        std::raise(SIGINT);
    }
    const CancelSignals signals;
    EXPECT_FALSE(signals.Requested());
}

TEST(CancelSignalsTest, LeavesIgnoredSignalsIgnored) {
    const auto old = std::signal(SIGINT, SIG_IGN);
    {
        const CancelSignals signals;
        std::raise(SIGINT);
        EXPECT_FALSE(signals.Requested());
    }
    EXPECT_EQ(std::signal(SIGINT, old), SIG_IGN);
}

#ifndef _WIN32
TEST(CancelSignalsTest, SecondSignalEndsTheProcess) {
    const auto twice = [] {
        const CancelSignals signals;
        std::raise(SIGTERM);
        std::raise(SIGTERM);
    };
    EXPECT_EXIT(twice(), ::testing::KilledBySignal(SIGTERM), "");
}
#else
VAULTRY_LEFT_OUT_ON_WINDOWS(CancelSignalsTest, "lets a signal end a child process")
#endif

} // namespace

} // namespace Tarnex::Cli
