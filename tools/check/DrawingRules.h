// SPDX-License-Identifier: MIT
// The rules of a drawn layout with those inside it.
#pragma once

#include "tools/check/ConfigRules.h"
#include "tools/check/DrawingSurvey.h"

namespace Tarnex::Report {

/// A layout that is judged, and what it is drawn with.
struct DrawnLayout {
    const ConfigTree& tree;
    const ConfigElement& layout;
    const NameSet& tiles; ///< of the tile sets of its type
    Drawing drawing;
    DrawingSurvey survey;
};

/// Pieces in one cell that stand in each other, and doors without a doorway.
void CheckCells(const DrawnLayout& drawn, Findings& findings);
/// Sides that are neither closed nor open to a cell that opens back.
void CheckSides(const DrawnLayout& drawn, Findings& findings);
/// What no way leads to.
void CheckWays(const DrawnLayout& drawn, Findings& findings);

/// Layouts inside others that stand too far away to be meant so. `tileSize` in world units.
void CheckOffsets(const ConfigTree& tree,
                  const ConfigElement& layout,
                  int tileSize,
                  Findings& findings);
/// Layouts that stand in each other. Their cells there go with anything from then on.
void CheckOverlaps(Drawing& drawing, Findings& findings);
/// A size that is not that of the rows.
void CheckSize(const ConfigTree& tree, const ConfigElement& layout, Findings& findings);

/// The text of a cell with another piece in place of its first one; doors turn along.
std::string WithPiece(const CellText& cell, TileKind piece, const NameSet& tiles);

} // namespace Tarnex::Report
