// SPDX-License-Identifier: MIT
#include "tools/maps/LevelMap.h"

#include "tools/maps/MapCells.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/Numeric.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/gen/WorldPlace.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

namespace Tarnex::Report {

namespace {

constexpr float kSameFloor = 1.0F; // how far a part may be raised or lowered [cells]

constexpr std::array<RefSort, 7> kByWeight = {RefSort::Creature,
                                              RefSort::Container,
                                              RefSort::Door,
                                              RefSort::Furniture,
                                              RefSort::Rug,
                                              RefSort::Tapestry,
                                              RefSort::Other};

// A layout of the tree with its place on the level.
struct Part {
    const Layout* layout;
    DiPos origin;
    bool sameFloor;
};

// The level itself, then what is near its floor, then the rest: what comes first is drawn.
std::vector<Part> PartsOf(const Layout& level) {
    std::vector<Part> parts = {{&level, DiPos(), true}};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Part parent = parts[i];
        for (const DiPtr<Layout>& child : parent.layout->GetChildren()) {
            const Di3Point& offset = child->GetOffset();
            const bool near = i == 0 && std::abs(offset.z) <= kSameFloor;
            const DiPos place(TruncToInt(offset.x), TruncToInt(offset.y), 0);
            parts.push_back({child.get(), parent.origin + place, near});
        }
    }
    // The form over ranges does not compile with clang 14.
    std::stable_partition(
        parts.begin(), parts.end(), [](const Part& part) { return part.sameFloor; });
    return parts;
}

// Contents above or below a cell that is drawn stand in that cell.
void AddHidden(MapCell& drawn, const MapCell& hidden) {
    drawn.contents.insert(drawn.contents.end(), hidden.contents.begin(), hidden.contents.end());
}

// Calls `visit` with each cell of a part that has tiles and its place on the map.
template <typename Visitor>
void ForEachTiled(const Part& part, const Visitor& visit) {
    for (std::uint32_t row = 0; row < part.layout->GetHeight(); ++row) {
        for (std::uint32_t col = 0; col < part.layout->GetWidth(); ++col) {
            if (part.layout->HasTiles(row, col)) {
                visit(*part.layout->GetElmt(row, col),
                      DiPos(part.origin.x + static_cast<std::int32_t>(col),
                            part.origin.y + static_cast<std::int32_t>(row),
                            0));
            }
        }
    }
}

void Draw(LevelMap& map, const Part& part) {
    ForEachTiled(part, [&](const GridElmt& elmt, const DiPos& at) {
        MapCell& place = map.Held(at.x, at.y);
        MapCell cell = DrawnCell(elmt);
        if (place.tile != MapTile::Empty) {
            AddHidden(place, cell);
            return;
        }
        cell.sameFloor = part.sameFloor;
        cell.place = at;
        place = std::move(cell);
    });
}

void AddRooms(LevelMap& map, const LevelReport& report, const DiPos& origin) {
    for (const RoomReport& room : report.rooms) {
        const DiPos place(room.origin.x - origin.x, room.origin.y - origin.y, 0);
        map.rooms.push_back({place, room.size, room.reachable});
        for (std::int32_t y = place.y; y < place.y + room.size.y; ++y) {
            for (std::int32_t x = place.x; x < place.x + room.size.x; ++x) {
                if (map.IsInside(x, y) && map.At(x, y).tile != MapTile::Empty) {
                    map.Held(x, y).room = map.rooms.size();
                }
            }
        }
    }
}

void Append(std::string& text, const std::string& line) {
    if (!line.empty()) {
        text += text.empty() ? line : '\n' + line;
    }
}

// The name of a content as it is shown to people, and over further lines what is in it.
std::string ContentWords(const MapContent& content, ListedItems& listed) {
    std::string text = content.label.empty() ? content.name : content.label;
    if (!content.chest) {
        return text;
    }
    if (!listed.Claim(*content.chest)) {
        return text + "\n  " + Counted(content.chest->items.size(), "item");
    }
    for (const MapItem& item : content.chest->items) {
        text += "\n  " + ItemWords(item);
    }
    return text;
}

} // namespace

const MapCell LevelMap::kEmptyCell;

void LevelMap::SetGrid(std::int32_t newWidth,
                       std::int32_t newHeight,
                       const std::vector<DiPos>& places) {
    width = newWidth;
    height = newHeight;
    numbers.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
    for (const DiPos& place : places) {
        numbers[Index(place.x, place.y)] = 1;
    }
    std::uint32_t count = 0;
    for (std::uint32_t& number : numbers) {
        number = number == 0 ? 0 : ++count;
    }
    cells.assign(count, {});
    for (const DiPos& place : places) {
        Held(place.x, place.y).place = place;
    }
}

LevelMap MapOf(const FinishedLevel& level) {
    std::vector<Part> parts = PartsOf(level.layout);
    DiPos low;
    DiPos high;
    for (const Part& part : parts) {
        const DiPos& size = part.layout->GetSize();
        low = DiPos(std::min(low.x, part.origin.x), std::min(low.y, part.origin.y), 0);
        high = DiPos(
            std::max(high.x, part.origin.x + size.x), std::max(high.y, part.origin.y + size.y), 0);
    }
    LevelMap map;
    map.name = Shown(level.cell.GetName());
    map.tileSet = Shown(level.tileSet.GetName());
    map.tileSize = level.tileSet.GetTileSize();
    map.corner = WorldPosition(low, Di3Point(), Di3Point(), map.tileSize);
    std::vector<DiPos> places;
    for (Part& part : parts) {
        part.origin -= low;
        ForEachTiled(part, [&places](const GridElmt&, const DiPos& at) { places.push_back(at); });
    }
    map.SetGrid(high.x - low.x, high.y - low.y, places);
    for (const Part& part : parts) {
        Draw(map, part);
    }
    FindLooseEnds(map);
    if (level.report != nullptr) {
        AddRooms(map, *level.report, low);
    } else {
        NumberAreas(map);
    }
    return map;
}

void AddTreasure(std::vector<LevelMap>& maps, const Mod& mod) {
    std::unordered_map<std::string, const Container*> containers;
    for (const DiPtr<Container>& container : mod.GetContainers()) {
        containers.emplace(Shown(container->GetId()), container.get());
    }
    for (LevelMap& map : maps) {
        for (MapCell& cell : map.cells) {
            for (MapContent& content : cell.contents) {
                const auto found = containers.find(content.name);
                if (content.sort != RefSort::Container || found == containers.end()) {
                    continue;
                }
                auto chest = std::make_shared<MapChest>();
                chest->name = Shown(found->second->GetFriendlyName());
                for (const auto& [item, count] : found->second->GetInventory()) {
                    chest->items.push_back({Shown(item), count});
                }
                content.label = chest->name;
                content.chest = std::move(chest);
            }
        }
    }
}

bool ListedItems::Claim(const MapChest& chest) {
    if (listed.insert(&chest).second) {
        return true;
    }
    if (chest.items.size() > kMostListedAgain - again) {
        return false;
    }
    again += chest.items.size();
    return true;
}

std::string ItemWords(const MapItem& item) {
    return std::to_string(item.count) + " x " + item.name;
}

std::string CellWords(const LevelMap& map, const MapCell& cell, ListedItems& listed) {
    std::string text;
    if (cell.room > 0) {
        Append(text,
               "Room " + std::to_string(cell.room) +
                   (map.IsReachable(cell) ? "" : " (cannot be reached)"));
    }
    Append(text, JoinWords(cell.tiles));
    if (cell.teleport) {
        Append(text, "Leads to " + (cell.leadsTo.empty() ? "the outside" : cell.leadsTo));
    }
    if (cell.platform) {
        Append(text, "Platform");
    }
    if (cell.loose != 0) {
        Append(text, "Opens onto nothing");
    }
    for (const MapContent& content : cell.contents) {
        Append(text, ContentWords(content, listed));
    }
    return text;
}

const MapContent* MainContent(const MapCell& cell) {
    for (const RefSort sort : kByWeight) {
        const auto found = std::ranges::find(cell.contents, sort, &MapContent::sort);
        if (found != cell.contents.end()) {
            return &*found;
        }
    }
    return nullptr;
}

} // namespace Tarnex::Report
