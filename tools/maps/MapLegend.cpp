// SPDX-License-Identifier: MIT
#include "tools/maps/MapLegend.h"

#include "tools/maps/MapStyle.h"
#include "tools/maps/SvgText.h"

#include <vaultry/foundation/HarmlessText.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace Tarnex::Report {

namespace {

constexpr std::int32_t kColumn = 150;
constexpr std::int32_t kRow = 30;

using Shows = bool (*)(const LevelMap& map, const MapCell& cell);

struct LegendEntry {
    LegendItem item;
    Shows shows; ///< whether a cell needs the entry
};

template <PlanTile Tile>
bool IsTile(const LevelMap& /*map*/, const MapCell& cell) {
    return cell.tile == Tile;
}

template <RefSort Sort>
bool Holds(const LevelMap& /*map*/, const MapCell& cell) {
    return std::ranges::find(cell.contents, Sort, &MapContent::sort) != cell.contents.end();
}

const std::array<LegendEntry, LegendNeeds().size()> kEntries = {{
    {{R"(<path class="floor" d="M0 0H24V24H0Z"/><path class="wall" d="M0 0H24V24H0Z"/>)", "room"},
     IsTile<PlanTile::Room>},
    {{R"(<path class="hallfloor" d="M0 6H24V18H0Z"/><path class="wall" d="M0 6H24M0 18H24"/>)",
      "hall"},
     IsTile<PlanTile::Hall>},
    {{R"(<path class="step" d="M3 4H21M3 8H21M3 12H21M3 16H21M3 20H21"/>)", "stairs"},
     IsTile<PlanTile::Stairs>},
    {{R"(<path class="raised" d="M2.5 2.5H21.5V21.5H2.5Z"/>)", "platform"},
     [](const LevelMap&, const MapCell& cell) { return cell.platform; }},
    {{R"(<path class="wall" d="M0 12H6M18 12H24"/>)", "doorway"},
     [](const LevelMap&, const MapCell& cell) { return cell.doorway != 0 && !cell.door; }},
    {{R"(<path class="wall" d="M0 12H6M18 12H24"/><path class="door" d="M6 9.5H18V14.5H6Z"/>)",
      "door"},
     [](const LevelMap&, const MapCell& cell) { return cell.door && !cell.teleport; }},
    {{R"(<path class="wall" d="M0 12H6M18 12H24"/><path class="tele" d="M6 9.5H18V14.5H6Z"/>)",
      "door to a level"},
     [](const LevelMap&, const MapCell& cell) { return cell.door && cell.teleport; }},
    {{R"(<use href="#loosedoor"/>)", "door, side unknown"}, Holds<RefSort::Door>},
    {{R"(<use href="#creature" x="-5" y="-5"/>)", "creature"}, Holds<RefSort::Creature>},
    {{R"(<use href="#container" x="5" y="-5"/>)", "container"}, Holds<RefSort::Container>},
    {{R"(<use href="#furniture" x="5" y="5"/>)", "furniture"}, Holds<RefSort::Furniture>},
    {{R"(<use href="#rug"/>)", "rug"}, Holds<RefSort::Rug>},
    {{R"(<use href="#tapestry" x="-5" y="5"/>)", "tapestry"}, Holds<RefSort::Tapestry>},
    {{R"(<use href="#other"/>)", "anything else"}, Holds<RefSort::Other>},
    {{R"(<path class="cut" d="M0 0H24V24H0Z"/>)", "out of reach"},
     [](const LevelMap& map, const MapCell& cell) { return !map.IsReachable(cell); }},
    {{R"(<path class="warn" d="M6 12H18"/>)", "opens onto nothing"},
     [](const LevelMap&, const MapCell& cell) { return cell.loose != 0; }},
}};

// Broken between options where a line is full.
void AppendWrapped(std::vector<std::string>& lines, const std::string& text, std::size_t most) {
    lines.emplace_back();
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t next = std::min(text.find(" --", start + 1), text.size());
        const std::string option = text.substr(start, next - start);
        if (lines.back().size() + option.size() > most && !lines.back().empty()) {
            lines.emplace_back(option.substr(option.front() == ' ' ? 1 : 0));
        } else {
            lines.back() += option;
        }
        start = next;
    }
}

} // namespace

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

std::string MapLegend(const LegendNeeds& needs, std::int32_t width, std::int32_t& height) {
    const std::int32_t columns = std::max(width / kColumn, 1);
    std::string text;
    std::int32_t number = 0;
    for (const LegendItem& item : LegendItems(needs)) {
        const std::int32_t row = number / columns;
        text += SvgMoved(number % columns * kColumn,
                         row * kRow,
                         std::string(item.drawing) + '\n' + SvgTextAt("", 31, 16, item.words));
        ++number;
    }
    height = (number + columns - 1) / columns * kRow;
    return text;
}

std::vector<std::string> CaptionLines(const MapCaption& caption, std::int32_t width) {
    constexpr std::int32_t kLetter = 7; // mean width
    const auto most = static_cast<std::size_t>(std::max(width / kLetter, 1));
    std::vector<std::string> lines;
    lines.push_back("vaultry " VAULTRY_VERSION ", configuration " + ForTerminal(caption.config));
    if (caption.plugin.empty()) {
        lines.back() += ", seed " + std::to_string(caption.seed);
    } else {
        lines.push_back("drawn from " + ForTerminal(caption.plugin));
    }
    if (!caption.options.empty()) {
        AppendWrapped(lines, caption.options, most);
    }
    return lines;
}

} // namespace Tarnex::Report
