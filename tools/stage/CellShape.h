// SPDX-License-Identifier: MIT
// The shape of a tile that fills a cell, from its kind.
#pragma once

#include "tools/stage/Shape.h"

#include <vaultry/catalogue/Tile.h>

#include <optional>
#include <string_view>

namespace Tarnex::Report {

/// A cell to be shaped. [world units]
struct CellKind {
    std::string_view kind;    ///< the name of the tile, without regard to case
    float size = 256.0F;      ///< edge of the cell
    float climb = 0.0F;       ///< of stairs
    TileArea area = AreaFull; ///< a wall may stand on the centre line
};

/// The cell around its middle: closed where its kind is, with an opening where it has one. What
/// is on the border of the cell, jambs and doors, is shaped there. None for names of no known kind.
std::optional<Shape> CellShape(const CellKind& cell);

} // namespace Tarnex::Report
