// SPDX-License-Identifier: MIT
#include "apps/vaultry/CancelableFile.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>
#include <tests/support/TempDir.h>

namespace Tarnex::Cli {

namespace {

class CancelableFileTest : public ::testing::Test {
protected:
    std::string Read() const { return Tarnex::Test::ReadFile(dir.Path() / "a"); }

    Tarnex::Test::TempDir dir;
    CancelSignals signals;
    const std::string large = std::string(100'000, 'x'); // passes every buffer by
};

TEST_F(CancelableFileTest, TakesWhatItIsGiven) {
    dir.Write("a", "longer than what comes\n");
    CancelableFile file(dir.File("a"), signals);
    file.Stream() << "one\n" << 2 << '\n';
    EXPECT_TRUE(file.Close());
    EXPECT_EQ(Read(), "one\n2\n");
}

TEST_F(CancelableFileTest, TakesLargeAndSmallInOrder) {
    CancelableFile file(dir.File("a"), signals);
    file.Stream() << "small" << large << "small";
    EXPECT_TRUE(file.Close());
    EXPECT_EQ(Read(), "small" + large + "small");
}

TEST_F(CancelableFileTest, TakesNothingLargeAfterASignal) {
    CancelableFile file(dir.File("a"), signals);
    file.Stream() << large;
    std::raise(SIGINT);
    file.Stream() << large;
    EXPECT_FALSE(file.Stream());
    EXPECT_FALSE(file.Close());
    EXPECT_EQ(Read().size(), large.size());
}

TEST_F(CancelableFileTest, TakesLittleMoreInSmallPiecesAfterASignal) {
    CancelableFile file(dir.File("a"), signals);
    std::raise(SIGTERM);
    int taken = 0;
    while (taken < 1'000'000 && file.Stream().put('x')) {
        ++taken;
    }
    EXPECT_LT(taken, 100'000);
    EXPECT_FALSE(file.Close());
    EXPECT_EQ(Read(), "");
}

TEST_F(CancelableFileTest, WhatWaitedForTheEndIsRefusedAfterASignal) {
    CancelableFile file(dir.File("a"), signals);
    file.Stream() << "waiting";
    std::raise(SIGINT);
    EXPECT_FALSE(file.Close());
    EXPECT_EQ(Read(), "");
}

TEST_F(CancelableFileTest, FileThatCannotBeOpenedIsAFailure) {
    CancelableFile file(dir.File("missing/a"), signals);
    EXPECT_FALSE(file.Stream());
    file.Stream() << "lost";
    EXPECT_FALSE(file.Close());
}

} // namespace

} // namespace Tarnex::Cli
