// SPDX-License-Identifier: MIT
// The parameters of random levels.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Tarnex {

/// Cells added to each row and column of rooms: lo to hi by chance. hi of 0: none, without a draw.
struct SpacingRange {
    std::int32_t lo; ///< the fewest [cells]
    std::int32_t hi; ///< the most [cells]

    /// Whether nothing is added and nothing drawn.
    bool AddsNothing() const { return hi == 0; }
};

/// What a front end may ask of random levels; the seed of contents counts for fixed interiors too.
///
/// @code
/// Tarnex::RandomGenInfo wanted;
/// wanted.numLevels = 3;
/// wanted.levelSize = Tarnex::RandomGenInfo::StringToLevelSize("small");
/// manager.SetRandomInfo(wanted); // or a RunOptions, which holds the same and more
/// @endcode
///
/// Nothing is checked here: more than 1000 levels are cut to that, with an error in the log, and
/// values outside of the enumerations count as 0.
struct VAULTRY_API RandomGenInfo {
    /// The size of the room grid.
    enum LevelSizeT : std::int32_t {
        Random = 0, ///< any grid of 4 to 20 slots
        Tiny = 1,   ///< 4 slots
        Small = 2,  ///< 6 slots
        Medium = 3, ///< 9 slots
        Large = 4,  ///< 12 to 20 slots
    };

    /// The gaps between rooms. "Random" is 0 here too.
    enum RoomSpacingT : std::int32_t {
        RandomSpacing = 0, ///< any, wider in caves
        Tight = 1,         ///< none, and every slot is to hold a room
        SemiTight = 2,     ///< 0 to 3 cells
        SemiLoose = 3,     ///< 2 to 5 cells
        Loose = 4,         ///< 3 to 6 cells
    };

    /// Levels, each a cell of its own, joined by doors in their order. With 0 the run is empty.
    std::uint32_t numLevels = 1;
    /// Lowest level of a randomly chosen creature theme. When it is above `maxLevel`, only themes
    /// of the level `maxLevel` are taken.
    std::uint32_t minLevel = 1;
    std::uint32_t maxLevel = 5;               ///< highest level of a randomly chosen creature theme
    LevelSizeT levelSize = Random;            ///< of every level
    RoomSpacingT roomSpacing = RandomSpacing; ///< of every level
    bool randomTileSet = false;               ///< choose the tile set by chance
    bool randomTheme = false;                 ///< choose the furniture theme by chance
    bool randomCreatureTheme = false;         ///< choose the creature theme by chance
    bool randomTreasureTheme = false;         ///< choose the treasure theme by chance
    /// Begins chance anew once all plans and the doors between the levels are set: from there on it
    /// decides the themes that are chosen by chance and all contents. Without, chance goes on.
    std::optional<std::uint32_t> contentSeed;
    /// Takes pieces of halls out that no shortest way needs, but those that make a round of more
    /// than so many pieces. Without, all halls stay as they were carved.
    std::optional<std::uint32_t> tidyHalls;
    bool closeOpenings =
        false; ///< close what opens onto nothing, as far as there are pieces for it

    /// The words of the level sizes; a word's position is its value.
    static const std::vector<std::string>& GetLevelSizeStrings();
    /// The words of the room spacings; a word's position is its value.
    static const std::vector<std::string>& GetRoomSpacingStrings();

    /// The value of a word, without regard to case; Random for any other text and for null.
    static LevelSizeT StringToLevelSize(const char* text);
    /// The value of a word, without regard to case; RandomSpacing for any other text and
    /// for null.
    static RoomSpacingT StringToRoomSpacing(const char* text);
};

} // namespace Tarnex
