// SPDX-License-Identifier: MIT
// A cell of the game, read from the game's files.
#pragma once

#include <vaultry/foundation/Export.h>
#include <vaultry/output/CellHead.h>

#include <cstdint>
#include <istream>
#include <optional>
#include <string>
#include <vector>

namespace Tarnex {

/// The heights of the land of one cell of the world: 65 rows from the south, each of 65 heights
/// from the west, 128 units apart. [world units]
struct LandHeights {
    std::vector<float> heights; ///< row by row
};

/// The height of the land at a place of its cell, from 0 up to kWorldCellSize on either axis: the
/// game lays two triangles over every square of four heights. [world units]
VAULTRY_API double HeightAt(const LandHeights& land, double x, double y);

/// Which cell is meant: an interior of that name (Windows-1252, in any case), or, without a name,
/// the one of the world in that column and row.
struct CellAsked {
    std::string interior;    ///< its name; empty: a cell of the world
    std::int32_t column = 0; ///< of that one, from west to east
    std::int32_t row = 0;    ///< likewise, from south to north
};

/// What files say of a cell, the last one that has it.
struct GameCell {
    std::optional<CellHead> head;    ///< none in any file
    std::string name;                ///< as the head has it [Windows-1252]
    std::optional<LandHeights> land; ///< likewise; interiors have none
};

/// Reads one of the game's files from its beginning, and puts what it says of the cell in place of
/// what those before said. The file is read piece by piece and believed in nothing: every size is
/// checked. Throws GameFault, without the name of the file, where it cannot be understood.
VAULTRY_API void ReadGameCell(std::istream& file, const CellAsked& asked, GameCell& cell);

} // namespace Tarnex
