// SPDX-License-Identifier: MIT
// A level as it is drawn.
#pragma once

#include "tools/maps/MapSign.h"

#include <vaultry/gen/LevelObserver.h>
#include <vaultry/layout/LevelPlan.h>
#include <vaultry/output/Mod.h>
#include <vaultry/output/Ref.h>
#include <vaultry/run/Arrival.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace Tarnex::Report {

/// A tile further than this from the middle of a plug-in's level is not drawn, nor a part of a
/// level further than this from the level. [cells]
inline constexpr std::int32_t kFarthestCell = 256;

/// A stack in a container.
struct MapItem {
    std::string name;
    std::int64_t count = 0; ///< negative: refilled by the game
};

/// A container and what is in it. All text is UTF-8.
struct MapChest {
    std::string name; ///< what the game calls it
    std::vector<MapItem> items;
};

/// How a thing stands in its cell, seen from above.
struct MapStand {
    double east = 0.0;  ///< of its middle from that of the cell [cells]
    double south = 0.0; ///< likewise [cells]
    double turn = 0.0;  ///< of its back from the north, clockwise [degrees]
    double width = 0.0; ///< of its back, 0 where nobody knows [cells]
    double depth = 0.0; ///< 0 where nobody knows [cells]
};

/// What keeps somebody from opening a thing.
struct MapLock {
    bool locked = false;
    bool trapped = false;
    std::string words{}; ///< of both, with level, key and spell; empty for neither [UTF-8]
};

/// Something that stands in a cell. All text is UTF-8.
struct MapContent {
    MapSign sign = MapSign::Other;
    std::string name;                        ///< its identifier
    std::string label{};                     ///< what is shown instead, if anything
    std::shared_ptr<const MapChest> chest{}; ///< of a container; all that are the same share it
    MapStand stand{};
    MapLock lock{};
};

/// One cell of a map: what is planned there, and what is drawn besides. All text is UTF-8.
struct MapCell : PlanCell {
    DiPos place{};       ///< on the map
    bool door = false;   ///< the doorway has a leaf
    MapLock lock{};      ///< of the leaf
    SideBits waysIn = 0; ///< doorways by which a fixed interior is to be joined to the world
    bool platform = false;
    std::string leadsTo{};            ///< the level behind a teleporting door
    std::vector<std::string> tiles{}; ///< kinds of the pieces
    std::vector<MapContent> contents{};
};

/// The cells of a map. Empty ones take next to no memory: a few objects far apart make a large map.
class MapGrid {
public:
    /// That may hold something, row by row from the north-western corner.
    std::vector<MapCell> cells;

    /// Sets the size, and makes a cell at each of the places; they are inside and may come several
    /// times, in any order. [cells]
    void SetGrid(const DiPos& newSize, const std::vector<DiPos>& places);

    /// Whether the place is on the grid.
    bool IsInside(const DiPos& place) const {
        return place.x >= 0 && place.y >= 0 && place.x < size.x && place.y < size.y;
    }

    /// The cell there, or null. `place` is inside or next to it.
    /// @{
    const MapCell* Find(const DiPos& place) const { return CellAt(cells.data(), place); }
    MapCell* Find(const DiPos& place) { return CellAt(cells.data(), place); }
    /// @}

    /// The neighbour of one of the cells in `cells`, or null.
    /// @{
    const MapCell* Next(const MapCell& from, TileDirT side) const {
        return Find(from.place + Sides()[static_cast<std::size_t>(side)].step);
    }
    MapCell* Next(MapCell& from, TileDirT side) {
        return Find(from.place + Sides()[static_cast<std::size_t>(side)].step);
    }
    /// @}

    /// Where one of the cells in `cells` is.
    static DiPos PlaceOf(const MapCell& cell) { return cell.place; }

    /// The position of one of the cells in `cells`.
    std::size_t NumberOf(const MapCell& cell) const {
        return static_cast<std::size_t>(&cell - cells.data());
    }

private:
    // Empty cells all around spare a look at the border.
    std::size_t Index(const DiPos& place) const {
        return static_cast<std::size_t>(place.y + 1) * (static_cast<std::size_t>(size.x) + 2) +
               static_cast<std::size_t>(place.x + 1);
    }

    template <typename AnyCell>
    AnyCell* CellAt(AnyCell* first, const DiPos& place) const {
        const std::uint32_t number = numbers[Index(place)];
        return number == 0 ? nullptr : first + (number - 1);
    }

    DiPos size;
    std::vector<std::uint32_t> numbers; // of the cells from 1, or 0, row by row
};

/// One room, or one area between doorways where rooms are not known; numbered by its place in the
/// list from 1.
struct MapRoom {
    DiPos origin; ///< on the map [cells]
    DiPos size;   ///< [cells]
    bool reachable = true;
};

/// A level from outside. All text is UTF-8.
struct MapOutline {
    std::string name;
    std::string tileSet;
    std::int32_t tileSize = 0;        ///< edge of a cell [world units]
    std::int32_t width = 0;           ///< [cells]
    std::int32_t height = 0;          ///< [cells]
    Di3Point corner{};                ///< the middle of the north-western cell [world units]
    std::optional<Arrival> arrival{}; ///< where one can be put down, if anywhere
    std::size_t leftOut = 0;          ///< references too far away to be drawn
};

/// Copies everything that is drawn, so that it outlives the run. All text is UTF-8.
struct LevelMap : MapOutline, MapGrid {
    std::vector<MapRoom> rooms;

    /// Makes the grid that just holds the places, and a cell for each of them. Returns the place of
    /// its north-western cell, which becomes (0, 0).
    DiPos Frame(std::vector<DiPos> places);
    /// The cell there, an empty one if there is none. `x` and `y` are inside.
    const MapCell& At(std::int32_t x, std::int32_t y) const {
        const MapCell* cell = Find(DiPos(x, y, 0));
        return cell == nullptr ? kEmptyCell : *cell;
    }
    /// The cell in which one arrives, or null.
    const MapCell* ArrivalCell() const;
    /// The cell there, which is one of `cells`.
    MapCell& Held(std::int32_t x, std::int32_t y) { return *Find(DiPos(x, y, 0)); }
    bool IsReachable(const MapCell& cell) const {
        return cell.room == 0 || rooms[cell.room - 1].reachable;
    }

private:
    static const MapCell kEmptyCell;
};

/// The levels of a drawing. A drawing looks at one after the other, several times over.
class MapLevels {
public:
    virtual ~MapLevels() = default;
    virtual std::size_t Count() const = 0;
    /// The level of that number, counted from 0; it is good until the next call.
    virtual const LevelMap& Level(std::size_t number) = 0;
};

/// What stands in place of maps when there are none.
inline constexpr const char* kNoLevels = "No level was made.";

/// What the margin of a map says besides. All text is UTF-8.
struct MapCaption {
    std::uint32_t seed = 0;
    std::string options; ///< as they are typed
    std::string config;
    std::string plugin{};              ///< that was drawn instead of a run, or empty
    std::vector<std::string> chosen{}; ///< by chance, a line for a level
};

/// Draws up the map of a level. A fixed interior has no rooms of its own: its areas are numbered.
LevelMap MapOf(const FinishedLevel& level);

/// Collects the maps of a run.
class MapCollector : public LevelObserver, public MapLevels {
public:
    std::size_t Count() const override { return maps.size(); }
    const LevelMap& Level(std::size_t number) override { return maps[number]; }
    void LevelFinished(const FinishedLevel& level) override { maps.push_back(MapOf(level)); }
    void StartOver() override { maps.clear(); }
    std::vector<LevelMap>& Maps() { return maps; }
    const std::vector<LevelMap>& Maps() const { return maps; }

private:
    std::vector<LevelMap> maps;
};

/// Marks on the maps of a run where one arrives.
void AddArrivals(std::vector<LevelMap>& maps, const std::vector<Arrival>& arrivals);

/// Gives the containers on the maps their names and what is in them.
void AddTreasure(std::vector<LevelMap>& maps, const Mod& mod);

/// Makes one stack of those that are alike, in place of the first; what is refilled stays apart.
void StackAlike(std::vector<MapItem>& items);

/// Bounds what containers that stand in several places make of a drawing: what is in a container is
/// listed where it is drawn first, and again elsewhere until kMostListedAgain items were. After
/// that only their number is told.
class ListedItems {
public:
    static constexpr std::size_t kMostListedAgain = 10'000;

    /// Whether what is in the chest is to be listed now; it counts as listed then.
    bool Claim(const MapChest& chest);

private:
    std::unordered_set<const MapChest*> listed;
    std::size_t again = 0;
};

/// "3 x gold_001".
std::string ItemWords(const MapItem& item);

/// The text of a cell as it is shown to people, over several lines: room, tiles, contents.
std::string CellWords(const LevelMap& map, const MapCell& cell, ListedItems& listed);

/// The first content of the sign that matters most, or null: creatures, containers, doors,
/// furniture, lights, rugs, tapestries, anything else.
const MapContent* MainContent(const MapCell& cell);

} // namespace Tarnex::Report
