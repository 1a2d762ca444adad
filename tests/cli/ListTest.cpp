// SPDX-License-Identifier: MIT
// What `vaultry list` tells of a configuration.
#include <nlohmann/json.hpp>

#include <string>
#include <tests/cli/Program.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Json = nlohmann::json;
using ListTest = ProgramTest;

TEST_F(ListTest, NamesEverythingUnderTheSwitchThatTakesIt) {
    const Outcome outcome = Run({"list", "-c", smallConfig});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out,
              "Room tile sets (--tileset):\n"
              "  Stone  [default]\n"
              "  Höhle\n"
              "Cave tile sets (--cave-tileset):\n"
              "  Cavern\n"
              "Room layouts (--template):\n"
              "  Chamber  [default]\n"
              "  Spot\n"
              "Cave layouts (--cave-template):\n"
              "  Den\n"
              "Furniture themes (--theme):\n"
              "  Storeroom  level 1 [default]\n"
              "  Bare\n"
              "Creature themes (--creature-theme):\n"
              "  Undead  level 3\n"
              "Treasure themes (--treasure-theme):\n"
              "  Coins  [default]\n");
}

TEST_F(ListTest, JsonNamesEverythingUnderTheSwitchThatTakesIt) {
    const Outcome outcome = Run({"list", "-c", smallConfig, "--json"});
    EXPECT_EQ(outcome.status, 0);
    const Json json = Json::parse(outcome.out);
    EXPECT_EQ(json["schema"], 1);
    EXPECT_EQ(json["version"], VAULTRY_VERSION);
    EXPECT_EQ(json["config"], smallConfig);
    const Json stone = {{"name", "Stone"}, {"default", true}};
    const Json cave = {{"name", "Höhle"}, {"default", false}};
    EXPECT_EQ(json["tilesets"], (Json{stone, cave}));
    EXPECT_EQ(json["cave-tilesets"][0]["name"], "Cavern");
    EXPECT_EQ(json["templates"].size(), 2U);
    EXPECT_EQ(json["cave-templates"][0]["name"], "Den");
    EXPECT_EQ(json["themes"][1]["name"], "Bare");
    EXPECT_EQ(json["creature-themes"][0]["level"], 3);
    EXPECT_EQ(json["treasure-themes"][0]["default"], true);
    EXPECT_EQ(json["errors"], Json::array());
}

TEST_F(ListTest, APageShowsEverything) {
    const Outcome outcome = Run({"list", "-c", smallConfig, "--html", "offer.html"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(outcome.err.starts_with("vaultry: drew \"offer.html\": ")) << outcome.err;
    EXPECT_EQ(Files(), std::vector<std::string>{"offer.html"});
    const std::string page = Read("offer.html");
    for (const char* name : {"Stone", "Höhle", "Chamber", "Den", "Storeroom", "Undead", "Coins"}) {
        EXPECT_TRUE(Contains(page, "<h3>" + std::string(name) + "</h3>")) << name;
    }
    EXPECT_EQ(Run({"list", "--html", "nowhere/offer.html"}).status, 2);
}

TEST_F(ListTest, PresetsStandFirstUnlessAConfigurationIsNamed) {
    const std::string text = Run({"list"}).out;
    EXPECT_TRUE(text.starts_with("Presets (--preset):\n  tomb       An ancestral tomb and the dead "
                                 "who guard it\n"))
        << text;
    EXPECT_FALSE(Contains(Run({"list", "-c", "builtin:caves"}).out, "Presets"));
    const Json presets = Json::parse(Run({"list", "--json"}).out).at("presets");
    EXPECT_EQ(presets[0]["name"], "tomb");
    EXPECT_EQ(presets[0]["options"]["creature-theme"], "Undead");
}

TEST_F(ListTest, ShowsWhatIsMissing) {
    Write("tiles.xml", "<OstrelData><TileSet TsName=\"A\" TsType=\"Room\"/></OstrelData>");
    const Outcome outcome = Run({"list", "-c", "tiles.xml"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.out.find("Room layouts (--template):\n  (none)\n"), std::string::npos);
}

TEST_F(ListTest, ErrorLinesGoToStandardError) {
    const Outcome outcome = Run({"list", "-c", faultyConfig, "--json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.ErrLines(), std::vector<std::string>{kFaultyLine});
    EXPECT_EQ(Json::parse(outcome.out)["errors"], Json{kFaultyLine});
}

TEST_F(ListTest, ConfigurationThatOffersNothingIsAFailure) {
    Write("empty.xml", "<OstrelData/>");
    EXPECT_EQ(Run({"list", "-c", "empty.xml"}).status, 1);
}

TEST_F(ListTest, LeavesNoLogBehind) {
    EXPECT_EQ(Run({"list", "-c", faultyConfig}).status, 0);
    EXPECT_TRUE(Files().empty());
}

} // namespace

} // namespace Tarnex::Test
