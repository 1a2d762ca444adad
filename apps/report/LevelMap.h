// SPDX-License-Identifier: MIT
// A level as it is drawn.
#pragma once

#include <vaultry/gen/LevelObserver.h>
#include <vaultry/layout/ElmtKind.h>
#include <vaultry/output/Mod.h>
#include <vaultry/output/Ref.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace Tarnex::Report {

/// What a cell of a map is.
enum class MapTile : std::uint8_t { Empty, Room, Hall, Stairs };

/// A stack in a container.
struct MapItem {
    std::string name;
    std::int64_t count = 0; ///< negative: refilled by the game
};

/// Something that stands in a cell. All text is UTF-8.
struct MapContent {
    RefSort sort = RefSort::Other;
    std::string name;             ///< its identifier
    std::string label{};          ///< what the game calls a container
    std::vector<MapItem> items{}; ///< what is in a container
};

/// One cell of a map. All text is UTF-8.
struct MapCell {
    MapTile tile = MapTile::Empty;
    SideBits open = 0;    ///< sides without a wall
    SideBits doorway = 0; ///< the open side that holds a doorway
    SideBits loose = 0;   ///< openings onto nothing
    bool door = false;
    bool teleport = false;
    bool platform = false;
    bool sameFloor = false;         ///< stands on the level's own floor, or one cell off at most
    std::size_t room = 0;           ///< its number from 1; 0 outside of rooms
    std::string leadsTo;            ///< the level behind a teleporting door
    std::vector<std::string> tiles; ///< kinds of the pieces
    std::vector<MapContent> contents;
};

/// One room, or one area between doorways where rooms are not known; numbered by its place in the
/// list from 1.
struct MapRoom {
    DiPos origin; ///< on the map [cells]
    DiPos size;   ///< [cells]
    bool reachable = true;
};

/// Copies everything that is drawn, so that it outlives the run. All text is UTF-8.
struct LevelMap {
    std::string name;
    std::string tileSet;
    std::int32_t tileSize = 0;  ///< edge of a cell [world units]
    std::int32_t width = 0;     ///< [cells]
    std::int32_t height = 0;    ///< [cells]
    std::vector<MapCell> cells; ///< row by row from the north-western corner
    std::vector<MapRoom> rooms;
    std::size_t leftOut = 0; ///< references too far away to be drawn

    bool IsInside(std::int32_t x, std::int32_t y) const {
        return x >= 0 && y >= 0 && x < width && y < height;
    }
    /// `x` and `y` are inside.
    const MapCell& At(std::int32_t x, std::int32_t y) const {
        return cells[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(x)];
    }
    MapCell& At(std::int32_t x, std::int32_t y) {
        return const_cast<MapCell&>(std::as_const(*this).At(x, y));
    }
    bool IsReachable(const MapCell& cell) const {
        return cell.room == 0 || rooms[cell.room - 1].reachable;
    }
};

/// What stands in place of maps when there are none.
inline constexpr const char* kNoLevels = "No level was made.";

/// What the margin of a map says besides. All text is UTF-8.
struct MapCaption {
    std::uint32_t seed = 0;
    std::string options; ///< as they are typed
    std::string config;
    std::string plugin{}; ///< that was drawn instead of a run, or empty
};

/// Draws up the map of a level. A fixed interior has no rooms of its own: its areas are numbered.
LevelMap MapOf(const FinishedLevel& level);

/// Collects the maps of a run.
class MapCollector : public LevelObserver {
public:
    void LevelFinished(const FinishedLevel& level) override { maps.push_back(MapOf(level)); }
    /// For a run that starts over.
    void Clear() { maps.clear(); }
    std::vector<LevelMap>& Maps() { return maps; }
    const std::vector<LevelMap>& Maps() const { return maps; }

private:
    std::vector<LevelMap> maps;
};

/// Gives the containers on the maps their names and what is in them.
void AddTreasure(std::vector<LevelMap>& maps, const Mod& mod);

/// "3 x gold_001".
std::string ItemWords(const MapItem& item);

/// The name of a content as it is shown to people, and over further lines what is in it.
std::string ContentWords(const MapContent& content);

/// The text of a cell as it is shown to people, over several lines: room, tiles, contents.
std::string CellWords(const LevelMap& map, const MapCell& cell);

/// The first content of the sort that matters most, or null: creatures, containers, doors,
/// furniture, rugs, tapestries, anything else.
const MapContent* MainContent(const MapCell& cell);

} // namespace Tarnex::Report
