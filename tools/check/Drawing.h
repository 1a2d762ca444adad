// SPDX-License-Identifier: MIT
// A layout with those inside it, as the level that it is drawn for.
#pragma once

#include "tools/check/CellShape.h"
#include "tools/check/ConfigTree.h"

#include <compare>
#include <cstdint>

namespace Tarnex::Report {

/// A place in a level: columns to the east, rows to the south, and height, in parts of a cell.
struct Spot {
    static constexpr std::int64_t kCell = 128; ///< the parts of one cell

    std::int64_t x = 0;
    std::int64_t y = 0;
    std::int64_t z = 0;

    // The linter takes a zero that the compiler puts there for a pointer.
    auto operator<=>(const Spot&) const = default; // NOLINT(modernize-use-nullptr)
};

/// The place of the next cell on a side.
Spot Beside(const Spot& at, TileDirT side);

/// Whether two cells there, the second not below the first, stand in each other.
bool Overlap(const Spot& lower, const Spot& upper);

/// One cell that is drawn.
struct DrawnCell {
    const ConfigElement* col = nullptr;
    const ConfigElement* layout = nullptr;
    Spot at;
    CellShape shape;
};

/// What stands in the text of a cell.
struct CellText {
    std::vector<std::string> names;
    std::string piece;  ///< the first that has a floor, as it is written; else the first of all
    std::string second; ///< the next one that has a floor and is no second half of it
    CellShape shape;
};

CellText ReadCell(const ConfigElement& col);

/// A row of a layout, and the cells in it.
Elements RowsOf(const ConfigTree& tree, const ConfigElement& layout);
Elements ColsOf(const ConfigTree& tree, const ConfigElement& row);

/// The filled cells of a layout and of all inside it, but for those with a FarOffset. Rows and
/// columns beyond a layout's size are taken as they are drawn. The tree must outlive it.
class Drawing {
public:
    /// `heights` are those that stairs may climb, in cells.
    Drawing(const ConfigTree& tree,
            const ConfigElement& layout,
            const std::vector<double>& heights);

    const std::vector<DrawnCell>& Cells() const { return cells; }
    /// Whose shapes may be changed, not their places.
    std::vector<DrawnCell>& Cells() { return cells; }

    /// The first cells that stand in that column and row, at whatever height.
    std::span<const DrawnCell> Column(const Spot& at) const;
    /// Whether a cell stands there.
    bool Has(const Spot& at) const;
    /// The element that leaves the place empty, a cell or a row that ends before it; null beyond
    /// the rows.
    const ConfigElement* EmptyAt(const Spot& at) const;
    /// Whether stairs may climb that height.
    bool Climbs(std::int64_t height) const;
    /// The side of a cell as it is seen from beside it at a height; none when nothing is there.
    std::optional<Edge> Seen(const DrawnCell& cell, TileDirT side, std::int64_t height) const;
    /// The heights at which a side of a cell looks for its neighbour.
    std::vector<std::int64_t> HeightsOf(const DrawnCell& cell, TileDirT side) const;

private:
    void AddLayout(const ConfigTree& tree, const ConfigElement& layout, const Spot& corner);
    void
    AddRow(const ConfigTree& tree, const ConfigElement& row, const ConfigElement& layout, Spot at);

    std::vector<DrawnCell> cells; // by their places
    std::vector<std::pair<Spot, const ConfigElement*>> blanks;
    std::vector<std::int64_t> rises;
};

/// Where a layout stands in the one around it, by its offsets.
Spot OffsetOf(const ConfigElement& layout);

/// The offset that takes a layout so far from the one around it that it cannot be meant in cells;
/// null when none does.
const ConfigAttribute* FarOffset(const ConfigElement& layout, const ConfigElement& around);

} // namespace Tarnex::Report
