// SPDX-License-Identifier: MIT
// An option is a row of one table: whoever speaks of options has it from there.
#include "cli/Arguments.h"
#include "cli/CommandHelp.h"
#include "cli/Completion.h"
#include "cli/RunReport.h"
#include "tools/runs/RunLine.h"

#include <vaultry/run/RunOptions.h>
#include <vaultry/vaultry.h>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>
#include <variant>
#include <vector>

namespace Tarnex::Cli {

namespace {

class AddedOptionTest : public ::testing::Test {
protected:
    static constexpr const char* kHelp = "The height of roofs";

    bool IsTold(const std::string& text) const { return text.find("--roof") != std::string::npos; }

    template <typename Options>
    static Options Asked(const std::vector<std::string>& words) {
        return std::get<Options>(ParseArguments(words));
    }

    AddedOption added{{"roof",
                       &RunOptions::maxLevel,
                       kHelp,
                       OptionGroup::Shape,
                       kForMaps | kForSearch | kShapesLevels | kRepeats | kReported}};
};

TEST_F(AddedOptionTest, EveryVerbThatGeneratesTakesIt) {
    EXPECT_EQ(Asked<GenerateOptions>({"generate", "--roof", "9"}).maxLevel, 9U);
    EXPECT_EQ(Asked<MapOptions>({"map", "--roof", "9"}).generate.maxLevel, 9U);
    EXPECT_EQ(Asked<SearchOptions>({"search", "--seeds", "1..2", "--roof", "9"}).generate.maxLevel,
              9U);
}

TEST_F(AddedOptionTest, HelpManualAndCompletionTellOfIt) {
    const CommandHelp help = DescribeCommandLine();
    EXPECT_TRUE(std::get<PrintText>(ParseArguments({"generate", "--help"})).text.find(kHelp) !=
                std::string::npos);
    EXPECT_NE(ManualPage(help).find(kHelp), std::string::npos);
    ASSERT_EQ(Complete({"generate"}, "--ro").words.size(), 1U);
    EXPECT_TRUE(IsTold(Complete({"generate"}, "--ro").words[0].text));
}

TEST_F(AddedOptionTest, LinesThatRepeatADungeonAndMarginsOfMapsHaveIt) {
    const auto options = Asked<GenerateOptions>({"generate", "--roof", "9"});
    EXPECT_TRUE(Report::GenerateCommandLine(options, 1).ends_with(" --roof 9"));
    EXPECT_TRUE(Report::LevelWords(options).ends_with("--roof 9"));
}

TEST_F(AddedOptionTest, ReportsHaveIt) {
    RunReport report;
    report.options.maxLevel = 9;
    EXPECT_EQ(nlohmann::json::parse(ToJson(report))["options"]["roof"], 9);
}

TEST_F(AddedOptionTest, TheCInterfaceTakesIt) {
    const char* last = nullptr;
    for (std::size_t i = 0; vaultry_option(i) != nullptr; ++i) {
        last = vaultry_option(i);
    }
    EXPECT_STREQ(last, "roof");
    vaultry_generator* const generator = vaultry_create();
    EXPECT_EQ(vaultry_set(generator, "roof", "9"), VAULTRY_OK);
    EXPECT_EQ(vaultry_set(generator, "roof", "-9"), VAULTRY_BAD_ARGUMENT);
    vaultry_destroy(generator);
}

} // namespace

} // namespace Tarnex::Cli
