// SPDX-License-Identifier: MIT
#include "tools/maps/MapText.h"

#include "tools/text/Words.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tarnex::Report {

namespace {

using Glyphs = std::array<std::string_view, 16>;

// By open sides: bit 0 north, 1 south, 2 east, 3 west.
constexpr Glyphs kHalls = {
    "·", "╵", "╷", "│", "╶", "└", "┌", "├", "╴", "┘", "┐", "┤", "─", "┴", "┬", "┼"};

enum class Ink {
    Plain,
    Wall,
    Hall,
    Number,
    Door,
    Teleport,
    Creature,
    Container,
    Thing,
    Light,
    Arrival,
    Warning
};

constexpr std::array<std::string_view, 12> kInks = {"",
                                                    "",
                                                    "\x1B[36m",
                                                    "\x1B[1m",
                                                    "\x1B[33m",
                                                    "\x1B[1;35m",
                                                    "\x1B[1;31m",
                                                    "\x1B[1;33m",
                                                    "\x1B[32m",
                                                    "\x1B[93m",
                                                    "\x1B[1;32m",
                                                    "\x1B[1;97;41m"};
constexpr std::string_view kNoInk = "\x1B[0m";

struct Glyph {
    std::string text = " ";
    Ink ink = Ink::Plain;
};

struct TextMark {
    MapSign sign;
    std::string_view text;
    Ink ink;
};

constexpr std::array<TextMark, kMapSigns> kMarks = {{{MapSign::Creature, "&", Ink::Creature},
                                                     {MapSign::Container, "$", Ink::Container},
                                                     {MapSign::Door, "+", Ink::Door},
                                                     {MapSign::Furniture, "f", Ink::Thing},
                                                     {MapSign::Light, "i", Ink::Light},
                                                     {MapSign::Rug, "~", Ink::Thing},
                                                     {MapSign::Tapestry, "t", Ink::Thing},
                                                     {MapSign::Other, "*", Ink::Thing}}};

constexpr const char* kLockedDoor = "#";
constexpr std::string_view kLockedChest = "§";

// The two characters of a cell.
struct Pair {
    Glyph left;
    Glyph right;
};

bool Closed(const MapCell& cell, TileDirT side) {
    return ((cell.open | cell.doorway) & SideBit(side)) == 0;
}

std::string_view WallGlyph(bool north, bool south, bool side, bool west) {
    if (side && north) {
        return west ? "┏" : "┓";
    }
    if (side && south) {
        return west ? "┗" : "┛";
    }
    if (side) {
        return "┃";
    }
    return north || south ? "━" : " ";
}

Pair RoomPair(const MapCell& cell) {
    // A wall with a doorway goes on beside it.
    const bool north = Closed(cell, DirN) || (cell.doorway & SideBit(DirN)) != 0;
    const bool south = Closed(cell, DirS) || (cell.doorway & SideBit(DirS)) != 0;
    Pair pair;
    pair.left = {std::string(WallGlyph(north, south, Closed(cell, DirW), true)), Ink::Wall};
    pair.right = {std::string(WallGlyph(north, south, Closed(cell, DirE), false)), Ink::Wall};
    if (pair.left.text == " ") {
        pair.left.text = cell.platform ? "▒" : "·";
    }
    return pair;
}

Pair HallPair(const MapCell& cell) {
    const bool east = (cell.open & SideBit(DirE)) != 0;
    return {{std::string(kHalls[cell.open & 0xFU]), Ink::Hall}, {east ? "─" : " ", Ink::Hall}};
}

// The character that a mark may take: beside a wall to the west the one further in.
Glyph& Free(Pair& pair, const MapCell& cell) {
    return cell.tile == PlanTile::Room && Closed(cell, DirW) ? pair.right : pair.left;
}

void PutDoor(Pair& pair, const MapCell& cell) {
    if (cell.doorway == 0) {
        return;
    }
    Glyph& place = (cell.doorway & SideBit(DirE)) != 0 ? pair.right : pair.left;
    if (cell.teleport) {
        place = {"»", Ink::Teleport};
    } else if (cell.lock.locked) {
        place = {kLockedDoor, Ink::Door};
    } else {
        place = {cell.door ? "+" : "'", Ink::Door};
    }
}

void PutContent(Pair& pair, const MapCell& cell) {
    const MapContent* content = MainContent(cell);
    if (content == nullptr) {
        return;
    }
    const bool besideDoor = cell.doorway != 0 && (cell.doorway & SideBit(DirE)) == 0;
    for (const TextMark& mark : kMarks) {
        if (mark.sign == content->sign) {
            Glyph& place = besideDoor ? pair.right : Free(pair, cell);
            const bool shut = content->lock.locked && mark.sign == MapSign::Container;
            place = Glyph{std::string(shut ? kLockedChest : mark.text), mark.ink};
        }
    }
}

Pair PairOf(const LevelMap& map, const MapCell& cell) {
    Pair pair;
    switch (cell.tile) {
    case PlanTile::Empty:
        break;
    case PlanTile::Room:
        pair = RoomPair(cell);
        break;
    case PlanTile::Hall:
        pair = HallPair(cell);
        break;
    case PlanTile::Stairs:
        pair.left = pair.right = {"≡", Ink::Wall};
        break;
    }
    PutDoor(pair, cell);
    PutContent(pair, cell);
    if (map.ArrivalCell() == &cell) {
        Free(pair, cell) = {"@", Ink::Arrival};
    }
    if (cell.waysIn != 0) {
        pair.right = {"^", Ink::Teleport};
    }
    if (cell.loose != 0) {
        pair.right = {"!", Ink::Warning};
    }
    if (!map.IsReachable(cell)) {
        pair.left.ink = pair.right.ink = Ink::Warning;
    }
    return pair;
}

bool IsOpenFloor(const MapCell& cell) {
    return cell.open == 0xF && cell.doorway == 0 && cell.tile == PlanTile::Room;
}

bool IsBareFloor(const MapCell& cell) {
    return IsOpenFloor(cell) && cell.contents.empty();
}

bool IsFloorWithLittle(const MapCell& cell) {
    return IsOpenFloor(cell) && std::ranges::all_of(cell.contents, [](const MapContent& content) {
               return content.sign == MapSign::Rug || content.sign == MapSign::Other;
           });
}

// The number stands in the first cell of the room that is nothing but floor; where there is none,
// in the first with nothing but rugs and what has no sign of its own. `pairs` are those of the
// map's cells.
void PutNumbers(const LevelMap& map, std::vector<Pair>& pairs) {
    std::vector<bool> numbered(map.rooms.size() + 1, false);
    numbered[0] = true;
    for (const auto& fits : {IsBareFloor, IsFloorWithLittle}) {
        for (std::size_t i = 0; i < map.cells.size(); ++i) {
            const MapCell& cell = map.cells[i];
            if (numbered[cell.room] || !fits(cell) || &cell == map.ArrivalCell()) {
                continue;
            }
            numbered[cell.room] = true;
            const Ink ink = map.IsReachable(cell) ? Ink::Number : Ink::Warning;
            const std::string number = std::to_string(cell.room);
            pairs[i].left = {number.substr(0, 1), ink};
            pairs[i].right = {number.size() > 1 ? number.substr(1) : " ", ink};
        }
    }
}

using Row = std::vector<Glyph>;

// Of the two characters of a cell the one that tells more: marks before walls, walls before floor.
Row Halved(Row row) {
    const auto tells = [](const Glyph& glyph) {
        const bool bare = glyph.text == " " || glyph.text == "·";
        return bare ? 0 : glyph.ink == Ink::Wall || glyph.ink == Ink::Hall ? 1 : 2;
    };
    row.resize((row.size() + 1) / 2 * 2);
    Row half;
    for (std::size_t i = 0; i < row.size(); i += 2) {
        half.push_back(std::move(row[tells(row[i + 1]) > tells(row[i]) ? i + 1 : i]));
    }
    return half;
}

// The rows up to the last with something in it.
std::vector<Row> RowsOf(const LevelMap& map, std::vector<Pair> pairs) {
    std::vector<Row> rows;
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        const MapCell& cell = map.cells[i];
        if (cell.tile != PlanTile::Empty || !cell.contents.empty()) {
            rows.resize(static_cast<std::size_t>(cell.place.y) + 1);
            Row& row = rows.back();
            row.resize(2 * static_cast<std::size_t>(cell.place.x));
            row.push_back(std::move(pairs[i].left));
            row.push_back(std::move(pairs[i].right));
        }
    }
    return rows;
}

std::size_t WidthOf(const std::vector<Row>& rows) {
    std::size_t width = 0;
    for (const Row& row : rows) {
        width = std::max(width, row.size());
    }
    return width;
}

// Returns what there is to say about it.
std::string Fit(std::vector<Row>& rows, std::size_t columns) {
    const std::size_t wanted = WidthOf(rows);
    if (columns == 0 || wanted <= columns) {
        return {};
    }
    for (Row& row : rows) {
        row = Halved(std::move(row));
        if (row.size() > columns) {
            row.resize(columns);
            row.back() = {">", Ink::Warning};
        }
    }
    return std::string("> ") +
           ((wanted + 1) / 2 > columns ? "cut: the map goes on to the east"
                                       : "one character for a cell") +
           "; on " + Counted(wanted, "column") + " it is drawn in full, or with --map\n";
}

void PrintRow(const Row& row, bool colour, std::ostream& out) {
    std::size_t length = row.size();
    while (length > 0 && row[length - 1].text == " ") {
        --length;
    }
    Ink ink = Ink::Plain;
    for (std::size_t i = 0; i < length; ++i) {
        const Ink next = row[i].ink;
        if (colour &&
            kInks[static_cast<std::size_t>(next)] != kInks[static_cast<std::size_t>(ink)]) {
            out << kNoInk << kInks[static_cast<std::size_t>(next)];
        }
        ink = next;
        out << row[i].text;
    }
    out << (colour && !kInks[static_cast<std::size_t>(ink)].empty() ? kNoInk : "") << '\n';
}

struct LockCounts {
    std::size_t doors = 0;
    std::size_t chests = 0;
    std::size_t traps = 0;
};

LockCounts CountLocks(const LevelMap& map) {
    LockCounts counts;
    for (const MapCell& cell : map.cells) {
        counts.doors += cell.lock.locked && !cell.teleport ? 1 : 0;
        counts.traps += cell.lock.trapped ? 1 : 0;
        for (const MapContent& content : cell.contents) {
            counts.chests += content.lock.locked && content.sign == MapSign::Container ? 1 : 0;
            counts.traps += content.lock.trapped ? 1 : 0;
        }
    }
    return counts;
}

void PrintLocks(const LevelMap& map, std::ostream& out) {
    const LockCounts counts = CountLocks(map);
    if (counts.doors > 0) {
        out << kLockedDoor << " locked: " << Counted(counts.doors, "door") << '\n';
    }
    if (counts.chests > 0) {
        out << kLockedChest << " locked: " << Counted(counts.chests, "container") << '\n';
    }
    if (counts.traps > 0) {
        out << "  armed: " << Counted(counts.traps, "trap") << '\n';
    }
}

void PrintRemarks(const LevelMap& map, std::ostream& out) {
    if (map.arrival) {
        out << "@ " << ConsoleLine(*map.arrival) << '\n';
    }
    std::size_t loose = 0;
    std::size_t waysIn = 0;
    for (const MapCell& cell : map.cells) {
        if (cell.teleport) {
            out << "» leads to " << (cell.leadsTo.empty() ? "the outside" : cell.leadsTo)
                << (cell.lock.words.empty() ? "" : ", " + cell.lock.words) << '\n';
        }
        for (unsigned side = 0; side < 4; ++side) {
            loose += cell.loose >> side & 1U;
            waysIn += cell.waysIn >> side & 1U;
        }
    }
    PrintLocks(map, out);
    if (waysIn > 0) {
        out << "^ way in: " << Counted(waysIn, "doorway") << '\n';
    }
    for (std::size_t i = 0; i < map.rooms.size(); ++i) {
        if (!map.rooms[i].reachable) {
            out << "! room " << std::to_string(i + 1) << " cannot be reached\n";
        }
    }
    if (map.leftOut > 0) {
        out << "! too far away to be drawn: " << Counted(map.leftOut, "reference") << '\n';
    }
    if (loose > 0) {
        out << "! onto nothing: " << Counted(loose, "opening") << '\n';
    }
}

} // namespace

void PrintMap(const LevelMap& map, const TextPage& page, std::ostream& out) {
    out << map.name << " (" << map.tileSet << (map.tileSet.empty() ? "" : ", ")
        << "north is up, a cell is " << std::to_string(map.tileSize) << " units)\n";
    std::vector<Pair> pairs;
    for (const MapCell& cell : map.cells) {
        pairs.push_back(PairOf(map, cell));
    }
    PutNumbers(map, pairs);
    std::vector<Row> rows = RowsOf(map, std::move(pairs));
    const std::string remark = Fit(rows, page.columns);
    for (const Row& row : rows) {
        PrintRow(row, page.colour, out);
    }
    out << remark;
    PrintRemarks(map, out);
}

void PrintMapLegend(std::ostream& out) {
    out << "━┃ wall  ─│ hall  ' doorway  + door  » door to a level  ≡ stairs  ▒ platform\n"
           "& creature  $ container  f furniture  i light  ~ rug  t tapestry  * other\n"
           "@ arrival  ^ way in  ! warning\n";
}

} // namespace Tarnex::Report
