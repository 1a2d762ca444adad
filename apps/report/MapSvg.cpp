// SPDX-License-Identifier: MIT
#include "apps/report/MapSvg.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

namespace Tarnex::Report {

namespace {

constexpr std::int32_t kCell = 24;      // edge of a cell on the picture
constexpr std::int32_t kMargin = 36;    // around a panel
constexpr std::int32_t kTitle = 52;     // above a grid
constexpr std::int32_t kFoot = 64;      // below a grid, with the scale
constexpr std::int32_t kLegend = 178;   // below all panels
constexpr std::int32_t kMinWidth = 660; // the legend needs it
constexpr SideBits kShapes = 16;

// Light colours for print, and the same roles for dark screens.
constexpr std::string_view kStyle = R"(<style>
text{font-family:"DejaVu Sans",Verdana,sans-serif;font-size:11px;fill:#222}
.title{font-size:18px;font-weight:bold}.small{fill:#555}
.paper{fill:#fff}.grid{stroke:#e3e3e3;stroke-width:.5;fill:none}
.floor{fill:#efe6d2}.hall{fill:#dfe5ea}.raised{fill:#d8c49a}
.wall{stroke:#222;stroke-width:2.4;stroke-linecap:round;fill:none}
.step{stroke:#555;stroke-width:1.2;fill:none}
.door{fill:#9a5b22;stroke:#222;stroke-width:.8}.tele{fill:#7a3fc0;stroke:#222;stroke-width:.8}
.lead{fill:#7a3fc0;font-weight:bold;font-size:10px;paint-order:stroke;stroke:#fff;stroke-width:3px}
.num{font-size:17px;font-weight:bold;fill:#222;fill-opacity:.38;text-anchor:middle}
.creature{fill:#c8281e;stroke:#fff;stroke-width:.8}.container{fill:#e0a400;stroke:#222;stroke-width:.8}
.furniture{fill:#7d6248;stroke:#fff;stroke-width:.6}.rug{fill:#3d7d6e;fill-opacity:.35;stroke:#3d7d6e}
.tapestry{fill:#2c62b0;stroke:#fff;stroke-width:.6}.other{fill:#666}
.cut{fill:#f6b9b3}.warn{stroke:#e00000;stroke-width:3;fill:none}.warning{fill:#d00000}
.hit{fill:#000;fill-opacity:0}
@media screen and (prefers-color-scheme:dark){
text{fill:#e6e6e6}.small{fill:#a8a8a8}.paper{fill:#15181c}.grid{stroke:#2a2f36}
.floor{fill:#3b382f}.hall{fill:#2d3640}.raised{fill:#5b5034}
.wall{stroke:#e8e4da}.step{stroke:#b5b5b5}
.door{fill:#d08a45;stroke:#15181c}.tele{fill:#b98bff;stroke:#15181c}
.lead{fill:#c9a6ff;stroke:#15181c}.num{fill:#fff}
.creature{fill:#ff6a5e;stroke:#15181c}.container{fill:#ffcb3d;stroke:#15181c}
.furniture{fill:#c9a57f;stroke:#15181c}.rug{fill:#64c2ad;stroke:#64c2ad}
.tapestry{fill:#79adff;stroke:#15181c}.other{fill:#b5b5b5}
.cut{fill:#6b2a26}.warn{stroke:#ff4d42}.warning{fill:#ff7168}
}
</style>
)";

// Where the four sides of a cell run, and the arms of a hall, by TileDirT.
constexpr std::array<std::string_view, 4> kWalls = {"M0 0H24", "M0 24H24", "M24 0V24", "M0 0V24"};
constexpr std::array<std::string_view, 4> kDoorwayWalls = {
    "M0 0H6M18 0H24", "M0 24H6M18 24H24", "M24 0V6M24 18V24", "M0 0V6M0 18V24"};
constexpr std::array<std::string_view, 4> kHallFloor = {
    "M6 0H18V6H6Z", "M6 18H18V24H6Z", "M18 6H24V18H18Z", "M0 6H6V18H0Z"};
constexpr std::array<std::string_view, 4> kHallOpen = {
    "M6 0V6M18 0V6", "M6 18V24M18 18V24", "M18 6H24M18 18H24", "M0 6H6M0 18H6"};
constexpr std::array<std::string_view, 4> kHallClosed = {
    "M6 6H18", "M6 18H18", "M18 6V18", "M6 6V18"};
constexpr std::array<std::string_view, 4> kWarnings = {
    "M6 1.5H18", "M6 22.5H18", "M22.5 6V18", "M1.5 6V18"};
constexpr std::array<std::string_view, 4> kDoors = {R"(x="6" y="-2.5" width="12" height="5")",
                                                    R"(x="6" y="21.5" width="12" height="5")",
                                                    R"(x="21.5" y="6" width="5" height="12")",
                                                    R"(x="-2.5" y="6" width="5" height="12")"};

struct Mark {
    RefSort sort;
    std::string_view name;
    std::string_view drawing; ///< the part of the cell that this sort has for itself
};

// Rugs lie below everything else.
constexpr std::array<Mark, 6> kMarks = {{
    {RefSort::Rug, "rug", R"(<rect class="rug" x="4.5" y="4.5" width="15" height="15"/>)"},
    {RefSort::Tapestry, "tapestry", R"(<path class="tapestry" d="M14 3H21V10L17.5 7.5L14 10Z"/>)"},
    {RefSort::Furniture,
     "furniture",
     R"(<rect class="furniture" x="3.5" y="3.5" width="7.5" height="7.5" rx="1.5"/>)"},
    {RefSort::Container,
     "container",
     R"(<path class="container" d="M3 14H11.5V21H3ZM3 16.8H11.5"/>)"},
    {RefSort::Creature,
     "creature",
     R"(<path class="creature" d="M17 12.2L21.8 17L17 21.8L12.2 17Z"/>)"},
    {RefSort::Other, "other", R"(<circle class="other" cx="12" cy="12" r="1.8"/>)"},
}};

bool Has(SideBits sides, std::size_t side) {
    return (sides >> side & 1U) != 0;
}

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += c;
        }
    }
    return escaped;
}

// Numbers go through std::to_string: a stream may group digits as its locale does.
std::string Text(std::string_view type, std::int32_t x, std::int32_t y, std::string_view text) {
    std::string element = "<text";
    if (!type.empty()) {
        element += " class=\"" + std::string(type) + '"';
    }
    return element + " x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y) + "\">" +
           Escaped(text) + "</text>\n";
}

std::string Use(std::string_view symbol, std::int32_t x = 0, std::int32_t y = 0) {
    std::string element = "<use href=\"#" + std::string(symbol) + '"';
    if (x != 0 || y != 0) {
        element += " x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y) + '"';
    }
    return element + "/>";
}

std::string Path(std::string_view type, std::string_view data) {
    return "<path class=\"" + std::string(type) + "\" d=\"" + std::string(data) + "\"/>";
}

std::string Group(std::string_view id, std::string_view content) {
    return "<g id=\"" + std::string(id) + "\">" + std::string(content) + "</g>\n";
}

// Each shape once: walls of rooms by closed sides, halls by open ones.
std::string Definitions() {
    std::string text = "<defs>\n";
    for (SideBits sides = 0; sides < kShapes; ++sides) {
        std::string walls;
        std::string floor = "M6 6H18V18H6Z";
        std::string hall;
        for (std::size_t side = 0; side < 4; ++side) {
            walls += Has(sides, side) ? kWalls[side] : "";
            floor += Has(sides, side) ? kHallFloor[side] : "";
            hall += Has(sides, side) ? kHallOpen[side] : kHallClosed[side];
        }
        const std::string number = std::to_string(sides);
        if (sides != 0) {
            text += Group("w" + number, Path("wall", walls));
        }
        text += Group("f" + number, "<path d=\"" + floor + "\"/>");
        text += Group("h" + number, Path("wall", hall));
    }
    for (const Mark& mark : kMarks) {
        text += Group(mark.name, mark.drawing);
    }
    text += Group("stairsNS", Path("step", "M3 4H21M3 8H21M3 12H21M3 16H21M3 20H21"));
    text += Group("stairsEW", Path("step", "M4 3V21M8 3V21M12 3V21M16 3V21M20 3V21"));
    return text + "</defs>\n";
}

std::string Floor(const LevelMap& map, const MapCell& cell) {
    std::string type = cell.tile == MapTile::Hall ? "hall" : "floor";
    if (cell.platform) {
        type = "raised";
    }
    if (!map.IsReachable(cell)) {
        type = "cut";
    }
    if (cell.tile == MapTile::Hall) {
        return "<use class=\"" + type + "\" href=\"#f" + std::to_string(cell.open) + "\"/>";
    }
    return "<rect class=\"" + type + "\" width=\"24\" height=\"24\"/>";
}

std::string Walls(const MapCell& cell) {
    if (cell.tile == MapTile::Hall) {
        return Use("h" + std::to_string(cell.open));
    }
    std::string text;
    if (cell.tile == MapTile::Stairs) {
        text += Use((cell.open & SideBit(DirN)) != 0 ? "stairsNS" : "stairsEW");
    }
    const auto closed = static_cast<unsigned>(~cell.open & ~cell.doorway & (kShapes - 1));
    if (closed != 0) {
        text += Use("w" + std::to_string(closed));
    }
    return text;
}

std::string Doorway(const MapCell& cell) {
    std::string text;
    for (std::size_t side = 0; side < 4; ++side) {
        if (Has(cell.doorway, side)) {
            text += Path("wall", kDoorwayWalls[side]);
            if (cell.door) {
                text += "<rect class=\"";
                text += cell.teleport ? "tele" : "door";
                text += "\" " + std::string(kDoors[side]) + "/>";
            }
        }
        if (Has(cell.loose, side)) {
            text += Path("warn", kWarnings[side]);
        }
    }
    return text;
}

std::string Contents(const MapCell& cell) {
    std::string text;
    for (const Mark& mark : kMarks) {
        if (std::ranges::find(cell.contents, mark.sort, &MapContent::sort) != cell.contents.end()) {
            text += Use(mark.name);
        }
    }
    return text;
}

// One layer of all cells: floors lie below all walls, which reach into the neighbouring cells.
template <typename Drawing>
std::string Layer(const LevelMap& map, const Drawing& draw) {
    std::string text;
    for (std::int32_t y = 0; y < map.height; ++y) {
        for (std::int32_t x = 0; x < map.width; ++x) {
            const MapCell& cell = map.At(x, y);
            const std::string drawing = cell.tile == MapTile::Empty ? "" : draw(cell);
            if (!drawing.empty()) {
                text += "<g transform=\"translate(" + std::to_string(x * kCell) + ' ' +
                        std::to_string(y * kCell) + ")\">" + drawing + "</g>\n";
            }
        }
    }
    return text;
}

std::string Grid(const LevelMap& map) {
    std::string data;
    for (std::int32_t x = 0; x <= map.width; ++x) {
        data += 'M' + std::to_string(x * kCell) + " 0V" + std::to_string(map.height * kCell);
    }
    for (std::int32_t y = 0; y <= map.height; ++y) {
        data += "M0 " + std::to_string(y * kCell) + 'H' + std::to_string(map.width * kCell);
    }
    return Path("grid", data) + '\n';
}

// The cell of a room nearest to its middle: a room of several parts may have a gap there.
DiPos NumberPlace(const LevelMap& map, std::size_t number) {
    const MapRoom& room = map.rooms[number - 1];
    DiPos best = room.origin;
    std::int32_t nearest = std::numeric_limits<std::int32_t>::max();
    for (std::int32_t y = 0; y < map.height; ++y) {
        for (std::int32_t x = 0; x < map.width; ++x) {
            const MapCell& cell = map.At(x, y);
            const std::int32_t distance = std::abs(2 * (x - room.origin.x) + 1 - room.size.x) +
                                          std::abs(2 * (y - room.origin.y) + 1 - room.size.y);
            const bool fits = cell.room == number && cell.tile == MapTile::Room;
            if (fits && distance < nearest) {
                nearest = distance;
                best = DiPos(x, y, 0);
            }
        }
    }
    return best;
}

std::string RoomNumbers(const LevelMap& map) {
    std::string text;
    for (std::size_t number = 1; number <= map.rooms.size(); ++number) {
        const DiPos place = NumberPlace(map, number);
        text += Text(map.rooms[number - 1].reachable ? "num" : "num warning",
                     place.x * kCell + kCell / 2,
                     place.y * kCell + kCell / 2 + 6,
                     std::to_string(number));
    }
    return text;
}

std::string Destinations(const LevelMap& map) {
    return Layer(map, [](const MapCell& cell) {
        const std::string level = cell.leadsTo.empty() ? "outside" : cell.leadsTo;
        const bool below = (cell.doorway & SideBit(DirS)) != 0;
        return cell.teleport ? Text("lead", -4, below ? 38 : -7, "\xE2\x86\x92 " + level)
                             : std::string();
    });
}

// The arrow, and a bar as long as some whole cells.
std::string Scale(const LevelMap& map) {
    constexpr std::int32_t kBar = 4;
    const std::int32_t y = map.height * kCell + 26;
    const std::string at = std::to_string(y);
    std::string text = "<g transform=\"translate(0 " + at + ")\">";
    text += Path("wall", "M0 -4V4M0 0H96M96 -4V4M24 -3V3M48 -3V3M72 -3V3") + "</g>\n";
    text += Text("",
                 106,
                 y + 4,
                 std::to_string(std::int64_t{kBar} * map.tileSize) +
                     " units = " + std::to_string(kBar) + " cells");
    return text;
}

std::string NorthArrow(std::int32_t x) {
    return "<g transform=\"translate(" + std::to_string(x) + " -46)\">" +
           Path("wall", "M0 34V4M-5 11L0 3L5 11") + "<text x=\"9\" y=\"16\">N</text></g>\n";
}

std::string Panel(const LevelMap& map, std::int32_t y) {
    std::string text = "<g transform=\"translate(" + std::to_string(kMargin) + ' ' +
                       std::to_string(y + kTitle) + ")\">\n";
    text += Text("title", 0, -30, map.name);
    text +=
        Text("small",
             0,
             -13,
             map.tileSet + ", " + std::to_string(map.width) + " x " + std::to_string(map.height) +
                 " cells of " + std::to_string(map.tileSize) + " units");
    text += NorthArrow(std::max(map.width * kCell, kMinWidth - 2 * kMargin) - 24);
    text += Grid(map);
    text += Layer(map, [&map](const MapCell& cell) { return Floor(map, cell); });
    text += RoomNumbers(map);
    text += Layer(map, Walls);
    text += Layer(map, [](const MapCell& cell) { return Doorway(cell) + Contents(cell); });
    text += Destinations(map);
    text += Layer(map, [&map](const MapCell& cell) {
        return "<rect class=\"hit\" width=\"24\" height=\"24\"><title>" +
               Escaped(CellWords(map, cell)) + "</title></rect>";
    });
    return text + Scale(map) + "</g>\n";
}

struct LegendEntry {
    std::string_view drawing;
    std::string_view words;
};

constexpr std::array<LegendEntry, 15> kEntries = {{
    {R"(<rect class="floor" width="24" height="24"/><use href="#w15"/>)", "room"},
    {R"(<use class="hall" href="#f12"/><use href="#h12"/>)", "hall"},
    {R"(<use href="#stairsNS"/>)", "stairs"},
    {R"(<rect class="raised" width="24" height="24"/>)", "platform"},
    {R"(<path class="wall" d="M0 12H6M18 12H24"/>)", "doorway"},
    {R"(<path class="wall" d="M0 12H6M18 12H24"/><rect class="door" x="6" y="9.5" width="12" height="5"/>)",
     "door"},
    {R"(<path class="wall" d="M0 12H6M18 12H24"/><rect class="tele" x="6" y="9.5" width="12" height="5"/>)",
     "door to a level"},
    {R"(<use href="#creature" x="-5" y="-5"/>)", "creature"},
    {R"(<use href="#container" x="5" y="-5"/>)", "container"},
    {R"(<use href="#furniture" x="5" y="5"/>)", "furniture"},
    {R"(<use href="#rug"/>)", "rug"},
    {R"(<use href="#tapestry" x="-5" y="5"/>)", "tapestry"},
    {R"(<use href="#other"/>)", "other content"},
    {R"(<rect class="cut" width="24" height="24"/>)", "out of reach"},
    {R"(<path class="warn" d="M6 12H18"/>)", "opens onto nothing"},
}};

// Lines that fit the narrowest picture, broken between options.
std::vector<std::string> Wrapped(const std::string& options) {
    constexpr std::size_t kLine = 88;
    std::vector<std::string> lines = {""};
    for (std::size_t start = 0; start < options.size();) {
        const std::size_t next = std::min(options.find(" --", start + 1), options.size());
        const std::string option = options.substr(start, next - start);
        if (lines.back().size() + option.size() > kLine) {
            lines.emplace_back(option.substr(option.front() == ' ' ? 1 : 0));
        } else {
            lines.back() += option;
        }
        start = next;
    }
    return lines;
}

std::string Legend(const MapCaption& caption, std::int32_t y) {
    constexpr std::int32_t kColumns = 5;
    constexpr std::int32_t kColumn = 120;
    constexpr std::int32_t kRow = 30;
    std::string text =
        "<g transform=\"translate(" + std::to_string(kMargin) + ' ' + std::to_string(y) + ")\">\n";
    std::int32_t number = 0;
    for (const LegendEntry& entry : kEntries) {
        text += "<g transform=\"translate(" + std::to_string(number % kColumns * kColumn) + ' ' +
                std::to_string(number / kColumns * kRow) + ")\">" + std::string(entry.drawing) +
                "<text x=\"30\" y=\"16\">" + std::string(entry.words) + "</text></g>\n";
        ++number;
    }
    text += Text("small",
                 0,
                 108,
                 "vaultry " VAULTRY_VERSION ", configuration " + caption.config + ", seed " +
                     std::to_string(caption.seed));
    std::int32_t line = 123;
    for (const std::string& words : Wrapped(caption.options)) {
        text += Text("small", 0, line, words);
        line += 15;
    }
    return text + "</g>\n";
}

std::int32_t PanelHeight(const LevelMap& map) {
    return kTitle + map.height * kCell + kFoot;
}

} // namespace

void WriteSvg(const std::vector<LevelMap>& maps, const MapCaption& caption, std::ostream& out) {
    std::int32_t width = kMinWidth;
    std::int32_t height = kMargin / 2;
    std::string panels;
    for (const LevelMap& map : maps) {
        width = std::max(width, map.width * kCell + 2 * kMargin);
        panels += Panel(map, height);
        height += PanelHeight(map);
    }
    panels += Legend(caption, height);
    height += kLegend + kMargin / 2;
    const std::string size =
        "width=\"" + std::to_string(width) + "\" height=\"" + std::to_string(height) + '"';
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
        << size << " viewBox=\"0 0 " << std::to_string(width) << ' ' << std::to_string(height)
        << "\">\n"
        << kStyle << Definitions() << "<rect class=\"paper\" " << size << "/>\n"
        << panels << "</svg>\n";
}

} // namespace Tarnex::Report
