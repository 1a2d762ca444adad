// SPDX-License-Identifier: MIT
#include "apps/report/LevelMap.h"

#include "apps/report/Words.h"

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Numeric.h>
#include <vaultry/layout/Passages.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace Tarnex::Report {

namespace {

constexpr float kSameFloor = 1.0F; // how far a part may be raised or lowered [cells]

constexpr std::array<std::pair<std::string_view, RefSort>, 5> kSorts = {{
    {Content_Container, RefSort::Container},
    {Content_Creature, RefSort::Creature},
    {Content_Furniture, RefSort::Furniture},
    {Content_Rug, RefSort::Rug},
    {Content_Tapestry, RefSort::Tapestry},
}};

constexpr std::array<RefSort, 6> kByWeight = {RefSort::Creature,
                                              RefSort::Container,
                                              RefSort::Furniture,
                                              RefSort::Rug,
                                              RefSort::Tapestry,
                                              RefSort::Other};

struct Step {
    TileDirT side;
    TileDirT opposite;
    std::int32_t x;
    std::int32_t y;
};

constexpr std::array<Step, 4> kSteps = {
    {{DirN, DirS, 0, -1}, {DirS, DirN, 0, 1}, {DirE, DirW, 1, 0}, {DirW, DirE, -1, 0}}};

RefSort SortOf(const ContentItem& item) {
    for (const auto& [kind, sort] : kSorts) {
        if (item.IsKind(kind)) {
            return sort;
        }
    }
    return RefSort::Other;
}

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

// A doorway in a corner has no facing of its own: the last letter of its kind is the side.
SideBits DoorwaySide(const Tile& tile) {
    const TileDirT facing = GetTileDir(tile);
    if (facing <= DirW) {
        return SideBit(facing);
    }
    const std::string_view name = tile.kindName.Kind().Name();
    const std::size_t side = std::string_view("NSEW").find(name.empty() ? ' ' : name.back());
    return side == std::string_view::npos ? SideBits{0} : SideBit(static_cast<TileDirT>(side));
}

MapTile TileOf(const GridElmt& elmt) {
    switch (GetElmtType(elmt)) {
    case TileHall:
    case TileHallEnd:
        return MapTile::Hall;
    case TileNone:
        return MapTile::Stairs;
    default:
        return MapTile::Room;
    }
}

MapCell CellOf(const GridElmt& elmt) {
    MapCell cell;
    cell.tile = TileOf(elmt);
    cell.open = WalkableSides(elmt);
    if (const Tile* doorway = PeekTileOfType(elmt, TileDoorway)) {
        cell.doorway = DoorwaySide(*doorway);
    }
    for (const DiPtr<Tile>& tile : elmt.tiles) {
        cell.tiles.push_back(Shown(tile->kindName.Text()));
        cell.door = cell.door || IsDoorTile(*tile);
    }
    cell.teleport = elmt.isTeleport;
    if (elmt.isTeleport && elmt.teleLayout) {
        cell.leadsTo = Shown(elmt.teleLayout->GetName());
    }
    cell.platform = !elmt.platforms.empty();
    for (const DiPtr<ContentItem>& item : elmt.contents) {
        cell.contents.push_back({SortOf(*item), Shown(item->uniqueName)});
    }
    return cell;
}

void Draw(LevelMap& map, const Part& part) {
    for (std::uint32_t row = 0; row < part.layout->GetHeight(); ++row) {
        for (std::uint32_t col = 0; col < part.layout->GetWidth(); ++col) {
            const std::int32_t x = part.origin.x + static_cast<std::int32_t>(col);
            const std::int32_t y = part.origin.y + static_cast<std::int32_t>(row);
            if (!part.layout->HasTiles(row, col) || map.At(x, y).tile != MapTile::Empty) {
                continue;
            }
            map.At(x, y) = CellOf(*part.layout->GetElmt(row, col));
            // The sides that must lead somewhere, until what they lead to is known.
            map.At(x, y).loose = OpenSides(*part.layout->GetElmt(row, col));
            map.At(x, y).sameFloor = part.sameFloor;
        }
    }
}

// Keeps the openings that face no other opening.
void FindLooseEnds(LevelMap& map) {
    for (std::int32_t y = 0; y < map.height; ++y) {
        for (std::int32_t x = 0; x < map.width; ++x) {
            MapCell& cell = map.At(x, y);
            if (!cell.sameFloor) {
                cell.loose = 0;
            }
            for (const Step& step : kSteps) {
                const bool leads = map.IsInside(x + step.x, y + step.y) &&
                                   map.At(x + step.x, y + step.y).sameFloor &&
                                   (map.At(x + step.x, y + step.y).open & SideBit(step.opposite));
                if ((cell.open & SideBit(step.side)) && leads) {
                    cell.loose = static_cast<SideBits>(cell.loose & ~SideBit(step.side));
                }
            }
            // Behind a teleporting door is another level.
            cell.loose = static_cast<SideBits>(cell.loose & ~(cell.teleport ? cell.doorway : 0));
        }
    }
}

void AddRooms(LevelMap& map, const LevelReport& report, const DiPos& origin) {
    for (const RoomReport& room : report.rooms) {
        const DiPos place(room.origin.x - origin.x, room.origin.y - origin.y, 0);
        map.rooms.push_back({place, room.size, room.reachable});
        for (std::int32_t y = place.y; y < place.y + room.size.y; ++y) {
            for (std::int32_t x = place.x; x < place.x + room.size.x; ++x) {
                if (map.IsInside(x, y) && map.At(x, y).tile != MapTile::Empty) {
                    map.At(x, y).room = map.rooms.size();
                }
            }
        }
    }
}

void Append(std::string& text, const std::string& line) {
    text += text.empty() ? line : '\n' + line;
}

} // namespace

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
    map.width = high.x - low.x;
    map.height = high.y - low.y;
    map.cells.resize(static_cast<std::size_t>(map.width) * static_cast<std::size_t>(map.height));
    for (Part& part : parts) {
        part.origin -= low;
        Draw(map, part);
    }
    FindLooseEnds(map);
    if (level.report != nullptr) {
        AddRooms(map, *level.report, low);
    }
    return map;
}

std::string CellWords(const LevelMap& map, const MapCell& cell) {
    std::string text;
    if (cell.room > 0) {
        Append(text,
               "Room " + std::to_string(cell.room) +
                   (map.IsReachable(cell) ? "" : " (cannot be reached)"));
    }
    std::string tiles;
    for (const std::string& tile : cell.tiles) {
        tiles += (tiles.empty() ? "" : ", ") + tile;
    }
    Append(text, tiles);
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
        Append(text, content.name);
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
