// SPDX-License-Identifier: MIT
// Maps of what a plug-in places.
#pragma once

#include "tools/maps/LevelMap.h"
#include "tools/maps/PieceIndex.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace Tarnex::Report {

/// The containers of a plug-in by identifier, which is compared without regard to case.
class PluginChests {
public:
    /// The plug-in must outlive it.
    explicit PluginChests(const PluginFile& file);

    /// The container, made when it is first asked for, or null.
    std::shared_ptr<const MapChest> Find(const std::string& id);

    /// Its record, or null.
    const PluginContainer* Record(const std::string& id) const;

private:
    struct Entry {
        const PluginContainer* container;
        std::shared_ptr<const MapChest> chest;
    };

    std::unordered_map<std::string, Entry> entries; // by upper-cased identifier
};

/// Draws up the map of a cell: floors, walls and doors from the tiles of the set that knows most of
/// its references, everything else as marks. Rooms are the areas between doorways. A reference at
/// no place, or far away from the others, is counted and left out.
LevelMap MapOf(const PluginCell& cell, PluginChests& chests, const PieceIndex& pieces);

/// Cells of a plug-in, drawn up when they are asked for.
class PluginLevels : public MapLevels {
public:
    /// The plug-in, whose cells these are, and the pieces must outlive it.
    PluginLevels(std::vector<const PluginCell*> cells,
                 const PluginFile& file,
                 const PieceIndex& pieces);

    std::size_t Count() const override { return cells.size(); }
    const LevelMap& Level(std::size_t number) override;

private:
    std::vector<const PluginCell*> cells;
    PluginChests chests;
    const PieceIndex& pieces;
    LevelMap map;
};

/// How many references of the cells a configuration knows as tiles.
std::size_t CountKnownTiles(const std::vector<const PluginCell*>& cells, const PieceIndex& pieces);

} // namespace Tarnex::Report
