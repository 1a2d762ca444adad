// SPDX-License-Identifier: MIT
#include "tools/maps/LevelMap.h"

#include "tools/maps/MapCells.h"
#include "tools/plugins/LockWords.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/Numeric.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/gen/ContentPlace.h>
#include <vaultry/gen/WorldPlace.h>
#include <vaultry/run/Lockables.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>
#include <utility>

namespace Tarnex::Report {

namespace {

constexpr std::array<MapSign, kMapSigns> kByWeight = {MapSign::Creature,
                                                      MapSign::Container,
                                                      MapSign::Door,
                                                      MapSign::Furniture,
                                                      MapSign::Light,
                                                      MapSign::Rug,
                                                      MapSign::Tapestry,
                                                      MapSign::Other};

std::int32_t Nearest(double value) {
    return TruncToInt(std::floor(value + 0.5));
}

// Contents above or below a cell that is drawn stand in that cell.
void AddHidden(MapCell& drawn, const MapCell& hidden) {
    drawn.contents.insert(drawn.contents.end(), hidden.contents.begin(), hidden.contents.end());
}

// Between the level and what lies far from it a drawing would be nothing but empty. The first part
// is the level. Returns the number of tiles left out.
std::size_t DropDistant(std::vector<LevelPart>& parts) {
    const DiPos size = parts.front().layout->GetSize();
    const auto isDistant = [&size](const LevelPart& part) {
        const DiPos& own = part.layout->GetSize();
        return part.origin.x > size.x + kFarthestCell || part.origin.x < -own.x - kFarthestCell ||
               part.origin.y > size.y + kFarthestCell || part.origin.y < -own.y - kFarthestCell;
    };
    std::size_t count = 0;
    for (const LevelPart& part : parts) {
        if (isDistant(part)) {
            ForEachTiled(*part.layout, part.origin, [&](const GridElmt& elmt, const DiPos&) {
                count += elmt.tiles.size();
            });
        }
    }
    std::erase_if(parts, isDistant);
    return count;
}

std::vector<DiPos> TiledPlaces(const std::vector<LevelPart>& parts) {
    std::vector<DiPos> places;
    for (const LevelPart& part : parts) {
        ForEachTiled(*part.layout, part.origin, [&](const GridElmt&, const DiPos& at) {
            places.push_back(at);
        });
    }
    return places;
}

void AddContents(MapCell& cell, const GridElmt& elmt, std::int32_t tileSize) {
    for (const DiPtr<ContentItem>& item : elmt.contents) {
        MapContent& content = cell.contents.emplace_back();
        content.name = Shown(item->uniqueName);
        content.sign = SignOf(SortOf(*item), item->uniqueName, item->size);
        content.stand = StandOf(item->offset, TurnIn(elmt), item->size, tileSize);
    }
}

void Draw(LevelMap& map, const LevelPart& part) {
    ForEachTiled(*part.layout, part.origin, [&](const GridElmt& elmt, const DiPos& at) {
        MapCell& place = map.Held(at.x, at.y);
        MapCell cell = DrawnCell(elmt);
        AddContents(cell, elmt, map.tileSize);
        if (place.tile != PlanTile::Empty) {
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
                if (map.IsInside(DiPos(x, y, 0)) && map.At(x, y).tile != PlanTile::Empty) {
                    map.Held(x, y).room = static_cast<std::uint32_t>(map.rooms.size());
                }
            }
        }
    }
}

void LockChests(LevelMap& map, const std::unordered_map<std::string, MapLock>& chests) {
    for (MapCell& cell : map.cells) {
        for (MapContent& content : cell.contents) {
            const auto chest = chests.find(content.name);
            if (content.sign == MapSign::Container && chest != chests.end()) {
                content.lock = chest->second;
            }
        }
    }
}

// The drawing begins at `origin` of the level.
void AddLocks(LevelMap& map, const FinishedLevel& level, const DiPos& origin) {
    const std::vector<Ref>& refs = level.cell.GetRefs();
    std::unordered_map<std::string, MapLock> chests;
    bool any = false;
    for (const Ref& ref : refs) {
        any = any || ref.GetLock();
        if (ref.GetLock() && ref.sort == RefSort::Container) {
            chests.emplace(Shown(ref.GetName()), DrawnLock(LockOf(ref)));
        }
    }
    // Most levels have none.
    if (!any) {
        return;
    }
    LockChests(map, chests);
    for (const LockableDoor& door : LockablesOf(level).doors) {
        map.Held(door.place.x - origin.x, door.place.y - origin.y).lock =
            DrawnLock(LockOf(refs[door.leaves.front()]));
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
    text += content.lock.words.empty() ? "" : " (" + content.lock.words + ')';
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

void MapGrid::SetGrid(const DiPos& newSize, const std::vector<DiPos>& places) {
    size = newSize;
    numbers.assign(Index(size) + 1, 0);
    for (const DiPos& place : places) {
        numbers[Index(place)] = 1;
    }
    cells.assign(numbers.size() - static_cast<std::size_t>(std::ranges::count(numbers, 0U)), {});
    std::uint32_t count = 0;
    DiPos place;
    for (place.y = 0; place.y < size.y; ++place.y) {
        for (place.x = 0; place.x < size.x; ++place.x) {
            if (std::uint32_t& number = numbers[Index(place)]; number != 0) {
                cells[count].place = place;
                number = ++count;
            }
        }
    }
}

DiPos LevelMap::Frame(std::vector<DiPos> places) {
    if (places.empty()) {
        return {};
    }
    DiPos low = places.front();
    DiPos high = low;
    for (const DiPos& place : places) {
        low = DiPos(std::min(low.x, place.x), std::min(low.y, place.y), 0);
        high = DiPos(std::max(high.x, place.x), std::max(high.y, place.y), 0);
    }
    width = high.x - low.x + 1;
    height = high.y - low.y + 1;
    for (DiPos& place : places) {
        place -= low;
    }
    SetGrid(DiPos(width, height, 0), places);
    return low;
}

const MapCell* LevelMap::ArrivalCell() const {
    if (!arrival || tileSize <= 0) {
        return nullptr;
    }
    const DiPos place(Nearest((double{arrival->place.x} - corner.x) / tileSize),
                      Nearest((double{corner.y} - arrival->place.y) / tileSize),
                      0);
    return IsInside(place) ? Find(place) : nullptr;
}

LevelMap MapOf(const FinishedLevel& level) {
    std::vector<LevelPart> parts = PartsOf(level.layout);
    LevelMap map;
    map.leftOut = DropDistant(parts);
    map.name = Shown(level.cell.GetName());
    map.tileSet = Shown(level.tileSet.GetName());
    map.tileSize = level.tileSet.GetTileSize();
    const DiPos low = map.Frame(TiledPlaces(parts));
    map.corner = WorldPosition(low, Di3Point(), Di3Point(), map.tileSize);
    for (LevelPart& part : parts) {
        part.origin -= low;
        Draw(map, part);
    }
    JoinNeighbours(map);
    AddLocks(map, level, low);
    if (level.report != nullptr) {
        AddRooms(map, *level.report, low);
    } else {
        NumberAreas(map);
        JudgeReach(map);
        MarkWaysIn(map);
    }
    return map;
}

void AddArrivals(std::vector<LevelMap>& maps, const std::vector<Arrival>& arrivals) {
    for (const Arrival& arrival : arrivals) {
        LevelMap& map = maps.at(arrival.level);
        map.arrival = arrival;
        map.arrival->cell = map.name; // harmless
    }
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
                if (content.sign != MapSign::Container || found == containers.end()) {
                    continue;
                }
                auto chest = std::make_shared<MapChest>();
                chest->name = Shown(found->second->GetFriendlyName());
                for (const auto& [item, count] : found->second->GetInventory()) {
                    chest->items.push_back({Shown(item), count});
                }
                StackAlike(chest->items);
                content.label = chest->name;
                content.chest = std::move(chest);
            }
        }
    }
}

void StackAlike(std::vector<MapItem>& items) {
    std::unordered_map<std::string, std::size_t> places;
    std::vector<MapItem> stacks;
    for (MapItem& item : items) {
        const auto [found, isNew] =
            places.emplace((item.count < 0 ? '-' : '+') + item.name, stacks.size());
        if (isNew) {
            stacks.push_back(std::move(item));
        } else {
            stacks[found->second].count += item.count;
        }
    }
    items = std::move(stacks);
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
    if (map.ArrivalCell() == &cell) {
        Append(text, "Arrive here: " + ConsoleLine(*map.arrival));
    }
    if (cell.teleport) {
        Append(text, "Leads to " + (cell.leadsTo.empty() ? "the outside" : cell.leadsTo));
    }
    if (!cell.lock.words.empty()) {
        Append(text, "Door: " + cell.lock.words);
    }
    if (cell.platform) {
        Append(text, "Platform");
    }
    if (cell.waysIn != 0) {
        Append(text, "Way in");
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
    for (const MapSign sign : kByWeight) {
        const auto found = std::ranges::find(cell.contents, sign, &MapContent::sign);
        if (found != cell.contents.end()) {
            return &*found;
        }
    }
    return nullptr;
}

} // namespace Tarnex::Report
