// SPDX-License-Identifier: MIT
#include "tools/maps/MapPanel.h"

#include "tools/maps/MapLabels.h"
#include "tools/maps/MapTables.h"
#include "tools/maps/SvgText.h"

#include <vaultry/foundation/HarmlessText.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace Tarnex::Report {

namespace {

constexpr std::int32_t kTitle = 76; // above a grid
constexpr std::int32_t kNarrowest = 330;
constexpr double kTitleSize = 18.0; // of its letters
constexpr SideBits kAllSides = 0xF;

// A line or area of a cell in path commands, relative to the cell's corner.
struct Piece {
    double x;
    double y;
    std::string_view rest;
};

using BySide = std::array<Piece, 4>; // N, S, E, W

constexpr BySide kWalls = {{{0, 0, "h24"}, {0, 24, "h24"}, {24, 0, "v24"}, {0, 0, "v24"}}};
constexpr BySide kDoorwayWalls = {
    {{0, 0, "h6m12 0h6"}, {0, 24, "h6m12 0h6"}, {24, 0, "v6m0 12v6"}, {0, 0, "v6m0 12v6"}}};
constexpr BySide kHallFloors = {
    {{6, 0, "h12v6h-12z"}, {6, 18, "h12v6h-12z"}, {18, 6, "h6v12h-6z"}, {0, 6, "h6v12h-6z"}}};
constexpr BySide kHallOpen = {
    {{6, 0, "v6m12 -6v6"}, {6, 18, "v6m12 -6v6"}, {18, 6, "h6m-6 12h6"}, {0, 6, "h6m-6 12h6"}}};
constexpr BySide kHallClosed = {{{6, 6, "h12"}, {6, 18, "h12"}, {18, 6, "v12"}, {6, 6, "v12"}}};
// Outside, where no door covers them.
constexpr BySide kWarnings = {
    {{6, -4.2, "h12"}, {6, 28.2, "h12"}, {28.2, 6, "v12"}, {-4.2, 6, "v12"}}};
// Arrows from outside.
constexpr BySide kWaysIn = {
    {{12, -4, "l-5 -8h10z"}, {12, 28, "l-5 8h10z"}, {28, 12, "l8 -5v10z"}, {-4, 12, "l-8 -5v10z"}}};
constexpr BySide kDoors = {{{6, -2.5, "h12v5h-12z"},
                            {6, 21.5, "h12v5h-12z"},
                            {21.5, 6, "h5v12h-5z"},
                            {-2.5, 6, "h5v12h-5z"}}};
constexpr std::string_view kArrivalArrow = "M0 -9L6.5 7L0 3.5L-6.5 7Z";
constexpr Piece kWholeFloor = {0, 0, "h24v24h-24z"};
constexpr Piece kHallMiddle = {6, 6, "h12v12h-12z"};
constexpr Piece kStepsNS = {3, 4, "h18m-18 4h18m-18 4h18m-18 4h18m-18 4h18"};
constexpr Piece kStepsEW = {4, 3, "v18m4 -18v18m4 -18v18m4 -18v18m4 -18v18"};

bool Has(SideBits sides, std::size_t side) {
    return (sides >> side & 1U) != 0;
}

// The commands of all cells of one kind: one element draws them, without seams.
class PathData {
public:
    void Add(const DiPos& cell, const Piece& piece) {
        data += 'M' + Coordinate(cell.x * kCell + piece.x) + ' ' +
                Coordinate(cell.y * kCell + piece.y) + std::string(piece.rest);
    }
    void Add(const DiPos& cell, const BySide& pieces, SideBits sides) {
        for (std::size_t side = 0; side < pieces.size(); ++side) {
            if (Has(sides, side)) {
                Add(cell, pieces[side]);
            }
        }
    }
    const std::string& Text() const { return data; }

private:
    std::string data;
};

template <typename Visitor>
void ForEachCell(const LevelMap& map, const Visitor& visit) {
    for (const MapCell& cell : map.cells) {
        visit(cell.place, cell);
    }
}

std::string Layer(std::string_view name, const std::string& content) {
    return SvgGroup("layer-" + std::string(name), content);
}

std::string Grid(const LevelMap& map) {
    std::string data;
    for (std::int32_t x = 0; x <= map.width; ++x) {
        data += 'M' + std::to_string(x * kCell) + " 0V" + std::to_string(map.height * kCell);
    }
    for (std::int32_t y = 0; y <= map.height; ++y) {
        data += "M0 " + std::to_string(y * kCell) + 'H' + std::to_string(map.width * kCell);
    }
    return SvgPath("grid", data);
}

bool IsRoomLike(const MapCell& cell) {
    return cell.tile == PlanTile::Room || cell.tile == PlanTile::Stairs;
}

// Walls are drawn over every floor, of whatever colour.
std::string RoomWalls(const LevelMap& map) {
    PathData walls;
    PathData steps;
    ForEachCell(map, [&](const DiPos& at, const MapCell& cell) {
        if (!IsRoomLike(cell)) {
            return;
        }
        walls.Add(at, kWalls, static_cast<SideBits>(~cell.open & ~cell.doorway & kAllSides));
        walls.Add(at, kDoorwayWalls, cell.doorway);
        if (cell.tile == PlanTile::Stairs) {
            steps.Add(at, (cell.open & SideBit(DirN)) != 0 ? kStepsNS : kStepsEW);
        }
    });
    return SvgPath("step", steps.Text()) + SvgPath("wall", walls.Text());
}

std::string HallWalls(const LevelMap& map) {
    PathData walls;
    ForEachCell(map, [&](const DiPos& at, const MapCell& cell) {
        if (cell.tile == PlanTile::Hall) {
            walls.Add(at, kHallOpen, cell.open);
            walls.Add(at, kHallClosed, static_cast<SideBits>(~cell.open & kAllSides));
        }
    });
    return SvgPath("wall", walls.Text());
}

void AddFloor(PathData& floor, const DiPos& at, const MapCell& cell) {
    if (IsRoomLike(cell)) {
        floor.Add(at, kWholeFloor);
    } else if (cell.tile == PlanTile::Hall) {
        floor.Add(at, kHallMiddle);
        floor.Add(at, kHallFloors, cell.open);
    }
}

// The floors of the cells that are chosen.
template <typename Chosen>
std::string Floors(const LevelMap& map, std::string_view type, const Chosen& chosen) {
    PathData floor;
    ForEachCell(map, [&](const DiPos& at, const MapCell& cell) {
        if (chosen(cell)) {
            AddFloor(floor, at, cell);
        }
    });
    return SvgPath(type, floor.Text());
}

std::string RoomFloors(const LevelMap& map) {
    return Floors(map, "floor", IsRoomLike);
}

std::string HallFloors(const LevelMap& map) {
    return Floors(
        map, "hallfloor", [](const MapCell& cell) { return cell.tile == PlanTile::Hall; });
}

std::string CutFloors(const LevelMap& map) {
    return Floors(map, "cut", [&map](const MapCell& cell) { return !map.IsReachable(cell); });
}

// Floors of another colour lie on the rooms' own and below the walls.
std::string Platforms(const LevelMap& map) {
    PathData floor;
    ForEachCell(map, [&](const DiPos& at, const MapCell& cell) {
        if (cell.platform) {
            floor.Add(at, {2.5, 2.5, "h19v19h-19z"});
        }
    });
    return SvgPath("raised", floor.Text());
}

std::string LooseEnds(const LevelMap& map) {
    PathData warnings;
    ForEachCell(map, [&](const DiPos& at, const MapCell& cell) {
        warnings.Add(at, kWarnings, cell.loose);
    });
    return SvgPath("warn", warnings.Text());
}

std::string Labels(const LevelMap& map) {
    std::string leaders;
    std::string text;
    for (const MapLabel& label : PlaceLabels(map)) {
        const MapBox& box = label.box;
        if (label.distant) {
            leaders += 'M' + Coordinate(label.doorX) + ' ' + Coordinate(label.doorY) + 'L' +
                       Coordinate(std::clamp(label.doorX, box.x, box.x + box.width)) + ' ' +
                       Coordinate(std::clamp(label.doorY, box.y, box.y + box.height));
        }
        text += R"(<rect class="label")" + Attribute("x", Coordinate(box.x)) +
                Attribute("y", Coordinate(box.y)) + Attribute("width", Coordinate(box.width)) +
                Attribute("height", Coordinate(box.height)) + "/>\n" +
                SvgTextAt("lead", box.x + 1.5, box.y + 10.0, label.text);
    }
    return SvgPath("leader", leaders) + text;
}

std::string Doors(const LevelMap& map) {
    PathData doors;
    PathData teleports;
    ForEachCell(map, [&](const DiPos& at, const MapCell& cell) {
        teleports.Add(at, kWaysIn, cell.waysIn);
        if (cell.door) {
            (cell.teleport ? teleports : doors).Add(at, kDoors, cell.doorway);
        }
    });
    return SvgPath("door", doors.Text()) + SvgPath("tele", teleports.Text()) + Labels(map);
}

std::string Numbers(const LevelMap& map) {
    std::string text;
    std::size_t number = 0;
    for (const DiPos& place : RoomNumberPlaces(map)) {
        const std::string type = number + 1 < 10 ? "num" : "num wide";
        text += SvgTextAt(map.rooms[number].reachable ? type : type + " warning",
                          place.x * kCell + kCell / 2.0,
                          place.y * kCell + kCell / 2.0 + 6.0,
                          std::to_string(number + 1));
        ++number;
    }
    return text;
}

// A mark is larger than its thing: it is kept from reaching into a wall.
double Inside(double at, double reach, bool wallBefore, bool wallBehind) {
    constexpr double kWall = 1.2; // half of its line
    const double inward = wallBefore ? std::max(at, reach + kWall) : at;
    return wallBehind ? std::min(inward, kCell - reach - kWall) : inward;
}

struct Middle {
    double x;
    double y;
};

Middle MiddleOf(const MapCell& cell, const MapStand& stand, double reach) {
    const auto isWall = [&cell](TileDirT side) {
        return IsRoomLike(cell) && (cell.open & SideBit(side)) == 0;
    };
    // What stands farther off its cell than any room is long is not to be looked for there.
    constexpr double kFarthest = 8.0;
    const double x = (std::clamp<double>(stand.east, -kFarthest, kFarthest) + 0.5) * kCell;
    const double y = (std::clamp<double>(stand.south, -kFarthest, kFarthest) + 0.5) * kCell;
    return {cell.place.x * kCell + Inside(x, reach, isWall(DirW), isWall(DirE)),
            cell.place.y * kCell + Inside(y, reach, isWall(DirN), isWall(DirS))};
}

std::string Turned(double turn, const Middle& middle) {
    return turn == 0.0 ? std::string()
                       : Attribute("transform",
                                   "rotate(" + Coordinate(turn) + ' ' + Coordinate(middle.x) + ' ' +
                                       Coordinate(middle.y) + ')');
}

// What would be too small to see, or larger than any room, is drawn as if it were not.
double Drawn(double cells) {
    constexpr double kLeast = 5.0;
    constexpr double kMost = 4.0 * kCell;
    return std::clamp(cells * kCell, kLeast, kMost);
}

std::string MarkOf(const MapCell& cell, const MapContent& content, const MapMark& mark) {
    const MapStand& stand = content.stand;
    if (mark.toScale && stand.width > 0.0 && stand.depth > 0.0) {
        const double width = Drawn(stand.width);
        const double depth = Drawn(stand.depth);
        const Middle middle = MiddleOf(cell, stand, std::min(width, depth) / 2.0);
        return "<rect" + Attribute("class", mark.name) +
               Attribute("x", Coordinate(middle.x - width / 2.0)) +
               Attribute("y", Coordinate(middle.y - depth / 2.0)) +
               Attribute("width", Coordinate(width)) + Attribute("height", Coordinate(depth)) +
               Turned(stand.turn, middle) + "/>\n";
    }
    const Middle middle = MiddleOf(cell, stand, mark.reach);
    return SvgUse(mark.name, middle.x, middle.y, Turned(stand.turn, middle));
}

std::string Marks(const LevelMap& map, MapSign sign) {
    const MapMark& mark = kMapMarks.at(static_cast<std::size_t>(sign));
    std::string text;
    for (const MapCell& cell : map.cells) {
        for (const MapContent& content : cell.contents) {
            text += content.sign == sign ? MarkOf(cell, content, mark) : std::string();
        }
    }
    return text;
}

std::string AllMarks(const LevelMap& map) {
    std::string text;
    for (std::size_t i = 0; i < kMapMarks.size(); ++i) {
        const auto sign = static_cast<MapSign>(i);
        text += Layer(sign == MapSign::Door ? "doors" : kMapMarks.at(i).name, Marks(map, sign));
    }
    return text;
}

// Beside each other, so that one sees of a thing that it has both.
std::string LockMarks(const MapLock& lock, const Middle& middle) {
    constexpr double kApart = 4.0;
    const double apart = lock.locked && lock.trapped ? kApart : 0.0;
    std::string text;
    if (lock.locked) {
        text += SvgMoved(middle.x - apart, middle.y, kLockDrawing);
    }
    if (lock.trapped) {
        text += SvgMoved(middle.x + apart, middle.y, kTrapDrawing);
    }
    return text;
}

// On the side of its cell where the leaf is.
Middle MiddleOfDoor(const MapCell& cell) {
    Middle middle{(cell.place.x + 0.5) * kCell, (cell.place.y + 0.5) * kCell};
    for (const Side& side : Sides()) {
        if ((cell.doorway & SideBit(side.dir)) != 0) {
            middle.x += side.step.x * kCell / 2.0;
            middle.y += side.step.y * kCell / 2.0;
        }
    }
    return middle;
}

std::string Locks(const LevelMap& map) {
    // At the upper right of what is shut.
    constexpr double kBeside = 4.0;
    std::string text;
    for (const MapCell& cell : map.cells) {
        text += LockMarks(cell.lock, MiddleOfDoor(cell));
        for (const MapContent& content : cell.contents) {
            const double reach = kMapMarks.at(static_cast<std::size_t>(content.sign)).reach;
            const Middle middle = MiddleOf(cell, content.stand, reach);
            text += LockMarks(content.lock, {middle.x + kBeside, middle.y - kBeside});
        }
    }
    return text;
}

// An arrow that looks the way one faces on arrival.
std::string ArrivalMark(const LevelMap& map) {
    if (map.ArrivalCell() == nullptr) {
        return {};
    }
    const auto place = [&map](double units) {
        return Coordinate((units / map.tileSize + 0.5) * kCell);
    };
    const double east = double{map.arrival->place.x} - map.corner.x;
    const double south = double{map.corner.y} - map.arrival->place.y;
    return "<path class=\"arrival\"" + Attribute("d", kArrivalArrow) +
           Attribute("transform",
                     "translate(" + place(east) + ' ' + place(south) + ") rotate(" +
                         std::to_string(map.arrival->facing) + ')') +
           "/>\n";
}

// An invisible area that tells what is there.
std::string Hit(const LevelMap& map, const MapCell& cell, ListedItems& listed) {
    const std::string words = CellWords(map, cell, listed);
    return words.empty() ? words
                         : R"(<rect class="hit" width="24" height="24")" +
                               Attribute("x", std::to_string(cell.place.x * kCell)) +
                               Attribute("y", std::to_string(cell.place.y * kCell)) + "><title>" +
                               ForMarkup(words) + "</title></rect>\n";
}

// By room, each of which is one link on a page: a number alone would be small for a finger.
std::string Hits(const LevelMap& map, ListedItems& listed, std::size_t pageLevel) {
    std::vector<std::string> byRoom(map.rooms.size() + 1);
    for (const MapCell& cell : map.cells) {
        byRoom[cell.room] += Hit(map, cell, listed);
    }
    std::string text = byRoom.front();
    for (std::size_t room = 1; room < byRoom.size(); ++room) {
        text += pageLevel == 0 ? byRoom[room]
                               : "<a" + Attribute("href", '#' + RoomRowId(pageLevel, room)) +
                                     Attribute("aria-label", "Room " + std::to_string(room)) +
                                     ">\n" + byRoom[room] + "</a>\n";
    }
    return text;
}

// A bar as long as some whole cells.
std::string Scale(const LevelMap& map) {
    constexpr std::int32_t kBar = 4;
    return SvgMoved(0,
                    map.height * kCell + 32,
                    SvgPath("wall", "M0 -4V4M0 0H96M96 -4V4M24 -3V3M48 -3V3M72 -3V3") +
                        SvgTextAt("",
                                  106,
                                  4,
                                  std::to_string(std::int64_t{kBar} * map.tileSize) +
                                      " units = " + std::to_string(kBar) + " cells"));
}

std::string Heading(const LevelMap& map) {
    const std::string size = std::to_string(map.width) + " x " + std::to_string(map.height) +
                             " cells of " + std::to_string(map.tileSize) + " units";
    return SvgTextAt("title", 0, -42, map.name) +
           SvgTextAt("small", 0, -25, map.tileSet.empty() ? size : map.tileSet + ", " + size) +
           NorthArrow(PanelWidth(map) - 2 * kPanelMargin - 24, -60);
}

constexpr auto kLayers = std::to_array<MapLayer>({
    {"grid", "Grid"},
    {"rooms", "Rooms"},
    {"halls", "Halls"},
    {"doors", "Doors"},
    {"platforms", "Platforms"},
    {"numbers", "Room numbers"},
    {"rug", "Rugs"},
    {"tapestry", "Tapestries"},
    {"furniture", "Furniture"},
    {"light", "Lights"},
    {"container", "Containers"},
    {"creature", "Creatures"},
    {"other", "Other content"},
    {"lock", "Locks and traps"},
    {"arrival", "Arrival"},
    {"warnings", "Warnings"},
});

} // namespace

std::vector<MapLayer> MapLayers(const LegendNeeds& needs) {
    const std::vector<LegendItem> items = LegendItems(needs);
    std::vector<MapLayer> layers;
    std::ranges::copy_if(kLayers, std::back_inserter(layers), [&items](const MapLayer& layer) {
        const std::string_view name = layer.name == "numbers" ? "rooms" : layer.name;
        return name == "grid" || std::ranges::find(items, name, &LegendItem::layer) != items.end();
    });
    return layers;
}

std::int32_t PanelWidth(const MapOutline& map) {
    const auto title = static_cast<std::int32_t>(BoldWidth(map.name, kTitleSize));
    return std::max({map.width * kCell, title + 2 * kCell, kNarrowest}) + 2 * kPanelMargin;
}

std::int32_t PanelHeight(const MapOutline& map) {
    return kTitle + map.height * kCell + kPanelFoot;
}

std::string NorthArrow(double x, double y) {
    return SvgMoved(x, y, SvgPath("wall", "M0 34V4M-5 11L0 3L5 11") + SvgTextAt("", 9, 16, "N"));
}

std::string MapDrawing(const LevelMap& map, ListedItems* listed, std::size_t pageLevel) {
    return Layer("grid", Grid(map)) + Layer("halls", HallFloors(map)) +
           Layer("rooms", RoomFloors(map)) + Layer("warnings", CutFloors(map)) +
           Layer("platforms", Platforms(map)) + Layer("halls", HallWalls(map)) +
           Layer("rooms", RoomWalls(map)) + Layer("numbers", Numbers(map)) + AllMarks(map) +
           Layer("arrival", ArrivalMark(map)) + Layer("warnings", LooseEnds(map)) +
           Layer("doors", Doors(map)) + Layer("lock", Locks(map)) +
           (listed == nullptr ? std::string() : Hits(map, *listed, pageLevel)) + Scale(map);
}

std::string MapPanel(const LevelMap& map, ListedItems* listed) {
    return SvgMoved(kPanelMargin, kTitle, Heading(map) + MapDrawing(map, listed));
}

} // namespace Tarnex::Report
