// SPDX-License-Identifier: MIT
// Maps as pictures.
#include "apps/report/MapSvg.h"

#include <gtest/gtest.h>

#include <sstream>
#include <tests/report/SampleMap.h>

namespace Tarnex::Test {

namespace {

std::string Svg(const Report::LevelMap& map) {
    std::ostringstream out;
    Report::WriteSvg({map}, {7, "--size \"tiny\"", "a&b.xml"}, out);
    return out.str();
}

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
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
    const std::string cells = svg.substr(svg.find("class=\"title\""));
    for (const char* mark : {"rug", "tapestry", "furniture", "container", "creature", "other"}) {
        EXPECT_TRUE(Contains(cells, std::string("<use href=\"#") + mark + "\"/>")) << mark;
    }
}

TEST(MapSvgTest, DrawsWallsHallsStairsDoorsAndWarnings) {
    const std::string svg = Svg(SampleMap());
    EXPECT_TRUE(Contains(svg, "translate(0 0)\"><use href=\"#w9\"/></g>"));
    EXPECT_TRUE(Contains(svg, "translate(24 72)\"><use href=\"#h5\"/></g>"));
    EXPECT_TRUE(Contains(svg, "translate(72 0)\"><use href=\"#stairsNS\"/><use href=\"#w12\"/>"));
    EXPECT_TRUE(Contains(svg, "<path class=\"wall\" d=\"M0 24H6M18 24H24\"/><rect class=\"door\""));
    EXPECT_TRUE(Contains(svg, "translate(48 72)\"><path class=\"warn\" d=\"M22.5 6V18\"/></g>"));
    EXPECT_FALSE(Contains(svg, "<rect class=\"cut\" width=\"24\" height=\"24\"/></g>\n<g transf"));
}

TEST(MapSvgTest, HoverTitlesNameRoomTilesAndContents) {
    const std::string svg = Svg(SampleMap());
    EXPECT_TRUE(Contains(svg, "<title>Room 1\nDoorwayS, DoorS</title>"));
    EXPECT_TRUE(Contains(svg, "table_01\nrat</title>"));
    EXPECT_TRUE(Contains(svg, "chest &lt;big&gt;</title>"));
}

TEST(MapSvgTest, EscapesNames) {
    const std::string svg = Svg(SampleMap());
    EXPECT_TRUE(Contains(svg, "Vault &lt;1&gt; &amp; more</text>"));
    EXPECT_TRUE(Contains(svg, "configuration a&amp;b.xml, seed 7</text>"));
    EXPECT_TRUE(Contains(svg, "--size &quot;tiny&quot;</text>"));
}

TEST(MapSvgTest, MarksRoomsOutOfReachAndDoorsToOtherLevels) {
    Report::LevelMap map = SampleMap();
    map.rooms[0].reachable = false;
    map.At(1, 2).teleport = true;
    map.At(1, 2).leadsTo = "Level 2";
    const std::string svg = Svg(map);
    EXPECT_TRUE(Contains(svg, "class=\"num warning\""));
    EXPECT_TRUE(Contains(svg, "translate(24 24)\"><rect class=\"cut\""));
    EXPECT_TRUE(Contains(svg, "→ Level 2</text>"));
    EXPECT_TRUE(Contains(svg, "<title>Room 1 (cannot be reached)"));
}

TEST(MapSvgTest, ScaleIsInWorldUnits) {
    EXPECT_TRUE(Contains(Svg(SampleMap()), "1024 units = 4 cells</text>"));
}

} // namespace

} // namespace Tarnex::Test
