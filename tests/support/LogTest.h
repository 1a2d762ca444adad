// SPDX-License-Identifier: MIT
// A fixture for whatever logs.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <tests/support/TempDir.h>
#include <vector>

namespace Tarnex::Test {

/// Gives each test a log file of its own and an empty error list.
class LogTest : public ::testing::Test {
protected:
    LogTest();
    ~LogTest() override;

    /// The lines of the log so far, of every kind.
    std::vector<std::string> LogLines() const;
    /// The error lines kept so far.
    static std::vector<std::string> ErrorLines();

    TempDir dir;
    std::string logFile;
};

} // namespace Tarnex::Test
