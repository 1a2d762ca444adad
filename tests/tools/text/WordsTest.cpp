// SPDX-License-Identifier: MIT
#include "tools/text/Words.h"

#include <gtest/gtest.h>

#include <limits>

namespace Tarnex::Test {

namespace {

using namespace Report;

TEST(WordsTest, NumbersHaveNoMoreDecimalsThanTheyNeed) {
    EXPECT_EQ(Number(90.0000025), "90");
    EXPECT_EQ(Number(0.125), "0.12");
    EXPECT_EQ(Number(-31.5), "-31.5");
    EXPECT_EQ(Number(100.0), "100");
    EXPECT_EQ(Number(-0.001), "0");
    EXPECT_EQ(Number(0.12345, 4), "0.1235");
    EXPECT_EQ(Number(std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(Number(std::numeric_limits<double>::max()).size(), 309U);
}

TEST(WordsTest, ExactNumbersAreAsShortAsTheyCanBe) {
    EXPECT_EQ(ExactNumber(1.2F), "1.2");
    EXPECT_EQ(ExactNumber(-0.0F), "0");
    EXPECT_EQ(ExactNumber(1.5707964F), "1.5707964");
}

TEST(WordsTest, OneIsSingular) {
    EXPECT_EQ(Counted(0, "door"), "0 doors");
    EXPECT_EQ(Counted(1, "door"), "1 door");
    EXPECT_EQ(Counted(2, "door"), "2 doors");
}

TEST(WordsTest, NumbersOfReferencesNameTheirMaster) {
    PluginRef ref;
    ref.index = 7;
    EXPECT_EQ(RefNumber(ref), "7");
    ref.index = 0x02000007;
    EXPECT_EQ(RefNumber(ref), "2:7");
}

TEST(WordsTest, TypesHaveNames) {
    EXPECT_EQ(TypeWords(0), "plug-in");
    EXPECT_EQ(TypeWords(1), "master");
    EXPECT_EQ(TypeWords(32), "saved game");
    EXPECT_EQ(TypeWords(5), "file of type 5");
}

TEST(WordsTest, NamesAreUtf8) {
    EXPECT_EQ(Quoted("Caf\xE9 \x80"), "\"Café €\"");
    EXPECT_EQ(Shown(std::string(80, 'a')), std::string(80, 'a'));
}

} // namespace

} // namespace Tarnex::Test
