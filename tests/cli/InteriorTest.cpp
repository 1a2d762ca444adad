// SPDX-License-Identifier: MIT
// How one comes into a fixed interior, and whether one comes everywhere in it.
#include <nlohmann/json.hpp>

#include <string>
#include <tests/cli/Program.h>

namespace Tarnex::Test {

namespace {

using Json = nlohmann::json;

// A room with a way in, and another beside it that has none.
constexpr std::string_view kSplit = R"(
  <Layout LayoutName="Split" Type="Room" Width="7" Height="2">
    <Row><Col>CornerNW</Col><Col>WallN</Col><Col>CornerNE</Col><Col/><Col>CornerNW</Col><Col>WallN</Col><Col>CornerNE</Col></Row>
    <Row><Col>CornerSW</Col><Col>DoorwayS</Col><Col>CornerSE</Col><Col/><Col>CornerSW</Col><Col>WallS</Col><Col>CornerSE</Col></Row>
  </Layout>
)";

class InteriorTest : public ProgramTest {
protected:
    InteriorTest() {
        std::string config = Run({"config"}).out;
        config.insert(config.find("<Layout "), kSplit);
        Write("split.xml", config);
    }

    Outcome OfSplit(const std::string& verb, const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments = {
            verb, "-c", "split.xml", "--fixed", "--template", "Split", "--seed", "1"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments);
    }
};

TEST_F(InteriorTest, ARoomThatCannotBeReachedIsWarnedOf) {
    const Outcome outcome = OfSplit("generate");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(Contains(outcome.err,
                         "vaultry: warning: room 2 of the map cannot be reached from room 1; "
                         "vaultry map shows where\n"))
        << outcome.err;
    EXPECT_TRUE(Contains(outcome.err, "1 of 2 rooms can be reached, 0 openings lead nowhere"));
    EXPECT_TRUE(Contains(OfSplit("generate", {"--quiet"}).err, "room 2 of the map"));
    EXPECT_TRUE(Contains(OfSplit("map").out, "! room 2 cannot be reached"));
}

TEST_F(InteriorTest, JsonTellsWhetherOneComesEverywhere) {
    EXPECT_EQ(Json::parse(OfSplit("generate", {"--json"}).out).at("walkable"), false);
    const Outcome whole = Run({"generate", "--fixed", "--template", "Cloister", "--json"});
    EXPECT_EQ(Json::parse(whole.out).at("walkable"), true);
    EXPECT_FALSE(Contains(whole.err, "cannot be reached")) << whole.err;
}

TEST_F(InteriorTest, ADoorwayOntoNothingIsTheWayIn) {
    const Outcome text = OfSplit("map");
    EXPECT_TRUE(Contains(text.out, "^ way in: 1 doorway\n")) << text.out;
    EXPECT_FALSE(Contains(text.out, "onto nothing"));
    ASSERT_EQ(OfSplit("map", {"--map", "split.svg", "--html", "split.html"}).status, 0);
    const std::string picture = Read("split.svg");
    EXPECT_TRUE(Contains(picture, ">way in<"));
    EXPECT_FALSE(Contains(picture, "onto nothing"));
    const std::string page = Read("split.html");
    EXPECT_TRUE(Contains(page, "<td>way in</td>")) << page;
    EXPECT_FALSE(Contains(page, "onto nothing"));
}

TEST_F(InteriorTest, InRandomLevelsItStaysAMistake) {
    const Outcome outcome =
        Run({"map", "--seed", "125", "--size", "small", "--tileset", "Imperial small"});
    EXPECT_TRUE(Contains(outcome.out, "! onto nothing: ")) << outcome.out;
    EXPECT_FALSE(Contains(outcome.out, "^ way in: "));
}

} // namespace

} // namespace Tarnex::Test
