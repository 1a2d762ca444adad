// SPDX-License-Identifier: MIT
#include "cli/NameCheck.h"

#include "tools/text/NearNames.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Tarnex::Cli {

namespace {

using Report::EditDistance;
using Report::NearestNames;
using Names = std::vector<std::string>;

TEST(NameCheckTest, DistanceCountsInsertedRemovedAndReplacedLetters) {
    EXPECT_EQ(EditDistance("Stone", "Stone"), 0U);
    EXPECT_EQ(EditDistance("Stone", "Stones"), 1U);
    EXPECT_EQ(EditDistance("Stone", "tone"), 1U);
    EXPECT_EQ(EditDistance("Stone", "Store"), 1U);
    EXPECT_EQ(EditDistance("kitten", "sitting"), 3U);
    EXPECT_EQ(EditDistance("Raito", "Ratio"), 1U);
    EXPECT_EQ(EditDistance("", "abc"), 3U);
    EXPECT_EQ(EditDistance("abc", ""), 3U);
}

TEST(NameCheckTest, DistanceLeavesCaseAside) {
    EXPECT_EQ(EditDistance("STONE", "stone"), 0U);
}

TEST(NameCheckTest, NearestNamesComeFirst) {
    EXPECT_EQ(NearestNames("cave", {"Grave", "Cave", "Caves"}), (Names{"Cave", "Caves", "Grave"}));
}

TEST(NameCheckTest, OffersThreeAtMostAndEachOnce) {
    EXPECT_EQ(NearestNames("a1", {"a2", "a2", "a3", "a4", "a5"}), (Names{"a2", "a3", "a4"}));
}

TEST(NameCheckTest, OffersNothingThatIsFarOff) {
    EXPECT_EQ(NearestNames("Dungeon", {"Cave", "Keep"}), Names{});
}

TEST(NameCheckTest, LongNamesMayHaveMoreSlips) {
    EXPECT_EQ(NearestNames("Imperial big rooms", {"Imperial small rooms"}),
              Names{"Imperial small rooms"});
}

TEST(NameCheckTest, OfferFallsBackOnAllNames) {
    EXPECT_EQ(OfferNames("xyzzy", {"Stone", "Brick"}), "there are \"Stone\", \"Brick\"");
    EXPECT_EQ(OfferNames("xyzzy", {}), "there are none");
}

TEST(NameCheckTest, OfferCutsALongList) {
    const Names names(13, "Stone");
    const std::string offer = OfferNames("xyzzy", names);
    EXPECT_EQ(offer.substr(offer.size() - 9), " and more");
    const std::string whole = OfferNames("xyzzy", Names(12, "Stone"));
    EXPECT_EQ(whole.substr(whole.size() - 9), ", \"Stone\"");
}

GenerateOptions Named(const std::string& cell, bool fixed, std::uint32_t levels) {
    GenerateOptions options;
    options.cell = cell;
    options.fixed = fixed;
    options.numLevels = levels;
    return options;
}

TEST(NameWarningsTest, NumberOfTheLastLevelCounts) {
    // ", Level 10" has ten letters.
    EXPECT_TRUE(NameWarnings(Named(std::string(53, 'x'), false, 10)).empty());
    EXPECT_EQ(NameWarnings(Named(std::string(54, 'x'), false, 10)).size(), 1U);
}

TEST(NameWarningsTest, SingleLevelHasNoNumber) {
    EXPECT_TRUE(NameWarnings(Named(std::string(63, 'x'), false, 1)).empty());
    EXPECT_EQ(NameWarnings(Named(std::string(64, 'x'), false, 1)).size(), 1U);
}

TEST(NameWarningsTest, QuotationMarksBreakTheLineOfTheConsole) {
    EXPECT_EQ(NameWarnings(Named("The \"Keep\"", true, 1)).size(), 1U);
    EXPECT_TRUE(NameWarnings(Named("The 'Keep'", true, 1)).empty());
}

TEST(NameWarningsTest, ControlCharactersDoToo) {
    for (const char* name : {"a\nb", "\x1F", "\x7F"}) {
        EXPECT_EQ(NameWarnings(Named(name, true, 1)).size(), 1U);
    }
    EXPECT_TRUE(NameWarnings(Named("a b~", true, 1)).empty());
}

TEST(NameWarningsTest, TooLongANameSaysWhatIsLeft) {
    EXPECT_EQ(NameWarnings(Named(std::string(64, 'x'), false, 1)).front(),
              "the name of the cell has 64 bytes in Windows-1252, of which the game reads 63; 63 "
              "are left for --cell");
    EXPECT_EQ(NameWarnings(Named(std::string(64, 'x'), false, 2)).front(),
              "the name of the cell has 73 bytes in Windows-1252, of which the game reads 63, so "
              "that levels become one cell; 54 are left for --cell");
}

TEST(NameWarningsTest, FixedInteriorHasNoNumber) {
    EXPECT_TRUE(NameWarnings(Named(std::string(63, 'x'), true, 10)).empty());
}

TEST(NameWarningsTest, LostLettersAndLengthAreTwoWarnings) {
    EXPECT_EQ(NameWarnings(Named(std::string(63, 'x') + "\xCE\xA9", true, 1)).size(), 2U);
}

} // namespace

} // namespace Tarnex::Cli
