// SPDX-License-Identifier: MIT
// Several dungeons of one command.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <tests/cli/Program.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;

class CountTest : public ProgramTest {
protected:
    Outcome Make(const Lines& more) const {
        Lines arguments = {"generate", "--size", "tiny", "--seed", "3", "--quiet"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }
};

TEST_F(CountTest, EachDungeonHasFilesAndACellOfItsOwn) {
    const Outcome outcome = Make({"-o", "keep.esp", "--html", "keep.html", "--count", "2"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(Files(), (Lines{"keep-1.esp", "keep-1.html", "keep-2.esp", "keep-2.html"}));
    EXPECT_TRUE(Contains(Run({"inspect", "keep-1.esp"}).out, "\"keep-1\""));
    EXPECT_TRUE(Contains(Run({"inspect", "keep-2.esp"}).out, "\"keep-2\""));
}

TEST_F(CountTest, EachIsWhatItsSeedMakesByItself) {
    Make({"-o", "a.esp", "-n", "Keep", "--stamp", "9223372036854775807", "--count", "2"});
    Make({"-o", "one.esp", "-n", "Keep 1", "--stamp", "9223372036854775807"});
    EXPECT_EQ(Read("a-1.esp"), Read("one.esp"));
    Run({"generate",
         "--size",
         "tiny",
         "--seed",
         "2654435772",
         "-o",
         "two.esp",
         "-n",
         "Keep 2",
         "--stamp",
         "0",
         "--quiet"});
    EXPECT_EQ(Read("a-2.esp"), Read("two.esp"));
}

TEST_F(CountTest, NumbersSortAsTheyCount) {
    Make({"-o", "out.d/keep", "--count", "10"});
    EXPECT_TRUE(Files().empty());
    EXPECT_EQ(Make({"-o", "keep", "--count", "10"}).status, 0);
    const Lines files = Files();
    ASSERT_EQ(files.size(), 10U);
    EXPECT_EQ(files.front(), "keep-01");
    EXPECT_EQ(files.back(), "keep-10");
}

TEST_F(CountTest, AdviceForAllStandsBehindTheLast) {
    const Outcome outcome = Run({"generate", "--size", "tiny", "--seed", "3", "--count", "2"});
    const Lines lines = outcome.ErrLines();
    const auto count = [&lines](const std::string& part) {
        std::size_t found = 0;
        for (const std::string& line : lines) {
            found += Contains(line, part) ? 1U : 0U;
        }
        return found;
    };
    EXPECT_EQ(count("copy them"), 1U) << outcome.err;
    EXPECT_EQ(count("player->positioncell"), 2U) << outcome.err;
}

TEST_F(CountTest, JsonIsAListOfThem) {
    const auto list = nlohmann::json::parse(Make({"--count", "2", "--json"}).out);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list.at(0).at("files").at(0).at("path"), "dungeon-1.esp");
    EXPECT_EQ(list.at(1).at("files").at(0).at("path"), "dungeon-2.esp");
    EXPECT_TRUE(nlohmann::json::parse(Make({"--count", "1", "--json"}).out).is_object());
}

TEST_F(CountTest, OneIsAsWithoutAndNoneIsAMistake) {
    EXPECT_EQ(Make({"--count", "1"}).status, 0);
    EXPECT_EQ(Files(), Lines{"dungeon.esp"});
    for (const char* wrong : {"0", "10001", "x"}) {
        EXPECT_EQ(Make({"--count", wrong}).status, 2) << wrong;
    }
}

TEST_F(CountTest, AFailureEndsTheRow) {
    const Outcome outcome = Make({"-o", "a.esp", "--count", "3", "--tileset", "No such set"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.ErrLines().size(), 1U) << outcome.err;
    EXPECT_TRUE(Files().empty());
}

} // namespace

} // namespace Tarnex::Test
