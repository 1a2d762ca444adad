// SPDX-License-Identifier: MIT
#include <vaultry/foundation/CsvRows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

using Cells = std::vector<std::string>;

Cells OnlyRow(std::string_view line) {
    const std::vector<CsvRow> rows = CsvRows(line);
    return rows.size() == 1 ? rows.front().cells : Cells{"not one row"};
}

TEST(CsvRowsTest, CellsStandBetweenCommas) {
    EXPECT_EQ(OnlyRow("a,b,c"), (Cells{"a", "b", "c"}));
    EXPECT_EQ(OnlyRow("a,,"), (Cells{"a", "", ""}));
    EXPECT_EQ(OnlyRow(" a , b "), (Cells{" a ", " b "}));
    EXPECT_EQ(OnlyRow("a"), Cells{"a"});
}

TEST(CsvRowsTest, WhatIsQuotedMayHoldCommasAndQuotationMarks) {
    EXPECT_EQ(OnlyRow(R"("a,b",c)"), (Cells{"a,b", "c"}));
    EXPECT_EQ(OnlyRow(R"("a ""b"" c",d)"), (Cells{"a \"b\" c", "d"}));
    EXPECT_EQ(OnlyRow(R"("",d)"), (Cells{"", "d"}));
}

TEST(CsvRowsTest, AQuotationMarkThatIsLeftOpenIsTold) {
    const std::vector<CsvRow> rows = CsvRows("\"a,b\nc,d\n");
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_FALSE(rows[0].closed);
    EXPECT_TRUE(rows[1].closed);
    EXPECT_EQ(rows[1].cells, (Cells{"c", "d"}));
}

TEST(CsvRowsTest, LinesAreCountedThoughEmptyOnesAreLeftOut) {
    const std::vector<CsvRow> rows = CsvRows("a\n\n \t\nb");
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].line, 1U);
    EXPECT_EQ(rows[1].line, 4U);
    EXPECT_TRUE(CsvRows("").empty());
    EXPECT_TRUE(CsvRows("\n\n").empty());
}

TEST(CsvRowsTest, MarksAndLineEndsOfWindowsAreNoPartOfACell) {
    const std::vector<CsvRow> rows = CsvRows("\xEF\xBB\xBF"
                                             "a,b\r\nc,d\r\n");
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].cells, (Cells{"a", "b"}));
    EXPECT_EQ(rows[1].cells, (Cells{"c", "d"}));
}

} // namespace

} // namespace Tarnex::Test
