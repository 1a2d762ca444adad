// SPDX-License-Identifier: MIT
#include "tools/maps/MapStyle.h"

#include "tools/maps/SvgText.h"

#include <algorithm>

namespace Tarnex::Report {

namespace {

// Colours are told apart by brightness too, and marks by shape: print may be black and white.
constexpr std::string_view kLight = R"(
svg text{font-family:"DejaVu Sans",Verdana,sans-serif;font-size:11px;fill:#222}
.title{font-size:18px;font-weight:bold}
.small{fill:#555}
.paper{fill:#fff}
.grid{stroke:#dcdcdc;stroke-width:.5;fill:none}
.floor{fill:#efe6d2}
.hallfloor{fill:#dbe3ea}
.raised{fill:#d3bd8c}
.cut{fill:#f6b9b3}
.wall{stroke:#222;stroke-width:2.4;stroke-linecap:round;stroke-linejoin:round;fill:none}
.step{stroke:#555;stroke-width:1.2;fill:none}
.door{fill:#9a5b22;stroke:#222;stroke-width:.8}
.tele{fill:#7a3fc0;stroke:#222;stroke-width:.8}
.lead{fill:#6a2fb0;font-weight:bold;font-size:10px}
.leader{stroke:#7a3fc0;stroke-width:1;stroke-dasharray:2 2;fill:none}
.label{fill:#fff;fill-opacity:.85}
.num{font-size:16px;font-weight:bold;fill:#6b6250;text-anchor:middle}
.wide{font-size:13px}
.creature{fill:#c8281e;stroke:#fff;stroke-width:.8}
.container{fill:#e0a400;stroke:#222;stroke-width:.8}
.furniture{fill:#7d6248;stroke:#fff;stroke-width:.6}
.light{fill:#ffd23e;stroke:#8a4b00;stroke-width:.8;stroke-linejoin:round}
.rug{fill:#3d7d6e;fill-opacity:.3;stroke:#3d7d6e}
.tapestry{fill:#2c62b0;stroke:#fff;stroke-width:.6}
.loosedoor{fill:none;stroke:#9a5b22;stroke-width:2}
.other{fill:#666}
.arrival{fill:#1c8a3a;stroke:#fff;stroke-width:1;stroke-linejoin:round}
.warn{stroke:#e00000;stroke-width:3.4;fill:none}
.warning{fill:#c80000}
.hit{fill:#000;fill-opacity:0}
)";

constexpr std::string_view kDark = R"(
svg text{fill:#e6e6e6}
.small{fill:#a8a8a8}
.paper{fill:#15181c}
.grid{stroke:#2c323a}
.floor{fill:#3b382f}
.hallfloor{fill:#2d3844}
.raised{fill:#65583a}
.cut{fill:#6b2a26}
.wall{stroke:#e8e4da}
.step{stroke:#b5b5b5}
.door{fill:#d08a45;stroke:#15181c}
.tele{fill:#b98bff;stroke:#15181c}
.lead{fill:#c9a6ff}
.leader{stroke:#b98bff}
.label{fill:#15181c}
.num{fill:#b9b09a}
.creature{fill:#ff6a5e;stroke:#15181c}
.container{fill:#ffcb3d;stroke:#15181c}
.furniture{fill:#c9a57f;stroke:#15181c}
.light{fill:#fff0a0;stroke:#15181c}
.rug{fill:#64c2ad;stroke:#64c2ad}
.tapestry{fill:#79adff;stroke:#15181c}
.loosedoor{stroke:#d08a45}
.other{fill:#b5b5b5}
.arrival{fill:#5fd886;stroke:#15181c}
.warn{stroke:#ff4d42}
.warning{fill:#ff7168}
)";

template <bool MapLock::*Is>
bool HasLock(const LevelMap& /*map*/, const MapCell& cell) {
    return cell.lock.*Is || std::ranges::any_of(cell.contents, [](const MapContent& content) {
               return content.lock.*Is;
           });
}

using Shows = bool (*)(const LevelMap& map, const MapCell& cell);

struct LegendEntry {
    LegendItem item;
    Shows shows; ///< whether a cell needs the entry
};

template <PlanTile Tile>
bool IsTile(const LevelMap& /*map*/, const MapCell& cell) {
    return cell.tile == Tile;
}

template <MapSign Sign>
bool Holds(const LevelMap& /*map*/, const MapCell& cell) {
    return std::ranges::find(cell.contents, Sign, &MapContent::sign) != cell.contents.end();
}

bool LeadsOn(const MapCell& cell) {
    return cell.door && cell.teleport;
}

const auto kEntries = std::to_array<LegendEntry>({
    {{R"(<path class="floor" d="M0 0H24V24H0Z"/><path class="wall" d="M0 0H24V24H0Z"/>)",
      "room",
      "rooms"},
     IsTile<PlanTile::Room>},
    {{R"(<path class="hallfloor" d="M0 6H24V18H0Z"/><path class="wall" d="M0 6H24M0 18H24"/>)",
      "hall",
      "halls"},
     IsTile<PlanTile::Hall>},
    {{R"(<path class="step" d="M3 4H21M3 8H21M3 12H21M3 16H21M3 20H21"/>)", "stairs", "rooms"},
     IsTile<PlanTile::Stairs>},
    {{R"(<path class="raised" d="M2.5 2.5H21.5V21.5H2.5Z"/>)", "platform", "platforms"},
     [](const LevelMap&, const MapCell& cell) { return cell.platform; }},
    {{R"(<path class="wall" d="M0 12H6M18 12H24"/>)", "doorway", "rooms"},
     [](const LevelMap&, const MapCell& cell) { return cell.doorway != 0 && !cell.door; }},
    {{R"(<path class="wall" d="M0 12H6M18 12H24"/><path class="door" d="M6 9.5H18V14.5H6Z"/>)",
      "door",
      "doors"},
     [](const LevelMap&, const MapCell& cell) { return cell.door && !cell.teleport; }},
    {{R"(<path class="wall" d="M0 12H6M18 12H24"/><path class="tele" d="M6 9.5H18V14.5H6Z"/>)",
      "door to a level",
      "doors"},
     [](const LevelMap&, const MapCell& cell) { return LeadsOn(cell) && !cell.leadsTo.empty(); }},
    {{R"(<path class="wall" d="M0 12H6M18 12H24"/><path class="tele" d="M6 9.5H18V14.5H6Z"/>)",
      "door to the outside",
      "doors"},
     [](const LevelMap&, const MapCell& cell) { return LeadsOn(cell) && cell.leadsTo.empty(); }},
    {{R"(<path class="wall" d="M0 4H6M18 4H24"/><path class="tele" d="M12 8L7 18H17Z"/>)",
      "way in",
      "doors"},
     [](const LevelMap&, const MapCell& cell) { return cell.waysIn != 0; }},
    {{R"(<use href="#loosedoor" x="12" y="12"/>)", "door, side unknown", "doors"},
     Holds<MapSign::Door>},
    {{R"(<use href="#creature" x="12" y="12"/>)", "creature", "creature"},
     Holds<MapSign::Creature>},
    {{R"(<use href="#container" x="12" y="12"/>)", "container", "container"},
     Holds<MapSign::Container>},
    {{R"(<use href="#furniture" x="12" y="12"/>)", "furniture", "furniture"},
     Holds<MapSign::Furniture>},
    {{R"(<use href="#light" x="12" y="12"/>)", "light", "light"}, Holds<MapSign::Light>},
    {{R"(<use href="#rug" x="12" y="12"/>)", "rug", "rug"}, Holds<MapSign::Rug>},
    {{R"(<use href="#tapestry" x="12" y="12"/>)", "tapestry", "tapestry"},
     Holds<MapSign::Tapestry>},
    {{R"(<use href="#other" x="12" y="12"/>)", "anything else", "other"}, Holds<MapSign::Other>},
    {{R"(<path class="step" d="M10 11.2V9.8A2 2 0 0 1 14 9.8V11.2"/><path class="container" d="M8.8 11.2H15.2V16H8.8Z"/>)",
      "locked",
      "lock"},
     HasLock<&MapLock::locked>},
    {{R"(<path class="creature" d="M12 8.4L15.6 14.6H8.4Z"/>)", "trap", "lock"},
     HasLock<&MapLock::trapped>},
    {{R"(<path class="arrival" d="M12 3L18.5 19L12 15.5L5.5 19Z"/>)", "arrival", "arrival"},
     [](const LevelMap& map, const MapCell& cell) { return map.ArrivalCell() == &cell; }},
    {{R"(<path class="cut" d="M0 0H24V24H0Z"/>)", "out of reach", "warnings"},
     [](const LevelMap& map, const MapCell& cell) { return !map.IsReachable(cell); }},
    {{R"(<path class="warn" d="M6 12H18"/>)", "opens onto nothing", "warnings"},
     [](const LevelMap&, const MapCell& cell) { return cell.loose != 0; }},
});
static_assert(kEntries.size() <= LegendNeeds().size());

} // namespace

const std::array<MapMark, kMapSigns> kMapMarks = {{
    {"rug", R"(<rect class="rug" x="-7.5" y="-7.5" width="15" height="15"/>)", 7.5, true},
    {"other", R"(<circle class="other" r="1.8"/>)", 1.8, false},
    {"tapestry", R"(<path class="tapestry" d="M-5.5 -2.2H5.5V.6L0 3.4L-5.5 .6Z"/>)", 2.6, false},
    {"furniture",
     R"(<rect class="furniture" x="-3.75" y="-3.75" width="7.5" height="7.5"/>)",
     3.8,
     true},
    {"container",
     R"(<path class="container" d="M-4.2 -3.4H4.2V3.4H-4.2ZM-4.2 -.8H4.2"/>)",
     4,
     false},
    {"light",
     R"(<path class="light" d="M0 -4.8L1.3 -1.7L4.6 -1.5L2 .7L2.8 3.9L0 2.1L-2.8 3.9L-2 .7L-4.6 -1.5L-1.3 -1.7Z"/>)",
     4.6,
     false},
    {"creature", R"(<path class="creature" d="M0 -4.8L4.8 0L0 4.8L-4.8 0Z"/>)", 4.8, false},
    {"loosedoor", R"(<rect class="loosedoor" x="-4" y="-6" width="8" height="12"/>)", 0, false},
}};

const std::string_view kLockDrawing =
    R"(<path class="step" d="M-2 -.8V-2.2A2 2 0 0 1 2 -2.2V-.8"/><path class="container" d="M-3.2 -.8H3.2V4H-3.2Z"/>
)";
const std::string_view kTrapDrawing = R"(<path class="creature" d="M0 -3.6L3.6 2.6H-3.6Z"/>
)";

std::string MapStyle(MapLook look) {
    std::string style(kLight);
    if (look == MapLook::Dark) {
        style += kDark;
    }
    if (look == MapLook::Auto) {
        style += "@media screen and (prefers-color-scheme:dark){" + std::string(kDark) + "}\n";
    }
    return style;
}

std::string MapDefinitions() {
    std::string text = "<defs>\n";
    for (const MapMark& mark : kMapMarks) {
        text += "<g" + Attribute("id", mark.name) + '>' + std::string(mark.drawing) + "</g>\n";
    }
    return text + "</defs>\n";
}

LegendNeeds LegendOf(const LevelMap& map) {
    LegendNeeds needs;
    for (std::size_t i = 0; i < kEntries.size(); ++i) {
        needs[i] = std::ranges::any_of(
            map.cells, [&](const MapCell& cell) { return kEntries[i].shows(map, cell); });
    }
    return needs;
}

std::vector<LegendItem> LegendItems(const LegendNeeds& needs) {
    std::vector<LegendItem> items;
    for (std::size_t i = 0; i < kEntries.size(); ++i) {
        if (needs[i]) {
            items.push_back(kEntries[i].item);
        }
    }
    return items;
}

} // namespace Tarnex::Report
