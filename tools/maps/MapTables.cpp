// SPDX-License-Identifier: MIT
#include "tools/maps/MapTables.h"

#include "tools/maps/SvgText.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/HarmlessText.h>

#include <algorithm>
#include <initializer_list>
#include <map>

namespace Tarnex::Report {

namespace {

using Counts = std::map<std::string, std::uint64_t>;

// What the columns of the table sum up.
struct RoomSums {
    std::uint64_t cells = 0;
    std::uint64_t doors = 0;
    std::uint64_t doorways = 0;
    std::uint64_t loose = 0;
    std::uint64_t waysIn = 0;
    std::uint64_t lockedDoors = 0;
    bool arrival = false;
    bool platform = false;
    std::map<MapSign, Counts> contents;
    std::vector<std::string> leads;
};

std::string Link(const std::string& id, const std::string& words) {
    return "<a href=\"#" + id + "\">" + ForMarkup(words) + "</a>";
}

std::string Cell(const std::string& content) {
    return "<td>" + content + "</td>";
}

using Columns = std::initializer_list<const char*>;

constexpr Columns kRoomColumns = {
    "Room", "Size", "Doors", "Creatures", "Containers", "Furnishing", "Other", "Remarks"};
constexpr Columns kContainerColumns = {"Where", "Container", "Id", "Treasure"};

// What a column is called, before each of its cells.
std::string Prefixes(const std::string& table, Columns columns) {
    std::string rules;
    std::size_t number = 0;
    for (const char* column : columns) {
        rules += table + " td:nth-child(" + std::to_string(++number) + ")::before{content:\"" +
                 column + ": \"}\n";
    }
    return rules;
}

std::string Head(Columns columns) {
    std::string text = "<thead><tr>";
    for (const char* column : columns) {
        text += "<th scope=\"col\">" + std::string(column) + "</th>";
    }
    return text + "</tr></thead>\n";
}

void AddCell(RoomSums& sums, const MapCell& cell) {
    ++sums.cells;
    sums.platform |= cell.platform;
    sums.doors += cell.door ? 1 : 0;
    sums.lockedDoors += cell.lock.locked ? 1 : 0;
    sums.doorways += cell.doorway != 0 && !cell.door ? 1 : 0;
    for (unsigned side = 0; side < 4; ++side) {
        sums.loose += cell.loose >> side & 1U;
        sums.waysIn += cell.waysIn >> side & 1U;
    }
    if (cell.teleport) {
        sums.leads.push_back(cell.leadsTo.empty() ? "the outside" : cell.leadsTo);
    }
    for (const MapContent& content : cell.contents) {
        ++sums.contents[content.sign][content.label.empty() ? content.name : content.label];
    }
}

// By room; the first is what lies in none.
std::vector<RoomSums> SumUp(const LevelMap& map) {
    std::vector<RoomSums> sums(map.rooms.size() + 1);
    for (const MapCell& cell : map.cells) {
        if (cell.tile != PlanTile::Empty || !cell.contents.empty()) {
            AddCell(sums[cell.room], cell);
            sums[cell.room].arrival |= map.ArrivalCell() == &cell;
        }
    }
    return sums;
}

std::string CountWords(const RoomSums& sums, std::initializer_list<MapSign> signs) {
    std::string text;
    for (const MapSign sign : signs) {
        const auto counts = sums.contents.find(sign);
        if (counts == sums.contents.end()) {
            continue;
        }
        for (const auto& [name, count] : counts->second) {
            text += (text.empty() ? "" : ", ") +
                    (count == 1 ? std::string() : std::to_string(count) + " x ") + name;
        }
    }
    return ForMarkup(text);
}

void AddRemark(std::string& remarks, const std::string& remark) {
    remarks += (remarks.empty() ? "" : "; ") + remark;
}

std::string Remarks(const RoomSums& sums, bool reachable) {
    std::string remarks;
    if (sums.arrival) {
        AddRemark(remarks, "arrival");
    }
    if (sums.platform) {
        AddRemark(remarks, "platform");
    }
    for (const std::string& level : sums.leads) {
        AddRemark(remarks, "door to " + ForMarkup(level));
    }
    if (sums.lockedDoors > 0) {
        AddRemark(remarks, Counted(sums.lockedDoors, "locked door"));
    }
    if (sums.waysIn > 0) {
        AddRemark(remarks, sums.waysIn == 1 ? "way in" : Counted(sums.waysIn, "way") + " in");
    }
    if (sums.loose > 0) {
        AddRemark(remarks, "<strong>" + Counted(sums.loose, "opening") + " onto nothing</strong>");
    }
    if (!reachable) {
        AddRemark(remarks, "<strong>cannot be reached</strong>");
    }
    return remarks;
}

std::string DoorWords(const RoomSums& sums) {
    std::string text = std::to_string(sums.doors);
    return sums.doorways == 0 ? text : text + " + " + std::to_string(sums.doorways) + " open";
}

std::string
Row(const std::string& name, const std::string& size, const RoomSums& sums, bool reach) {
    return "<th scope=\"row\">" + name + "</th>" + Cell(size) + Cell(DoorWords(sums)) +
           Cell(CountWords(sums, {MapSign::Creature})) +
           Cell(CountWords(sums, {MapSign::Container})) +
           Cell(CountWords(sums,
                           {MapSign::Furniture, MapSign::Rug, MapSign::Tapestry, MapSign::Light})) +
           Cell(CountWords(sums, {MapSign::Door, MapSign::Other})) + Cell(Remarks(sums, reach)) +
           "</tr>\n";
}

std::string Place(std::size_t level, std::size_t room) {
    return room == 0 ? "hall" : Link(RoomRowId(level, room), "room " + std::to_string(room));
}

std::string Items(const MapContent& content, ListedItems& listed) {
    if (!content.chest || content.chest->items.empty()) {
        return "empty";
    }
    if (!listed.Claim(*content.chest)) {
        return Counted(content.chest->items.size(), "item") + ", listed above";
    }
    std::string text = "<ul>";
    for (const MapItem& item : content.chest->items) {
        text += "<li>" + ForMarkup(ItemWords(item)) + "</li>";
    }
    return text + "</ul>";
}

void AddContainerRows(std::string& rows,
                      const MapCell& cell,
                      std::size_t level,
                      ListedItems& listed) {
    for (const MapContent& content : cell.contents) {
        if (content.sign == MapSign::Container) {
            const std::string& lock = content.lock.words;
            rows += "<tr>" + Cell(Place(level, cell.room)) +
                    Cell(ForMarkup(content.label + (lock.empty() ? "" : ", " + lock))) +
                    Cell("<code>" + ForMarkup(content.name) + "</code>") +
                    Cell(Items(content, listed)) + "</tr>\n";
        }
    }
}

} // namespace

std::string RoomRowId(std::size_t level, std::size_t room) {
    return "level-" + std::to_string(level) + "-room-" + std::to_string(room);
}

std::string RoomSpotId(std::size_t level, std::size_t room) {
    return "level-" + std::to_string(level) + "-map-" + std::to_string(room);
}

std::string CardStyle() {
    return Prefixes(".rooms", kRoomColumns) + Prefixes(".containers", kContainerColumns);
}

std::string RoomTable(const LevelMap& map, std::size_t level) {
    const std::vector<RoomSums> sums = SumUp(map);
    std::string rows;
    for (std::size_t number = 1; number < sums.size(); ++number) {
        const MapRoom& room = map.rooms[number - 1];
        rows += "<tr id=\"" + RoomRowId(level, number) + "\">" +
                Row(Link(RoomSpotId(level, number), std::to_string(number)),
                    std::to_string(room.size.x) + " x " + std::to_string(room.size.y),
                    sums[number],
                    room.reachable);
    }
    if (sums[0].cells > 0) {
        rows += "<tr>" + Row("halls", Counted(sums[0].cells, "cell"), sums[0], true);
    }
    return "<table class=\"rooms\">\n" + Head(kRoomColumns) + "<tbody>\n" + rows +
           "</tbody>\n</table>\n";
}

std::string ContainerTable(const LevelMap& map, std::size_t level, ListedItems& listed) {
    // By room; the halls come last.
    std::vector<std::vector<const MapCell*>> byRoom(map.rooms.size() + 1);
    for (const MapCell& cell : map.cells) {
        byRoom[cell.room == 0 ? map.rooms.size() : cell.room - 1].push_back(&cell);
    }
    std::string rows;
    for (const auto& cells : byRoom) {
        for (const MapCell* cell : cells) {
            AddContainerRows(rows, *cell, level, listed);
        }
    }
    if (rows.empty()) {
        return "<p>No containers.</p>\n";
    }
    return "<table class=\"containers\">\n" + Head(kContainerColumns) + "<tbody>\n" + rows +
           "</tbody>\n</table>\n";
}

} // namespace Tarnex::Report
