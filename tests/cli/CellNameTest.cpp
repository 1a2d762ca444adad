// SPDX-License-Identifier: MIT
#include "cli/CellName.h"

#include <gtest/gtest.h>

#include <string>

namespace Tarnex::Cli {

namespace {

GenerateOptions Named(const std::string& cell, bool fixed, std::uint32_t levels) {
    GenerateOptions options;
    options.cell = cell;
    options.fixed = fixed;
    options.numLevels = levels;
    return options;
}

TEST(CellNameTest, NumberOfTheLastLevelCounts) {
    // ", Level 10" has ten letters.
    EXPECT_TRUE(CellNameWarnings(Named(std::string(53, 'x'), false, 10)).empty());
    EXPECT_EQ(CellNameWarnings(Named(std::string(54, 'x'), false, 10)).size(), 1U);
}

TEST(CellNameTest, SingleLevelHasNoNumber) {
    EXPECT_TRUE(CellNameWarnings(Named(std::string(63, 'x'), false, 1)).empty());
    EXPECT_EQ(CellNameWarnings(Named(std::string(64, 'x'), false, 1)).size(), 1U);
}

TEST(CellNameTest, FixedInteriorHasNoNumber) {
    EXPECT_TRUE(CellNameWarnings(Named(std::string(63, 'x'), true, 10)).empty());
}

TEST(CellNameTest, LostLettersAndLengthAreTwoWarnings) {
    EXPECT_EQ(CellNameWarnings(Named(std::string(63, 'x') + "\xCE\xA9", true, 1)).size(), 2U);
}

} // namespace

} // namespace Tarnex::Cli
