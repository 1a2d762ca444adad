// SPDX-License-Identifier: MIT
#include "tools/maps/MapHtml.h"

#include "tools/maps/MapLegend.h"
#include "tools/maps/MapPanel.h"
#include "tools/maps/MapTables.h"
#include "tools/maps/SvgText.h"

#include <vaultry/foundation/HarmlessText.h>

#include <string>
#include <string_view>

namespace Tarnex::Report {

namespace {

constexpr std::int32_t kAbove = 24; // of a grid

constexpr std::string_view kLightPage = R"(:root{color-scheme:light;--paper:#fff;--ink:#222;
--faint:#555;--line:#d5d0c4;--band:#f6f2e8;--link:#6a2fb0;--warn:#c80000;--spot:#7a3fc0}
)";

constexpr std::string_view kDarkPage = R"(:root{color-scheme:dark;--paper:#15181c;--ink:#e6e6e6;
--faint:#a8a8a8;--line:#383e46;--band:#1e2329;--link:#c9a6ff;--warn:#ff7168;--spot:#c9a6ff}
)";

constexpr std::string_view kPage = R"(*{box-sizing:border-box}
body{margin:0;padding:1.5rem;background:var(--paper);color:var(--ink);
font:15px/1.45 "DejaVu Sans",Verdana,sans-serif}
h1{font-size:1.7rem;margin:0}h2{font-size:1.35rem;margin:2.5rem 0 .25rem}
h3{font-size:1.05rem;margin:1.5rem 0 .5rem}
a{color:var(--link)}.faint{color:var(--faint);margin:.25rem 0}
nav ul,.layers,.legend{display:flex;flex-wrap:wrap;gap:.3rem 1.1rem;padding:0;margin:.75rem 0;
list-style:none}
.layers{position:sticky;top:0;z-index:1;background:var(--paper);border:0;
border-bottom:1px solid var(--line);padding:.6rem 0}
.legend{font-size:.87rem}.legend li{display:flex;align-items:center;gap:.4rem}
.legend svg{overflow:visible}.defs{position:absolute}
.layers label{white-space:nowrap;cursor:pointer}
.layers legend{float:left;font-weight:bold;padding:0;margin-right:.4rem}
.picture{overflow:auto;border:1px solid var(--line);border-radius:4px}
.picture svg{display:block}
body:has(#fit:checked) .picture svg{width:100%;height:auto;max-height:92vh}
.picture a:focus{outline:none}
.picture a:focus-visible .hit,.picture a:hover .hit{fill:var(--spot);fill-opacity:.15}
.spot{fill:none;stroke:none;pointer-events:none}
.spot:target{stroke:var(--spot);stroke-width:4;stroke-dasharray:8 4}
.scroll{overflow-x:auto}
table{border-collapse:collapse;width:100%;font-size:.87rem}
.rooms{min-width:54rem}.containers{min-width:36rem}
th,td{padding:.35rem .6rem;text-align:left;vertical-align:top;border-bottom:1px solid var(--line);
overflow-wrap:break-word}
td:first-child,tbody th,.rooms td:nth-child(2),.rooms td:nth-child(3){white-space:nowrap}
thead th{background:var(--band);white-space:nowrap}tbody tr:target{outline:2px solid var(--spot)}
td strong{color:var(--warn)}
td ul{margin:0;padding:0;list-style:none;columns:18rem}
@media screen and (max-width:48rem){body{padding:.75rem}.layers{position:static}
.rooms,.containers{min-width:0}thead{display:none}
tbody tr{display:block;border:1px solid var(--line);border-radius:6px;padding:.4rem .6rem;
margin-bottom:.75rem}
tbody th,tbody td{display:block;border:0;padding:.1rem 0;white-space:normal!important}
tbody td:empty{display:none}tbody th{font-size:1rem}
tbody td::before{color:var(--faint)}tbody th a::before{content:"Room "}}
@media print{body{padding:0;font-size:10pt}.layers,nav{display:none}
.picture{overflow:visible;border:0}.picture svg{max-width:100%;max-height:22cm;height:auto}
h2{break-before:page}section:first-of-type h2{break-before:auto}tr{break-inside:avoid}.rooms,.containers{min-width:0}
.scroll{overflow:visible}}
)";

std::string PageStyle(MapLook look, const std::vector<MapLayer>& layers) {
    std::string style(look == MapLook::Dark ? kDarkPage : kLightPage);
    if (look == MapLook::Auto) {
        style += "@media screen and (prefers-color-scheme:dark){" + std::string(kDarkPage) + "}\n";
    }
    style += kPage;
    style += "@media screen and (max-width:48rem){" + CardStyle() + "}\n";
    for (const MapLayer& layer : layers) {
        style.append("body:has(#show-")
            .append(layer.name)
            .append(":not(:checked)) .layer-")
            .append(layer.name)
            .append("{display:none}\n");
    }
    return style + MapStyle(look);
}

std::string CheckBox(const std::string& id, std::string_view words) {
    return "<label><input type=\"checkbox\" id=\"" + id + "\" checked=\"\"/> " +
           std::string(words) + "</label>\n";
}

std::string Switches(const std::vector<MapLayer>& layers) {
    std::string text = "<fieldset class=\"layers\"><legend>Show</legend>\n";
    for (const MapLayer& layer : layers) {
        text += CheckBox("show-" + std::string(layer.name), layer.words);
    }
    return text + CheckBox("fit", "Fit to the window") + "</fieldset>\n";
}

std::string LevelId(std::size_t level) {
    return "level-" + std::to_string(level);
}

std::string Contents(const std::vector<SurveyedLevel>& levels) {
    if (levels.size() < 2) {
        return {};
    }
    std::string text = "<nav aria-label=\"Levels\"><ul>\n";
    for (std::size_t i = 0; i < levels.size(); ++i) {
        text += "<li><a href=\"#" + LevelId(i + 1) + "\">" + ForMarkup(levels[i].outline.name) +
                "</a></li>\n";
    }
    return text + "</ul></nav>\n";
}

// Frames that show up around a room whose row was followed to the map.
std::string Spots(const LevelMap& map, std::size_t level) {
    std::string text;
    for (std::size_t i = 0; i < map.rooms.size(); ++i) {
        const MapRoom& room = map.rooms[i];
        text += "<rect class=\"spot\"" + Attribute("id", RoomSpotId(level, i + 1)) +
                Attribute("x", Coordinate(room.origin.x * kCell - 4.0)) +
                Attribute("y", Coordinate(room.origin.y * kCell - 4.0)) +
                Attribute("width", Coordinate(room.size.x * kCell + 8.0)) +
                Attribute("height", Coordinate(room.size.y * kCell + 8.0)) + "/>\n";
    }
    return text;
}

std::string Picture(const LevelMap& map, std::size_t level, ListedItems& listed) {
    const std::int32_t width = PanelWidth(map);
    const std::int32_t height = kAbove + map.height * kCell + kPanelFoot;
    const std::string size =
        Attribute("width", std::to_string(width)) + Attribute("height", std::to_string(height));
    return "<div class=\"picture\"><svg role=\"group\"" +
           Attribute("aria-label", "Map of " + map.name) + size +
           Attribute("viewBox", "0 0 " + std::to_string(width) + ' ' + std::to_string(height)) +
           ">\n<rect class=\"paper\"" + size + "/>\n" +
           SvgMoved(kPanelMargin, kAbove, MapDrawing(map, &listed, level) + Spots(map, level)) +
           NorthArrow(width - kPanelMargin - 24, height - 44) + "</svg></div>\n";
}

// To be copied into the game's console.
std::string ArrivalWords(const LevelMap& map) {
    return map.arrival ? "<p>To stand there: <code>" + ForMarkup(ConsoleLine(*map.arrival)) +
                             "</code></p>\n"
                       : std::string();
}

// What the drawings and what the tables have listed of a page.
struct PageItems {
    ListedItems inDrawings;
    ListedItems inTables;
};

std::string Section(const LevelMap& map, std::size_t level, PageItems& listed) {
    const std::string size = std::to_string(map.width) + " x " + std::to_string(map.height) +
                             " cells of " + std::to_string(map.tileSize) + " units";
    return "<section id=\"" + LevelId(level) + "\">\n<h2>" + ForMarkup(map.name) +
           "</h2>\n<p class=\"faint\">" +
           ForMarkup(map.tileSet.empty() ? size : map.tileSet + ", " + size) + "</p>\n" +
           ArrivalWords(map) + Picture(map, level, listed.inDrawings) +
           "<h3>Rooms</h3>\n<div class=\"scroll\">" + RoomTable(map, level) +
           "</div>\n<h3>Containers</h3>\n<div class=\"scroll\">" +
           ContainerTable(map, level, listed.inTables) + "</div>\n</section>\n";
}

std::string Legend(const LegendNeeds& needs) {
    const std::string start = R"(<svg width="24" height="24" aria-hidden="true">)";
    std::string text = "<ul class=\"legend\">\n";
    for (const LegendItem& item : LegendItems(needs)) {
        text += "<li>" + start + std::string(item.drawing) + "</svg> " + std::string(item.words) +
                "</li>\n";
    }
    return text + "</ul>\n";
}

// The marks are drawn from here; what is not displayed at all could not be used.
std::string Definitions() {
    return "<svg width=\"0\" height=\"0\" class=\"defs\" aria-hidden=\"true\">" + MapDefinitions() +
           "</svg>\n";
}

// The start that the names of all levels share, up to a comma, or the first name.
std::string Title(const std::vector<SurveyedLevel>& levels) {
    if (levels.empty()) {
        return "Map";
    }
    const std::string& first = levels.front().outline.name;
    return levels.size() == 1 ? first : first.substr(0, first.rfind(", "));
}

} // namespace

void WriteHtml(MapLevels& levels,
               const MapSurvey& survey,
               const MapCaption& caption,
               MapLook look,
               std::ostream& out) {
    const std::string title = ForMarkup(Title(survey.levels));
    const std::vector<MapLayer> layers = MapLayers(survey.legend);
    out << "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n"
        << kPageHead << "<title>" << title << "</title>\n<style>\n"
        << PageStyle(look, layers) << "</style>\n</head>\n<body>\n<header>\n<h1>" << title
        << "</h1>\n";
    constexpr std::int32_t kUnbroken = 1'000'000;
    for (const std::string& line : CaptionLines(caption, kUnbroken)) {
        out << "<p class=\"faint\">" << ForMarkup(line) << "</p>\n";
    }
    out << Contents(survey.levels) << "</header>\n"
        << Definitions() << Switches(layers) << Legend(survey.legend) << "<main>\n";
    PageItems listed;
    for (std::size_t i = 0; i < levels.Count() && out; ++i) {
        out << Section(levels.Level(i), i + 1, listed);
    }
    if (survey.levels.empty()) {
        out << "<p>" << kNoLevels << "</p>\n";
    }
    out << "</main>\n</body>\n</html>\n";
}

} // namespace Tarnex::Report
