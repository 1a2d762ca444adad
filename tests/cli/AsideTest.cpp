// SPDX-License-Identifier: MIT
#include "cli/Aside.h"

#include "cli/CancelSignals.h"

#include <gtest/gtest.h>

#include <csignal>
#include <future>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>

namespace Tarnex::Cli {

namespace {

class AsideTest : public ::testing::Test {
protected:
    CancelSignals signals;
    std::ostringstream to;
};

TEST_F(AsideTest, EverythingReachesTheStreamInOrder) {
    std::string expected;
    for (int i = 0; i < 100'000; ++i) {
        expected += std::to_string(i);
    }
    WriteAside(
        [&expected](std::ostream& out) {
            for (int i = 0; i < 100'000; ++i) {
                out << i;
            }
            out.put('\n') << expected;
        },
        to);
    EXPECT_TRUE(to);
    EXPECT_EQ(to.str(), expected + '\n' + expected);
}

TEST_F(AsideTest, NothingIsNothing) {
    WriteAside([](std::ostream&) {}, to);
    EXPECT_TRUE(to);
    EXPECT_EQ(to.str(), "");
}

TEST_F(AsideTest, WhatIsThrownAsideIsThrown) {
    EXPECT_THROW(WriteAside([](std::ostream&) { throw std::runtime_error("x"); }, to),
                 std::runtime_error);
}

// What is drawn aside may take as long as it likes: a signal ends the waiting.
TEST_F(AsideTest, NobodyWaitsAfterASignal) {
    const auto never = std::make_shared<std::promise<void>>();
    std::raise(SIGINT);
    WriteAside([never](std::ostream&) { never->get_future().wait(); }, to);
    EXPECT_FALSE(to);
    never->set_value();
}

TEST_F(AsideTest, NobodyWaitsForAStreamThatTakesNothing) {
    const auto never = std::make_shared<std::promise<void>>();
    to.setstate(std::ios::failbit);
    WriteAside([never](std::ostream&) { never->get_future().wait(); }, to);
    EXPECT_FALSE(to);
    never->set_value();
}

TEST_F(AsideTest, AWriterThatIsLeftHearsOfIt) {
    const auto heard = std::make_shared<std::promise<bool>>();
    std::raise(SIGINT);
    WriteAside(
        [heard](std::ostream& out) {
            const std::string much(1'000'000, 'x');
            while (out << much) {
            }
            heard->set_value(true);
        },
        to);
    EXPECT_TRUE(heard->get_future().get());
}

} // namespace

} // namespace Tarnex::Cli
