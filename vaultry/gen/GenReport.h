// SPDX-License-Identifier: MIT
// What a run came to, for front ends.
#pragma once

#include <vaultry/catalogue/LayoutTemplate.h>
#include <vaultry/catalogue/Theme.h>
#include <vaultry/catalogue/TileSet.h>
#include <vaultry/foundation/DiPos.h>
#include <vaultry/gen/RandomGenInfo.h>

#include <cstdint>
#include <string>
#include <vector>

namespace Tarnex {

/// A hall that could not be carved, by the slots of its rooms in the level's room grid (x the
/// column, y the row, both from 0).
struct FailedHall {
    DiPos from; ///< where the hall was to begin
    DiPos to;   ///< where it was to end
};

/// One room of a random level.
struct RoomReport {
    DiPos slot;             ///< in the level's room grid (x the column, y the row, from 0)
    DiPos origin;           ///< its north-western cell in the level [cells]
    DiPos size;             ///< without its raised and lowered parts [cells]
    bool reachable = false; ///< from the first room, through openings that face each other
};

/// What a level that was made was made from, whether by chance or because it was asked for.
struct LevelChoices {
    std::uint32_t number = 0;     ///< of the level, from 1; 0 for a fixed interior
    std::string cell;             ///< its name
    DiPtr<TileSet> tileSet;       ///< not null
    DiPtr<LayoutTemplate> layout; ///< of a fixed interior; null for a random level
    DiPtr<Theme> theme;           ///< the furniture; null for none
    DiPtr<Theme> creatureTheme;   ///< null for none
    DiPtr<Theme> treasureTheme;   ///< null for none
    DiPos roomGrid;               ///< of a random level: slots for rooms (x columns, y rows)
    SpacingRange spacing{};       ///< of a random level
};

/// One level of a random run. Front ends may keep it: it holds the tile set, but no layouts.
struct VAULTRY_API LevelReport {
    std::uint32_t number = 0;      ///< from 1; a level that was given up keeps its number
    std::string name;              ///< of its cell
    bool made = false;             ///< false: given up, there is no cell
    std::uint32_t attempts = 0;    ///< floor plans tried
    DiPtr<TileSet> tileSet;        ///< that the level is built from
    DiPos roomGrid;                ///< slots for rooms (x columns, y rows)
    SpacingRange spacing{};        ///< of the last floor plan
    DiPos size;                    ///< of the level [cells]
    std::vector<RoomReport> rooms; ///< of a level that was made, row by row
    std::uint32_t openEnds = 0;    ///< openings of halls and doorways that lead nowhere
    bool linked = false;           ///< a pair of teleporting doors joins it to the level before
    /// The halls that could not be carved: of the last floor plan when the level was given up,
    /// at most one otherwise.
    std::vector<FailedHall> failedHalls;

    /// How many rooms can be reached, the first among them. 0 for a level that was given up.
    std::size_t ReachableRooms() const;
    /// True when the level was made and every room of it can be reached. A level that was made
    /// without rooms counts as walkable.
    bool IsWalkable() const { return made && ReachableRooms() == rooms.size(); }
};

/// What a run came to.
struct VAULTRY_API GenReport {
    std::vector<LevelReport> levels;  ///< of a random run, in order; given up ones too
    std::vector<LevelChoices> chosen; ///< for the levels that were made, in order, or the interior
    bool canceled = false;            ///< the run ended early; what was made is not whole

    /// True when the levels that were made hang together by their doors. True when there is but
    /// one, or none.
    bool AreLevelsLinked() const;
    /// True when every level is there, every room of it can be reached and all hang together. This
    /// is what a Run that is to be walkable waits for.
    bool IsWalkable() const;
    /// True when every level is there and nothing on any opens onto nothing.
    bool IsClosed() const;
};

} // namespace Tarnex
