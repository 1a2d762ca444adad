// SPDX-License-Identifier: MIT
// Maps as a page.
#include "tools/maps/MapHtml.h"
#include "tools/maps/MapPanel.h"

#include <gtest/gtest.h>

#include <sstream>
#include <tests/support/Contains.h>
#include <tests/tools/maps/SampleMap.h>

namespace Tarnex::Test {

namespace {

std::string Page(std::vector<Report::LevelMap> maps) {
    Report::MapCollector levels = Levels(std::move(maps));
    std::ostringstream out;
    Report::WriteHtml(levels,
                      Report::SurveyOf(levels),
                      {7, "--size \"tiny\"", "a&b.xml"},
                      Report::MapLook::Auto,
                      out);
    return out.str();
}

std::string Page(const Report::LevelMap& map) {
    return Page(std::vector{map});
}

std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

TEST(MapHtmlTest, NamesTheRunAndEscapesNames) {
    const std::string page = Page(SampleMap());
    EXPECT_TRUE(page.starts_with("<!DOCTYPE html>\n<html lang=\"en\">"));
    EXPECT_TRUE(Contains(page, "<title>Vault &lt;1&gt; &amp; more</title>"));
    EXPECT_TRUE(Contains(page, "configuration a&amp;b.xml, seed 7</p>"));
    EXPECT_TRUE(Contains(page, "--size &quot;tiny&quot;</p>"));
}

TEST(MapHtmlTest, LeadsNowhereButToItself) {
    const std::string page = Page(SampleMap());
    EXPECT_EQ(Count(page, "href=\""), Count(page, "href=\"#") + Count(page, "href=\"data:,\""));
    EXPECT_FALSE(Contains(page, "src="));
    EXPECT_FALSE(Contains(page, "url("));
    EXPECT_FALSE(Contains(page, "<script"));
    EXPECT_FALSE(Contains(page, "http://"));
    EXPECT_FALSE(Contains(page, "https://"));
}

TEST(MapHtmlTest, LevelsAreListedWhenThereAreSeveral) {
    const std::string two = Page(std::vector{SampleMap(), SampleMap()});
    EXPECT_TRUE(Contains(two, "<li><a href=\"#level-2\">"));
    EXPECT_FALSE(Contains(Page(SampleMap()), "<nav"));
}

TEST(MapHtmlTest, SaysThatThereIsNoLevel) {
    EXPECT_TRUE(Contains(Page(std::vector<Report::LevelMap>()), "<p>No level was made.</p>"));
}

TEST(MapHtmlTest, EveryLinkHasItsTarget) {
    const std::string page = Page(SampleMap());
    for (std::size_t at = page.find("href=\"#"); at != std::string::npos;
         at = page.find("href=\"#", at + 1)) {
        const std::size_t start = at + 7;
        const std::string id = page.substr(start, page.find('"', start) - start);
        EXPECT_EQ(Count(page, " id=\"" + id + '"'), 1U) << id;
    }
}

TEST(MapHtmlTest, RoomsAndHallsHaveARowEach) {
    const std::string page = Page(SampleMap());
    EXPECT_TRUE(Contains(page,
                         "<tr id=\"level-1-room-1\"><th scope=\"row\"><a href=\"#level-1-map-1\">"
                         "1</a></th><td>3 x 3</td><td>1</td><td>rat</td>"
                         "<td>chest &lt;big&gt;</td><td>table_01, rug_01, tapestry_01</td>"
                         "<td>thing</td><td></td></tr>"));
    EXPECT_TRUE(Contains(page, "<th scope=\"row\">halls</th><td>3 cells</td>"));
    EXPECT_TRUE(Contains(page, "<strong>1 opening onto nothing</strong>"));
}

TEST(MapHtmlTest, ContainersAreListedWithWhatIsInThem) {
    Report::LevelMap map = SampleMap();
    const Report::MapChest chest{"Chest & lid", {{"gold_001", 25}, {"cup", -2}}};
    map.Held(0, 0).contents[1] = {Report::MapSign::Container,
                                  "Ctr1_1",
                                  "Chest & lid",
                                  std::make_shared<Report::MapChest>(chest)};
    const std::string page = Page(map);
    EXPECT_TRUE(Contains(page,
                         "<td><a href=\"#level-1-room-1\">room 1</a></td><td>Chest &amp; lid</td>"
                         "<td><code>Ctr1_1</code></td>"
                         "<td><ul><li>25 x gold_001</li><li>-2 x cup</li></ul></td>"));
    map.Held(0, 0).contents.clear();
    EXPECT_TRUE(Contains(Page(map), "<p>No containers.</p>"));
}

TEST(MapHtmlTest, EveryLayerThatTheDungeonHasHasItsBox) {
    Report::LevelMap map = SampleMap();
    for (const char* layer : {"grid", "rooms", "numbers", "creature", "container", "warnings"}) {
        EXPECT_TRUE(Contains(Page(map), "id=\"show-" + std::string(layer) + '"')) << layer;
        EXPECT_TRUE(Contains(Page(map), "body:has(#show-" + std::string(layer) + ':')) << layer;
    }
    EXPECT_FALSE(Contains(Page(map), "show-platforms"));
    map.Held(2, 1).contents.pop_back();
    EXPECT_FALSE(Contains(Page(map), "show-creature"));
}

// Keys and fingers reach the rooms, and from there what hovering tells.
TEST(MapHtmlTest, ARoomOfTheMapIsALinkToItsRow) {
    const std::string page = Page(SampleMap());
    EXPECT_FALSE(Contains(page, "role=\"img\""));
    const std::size_t link =
        page.find("<a href=\"#level-1-room-1\" aria-label=\"Room 1\">\n<rect class=\"hit\"");
    ASSERT_NE(link, std::string::npos);
    const std::string cells = page.substr(link, page.find("</a>", link) - link);
    EXPECT_EQ(Count(cells, "<title>Room 1"), 9U);
}

TEST(MapHtmlTest, CardsNameTheColumns) {
    EXPECT_TRUE(
        Contains(Page(SampleMap()), ".rooms td:nth-child(4)::before{content:\"Creatures: \"}"));
}

} // namespace

} // namespace Tarnex::Test
