// SPDX-License-Identifier: MIT
// Finding one's way in a plug-in: what is in it, by name, and sums over its cells.
#pragma once

#include <vaultry/output/PluginFile.h>

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace Tarnex::Report {

/// The names of a plug-in's cells, keys and containers, which the game compares without regard to
/// case. The plug-in must outlive it.
class PluginIndex {
public:
    explicit PluginIndex(const PluginFile& file);

    bool HasCell(std::string_view name) const;
    bool HasContainer(std::string_view id) const;
    bool HasKey(std::string_view id) const;

    /// The path grid of a cell of the plug-in, spelt alike, or null; of several the last one, which
    /// is the game's too. Of cells of one name the first has it, so that reports tell of each once.
    const PluginPathGrid* PathGridOf(const PluginCell& cell) const;

private:
    std::unordered_set<std::string> cells;
    std::unordered_set<std::string> containers;
    std::unordered_set<std::string> keys;
    std::unordered_map<const PluginCell*, const PluginPathGrid*> pathGrids;
};

/// The place of a cell of the world outside: "2, -9".
std::string GridWords(const PluginCell& cell);

/// The exterior cells of which nothing is kept but their number.
std::uint64_t UnreadExteriors(const PluginFile& file);

/// How many ways lead from the points of a path grid, one-way ones each.
std::uint64_t CountWays(const PluginPathGrid& grid);

/// Whether an identifier has the form that Vaultry gives to containers: "Ctr", digits, an
/// underscore, digits.
bool IsContainerId(std::string_view id);

/// Whether an identifier has the form that Vaultry gives to keys: the same with "Key".
bool IsKeyId(std::string_view id);

/// Whether an object's identifier speaks of a door, not of the wall around one. The file itself
/// does not tell of what kind the objects are that it places.
bool IsDoorId(std::string_view id);

/// Whether an object's identifier is one of a light, as all of the game's are.
bool IsLightId(std::string_view id);

/// Whether all three numbers are finite.
bool IsFinite(const Di3Point& point);

/// The smallest box around positions. [world units]
struct Bounds {
    Di3Point low;
    Di3Point high;
};

/// What there is in a cell; references that are deleted do not count.
struct CellSummary {
    std::optional<Bounds> bounds; ///< none without a reference at a finite position
    std::uint64_t doors = 0;
    std::uint64_t teleports = 0;
    std::uint64_t containers = 0;
    std::uint64_t lockedDoors = 0;
    std::uint64_t lockedContainers = 0;
    std::uint64_t traps = 0;
};

CellSummary Summarise(const PluginCell& cell, const PluginIndex& index);

/// What there is in a plug-in's interiors together; references that are deleted do not count.
struct PluginTotals {
    std::uint64_t references = 0;
    std::uint64_t doors = 0;
    std::uint64_t teleports = 0;
    std::uint64_t lights = 0;
    std::uint64_t containers = 0; ///< that are placed
    std::uint64_t items = 0;      ///< in the containers of the plug-in, refilled ones too
};

PluginTotals TotalsOf(const PluginFile& file, const PluginIndex& index);

} // namespace Tarnex::Report
