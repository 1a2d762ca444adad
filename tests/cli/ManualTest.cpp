// SPDX-License-Identifier: MIT
// The manual page, which the program tells about itself.
#include "tests/cli/Program.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>
#include <string>

namespace Tarnex::Test {

namespace {

constexpr std::array<const char*, 12> kVerbs = {"generate",
                                                "map",
                                                "search",
                                                "list",
                                                "config",
                                                "inspect",
                                                "play",
                                                "diff",
                                                "check",
                                                "stage",
                                                "manual",
                                                "completion"};

using ManualTest = ProgramTest;

TEST_F(ManualTest, DescribesEveryVerbAndSwitch) {
    const Outcome page = Run({"manual"});
    ASSERT_EQ(page.status, 0);
    for (const char* verb : kVerbs) {
        EXPECT_TRUE(Contains(page.out, std::string(".SS vaultry ") + verb + '\n')) << verb;
    }
    EXPECT_TRUE(Contains(page.out, "\\fB\\-c\\fR, \\fB\\-\\-config\\fR \\fIFILE\\fR\n"));
    EXPECT_TRUE(Contains(page.out, "\\fB\\-\\-ensure\\-walkable\\fR\n"));
    EXPECT_TRUE(Contains(page.out, "\\fIPLUGIN\\fR\n"));
    EXPECT_TRUE(Contains(page.out, "  vaultry search \\-\\-sample 10000"));
}

TEST_F(ManualTest, FitsIntoEightyColumns) {
    std::istringstream page(Run({"manual"}).out);
    bool kept = false; // as it stands, behind seven blanks
    for (std::string line; std::getline(page, line);) {
        kept = line == ".nf" || (kept && line != ".fi");
        std::erase(line, '\\');
        // Commands stay whole.
        EXPECT_TRUE(!kept || line.starts_with("  ") || line.size() + 7 <= 80) << line;
    }
}

TEST_F(ManualTest, NoLineIsTakenForARequestOfTheFormatter) {
    const Outcome page = Run({"manual"});
    std::istringstream lines(page.out);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind('.', 0) == 0) {
            const std::string request = line.substr(1, 2);
            EXPECT_TRUE(request == "TH" || request == "SH" || request == "SS" || request == "TP" ||
                        request == "PP" || request == "nf" || request == "fi" || request == "B" ||
                        request == "B " || request == "I ")
                << line;
        }
    }
}

} // namespace

} // namespace Tarnex::Test
