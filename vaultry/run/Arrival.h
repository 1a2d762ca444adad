// SPDX-License-Identifier: MIT
// Where one can be put down in a dungeon.
#pragma once

#include <vaultry/foundation/Di3Point.h>
#include <vaultry/foundation/Export.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace Tarnex {

/// A place to stand on one level. For a button that takes a tester into the dungeon, or a door that
/// is to lead there.
struct Arrival {
    std::size_t level = 0;   ///< counted from 0 among those that were made
    std::string cell;        ///< the level's [UTF-8]; empty: the world outside
    Di3Point place;          ///< of the feet [world units]
    std::int32_t facing = 0; ///< clockwise from north [whole degrees]
    /// On the even floor of a room that can be reached, with nothing within a body's width. A level
    /// without such a place has the best there is, or none.
    bool good = false;
};

/// The way into a dungeon from the world, and back.
struct MadeEntrance {
    Arrival outside; ///< before the outer door; its cell is empty in the world, its level 0
    Arrival inside;  ///< before the inner one
};

/// What one types into the game's console to stand there, in UTF-8. Places are rounded to whole
/// units. Without a cell it is a place of the world outside. A cell's name with a quotation mark in
/// it cannot be typed there.
VAULTRY_API std::string ConsoleLine(const Arrival& arrival);

} // namespace Tarnex
