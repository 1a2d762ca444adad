// SPDX-License-Identifier: MIT
// What every verb says about standing in a dungeon.
#include <nlohmann/json.hpp>

#include <string>
#include <tests/cli/Program.h>

namespace Tarnex::Test {

namespace {

using Json = nlohmann::json;

// The third step; empty for none.
std::string LineOf(const std::string& text) {
    const std::size_t start = text.find("player->positioncell ");
    return start == std::string::npos ? "" : text.substr(start, text.find('\n', start) - start);
}

class ArrivalTest : public ProgramTest {
protected:
    Outcome Keep(const std::vector<std::string>& more = {}) const {
        std::vector<std::string> words = {"generate",
                                          "-c",
                                          "builtin",
                                          "--seed",
                                          "7",
                                          "--size",
                                          "tiny",
                                          "--levels",
                                          "2",
                                          "-o",
                                          "./keep.esp",
                                          "-n",
                                          "Keep"};
        words.insert(words.end(), more.begin(), more.end());
        return Run(words);
    }
};

TEST_F(ArrivalTest, GenerateEndsWithWhatThePlayerDoesNext) {
    const std::string err = Keep().err;
    EXPECT_TRUE(Contains(err, "\"Data Files\"")) << err;
    EXPECT_TRUE(Contains(err, "tick \"keep.esp\" under Data Files")) << err;
    EXPECT_TRUE(LineOf(err).ends_with(" \"Keep, Level 1\"")) << err;
    EXPECT_EQ(Keep({"--quiet"}).err, "");
}

TEST_F(ArrivalTest, AllSayTheSame) {
    const std::string line = LineOf(Keep({"--html", "keep.html"}).err);
    ASSERT_NE(line, "");
    const Json made = Json::parse(Keep({"--json", "--quiet"}).out);
    ASSERT_EQ(made["arrivals"].size(), 2U);
    EXPECT_EQ(made["arrivals"][0]["console"], line);
    EXPECT_EQ(made["arrivals"][1]["cell"], "Keep, Level 2");
    const Json inspected = Json::parse(Run({"inspect", "./keep.esp", "--json"}).out);
    EXPECT_EQ(inspected["arrivals"], made["arrivals"]);
    EXPECT_EQ(LineOf(Run({"inspect", "./keep.esp"}).out), line);
    const Json drawn = Json::parse(Run({"map", "./keep.esp", "--json"}).out);
    EXPECT_EQ(drawn["levels"][0]["arrival"], made["arrivals"][0]);
    EXPECT_EQ(LineOf(Run({"map", "./keep.esp"}).out), line);
    EXPECT_TRUE(Contains(Read("keep.html"), line.substr(line.find(' '), 12)));
}

TEST_F(ArrivalTest, NobodyIsToldOfAPlaceInWhatNobodyKnows) {
    ASSERT_EQ(Generate({"--quiet"}).status, 0);
    const Outcome inspected = Run({"inspect", "dungeon.esp"});
    EXPECT_EQ(inspected.status, 0);
    EXPECT_EQ(LineOf(inspected.out), "");
    EXPECT_EQ(Files(), std::vector<std::string>{"dungeon.esp"});
    EXPECT_EQ(Json::parse(Run({"inspect", "dungeon.esp", "--json"}).out)["arrivals"],
              Json::array());
}

} // namespace

} // namespace Tarnex::Test
