// SPDX-License-Identifier: MIT
// What a cell of the game is, apart from what stands in it.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstdint>
#include <string>

namespace Tarnex {

/// The edge of a cell of the world. [world units]
inline constexpr std::int32_t kWorldCellSize = 8192;

/// The sub-records of a cell's record that stand before its references: name, flags, place or
/// light, region, colour on the map. A plug-in that adds to a cell of the game replaces them, so
/// that it has to repeat them as they were.
struct CellHead {
    std::string bytes; ///< as they stand in the file, NAME first

    /// Equality of all bytes.
    bool operator==(const CellHead&) const = default;
};

/// The head of a cell in the wilds: without a name, with water, where one may sleep. Column and row
/// count from the middle of the world to the east and north; a region without a name (Windows-1252)
/// is left out, and with it weather and music of the cell.
VAULTRY_API CellHead WildernessHead(std::int32_t column,
                                    std::int32_t row,
                                    const std::string& region);

} // namespace Tarnex
