// SPDX-License-Identifier: MIT
// Maps as pictures.
#include "tools/maps/MapSvg.h"

#include <gtest/gtest.h>

#include <sstream>
#include <tests/support/Contains.h>
#include <tests/tools/maps/SampleMap.h>

namespace Tarnex::Test {

namespace {

std::string Svg(const Report::LevelMap& map) {
    std::ostringstream out;
    Report::MapCollector levels = Levels({map});
    Report::SvgDocument(Report::SurveyOf(levels), {7, "--size \"tiny\"", "a&b.xml"})
        .Write(levels, Report::MapLook::Auto, Report::MapTitles::Yes, out);
    return out.str();
}

// Every element that is opened is closed again, in order, and there is one root.
bool IsBalanced(const std::string& xml) {
    std::vector<std::string> open;
    std::size_t roots = 0;
    for (std::size_t at = xml.find('<'); at != std::string::npos; at = xml.find('<', at + 1)) {
        const std::size_t end = xml.find('>', at);
        if (end == std::string::npos) {
            return false;
        }
        const std::string tag = xml.substr(at + 1, end - at - 1);
        const std::string name = tag.substr(0, tag.find(' '));
        if (tag.starts_with('?') || tag.ends_with('/')) {
            continue;
        }
        if (!tag.starts_with('/')) {
            roots += open.empty() ? 1U : 0U;
            open.push_back(name);
        } else if (open.empty() || '/' + open.back() != name) {
            return false;
        } else {
            open.pop_back();
        }
    }
    return open.empty() && roots == 1;
}

TEST(MapSvgTest, IsOneWellFormedDocument) {
    const std::string svg = Svg(SampleMap());
    EXPECT_TRUE(svg.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns="));
    EXPECT_TRUE(IsBalanced(svg));
}

TEST(MapSvgTest, HasAMarkForEachSortOfContent) {
    const std::string svg = Svg(SampleMap());
    for (const char* mark : {"rug", "tapestry", "furniture", "container", "creature", "other"}) {
        EXPECT_TRUE(Contains(
            svg, std::string("<g class=\"layer-") + mark + "\">\n<use href=\"#" + mark + "\" x="))
            << mark;
    }
}

// East of the middle, against the southern wall, which is drawn as a line.
TEST(MapSvgTest, ThingsStandWhereTheyStandAndAsTheyAreTurned) {
    Report::LevelMap map = SampleMap();
    map.Held(0, 2).contents = {
        {Report::MapSign::Container, "chest", "", nullptr, {0.25, 0.5, 180.0}},
        {Report::MapSign::Furniture, "bed", "", nullptr, {0.0, -0.5, 90.0, 1.0, 0.5}}};
    const std::string svg = Svg(map);
    EXPECT_TRUE(Contains(
        svg, "<use href=\"#container\" x=\"18\" y=\"66.8\" transform=\"rotate(180 18 66.8)\"/>"))
        << svg;
    EXPECT_TRUE(Contains(svg,
                         "<rect class=\"furniture\" x=\"0\" y=\"42\" width=\"24\" "
                         "height=\"12\" transform=\"rotate(90 12 48)\"/>"))
        << svg;
}

// The path of a class in the groups of a layer, not in the legend.
std::string PathOf(const std::string& svg, const std::string& type, const std::string& layer) {
    const std::string group = "<g class=\"layer-" + layer + "\">";
    const std::string opening = "<path class=\"" + type + "\" d=\"";
    for (std::size_t at = svg.find(group); at != std::string::npos; at = svg.find(group, at + 1)) {
        const std::size_t path = svg.find(opening, at);
        if (path < svg.find("</g>", at)) {
            const std::size_t data = path + opening.size();
            return svg.substr(data, svg.find('"', data) - data);
        }
    }
    return {};
}

TEST(MapSvgTest, DrawsWallsHallsStairsDoorsAndWarnings) {
    const std::string svg = Svg(SampleMap());
    const std::string walls = PathOf(svg, "wall", "rooms");
    EXPECT_TRUE(walls.starts_with("M0 0h24M0 0v24M24 0h24")) << walls;
    EXPECT_TRUE(Contains(walls, "M24 72h6m12 0h6")) << walls;
    EXPECT_EQ(PathOf(svg, "wall", "halls"),
              "M30 72v6m12 -6v6M42 78h6m-6 12h6M30 90h12M30 78v12"
              "M66 78h6m-6 12h6M48 78h6m-6 12h6M54 78h12M54 90h12");
    EXPECT_EQ(PathOf(svg, "step", "rooms"), "M75 4h18m-18 4h18m-18 4h18m-18 4h18m-18 4h18");
    EXPECT_EQ(PathOf(svg, "door", "doors"), "M30 69.5h12v5h-12z");
    EXPECT_EQ(PathOf(svg, "warn", "warnings"), "M76.2 78v12");
    EXPECT_FALSE(Contains(svg, "<path class=\"cut\""));
}

TEST(MapSvgTest, HoverTitlesNameRoomTilesAndContents) {
    const std::string svg = Svg(SampleMap());
    EXPECT_TRUE(Contains(svg, "<title>Room 1\nDoorwayS, DoorS</title>"));
    EXPECT_TRUE(Contains(svg, "table_01\nrat</title>"));
    EXPECT_TRUE(Contains(svg, "chest &lt;big&gt;</title>"));
}

TEST(MapSvgTest, LocksAndTrapsLieOnWhatTheyKeepShut) {
    Report::LevelMap map = SampleMap();
    const std::string before = Svg(map);
    EXPECT_FALSE(Contains(before, "layer-lock"));
    map.Held(1, 2).lock = {true, false, "locked at 35, key <k>"};
    const std::string svg = Svg(map);
    EXPECT_TRUE(IsBalanced(svg));
    // In the middle of the leaf, on the border of its cell.
    EXPECT_TRUE(Contains(svg,
                         "<g class=\"layer-lock\">\n<g transform=\"translate(36 72)\">\n" +
                             std::string(Report::kLockDrawing)));
    EXPECT_TRUE(Contains(svg, ">locked</text>"));
    EXPECT_FALSE(Contains(svg, ">trap</text>"));
    EXPECT_TRUE(Contains(svg, "Door: locked at 35, key &lt;k&gt;"));
    map.Held(0, 0).contents[1].lock = {false, true, "trap"};
    const std::string both = Svg(map);
    EXPECT_TRUE(Contains(both, std::string(Report::kTrapDrawing)));
    EXPECT_TRUE(Contains(both, ">trap</text>"));
    EXPECT_TRUE(Contains(both, "chest &lt;big&gt; (trap)"));
}

TEST(MapSvgTest, EscapesNames) {
    const std::string svg = Svg(SampleMap());
    EXPECT_TRUE(Contains(svg, "Vault &lt;1&gt; &amp; more</text>"));
    EXPECT_TRUE(Contains(svg, "configuration a&amp;b.xml, seed 7</text>"));
    EXPECT_TRUE(IsBalanced(svg));
    EXPECT_TRUE(Contains(svg, "--size &quot;tiny&quot;</text>"));
}

TEST(MapSvgTest, MarksRoomsOutOfReachAndDoorsToOtherLevels) {
    Report::LevelMap map = SampleMap();
    map.rooms[0].reachable = false;
    map.Held(1, 2).teleport = true;
    map.Held(1, 2).leadsTo = "Level 2";
    const std::string svg = Svg(map);
    EXPECT_TRUE(Contains(svg, "class=\"num warning\""));
    EXPECT_TRUE(Contains(PathOf(svg, "cut", "warnings"), "M24 24h24v24h-24z"));
    EXPECT_TRUE(Contains(svg, "→ Level 2</text>"));
    EXPECT_TRUE(Contains(svg, "<title>Room 1 (cannot be reached)"));
}

TEST(MapSvgTest, AHallOutOfReachKeepsItsShapeAndItsWalls) {
    Report::LevelMap map = SampleMap();
    map.rooms[0].reachable = false;
    map.Held(1, 3).room = 1;
    const std::string svg = Svg(map);
    EXPECT_TRUE(PathOf(svg, "cut", "warnings")
                    .ends_with("M30 78h12v12h-12zM30 72h12v6h-12zM42 78h6v12h-6z"))
        << PathOf(svg, "cut", "warnings");
    EXPECT_LT(svg.find("class=\"cut\""), svg.find("class=\"wall\" d=\"M30 72v6"));
}

TEST(MapSvgTest, WarningsLieOverContents) {
    const std::string svg = Svg(SampleMap());
    const std::size_t other = svg.find("<use href=\"#other\" x=");
    ASSERT_NE(other, std::string::npos);
    EXPECT_GT(svg.find("<path class=\"warn\" d=\"M76.2"), other);
}

TEST(MapSvgTest, LooksAsAskedFor) {
    const auto drawn = [](Report::MapLook look) { return Report::LevelSvg(SampleMap(), look); };
    EXPECT_FALSE(Contains(drawn(Report::MapLook::Light), ".paper{fill:#15181c}"));
    EXPECT_TRUE(Contains(drawn(Report::MapLook::Dark), "\n.paper{fill:#15181c}"));
    EXPECT_TRUE(Contains(drawn(Report::MapLook::Auto), "@media screen and (prefers-color-scheme"));
}

TEST(MapSvgTest, TheLegendNamesWhatIsThereAndNothingElse) {
    const std::string svg = Svg(SampleMap());
    EXPECT_TRUE(Contains(svg, ">container</text>"));
    EXPECT_FALSE(Contains(svg, ">platform</text>"));
    EXPECT_FALSE(Contains(svg, ">door to a level</text>"));
}

TEST(MapSvgTest, TheLegendTellsTheWayOutFromDoorsToLevels) {
    Report::LevelMap map = SampleMap();
    map.Held(1, 2).door = true;
    map.Held(1, 2).teleport = true;
    EXPECT_TRUE(Contains(Svg(map), ">door to the outside</text>"));
    EXPECT_FALSE(Contains(Svg(map), ">door to a level</text>"));
    map.Held(1, 2).leadsTo = "Level 2";
    EXPECT_FALSE(Contains(Svg(map), ">door to the outside</text>"));
    EXPECT_TRUE(Contains(Svg(map), ">door to a level</text>"));
}

TEST(MapSvgTest, TextThatIsNoUtf8IsReplaced) {
    Report::LevelMap map = SampleMap();
    map.name = "Caf\xE9 \x01";
    EXPECT_TRUE(Contains(Svg(map), "Caf\xEF\xBF\xBD ?</text>"));
}

TEST(MapSvgTest, SaysThatThereIsNoLevel) {
    std::ostringstream out;
    Report::MapCollector levels;
    Report::SvgDocument({}, {7, "", "a.xml"})
        .Write(levels, Report::MapLook::Auto, Report::MapTitles::Yes, out);
    EXPECT_TRUE(IsBalanced(out.str()));
    EXPECT_TRUE(Contains(out.str(), ">No level was made.</text>"));
}

TEST(MapSvgTest, ScaleIsInWorldUnits) {
    EXPECT_TRUE(Contains(Svg(SampleMap()), "1024 units = 4 cells</text>"));
}

} // namespace

} // namespace Tarnex::Test
