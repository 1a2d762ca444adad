// SPDX-License-Identifier: MIT
#include "tools/maps/PluginMap.h"

#include "tools/maps/MapCells.h"
#include "tools/plugins/PluginIndex.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/Text.h>
#include <vaultry/run/ArrivalPlace.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <set>
#include <tuple>

namespace Tarnex::Report {

namespace {

constexpr const char* kNorthMarker = "NorthMarker";
constexpr std::int32_t kUsualTileSize = 256;

bool IsDrawn(const PluginRef& ref) {
    return !ref.deleted && !EqualsNoCase(ref.id, kNorthMarker);
}

std::size_t CountKnown(const PluginCell& cell, const TilePieces& set) {
    return static_cast<std::size_t>(std::ranges::count_if(cell.refs, [&set](const PluginRef& ref) {
        return IsDrawn(ref) && !set.Find(ref).empty();
    }));
}

// The set that knows the most references, or null.
const TilePieces* ChooseSet(const PluginCell& cell, const PieceIndex& pieces) {
    const TilePieces* best = nullptr;
    std::size_t most = 0;
    for (const TilePieces& set : pieces.TileSets()) {
        const std::size_t known = CountKnown(cell, set);
        if (known > most) {
            most = known;
            best = &set;
        }
    }
    return best;
}

// A point of the plane, rows running south. [cells, with fractions]
struct Spot {
    double x;
    double y;
};

// Where the grid of a level lies and how far apart its lines are. [world units]
struct GridFrame {
    double x = 0.0;
    double y = 0.0;
    double size = kUsualTileSize;

    Spot Of(const Di3Point& position, const Di3Point& offset) const {
        return {(double{position.x} - offset.x - x) / size,
                (y - (double{position.y} - offset.y)) / size};
    }
};

std::int32_t Nearest(double value) {
    constexpr double kBound = 1e9;
    return static_cast<std::int32_t>(std::lround(std::clamp(value, -kBound, kBound)));
}

DiPos CellOf(const Spot& spot) {
    return {Nearest(spot.x), Nearest(spot.y), 0};
}

// How far a tile would stand from the middle of its cell. [cells]
double Misfit(const Spot& spot) {
    return std::hypot(spot.x - std::round(spot.x), spot.y - std::round(spot.y));
}

// What is left of a whole number of cells. [whole world units]
std::int32_t Remainder(double value, std::int32_t size) {
    const double rest = std::fmod(value, size);
    return Nearest(rest < 0.0 ? rest + size : rest) % size;
}

// A level need not start at the origin: most of its tiles tell where the grid lies.
GridFrame FindFrame(const PluginCell& cell, const TilePieces& set) {
    const std::int32_t size = std::max(set.Set().GetTileSize(), 1);
    std::map<std::pair<std::int32_t, std::int32_t>, std::size_t> votes;
    votes[{0, 0}] = 0;
    for (const PluginRef& ref : cell.refs) {
        if (!IsDrawn(ref) || !IsFinite(ref.place.position)) {
            continue;
        }
        for (const DiPtr<Tile>& tile : set.Find(ref)) {
            ++votes[{Remainder(double{ref.place.position.x} - tile->offset.x, size),
                     Remainder(double{ref.place.position.y} - tile->offset.y, size)}];
        }
    }
    const auto best =
        std::ranges::max_element(votes, {}, [](const auto& vote) { return vote.second; });
    return {double(best->first.first), double(best->first.second), double(size)};
}

// A reference that is a tile of the level.
struct PlacedTile {
    const PluginRef* ref;
    DiPtr<Tile> tile;
    DiPos cell;
    double height; ///< of its layout [cells]
};

// The references by identifier and place, to find the companion of a tile.
class RefPlaces {
public:
    explicit RefPlaces(const PluginCell& cell) {
        for (const PluginRef& ref : cell.refs) {
            places.insert(Key(ref.id, ref.place.position.x, ref.place.position.y));
        }
    }

    bool Holds(const std::string& id, double x, double y) const {
        return places.contains(Key(id, x, y));
    }

private:
    using Place = std::tuple<std::string, std::int32_t, std::int32_t>;

    static Place Key(const std::string& id, double x, double y) {
        return {ToUpper(id), Nearest(x), Nearest(y)};
    }

    std::set<Place> places;
};

// One piece may be the wall of one cell or the end of a hall in the next. It is the wall if what
// comes with the wall is there: 0 it is, 1 nothing comes with the tile, 2 it is not.
int CompanionRank(const PluginRef& ref,
                  const Tile& tile,
                  const TileSet& set,
                  const RefPlaces& places) {
    if (tile.requiredName.empty()) {
        return 1;
    }
    const DiPtr<Tile>& companion = set.Get(tile.requiredName);
    const bool there =
        companion &&
        places.Holds(companion->id,
                     double{ref.place.position.x} - tile.offset.x + companion->offset.x,
                     double{ref.place.position.y} - tile.offset.y + companion->offset.y);
    return there ? 0 : 2;
}

// Of the tiles that a reference may be the one that stands best on the grid, or nothing.
std::optional<PlacedTile> FitTile(const PluginRef& ref,
                                  const TilePieces& set,
                                  const GridFrame& frame,
                                  const RefPlaces& places) {
    constexpr double kMostMisfit = 0.2;
    constexpr double kSameMisfit = 0.01;
    std::optional<PlacedTile> best;
    double smallest = kMostMisfit;
    int lowest = 0;
    for (const DiPtr<Tile>& tile : set.Find(ref)) {
        const Spot spot = frame.Of(ref.place.position, tile->offset);
        const double misfit = Misfit(spot);
        const int rank = CompanionRank(ref, *tile, set.Set(), places);
        const bool better = misfit < smallest - kSameMisfit ||
                            (best && misfit < smallest + kSameMisfit && rank < lowest);
        if (better) {
            smallest = misfit;
            lowest = rank;
            const double height = (double{ref.place.position.z} - tile->offset.z) / frame.size;
            best = {&ref, tile, CellOf(spot), height};
        }
    }
    return best;
}

// A reference that is no tile.
struct PlacedThing {
    const PluginRef* ref;
    DiPos cell;
};

template <typename Value>
Value Median(std::vector<Value> values) {
    if (values.empty()) {
        return {};
    }
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>((values.size() - 1) / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

class PluginLevel {
public:
    PluginLevel(const PluginCell& pluginCell,
                PluginChests& pluginChests,
                const PieceIndex& pieceIndex)
        : cell(pluginCell), chests(pluginChests), pieces(pieceIndex) {}

    LevelMap Draw() {
        map.name = Shown(cell.name);
        set = ChooseSet(cell, pieces);
        if (set != nullptr) {
            frame = FindFrame(cell, *set);
            map.tileSet = Shown(set->Set().GetName());
        }
        map.tileSize = Nearest(frame.size);
        Sort();
        DropDistant();
        SetBounds();
        DrawTiles();
        for (const PlacedThing& thing : things) {
            AddThing(Held(thing.cell), *thing.ref);
        }
        JoinNeighbours(map);
        NumberAreas(map);
        JudgeReach(map);
        FindArrival();
        return std::move(map);
    }

private:
    void Sort() {
        const RefPlaces places(cell);
        for (const PluginRef& ref : cell.refs) {
            if (!IsDrawn(ref)) {
                continue;
            }
            if (!IsFinite(ref.place.position)) {
                ++map.leftOut;
                continue;
            }
            std::optional<PlacedTile> tile;
            if (set != nullptr) {
                tile = FitTile(ref, *set, frame, places);
            }
            if (tile) {
                tiles.push_back(*std::move(tile));
            } else {
                things.push_back({&ref, CellOf(frame.Of(ref.place.position, {}))});
            }
        }
    }

    // One stray reference would make a picture of nothing but emptiness.
    void DropDistant() {
        std::vector<std::int32_t> columns;
        std::vector<std::int32_t> rows;
        const auto collect = [&](const auto& list) {
            for (const auto& placed : list) {
                columns.push_back(placed.cell.x);
                rows.push_back(placed.cell.y);
            }
        };
        collect(tiles);
        if (tiles.empty()) {
            collect(things);
        }
        const DiPos middle(Median(columns), Median(rows), 0);
        const auto isDistant = [&middle](const auto& placed) {
            return std::abs(std::int64_t{placed.cell.x} - middle.x) > kFarthestCell ||
                   std::abs(std::int64_t{placed.cell.y} - middle.y) > kFarthestCell;
        };
        map.leftOut += std::erase_if(tiles, isDistant) + std::erase_if(things, isDistant);
    }

    void SetBounds() {
        std::vector<DiPos> places;
        const auto collect = [&](const auto& list) {
            for (const auto& placed : list) {
                places.emplace_back(placed.cell.x, placed.cell.y, 0);
            }
        };
        collect(tiles);
        collect(things);
        low = map.Frame(std::move(places));
    }

    MapCell& Held(const DiPos& place) { return map.Held(place.x - low.x, place.y - low.y); }

    // The floor on which most of the level stands. [cells]
    double MainHeight() const {
        std::vector<double> heights;
        for (const PlacedTile& tile : tiles) {
            heights.push_back(tile.height);
        }
        return Median(heights);
    }

    // Of the tiles in a cell those nearest to the main floor are drawn, together.
    void DrawTiles() {
        constexpr double kSameHeight = 0.1; // [cells]
        // The file holds heights in world units, rounded where they do not divide evenly.
        constexpr double kRounding = 0.01; // [cells]
        const double main = MainHeight();
        map.corner = {static_cast<float>(frame.x + low.x * frame.size),
                      static_cast<float>(frame.y - low.y * frame.size),
                      static_cast<float>(main * frame.size)};
        std::vector<double> nearest(map.cells.size(), std::numeric_limits<double>::max());
        const auto index = [this](const PlacedTile& tile) { return map.NumberOf(Held(tile.cell)); };
        for (const PlacedTile& tile : tiles) {
            double& height = nearest[index(tile)];
            if (std::abs(tile.height - main) < std::abs(height - main)) {
                height = tile.height;
            }
        }
        std::vector<DiPtr<GridElmt>> elements(map.cells.size());
        std::vector<const PluginRef*> doors(map.cells.size());
        std::vector<const PluginRef*> leaves(map.cells.size());
        for (const PlacedTile& tile : tiles) {
            const std::size_t i = index(tile);
            if (std::abs(tile.height - nearest[i]) > kSameHeight) {
                continue;
            }
            if (!elements[i]) {
                elements[i] = MakeDi<GridElmt>();
            }
            elements[i]->AddTile(tile.tile);
            doors[i] = tile.ref->destination ? tile.ref : doors[i];
            leaves[i] = IsDoorTile(*tile.tile) ? tile.ref : leaves[i];
        }
        for (std::size_t i = 0; i < elements.size(); ++i) {
            if (elements[i]) {
                const DiPos place = map.cells[i].place;
                map.cells[i] = DrawnCell(*elements[i]);
                map.cells[i].place = place;
                const double above = std::abs(nearest[i] - main);
                map.cells[i].sameFloor = above <= double{kSameFloor} + kRounding;
                map.cells[i].even = above <= kRounding;
                Lead(map.cells[i], doors[i]);
                map.cells[i].lock = leaves[i] == nullptr ? MapLock() : DrawnLock(leaves[i]->lock);
            }
        }
    }

    static void Lead(MapCell& place, const PluginRef* door) {
        if (door != nullptr) {
            place.teleport = true;
            place.leadsTo = Shown(door->destination->cell);
        }
    }

    void AddThing(MapCell& place, const PluginRef& ref) {
        const RefSort sort = SortOf(ref);
        if (sort == RefSort::Platform) {
            place.platform = true;
            place.even = false;
            return;
        }
        MapContent content;
        content.name = Shown(ref.id);
        Place(content, place.place, sort, ref);
        content.chest = chests.Find(ref.id);
        content.lock = DrawnLock(ref.lock);
        if (content.chest) {
            content.label = content.chest->name;
        }
        if (ref.destination) {
            content.label =
                content.name + " to " +
                (ref.destination->cell.empty() ? "the outside" : Shown(ref.destination->cell));
        }
        place.contents.push_back(std::move(content));
    }

    // A model's own front is where its author's turn has put its back to the north.
    void Place(MapContent& content, const DiPos& at, RefSort sort, const PluginRef& ref) const {
        const ContentTemplate* known = KnownContent(ref);
        const Di3Point size = known == nullptr ? Di3Point() : known->size;
        const Di3Point& position = ref.place.position;
        const Di3Point offset(static_cast<float>(position.x - (map.corner.x + at.x * frame.size)),
                              static_cast<float>(position.y - (map.corner.y - at.y * frame.size)),
                              0.0F);
        const double turn =
            std::round(Degrees(ref.place.rotation.z)) - (known == nullptr ? 0 : known->zRotate);
        content.sign = SignOf(sort, ref.id, size);
        content.stand = StandOf(
            offset, std::isfinite(turn) ? std::fmod(turn + 720.0, 360.0) : 0.0, size, map.tileSize);
    }

    // The configuration's content that the reference is, or null.
    const ContentTemplate* KnownContent(const PluginRef& ref) const {
        const PluginContainer* chest = chests.Record(ref.id);
        return pieces.ContentOf(chest == nullptr ? ref.id : chest->model);
    }

    // What the configuration does not know has the usual reach.
    std::optional<Obstacle> ObstacleAt(const PluginRef& ref) const {
        const ContentTemplate* content = KnownContent(ref);
        return content == nullptr ? Obstacle{ref.place.position}
                                  : ObstacleOf(*content, ref.place.position);
    }

    void FindArrival() {
        std::vector<Obstacle> obstacles;
        for (const PlacedThing& thing : things) {
            if (const auto obstacle = ObstacleAt(*thing.ref)) {
                obstacles.push_back(*obstacle);
            }
        }
        if (tiles.empty()) {
            return;
        }
        const auto isReachable = [this](const MapCell& at) { return map.IsReachable(at); };
        map.arrival = BestArrival(
            StandingCells(map, isReachable),
            obstacles,
            {map.corner, map.tileSize, FeetHeight(pieces.FirstCreature(), map.tileSize)});
        if (map.arrival) {
            map.arrival->cell = map.name;
        }
    }

    RefSort SortOf(const PluginRef& ref) {
        if (ref.destination) {
            return RefSort::Door;
        }
        if (chests.Find(ref.id) || IsContainerId(ref.id)) {
            return RefSort::Container;
        }
        const std::optional<RefSort> known = pieces.SortOf(ref.id);
        return known.value_or(IsDoorId(ref.id) ? RefSort::Door : RefSort::Other);
    }

    const PluginCell& cell;
    PluginChests& chests;
    const PieceIndex& pieces;
    const TilePieces* set = nullptr;
    GridFrame frame;
    std::vector<PlacedTile> tiles;
    std::vector<PlacedThing> things;
    DiPos low;
    LevelMap map;
};

} // namespace

PluginChests::PluginChests(const PluginFile& file) {
    for (const PluginContainer& container : file.containers) {
        entries.emplace(ToUpper(container.id), Entry{&container, nullptr});
    }
}

std::shared_ptr<const MapChest> PluginChests::Find(const std::string& id) {
    const auto found = entries.find(ToUpper(id));
    if (found == entries.end()) {
        return nullptr;
    }
    Entry& entry = found->second;
    if (!entry.chest) {
        auto chest = std::make_shared<MapChest>();
        chest->name = Shown(entry.container->name);
        for (const PluginItem& item : entry.container->items) {
            chest->items.push_back({Shown(item.id), item.count});
        }
        StackAlike(chest->items);
        entry.chest = std::move(chest);
    }
    return entry.chest;
}

const PluginContainer* PluginChests::Record(const std::string& id) const {
    const auto found = entries.find(ToUpper(id));
    return found == entries.end() ? nullptr : found->second.container;
}

LevelMap MapOf(const PluginCell& cell, PluginChests& chests, const PieceIndex& pieces) {
    return PluginLevel(cell, chests, pieces).Draw();
}

PluginLevels::PluginLevels(std::vector<const PluginCell*> pluginCells,
                           const PluginFile& file,
                           const PieceIndex& pieceIndex)
    : cells(std::move(pluginCells)), chests(file), pieces(pieceIndex) {}

const LevelMap& PluginLevels::Level(std::size_t number) {
    map = {}; // before the next is made
    map = MapOf(*cells[number], chests, pieces);
    return map;
}

std::size_t CountKnownTiles(const std::vector<const PluginCell*>& cells, const PieceIndex& pieces) {
    std::size_t known = 0;
    for (const PluginCell* cell : cells) {
        const TilePieces* set = ChooseSet(*cell, pieces);
        known += set == nullptr ? 0 : CountKnown(*cell, *set);
    }
    return known;
}

} // namespace Tarnex::Report
