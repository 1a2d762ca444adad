// SPDX-License-Identifier: MIT
#include "tools/maps/MapStyle.h"

#include "tools/maps/SvgText.h"

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
.rug{fill:#3d7d6e;fill-opacity:.3;stroke:#3d7d6e}
.tapestry{fill:#2c62b0;stroke:#fff;stroke-width:.6}
.loosedoor{fill:none;stroke:#9a5b22;stroke-width:2}
.other{fill:#666}
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
.rug{fill:#64c2ad;stroke:#64c2ad}
.tapestry{fill:#79adff;stroke:#15181c}
.loosedoor{stroke:#d08a45}
.other{fill:#b5b5b5}
.warn{stroke:#ff4d42}
.warning{fill:#ff7168}
)";

} // namespace

const std::array<MapMark, 7> kMapMarks = {{
    {RefSort::Rug, "rug", R"(<rect class="rug" x="4.5" y="4.5" width="15" height="15"/>)", 12, 12},
    {RefSort::Tapestry,
     "tapestry",
     R"(<path class="tapestry" d="M14 3H21V10.5L17.5 8L14 10.5Z"/>)",
     17.5,
     6.75},
    {RefSort::Furniture,
     "furniture",
     R"(<rect class="furniture" x="3.5" y="3.5" width="7.5" height="7.5" rx="1.5"/>)",
     7.25,
     7.25},
    {RefSort::Container,
     "container",
     R"(<path class="container" d="M3 14H11.5V21H3ZM3 16.8H11.5"/>)",
     7.25,
     17.5},
    {RefSort::Creature,
     "creature",
     R"(<path class="creature" d="M17 12.2L21.8 17L17 21.8L12.2 17Z"/>)",
     17,
     17},
    {RefSort::Door,
     "loosedoor",
     R"(<rect class="loosedoor" x="8" y="6" width="8" height="12"/>)",
     12,
     12},
    {RefSort::Other, "other", R"(<circle class="other" cx="12" cy="12" r="1.8"/>)", 12, 12},
}};

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

} // namespace Tarnex::Report
